#include "project/project.h"

#include "wx_test_support.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

// A project with something in every field, so that the defaults must overwrite it.
Project Scribbled()
{
    Project p;
    p.projectFilePath.Assign("/tmp/x.prj");
    p.deviceCount = 9;
    p.selectedDevice = 4;
    p.selectedCommand = 7;
    p.floatSwapBytes = p.floatSwapLongs = p.nanControl = 1;
    p.vcpPort = p.modbusTcpPort = p.mencapPort = p.intercomPort = p.syslogPort = p.hartIpTcpPort = 4242;
    p.modbusMapLines.Add("MAP,1");
    for (ProjectDevice& d : p.devices) {
        SetText(d.typeName, "X");
        SetText(d.deviceName, "Y");
        SetText(d.longAddress, "Z");
        d.pollAddress = d.enabled = d.commandCount = 3;
        for (HartCommandEntry& c : d.commands) {
            c.commandNumber = c.cycleInterval = c.pollEnabled = c.writeCommand = c.argCount = 5;
            c.args[7] = 5;
        }
    }
    return p;
}

bool AllDevicesEmptyFrom(const Project& p, int first)
{
    static const ProjectDevice empty{};
    for (int d = first; d < MAX_DEVICES; ++d)
        if (std::memcmp(&p.devices[d], &empty, sizeof empty) != 0)
            return false;
    return true;
}

}  // namespace

TEST(ProjectDefaults, NewProjectSettings)
{
    Project p = Scribbled();
    LoadDefaultProject(p);
    EXPECT_EQ(p.projectSaved, 0);
    EXPECT_EQ(p.projectOpen, 1);
    EXPECT_FALSE(p.projectFilePath.IsOk());
    EXPECT_EQ(p.deviceCount, 0);
    EXPECT_EQ(p.selectedDevice, -1);
    EXPECT_EQ(p.selectedCommand, 7);  // left as it was
    EXPECT_EQ(p.primaryMaster, 1);
    EXPECT_EQ((std::vector<int>{p.floatSwapBytes, p.floatSwapWords, p.floatSwapLongs, p.nanControl}),
              (std::vector<int>{0, 1, 0, 0}));
    EXPECT_EQ((std::vector<int>{p.vcpPort, p.modbusTcpPort, p.mencapPort, p.intercomPort, p.syslogPort, p.hartIpTcpPort}),
              (std::vector<int>{772, 502, 1100, 503, 50000, 5094}));
    EXPECT_EQ(p.timeServerEnable, 1);
    EXPECT_EQ(GetText(p.timeServerAddress), "pool.ntp.org");
    EXPECT_EQ(GetText(p.serialPortType), "RS232");
    EXPECT_EQ(GetText(p.pollingDeferralMode), "NONE");
    EXPECT_EQ(GetText(p.serialPortFunction), "MODEM");
    EXPECT_EQ(GetText(p.serialParity), "NOPARITY");
    EXPECT_EQ((std::vector<int>{p.serialBaudRate, p.serialDataBits, p.serialStopBits, p.modbusRtuAddress,
                                p.automaticModbusMap, p.bridgeBufferTime}),
              (std::vector<int>{9600, 8, 1, 1, 1, 20}));
    EXPECT_EQ(GetText(p.remoteIp), "0.0.0.0");
    EXPECT_EQ(GetText(p.tagName), "Unnamed");
    EXPECT_EQ(GetText(p.mode), "GATEWAY");
    EXPECT_TRUE(p.modbusMapLines.empty());
    EXPECT_TRUE(AllDevicesEmptyFrom(p, 0));
}

TEST(ProjectDefaults, MuxEmptyKeepsPortsAndHoldsTheMultiplexer)
{
    Project p = Scribbled();
    LoadMuxEmptyDefaults(p);
    EXPECT_EQ((std::vector<int>{p.vcpPort, p.modbusTcpPort, p.mencapPort, p.intercomPort, p.syslogPort, p.hartIpTcpPort}),
              (std::vector<int>(6, 4242)));
    EXPECT_EQ(GetText(p.tagName), "MUX Empty");
    EXPECT_EQ(GetText(p.mode), "MULTIPLEXOR");
    EXPECT_EQ(GetText(p.serialPortType), "RS485");
    EXPECT_EQ(GetText(p.pollingDeferralMode), "FULL");
    EXPECT_EQ(GetText(p.serialParity), "ODD");
    EXPECT_EQ(GetText(p.serialPortFunction), "MODEM");
    EXPECT_EQ(p.serialBaudRate, 9600);
    EXPECT_EQ(p.projectOpen, 1);
    ASSERT_EQ(p.deviceCount, 1);
    EXPECT_EQ(GetText(p.devices[0].typeName), "KFD2");
    EXPECT_EQ(GetText(p.devices[0].longAddress), "0000000000");
    EXPECT_EQ(GetText(p.devices[0].deviceName), "");
    EXPECT_EQ(p.devices[0].enabled, 1);
    EXPECT_EQ(p.devices[0].pollAddress, 0);
    EXPECT_EQ(p.devices[0].commandCount, 0);
    EXPECT_TRUE(AllDevicesEmptyFrom(p, 1));
}

TEST(ProjectText, FieldsAreCutToTheirSizeWithoutSplittingCharacters)
{
    struct Case {
        wxString text;
        wxString stored;
    };
    const wxString euro = wxString::FromUTF8("\xE2\x82\xAC");  // three bytes in UTF-8
    const Case cases[] = {
        {"Plant7", "Plant7"},
        {wxString(63, 'a'), wxString(63, 'a')},
        {wxString(80, 'a'), wxString(63, 'a')},
        {wxString(62, 'a') + euro, wxString(62, 'a')},  // the euro sign does not fit whole
        {wxString(60, 'a') + euro, wxString(60, 'a') + euro},
        {"", ""},
    };
    for (const Case& c : cases) {
        char field[kTextFieldSize];
        std::fill(std::begin(field), std::end(field), 'x');
        SetText(field, c.text);
        EXPECT_EQ(GetText(field), c.stored);
        EXPECT_EQ(field[kTextFieldSize - 1], '\0');
    }
    char address[kLongAddressSize];
    SetText(address, "0123456789012345678901234");
    EXPECT_EQ(GetText(address), "01234567890123456789");
}
