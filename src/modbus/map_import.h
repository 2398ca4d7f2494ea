// Modbus > Import Map from TG7 and Import Map from another project: the project's map replaced
// by the gateway's or by another project's, then the project saved.
#pragma once

#include <wx/string.h>

struct AppContext;

// From the gateway: its map file (ttgetfile), else the map it runs (ttmbprint). Nothing is
// reported when both fail. False when the command stopped before saving.
bool ImportMapFromDevice(AppContext& ctx);

// From another project chosen in a file dialog.
void ImportMapFromProject(AppContext& ctx);

// From the project file `otherProject` (its ".mbd", else its ".mb"). The open project is saved in
// every case; false when the other project has no map (after its message).
bool ImportMapFromProjectFile(AppContext& ctx, const wxString& otherProject);
