// Every workflow that runs the suite's tools, with each of its tool steps failing in turn on the
// simulated gateway (a non-zero exit, a tool that cannot be started, odd or empty output): the
// message of that step, the steps that ran (from the simulator's run log, none after the failed
// one) and the files the workflow leaves on disk.
#include "tgxcfg_fixture.h"

#include <wx/tokenzr.h>

#include <algorithm>
#include <filesystem>
#include <map>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace {

#ifndef _WIN32
// A folder nothing can be written into, for as long as it lives. Root writes past permissions:
// there the folder is made immutable instead (ext4 and most Linux file systems).
class ReadOnlyFolder {
public:
    explicit ReadOnlyFolder(const wxString& folder) : folder(folder)
    {
        wxArrayString out, err;
        made = ::geteuid() == 0 ? wxExecute("chattr +i " + ExecuteArgument(folder), out, err, wxEXEC_SYNC) == 0
                                : ::chmod(folder.fn_str(), 0555) == 0;
    }
    ~ReadOnlyFolder()
    {
        wxArrayString out, err;
        if (::geteuid() == 0)
            wxExecute("chattr -i " + ExecuteArgument(folder), out, err, wxEXEC_SYNC);
        else
            ::chmod(folder.fn_str(), 0755);
    }
    static wxString Reason() { return ::geteuid() == 0 ? "Operation not permitted" : "Permission denied"; }
    wxString folder;
    bool made = false;
};
#endif

struct FaultRow {
    const char* name;
    std::vector<wxString> args;
    // A line of the simulator's faults.txt; "missing TOOL": TOOL is not on PATH; "remove FILE": FILE
    // is gone first; "readonly FOLDER": nothing can be written into FOLDER; "full": the disk takes no
    // file larger than 512 bytes (a file size limit stands in for it). Before the last two the
    // project file is given LF line ends, so that a save has to write it; "as-saved " before them
    // leaves it as the tool saves it.
    const char* fault;
    long status;
    // The runs in the log, "TOOL" when it exited 0, "TOOL:CODE" otherwise.
    wxString runs;
    // Standard error joined with '|' (the simulator's own failure lines left out); when it is
    // empty, what standard output ends with. "{dir}" stands for the scratch folder, "{reason}" for the
    // system's reason a save failed.
    wxString message;
    // "FILE=STATE ...", STATE one of same (as before the run), absent, present, empty.
    const char* files;
};

using Args = std::vector<wxString>;
const Args kConfigure = {"configure", "boiler_house.prj", "--target=127.0.0.1"}, kFetch = {"fetch", "--target=127.0.0.1", "b.prj"},
    kImport = {"import-map", "boiler_house.prj", "--from-target=127.0.0.1"}, kFirmware = {"update-firmware", "--target=127.0.0.1", "--yes"},
    kInstallers = {"upload-installers", "--target=127.0.0.1", "--yes"}, kReboot = {"reboot", "--target=127.0.0.1"},
    kAutomatic = {"map-mode", "boiler_house.prj", "automatic", "--yes"}, kEdit = {"edit-map", "boiler_house.prj"},
    kScan = {"mux-scan", "--target=127.0.0.1", "--add=all", "plant.prj"}, kRebuild = {"mux-rebuild", "--target=127.0.0.1", "--loops=1"};
const char* const kBuildFailed = "Failed to build configuration files for TG7 - (ttbuild returned %s).|"
                                 "Check TARN software is properly installed";
const char* const kUploadFailed = "Failed to upload configuration files to TG7 - (ttrestore returned %s).|"
                                  "Check IP address, Power and Network connection";
const char* const kNoMultiplexer = "Unable to communicate with multiplexer|You must configure the TG7 manually";
const char* const kNoPort = "Unable to create virtual com port.";
const char* const kFirmwareRuns = "ttgetfile ttgetfile ttfirmware ttputfile ttputfile ttputfile ttbuild ttrestore";
const char* const kScanRuns = "ttvsp ttdevtype ttbuild inifile ttbuild ttrestore ttreboot";
const char* const kSaveFailed = "Could not save {dir}/boiler_house.prj: {reason}";

void PrintTo(const FaultRow& row, std::ostream* os) { *os << row.name; }

wxString Format(const char* format, const char* code) { return wxString::Format(format, code); }

