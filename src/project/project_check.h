// What the desktop tool accepts without a word but a gateway will not run as meant: values that
// came from a hand-edited or foreign project file, which the dialogs would have refused.
#pragma once

#include <wx/arrstr.h>

struct DeviceTypeTable;
struct Project;

// One line per problem, in the order tag name, port numbers, devices (each followed by its
// commands), map lines. Devices and commands are numbered from 0, as in the project file and the
// device list; map lines from 1, as in the map file. Empty when nothing was found.
wxArrayString CheckProject(const Project& project, const DeviceTypeTable& deviceTypes);
