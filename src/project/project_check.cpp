#include "project/project_check.h"

#include "base/device_type_table.h"
#include "base/number_text.h"
#include "base/text_file.h"
#include "project/panel_view.h"
#include "project/project.h"
#include "project/project_file.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>
#include <vector>

namespace {

// The limits the device and command dialogs enforce, and the gateway relies on.
constexpr size_t kLongAddressLength = 10;
constexpr int kMapFields = 7;
// The device dialog writes bit 0 (enabled for polling) and bit 1 (auto addressing).
constexpr int kMaxEnableValue = 3;

// Where the reader found each value: the last line of a key wins, as it does in the reader.
struct Locations {
    std::map<wxString, int> settings;
    int forDevice[MAX_DEVICES] = {};
    std::map<wxString, int> device[MAX_DEVICES];
    int hartCmd[MAX_DEVICES][MAX_COMMANDS] = {};
    int cmdArgs[MAX_DEVICES][MAX_COMMANDS] = {};

    int Setting(const char* key) const
    {
        const auto it = settings.find(key);
        return it == settings.end() ? 0 : it->second;
    }
    int Device(int d, const char* key) const
    {
        const auto it = device[d].find(key);
        return it == device[d].end() ? forDevice[d] : it->second;
    }
};

class Checker {
public:
    Checker(const Project& project, const DeviceTypeTable& deviceTypes)
        : project(project), deviceTypes(deviceTypes)
    {
    }

    // Walks the lines as the reader does, one at a time, noting where each value came from and
    // what the reader passes over. False once the file is no project file at all.
    bool ScanLine(const wxString& text);
    // After the last line: false when the file is no project file at all.
    bool EndScan();
    void CheckValues();
    std::vector<ProjectProblem> problems;

private:
    // A device's FOR DEVICE line and the commands its block gives, as loaded.
    struct Block {
        int line;
        wxString commands;
    };

    void Add(int line, const wxString& text) { problems.push_back({false, line, text}); }
    void Note(const wxString& subject, int anchor, int line, const wxString& value);
    void ScanNumbers(int line, const wxString& key, const wxString& value);
    void ScanDeviceLine(int line, const wxString& key, const wxString& value);
    void CheckRepeats();
    void CheckChoices();
    void CheckTagName();
    void CheckPorts();
    void CheckDevices();
    void CheckCommands(int d);
    void CheckMapLines();

    const Project& project;
    const DeviceTypeTable& deviceTypes;
    Locations where;
    int currentDevice = -1;
    int linesRead = 0;
    int deviceCountLine = 0;
    bool known = false;
    bool binary = false;
    int commandCount[MAX_DEVICES] = {};
    int lastCommand = -1;
    bool commandInBlock = false;
    // Each value a key was given, by subject ("MODE", "device 0: TYPE") and, for CMDARGS, the
    // line of its HARTCMD; in the order of the lines, so the last one is the one loaded.
    std::map<std::pair<wxString, int>, std::vector<std::pair<int, wxString>>> given;
    std::vector<Block> blocks[MAX_DEVICES];
};

bool IsBinary(const wxString& line)
{
    return std::any_of(line.begin(), line.end(), [](wxUniChar c) { return c < 0x20 && c != '\t'; });
}

}  // namespace

bool IsProjectFile(const wxString& path)
{
    bool binary = false;
    bool known = false;
    const TextFileRead read = ReadTextFile(path, [&](const wxString& line) {
        wxString key;
        binary = binary || IsBinary(line);
        known = known || ProjectLineKey(line, key) != ProjectValueKind::None;
    });
    return read == TextFileRead::Read && known && !binary;
}

