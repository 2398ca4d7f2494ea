// The Modbus map end to end: the real tool runner, the simulator's ttbuild, inifile, dbtojson,
// mbedit, ttgetfile and ttmbprint on PATH, the sample templates.
#include "app/app_context.h"
#include "fakes/scripted_user_interface.h"
#include "modbus/map_editing.h"
#include "modbus/map_import.h"
#include "modbus/map_modes.h"
#include "project/project_file.h"
#include "project/text_file.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/utils.h>

#include <memory>

namespace {

// The map the sample templates define for one Rosemount 3051 at index 0 with the float words
// swapped (byte order 4), written from the templates by hand: systemmb.ini, genmb1..3tmpl.ini,
// hartloopmbtmpl.ini, then rmt3051mbtmpl.ini through devmbtmpl.ini.
const char* kExpectedMap[] = {
    "HOLDING,1,0,UINT16,SYS:STATUS,Gateway status,1",
    "HOLDING,2,0,UINT16,SYS:DEVCOUNT,Configured HART devices,1",
    "HOLDING,3,4,UINT32,SYS:UPTIME,Seconds since start,2",
    "HOLDING,5,0,INT16,SYS:OPERMODE,Operating mode,1",
    "HOLDING,6,0,INT16,SYS:DEFERMODE,Polling deferral mode,1",
    "HOLDING,100,0,UINT16,L0D0:STATUS,Device 0 communication status,1",
    "HOLDING,200,4,FLOAT,L0D0:PV,Device 0 primary variable,2",
    "HOLDING,300,4,FLOAT,L0D0:MA,Device 0 loop current,2",
    "HOLDING,90,0,UINT16,L0:STATUS,Loop 0 status,1",
    "HOLDING,91,4,UINT32,L0:MSGCOUNT,Loop 0 HART messages sent,2",
    "HOLDING,93,4,UINT32,L0:ERRCOUNT,Loop 0 HART messages failed,2",
    "HOLDING,1000,0,UINT16,L0D0:STATUS,Communication status,1",
    "HOLDING,1001,0,UINT16,L0D0:DEVSTAT,Field device status,1",
    "HOLDING,1002,4,FLOAT,L0D0:PV,Pressure,2",
    "HOLDING,1004,4,FLOAT,L0D0:SV,Sensor temperature,2",
    "HOLDING,1006,4,FLOAT,L0D0:TV,Electronics temperature,2",
    "HOLDING,1008,4,FLOAT,L0D0:QV,Scaled pressure,2",
    "HOLDING,1010,0,UINT16,L0D0:PVUNIT,Unit code of the primary variable,1",
};

class MapChain : public ::testing::Test {
protected:
    void SetUp() override
    {
        scratch = wxFileName::CreateTempFileName(wxFileName::GetTempDir() + "/tgxmap");
        wxRemoveFile(scratch);
        CopyTree(wxString(TGX_SOURCE_DIR) + "/simulator/installation", scratch + "/installation");
        wxFileName::Mkdir(scratch + "/gateway/TG7", wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
        wxSetEnv("TGXSIM_HOME", scratch + "/gateway");
        wxGetEnv("PATH", &savedPath);
        wxSetEnv("PATH", wxString(TGX_SIMULATOR_BIN) + wxPATH_SEP + savedPath);
        wxUnsetEnv("DISPLAY");  // mbedit without a script must not open its window here

        env.TgxSoftwarePath = scratch + "/installation/";
        DeriveInstallationPaths(env, platform->PathSeparator(), scratch + "/Documents");
        wxFileName::Mkdir(env.TgxProjectPath, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
        ASSERT_TRUE(LoadDeviceTypeTable(DeviceTypeFilePath(env), deviceTypes));
        LoadDefaultProject(project);
        project.floatSwapWords = 1;
        project.deviceCount = 1;
        SetText(project.devices[0].typeName, "Rosemount3051");
        project.projectFilePath.Assign(scratch + "/plant.prj");
    }
    void TearDown() override
    {
        wxSetEnv("PATH", savedPath);
        wxSetWorkingDirectory(wxFileName::GetTempDir());  // the chain left it in the scratch folder
        wxFileName::Rmdir(scratch, wxPATH_RMDIR_RECURSIVE);
    }
    void Gateway(const wxString& file, std::initializer_list<const char*> lines)
    {
        WriteTextLines(scratch + "/gateway/" + file, Lines(lines));
    }
    wxArrayString SavedMap() const
    {
        wxArrayString lines;
        return ReadTextLines(scratch + "/plant.mbd", lines) ? lines : Lines({"(missing)"});
    }

    wxString scratch, savedPath;
    const wxArrayString expectedMap{WXSIZEOF(kExpectedMap), kExpectedMap};
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

TEST_F(MapChain, AutomaticModeGeneratesTheTemplatesMapAndUserModeKeepsIt)
{
    project.automaticModbusMap = 0;
    ui.answers = {true, true};
    ASSERT_TRUE(SwitchMapMode(ctx, true, true));
    EXPECT_EQ(SavedMap(), expectedMap);
    EXPECT_FALSE(wxFileExists(env.TgxBuildPath + "/OUTPUT/_temp.mbd"));
    ASSERT_TRUE(SwitchMapMode(ctx, false, true));
    EXPECT_EQ(SavedMap(), expectedMap);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(MapChain, ScriptedEditorEditsLandInTheProjectsMapAndEachFaultGivesItsMessage)
{
    project.automaticModbusMap = 0;
    project.modbusMapLines = Lines({"HOLDING,1,0,UINT16,SYS:STATUS,Gateway status,1", "HOLDING,9,0,UINT16,X,Unit,1"});
    Gateway("mbedit.txt", {"replace X HOLDING,9,0,UINT16,X,PV unit,1", "delete SYS:STATUS", "add HOLDING,20,4,FLOAT,Y,Y,2"});
    ASSERT_TRUE(EditModbusMap(ctx));
    const wxArrayString edited = Lines({"HOLDING,9,0,UINT16,X,PV unit,1", "HOLDING,20,4,FLOAT,Y,Y,2"});
    EXPECT_EQ(SavedMap(), edited);

    const std::pair<const char*, const char*> faults[] = {
        {"ttbuild exit=3", ""},  // the build's failure is not reported by this command
        {"inifile exit=2", "Unable to generate _temp.dat file from _temp.ini 2"},
        {"dbtojson exit=1", "Unable to generate _temp.json file from _temp.dat"},
        {"mbedit exit=1", ""},  // the editor's exit code is not examined
    };
    Gateway("mbedit.txt", {"add IGNORED", "discard"});
    for (const auto& [fault, message] : faults) {
        SCOPED_TRACE(fault);
        ui.messages.clear();
        Gateway("faults.txt", {fault});
        EditModbusMap(ctx);
        EXPECT_EQ(ui.messages.empty() ? wxString() : ui.messages[0].text, message);
        EXPECT_EQ(project.modbusMapLines, edited);
    }
}

TEST_F(MapChain, ImportFromAGatewayWithoutAMapFileTakesThePrintedMap)
{
    project.automaticModbusMap = 0;
    Gateway("TG7/MBMAP1.csv", {"HOLDING,7,0,UINT16,RUNNING,Running map,1"});
    Gateway("faults.txt", {"ttgetfile match=TG7/MBMAP1.csv exit=1"});
    ui.texts = {wxString("127.0.0.1")};
    ASSERT_TRUE(ImportMapFromDevice(ctx));
    EXPECT_EQ(SavedMap(), Lines({"HOLDING,7,0,UINT16,RUNNING,Running map,1"}));
    EXPECT_TRUE(ui.messages.empty());
}
