// A UserInterface that answers from a script and records everything it was shown.
#pragma once

#include "base/user_interface.h"
#include "base/mux_scan_window.h"

#include <deque>
#include <functional>
#include <optional>
#include <vector>

class ScriptedUserInterface : public UserInterface {
public:
    // The script: answers taken in order. An unscripted question is answered No, an unscripted
    // text entry or file choice is cancelled, and each is noted in `unanswered`.
    std::deque<bool> answers;
    std::deque<std::optional<wxString>> texts;
    std::deque<std::optional<wxString>> files;
    // Dialog answers: each changes the form as a user would and returns whether OK was pressed.
    std::deque<std::function<bool(DeviceForm&)>> deviceAnswers;
    std::deque<std::function<bool(CommandForm&)>> commandAnswers;
    std::deque<std::function<bool(OptionsForm&)>> optionsAnswers;

    // What was shown, in order of kind, and `events` in overall order ("message: ...").
    std::vector<MessageForm> messages;
    std::vector<QuestionForm> questions;
    std::vector<TextEntryForm> textForms;
    std::vector<FileChoiceForm> fileForms;
    std::vector<DeviceForm> deviceForms;    // as the dialog was opened
    std::vector<CommandForm> commandForms;  // as the dialog was opened
    std::vector<OptionsForm> optionsForms;  // as the dialog was opened
    std::vector<wxString> progress;
    std::vector<wxString> statuses;
    std::vector<wxString> events;
    std::vector<wxString> unanswered;
    int refreshCount = 0;
    int commandListRefreshCount = 0;

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
    void RefreshPanel() override;
    void RefreshCommandList() override;
    void WaitSeconds(int seconds) override;  // recorded, not waited
    void WaitForOtherRun(const wxString& text, const std::function<bool()>& free) override  // recorded, not waited
    {
        events.push_back("waiting: " + text);
        while (!free()) {
        }
    }
    void ShowStatus(const wxString& text) override;

    // The remote, scan and rebuild dialogs, answered and recorded as the device dialog is.
    std::deque<std::function<bool(RemoteForm&)>> remoteAnswers;
    std::deque<std::function<bool(ScanForm&)>> scanAnswers;
    std::deque<std::function<bool(MuxRebuildForm&)>> rebuildAnswers;
    std::vector<RemoteForm> remoteForms;
    std::vector<ScanForm> scanForms;
    bool EditRemote(RemoteForm& form) override;
    bool EditScan(ScanForm& form) override;
    bool EditMuxRebuild(MuxRebuildForm& form) override;

    // The configurator window: keeps its rows, reports `selected` as the user's selection.
    struct ScanWindow : MuxScanWindow {
        std::vector<MuxRow> rows;
        std::vector<int> selected;
        int shows = 0;
        bool closed = false;
        void ShowRows(const std::vector<MuxRow>& shown) override {
            rows = shown;
            ++shows;
        }
        std::vector<MuxRow> Rows() const override { return rows; }
        std::vector<int> SelectedRows() const override { return selected; }
        void CloseScanWindow() override { closed = true; }
    } scanWindow;
    int scanWindowOpened = 0;
    MuxScanWindow* OpenMuxScanWindow() override;
};
