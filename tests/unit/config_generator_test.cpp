#include "deploy/config_generator.h"
#include "fakes/test_context.h"
#include "base/text_file.h"
#include "project/project.h"

#include "wx_test_support.h"

#include <gtest/gtest.h>

#include <fstream>
#include <initializer_list>
#include <sstream>
#include <string>

namespace {

ProjectDevice& AddDevice(Project& project, const char* type, int pollAddress, int enabled,
    std::initializer_list<HartCommandEntry> commands = {})
{
    ProjectDevice& device = project.devices[project.deviceCount++];
    SetText(device.typeName, type);
    device.pollAddress = pollAddress;
    device.enabled = enabled;
    for (const HartCommandEntry& command : commands)
        device.commands[device.commandCount++] = command;
    return device;
}

// The set-ups of the expected files in tests/golden/config/<folder>.
// HartCommandEntry: command number, arguments, argument count, interval, poll enabled, write.
void NoDevices(Project&, DeviceTypeTable&) { }

void GatewayTwoTypes(Project& project, DeviceTypeTable& types)
{
    ParseDeviceTypeLine("DEV_TYPE Generic gen_dev.ini gen_mb1.ini gen_mb2.ini gen_mb3.ini gen_dmb.ini", types);
    ParseDeviceTypeLine("DEV_TYPE Rosemount3051 rm_dev.ini rm_mb1.ini rm_mb2.ini rm_mb3.ini rm_dmb.ini", types);
    SetText(project.tagName, "Boiler_House");
    SetText(project.remoteIp, "10.1.2.3");
    SetText(project.timeServerAddress, "ntp.plant.local");
    SetText(project.serialPortFunction, "MODBUS");
    SetText(project.serialPortType, "RS485");
    SetText(project.serialParity, "EVENPARITY");
    SetText(project.pollingDeferralMode, "PARTIAL");
    Project& p = project;
    p.bridgeBufferTime = 35, p.timeServerEnable = 0, p.floatSwapBytes = 1, p.floatSwapWords = 0, p.floatSwapLongs = 1;
    p.serialBaudRate = 19200, p.serialStopBits = 2, p.modbusRtuAddress = 17, p.modbusTcpPort = 5020, p.vcpPort = 7720;
    p.mencapPort = 1101, p.intercomPort = 5030, p.syslogPort = 514, p.hartIpTcpPort = 20004, p.nanControl = 2;
    p.primaryMaster = 0;
    AddDevice(p, "Rosemount3051", 2, 1, {{3, {}, 0, 10, 1, 0}, {48, {}, 0, 60, 0, 0}, {9, {0, 1, 2, 3}, 4, 5, 1, 0}});
    AddDevice(project, "Generic", 7, 0, {{1, {}, 0, 2, 2, 0}, {35, {12, 250}, 2, 0, 1, 1}});
}

void MuxLongAddresses(Project& project, DeviceTypeTable& types)
{
    ParseDeviceTypeLine("DEV_TYPE Generic gen_dev.ini gen_mb1.ini gen_mb2.ini gen_mb3.ini gen_dmb.ini", types);
    ParseDeviceTypeLine("DEV_TYPE KFD2 kfd2_dev.ini kfd2_mb1.ini kfd2_mb2.ini kfd2_mb3.ini kfd2_dmb.ini", types);
    LoadMuxEmptyDefaults(project);
    SetText(project.timeServerAddress, "");
    ProjectDevice& device = AddDevice(project, "Generic", 4, 3, {{1, {}, 0, 30, 1, 0}, {6, {9}, 1, 15, 1, 1}});
    SetText(device.longAddress, "00112233445566778899");
}

// Mirrors the project described in tests/golden/config/fifty_commands/make_golden.py.
void FiftyCommands(Project& project, DeviceTypeTable& types)
{
    ParseDeviceTypeLine("DEV_TYPE Generic gen_dev.ini gen_mb1.ini gen_mb2.ini gen_mb3.ini gen_dmb.ini", types);
    SetText(project.tagName, "Line_4");
    SetText(project.mode, "BRIDGE CLIENT");
    SetText(project.remoteIp, "192.168.7.20");
    SetText(project.pollingDeferralMode, "OFF");
    project.floatSwapBytes = 1, project.nanControl = 1;
    AddDevice(project, "Generic", 3, 1);
    ProjectDevice& device = AddDevice(project, "Generic", 9, 1);
    for (int k = 0; k < MAX_COMMANDS; ++k) {
        HartCommandEntry& command = device.commands[device.commandCount++];
        command = {128 + k, {}, MAX_COMMAND_ARGS, 5 * (k + 1), k % 5 == 4 ? 0 : 1, k % 7 == 3 ? 1 : 0};
        for (int j = 0; j < MAX_COMMAND_ARGS; ++j)
            command.args[j] = k * MAX_COMMAND_ARGS + j;
    }
}

} // namespace

