// The lines of the main window's device list.
#pragma once

#include <wx/arrstr.h>

struct Project;

// One line per device in index order, as the list box shows them.
wxArrayString DeviceListLines(const Project& project);
