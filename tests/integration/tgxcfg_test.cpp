// tgxcfg as a script runs it: the built program, a copy of the sample installation named by a
// registry file, the example projects, and the gateway simulator first on PATH.
#include "project/text_file.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/dir.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/utils.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct CliRun {
    long status = -1;
    wxArrayString out;
    wxArrayString err;
};

class Tgxcfg : public ::testing::Test {
protected:
    void SetUp() override
    {
        scratch = wxFileName::CreateTempFileName(wxFileName::GetTempDir() + "/tgxcfg");
        wxRemoveFile(scratch);
        CopyTree(wxString(TGX_SOURCE_DIR) + "/simulator/installation", scratch + "/installation");
        CopyTree(wxString(TGX_SOURCE_DIR) + "/docs/examples", scratch);
        registry = scratch + "/registry.ini";
        Write("registry.ini",
            {"[HKEY_CURRENT_USER/Software/TARN SYSTEMS LTD/TGx Software Suite]", "Path=" + scratch + "/installation/",
                "Version=6.2.2", "FirmwareVersion=6.2.2", "TemplatesVersion=3.1.0"});
    }
    void TearDown() override { wxFileName::Rmdir(scratch, wxPATH_RMDIR_RECURSIVE); }

    // Runs the program in the scratch folder, with standard output and error kept apart.
    CliRun Run(const std::vector<wxString>& args) const
    {
        wxExecuteEnv env;
        wxGetEnvMap(&env.env);
        env.env["TGX_REGISTRY"] = registry;
        env.env["TGX_DOCUMENTS"] = scratch + "/Documents";
        env.env["TGXSIM_HOME"] = scratch + "/gateway";
        env.env.erase("TT_SSH_PORT");
        env.env["PATH"] = wxString(TGX_SIMULATOR_BIN) + wxPATH_SEP + env.env["PATH"];
        env.cwd = scratch;
        wxString command = "\"" TGX_CLI_BINARY "\"";
        for (const wxString& arg : args)
            command << " \"" << arg << "\"";
        CliRun run;
        run.status = wxExecute(command, run.out, run.err, wxEXEC_SYNC | wxEXEC_NODISABLE, &env);
        return run;
    }

    wxString Write(const wxString& relative, const std::vector<wxString>& lines) const
    {
        wxArrayString array;
        for (const wxString& line : lines)
            array.Add(line);
        const wxString path = scratch + "/" + relative;
        wxFileName::Mkdir(wxFileName(path).GetPath(), wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
        WriteTextLines(path, array);
        return path;
    }

    wxArrayString ReadLines(const wxString& relative) const
    {
        wxArrayString lines;
        ReadTextLines(scratch + "/" + relative, lines);
        return lines;
    }

    // Each test's own installation. Under Windows the registry (not the registry file) names the
    // installation, one for all tests, whose build folder parallel tests would share.
    wxString OwnInstallation() const { return "--software-path=" + scratch + "/installation"; }

    wxString scratch;
    wxString registry;
};

wxArrayString Tail(const wxArrayString& lines, size_t from)
{
    wxArrayString tail;
    for (size_t i = from; i < lines.size(); ++i)
        tail.Add(lines[i]);
    return tail;
}

} // namespace

