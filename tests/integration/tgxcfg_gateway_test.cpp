// tgxcfg's map, gateway maintenance, remote COM port and multiplexer commands as a script runs
// them on the gateway simulator, when they succeed (their failures are the fault matrix's).
#include "tgxcfg_fixture.h"

#include <nlohmann/json.hpp>

namespace {

const char* const kRosemountPv = "HOLDING,1022,4,FLOAT,L0D1:PV,Pressure,2";  // device 1, its words swapped

class TgxcfgGateway : public TgxcfgScratch {
protected:
    TgxcfgGateway() { installationOption = OwnInstallation(); }
    // tgxcfg's standard output, its status checked.
    wxArrayString Cli(const std::vector<wxString>& args, long expected = 0)
    {
        const CliRun run = Run(args);
        EXPECT_EQ(run.status, expected) << wxJoin(run.err, '\n');
        return run.out;
    }
};

}  // namespace

TEST_F(TgxcfgGateway, MapCommandsRunTheirChainAndEndWithTheirStatus)
{
    // A project with no map file beside it (nor itself): reported, and the open map kept.
    const wxArrayString before = Read("boiler_house.mbd");
    EXPECT_EQ(Run({"import-map", "boiler_house.prj", "--from-project=nomap.prj"}).status, 1);
    EXPECT_EQ(Read("boiler_house.mbd"), before);

    // Without the gateway's map file the map it runs is printed.
    Write("gateway/TG7/MBMAP1.csv", Lines({"HOLDING,7,0,UINT16,RUNNING,Running map,1"}));
    Write("gateway/faults.txt", Lines({"ttgetfile match=TG7/MBMAP1.csv exit=1"}));
    EXPECT_EQ(Run({"import-map", "boiler_house.prj", "--from-target=127.0.0.1:2222"}).status, 0);
    Write("gateway/mbedit.txt", Lines({"add HOLDING,8,0,UINT16,ADDED,Added,1"}));
    EXPECT_EQ(Run({"edit-map", "boiler_house.prj"}).status, 0);
    const wxArrayString edited = Lines({"HOLDING,7,0,UINT16,RUNNING,Running map,1", "HOLDING,8,0,UINT16,ADDED,Added,1"});
    EXPECT_EQ(Read("boiler_house.mbd"), edited);

    EXPECT_EQ(Run({"map-mode", "boiler_house.prj", "automatic", "--yes"}).status, 0);
    const wxArrayString generated = Read("boiler_house.mbd");  // from the templates of its four devices
    EXPECT_ALL(generated.Index("HOLDING,1,0,UINT16,SYS:STATUS,Gateway status,1") == 0, generated.Index(kRosemountPv) > 0);
}

TEST_F(TgxcfgGateway, FirmwareUpdateInstallersFetchAndReboot)
{
    ASSERT_EQ(Run({"configure", "boiler_house.prj", "--target=127.0.0.1", "--yes"}).status, 0);
    const wxArrayString configured = Read("gateway/TG7/tgxconfig.prj");
    Sim("set firmware 6.1.0");
    // What the gateway runs, beside what the installation is built for.
    const CliRun info = Run({"info", "--target=127.0.0.1", "--format=json"});
    ASSERT_EQ(info.status, 0);
    const auto facts = nlohmann::json::parse(wxJoin(info.out, '\n').utf8_string());
    EXPECT_EQ(facts["firmware"], "6.1.0");
    EXPECT_EQ(facts["installation"], nlohmann::json::parse(R"({"firmware": "6.2.2", "templates": "3.1.0"})"));
    EXPECT_EQ(facts["firmwareMatches"], false);
    EXPECT_EQ(facts["project"]["tagName"], "BOILER1");
    EXPECT_EQ(facts["project"]["devices"][3]["pollAddress"], 5);
    EXPECT_EQ(facts["project"]["mapLines"], 5);

    EXPECT_EQ(Run({"update-firmware", "--target=127.0.0.1:2222", "--yes"}).status, 0);
    EXPECT_NE(Read("gateway/settings.ini").Index("firmware=6.2.2"), wxNOT_FOUND);
    EXPECT_EQ(Read("gateway/TG7/tgxconfig.prj"), configured);  // rebuilt from its own project
    EXPECT_TRUE(Read("gateway/boot.log").Last().EndsWith("TT_SSH_PORT=2222\toptions=-s=60 -w -a=4"));
    EXPECT_EQ(Run({"fetch", "--target=127.0.0.1", "backup.prj"}).status, 0);
    EXPECT_ALL(Read("backup.prj") == configured, Read("backup.mbd") == Read("gateway/TG7/MBMAP1.csv"));
    const CliRun upload = Run({"upload-installers", "--target=127.0.0.1", "--yes"});
    // The question's spelling is the one users have always read; the installers go with -c.
    EXPECT_ALL(upload.status == 0, upload.out.Index("This proceedure is not recomended if you are connected over a WAN") != wxNOT_FOUND);
    EXPECT_TRUE(Read("gateway/run.log").Last().EndsWith(" /var/www/html/downloads/TGxConnect.msi -c"));
    for (const char* file : {"index.html", "downloads/TG7UserGuide.pdf", "downloads/mbEditUserGuide.pdf",
                             "downloads/TGxSoftwareSuite.msi", "downloads/TGxConnect.msi"})
        EXPECT_TRUE(wxFileExists(dir.path + "/gateway/root/var/www/html/" + file)) << file;

    // A gateway without a project is migrated from the default project.
    Sim("reset");
    EXPECT_EQ(Run({"info", "--target=127.0.0.1"}).out.Last(), "Project: none (Failed to obtain configuration from TG7.)");
    EXPECT_EQ(Run({"update-firmware", "--target=127.0.0.1", "--yes"}).status, 0);
    EXPECT_NE(Read("gateway/TG7/tgxconfig.prj").Index("TGX TAGNAME:Unnamed"), wxNOT_FOUND);
    EXPECT_TRUE(Read("gateway/boot.log").Last().EndsWith("-a=0"));
}

// The remote port, the scan and the loop rebuild end to end.
TEST_F(TgxcfgGateway, RemotePortScanAddAndRebuild)
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
