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

bool ScriptedUserInterface::EnterText(TextEntryForm& form)
{
    textForms.push_back(form);
    events.push_back("text: " + form.message);
    if (texts.empty())
        unanswered.push_back(form.message);
    if (texts.empty() || !texts.front()) {
        if (!texts.empty())
            texts.pop_front();
        return false;
    }
    form.value = *texts.front();
    texts.pop_front();
    return true;
}

bool ScriptedUserInterface::ChooseFile(FileChoiceForm& form)
{
    fileForms.push_back(form);
    events.push_back("file: " + form.title);
    if (files.empty())
        unanswered.push_back(form.title);
    if (files.empty() || !files.front()) {
        if (!files.empty())
            files.pop_front();
        return false;
    }
    form.path = *files.front();
    files.pop_front();
    return true;
}

void ScriptedUserInterface::BeginProgress(const wxString& title, const wxString& message)
{
    progress.push_back("begin: " + title + " | " + message);
    events.push_back(progress.back());
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
