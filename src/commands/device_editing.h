// Adding, changing, deleting and selecting the project's HART devices.
#pragma once

#include <wx/string.h>

struct AppContext;
struct DeviceForm;
struct Project;

void AddDevice(AppContext& ctx);
void ModifyDevice(AppContext& ctx);
void DeleteDevice(AppContext& ctx);
void SelectDevice(AppContext& ctx, int index);
// Kept for the device-enable check box, which the main window does not show.
void SetSelectedDeviceEnable(AppContext& ctx, bool checked);

// The lowest poll address 0..63 that no device uses; -1 when none is free.
int FreePollAddress(const Project& project);
