#include "deploy/config_generator.h"

#include "base/app_context.h"
#include "base/text_file.h"
#include "project/project.h"

#include <wx/filefn.h>
#include <wx/log.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace {

// Both header lines are 59 characters wide; the blanks before the closing dashes belong to them.
const char kCreatedByLine[] = "; --- CREATED BY TGXCONFIGTOOL APPLICATION              ---";
const char kDoNotEditLine[] = "; --- DO NOT EDIT MANUALLY                              ---";
static_assert(sizeof kCreatedByLine == 60 && sizeof kDoNotEditLine == 60, "header lines are 59 characters");

// A fixed value in the system template's argument list; the template set expects exactly this.
constexpr int kSystemTemplateConstant = 50002;

// What the caller shows when ttbuild fails, with its exit code.
const char kBuildFailedFormat[] = "Failed to build configuration files for TG7 - (ttbuild returned %ld).\n"
                                  "Check TARN software is properly installed";

static_assert(kDeviceTypeTextSize == kTextFieldSize, "type names are compared field against cell");

// A fixed text field read no further than its size, so that a field without its NUL cannot
// take the text of the next one with it.
template <std::size_t N> wxString FieldText(const char (&field)[N])
{
    return wxString::FromUTF8(field, strnlen(field, N));
}

// Counts as stored may come from a damaged or hand-edited project file: never past the arrays.
int UsedDevices(const Project& project) { return std::clamp(project.deviceCount, 0, MAX_DEVICES); }
int UsedCommands(const ProjectDevice& device) { return std::clamp(device.commandCount, 0, MAX_COMMANDS); }
int UsedArgs(const HartCommandEntry& command) { return std::clamp(command.argCount, 0, MAX_COMMAND_ARGS); }

// The rows of the type table, in table order, whose type name (column 1) is the device's type.
std::vector<int> MatchingRows(const DeviceTypeTable& table, const ProjectDevice& device)
{
    std::vector<int> rows;
    const int rowCount = std::clamp(table.deviceTypeCount, 0, kMaxDeviceTypes);
    for (int row = 0; row < rowCount; ++row)
        if (std::strncmp(table.cells[0][row], device.typeName, kTextFieldSize) == 0)
            rows.push_back(row);
    return rows;
}

wxString TemplateName(const DeviceTypeTable& table, int column, int row)
{
    return FieldText(table.cells[column - 1][row]);
}

// "#include <column>(0,<device>)" for every device and every matching row, in device order.
void AddModbusPass(
    wxArrayString& lines, const DeviceTypeTable& table, const std::vector<std::vector<int>>& matches, int column)
{
    for (std::size_t i = 0; i < matches.size(); ++i)
        for (int row : matches[i])
            lines.Add(wxString::Format("#include %s(0,%d)", TemplateName(table, column, row), static_cast<int>(i)));
}

// A device's dbsave.txt line, "1,L0D<device>:<key>" and its values. Built as plain ASCII with
// to_chars: a full project writes some 9,000 numbers, and formatting each one through wxString
// took five times as long as writing the files.
class DeviceValueLine {
public:
    DeviceValueLine(int device, const char* key)
    {
        text_ = "1,L0D";
        Append(device);
        text_ += ':';
        text_ += key;
    }
    // The number itself, with no comma before it.
    DeviceValueLine& Append(int value)
    {
        char digits[16];
        const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, value);
        text_.append(digits, end.ptr);
        return *this;
    }
    // ",value" for the first `used` values, then ",fill" until there are `total`.
    template <typename ValueOf> DeviceValueLine& Values(int used, int total, ValueOf valueOf, int fill)
    {
        for (int k = 0; k < total; ++k) {
            text_ += ',';
            Append(k < used ? valueOf(k) : fill);
        }
        return *this;
    }
    wxString Text() const { return wxString::FromAscii(text_.data(), text_.size()); }

private:
    std::string text_;
};

} // namespace

int ConfigModeCode(const Project& project)
{
    const wxString mode = FieldText(project.mode);
    if (mode == "BRIDGE SERVER")
        return 1;
    if (mode == "BRIDGE CLIENT")
        return 2;
    if (mode == "MULTIPLEXOR")
        return 3;
    return 0;
}

