#include "fakes/test_context.h"
#include "mux/mux_rebuild.h"
#include "mux/mux_scan.h"
#include "project/project.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>

namespace {

wxArrayString RowTexts(const std::vector<MuxRow>& rows)
{
    wxArrayString texts;
    for (const MuxRow& row : rows)
        texts.Add(row.type + "|" + row.tagName + "|" + row.description + "|" + row.address);
    return texts;
}

const ToolReply ok{0, {}}, refused{1, {}};

class ScanCommand : public ::testing::Test, protected ScratchContext {
protected:
    ScanCommand()
    {
        project.vcpPort = 1772;
        tools.onRun = [this](const wxString& command) {
            if (command.Contains(" inifile "))
                dir.Write("tgxconfigure/OUTPUT/_temp.mbd", "HOLDING,1,0,UINT16,SYS:STATUS,Gateway status,1\r\n");
        };
    }
    // The base project is in automatic map mode: its save runs a build and inifile after ttdevtype.
    void Scan(std::vector<ToolReply> replies, const wxArrayString& freeNames = Lines({"COM3", "COM4"}))
    {
        if (replies.size() > 2)
            replies.insert(replies.begin() + 2, 2, ok);
        tools.replies.assign(replies.begin(), replies.end());
        platform.freeComPorts = freeNames;
        ui.scanAnswers.push_back([](ScanForm& form) { form = ScanForm{"10.0.0.7:2200", "19200"}; return true; });
        MuxScanCommand(ctx);
    }
    static ToolReply Report() { return {0, Lines({"TG7-Plus", "TG7main-v6.2.2-b", "TG7tmpl-v3.1.0"})}; }
};

}  // namespace

TEST_F(ScanCommand, AnsweredOnTheThirdTry)
{
    target.targetEntry = "192.168.1.250";
    Scan({ok, Report(), ok, ok, ok, ok, refused, refused, {0, Lines({"Multiplexer = 0000000000"})}, ok});
    EXPECT_EQ(ui.scanForms.at(0).address, "192.168.1.250");
    wxArrayString commands = tools.Commands();
    ASSERT_EQ(commands.size(), 12u);
    // The save of the base project generates its map (a build and inifile), then the real build.
    EXPECT_ALL(commands[2].StartsWith("ttbuild "), commands[3].Contains(" inifile _temp "), commands[4] == commands[2]);
    commands.RemoveAt(2, 3);
    EXPECT_EQ(commands, Lines({"ttvsp -g", "ttdevtype \"10.0.0.7\"", "ttrestore \"10.0.0.7\" config",
                               "ttreboot \"10.0.0.7\" -s=60 -w -a=1", "ttvsp COM3 10.0.0.7 -p=1772", "pfmux COM3 -rdl",
                               "pfmux COM3 -rdl", "pfmux COM3 -rdl", "ttvsp COM3 -d"}));
    EXPECT_EQ(ui.events, (std::vector<wxString>{"scan dialog", "refresh",
                                                "begin: Device managment | Base MUX config download .. Please wait",
                                                "pulse: Downloading Multiplexer base configuration",
                                                "pulse: Restarting the HART Gateway",
                                                "pulse: Querying Multiplexer ... Please wait", "wait 2", "wait 2",
                                                "wait 2", "progress end", "scan window"}));
    // The base project stays loaded, with the chosen baud rate; its files are gone again.
    EXPECT_EQ(GetText(project.tagName) + wxString::Format(" %d", project.serialBaudRate), "MUX Empty 19200");
    EXPECT_FALSE(wxFileExists(dir.path + "/MUXempty.prj") || wxFileExists(dir.path + "/MUXempty.mbd"));
    EXPECT_EQ(RowTexts(ui.scanWindow.rows), Lines({"Multiplexer|-|-|0000000000"}));
}

TEST_F(ScanCommand, StopsWhenThePcHasNoFreeComName)
{
    // Every tool's failure is the fault matrix's; a PC without a free name is not the simulator's to make.
    Scan({ok, Report(), ok, ok, ok}, {});
    EXPECT_EQ(tools.Commands().Last(), "ttreboot \"10.0.0.7\" -s=60 -w -a=1");
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, "Unable to create virtual com port because there are no free COM port names on this PC");
    EXPECT_EQ(ui.scanWindowOpened, 0);
}

