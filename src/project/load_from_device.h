// Project, Load From TG7: the project and Modbus map the gateway keeps become the open project.
#pragma once

#include <wx/string.h>

struct AppContext;

void LoadProjectFromDevice(AppContext& ctx);

// Where the gateway's files are fetched to: a folder of their own in the system's temporary
// folder, emptied after reading.
wxString DeviceDownloadFolder();
