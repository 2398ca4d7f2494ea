#include "cli/mux_cli_commands.h"

#include "base/app_context.h"
#include "cli/console_user_interface.h"
#include "deploy/device_tools.h"
#include "deploy/project_save.h"
#include "mux/mux_rebuild.h"
#include "mux/mux_scan.h"
#include "project/project.h"
#include "project/project_file.h"
#include "remote/remote_com_port.h"

namespace {

constexpr int kSuccess = 0;
constexpr int kFailure = 1;

std::vector<int> NumberList(const wxString& text)
{
    std::vector<int> numbers;
    for (const wxString& item : wxSplit(text, ',', '\0')) {
        long n = 0;
        item.ToLong(&n);
        numbers.push_back(static_cast<int>(n));
    }
    return numbers;
}

}  // namespace

int RunVcp(AppContext& ctx, ConsoleUserInterface& ui, const CliRequest& request, std::ostream& out,
           std::ostream& err)
{
    bool reached = false, refused = false;
    ui.remoteAnswer = [&](RemoteForm& form) {
        reached = true;
        if (!request.vcpChange) {
            WriteLine(out, "COM Port: " + form.comName);
            WriteLine(out, "Target IP address: " + form.address);
            WriteLine(out, "Port Number: " + form.port);
            return false;
        }
        if (!request.com.empty()) {
            // The dialog's choice offers only the free names and the current one.
            if (form.comNames.Index(request.com) == wxNOT_FOUND) {
                WriteLine(err, "tgxcfg: " + request.com + " is neither free nor the current port; free: " +
                                   wxJoin(form.comNames, ' '));
                refused = true;
                return false;
            }
            form.comName = request.com;
        }
        if (!request.address.empty())
            form.address = request.address;
        if (!request.port.empty())
            form.port = request.port;
        return true;
    };
    const bool done = RemoteComPortCommand(ctx);
    const bool ok = done || (reached && !request.vcpChange);
    ui.Finish(!ok, err);
    return ok && !refused ? kSuccess : kFailure;
}

int RunMuxScan(AppContext& ctx, ConsoleUserInterface& ui, const CliRequest& request, const wxString& newProject,
               std::ostream& err)
{
    ui.waitForReal = true;  // the waits give the gateway time to come back
    ui.scanAnswer = [&request](ScanForm& form) {
        form.address = request.target;
        form.baudRate = request.baud;
        return true;
    };
    const bool scanned = MuxScanCommand(ctx);
    ui.Finish(!scanned, err);
    if (!scanned)
        return kFailure;
    if (request.add.empty())
        return kSuccess;
    if (request.add == "all") {
        AddAllMuxDevices(ctx, ui.scanWindow);
    } else {
        ui.scanWindow.selectedRows = NumberList(request.add);
        AddSelectedMuxDevices(ctx, ui.scanWindow);
    }
    ctx.project.projectFilePath.Assign(newProject);
    const bool saved = SaveProject(ctx, newProject);
    ui.Finish(!saved, err);
    return saved ? kSuccess : kFailure;
}

int RunMuxRebuild(AppContext& ctx, ConsoleUserInterface& ui, const CliRequest& request, std::ostream& out,
                  std::ostream& err)
{
    ui.waitForReal = true;
    ApplyTargetAddress(ctx, request.target);
    ui.rebuildAnswer = [&request, &out](MuxRebuildForm& form) {
        if (request.loops != "all") {
            form.allLoops = false;
            for (bool& loop : form.loops)
                loop = false;
            for (int loop : NumberList(request.loops))
                form.loops[loop] = true;
        }
        form.addressZeroSearch = request.method == "address0";
        form.firstDeviceSearch = !form.addressZeroSearch;
        WriteLine(out, "Estimated time: " + RebuildEstimateText(form));
        return true;
    };
    const bool rebuilt = RebuildMuxLoops(ctx, ui.scanWindow);
    ui.Finish(!rebuilt, err);
    return rebuilt ? kSuccess : kFailure;
}
