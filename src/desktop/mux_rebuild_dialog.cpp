#include "desktop/mux_rebuild_dialog.h"

#include "base/user_interface.h"
#include "desktop/dialog_layout.h"
#include "mux/mux_rebuild.h"

#include <wx/button.h>
#include <wx/sizer.h>

namespace {

// The spelling of this text is the one users know.
const char* const kRebuildExplanation
    = "\n  Continuing with this utility will cause the Multiplexer to re-scan its HART loops to discover changes to "
      "the attached devices.\n\n  The time taken for this activity to complete is highly dependant on the options "
      "choosen below. The estimated time needed is shown.\n\n    PLEASE NOTE :\n\n  Once the rebuild process has been "
      "started, the multilexer will be  unavailable until the scan has completed.\n\n\n\n";

}  // namespace

MUXRebuildBase::MUXRebuildBase(wxWindow* parent, wxWindowID id, const wxString& title, const wxPoint& pos,
                               const wxSize& size, long style)
    : wxDialog(parent, id, title, pos, size, style)
{
    constexpr int kBorder = 8;
    wxBoxSizer* outer = new wxBoxSizer(wxVERTICAL);
    m_textExplanation = new wxStaticText(this, wxID_ANY, kRebuildExplanation);
    m_textExplanation->SetFont(wxFont(9, wxFONTFAMILY_SWISS, wxFONTSTYLE_NORMAL, wxFONTWEIGHT_NORMAL, false, "Candara"));
    m_textExplanation->Wrap(420);
    outer->Add(m_textExplanation, 0, wxEXPAND | wxLEFT | wxRIGHT, kBorder);
    wxStaticText* loopsHeading = new wxStaticText(this, wxID_ANY, "LOOPS TO SCAN");
    loopsHeading->SetFont(wxFont(9, wxFONTFAMILY_SWISS, wxFONTSTYLE_NORMAL, wxFONTWEIGHT_BOLD, false, "Arial"));
    outer->Add(loopsHeading, 0, wxALL, kBorder);

    m_checkAllLoops = new wxCheckBox(this, wxID_ANY, "All Loops");
    outer->Add(m_checkAllLoops, 0, wxLEFT | wxRIGHT | wxBOTTOM, kBorder);
    wxGridSizer* loops = new wxGridSizer(2, 8, 4, kBorder);
    for (int k = 0; k < 16; ++k) {
        m_checkLoops[k] = new wxCheckBox(this, wxID_ANY, wxString::Format("%d", k));
        loops->Add(m_checkLoops[k]);
        m_checkLoops[k]->Bind(wxEVT_CHECKBOX, &MUXRebuildBase::OnLoop, this);
    }
    outer->Add(loops, 0, wxLEFT | wxRIGHT, kBorder);
    m_checkAllLoops->Bind(wxEVT_CHECKBOX, &MUXRebuildBase::OnAllLoops, this);

    wxStaticText* methodHeading = new wxStaticText(this, wxID_ANY, "LOOP SEARCH METHOD");
    methodHeading->SetFont(loopsHeading->GetFont());
    outer->Add(methodHeading, 0, wxALL, kBorder);
    m_radioAddressZero
        = new wxRadioButton(this, wxID_ANY, "Search only for devices with address 0", wxDefaultPosition, wxDefaultSize,
                            wxRB_GROUP);
    m_radioFirstDevice = new wxRadioButton(this, wxID_ANY, "Stop search after first device found");
    for (wxRadioButton* radio : {m_radioAddressZero, m_radioFirstDevice}) {
        outer->Add(radio, 0, wxLEFT | wxRIGHT | wxBOTTOM, kBorder);
        radio->Bind(wxEVT_RADIOBUTTON, &MUXRebuildBase::OnSearchMethod, this);
    }
    m_textEstimate = new wxTextCtrl(this, wxID_ANY, "0 seconds", wxDefaultPosition, wxDefaultSize, wxTE_READONLY);
    outer->Add(m_textEstimate, 0, wxEXPAND | wxLEFT | wxRIGHT, kBorder);

    wxStdDialogButtonSizer* buttons = new wxStdDialogButtonSizer();
    wxButton* startButton = new wxButton(this, wxID_OK, "START REBUILD");
    startButton->SetDefault();
    buttons->AddButton(startButton);
    buttons->AddButton(new wxButton(this, wxID_CANCEL, "CANCEL"));
    buttons->Realize();
    outer->Add(buttons, 0, wxEXPAND | wxALL, kBorder);
    SetSizer(outer);
    SizeForContent(*this);
    Centre(wxBOTH);
}

guiMUXRebuild::guiMUXRebuild(wxWindow* parent) : MUXRebuildBase(parent)
{
    TransferFormToWindow(MuxRebuildForm{});
}

void guiMUXRebuild::TransferFormToWindow(const MuxRebuildForm& form)
{
    m_checkAllLoops->SetValue(form.allLoops);
    for (int k = 0; k < 16; ++k)
        m_checkLoops[k]->SetValue(form.loops[k]);
    m_radioAddressZero->SetValue(form.addressZeroSearch);
    m_radioFirstDevice->SetValue(form.firstDeviceSearch);
    UpdateEstimate();
}

void guiMUXRebuild::TransferWindowToForm(MuxRebuildForm& form) const
{
    form.allLoops = m_checkAllLoops->GetValue();
    for (int k = 0; k < 16; ++k)
        form.loops[k] = m_checkLoops[k]->GetValue();
    form.addressZeroSearch = m_radioAddressZero->GetValue();
    form.firstDeviceSearch = m_radioFirstDevice->GetValue();
}

void guiMUXRebuild::OnAllLoops(wxCommandEvent&)
{
    for (wxCheckBox* loop : m_checkLoops)
        loop->SetValue(m_checkAllLoops->GetValue());
    UpdateEstimate();
}

void guiMUXRebuild::OnLoop(wxCommandEvent&)
{
    m_checkAllLoops->SetValue(false);
    UpdateEstimate();
}

void guiMUXRebuild::OnSearchMethod(wxCommandEvent&) { UpdateEstimate(); }

void guiMUXRebuild::UpdateEstimate()
{
    MuxRebuildForm form;
    TransferWindowToForm(form);
    m_textEstimate->ChangeValue(RebuildEstimateText(form));
}
