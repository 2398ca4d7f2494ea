// tgxcfg's gateway commands (fetch, update-firmware, upload-installers, reboot) as a shell runs
// them, on a simulated gateway that was configured with an example project.
#include "project/text_file.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/utils.h>

namespace {

class TgxcfgGateway : public ::testing::Test {
protected:
    void SetUp() override
    {
        scratch = wxFileName::CreateTempFileName(wxFileName::GetTempDir() + "/tgxcfgmnt");
        wxRemoveFile(scratch);
        CopyTree(wxString(TGX_SOURCE_DIR) + "/simulator/installation", scratch + "/installation");
        CopyTree(wxString(TGX_SOURCE_DIR) + "/docs/examples", scratch);
        wxArrayString registry = Lines({"[HKEY_CURRENT_USER/Software/TARN SYSTEMS LTD/TGx Software Suite]",
                                        "Version=6.2.2", "FirmwareVersion=6.2.2", "TemplatesVersion=3.1.0",
                                        "[HKEY_LOCAL_MACHINE/Software/TARN SYSTEMS LTD/TGx Connect]"});
        registry.Insert("Path=" + scratch + "/installation/", 1);
        registry.Add("Path=" + scratch + "/installation/tgxconnect/");
        WriteTextLines(scratch + "/registry.ini", registry);
        env.env["TGX_REGISTRY"] = scratch + "/registry.ini";
        env.env["TGX_DOCUMENTS"] = scratch + "/Documents";
        env.env["TGXSIM_HOME"] = scratch + "/gateway";
        env.env["PATH"] = wxString(TGX_SIMULATOR_BIN) + wxPATH_SEP + env.env["PATH"];
        env.cwd = scratch;
        ASSERT_EQ(Run("configure boiler_house.prj --target=127.0.0.1 --yes"), 0) << Err();
    }
    void TearDown() override { wxFileName::Rmdir(scratch, wxPATH_RMDIR_RECURSIVE); }

    long Run(const wxString& arguments)
    {
        out.clear();
        err.clear();
        return wxExecute("\"" TGX_CLI_BINARY "\" " + arguments, out, err, wxEXEC_SYNC | wxEXEC_NODISABLE, &env);
    }
    long Sim(const wxString& arguments)
    {
        out.clear();
        err.clear();
        return wxExecute(wxString(TGX_SIMULATOR_BIN) + "/tgxsim " + arguments, out, err, wxEXEC_SYNC | wxEXEC_NODISABLE,
                         &env);
    }
    wxString Err() const { return wxJoin(err, '\n'); }

    wxString scratch;
    wxExecuteEnv env = [] {
        wxExecuteEnv e;
        wxGetEnvMap(&e.env);
        e.env.erase("TT_SSH_PORT");
        return e;
    }();
    wxArrayString out, err;
};

}  // namespace

TEST_F(TgxcfgGateway, FetchSavesWhatTheGatewayRuns)
{
    ASSERT_EQ(Run("fetch --target=127.0.0.1 backup.prj"), 0) << Err();
    wxArrayString original, backup, originalMap, backupMap;
    ReadTextLines(scratch + "/boiler_house.prj", original);
    ReadTextLines(scratch + "/backup.prj", backup);
    EXPECT_EQ(backup, original);
    ReadTextLines(scratch + "/boiler_house.mbd", originalMap);
    ReadTextLines(scratch + "/backup.mbd", backupMap);
    EXPECT_EQ(backupMap, originalMap);

    EXPECT_EQ(Sim("reset"), 0);
    EXPECT_EQ(Run("fetch --target=127.0.0.1 none.prj"), 1);
    EXPECT_EQ(Err(), "Failed to obtain configuration from TG7.");
    EXPECT_FALSE(wxFileExists(scratch + "/none.prj"));
}

TEST_F(TgxcfgGateway, UpdateFirmwareAnswersItsQuestionOnlyWithYes)
{
    ASSERT_EQ(Sim("set firmware 6.1.0"), 0);
    EXPECT_EQ(Run("update-firmware --target=127.0.0.1"), 1);
    EXPECT_EQ(out.Last(), "Are you sure you want to continue No");
    EXPECT_EQ(Run("update-firmware --target=127.0.0.1 --yes"), 0) << Err();
    EXPECT_EQ(out.Last(), "the 'Upload Installation files' under the 'target' menu.");
    wxArrayString boots;
    ReadTextLines(scratch + "/gateway/boot.log", boots);
    EXPECT_TRUE(boots.Last().Contains("-a=4")) << boots.Last();  // the four devices of the example
    Sim("run ttdevtype 127.0.0.1");
    EXPECT_EQ(out[1], "Firmware: TG7main-v6.2.2-build7");
    EXPECT_EQ(Run("update-firmware --yes"), 2);
}

TEST_F(TgxcfgGateway, InstallersAndReboot)
{
    EXPECT_EQ(Run("upload-installers --target=127.0.0.1 --yes"), 0) << Err();
    EXPECT_EQ(out.Last(), "Installer upload complete");
    EXPECT_TRUE(wxFileExists(scratch + "/gateway/root/var/www/html/downloads/TGxConnect.msi"));

    Sim("fault add ttreboot exit=1");
    EXPECT_EQ(Run("reboot --target=127.0.0.1"), 1);
    EXPECT_EQ(out[out.size() - 2], "ERROR : Failed to reboot TG7");
    EXPECT_EQ(out.Last(), "Done");
    Sim("fault clear");
    EXPECT_EQ(Run("reboot --target=127.0.0.1:2200"), 0) << Err();
}
