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
        env.TgxBuildPath = dir.path + "/cfg";
        env.TgxFirmwarePath = dir.path + "/fw";
        env.TgxDocumentPath = dir.path + "/doc";
        env.TgxProjectPath = dir.path + "/P";
        env.FirmwareVersion = "6.3.0";
        for (const char* sub : {"INCLUDE", "ADDITIONAL"})
            wxFileName::Mkdir(env.TgxBuildPath + "/" + sub, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
        LoadDefaultProject(project);  // the user's, with an unsaved edit deep in the record
        project.devices[1].commands[49].args[7] = 77;
        project.modbusMapLines = Lines({"user map"});
        GatewayFilesFetched();
    }
    // What ttgetfile would have fetched: a project of five devices and its map.
    void GatewayFilesFetched()
    {
        dir.Write("P/tgxconfig.prj", "TGX TAGNAME:GW5\r\nDEVICE COUNT:5\r\nAUTOMATIC MODBUS MAP:0\r\n");
        dir.Write("P/MBMAP1.csv", "gateway map\r\n");
    }
    void Run(std::deque<ToolReply> replies)
    {
        tools.replies = replies;
        ui.texts = {wxString("10.0.0.9")};
        ui.answers = {true};
        UpdateFirmware(ctx);
    }
    TempDir dir;
};

}  // namespace

TEST_F(FirmwareUpdate, MigratesTheGatewaysProjectAndGivesTheUsersBack)
{
    const Project before = project;
    Run({});
    const wxString p = dir.path + "/P/";
    EXPECT_EQ(tools.Commands(),
              Lines({"ttgetfile \"10.0.0.9\" TG7/tgxconfig.prj \"" + p + "tgxconfig.prj\"",
                     "ttgetfile \"10.0.0.9\" TG7/MBMAP1.csv \"" + p + "MBMAP1.csv\"", "ttfirmware \"10.0.0.9\" TG7main-v6.3.0",
                     "ttputfile \"10.0.0.9\" \"TG7+ User Guide.pdf\" /var/www/html/downloads/TG7UserGuide.pdf",
                     "ttputfile \"10.0.0.9\" \"mbEdit User Guide.pdf\" /var/www/html/downloads/mbEditUserGuide.pdf",
                     "ttputfile \"10.0.0.9\" index.html /var/www/html/index.html", tools.runs[6].command,
                     "ttrestore \"10.0.0.9\" config", "ttreboot \"10.0.0.9\" -s=60 -w -a=5"}));
    EXPECT_TRUE(tools.runs[6].command.StartsWith("ttbuild"));
    EXPECT_EQ(tools.runs[4].workingDirectory + tools.runs[5].workingDirectory, env.TgxDocumentPath + env.TgxFirmwarePath);
    wxArrayString built;
    ReadTextLines(env.TgxBuildPath + "/ADDITIONAL/MBMAP1.csv", built);
    EXPECT_EQ(built, Lines({"gateway map"}));  // built from the gateway's project, not the user's
    EXPECT_EQ(ui.questions.at(0).text, "Update TG7 firmware to version 6.3.0\nAre you sure you want to continue");
    EXPECT_EQ(ui.progress, (std::vector<wxString>{
                               "begin: Firmware Update | Migrating existing project",
                               "pulse: Copying current project file and modbus map from TG7", "pulse: Uploading firmware ...",
                               "pulse: Uploading documentation ...", "pulse: Uploading website ...",
                               "pulse: Rebuilding configuration", "pulse: Uploading configuration",
                               "pulse: Restarting the HART Gateway", "end"}));
    EXPECT_EQ(ui.events.back(), "message: Firmware update complete\n\nYou may wish to upload the software installation "
                                "files\nto the TG7 (this is optional). You can do this from\nthe 'Upload Installation "
                                "files' under the 'target' menu.");
    EXPECT_EQ(ProjectFileLines(project), ProjectFileLines(before));
    EXPECT_EQ(project.devices[1].commands[49].args[7], 77);
    EXPECT_EQ(project.modbusMapLines, before.modbusMapLines);
    for (const char* gone : {"tgxconfig.prj", "MBMAP1.csv", "migrateTemp.prj", "migrateTemp.mbd"})
        EXPECT_FALSE(wxFileExists(p + gone)) << gone;
}

