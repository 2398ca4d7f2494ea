#include "run_tool.h"

#include "exit_codes.h"
#include "fault_plan.h"
#include "file_lock.h"
#include "sim_state.h"
#include "text_io.h"
#include "tool_registry.h"

#include <wx/filename.h>

#include <chrono>
#include <cstdio>
#include <thread>

namespace sim {

namespace {

wxString JoinArguments(const wxArrayString& args)
{
    wxString line;
    for (size_t i = 0; i < args.size(); ++i)
        line << (i ? " " : "") << args[i];
    return line;
}

wxString QuotedArguments(const wxArrayString& args)
{
    wxString line;
    for (size_t i = 0; i < args.size(); ++i)
        line << (i ? " " : "") << QuoteWord(args[i]);
    return line;
}

// The fault file's verdict: -1 to go on with the tool, otherwise the exit code to end with.
int ApplyFaults(const SimState& state, const wxString& name, const wxArrayString& args, wxString& note)
{
    FaultPlan plan;
    wxString problem;
    if (!LoadFaultPlan(state.File("faults.txt"), ToolNames(), plan, problem)) {
        ToolError(name, "fault file: " + problem);
        note = "fault file unreadable";
        return kExitFaultFile;
    }
    if (const double seconds = DelayFor(plan, name); seconds > 0) {
        std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
        note << wxString::Format("delayed %gs", seconds);
    }
    if (plan.rules.empty())
        return -1;

    // The count is stored before the tool acts, so a run that crashes still counts; under the
    // lock, so that runs at the same moment each count.
    const wxString countersPath = state.File("fault-counters.txt");
    const FaultRule* rule = nullptr;
    {
        const FileLock lock(state.File("fault-counters.lock"));
        if (!lock.Held())
            ToolError(name, "cannot lock " + state.File("fault-counters.lock") + "; counts may be lost");
        FaultCounters counters;
        LoadFaultCounters(countersPath, counters);
        rule = DecideFault(plan, name, JoinArguments(args), counters);
        if (!SaveFaultCounters(countersPath, counters))
            ToolError(name, "cannot write " + countersPath + "; fault counts will not persist");
    }
    if (!rule)
        return -1;

    note << (note.empty() ? "" : ", ") << wxString::Format("fault rule at line %d", rule->lineNumber);
    if (rule->output.empty())
        ToolError(name, wxString::Format("simulated failure (faults.txt line %d)", rule->lineNumber));
    for (long round = 0; round < rule->repeat; ++round) {
        for (const wxString& line : rule->output)
            PrintLine(line);
    }
    return rule->exitCode;
}

}  // namespace

wxString ToolNameFromProgram(const wxString& argv0)
{
    wxString name = wxFileName(argv0).GetFullName();
    if (name.Lower().EndsWith(".exe"))
        name.RemoveLast(4);
    return name;
}

int RunTool(const wxString& name, const wxArrayString& args)
{
    std::unique_ptr<Tool> tool = CreateTool(name);
    if (!tool) {
        PrintError("tgxsim: no simulated tool named '" + name + "'");
        return kExitUnknownTool;
    }
    SimState state(SimState::FolderFromEnvironment());
    wxString problem;
    if (!state.Open(problem)) {
        ToolError(name, problem);
        return kExitStateFolder;
    }

    ToolContext context{state, wxFileName::GetCwd()};
    wxString note;
    int code;
    if (!tool->ParseArguments(args, problem)) {
        ToolError(name, problem);
        PrintError("usage: " + tool->Usage());
        code = kExitUsage;
        note = "usage error";
    } else if (!state.SelectGateway(tool->GatewayAddress(state), problem)) {
        ToolError(name, problem);
        code = kExitStateFolder;
        note = "gateway state unusable";
    } else {
        code = ApplyFaults(state, name, args, note);
        if (code < 0)
            code = tool->Run(context);
    }
    std::fflush(stdout);

    const wxString host = tool->Host().empty() ? wxString("-") : tool->Host();
    wxString line = wxString::Format("%s\t%s\texit=%d\thost=%s\tTT_SSH_PORT=%s\tcwd=%s\targs=%s", Timestamp(), name,
        code, host, SshPortForLog(), context.workingDirectory, QuotedArguments(args));
    if (!note.empty())
        line << "\t" << note;
    if (!state.AppendRunLog(line))
        ToolError(name, "cannot write " + state.File("run.log"));
    return code;
}

}  // namespace sim
