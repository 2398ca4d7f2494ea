#include "platform/wx_tool_runner.h"

#include "platform/captured_output.h"

#include <wx/filefn.h>
#include <wx/log.h>
#include <wx/utils.h>

#include <vector>

long ExecuteTool(const ToolCommand& command, int flags, wxProcess* process, const wxExecuteEnv* env)
{
#ifdef __WINDOWS__
    return wxExecute(command.CommandLine(), flags, process, env);
#else
    if (command.IsFixedLine())
        return wxExecute(command.CommandLine(), flags, process, env);
    std::vector<const wchar_t*> argv;
    for (const wxString& argument : command.Arguments())
        argv.push_back(argument.wc_str());
    argv.push_back(nullptr);
    return wxExecute(argv.data(), flags, process, env);
#endif
}

// A tool that cannot be started is judged by the caller from the -1 it gets; the toolkit's own
// log line about it would be a second message (a box in the desktop tool).
long WxToolRunner::RunCaptured(const ToolCommand& command, wxArrayString& output)
{
    wxLogNull quiet;
    return RunWithCapturedOutput(command, output);
}

long WxToolRunner::RunBlockingHidden(const ToolCommand& command)
{
    wxLogNull quiet;
    return ExecuteTool(command, wxEXEC_SYNC | wxEXEC_NOEVENTS | wxEXEC_HIDE_CONSOLE);
}

long WxToolRunner::RunDetached(const ToolCommand& command)
{
    return ExecuteTool(command, wxEXEC_ASYNC);
}

bool WxToolRunner::SetWorkingDirectory(const wxString& directory)
{
    // Callers judge the tool run that follows; the toolkit's own log box would only add noise.
    wxLogNull quiet;
    return wxSetWorkingDirectory(directory);
}

void WxToolRunner::SetEnvironment(const wxString& name, const wxString& value)
{
    wxSetEnv(name, value);
}
