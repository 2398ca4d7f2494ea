#include "cli/cli_json.h"

#include "base/unicode_text.h"
#include "project/project_file.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace {

using Json = nlohmann::ordered_json;

std::string Utf8(const wxString& text) { return Utf8Bytes(text); }

std::string Document(const Json& json) { return json.dump(2) + "\n"; }

}  // namespace

std::string ProjectJson(const Project& project)
{
    Json settings = Json::object();
    for (const wxString& line : ProjectSettingLines(project))
        settings[Utf8(line.BeforeFirst(':'))] = Utf8(line.AfterFirst(':'));
    Json devices = Json::array();
    for (int d = 0; d < std::min(project.deviceCount, MAX_DEVICES); ++d) {
        const ProjectDevice& device = project.devices[d];
        Json commands = Json::array();
        for (int c = 0; c < std::min(device.commandCount, MAX_COMMANDS); ++c) {
            const HartCommandEntry& command = device.commands[c];
            Json args = Json::array();
            for (int a = 0; a < std::clamp(command.argCount, 0, MAX_COMMAND_ARGS); ++a)
                args.push_back(command.args[a]);
            commands.push_back({{"number", command.commandNumber}, {"interval", command.cycleInterval},
                {"polled", command.pollEnabled == 1}, {"writeOnTrigger", command.writeCommand != 0},
                {"arguments", args}});
        }
        devices.push_back({{"slot", d}, {"name", Utf8(GetText(device.deviceName))},
            {"type", Utf8(GetText(device.typeName))}, {"pollAddress", device.pollAddress},
            {"longAddress", Utf8(GetText(device.longAddress))}, {"enabled", (device.enabled & 1) != 0},
            {"autoAddressing", (device.enabled & 2) != 0}, {"commands", commands}});
    }
    Json map = Json::array();
    for (const std::string_view line : project.modbusMapLines)
        map.push_back(std::string(line));
    return Document({{"settings", settings}, {"devices", devices}, {"map", map}});
}

std::string ProblemsJson(const std::vector<ProjectProblem>& problems, const wxString& projectFile, const wxString& mapFile)
{
    Json list = Json::array();
    for (const ProjectProblem& problem : problems)
        list.push_back({{"file", Utf8(problem.inMapFile ? mapFile : projectFile)},
            {"line", problem.line == 0 ? Json() : Json(problem.line)}, {"message", Utf8(problem.text)}});
    return Document({{"problems", list}});
}

std::string DifferencesJson(const std::vector<ProjectDifference>& differences)
{
    Json list = Json::array();
    for (const ProjectDifference& d : differences)
        list.push_back({{"kind", KindName(d.kind)}, {"change", ChangeName(d.change)}, {"subject", Utf8(d.subject)},
            {"before", d.change == ProjectDifference::Change::Added ? Json() : Json(Utf8(d.before))},
            {"after", d.change == ProjectDifference::Change::Removed ? Json() : Json(Utf8(d.after))}});
    return Document({{"same", differences.empty()}, {"differences", list}});
}

std::string InfoJson(const GatewayInfo& info, const InstallationEnvironment& env, const Project& project)
{
    Json summary;  // null without a project
    if (info.projectFetched) {
        Json devices = Json::array();
        for (int d = 0; d < std::min(project.deviceCount, MAX_DEVICES); ++d) {
            const ProjectDevice& device = project.devices[d];
            devices.push_back({{"slot", d}, {"name", Utf8(GetText(device.deviceName))},
                {"type", Utf8(GetText(device.typeName))}, {"pollAddress", device.pollAddress},
                {"longAddress", Utf8(GetText(device.longAddress))}, {"enabled", (device.enabled & 1) != 0}});
        }
        summary = {{"tagName", Utf8(GetText(project.tagName))}, {"mode", Utf8(GetText(project.mode))},
            {"automaticMap", project.automaticModbusMap == 1}, {"mapLines", project.modbusMapLines.size()},
            {"devices", devices}};
    }
    const GatewayVersions& v = info.versions;
    return Document({{"deviceType", Utf8(v.deviceType)}, {"firmware", Utf8(v.firmware)},
        {"templates", Utf8(v.templates)},
        {"installation", {{"firmware", Utf8(env.FirmwareVersion)}, {"templates", Utf8(env.TemplatesVersion)}}},
        {"firmwareMatches", info.firmwareMatches}, {"project", summary},
        {"projectProblem", info.projectFetched ? Json() : Json(Utf8(info.projectProblem))}});
}
