// Help > About: the tool's name and version, the installation's versions and folders.
#pragma once

#include <wx/aboutdlg.h>

struct InstallationEnvironment;

wxAboutDialogInfo AboutBoxInfo(const InstallationEnvironment& env, const wxIcon& icon);

// Shown without a parent, as the tool always has.
void ShowAboutBox(const InstallationEnvironment& env, const wxIcon& icon);