class ConfigGenerator : public ::testing::Test, protected ScratchContext {
protected:
    ConfigGenerator() { project.projectFilePath = dir.Write("projects/plant7.prj", "TGX TAGNAME=Unnamed\r\n"); }

    wxString Built(const char* relative) const { return env.TgxBuildPath + "/" + relative; }

    bool Generate() { return GenerateConfiguration(ctx, errorText, outputFolder, outputName); }

    wxString errorText, outputFolder, outputName;
};

TEST_F(ConfigGenerator, WritesTheExpectedScriptAndParameterFile)
{
    const struct {
        const char* folder;
        void (*setUp)(Project&, DeviceTypeTable&);
    } cases[] = {{"no_devices", NoDevices}, {"gateway_two_types", GatewayTwoTypes},
        {"mux_long_addresses", MuxLongAddresses}, {"fifty_commands", FiftyCommands}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.folder);
        LoadDefaultProject(project);
        deviceTypes.deviceTypeCount = 0;
        c.setUp(project, deviceTypes);
        // Longer leftovers of an earlier build must not survive: the files are rewritten whole.
        for (const char* file : {"INCLUDE/ct.ini", "ADDITIONAL/dbsave.txt"})
            std::ofstream(Built(file).fn_str(), std::ios::binary) << std::string(20000, 'x');
        ASSERT_TRUE(Generate());
        const wxString golden = wxString(TGX_SOURCE_DIR) + "/tests/golden/config/" + c.folder;
        EXPECT_EQ(ReadBytes(Built("INCLUDE/ct.ini")), ReadBytes(golden + "/ct.ini"));
        EXPECT_EQ(ReadBytes(Built("ADDITIONAL/dbsave.txt")), ReadBytes(golden + "/dbsave.txt"));
    }
}

TEST_F(ConfigGenerator, RunsTtbuildHiddenFromTheTemplatesFolder)
{
    const wxString defaultFolder = Built("OUTPUT");
    const struct {
        const char* projectFile;
        const char* outputFolder;
        const char* outputName;
        wxString expectedFolder;
        const char* expectedName;
    } cases[] = {{"plant7.prj", "", "", defaultFolder, "plant7"}, {"my.v2.prj", "", "", defaultFolder, "my.v2"},
        {"plant7.prj", "/srv/tg7 out", "given", "/srv/tg7 out", "given"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.projectFile + wxString("|") + c.outputFolder);
        tools.runs.clear();
        project.projectFilePath = dir.path + "/projects/" + c.projectFile;
        outputFolder = c.outputFolder, outputName = c.outputName;
        ASSERT_TRUE(Generate());
        EXPECT_EQ(outputFolder + "|" + outputName, c.expectedFolder + "|" + c.expectedName);
        ASSERT_EQ(tools.runs.size(), 1u);
        EXPECT_EQ(tools.runs[0].command,
            "ttbuild -s=BUILD -f=LINUX \"-i=" + env.TgxBuildPath + "/INCLUDE\" \"-a=" + env.TgxBuildPath
                + "/ADDITIONAL\" \"-o=" + c.expectedFolder + "\" \"-c=config\"");
        EXPECT_EQ(tools.runs[0].mode, RunMode::BlockingHidden);
        EXPECT_EQ(tools.runs[0].workingDirectory, env.TgxTemplatesPath);
    }
    EXPECT_ALL(errorText.empty(), ui.events.empty()); // the caller decides what to show
}

