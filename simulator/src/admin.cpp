#include "admin.h"

#include "exit_codes.h"
#include "fault_plan.h"
#include "file_lock.h"
#include "run_tool.h"
#include "sim_state.h"
#include "text_io.h"
#include "tool_registry.h"

#include <wx/dir.h>
#include <wx/filefn.h>
#include <wx/filename.h>

namespace sim {

namespace {

const char* const kHelp[] = {
    "tgxsim: the TG7-Plus gateway simulator",
    "",
    "Started under a tool's name (ttdevtype, ttbuild, ...) it behaves as that tool. As tgxsim:",
    "  tgxsim show                          the gateway's settings, files, faults and restarts",
    "  tgxsim home                          the state folder (TGXSIM_HOME, default ~/.tgxsim)",
    "  tgxsim set type|firmware|templates VALUE",
    "  tgxsim reset                         back to a factory-fresh gateway",
    "  tgxsim gateways                      the gateways: the default one, then those at 127.a.b.c",
    "  tgxsim --gateway=ADDRESS show|home|set|reset|mux ...",
    "                                       the same for the gateway at ADDRESS (127.a.b.c)",
    "  tgxsim fault add TOOL [match=PATTERN] [exit=CODE] [fails=N] [output=LINE]...",
    "  tgxsim fault delay TOOL SECONDS",
    "  tgxsim fault list",
    "  tgxsim fault clear                   no faults, counts forgotten",
    "  tgxsim run TOOL [ARGS...]            one tool, without its link",
    "  tgxsim tools                         the simulated tools",
    "  tgxsim mux show                      the virtual COM port, the multiplexer and its devices",
    "  tgxsim mux add [--known] LOOP POLL ADDRESS TAG DESCRIPTION",
    "                                       a device on a loop; listed after a rebuild (at once with --known)",
    "  tgxsim mux address ADDRESS | mux rebuild-polls N | mux clear",
    "  tgxsim pc-ports [COMn...]            the COM names the PC's own ports take",
};

int Usage(const wxString& problem)
{
    PrintError("tgxsim: " + problem);
    PrintError("usage: tgxsim [--gateway=ADDRESS] show | home | set KEY VALUE | reset | mux ... ; tgxsim gateways "
               "| fault add|delay|list|clear ... | run TOOL ... | tools | help");
    return kExitUsage;
}

bool OpenState(SimState& state)
{
    wxString problem;
    if (state.Open(problem))
        return true;
    PrintError("tgxsim: " + problem);
    return false;
}

// A version is read back as the text after the line's last "v", so it may hold none.
bool CheckSettingValue(const wxString& key, const wxString& value, wxString& problem)
{
    if (value.empty() || value.find_first_of(" \t") != wxString::npos) {
        problem = key + " must be one word";
        return false;
    }
    if (key != "type" && value.find_first_of("vV") != wxString::npos) {
        problem = key + " '" + value + "' holds a 'v': the configuration tool would misread it";
        return false;
    }
    return true;
}

int Set(SimState& state, const wxArrayString& args)
{
    if (args.size() != 3)
        return Usage("set needs a key and a value");
    const wxString key = args[1], value = args[2];
    GatewaySettings settings;
    state.LoadSettings(settings);
    wxString* const field = key == "type" ? &settings.deviceType
        : key == "firmware"               ? &settings.firmware
        : key == "templates"              ? &settings.templates
                                          : nullptr;
    if (!field)
        return Usage("unknown key '" + key + "' (type, firmware, templates)");
    wxString problem;
    if (!CheckSettingValue(key, value, problem))
        return Usage(problem);
    *field = value;
    if (!state.SaveSettings(settings)) {
        PrintError("tgxsim: cannot write " + state.GatewayFile("settings.ini"));
        return kExitStateFolder;
    }
    return kExitOk;
}

void ListFiles(const SimState& state, const char* folder, const wxString& remotePrefix)
{
    wxArrayString files;
    const wxString base = state.GatewayFile(folder);
    wxDir::GetAllFiles(base, &files);
    files.Sort();
    for (const wxString& file : files) {
        wxString remote = file.Mid(base.length() + 1);
        remote.Replace(wxString(SimState::sep), "/");
        PrintLine(wxString::Format("  %s%s  (%llu bytes)", remotePrefix, remote,
            static_cast<unsigned long long>(wxFileName::GetSize(file).GetValue())));
    }
}

int ListFaults(const SimState& state)
{
    FaultPlan plan;
    wxString problem;
    if (!LoadFaultPlan(state.File("faults.txt"), ToolNames(), plan, problem)) {
        PrintError("tgxsim: " + problem);
        return kExitFaultFile;
    }
    FaultCounters counters;
    if (wxFileExists(state.File("fault-counters.txt"))) {
        const FileLock lock(state.File("fault-counters.lock"));  // not read while a run rewrites it
        LoadFaultCounters(state.File("fault-counters.txt"), counters);
    }
    if (plan.rules.empty() && plan.delays.empty())
        PrintLine("  (none)");
    for (const FaultRule& rule : plan.rules) {
        const long met = counters.count(rule.text) ? counters[rule.text] : 0;
        const bool spent = rule.fails > 0 && met > rule.fails;
        PrintLine(wxString::Format("  line %d: %s   [met %ld time%s%s]", rule.lineNumber, rule.text, met,
            met == 1 ? "" : "s", spent ? ", spent" : ""));
    }
    for (const FaultDelay& delay : plan.delays)
        PrintLine(wxString::Format("  delay %s %g s", delay.tool, delay.seconds));
    return kExitOk;
}

int Show(const SimState& state)
{
    GatewaySettings settings;
    state.LoadSettings(settings);
    PrintLine("state folder: " + state.Folder());
    if (!state.Gateway().empty())
        PrintLine("gateway:      " + state.Gateway() + " (" + state.GatewayFolder() + ")");
    PrintLine("device type:  " + settings.deviceType);
    PrintLine("firmware:     " + settings.firmware);
    PrintLine("templates:    " + settings.templates);
    PrintLine("gateway files:");
    ListFiles(state, "TG7", "TG7/");
    ListFiles(state, "root", "/");
    PrintLine("faults (faults.txt):");
    const int code = ListFaults(state);
    wxArrayString boots;
    ReadLines(state.GatewayFile("boot.log"), boots);
    PrintLine(wxString::Format("restarts (boot.log): %zu", boots.size()));
    for (size_t i = boots.size() > 5 ? boots.size() - 5 : 0; i < boots.size(); ++i)
        PrintLine("  " + boots[i]);
    return code;
}

int Fault(const SimState& state, const wxArrayString& args)
{
    const wxString verb = args.size() > 1 ? args[1] : wxString();
    const wxString faultsPath = state.File("faults.txt");
    if (verb == "list" && args.size() == 2)
        return ListFaults(state);
    if (verb == "clear" && args.size() == 2) {
        wxRemoveFile(faultsPath);
        if (wxFileExists(state.File("fault-counters.txt"))) {
            const FileLock lock(state.File("fault-counters.lock"));
            wxRemoveFile(state.File("fault-counters.txt"));
        }
        return kExitOk;
    }
    wxString line;
    if (verb == "add" && args.size() >= 3) {
        for (size_t i = 2; i < args.size(); ++i)
            line << (i > 2 ? " " : "") << QuoteWord(args[i]);
    } else if (verb == "delay" && args.size() == 4) {
        line = "delay " + QuoteWord(args[2]) + " " + QuoteWord(args[3]);
    } else {
        return Usage("fault add TOOL [KEY=VALUE]... | fault delay TOOL SECONDS | fault list | fault clear");
    }
    FaultRule rule;
    FaultDelay delay;
    bool isRule = false, isDelay = false;
    wxString problem;
    if (!ParseFaultLine(line, ToolNames(), rule, delay, isRule, isDelay, problem))
        return Usage(problem);
    if (!AppendLine(faultsPath, line)) {
        PrintError("tgxsim: cannot write " + faultsPath);
        return kExitStateFolder;
    }
    return kExitOk;
}

void PrintGateway(const SimState& state)
{
    GatewaySettings settings;
    state.LoadSettings(settings);
    PrintLine(wxString::Format("%-15s %s, firmware %s, templates %s  (%s)",
        state.Gateway().empty() ? wxString("default") : state.Gateway(), settings.deviceType, settings.firmware,
        settings.templates, state.GatewayFolder()));
}

int ListGateways(SimState& state)
{
    PrintGateway(state);
    for (const wxString& name : state.GatewayNames()) {
        wxString problem;
        state.SelectGateway(name, problem);
        PrintGateway(state);
    }
    return kExitOk;
}

}  // namespace

int RunAdmin(const wxArrayString& allArgs)
{
    // "--gateway=ADDRESS" first: the commands that work on one gateway work on that one.
    wxArrayString args(allArgs);
    wxString address;
    const bool gatewayGiven = !args.empty() && args[0].StartsWith("--gateway=", &address);
    if (gatewayGiven) {
        args.RemoveAt(0);
        if (address.empty() || address.StartsWith("-") || address.find_first_of(" \t") != wxString::npos)
            return Usage("'" + address + "' is not a gateway address");
    }
    const wxString command = args.empty() ? wxString("help") : args[0];
    if (gatewayGiven && command != "show" && command != "home" && command != "set" && command != "reset" &&
        command != "mux")
        return Usage("--gateway goes with show, home, set, reset or mux; '" + command + "' works on what all gateways "
                     "share" + (command == "fault" ? " (a rule picks a gateway with match=ADDRESS)" : ""));
    if (command == "help" || command == "--help" || command == "-h") {
        for (const char* line : kHelp)
            PrintLine(line);
        return kExitOk;
    }
    if (command == "tools") {
        for (const wxString& name : ToolNames())
            PrintLine(name);
        return kExitOk;
    }
    if (command == "run") {
        if (args.size() < 2)
            return Usage("run needs a tool name");
        wxArrayString toolArgs(args);
        toolArgs.RemoveAt(0, 2);
        return RunTool(args[1], toolArgs);
    }

    SimState state(SimState::FolderFromEnvironment());
    if (command == "reset" && !gatewayGiven) {
        wxString problem;
        if (args.size() != 1)
            return Usage("reset takes no arguments");
        if (!state.Reset(problem)) {
            PrintError("tgxsim: " + problem);
            return kExitStateFolder;
        }
        return kExitOk;
    }
    if (!OpenState(state))
        return kExitStateFolder;
    wxString problem;
    if (!state.SelectGateway(address, problem)) {
        PrintError("tgxsim: " + problem);
        return kExitStateFolder;
    }
    if (command == "reset") {
        if (args.size() != 1)
            return Usage("reset takes no arguments");
        if (!state.ResetGateway(problem)) {
            PrintError("tgxsim: " + problem);
            return kExitStateFolder;
        }
        return kExitOk;
    }
    if (command == "home" && args.size() == 1) {
        PrintLine(state.GatewayFolder());
        return kExitOk;
    }
    if (command == "gateways" && args.size() == 1)
        return ListGateways(state);
    if (command == "show" && args.size() == 1)
        return Show(state);
    if (command == "set")
        return Set(state, args);
    if (command == "fault")
        return Fault(state, args);
    if (command == "mux" || command == "pc-ports")
        return RunMuxAdmin(state, args);
    return Usage("unknown command '" + command + "'");
}

}  // namespace sim
