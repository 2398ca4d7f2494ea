// A UserInterface that answers from a script and records everything it was shown.
#pragma once

#include "base/mux_scan_window.h"
#include "base/user_interface.h"

#include <deque>
#include <functional>
#include <optional>
#include <vector>

class ScriptedUserInterface : public UserInterface {
public:
    // The script: answers taken in order. An unscripted question is answered No, an unscripted
    // text entry, file choice or dialog is cancelled.
    std::deque<bool> answers;
    std::deque<std::optional<wxString>> texts;
    std::deque<std::optional<wxString>> files;
    // Dialog answers: each changes the form as a user would and returns whether OK was pressed.
    std::deque<std::function<bool(DeviceForm&)>> deviceAnswers;
    std::deque<std::function<bool(CommandForm&)>> commandAnswers;
    std::deque<std::function<bool(OptionsForm&)>> optionsAnswers;
    std::deque<std::function<bool(RemoteForm&)>> remoteAnswers;
    std::deque<std::function<bool(ScanForm&)>> scanAnswers;
    std::deque<std::function<bool(MuxRebuildForm&)>> rebuildAnswers;

    // What was shown, by kind (each form as its dialog opened), and `events` in overall order
    // ("message: ...").
    std::vector<MessageForm> messages;
    std::vector<QuestionForm> questions;
    std::vector<TextEntryForm> textForms;
    std::vector<FileChoiceForm> fileForms;
    std::vector<DeviceForm> deviceForms;
    std::vector<CommandForm> commandForms;
    std::vector<OptionsForm> optionsForms;
    std::vector<RemoteForm> remoteForms;
    std::vector<ScanForm> scanForms;
    std::vector<MuxRebuildForm> rebuildForms;
    std::vector<wxString> progress;
    std::vector<wxString> events;
    int refreshCount = 0;

    using UserInterface::ShowMessage;
    void ShowMessage(const MessageForm& form) override { messages.push_back(form), Note("message: " + form.text); }
    bool AskYesNo(const QuestionForm& form) override
    {
        questions.push_back(form), Note("question: " + form.text);
        return Next(answers).value_or(false);
    }
    bool EnterText(TextEntryForm& f) override { return Text(texts, textForms, f, "text: " + f.message, f.value); }
    bool ChooseFile(FileChoiceForm& f) override { return Text(files, fileForms, f, "file: " + f.title, f.path); }
    void BeginProgress(const wxString& title, const wxString& m) override { Progress("begin: " + title + " | " + m); }
    void BeginProgressOver(MuxScanWindow& owner, const wxString& title, const wxString& text) override
    {
        BeginProgress(title, text + (&owner == &scanWindow ? " (over the configurator)" : " (over another window)"));
    }
    void PulseProgress(const wxString& text) override { Progress("pulse: " + text); }
    void EndProgress() override { progress.push_back("end"), Note("progress end"); }
    bool EditDevice(DeviceForm& f) override { return Dialog(deviceAnswers, deviceForms, f, "device dialog"); }
    bool EditCommand(CommandForm& f) override { return Dialog(commandAnswers, commandForms, f, "command dialog"); }
    bool EditOptions(OptionsForm& f) override { return Dialog(optionsAnswers, optionsForms, f, "options dialog"); }
    bool EditRemote(RemoteForm& f) override { return Dialog(remoteAnswers, remoteForms, f, "remote dialog"); }
    bool EditScan(ScanForm& f) override { return Dialog(scanAnswers, scanForms, f, "scan dialog"); }
    bool EditMuxRebuild(MuxRebuildForm& f) override
    {
        return Dialog(rebuildAnswers, rebuildForms, f, "rebuild dialog");
    }
    void RefreshPanel() override { ++refreshCount, Note("refresh"); }
    void RefreshCommandList() override { Note("command list"); }
    void ShowStatus(const wxString& text) override { Note("status: " + text); }
    // Goes on, as the desktop does; noted, so that a save that failed unnoticed shows.
    bool ContinueAfterFailedSave(const wxString& message) override { return Note("failed save: " + message), true; }
    // Recorded, not waited.
    void WaitSeconds(int seconds) override { Note(wxString::Format("wait %d", seconds)); }
    void WaitForOtherRun(const wxString& text, const std::function<bool()>& free) override
    {
        Note("waiting: " + text);
        while (!free()) {
        }
    }

    // The configurator window: keeps its rows, reports `selected` as the user's selection.
    struct ScanWindow : MuxScanWindow {
        std::vector<MuxRow> rows;
        std::vector<int> selected;
        int shows = 0;
        void ShowRows(const std::vector<MuxRow>& shown) override { rows = shown, ++shows; }
        std::vector<MuxRow> Rows() const override { return rows; }
        std::vector<int> SelectedRows() const override { return selected; }
        void CloseScanWindow() override {}
    } scanWindow;
    int scanWindowOpened = 0;
    MuxScanWindow* OpenMuxScanWindow() override
    {
        ++scanWindowOpened, Note("scan window");
        return &scanWindow;
    }

private:
    template <class Answer> static std::optional<Answer> Next(std::deque<Answer>& script)
    {
        if (script.empty())
            return std::nullopt;
        std::optional<Answer> answer(std::move(script.front()));
        script.pop_front();
        return answer;
    }
    void Note(const wxString& event) { events.push_back(event); }
    void Progress(const wxString& step) { progress.push_back(step), Note(step); }
    // A text entry or file choice: recorded, then its scripted text (none: cancelled) into `value`.
    template <class Form>
    bool Text(std::deque<std::optional<wxString>>& script, std::vector<Form>& shown, Form& form, const wxString& event,
              wxString& value)
    {
        shown.push_back(form), Note(event);
        const std::optional<wxString> answer = Next(script).value_or(std::nullopt);
        if (answer)
            value = *answer;
        return answer.has_value();
    }
    // A dialog: recorded as it opened, then answered by its script (none: cancelled).
    template <class Form>
    bool Dialog(std::deque<std::function<bool(Form&)>>& script, std::vector<Form>& shown, Form& form, const char* event)
    {
        shown.push_back(form), Note(event);
        const auto answer = Next(script);
        return answer && (*answer)(form);
    }
};
