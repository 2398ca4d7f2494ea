// Load From TG7 end to end: the real tool runner and the gateway simulator on PATH, the gateway
// holding the boiler-house example. Configure runs end to end in tgxcfg_test.cpp; every failing
// step of every workflow is a row of the fault matrix (tgxcfg_fault_matrix_test.cpp).
#include "app/app_context.h"
#include "fakes/scripted_user_interface.h"
#include "project/load_from_device.h"
#include "project/project_file.h"
#include "project/text_file.h"
#include "unit/temp_dir.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/utils.h>

#include <memory>

namespace {

class LoadFromGateway : public ::testing::Test {
protected:
    void SetUp() override
    {
        const wxString examples = wxString(TGX_SOURCE_DIR) + "/docs/examples/";
        wxFileName::Mkdir(dir.path + "/gateway/TG7", wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
        wxCopyFile(examples + "boiler_house.prj", dir.path + "/gateway/TG7/tgxconfig.prj");
        wxCopyFile(examples + "boiler_house.mbd", dir.path + "/gateway/TG7/MBMAP1.csv");
        ASSERT_TRUE(ReadTextLines(examples + "boiler_house.mbd", map));
        wxSetEnv("TGXSIM_HOME", dir.path + "/gateway");
        wxGetEnv("PATH", &savedPath);
        wxSetEnv("PATH", wxString(TGX_SIMULATOR_BIN) + wxPATH_SEP + savedPath);
        LoadDefaultProject(project);
        ui.texts = {wxString("127.0.0.1")};
    }
    void TearDown() override
    {
        wxSetEnv("PATH", savedPath);
        wxSetEnv("TT_SSH_PORT", "22");
        wxSetWorkingDirectory(wxFileName::GetTempDir());  // the runner's folder goes with the scratch folder
    }

    TempDir dir;
    wxString savedPath;
    wxArrayString map;
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

TEST_F(LoadFromGateway, BringsTheProjectAndItsMapEvenWhenTheMapFileCannotBeFetched)
{
    for (const char* fault : {"", "ttgetfile match=TG7/MBMAP1.csv exit=1"}) {
        SCOPED_TRACE(fault);
        dir.Write("gateway/faults.txt", wxString(fault) + "\r\n");
        project.projectOpen = 0;
        project.projectSaved = 1;  // nothing to ask about
        project.modbusMapLines.Clear();
        LoadProjectFromDevice(ctx);
        EXPECT_TRUE(ui.messages.empty());
        EXPECT_EQ(project.projectOpen, 1);
        EXPECT_EQ(project.deviceCount, 4);
        EXPECT_EQ(GetText(project.tagName), "BOILER1");
        EXPECT_EQ(GetText(project.devices[1].deviceName), "PT-102 Drum pressure");
        EXPECT_EQ(project.modbusMapLines, map);
        EXPECT_FALSE(project.projectFilePath.IsOk());  // fetched, not yet saved anywhere
        ui.texts = {wxString("127.0.0.1")};
    }
    wxArrayString log;
    ASSERT_TRUE(ReadTextLines(dir.path + "/gateway/run.log", log));
    EXPECT_TRUE(log.Last().Contains("\tttmbprint\texit=0\thost=127.0.0.1\t")) << log.Last();
}
