// Copies between the PC and the gateway's file system. Files travel byte for byte.
#include "exit_codes.h"
#include "tools.h"

#include <wx/filefn.h>
#include <wx/filename.h>

namespace sim {

namespace {

// ttgetfile HOST REMOTE LOCAL
class GetFileTool : public GatewayTool {
public:
    wxString Usage() const override { return "ttgetfile HOST REMOTE LOCAL"; }
    bool ParseArguments(const wxArrayString& args, wxString& problem) override
    {
        if (!TakeHost(args, 3, 3, problem))
            return false;
        remote = args[1];
        local = args[2];
        if (local.empty()) {
            problem = "no local file named";
            return false;
        }
        return true;
    }
    int Run(ToolContext& context) override
    {
        wxString source;
        if (!context.state.ResolveRemote(remote, source) || !wxFileExists(source)) {
            ToolError("ttgetfile", remote + ": no such file on the gateway at " + host);
            return kExitFailed;
        }
        const wxString target = LocalPath(context, local);
        if (!wxCopyFile(source, target, true)) {
            ToolError("ttgetfile", "cannot write " + target);
            return kExitCannotWrite;
        }
        return kExitOk;
    }

private:
    wxString remote, local;
};

// ttputfile HOST LOCAL REMOTE [-c]. A remote folder (an existing one, or a path ending in "/")
// receives the file under its local name. The folder must exist on the gateway, as with any
// copy over SSH; -c is accepted and changes nothing in the simulation.
class PutFileTool : public GatewayTool {
public:
    wxString Usage() const override { return "ttputfile HOST LOCAL REMOTE [-c]"; }
    bool ParseArguments(const wxArrayString& args, wxString& problem) override
    {
        if (!TakeHost(args, 3, 4, problem))
            return false;
        local = args[1];
        remote = args[2];
        if (args.size() == 4 && args[3] != "-c") {
            problem = "unknown option '" + args[3] + "'";
            return false;
        }
        if (local.empty()) {
            problem = "no local file named";
            return false;
        }
        return true;
    }
    int Run(ToolContext& context) override
    {
        const wxString source = LocalPath(context, local);
        if (!wxFileExists(source)) {
            ToolError("ttputfile", local + ": no such file in " + context.workingDirectory);
            return kExitFailed;
        }
        wxString target;
        if (!context.state.ResolveRemote(remote, target)) {
            ToolError("ttputfile", "'" + remote + "' is not a file path on the gateway");
            return kExitFailed;
        }
        if (remote.EndsWith("/") || wxDirExists(target))
            target << wxFileName::GetPathSeparator() << wxFileName(source).GetFullName();
        const wxString folder = wxFileName(target).GetPath();
        if (!wxDirExists(folder)) {
            ToolError("ttputfile", "no folder for " + remote + " on the gateway at " + host);
            return kExitFailed;
        }
        if (!wxCopyFile(source, target, true)) {
            ToolError("ttputfile", "cannot write " + remote + " on the gateway");
            return kExitCannotWrite;
        }
        return kExitOk;
    }

private:
    wxString local, remote;
};

}  // namespace

std::unique_ptr<Tool> MakeGetFileTool() { return std::make_unique<GetFileTool>(); }
std::unique_ptr<Tool> MakePutFileTool() { return std::make_unique<PutFileTool>(); }

}  // namespace sim
