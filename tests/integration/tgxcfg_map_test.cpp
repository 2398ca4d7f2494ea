// tgxcfg's map and gateway maintenance commands as a script runs them: the built program, the
// sample installation, the example projects and the gateway simulator on PATH.
#include "project/text_file.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/utils.h>

#include <vector>

namespace {

const char* const kRosemountPv = "HOLDING,1022,4,FLOAT,L0D1:PV,Pressure,2";  // device 1, its words swapped

struct CliRun { long status = -1; wxArrayString out, err; };

class TgxcfgGateway : public ::testing::Test {
protected:
    void SetUp() override
    {
        scratch = wxFileName::CreateTempFileName(wxFileName::GetTempDir() + "/tgxcfggw");
        wxRemoveFile(scratch);
        CopyTree(wxString(TGX_SOURCE_DIR) + "/simulator/installation", scratch + "/installation");
        CopyTree(wxString(TGX_SOURCE_DIR) + "/docs/examples", scratch);
        wxFileName::Mkdir(scratch + "/gateway/TG7", wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
        WriteTextLines(scratch + "/registry.ini", Lines({"[HKEY_CURRENT_USER/Software/TARN SYSTEMS LTD/TGx Software Suite]",
            "Version=6.2.2", "FirmwareVersion=6.2.2", "TemplatesVersion=3.1.0",
            "[HKEY_LOCAL_MACHINE/Software/TARN SYSTEMS LTD/TGx Connect]", "Path=" + scratch + "/installation/tgxconnect/"}));
        wxGetEnvMap(&env.env);
        env.env["TGX_REGISTRY"] = scratch + "/registry.ini";
        env.env["TGX_DOCUMENTS"] = scratch + "/Documents";
        env.env["TGXSIM_HOME"] = scratch + "/gateway";
        env.env["PATH"] = wxString(TGX_SIMULATOR_BIN) + wxPATH_SEP + env.env["PATH"];
        env.cwd = scratch;
    }
    void TearDown() override { wxFileName::Rmdir(scratch, wxPATH_RMDIR_RECURSIVE); }

    CliRun Run(const std::vector<wxString>& args) const
    {
        wxString command = "\"" TGX_CLI_BINARY "\" \"--software-path=" + scratch + "/installation\"";
        for (const wxString& arg : args)
            command << " \"" << arg << "\"";
        CliRun run;
        run.status = wxExecute(command, run.out, run.err, wxEXEC_SYNC | wxEXEC_NODISABLE, &env);
        return run;
    }
    void Simulator(const wxString& admin) const { EXPECT_EQ(wxExecute(TGX_SIMULATOR_BIN "/tgxsim " + admin, wxEXEC_SYNC, nullptr, &env), 0); }
    wxArrayString Read(const wxString& file) const { wxArrayString l; return ReadTextLines(scratch + "/" + file, l) ? l : Lines({"(missing)"}); }
    void Write(const wxString& file, std::initializer_list<const char*> lines) const { WriteTextLines(scratch + "/" + file, Lines(lines)); }

    wxString scratch;
    wxExecuteEnv env;
};

}  // namespace

TEST_F(TgxcfgGateway, MapCommandsRunTheirChainAndEndWithTheirStatus)
{
    // A project with no map file beside it (nor itself): reported, and the empty map saved all the same.
    EXPECT_EQ(Run({"import-map", "boiler_house.prj", "--from-project=nomap.prj"}).status, 1);
    EXPECT_EQ(Read("boiler_house.mbd"), Lines({}));

    // Without the gateway's map file the map it runs is printed.
    Write("gateway/TG7/MBMAP1.csv", {"HOLDING,7,0,UINT16,RUNNING,Running map,1"});
    Write("gateway/faults.txt", {"ttgetfile match=TG7/MBMAP1.csv exit=1"});
    EXPECT_EQ(Run({"import-map", "boiler_house.prj", "--from-target=127.0.0.1:2222"}).status, 0);
    Write("gateway/mbedit.txt", {"add HOLDING,8,0,UINT16,ADDED,Added,1"});
    EXPECT_EQ(Run({"edit-map", "boiler_house.prj"}).status, 0);
    const wxArrayString edited = Lines({"HOLDING,7,0,UINT16,RUNNING,Running map,1", "HOLDING,8,0,UINT16,ADDED,Added,1"});
    EXPECT_EQ(Read("boiler_house.mbd"), edited);

    // A failed build stops the editor's chain without a word of its own (the chain's messages: the unit test's).
    Write("gateway/faults.txt", {"ttbuild exit=3 fails=1"});
    EXPECT_EQ(Run({"edit-map", "boiler_house.prj"}).status, 1);
    EXPECT_EQ(Read("boiler_house.mbd"), edited);

    EXPECT_EQ(Run({"map-mode", "boiler_house.prj", "automatic", "--yes"}).status, 0);
    const wxArrayString generated = Read("boiler_house.mbd");  // from the templates of its four devices
    EXPECT_TRUE(generated.Index("HOLDING,1,0,UINT16,SYS:STATUS,Gateway status,1") == 0 && generated.Index(kRosemountPv) > 0);
}

TEST_F(TgxcfgGateway, FirmwareUpdateInstallersFetchAndReboot)
{
    ASSERT_EQ(Run({"configure", "boiler_house.prj", "--target=127.0.0.1", "--yes"}).status, 0);
    const wxArrayString configured = Read("gateway/TG7/tgxconfig.prj");
    Simulator("set firmware 6.1.0");

    EXPECT_EQ(Run({"update-firmware", "--target=127.0.0.1:2222", "--yes"}).status, 0);
    EXPECT_NE(Read("gateway/settings.ini").Index("firmware=6.2.2"), wxNOT_FOUND);
    EXPECT_EQ(Read("gateway/TG7/tgxconfig.prj"), configured);  // rebuilt from its own project
    EXPECT_TRUE(Read("gateway/boot.log").Last().EndsWith("TT_SSH_PORT=2222\toptions=-s=60 -w -a=4"));
    EXPECT_EQ(Run({"fetch", "--target=127.0.0.1", "backup.prj"}).status, 0);
    EXPECT_TRUE(Read("backup.prj") == configured && wxFileExists(scratch + "/backup.mbd"));
    EXPECT_EQ(Run({"upload-installers", "--target=127.0.0.1", "--yes"}).status, 0);
    for (const char* file : {"index.html", "downloads/TG7UserGuide.pdf", "downloads/mbEditUserGuide.pdf",
                             "downloads/TGxSoftwareSuite.msi", "downloads/TGxConnect.msi"})
        EXPECT_TRUE(wxFileExists(scratch + "/gateway/root/var/www/html/" + file)) << file;

    // A gateway without a project is migrated from the default project.
    Simulator("reset");
    EXPECT_EQ(Run({"update-firmware", "--target=127.0.0.1", "--yes"}).status, 0);
    EXPECT_NE(Read("gateway/TG7/tgxconfig.prj").Index("TGX TAGNAME:Unnamed"), wxNOT_FOUND);
    EXPECT_TRUE(Read("gateway/boot.log").Last().EndsWith("-a=0"));

    Write("gateway/faults.txt", {"ttreboot exit=1"});
    const CliRun run = Run({"reboot", "--target=127.0.0.1"});
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(wxJoin(run.out, '|').EndsWith("ERROR : Failed to reboot TG7|Done"));
}
