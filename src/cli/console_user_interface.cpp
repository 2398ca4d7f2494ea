#include "cli/console_user_interface.h"

#include "base/unicode_text.h"

void WriteLine(std::ostream& stream, const wxString& text)
{
    stream << Utf8Bytes(text) << '\n';  // damaged text from outside must not stop the output
    stream.flush();
}

ConsoleUserInterface::ConsoleUserInterface(std::ostream& out, bool answerYes)
    : out(out)
    , answerYes(answerYes)
{
}

void ConsoleUserInterface::AnswerEntry(const wxString& message, const wxString& value)
{
    entryAnswers[message] = value;
}

void ConsoleUserInterface::Print(const wxString& text)
{
    if (holding) {
        WriteLine(out, heldMessage);
        holding = false;
    }
    WriteLine(out, text);
}

void ConsoleUserInterface::Finish(bool failed, std::ostream& err)
{
    if (holding) {
        WriteLine(failed ? err : out, heldMessage);
        holding = false;
    } else if (failed && !stopReason.empty()) {
        WriteLine(err, stopReason);
    }
}

void ConsoleUserInterface::ShowMessage(const MessageForm& form)
{
    messageShown = true;
    if (holding)
        WriteLine(out, heldMessage);
    // Most boxes have the toolkit's default caption and show only their text; a caption of the
    // tool's own goes on the line before.
    heldMessage = form.caption.empty() ? form.text : form.caption + "\n" + form.text;
    holding = true;
}

bool ConsoleUserInterface::AskYesNo(const QuestionForm& form)
{
    Print(form.text + (answerYes ? " Yes" : " No"));
    if (!answerYes)
        stopReason = "tgxcfg: stopped at a question answered No; give --yes to answer Yes";
    return answerYes;
}

bool ConsoleUserInterface::EnterText(TextEntryForm& form)
{
    const auto answer = entryAnswers.find(form.message);
    const wxString value = answer != entryAnswers.end() ? answer->second : form.value;
    Print(form.message + ": " + value);
    // The dialog lets only the allowed characters through; a console answer with others is
    // refused as a whole, and the entry counts as cancelled.
    if (!form.allowedChars.empty()) {
        for (const wxUniChar c : value) {
            if (form.allowedChars.Find(c) == wxNOT_FOUND) {
                stopReason = wxString::Format("tgxcfg: \"%s\" cannot be entered at \"%s\": only the characters %s",
                    value, form.message, form.allowedChars);
                return false;
            }
        }
    }
    form.value = value;
    return true;
}

bool ConsoleUserInterface::ChooseFile(FileChoiceForm&) { return false; }

void ConsoleUserInterface::BeginProgress(const wxString& title, const wxString& message)
{
    Print(title);
    Print(message);
}

void ConsoleUserInterface::PulseProgress(const wxString& text) { Print(text); }

bool ConsoleUserInterface::EditDevice(DeviceForm&) { return false; }

bool ConsoleUserInterface::EditCommand(CommandForm&) { return false; }

void ConsoleUserInterface::ScanWindow::ShowRows(const std::vector<MuxRow>& shown)
{
    rows = shown;
    for (size_t r = 0; r < rows.size(); ++r)
        console.Print(wxString::Format("%zu\t%s\t%s\t%s\t%s", r, rows[r].type, rows[r].tagName, rows[r].description,
                                       rows[r].address));
}
