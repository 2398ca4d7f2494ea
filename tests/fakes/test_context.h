// An AppContext over scripted ports and fresh records, for workflow tests.
#pragma once

#include "base/app_context.h"
#include "fakes/fake_platform.h"
#include "fakes/scripted_tool_runner.h"
#include "fakes/scripted_user_interface.h"
#include "project/project.h"

struct TestContext {
    Project project;
    InstallationEnvironment env;
    TargetAddress target;
    DeviceTypeTable deviceTypes;
    ScriptedUserInterface ui;
    ScriptedToolRunner tools;
    FakePlatform platform;
    AppContext ctx{project, env, target, deviceTypes, ui, tools, platform};
};
