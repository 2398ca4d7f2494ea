// The gateway as the device tools reach it: its address, the upload of a built configuration
// and the restart.
#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

struct AppContext;

// What the address prompt asks.
extern const char* const kTargetAddressPrompt;

// Asks for the gateway's address; false when cancelled. A port typed after the last colon goes
// to the tools through TT_SSH_PORT and stays in force for the rest of the run.
bool PromptTargetAddress(AppContext& ctx);
// The address as the prompt takes it: split at the last colon, the port to TT_SSH_PORT.
void ApplyTargetAddress(AppContext& ctx, const wxString& text);

// Uploads the build output folder to the gateway (ttrestore).
bool UploadConfiguration(AppContext& ctx, wxString& errorText);

// Restarts the gateway (ttreboot); `a` is passed as its -a option.
bool RebootDevice(AppContext& ctx, int a);

// A folder of the build path, joined as the installation expects ("OUTPUT", "INCLUDE", ...).
wxString BuildFolder(const AppContext& ctx, const char* name);

// Copies a file of the gateway ("TG7/MBMAP1.csv") to `local` (ttgetfile); true on exit code 0.
bool FetchDeviceFile(AppContext& ctx, const char* remote, const wxString& local);

// The map the gateway is running (ttmbprint); true on exit code 0, `lines` then holds it.
bool PrintDeviceMap(AppContext& ctx, wxArrayString& lines);
