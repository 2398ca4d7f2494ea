// tgxcfg vcp, mux-scan and mux-rebuild as a script runs them, on the gateway simulator: the
// remote port, the scan and the loop rebuild end to end.
#include "project/text_file.h"
#include "unit/temp_dir.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/utils.h>

namespace {

class TgxcfgMux : public ::testing::Test {
protected:
    TgxcfgMux()
    {
        CopyTree(wxString(TGX_SOURCE_DIR) + "/simulator/installation", dir.path + "/installation");
        wxGetEnvMap(&env.env);
        env.env["TGX_REGISTRY"] = dir.Write("registry.ini", "[HKEY_CURRENT_USER/Software/TARN SYSTEMS LTD/TGx Software Suite]\n"
                                                            "Version=6.2.2\nFirmwareVersion=6.2.2\nTemplatesVersion=3.1.0\n"
                                                            "Path=" + dir.path + "/installation/\n");
        env.env["TGX_DOCUMENTS"] = dir.path + "/Documents";
        env.env["TGXSIM_HOME"] = dir.path + "/gateway";
        env.env["PATH"] = wxString(TGX_SIMULATOR_BIN) + wxPATH_SEP + env.env["PATH"];
        env.cwd = dir.path;
    }
    // Runs a program of the build (tgxcfg, or tgxsim from the simulator's folder); standard output.
    wxArrayString Run(const wxString& command, long expected = 0)
    {
        wxArrayString out, err;
        EXPECT_EQ(wxExecute(command, out, err, wxEXEC_SYNC | wxEXEC_NODISABLE, &env), expected)
            << command << "\n" << wxJoin(err, '\n');
        return out;
    }
    wxString Cli(const char* args) const { return "\"" TGX_CLI_BINARY "\" " + wxString(args); }
    wxString Sim(const char* args) const { return wxString(TGX_SIMULATOR_BIN) + "/tgxsim " + args; }

    TempDir dir;
    wxExecuteEnv env;
};

}  // namespace

TEST_F(TgxcfgMux, RemotePortScanAddAndRebuild)
{
    Run(Sim("pc-ports COM1"));
    Run(Sim("mux add --known 1 0 1000000001 TT101 \"Flow, line 2\""));
    Run(Sim("mux add --known 2 0 1000000002 LT200 Level"));
    Run(Sim("mux rebuild-polls 1"));

    EXPECT_EQ(Run(Cli("vcp")), Lines({"COM Port: COM2", "Target IP address: 192.168.1.250", "Port Number: 772"}));
    Run(Cli("vcp --com=COM5 --address=10.0.0.9"));
    EXPECT_EQ(Run(Sim("run ttvsp -g")), Lines({"COM5 10.0.0.9:772 up"}));
    Run(Cli("vcp --com=COM1"), 1);  // the PC's own port is not offered

    // The multiplexer answers only on the third try; the scan's virtual port is gone afterwards.
    Run(Sim("fault add pfmux match=-rdl fails=2"));
    const wxArrayString scan = Run(Cli("mux-scan --target=127.0.0.1 --add=2,0 kfd2.prj"));
    EXPECT_NE(scan.Index("2\tDevice\tLT200\tLevel\t1000000002"), wxNOT_FOUND);
    EXPECT_TRUE(Run(Sim("run ttvsp -g")).empty());
    // The saved project is a multiplexer's that Configure sends.
    Run(Cli("configure kfd2.prj --target=127.0.0.1 --yes"));
    wxArrayString sent;
    ASSERT_TRUE(ReadTextLines(dir.path + "/gateway/TG7/tgxconfig.prj", sent));
    for (const char* line : {"MODE:MULTIPLEXOR", "DEVICE COUNT:2", "LONG ADDRESS:0000000000", "DEVICE NAME:LT200"})
        EXPECT_NE(sent.Index(line), wxNOT_FOUND) << line;

    // A device added on loop 7 appears only after a rebuild of its loop.
    Run(Sim("mux add 7 0 1000000007 PT700 Pressure"));
    EXPECT_EQ(Run(Cli("mux-rebuild --target=127.0.0.1 --loops=1,2")).Last(), "2\tDevice\tLT200\tLevel\t1000000002");
    const wxArrayString rebuilt = Run(Cli("mux-rebuild --target=127.0.0.1 --loops=7,8 --method=first-device"));
    EXPECT_EQ(rebuilt.front(), "Estimated time: 36 Secs");
    EXPECT_EQ(rebuilt.Last(), "3\tDevice\tPT700\tPressure\t1000000007");
}
