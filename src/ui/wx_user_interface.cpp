#include "ui/wx_user_interface.h"

#include "project/cmd_dialog.h"
#include "project/device_dialog.h"
#include "mux/mux_rebuild_dialog.h"
#include "mux/scan_dialog.h"
#include "remote/options_dialog.h"
#include "remote/remote_dialog.h"
#include "ui/main_frame.h"

#include <wx/evtloop.h>
#include <wx/filedlg.h>
#include <wx/msgdlg.h>
#include <wx/progdlg.h>
#include <wx/textdlg.h>
#include <wx/valtext.h>

#include <algorithm>

namespace {

long IconStyle(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::Information: return wxICON_INFORMATION;
    case MessageIcon::Warning: return wxICON_WARNING;
    case MessageIcon::Error: return wxICON_ERROR;
    case MessageIcon::Exclamation: return wxICON_EXCLAMATION;
    case MessageIcon::None: break;
    }
    return 0;
}

wxString CaptionOrDefault(const wxString& caption)
{
    return caption.empty() ? wxString(wxMessageBoxCaptionStr) : caption;
}

// Widens the progress dialog to its longest text so far and draws it now: the step that follows
// may run a tool for a long time, and its text must be on screen meanwhile.
void ShowWholeProgressText(wxProgressDialog& dialog, const wxString& text)
{
    int widest = 0;
    for (const wxString& line : wxSplit(text, '\n')) {
        int width = 0, height = 0;
        dialog.GetTextExtent(line, &width, &height);
        widest = std::max(widest, width);
    }
    const int margins = dialog.FromDIP(60);
    const wxSize client = dialog.GetClientSize();
    if (client.x < widest + margins) {
        dialog.SetClientSize(widest + margins, client.y);
        dialog.Layout();
    }
    dialog.Refresh();
    dialog.Update();
    wxEventLoopBase* loop = wxEventLoopBase::GetActive();
    if (loop != nullptr)
        loop->YieldFor(wxEVT_CATEGORY_UI);
}

}  // namespace

WxUserInterface::WxUserInterface(MainFrame& frame, UserInterface* scriptedDialogs)
    : frame(frame), scripted(scriptedDialogs)
{
}

WxUserInterface::~WxUserInterface() = default;

void WxUserInterface::ShowMessage(const MessageForm& form)
{
    if (scripted != nullptr)
        return scripted->ShowMessage(form);
    wxMessageBox(form.text, CaptionOrDefault(form.caption), wxOK | (form.centred ? wxCENTRE : 0) | IconStyle(form.icon),
                 nullptr);
}

bool WxUserInterface::AskYesNo(const QuestionForm& form)
{
    if (scripted != nullptr)
        return scripted->AskYesNo(form);
    return wxMessageBox(form.text, CaptionOrDefault(form.caption), wxYES_NO | wxCENTRE | IconStyle(form.icon),
                        nullptr) == wxYES;
}

bool WxUserInterface::EnterText(TextEntryForm& form)
{
    if (scripted != nullptr)
        return scripted->EnterText(form);
    wxTextEntryDialog dialog(&frame, form.message, form.caption, form.value, wxTextEntryDialogStyle);
    if (!form.allowedChars.empty()) {
        wxTextValidator validator(wxFILTER_INCLUDE_CHAR_LIST);
        validator.SetCharIncludes(form.allowedChars);
        dialog.SetTextValidator(validator);
    }
    if (dialog.ShowModal() != wxID_OK)
        return false;
    form.value = dialog.GetValue();
    return true;
}

bool WxUserInterface::ChooseFile(FileChoiceForm& form)
{
    if (scripted != nullptr)
        return scripted->ChooseFile(form);
    long style = form.save ? wxFD_SAVE : wxFD_OPEN;
    if (form.overwritePrompt)
        style |= wxFD_OVERWRITE_PROMPT;
    if (form.mustExist)
        style |= wxFD_FILE_MUST_EXIST;
    wxFileDialog dialog(&frame, form.title, form.folder, form.fileName, form.wildcard, style);
    if (dialog.ShowModal() != wxID_OK)
        return false;
    form.path = dialog.GetPath();
    return true;
}

void WxUserInterface::BeginProgress(const wxString& title, const wxString& message)
{
    if (scripted != nullptr)
        return scripted->BeginProgress(title, message);
    progress = std::make_unique<wxProgressDialog>(title, message, 100, &frame, wxPD_APP_MODAL);
}

void WxUserInterface::PulseProgress(const wxString& text)
{
    if (scripted != nullptr)
        return scripted->PulseProgress(text);
    if (!progress)
        return;
    progress->Pulse(text);
    ShowWholeProgressText(*progress, text);
}

void WxUserInterface::EndProgress()
{
    if (scripted != nullptr)
        return scripted->EndProgress();
    progress.reset();
}

bool WxUserInterface::EditDevice(DeviceForm& form)
{
    if (scripted != nullptr)
        return scripted->EditDevice(form);
    DeviceDialog dialog(&frame);
    dialog.TransferFormToWindow(form);
    if (dialog.ShowModal() != wxID_OK)
        return false;
    dialog.TransferWindowToForm(form);
    return true;
}

bool WxUserInterface::EditCommand(CommandForm& form)
{
    if (scripted != nullptr)
        return scripted->EditCommand(form);
    CmdDialog dialog(&frame);
    dialog.TransferFormToWindow(form);
    if (dialog.ShowModal() != wxID_OK)
        return false;
    dialog.TransferWindowToForm(form);
    return true;
}

void WxUserInterface::RefreshCommandList()
{
    frame.RefreshCommandList();
    if (scripted != nullptr)
        scripted->RefreshCommandList();
}

void WxUserInterface::RefreshPanel()
{
    frame.RefreshPanelFromProject();
    if (scripted != nullptr)
        scripted->RefreshPanel();
}

void WxUserInterface::ShowStatus(const wxString& text)
{
    frame.SetStatusText(text, 0);
    if (scripted != nullptr)
        scripted->ShowStatus(text);
}

namespace {

// Shows a form dialog modally: the form in, and back out on OK.
template <class Dialog, class Form>
bool EditInDialog(wxWindow* parent, Form& form)
{
    Dialog dialog(parent);
    dialog.TransferFormToWindow(form);
    if (dialog.ShowModal() != wxID_OK)
        return false;
    dialog.TransferWindowToForm(form);
    return true;
}

}  // namespace

bool WxUserInterface::EditOptions(OptionsForm& form)
{
    return scripted != nullptr ? scripted->EditOptions(form) : EditInDialog<OptionsDialog>(&frame, form);
}

bool WxUserInterface::EditRemote(RemoteForm& form)
{
    return scripted != nullptr ? scripted->EditRemote(form) : EditInDialog<RemoteDialog>(&frame, form);
}

bool WxUserInterface::EditScan(ScanForm& form)
{
    return scripted != nullptr ? scripted->EditScan(form) : EditInDialog<ScanDialog>(&frame, form);
}

bool WxUserInterface::EditMuxRebuild(MuxRebuildForm& form)
{
    // The rebuild dialog has no parent window and no title.
    return scripted != nullptr ? scripted->EditMuxRebuild(form) : EditInDialog<guiMUXRebuild>(nullptr, form);
}

MuxScanWindow* WxUserInterface::OpenMuxScanWindow() { return frame.OpenMuxScanFrame(); }
