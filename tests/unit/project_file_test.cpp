#include "fakes/test_context.h"
#include "project/project.h"
#include "project/project_file.h"
#include "base/text_file.h"
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
    ScratchContext t;
    WriteTextLines(t.dir.path + "/p.prj", lines);
    ApplyProjectFile(t.ctx, t.dir.path + "/p.prj");
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
    WriteProjectFile(first.ctx, path) && WriteProjectMapFile(first.ctx, path);  // a user-defined map is saved as it is

    TestContext second;
    ASSERT_EQ(ReadProjectFromDisk(second.ctx, path), ProjectReadResult::Read);
    second.project.automaticModbusMap = first.project.automaticModbusMap;  // a load forces it on
    const wxString again = dir.path + "/again.prj";
    WriteProjectFile(second.ctx, again) && WriteProjectMapFile(second.ctx, again);

    const wxString bytes = FileBytes(path);
    EXPECT_EQ(bytes, FileBytes(again));
    EXPECT_EQ(FileBytes(MapFilePath(again)), "HOLDING,40001,ABCD,FLOAT,PV,Primary value,2\r\n");
    // Counts of arguments above eight are written as eight values.
    EXPECT_NE(bytes.Find("CMDARGS:-1 2 -3 4 -5 6 -7 2147483647 \r\n"), wxNOT_FOUND);
}

