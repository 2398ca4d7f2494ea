// Update Firmware, Upload Installers and Reboot against the scripted ports.
#include "deploy/firmware_update.h"
#include "deploy/maintenance_commands.h"
#include "fakes/test_context.h"
#include "project/project_file.h"
#include "project/text_file.h"
#include "temp_dir.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>

namespace {

class FirmwareUpdate : public ::testing::Test, protected TestContext {
protected:
    FirmwareUpdate()
    {
        platform.separator = "/";
        env.TgxBuildPath = dir.path + "/tgxconfigure";
        env.TgxTemplatesPath = dir.path + "/tgxtemplates";
        env.TgxFirmwarePath = dir.path + "/tgxfirmware";
        env.TgxDocumentPath = dir.path + "/tgxconfigure/DOCUMENTATION";
        env.TgxProjectPath = dir.path + "/PROJECTS";
        env.FirmwareVersion = "6.3.0";
        for (const char* sub : {"INCLUDE", "ADDITIONAL", "OUTPUT"})
            wxFileName::Mkdir(env.TgxBuildPath + "/" + sub, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
        // The user's project, unsaved edits included.
        LoadDefaultProject(project);
        project.projectFilePath.Assign(dir.path + "/plant.prj");
        SetText(project.tagName, "USERS");
        project.deviceCount = 2;
        project.devices[1].commands[49].args[7] = 77;
        project.vcpPort = 7000;
        project.modbusMapLines = Lines({"HOLDING,1,0,UINT16,SYS:STATUS,Gateway status,1"});
        project.projectSaved = 0;
        ui.texts = {wxString("10.0.0.9")};
        ui.answers = {true};
    }
    // What ttgetfile would have fetched from a gateway carrying a project with five devices.
    void GatewayCarriesProject()
    {
        dir.Write("PROJECTS/tgxconfig.prj", "TGX TAGNAME:GATEWAY5\r\nDEVICE COUNT:5\r\nAUTOMATIC MODBUS MAP:0\r\n");
        dir.Write("PROJECTS/MBMAP1.csv", "HOLDING,200,0,FLOAT,L0D1:PV,PV,2\r\n");
    }
    wxString ProjectFile(const char* name) const { return dir.path + "/PROJECTS/" + name; }
    TempDir dir;
};

}  // namespace

TEST_F(FirmwareUpdate, MigratesTheGatewaysProjectAndGivesTheUsersBack)
{
    const Project before = project;
    GatewayCarriesProject();
    UpdateFirmware(ctx);

    const wxString p = dir.path + "/PROJECTS/";
    const std::vector<std::pair<wxString, wxString>> expected = {
        {"ttgetfile \"10.0.0.9\" TG7/tgxconfig.prj \"" + p + "tgxconfig.prj\"", ""},
        {"ttgetfile \"10.0.0.9\" TG7/MBMAP1.csv \"" + p + "MBMAP1.csv\"", ""},
        {"ttfirmware \"10.0.0.9\" TG7main-v6.3.0", env.TgxFirmwarePath},
        {"ttputfile \"10.0.0.9\" \"TG7+ User Guide.pdf\" /var/www/html/downloads/TG7UserGuide.pdf", env.TgxDocumentPath},
        {"ttputfile \"10.0.0.9\" \"mbEdit User Guide.pdf\" /var/www/html/downloads/mbEditUserGuide.pdf",
         env.TgxDocumentPath},
        {"ttputfile \"10.0.0.9\" index.html /var/www/html/index.html", env.TgxFirmwarePath},
        {"ttbuild", env.TgxTemplatesPath},
        {"ttrestore \"10.0.0.9\" config", env.TgxBuildPath + "/OUTPUT"},
        {"ttreboot \"10.0.0.9\" -s=60 -w -a=5", ""},
    };
    ASSERT_EQ(tools.runs.size(), expected.size());
    for (size_t i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_TRUE(tools.runs[i].command.StartsWith(expected[i].first)) << tools.runs[i].command;
        if (!expected[i].second.empty()) {
            EXPECT_EQ(tools.runs[i].workingDirectory, expected[i].second);
        }
    }
    // The configuration was rebuilt from the gateway's project and map, not the user's.
    wxArrayString built, map;
    ASSERT_TRUE(ReadTextLines(env.TgxBuildPath + "/ADDITIONAL/tgxconfig.prj", built));
    EXPECT_NE(built.Index("TGX TAGNAME:GATEWAY5"), wxNOT_FOUND);
    ASSERT_TRUE(ReadTextLines(env.TgxBuildPath + "/ADDITIONAL/MBMAP1.csv", map));
    EXPECT_EQ(map, Lines({"HOLDING,200,0,FLOAT,L0D1:PV,PV,2"}));

    EXPECT_EQ(ui.questions.at(0).caption, "Warning");
    EXPECT_EQ(ui.questions.at(0).text, "Update TG7 firmware to version 6.3.0\nAre you sure you want to continue");
    EXPECT_EQ(ui.progress,
              (std::vector<wxString>{"begin: Firmware Update | Migrating existing project",
                                     "pulse: Copying current project file and modbus map from TG7",
                                     "pulse: Uploading firmware ...", "pulse: Uploading documentation ...",
                                     "pulse: Uploading website ...", "pulse: Rebuilding configuration",
                                     "pulse: Uploading configuration", "pulse: Restarting the HART Gateway", "end"}));
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, "Firmware update complete\n\nYou may wish to upload the software installation "
                                   "files\nto the TG7 (this is optional). You can do this from\nthe 'Upload "
                                   "Installation files' under the 'target' menu.");
    EXPECT_EQ(ui.events[ui.events.size() - 3], "refresh");

