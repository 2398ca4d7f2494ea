#include "project/project_check.h"

#include "app/device_type_table.h"
#include "deploy/configure_device.h"
#include "project/project.h"

#include <algorithm>
#include <iterator>

namespace {

// The limits the device and command dialogs enforce, and the gateway relies on.
constexpr int kMaxPollAddress = 63;
constexpr int kMaxCommandNumber = 255;
constexpr size_t kLongAddressLength = 10;
constexpr int kMapFields = 7;

void CheckTagName(const Project& project, wxArrayString& problems)
{
    const wxString tag = GetText(project.tagName);
    const wxString allowed = kTagCharacters;
    if (std::any_of(tag.begin(), tag.end(), [&](wxUniChar c) { return allowed.Find(c) == wxNOT_FOUND; }))
        problems.Add(wxString::Format("tag name \"%s\" has characters other than letters and digits", tag));
    if (tag.length() > kGatewayTagLength)
        problems.Add(wxString::Format("tag name \"%s\" is longer than %d characters: Configure keeps \"%s\"", tag,
            static_cast<int>(kGatewayTagLength), tag.Left(kGatewayTagLength)));
}

void CheckPorts(const Project& project, wxArrayString& problems)
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
        if (port < 1 || port > 65535)
            problems.Add(wxString::Format("%s %d is outside 1..65535", name, port));
        for (size_t j = 0; j < i; ++j)
            if (ports[j].second == port) {
                problems.Add(wxString::Format("%s %d is already used by %s", name, port, ports[j].first));
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

void CheckCommands(const ProjectDevice& device, int d, wxArrayString& problems)
{
    for (int c = 0; c < std::min(device.commandCount, MAX_COMMANDS); ++c) {
        const HartCommandEntry& command = device.commands[c];
        const wxString where = wxString::Format("device %d command %d: ", d, c);
        if (command.commandNumber < 0 || command.commandNumber > kMaxCommandNumber)
            problems.Add(where + wxString::Format("command number %d is outside 0..255", command.commandNumber));
        if (command.cycleInterval < 1)
            problems.Add(where + wxString::Format("cycle interval %d is below 1", command.cycleInterval));
        if (command.argCount > MAX_COMMAND_ARGS)
            problems.Add(where + wxString::Format("%d arguments: only the first 8 are kept", command.argCount));
    }
}

void CheckDevices(const Project& project, const DeviceTypeTable& deviceTypes, wxArrayString& problems)
{
    // The multiplexer reaches its devices by long address; the poll address is not used there.
    const bool multiplexer = IsMultiplexerMode(project);
    const int count = std::clamp(project.deviceCount, 0, MAX_DEVICES);
    for (int d = 0; d < count; ++d) {
        const ProjectDevice& device = project.devices[d];
        const wxString where = wxString::Format("device %d: ", d);
        if (!multiplexer) {
            if (device.pollAddress < 0 || device.pollAddress > kMaxPollAddress)
                problems.Add(where + wxString::Format("poll address %d is outside 0..63", device.pollAddress));
            for (int other = 0; other < d; ++other)
                if (project.devices[other].pollAddress == device.pollAddress) {
                    problems.Add(where
                        + wxString::Format("poll address %d is already used by device %d", device.pollAddress, other));
                    break;
                }
        }
        const wxString type = GetText(device.typeName);
        if (!IsKnownType(deviceTypes, type))
            problems.Add(where + wxString::Format("device type \"%s\" is not in ct.cfg", type));
        const wxString longAddress = GetText(device.longAddress);
        if (multiplexer && longAddress.length() != kLongAddressLength)
            problems.Add(where + wxString::Format("long address \"%s\" is not 10 characters", longAddress));
        CheckCommands(device, d, problems);
    }
}

void CheckMapLines(const Project& project, wxArrayString& problems)
{
    for (size_t i = 0; i < project.modbusMapLines.size(); ++i) {
        const int fields = static_cast<int>(project.modbusMapLines[i].Freq(',')) + 1;
        if (fields != kMapFields)
            problems.Add(wxString::Format("map line %d: %d fields instead of 7", static_cast<int>(i) + 1, fields));
    }
}

} // namespace

wxArrayString CheckProject(const Project& project, const DeviceTypeTable& deviceTypes)
{
    wxArrayString problems;
    CheckTagName(project, problems);
    CheckPorts(project, problems);
    CheckDevices(project, deviceTypes, problems);
    CheckMapLines(project, problems);
    return problems;
}
