#include "desktop/scan_dialog.h"

#include "base/user_interface.h"
#include "desktop/dialog_layout.h"
#include "mux/mux_scan.h"
#include "project/project.h"

#include <wx/button.h>
#include <wx/sizer.h>

// The spelling of this text is the one users know.
const char* const kScanChecks
    = "\n                             PLEASE CHECK THAT :\n\n"
      " 1. The TG7 is powered and connected to the multiplexer.\n\n"
      " 2. The [Target/options] menu port numbers are correct.\n\n"
      "     If required, cancel this diaglog box and make any\n"
      "     nessesary changes before continuing.\n";

guiScanDialog::guiScanDialog(wxWindow* parent, wxWindowID id, const wxString& title, const wxPoint& pos,
                             const wxSize& size, long style)
    : wxDialog(parent, id, title, pos, size, style)
{
    constexpr int kBorder = 8;
    wxBoxSizer* outer = new wxBoxSizer(wxVERTICAL);
    m_textChecks = new wxStaticText(this, wxID_ANY, kScanChecks);
    m_textChecks->SetFont(wxFont(9, wxFONTFAMILY_SWISS, wxFONTSTYLE_NORMAL, wxFONTWEIGHT_NORMAL, false, "Arial"));
    outer->Add(m_textChecks, 1, wxEXPAND | wxALL, kBorder);

    wxFlexGridSizer* grid = new wxFlexGridSizer(0, 2, 4, kBorder);
    grid->AddGrowableCol(1);
    m_textAddress = new wxTextCtrl(this, wxID_ANY);
    m_choiceBaudRate = new wxChoice(this, wxID_ANY);
    for (const char* baud : kBaudRates)
        m_choiceBaudRate->Append(baud);
    grid->Add(new wxStaticText(this, wxID_ANY, "IP Address of the TG7"), 0, wxALIGN_CENTER_VERTICAL);
    grid->Add(m_textAddress, 1, wxEXPAND);
    grid->Add(new wxStaticText(this, wxID_ANY, "Multiplexer Baud Rate"), 0, wxALIGN_CENTER_VERTICAL);
    grid->Add(m_choiceBaudRate, 1, wxEXPAND);
    outer->Add(grid, 0, wxEXPAND | wxLEFT | wxRIGHT, kBorder);

    wxStdDialogButtonSizer* buttons = new wxStdDialogButtonSizer();
    wxButton* continueButton = new wxButton(this, wxID_OK, "Continue");
    continueButton->SetDefault();
    buttons->AddButton(continueButton);
    buttons->AddButton(new wxButton(this, wxID_CANCEL, "Cancel"));
    buttons->Realize();
    outer->Add(buttons, 0, wxEXPAND | wxALL, kBorder);
    SetSizer(outer);
    SizeForContent(*this, size);
    Centre(wxBOTH);
}

void ScanDialog::TransferFormToWindow(const ScanForm& form)
{
    m_textAddress->ChangeValue(form.address);
    m_choiceBaudRate->SetStringSelection(form.baudRate);
}

void ScanDialog::TransferWindowToForm(ScanForm& form) const
{
    form.address = m_textAddress->GetValue();
    form.baudRate = m_choiceBaudRate->GetStringSelection();
}
