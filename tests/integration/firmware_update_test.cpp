// Update Firmware and Upload Installers end to end: the real tool runner and the gateway
// simulator on PATH, a gateway on old firmware, a fault at each step.
#include "app/app_context.h"
#include "deploy/firmware_update.h"
#include "deploy/maintenance_commands.h"
#include "fakes/scripted_user_interface.h"
#include "project/project_commands.h"
#include "project/project_file.h"
#include "project/text_file.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/utils.h>

#include <cstring>
#include <memory>

namespace {

class GatewayMaintenance : public ::testing::Test {
protected:
    void SetUp() override
    {
        scratch = wxFileName::CreateTempFileName(wxFileName::GetTempDir() + "/tgxfw");
        wxRemoveFile(scratch);
        gateway = scratch + "/gateway";
        CopyTree(wxString(TGX_SOURCE_DIR) + "/simulator/installation", scratch + "/installation");
        wxSetEnv("TGXSIM_HOME", gateway);
        wxGetEnv("PATH", &savedPath);
        wxSetEnv("PATH", wxString(TGX_SIMULATOR_BIN) + wxPATH_SEP + savedPath);

        env.TgxSoftwarePath = scratch + "/installation/";
        env.TGxConnectPath = scratch + "/installation/tgxconnect/";
        DeriveInstallationPaths(env, platform->PathSeparator(), scratch + "/Documents");
        ASSERT_TRUE(LoadDeviceTypeTable(DeviceTypeFilePath(env), deviceTypes));
        env.FirmwareVersion = "6.2.2";

        // The user's own project, open in the window with unsaved edits.
        wxArrayString lines;
        ASSERT_TRUE(ReadTextLines(wxString(TGX_SOURCE_DIR) + "/docs/examples/legacy_plant.prj", lines));
        ASSERT_TRUE(ApplyProjectFile(ctx, lines));
        project.projectFilePath.Assign(scratch + "/legacy_plant.prj");
        project.projectSaved = 0;
        userProject = ProjectFileLines(project);
        Sim("reset");
        Sim("set firmware 6.1.0");
        ui.texts = {wxString("127.0.0.1:2222")};
        ui.answers = {true};
    }
    void TearDown() override
    {
        wxSetEnv("PATH", savedPath);
        wxSetEnv("TT_SSH_PORT", "22");
        // The workflows leave the current folder inside the scratch folder.
        wxSetWorkingDirectory(wxFileName::GetTempDir());
        wxFileName::Rmdir(scratch, wxPATH_RMDIR_RECURSIVE);
    }

    static void Sim(const wxString& arguments)
    {
        wxArrayString output;
        ASSERT_EQ(wxExecute("tgxsim " + arguments, output, wxEXEC_SYNC | wxEXEC_NODISABLE), 0) << arguments;
    }
    // What ttdevtype reports as the gateway's firmware.
    static wxString GatewayFirmware()
    {
        wxArrayString report;
        wxExecute("ttdevtype 127.0.0.1", report, wxEXEC_SYNC | wxEXEC_NODISABLE);
        return report.size() == 3 ? report[1] : wxString();
    }

