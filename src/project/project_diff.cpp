#include "project/project_diff.h"

#include "project/project_file.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace {

using Fields = std::vector<std::pair<wxString, wxString>>;  // name, value, in a fixed order

// An item of one side: the key it is matched by, its text when it is added or removed, and its
// fields when it is matched.
struct Item {
    wxString key;
    Fields fields;
};

// For each item of `a` the index of its partner in `b`, or -1: the n-th item with a key is paired
// with the n-th item with that key on the other side (a project file may hold duplicates).
std::vector<int> MatchByKey(const std::vector<Item>& a, const std::vector<Item>& b, std::vector<bool>& bMatched)
{
    std::map<wxString, std::vector<int>> waiting;
    for (int j = static_cast<int>(b.size()) - 1; j >= 0; --j)
        waiting[b[j].key].push_back(j);
    std::vector<int> partner(a.size(), -1);
    bMatched.assign(b.size(), false);
    for (size_t i = 0; i < a.size(); ++i) {
        auto found = waiting.find(a[i].key);
        if (found == waiting.end() || found->second.empty())
            continue;
        partner[i] = found->second.back();
        found->second.pop_back();
        bMatched[partner[i]] = true;
    }
    return partner;
}

wxString JoinFields(const Fields& fields)
{
    wxString text;
    for (const auto& [name, value] : fields) {
        if (!text.empty())
            text << ", ";
        if (!name.empty())
            text << name << " ";
        text << value;
    }
    return text;
}

// The fields of a matched pair that differ; false when none does.
bool DifferingFields(const Fields& a, const Fields& b, wxString& before, wxString& after)
{
    Fields changedA, changedB;
    for (size_t f = 0; f < a.size() && f < b.size(); ++f)
        if (a[f].second != b[f].second) {
            changedA.push_back(a[f]);
            changedB.push_back(b[f]);
        }
    before = JoinFields(changedA);
    after = JoinFields(changedB);
    return !changedA.empty();
}

// Compares two lists of items; `nested` is called for each matched pair after its own line.
template <class Nested>
void DiffItems(ProjectDifference::Kind kind, const wxString& prefix, const std::vector<Item>& a,
    const std::vector<Item>& b, std::vector<ProjectDifference>& out, Nested nested)
{
    using Change = ProjectDifference::Change;
    std::vector<bool> bMatched;
    const std::vector<int> partner = MatchByKey(a, b, bMatched);
    for (size_t i = 0; i < a.size(); ++i) {
        const wxString subject = prefix + a[i].key;
        if (partner[i] < 0) {
            out.push_back({kind, Change::Removed, subject, JoinFields(a[i].fields), wxString()});
            continue;
        }
        wxString before, after;
        if (DifferingFields(a[i].fields, b[partner[i]].fields, before, after))
            out.push_back({kind, Change::Changed, subject, before, after});
        nested(i, static_cast<size_t>(partner[i]));
    }
    for (size_t j = 0; j < b.size(); ++j)
        if (!bMatched[j])
            out.push_back({kind, Change::Added, prefix + b[j].key, wxString(), JoinFields(b[j].fields)});
}

std::vector<Item> SettingItems(const Project& project)
{
    std::vector<Item> items;
    for (const wxString& line : ProjectSettingLines(project))
        items.push_back({line.BeforeFirst(':'), {{wxString(), line.AfterFirst(':')}}});
    return items;
}

bool IsMultiplexer(const Project& project) { return GetText(project.mode) == "MULTIPLEXOR"; }

