// "Remote Options": the virtual COM port's name, target address and TCP port.
#pragma once

#include <wx/choice.h>
#include <wx/dialog.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

struct RemoteForm;

class guiRemoteDialog : public wxDialog {
public:
    guiRemoteDialog(wxWindow* parent, wxWindowID id = wxID_ANY, const wxString& title = "Remote Options",
                    const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxSize(298, 197),
                    long style = wxDEFAULT_DIALOG_STYLE);

    wxStaticText* m_heading;
    wxChoice* m_choiceComPort;
    wxTextCtrl* m_textAddress;
    wxTextCtrl* m_textPort;
};

class RemoteDialog : public guiRemoteDialog {
public:
    explicit RemoteDialog(wxWindow* parent) : guiRemoteDialog(parent) {}

    void TransferFormToWindow(const RemoteForm& form);
    void TransferWindowToForm(RemoteForm& form) const;
};
