// What the main window does when it is built: read the installation, run the silent updater,
// read the device types, load the default project and announce the versions.
#pragma once

#include "base/user_interface.h"

struct AppContext;
struct DeviceTypeTable;
struct InstallationEnvironment;
class Platform;

// False after a fatal message (no suite registry key, no ct.cfg): the tool must end, with exit
// status 0 as it always has.
bool RunStartup(AppContext& ctx);

// The two readings of the installation that start-up makes, shared with tgxcfg, which makes them
// without the updater and without a window. Each is false on a fatal fault, with the message
// start-up shows for it in `fault`.

// The suite's registry values and the folders derived from them.
bool ReadInstallation(Platform& platform, InstallationEnvironment& env, MessageForm& fault);

// The device types of the installation's ct.cfg, the table emptied first. False (with the start-up
// message) when there is no ct.cfg; one that is there but cannot be read gives an empty table, and
// `refused` (when given) says so.
bool ReadDeviceTypes(const InstallationEnvironment& env, DeviceTypeTable& table, MessageForm& fault,
                     bool* refused = nullptr);
