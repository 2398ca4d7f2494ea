#include "cli/cli_commands.h"

#include "base/app_context.h"
#include "base/text_file.h"
#include "cli/cli_json.h"
#include "cli/console_user_interface.h"
#include "cli/mux_cli_commands.h"
#include "commands/project_commands.h"
#include "commands/startup.h"
#include "deploy/automatic_map.h"
#include "deploy/config_generator.h"
#include "deploy/configure_device.h"
#include "deploy/device_tools.h"
#include "deploy/firmware_update.h"
#include "deploy/installation_turn.h"
#include "deploy/load_from_device.h"
#include "deploy/maintenance_commands.h"
#include "deploy/project_save.h"
#include "modbus/map_editing.h"
#include "modbus/map_export.h"
#include "modbus/map_import.h"
#include "modbus/map_modes.h"
#include "platform/wx_tool_runner.h"
#include "project/command_list.h"
#include "project/device_list.h"
#include "project/project_check.h"
#include "project/project_diff.h"
#include "project/project_file.h"

#include <wx/filefn.h>
#include <wx/filename.h>

#include <memory>
#include <sstream>

namespace {

constexpr int kSuccess = 0;
constexpr int kFailure = 1;

// The tools run blocking and hidden (ttbuild, and inifile through the shell) with their output
// captured and dropped, so that a report on standard output (diff's) stays the report alone.
class QuietToolRunner : public ToolRunner {
public:
    explicit QuietToolRunner(ToolRunner& tools)
        : tools(tools)
    {
    }
    long RunCaptured(const ToolCommand& command, wxArrayString& output) override
    {
        return tools.RunCaptured(command, output);
    }
    long RunBlockingHidden(const ToolCommand& command) override
    {
        wxArrayString dropped;
        return tools.RunCaptured(command, dropped);
    }
    long RunDetached(const ToolCommand& command) override { return tools.RunDetached(command); }
    bool SetWorkingDirectory(const wxString& directory) override { return tools.SetWorkingDirectory(directory); }
    void SetEnvironment(const wxString& name, const wxString& value) override { tools.SetEnvironment(name, value); }

private:
    ToolRunner& tools;
};

// What the desktop tool holds from start-up on, and the console in place of its windows.
struct Session {
    Session(bool answerYes, std::ostream& out)
        : ui(out, answerYes)
    {
    }

