#include "project/cmd_dialog.h"

#include "app/user_interface.h"

#include <wx/button.h>
#include <wx/sizer.h>

guiCmdDialog::guiCmdDialog(wxWindow* parent, wxWindowID id, const wxString& title, const wxPoint& pos,
                           const wxSize& size, long style)
    : wxDialog(parent, id, title, pos, size, style)
{
    wxBoxSizer* outer = new wxBoxSizer(wxVERTICAL);
    wxFlexGridSizer* grid = new wxFlexGridSizer(0, 2, 6, 12);
    grid->AddGrowableCol(1);
    m_labelCommandNumber = new wxStaticText(this, wxID_ANY, "Command Number");
    m_textCommandNumber = new wxTextCtrl(this, wxID_ANY);
    m_textCommandNumber->SetToolTip("The command number, optionally followed by ':' and its arguments, e.g. 48:1,2,3");
    m_labelCycleInterval = new wxStaticText(this, wxID_ANY, "Cycle interval");
    m_textCycleInterval = new wxTextCtrl(this, wxID_ANY);
    grid->Add(m_labelCommandNumber, 0, wxALIGN_CENTER_VERTICAL);
    grid->Add(m_textCommandNumber, 1, wxEXPAND);
    grid->Add(m_labelCycleInterval, 0, wxALIGN_CENTER_VERTICAL);
    grid->Add(m_textCycleInterval, 1, wxEXPAND);
    m_checkEnabled = new wxCheckBox(this, wxID_ANY, "Enabled for polling");
    m_checkWrite = new wxCheckBox(this, wxID_ANY, "Write command");
    grid->AddSpacer(0);
    grid->Add(m_checkEnabled);
    grid->AddSpacer(0);
    grid->Add(m_checkWrite);
    outer->Add(grid, 1, wxEXPAND | wxALL, 12);
    outer->Add(CreateStdDialogButtonSizer(wxOK | wxCANCEL), 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, 12);
    SetSizerAndFit(outer);
    SetMinSize(wxSize(320, -1));
    Fit();
    Centre(wxBOTH);
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
