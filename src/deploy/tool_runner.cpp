#include "deploy/tool_runner.h"

#include "deploy/captured_output.h"

#include <wx/filefn.h>
#include <wx/log.h>
#include <wx/utils.h>

// A tool that cannot be started is judged by the caller from the -1 it gets; the toolkit's own
// log line about it would be a second message (a box in the desktop tool).
long WxToolRunner::RunCaptured(const wxString& command, wxArrayString& output)
{
    wxLogNull quiet;
    return RunWithCapturedOutput(command, output);
}

long WxToolRunner::RunBlockingHidden(const wxString& command)
{
    wxLogNull quiet;
    return wxExecute(command, wxEXEC_SYNC | wxEXEC_NOEVENTS | wxEXEC_HIDE_CONSOLE);
}

long WxToolRunner::RunDetached(const wxString& command)
{
    return wxExecute(command, wxEXEC_ASYNC);
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
