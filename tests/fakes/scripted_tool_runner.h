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

    long RunCaptured(const ToolCommand& command, wxArrayString& output) override;
    long RunBlockingHidden(const ToolCommand& command) override;
    long RunDetached(const ToolCommand& command) override;
    bool SetWorkingDirectory(const wxString& directory) override;
    void SetEnvironment(const wxString& name, const wxString& value) override;

    wxArrayString Commands() const;

    // Called at every run before it replies, so a test can do what the tool would (write its
    // output file) or look at the files the tool would find.
    std::function<void(const wxString& command)> onRun;

private:
    ToolReply Next(const ToolCommand& command, RunMode mode);
};
