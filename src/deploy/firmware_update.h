// Update Firmware: the gateway gets the firmware of the installed software, its manuals and web
// page, and then its configuration rebuilt from the project it carries itself.
#pragma once

#include <wx/string.h>

struct AppContext;

// The migrated project's files in the project folder; removed after a successful update.
extern const char* const kMigrateProjectName;  // "migrateTemp.prj"

// The whole update, from the address prompt to the closing message. The user's project is set
// aside and comes back only when every step succeeded; after a failure the migrated project
// stays open and its files stay in the project folder. True only when the update completed.
bool UpdateFirmware(AppContext& ctx);

// The firmware package, the two manuals and the web page, in that order (the progress dialog
// is open). False at the first failure, with its text.
bool UploadFirmwarePackage(AppContext& ctx, wxString& errorText);
