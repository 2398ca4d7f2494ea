#include "desktop/cmd_dialog.h"

#include "base/user_interface.h"
#include "desktop/dialog_layout.h"

guiCmdDialog::guiCmdDialog(wxWindow* parent, wxWindowID id, const wxString& title, const wxPoint& pos,
                           const wxSize& size, long style)
    : wxDialog(parent, id, title, pos, size, style)
{
    m_labelCommandNumber = new wxStaticText(this, wxID_ANY, "Command Number");
    m_textCommandNumber = new wxTextCtrl(this, wxID_ANY);
    m_textCommandNumber->SetToolTip("The command number, optionally followed by ':' and its arguments, e.g. 48:1,2,3");
    m_labelCycleInterval = new wxStaticText(this, wxID_ANY, "Cycle interval");
    m_textCycleInterval = new wxTextCtrl(this, wxID_ANY);
    m_checkEnabled = new wxCheckBox(this, wxID_ANY, "Enabled for polling");
    m_checkWrite = new wxCheckBox(this, wxID_ANY, "Write command");
    LayOutFormDialog(*this, {{m_labelCommandNumber, m_textCommandNumber}, {m_labelCycleInterval, m_textCycleInterval}},
                     {m_checkEnabled, m_checkWrite});
}

void CmdDialog::TransferFormToWindow(const CommandForm& form)
{
    m_textCommandNumber->ChangeValue(form.commandNumber);
    m_textCycleInterval->ChangeValue(form.cycleInterval);
    m_checkEnabled->SetValue(form.enabledForPolling);
    m_checkWrite->SetValue(form.writeCommand);
}

void CmdDialog::TransferWindowToForm(CommandForm& form) const
{
    form.commandNumber = m_textCommandNumber->GetValue();
    form.cycleInterval = m_textCycleInterval->GetValue();
    form.enabledForPolling = m_checkEnabled->GetValue();
    form.writeCommand = m_checkWrite->GetValue();
}
