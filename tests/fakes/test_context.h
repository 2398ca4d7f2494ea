// An AppContext over scripted ports and fresh records, for workflow tests.
#pragma once

#include "base/app_context.h"
#include "fakes/fake_platform.h"
#include "fakes/scripted_tool_runner.h"
#include "fakes/scripted_user_interface.h"
#include "project/project.h"
#include "unit/temp_dir.h"

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

// The same on an installation of its own in a scratch folder, paths joined with "/": the build
// folder tgxconfigure/ (its INCLUDE, ADDITIONAL and OUTPUT made), the templates folder
// tgxtemplates/ (not made), the project folder the scratch folder itself, the firmware 6.2.2;
// and a default project named plant.prj there (not written).
struct ScratchContext : TestContext {
    TempDir dir;
    ScratchContext()
    {
        platform.separator = "/";
        env.TgxBuildPath = dir.path + "/tgxconfigure";
        env.TgxTemplatesPath = dir.path + "/tgxtemplates";
        env.TgxProjectPath = dir.path;
        env.FirmwareVersion = "6.2.2";
        for (const char* sub : {"INCLUDE", "ADDITIONAL", "OUTPUT"})
            wxFileName::Mkdir(env.TgxBuildPath + "/" + sub, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
        LoadDefaultProject(project);
        project.projectFilePath.Assign(dir.path + "/plant.prj");
    }
};
