// tgxcfg as a script runs it: the built program, a copy of the sample installation named by a
// registry file, the example projects, and the gateway simulator first on PATH. The workflows'
// own messages and files are unit-tested, their failures in the fault matrix; here what the
// console adds: arguments, streams, status.
#include "tgxcfg_fixture.h"

#include <nlohmann/json.hpp>

namespace {

class Tgxcfg : public TgxcfgScratch {};

}  // namespace

TEST_F(Tgxcfg, WrongUsageExitsWithTwoAndHelpAndVersionGoToStandardOutput)
{
    const char* const kBadTarget = "tgxcfg: --target must be HOST or HOST:PORT; the host may hold no blank, quote or "
                                   "control character and may not start with '-'";
    const struct {
        std::vector<wxString> args;
        long status;
        const char* first;  // the first line on standard error (status 2) or output (status 0)
    } cases[] = {
        {{}, 2, "tgxcfg: no command given"},
        {{"frobnicate", "boiler_house.prj"}, 2, "tgxcfg: unknown command 'frobnicate'"},
        {{"show"}, 2, "tgxcfg: missing PROJECT"},
        {{"show", "a.prj", "b.prj"}, 2, "tgxcfg: unexpected argument 'b.prj'"},
        {{"show", "boiler_house.prj", "--yes"}, 2, "tgxcfg: unrecognised option '--yes'"},
        {{"generate", "boiler_house.prj", "--no-build=1"}, 2, "tgxcfg: option '--no-build' takes no value"},
        {{"show", "boiler_house.prj", "--software-path"}, 2, "tgxcfg: option '--software-path' needs a value"},
        {{"configure", "boiler_house.prj", "--yes"}, 2, "tgxcfg: configure needs --target=HOST[:PORT]"},
        {{"info", "--format=json"}, 2, "tgxcfg: info needs --target=HOST[:PORT]"},
        {{"resave", "boiler_house.prj", "copy.mbd"}, 2, "tgxcfg: NEW.prj cannot be a map file (.mbd)"},
        // Text that would reach the suite's tools as more than one argument, or as an option.
        {{"configure", "boiler_house.prj", "--target=h\" -oProxyCommand=x \"y"}, 2, kBadTarget},
        {{"reboot", "--target=-oProxyCommand=x"}, 2, kBadTarget},
        {{"fetch", "--target=127.0.0.1:22;touch x", "x.prj"}, 2, "tgxcfg: the PORT of --target must be a number from 1 to 65535"},
        {{"import-map", "boiler_house.prj", "--from-target=h:65536"}, 2, "tgxcfg: the PORT of --from-target must be a number from 1 to 65535"},
        {{"vcp", "--port=772 -d"}, 2, "tgxcfg: --port must be a number from 1 to 65535"},
        {{"vcp", "--address=-d"}, 2, "tgxcfg: --address may hold no blank, quote or control character and may not start with '-'"},
        {{"--help"}, 0, "Usage: tgxcfg [--software-path=DIR] COMMAND [ARGUMENTS]"},
        {{"configure", "--help"}, 0,
            "Usage: tgxcfg [--software-path=DIR] configure PROJECT --target=HOST[:PORT] [--tag=TAG] [--yes]"},
        {{"--version"}, 0, "tgxcfg 6.2.2"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.first);
        const CliRun run = Run(c.args);
        EXPECT_EQ(run.status, c.status);
        const wxArrayString& shown = c.status == 0 ? run.out : run.err;
        EXPECT_TRUE((c.status == 0 ? run.err : run.out).empty());
        ASSERT_FALSE(shown.empty());
        EXPECT_EQ(shown[0], c.first);
        EXPECT_TRUE(c.status == 0 || (shown.size() == 3 && shown[1].StartsWith("Usage: tgxcfg [--software-path=DIR] ")
                                         && shown[2].StartsWith("Try 'tgxcfg "))) << wxJoin(shown, '|');
    }
}

