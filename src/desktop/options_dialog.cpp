#include "desktop/options_dialog.h"

#include "base/user_interface.h"
#include "desktop/dialog_layout.h"

#include <wx/font.h>
#include <wx/sizer.h>

namespace {

wxStaticText* Heading(wxWindow* parent, const char* text)
{
    auto* heading = new wxStaticText(parent, wxID_ANY, text);
    heading->SetFont(wxFont(9, wxFONTFAMILY_SWISS, wxFONTSTYLE_NORMAL, wxFONTWEIGHT_BOLD, false, "Tahoma"));
    heading->SetForegroundColour(wxColour(51, 153, 255));
    return heading;
}

}  // namespace

guiOptionsDialog::guiOptionsDialog(wxWindow* parent, wxWindowID id, const wxString& title, const wxPoint& pos,
                                   const wxSize& size, long style)
    : wxDialog(parent, id, title, pos, size, style)
{
    const char* const portLabels[6] = {"Virtual Serial Port", "Modbus TCP/IP", "Modbus Encapsulated",
                                       "Intercom",            "Syslog",        "HART IP (TCP)"};
    auto* grid = new wxFlexGridSizer(2, 0, 0);
    grid->AddGrowableCol(1);
    grid->SetFlexibleDirection(wxBOTH);
    m_headingPorts = Heading(this, "Port numbers");
    grid->Add(m_headingPorts, 0, wxALL, 5);
    grid->Add(0, 20);
    for (int i = 0; i < 6; ++i) {
        m_labelPorts[i] = new wxStaticText(this, wxID_ANY, portLabels[i]);
        m_textPorts[i] = new wxTextCtrl(this, wxID_ANY);
        grid->Add(m_labelPorts[i], 0, wxALL | wxALIGN_CENTER_VERTICAL, 5);
        grid->Add(m_textPorts[i], 0, wxALL | wxEXPAND, 5);
    }
    grid->Add(0, 10);
    grid->Add(0, 10);
    m_headingTimeServer = Heading(this, "Time Server");
    grid->Add(m_headingTimeServer, 0, wxALL, 5);
    grid->Add(0, 20);
    m_labelTimeServer = new wxStaticText(this, wxID_ANY, "Time server address");
    m_textTimeServer = new wxTextCtrl(this, wxID_ANY);
    grid->Add(m_labelTimeServer, 0, wxALL | wxALIGN_CENTER_VERTICAL, 5);
    grid->Add(m_textTimeServer, 0, wxALL | wxEXPAND, 5);
    m_checkTimeServer = new wxCheckBox(this, wxID_ANY, "Use time server");
    grid->Add(m_checkTimeServer, 0, wxALL, 5);

    auto* top = new wxBoxSizer(wxVERTICAL);
    top->Add(grid, 1, wxALL | wxEXPAND, 5);
    top->Add(CreateStdDialogButtonSizer(wxOK | wxCANCEL), 0, wxALL | wxEXPAND, 5);
    SetSizer(top);
    SizeForContent(*this, size);
    Centre(wxBOTH);
}

void OptionsDialog::TransferFormToWindow(const OptionsForm& form)
{
    for (int i = 0; i < 6; ++i)
        m_textPorts[i]->ChangeValue(form.ports[i]);
    m_textTimeServer->ChangeValue(form.timeServerAddress);
    m_checkTimeServer->SetValue(form.useTimeServer);
}

void OptionsDialog::TransferWindowToForm(OptionsForm& form) const
{
    for (int i = 0; i < 6; ++i)
        form.ports[i] = m_textPorts[i]->GetValue();
    form.timeServerAddress = m_textTimeServer->GetValue();
    form.useTimeServer = m_checkTimeServer->GetValue();
}
