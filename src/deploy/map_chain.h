// What the Modbus map commands share: the checks they start with, and the build output folder in
// which the local map chain (inifile, dbtojson, mbedit) runs on its temporary files.
#pragma once

#include <wx/string.h>

struct AppContext;

// "No Project open", then (when `needsName`) the message for a project never saved. True when
// the command may go on.
bool CheckMapProject(AppContext& ctx, bool needsName);

// A file of the build output folder ("_temp.ini", ...), joined as the installation expects.
wxString MapChainFile(const AppContext& ctx, const char* name);

// Writes "_temp.ini" with its two include lines into the build output folder.
bool WriteMapChainScript(const AppContext& ctx);

// Removes a file of the build output folder when it is there.
void RemoveMapChainFile(const AppContext& ctx, const char* name);
