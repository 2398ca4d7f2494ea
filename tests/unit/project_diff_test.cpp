#include "project/project_diff.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

void AddDevice(Project& p, const char* type, const char* name, int poll, const char* longAddress)
{
    ProjectDevice& d = p.devices[p.deviceCount++];
    SetText(d.typeName, type);
    SetText(d.deviceName, name);
    SetText(d.longAddress, longAddress);
    d.pollAddress = poll;
    d.enabled = 1;
    d.commandCount = 2;
    d.commands[0] = {3, {}, 0, 1, 1, 0};
    d.commands[1] = {48, {1, 2}, 2, 60, 1, 0};
}

// Two devices and a map of two lines; each case edits a copy.
Project Base()
{
    Project p;
    LoadDefaultProject(p);
    p.deviceCount = 0;
    AddDevice(p, "Generic", "FT-101", 0, "");
    AddDevice(p, "KFD2", "PT-102", 1, "");
    p.modbusMapLines = Lines({"HOLDING,40001,ABCD,FLOAT,PV,Flow,2", "HOLDING,40003,ABCD,FLOAT,PV,Pressure,2"});
    return p;
}

}  // namespace

TEST(ProjectDiff, NamesEachDifferenceByIdentityNotSlot)
{
    const struct {
        const char* name;
        std::function<void(Project&)> edit;
        wxArrayString expected;
    } cases[] = {
        {"same", [](Project&) {}, wxArrayString()},
        {"setting", [](Project& p) { p.serialBaudRate = 19200; }, Lines({"SERIAL PORT BAUDRATE: 9600 -> 19200"})},
        {"devices swapped slots", [](Project& p) { std::swap(p.devices[0], p.devices[1]); }, wxArrayString()},
        {"type", [](Project& p) { SetText(p.devices[1].typeName, "VegaPuls"); },
            Lines({"device at poll address 1: TYPE KFD2 -> TYPE VegaPuls"})},
        {"interval", [](Project& p) { p.devices[1].commands[1].cycleInterval = 5; },
            Lines({"device at poll address 1 command 48: INTERVAL 60 -> INTERVAL 5"})},
        {"address moved",
            [](Project& p) {
                p.devices[1].pollAddress = 7;
                p.devices[1].commandCount = 1;
            },
            Lines({"device at poll address 1 removed: TYPE KFD2, DEVICE NAME PT-102, POLL ADDRESS 1, LONG ADDRESS , "
                   "ENABLE 1",
                "device at poll address 7 added: TYPE KFD2, DEVICE NAME PT-102, POLL ADDRESS 7, LONG ADDRESS , "
                "ENABLE 1"})},
        {"command removed and added",
            [](Project& p) { p.devices[0].commands[0] = {9, {}, 0, 1, 0, 1}; },
            Lines({"device at poll address 0 command 3 removed: INTERVAL 1, POLLED 1, WRITE 0, ARGUMENTS []",
                "device at poll address 0 command 9 added: INTERVAL 1, POLLED 0, WRITE 1, ARGUMENTS []"})},
        {"map", [](Project& p) { p.modbusMapLines[1] = "HOLDING,40003,ABCD,FLOAT,PV,Drum,2"; },
            Lines({"map HOLDING,40003: HOLDING,40003,ABCD,FLOAT,PV,Pressure,2 -> HOLDING,40003,ABCD,FLOAT,PV,Drum,2"})},
    };
    const Project base = Base();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Project edited = base;
        c.edit(edited);
        wxArrayString report;
        for (const ProjectDifference& d : DiffProjects(base, edited))
            report.Add(FormatDifference(d));
        EXPECT_EQ(report, c.expected);
    }
}

TEST(ProjectDiff, MultiplexerDevicesAreMatchedByLongAddress)
{
    Project a = Base(), b = Base();
    for (Project* p : {&a, &b}) {
        SetText(p->mode, "MULTIPLEXOR");
        p->devices[0].pollAddress = p->devices[1].pollAddress = 0;
        SetText(p->devices[0].longAddress, "1000000101");
        SetText(p->devices[1].longAddress, "1000000102");
    }
    std::swap(b.devices[0], b.devices[1]);
    SetText(b.devices[0].deviceName, "PT-102 Drum");
    const std::vector<ProjectDifference> diff = DiffProjects(a, b);
    ASSERT_EQ(diff.size(), 1u);
    EXPECT_EQ(FormatDifference(diff[0]), "device with long address 1000000102: DEVICE NAME PT-102 -> DEVICE NAME PT-102 Drum");
}