// Older and damaged files are also read by tgxcfg resave against expected files: three-value
// commands, the old port number, tag names, ten arguments, indexes beyond 15, text before anything.
TEST(ProjectFile, ReaderTolerances)
{
    std::vector<const char*> fiftyOne{"DEVICE COUNT:1", "FOR DEVICE:0"};
    fiftyOne.insert(fiftyOne.end(), 50, "HARTCMD:2 1 1 0");
    fiftyOne.insert(fiftyOne.end(), {"CMDARGS:5 ", "HARTCMD:3 1 1 0", "CMDARGS:9 9 "});
    // What a case looks at, as one text: the device's command count, one command's number, arguments, write flag.
    const auto first = [](const Project& p, int c) {
        const HartCommandEntry& e = p.devices[0].commands[c];
        wxString shown = wxString::Format("%d: #%d", p.devices[0].commandCount, e.commandNumber);
        for (int a = 0; a < e.argCount; ++a)
            shown << " " << e.args[a];
        return shown << wxString::Format(" w%d", e.writeCommand);
    };
    const struct {
        const char* name;
        std::vector<const char*> lines;
        std::function<wxString(const Project&)> shown;
        const char* expected;
    } cases[] = {
        {"a number that does not convert keeps the default", {"MODBUS RTU ADDRESS:x", "SYSLOG PORT NUMBER:99999999999"},
         [](const Project& p) { return wxString::Format("%d %d", p.modbusRtuAddress, p.syslogPort); }, "1 50000"},
        {"text values are taken as they stand", {"SERIAL PORT PARITY: ODD ", "MODE:BRIDGE CLIENT"},
         [](const Project& p) { return GetText(p.serialParity) + "|" + GetText(p.mode); }, " ODD |BRIDGE CLIENT"},
        {"a non-number argument stores 0",
         {"DEVICE COUNT:1", "FOR DEVICE:0", "HARTCMD:48 10 1 1", "CMDARGS:1 2 three "},
         [&](const Project& p) { return first(p, 0); }, "1: #48 1 2 0 w1"},
        {"a second block for a device empties its commands first",
         {"DEVICE COUNT:1", "FOR DEVICE:0", "HARTCMD:2 1 1 0", "HARTCMD:3 1 1 0", "FOR DEVICE:0", "HARTCMD:9 1 1 0"},
         [&](const Project& p) { return first(p, 0); }, "1: #9 w0"},
        {"the fifty-first command is ignored, and so are its arguments", fiftyOne,
         [&](const Project& p) { return first(p, MAX_COMMANDS - 1); }, "50: #2 5 w0"},
        {"indexes out of range are ignored",
         {"DEVICE COUNT:40", "FOR DEVICE:-1", "ENABLE:1", "HARTCMD:1 1 1 0", "FOR DEVICE:x", "ENABLE:1"},
         [](const Project& p) {
             int used = 0;
             for (const ProjectDevice& d : p.devices)
                 used += d.commandCount + d.enabled;
             return wxString::Format("%d %d", p.deviceCount, used);
         }, "16 0"},
        {"keys are case-sensitive and must start the line; the version line is not a setting",
         {"mode:BRIDGE SERVER", " MODE:BRIDGE SERVER", "TGX VERSION:9.9.9", "MODBUS RTU ADDRESS:9", "NONSENSE"},
         [](const Project& p) { return wxString::Format("%s %d", GetText(p.mode), p.modbusRtuAddress); }, "GATEWAY 9"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.shown(Loaded(Lines(c.lines))), c.expected) << c.name;
}

// A save leaves a file that holds its bytes already as it is (the fault matrix saves into a
// read-only folder); one that differs in its last byte only is written.
TEST(TextFiles, ASaveComparesEveryByte)
{
    TempDir dir;
    const wxString path = dir.path + "/map.mbd";
    TextLines lines, changed;
    const std::string line(98, 'x'), last = line.substr(1) + "y";
    for (int i = 0; i < 1000; ++i) {
        lines.Add(std::string_view(line));
        changed.Add(std::string_view(i < 999 ? line : last));
    }
    TextLines read;
    EXPECT_TRUE(WriteTextLines(path, lines) && WriteTextLines(path, changed) && ReadTextLines(path, read) &&
                read.Bytes() == changed.Bytes());
}

// The reader's outcomes; that reading line by line gives the same lines, and that a refused read
// leaves them, is text_file_fuzz's.
TEST(TextFiles, OddFilesReadWithoutHarm)
{
    TempDir dir;
    const struct {
        const char* name;
        std::string bytes;
        int lines;  // -1: refused as unreadable
        const wchar_t* first = nullptr;  // the first line's text, where it matters
    } cases[] = {{"empty", "", 0}, {"as the tool writes it", "A,1\r\n\r\nB\r\n", 3}, {"LF line ends", "A\nB\n", 2},
        {"CR LF, no final line end", "A\r\nB", 2}, {"damaged UTF-8 the decoder takes", "\xE0\x80\x80\xC3\xA9\r\n", 1},
        {"UTF-16 with BOM", std::string("\xFF\xFE" "D\0E\0V\0\r\0\n\0", 12), 1}, {"a megabyte line", std::string(1 << 20, 'x'), 1},
        {"UTF-8 with its BOM, lone CRs only", "\xEF\xBB\xBF" "caf\xC3\xA9\rB\r", 2, L"caf\u00E9"},
        {"not UTF-8 after a UTF-8 line: all read as Latin-1", "\xC3\xA9\ncaf\xE9\n", 2, L"\u00C3\u00A9"},
        {"more lines than a file read whole keeps", std::string(kMaxTextFileLines + 1, '\n'), -1},
        {"larger than any file the tool reads", std::string(kMaxTextFileBytes + 1, '\n'), -1}};
    const wxString path = dir.path + "/odd.txt";
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        wxFile(path, wxFile::write).Write(c.bytes.data(), c.bytes.size());
        wxArrayString lines;
        const TextFileRead read = ReadTextFile(path, lines);
        EXPECT_EQ(read, c.lines < 0 ? TextFileRead::Refused : TextFileRead::Read);
        EXPECT_EQ(static_cast<int>(lines.size()), std::max(c.lines, 0));
        EXPECT_TRUE(c.first == nullptr || (!lines.empty() && lines[0] == c.first));
        // Kept as bytes (a map): the same lines, as saving them writes them.
        TextLines kept = Lines({"kept"});
        EXPECT_TRUE(ReadTextFile(path, kept) == read && (read != TextFileRead::Read || (kept == TextLines(lines) && kept.size() == lines.size())));
    }
    // A map a tool printed keeps its first lines; a line holding CR LF counts as the lines it reads back as.
    std::string printed;
    for (std::size_t i = 0; i <= kMaxTextFileLines; ++i)
        printed += "L\r\n";
    wxFile(path, wxFile::write).Write(printed.data(), printed.size());
    TextLines first;
    EXPECT_TRUE(ReadFirstTextLines(path, first) == TextFileRead::Read && first.Bytes() == printed.substr(3));
    EXPECT_EQ(TextLines(Lines({"A\r\nB", "C"})).size(), 3u);
    // Not there is not the same as there but unreadable. (A file with no lines is no project: the
    // load command's ProjectCommands.LoadRefusesEmptyFilesAndIgnoresCancel.)
    wxArrayString lines;
    EXPECT_EQ(ReadTextFile(dir.path + "/missing.prj", lines), TextFileRead::Missing);
    EXPECT_EQ(ReadTextFile(dir.path, lines), TextFileRead::Refused);
}
