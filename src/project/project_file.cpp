#include "project/project_file.h"

#include "base/app_context.h"
#include "base/number_text.h"
#include "base/text_file.h"
#include "project/project.h"
#include "project/version.h"

#include <wx/filename.h>
#include <wx/tokenzr.h>

#include <algorithm>
#include <charconv>
#include <string>


namespace {

// "%d" of a number, appended without wxString::Format: a full project writes some 2,000 lines.
void AppendNumber(std::string& text, int value)
{
    char digits[16];
    const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, value);
    text.append(digits, end.ptr);
}

bool IsAscii(const char* text)
{
    for (; *text != '\0'; ++text)
        if ((static_cast<unsigned char>(*text) & 0x80) != 0)
            return false;
    return true;
}

}  // namespace

TextLines ProjectFileText(const Project& p)
{
    TextLines lines;
    std::string line;
    auto text = [&](const char* key, const char* value) {
        // Any other field is written as its text reads, as a line of text is.
        if (!IsAscii(value)) {
            lines.Add(wxString::FromAscii(key) + GetText(value));
            return;
        }
        line = key;
        line += value;
        lines.Add(std::string_view(line));
    };
    auto number = [&](const char* key, int value) {
        line = key;
        AppendNumber(line, value);
        lines.Add(std::string_view(line));
    };
    lines.Add(std::string_view(std::string("TGX VERSION:") + kToolVersion));
    lines.Add(std::string_view());
    text("TGX TAGNAME:", p.tagName);
    text("MODE:", p.mode);
    text("REMOTE IP:", p.remoteIp);
    number("BRIDGE NETWORK BUFFER TIME:", p.bridgeBufferTime);
    number("VCP PORT NUMBER:", p.vcpPort);
    number("MTCP PORT NUMBER:", p.modbusTcpPort);
    number("MENCAP PORT NUMBER:", p.mencapPort);
    number("INTERCOM PORT NUMBER:", p.intercomPort);
    number("SYSLOG PORT NUMBER:", p.syslogPort);
    number("HARTIPTCP PORT NUMBER:", p.hartIpTcpPort);
    text("TMS ADDRESS:", p.timeServerAddress);
    number("TMS ENABLE:", p.timeServerEnable);
    number("TGX PRIMARY MASTER:", p.primaryMaster);
    text("POLLING DEFERRAL MODE:", p.pollingDeferralMode);
    text("SERIAL PORT FUNCTION:", p.serialPortFunction);
    text("SERIAL PORT TYPE:", p.serialPortType);
    number("SERIAL PORT BAUDRATE:", p.serialBaudRate);
    text("SERIAL PORT PARITY:", p.serialParity);
    number("SERIAL PORT STOPBITS:", p.serialStopBits);
    number("MODBUS RTU ADDRESS:", p.modbusRtuAddress);
    number("AUTOMATIC MODBUS MAP:", p.automaticModbusMap);
    number("MODBUS FLOAT SWAP BYTES:", p.floatSwapBytes);
    number("MODBUS FLOAT SWAP WORDS:", p.floatSwapWords);
    number("MODBUS FLOAT SWAP LONGS:", p.floatSwapLongs);
    number("MODBUS NAN CTRL:", p.nanControl);
    number("DEVICE COUNT:", p.deviceCount);
    for (int d = 0; d < std::min(p.deviceCount, MAX_DEVICES); ++d) {
        const ProjectDevice& device = p.devices[d];
        number("FOR DEVICE:", d);
        text("DEVICE NAME:", device.deviceName);
        text("TYPE:", device.typeName);
        number("POLL ADDRESS:", device.pollAddress);
        text("LONG ADDRESS:", device.longAddress);
        number("ENABLE:", device.enabled);
        for (int c = 0; c < std::min(device.commandCount, MAX_COMMANDS); ++c) {
            const HartCommandEntry& command = device.commands[c];
            line = "HARTCMD:";
            for (int value : {command.commandNumber, command.cycleInterval, command.pollEnabled, command.writeCommand}) {
                AppendNumber(line, value);
                line += ' ';
            }
            line.pop_back();  // no blank after the last one
            lines.Add(std::string_view(line));
            if (command.argCount == 0)
                continue;
            line = "CMDARGS:";
            for (int a = 0; a < std::clamp(command.argCount, 0, MAX_COMMAND_ARGS); ++a)
            {
                AppendNumber(line, command.args[a]);
                line += ' ';
            }
            lines.Add(std::string_view(line));
        }
    }
    return lines;
}