TEST(MuxDevices, AddAllAndAddSelected)
{
    std::vector<MuxRow> rows{{"Multiplexer", "-", "-", "0000000000"}};
    for (int r = 1; r < 20; ++r)
        rows.push_back({"Device", wxString::Format("TT%d", r), "d", wxString::Format("%010d", r)});
    TestContext all, picked;
    all.ui.scanWindow.rows = picked.ui.scanWindow.rows = rows;
    AddAllMuxDevices(all.ctx, all.ui.scanWindow);
    const Project& p = all.project;
    EXPECT_EQ(p.deviceCount, 16);  // the multiplexer and the first 15 devices
    EXPECT_EQ(GetText(p.mode) + GetText(p.tagName) + GetText(p.devices[0].typeName), "MULTIPLEXORKFD2KFD2");
    EXPECT_EQ(GetText(p.devices[15].deviceName) + " " + GetText(p.devices[15].longAddress), "TT15 0000000015");
    EXPECT_ALL(p.devices[0].commands[0].cycleInterval == 5, p.devices[15].commands[1].commandNumber == 3);
    // A new project, shown in the panel: the next save asks for a name.
    EXPECT_ALL(p.projectOpen == 1, p.projectSaved == 0, !p.projectFilePath.IsOk(), all.ui.refreshCount == 1);

    SetText(picked.project.devices[5].deviceName, "left over");
    picked.ui.scanWindow.selected = {3, 0, 5};
    AddSelectedMuxDevices(picked.ctx, picked.ui.scanWindow);
    const ProjectDevice* d = picked.project.devices;
    EXPECT_EQ(picked.project.deviceCount, 3);
    EXPECT_EQ(GetText(d[1].deviceName) + GetText(d[2].deviceName) + GetText(d[5].deviceName), "TT3TT5");

    // An empty grid, after a rebuild that could not read the list: the project stays, the user is told.
    TestContext empty;
    empty.project.deviceCount = 2;
    AddAllMuxDevices(empty.ctx, empty.ui.scanWindow);
    AddSelectedMuxDevices(empty.ctx, empty.ui.scanWindow);
    EXPECT_ALL(empty.project.deviceCount == 2, GetText(empty.project.mode) != "MULTIPLEXOR");
    EXPECT_EQ(empty.ui.events, std::vector<wxString>(2, wxString("message: ") + kMuxNoDevices));
}

// The estimate is checked in the rebuild dialog (whole_windows_test.cpp) and by tgxcfg mux-rebuild.
TEST(MuxRebuild, InstructsPollsAndRefillsTheGrid)
{
    TestContext t;
    t.target.targetHost = "10.0.0.7";
    t.project.vcpPort = 772;
    t.platform.freeComPorts = Lines({"COM5"});
    t.ui.rebuildAnswers.push_back([](MuxRebuildForm& form) {
        form.addressZeroSearch = false;
        form.firstDeviceSearch = true;
        return true;
    });
    // Still running, unreadable twice, then done (bits other than 0x40 do not matter).
    const auto status = [](const char* bytes) { return ToolReply{0, Lines({bytes})}; };
    t.tools.replies = {ok, ok, status("Additional device status : 40 0 0 0 0"), status("Additional device status : 0 0 0 0"),
                       status("Device status : 0 0 0 0 0"), status("Additional device status : 3f ff 0 0 0"), refused,
                       {0, Lines({"Multiplexer = 1234567890", "Loop 3 empty", "Device = 42,x,y,PT7,Pressure, line 2",
                                  "Device = 43,1", " Device = skipped"})}, ok};
    EXPECT_TRUE(RebuildMuxLoops(t.ctx, t.ui.scanWindow));
    EXPECT_EQ(t.tools.Commands(), Lines({"ttvsp COM5 10.0.0.7 -p=772", "pfmux COM5 -wm=1 -wrl=1:1 -wmm=1 -wlm=1 -rl=65471",
                                         "pfmux COM5 -rads", "pfmux COM5 -rads", "pfmux COM5 -rads", "pfmux COM5 -rads",
                                         "pfmux COM5 -rdl", "pfmux COM5 -rdl", "ttvsp COM5 -d"}));
    const wxString instructing = "Instructing multiplexer to rebuild its loops - please wait";
    EXPECT_EQ(t.ui.events, (std::vector<wxString>{"rebuild dialog",
                                                  "begin: Multiplexer Status | " + instructing + " (over the configurator)",
                                                  "pulse: " + instructing, "wait 2", "pulse: Waiting for multiplexer to complete rebuild ..",
                                                  "pulse: ", "wait 1", "pulse: ", "wait 1", "pulse: ", "wait 1",
                                                  "pulse: Checking multiplexer for discovered devices ..", "progress end"}));
    EXPECT_EQ(t.ui.scanWindow.shows, 2);  // emptied, then refilled
    // The device lines' fields, the description running to the end of the line.
    EXPECT_EQ(RowTexts(t.ui.scanWindow.rows),
              Lines({"Multiplexer|-|-|1234567890", "Device|PT7|Pressure, line 2|42", "Device|||43"}));

    TestContext no;
    no.platform.freeComPorts = Lines({"COM5"});
    no.ui.rebuildAnswers.push_back([](MuxRebuildForm& form) {
        for (int k = 0; k < 16; ++k)
            form.loops[k] = k == 6;  // the box labelled 6 sets bit 5; bit 6 is never sent
        return true;
    });
    no.tools.replies = {ok, {3, {}}};
    EXPECT_FALSE(RebuildMuxLoops(no.ctx, no.ui.scanWindow));
    EXPECT_EQ(no.tools.Commands()[1], "pfmux COM5 -wm=1 -wrl=1:1 -wmm=1 -wlm=0 -rl=32");
    EXPECT_EQ(no.tools.Commands().Last(), "ttvsp COM5 -d");
    ASSERT_EQ(no.ui.messages.size(), 1u);
    EXPECT_EQ(no.ui.messages[0].text, "Unable communicate with Multiplexer.");
}
