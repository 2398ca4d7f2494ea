// The tools that ask the gateway about itself, install a configuration on it and restart it.
#include "exit_codes.h"
#include "text_io.h"
#include "tools.h"

#include <wx/dir.h>
#include <wx/filefn.h>
#include <wx/filename.h>

namespace sim {

namespace {

// Build numbers the simulated packages carry; the configuration tool reads only the versions.
const char* const kFirmwareBuild = "build7";
const char* const kTemplatesBuild = "build3";

// ttdevtype HOST: the device type, the firmware line and the templates line. The tool reads a
// version as the text after the line's last "v" up to the first "-", so the fixed texts around
// the versions hold no "v".
class DevTypeTool : public GatewayTool {
public:
    wxString Usage() const override { return "ttdevtype HOST"; }
    bool ParseArguments(const wxArrayString& args, wxString& problem) override { return TakeHost(args, 1, 1, problem); }
    int Run(ToolContext& context) override
    {
        GatewaySettings settings;
        context.state.LoadSettings(settings);
        PrintLine(settings.deviceType);
        PrintLine(wxString::Format("Firmware: TG7main-v%s-%s", settings.firmware, kFirmwareBuild));
        PrintLine(wxString::Format("Templates: TG7templates-v%s-%s", settings.templates, kTemplatesBuild));
        return kExitOk;
    }
};

// ttrestore HOST config, run in the build's OUTPUT folder: installs what ttbuild produced. The
// gateway keeps the expanded configuration in TG7/config/ and the project and the map beside it
// in TG7/, from where "Load project from device" and the map import fetch them.
class RestoreTool : public GatewayTool {
public:
    wxString Usage() const override { return "ttrestore HOST config    (run in the build's OUTPUT folder)"; }
    bool ParseArguments(const wxArrayString& args, wxString& problem) override
    {
        if (!TakeHost(args, 2, 2, problem))
            return false;
        if (args[1] != "config") {
            problem = "'" + args[1] + "' is not a configuration set (only 'config' is known)";
            return false;
        }
        return true;
    }
    int Run(ToolContext& context) override
    {
        struct Item {
            const char* name;
            const char* remoteFolder;
        };
        const Item items[] = {{"defs.ini", "TG7/config"}, {"app.ini", "TG7/config"}, {"dbsave.txt", "TG7/config"},
            {"tgxconfig.prj", "TG7"}, {"MBMAP1.csv", "TG7"}};
        // Checked first: a half-installed configuration is worse than none.
        wxString missing;
        for (const Item& item : items)
            if (!wxFileExists(LocalPath(context, item.name)))
                missing << (missing.empty() ? "" : ", ") << item.name;
        if (!missing.empty()) {
            ToolError("ttrestore",
                "nothing uploaded: " + context.workingDirectory + " has no " + missing + " (run ttbuild first)");
            return kExitFailed;
        }

        const wxString configFolder = context.state.GatewayFile("TG7/config");
        wxArrayString old;
        wxDir::GetAllFiles(configFolder, &old, wxEmptyString, wxDIR_FILES);
        for (const wxString& file : old)
            wxRemoveFile(file);
        for (const Item& item : items) {
            const wxString target = context.state.GatewayFile(wxString(item.remoteFolder) + "/" + item.name);
            if (!wxCopyFile(LocalPath(context, item.name), target, true)) {
                ToolError("ttrestore", "cannot write " + target);
                return kExitCannotWrite;
            }
        }
        PrintLine("Configuration uploaded to " + host);
        return kExitOk;
    }
};

// ttreboot HOST [-s=SECONDS] [-w] [-a=N]: the simulated gateway is back at once; each restart
// is one line of boot.log with the options as given.
class RebootTool : public GatewayTool {
public:
    wxString Usage() const override { return "ttreboot HOST [-s=SECONDS] [-w] [-a=N]"; }
    bool ParseArguments(const wxArrayString& args, wxString& problem) override
    {
        if (!TakeHost(args, 1, 4, problem))
            return false;
        options.clear();
        wait = false;
        wxArrayString seen;
        for (size_t i = 1; i < args.size(); ++i) {
            const wxString option = args[i].BeforeFirst('=');
            if (seen.Index(option) != wxNOT_FOUND) {
                problem = "option " + option + " given twice";
                return false;
            }
            seen.Add(option);
            long value = 0;
            if (args[i] == "-w") {
                wait = true;
            } else if ((option == "-s" || option == "-a") && args[i].Contains("=")) {
                if (!args[i].AfterFirst('=').ToLong(&value) || value < 0 || value > 3600) {
                    problem = "'" + args[i] + "' needs a whole number from 0 to 3600";
                    return false;
                }
            } else {
                problem = "unknown option '" + args[i] + "'";
                return false;
            }
            options << " " << args[i];
        }
        return true;
    }
    int Run(ToolContext& context) override
    {
        PrintLine("Restarting TG7 at " + host);
        const wxString line = wxString::Format(
            "%s\thost=%s\tTT_SSH_PORT=%s\toptions=%s", Timestamp(), host, SshPortForLog(), options.Trim(false));
        if (!context.state.AppendBootLog(line)) {
            ToolError("ttreboot", "cannot write " + context.state.GatewayFile("boot.log"));
            return kExitCannotWrite;
        }
        if (wait)
            PrintLine("TG7 at " + host + " is running");
        return kExitOk;
    }

private:
    wxString options;
    bool wait = false;
};

// ttmbprint HOST -f=2: the gateway's Modbus map, one CSV line per register item.
class MbPrintTool : public GatewayTool {
public:
    wxString Usage() const override { return "ttmbprint HOST -f=2"; }
    bool ParseArguments(const wxArrayString& args, wxString& problem) override
    {
        if (!TakeHost(args, 2, 2, problem))
            return false;
        if (args[1] != "-f=2") {
            problem = "'" + args[1] + "': only the CSV format -f=2 is simulated";
            return false;
        }
        return true;
    }
    int Run(ToolContext& context) override
    {
        wxArrayString lines;
        if (!ReadLines(context.state.GatewayFile("TG7/MBMAP1.csv"), lines)) {
            ToolError("ttmbprint", "no Modbus map on the gateway at " + host);
            return kExitFailed;
        }
        for (const wxString& line : lines)
            PrintLine(line);
        return kExitOk;
    }
};

}  // namespace

std::unique_ptr<Tool> MakeDevTypeTool() { return std::make_unique<DevTypeTool>(); }
std::unique_ptr<Tool> MakeRestoreTool() { return std::make_unique<RestoreTool>(); }
std::unique_ptr<Tool> MakeRebootTool() { return std::make_unique<RebootTool>(); }
std::unique_ptr<Tool> MakeMbPrintTool() { return std::make_unique<MbPrintTool>(); }

}  // namespace sim
