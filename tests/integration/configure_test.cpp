// Configure end to end: the real tool runner, the gateway simulator on PATH, a fault at each step.
#include "app/app_context.h"
#include "deploy/configure_device.h"
#include "fakes/scripted_user_interface.h"
#include "project/load_from_device.h"
#include "project/project_commands.h"
#include "project/project_file.h"
#include "project/text_file.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/dir.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/utils.h>

#include <memory>

namespace {

class ConfigureGateway : public ::testing::Test {
protected:
    void SetUp() override
    {
        scratch = wxFileName::CreateTempFileName(wxFileName::GetTempDir() + "/tgxconf");
        wxRemoveFile(scratch);
        CopyTree(wxString(TGX_SOURCE_DIR) + "/simulator/installation", scratch + "/installation");
        wxSetEnv("TGXSIM_HOME", scratch + "/gateway");
        wxGetEnv("PATH", &savedPath);
        wxSetEnv("PATH", wxString(TGX_SIMULATOR_BIN) + wxPATH_SEP + savedPath);

        env.TgxSoftwarePath = scratch + "/installation/";
        DeriveInstallationPaths(env, platform->PathSeparator(), scratch + "/Documents");
        ASSERT_TRUE(LoadDeviceTypeTable(DeviceTypeFilePath(env), deviceTypes));
        env.FirmwareVersion = "6.2.2";

        const wxString example = wxString(TGX_SOURCE_DIR) + "/docs/examples/boiler_house.prj";
        wxArrayString lines;
        ASSERT_TRUE(ReadTextLines(example, lines));
        ASSERT_TRUE(ApplyProjectFile(ctx, lines));
        ReadProjectMap(example, project.modbusMapLines);
        project.projectFilePath.Assign(scratch + "/boiler_house.prj");
        ui.texts = {wxString("127.0.0.1:2222"), wxString("BOILER1")};
    }
    void TearDown() override
    {
        wxSetEnv("PATH", savedPath);
        wxSetEnv("TT_SSH_PORT", "22");
        wxFileName::Rmdir(scratch, wxPATH_RMDIR_RECURSIVE);
    }

    void InjectFault(const wxString& rule)
    {
        wxArrayString faults;
        faults.Add(rule);
        wxFileName::Mkdir(scratch + "/gateway", wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
        WriteTextLines(scratch + "/gateway/faults.txt", faults);
    }

    // The tools that ran, in order, from the simulator's run log.
    wxArrayString ToolsRun() const
    {
        wxArrayString log, tools;
        ReadTextLines(scratch + "/gateway/run.log", log);
        for (const wxString& line : log)
            tools.Add(line.AfterFirst('\t').BeforeFirst('\t'));
        return tools;
    }

    wxString scratch, savedPath;
    std::unique_ptr<Platform> platform = CreatePlatform();
    Project project;
    InstallationEnvironment env;
    TargetAddress target;
    DeviceTypeTable deviceTypes;
    ScriptedUserInterface ui;
    WxToolRunner tools;
    AppContext ctx{project, env, target, deviceTypes, ui, tools, *platform};
};

}  // namespace

TEST_F(ConfigureGateway, TheSimulatedGatewayRunsTheProject)
{
    ConfigureDevice(ctx);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, "Configuration Complete");
    EXPECT_EQ(ToolsRun(), Lines({"ttdevtype", "ttbuild", "ttrestore", "ttreboot"}));

    // The gateway holds the project as saved and its map.
    wxArrayString saved, onGateway, map;
    ASSERT_TRUE(ReadTextLines(scratch + "/boiler_house.prj", saved));
    ASSERT_TRUE(ReadTextLines(scratch + "/gateway/TG7/tgxconfig.prj", onGateway));
    EXPECT_EQ(onGateway, saved);
    ASSERT_TRUE(ReadTextLines(scratch + "/gateway/TG7/MBMAP1.csv", map));
    EXPECT_EQ(map, project.modbusMapLines);

    wxArrayString boots;
    ASSERT_TRUE(ReadTextLines(scratch + "/gateway/boot.log", boots));
    ASSERT_EQ(boots.size(), 1u);
    EXPECT_TRUE(boots[0].Contains("host=127.0.0.1")) << boots[0];
    EXPECT_TRUE(boots[0].Contains("TT_SSH_PORT=2222")) << boots[0];
    EXPECT_TRUE(boots[0].Contains("-a=1")) << boots[0];
}

TEST_F(ConfigureGateway, LoadFromTG7BringsTheConfiguredProjectBack)
{
    ConfigureDevice(ctx);
    ASSERT_EQ(ui.messages.at(0).text, "Configuration Complete");
    const wxArrayString configured = ProjectFileLines(project);
    const wxArrayString map = project.modbusMapLines;

    LoadDefaultProject(project);
    project.projectSaved = 1;
    ui.texts = {wxString("127.0.0.1")};
    LoadProjectFromDevice(ctx);
    EXPECT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ProjectFileLines(project), configured);
    EXPECT_EQ(project.modbusMapLines, map);
    EXPECT_EQ(project.projectOpen, 1);
}

TEST_F(ConfigureGateway, AFaultStopsTheWorkflowAtItsStep)
{
    struct Case {
        const char* rule;
        const char* message;
        std::vector<const char*> ran;
    };
    const Case cases[] = {
        {"ttdevtype exit=1", "Could not determine TG7 type, unable to proceed", {"ttdevtype"}},
        {"ttdevtype exit=0 output=TG7-Plus \"output=Firmware: TG7main-v6.2.2-build7\"",
         "Could not determine TG7 type, unable to proceed", {"ttdevtype"}},
        {"ttdevtype exit=0 output=TG7-Plus \"output=Firmware: TG7main-v6.1.0-build2\" \"output=Templates: tmpl-v3.1.0\"",
         "The firmware installed on the TG7 is not compatible with this version of TGx Software Suite. Before you can "
         "configure your device you must update the firmware using the 'Update Firmware' option under the 'Target' menu",
         {"ttdevtype"}},
        {"ttbuild exit=2",
         "Failed to build configuration files for TG7 - (ttbuild returned 2).\nCheck TARN software is properly installed",
         {"ttdevtype", "ttbuild"}},
        {"ttrestore exit=3",
         "Failed to upload configuration files to TG7 - (ttrestore returned 3).\nCheck IP address, Power and Network "
         "connection",
         {"ttdevtype", "ttbuild", "ttrestore"}},
        {"ttreboot exit=1", "ERROR : Failed to reboot TG7", {"ttdevtype", "ttbuild", "ttrestore", "ttreboot"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.rule);
        wxFileName::Rmdir(scratch + "/gateway", wxPATH_RMDIR_RECURSIVE);
        InjectFault(c.rule);
        ui.messages.clear();
        ui.texts = {wxString("127.0.0.1"), wxString("BOILER1")};
        ConfigureDevice(ctx);
        ASSERT_EQ(ui.messages.size(), 1u);
        EXPECT_EQ(ui.messages[0].text, c.message);
        wxArrayString ran;
        for (const char* tool : c.ran)
            ran.Add(tool);
        EXPECT_EQ(ToolsRun(), ran);
        // Nothing reaches the gateway before the upload step succeeds.
        EXPECT_EQ(wxFileExists(scratch + "/gateway/TG7/tgxconfig.prj"), c.ran.size() >= 4);
    }
}

TEST_F(ConfigureGateway, WithoutTheDeviceToolsTheGatewayCannotBeReached)
{
    wxSetEnv("PATH", scratch + "/nowhere");
    ConfigureDevice(ctx);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, "ttdevtyp Could not connect to TG7, check IP address and network connection");
}
