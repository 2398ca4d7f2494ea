// Helpers shared by the GUI tests.
#pragma once

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/string.h>
#include <wx/utils.h>

#include "fakes/scripted_tool_runner.h"
#include "fakes/scripted_user_interface.h"
#include "desktop/main_frame.h"
#include "platform/posix_platform.h"
#include "unit/temp_dir.h"

#include <memory>
#include <string>
#include <vector>

class wxTopLevelWindow;

struct FrameCloser {
    void operator()(wxFrame* frame) const
    {
        frame->Destroy();
        wxTheApp->ProcessIdle();
    }
};
template <class T>
using FramePtr = std::unique_ptr<T, FrameCloser>;

// Lets the window map and paint, then writes a screenshot of it to the test output folder (or to
// TGX_SCREENSHOT_DIR when set). False when the picture could not be taken (ImageMagick's import
// missing).
bool SaveScreenshot(wxWindow* window, const wxString& name);

// Processes pending and posted events for a moment.
void PumpEvents(int milliseconds = 100);

// What keeps a shown window from being whole, one line each: not on screen, smaller on screen
// than the toolkit has laid it out, smaller than its content's minimum, or a GTK widget in it
// allocated less than its minimum (a cut control).
std::vector<std::string> WindowProblems(wxTopLevelWindow& window);

// The desktop's interface with its modal dialogs answered from a script: messages, questions, text
// entries, file choices, progress and the form dialogs go to `dialogs`; the panel, the status line
// and the configurator stay real, and `dialogs` hears of them too.
class ScriptedDialogs : public WxUserInterface {
public:
    ScriptedDialogs(MainFrame& frame, ScriptedUserInterface& dialogs) : WxUserInterface(frame), dialogs(dialogs) {}
    using UserInterface::ShowMessage;
    void ShowMessage(const MessageForm& form) override { dialogs.ShowMessage(form); }
    bool AskYesNo(const QuestionForm& form) override { return dialogs.AskYesNo(form); }
    bool EnterText(TextEntryForm& form) override { return dialogs.EnterText(form); }
    bool ChooseFile(FileChoiceForm& form) override { return dialogs.ChooseFile(form); }
    void BeginProgress(const wxString& title, const wxString& message) override { dialogs.BeginProgress(title, message); }
    void BeginProgressOver(MuxScanWindow& owner, const wxString& title, const wxString& message) override
    {
        dialogs.BeginProgressOver(owner, title, message);
    }
    void PulseProgress(const wxString& text) override { dialogs.PulseProgress(text); }
    void EndProgress() override { dialogs.EndProgress(); }
    bool EditDevice(DeviceForm& form) override { return dialogs.EditDevice(form); }
    bool EditCommand(CommandForm& form) override { return dialogs.EditCommand(form); }
    bool EditOptions(OptionsForm& form) override { return dialogs.EditOptions(form); }
    bool EditRemote(RemoteForm& form) override { return dialogs.EditRemote(form); }
    bool EditScan(ScanForm& form) override { return dialogs.EditScan(form); }
    bool EditMuxRebuild(MuxRebuildForm& form) override { return dialogs.EditMuxRebuild(form); }
    void RefreshPanel() override
    {
        WxUserInterface::RefreshPanel();
        dialogs.RefreshPanel();
    }
    void RefreshCommandList() override
    {
        WxUserInterface::RefreshCommandList();
        dialogs.RefreshCommandList();
    }
    void ShowStatus(const wxString& text) override
    {
        WxUserInterface::ShowStatus(text);
        dialogs.ShowStatus(text);
    }

private:
    ScriptedUserInterface& dialogs;
};

inline MainFrame::UserInterfaceMaker ScriptedDialogsOf(ScriptedUserInterface& dialogs)
{
    return [&dialogs](MainFrame& frame) { return std::make_unique<ScriptedDialogs>(frame, dialogs); };
}

// A main window (of class Frame) started on the sample installation, named by a registry file in a
// scratch folder; its tools scripted, its dialogs answered by `dialogs`.
template <class Frame = MainFrame>
struct ScriptedFrame : TempDir {
    const wxString registry = Write("registry.ini", "[HKEY_CURRENT_USER/Software/TARN SYSTEMS LTD/TGx Software Suite]\n"
                                                    "Path=" TGX_SOURCE_DIR "/simulator/installation/\nVersion=6.2.2\n"
                                                    "FirmwareVersion=6.2.2\nTemplatesVersion=3.1.0\n");
    PosixPlatform platform{registry};
    ScriptedUserInterface dialogs;
    ScriptedToolRunner tools;
    Project project;
    FramePtr<Frame> frame{new Frame(project, platform, tools, ScriptedDialogsOf(dialogs))};
};
