// Two commands of the Target menu that look after a running gateway: restarting it, and putting
// the desktop software's installers on its web server for colleagues to download.
#pragma once

#include <wx/string.h>

struct AppContext;

// Restarts the gateway with -a=1. A failure is shown while the progress dialog is still open,
// and "Done" follows it all the same. True when the restart succeeded.
bool RebootTarget(AppContext& ctx);

// Asks first (the upload is slow), then uploads the suite's installer and, only when that
// worked, the TGxConnect installer. True when both landed on the gateway.
bool UploadInstallers(AppContext& ctx);

// One installer, folder + separator + name + ".msi", to the gateway's downloads folder. False
// without running anything when the local file is missing.
bool UploadInstaller(AppContext& ctx, const wxString& folder, const wxString& name);
