#include "project/command_list.h"
#include "project/device_list.h"
#include "project/panel_view.h"
#include "project/project.h"

#include "wx_test_support.h"

#include <gtest/gtest.h>

namespace {

void AddDevice(Project& p, const char* name, const char* type, int poll, const char* longAddress, int enabled)
{
    ProjectDevice& d = p.devices[p.deviceCount++];
    SetText(d.deviceName, name);
    SetText(d.typeName, type);
    d.pollAddress = poll;
    SetText(d.longAddress, longAddress);
    d.enabled = enabled;
}

}  // namespace

TEST(PanelView, NoProjectOpenHidesThePanelAndDisablesProjectCommands)
{
    Project p;
    LoadDefaultProject(p);
    p.projectOpen = 0;
    const PanelView view = BuildPanelView(p);
    EXPECT_ALL(!view.panelShown, !view.projectItemsEnabled, !view.modbusItemsEnabled);
    EXPECT_ALL(view.loadFromDiskEnabled, view.rebootEnabled);
    EXPECT_TRUE(view.deviceLines.empty());
}

TEST(PanelView, OpenProjectWritesEveryControl)
{
    Project p;
    LoadDefaultProject(p);
    EXPECT_EQ(BuildPanelView(p).configurationName, "None");
    p.projectFilePath.Assign("/data/projects/Boiler House.prj");
    SetText(p.serialPortFunction, "MODBUS");
    SetText(p.pollingDeferralMode, "PARTIAL");
    SetText(p.serialParity, "EVENPARITY");
    p.modbusRtuAddress = 17;
    p.primaryMaster = 0;
    p.automaticModbusMap = 0;

    const PanelView view = BuildPanelView(p);
    EXPECT_ALL(view.panelShown, view.projectItemsEnabled, view.modbusItemsEnabled, !view.automaticMapChecked);
    EXPECT_EQ(Lines({view.configurationName, view.parity, view.rtuAddress}), Lines({"Boiler House", "Even", "17"}));
    EXPECT_ALL(view.serialModbus, !view.serialModem);
    EXPECT_ALL(view.deferralPartial, !view.deferralNone, !view.deferralFull);
    EXPECT_ALL(view.secondaryMaster, !view.primaryMaster);

    // Texts no choice offers select nothing: the multiplexer default parity is "ODD".
    SetText(p.serialParity, "ODD");
    SetText(p.serialPortFunction, "RS485");
    const PanelView odd = BuildPanelView(p);
    EXPECT_ALL(odd.parity.empty(), !odd.serialModem, !odd.serialModbus);
}

TEST(DeviceList, LinesOutsideMultiplexerMode)
{
    Project p;
    LoadDefaultProject(p);
    AddDevice(p, "FT-101", "Generic", 0, "", 1);
    AddDevice(p, "PT-7", "Rosemount3051", 12, "", 0);
    AddDevice(p, "", "KFD2", 3, "", 2);
    AddDevice(p, "LT-2", "Generic", 4, "", 3);
    EXPECT_EQ(DeviceListLines(p), Lines({"#00 [00] FT-101 : Generic", "#01 [12] PT-7 : Rosemount3051  [DISABLED]",
                                      "#02 [03]  : KFD2  [AUTO ADDR]", "#03 [04] LT-2 : Generic  [AUTO ADDR]"}));
}

TEST(DeviceList, MultiplexerLinesRepeatThePreviousLineForAutoAddressing)
{
    Project p;
    LoadDefaultProject(p);
    SetText(p.mode, "MULTIPLEXOR");
    AddDevice(p, "", "KFD2", 0, "2", 2);  // first line: nothing before it to repeat
    AddDevice(p, "TT-1", "Generic", 0, "0123456789", 1);
    AddDevice(p, "TT-2", "Generic", 0, "9876543210", 3);
    AddDevice(p, "TT-3", "Generic", 0, "55", 0);
    EXPECT_EQ(DeviceListLines(p), Lines({"", "#01 [0123456789] TT-1 : Generic", "#01 [0123456789] TT-1 : Generic",
                                      "#03 [        55] TT-3 : Generic  [DISABLED]"}));
}

TEST(CommandList, LineFormatsAndTheSelectedDeviceOnly)
{
    // HartCommandEntry: command number, arguments, argument count, interval, poll enabled, write.
    const struct {
        HartCommandEntry command;
        const char* line;
    } cases[] = {
        {{9, {1, 2}, 2, 10, 1, 0}, "CMD 009:01,02 - CYCLICAL READ 10   "},
        {{48, {}, 0, 123456, 1, 0}, "CMD 048: - CYCLICAL READ 123456"},
        {{6, {4}, 1, 5, 0, 0}, "CMD 006:04 - DISABLED"},
        {{6, {}, 0, 5, 2, 0}, "CMD 006: - DISABLED"},
        {{35, {}, 0, 5, 0, 1}, "CMD 035: - WRITE ON TRIGGER"},  // write wins over disabled
        {{255, {1, 2, 3, 4, 5, 6, 7, 8}, 10, 1, 1, 0},             // a count above eight shows eight
            "CMD 255:01,02,03,04,05,06,07,08 - CYCLICAL READ 1    "},
    };
    for (const auto& c : cases)
        EXPECT_EQ(CommandListLine(c.command), c.line);

    Project p;
    LoadDefaultProject(p);
    AddDevice(p, "A", "Generic", 0, "", 1);
    AddDevice(p, "B", "Generic", 1, "", 1);
    p.devices[1].commands[0] = cases[0].command;
    p.devices[1].commandCount = 1;
    p.selectedDevice = 0;
    EXPECT_TRUE(CommandListLines(p).empty());
    p.selectedDevice = 1;
    EXPECT_EQ(BuildPanelView(p).commandLines, Lines({cases[0].line}));
    p.selectedDevice = 99;  // never read out of bounds
    EXPECT_TRUE(CommandListLines(p).empty());
}
