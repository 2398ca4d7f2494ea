// Configure and Load From TG7 end to end: the real tool runner, the gateway simulator on PATH.
// The exact messages of every failing step are unit-tested against the scripted runner.
#include "app/app_context.h"
#include "deploy/configure_device.h"
#include "fakes/scripted_user_interface.h"
#include "project/load_from_device.h"
#include "project/project_commands.h"
#include "project/project_file.h"
#include "project/text_file.h"
#include "unit/temp_dir.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/utils.h>

#include <memory>

namespace {

class ConfigureGateway : public ::testing::Test {
protected:
    void SetUp() override
    {
        CopyTree(wxString(TGX_SOURCE_DIR) + "/simulator/installation", dir.path + "/installation");
        wxSetEnv("TGXSIM_HOME", dir.path + "/gateway");
        wxGetEnv("PATH", &savedPath);
        wxSetEnv("PATH", wxString(TGX_SIMULATOR_BIN) + wxPATH_SEP + savedPath);

        env.TgxSoftwarePath = dir.path + "/installation/";
        DeriveInstallationPaths(env, platform->PathSeparator(), dir.path + "/Documents");
        ASSERT_TRUE(LoadDeviceTypeTable(DeviceTypeFilePath(env), deviceTypes));
        env.FirmwareVersion = "6.2.2";

        const wxString example = wxString(TGX_SOURCE_DIR) + "/docs/examples/boiler_house.prj";
        wxArrayString lines;
        ASSERT_TRUE(ReadTextLines(example, lines));
        ASSERT_TRUE(ApplyProjectFile(ctx, lines));
        ReadProjectMap(example, project.modbusMapLines);
        project.projectFilePath.Assign(dir.path + "/boiler_house.prj");
        ui.texts = {wxString("127.0.0.1:2222"), wxString("BOILER1")};
    }
    void TearDown() override
    {
        wxSetEnv("PATH", savedPath);
        wxSetEnv("TT_SSH_PORT", "22");
        wxSetWorkingDirectory(wxFileName::GetTempDir());  // the runner's folder goes with the scratch folder
    }

    wxArrayString Read(const wxString& relative) const
    {
        wxArrayString lines;
        ReadTextLines(dir.path + "/" + relative, lines);
        return lines;
    }

    // The tools that ran, in order, from the simulator's run log.
    wxArrayString ToolsRun() const
    {
        wxArrayString tools;
        for (const wxString& line : Read("gateway/run.log"))
            tools.Add(line.AfterFirst('\t').BeforeFirst('\t'));
        return tools;
    }

    TempDir dir;
    wxString savedPath;
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

TEST_F(ConfigureGateway, TheGatewayRunsTheProjectAndLoadFromTG7BringsItBack)
{
    ConfigureDevice(ctx);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, "Configuration Complete");
    EXPECT_EQ(ToolsRun(), Lines({"ttdevtype", "ttbuild", "ttrestore", "ttreboot"}));
    // The gateway holds the project as saved and its map, and restarted with the port given.
    EXPECT_EQ(Read("gateway/TG7/tgxconfig.prj"), Read("boiler_house.prj"));
    EXPECT_EQ(Read("gateway/TG7/MBMAP1.csv"), project.modbusMapLines);
    const wxArrayString boots = Read("gateway/boot.log");
    ASSERT_EQ(boots.size(), 1u);
    EXPECT_TRUE(boots[0].Contains("host=127.0.0.1\tTT_SSH_PORT=2222\toptions=-s=60 -w -a=1")) << boots[0];

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

TEST_F(ConfigureGateway, AnInjectedFaultStopsTheWorkflowAtItsStep)
{
    const struct {
        const char* rule;
        const char* message;
        wxArrayString ran;
    } cases[] = {
        {"ttbuild exit=2",
            "Failed to build configuration files for TG7 - (ttbuild returned 2).\nCheck TARN software is properly installed",
            Lines({"ttdevtype", "ttbuild"})},
        {"ttreboot exit=1", "ERROR : Failed to reboot TG7", Lines({"ttdevtype", "ttbuild", "ttrestore", "ttreboot"})},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.rule);
        wxFileName::Rmdir(dir.path + "/gateway", wxPATH_RMDIR_RECURSIVE);
        dir.Write("gateway/faults.txt", wxString(c.rule) + "\r\n");
        ui.messages.clear();
        ui.texts = {wxString("127.0.0.1"), wxString("BOILER1")};
        ConfigureDevice(ctx);
        ASSERT_EQ(ui.messages.size(), 1u);
        EXPECT_EQ(ui.messages[0].text, c.message);
        EXPECT_EQ(ToolsRun(), c.ran);
        // Nothing reaches the gateway before the upload step succeeds.
        EXPECT_EQ(wxFileExists(dir.path + "/gateway/TG7/tgxconfig.prj"), c.ran.size() == 4);
    }
}
