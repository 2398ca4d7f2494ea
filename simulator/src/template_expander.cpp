#include "template_expander.h"

#include "text_io.h"

#include <wx/filefn.h>
#include <wx/filename.h>

namespace sim {

namespace {

// Deeper than this is taken for a template that includes itself.
constexpr int kMaxIncludeDepth = 8;

bool IsSymbolName(const wxString& name)
{
    if (name.empty() || wxIsdigit(name[0]))
        return false;
    for (const wxUniChar c : name)
        if (!(wxIsalnum(c) || c == '_'))
            return false;
    return true;
}

bool AllDigits(const wxString& text)
{
    if (text.empty())
        return false;
    for (const wxUniChar c : text)
        if (!wxIsdigit(c))
            return false;
    return true;
}

// Recursive descent over the characters of one expression.
class ExpressionParser {
public:
    explicit ExpressionParser(const wxString& text_)
        : text(text_)
    {
    }

    bool Parse(long long& value, wxString& problem)
    {
        if (!Sum(value, problem))
            return false;
        SkipBlanks();
        if (pos != text.length()) {
            problem = "'" + text + "' is not a whole-number expression";
            return false;
        }
        return true;
    }

private:
    void SkipBlanks()
    {
        while (pos < text.length() && (text[pos] == ' ' || text[pos] == '\t'))
            ++pos;
    }
    bool Take(wxUniChar c)
    {
        SkipBlanks();
        if (pos < text.length() && text[pos] == c) {
            ++pos;
            return true;
        }
        return false;
    }
    bool Sum(long long& value, wxString& problem)
    {
        if (!Product(value, problem))
            return false;
        for (;;) {
            long long right = 0;
            if (Take('+')) {
                if (!Product(right, problem))
                    return false;
                value += right;
            } else if (Take('-')) {
                if (!Product(right, problem))
                    return false;
                value -= right;
            } else {
                return true;
            }
        }
    }
    bool Product(long long& value, wxString& problem)
    {
        if (!Factor(value, problem))
            return false;
        for (;;) {
            SkipBlanks();
            if (pos >= text.length())
                return true;
            const wxUniChar op = text[pos];
            if (op != '*' && op != '/' && op != '%')
                return true;
            ++pos;
            long long right = 0;
            if (!Factor(right, problem))
                return false;
            if (op != '*' && right == 0) {
                problem = "division by zero in '" + text + "'";
                return false;
            }
            value = op == '*' ? value * right : op == '/' ? value / right : value % right;
        }
    }
    bool Factor(long long& value, wxString& problem)
    {
        if (Take('-')) {
            if (!Factor(value, problem))
                return false;
            value = -value;
            return true;
        }
        if (Take('(')) {
            if (!Sum(value, problem))
                return false;
            if (!Take(')')) {
                problem = "a parenthesis is not closed in '" + text + "'";
                return false;
            }
            return true;
        }
        SkipBlanks();
        const size_t start = pos;
        while (pos < text.length() && wxIsdigit(text[pos]))
            ++pos;
        if (start == pos || pos - start > 15 || !text.Mid(start, pos - start).ToLongLong(&value)) {
            problem = "'" + text + "' is not a whole-number expression";
            return false;
        }
        return true;
    }

