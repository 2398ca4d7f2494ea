#include "desktop/wx_user_interface.h"

#include "base/mux_scan_window.h"
#include "desktop/cmd_dialog.h"
#include "desktop/device_dialog.h"
#include "desktop/dialog_layout.h"
#include "desktop/main_frame.h"
#include "desktop/mux_rebuild_dialog.h"
#include "desktop/options_dialog.h"
#include "desktop/remote_dialog.h"
#include "desktop/scan_dialog.h"

#include <wx/evtloop.h>
#include <wx/filedlg.h>
#include <wx/msgdlg.h>
#include <wx/progdlg.h>
#include <wx/sizer.h>
#include <wx/statusbr.h>
#include <wx/textdlg.h>
#include <wx/stopwatch.h>
#include <wx/valtext.h>
#include <wx/wupdlock.h>

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

#ifdef __WXGTK__
// Grows the window to its content, never narrower: a step's text may be shorter than the last.
void GrowToContent(wxTopLevelWindow& window)
{
    for (wxWindow* child : window.GetChildren())
        child->InvalidateBestSize();
    wxSize size = window.GetClientSize();
    size.IncTo(window.GetSizer()->GetMinSize());
    if (size != window.GetClientSize())
        window.SetClientSize(size);
    window.Layout();
}

// Draws the window again and waits, a second at most, until that is on screen. GTK places the
// controls and draws them together, after the window manager has mapped the window or granted it
// a new size: what this waits for is the window as it is now. (A repaint alone would draw the
// controls where they were.)
void DrawNow(wxWindow& window)
{
    bool painted = false;
    const auto onPaint = [&painted](wxPaintEvent& event) {
        painted = true;
        event.Skip();
    };
    window.Bind(wxEVT_PAINT, onPaint);
    window.Refresh();
    wxEventLoopBase* loop = wxEventLoopBase::GetActive();
    for (wxStopWatch watch; loop != nullptr && !painted && watch.Time() < 1000; wxMilliSleep(5))
        loop->YieldFor(wxEVT_CATEGORY_UI);
    window.Unbind(wxEVT_PAINT, onPaint);
}
#endif

// A window title is one line: a line break in it would show as a box.
wxString TitleLine(const wxString& title)
{
    wxString line = title;
    line.Replace("\r", " ");
    line.Replace("\n", " ");
    return line.Trim();
}

}  // namespace

WxUserInterface::WxUserInterface(MainFrame& frame)
    : frame(frame)
{
}

WxUserInterface::~WxUserInterface() = default;

void WxUserInterface::ShowMessage(const MessageForm& form)
{
    wxMessageBox(form.text, CaptionOrDefault(form.caption), wxOK | (form.centred ? wxCENTRE : 0) | IconStyle(form.icon),
                 nullptr);
}

bool WxUserInterface::AskYesNo(const QuestionForm& form)
{
    return wxMessageBox(form.text, CaptionOrDefault(form.caption), wxYES_NO | wxCENTRE | IconStyle(form.icon),
                        nullptr) == wxYES;
}

bool WxUserInterface::EnterText(TextEntryForm& form)
{
    wxTextEntryDialog dialog(&frame, form.message, form.caption, form.value, wxTextEntryDialogStyle);
    if (!form.allowedChars.empty()) {
        wxTextValidator validator(wxFILTER_INCLUDE_CHAR_LIST);
        validator.SetCharIncludes(form.allowedChars);
        dialog.SetTextValidator(validator);
    }
    SizeForContent(dialog);
    if (dialog.ShowModal() != wxID_OK)
        return false;
    form.value = dialog.GetValue();
    return true;
}

bool WxUserInterface::ChooseFile(FileChoiceForm& form)
{
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
    OpenProgress(&frame, title, message);
}

void WxUserInterface::BeginProgressOver(MuxScanWindow& owner, const wxString& title, const wxString& message)
{
    wxWindow* window = dynamic_cast<wxWindow*>(&owner);
    OpenProgress(window != nullptr ? window : &frame, title, message);
}

void WxUserInterface::OpenProgress(wxWindow* parent, const wxString& title, const wxString& message)
{
    progress = std::make_unique<wxProgressDialog>(TitleLine(title), message, 100, parent, wxPD_APP_MODAL);
}

// Each step's text is drawn for the first time with the dialog grown to hold it, and is on screen
// before the step runs: a step may run a tool for long, or wait, without drawing anything. (The
// Windows dialog is the system's own, drawn at once by its own thread.)
void WxUserInterface::PulseProgress(const wxString& text)
{
    if (!progress)
        return;
#ifdef __WXGTK__
    {
        wxWindowUpdateLocker notYet(progress.get());
        progress->Pulse(text);
        GrowToContent(*progress);
    }
    DrawNow(*progress);
#else
    progress->Pulse(text);
#endif
}

void WxUserInterface::EndProgress()
{
    progress.reset();
}

bool WxUserInterface::EditDevice(DeviceForm& form)
{
    DeviceDialog dialog(&frame);
    dialog.TransferFormToWindow(form);
    if (dialog.ShowModal() != wxID_OK)
        return false;
    dialog.TransferWindowToForm(form);
    return true;
}

bool WxUserInterface::EditCommand(CommandForm& form)
{
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
}

void WxUserInterface::RefreshPanel()
{
    frame.RefreshPanelFromProject();
}

void WxUserInterface::WaitForOtherRun(const wxString& text, const std::function<bool()>& free)
{
    const wxString before = frame.GetStatusBar() != nullptr ? frame.GetStatusBar()->GetStatusText(0) : wxString();
    frame.SetStatusText(text, 0);
    wxBusyCursor busy;
    while (!free()) {
        wxSafeYield(nullptr, true);
        wxMilliSleep(200);
    }
    frame.SetStatusText(before, 0);
}

void WxUserInterface::ShowStatus(const wxString& text)
{
    frame.SetStatusText(text, 0);
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
    return EditInDialog<OptionsDialog>(&frame, form);
}

bool WxUserInterface::EditRemote(RemoteForm& form)
{
    return EditInDialog<RemoteDialog>(&frame, form);
}

bool WxUserInterface::EditScan(ScanForm& form)
{
    return EditInDialog<ScanDialog>(&frame, form);
}

bool WxUserInterface::EditMuxRebuild(MuxRebuildForm& form)
{
    // The rebuild dialog has no parent window and no title.
    return EditInDialog<guiMUXRebuild>(nullptr, form);
}

MuxScanWindow* WxUserInterface::OpenMuxScanWindow() { return frame.OpenMuxScanFrame(); }
