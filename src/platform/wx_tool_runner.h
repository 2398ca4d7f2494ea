// The real ToolRunner: each tool started with wxExecute, its output captured line by line.
#pragma once

#include "base/tool_runner.h"

class wxProcess;
struct wxExecuteEnv;

class WxToolRunner : public ToolRunner {
public:
    long RunCaptured(const ToolCommand& command, wxArrayString& output) override;
    long RunBlockingHidden(const ToolCommand& command) override;
    long RunDetached(const ToolCommand& command) override;
    bool SetWorkingDirectory(const wxString& directory) override;
    void SetEnvironment(const wxString& name, const wxString& value) override;
};

// wxExecute for a tool command: an argument vector where the system passes one (POSIX), the
// command line that the program splits back into the same arguments elsewhere (Windows).
long ExecuteTool(const ToolCommand& command, int flags, wxProcess* process = nullptr, const wxExecuteEnv* env = nullptr);