    // The whole record comes back, unsaved mark and deepest argument included.
    EXPECT_EQ(ProjectFileLines(project), ProjectFileLines(before));
    EXPECT_EQ(project.projectFilePath, before.projectFilePath);
    EXPECT_EQ(project.projectSaved, 0);
    EXPECT_EQ(project.devices[1].commands[49].args[7], 77);
    EXPECT_EQ(project.modbusMapLines, before.modbusMapLines);
    for (const char* gone : {"tgxconfig.prj", "MBMAP1.csv", "migrateTemp.prj", "migrateTemp.mbd"})
        EXPECT_FALSE(wxFileExists(ProjectFile(gone))) << gone;
}

TEST_F(FirmwareUpdate, AFailureLeavesTheMigratedProjectOpenAndItsFiles)
{
    struct Case {
        std::deque<ToolReply> replies;  // after the two fetches
        const char* message;
        size_t runs;
    };
    const char* const build =
        "ERROR : Failed to build configuration files for TG7 - (ttbuild returned 4).\nCheck TARN software is properly "
        "installed";
    const char* const upload = "ERROR : Failed to upload configuration files to TG7 - (ttrestore returned 3).\nCheck "
                               "IP address, Power and Network connection";
    const Case cases[] = {
        {{{1, {}}}, "ERROR : Failed to upload firmware", 3},
        {{{0, {}}, {1, {}}}, "ERROR : Failed to upload documentation", 4},  // the second manual is not tried
        {{{0, {}}, {0, {}}, {2, {}}}, "ERROR : Failed to upload documentation", 5},
        {{{0, {}}, {0, {}}, {0, {}}, {1, {}}}, "ERROR : Failed to upload website", 6},
        {{{0, {}}, {0, {}}, {0, {}}, {0, {}}, {4, {}}}, build, 7},
        {{{0, {}}, {0, {}}, {0, {}}, {0, {}}, {0, {}}, {3, {}}}, upload, 8},
        {{{0, {}}, {0, {}}, {0, {}}, {0, {}}, {0, {}}, {0, {}}, {1, {}}}, "ERROR : Failed to reboot TG7", 9},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.message);
        GatewayCarriesProject();
        wxRemoveFile(ProjectFile("migrateTemp.prj"));
        wxRemoveFile(ProjectFile("migrateTemp.mbd"));
        LoadDefaultProject(project);
        SetText(project.tagName, "USERS");
        tools.runs.clear();
        tools.replies = {{0, {}}, {0, {}}};
        tools.replies.insert(tools.replies.end(), c.replies.begin(), c.replies.end());
        ui.messages.clear();
        ui.progress.clear();
        ui.texts = {wxString("10.0.0.9")};
        ui.answers = {true};
        EXPECT_FALSE(UpdateFirmware(ctx));
        EXPECT_EQ(tools.runs.size(), c.runs);
        ASSERT_EQ(ui.messages.size(), 1u);
        EXPECT_EQ(ui.messages[0].text, c.message);
        EXPECT_EQ(ui.progress.back(), "end");
        EXPECT_EQ(GetText(project.tagName), "GATEWAY5");
        EXPECT_EQ(project.projectFilePath.GetFullPath(), ProjectFile("migrateTemp.prj"));
        EXPECT_EQ(project.projectOpen, 1);
        EXPECT_TRUE(wxFileExists(ProjectFile("migrateTemp.prj")));
        EXPECT_TRUE(wxFileExists(ProjectFile("migrateTemp.mbd")));
        EXPECT_FALSE(wxFileExists(ProjectFile("tgxconfig.prj")));
    }
}

TEST_F(FirmwareUpdate, AGatewayWithoutAProjectIsMigratedFromTheDefaults)
{
    // No project file, no map file; the running map that ttmbprint prints stands in.
    tools.replies = {{1, {}}, {1, {}}, {0, Lines({"HOLDING,1,0,UINT16,SYS:STATUS,Gateway status,1"})}};
    ui.answers = {true};
    UpdateFirmware(ctx);
    ASSERT_GE(tools.runs.size(), 4u);
    EXPECT_EQ(tools.runs[2].command, "ttmbprint \"10.0.0.9\" -f=2");
    EXPECT_EQ(tools.runs[3].command, "ttfirmware \"10.0.0.9\" TG7main-v6.3.0");
    EXPECT_EQ(tools.runs.back().command, "ttreboot \"10.0.0.9\" -s=60 -w -a=0");
    wxArrayString migrated;
    ASSERT_TRUE(ReadTextLines(env.TgxBuildPath + "/ADDITIONAL/tgxconfig.prj", migrated));
    Project defaults;
    LoadDefaultProject(defaults);
    defaults.projectSaved = 1;
    EXPECT_EQ(migrated, ProjectFileLines(defaults));
    EXPECT_EQ(ui.messages.size(), 1u);
}

