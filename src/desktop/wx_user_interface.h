// The desktop implementation of the UserInterface port: real message boxes and dialogs, the
// main window's panel and status bar.
#pragma once

#include "base/user_interface.h"

#include <memory>

class MainFrame;
class wxProgressDialog;

class WxUserInterface : public UserInterface {
public:
    explicit WxUserInterface(MainFrame& frame);
    ~WxUserInterface() override;

    using UserInterface::ShowMessage;
    void ShowMessage(const MessageForm& form) override;
    bool AskYesNo(const QuestionForm& form) override;
    bool EnterText(TextEntryForm& form) override;
    bool ChooseFile(FileChoiceForm& form) override;
    void BeginProgress(const wxString& title, const wxString& message) override;
    void PulseProgress(const wxString& text) override;
    void EndProgress() override;
    void BeginProgressOver(MuxScanWindow& owner, const wxString& title, const wxString& message) override;
    bool EditDevice(DeviceForm& form) override;
    bool EditCommand(CommandForm& form) override;
    bool EditOptions(OptionsForm& form) override;
    bool EditRemote(RemoteForm& form) override;
    bool EditScan(ScanForm& form) override;
    bool EditMuxRebuild(MuxRebuildForm& form) override;
    MuxScanWindow* OpenMuxScanWindow() override;
    void RefreshPanel() override;
    void RefreshCommandList() override;
    void ShowStatus(const wxString& text) override;
    // The status line says why nothing moves; the windows repaint but take no input meanwhile.
    void WaitForOtherRun(const wxString& text, const std::function<bool()>& free) override;

private:
    void OpenProgress(wxWindow* parent, const wxString& title, const wxString& message);

    MainFrame& frame;
    std::unique_ptr<wxProgressDialog> progress;
};
