// Project, Load From TG7: the project and Modbus map the gateway keeps become the open project.
#pragma once

#include <wx/string.h>

struct AppContext;

void LoadProjectFromDevice(AppContext& ctx);