TEST_F(ConfigGenerator, CopiesTheProjectFileAndWritesTheMap)
{
    // Copied byte for byte, whatever its line ends and encoding.
    const std::string projectBytes = "TGX TAGNAME=Kessel\nREMOTE IP=0.0.0.0\r\n\xC3\xBC\x00tail";
    std::ofstream(project.projectFilePath.GetFullPath().fn_str(), std::ios::binary) << projectBytes;
    dir.Write("tgxconfigure/ADDITIONAL/tgxconfig.prj", "an older project that is longer than the new one");
    project.modbusMapLines = Lines({"40001,PV,FLOAT", "40003,SV,FLOAT"});
    ASSERT_TRUE(Generate());
    EXPECT_EQ(ReadBytes(Built("ADDITIONAL/tgxconfig.prj")), projectBytes);
    EXPECT_EQ(ReadBytes(Built("ADDITIONAL/MBMAP1.csv")), "40001,PV,FLOAT\r\n40003,SV,FLOAT\r\n");

    // No map empties the file; an unsaved project has nothing to copy, and the old copy stays.
    // An empty time server gets the default, in the script (see mux_long_addresses) and the project.
    project.modbusMapLines.Clear();
    project.projectFilePath.Clear();
    SetText(project.timeServerAddress, "");
    ASSERT_TRUE(Generate());
    EXPECT_EQ(GetText(project.timeServerAddress), "pool.ntp.org");
    EXPECT_EQ(ReadBytes(Built("ADDITIONAL/MBMAP1.csv")), "");
    EXPECT_EQ(ReadBytes(Built("ADDITIONAL/tgxconfig.prj")), projectBytes);
}

TEST(ConfigGeneratorLines, EveryTableRowOfTheDeviceTypeIsIncludedInTableOrder)
{
    DeviceTypeTable types;
    for (const char* line : {"DEV_TYPE Gen x2 x3 x4 x5 x6", "DEV_TYPE Generic a2 a3 a4 a5 a6",
             "DEV_TYPE Sensor s2 s3 s4 s5 s6", "DEV_TYPE Generic b2 b3 b4 b5 b6"})
        ParseDeviceTypeLine(line, types);
    Project project;
    LoadDefaultProject(project);
    AddDevice(project, "Generic", 1, 1);
    AddDevice(project, "Unknown", 2, 1); // matches no row: no lines at all
    AddDevice(project, "generic", 3, 1); // names compare exactly, case included
    AddDevice(project, "Sensor", 4, 0);

    wxArrayString lines = BuildCtIniLines(project, types);
    ASSERT_GT(lines.size(), 12u);
    lines.RemoveAt(0, 12);
    EXPECT_EQ(lines,
        Lines({"#include a2(0,0,1)", "#include b2(0,0,1)", "#include s2(0,3,4)", ";", "; System modbus items",
            "; ~~~~~~~~~~~~~~~~~~~", "#include systemmb.ini", "#include a3(0,0)", "#include b3(0,0)",
            "#include s3(0,3)", "#include a4(0,0)", "#include b4(0,0)", "#include s4(0,3)", "#include a5(0,0)",
            "#include b5(0,0)", "#include s5(0,3)", "#include hartloopmbtmpl.ini(0)", ";", "; Device modbus items",
            "; ~~~~~~~~~~~~~~~~~~~", "#include a6(0,0)", "#include b6(0,0)", "#include s6(0,3)", ";", "; END"}));
}

TEST(ConfigGeneratorLines, ModeAndDeferralTextsMustMatchExactlyAndEightArgumentsAreWritten)
{
    // The golden files hold the other mode codes and the three known deferral modes.
    const struct {
        const char* mode;
        const char* deferral;
        wxArrayString expected;
    } cases[] = {
        {"BRIDGE SERVER", "NONE", Lines({"1,SYS:OPERMODE,1", "1,SYS:DEFERMODE,0", "1,L0:NANCTRL,0", "1,L0:MADDR,1"})},
        {"Multiplexor", "full", Lines({"1,SYS:OPERMODE,0", "1,L0:NANCTRL,0", "1,L0:MADDR,1"})},
        {"", "FULL ", Lines({"1,SYS:OPERMODE,0", "1,L0:NANCTRL,0", "1,L0:MADDR,1"})},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.mode);
        Project project;
        LoadDefaultProject(project);
        SetText(project.mode, c.mode);
        SetText(project.pollingDeferralMode, c.deferral);
        EXPECT_EQ(BuildDbSaveLines(project), c.expected);
    }
    // A project file may give more than eight arguments (the reader counts them all): eight are written.
    Project project;
    LoadDefaultProject(project);
    project.deviceCount = project.devices[0].commandCount = 1;
    project.devices[0].commands[0] = {7, {1, 2, 3, 4, 5, 6, 7, 8}, 12, 1, 1, 0};
    EXPECT_NE(BuildDbSaveLines(project).Index("1,L0D0:CMDARGS1,1,2,3,4,5,6,7,8"), wxNOT_FOUND);
}