// Each setting is 0 or 1 in a file the tool wrote; any other number a project file holds wraps
// around in 32 bits, as the sum always did, instead of overflowing.
int FloatSwapCode(const Project& project)
{
    const auto bits = [](int value) { return static_cast<std::uint32_t>(value); };
    return static_cast<int>(2u * bits(project.floatSwapBytes) + 4u * bits(project.floatSwapWords) +
                            8u * bits(project.floatSwapLongs));
}

wxArrayString BuildCtIniLines(const Project& project, const DeviceTypeTable& deviceTypes)
{
    const int deviceCount = UsedDevices(project);
    const int modeCode = ConfigModeCode(project);
    std::vector<std::vector<int>> matches;
    for (int i = 0; i < deviceCount; ++i)
        matches.push_back(MatchingRows(deviceTypes, project.devices[i]));

    wxArrayString lines;
    lines.Add(kCreatedByLine);
    lines.Add(kDoNotEditLine);
    lines.Add(";");
    lines.Add("; System database and settings");
    lines.Add("; ~~~~~~~~~~~~~~~~~~~~~~~~~~~~");
    lines.Add(wxString::Format("#include defstmpl.ini(%s,1,%d,%d,%d,%s,%d,%d,%d,%s)", FieldText(project.tagName),
        deviceCount, FloatSwapCode(project), modeCode, FieldText(project.remoteIp), kSystemTemplateConstant,
        project.bridgeBufferTime, project.timeServerEnable, FieldText(project.timeServerAddress)));
    lines.Add(wxString::Format("#include hartlooptmpl.ini(0,%d)", deviceCount));
    // The data bits are always 8 on the gateway's port, whatever the project holds.
    lines.Add(wxString::Format("#include fimportstmpl.ini(4,%s,%s,%d,8,%d,%s,%d)",
        FieldText(project.serialPortFunction), FieldText(project.serialPortType), project.serialBaudRate,
        project.serialStopBits, FieldText(project.serialParity), project.modbusRtuAddress));
    lines.Add(wxString::Format("#include inetdtmpl.ini(%d,%d,%d,%d,%d,%d)", project.modbusTcpPort, project.vcpPort,
        project.mencapPort, project.intercomPort, project.syslogPort, project.hartIpTcpPort));

    lines.Add(";");
    lines.Add("; Device database and settings");
    lines.Add("; ~~~~~~~~~~~~~~~~~~~~~~~~~~~~");
    // Disabled devices are included like the others: dbsave.txt's ENABLE value is what switches them off.
    for (int i = 0; i < deviceCount; ++i) {
        const ProjectDevice& device = project.devices[i];
        for (int row : matches[i]) {
            const wxString name = TemplateName(deviceTypes, 2, row);
            if (modeCode == 3)
                lines.Add(wxString::Format("#include %s(0,%d,%s)", name, i, FieldText(device.longAddress)));
            else
                lines.Add(wxString::Format("#include %s(0,%d,%d)", name, i, device.pollAddress));
        }
    }

    lines.Add(";");
    lines.Add("; System modbus items");
    lines.Add("; ~~~~~~~~~~~~~~~~~~~");
    lines.Add("#include systemmb.ini");
    for (int column = 3; column <= 5; ++column)
        AddModbusPass(lines, deviceTypes, matches, column);
    lines.Add("#include hartloopmbtmpl.ini(0)");

    lines.Add(";");
    lines.Add("; Device modbus items");
    lines.Add("; ~~~~~~~~~~~~~~~~~~~");
    AddModbusPass(lines, deviceTypes, matches, 6);
    lines.Add(";");
    lines.Add("; END");
    return lines;
}

