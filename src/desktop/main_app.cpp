// The application object: builds the main window, refuses to run beside conflicting software and
// hands control to the event loop.
#include "base/platform.h"
#include "base/target_address.h"
#include "commands/conflict_check.h"
#include "desktop/desktop_tool_runner.h"
#include "desktop/exit_when_shown.h"
#include "desktop/main_frame.h"
#include "project/project.h"

#include <wx/app.h>
#include <wx/cmdline.h>
#include <wx/sizer.h>
#include <wx/utils.h>

#include <memory>

class MainApp : public wxApp {
public:
    bool OnInit() override;
    void OnInitCmdLine(wxCmdLineParser& parser) override;
    bool OnCmdLineParsed(wxCmdLineParser& parser) override;
    int OnRun() override;

private:
    std::unique_ptr<Platform> platform = CreatePlatform();
    DesktopToolRunner tools;
    Project project;
    wxString initialTargetAddress = kInitialTargetAddress;
    // A fatal start-up ends the process with status 0, as it always has.
    bool endAfterInit = false;
};

namespace {

const wxCmdLineEntryDesc kCommandLine[] = {
    {wxCMD_LINE_SWITCH, "h", "help", "displays help on the command line parameters", wxCMD_LINE_VAL_NONE,
     wxCMD_LINE_OPTION_HELP},
    {wxCMD_LINE_OPTION, "a", "IP address", "Sets the initial IP address", wxCMD_LINE_VAL_STRING,
     wxCMD_LINE_PARAM_OPTIONAL},
    {wxCMD_LINE_NONE, nullptr, nullptr, nullptr, wxCMD_LINE_VAL_NONE, 0},
};

}  // namespace

bool MainApp::OnInit()
{
    // wxApp::OnInit is deliberately not called, so the command line is never parsed and "-a" has
    // no effect: shipped versions behave so, and scripts in the field pass it harmlessly.
    wxSizerFlags::DisableConsistencyChecks();
    MainFrame* frame = new MainFrame(project, *platform, tools);
    if (!frame->StartedUp()) {
        frame->Destroy();
        endAfterInit = true;
        return true;
    }
    SetTopWindow(frame);
    frame->target.targetHost = initialTargetAddress;
    frame->target.targetEntry = initialTargetAddress;
    if (wxGetEnv("TGX_EXIT_WHEN_SHOWN", nullptr))  // `make bench` times start-up with it
        ExitWhenShown(*frame);
    frame->Show(true);
    if (!CheckConflictingSoftware(frame->Context())) {
        frame->Destroy();
        endAfterInit = true;
    }
    return true;
}

void MainApp::OnInitCmdLine(wxCmdLineParser& parser)
{
    parser.SetDesc(kCommandLine);
    parser.SetSwitchChars("-");
}

bool MainApp::OnCmdLineParsed(wxCmdLineParser& parser)
{
    wxString address;
    if (parser.Found("a", &address))
        initialTargetAddress = address;
    return true;
}

int MainApp::OnRun()
{
    if (endAfterInit)
        return 0;
    return wxApp::OnRun();
}

wxIMPLEMENT_APP(MainApp);