// One row per step: a tool that cannot be started has a row of its own only where the workflow
// tells it from a failed run (ttdevtype, ttvsp -g); elsewhere it takes the failed run's branch,
// and the real runner's -1 for it is tool_runner_test's. Every workflow that saves meets
// both failures of a save: a folder that takes no file, and a full disk.
//
// Files: "gw/" stands for the gateway's TG7 folder, "out/" for the build's OUTPUT folder, "prj/"
// for the project folder in the documents.
const FaultRow kRows[] = {
    {"ConfigureNoTtdevtype", kConfigure, "missing ttdevtype", 1, "",
        "ttdevtyp Could not connect to TG7, check IP address and network connection", "gw/config/app.ini=absent"},
    {"ConfigureTtdevtypeFails", kConfigure, "ttdevtype exit=2", 1, "ttdevtype:2",
        "Could not determine TG7 type, unable to proceed", "boiler_house.prj=same"},
    {"ConfigureOddFirmwareLine", kConfigure, "ttdevtype exit=0 output=TG7-Plus \"output=Firmware: TG7main-v-x\" output=v3.1.0",
        1, "ttdevtype", "Could not determine TG7 Firmware version (ttdevtype format error), unable to proceed", ""},
    {"ConfigureOddTemplatesLine", kConfigure, "ttdevtype exit=0 output=TG7-Plus output=TG7main-v6.2.2 output=tmpl-v", 1,
        "ttdevtype", "Could not determine TG7 Templates (ttdevtype format error), unable to proceed", ""},
    {"ConfigureOtherFirmware", kConfigure, "ttdevtype exit=0 output=TG7-Plus output=TG7main-V6.2.2 output=tmpl-v3.1.0", 1,
        "ttdevtype", "The firmware installed on the TG7 is not compatible with this version of TGx Software Suite. Before "
        "you can configure your device you must update the firmware using the 'Update Firmware' option under the 'Target' "
        "menu", ""},
    {"ConfigureTtbuildFails", kConfigure, "ttbuild exit=2", 1, "ttdevtype ttbuild:2", Format(kBuildFailed, "2"),
        "gw/config/app.ini=absent"},
    {"ConfigureTtrestoreFails", kConfigure, "ttrestore exit=3", 1, "ttdevtype ttbuild ttrestore:3",
        Format(kUploadFailed, "3"), "gw/config/app.ini=absent"},
    {"ConfigureTtrebootFails", kConfigure, "ttreboot exit=1", 1, "ttdevtype ttbuild ttrestore ttreboot:1",
        "ERROR : Failed to reboot TG7", "gw/config/app.ini=present"},
    {"GenerateTtbuildFails", {"generate", "boiler_house.prj"}, "ttbuild exit=3", 1, "ttbuild:3", Format(kBuildFailed, "3"),
        "boiler_house.prj=same"},

    {"FetchNoProject", kFetch, "ttgetfile match=tgxconfig.prj exit=1", 1, "ttgetfile:1",
        "Failed to obtain configuration from TG7.", "b.prj=absent b.mbd=absent"},
    {"FetchPrintsTheMapWithoutItsFile", kFetch, "ttgetfile match=MBMAP1.csv exit=1", 0, "ttgetfile ttgetfile:1 ttmbprint",
        "", "b.prj=present b.mbd=present"},
    {"FetchWithoutAnyMap", kFetch, "remove gw/MBMAP1.csv", 0, "ttgetfile ttgetfile:1 ttmbprint:1", "",
        "b.prj=present b.mbd=empty"},
    {"ImportMapKeepsTheMapWhenNothingComes", kImport, "remove gw/MBMAP1.csv", 0, "ttgetfile:1 ttmbprint:1", "",
        "boiler_house.mbd=same"},

    {"FirmwareTtfirmwareFails", kFirmware, "ttfirmware exit=1", 1, "ttgetfile ttgetfile ttfirmware:1",
        "ERROR : Failed to upload firmware", "prj/migrateTemp.prj=present"},
    {"FirmwareFirstManualFails", kFirmware, "ttputfile match=TG7UserGuide exit=1", 1,
        "ttgetfile ttgetfile ttfirmware ttputfile:1", "ERROR : Failed to upload documentation", ""},
    {"FirmwareSecondManualFails", kFirmware, "ttputfile match=mbEditUserGuide exit=1", 1,
        "ttgetfile ttgetfile ttfirmware ttputfile ttputfile:1", "ERROR : Failed to upload documentation", ""},
    {"FirmwareWebsiteFails", kFirmware, "ttputfile match=index.html exit=1", 1,
        "ttgetfile ttgetfile ttfirmware ttputfile ttputfile ttputfile:1", "ERROR : Failed to upload website", ""},
    {"FirmwareTtbuildFails", kFirmware, "ttbuild exit=4", 1, "ttgetfile ttgetfile ttfirmware ttputfile ttputfile ttputfile "
        "ttbuild:4", "ERROR : " + Format(kBuildFailed, "4"), ""},
    {"FirmwareTtrestoreFails", kFirmware, "ttrestore exit=4", 1, wxString(kFirmwareRuns) + ":4",
        "ERROR : " + Format(kUploadFailed, "4"), ""},
    {"FirmwareTtrebootFails", kFirmware, "ttreboot exit=1", 1, wxString(kFirmwareRuns) + " ttreboot:1",
        "ERROR : Failed to reboot TG7", "prj/migrateTemp.prj=present"},

    {"InstallersFirstMissing", kInstallers, "remove installation/installer/TGxSoftwareSuite.msi", 1, "",
        "Failed to upload TgxSoftwareSuite Installer", ""},
    {"InstallersFirstFails", kInstallers, "ttputfile exit=1", 1, "ttputfile:1", "Failed to upload TgxSoftwareSuite Installer", ""},
    {"InstallersSecondFails", kInstallers, "ttputfile match=TGxConnect exit=1", 1, "ttputfile ttputfile:1",
        "Failed to upload TgxConnect Installer", ""},
    {"RebootFails", kReboot, "ttreboot exit=1", 1, "ttreboot:1", "ERROR : Failed to reboot TG7|Done", ""},

    // The automatic map: a failed build is not reported; inifile's own exit code is not looked at.
    {"AutomaticMapTtbuildFails", kAutomatic, "ttbuild exit=3", 0, "ttbuild:3", "", "boiler_house.mbd=same"},
    {"AutomaticMapInifileFails", kAutomatic, "inifile exit=2", 0, "ttbuild inifile:2", "",
        "boiler_house.mbd=empty out/_temp.mbd=absent"},
    {"EditMapTtbuildFails", kEdit, "ttbuild exit=3", 1, "ttbuild:3", "", "boiler_house.mbd=same"},
    {"EditMapInifileFails", kEdit, "inifile exit=2", 1, "ttbuild inifile:2", "Unable to generate _temp.dat file from _temp.ini 2",
        "boiler_house.mbd=same out/_temp.dat=absent out/_temp.ini=absent"},
    {"EditMapDbtojsonFails", kEdit, "dbtojson exit=1", 1, "ttbuild inifile dbtojson:1",
        "Unable to generate _temp.json file from _temp.dat", "boiler_house.mbd=same out/_temp.dat=absent out/_temp.json=absent"},
    {"EditMapMbeditFails", kEdit, "mbedit exit=1", 0, "ttbuild inifile dbtojson mbedit:1", "",
        "boiler_house.mbd=same out/_temp.mbd=absent out/_temp.json=absent"},

    {"VcpNoTtvsp", {"vcp"}, "missing ttvsp", 1, "", "Remote Coms Port functionality requires TGxConnect software to be installed", ""},
    {"VcpOddReport", {"vcp"}, "ttvsp match=-g exit=0 \"output=COM7 10.0.0.5:772\"", 1, "ttvsp",
        "Unable to determine name of current VSP port", ""},
    {"VcpFirstPortRefused", {"vcp"}, "ttvsp match=*-p=* exit=2", 1, "ttvsp ttvsp:2", kNoPort, ""},
    {"VcpRenamedPortRefused", {"vcp", "--com=COM5"}, "ttvsp match=COM5 exit=1", 1, "ttvsp ttvsp ttvsp ttvsp:1",
        "Unable to create virtual com port. Please ensure you have the latest version of TARN tools installed", ""},

    {"ScanNoTtvsp", kScan, "missing ttvsp", 1, "", "Multiplexor scanning TGxConnect software to be installed", "plant.prj=absent"},
    {"ScanNoTtdevtype", kScan, "missing ttdevtype", 1, "ttvsp", "Could not connect to TG7, check IP address and network connection",
        ""},
    {"ScanEmptyTtdevtype", kScan, "ttdevtype exit=0 output=", 1, "ttvsp ttdevtype", "Could not determine TG7 type, unable to proceed",
        ""},
    {"ScanTtrestoreFails", kScan, "ttrestore exit=3", 1, "ttvsp ttdevtype ttbuild inifile ttbuild ttrestore:3",
        Format(kUploadFailed, "3"), "prj/MUXempty.prj=present plant.prj=absent"},
    {"ScanTtrebootFails", kScan, "ttreboot exit=1", 1, wxString(kScanRuns) + ":1", "ERROR : Failed to reboot TG7",
        "prj/MUXempty.prj=absent"},
    {"ScanPortRefused", kScan, "ttvsp match=*-p=* exit=1", 1, wxString(kScanRuns) + " ttvsp:1", kNoPort, ""},
    {"ScanNoMultiplexer", kScan, "pfmux exit=1", 1, wxString(kScanRuns) + " ttvsp pfmux:1 pfmux:1 pfmux:1 ttvsp", kNoMultiplexer,
        "plant.prj=absent"},

    {"RebuildPortRefused", kRebuild, "ttvsp exit=1", 1, "ttvsp:1", kNoPort, ""},
    {"RebuildRefused", kRebuild, "pfmux match=-wm=1 exit=1", 1, "ttvsp pfmux:1 ttvsp", "Unable communicate with Multiplexer.", ""},
#ifndef _WIN32
    // A save that does not write both files stops its workflow with the file and the reason.
    {"ConfigureReadOnly", kConfigure, "readonly .", 1, "", kSaveFailed, "boiler_house.prj=same gw/config/app.ini=absent"},
    {"ConfigureDiskFull", kConfigure, "full", 1, "", kSaveFailed, "boiler_house.prj=same gw/config/app.ini=absent"},
    {"ResaveReadOnly", {"resave", "boiler_house.prj"}, "readonly .", 1, "", kSaveFailed, "boiler_house.prj=same"},
    {"ResaveDiskFull", {"resave", "boiler_house.prj"}, "full", 1, "", kSaveFailed, "boiler_house.prj=same"},
    {"ResaveOfTheSameBytesWritesNothing", {"resave", "boiler_house.prj"}, "as-saved readonly .", 0, "", "",
        "boiler_house.prj=same boiler_house.mbd=same"},
    {"ImportMapReadOnly", kImport, "readonly .", 1, "ttgetfile", kSaveFailed, "boiler_house.mbd=same"},
    {"ImportMapDiskFull", kImport, "full", 1, "ttgetfile:5 ttmbprint", kSaveFailed, "boiler_house.mbd=same"},
    {"ImportProjectMapReadOnly", {"import-map", "boiler_house.prj", "--from-project=tank_farm_mux.prj"}, "readonly .", 1, "",
        kSaveFailed, "boiler_house.mbd=same"},
    {"MapModeReadOnly", kAutomatic, "readonly .", 1, "", kSaveFailed, "boiler_house.prj=same boiler_house.mbd=same"},
    {"MapModeDiskFull", kAutomatic, "full", 1, "", kSaveFailed, "boiler_house.prj=same boiler_house.mbd=same"},
    {"EditMapReadOnly", kEdit, "readonly .", 1, "", kSaveFailed, "boiler_house.mbd=same"},
    {"EditMapDiskFull", kEdit, "full", 1, "", kSaveFailed, "boiler_house.mbd=same"},
    {"FetchReadOnly", kFetch, "readonly .", 1, "ttgetfile ttgetfile ttmbprint", "Could not save {dir}/b.prj: {reason}",
        "b.prj=absent"},
    {"FirmwareReadOnly", kFirmware, "readonly prj/", 1, "ttgetfile:5 ttgetfile:5 ttmbprint",
        "Could not save {dir}/Documents/tgxconfigure/PROJECTS/migrateTemp.prj: {reason}", "prj/migrateTemp.prj=absent"},
    {"FirmwareDiskFull", kFirmware, "full", 1, "ttgetfile:5 ttgetfile",
        "Could not save {dir}/Documents/tgxconfigure/PROJECTS/migrateTemp.prj: {reason}", "prj/migrateTemp.prj=absent"},
    {"ScanReadOnly", kScan, "readonly prj/", 1, "ttvsp ttdevtype",
        "Could not save {dir}/Documents/tgxconfigure/PROJECTS/MUXempty.prj: {reason}", "plant.prj=absent"},
    {"ScanDiskFull", kScan, "full", 1, "ttvsp ttdevtype",
        "Could not save {dir}/Documents/tgxconfigure/PROJECTS/MUXempty.prj: {reason}", "plant.prj=absent"},
    {"ScanAddedReadOnly", kScan, "readonly .", 1, wxString(kScanRuns) + " ttvsp pfmux ttvsp",
        "Could not save {dir}/plant.prj: {reason}", "plant.prj=absent"},
#endif
    {"RebuildNoDeviceList", kRebuild, "pfmux match=-rdl exit=1", 1, "ttvsp pfmux pfmux pfmux pfmux:1 pfmux:1 pfmux:1 ttvsp",
        kNoMultiplexer, ""},
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

    // The simulator's tools without one of them, in place of every folder on PATH that holds them
    // (under Wine, WINEPATH adds one of its own).
    void LeaveOut(const wxString& tool)
    {
        namespace fs = std::filesystem;
        const fs::path bin = fs::u8path((dir.path + "/bin").utf8_string());
        fs::create_directory(bin);
        for (const fs::directory_entry& entry : fs::directory_iterator(fs::u8path(TGX_SIMULATOR_BIN)))
            if (entry.path().stem().u8string() != tool.utf8_string())
                fs::copy(entry.path(), bin / entry.path().filename(), fs::copy_options::copy_symlinks);
        wxString path = dir.path + "/bin";
        for (const wxString& folder : wxSplit(env.env["PATH"], wxPATH_SEP[0], '\0'))
            if (!wxFileExists(folder + "/tgxsim") && !wxFileExists(folder + "/tgxsim.exe"))
                path << wxPATH_SEP << folder;
        env.env["PATH"] = path;
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
    const auto path = [this](wxString file) {
        file.Replace("gw/", "gateway/TG7/");
        file.Replace("out/", "installation/tgxconfigure/OUTPUT/");
        file.Replace("prj/", "Documents/tgxconfigure/PROJECTS/");
        return dir.path + "/" + file;
    };
    wxString fault = row.fault;
    wxString rest;
    wxString reason;
#ifndef _WIN32
    if (fault.StartsWith("as-saved ", &rest)) {
        fault = rest;
    } else if (fault.StartsWith("readonly ") || fault == "full") {
        std::string bytes = ReadBytes(path("boiler_house.prj"));
        bytes.erase(std::remove(bytes.begin(), bytes.end(), '\r'), bytes.end());
        wxFile(path("boiler_house.prj"), wxFile::write).Write(bytes.data(), bytes.size());
    }
    std::unique_ptr<ReadOnlyFolder> readOnly;
    if (fault.StartsWith("readonly ", &rest)) {
        wxFileName::Mkdir(path("prj/"), wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);  // what the tool would make first
        readOnly = std::make_unique<ReadOnlyFolder>(path(rest));
        if (!readOnly->made)
            GTEST_SKIP() << "this file system cannot make a folder read-only for this user";
        reason = ReadOnlyFolder::Reason();
    } else if (fault == "full") {
        // SIGXFSZ ignored, a write past the limit fails with EFBIG, as one on a full disk fails.
        wrapper = {"/bin/sh", "-c", "trap '' XFSZ; ulimit -f 1; exec \"$@\"", "sh"};
        reason = "File too large";
    } else
#endif
    if (fault.StartsWith("missing ", &rest))
        LeaveOut(rest);
    else if (fault.StartsWith("remove ", &rest))
        ASSERT_TRUE(wxRemoveFile(path(rest)));
    else
        Write("gateway/faults.txt", Lines({row.fault}));
    std::map<wxString, std::string> before;
    const wxArrayString files = wxStringTokenize(row.files, " ", wxTOKEN_STRTOK);
    for (const wxString& file : files)
        before[file.BeforeFirst('=')] = ReadBytes(path(file.BeforeFirst('=')));

    const CliRun run = Run(row.args);
    EXPECT_EQ(run.status, row.status) << wxJoin(run.out, '\n') << wxJoin(run.err, '\n');
    EXPECT_EQ(Runs(), row.runs);
    wxArrayString said;
    for (const wxString& line : run.err)
        // What the tools print themselves: a simulated failure, and the lines of a child or a shell
        // that could not start its program.
        if (!line.Contains(": simulated failure (faults.txt line ") && !line.StartsWith("execvp(") && !line.StartsWith("/bin/sh: "))
            said.Add(line);
    wxString message = row.message;
    message.Replace("{dir}", dir.path);
    message.Replace("{reason}", reason);
    if (said.empty())
        EXPECT_TRUE(wxJoin(run.out, '|', '\0').EndsWith(message)) << wxJoin(run.out, '|', '\0');
    else
        EXPECT_EQ(wxJoin(said, '|', '\0'), message);
    for (const wxString& file : files) {
        const wxString name = file.BeforeFirst('='), state = file.AfterFirst('=');
#ifdef _WIN32
        if (name.StartsWith("prj/"))
            continue;  // the user's own documents folder there, shared by the tests running in parallel
#endif
        const bool exists = wxFileExists(path(name));
        const std::string bytes = ReadBytes(path(name));
        EXPECT_TRUE(state == "same" ? exists && bytes == before[name] : state == "absent" ? !exists
                    : state == "empty" ? exists && bytes.empty() : exists) << name << " is not " << state;
    }
}

INSTANTIATE_TEST_SUITE_P(EveryWorkflow, FaultMatrix, ::testing::ValuesIn(kRows),
    [](const ::testing::TestParamInfo<FaultRow>& info) { return std::string(info.param.name); });
