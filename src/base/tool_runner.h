// The port through which every external tool of the gateway's suite is run. The real runner
// calls wxExecute; tests script it or run the gateway simulator through the real one.
#pragma once

#include "base/tool_command.h"

#include <wx/arrstr.h>
#include <wx/string.h>

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
