#include "mux/mux_scan.h"

#include "base/app_context.h"
#include "deploy/config_generator.h"
#include "deploy/configure_device.h"
#include "deploy/device_tools.h"
#include "deploy/installation_turn.h"
#include "deploy/project_save.h"
#include "project/project.h"
#include "project/project_file.h"
#include "remote/remote_com_port.h"

#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/log.h>

#include <memory>

const char* const kMuxNoContact = "Unable to communicate with multiplexer\nYou must configure the TG7 manually";
const char* const kMuxNoDevices = "No multiplexer devices to add\nRebuild the loops or scan the multiplexer again";

namespace {

constexpr int kListAttempts = 3;

void Fail(AppContext& ctx, const wxString& message)
{
    ctx.ui.EndProgress();
    ctx.ui.ShowMessage(message);
}

// The device line's fields, each cut at the first comma without trimming; the fourth comma's
// rest, commas included, is the description.
MuxRow DeviceRow(wxString rest)
{
    wxString fields[4];
    for (wxString& field : fields) {
        const int comma = rest.Find(',');
        if (comma == wxNOT_FOUND) {
            field = rest;
            rest.clear();
            break;
        }
        field = rest.Left(comma);
        rest = rest.Mid(comma + 1);
    }
    return MuxRow{"Device", fields[3], rest, fields[0]};
}

void ClearDevices(Project& project)
{
    for (ProjectDevice& device : project.devices)
        device = ProjectDevice{};
    project.deviceCount = 0;
    project.selectedDevice = -1;
    SetText(project.mode, "GATEWAY");
}

void SetCommand(ProjectDevice& device, int slot, int number, int interval)
{
    HartCommandEntry& command = device.commands[slot];
    command.commandNumber = number;
    command.cycleInterval = interval;
    command.pollEnabled = 1;
    command.writeCommand = 0;
}

// Row 0 is the multiplexer; every picked later row is a device, whatever its TYPE says. Add All
// puts row r into slot r, which is the device count at that moment, so both commands pack.
void AddMuxDevices(AppContext& ctx, const std::vector<MuxRow>& rows, const std::vector<int>& picked)
{
    if (rows.empty()) {
        ctx.ui.ShowMessage(kMuxNoDevices);
        return;
    }
    Project& project = ctx.project;
    ClearDevices(project);
    SetText(project.mode, "MULTIPLEXOR");
    ProjectDevice& mux = project.devices[0];
    SetText(mux.longAddress, rows[0].address);
    SetText(mux.typeName, "KFD2");
    mux.pollAddress = 0;
    mux.enabled = 1;
    SetCommand(mux, 0, 0, 5);
    mux.commandCount = 1;
    project.deviceCount = 1;
    for (int r : picked) {
        if (project.deviceCount >= MAX_DEVICES)
            break;
        if (r <= 0 || r >= static_cast<int>(rows.size()))
            continue;
        ProjectDevice& device = project.devices[project.deviceCount];
        SetText(device.longAddress, rows[r].address);
        SetText(device.deviceName, rows[r].tagName);
        SetText(device.typeName, "Generic");
        device.pollAddress = 0;
        device.enabled = 1;
        SetCommand(device, 0, 2, 1);
        SetCommand(device, 1, 3, 1);
        device.commandCount = 2;
        ++project.deviceCount;
    }
    SetText(project.tagName, "KFD2");
    project.selectedDevice = 0;
    project.selectedCommand = 0;
    project.projectSaved = 0;
    project.projectOpen = 1;
    project.projectFilePath.Clear();  // the next save asks for a name
    ctx.ui.RefreshPanel();
}

}  // namespace

std::vector<MuxRow> MuxRowsFromDeviceList(const wxArrayString& lines)
{
    std::vector<MuxRow> rows;
    wxString rest;
    for (const wxString& line : lines) {
        if (line.StartsWith("Multiplexer = ", &rest))
            rows.push_back(MuxRow{"Multiplexer", "-", "-", rest});
        else if (line.StartsWith("Device = ", &rest))
            rows.push_back(DeviceRow(rest));
    }
    return rows;
}

bool ReadMuxDeviceList(AppContext& ctx, const wxString& comName, bool waitFirst, int pause, wxArrayString& lines)
{
    if (waitFirst)
        ctx.ui.WaitSeconds(2);
    for (int attempt = 1; attempt <= kListAttempts; ++attempt) {
        lines.clear();
        if (ctx.tools.RunCaptured(ToolCommand("pfmux").Arg(comName).Arg("-rdl"), lines) == 0)
            return true;
        if (attempt < kListAttempts && pause > 0)
            ctx.ui.WaitSeconds(pause);
    }
    return false;
}

