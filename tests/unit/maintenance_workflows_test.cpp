// Gateway maintenance against the scripted ports: Update Firmware, Upload Installers, Reboot,
// Target > Options and the small commands of the Help and Target menus.
#include "commands/small_commands.h"
#include "deploy/firmware_update.h"
#include "deploy/maintenance_commands.h"
#include "fakes/test_context.h"
#include "project/project.h"
#include "project/project_file.h"
#include "remote/options_editing.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>

#include <algorithm>

class FirmwareUpdate : public ::testing::Test, protected ScratchContext {};

TEST_F(FirmwareUpdate, MigratesTheGatewaysProjectAndGivesTheUsersBack)
{
    // The user's project, with an unsaved edit deep in the record.
    project.devices[1].commands[49].args[7] = 77;
    project.modbusMapLines = Lines({"user map"});
    const Project before = project;
    // What ttgetfile would have fetched: a project of five devices and its map.
    dir.Write("tgxconfig.prj", "TGX TAGNAME:GW5\r\nDEVICE COUNT:5\r\nAUTOMATIC MODBUS MAP:0\r\n");
    dir.Write("MBMAP1.csv", "gateway map\r\n");
    tools.replies = std::deque<ToolReply>(9);
    ui.texts = {wxString("10.0.0.9")};
    ui.answers = {true};
    UpdateFirmware(ctx);
    const wxString p = dir.path + "/";
    EXPECT_EQ(tools.Commands(),
              Lines({"ttgetfile \"10.0.0.9\" TG7/tgxconfig.prj \"" + p + "tgxconfig.prj\"",
                     "ttgetfile \"10.0.0.9\" TG7/MBMAP1.csv \"" + p + "MBMAP1.csv\"", "ttfirmware \"10.0.0.9\" TG7main-v6.2.2",
                     "ttputfile \"10.0.0.9\" \"TG7+ User Guide.pdf\" /var/www/html/downloads/TG7UserGuide.pdf",
                     "ttputfile \"10.0.0.9\" \"mbEdit User Guide.pdf\" /var/www/html/downloads/mbEditUserGuide.pdf",
                     "ttputfile \"10.0.0.9\" index.html /var/www/html/index.html", tools.runs[6].command,
                     "ttrestore \"10.0.0.9\" config", "ttreboot \"10.0.0.9\" -s=60 -w -a=5"}));
    EXPECT_EQ(ReadBytes(env.TgxBuildPath + "/ADDITIONAL/MBMAP1.csv"), "gateway map\r\n");  // the gateway's, not the user's
    EXPECT_EQ(ui.questions.at(0).text, "Update TG7 firmware to version 6.2.2\nAre you sure you want to continue");
    EXPECT_EQ(wxJoin(wxArrayString(ui.progress.size(), ui.progress.data()), '|', '\0'),
              "begin: Firmware Update | Migrating existing project|pulse: Copying current project file and modbus map from "
              "TG7|pulse: Uploading firmware ...|pulse: Uploading documentation ...|pulse: Uploading website ...|pulse: "
              "Rebuilding configuration|pulse: Uploading configuration|pulse: Restarting the HART Gateway|end");
    EXPECT_EQ(ui.events.back(), "message: Firmware update complete\n\nYou may wish to upload the software installation "
                                "files\nto the TG7 (this is optional). You can do this from\nthe 'Upload Installation "
                                "files' under the 'target' menu.");
    EXPECT_EQ(ProjectFileLines(project), ProjectFileLines(before));
    EXPECT_ALL(project.devices[1].commands[49].args[7] == 77, project.modbusMapLines == before.modbusMapLines);
    for (const char* gone : {"tgxconfig.prj", "MBMAP1.csv", "migrateTemp.prj", "migrateTemp.mbd"})
        EXPECT_FALSE(wxFileExists(p + gone)) << gone;
}

TEST(Options, OkTakesBackWhatItAcceptsAndAnEmptyAddressBecomesTheDefault)
{
    // Typed into every port row and the address; OK or Cancel; the first row's setting then (772 before): "80x"
    // counts as the value the conversion leaves.
    const struct { const char* typed; bool ok; int stored; const char* address; } cases[] = {
        {"70000", true, 70000, "70000"}, {"-5", true, 772, "-5"}, {"abc", true, 772, "abc"}, {"80x", true, 80, "80x"},
        {"99999999999", true, 2147483647, "99999999999"}, {"", true, 772, kDefaultTimeServer}, {"", false, 772, kDefaultTimeServer}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.typed);
        TestContext t;
        LoadDefaultProject(t.project);
        t.project.projectSaved = 1;
        t.ui.optionsAnswers = {[&](OptionsForm& form) {
            std::fill(std::begin(form.ports), std::end(form.ports), form.timeServerAddress = c.typed);
            form.useTimeServer = false;
            SetText(t.project.timeServerAddress, "");  // so that Cancel too meets an empty address
            return c.ok;
        }};
        EditOptions(t.ctx);
        EXPECT_EQ(wxArrayString(6, t.ui.optionsForms.at(0).ports), Lines({"772", "502", "1100", "503", "50000", "5094"}));
        EXPECT_ALL(t.ui.optionsForms[0].timeServerAddress == kDefaultTimeServer, t.ui.optionsForms[0].useTimeServer);
        EXPECT_ALL(t.project.vcpPort == c.stored, t.project.hartIpTcpPort == (c.stored == 772 ? 5094 : c.stored));
        EXPECT_EQ(GetText(t.project.timeServerAddress), c.address);
        EXPECT_ALL(t.project.timeServerEnable == (c.ok ? 0 : 1), t.project.projectSaved == 1);
    }
}

TEST(SmallCommands, WhatEachStarts)
{
    TestContext t;
    t.env.TgxSoftwarePath = "C:\\TGx\\";
    t.env.TgxDocumentPath = "C:\\TGx\\DOC";
    t.ui.files = {std::nullopt, wxString("C:\\TGx\\DOC\\a.pdf")};
    t.ui.texts = {std::nullopt, wxString("10.0.0.9:2200")};
    for (int twice = 0; twice < 2; ++twice) {  // cancelled first: nothing opens or starts
        OpenDocumentation(t.ctx);
        ViewLiveData(t.ctx);
    }
    CheckForUpdates(t.ctx);
    ChangeNetworkSettings(t.ctx);
    EXPECT_EQ(t.platform.openedDocuments, Lines({"C:\\TGx\\DOC\\a.pdf"}));
    const FileChoiceForm& form = t.ui.fileForms.at(0);
    EXPECT_ALL(form.title == "Select a document", form.folder == "C:\\TGx\\DOC", form.wildcard == "*.pdf");
    EXPECT_ALL(!form.save, form.mustExist, form.fileName.empty());
    EXPECT_EQ(t.tools.Commands(), Lines({"tgxview \"-a=10.0.0.9\"", "powershell \".\\updater.exe\"", "tgxfinder"}));
    EXPECT_ALL(t.tools.runs[0].mode == RunMode::Detached, t.tools.runs[2].mode == RunMode::Detached);
    EXPECT_EQ(t.tools.runs[1].workingDirectory, "C:\\TGx\\");
}
