// Every workflow that runs the suite's tools, with each of its tool steps failing in turn on the
// simulated gateway (a non-zero exit, a tool that cannot be started, odd or empty output): the
// message of that step, the steps that ran (from the simulator's run log, none after the failed
// one) and the files the workflow leaves on disk.
#include "tgxcfg_fixture.h"

#include <filesystem>
#include <map>

namespace {

struct FaultRow {
    const char* name;
    std::vector<wxString> args;
    // A line of the simulator's faults.txt; "missing TOOL": TOOL is not on PATH; "remove FILE": FILE is gone first.
    const char* fault;
    long status;
    // The runs in the log, "TOOL" when it exited 0, "TOOL:CODE" otherwise.
    const char* runs;
    // Standard error joined with '|' (the simulator's own failure lines left out); when it is
    // empty, what standard output ends with.
    wxString message;
    // "FILE=STATE ...", STATE one of same (as before the run), absent, present, empty.
    const char* files;
};

const char* const kConfigure = "configure", *const kTarget = "--target=127.0.0.1";
const char* const kBuildFailed = "Failed to build configuration files for TG7 - (ttbuild returned %s).|"
                                 "Check TARN software is properly installed";
const char* const kUploadFailed = "Failed to upload configuration files to TG7 - (ttrestore returned %s).|"
                                  "Check IP address, Power and Network connection";
const char* const kIncompatible = "The firmware installed on the TG7 is not compatible with this version of TGx Software "
    "Suite. Before you can configure your device you must update the firmware using the 'Update Firmware' option under "
    "the 'Target' menu";
const char* const kNoMultiplexer = "Unable to communicate with multiplexer|You must configure the TG7 manually";
const char* const kGatewayConfig = "gateway/TG7/config/app.ini";
const char* const kMigrated = "Documents/tgxconfigure/PROJECTS/migrateTemp.prj";

void PrintTo(const FaultRow& row, std::ostream* os) { *os << row.name; }

wxString Format(const char* format, const char* code) { return wxString::Format(format, code); }

const FaultRow kRows[] = {
    {"ConfigureNoTtdevtype", {kConfigure, "boiler_house.prj", kTarget}, "missing ttdevtype", 1, "",
        "ttdevtyp Could not connect to TG7, check IP address and network connection", "gateway/TG7/config/app.ini=absent"},
    {"ConfigureTtdevtypeFails", {kConfigure, "boiler_house.prj", kTarget}, "ttdevtype exit=2", 1, "ttdevtype:2",
        "Could not determine TG7 type, unable to proceed", "boiler_house.prj=same"},
    {"ConfigureOddFirmwareLine", {kConfigure, "boiler_house.prj", kTarget},
        "ttdevtype exit=0 output=TG7-Plus \"output=Firmware: TG7main-v-x\" output=Templates:v3.1.0", 1, "ttdevtype",
        "Could not determine TG7 Firmware version (ttdevtype format error), unable to proceed", ""},
    {"ConfigureOddTemplatesLine", {kConfigure, "boiler_house.prj", kTarget},
        "ttdevtype exit=0 output=TG7-Plus output=TG7main-v6.2.2 output=tmpl-v", 1, "ttdevtype",
        "Could not determine TG7 Templates (ttdevtype format error), unable to proceed", ""},
    {"ConfigureOtherFirmware", {kConfigure, "boiler_house.prj", kTarget},
        "ttdevtype exit=0 output=TG7-Plus output=TG7main-V6.2.2 output=TG7templates-v3.1.0", 1, "ttdevtype", kIncompatible, ""},
    {"ConfigureTtbuildFails", {kConfigure, "boiler_house.prj", kTarget}, "ttbuild exit=2", 1, "ttdevtype ttbuild:2",
        Format(kBuildFailed, "2"), "gateway/TG7/config/app.ini=absent"},
    {"ConfigureNoTtbuild", {kConfigure, "boiler_house.prj", kTarget}, "missing ttbuild", 1, "ttdevtype",
        Format(kBuildFailed, "-1"), ""},
    {"ConfigureTtrestoreFails", {kConfigure, "boiler_house.prj", kTarget}, "ttrestore exit=3", 1,
        "ttdevtype ttbuild ttrestore:3", Format(kUploadFailed, "3"), "gateway/TG7/config/app.ini=absent"},
    {"ConfigureNoTtrestore", {kConfigure, "boiler_house.prj", kTarget}, "missing ttrestore", 1, "ttdevtype ttbuild",
        Format(kUploadFailed, "-1"), ""},
    {"ConfigureTtrebootFails", {kConfigure, "boiler_house.prj", kTarget}, "ttreboot exit=1", 1,
        "ttdevtype ttbuild ttrestore ttreboot:1", "ERROR : Failed to reboot TG7", "gateway/TG7/config/app.ini=present"},
    {"GenerateTtbuildFails", {"generate", "boiler_house.prj"}, "ttbuild exit=3", 1, "ttbuild:3", Format(kBuildFailed, "3"),
        "boiler_house.prj=same"},

    {"FetchNoProject", {"fetch", kTarget, "backup.prj"}, "ttgetfile match=*tgxconfig.prj* exit=1", 1, "ttgetfile:1",
        "Failed to obtain configuration from TG7.", "backup.prj=absent backup.mbd=absent"},
    {"FetchNoTtgetfile", {"fetch", kTarget, "backup.prj"}, "missing ttgetfile", 1, "",
        "Failed to obtain configuration from TG7.", "backup.prj=absent"},
    {"FetchPrintsTheMapWithoutItsFile", {"fetch", kTarget, "backup.prj"}, "ttgetfile match=*MBMAP1.csv* exit=1", 0,
        "ttgetfile ttgetfile:1 ttmbprint", "", "backup.prj=present backup.mbd=present"},
    {"FetchWithoutAnyMap", {"fetch", kTarget, "backup.prj"}, "remove gateway/TG7/MBMAP1.csv", 0,
        "ttgetfile ttgetfile:1 ttmbprint:1", "", "backup.prj=present backup.mbd=empty"},
    {"ImportMapKeepsTheMapWhenNothingComes", {"import-map", "boiler_house.prj", "--from-target=127.0.0.1"},
        "remove gateway/TG7/MBMAP1.csv", 0, "ttgetfile:1 ttmbprint:1", "", "boiler_house.mbd=same"},
    {"ImportMapNoTtgetfile", {"import-map", "boiler_house.prj", "--from-target=127.0.0.1"}, "missing ttgetfile", 0,
        "ttmbprint", "", "boiler_house.mbd=same"},

    {"FirmwareTtfirmwareFails", {"update-firmware", kTarget, "--yes"}, "ttfirmware exit=1", 1,
        "ttgetfile ttgetfile ttfirmware:1", "ERROR : Failed to upload firmware", "Documents/tgxconfigure/PROJECTS/migrateTemp.prj=present"},
    {"FirmwareNoTtfirmware", {"update-firmware", kTarget, "--yes"}, "missing ttfirmware", 1, "ttgetfile ttgetfile",
        "ERROR : Failed to upload firmware", ""},
    {"FirmwareFirstManualFails", {"update-firmware", kTarget, "--yes"}, "ttputfile match=*TG7UserGuide* exit=1", 1,
        "ttgetfile ttgetfile ttfirmware ttputfile:1", "ERROR : Failed to upload documentation", ""},
    {"FirmwareSecondManualFails", {"update-firmware", kTarget, "--yes"}, "ttputfile match=*mbEditUserGuide* exit=1", 1,
        "ttgetfile ttgetfile ttfirmware ttputfile ttputfile:1", "ERROR : Failed to upload documentation", ""},
    {"FirmwareWebsiteFails", {"update-firmware", kTarget, "--yes"}, "ttputfile match=*index.html* exit=1", 1,
        "ttgetfile ttgetfile ttfirmware ttputfile ttputfile ttputfile:1", "ERROR : Failed to upload website", ""},
    {"FirmwareTtbuildFails", {"update-firmware", kTarget, "--yes"}, "ttbuild exit=4", 1,
        "ttgetfile ttgetfile ttfirmware ttputfile ttputfile ttputfile ttbuild:4", "ERROR : " + Format(kBuildFailed, "4"), ""},
    {"FirmwareTtrestoreFails", {"update-firmware", kTarget, "--yes"}, "ttrestore exit=4", 1,
        "ttgetfile ttgetfile ttfirmware ttputfile ttputfile ttputfile ttbuild ttrestore:4", "ERROR : " + Format(kUploadFailed, "4"), ""},
    {"FirmwareTtrebootFails", {"update-firmware", kTarget, "--yes"}, "ttreboot exit=1", 1,
        "ttgetfile ttgetfile ttfirmware ttputfile ttputfile ttputfile ttbuild ttrestore ttreboot:1",
        "ERROR : Failed to reboot TG7", "Documents/tgxconfigure/PROJECTS/migrateTemp.prj=present"},

    {"InstallersFirstMissing", {"upload-installers", kTarget, "--yes"}, "remove installation/installer/TGxSoftwareSuite.msi",
        1, "", "Failed to upload TgxSoftwareSuite Installer", ""},
    {"InstallersFirstFails", {"upload-installers", kTarget, "--yes"}, "ttputfile exit=1", 1, "ttputfile:1",
        "Failed to upload TgxSoftwareSuite Installer", ""},
    {"InstallersSecondFails", {"upload-installers", kTarget, "--yes"}, "ttputfile match=*TGxConnect* exit=1", 1,
        "ttputfile ttputfile:1", "Failed to upload TgxConnect Installer", ""},
    {"RebootFails", {"reboot", kTarget}, "ttreboot exit=1", 1, "ttreboot:1", "ERROR : Failed to reboot TG7|Done", ""},
    {"RebootNoTtreboot", {"reboot", kTarget}, "missing ttreboot", 1, "", "ERROR : Failed to reboot TG7|Done", ""},

    // The automatic map: a failed build is not reported; inifile's own exit code is not looked at.
    {"AutomaticMapTtbuildFails", {"map-mode", "boiler_house.prj", "automatic", "--yes"}, "ttbuild exit=3", 0, "ttbuild:3", "",
        "boiler_house.mbd=same"},
    {"AutomaticMapInifileFails", {"map-mode", "boiler_house.prj", "automatic", "--yes"}, "inifile exit=2", 0,
        "ttbuild inifile:2", "", "boiler_house.mbd=empty installation/tgxconfigure/OUTPUT/_temp.mbd=absent"},
    {"EditMapTtbuildFails", {"edit-map", "boiler_house.prj"}, "ttbuild exit=3", 1, "ttbuild:3", "", "boiler_house.mbd=same"},
    {"EditMapInifileFails", {"edit-map", "boiler_house.prj"}, "inifile exit=2", 1, "ttbuild inifile:2",
        "Unable to generate _temp.dat file from _temp.ini 2",
        "boiler_house.mbd=same installation/tgxconfigure/OUTPUT/_temp.dat=absent installation/tgxconfigure/OUTPUT/_temp.ini=absent"},
    {"EditMapDbtojsonFails", {"edit-map", "boiler_house.prj"}, "dbtojson exit=1", 1, "ttbuild inifile dbtojson:1",
        "Unable to generate _temp.json file from _temp.dat",
        "boiler_house.mbd=same installation/tgxconfigure/OUTPUT/_temp.dat=absent installation/tgxconfigure/OUTPUT/_temp.json=absent"},
    {"EditMapMbeditFails", {"edit-map", "boiler_house.prj"}, "mbedit exit=1", 0, "ttbuild inifile dbtojson mbedit:1", "",
        "boiler_house.mbd=same installation/tgxconfigure/OUTPUT/_temp.mbd=absent"},

    {"VcpNoTtvsp", {"vcp"}, "missing ttvsp", 1, "", "Remote Coms Port functionality requires TGxConnect software to be installed", ""},
    {"VcpOddReport", {"vcp"}, "ttvsp match=-g exit=0 \"output=COM7 10.0.0.5:772\"", 1, "ttvsp",
        "Unable to determine name of current VSP port", ""},
    {"VcpFirstPortRefused", {"vcp"}, "ttvsp match=*-p=* exit=2", 1, "ttvsp ttvsp:2", "Unable to create virtual com port.", ""},
    {"VcpRenamedPortRefused", {"vcp", "--com=COM5"}, "ttvsp match=COM5 exit=1", 1, "ttvsp ttvsp ttvsp ttvsp:1",
        "Unable to create virtual com port. Please ensure you have the latest version of TARN tools installed", ""},

    {"ScanNoTtvsp", {"mux-scan", kTarget, "--add=all", "plant.prj"}, "missing ttvsp", 1, "",
        "Multiplexor scanning TGxConnect software to be installed", "plant.prj=absent"},
    {"ScanNoTtdevtype", {"mux-scan", kTarget, "--add=all", "plant.prj"}, "missing ttdevtype", 1, "ttvsp",
        "Could not connect to TG7, check IP address and network connection", ""},
    {"ScanEmptyTtdevtype", {"mux-scan", kTarget, "--add=all", "plant.prj"}, "ttdevtype exit=0 output=", 1, "ttvsp ttdevtype",
        "Could not determine TG7 type, unable to proceed", ""},
    {"ScanTtrestoreFails", {"mux-scan", kTarget, "--add=all", "plant.prj"}, "ttrestore exit=3", 1,
        "ttvsp ttdevtype ttbuild inifile ttbuild ttrestore:3", Format(kUploadFailed, "3"),
        "Documents/tgxconfigure/PROJECTS/MUXempty.prj=present plant.prj=absent"},
    {"ScanTtrebootFails", {"mux-scan", kTarget, "--add=all", "plant.prj"}, "ttreboot exit=1", 1,
        "ttvsp ttdevtype ttbuild inifile ttbuild ttrestore ttreboot:1", "ERROR : Failed to reboot TG7",
        "Documents/tgxconfigure/PROJECTS/MUXempty.prj=absent"},
    {"ScanPortRefused", {"mux-scan", kTarget, "--add=all", "plant.prj"}, "ttvsp match=*-p=* exit=1", 1,
        "ttvsp ttdevtype ttbuild inifile ttbuild ttrestore ttreboot ttvsp:1", "Unable to create virtual com port.", ""},
    {"ScanNoMultiplexer", {"mux-scan", kTarget, "--add=all", "plant.prj"}, "pfmux exit=1", 1,
        "ttvsp ttdevtype ttbuild inifile ttbuild ttrestore ttreboot ttvsp pfmux:1 pfmux:1 pfmux:1 ttvsp", kNoMultiplexer,
        "plant.prj=absent"},

    {"RebuildPortRefused", {"mux-rebuild", kTarget, "--loops=1"}, "ttvsp exit=1", 1, "ttvsp:1",
        "Unable to create virtual com port.", ""},
    {"RebuildRefused", {"mux-rebuild", kTarget, "--loops=1"}, "pfmux match=-wm=1 exit=1", 1, "ttvsp pfmux:1 ttvsp",
        "Unable communicate with Multiplexer.", ""},
    {"RebuildNoPfmux", {"mux-rebuild", kTarget, "--loops=1"}, "missing pfmux", 1, "ttvsp ttvsp",
        "Unable communicate with Multiplexer.", ""},
    {"RebuildNoDeviceList", {"mux-rebuild", kTarget, "--loops=1"}, "pfmux match=-rdl exit=1", 1,
        "ttvsp pfmux pfmux pfmux pfmux:1 pfmux:1 pfmux:1 ttvsp", kNoMultiplexer, ""},
};

class FaultMatrix : public TgxcfgScratch, public ::testing::WithParamInterface<FaultRow> {
protected:
    FaultMatrix()
    {
        installationOption = OwnInstallation();
        // The multiplexer answers only a gateway configured as one.
        const bool mux = GetParam().args[0] == "mux-rebuild";
        wxCopyFile(dir.path + (mux ? "/tank_farm_mux.prj" : "/boiler_house.prj"), dir.path + "/gateway/TG7/tgxconfig.prj");
        wxCopyFile(dir.path + "/boiler_house.mbd", dir.path + "/gateway/TG7/MBMAP1.csv");
        Sim("mux rebuild-polls 1");
    }