    std::unique_ptr<Platform> platform = CreatePlatform();
    Project project;
    InstallationEnvironment env;
    TargetAddress target;
    DeviceTypeTable deviceTypes;
    ConsoleUserInterface ui;
    WxToolRunner tools;
    AppContext ctx{project, env, target, deviceTypes, ui, tools, *platform};
};

// A path from the command line, made absolute at once: the commands change the current folder
// before they run the suite's tools.
wxString AbsolutePath(const wxString& path)
{
    wxFileName file(path);
    file.MakeAbsolute();
    return file.GetFullPath();
}

// --software-path as the registry's "Path" value holds it: absolute, ending with a separator.
wxString SoftwareFolder(const wxString& dir, const wxString& separator)
{
    wxString folder = wxIsAbsolutePath(dir) ? dir : wxGetCwd() + separator + dir;
    if (!wxFileName::IsPathSeparator(folder.Last()))
        folder += separator;
    return folder;
}

// Start-up without the updater and without the window: the installation, its paths and its
// device types, the start-up address and the SSH port the tools expect.
bool ReadCliInstallation(Session& s, const wxString& softwarePath, MessageForm& fault)
{
    if (softwarePath.empty()) {
        if (!ReadInstallation(*s.platform, s.env, fault))
            return false;
    } else {
        // The versions and the TGx Connect folder still come from the registry when it has the
        // suite's key; every path is derived from the folder given.
        ReadInstallationEnvironment(*s.platform, s.env);
        const wxString separator = s.platform->PathSeparator();
        s.env.TgxSoftwarePath = SoftwareFolder(softwarePath, separator);
        DeriveInstallationPaths(s.env, separator, s.platform->DocumentsDir());
    }
    bool refused = false;
    if (!ReadDeviceTypes(s.env, s.deviceTypes, fault, &refused))
        return false;
    // The desktop tool starts with an empty device table; a script is told.
    if (refused) {
        fault = MessageForm{"tgxcfg: cannot read " + DeviceTypeFilePath(s.env), wxString(), MessageIcon::None};
        return false;
    }
    s.target.targetEntry = kInitialTargetAddress;
    s.target.targetHost = kInitialTargetAddress;
    s.tools.SetEnvironment("TT_SSH_PORT", "22");
    return true;
}

bool LoadProject(Session& s, const wxString& path, const wxString& shownPath, std::ostream& err)
{
    wxString map;
    switch (ReadProjectFromDisk(s.ctx, path, &map)) {
    case ProjectReadResult::Read: return true;
    case ProjectReadResult::Unreadable: WriteLine(err, "tgxcfg: cannot read " + shownPath); return false;
    case ProjectReadResult::NoContent: WriteLine(err, kNoContentMessage); return false;
    case ProjectReadResult::MapUnreadable:
        WriteLine(err, "tgxcfg: cannot read the map file " + MapFilePath(shownPath, map.EndsWith(".mb") ? "mb" : "mbd"));
        return false;
    }
    return false;
}

int Show(Session& s, const CliRequest& request, std::ostream& out)
{
    const Project& project = s.project;
    if (request.format == "json") {
        out << ProjectJson(project);
        return kSuccess;
    }
    WriteLine(out, "[settings]");
    // The file's settings: after its version line and the empty line, up to the first device.
    const wxArrayString fileLines = ProjectFileLines(project);
    for (size_t i = 2; i < fileLines.size() && !fileLines[i].StartsWith("FOR DEVICE:"); ++i)
        WriteLine(out, fileLines[i]);
    WriteLine(out, "[devices]");
    for (const wxString& line : DeviceListLines(project))
        WriteLine(out, line);
    for (int d = 0; d < project.deviceCount && d < MAX_DEVICES; ++d) {
        WriteLine(out, wxString::Format("[commands of device %d]", d));
        const ProjectDevice& device = project.devices[d];
        for (int c = 0; c < device.commandCount && c < MAX_COMMANDS; ++c)
            WriteLine(out, CommandListLine(device.commands[c]));
    }
    return kSuccess;
}

// A file that is no project at all is neither taken for one (it loads as the defaults) nor saved over.
bool RefuseNonProject(const wxString& path, const wxString& shownPath, std::ostream& err)
{
    if (!wxFileExists(path) || IsProjectFile(path))
        return false;
    WriteLine(err, "tgxcfg: " + shownPath + " is not a project file; it is left as it is");
    return true;
}

int Resave(Session& s, const wxString& path, std::ostream& err)
{
    s.project.projectFilePath.Assign(path);
    // In automatic map mode the save generates the map; its failure is a message.
    const bool failed = !SaveProject(s.ctx, path) || s.ui.MessageShown();
    s.ui.Finish(failed, err);
    return failed ? kFailure : kSuccess;
}

int Generate(Session& s, const CliRequest& request, std::ostream& err)
{
    // The generator reports no failure to write; the folders it writes into are checked first.
    for (const char* name : {"INCLUDE", "ADDITIONAL"}) {
        const wxString folder = BuildFolder(s.ctx, name);
        if (!wxDirExists(folder) || !wxFileName::IsDirWritable(folder)) {
            WriteLine(err, "tgxcfg: cannot write into the build folder " + folder);
            return kFailure;
        }
    }
    wxString errorText, outputName;
    wxString outputFolder = request.outputFolder.empty() ? wxString() : AbsolutePath(request.outputFolder);
    const InstallationTurn turn(s.ctx);
    WriteConfiguration(s.project, s.deviceTypes, s.env.TgxBuildPath, s.platform->PathSeparator());
    if (request.noBuild || BuildConfiguration(s.ctx, errorText, outputFolder, outputName))
        return kSuccess;
    WriteLine(err, errorText);
    return kFailure;
}

int ExportMap(Session& s, const wxString& path, const wxString& shownPath, std::ostream& err)
{
    if (WriteMapExport(path, s.project.modbusMapLines))
        return kSuccess;
    WriteLine(err, "tgxcfg: cannot write " + shownPath);
    return kFailure;
}

int Check(Session& s, const CliRequest& request, const wxString& path, const wxString& shownPath, std::ostream& out)
{
    // The map was read from the older ".mb" file when there is no ".mbd".
    const wxString shownMap = MapFilePath(shownPath, wxFileExists(MapFilePath(path)) ? "mbd" : "mb");
    const std::vector<ProjectProblem> problems = CheckProject(s.project, s.deviceTypes, path);
    if (request.format == "json")
        out << ProblemsJson(problems, shownPath, shownMap);
    else
        for (const ProjectProblem& problem : problems)
        WriteLine(out, FormatProblem(problem, shownPath, shownMap));
    return problems.empty() ? kSuccess : kFailure;
}

int Configure(Session& s, const CliRequest& request, std::ostream& err)
{
    s.ui.AnswerEntry(kTargetAddressPrompt, request.target);
    if (request.tagGiven)
        s.ui.AnswerEntry(kTagNamePrompt, request.tag);
    const bool configured = ConfigureDevice(s.ctx);
    s.ui.Finish(!configured, err);
    return configured ? kSuccess : kFailure;
}

// The map commands show no message when they succeed: any message ends them with status 1.
int FinishMapCommand(Session& s, bool done, std::ostream& err)
{
    const bool failed = !done || s.ui.MessageShown();
    s.ui.Finish(failed, err);
    return failed ? kFailure : kSuccess;
}

int MapMode(Session& s, const wxString& mode, std::ostream& err)
{
    const bool toAutomatic = mode == "automatic";
    // The item already checked: nothing to do, as a click on it does nothing.
    if ((s.project.automaticModbusMap == 1) == toAutomatic)
        return kSuccess;
    return FinishMapCommand(s, SwitchMapMode(s.ctx, toAutomatic, true), err);
}

int ImportMap(Session& s, const CliRequest& request, std::ostream& err)
{
    if (!request.fromProject.empty())
        return FinishMapCommand(s, ImportMapFromProjectFile(s.ctx, AbsolutePath(request.fromProject)), err);
    s.ui.AnswerEntry(kTargetAddressPrompt, request.target);
    return FinishMapCommand(s, ImportMapFromDevice(s.ctx), err);
}

// As the desktop tool starts: the default project, none open; the address prompt answered.
void StartWithoutProject(Session& s, const wxString& target)
{
    LoadDefaultProject(s.project);
    s.project.projectSaved = 1;
    s.project.projectOpen = 0;
    s.ui.AnswerEntry(kTargetAddressPrompt, target);
}

// A project file's side of a diff as the tool sends it. In automatic map mode that is the map the
// save generates from the templates (Load from Disk and Configure save before anything is sent), not
// the map file's lines: it is generated as that save generates it, the tools' output and a wait for
// another run kept off the report. A generation that shows a message ends the diff with it.
bool GenerateMapAsSent(Session& s, std::ostream& err)
{
    if (s.project.automaticModbusMap != 1)
        return true;
    std::ostringstream quiet;
    ConsoleUserInterface ui(quiet, false);
    QuietToolRunner tools(s.tools);
    AppContext ctx{s.project, s.env, s.target, s.deviceTypes, ui, tools, *s.platform};
    GenerateAutomaticMap(ctx);
    ui.Finish(ui.MessageShown(), err);
    return !ui.MessageShown();
}

// The second side of a diff: another project file, or what the gateway runs, fetched as Load From
// TG7 fetches it (its progress kept off the report) and not saved.
bool LoadSecondSide(const CliRequest& request, const wxString& path, Project& second, std::ostream& err)
{
    std::ostringstream quiet;
    auto other = std::make_unique<Session>(false, quiet);
    MessageForm fault;
    if (!ReadCliInstallation(*other, request.softwarePath, fault)) {
        WriteLine(err, fault.text);
        return false;
    }
    if (request.target.empty()) {
        if (!LoadProject(*other, path, request.arguments[1], err) || !GenerateMapAsSent(*other, err))
            return false;
    } else {
        StartWithoutProject(*other, request.target);
        LoadProjectFromDevice(other->ctx);
        const bool fetched = other->project.projectOpen == 1;
        other->ui.Finish(!fetched, err);
        if (!fetched)
            return false;
    }
    second = std::move(other->project);
    return true;
}

int Diff(Session& s, const CliRequest& request, const wxString& secondPath, std::ostream& out, std::ostream& err)
{
    auto second = std::make_unique<Project>();
    if (!GenerateMapAsSent(s, err) || !LoadSecondSide(request, secondPath, *second, err))
        return kFailure;
    const std::vector<ProjectDifference> differences = DiffProjects(s.project, *second);
    if (request.format == "json")
        out << DifferencesJson(differences);
    else
        for (const ProjectDifference& difference : differences)
            WriteLine(out, FormatDifference(difference));
    return differences.empty() ? kSuccess : kFailure;
}

// What the gateway is and runs: ttdevtype's report beside the versions the installation is built
// for, and a summary of the project the gateway runs, fetched as diff --target fetches it. A gateway
// without a project is a report too, with the fetch's message in place of the summary.
int Info(Session& s, const CliRequest& request, std::ostream& out, std::ostream& err)
{
    ApplyTargetAddress(s.ctx, request.target);
    GatewayInfo info;
    const wxString problem = ReadGatewayVersions(
        s.ctx, "Could not connect to TG7, check IP address and network connection", info.versions);
    if (!problem.empty()) {
        WriteLine(err, problem);
        return kFailure;
    }
    info.firmwareMatches = info.versions.firmware == s.env.FirmwareVersion;
    std::ostringstream fetchMessage;
    info.projectFetched = LoadSecondSide(request, wxString(), s.project, fetchMessage);
    info.projectProblem = wxString::FromUTF8(fetchMessage.str()).BeforeFirst('\n');
    if (request.format == "json") {
        out << InfoJson(info, s.env, s.project);
        return kSuccess;
    }
    const GatewayVersions& v = info.versions;
    for (const wxString& line : {"Device type: " + v.deviceType, "Firmware: " + v.firmware, "Templates: " + v.templates,
             "Installation firmware: " + s.env.FirmwareVersion, "Installation templates: " + s.env.TemplatesVersion,
             wxString("Firmware matches the installation: ") + (info.firmwareMatches ? "yes" : "no")})
        WriteLine(out, line);
    if (!info.projectFetched) {
        WriteLine(out, "Project: none (" + info.projectProblem + ")");
        return kSuccess;
    }
    const Project& p = s.project;
    WriteLine(out, wxString::Format("Project: %s, mode %s, %d devices, %s map of %d lines", GetText(p.tagName),
                       GetText(p.mode), p.deviceCount, p.automaticModbusMap == 1 ? "automatic" : "user defined",
                       static_cast<int>(p.modbusMapLines.size())));
    for (const wxString& line : DeviceListLines(p))
        WriteLine(out, line);
    return kSuccess;
}

// The commands that work on the gateway alone start as the desktop tool does: the default project,
// none open, the address answered from --target.
int RunGatewayCommand(Session& s, const CliRequest& request, std::ostream& err)
{
    StartWithoutProject(s, request.target);
    bool done = false;
    switch (request.command) {
    case CliCommand::Fetch: {
        const wxString path = AbsolutePath(request.arguments[0]);
        LoadProjectFromDevice(s.ctx);
        if (s.project.projectOpen == 1) {
            s.project.projectFilePath.Assign(path);
            done = SaveProject(s.ctx, path);
        }
        break;
    }
    case CliCommand::UpdateFirmware: done = UpdateFirmware(s.ctx); break;
    case CliCommand::UploadInstallers: done = UploadInstallers(s.ctx); break;
    case CliCommand::Reboot: done = RebootTarget(s.ctx); break;
    default: break;
    }
    s.ui.Finish(!done, err);
    return done ? kSuccess : kFailure;
}

} // namespace