    wxString text;
    size_t pos = 0;
};

// The position of the "]" that closes the "[" at `open`, or npos.
size_t MatchingBracket(const wxString& text, size_t open)
{
    int depth = 0;
    for (size_t i = open; i < text.length(); ++i) {
        if (text[i] == '[')
            ++depth;
        else if (text[i] == ']' && --depth == 0)
            return i;
    }
    return wxString::npos;
}

wxString JoinArgs(const wxArrayString& args)
{
    wxString joined;
    for (size_t i = 0; i < args.size(); ++i)
        joined << (i ? "," : "") << args[i];
    return joined;
}

}  // namespace

bool EvaluateExpression(const wxString& text, long long& value, wxString& problem)
{
    value = 0;
    return ExpressionParser(text).Parse(value, problem);
}

bool ParseIncludeTarget(const wxString& text, wxString& name, wxArrayString& args, wxString& problem)
{
    args.Clear();
    const wxString trimmed = wxString(text).Trim().Trim(false);
    const int open = trimmed.Find('(');
    if (open == wxNOT_FOUND) {
        name = trimmed;
    } else {
        name = trimmed.Left(open).Trim();
        if (!trimmed.EndsWith(")")) {
            problem = "'#include " + trimmed + "': the argument list does not end with ')'";
            return false;
        }
        const wxString inner = trimmed.Mid(open + 1, trimmed.length() - open - 2);
        if (!inner.empty()) {
            // Every comma separates, empty arguments included: "a,,b" is three arguments.
            size_t start = 0;
            for (;;) {
                const size_t comma = inner.find(',', start);
                args.Add(inner.Mid(start, comma == wxString::npos ? wxString::npos : comma - start));
                if (comma == wxString::npos)
                    break;
                start = comma + 1;
            }
        }
    }
    if (name.empty() || name.find_first_of(" \t/\\") != wxString::npos || name.Contains("..")) {
        problem = "'" + name + "' is not a template name";
        return false;
    }
    return true;
}

TemplateExpander::TemplateExpander(const wxArrayString& folders_)
    : folders(folders_)
{
}

ExpandResult TemplateExpander::ExpandScript(
    const wxArrayString& script, const wxString& scriptName, ExpandedConfiguration& out, wxString& problem)
{
    out = ExpandedConfiguration();
    output = &out;
    symbols.clear();
    for (size_t i = 0; i < script.size(); ++i) {
        const wxString line = wxString(script[i]).Trim().Trim(false);
        const wxString where = wxString::Format("%s line %zu", scriptName, i + 1);
        if (line.empty() || line.StartsWith(";"))
            continue;
        wxString target;
        if (!line.StartsWith("#include", &target) || (!target.empty() && target[0] != ' ' && target[0] != '\t')) {
            problem = where + ": only '#include' lines and '; comments' belong in the script: '" + line + "'";
            return ExpandResult::Error;
        }
        const ExpandResult result = Include(target, where, 0, wxString());
        if (result != ExpandResult::Ok) {
            problem = problemText;
            return result;
        }
    }
    return ExpandResult::Ok;
}

ExpandResult TemplateExpander::Include(
    const wxString& directive, const wxString& origin, int depth, const wxString& parentMarker)
{
    Expansion expansion;
    if (!ParseIncludeTarget(directive, expansion.name, expansion.args, problemText)) {
        problemText = origin + ": " + problemText;
        return ExpandResult::Error;
    }
    if (depth >= kMaxIncludeDepth) {
        problemText = origin + ": includes nested deeper than " + wxString::Format("%d", kMaxIncludeDepth)
            + " (does a template include itself?)";
        return ExpandResult::Error;
    }
    wxString path;
    for (const wxString& folder : folders) {
        const wxString candidate = folder + wxFileName::GetPathSeparator() + expansion.name;
        if (wxFileExists(candidate)) {
            path = candidate;
            break;
        }
    }
    wxArrayString lines;
    if (path.empty() || !ReadLines(path, lines)) {
        wxString looked;
        for (const wxString& folder : folders)
            looked << (looked.empty() ? "" : ", ") << folder;
        problemText = "template '" + expansion.name + "' not found (" + origin + "; looked in " + looked + ")";
        return ExpandResult::MissingTemplate;
    }
    ++output->expansions;
    const wxString call = expansion.name + (expansion.args.empty() ? "" : "(" + JoinArgs(expansion.args) + ")");
    expansion.marker = parentMarker.empty() ? "; " + call : parentMarker + " > " + call;
    for (size_t j = 0; j < lines.size(); ++j) {
        const wxString where = wxString::Format("%s line %zu", expansion.name, j + 1);
        const ExpandResult result = ExpandTemplateLine(expansion, lines[j], where, depth);
        if (result != ExpandResult::Ok)
            return result;
    }
    return ExpandResult::Ok;
}

ExpandResult TemplateExpander::ExpandTemplateLine(
    Expansion& expansion, const wxString& rawLine, const wxString& where, int depth)
{
    const wxString line = wxString(rawLine).Trim();
    const wxString start = wxString(line).Trim(false);
    if (start.empty() || start.StartsWith(";"))
        return ExpandResult::Ok;
    auto fail = [&](const wxString& message) {
        problemText = where + ": " + message;
        return ExpandResult::Error;
    };

    if (start.StartsWith("#")) {
        const wxString directive = start.BeforeFirst(' ').BeforeFirst('\t');
        const wxString rest = start.Mid(directive.length()).Trim(false);
        if (directive == "#section") {
            if (rest == "defs")
                expansion.section = Defs;
            else if (rest == "app")
                expansion.section = App;
            else
                return fail("'#section " + rest + "': the sections are 'defs' and 'app'");
            return ExpandResult::Ok;
        }
        wxString substituted;
        if (!Substitute(expansion, rest, substituted, problemText))
            return fail(problemText);
        if (directive == "#define") {
            const wxString name = substituted.BeforeFirst(' ').BeforeFirst('\t');
            if (!IsSymbolName(name))
                return fail("'" + name + "' is not a symbol name (letters, digits, '_')");
            symbols[name] = substituted.Mid(name.length()).Trim(false);
            return ExpandResult::Ok;
        }
        if (directive == "#include")
            return Include(substituted, where, depth + 1, expansion.marker);
        return fail("unknown directive '" + directive + "' (#section, #define, #include)");
    }

    wxString substituted;
    if (!Substitute(expansion, line, substituted, problemText))
        return fail(problemText);
    Emit(expansion, substituted);
    return ExpandResult::Ok;
}

bool TemplateExpander::Substitute(
    const Expansion& expansion, const wxString& text, wxString& result, wxString& problem) const
{
    result.clear();
    auto argument = [&](unsigned long n) {
        if (n == 0) {
            result << expansion.name;
            return true;
        }
        if (n > expansion.args.size()) {
            problem = wxString::Format("$%lu is used but %zu argument%s given", n, expansion.args.size(),
                expansion.args.size() == 1 ? " was" : "s were");
            return false;
        }
        result << expansion.args[n - 1];
        return true;
    };

    for (size_t i = 0; i < text.length(); ++i) {
        if (text[i] != '$') {
            result << text[i];
            continue;
        }
        const wxUniChar next = i + 1 < text.length() ? text[i + 1] : wxUniChar(0);
        if (next == '$') {
            result << '$';
            ++i;
        } else if (next != 0 && wxIsdigit(next)) {
            size_t end = i + 1;
            while (end < text.length() && wxIsdigit(text[end]))
                ++end;
            unsigned long n = 0;
            text.Mid(i + 1, end - i - 1).ToULong(&n);
            if (!argument(n))
                return false;
            i = end - 1;
        } else if (next == '{') {
            const size_t close = text.find('}', i);
            if (close == wxString::npos) {
                problem = "'${' is not closed";
                return false;
            }
            const wxString inner = text.Mid(i + 2, close - i - 2);
            if (AllDigits(inner)) {
                unsigned long n = 0;
                inner.ToULong(&n);
                if (!argument(n))
                    return false;
            } else {
                const auto symbol = symbols.find(inner);
                if (symbol == symbols.end()) {
                    problem = "symbol '" + inner + "' is not defined (#define it in an earlier template)";
                    return false;
                }
                result << symbol->second;
            }
            i = close;
        } else if (next == '[') {
            const size_t close = MatchingBracket(text, i + 1);
            if (close == wxString::npos) {
                problem = "'$[' is not closed";
                return false;
            }
            wxString expression;
            long long value = 0;
            if (!Substitute(expansion, text.Mid(i + 2, close - i - 2), expression, problem)
                || !EvaluateExpression(expression, value, problem))
                return false;
            result << wxString::Format("%lld", value);
            i = close;
        } else {
            problem = "'$' must be followed by a digit, '{', '[' or '$' (write '$$' for a '$')";
            return false;
        }
    }
    return true;
}

void TemplateExpander::Emit(Expansion& expansion, const wxString& line)
{
    wxArrayString& lines = expansion.section == Defs ? output->defs : output->app;
    if (!expansion.marked[expansion.section]) {
        lines.Add(expansion.marker);
        expansion.marked[expansion.section] = true;
    }
    lines.Add(line);
}

}  // namespace sim
