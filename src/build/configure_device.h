// Configure: the open project becomes the gateway's running configuration.
#pragma once

#include <wx/string.h>

struct AppContext;

// Checks, saves, verifies the gateway's firmware, builds, uploads and restarts; every failure
// is one message and the end of the command.
void ConfigureDevice(AppContext& ctx);

// The version in a line of ttdevtype's report: the text after the last "v", up to the first "-"
// ("TG7main-v6.2.2-build7" gives "6.2.2"); a line with neither is taken whole.
wxString ReportedVersion(const wxString& line);