TEST_F(FirmwareUpdate, CancelOrNoChangesNothing)
{
    const wxArrayString before = ProjectFileLines(project);
    ui.texts = {std::nullopt, wxString("10.0.0.9")};
    ui.answers = {false};
    EXPECT_FALSE(UpdateFirmware(ctx));
    EXPECT_FALSE(UpdateFirmware(ctx));
    EXPECT_TRUE(tools.runs.empty());
    EXPECT_TRUE(ui.progress.empty());
    EXPECT_EQ(ProjectFileLines(project), before);
}

TEST(Reboot, DoneFollowsEvenAFailedRestart)
{
    for (long code : {0L, 1L}) {
        TestContext t;
        t.target.targetEntry = "192.168.1.250";
        t.ui.texts = {wxString("10.0.0.9")};
        t.tools.replies = {{code, {}}};
        EXPECT_EQ(RebootTarget(t.ctx), code == 0);
        EXPECT_EQ(t.tools.Commands(), Lines({"ttreboot \"10.0.0.9\" -s=60 -w -a=1"}));
        std::vector<wxString> events = {"text: Enter device IP address or domain name",
                                        "begin: Reboot Target | Restarting the HART Gateway",
                                        "pulse: Restarting the HART Gateway"};
        if (code != 0)
            events.push_back("message: ERROR : Failed to reboot TG7");
        events.insert(events.end(), {"pulse: Done", "wait 1", "progress end"});
        EXPECT_EQ(t.ui.events, events);
    }
}

TEST(UploadInstallers, BothInOrderAndTheFirstFailureStops)
{
    struct Case {
        bool suiteThere;
        std::deque<ToolReply> replies;
        size_t runs;
        const char* result;
    };
    const Case cases[] = {
        {true, {{0, {}}, {0, {}}}, 2, "Installer upload complete"},
        {false, {}, 0, "Failed to upload TgxSoftwareSuite Installer"},
        {true, {{1, {}}}, 1, "Failed to upload TgxSoftwareSuite Installer"},
        {true, {{0, {}}, {1, {}}}, 2, "Failed to upload TgxConnect Installer"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.result);
        TempDir dir;
        TestContext t;
        t.platform.separator = "/";
        t.env.TgxSoftwareInstallerPath = dir.path + "/installer";
        t.env.TgxConnectInstallerPath = dir.path + "/tgxconnect/installer";
        if (c.suiteThere)
            dir.Write("installer/TGxSoftwareSuite.msi", "msi");
        dir.Write("tgxconnect/installer/TGxConnect.msi", "msi");
        t.ui.answers = {true};
        t.ui.texts = {wxString("10.0.0.9")};
        t.tools.replies = c.replies;
        EXPECT_EQ(UploadInstallers(t.ctx), c.runs == 2 && c.replies.back().exitCode == 0);
        ASSERT_EQ(t.tools.runs.size(), c.runs);
        if (c.runs == 2) {
            EXPECT_EQ(t.tools.runs[1].command, "ttputfile \"10.0.0.9\" \"" + dir.path +
                                                   "/tgxconnect/installer/TGxConnect.msi\" "
                                                   "/var/www/html/downloads/TGxConnect.msi -c");
        }
        EXPECT_EQ(t.ui.progress.front(), "begin: Installer Upload | Uploading TGxSoftwareSuite");
        EXPECT_EQ(t.ui.progress.back(), "end");
        ASSERT_EQ(t.ui.messages.size(), 1u);
        EXPECT_EQ(t.ui.messages[0].text, c.result);
    }
    // Not Yes, or the address cancelled: nothing is uploaded or shown.
    TestContext t;
    t.ui.answers = {false, true};
    t.ui.texts = {std::nullopt};
    EXPECT_FALSE(UploadInstallers(t.ctx));
    EXPECT_FALSE(UploadInstallers(t.ctx));
    EXPECT_EQ(t.ui.questions.at(0).caption, "Upload Installers");
    EXPECT_EQ(t.ui.questions.at(0).icon, MessageIcon::Exclamation);
    EXPECT_EQ(t.ui.questions.at(0).text,
              "Uploading the software package installers to the TG7 will take several minutes.\nThis proceedure is "
              "not recomended if you are connected over a WAN\nor over a slow or unreliable network\n\nDo you wish to "
              "continue ?");
    EXPECT_TRUE(t.tools.runs.empty());
    EXPECT_TRUE(t.ui.messages.empty());
}