TEST_F(Tgxcfg, WrongUsageExitsWithTwoAndTellsWhatIsWrong)
{
    const struct {
        std::vector<wxString> args;
        const char* problem;
    } cases[] = {
        {{}, "tgxcfg: no command given"},
        {{"frobnicate", "boiler_house.prj"}, "tgxcfg: unknown command 'frobnicate'"},
        {{"show"}, "tgxcfg: missing PROJECT"},
        {{"show", "a.prj", "b.prj"}, "tgxcfg: unexpected argument 'b.prj'"},
        {{"export-map", "boiler_house.prj"}, "tgxcfg: missing FILE"},
        {{"show", "boiler_house.prj", "--yes"}, "tgxcfg: unrecognised option '--yes'"},
        {{"generate", "boiler_house.prj", "--no-build=1"}, "tgxcfg: option '--no-build' takes no value"},
        {{"show", "boiler_house.prj", "--software-path"}, "tgxcfg: option '--software-path' needs a value"},
        {{"configure", "boiler_house.prj", "--yes"}, "tgxcfg: configure needs --target=HOST[:PORT]"},
        {{"resave", "boiler_house.prj", "copy.mbd"}, "tgxcfg: NEW.prj cannot be a map file (.mbd)"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.problem);
        const CliRun run = Run(c.args);
        EXPECT_EQ(run.status, 2);
        EXPECT_TRUE(run.out.empty());
        ASSERT_EQ(run.err.size(), 3u);
        EXPECT_EQ(run.err[0], c.problem);
        EXPECT_TRUE(run.err[1].StartsWith("Usage: tgxcfg [--software-path=DIR] ")) << run.err[1];
        EXPECT_TRUE(run.err[2].StartsWith("Try 'tgxcfg ")) << run.err[2];
    }
}

TEST_F(Tgxcfg, HelpAndVersionGoToStandardOutput)
{
    const struct {
        std::vector<wxString> args;
        const char* first;
    } cases[] = {
        {{"--help"}, "Usage: tgxcfg [--software-path=DIR] COMMAND [ARGUMENTS]"},
        {{"configure", "--help"},
            "Usage: tgxcfg [--software-path=DIR] configure PROJECT --target=HOST[:PORT] "
            "[--tag=TAG] [--yes]"},
        {{"generate", "x.prj", "-h"},
            "Usage: tgxcfg [--software-path=DIR] generate PROJECT [--no-build] "
            "[--output-folder=DIR]"},
        {{"--version"}, "tgxcfg 6.2.2"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.first);
        const CliRun run = Run(c.args);
        EXPECT_EQ(run.status, 0);
        ASSERT_FALSE(run.out.empty());
        EXPECT_EQ(run.out[0], c.first);
        EXPECT_TRUE(run.err.empty());
    }
}