wxArrayString BuildDbSaveLines(const Project& project)
{
    wxArrayString lines;
    lines.Add(wxString::Format("1,SYS:OPERMODE,%d", ConfigModeCode(project)));
    const wxString deferral = FieldText(project.pollingDeferralMode);
    if (deferral == "NONE")
        lines.Add("1,SYS:DEFERMODE,0");
    else if (deferral == "PARTIAL")
        lines.Add("1,SYS:DEFERMODE,1");
    else if (deferral == "FULL")
        lines.Add("1,SYS:DEFERMODE,2");
    lines.Add(wxString::Format("1,L0:NANCTRL,%d", project.nanControl));
    lines.Add(wxString::Format("1,L0:MADDR,%d", project.primaryMaster));

    const int deviceCount = UsedDevices(project);
    for (int i = 0; i < deviceCount; ++i) {
        const ProjectDevice& device = project.devices[i];
        const HartCommandEntry* commands = device.commands;
        const int used = UsedCommands(device);

        const wxString enable = wxString::Format("1,L0D%d:ENABLE,%d", i, device.enabled);
        // Written twice on purpose: gateways in the field expect the doubled line.
        lines.Add(enable);
        lines.Add(enable);

        lines.Add(DeviceValueLine(i, "MSGCMDNO")
                      .Values(
                          used, MAX_COMMANDS, [&](int k) { return commands[k].commandNumber; }, 0)
                      .Text());
        lines.Add(DeviceValueLine(i, "MSGCMDNOWR")
                      .Values(
                          used, MAX_COMMANDS, [&](int k) { return commands[k].writeCommand; }, 0)
                      .Text());
        // A command not enabled for polling keeps its slot with the interval -1.
        lines.Add(DeviceValueLine(i, "MSGPOLLTM")
                      .Values(
                          used, MAX_COMMANDS,
                          [&](int k) { return commands[k].pollEnabled == 1 ? commands[k].cycleInterval : -1; }, -1)
                      .Text());

        // Every slot, used or not, numbered from 1 while the devices count from 0.
        for (int k = 0; k < MAX_COMMANDS; ++k) {
            const HartCommandEntry& command = commands[k];
            lines.Add(DeviceValueLine(i, "CMDARGS")
                          .Append(k + 1)
                          .Values(
                              UsedArgs(command), MAX_COMMAND_ARGS, [&](int a) { return command.args[a]; }, -1)
                          .Text());
        }
    }
    return lines;
}

ToolCommand TtbuildCommand(const wxString& buildPath, const wxString& outputFolder, const wxString& separator)
{
    return ToolCommand("ttbuild")
        .Arg("-s=BUILD")
        .Arg("-f=LINUX")
        .QuotedArg("-i=" + buildPath + separator + "INCLUDE")
        .QuotedArg("-a=" + buildPath + separator + "ADDITIONAL")
        .QuotedArg("-o=" + outputFolder)
        .QuotedArg("-c=config");
}

void WriteConfiguration(Project& project, const DeviceTypeTable& deviceTypes, const wxString& buildPath,
                        const wxString& sep)
{
    // The default is kept in the project, so that the next save writes it too.
    if (project.timeServerAddress[0] == '\0')
        SetText(project.timeServerAddress, kDefaultTimeServer);

    const wxString includeFolder = buildPath + sep + "INCLUDE";
    const wxString additionalFolder = buildPath + sep + "ADDITIONAL";

    // Write and copy failures are not reported: ttbuild runs on what is there and its exit code
    // is the one verdict. ttbuild reads these files at once and every build writes them anew, so
    // they are not flushed to the disk (scratch files).
    WriteTextLines(includeFolder + sep + "ct.ini", BuildCtIniLines(project, deviceTypes), nullptr, SaveKind::Scratch);
    WriteTextLines(additionalFolder + sep + "dbsave.txt", BuildDbSaveLines(project), nullptr, SaveKind::Scratch);
    {
        wxLogNull quiet;
        wxCopyFile(project.projectFilePath.GetFullPath(), additionalFolder + sep + "tgxconfig.prj", true);
    }
    WriteTextLines(additionalFolder + sep + "MBMAP1.csv", project.modbusMapLines, nullptr, SaveKind::Scratch);
}

bool BuildConfiguration(AppContext& ctx, wxString& errorText, wxString& outputFolder, wxString& outputName)
{
    const wxString sep = ctx.platform.PathSeparator();
    const wxString buildPath = ctx.env.TgxBuildPath;
    // ttbuild's "-s=BUILD" is relative to the templates folder.
    ctx.tools.SetWorkingDirectory(ctx.env.TgxTemplatesPath);

    if (outputFolder.empty())
        outputFolder = buildPath + sep + "OUTPUT";
    if (outputName.empty())
        outputName = ctx.project.projectFilePath.GetName();

    const long code = ctx.tools.RunBlockingHidden(TtbuildCommand(buildPath, outputFolder, sep));
    if (code == 0)
        return true;
    errorText = wxString::Format(kBuildFailedFormat, code);
    return false;
}

bool GenerateConfiguration(AppContext& ctx, wxString& errorText, wxString& outputFolder, wxString& outputName)
{
    WriteConfiguration(ctx.project, ctx.deviceTypes, ctx.env.TgxBuildPath, ctx.platform.PathSeparator());
    return BuildConfiguration(ctx, errorText, outputFolder, outputName);
}
