#include "desktop/remote_dialog.h"

#include "base/user_interface.h"
#include "desktop/dialog_layout.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/statline.h>

guiRemoteDialog::guiRemoteDialog(wxWindow* parent, wxWindowID id, const wxString& title, const wxPoint& pos,
                                 const wxSize& size, long style)
    : wxDialog(parent, id, title, pos, size, style)
{
    constexpr int kBorder = 8;
    wxBoxSizer* outer = new wxBoxSizer(wxVERTICAL);
    m_heading = new wxStaticText(this, wxID_ANY, "Virtual Com Port");
    m_heading->SetFont(wxFont(9, wxFONTFAMILY_SWISS, wxFONTSTYLE_NORMAL, wxFONTWEIGHT_BOLD, false, "Tahoma"));
    m_heading->SetForegroundColour(wxColour(51, 153, 255));
    outer->Add(m_heading, 0, wxLEFT | wxRIGHT | wxTOP, kBorder);
    outer->Add(new wxStaticLine(this), 0, wxEXPAND | wxALL, kBorder);

    wxFlexGridSizer* grid = new wxFlexGridSizer(0, 2, 4, kBorder);
    grid->AddGrowableCol(1);
    m_choiceComPort = new wxChoice(this, wxID_ANY);
    m_textAddress = new wxTextCtrl(this, wxID_ANY);
    m_textPort = new wxTextCtrl(this, wxID_ANY);
    const std::pair<const char*, wxWindow*> rows[] = {
        {"COM Port", m_choiceComPort}, {"Target IP address", m_textAddress}, {"Port Number", m_textPort}};
    for (const auto& [label, control] : rows) {
        grid->Add(new wxStaticText(this, wxID_ANY, label), 0, wxALIGN_CENTER_VERTICAL);
        grid->Add(control, 1, wxEXPAND);
    }
    outer->Add(grid, 1, wxEXPAND | wxLEFT | wxRIGHT, kBorder);
    outer->Add(CreateStdDialogButtonSizer(wxOK | wxCANCEL), 0, wxEXPAND | wxALL, kBorder);
    SetSizer(outer);
    SizeForContent(*this, size);
    Centre(wxBOTH);
}

void RemoteDialog::TransferFormToWindow(const RemoteForm& form)
{
    m_choiceComPort->Set(form.comNames);
    m_choiceComPort->SetStringSelection(form.comName);
    m_textAddress->ChangeValue(form.address);
    m_textPort->ChangeValue(form.port);
}

void RemoteDialog::TransferWindowToForm(RemoteForm& form) const
{
    form.comName = m_choiceComPort->GetStringSelection();
    form.address = m_textAddress->GetValue();
    form.port = m_textPort->GetValue();
}
