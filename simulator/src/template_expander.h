// Expands the configuration script (ct.ini) with the template set, as ttbuild does.
//
// The script holds "; comments", blank lines and "#include NAME(ARG,ARG,...)" (or "#include NAME")
// lines. Each include reads the template file NAME and adds its lines to defs.ini (system and
// device definitions, the default) or app.ini (application and Modbus items). In a template:
//
//   ; comment                     dropped, as are blank lines
//   #section defs | #section app  where the following lines of this template go
//   #define NAME VALUE            a symbol for everything expanded after it
//   #include NAME(ARGS)           another template, its arguments substituted first
//   $1 .. $9, $10 ...             argument N (all digits after the "$" count: $10 is argument 10)
//   ${N}                          argument N where a digit follows: ${1}0
//   ${NAME}                       a symbol defined earlier
//   $0                            the template's own name
//   $[EXPR]                       whole-number arithmetic after substitution: + - * / % ( )
//   $$                            a "$"
//
// A template that uses an argument it was not given, an unknown symbol or directive, or an
// expression that is not a number is an error that names the template and line.
#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

#include <map>

namespace sim {

struct ExpandedConfiguration {
    wxArrayString defs;
    wxArrayString app;
    int expansions = 0;  // templates expanded, nested ones included
};

enum class ExpandResult { Ok, MissingTemplate, Error };

class TemplateExpander {
public:
    // Templates are looked for in these folders, in order.
    explicit TemplateExpander(const wxArrayString& folders);

    ExpandResult ExpandScript(
        const wxArrayString& script, const wxString& scriptName, ExpandedConfiguration& out, wxString& problem);

private:
    enum Section { Defs, App };

    struct Expansion {
        wxString name;
        wxArrayString args;
        wxString marker;  // "; ct.ini's include > nested include", written before its first line
        bool marked[2] = {false, false};
        Section section = Defs;
    };

    // `parentMarker` names the includes this one sits in, for the marker comment in the output.
    ExpandResult Include(const wxString& directive, const wxString& origin, int depth, const wxString& parentMarker);
    ExpandResult ExpandTemplateLine(Expansion& expansion, const wxString& line, const wxString& where, int depth);
    bool Substitute(const Expansion& expansion, const wxString& text, wxString& result, wxString& problem) const;
    void Emit(Expansion& expansion, const wxString& line);

    wxArrayString folders;
    std::map<wxString, wxString> symbols;
    ExpandedConfiguration* output = nullptr;
    wxString problemText;
};

// Parses "NAME(ARG,...)" or "NAME"; empty parentheses give no arguments.
bool ParseIncludeTarget(const wxString& text, wxString& name, wxArrayString& args, wxString& problem);

// Whole-number arithmetic: + - * / % and parentheses, unary minus.
bool EvaluateExpression(const wxString& text, long long& value, wxString& problem);

}  // namespace sim
