#include "fakes/test_context.h"
#include "project/project_commands.h"
#include "project/project_file.h"
#include "project/text_file.h"
#include "temp_dir.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/file.h>

#include <functional>

namespace {

// Every field at a non-default value, every array full, every text at its longest.
Project MaximalProject()
{
    Project p;
    LoadDefaultProject(p);
    SetText(p.tagName, wxString(63, 'T'));
    SetText(p.mode, "MULTIPLEXOR");
    SetText(p.remoteIp, "10.20.30.40");
    SetText(p.timeServerAddress, wxString(63, 'n'));
    SetText(p.pollingDeferralMode, "FULL");
    SetText(p.serialPortFunction, "MODBUS");
    SetText(p.serialPortType, "RS422");
    SetText(p.serialParity, "EVENPARITY");
    p.bridgeBufferTime = 7, p.vcpPort = 1772, p.modbusTcpPort = 1502, p.mencapPort = 2100, p.intercomPort = 1503;
    p.syslogPort = 514, p.hartIpTcpPort = 20004, p.timeServerEnable = 0, p.primaryMaster = 0, p.serialBaudRate = 115200;
    p.serialStopBits = 2, p.modbusRtuAddress = 247, p.automaticModbusMap = 0, p.floatSwapBytes = 1, p.floatSwapLongs = 1;
    p.nanControl = 1, p.deviceCount = MAX_DEVICES;
    for (int d = 0; d < MAX_DEVICES; ++d) {
        ProjectDevice& device = p.devices[d];
        SetText(device.deviceName, wxString::Format("Device %02d ", d) + wxString(54, 'x'));
        SetText(device.typeName, wxString(63, 'y'));
        SetText(device.longAddress, wxString::Format("%020d", d));
        device.pollAddress = d, device.enabled = d % 4, device.commandCount = MAX_COMMANDS;
        for (int c = 0; c < MAX_COMMANDS; ++c) {
            HartCommandEntry& command = device.commands[c];
            command = HartCommandEntry{c + 200, {-1, 2, -3, 4, -5, 6, -7, 2147483647}, (c % 9), c + 1, c % 3, c % 2};
        }
    }
    return p;
}

Project Loaded(const wxArrayString& lines)
{
    TestContext t;
    ApplyProjectFile(t.ctx, lines);
    return t.project;
}

wxString FileBytes(const wxString& path)
{
    wxFile file(path);
    wxString bytes;
    file.ReadAll(&bytes, wxConvISO8859_1);
    return bytes;
}

}  // namespace

// The order and format of the lines are fixed by tgxcfg resave's expected files; here that every
// value comes back and the bytes stay the same.
TEST(ProjectFile, MaximalProjectRoundTripsToIdenticalBytes)
{
    TempDir dir;
    TestContext first;
    first.project = MaximalProject();
    first.project.modbusMapLines = Lines({"HOLDING,40001,ABCD,FLOAT,PV,Primary value,2"});
    const wxString path = dir.path + "/max.prj";
    SaveProject(first.ctx, path);
    EXPECT_EQ(first.project.projectSaved, 1);

    TestContext second;
    wxArrayString lines;
    ASSERT_TRUE(ReadTextLines(path, lines));
    ASSERT_TRUE(ApplyProjectFile(second.ctx, lines));
    ReadProjectMap(path, second.project.modbusMapLines);
    second.project.automaticModbusMap = first.project.automaticModbusMap;  // a load forces it on
    const wxString again = dir.path + "/again.prj";
    SaveProject(second.ctx, again);

    const wxString bytes = FileBytes(path);
    EXPECT_EQ(bytes, FileBytes(again));
    EXPECT_EQ(FileBytes(MapFilePath(path)), FileBytes(MapFilePath(again)));
    EXPECT_EQ(FileBytes(MapFilePath(path)), "HOLDING,40001,ABCD,FLOAT,PV,Primary value,2\r\n");
    // CR LF after every line, no bare LF anywhere.
    EXPECT_TRUE(bytes.StartsWith("TGX VERSION:6.2.2\r\n\r\nTGX TAGNAME:"));
    wxString withoutCrLf = bytes;
    withoutCrLf.Replace("\r\n", "");
    EXPECT_EQ(withoutCrLf.Find('\n'), wxNOT_FOUND);
    // Counts of arguments above eight are written as eight values.
    EXPECT_NE(bytes.Find("CMDARGS:-1 2 -3 4 -5 6 -7 2147483647 \r\n"), wxNOT_FOUND);
}

