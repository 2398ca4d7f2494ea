// The port through which every external tool of the gateway's suite is run. The real runner
// calls wxExecute; tests script it or run the gateway simulator through the real one.
#pragma once

#include "deploy/tool_command.h"

#include <wx/arrstr.h>
#include <wx/string.h>

class wxProcess;
struct wxExecuteEnv;

enum class RunMode { Captured, BlockingHidden, Detached };

class ToolRunner {
public:
    virtual ~ToolRunner() = default;

    // Waits; standard output, one element per line. Exit code, -1 when it could not be started.
    virtual long RunCaptured(const ToolCommand& command, wxArrayString& output) = 0;
    // Waits without processing events, console hidden, output not captured. Exit code or -1.
    virtual long RunBlockingHidden(const ToolCommand& command) = 0;
    // Starts and returns at once; the result is not judged.
    virtual long RunDetached(const ToolCommand& command) = 0;

    // Changes the process's current directory, as the tools expect; it is not changed back.
    virtual bool SetWorkingDirectory(const wxString& directory) = 0;
    // Sets a variable in the environment that the tools inherit.
    virtual void SetEnvironment(const wxString& name, const wxString& value) = 0;
};

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
