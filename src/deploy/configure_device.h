// Configure: the open project becomes the gateway's running configuration.
#pragma once

#include <wx/string.h>

#include <cstddef>

struct AppContext;

// Configure asks for the gateway's tag name with this prompt (kTagCharacters, kGatewayTagLength).
extern const char* const kTagNamePrompt;

// Checks, saves, verifies the gateway's firmware, builds, uploads and restarts; every failure
// is one message and the end of the command. True only when the gateway was configured (the
// window ignores it; tgxcfg turns it into its exit status).
bool ConfigureDevice(AppContext& ctx);

// What ttdevtype reports of a gateway: its type and the versions of its firmware and templates.
struct GatewayVersions {
    wxString deviceType, firmware, templates;
};

// Runs ttdevtype on the target and reads its report into `versions`: empty when it could, else
// the message that stops the command (`cannotConnect` when ttdevtype cannot run).
wxString ReadGatewayVersions(AppContext& ctx, const wxString& cannotConnect, GatewayVersions& versions);

// ReadGatewayVersions, then the firmware judged: empty when the gateway runs the installed
// firmware, else the message that stops the command.
wxString GatewayVersionProblem(AppContext& ctx, const wxString& cannotConnect);

// The version in a line of ttdevtype's report: the text after the last "v", up to the first "-"
// ("TG7main-v6.2.2-build7" gives "6.2.2"); a line with neither is taken whole.
wxString ReportedVersion(const wxString& line);
