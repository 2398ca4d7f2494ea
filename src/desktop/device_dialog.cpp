#include "desktop/device_dialog.h"

#include "base/user_interface.h"
#include "desktop/dialog_layout.h"

guiDeviceDialog::guiDeviceDialog(wxWindow* parent, wxWindowID id, const wxString& title, const wxPoint& pos,
                                 const wxSize& size, long style)
    : wxDialog(parent, id, title, pos, size, style)
{
    m_labelDeviceType = new wxStaticText(this, wxID_ANY, "Device Type");
    m_choiceDeviceType = new wxChoice(this, wxID_ANY);
    m_labelHartAddress = new wxStaticText(this, wxID_ANY, "Hart Address");
    m_textHartAddress = new wxTextCtrl(this, wxID_ANY);
    m_checkEnabled = new wxCheckBox(this, wxID_ANY, "Enabled for polling");
    m_checkAutoAddressing = new wxCheckBox(this, wxID_ANY, "Auto Addressing");
    LayOutFormDialog(*this, {{m_labelDeviceType, m_choiceDeviceType}, {m_labelHartAddress, m_textHartAddress}},
                     {m_checkEnabled, m_checkAutoAddressing});
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