// "%d" without wxString::Format, which converts its format from the locale's encoding each time:
// a full project has some 4,000 numbers a side.
void AppendDecimal(std::string& text, int value)
{
    char digits[16];
    text.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

wxString Decimal(int value)
{
    std::string text;
    AppendDecimal(text, value);
    return wxString::FromAscii(text.data(), text.size());
}

std::vector<Item> DeviceItems(const Project& project, bool byLongAddress)
{
    std::vector<Item> items;
    for (int d = 0; d < std::min(project.deviceCount, MAX_DEVICES); ++d) {
        const ProjectDevice& device = project.devices[d];
        const wxString poll = Decimal(device.pollAddress);
        items.push_back({byLongAddress ? "with long address " + GetText(device.longAddress) : "at poll address " + poll,
            {{"TYPE", GetText(device.typeName)}, {"DEVICE NAME", GetText(device.deviceName)}, {"POLL ADDRESS", poll},
                {"LONG ADDRESS", GetText(device.longAddress)}, {"ENABLE", Decimal(device.enabled)}}});
    }
    return items;
}

std::vector<Item> CommandItems(const ProjectDevice& device)
{
    std::vector<Item> items;
    for (int c = 0; c < std::min(device.commandCount, MAX_COMMANDS); ++c) {
        const HartCommandEntry& command = device.commands[c];
        std::string args = "[";
        for (int a = 0; a < std::clamp(command.argCount, 0, MAX_COMMAND_ARGS); ++a) {
            if (a > 0)
                args += ' ';
            AppendDecimal(args, command.args[a]);
        }
        args += ']';
        items.push_back({Decimal(command.commandNumber),
            {{"INTERVAL", Decimal(command.cycleInterval)}, {"POLLED", Decimal(command.pollEnabled)},
                {"WRITE", Decimal(command.writeCommand)}, {"ARGUMENTS", wxString::FromAscii(args.data(), args.size())}}});
    }
    return items;
}

// A map line's key: SECTION and ADDRESS, its first two fields (empty when the line lacks it).
struct MapKey {
    std::string_view section;
    std::string_view address;
    bool operator==(const MapKey& other) const { return section == other.section && address == other.address; }
};

MapKey KeyOf(std::string_view line)
{
    const std::size_t comma = line.find(',');
    if (comma == std::string_view::npos)
        return {line, {}};
    const std::string_view rest = line.substr(comma + 1);
    return {line.substr(0, comma), rest.substr(0, rest.find(','))};
}

wxString MapSubject(std::string_view line)
{
    const MapKey key = KeyOf(line);
    std::string text = "map ";
    text.append(key.section).append(",").append(key.address);
    return wxString::FromUTF8(text.data(), text.size());
}

// MatchByKey for the map's lines, which may be 65,536 a side: their keys are looked up where
// they lie, in a table of the keys of `b` (open addressing), in time linear in the lines.
std::vector<int> MatchMapLines(const TextLines& a, const std::vector<std::string_view>& b, std::vector<bool>& bMatched)
{
    const auto hashOf = [](const MapKey& key) {
        return std::hash<std::string_view>()(key.section) * 31 + std::hash<std::string_view>()(key.address);
    };
    std::size_t capacity = 16;
    while (capacity < 2 * b.size())
        capacity *= 2;
    std::vector<int> keyLine(capacity, -1);  // a line of `b` with the slot's key; -1: a free slot
    std::vector<int> waiting(capacity, -1);  // the first line of `b` with that key not yet paired
    std::vector<int> next(b.size(), -1);     // the next line of `b` with the same key
    const auto slotOf = [&](const MapKey& key) {
        std::size_t slot = hashOf(key) & (capacity - 1);
        while (keyLine[slot] >= 0 && !(KeyOf(b[static_cast<std::size_t>(keyLine[slot])]) == key))
            slot = (slot + 1) & (capacity - 1);
        return slot;
    };
    for (int j = static_cast<int>(b.size()) - 1; j >= 0; --j) {
        const std::size_t slot = slotOf(KeyOf(b[static_cast<std::size_t>(j)]));
        keyLine[slot] = j;
        next[static_cast<std::size_t>(j)] = waiting[slot];
        waiting[slot] = j;
    }
    std::vector<int> partner;
    partner.reserve(a.size());
    bMatched.assign(b.size(), false);
    for (const std::string_view line : a) {
        const std::size_t slot = slotOf(KeyOf(line));
        const int j = keyLine[slot] < 0 ? -1 : waiting[slot];
        partner.push_back(j);
        if (j < 0)
            continue;
        waiting[slot] = next[static_cast<std::size_t>(j)];
        bMatched[static_cast<std::size_t>(j)] = true;
    }
    return partner;
}

// DiffItems for the map: a line's one field is the line itself.
void DiffMapLines(const TextLines& a, const TextLines& b, std::vector<ProjectDifference>& out)
{
    using Change = ProjectDifference::Change;
    const auto kind = ProjectDifference::Kind::MapLine;
    const std::vector<std::string_view> bLines(b.begin(), b.end());
    std::vector<bool> bMatched;
    const std::vector<int> partner = MatchMapLines(a, bLines, bMatched);
    std::size_t i = 0;
    for (const std::string_view line : a) {
        const int j = partner[i++];
        if (j < 0)
            out.push_back({kind, Change::Removed, MapSubject(line), Utf8Text(line), wxString()});
        else if (line != bLines[static_cast<std::size_t>(j)])
            out.push_back({kind, Change::Changed, MapSubject(line), Utf8Text(line), Utf8Text(bLines[static_cast<std::size_t>(j)])});
    }
    for (std::size_t j = 0; j < bLines.size(); ++j)
        if (!bMatched[j])
            out.push_back({kind, Change::Added, MapSubject(bLines[j]), wxString(), Utf8Text(bLines[j])});
}

}  // namespace

std::vector<ProjectDifference> DiffProjects(const Project& a, const Project& b)
{
    using Kind = ProjectDifference::Kind;
    std::vector<ProjectDifference> out;
    DiffItems(Kind::Setting, "", SettingItems(a), SettingItems(b), out, [](size_t, size_t) {});

    const bool byLongAddress = IsMultiplexer(a) && IsMultiplexer(b);
    const std::vector<Item> devicesA = DeviceItems(a, byLongAddress), devicesB = DeviceItems(b, byLongAddress);
    // Only the devices' own indices are needed to reach their commands.
    DiffItems(Kind::Device, "device ", devicesA, devicesB, out, [&](size_t i, size_t j) {
        DiffItems(Kind::Command, "device " + devicesA[i].key + " command ", CommandItems(a.devices[i]),
            CommandItems(b.devices[j]), out, [](size_t, size_t) {});
    });
    DiffMapLines(a.modbusMapLines, b.modbusMapLines, out);
    return out;
}

wxString FormatDifference(const ProjectDifference& d)
{
    switch (d.change) {
    case ProjectDifference::Change::Added: return d.subject + " added: " + d.after;
    case ProjectDifference::Change::Removed: return d.subject + " removed: " + d.before;
    case ProjectDifference::Change::Changed: break;
    }
    return d.subject + ": " + d.before + " -> " + d.after;
}

const char* KindName(ProjectDifference::Kind kind)
{
    switch (kind) {
    case ProjectDifference::Kind::Setting: return "setting";
    case ProjectDifference::Kind::Device: return "device";
    case ProjectDifference::Kind::Command: return "command";
    case ProjectDifference::Kind::MapLine: break;
    }
    return "map";
}

const char* ChangeName(ProjectDifference::Change change)
{
    switch (change) {
    case ProjectDifference::Change::Added: return "added";
    case ProjectDifference::Change::Removed: return "removed";
    case ProjectDifference::Change::Changed: break;
    }
    return "changed";
}
