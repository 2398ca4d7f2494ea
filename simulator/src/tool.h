// One simulated tool of the gateway's suite. Every tool runs through the same steps (run_tool.h):
// its command line is checked, the fault file may delay or fail it, and only then does the tool
// do its work. Adding a tool is one class and one row in the registry (tool_registry.cpp).
#pragma once

#include "sim_state.h"

#include <wx/arrstr.h>
#include <wx/string.h>

#include <memory>

namespace sim {

struct ToolContext {
    SimState& state;
    wxString workingDirectory;
};

class Tool {
public:
    virtual ~Tool() = default;

    // The usage line printed after a wrong command line, e.g. "ttgetfile HOST REMOTE LOCAL".
    virtual wxString Usage() const = 0;
    // Checks the arguments (without the program name) and keeps what Run needs. False with a
    // short description of what is wrong.
    virtual bool ParseArguments(const wxArrayString& args, wxString& problem) = 0;
    // The gateway address the tool was given, for the run log; empty for local tools.
    virtual wxString Host() const { return wxString(); }
    // The address that picks the gateway the tool works on (SimState::GatewayName); empty for
    // the default gateway, as for tools that reach none.
    virtual wxString GatewayAddress(const SimState&) const { return wxString(); }
    // Does the work; prints its own output and messages. Returns the exit code.
    virtual int Run(ToolContext& context) = 0;
};

// Tools whose first argument is the gateway's address.
class GatewayTool : public Tool {
public:
    wxString Host() const override { return host; }
    wxString GatewayAddress(const SimState&) const override { return host; }

protected:
    // Takes the host from args[0] and checks the count of the rest.
    bool TakeHost(const wxArrayString& args, size_t minCount, size_t maxCount, wxString& problem);
    wxString host;
};

// Resolves a local path against the working directory the tool was started in.
wxString LocalPath(const ToolContext& context, const wxString& path);

// "ttgetfile: message" on standard error.
void ToolError(const wxString& tool, const wxString& message);

}  // namespace sim