wxArrayString ProjectFileLines(const Project& project)
{
    const TextLines text = ProjectFileText(project);
    wxArrayString lines;
    lines.reserve(text.size());
    for (const std::string_view line : text)
        lines.Add(Utf8Text(line));
    return lines;
}

namespace {

// Writes one file of a save; false when it failed and the interface stops the save there.
bool WriteSavedFile(AppContext& ctx, const wxString& path, const TextLines& lines)
{
    wxString reason;
    return WriteTextLines(path, lines, &reason) || ctx.ui.ContinueAfterFailedSave("Could not save " + path + ": " + reason);
}

}  // namespace

bool WriteProjectFile(AppContext& ctx, const wxString& path)
{
    return WriteSavedFile(ctx, path, ProjectFileText(ctx.project));
}

bool WriteProjectMapFile(AppContext& ctx, const wxString& path)
{
    if (!WriteSavedFile(ctx, MapFilePath(path), ctx.project.modbusMapLines))
        return false;
    ctx.project.projectSaved = 1;
    return true;
}

wxString MapFilePath(const wxString& projectPath, const char* extension)
{
    wxFileName file(projectPath);
    file.SetExt(extension);
    return file.GetFullPath();
}

TextFileRead ReadProjectMap(const wxString& projectPath, TextLines& lines, wxString* refused)
{
    // The older ".mb" stands in only for a missing ".mbd", not for one that cannot be read.
    wxString file = MapFilePath(projectPath, "mbd");
    TextFileRead read = ReadTextFile(file, lines);
    if (read == TextFileRead::Missing) {
        file = MapFilePath(projectPath, "mb");
        read = ReadTextFile(file, lines);
    }
    if (read == TextFileRead::Refused && refused != nullptr)
        *refused = file;
    return read;
}

