// The small commands of the Help and Target menus: the About box's text, the manuals, the update
// check, the live data viewer and the device finder.
#pragma once

#include <wx/string.h>

struct AppContext;
struct InstallationEnvironment;

// What the About box says about the installation: the tool's line, the four versions and the
// nine folders, each as its label, a tab or two and the value.
wxString AboutDescription(const InstallationEnvironment& env);

// Help > Documentation: a PDF chosen in the documentation folder opens in the system's viewer.
void OpenDocumentation(AppContext& ctx);

// Help > Check For Updates: the suite's updater, run from the software folder; it reports itself.
void CheckForUpdates(AppContext& ctx);

// Target > View live data: asks for the address, then starts the live viewer on it.
void ViewLiveData(AppContext& ctx);

// Target > Change Network Settings: starts the device finder.
void ChangeNetworkSettings(AppContext& ctx);