    // The gateway carries the boiler house project with a fifth device added, and its map.
    wxArrayString GiveGatewayFiveDevices()
    {
        Project carried;
        wxArrayString lines, map;
        ReadTextLines(wxString(TGX_SOURCE_DIR) + "/docs/examples/boiler_house.prj", lines);
        ProjectLineReader reader;
        LoadDefaultProject(carried);
        for (const wxString& line : lines)
            ParseProjectLine(carried, line, reader);
        carried.devices[4] = carried.devices[3];
        carried.devices[4].pollAddress = 5;
        std::strcpy(carried.devices[4].deviceName, "FT-105 Return flow");
        carried.deviceCount = 5;
        const wxArrayString carriedLines = ProjectFileLines(carried);
        wxFileName::Mkdir(gateway + "/TG7", wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
        WriteTextLines(gateway + "/TG7/tgxconfig.prj", carriedLines);
        ReadTextLines(wxString(TGX_SOURCE_DIR) + "/docs/examples/boiler_house.mbd", map);
        WriteTextLines(gateway + "/TG7/MBMAP1.csv", map);
        return carriedLines;
    }

    // The gateway tools that ran, in order (local tools such as ttbuild have no host).
    wxArrayString GatewayToolsRun() const
    {
        wxArrayString log, tools;
        ReadTextLines(gateway + "/run.log", log);
        for (const wxString& line : log)
            if (!line.Contains("\thost=-\t"))
                tools.Add(line.AfterFirst('\t').BeforeFirst('\t'));
        return tools;
    }
    wxString Boots() const
    {
        wxArrayString boots;
        ReadTextLines(gateway + "/boot.log", boots);
        return boots.empty() ? wxString() : boots.Last();
    }
    wxString ProjectFolderFile(const char* name) const { return env.TgxProjectPath + "/" + name; }

    wxString scratch, gateway, savedPath;
    wxArrayString userProject;
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

TEST_F(GatewayMaintenance, TheUpdateCarriesTheGatewaysOwnProjectAcross)
{
    const wxArrayString carried = GiveGatewayFiveDevices();
    ASSERT_TRUE(UpdateFirmware(ctx));
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_TRUE(ui.messages[0].text.StartsWith("Firmware update complete")) << ui.messages[0].text;
    EXPECT_EQ(GatewayToolsRun(), Lines({"ttgetfile", "ttgetfile", "ttfirmware", "ttputfile", "ttputfile", "ttputfile",
                                        "ttrestore", "ttreboot"}));
    EXPECT_EQ(GatewayFirmware(), "Firmware: TG7main-v6.2.2-build7");

    // Rebuilt from its own project: the same settings and devices, five of them; restarted with -a=5.
    wxArrayString onGateway;
    ASSERT_TRUE(ReadTextLines(gateway + "/TG7/tgxconfig.prj", onGateway));
    EXPECT_EQ(onGateway, carried);
    EXPECT_TRUE(Boots().Contains("options=-s=60 -w -a=5")) << Boots();
    EXPECT_TRUE(Boots().Contains("TT_SSH_PORT=2222")) << Boots();
    for (const char* file : {"index.html", "downloads/TG7UserGuide.pdf", "downloads/mbEditUserGuide.pdf"})
        EXPECT_TRUE(wxFileExists(gateway + "/root/var/www/html/" + file)) << file;

    // The user's project is back, unsaved edits and all; the migration left nothing behind.
    EXPECT_EQ(ProjectFileLines(project), userProject);
    EXPECT_EQ(project.projectSaved, 0);
    for (const char* gone : {"tgxconfig.prj", "MBMAP1.csv", "migrateTemp.prj", "migrateTemp.mbd"})
        EXPECT_FALSE(wxFileExists(ProjectFolderFile(gone))) << gone;
}

TEST_F(GatewayMaintenance, AGatewayWithoutAProjectIsMigratedFromTheDefaults)
{
    ASSERT_TRUE(UpdateFirmware(ctx));
    wxArrayString onGateway;
    ASSERT_TRUE(ReadTextLines(gateway + "/TG7/tgxconfig.prj", onGateway));
    Project defaults;
    LoadDefaultProject(defaults);
    EXPECT_EQ(onGateway, ProjectFileLines(defaults));
    EXPECT_TRUE(Boots().Contains("-a=0")) << Boots();
    EXPECT_EQ(GatewayFirmware(), "Firmware: TG7main-v6.2.2-build7");
}

TEST_F(GatewayMaintenance, AFaultStopsTheUpdateWithTheMigratedProjectOpen)
{
    struct Case {
        const char* rule;
        const char* message;
        const char* firmware;  // what the gateway reports afterwards
    };
    const Case cases[] = {
        {"ttfirmware exit=1", "ERROR : Failed to upload firmware", "6.1.0"},
        {"ttputfile match=*TG7UserGuide* exit=1", "ERROR : Failed to upload documentation", "6.2.2"},
        {"ttputfile match=*mbEditUserGuide* exit=1", "ERROR : Failed to upload documentation", "6.2.2"},
        {"ttputfile match=*index.html* exit=1", "ERROR : Failed to upload website", "6.2.2"},
        {"ttbuild exit=2", "ERROR : Failed to build configuration files for TG7 - (ttbuild returned 2).\nCheck TARN "
                           "software is properly installed", "6.2.2"},
        {"ttrestore exit=3", "ERROR : Failed to upload configuration files to TG7 - (ttrestore returned 3).\nCheck IP "
                             "address, Power and Network connection", "6.2.2"},
        {"ttreboot exit=1", "ERROR : Failed to reboot TG7", "6.2.2"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.rule);
        Sim("reset");
        Sim("set firmware 6.1.0");
        GiveGatewayFiveDevices();
        Sim("fault add " + wxString(c.rule));
        ASSERT_TRUE(ApplyProjectFile(ctx, userProject));
        ui.messages.clear();
        ui.texts = {wxString("127.0.0.1")};
        ui.answers = {true};
        EXPECT_FALSE(UpdateFirmware(ctx));
        ASSERT_EQ(ui.messages.size(), 1u);
        EXPECT_EQ(ui.messages[0].text, c.message);
        EXPECT_TRUE(GatewayFirmware().Contains(wxString("v") + c.firmware + "-")) << GatewayFirmware();
        EXPECT_EQ(project.deviceCount, 5);
        EXPECT_EQ(project.projectFilePath.GetFullPath(), ProjectFolderFile("migrateTemp.prj"));
        EXPECT_TRUE(wxFileExists(ProjectFolderFile("migrateTemp.prj")));
        EXPECT_TRUE(wxFileExists(ProjectFolderFile("migrateTemp.mbd")));
    }
    // A firmware package that the installation does not hold fails without any fault.
    Sim("fault clear");
    env.FirmwareVersion = "9.9.9";
    ui.messages.clear();
    ui.texts = {wxString("127.0.0.1")};
    ui.answers = {true};
    EXPECT_FALSE(UpdateFirmware(ctx));
    EXPECT_EQ(ui.messages.at(0).text, "ERROR : Failed to upload firmware");
}

TEST_F(GatewayMaintenance, BothInstallersLandInTheDownloadsFolder)
{
    ASSERT_TRUE(UploadInstallers(ctx));
    EXPECT_EQ(ui.messages.at(0).text, "Installer upload complete");
    for (const char* file : {"TGxSoftwareSuite.msi", "TGxConnect.msi"})
        EXPECT_TRUE(wxFileExists(gateway + "/root/var/www/html/downloads/" + file)) << file;

    // The first one failing: the second is not tried.
    Sim("fault add ttputfile match=*TGxSoftwareSuite* exit=1");
    ui.texts = {wxString("127.0.0.1")};
    ui.answers = {true};
    EXPECT_FALSE(UploadInstallers(ctx));
    EXPECT_EQ(ui.messages.at(1).text, "Failed to upload TgxSoftwareSuite Installer");
    EXPECT_EQ(GatewayToolsRun(), Lines({"ttputfile", "ttputfile", "ttputfile"}));
}