namespace {

// A HARTCMD or CMDARGS value as loaded: each value a number (one that does not convert as 0), a
// HARTCMD of three values with the write flag 0 that the reader gives it.
wxString LoadedNumbers(const wxArrayString& tokens, bool command)
{
    wxString text;
    for (const wxString& token : tokens) {
        int number = 0;
        ParseWholeInt(token, number);
        text << number << ' ';
    }
    if (command && tokens.size() == 3)
        text << "0 ";
    return text;
}

// "A or B", "A, B or C".
wxString Alternatives(const std::vector<wxString>& values)
{
    wxString text = values.front();
    for (size_t i = 1; i < values.size(); ++i)
        text << (i + 1 == values.size() ? " or " : ", ") << values[i];
    return text;
}

void Checker::Note(const wxString& subject, int anchor, int line, const wxString& value)
{
    given[{subject, anchor}].emplace_back(line, value);
}

bool Checker::ScanLine(const wxString& text)
{
    const int line = ++linesRead;
    if (binary)
        return false;
    if (IsBinary(text)) {
        binary = true;
        problems = {{false, line, "not a project file: binary content"}};
        return false;
    }
    wxString key;
    const ProjectValueKind kind = ProjectLineKey(text, key);
    if (kind == ProjectValueKind::None)
        return true;
    known = true;
    const wxString value = text.Mid(key.length());
    const wxString name = key.BeforeLast(':');
    int number = 0;
    if (key == "DEVICE COUNT:")
        deviceCountLine = line;
    if (kind == ProjectValueKind::Number && !ParseWholeInt(value, number)) {
        Add(line, wxString::Format("%s value \"%s\" is not a whole number: it is not loaded", name, value));
        return true;
    }
    if (key == "DEVICE COUNT:") {
        Note(name, 0, line, wxString::Format("%d", number));
    } else if (key == "FOR DEVICE:") {
        currentDevice = number;
        commandInBlock = false;
        if (number < 0 || number >= MAX_DEVICES) {
            Add(line, wxString::Format("device %d is outside 0..15: its lines are ignored", number));
            return true;
        }
        blocks[number].push_back({line, wxString()});
        where.forDevice[number] = line;
        commandCount[number] = 0;
    } else if (kind == ProjectValueKind::Numbers) {
        ScanNumbers(line, key, value);
    } else {
        ScanDeviceLine(line, key, kind == ProjectValueKind::Number ? wxString::Format("%d", number) : value);
    }
    return true;
}

bool Checker::EndScan()
{
    if (binary)
        return false;
    if (!known) {
        problems = {{false, 1, "not a project file: no line holds a known setting"}};
        return false;
    }
    const int devices = static_cast<int>(
        std::count_if(std::begin(blocks), std::end(blocks), [](const auto& list) { return !list.empty(); }));
    if (deviceCountLine == 0)
        Add(0, wxString::Format("DEVICE COUNT is missing: none of the %d device blocks is loaded", devices));
    else if (project.deviceCount != devices)
        Add(deviceCountLine, wxString::Format("DEVICE COUNT %d does not match the %d device block%s",
                                              project.deviceCount, devices, devices == 1 ? "" : "s"));
    return true;
}

// The device keys apply to the current device; every other key is a setting of the project.
void Checker::ScanDeviceLine(int line, const wxString& key, const wxString& value)
{
    static const wxString deviceKeys[] = {"DEVICE NAME:", "TYPE:", "POLL ADDRESS:", "LONG ADDRESS:", "ENABLE:"};
    const wxString name = key.BeforeLast(':');
    if (std::find(std::begin(deviceKeys), std::end(deviceKeys), key) == std::end(deviceKeys)) {
        where.settings[key] = line;
        Note(name, 0, line, value);
        return;
    }
    if (currentDevice == -1) {
        Add(line, name + " before any FOR DEVICE line: ignored");
    } else if (currentDevice >= 0 && currentDevice < MAX_DEVICES) {
        where.device[currentDevice][key] = line;
        Note(wxString::Format("device %d: ", currentDevice) + name, 0, line, value);
    }
}

void Checker::ScanNumbers(int line, const wxString& key, const wxString& value)
{
    const wxString name = key.BeforeLast(':');
    if (currentDevice < 0 || currentDevice >= MAX_DEVICES) {
        if (currentDevice == -1)
            Add(line, name + " before any FOR DEVICE line: ignored");
        return;
    }
    const int d = currentDevice;
    const wxArrayString tokens = ProjectValueTokens(value);
    int number = 0;
    for (const wxString& token : tokens)
        if (!ParseWholeInt(token, number))
            Add(line, wxString::Format("%s value \"%s\" is not a whole number: %s", name, token,
                                       key == "CMDARGS:" ? "0 is loaded" : "it is not loaded"));
    if (key == "CMDARGS:") {
        if (!commandInBlock) {
            Add(line, "CMDARGS before any HARTCMD of its device: ignored");
        } else if (lastCommand >= 0) {
            where.cmdArgs[d][lastCommand] = line;
            const wxString loaded = LoadedNumbers(tokens, false);
            blocks[d].back().commands << "CMDARGS:" << loaded;
            Note(wxString::Format("device %d command %d: CMDARGS", d, lastCommand), where.hartCmd[d][lastCommand],
                 line, loaded);
        }
        return;
    }
    if (commandCount[d] >= MAX_COMMANDS) {
        if (commandCount[d]++ == MAX_COMMANDS)
            Add(line, wxString::Format("device %d has more than 50 commands: this and later ones are ignored", d));
        lastCommand = -1;
        commandInBlock = true;
        return;
    }
    if (tokens.size() != 3 && tokens.size() != 4) {
        Add(line, wxString::Format("HARTCMD with %d values instead of 4: ignored", static_cast<int>(tokens.size())));
        return;
    }
    lastCommand = commandCount[d]++;
    commandInBlock = true;
    where.hartCmd[d][lastCommand] = line;
    blocks[d].back().commands << "HARTCMD:" << LoadedNumbers(tokens, true);
}

void Checker::CheckValues()
{
    CheckRepeats();
    CheckChoices();
    CheckTagName();
    CheckPorts();
    CheckDevices();
    CheckMapLines();
}

// The reader takes the last line of a key without a word; a value given again alike changes nothing.
void Checker::CheckRepeats()
{
    for (const auto& [subject, values] : given) {
        const auto& [wins, loaded] = values.back();
        for (size_t i = 0; i + 1 < values.size(); ++i)
            if (values[i].second != loaded)
                Add(values[i].first, wxString::Format("%s given again on line %d with another value: line %d wins",
                                                      subject.first, wins, wins));
    }
    // A device's block given again starts its commands afresh; the other keys of the earlier block
    // stay unless the later block gives them again.
    for (int d = 0; d < MAX_DEVICES; ++d) {
        if (blocks[d].size() < 2)
            continue;
        const Block& last = blocks[d].back();
        for (size_t i = 0; i + 1 < blocks[d].size(); ++i)
            if (!blocks[d][i].commands.empty() && blocks[d][i].commands != last.commands)
                Add(blocks[d][i].line, wxString::Format("FOR DEVICE %d given again on line %d: this block's commands "
                                                        "are dropped", d, last.line));
        // Yet a command slot keeps the arguments an earlier block gave it, unless a CMDARGS of its own
        // replaces them.
        for (int c = 0; c < std::min(commandCount[d], MAX_COMMANDS); ++c) {
            const int argsLine = where.cmdArgs[d][c];
            if (argsLine != 0 && argsLine < last.line && project.devices[d].commands[c].argCount > 0)
                Add(where.hartCmd[d][c], wxString::Format("device %d command %d: has no CMDARGS but is loaded with "
                                                          "those of line %d, from an earlier block", d, c, argsLine));
        }
    }
}

// The values the panel, the dialogs and the defaults write (among them the multiplexer default
// parity "ODD"), and the two bridge modes, which the tool keeps and configures but offers no way
// to choose. Any other value the tool could not have written.
void Checker::CheckChoices()
{
    const auto check = [&](const char* name, const wxString& value, bool text, const std::vector<wxString>& allowed) {
        if (std::find(allowed.begin(), allowed.end(), value) == allowed.end())
            Add(where.Setting((wxString(name) + ":").c_str()),
                wxString::Format("%s %s is not %s", name, text ? "\"" + value + "\"" : value, Alternatives(allowed)));
    };
    const auto text = [&](const char* name, const char* field, const std::vector<wxString>& allowed) {
        check(name, GetText(field), true, allowed);
    };
    const auto number = [&](const char* name, int field, const std::vector<wxString>& allowed) {
        check(name, wxString::Format("%d", field), false, allowed);
    };
    const std::vector<wxString> offOn = {"0", "1"};
    const auto list = [](const auto& choices) { return std::vector<wxString>(std::begin(choices), std::end(choices)); };
    text("MODE", project.mode, {"GATEWAY", "MULTIPLEXOR", "BRIDGE SERVER", "BRIDGE CLIENT"});
    number("TMS ENABLE", project.timeServerEnable, offOn);
    number("TGX PRIMARY MASTER", project.primaryMaster, offOn);
    text("POLLING DEFERRAL MODE", project.pollingDeferralMode, {"NONE", "PARTIAL", "FULL"});
    text("SERIAL PORT FUNCTION", project.serialPortFunction, {"MODEM", "MODBUS"});
    text("SERIAL PORT TYPE", project.serialPortType, list(kInterfaceStandardChoices));
    number("SERIAL PORT BAUDRATE", project.serialBaudRate, list(kBaudRates));
    text("SERIAL PORT PARITY", project.serialParity, {"NOPARITY", "ODDPARITY", "EVENPARITY", "ODD"});
    number("SERIAL PORT STOPBITS", project.serialStopBits, list(kStopBitChoices));
    number("AUTOMATIC MODBUS MAP", project.automaticModbusMap, offOn);
    number("MODBUS FLOAT SWAP BYTES", project.floatSwapBytes, offOn);
    number("MODBUS FLOAT SWAP WORDS", project.floatSwapWords, offOn);
    number("MODBUS FLOAT SWAP LONGS", project.floatSwapLongs, offOn);
    number("MODBUS NAN CTRL", project.nanControl, offOn);
}

void Checker::CheckTagName()
{
    const int line = where.Setting("TGX TAGNAME:");
    const wxString tag = GetText(project.tagName);
    const wxString allowed = kTagCharacters;
    if (std::any_of(tag.begin(), tag.end(), [&](wxUniChar c) { return allowed.Find(c) == wxNOT_FOUND; }))
        Add(line, wxString::Format("tag name \"%s\" has characters other than letters and digits", tag));
    if (tag.length() > kGatewayTagLength)
        Add(line, wxString::Format("tag name \"%s\" is longer than %d characters: Configure keeps \"%s\"", tag,
                                   static_cast<int>(kGatewayTagLength), tag.Left(kGatewayTagLength)));
}

void Checker::CheckPorts()
{
    const std::pair<const char*, int> ports[] = {
        {"VCP PORT NUMBER", project.vcpPort},
        {"MTCP PORT NUMBER", project.modbusTcpPort},
        {"MENCAP PORT NUMBER", project.mencapPort},
        {"INTERCOM PORT NUMBER", project.intercomPort},
        {"SYSLOG PORT NUMBER", project.syslogPort},
        {"HARTIPTCP PORT NUMBER", project.hartIpTcpPort},
    };
    for (size_t i = 0; i < std::size(ports); ++i) {
        const auto& [name, port] = ports[i];
        const int line = where.Setting((wxString(name) + ":").c_str());
        if (port < 1 || port > 65535)
            Add(line, wxString::Format("%s %d is outside 1..65535", name, port));
        for (size_t j = 0; j < i; ++j)
            if (ports[j].second == port) {
                Add(line, wxString::Format("%s %d is already used by %s", name, port, ports[j].first));
                break;
            }
    }
}

bool IsKnownType(const DeviceTypeTable& deviceTypes, const wxString& type)
{
    for (int row = 0; row < deviceTypes.deviceTypeCount; ++row)
        if (deviceTypes.TypeName(row) == type)
            return true;
    return false;
}

void Checker::CheckDevices()
{
    // The multiplexer reaches its devices by long address; the poll address is not used there.
    const bool multiplexer = IsMultiplexerMode(project);
    const int count = std::clamp(project.deviceCount, 0, MAX_DEVICES);
    for (int d = 0; d < count; ++d) {
        // A device without a block of its own is named by the DEVICE COUNT problem already.
        if (where.forDevice[d] == 0)
            continue;
        const ProjectDevice& device = project.devices[d];
        const wxString who = wxString::Format("device %d: ", d);
        const int pollLine = where.Device(d, "POLL ADDRESS:");
        if (!multiplexer) {
            if (device.pollAddress < 0 || device.pollAddress > kMaxPollAddress)
                Add(pollLine, who + wxString::Format("poll address %d is outside 0..63", device.pollAddress));
            for (int other = 0; other < d; ++other)
                if (project.devices[other].pollAddress == device.pollAddress) {
                    Add(pollLine, who + wxString::Format("poll address %d is already used by device %d",
                                                         device.pollAddress, other));
                    break;
                }
        }
        const wxString type = GetText(device.typeName);
        if (!IsKnownType(deviceTypes, type))
            Add(where.Device(d, "TYPE:"), who + wxString::Format("device type \"%s\" is not in ct.cfg", type));
        if (device.enabled < 0 || device.enabled > kMaxEnableValue)
            Add(where.Device(d, "ENABLE:"), who + wxString::Format("enable value %d is outside 0..3", device.enabled));
        const wxString longAddress = GetText(device.longAddress);
        if (multiplexer && longAddress.length() != kLongAddressLength)
            Add(where.Device(d, "LONG ADDRESS:"),
                who + wxString::Format("long address \"%s\" is not 10 characters", longAddress));
        CheckCommands(d);
    }
}

void Checker::CheckCommands(int d)
{
    const ProjectDevice& device = project.devices[d];
    for (int c = 0; c < std::min(device.commandCount, MAX_COMMANDS); ++c) {
        const HartCommandEntry& command = device.commands[c];
        const wxString who = wxString::Format("device %d command %d: ", d, c);
        const int line = where.hartCmd[d][c];
        if (command.commandNumber < 0 || command.commandNumber > kMaxCommandNumber)
            Add(line, who + wxString::Format("command number %d is outside 0..255", command.commandNumber));
        if (command.cycleInterval < 1)
            Add(line, who + wxString::Format("cycle interval %d is below 1", command.cycleInterval));
        // The command dialog writes both flags as 0 or 1.
        if (command.pollEnabled != 0 && command.pollEnabled != 1)
            Add(line, who + wxString::Format("polling flag %d is not 0 or 1", command.pollEnabled));
        if (command.writeCommand != 0 && command.writeCommand != 1)
            Add(line, who + wxString::Format("write flag %d is not 0 or 1", command.writeCommand));
        if (command.argCount > MAX_COMMAND_ARGS)
            Add(where.cmdArgs[d][c], who + wxString::Format("%d arguments: only the first 8 are kept", command.argCount));
    }
}

void Checker::CheckMapLines()
{
    int number = 0;
    for (const std::string_view line : project.modbusMapLines) {
        ++number;
        const int fields = static_cast<int>(std::count(line.begin(), line.end(), ',')) + 1;
        if (fields != kMapFields)
            problems.push_back({true, number, wxString::Format("map line %d: %d fields instead of 7", number, fields)});
    }
}

}  // namespace

std::vector<ProjectProblem> CheckProject(const Project& project, const DeviceTypeTable& deviceTypes,
                                         const wxString& projectPath)
{
    Checker checker(project, deviceTypes);
    ReadTextFile(projectPath, [&checker](const wxString& line) { checker.ScanLine(line); });
    if (checker.EndScan())
        checker.CheckValues();
    std::stable_sort(checker.problems.begin(), checker.problems.end(), [](const auto& a, const auto& b) {
        return std::make_pair(a.inMapFile, a.line) < std::make_pair(b.inMapFile, b.line);
    });
    return checker.problems;
}

wxString FormatProblem(const ProjectProblem& problem, const wxString& projectFile, const wxString& mapFile)
{
    const wxString& file = problem.inMapFile ? mapFile : projectFile;
    if (problem.line == 0)
        return file + ": " + problem.text;
    return wxString::Format("%s:%d: %s", file, problem.line, problem.text);
}
