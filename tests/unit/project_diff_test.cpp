#include "project/project_diff.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

// Two devices of two commands and a map of two lines; in multiplexer mode both devices are at
// poll address 0 and told apart by their long addresses.
Project Base(bool multiplexer)
{
    Project p;
    LoadDefaultProject(p);
    SetText(p.mode, multiplexer ? "MULTIPLEXOR" : "GATEWAY");
    p.deviceCount = 2;
    for (int d = 0; d < 2; ++d) {
        ProjectDevice& device = p.devices[d];
        SetText(device.typeName, d == 0 ? "Generic" : "KFD2");
        SetText(device.deviceName, d == 0 ? "FT-101" : "PT-102");
        SetText(device.longAddress, multiplexer ? (d == 0 ? "1000000101" : "1000000102") : "");
        device.pollAddress = multiplexer ? 0 : d;
        device.enabled = 1;
        device.commandCount = 2;
        device.commands[0] = {3, {}, 0, 1, 1, 0};
        device.commands[1] = {48, {1, 2}, 2, 60, 1, 0};
    }
    p.modbusMapLines = Lines({"HOLDING,40001,ABCD,FLOAT,PV,Flow,2", "HOLDING,40003,ABCD,FLOAT,PV,Pressure,2"});
    return p;
}

}  // namespace

TEST(ProjectDiff, NamesEachDifferenceByIdentityNotSlot)
{
    const char* const pt102 = "TYPE KFD2, DEVICE NAME PT-102, POLL ADDRESS %d, LONG ADDRESS , ENABLE 1";
    const struct {
        const char* name;
        bool multiplexer;
        std::function<void(Project&)> edit;
        wxArrayString expected;
    } cases[] = {
        {"same", false, [](Project&) {}, {}},
        {"setting", false, [](Project& p) { p.serialBaudRate = 19200; }, Lines({"SERIAL PORT BAUDRATE: 9600 -> 19200"})},
        {"slots swapped", false, [](Project& p) { std::swap(p.devices[0], p.devices[1]); }, {}},
        {"type", false, [](Project& p) { SetText(p.devices[1].typeName, "VegaPuls"); },
            Lines({"device at poll address 1: TYPE KFD2 -> TYPE VegaPuls"})},
        {"interval", false, [](Project& p) { p.devices[1].commands[1].cycleInterval = 5; },
            Lines({"device at poll address 1 command 48: INTERVAL 60 -> INTERVAL 5"})},
        {"address moved", false, [](Project& p) { p.devices[1].pollAddress = 7; },
            Lines({"device at poll address 1 removed: " + wxString::Format(pt102, 1),
                "device at poll address 7 added: " + wxString::Format(pt102, 7)})},
        {"command replaced", false, [](Project& p) { p.devices[0].commands[0] = {9, {}, 0, 1, 0, 1}; },
            Lines({"device at poll address 0 command 3 removed: INTERVAL 1, POLLED 1, WRITE 0, ARGUMENTS []",
                "device at poll address 0 command 9 added: INTERVAL 1, POLLED 0, WRITE 1, ARGUMENTS []"})},
        {"map", false,
            [](Project& p) { p.modbusMapLines = Lines({"HOLDING,40001,ABCD,FLOAT,PV,Flow,2", "HOLDING,40003,ABCD,FLOAT,PV,Drum,2"}); },
            Lines({"map HOLDING,40003: HOLDING,40003,ABCD,FLOAT,PV,Pressure,2 -> HOLDING,40003,ABCD,FLOAT,PV,Drum,2"})},
        // The n-th line of a key is paired with the n-th of that key; a line without a comma has an empty address.
        {"map lines", false,
            [](Project& p) { p.modbusMapLines = Lines({"HOLDING,40003,ABCD,FLOAT,PV,Pressure,2", "HOLDING,40003,X", "COIL"}); },
            Lines({"map HOLDING,40001 removed: HOLDING,40001,ABCD,FLOAT,PV,Flow,2", "map HOLDING,40003 added: HOLDING,40003,X",
                "map COIL, added: COIL"})},
        {"multiplexer", true,
            [](Project& p) {
                std::swap(p.devices[0], p.devices[1]);
                SetText(p.devices[0].deviceName, "PT-102 Drum");
            },
            Lines({"device with long address 1000000102: DEVICE NAME PT-102 -> DEVICE NAME PT-102 Drum"})},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const Project base = Base(c.multiplexer);
        Project edited = base;
        c.edit(edited);
        wxArrayString report;
        for (const ProjectDifference& d : DiffProjects(base, edited))
            report.Add(FormatDifference(d));
        EXPECT_EQ(report, c.expected);
    }
}
