// The UserInterface of tgxcfg: message boxes become lines on standard output, questions and text
// entries are answered from the command line, progress steps are printed one per line.
#pragma once

#include "base/mux_scan_window.h"
#include "base/user_interface.h"

#include <functional>

#include <map>
#include <ostream>

class ConsoleUserInterface : public UserInterface {
public:
    // answerYes: questions are answered Yes (--yes); otherwise No, and the command stops as the
    // desktop tool's does on No.
    ConsoleUserInterface(std::ostream& out, bool answerYes);

    // The answer to the text entry that asks `message`. An entry without one takes the value it
    // offers, as pressing Enter in the dialog would.
    void AnswerEntry(const wxString& message, const wxString& value);

    // Ends the command. The message shown last is kept back until now: it is the one that ends
    // the command, so for a failed command it goes to `err`, as does the reason a command stopped
    // on an answer when no message followed.
    void Finish(bool failed, std::ostream& err);

    // Whether a message box was shown: for the map commands, which show none on success.
    bool MessageShown() const { return messageShown; }

    using UserInterface::ShowMessage;
    void ShowMessage(const MessageForm& form) override;
    bool AskYesNo(const QuestionForm& form) override;
    bool EnterText(TextEntryForm& form) override;
    // No file dialogs on the console: the commands take their files as arguments.
    bool ChooseFile(FileChoiceForm& form) override;
    void BeginProgress(const wxString& title, const wxString& message) override;
    void PulseProgress(const wxString& text) override;
    void EndProgress() override { }
    // No dialogs either: nothing tgxcfg runs edits a device or a command.
    bool EditDevice(DeviceForm& form) override;
    bool EditCommand(CommandForm& form) override;
    bool EditOptions(OptionsForm&) override { return false; }
    void RefreshPanel() override { }
    void RefreshCommandList() override { }
    void ShowStatus(const wxString&) override { }
    // Said once, on its own line.
    void WaitForOtherRun(const wxString& text, const std::function<bool()>& free) override
    {
        Print(text);
        UserInterface::WaitForOtherRun(text, free);
    }
    // A script is told, and the workflow stops: nothing runs on a project that was not saved.
    bool ContinueAfterFailedSave(const wxString& message) override
    {
        ShowMessage(message);
        return false;
    }
    // The pause lets a person read the last step in the progress dialog; a console keeps it,
    // unless the waits give a gateway or a multiplexer time (waitForReal).
    void WaitSeconds(int seconds) override
    {
        if (waitForReal)
            wxSleep(seconds);
    }
    bool waitForReal = false;

    // The dialogs that tgxcfg's options answer; without an answer the dialog is cancelled.
    std::function<bool(RemoteForm&)> remoteAnswer;
    std::function<bool(ScanForm&)> scanAnswer;
    std::function<bool(MuxRebuildForm&)> rebuildAnswer;
    bool EditRemote(RemoteForm& form) override { return remoteAnswer && remoteAnswer(form); }
    bool EditScan(ScanForm& form) override { return scanAnswer && scanAnswer(form); }
    bool EditMuxRebuild(MuxRebuildForm& form) override { return rebuildAnswer && rebuildAnswer(form); }

    // The configurator window on the console: each time it is given rows it prints them, one per
    // line, numbered from 0 as the grid's rows; `selectedRows` stands for the user's selection.
    class ScanWindow : public MuxScanWindow {
    public:
        explicit ScanWindow(ConsoleUserInterface& console) : console(console) { }
        void ShowRows(const std::vector<MuxRow>& shown) override;
        std::vector<MuxRow> Rows() const override { return rows; }
        std::vector<int> SelectedRows() const override { return selectedRows; }
        void CloseScanWindow() override { }
        std::vector<int> selectedRows;
        std::vector<MuxRow> rows;
        bool opened = false;

    private:
        ConsoleUserInterface& console;
    } scanWindow{*this};
    MuxScanWindow* OpenMuxScanWindow() override
    {
        scanWindow.opened = true;
        return &scanWindow;
    }

private:
    // Writes a line on `out`, after the message kept back, if any.
    void Print(const wxString& text);

    std::ostream& out;
    bool answerYes;
    std::map<wxString, wxString> entryAnswers;
    bool holding = false;
    wxString heldMessage;
    wxString stopReason;
    bool messageShown = false;
};

// One line of text on a console stream, in UTF-8, flushed: the suite's tools that run next write
// on the same console.
void WriteLine(std::ostream& stream, const wxString& text);
