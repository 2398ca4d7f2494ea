#include "fakes/test_context.h"
#include "commands/device_editing.h"
#include "project/project.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>

namespace {

const char* const kAddressMessage =
    "The Hart address you have chosen is already in use or is invalid\nPlease use a different address";

class Devices : public ::testing::Test, protected TestContext {
protected:
    Devices()
    {
        for (const char* line : {"DEV_TYPE Generic a b c d e", "DEV_TYPE KFD2 k b c d e", "DEV_TYPE VegaPuls v b c d e"})
            ParseDeviceTypeLine(line, deviceTypes);
        LoadDefaultProject(project);
    }
    // Answers the next device dialog with this address and type row.
    void Answer(const wxString& address, int type = 0, bool autoAddressing = false, bool ok = true)
    {
        ui.deviceAnswers.push_back([=](DeviceForm& form) {
            form.address = address;
            form.typeSelection = type;
            form.autoAddressing = autoAddressing;
            return ok;
        });
    }
    void Add(const wxString& address, int type = 0) { Answer(address, type), AddDevice(ctx); }
};

}  // namespace

TEST_F(Devices, AddProposesTheLowestFreeAddress)
{
    for (const char* address : {"0", "1", "3"})
        Add(address);
    Answer("", 0, false, false);
    AddDevice(ctx);
    const DeviceForm& shown = ui.deviceForms.back();
    EXPECT_ALL(shown.address == "2", shown.enabledForPolling, !shown.autoAddressing, shown.typeSelection == 0);
    EXPECT_EQ(shown.typeNames, Lines({"Generic", "KFD2", "VegaPuls"}));
    EXPECT_EQ(project.deviceCount, 3);  // cancelled: nothing added
    for (int i = 4; i <= MAX_DEVICES; ++i)
        Add(wxString::Format("%d", i));
    ASSERT_EQ(project.deviceCount, MAX_DEVICES);
    AddDevice(ctx);  // no dialog past the sixteenth, no message
    EXPECT_ALL(ui.deviceForms.size() == MAX_DEVICES + 1u, ui.messages.empty());
}

TEST_F(Devices, AddressRules)
{
    Add("5");
    const struct {
        const char* address;
        bool accepted;
    } cases[] = {{"64", false}, {"-1", false}, {"5", false}, {"abc", false}, {"", false}, {"63", true}, {"7x", true}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.address);
        const int before = project.deviceCount;
        ui.messages.clear();
        Add(c.address);
        EXPECT_EQ(project.deviceCount - before, c.accepted ? 1 : 0);
        EXPECT_EQ(ui.messages.empty() ? wxString() : ui.messages[0].text, c.accepted ? "" : kAddressMessage);
    }
    EXPECT_EQ(project.devices[2].pollAddress, 7);
    EXPECT_EQ(GetText(project.mode), "GATEWAY");
}

TEST_F(Devices, ATenCharacterAddressMakesAMultiplexerProject)
{
    Add("0123456789", 1);
    const ProjectDevice& mux = project.devices[0];
    EXPECT_EQ(Lines({GetText(project.mode), GetText(mux.longAddress), GetText(mux.typeName)}),
        Lines({"MULTIPLEXOR", "0123456789", "KFD2"}));
    // The multiplexer, first device of its project, is polled with command 0 alone.
    EXPECT_ALL(mux.commandCount == 1, mux.commands[0].commandNumber == 0, mux.commands[0].cycleInterval == 5);
    // Later devices need long addresses too.
    Add("4");
    EXPECT_EQ(project.deviceCount, 1);
    EXPECT_EQ(ui.messages.at(0).text, kAddressMessage);
}

TEST_F(Devices, DefaultCommandsDependOnModeAndPosition)
{
    const struct {
        const char* mode;
        std::vector<int> firstDevice;
    } cases[] = {{"GATEWAY", {2, 3}}, {"BRIDGE CLIENT", {}}, {"BRIDGE SERVER", {}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.mode);
        LoadDefaultProject(project);
        SetText(project.mode, c.mode);
        Add("0");
        Add("1");
        std::vector<int> first;
        for (int i = 0; i < project.devices[0].commandCount; ++i)
            first.push_back(project.devices[0].commands[i].commandNumber);
        EXPECT_EQ(first, c.firstDevice);
        const ProjectDevice& later = project.devices[1];  // later devices always get 2 and 3
        EXPECT_ALL(later.commandCount == 2, later.commands[1].commandNumber == 3);
        EXPECT_EQ(later.commands[1].cycleInterval, 1);
        EXPECT_ALL(project.selectedDevice == 1, project.projectSaved == 0);
    }
}

TEST_F(Devices, ModifyKeepsItsOwnAddressAndCommands)
{
    Add("0");
    Add("1");
    project.selectedDevice = 1;
    ui.deviceAnswers.push_back([](DeviceForm& form) {
        EXPECT_ALL(form.address == "1", form.typeSelection == 0);
        form.typeSelection = 2;
        form.autoAddressing = true;
        return true;
    });
    ModifyDevice(ctx);
    EXPECT_EQ(GetText(project.devices[1].typeName), "VegaPuls");
    EXPECT_ALL(project.devices[1].enabled == 3, project.devices[1].commandCount == 2);
    Answer("0");  // another device's address
    ModifyDevice(ctx);
    EXPECT_EQ(project.devices[1].pollAddress, 1);
    EXPECT_EQ(ui.messages.at(0).text, kAddressMessage);
    // A project file may give two devices one address: the device keeps its own.
    project.devices[0].pollAddress = 1;
    Answer("1", 1);
    ModifyDevice(ctx);
    EXPECT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(GetText(project.devices[1].typeName), "KFD2");
    // The enable check box sets the whole value, auto addressing included.
    SetSelectedDeviceEnable(ctx, true);
    EXPECT_EQ(project.devices[1].enabled, 1);
}

TEST_F(Devices, DeleteMovesDevicesDownWithTheFieldQuirksKept)
{
    for (const char* address : {"0", "1", "2", "3"})
        Add(address);
    for (int d = 0; d < 4; ++d) {
        SetText(project.devices[d].deviceName, wxString::Format("N%d", d));
        project.devices[d].commandCount = 10 + d;
    }
    project.selectedDevice = 1;
    DeleteDevice(ctx);
    ASSERT_EQ(project.deviceCount, 3);
    EXPECT_ALL(project.devices[1].pollAddress == 2, project.devices[2].pollAddress == 3);
    EXPECT_EQ(GetText(project.devices[1].deviceName), "N1");  // names stay at their index
    EXPECT_EQ(project.devices[0].commandCount, 12);           // count of device 2 landed at 0
    EXPECT_EQ(project.devices[1].commandCount, 13);           // count of device 3 landed at 1
    EXPECT_EQ(project.selectedDevice, 1);

    project.selectedDevice = 2;  // the last one
    DeleteDevice(ctx);
    EXPECT_EQ(project.selectedDevice, 1);
    for (int i = 0; i < 2; ++i)
        project.selectedDevice = 0, DeleteDevice(ctx);
    EXPECT_ALL(project.deviceCount == 0, GetText(project.mode) == "GATEWAY");
}