TEST_F(Tgxcfg, AnInstallationItCannotReadEndsWithTheStartUpMessage)
{
    CliRun run;
#ifndef __WINDOWS__
    // The registry file stands in for the registry on POSIX only; Windows reads the real one.
    registry = scratch + "/no-such-registry.ini";
    run = Run({"show", "boiler_house.prj"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err,
        Lines({"Cannot locate registry entries required by this program", "",
            "This program cannot continue and will now terminate"}));
#endif

    // A software folder given without its separator is taken as the folder, not as a prefix.
    EXPECT_EQ(Run({"--software-path=installation", "show", "boiler_house.prj"}).status, 0);
    run = Run({"--software-path=" + scratch + "/Documents", "show", "boiler_house.prj"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, Lines({"FAULT : cannot locate ct.cfg file"}));
}

TEST_F(Tgxcfg, ShowPrintsTheListsAsTheMainWindowShowsThem)
{
    const CliRun run = Run({"show", "boiler_house.prj"});
    EXPECT_EQ(run.status, 0);
    ASSERT_EQ(run.out.size(), 47u);
    EXPECT_EQ(run.out[0], "[settings]");
    EXPECT_EQ(run.out[1], "TGX TAGNAME:BOILER1");
    EXPECT_EQ(run.out[26], "DEVICE COUNT:4");
    EXPECT_EQ(Tail(run.out, 27),
        Lines({
            "[devices]",
            "#00 [00] FT-101 Feedwater flow : EHPromag",
            "#01 [01] PT-102 Drum pressure : Rosemount3051",
            "#02 [02] LT-103 Drum level : VegaPuls",
            "#03 [05] TT-104 Stack temperature : EHTMT82  [DISABLED]",
            "[commands of device 0]",
            "CMD 002: - CYCLICAL READ 1    ",
            "CMD 003: - CYCLICAL READ 1    ",
            "CMD 009:01,02,03,04 - CYCLICAL READ 10   ",
            "[commands of device 1]",
            "CMD 002: - CYCLICAL READ 1    ",
            "CMD 003: - CYCLICAL READ 1    ",
            "CMD 048: - CYCLICAL READ 60   ",
            "[commands of device 2]",
            "CMD 002: - CYCLICAL READ 1    ",
            "CMD 003: - DISABLED",
            "CMD 035:00,12 - WRITE ON TRIGGER",
            "[commands of device 3]",
            "CMD 002: - CYCLICAL READ 1    ",
            "CMD 003: - CYCLICAL READ 1    ",
        }));
}

TEST_F(Tgxcfg, ShowCheckExportAndGenerateNeverWriteTheProject)
{
    const std::string before = ReadBytes(scratch + "/legacy_plant.prj");
    const std::vector<std::vector<wxString>> readers = {
        {"show", "legacy_plant.prj"},
        {"check", "legacy_plant.prj"},
        {"export-map", "legacy_plant.prj", "map.csv"},
        {"generate", "legacy_plant.prj", "--no-build"},
    };
    for (const auto& args : readers) {
        SCOPED_TRACE(args[0]);
        Run(args);
        EXPECT_EQ(ReadBytes(scratch + "/legacy_plant.prj"), before);
        EXPECT_FALSE(wxFileExists(scratch + "/legacy_plant.mbd"));
    }
}

TEST_F(Tgxcfg, ResaveWritesOldAndDamagedProjectsInTheCurrentFormat)
{
    const wxString golden = wxString(TGX_SOURCE_DIR) + "/tests/golden/tgxcfg/";
    wxCopyFile(golden + "damaged.prj", scratch + "/damaged.prj");
    const struct {
        std::vector<wxString> args;
        const char* saved;
        const char* expected;
    } cases[] = {
        {{"resave", "legacy_plant.prj"}, "legacy_plant.prj", "legacy_plant_resaved.prj"},
        {{"resave", "damaged.prj", "repaired.prj"}, "repaired.prj", "damaged_resaved.prj"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.saved);
        const CliRun run = Run(c.args);
        EXPECT_EQ(run.status, 0);
        EXPECT_TRUE(run.err.empty());  // standard output has ttbuild's summary: the map is generated
        EXPECT_EQ(ReadBytes(scratch + "/" + c.saved), ReadBytes(golden + c.expected));
    }
    // Both are in automatic map mode: the save regenerates the map beside the saved project from
    // the templates, in place of the older ".mb" file's, which stays.
    EXPECT_EQ(ReadLines("legacy_plant.mbd")[0], "HOLDING,1,0,UINT16,SYS:STATUS,Gateway status,1");
    EXPECT_TRUE(wxFileExists(scratch + "/legacy_plant.mb"));
    EXPECT_EQ(ReadBytes(scratch + "/damaged.prj"), ReadBytes(golden + "damaged.prj"));
    EXPECT_TRUE(wxFileExists(scratch + "/repaired.mbd"));

    Write("empty.prj", {});
    CliRun run = Run({"resave", "empty.prj"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, Lines({"Invalid project file (no content)"}));
    EXPECT_FALSE(wxFileExists(scratch + "/empty.mbd"));
    run = Run({"resave", "missing.prj"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, Lines({"tgxcfg: cannot read missing.prj"}));
}

TEST_F(Tgxcfg, GenerateWithoutBuildWritesTheExpectedConfiguration)
{
    for (const char* name : {"boiler_house", "tank_farm_mux"}) {
        SCOPED_TRACE(name);
        const wxString project = scratch + "/" + name + ".prj";
        const CliRun run = Run({"--software-path=" + scratch + "/installation", "generate", project, "--no-build"});
        EXPECT_EQ(run.status, 0);
        EXPECT_TRUE(run.out.empty() && run.err.empty());
        const wxString golden = wxString(TGX_SOURCE_DIR) + "/tests/golden/tgxcfg/" + name;
        const wxString build = scratch + "/installation/tgxconfigure";
        EXPECT_EQ(ReadBytes(build + "/INCLUDE/ct.ini"), ReadBytes(golden + "/ct.ini"));
        EXPECT_EQ(ReadBytes(build + "/ADDITIONAL/dbsave.txt"), ReadBytes(golden + "/dbsave.txt"));
        EXPECT_EQ(ReadBytes(build + "/ADDITIONAL/tgxconfig.prj"), ReadBytes(project));
        EXPECT_EQ(ReadBytes(build + "/ADDITIONAL/MBMAP1.csv"), ReadBytes(scratch + "/" + name + ".mbd"));
    }
    EXPECT_FALSE(wxFileExists(scratch + "/gateway/run.log")); // ttbuild never ran
}

TEST_F(Tgxcfg, GenerateBuildsIntoTheOutputFolderAndReportsAFailedBuild)
{
    // The installation named explicitly: on Windows the registry names another one.
    const wxString software = "--software-path=" + scratch + "/installation";
    CliRun run = Run({software, "generate", "boiler_house.prj", "--output-folder", "out"});
    EXPECT_EQ(run.status, 0);
    EXPECT_TRUE(wxFileExists(scratch + "/out/defs.ini"));
    EXPECT_TRUE(wxFileExists(scratch + "/out/app.ini"));

    Write("gateway/faults.txt", {"ttbuild exit=3 \"output=ttbuild: no good\""});
    run = Run({software, "generate", "boiler_house.prj"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err,
        Lines({"Failed to build configuration files for TG7 - (ttbuild returned 3).",
            "Check TARN software is properly installed"}));

    wxFileName::Rmdir(scratch + "/installation/tgxconfigure/INCLUDE", wxPATH_RMDIR_RECURSIVE);
    run = Run({software, "generate", "boiler_house.prj", "--no-build"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, Lines({"tgxcfg: cannot write into the build folder " + scratch + "/installation" +
                              wxFILE_SEP_PATH + "tgxconfigure" + wxFILE_SEP_PATH + "INCLUDE"}));
}

TEST_F(Tgxcfg, ExportMapChoosesTheLayoutByTheFileName)
{
    wxCopyFile(scratch + "/boiler_house.prj", scratch + "/edges.prj");
    const wxString map = Write("edges.mbd",
        {" HOLDING , 40001 ,ABCD, FLOAT ,FT101_PV,Feedwater flow, 2 ",
            "HOLDING,40003,ABCD,FLOAT,PT102_PV,Drum pressure, bar,2",
            "HOLDING,1,AB,UINT16,A_VERY_LONG_TAG_NAME_X,Desc,1", "COIL,1"});
    wxArrayString csv = Lines({"SECTION,ADDRESS,BYTE_ORDER,TYPE,TAGNANE,DESCRIPTION,REG_COUNT"});
    WX_APPEND_ARRAY(csv, ReadLines("edges.mbd"));
    const wxArrayString table = Lines({
        "Modbus Register Map",
        "-------------------",
        "",
        "SECTION  ADDRESS  TYPE    REG_COUNT  ORDER  TAGNAME               DESCRIPTION",
        "~~~~~~~  ~~~~~~~  ~~~~    ~~~~~~~~~  ~~~~~  ~~~~~~~~~~~~~~~~~~~~  ~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~",
        "HOLDING  40001    FLOAT   2          ABCD   FT101_PV              Feedwater flow",
        // A comma in the description splits it: its second part takes the REG_COUNT column.
        "HOLDING  40003    FLOAT   bar        ABCD   PT102_PV              Drum pressure",
        // Wider than its column: not cut, the rest of the row moves along.
        "HOLDING  1        UINT16  1          AB     A_VERY_LONG_TAG_NAME_X  Desc",
        // The fields a short line lacks are written empty.
        "COIL     1                                                        ",
    });
    const struct {
        const char* file;
        const wxArrayString& lines;
    } cases[] = {{"map.csv", csv}, {"MAP.CSV", csv}, {"map.csv.txt", table}, {"map", table}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        EXPECT_EQ(Run({"export-map", "edges.prj", c.file}).status, 0);
        EXPECT_EQ(ReadLines(c.file), c.lines);
    }

    const CliRun run = Run({"export-map", "edges.prj", "no/such/folder/map.csv"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, Lines({"tgxcfg: cannot write no/such/folder/map.csv"}));
}

TEST_F(Tgxcfg, CheckReportsOneLineForEachProblem)
{
    Write("faulty.prj",
        {"TGX TAGNAME:Line 4 North", "MODE:GATEWAY", "VCP PORT NUMBER:0", "MTCP PORT NUMBER:503", "DEVICE COUNT:3",
            "FOR DEVICE:0", "TYPE:Generic", "POLL ADDRESS:64", "ENABLE:1", "HARTCMD:256 1 1 0", "HARTCMD:3 0 1 0",
            "HARTCMD:9 1 1 0", "CMDARGS:1 2 3 4 5 6 7 8 9", "FOR DEVICE:1", "TYPE:Unknown3000", "POLL ADDRESS:2",
            "FOR DEVICE:2", "TYPE:Generic", "POLL ADDRESS:2"});
    Write("faulty.mbd", {"HOLDING,40001,ABCD,FLOAT,FT101_PV,Flow,2", "HOLDING,40003,ABCD,FLOAT,PV,2"});
    Write("limits.prj",
        {"TGX TAGNAME:Line4Nth", "VCP PORT NUMBER:1", "HARTIPTCP PORT NUMBER:65535", "DEVICE COUNT:2", "FOR DEVICE:0",
            "TYPE:Generic", "POLL ADDRESS:63", "HARTCMD:255 1 1 0", "CMDARGS:1 2 3 4 5 6 7 8", "FOR DEVICE:1",
            "TYPE:Generic", "POLL ADDRESS:0", "HARTCMD:0 1 0 1"});
    Write("limits.mbd", {"HOLDING,40001,,FLOAT,PV,,2"});
    Write("mux.prj",
        {"TGX TAGNAME:MUX1", "MODE:MULTIPLEXOR", "DEVICE COUNT:2", "FOR DEVICE:0", "TYPE:KFD2", "POLL ADDRESS:99",
            "LONG ADDRESS:0000000000", "FOR DEVICE:1", "TYPE:Generic", "POLL ADDRESS:99", "LONG ADDRESS:12345"});
    const struct {
        const char* project;
        wxArrayString problems;
    } cases[] = {
        {"faulty.prj",
            Lines({
                "tag name \"Line_4_North\" has characters other than letters and digits",
                "tag name \"Line_4_North\" is longer than 8 characters: Configure keeps \"Line_4_N\"",
                "VCP PORT NUMBER 0 is outside 1..65535",
                "INTERCOM PORT NUMBER 503 is already used by MTCP PORT NUMBER",
                "device 0: poll address 64 is outside 0..63",
                "device 0 command 0: command number 256 is outside 0..255",
                "device 0 command 1: cycle interval 0 is below 1",
                "device 0 command 2: 9 arguments: only the first 8 are kept",
                "device 1: device type \"Unknown3000\" is not in ct.cfg",
                "device 2: poll address 2 is already used by device 1",
                "map line 2: 6 fields instead of 7",
            })},
        // The multiplexer reaches its devices by long address: poll addresses do not matter there.
        {"mux.prj", Lines({"device 1: long address \"12345\" is not 10 characters"})},
        {"limits.prj", wxArrayString()},
        {"boiler_house.prj", wxArrayString()},
        {"tank_farm_mux.prj", wxArrayString()},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.project);
        const CliRun run = Run({"check", c.project});
        EXPECT_EQ(run.status, c.problems.empty() ? 0 : 1);
        EXPECT_EQ(run.out, c.problems);
        EXPECT_TRUE(run.err.empty());
    }
}

TEST_F(Tgxcfg, ConfigureRunsTheSimulatedGatewayWithTheConsoleAnswering)
{
    const CliRun run = Run({OwnInstallation(), "configure", "boiler_house.prj", "--target=127.0.0.1:2222", "--tag=BOILER2"});
    EXPECT_EQ(run.status, 0);
    // ttbuild writes on the same console; its own lines are not tgxcfg's.
    wxArrayString out;
    for (const wxString& line : run.out)
        if (!line.StartsWith("ttbuild:"))
            out.Add(line);
    EXPECT_EQ(out,
        Lines({"Enter device IP address or domain name: 127.0.0.1:2222", "Enter a Tagname for this TG7: BOILER2",
            "Device configuration", "Configuring device .. Please wait", "Checking firmware and templates versions",
            "Building Configuration", "Uploading Configuration", "Restarting the HART Gateway", "Done",
            "Configuration Complete"}));
    EXPECT_TRUE(run.err.empty());
    // Saved before the upload, with the tag given: the gateway holds what the disk holds.
    EXPECT_EQ(ReadLines("boiler_house.prj")[2], "TGX TAGNAME:BOILER2");
    EXPECT_EQ(ReadLines("gateway/TG7/tgxconfig.prj"), ReadLines("boiler_house.prj"));
    const wxArrayString boots = ReadLines("gateway/boot.log");
    ASSERT_EQ(boots.size(), 1u);
    EXPECT_TRUE(boots[0].Contains("host=127.0.0.1") && boots[0].Contains("TT_SSH_PORT=2222")) << boots[0];
}

TEST_F(Tgxcfg, ConfigureEndsWithTheFailingStepsMessageOnStandardError)
{
    const struct {
        const char* fault;
        wxArrayString message;
        const char* lastStep;
    } cases[] = {
        {"ttdevtype exit=0 output=TG7-Plus \"output=Firmware: TG7main-v6.1.0-build2\" \"output=Templates: t-v3.1.0\"",
            Lines(
                {"The firmware installed on the TG7 is not compatible with this version of TGx Software Suite. Before "
                 "you can configure your device you must update the firmware using the 'Update Firmware' option under "
                 "the 'Target' menu"}),
            "Checking firmware and templates versions"},
        {"ttrestore exit=3",
            Lines({"Failed to upload configuration files to TG7 - (ttrestore returned 3).",
                "Check IP address, Power and Network connection"}),
            "Uploading Configuration"},
        {"ttreboot exit=1", Lines({"ERROR : Failed to reboot TG7"}), "Restarting the HART Gateway"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.fault);
        Write("gateway/faults.txt", {c.fault});
        const CliRun run = Run({OwnInstallation(), "configure", "boiler_house.prj", "--target=127.0.0.1"});
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.err, c.message);
        ASSERT_FALSE(run.out.empty());
        EXPECT_EQ(run.out.Last(), c.lastStep);
    }
}

TEST_F(Tgxcfg, ConfigureQuestionsAreAnsweredYesOnlyWhenAsked)
{
    // The multiplexer example has an empty map: Configure asks whether to go on without one.
    CliRun run = Run({OwnInstallation(), "configure", "tank_farm_mux.prj", "--target=127.0.0.1"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out,
        Lines({"WARNING : There is no Modbus Map configured for this project",
            "You can create or edit a map using the Modbus menu", "", "Do you wish to continue without a map ? No"}));
    EXPECT_EQ(run.err, Lines({"tgxcfg: stopped at a question answered No; give --yes to answer Yes"}));
    EXPECT_FALSE(wxFileExists(scratch + "/gateway/run.log"));

    run = Run({OwnInstallation(), "configure", "tank_farm_mux.prj", "--target=127.0.0.1", "--yes"});
    EXPECT_EQ(run.status, 0);
    ASSERT_GE(run.out.size(), 4u);
    EXPECT_EQ(run.out[3], "Do you wish to continue without a map ? Yes");
    // No port with the address: the tools get the start-up port.
    const wxArrayString boots = ReadLines("gateway/boot.log");
    ASSERT_FALSE(boots.empty());
    EXPECT_TRUE(boots[0].Contains("TT_SSH_PORT=22\t")) << boots[0];

    // The tag prompt takes letters and digits only, as its dialog does.
    run = Run({OwnInstallation(), "configure", "boiler_house.prj", "--target=127.0.0.1", "--tag=Line-4"});
    EXPECT_EQ(run.status, 1);
    ASSERT_EQ(run.err.size(), 1u);
    EXPECT_TRUE(run.err[0].StartsWith("tgxcfg: \"Line-4\" cannot be entered at \"Enter a Tagname for this TG7\""));
}
