// Everything the logic works on, handed over as one object: the project, the installation, the
// target, the device types and the three ports.
#pragma once

#include "app/device_type_table.h"
#include "app/installation_environment.h"
#include "app/target_address.h"
#include "app/user_interface.h"
#include "deploy/tool_runner.h"
#include "platform/platform.h"
#include "project/project.h"

struct AppContext {
    Project& project;
    InstallationEnvironment& env;
    TargetAddress& target;
    DeviceTypeTable& deviceTypes;
    UserInterface& ui;
    ToolRunner& tools;
    Platform& platform;
};