TEST_F(Tgxcfg, AnInstallationItCannotReadEndsWithTheStartUpMessage)
{
    CliRun run;
#ifndef __WINDOWS__
    // The registry file stands in for the registry on POSIX only; Windows reads the real one.
    registry = dir.path + "/no-such-registry.ini";
    run = Run({"show", "boiler_house.prj"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, Lines({"Cannot locate registry entries required by this program", "",
                           "This program cannot continue and will now terminate"}));
#endif
    // A software folder given without its separator is taken as the folder, not as a prefix.
    EXPECT_EQ(Run({"--software-path=installation", "show", "boiler_house.prj"}).status, 0);
}

// The line formats are unit-tested; here the sections around them.
TEST_F(Tgxcfg, ShowPrintsTheSettingsAndTheListsInSections)
{
    const CliRun run = Run({"show", "boiler_house.prj"});
    EXPECT_EQ(run.status, 0);
    ASSERT_EQ(run.out.size(), 47u);
    const struct {
        size_t index;
        const char* line;
    } expected[] = {{0, "[settings]"}, {1, "TGX TAGNAME:BOILER1"}, {26, "DEVICE COUNT:4"}, {27, "[devices]"},
        {31, "#03 [05] TT-104 Stack temperature : EHTMT82  [DISABLED]"}, {32, "[commands of device 0]"},
        {35, "CMD 009:01,02,03,04 - CYCLICAL READ 10   "}, {44, "[commands of device 3]"}};
    for (const auto& e : expected)
        EXPECT_EQ(run.out[e.index], e.line) << e.index;
}

TEST_F(Tgxcfg, ShowCheckExportAndGenerateNeverWriteTheProject)
{
    const std::string before = ReadBytes(dir.path + "/legacy_plant.prj");
    for (const std::vector<wxString>& args : std::vector<std::vector<wxString>>{{"show", "legacy_plant.prj"},
             {"check", "legacy_plant.prj"}, {"export-map", "legacy_plant.prj", "map.csv"},
             {"generate", "legacy_plant.prj", "--no-build"}}) {
        SCOPED_TRACE(args[0]);
        Run(args);
        EXPECT_EQ(ReadBytes(dir.path + "/legacy_plant.prj"), before);
        EXPECT_FALSE(wxFileExists(dir.path + "/legacy_plant.mbd"));
    }
}

TEST_F(Tgxcfg, ResaveWritesOldAndDamagedProjectsInTheCurrentFormat)
{
    const wxString golden = wxString(TGX_SOURCE_DIR) + "/tests/golden/tgxcfg/";
    wxCopyFile(golden + "damaged.prj", dir.path + "/damaged.prj");
    const struct {
        std::vector<wxString> args;
        const char* saved;
        const char* expected;
    } cases[] = {{{"resave", "legacy_plant.prj"}, "legacy_plant.prj", "legacy_plant_resaved.prj"},
        {{"resave", "damaged.prj", "repaired.prj"}, "repaired.prj", "damaged_resaved.prj"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.saved);
        const CliRun run = Run(c.args);
        EXPECT_ALL(run.status == 0, run.err.empty());  // standard output has ttbuild's summary: the map is generated
        EXPECT_EQ(ReadBytes(dir.path + "/" + c.saved), ReadBytes(golden + c.expected));
    }
    // Both are in automatic map mode: the save regenerates the map beside the saved project from
    // the templates, in place of the older ".mb" file's, which stays.
    EXPECT_EQ(Read("legacy_plant.mbd")[0], "HOLDING,1,0,UINT16,SYS:STATUS,Gateway status,1");
    EXPECT_TRUE(wxFileExists(dir.path + "/legacy_plant.mb"));
    EXPECT_EQ(ReadBytes(dir.path + "/damaged.prj"), ReadBytes(golden + "damaged.prj"));
    EXPECT_TRUE(wxFileExists(dir.path + "/repaired.mbd"));
}

// A file that is there but cannot be read is not taken for a missing or an empty one: the command
// says so, ends with status 1, and nothing is saved over what is there.
TEST_F(Tgxcfg, WhatCannotBeReadIsRefusedAndLeftAsItIs)
{
    wxCopyFile(dir.path + "/boiler_house.prj", dir.path + "/large.prj");
    dir.Write("large.mbd", std::string(kMaxTextFileBytes + 1, '\n'));
    dir.Write("notes.prj", "# Notes\nThe boiler house gets a fifth transmitter in May.\n");
    const wxString ctCfg = wxFileName(dir.path + "/installation/tgxtemplates/BUILD/ct.cfg").GetFullPath();
    const struct {
        std::vector<wxString> args;
        const char* file;  // left as it was
        wxString said;
    } cases[] = {
        {{"resave", "missing.prj"}, "missing.prj", "tgxcfg: cannot read missing.prj"},
        {{"resave", "notes.prj"}, "notes.prj", "tgxcfg: notes.prj is not a project file; it is left as it is"},
        {{"resave", "boiler_house.prj", "notes.prj"}, "notes.prj", "tgxcfg: notes.prj is not a project file; it is left as it is"},
        {{"resave", "large.prj"}, "large.mbd", "tgxcfg: cannot read the map file large.mbd"},
        {{OwnInstallation(), "check", "boiler_house.prj"}, "boiler_house.prj", "tgxcfg: cannot read " + ctCfg},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.said);
        if (c.args[0] == OwnInstallation()) {
            wxRemoveFile(ctCfg);
            wxMkdir(ctCfg);
        }
        const std::string before = ReadBytes(dir.path + "/" + c.file);
        const CliRun run = Run(c.args);
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.err, Lines({c.said.utf8_str().data()}));
        EXPECT_EQ(ReadBytes(dir.path + "/" + c.file), before);
    }
}

