// The maintenance workflows end to end, as tgxcfg runs them from a shell: the real tool runner
// and the gateway simulator, on a gateway configured with a five-device project.
#include "project/text_file.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/utils.h>

TEST(TgxcfgGateway, FirmwareUpdateInstallersFetchAndReboot)
{
    const wxString scratch = wxFileName::CreateTempFileName(wxFileName::GetTempDir() + "/tgxcfgmnt");
    wxRemoveFile(scratch);
    CopyTree(wxString(TGX_SOURCE_DIR) + "/simulator/installation", scratch + "/installation");
    WriteTextLines(scratch + "/registry.ini",
                   Lines({"[HKEY_CURRENT_USER/Software/TARN SYSTEMS LTD/TGx Software Suite]", "Version=6.2.2",
                          "FirmwareVersion=6.2.2", "TemplatesVersion=3.1.0",
                          "[HKEY_LOCAL_MACHINE/Software/TARN SYSTEMS LTD/TGx Connect]",
                          "Path=" + scratch + "/installation/tgxconnect/"}));
    wxArrayString five, out, err;  // the boiler house example with a fifth device
    ReadTextLines(wxString(TGX_SOURCE_DIR) + "/docs/examples/boiler_house.prj", five);
    five[five.Index("DEVICE COUNT:4")] = "DEVICE COUNT:5";
    five.Add("FOR DEVICE:4");
    five.Add("TYPE:Generic");
    WriteTextLines(scratch + "/five.prj", five);
    wxExecuteEnv env;
    wxGetEnvMap(&env.env);
    env.env["TGX_REGISTRY"] = scratch + "/registry.ini";
    env.env["TGX_DOCUMENTS"] = scratch + "/Documents";
    env.env["TGXSIM_HOME"] = scratch + "/gw";
    env.env["PATH"] = wxString(TGX_SIMULATOR_BIN) + wxPATH_SEP + env.env["PATH"];
    env.cwd = scratch;
    auto run = [&](const wxString& command) {
        out.clear();
        err.clear();
        const wxString program = command.StartsWith("tgxsim") ? wxString(TGX_SIMULATOR_BIN) + "/" : wxString();
        return wxExecute(program + command, out, err, wxEXEC_SYNC | wxEXEC_NODISABLE, &env);
    };
    const wxString tgxcfg = wxString("\"") + TGX_CLI_BINARY + "\" --software-path=" + scratch + "/installation ";
    auto gateway = [&](const char* file) {
        wxArrayString lines;
        ReadTextLines(scratch + "/gw/" + file, lines);
        return lines;
    };
    ASSERT_EQ(run(tgxcfg + "configure five.prj --target=127.0.0.1 --yes"), 0) << wxJoin(err, '\n');
    const wxArrayString configured = gateway("TG7/tgxconfig.prj");
    run("tgxsim set firmware 6.1.0");

    EXPECT_EQ(run(tgxcfg + "update-firmware --target=127.0.0.1"), 1);  // the question answered No
    EXPECT_EQ(out.Last(), "Are you sure you want to continue No");
    EXPECT_EQ(run(tgxcfg + "update-firmware --target=127.0.0.1:2222 --yes"), 0) << wxJoin(err, '\n');
    EXPECT_EQ(out.Last(), "the 'Upload Installation files' under the 'target' menu.");
    EXPECT_NE(gateway("settings.ini").Index("firmware=6.2.2"), wxNOT_FOUND);
    EXPECT_EQ(gateway("TG7/tgxconfig.prj"), configured);  // rebuilt from its own project
    EXPECT_TRUE(gateway("boot.log").Last().EndsWith("TT_SSH_PORT=2222\toptions=-s=60 -w -a=5"));
    EXPECT_EQ(run(tgxcfg + "fetch --target=127.0.0.1 backup.prj"), 0) << wxJoin(err, '\n');
    EXPECT_TRUE(wxFileExists(scratch + "/backup.mbd"));
    wxArrayString backup;
    ReadTextLines(scratch + "/backup.prj", backup);
    EXPECT_EQ(backup, configured);
    EXPECT_EQ(run(tgxcfg + "upload-installers --target=127.0.0.1 --yes"), 0) << wxJoin(err, '\n');
    for (const char* file : {"index.html", "downloads/TG7UserGuide.pdf", "downloads/mbEditUserGuide.pdf",
                             "downloads/TGxSoftwareSuite.msi", "downloads/TGxConnect.msi"})
        EXPECT_TRUE(wxFileExists(scratch + "/gw/root/var/www/html/" + file)) << file;

    // A gateway without a project is migrated from the default project.
    run("tgxsim reset");
    EXPECT_EQ(run(tgxcfg + "update-firmware --target=127.0.0.1 --yes"), 0) << wxJoin(err, '\n');
    EXPECT_NE(gateway("TG7/tgxconfig.prj").Index("TGX TAGNAME:Unnamed"), wxNOT_FOUND);
    EXPECT_TRUE(gateway("boot.log").Last().EndsWith("-a=0"));

    run("tgxsim fault add ttreboot exit=1");
    EXPECT_EQ(run(tgxcfg + "reboot --target=127.0.0.1"), 1);
    EXPECT_TRUE(wxJoin(out, '|').EndsWith("ERROR : Failed to reboot TG7|Done"));
    wxSetWorkingDirectory(wxFileName::GetTempDir());
    wxFileName::Rmdir(scratch, wxPATH_RMDIR_RECURSIVE);
}
