// "Hart Command": the dialog through which a HART command is added or changed.
#pragma once

#include <wx/checkbox.h>
#include <wx/dialog.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

struct CommandForm;

// The generated layer: the controls, top to bottom, each with its label on the left.
class guiCmdDialog : public wxDialog {
public:
    guiCmdDialog(wxWindow* parent, wxWindowID id = wxID_ANY, const wxString& title = "Hart Command",
                 const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                 long style = wxDEFAULT_DIALOG_STYLE);

    wxStaticText* m_labelCommandNumber;
    wxTextCtrl* m_textCommandNumber;
    wxStaticText* m_labelCycleInterval;
    wxTextCtrl* m_textCycleInterval;
    wxCheckBox* m_checkEnabled;
    wxCheckBox* m_checkWrite;
};

class CmdDialog : public guiCmdDialog {
public:
    explicit CmdDialog(wxWindow* parent) : guiCmdDialog(parent) {}

    void TransferFormToWindow(const CommandForm& form);
    void TransferWindowToForm(CommandForm& form) const;
};
