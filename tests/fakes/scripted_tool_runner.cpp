#include "fakes/scripted_tool_runner.h"

ToolReply ScriptedToolRunner::Next(const ToolCommand& command, RunMode mode)
{
    runs.push_back(ToolRun{command.CommandLine(), mode, workingDirectory, command.Arguments()});
    if (onRun)
        onRun(command.CommandLine());
    if (replies.empty())
        return fallback;
    ToolReply reply = replies.front();
    replies.pop_front();
    return reply;
}

long ScriptedToolRunner::RunCaptured(const ToolCommand& command, wxArrayString& output)
{
    const ToolReply reply = Next(command, RunMode::Captured);
    output = reply.lines;
    return reply.exitCode;
}

long ScriptedToolRunner::RunBlockingHidden(const ToolCommand& command)
{
    return Next(command, RunMode::BlockingHidden).exitCode;
}

long ScriptedToolRunner::RunDetached(const ToolCommand& command)
{
    return Next(command, RunMode::Detached).exitCode;
}

bool ScriptedToolRunner::SetWorkingDirectory(const wxString& directory)
{
    workingDirectory = directory;
    return true;
}

void ScriptedToolRunner::SetEnvironment(const wxString& name, const wxString& value)
{
    environment[name] = value;
}

wxArrayString ScriptedToolRunner::Commands() const
{
    wxArrayString commands;
    for (const ToolRun& run : runs)
        commands.Add(run.command);
    return commands;
}
