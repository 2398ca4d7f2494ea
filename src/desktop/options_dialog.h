// "Options": the gateway's port numbers and time server.
#pragma once

#include <wx/checkbox.h>
#include <wx/dialog.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

struct OptionsForm;

// The generated layer: two headings, six port rows, the time server row and its check box in a
// two-column grid, OK and Cancel below.
class guiOptionsDialog : public wxDialog {
public:
    guiOptionsDialog(wxWindow* parent, wxWindowID id = wxID_ANY, const wxString& title = "Options",
                     const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxSize(283, 399),
                     long style = wxDEFAULT_DIALOG_STYLE);

    wxStaticText* m_headingPorts;
    wxStaticText* m_labelPorts[6];
    wxTextCtrl* m_textPorts[6];
    wxStaticText* m_headingTimeServer;
    wxStaticText* m_labelTimeServer;
    wxTextCtrl* m_textTimeServer;
    wxCheckBox* m_checkTimeServer;
};

class OptionsDialog : public guiOptionsDialog {
public:
    explicit OptionsDialog(wxWindow* parent) : guiOptionsDialog(parent) {}

    void TransferFormToWindow(const OptionsForm& form);
    void TransferWindowToForm(OptionsForm& form) const;
};
