// "Multiplexer Configurator": the checks to make before a scan, the gateway's address and the
// multiplexer's baud rate.
#pragma once

#include <wx/choice.h>
#include <wx/dialog.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

struct ScanForm;

class guiScanDialog : public wxDialog {
public:
    guiScanDialog(wxWindow* parent, wxWindowID id = wxID_ANY, const wxString& title = "Multiplexer Configurator",
                  const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxSize(411, 326),
                  long style = wxDEFAULT_DIALOG_STYLE);

    wxStaticText* m_textChecks;
    wxTextCtrl* m_textAddress;
    wxChoice* m_choiceBaudRate;
};

class ScanDialog : public guiScanDialog {
public:
    explicit ScanDialog(wxWindow* parent) : guiScanDialog(parent) {}

    void TransferFormToWindow(const ScanForm& form);
    void TransferWindowToForm(ScanForm& form) const;
};
