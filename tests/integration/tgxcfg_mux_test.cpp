// tgxcfg vcp, mux-scan and mux-rebuild as a script runs them, on the gateway simulator: the
// remote port, the scan and the loop rebuild end to end.
#include "tgxcfg_fixture.h"

namespace {

class TgxcfgMux : public TgxcfgScratch {
protected:
    // tgxcfg's standard output, its status checked.
    wxArrayString Cli(const std::vector<wxString>& args, long expected = 0)
    {
        const CliRun run = Run(args);
        EXPECT_EQ(run.status, expected) << wxJoin(run.err, '\n');
        return run.out;
    }
};

}  // namespace

TEST_F(TgxcfgMux, RemotePortScanAddAndRebuild)
{
    Sim("pc-ports COM1");
    Sim("mux add --known 1 0 1000000001 TT101 \"Flow, line 2\"");
    Sim("mux add --known 2 0 1000000002 LT200 Level");
    Sim("mux rebuild-polls 1");

    EXPECT_EQ(Cli({"vcp"}), Lines({"COM Port: COM2", "Target IP address: 192.168.1.250", "Port Number: 772"}));
    Cli({"vcp", "--com=COM5", "--address=10.0.0.9"});
    EXPECT_EQ(Sim("run ttvsp -g"), Lines({"COM5 10.0.0.9:772 up"}));
    Cli({"vcp", "--com=COM1"}, 1);  // the PC's own port is not offered

    // The multiplexer answers only on the third try; the scan's virtual port is gone afterwards.
    Sim("fault add pfmux match=-rdl fails=2");
    const wxArrayString scan = Cli({"mux-scan", "--target=127.0.0.1", "--add=2,0", "kfd2.prj"});
    EXPECT_NE(scan.Index("2\tDevice\tLT200\tLevel\t1000000002"), wxNOT_FOUND);
    EXPECT_TRUE(Sim("run ttvsp -g").empty());
    // The saved project is a multiplexer's that Configure sends.
    Cli({"configure", "kfd2.prj", "--target=127.0.0.1", "--yes"});
    const wxArrayString sent = Read("gateway/TG7/tgxconfig.prj");
    for (const char* line : {"MODE:MULTIPLEXOR", "DEVICE COUNT:2", "LONG ADDRESS:0000000000", "DEVICE NAME:LT200"})
        EXPECT_NE(sent.Index(line), wxNOT_FOUND) << line;

    // A device added on loop 7 appears only after a rebuild of its loop.
    Sim("mux add 7 0 1000000007 PT700 Pressure");
    EXPECT_EQ(Cli({"mux-rebuild", "--target=127.0.0.1", "--loops=1,2"}).Last(), "2\tDevice\tLT200\tLevel\t1000000002");
    const wxArrayString rebuilt = Cli({"mux-rebuild", "--target=127.0.0.1", "--loops=7,8", "--method=first-device"});
    EXPECT_EQ(rebuilt.front(), "Estimated time: 36 Secs");
    EXPECT_EQ(rebuilt.Last(), "3\tDevice\tPT700\tPressure\t1000000007");
}
