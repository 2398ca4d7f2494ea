// The loop rebuild dialog: the loops to scan, the search method and the estimated duration.
#pragma once

#include <wx/checkbox.h>
#include <wx/dialog.h>
#include <wx/radiobut.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

struct MuxRebuildForm;

// The generated layer: the controls, with an empty handler per kind of change.
class MUXRebuildBase : public wxDialog {
public:
    MUXRebuildBase(wxWindow* parent, wxWindowID id = wxID_ANY, const wxString& title = wxEmptyString,
                   const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                   long style = wxDEFAULT_DIALOG_STYLE);

    wxStaticText* m_textExplanation;
    wxCheckBox* m_checkAllLoops;
    wxCheckBox* m_checkLoops[16];
    wxRadioButton* m_radioAddressZero;
    wxRadioButton* m_radioFirstDevice;
    wxTextCtrl* m_textEstimate;

protected:
    virtual void OnAllLoops(wxCommandEvent& event) { event.Skip(); }
    virtual void OnLoop(wxCommandEvent& event) { event.Skip(); }
    virtual void OnSearchMethod(wxCommandEvent& event) { event.Skip(); }
};

class guiMUXRebuild : public MUXRebuildBase {
public:
    explicit guiMUXRebuild(wxWindow* parent);

    void TransferFormToWindow(const MuxRebuildForm& form);
    void TransferWindowToForm(MuxRebuildForm& form) const;

protected:
    void OnAllLoops(wxCommandEvent& event) override;
    void OnLoop(wxCommandEvent& event) override;
    void OnSearchMethod(wxCommandEvent& event) override;

private:
    void UpdateEstimate();
};