TEST_F(FirmwareUpdate, AFailureLeavesTheMigratedProjectOpenAndItsFiles)
{
    const struct {
        size_t failingRun;  // the first two are the fetches
        const char* message;
    } cases[] = {
        {2, "ERROR : Failed to upload firmware"},
        {3, "ERROR : Failed to upload documentation"},  // the second manual is not tried
        {4, "ERROR : Failed to upload documentation"},
        {5, "ERROR : Failed to upload website"},
        {6, "ERROR : Failed to build configuration files for TG7 - (ttbuild returned 4).\nCheck TARN software is "
            "properly installed"},
        {7, "ERROR : Failed to upload configuration files to TG7 - (ttrestore returned 4).\nCheck IP address, Power "
            "and Network connection"},
        {8, "ERROR : Failed to reboot TG7"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.message);
        ui.messages.clear();
        std::deque<ToolReply> replies(c.failingRun);
        replies.push_back({4, {}});
        Run(replies);
        EXPECT_EQ(tools.runs.size(), c.failingRun + 1);
        tools.runs.clear();
        ASSERT_EQ(ui.messages.size(), 1u);
        EXPECT_EQ(ui.messages[0].text, c.message);
        EXPECT_EQ(ui.progress.back(), "end");
        EXPECT_EQ(GetText(project.tagName), "GW5");
        EXPECT_EQ(project.projectFilePath.GetFullPath(), dir.path + "/P/migrateTemp.prj");
        EXPECT_TRUE(wxFileExists(dir.path + "/P/migrateTemp.mbd"));
        GatewayFilesFetched();
    }
}

TEST(Reboot, DoneFollowsAFailedRestart)
{
    TestContext t;
    t.ui.texts = {wxString("10.0.0.9")};
    t.tools.replies = {{1, {}}};
    EXPECT_FALSE(RebootTarget(t.ctx));
    EXPECT_EQ(t.tools.Commands(), Lines({"ttreboot \"10.0.0.9\" -s=60 -w -a=1"}));
    EXPECT_EQ(wxJoin(wxArrayString(t.ui.events.size() - 1, &t.ui.events[1]), '|', '\0'),
              "begin: Reboot Target | Restarting the HART Gateway|pulse: Restarting the HART Gateway|"
              "message: ERROR : Failed to reboot TG7|pulse: Done|wait 1|progress end");
}

TEST(UploadInstallers, TheFirstFailureStops)
{
    const char* const results[] = {"Failed to upload TgxSoftwareSuite Installer",  // its file missing
                                   "Failed to upload TgxSoftwareSuite Installer", "Failed to upload TgxConnect Installer"};
    for (size_t failing = 0; failing < 3; ++failing) {
        TempDir dir;
        TestContext t;
        t.env.TgxSoftwareInstallerPath = t.env.TgxConnectInstallerPath = dir.path;
        t.platform.separator = "/";
        dir.Write(failing == 0 ? "other.msi" : "TGxSoftwareSuite.msi", "msi");
        dir.Write("TGxConnect.msi", "msi");
        t.ui.answers = {true};
        t.ui.texts = {wxString("10.0.0.9")};
        t.tools.replies = std::deque<ToolReply>(failing == 0 ? 0 : failing - 1);
        t.tools.replies.push_back({1, {}});
        EXPECT_FALSE(UploadInstallers(t.ctx));
        EXPECT_EQ(t.tools.runs.size(), failing);
        EXPECT_EQ(t.ui.events.back(), wxString("message: ") + results[failing]);
    }
}
