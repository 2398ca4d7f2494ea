#include "fakes/scripted_user_interface.h"

void ScriptedUserInterface::ShowMessage(const MessageForm& form)
{
    messages.push_back(form);
    events.push_back("message: " + form.text);
}

bool ScriptedUserInterface::AskYesNo(const QuestionForm& form)
{
    questions.push_back(form);
    events.push_back("question: " + form.text);
    if (answers.empty()) {
        unanswered.push_back(form.text);
        return false;
    }
    const bool yes = answers.front();
    answers.pop_front();
    return yes;
}

namespace {

// Takes the next scripted answer into `value`; none scripted counts as cancelled and is noted.
bool TakeAnswer(std::deque<std::optional<wxString>>& script, const wxString& prompt, wxString& value,
                std::vector<wxString>& unanswered)
{
    if (script.empty()) {
        unanswered.push_back(prompt);
        return false;
    }
    const std::optional<wxString> answer = script.front();
    script.pop_front();
    if (answer)
        value = *answer;
    return answer.has_value();
}

}  // namespace

bool ScriptedUserInterface::EnterText(TextEntryForm& form)
{
    textForms.push_back(form);
    events.push_back("text: " + form.message);
    return TakeAnswer(texts, form.message, form.value, unanswered);
}

bool ScriptedUserInterface::ChooseFile(FileChoiceForm& form)
{
    fileForms.push_back(form);
    events.push_back("file: " + form.title);
    return TakeAnswer(files, form.title, form.path, unanswered);
}

namespace {

// Records the dialog (its form as shown, when `shown` is given) and takes its scripted answer;
// none scripted counts as cancelled and is noted.
template <class Form>
bool TakeDialogAnswer(std::deque<std::function<bool(Form&)>>& script, Form& form, const char* name,
                      std::vector<wxString>& events, std::vector<wxString>& unanswered,
                      std::vector<Form>* shown = nullptr)
{
    if (shown != nullptr)
        shown->push_back(form);
    events.push_back(name);
    if (script.empty()) {
        unanswered.push_back(name);
        return false;
    }
    const auto answer = script.front();
    script.pop_front();
    return answer(form);
}

}  // namespace

bool ScriptedUserInterface::EditDevice(DeviceForm& form)
{
    return TakeDialogAnswer(deviceAnswers, form, "device dialog", events, unanswered, &deviceForms);
}

bool ScriptedUserInterface::EditCommand(CommandForm& form)
{
    return TakeDialogAnswer(commandAnswers, form, "command dialog", events, unanswered, &commandForms);
}

void ScriptedUserInterface::RefreshCommandList()
{
    ++commandListRefreshCount;
    events.push_back("command list");
}

void ScriptedUserInterface::BeginProgress(const wxString& title, const wxString& message)
{
    progress.push_back("begin: " + title + " | " + message);
    events.push_back(progress.back());
}

void ScriptedUserInterface::BeginProgressOver(MuxScanWindow& owner, const wxString& title, const wxString& message)
{
    BeginProgress(title, message + (&owner == &scanWindow ? " (over the configurator)" : " (over another window)"));
}

void ScriptedUserInterface::PulseProgress(const wxString& text)
{
    progress.push_back("pulse: " + text);
    events.push_back(progress.back());
}

void ScriptedUserInterface::EndProgress()
{
    progress.push_back("end");
    events.push_back("progress end");
}

void ScriptedUserInterface::RefreshPanel()
{
    ++refreshCount;
    events.push_back("refresh");
}

void ScriptedUserInterface::ShowStatus(const wxString& text)
{
    statuses.push_back(text);
    events.push_back("status: " + text);
}

void ScriptedUserInterface::WaitSeconds(int seconds)
{
    events.push_back(wxString::Format("wait %d", seconds));
}

bool ScriptedUserInterface::EditOptions(OptionsForm& form)
{
    return TakeDialogAnswer(optionsAnswers, form, "options dialog", events, unanswered, &optionsForms);
}

bool ScriptedUserInterface::EditRemote(RemoteForm& form)
{
    return TakeDialogAnswer(remoteAnswers, form, "remote dialog", events, unanswered, &remoteForms);
}

bool ScriptedUserInterface::EditScan(ScanForm& form)
{
    return TakeDialogAnswer(scanAnswers, form, "scan dialog", events, unanswered, &scanForms);
}

bool ScriptedUserInterface::EditMuxRebuild(MuxRebuildForm& form)
{
    return TakeDialogAnswer(rebuildAnswers, form, "rebuild dialog", events, unanswered);
}

MuxScanWindow* ScriptedUserInterface::OpenMuxScanWindow()
{
    ++scanWindowOpened;
    events.push_back("scan window");
    return &scanWindow;
}