// Older and damaged files are also read by tgxcfg resave against expected files: three-value
// commands, the old port number, tag names, ten arguments, indexes beyond 15, text before anything.
TEST(ProjectFile, ReaderTolerances)
{
    struct Case {
        const char* name;
        std::vector<const char*> lines;
        std::function<void(const Project&)> check;
    };
    const Case cases[] = {
        {"a number that does not convert keeps the default", {"MODBUS RTU ADDRESS:x", "SYSLOG PORT NUMBER:99999999999"},
         [](const Project& p) { EXPECT_TRUE(p.modbusRtuAddress == 1 && p.syslogPort == 50000); }},
        {"text values are taken as they stand", {"SERIAL PORT PARITY: ODD ", "MODE:BRIDGE CLIENT"},
         [](const Project& p) { EXPECT_EQ(GetText(p.serialParity) + "|" + GetText(p.mode), " ODD |BRIDGE CLIENT"); }},
        {"a non-number argument stores 0",
         {"DEVICE COUNT:1", "FOR DEVICE:0", "HARTCMD:48 10 1 1", "CMDARGS:1 2 three "},
         [](const Project& p) {
             const HartCommandEntry& c = p.devices[0].commands[0];
             EXPECT_EQ(std::vector<int>(c.args, c.args + c.argCount), (std::vector<int>{1, 2, 0}));
             EXPECT_EQ(c.writeCommand, 1);
         }},
        {"a second block for a device empties its commands first",
         {"DEVICE COUNT:1", "FOR DEVICE:0", "HARTCMD:2 1 1 0", "HARTCMD:3 1 1 0", "FOR DEVICE:0", "HARTCMD:9 1 1 0"},
         [](const Project& p) {
             ASSERT_EQ(p.devices[0].commandCount, 1);
             EXPECT_EQ(p.devices[0].commands[0].commandNumber, 9);
         }},
        {"indexes out of range are ignored",
         {"DEVICE COUNT:40", "FOR DEVICE:-1", "ENABLE:1", "HARTCMD:1 1 1 0", "FOR DEVICE:x", "ENABLE:1"},
         [](const Project& p) {
             EXPECT_EQ(p.deviceCount, MAX_DEVICES);
             for (const ProjectDevice& d : p.devices)
                 EXPECT_TRUE(d.commandCount == 0 && d.enabled == 0);
         }},
        {"the fifty-first command is ignored, and so are its arguments",
         [] {
             std::vector<const char*> lines{"DEVICE COUNT:1", "FOR DEVICE:0"};
             lines.insert(lines.end(), 50, "HARTCMD:2 1 1 0");
             lines.insert(lines.end(), {"CMDARGS:5 ", "HARTCMD:3 1 1 0", "CMDARGS:9 9 "});
             return lines;
         }(),
         [](const Project& p) {
             const HartCommandEntry& last = p.devices[0].commands[MAX_COMMANDS - 1];
             EXPECT_EQ(p.devices[0].commandCount, MAX_COMMANDS);
             EXPECT_EQ(std::vector<int>(last.args, last.args + last.argCount), std::vector<int>{5});
         }},
        {"keys are case-sensitive and must start the line; the version line is not a setting",
         {"mode:BRIDGE SERVER", " MODE:BRIDGE SERVER", "TGX VERSION:9.9.9", "MODBUS RTU ADDRESS:9", "NONSENSE"},
         [](const Project& p) { EXPECT_TRUE(GetText(p.mode) == "GATEWAY" && p.modbusRtuAddress == 9); }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        c.check(Loaded(Lines(c.lines)));
    }
}

TEST(TextFiles, OddFilesReadWithoutHarm)
{
    TempDir dir;
    struct Case {
        const char* name;
        std::string bytes;
        int lines;  // -1: refused as unreadable
    };
    const std::string longLine(1 << 20, 'x');
    const Case cases[] = {{"empty", "", 0}, {"LF line ends", "A\nB\n", 2}, {"CR LF, no final line end", "A\r\nB", 2},
        {"UTF-16 with BOM", std::string("\xFF\xFE" "D\0E\0V\0\r\0\n\0", 12), 1}, {"a megabyte line", longLine, 1},
        {"binary", std::string("\x00\x01\xFF\xFE\x80\n\x00", 7), -2}};  // either refused or read, never harm
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const wxString path = dir.path + "/odd.txt";
        wxFile(path, wxFile::write).Write(c.bytes.data(), c.bytes.size());
        wxArrayString lines;
        const bool read = ReadTextLines(path, lines);
        EXPECT_TRUE(c.lines < 0 || (read && static_cast<int>(lines.size()) == c.lines));
        TestContext t;
        EXPECT_EQ(ApplyProjectFile(t.ctx, lines), !lines.empty());
    }
    wxArrayString lines;
    EXPECT_FALSE(ReadTextLines(dir.path + "/missing.prj", lines));
}