int RunCliRequest(const CliRequest& request, std::ostream& out, std::ostream& err)
{
    if (request.command == CliCommand::Fetch || request.command == CliCommand::Info
        || request.command == CliCommand::UpdateFirmware || request.command == CliCommand::UploadInstallers
        || request.command == CliCommand::Reboot) {
        auto session = std::make_unique<Session>(request.yes, out);
        MessageForm fault;
        if (!ReadCliInstallation(*session, request.softwarePath, fault)) {
            WriteLine(err, fault.text);
            return kFailure;
        }
        if (request.command == CliCommand::Info)
            return Info(*session, request, out, err);
        return RunGatewayCommand(*session, request, err);
    }
    // Every path is made absolute before anything changes the current folder.
    const wxString projectPath = request.arguments.empty() ? wxString() : AbsolutePath(request.arguments[0]);
    const wxString secondPath = request.arguments.size() > 1 ? AbsolutePath(request.arguments[1]) : wxString();

    auto session = std::make_unique<Session>(request.yes, out);
    MessageForm fault;
    if (!ReadCliInstallation(*session, request.softwarePath, fault)) {
        WriteLine(err, fault.text);
        return kFailure;
    }
    // The multiplexer commands and vcp without PROJECT work on the default project, as the window
    // does before a project is opened.
    const bool ownProject = request.command == CliCommand::MuxScan || request.command == CliCommand::MuxRebuild;
    if (ownProject || projectPath.empty())
        LoadDefaultProject(session->project);
    else if (!LoadProject(*session, projectPath, request.arguments[0], err))
        return kFailure;

    switch (request.command) {
    case CliCommand::Show: return Show(*session, request, out);
    case CliCommand::Resave:
        if (RefuseNonProject(projectPath, request.arguments[0], err)
            || (!secondPath.empty() && RefuseNonProject(secondPath, request.arguments[1], err)))
            return kFailure;
        return Resave(*session, secondPath.empty() ? projectPath : secondPath, err);
    case CliCommand::Generate: return Generate(*session, request, err);
    case CliCommand::ExportMap: return ExportMap(*session, secondPath, request.arguments[1], err);
    case CliCommand::Check: return Check(*session, request, projectPath, request.arguments[0], out);
    case CliCommand::Diff: return Diff(*session, request, secondPath, out, err);
    case CliCommand::Configure: return Configure(*session, request, err);
    case CliCommand::MapMode: return MapMode(*session, request.arguments[1], err);
    case CliCommand::ImportMap: return ImportMap(*session, request, err);
    case CliCommand::EditMap: return FinishMapCommand(*session, EditModbusMap(session->ctx), err);
    case CliCommand::Vcp: return RunVcp(session->ctx, session->ui, request, out, err);
    case CliCommand::MuxScan: return RunMuxScan(session->ctx, session->ui, request, projectPath, err);
    case CliCommand::MuxRebuild: return RunMuxRebuild(session->ctx, session->ui, request, out, err);
    default: break;
    }
    return kFailure;
}
