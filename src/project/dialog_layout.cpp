#include "project/dialog_layout.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/dialog.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

void LayOutFormDialog(wxDialog& dialog, std::initializer_list<std::pair<wxStaticText*, wxWindow*>> fields,
                      std::initializer_list<wxCheckBox*> checks)
{
    constexpr int kBorder = 12;
    wxBoxSizer* outer = new wxBoxSizer(wxVERTICAL);
    wxFlexGridSizer* grid = new wxFlexGridSizer(0, 2, 6, kBorder);
    grid->AddGrowableCol(1);
    for (const auto& [label, control] : fields) {
        grid->Add(label, 0, wxALIGN_CENTER_VERTICAL);
        grid->Add(control, 1, wxEXPAND);
    }
    for (wxCheckBox* check : checks) {
        grid->AddSpacer(0);
        grid->Add(check);
    }
    outer->Add(grid, 1, wxEXPAND | wxALL, kBorder);
    outer->Add(dialog.CreateStdDialogButtonSizer(wxOK | wxCANCEL), 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, kBorder);
    dialog.SetSizer(outer);
    dialog.SetMinSize(wxSize(320, -1));
    dialog.Fit();
    dialog.Centre(wxBOTH);
}
