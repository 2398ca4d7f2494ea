// What the main window does when it is built: read the installation, run the silent updater,
// read the device types, load the default project and announce the versions.
#pragma once

struct AppContext;

// False after a fatal message (no suite registry key, no ct.cfg): the tool must end, with exit
// status 0 as it always has.
bool RunStartup(AppContext& ctx);