bool MuxScanCommand(AppContext& ctx)
{
    wxArrayString output;
    {
        wxLogNull quiet;
        if (ctx.tools.RunCaptured(ToolCommand("ttvsp").Arg("-g"), output) == -1) {
            // The words missing from this text are missing from the original too.
            ctx.ui.ShowMessage("Multiplexor scanning TGxConnect software to be installed");
            return false;
        }
    }
    ScanForm form{ctx.target.targetEntry, "9600"};
    if (!ctx.ui.EditScan(form))
        return false;
    ApplyTargetAddress(ctx, form.address);
    const wxString problem
        = GatewayVersionProblem(ctx, "Could not connect to TG7, check IP address and network connection");
    if (!problem.empty()) {
        ctx.ui.ShowMessage(problem);
        return false;
    }

    Project& project = ctx.project;
    LoadMuxEmptyDefaults(project);
    long baud = 0;
    form.baudRate.ToLong(&baud);  // the conversion's success is not looked at
    project.serialBaudRate = static_cast<int>(baud);
    ctx.ui.RefreshPanel();
    const wxString baseProject = ctx.env.TgxProjectPath + ctx.platform.PathSeparator() + "MUXempty.prj";
    project.projectFilePath.Assign(baseProject);
    // The build takes its project copy from this file: the folder must be there.
    {
        wxLogNull quiet;  // a folder that cannot be made shows in the save that follows
        wxFileName::Mkdir(ctx.env.TgxProjectPath, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
    }
    auto turn = std::make_unique<InstallationTurn>(ctx);  // the base project and the build, until uploaded
    if (!SaveProject(ctx, baseProject))
        return false;

    // "managment": the progress title as users have always seen it.
    ctx.ui.BeginProgress("Device managment", "Base MUX config download .. Please wait");
    ctx.ui.PulseProgress("Downloading Multiplexer base configuration");
    wxString errorText, outputFolder, outputName;
    if (!GenerateConfiguration(ctx, errorText, outputFolder, outputName) || !UploadConfiguration(ctx, errorText)) {
        Fail(ctx, errorText);
        return false;
    }
    {
        wxLogNull quiet;  // a file already gone is no reason for a message
        wxRemoveFile(baseProject);
        wxRemoveFile(MapFilePath(baseProject));
    }
    turn.reset();
    ctx.ui.PulseProgress("Restarting the HART Gateway");
    if (!RebootDevice(ctx, 1)) {
        Fail(ctx, "ERROR : Failed to reboot TG7");
        return false;
    }
    const ComPortTurn comPort(ctx);
    const wxArrayString freeNames = ctx.platform.FreeComPortNames();
    if (freeNames.empty()) {
        Fail(ctx, kNoFreeComNames);
        return false;
    }
    const wxString comName = freeNames[0];
    wxArrayString ignored;
    if (ctx.tools.RunCaptured(ToolCommand("ttvsp").Arg(comName).Arg(ctx.target.targetHost).Arg(wxString::Format("-p=%d", project.vcpPort)),
                              ignored) != 0) {
        Fail(ctx, kCannotCreateVirtualPort);
        return false;
    }
    ctx.ui.PulseProgress("Querying Multiplexer ... Please wait");
    // The gateway needs time to come back after its restart.
    wxArrayString lines;
    const bool listed = ReadMuxDeviceList(ctx, comName, true, 2, lines);
    ctx.ui.EndProgress();
    ctx.tools.RunCaptured(ToolCommand("ttvsp").Arg(comName).Arg("-d"), ignored);
    if (!listed) {
        ctx.ui.ShowMessage(kMuxNoContact);
        return false;
    }
    MuxScanWindow* window = ctx.ui.OpenMuxScanWindow();
    if (window != nullptr)
        window->ShowRows(MuxRowsFromDeviceList(lines));
    return true;
}

void AddAllMuxDevices(AppContext& ctx, const MuxScanWindow& window)
{
    const std::vector<MuxRow> rows = window.Rows();
    std::vector<int> all;
    for (int r = 1; r < static_cast<int>(rows.size()); ++r)
        all.push_back(r);
    AddMuxDevices(ctx, rows, all);
}

void AddSelectedMuxDevices(AppContext& ctx, const MuxScanWindow& window)
{
    AddMuxDevices(ctx, window.Rows(), window.SelectedRows());
}
