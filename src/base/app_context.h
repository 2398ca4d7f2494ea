// Everything the logic works on, handed over as one object: the project, the installation, the
// target, the device types and the three ports.
#pragma once

#include "base/device_type_table.h"
#include "base/installation_environment.h"
#include "base/platform.h"
#include "base/target_address.h"
#include "base/tool_runner.h"
#include "base/user_interface.h"

// The model lives in the project room above; the context only refers to it.
struct Project;

struct AppContext {
    Project& project;
    InstallationEnvironment& env;
    TargetAddress& target;
    DeviceTypeTable& deviceTypes;
    UserInterface& ui;
    ToolRunner& tools;
    Platform& platform;
};