    // The simulator's tools without one of them, first on PATH.
    void LeaveOut(const wxString& tool)
    {
        namespace fs = std::filesystem;
        const fs::path bin = fs::u8path((dir.path + "/bin").utf8_string());
        fs::create_directory(bin);
        for (const fs::directory_entry& entry : fs::directory_iterator(fs::u8path(TGX_SIMULATOR_BIN)))
            if (entry.path().stem().u8string() != tool.utf8_string())
                fs::copy(entry.path(), bin / entry.path().filename(), fs::copy_options::copy_symlinks);
        env.env["PATH"] = dir.path + "/bin" + env.env["PATH"].Mid(wxStrlen(TGX_SIMULATOR_BIN));
    }

    // The runs of the simulator's log, as a row writes them.
    wxString Runs() const
    {
        wxString runs;
        for (const wxString& line : Read("gateway/run.log")) {
            const wxArrayString fields = wxSplit(line, '\t', '\0');
            if (fields.size() < 3)
                continue;
            runs << (runs.empty() ? "" : " ") << fields[1] << (fields[2] == "exit=0" ? wxString() : ":" + fields[2].Mid(5));
        }
        return runs;
    }
};

}  // namespace

TEST_P(FaultMatrix, StopsAtTheFailedStepWithItsMessage)
{
    const FaultRow& row = GetParam();
    const wxString fault = row.fault;
    wxString rest;
    if (fault.StartsWith("missing ", &rest))
        LeaveOut(rest);
    else if (fault.StartsWith("remove ", &rest))
        ASSERT_TRUE(wxRemoveFile(dir.path + "/" + rest));
    else
        Write("gateway/faults.txt", Lines({row.fault}));
    std::map<wxString, std::string> before;
    const wxArrayString files = wxSplit(row.files, ' ', '\0');  // "" is no file
    for (const wxString& file : files)
        if (!file.empty())
            before[file.BeforeFirst('=')] = ReadBytes(dir.path + "/" + file.BeforeFirst('='));

    const CliRun run = Run(row.args);
    EXPECT_EQ(run.status, row.status) << wxJoin(run.out, '\n') << wxJoin(run.err, '\n');
    EXPECT_EQ(Runs(), row.runs);
    wxArrayString said;
    for (const wxString& line : run.err)
        // A failing simulated tool's own line, and the one a child that could not start its program writes.
        if (!line.Contains(": simulated failure (faults.txt line ") && !line.StartsWith("execvp("))
            said.Add(line);
    if (said.empty())
        EXPECT_TRUE(wxJoin(run.out, '|', '\0').EndsWith(row.message)) << wxJoin(run.out, '|', '\0');
    else
        EXPECT_EQ(wxJoin(said, '|', '\0'), row.message);
    for (const wxString& file : files) {
        if (file.empty())
            continue;
        const wxString name = file.BeforeFirst('='), state = file.AfterFirst('=');
        const bool exists = wxFileExists(dir.path + "/" + name);
        const std::string bytes = ReadBytes(dir.path + "/" + name);
        EXPECT_TRUE(state == "same" ? exists && bytes == before[name] : state == "absent" ? !exists
                    : state == "empty" ? exists && bytes.empty() : exists) << name << " is not " << state;
    }
}

INSTANTIATE_TEST_SUITE_P(EveryWorkflow, FaultMatrix, ::testing::ValuesIn(kRows),
    [](const ::testing::TestParamInfo<FaultRow>& info) { return std::string(info.param.name); });
