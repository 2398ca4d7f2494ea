#include "desktop/desktop_tool_runner.h"

#include <wx/log.h>
#include <wx/utils.h>

namespace {

int runsInProgress = 0;

// Disables every window for the length of a run and counts it.
class RunScope {
public:
    RunScope() { ++runsInProgress; }
    ~RunScope() { --runsInProgress; }

private:
    wxWindowDisabler disabler;
};

}  // namespace

bool ToolRunInProgress()
{
    return runsInProgress > 0;
}

long DesktopToolRunner::RunCaptured(const ToolCommand& command, wxArrayString& output)
{
    RunScope scope;
    wxBusyCursor busy;
    return WxToolRunner::RunCaptured(command, output);
}

long DesktopToolRunner::RunBlockingHidden(const ToolCommand& command)
{
    RunScope scope;
    wxLogNull quiet;  // as WxToolRunner: the caller judges a tool that cannot be started
    return ExecuteTool(command, wxEXEC_SYNC | wxEXEC_HIDE_CONSOLE | wxEXEC_NODISABLE);
}
