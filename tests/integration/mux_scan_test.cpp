// Multiplexer scan and loop rebuild end to end: the real tool runner, the simulated gateway with
// a multiplexer behind it and the simulated virtual COM port.
#include "app/app_context.h"
#include "deploy/configure_device.h"
#include "fakes/scripted_user_interface.h"
#include "mux/mux_rebuild.h"
#include "mux/mux_scan.h"
#include "project/text_file.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/utils.h>

#include <algorithm>
#include <memory>

namespace {

class MuxGateway : public ::testing::Test {
protected:
    void SetUp() override
    {
        scratch = wxFileName::CreateTempFileName(wxFileName::GetTempDir() + "/tgxmux");
        wxRemoveFile(scratch);
        CopyTree(wxString(TGX_SOURCE_DIR) + "/simulator/installation", scratch + "/installation");
        wxSetEnv("TGXSIM_HOME", scratch + "/gateway");
        wxGetEnv("PATH", &savedPath);
        wxSetEnv("PATH", wxString(TGX_SIMULATOR_BIN) + wxPATH_SEP + savedPath);
        env.TgxSoftwarePath = scratch + "/installation/";
        DeriveInstallationPaths(env, platform->PathSeparator(), scratch + "/Documents");
        wxFileName::Mkdir(env.TgxProjectPath, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
        ASSERT_TRUE(LoadDeviceTypeTable(DeviceTypeFilePath(env), deviceTypes));
        env.FirmwareVersion = "6.2.2";
        LoadDefaultProject(project);
        // The PC's own COM1 is taken, so the virtual port is COM2.
        Admin("pc-ports COM1");
        Admin("mux address 0000000000");
        for (int d = 1; d <= 5; ++d)
            Admin(wxString::Format("mux add --known %d 0 10%08d TT%d \"Loop %d, flow\"", d, d, d, d));
    }
    void TearDown() override
    {
        wxSetEnv("PATH", savedPath);
        wxSetEnv("TT_SSH_PORT", "22");
        wxSetWorkingDirectory(wxFileName::GetTempDir());  // the tools left it inside the scratch folder
        wxFileName::Rmdir(scratch, wxPATH_RMDIR_RECURSIVE);
    }

    void Admin(const wxString& command)
    {
        wxArrayString output, errors;
        ASSERT_EQ(wxExecute(wxString(TGX_SIMULATOR_BIN) + "/tgxsim " + command, output, errors, wxEXEC_SYNC), 0)
            << command;
    }
    bool Scan()
    {
        ui.scanAnswers.push_back([](ScanForm& form) {
            form.address = "127.0.0.1";
            return true;
        });
        return MuxScanCommand(ctx);
    }
    // The tools that ran, with their arguments, from the simulator's run log.
    wxArrayString Runs() const
    {
        wxArrayString log, runs;
        ReadTextLines(scratch + "/gateway/run.log", log);
        for (const wxString& line : log)
            for (const wxString& field : wxSplit(line, '\t', '\0'))
                if (field.StartsWith("args="))
                    runs.Add(line.AfterFirst('\t').BeforeFirst('\t') + " " + field.Mid(5));
        return runs;
    }
    wxArrayString Tags() const
    {
        wxArrayString tags;
        for (const MuxRow& row : ui.scanWindow.rows)
            tags.Add(row.tagName);
        return tags;
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

TEST_F(MuxGateway, ScannedDevicesBecomeAProjectThatConfigureSends)
{
    ASSERT_TRUE(Scan());
    EXPECT_TRUE(ui.messages.empty()) << ui.messages.at(0).text;
    EXPECT_EQ(Tags(), Lines({"-", "TT1", "TT2", "TT3", "TT4", "TT5"}));
    EXPECT_EQ(ui.scanWindow.rows[3].description, "Loop 3, flow");

    // The virtual port lived only while the multiplexer was asked.
    const wxArrayString runs = Runs();
    const int created = runs.Index("ttvsp COM2 127.0.0.1 -p=772");
    ASSERT_NE(created, wxNOT_FOUND) << wxJoin(runs, '\n');
    EXPECT_EQ(runs[created + 1], "pfmux COM2 -rdl");
    EXPECT_EQ(runs.Last(), "ttvsp COM2 -d");
    EXPECT_FALSE(wxFileExists(scratch + "/gateway/vsp.txt"));
    EXPECT_EQ(platform->FreeComPortNames().front(), "COM2");

    AddAllMuxDevices(ctx, ui.scanWindow);
    ASSERT_EQ(project.deviceCount, 6);
    EXPECT_STREQ(project.devices[2].longAddress, "1000000002");
    EXPECT_STREQ(project.devices[2].deviceName, "TT2");

    project.projectFilePath.Assign(scratch + "/kfd2.prj");
    ui.answers = {true};
    ui.texts = {wxString("127.0.0.1"), wxString("KFD2")};
    ASSERT_TRUE(ConfigureDevice(ctx)) << ui.messages.back().text;
    wxArrayString onGateway;
    ASSERT_TRUE(ReadTextLines(scratch + "/gateway/TG7/tgxconfig.prj", onGateway));
    const wxString sent = wxJoin(onGateway, '\n');
    EXPECT_TRUE(sent.Contains("MODE:MULTIPLEXOR")) << sent;
    for (const char* line : {"LONG ADDRESS:1000000005", "DEVICE NAME:TT5", "LONG ADDRESS:0000000000"})
        EXPECT_TRUE(sent.Contains(line)) << line;
}

TEST_F(MuxGateway, AMultiplexerThatAnswersOnlyOnTheThirdTry)
{
    Admin("fault add pfmux match=-rdl fails=2");
    ASSERT_TRUE(Scan());
    EXPECT_EQ(ui.scanWindow.rows.size(), 6u);
    const wxArrayString runs = Runs();
    EXPECT_EQ(std::count(runs.begin(), runs.end(), "pfmux COM2 -rdl"), 3);
}

TEST_F(MuxGateway, AnAddedDeviceAppearsOnlyAfterARebuildOfItsLoop)
{
    ASSERT_TRUE(Scan());
    Admin("mux add 9 0 2000000009 PT9 Pressure");
    Admin("mux add 9 4 2000000049 PT49 \"Not at address 0\"");
    Admin("mux rebuild-polls 2");
    const auto rebuild = [this](std::initializer_list<int> loops) {
        ui.rebuildAnswers.push_back([loops](MuxRebuildForm& form) {
            for (bool& loop : form.loops)
                loop = false;
            for (int loop : loops)
                form.loops[loop] = true;
            return true;
        });
        return RebuildMuxLoops(ctx, ui.scanWindow);
    };
    ASSERT_TRUE(rebuild({1, 2}));
    EXPECT_EQ(Tags(), Lines({"-", "TT1", "TT2", "TT3", "TT4", "TT5"}));
    ASSERT_TRUE(rebuild({8, 9}));
    EXPECT_EQ(Tags(), Lines({"-", "TT1", "TT2", "TT3", "TT4", "TT5", "PT9"}));
    EXPECT_TRUE(ui.messages.empty());
}