namespace {

enum class Key {
    DeviceCount, PollingDeferralMode, SerialPortFunction, SerialPortType, SerialPortBaudrate, SerialPortParity,
    SerialPortStopbits, ModbusRtuAddress, AutomaticModbusMap, TagName, Mode, RemoteIp, BridgeBufferTime,
    PrimaryMaster, FloatSwapBytes, FloatSwapWords, FloatSwapLongs, NanControl, ForDevice, DeviceName, Type,
    PollAddress, LongAddress, Enable, HartCmd, CmdArgs, VcpPort, MtcpPort, MencapPort, IntercomPort, SyslogPort,
    HartIpTcpPort, TmsAddress, TmsEnable
};

// Tested in this order; the first key a line starts with takes it.
const std::pair<const char*, Key> kKeys[] = {
    {"DEVICE COUNT:", Key::DeviceCount},
    {"POLLING DEFERRAL MODE:", Key::PollingDeferralMode},
    {"SERIAL PORT FUNCTION:", Key::SerialPortFunction},
    {"SERIAL PORT TYPE:", Key::SerialPortType},
    {"SERIAL PORT BAUDRATE:", Key::SerialPortBaudrate},
    {"SERIAL PORT PARITY:", Key::SerialPortParity},
    {"SERIAL PORT STOPBITS:", Key::SerialPortStopbits},
    {"MODBUS RTU ADDRESS:", Key::ModbusRtuAddress},
    {"AUTOMATIC MODBUS MAP:", Key::AutomaticModbusMap},
    {"TGX TAGNAME:", Key::TagName},
    {"MODE:", Key::Mode},
    {"REMOTE IP:", Key::RemoteIp},
    {"BRIDGE NETWORK BUFFER TIME:", Key::BridgeBufferTime},
    {"TGX PRIMARY MASTER:", Key::PrimaryMaster},
    {"MODBUS FLOAT SWAP BYTES:", Key::FloatSwapBytes},
    {"MODBUS FLOAT SWAP WORDS:", Key::FloatSwapWords},
    {"MODBUS FLOAT SWAP LONGS:", Key::FloatSwapLongs},
    {"MODBUS NAN CTRL:", Key::NanControl},
    {"FOR DEVICE:", Key::ForDevice},
    {"DEVICE NAME:", Key::DeviceName},
    {"TYPE:", Key::Type},
    {"POLL ADDRESS:", Key::PollAddress},
    {"LONG ADDRESS:", Key::LongAddress},
    {"ENABLE:", Key::Enable},
    {"HARTCMD:", Key::HartCmd},
    {"CMDARGS:", Key::CmdArgs},
    {"VCP PORT NUMBER:", Key::VcpPort},
    {"MTCP PORT NUMBER:", Key::MtcpPort},
    {"MENCAP PORT NUMBER:", Key::MencapPort},
    {"INTERCOM PORT NUMBER:", Key::IntercomPort},
    {"SYSLOG PORT NUMBER:", Key::SyslogPort},
    {"HARTIPTCP PORT NUMBER:", Key::HartIpTcpPort},
    {"TMS ADDRESS:", Key::TmsAddress},
    {"TMS ENABLE:", Key::TmsEnable},
};

// Compared character by character: StartsWith converted every key to a wxString first, for
// every key and every line.
bool StartsWithKey(const wxString& line, const char* key)
{
    const wxStringCharType* const chars = line.wx_str();
    const std::size_t length = line.length();
    for (std::size_t i = 0; key[i] != '\0'; ++i)
        if (i >= length || chars[i] != static_cast<wxStringCharType>(key[i]))
            return false;
    return true;
}

const std::pair<const char*, Key>* FindKey(const wxString& line)
{
    const auto key = std::find_if(std::begin(kKeys), std::end(kKeys),
                                  [&](const auto& entry) { return StartsWithKey(line, entry.first); });
    return key == std::end(kKeys) ? nullptr : key;
}

wxArrayString Tokens(const wxString& value)
{
    return wxStringTokenize(value, " \t\r\n", wxTOKEN_STRTOK);
}

// The values of a HARTCMD or CMDARGS line split as Tokens splits them, without a string for each:
// how many there are and where the first eight lie. Some 1,600 such lines make a full project.
class ValueTokens {
public:
    explicit ValueTokens(const wxString& value)
        : chars(value.wx_str())
    {
        const auto delimiter = [](wxStringCharType c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
        const std::size_t length = value.length();
        for (std::size_t i = 0; i < length;) {
            if (delimiter(chars[i])) {
                ++i;
                continue;
            }
            const std::size_t start = i;
            while (i < length && !delimiter(chars[i]))
                ++i;
            if (count < MAX_COMMAND_ARGS)
                spans[count] = {start, i};
            ++count;
        }
    }
    std::size_t size() const { return count; }
    // Value `i` (one of the first eight) read as ParseWholeInt reads it: sign and digits at once.
    bool Number(std::size_t i, int& number) const
    {
        const wxStringCharType* c = chars + spans[i].first;
        const wxStringCharType* const end = chars + spans[i].second;
        const bool negative = *c == '-';
        c += negative || *c == '+' ? 1 : 0;
        // Nine digits always fit; anything else goes the long way.
        if (c == end || end - c > 9 || !std::all_of(c, end, [](wxStringCharType d) { return d >= '0' && d <= '9'; }))
            return ParseWholeInt(wxString(chars + spans[i].first, end), number);
        int parsed = 0;
        for (; c != end; ++c)
            parsed = parsed * 10 + static_cast<int>(*c - '0');
        number = negative ? -parsed : parsed;
        return true;
    }

private:
    const wxStringCharType* chars;
    std::pair<std::size_t, std::size_t> spans[MAX_COMMAND_ARGS] = {};
    std::size_t count = 0;
};

void SetNumber(int& field, const wxString& value)
{
    ParseWholeInt(value, field);
}

// Only letters and digits survive in a tag name; the gateway's tools accept nothing else.
wxString SanitisedTag(const wxString& value)
{
    wxString tag = value.Left(kTextFieldSize - 1);
    for (wxString::iterator it = tag.begin(); it != tag.end(); ++it) {
        const wxUniChar c = *it;
        const bool alphanumeric = c.IsAscii() && ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'));
        if (!alphanumeric)
            *it = '_';
    }
    return tag;
}

void ReadHartCommand(Project& project, const wxString& value, ProjectLineReader& reader)
{
    const int d = reader.currentDevice;
    if (d < 0 || d >= MAX_DEVICES)
        return;
    ProjectDevice& device = project.devices[d];
    if (device.commandCount < 0 || device.commandCount >= MAX_COMMANDS) {
        // A command past the last slot is dropped, and so are the arguments that follow it.
        reader.lastCommandRead = -1;
        return;
    }
    const ValueTokens tokens(value);
    // Three values: files of older versions, which had no write commands.
    if (tokens.size() != 4 && tokens.size() != 3)
        return;
    HartCommandEntry& command = device.commands[device.commandCount];
    tokens.Number(0, command.commandNumber);
    tokens.Number(1, command.cycleInterval);
    tokens.Number(2, command.pollEnabled);
    if (tokens.size() == 4)
        tokens.Number(3, command.writeCommand);
    else
        command.writeCommand = 0;
    reader.lastCommandRead = device.commandCount;
    ++device.commandCount;
}

void ReadCommandArgs(Project& project, const wxString& value, const ProjectLineReader& reader)
{
    const int d = reader.currentDevice;
    const int c = reader.lastCommandRead;
    if (d < 0 || d >= MAX_DEVICES || c < 0 || c >= MAX_COMMANDS)
        return;
    HartCommandEntry& command = project.devices[d].commands[c];
    const ValueTokens tokens(value);
    for (size_t a = 0; a < tokens.size() && a < MAX_COMMAND_ARGS; ++a) {
        command.args[a] = 0;
        tokens.Number(a, command.args[a]);
    }
    // The count of values on the line, even beyond the eight that are kept.
    command.argCount = static_cast<int>(tokens.size());
}

}  // namespace

bool ParseProjectLine(Project& p, const wxString& line, ProjectLineReader& reader)
{
    const auto* key = FindKey(line);
    if (key == nullptr)
        return true;
    const wxString value = line.Mid(wxStrlen(key->first));
    const int d = reader.currentDevice;
    ProjectDevice* device = d >= 0 && d < MAX_DEVICES ? &p.devices[d] : nullptr;

    switch (key->second) {
    case Key::DeviceCount: {
        int count = 0;
        if (ParseWholeInt(value, count))
            p.deviceCount = std::clamp(count, 0, MAX_DEVICES);
        break;
    }
    case Key::PollingDeferralMode: SetText(p.pollingDeferralMode, value); break;
    case Key::SerialPortFunction: SetText(p.serialPortFunction, value); break;
    case Key::SerialPortType: SetText(p.serialPortType, value); break;
    case Key::SerialPortBaudrate: SetNumber(p.serialBaudRate, value); break;
    case Key::SerialPortParity: SetText(p.serialParity, value); break;
    case Key::SerialPortStopbits: SetNumber(p.serialStopBits, value); break;
    case Key::ModbusRtuAddress: SetNumber(p.modbusRtuAddress, value); break;
    case Key::AutomaticModbusMap: SetNumber(p.automaticModbusMap, value); break;
    case Key::TagName: SetText(p.tagName, SanitisedTag(value)); break;
    case Key::Mode: SetText(p.mode, value); break;
    case Key::RemoteIp: SetText(p.remoteIp, value); break;
    case Key::BridgeBufferTime: SetNumber(p.bridgeBufferTime, value); break;
    case Key::PrimaryMaster: SetNumber(p.primaryMaster, value); break;
    case Key::FloatSwapBytes: SetNumber(p.floatSwapBytes, value); break;
    case Key::FloatSwapWords: SetNumber(p.floatSwapWords, value); break;
    case Key::FloatSwapLongs: SetNumber(p.floatSwapLongs, value); break;
    case Key::NanControl: SetNumber(p.nanControl, value); break;
    case Key::ForDevice: {
        int index = 0;
        if (!ParseWholeInt(value, index))
            break;
        reader.currentDevice = index;
        if (index >= 0 && index < MAX_DEVICES)
            p.devices[index].commandCount = 0;
        break;
    }
    case Key::DeviceName:
        if (device)
            SetText(device->deviceName, value);
        break;
    case Key::Type:
        if (device)
            SetText(device->typeName, value);
        break;
    case Key::PollAddress:
        if (device)
            SetNumber(device->pollAddress, value);
        break;
    case Key::LongAddress:
        if (device)
            SetText(device->longAddress, value);
        break;
    case Key::Enable:
        if (device)
            SetNumber(device->enabled, value);
        break;
    case Key::HartCmd: ReadHartCommand(p, value, reader); break;
    case Key::CmdArgs: ReadCommandArgs(p, value, reader); break;
    case Key::VcpPort: {
        int port = 0;
        // 5094 is HART-IP's port: older files put it here by mistake, so it is moved back.
        if (ParseWholeInt(value, port))
            p.vcpPort = port == 5094 ? 772 : port;
        break;
    }
    case Key::MtcpPort: SetNumber(p.modbusTcpPort, value); break;
    case Key::MencapPort: SetNumber(p.mencapPort, value); break;
    case Key::IntercomPort: SetNumber(p.intercomPort, value); break;
    case Key::SyslogPort: SetNumber(p.syslogPort, value); break;
    case Key::HartIpTcpPort: SetNumber(p.hartIpTcpPort, value); break;
    case Key::TmsAddress: SetText(p.timeServerAddress, value); break;
    case Key::TmsEnable: SetNumber(p.timeServerEnable, value); break;
    }
    return true;
}

ProjectValueKind ProjectLineKey(const wxString& line, wxString& key)
{
    const auto* found = FindKey(line);
    if (found == nullptr)
        return ProjectValueKind::None;
    key = found->first;
    switch (found->second) {
    case Key::PollingDeferralMode: case Key::SerialPortFunction: case Key::SerialPortType:
    case Key::SerialPortParity: case Key::TagName: case Key::Mode: case Key::RemoteIp: case Key::DeviceName:
    case Key::Type: case Key::LongAddress: case Key::TmsAddress:
        return ProjectValueKind::Text;
    case Key::HartCmd: case Key::CmdArgs:
        return ProjectValueKind::Numbers;
    default:
        return ProjectValueKind::Number;
    }
}

wxArrayString ProjectValueTokens(const wxString& value)
{
    return Tokens(value);
}

wxArrayString ProjectSettingLines(const Project& project)
{
    wxArrayString settings;
    const wxArrayString lines = ProjectFileLines(project);
    for (size_t i = 1; i < lines.size() && !lines[i].StartsWith("DEVICE COUNT:"); ++i)
        if (!lines[i].empty())
            settings.Add(lines[i]);
    return settings;
}

ProjectReadResult ApplyProjectFile(AppContext& ctx, const wxString& path)
{
    // Read line by line: the defaults are laid down when the first line comes, so a file with no
    // lines, like one that cannot be read, changes nothing.
    Project& project = ctx.project;
    ProjectLineReader reader;
    bool first = true;
    const TextFileRead read = ReadTextFile(path, [&](const wxString& line) {
        if (first) {
            LoadDefaultProject(project);
            project.automaticModbusMap = 1;
            ctx.ui.RefreshPanel();
            first = false;
        }
        ParseProjectLine(project, line, reader);
    });
    if (read != TextFileRead::Read)
        return ProjectReadResult::Unreadable;
    if (first)
        return ProjectReadResult::NoContent;
    project.projectOpen = 1;
    if (project.deviceCount > 0)
        project.selectedDevice = 0;
    return ProjectReadResult::Read;
}

ProjectReadResult ReadProjectFromDisk(AppContext& ctx, const wxString& path, wxString* unreadableMap)
{
    if (!wxFileExists(path))
        return ProjectReadResult::Unreadable;
    // A map file that is there but cannot be read is not taken for no map: the load stops before
    // anything changes, so that nothing is saved over it.
    TextLines map;
    wxString refused;
    if (ReadProjectMap(path, map, &refused) == TextFileRead::Refused) {
        if (unreadableMap != nullptr)
            *unreadableMap = refused;
        return ProjectReadResult::MapUnreadable;
    }
    const ProjectReadResult read = ApplyProjectFile(ctx, path);
    if (read != ProjectReadResult::Read)
        return read;
    ctx.project.projectFilePath.Assign(path);
    ctx.project.modbusMapLines.swap(map);
    return ProjectReadResult::Read;
}
