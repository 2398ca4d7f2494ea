// tgxcfg's map commands as a script runs them: the built program, the sample installation, the
// example projects and the gateway simulator on PATH.
#include "project/text_file.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/utils.h>

#include <vector>

namespace {

const char* const kRosemountPv = "HOLDING,1022,4,FLOAT,L0D1:PV,Pressure,2";  // device 1, its words swapped

struct CliRun {
    long status = -1;
    wxArrayString out;
    wxArrayString err;
};

class TgxcfgMap : public ::testing::Test {
protected:
    void SetUp() override
    {
        scratch = wxFileName::CreateTempFileName(wxFileName::GetTempDir() + "/tgxcfgmap");
        wxRemoveFile(scratch);
        CopyTree(wxString(TGX_SOURCE_DIR) + "/simulator/installation", scratch + "/installation");
        CopyTree(wxString(TGX_SOURCE_DIR) + "/docs/examples", scratch);
        wxFileName::Mkdir(scratch + "/gateway/TG7", wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
    }
    void TearDown() override { wxFileName::Rmdir(scratch, wxPATH_RMDIR_RECURSIVE); }

    CliRun Run(const std::vector<wxString>& args) const
    {
        wxExecuteEnv env;
        wxGetEnvMap(&env.env);
        env.env["TGX_DOCUMENTS"] = scratch + "/Documents";
        env.env["TGXSIM_HOME"] = scratch + "/gateway";
        env.env["PATH"] = wxString(TGX_SIMULATOR_BIN) + wxPATH_SEP + env.env["PATH"];
        env.env.erase("DISPLAY");
        env.cwd = scratch;
        wxString command = "\"" TGX_CLI_BINARY "\" \"--software-path=" + scratch + "/installation\"";
        for (const wxString& arg : args)
            command << " \"" << arg << "\"";
        CliRun run;
        run.status = wxExecute(command, run.out, run.err, wxEXEC_SYNC | wxEXEC_NODISABLE, &env);
        return run;
    }
    wxArrayString Read(const wxString& relative) const
    {
        wxArrayString lines;
        return ReadTextLines(scratch + "/" + relative, lines) ? lines : Lines({"(missing)"});
    }
    void Write(const wxString& relative, std::initializer_list<const char*> lines) const
    {
        WriteTextLines(scratch + "/" + relative, Lines(lines));
    }

    wxString scratch;
};

}  // namespace

TEST_F(TgxcfgMap, MapCommandsRunTheirChainAndEndWithTheirStatus)
{
    CliRun run = Run({"map-mode", "boiler_house.prj", "automatic"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, Lines({"Enable Automatic Modbus Map Generation", "",
                              "The user defined modbus map will be lost !! Do you wish to continue ? No"}));
    EXPECT_EQ(Run({"map-mode", "boiler_house.prj", "automatic", "--yes"}).status, 0);
    const wxArrayString generated = Read("boiler_house.mbd");  // from the templates of its four devices
    EXPECT_TRUE(generated[0] == "HOLDING,1,0,UINT16,SYS:STATUS,Gateway status,1" && generated.Index(kRosemountPv) != wxNOT_FOUND);
    EXPECT_EQ(Run({"map-mode", "boiler_house.prj", "user", "--yes"}).status, 0);
    EXPECT_EQ(Read("boiler_house.mbd"), generated);

    Write("other.prj", {"TGX VERSION:6.2.2"});
    run = Run({"import-map", "boiler_house.prj", "--from-project=other.prj"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, Lines({"This project does not have a modbus map associated with it."}));
    EXPECT_EQ(Read("boiler_house.mbd"), Lines({}));  // saved all the same

    // Without the gateway's map file the map it runs is printed.
    Write("gateway/TG7/MBMAP1.csv", {"HOLDING,7,0,UINT16,RUNNING,Running map,1"});
    Write("gateway/faults.txt", {"ttgetfile match=TG7/MBMAP1.csv exit=1"});
    EXPECT_EQ(Run({"import-map", "boiler_house.prj", "--from-target=127.0.0.1:2222"}).status, 0);
    Write("gateway/mbedit.txt", {"add HOLDING,8,0,UINT16,ADDED,Added,1"});
    EXPECT_EQ(Run({"edit-map", "boiler_house.prj"}).status, 0);
    const wxArrayString edited = Lines({"HOLDING,7,0,UINT16,RUNNING,Running map,1", "HOLDING,8,0,UINT16,ADDED,Added,1"});
    EXPECT_EQ(Read("boiler_house.mbd"), edited);

    Write("gateway/faults.txt", {"inifile exit=2"});
    run = Run({"edit-map", "boiler_house.prj"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err.Last(), "Unable to generate _temp.dat file from _temp.ini 2");
    EXPECT_EQ(Read("boiler_house.mbd"), edited);
}
