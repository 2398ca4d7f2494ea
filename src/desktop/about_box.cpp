#include "desktop/about_box.h"

#include "commands/small_commands.h"
#include "desktop/dialog_layout.h"
#include "project/version.h"

#include <wx/hyperlink.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>

wxAboutDialogInfo AboutBoxInfo(const InstallationEnvironment& env, const wxIcon& icon)
{
    wxAboutDialogInfo info;
    info.SetName("TGx+ Configuration tool");
    info.SetVersion(kToolVersion);
    info.SetDescription(AboutDescription(env));
    info.SetCopyright("Copyright (C) TARN SYSTEMS LTD");
    info.SetWebSite("https://www.tarnsystems.com");
    info.SetIcon(icon);
    return info;
}

AboutDialog::AboutDialog(const wxAboutDialogInfo& info)
    : wxDialog(nullptr, wxID_ANY, "About " + info.GetName())
{
    wxBoxSizer* text = new wxBoxSizer(wxVERTICAL);
    wxStaticText* name = new wxStaticText(this, wxID_ANY, info.GetName() + " " + info.GetVersion());
    name->SetFont(name->GetFont().Bold().Larger());
    text->Add(name, 0, wxBOTTOM, 8);
    wxFlexGridSizer* table = new wxFlexGridSizer(2, 2, 12);
    for (const wxString& line : wxSplit(info.GetDescription(), '\n', '\0')) {
        const wxString label = line.BeforeFirst('\t');
        if (line.empty()) {
            table->AddSpacer(6);
            table->AddSpacer(6);
        } else if (label == line) {  // a line of its own, above the table
            text->Add(new wxStaticText(this, wxID_ANY, line), 0, wxBOTTOM, 4);
        } else {
            table->Add(new wxStaticText(this, wxID_ANY, label.Strip(wxString::trailing)));
            table->Add(new wxStaticText(this, wxID_ANY, line.AfterFirst('\t').Strip(wxString::leading)));
        }
    }
    text->Add(table, 0, wxBOTTOM, 8);
    text->Add(new wxStaticText(this, wxID_ANY, info.GetCopyrightToDisplay()), 0, wxBOTTOM, 4);
    text->Add(new wxHyperlinkCtrl(this, wxID_ANY, info.GetWebSiteDescription(), info.GetWebSiteURL()));

    wxBoxSizer* iconAndText = new wxBoxSizer(wxHORIZONTAL);
    if (info.GetIcon().IsOk())
        iconAndText->Add(new wxStaticBitmap(this, wxID_ANY, info.GetIcon()), 0, wxRIGHT, 12);
    iconAndText->Add(text, 1, wxEXPAND);
    wxBoxSizer* top = new wxBoxSizer(wxVERTICAL);
    top->Add(iconAndText, 1, wxEXPAND | wxALL, 12);
    top->Add(CreateStdDialogButtonSizer(wxOK), 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, 12);
    SetSizer(top);
    SizeForContent(*this);
    Centre(wxBOTH);
}

void ShowAboutBox(const InstallationEnvironment& env, const wxIcon& icon)
{
    AboutDialog dialog(AboutBoxInfo(env, icon));
    dialog.ShowModal();
}