TEST_F(Tgxcfg, GenerateWritesTheExpectedConfigurationAndBuildsIt)
{
    // The files' exact bytes are the generator's unit tests'; here: written, and ttbuild not run.
    const wxString build = dir.path + "/installation/tgxconfigure";
    CliRun run = Run({OwnInstallation(), "generate", "boiler_house.prj", "--no-build"});
    EXPECT_ALL(run.status == 0, run.out.empty(), run.err.empty());
    EXPECT_TRUE(wxFileExists(build + "/INCLUDE/ct.ini"));
    EXPECT_FALSE(wxFileExists(dir.path + "/gateway/run.log"));

    wxFileName::Rmdir(build + "/INCLUDE", wxPATH_RMDIR_RECURSIVE);
    run = Run({OwnInstallation(), "generate", "boiler_house.prj", "--no-build"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, Lines({"tgxcfg: cannot write into the build folder " + dir.path + "/installation"
                              + wxFILE_SEP_PATH + "tgxconfigure" + wxFILE_SEP_PATH + "INCLUDE"}));
}

TEST_F(Tgxcfg, ExportMapChoosesTheLayoutByTheFileName)
{
    wxCopyFile(dir.path + "/boiler_house.prj", dir.path + "/edges.prj");
    Write("edges.mbd", Lines({" HOLDING , 40001 ,ABCD, FLOAT ,FT101_PV,Feedwater flow, 2 ",
                           "HOLDING,40003,ABCD,FLOAT,PT102_PV,Drum pressure, bar,2",
                           "HOLDING,1,AB,UINT16,A_VERY_LONG_TAG_NAME_X,Desc,1", "COIL,1", "HOLDING,5,AB,FLOAT,T\u00C9,D\u00E9s,2"}));
    wxArrayString csv = Lines({"SECTION,ADDRESS,BYTE_ORDER,TYPE,TAGNANE,DESCRIPTION,REG_COUNT"});
    WX_APPEND_ARRAY(csv, Read("edges.mbd"));
    const wxArrayString table = Lines({"Modbus Register Map", "-------------------", "",
        "SECTION  ADDRESS  TYPE    REG_COUNT  ORDER  TAGNAME               DESCRIPTION",
        "~~~~~~~  ~~~~~~~  ~~~~    ~~~~~~~~~  ~~~~~  ~~~~~~~~~~~~~~~~~~~~  ~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~",
        "HOLDING  40001    FLOAT   2          ABCD   FT101_PV              Feedwater flow",
        // A comma in the description splits it: its second part takes the REG_COUNT column.
        "HOLDING  40003    FLOAT   bar        ABCD   PT102_PV              Drum pressure",
        // Wider than its column: not cut, the rest of the row moves along.
        "HOLDING  1        UINT16  1          AB     A_VERY_LONG_TAG_NAME_X  Desc",
        // The fields a short line lacks are written empty.
        "COIL     1                                                        ",
        // Widths count characters, not bytes.
        "HOLDING  5        FLOAT   2          AB     T\u00C9                    D\u00E9s"});
    const struct {
        const char* file;
        const wxArrayString& lines;
    } cases[] = {{"map.csv", csv}, {"MAP.CSV", csv}, {"map.csv.txt", table}, {"map", table}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        EXPECT_EQ(Run({"export-map", "edges.prj", c.file}).status, 0);
        EXPECT_EQ(Read(c.file), c.lines);
    }
    const CliRun run = Run({"export-map", "edges.prj", "no/such/folder/map.csv"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, Lines({"tgxcfg: cannot write no/such/folder/map.csv"}));
}

TEST_F(Tgxcfg, CheckReportsEachProblemWithItsLine)
{
    Write("faulty.prj", Lines({"TGX TAGNAME:Line 4 North", "MODE:GATEWAY", "VCP PORT NUMBER:0", "MTCP PORT NUMBER:503",
            "DEVICE COUNT:3", "FOR DEVICE:0", "TYPE:Generic", "POLL ADDRESS:64", "ENABLE:1", "HARTCMD:256 1 1 0",
            "HARTCMD:3 0 1 0", "HARTCMD:9 1 1 0", "CMDARGS:1 2 3 4 5 6 7 8 9", "FOR DEVICE:1", "TYPE:Unknown3000",
            "POLL ADDRESS:2", "FOR DEVICE:2", "TYPE:Generic", "POLL ADDRESS:2"}));
    Write("faulty.mbd", Lines({"HOLDING,40001,ABCD,FLOAT,FT101_PV,Flow,2", "HOLDING,40003,ABCD,FLOAT,PV,2"}));
    Write("damaged.prj", Lines({"SERIAL PORT BAUDRATE:19200 ", "MODBUS RTU ADDRESS:abc", "FOR DEVICE:0", "TYPE:Generic",
            "CMDARGS:4", "HARTCMD:3 1 1 0", "CMDARGS:1 x", "FOR DEVICE:16", "HARTCMD:1 1"}));
    wxArrayString tooMany = Lines({"DEVICE COUNT:1", "FOR DEVICE:0", "TYPE:Generic"});
    for (int c = 0; c < 52; ++c)
        tooMany.Add(wxString::Format("HARTCMD:%d 1 1 0", c));
    Write("many.prj", tooMany);
    // Values the tool writes, and keys given again alike: nothing to report.
    Write("limits.prj", Lines({"TGX TAGNAME:Line4Nth", "VCP PORT NUMBER:1", "HARTIPTCP PORT NUMBER:65535",
            "MODE:BRIDGE CLIENT", "SERIAL PORT PARITY:ODD", "SERIAL PORT PARITY:ODD", "SERIAL PORT STOPBITS:2",
            "SERIAL PORT BAUDRATE:115200", "DEVICE COUNT:2", "FOR DEVICE:0", "TYPE:Generic", "POLL ADDRESS:63",
            "ENABLE:3", "HARTCMD:255 1 1 0", "CMDARGS:1 2 3 4 5 6 7 8", "FOR DEVICE:1", "TYPE:Generic",
            "POLL ADDRESS:0", "HARTCMD:0 1 0 1", "FOR DEVICE:1", "HARTCMD:0 1 0 1"}));
    Write("limits.mbd", Lines({"HOLDING,40001,,FLOAT,PV,,2"}));
    Write("mux.prj", Lines({"TGX TAGNAME:MUX1", "MODE:MULTIPLEXOR", "DEVICE COUNT:2", "FOR DEVICE:0", "TYPE:KFD2",
            "POLL ADDRESS:99", "LONG ADDRESS:0000000000", "FOR DEVICE:1", "TYPE:Generic", "POLL ADDRESS:99",
            "LONG ADDRESS:12345"}));
    Write("twice.prj", Lines({"MODE:GATEWAY", "MODE:MULTIPLEXOR", "DEVICE COUNT:2", "FOR DEVICE:0", "TYPE:Generic",
            "POLL ADDRESS:1", "HARTCMD:9 1 1 0", "CMDARGS:1 2", "CMDARGS:1 2 3", "POLL ADDRESS:2", "MODE:GATEWAY",
            "DEVICE COUNT:1"}));
    Write("blocks.prj", Lines({"DEVICE COUNT:1", "FOR DEVICE:0", "TYPE:Generic", "HARTCMD:9 1 1 0", "CMDARGS:1 2",
            "FOR DEVICE:0", "HARTCMD:3 1 1 0"}));
    Write("ranges.prj", Lines({"MODE:BRIDGE", "SERIAL PORT BAUDRATE:1200", "AUTOMATIC MODBUS MAP:7", "DEVICE COUNT:1",
            "FOR DEVICE:0", "TYPE:Generic", "ENABLE:4", "HARTCMD:3 1 2 5"}));
    Write("words.prj", Lines({"Dear engineer,", "the gateway is in the cabinet."}));
    Write("binary.prj", Lines({"PK\x03\x04MODE:GATEWAY"}));
    const struct {
        const char* project;
        wxArrayString problems;
    } cases[] = {
        {"faulty.prj", Lines({"faulty.prj: INTERCOM PORT NUMBER 503 is already used by MTCP PORT NUMBER",
            "faulty.prj:1: tag name \"Line_4_North\" has characters other than letters and digits",
            "faulty.prj:1: tag name \"Line_4_North\" is longer than 8 characters: Configure keeps \"Line_4_N\"",
            "faulty.prj:3: VCP PORT NUMBER 0 is outside 1..65535",
            "faulty.prj:8: device 0: poll address 64 is outside 0..63",
            "faulty.prj:10: device 0 command 0: command number 256 is outside 0..255",
            "faulty.prj:11: device 0 command 1: cycle interval 0 is below 1",
            "faulty.prj:13: device 0 command 2: 9 arguments: only the first 8 are kept",
            "faulty.prj:15: device 1: device type \"Unknown3000\" is not in ct.cfg",
            "faulty.prj:19: device 2: poll address 2 is already used by device 1",
            "faulty.mbd:2: map line 2: 6 fields instead of 7"})},
        // Loading passes over all of these without a word.
        {"damaged.prj", Lines({"damaged.prj: DEVICE COUNT is missing: none of the 1 device blocks is loaded",
            "damaged.prj:1: SERIAL PORT BAUDRATE value \"19200 \" is not a whole number: it is not loaded",
            "damaged.prj:2: MODBUS RTU ADDRESS value \"abc\" is not a whole number: it is not loaded",
            "damaged.prj:5: CMDARGS before any HARTCMD of its device: ignored",
            "damaged.prj:7: CMDARGS value \"x\" is not a whole number: 0 is loaded",
            "damaged.prj:8: device 16 is outside 0..15: its lines are ignored"})},
        {"many.prj", Lines({"many.prj:54: device 0 has more than 50 commands: this and later ones are ignored"})},
        // The multiplexer reaches its devices by long address: poll addresses do not matter there.
        {"mux.prj", Lines({"mux.prj:11: device 1: long address \"12345\" is not 10 characters"})},
        // The reader takes the last line of a key without a word.
        {"twice.prj", Lines({"twice.prj:2: MODE given again on line 11 with another value: line 11 wins",
            "twice.prj:3: DEVICE COUNT given again on line 12 with another value: line 12 wins",
            "twice.prj:6: device 0: POLL ADDRESS given again on line 10 with another value: line 10 wins",
            "twice.prj:8: device 0 command 0: CMDARGS given again on line 9 with another value: line 9 wins"})},
        {"blocks.prj", Lines({"blocks.prj:2: FOR DEVICE 0 given again on line 6: this block's commands are dropped",
            "blocks.prj:7: device 0 command 0: has no CMDARGS but is loaded with those of line 5, "
            "from an earlier block"})},
        {"ranges.prj", Lines({"ranges.prj:1: MODE \"BRIDGE\" is not GATEWAY, MULTIPLEXOR, BRIDGE SERVER or "
            "BRIDGE CLIENT", "ranges.prj:2: SERIAL PORT BAUDRATE 1200 is not 4800, 9600, 19200, 38400, 57600, 76800 "
            "or 115200", "ranges.prj:3: AUTOMATIC MODBUS MAP 7 is not 0 or 1",
            "ranges.prj:7: device 0: enable value 4 is outside 0..3",
            "ranges.prj:8: device 0 command 0: polling flag 2 is not 0 or 1",
            "ranges.prj:8: device 0 command 0: write flag 5 is not 0 or 1"})},
        {"words.prj", Lines({"words.prj:1: not a project file: no line holds a known setting"})},
        {"binary.prj", Lines({"binary.prj:1: not a project file: binary content"})},
        {"limits.prj", {}}, {"boiler_house.prj", {}}, {"tank_farm_mux.prj", {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.project);
        const CliRun run = Run({"check", c.project});
        EXPECT_EQ(run.status, c.problems.empty() ? 0 : 1);
        EXPECT_EQ(run.out, c.problems);
        EXPECT_TRUE(run.err.empty());
    }
}

// The progress texts are the unit tests'; here the console's prompts, its streams and its status.
TEST_F(Tgxcfg, ConfigureRunsTheSimulatedGatewayWithTheConsoleAnswering)
{
    CliRun run = Run({OwnInstallation(), "configure", "boiler_house.prj", "--target=127.0.0.1:2222", "--tag=BOILER2"});
    EXPECT_ALL(run.status == 0, run.err.empty());
    ASSERT_GE(run.out.size(), 3u);
    EXPECT_EQ(Lines({run.out[0], run.out[1], run.out.Last()}), Lines({"Enter device IP address or domain name: "
        "127.0.0.1:2222", "Enter a Tagname for this TG7: BOILER2", "Configuration Complete"}));
    // Saved before the upload, with the tag given: the gateway holds what the disk holds.
    EXPECT_EQ(Read("boiler_house.prj")[2], "TGX TAGNAME:BOILER2");
    EXPECT_EQ(Read("gateway/TG7/tgxconfig.prj"), Read("boiler_house.prj"));
    EXPECT_EQ(Read("gateway/TG7/MBMAP1.csv"), Read("boiler_house.mbd"));
}

TEST_F(Tgxcfg, ConfigureQuestionsAreAnsweredYesOnlyWhenAsked)
{
    // The multiplexer example has an empty map: Configure asks whether to go on without one.
    CliRun run = Run({OwnInstallation(), "configure", "tank_farm_mux.prj", "--target=127.0.0.1"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, Lines({"WARNING : There is no Modbus Map configured for this project",
                           "You can create or edit a map using the Modbus menu", "",
                           "Do you wish to continue without a map ? No"}));
    EXPECT_EQ(run.err, Lines({"tgxcfg: stopped at a question answered No; give --yes to answer Yes"}));
    EXPECT_FALSE(wxFileExists(dir.path + "/gateway/run.log"));

    run = Run({OwnInstallation(), "configure", "tank_farm_mux.prj", "--target=127.0.0.1", "--yes"});
    EXPECT_EQ(run.status, 0);
    ASSERT_GE(run.out.size(), 4u);
    EXPECT_EQ(run.out[3], "Do you wish to continue without a map ? Yes");

    // The tag prompt takes letters and digits only, as its dialog does.
    run = Run({OwnInstallation(), "configure", "boiler_house.prj", "--target=127.0.0.1", "--tag=Line-4"});
    EXPECT_EQ(run.status, 1);
    ASSERT_EQ(run.err.size(), 1u);
    EXPECT_TRUE(run.err[0].StartsWith("tgxcfg: \"Line-4\" cannot be entered at \"Enter a Tagname for this TG7\""));
}

TEST_F(Tgxcfg, DiffReportsExactlyTheEditSinceTheLastConfigure)
{
    const auto json = [](const CliRun& run) { return nlohmann::json::parse(wxJoin(run.out, '\n').utf8_string()); };
    const wxString own = OwnInstallation();
    const std::vector<wxString> diff = {own, "diff", "boiler_house.prj", "--target=127.0.0.1"},
        configure = {own, "configure", "boiler_house.prj", "--target=127.0.0.1", "--yes"},
        diffJson = {own, "diff", "boiler_house.prj", "--target=127.0.0.1", "--format=json"};
    CliRun run = Run(diff);  // nothing configured yet
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, Lines({"Failed to obtain configuration from TG7."}));
    ASSERT_EQ(Run(configure).status, 0);
    EXPECT_EQ(Run(diff).out, wxArrayString());

    wxArrayString lines = Read("boiler_house.prj");
    lines[lines.Index("SERIAL PORT BAUDRATE:19200")] = "SERIAL PORT BAUDRATE:9600";
    Write("boiler_house.prj", lines);
    run = Run(diff);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, Lines({"SERIAL PORT BAUDRATE: 9600 -> 19200"}));
    EXPECT_EQ(json(Run(diffJson)), nlohmann::json::parse(R"({"same": false, "differences": [{"kind": "setting",
        "change": "changed", "subject": "SERIAL PORT BAUDRATE", "before": "9600", "after": "19200"}]})"));
    ASSERT_EQ(Run(configure).status, 0);
    run = Run(diffJson);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(json(run)["same"], true);

    // In automatic map mode the map sent is the one generated from the templates, whatever the map
    // file beside the project holds; its tools print nothing into the document.
    const std::vector<wxString> mux = {own, "configure", "tank_farm_mux.prj", "--target=127.0.0.2", "--yes"};
    ASSERT_EQ(Run(mux).status, 0);
    Write("tank_farm_mux.mbd", {});
    run = Run({own, "diff", "tank_farm_mux.prj", "--target=127.0.0.2", "--format=json"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(json(run)["same"], true);
    EXPECT_EQ(Read("tank_farm_mux.mbd"), wxArrayString());

    // The other two documents, in their documented shapes.
    const auto shown = json(Run({"show", "boiler_house.prj", "--format=json"}));
    EXPECT_EQ(shown["settings"]["SERIAL PORT BAUDRATE"], "9600");
    EXPECT_EQ(shown["devices"][2]["commands"][2], nlohmann::json::parse(R"({"number": 35, "interval": 1,
        "polled": true, "writeOnTrigger": true, "arguments": [0, 12]})"));
    EXPECT_EQ(shown["map"].size(), 5u);
    lines.Add("FOR DEVICE:16");
    Write("boiler_house.prj", lines);
    EXPECT_EQ(json(Run({"check", "boiler_house.prj", "--format=json"})),
        nlohmann::json::parse(R"({"problems": [{"file": "boiler_house.prj", "line": )" + std::to_string(lines.size())
            + R"(, "message": "device 16 is outside 0..15: its lines are ignored"}]})"));
}
