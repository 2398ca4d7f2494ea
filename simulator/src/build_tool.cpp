// ttbuild -s=BUILD -f=LINUX "-i=<build>/INCLUDE" "-a=<build>/ADDITIONAL" "-o=<output>" "-c=config"
//
// Run in the templates folder. Expands INCLUDE/ct.ini with the templates (looked for in the -s
// folder first, then in the templates folder itself) into defs.ini and app.ini in the output
// folder, and copies ADDITIONAL's dbsave.txt, tgxconfig.prj and MBMAP1.csv beside them: the
// five files ttrestore installs. A build that fails leaves none of the five in the output
// folder, so a stale configuration can never be uploaded after it.
#include "exit_codes.h"
#include "template_expander.h"
#include "text_io.h"
#include "tools.h"

#include <wx/filefn.h>
#include <wx/filename.h>

namespace sim {

namespace {

const char* const kAdditionalFiles[] = {"dbsave.txt", "tgxconfig.prj", "MBMAP1.csv"};
const char* const kOutputFiles[] = {"defs.ini", "app.ini", "dbsave.txt", "tgxconfig.prj", "MBMAP1.csv"};

class BuildTool : public Tool {
public:
    wxString Usage() const override
    {
        return "ttbuild -s=BUILD -f=LINUX \"-i=INCLUDE-FOLDER\" \"-a=ADDITIONAL-FOLDER\" \"-o=OUTPUT-FOLDER\" "
               "\"-c=config\"    (run in the templates folder)";
    }

    bool ParseArguments(const wxArrayString& args, wxString& problem) override
    {
        const char* const keys[] = {"-s", "-f", "-i", "-a", "-o", "-c"};
        wxString* const values[] = {&source, &format, &include, &additional, &outputFolder, &configName};
        for (wxString* value : values)
            value->clear();
        for (const wxString& arg : args) {
            const wxString key = arg.BeforeFirst('=');
            size_t k = 0;
            while (k < 6 && key != keys[k])
                ++k;
            if (k == 6 || !arg.Contains("=")) {
                problem = "unknown argument '" + arg + "'";
                return false;
            }
            if (!values[k]->empty()) {
                problem = key + " given twice";
                return false;
            }
            *values[k] = arg.AfterFirst('=');
            if (values[k]->empty()) {
                problem = key + "= needs a value";
                return false;
            }
        }
        for (size_t k = 0; k < 6; ++k) {
            if (values[k]->empty()) {
                problem = wxString(keys[k]) + "= is missing";
                return false;
            }
        }
        if (format != "LINUX") {
            problem = "-f=" + format + ": the gateway's format is LINUX";
            return false;
        }
        if (configName != "config") {
            problem = "-c=" + configName + ": the only configuration set is 'config'";
            return false;
        }
        return true;
    }

    int Run(ToolContext& context) override
    {
        const wxChar sep = wxFileName::GetPathSeparator();
        const wxString output = LocalPath(context, outputFolder);
        if (wxDirExists(output))
            for (const char* name : kOutputFiles)
                wxRemoveFile(output + sep + name);

        const wxString sourceFolder = LocalPath(context, source);
        if (!wxDirExists(sourceFolder)) {
            Error("no folder " + source + " in " + context.workingDirectory + " (run ttbuild in the templates folder)");
            return kExitMissingInput;
        }
        const wxString scriptPath = LocalPath(context, include) + sep + "ct.ini";
        wxArrayString script;
        if (!ReadLines(scriptPath, script)) {
            Error("cannot read the configuration script " + scriptPath);
            return kExitMissingInput;
        }
        const wxString additionalFolder = LocalPath(context, additional);
        for (const char* name : kAdditionalFiles) {
            if (!wxFileExists(additionalFolder + sep + name)) {
                Error("no " + wxString(name) + " in " + additionalFolder);
                return kExitMissingInput;
            }
        }

        wxArrayString folders;
        folders.Add(sourceFolder);
        folders.Add(context.workingDirectory);
        TemplateExpander expander(folders);
        ExpandedConfiguration expanded;
        wxString problem;
        switch (expander.ExpandScript(script, "ct.ini", expanded, problem)) {
        case ExpandResult::Ok: break;
        case ExpandResult::MissingTemplate: Error(problem); return kExitMissingTemplate;
        case ExpandResult::Error: Error(problem); return kExitTemplateError;
        }

        if (!wxDirExists(output) && !wxFileName::Mkdir(output, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL)) {
            Error("cannot create the output folder " + output);
            return kExitCannotWrite;
        }
        wxArrayString defs, app;
        defs.Add("; defs.ini: the gateway's system and device definitions");
        defs.Add("; expanded by ttbuild from " + scriptPath + "; every build replaces it");
        defs.insert(defs.end(), expanded.defs.begin(), expanded.defs.end());
        app.Add("; app.ini: the gateway's application and Modbus items");
        app.Add("; MBITEM=SECTION,ADDRESS,BYTE_ORDER,TYPE,TAGNAME,DESCRIPTION,REG_COUNT");
        app.insert(app.end(), expanded.app.begin(), expanded.app.end());
        if (!WriteLines(output + sep + "defs.ini", defs) || !WriteLines(output + sep + "app.ini", app)) {
            Error("cannot write defs.ini and app.ini in " + output);
            RemoveOutputs(output);
            return kExitCannotWrite;
        }
        for (const char* name : kAdditionalFiles) {
            if (!wxCopyFile(additionalFolder + sep + name, output + sep + name, true)) {
                Error("cannot copy " + wxString(name) + " into " + output);
                RemoveOutputs(output);
                return kExitCannotWrite;
            }
        }
        PrintLine(wxString::Format("ttbuild: %d template%s expanded into %s", expanded.expansions,
            expanded.expansions == 1 ? "" : "s", output));
        return kExitOk;
    }

private:
    static void Error(const wxString& message) { ToolError("ttbuild", message); }
    static void RemoveOutputs(const wxString& output)
    {
        for (const char* name : kOutputFiles)
            wxRemoveFile(output + wxFileName::GetPathSeparator() + name);
    }

    wxString source, format, include, additional, outputFolder, configName;
};

}  // namespace

std::unique_ptr<Tool> MakeBuildTool() { return std::make_unique<BuildTool>(); }

}  // namespace sim
