#include "project/device_dialog.h"

#include "app/user_interface.h"

#include <wx/button.h>
#include <wx/sizer.h>

guiDeviceDialog::guiDeviceDialog(wxWindow* parent, wxWindowID id, const wxString& title, const wxPoint& pos,
                                 const wxSize& size, long style)
    : wxDialog(parent, id, title, pos, size, style)
{
    wxBoxSizer* outer = new wxBoxSizer(wxVERTICAL);
    wxFlexGridSizer* grid = new wxFlexGridSizer(0, 2, 6, 12);
    grid->AddGrowableCol(1);
    m_labelDeviceType = new wxStaticText(this, wxID_ANY, "Device Type");
    m_choiceDeviceType = new wxChoice(this, wxID_ANY);
    m_labelHartAddress = new wxStaticText(this, wxID_ANY, "Hart Address");
    m_textHartAddress = new wxTextCtrl(this, wxID_ANY);
    grid->Add(m_labelDeviceType, 0, wxALIGN_CENTER_VERTICAL);
    grid->Add(m_choiceDeviceType, 1, wxEXPAND);
    grid->Add(m_labelHartAddress, 0, wxALIGN_CENTER_VERTICAL);
    grid->Add(m_textHartAddress, 1, wxEXPAND);
    m_checkEnabled = new wxCheckBox(this, wxID_ANY, "Enabled for polling");
    m_checkAutoAddressing = new wxCheckBox(this, wxID_ANY, "Auto Addressing");
    grid->AddSpacer(0);
    grid->Add(m_checkEnabled);
    grid->AddSpacer(0);
    grid->Add(m_checkAutoAddressing);
    outer->Add(grid, 1, wxEXPAND | wxALL, 12);
    outer->Add(CreateStdDialogButtonSizer(wxOK | wxCANCEL), 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, 12);
    SetSizerAndFit(outer);
    SetMinSize(wxSize(320, -1));
    Fit();
    Centre(wxBOTH);
}

void DeviceDialog::TransferFormToWindow(const DeviceForm& form)
{
    m_choiceDeviceType->Set(form.typeNames);
    m_choiceDeviceType->SetSelection(form.typeSelection);
    m_textHartAddress->ChangeValue(form.address);
    m_checkEnabled->SetValue(form.enabledForPolling);
    m_checkAutoAddressing->SetValue(form.autoAddressing);
}

void DeviceDialog::TransferWindowToForm(DeviceForm& form) const
{
    form.typeSelection = m_choiceDeviceType->GetSelection();
    form.address = m_textHartAddress->GetValue();
    form.enabledForPolling = m_checkEnabled->GetValue();
    form.autoAddressing = m_checkAutoAddressing->GetValue();
}
