// Help > About: the tool's name and version, the installation's versions and folders.
#pragma once

#include <wx/aboutdlg.h>
#include <wx/dialog.h>

struct InstallationEnvironment;

wxAboutDialogInfo AboutBoxInfo(const InstallationEnvironment& env, const wxIcon& icon);

// The About box: the description's "label<TAB>value" lines as a two-column table, the folders on
// one line each, whatever their length. GTK's own about box centres and wraps the description.
class AboutDialog : public wxDialog {
public:
    explicit AboutDialog(const wxAboutDialogInfo& info);
};

// Shown without a parent, as the tool always has.
void ShowAboutBox(const InstallationEnvironment& env, const wxIcon& icon);
