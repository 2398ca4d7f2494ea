// A ToolRunner that returns scripted exit codes and lines and records every run.
#pragma once

#include "base/tool_runner.h"
#include "wx_test_support.h"

#include <deque>
#include <functional>
#include <map>
#include <vector>

struct ToolReply {
    long exitCode = 0;
    wxArrayString lines;
};

struct ToolRun {
    wxString command;  // the command line
    RunMode mode;
    wxString workingDirectory;
    std::vector<wxString> arguments;  // as the program receives them
};

class ScriptedToolRunner : public ToolRunner {
public:
    // Replies in run order; once they are used up every run gets `fallback`.
    std::deque<ToolReply> replies;
    ToolReply fallback;

    std::vector<ToolRun> runs;
    wxString workingDirectory;
    std::map<wxString, wxString> environment;

    // Called at every run before it replies, so a test can do what the tool would (write its
    // output file) or look at the files the tool would find.
    std::function<void(const wxString& command)> onRun;

    long RunCaptured(const ToolCommand& command, wxArrayString& output) override
    {
        const ToolReply reply = Next(command, RunMode::Captured);
        output = reply.lines;
        return reply.exitCode;
    }
    long RunBlockingHidden(const ToolCommand& command) override { return Next(command, RunMode::BlockingHidden).exitCode; }
    long RunDetached(const ToolCommand& command) override { return Next(command, RunMode::Detached).exitCode; }
    bool SetWorkingDirectory(const wxString& directory) override { return workingDirectory = directory, true; }
    void SetEnvironment(const wxString& name, const wxString& value) override { environment[name] = value; }

    wxArrayString Commands() const
    {
        wxArrayString commands;
        for (const ToolRun& run : runs)
            commands.Add(run.command);
        return commands;
    }

private:
    ToolReply Next(const ToolCommand& command, RunMode mode)
    {
        runs.push_back(ToolRun{command.CommandLine(), mode, workingDirectory, command.Arguments()});
        if (onRun)
            onRun(command.CommandLine());
        if (replies.empty())
            return fallback;
        const ToolReply reply = replies.front();
        replies.pop_front();
        return reply;
    }
};
