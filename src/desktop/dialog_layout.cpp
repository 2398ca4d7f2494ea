#include "desktop/dialog_layout.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/dialog.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>

namespace {

void ForgetBestSizes(wxWindow& window)
{
    window.InvalidateBestSize();
    for (wxWindow* child : window.GetChildren())
        if (!child->IsTopLevel())
            ForgetBestSizes(*child);
}

// The prescribed size, never below the content's minimum.
void FitToContent(wxTopLevelWindow& window, const wxSize& prescribed)
{
    ForgetBestSizes(window);
    const wxSize content = window.GetSizer()->ComputeFittingWindowSize(&window);
    window.SetMinSize(content);
    window.SetSize(wxSize(std::max(prescribed.x, content.x), std::max(prescribed.y, content.y)));
}

}  // namespace

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
    SizeForContent(dialog, wxSize(320, -1));
    dialog.Centre(wxBOTH);
}

void SizeForContent(wxTopLevelWindow& window, const wxSize& prescribed)
{
    FitToContent(window, prescribed);
    window.Layout();
    // While GTK shows the window it may report a size of its own for a moment: the size here is
    // the one decided, and the controls are placed once the window has it.
    window.Bind(wxEVT_SHOW, [&window, prescribed](wxShowEvent& event) {
        event.Skip();
        if (event.IsShown()) {
            FitToContent(window, prescribed);
            window.PostSizeEvent();
        }
    });
}
