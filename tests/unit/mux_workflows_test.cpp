#include "fakes/test_context.h"
#include "mux/mux_rebuild.h"
#include "mux/mux_scan.h"
#include "project/project.h"
#include "temp_dir.h"
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

std::vector<wxString> Waits(const ScriptedUserInterface& ui)
{
    std::vector<wxString> waits;
    for (const wxString& event : ui.events)
        if (event.StartsWith("wait"))
            waits.push_back(event);
    return waits;
}

const ToolReply ok{0, {}}, refused{1, {}};

}  // namespace

TEST(MuxScan, DeviceListLinesBecomeGridRows)
{
    EXPECT_EQ(RowTexts(MuxRowsFromDeviceList(Lines({"Multiplexer = 0000000000", "Loop 3 empty",
                                                    "Device = 0101010101,x,y,TT101,Flow, line 2",
                                                    "Device = 0202020202,1", " Device = skipped"}))),
              Lines({"Multiplexer|-|-|0000000000", "Device|TT101|Flow, line 2|0101010101", "Device|||0202020202"}));
}

namespace {

class ScanCommand : public ::testing::Test, protected TestContext {
protected:
    ScanCommand()
    {
        platform.separator = "/";
        env.TgxBuildPath = dir.path + "/tgxconfigure";
        env.TgxTemplatesPath = dir.path + "/tgxtemplates";
        env.TgxProjectPath = dir.path;
        env.FirmwareVersion = "6.2.2";
        for (const char* sub : {"INCLUDE", "ADDITIONAL", "OUTPUT"})
            wxFileName::Mkdir(env.TgxBuildPath + "/" + sub, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
        LoadDefaultProject(project);
        project.vcpPort = 1772;
        platform.freeComPorts = Lines({"COM3", "COM4"});
    }
    // The base project is in automatic map mode: its save runs a build and inifile after ttdevtype.
    void Scan(std::vector<ToolReply> replies)
    {
        if (replies.size() > 2)
            replies.insert(replies.begin() + 2, 2, ok);
        tools.onRun = [this](const wxString& command) {
            if (command.Contains(" inifile "))
                dir.Write("tgxconfigure/OUTPUT/_temp.mbd", "HOLDING,1,0,UINT16,SYS:STATUS,Gateway status,1\r\n");
        };
        tools.replies.assign(replies.begin(), replies.end());
        ui.scanAnswers.push_back([](ScanForm& form) {
            form.address = "10.0.0.7:2200";
            form.baudRate = "19200";
            return true;
        });
        MuxScanCommand(ctx);
    }
    static ToolReply Report() { return {0, Lines({"TG7-Plus", "TG7main-v6.2.2-b", "TG7tmpl-v3.1.0"})}; }
    TempDir dir;
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
    EXPECT_TRUE(commands[2].StartsWith("ttbuild ") && commands[3].Contains(" inifile _temp ") && commands[4] == commands[2]);
    commands.RemoveAt(2, 3);
    EXPECT_EQ(commands, Lines({"ttvsp -g", "ttdevtype \"10.0.0.7\"", "ttrestore \"10.0.0.7\" config",
                               "ttreboot \"10.0.0.7\" -s=60 -w -a=1", "ttvsp COM3 10.0.0.7 -p=1772", "pfmux COM3 -rdl",
                               "pfmux COM3 -rdl", "pfmux COM3 -rdl", "ttvsp COM3 -d"}));
    EXPECT_EQ(Waits(ui), (std::vector<wxString>{"wait 2", "wait 2", "wait 2"}));
    EXPECT_EQ(tools.environment["TT_SSH_PORT"], "2200");
    EXPECT_EQ(ui.progress, (std::vector<wxString>{"begin: Device managment | Base MUX config download .. Please wait",
                                                  "pulse: Downloading Multiplexer base configuration",
                                                  "pulse: Restarting the HART Gateway",
                                                  "pulse: Querying Multiplexer ... Please wait", "end"}));
    // The base project stays loaded, with the chosen baud rate; its files are gone again.
    EXPECT_EQ(GetText(project.tagName), "MUX Empty");
    EXPECT_EQ(project.serialBaudRate, 19200);
    EXPECT_FALSE(wxFileExists(dir.path + "/MUXempty.prj") || wxFileExists(dir.path + "/MUXempty.mbd"));
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(RowTexts(ui.scanWindow.rows), Lines({"Multiplexer|-|-|0000000000"}));
}

TEST_F(ScanCommand, EachFailureIsOneMessage)
{
    const struct {
        const char* name;
        std::vector<ToolReply> replies;
        bool noFreeNames;
        const char* message;
        const char* lastCommand;
    } cases[] = {
        {"no TGxConnect", {{-1, {}}}, false, "Multiplexor scanning TGxConnect software to be installed", "ttvsp -g"},
        {"no gateway", {ok, {-1, {}}}, false, "Could not connect to TG7, check IP address and network connection", "ttdevtype \"10.0.0.7\""},
        {"no free name", {ok, Report(), ok, ok, ok}, true, "Unable to create virtual com port because there are no free COM port names on this PC", "ttreboot \"10.0.0.7\" -s=60 -w -a=1"},
        {"port refused", {ok, Report(), ok, ok, ok, refused}, false, "Unable to create virtual com port.", "ttvsp COM3 10.0.0.7 -p=1772"},
        {"no multiplexer", {ok, Report(), ok, ok, ok, ok, refused, refused, refused, ok}, false, "Unable to communicate with multiplexer\nYou must configure the TG7 manually", "ttvsp COM3 -d"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ui = ScriptedUserInterface();
        tools.runs.clear();
        platform.freeComPorts = c.noFreeNames ? wxArrayString() : Lines({"COM3", "COM4"});
        Scan(c.replies);
        EXPECT_EQ(tools.Commands().Last(), c.lastCommand);
        ASSERT_EQ(ui.messages.size(), 1u);
        EXPECT_EQ(ui.messages[0].text, c.message);
        EXPECT_EQ(ui.scanWindowOpened, 0);
    }
}

TEST(MuxDevices, AddAllAndAddSelected)
{
    std::vector<MuxRow> rows{{"Multiplexer", "-", "-", "0000000000"}};
    for (int r = 1; r < 20; ++r)
        rows.push_back({"Device", wxString::Format("TT%d", r), "d", wxString::Format("%010d", r)});
    TestContext all;
    all.ui.scanWindow.rows = rows;
    AddAllMuxDevices(all.ctx, all.ui.scanWindow);
    const Project& p = all.project;
    EXPECT_EQ(p.deviceCount, 16);  // the multiplexer and the first 15 devices
    EXPECT_EQ(GetText(p.mode) + GetText(p.tagName) + GetText(p.devices[0].typeName), "MULTIPLEXORKFD2KFD2");
    EXPECT_EQ(p.devices[0].commands[0].cycleInterval, 5);
    EXPECT_EQ(GetText(p.devices[15].deviceName) + " " + GetText(p.devices[15].longAddress), "TT15 0000000015");
    EXPECT_EQ(p.devices[15].commands[1].commandNumber, 3);
    // A new project: the next save asks for a name.
    EXPECT_TRUE(p.projectOpen == 1 && p.projectSaved == 0 && !p.projectFilePath.IsOk());
    EXPECT_EQ(all.ui.refreshCount, 1);

    TestContext picked;
    SetText(picked.project.devices[5].deviceName, "left over");
    picked.ui.scanWindow.rows = rows;
    picked.ui.scanWindow.selected = {3, 0, 5};
    AddSelectedMuxDevices(picked.ctx, picked.ui.scanWindow);
    EXPECT_EQ(picked.project.deviceCount, 3);
    EXPECT_EQ(GetText(picked.project.devices[1].deviceName) + GetText(picked.project.devices[2].deviceName) +
                  GetText(picked.project.devices[5].deviceName), "TT3TT5");
}

TEST(MuxRebuild, EstimateMaskAndStatusLines)
{
    const int addressZero[] = {8, 8, 9, 10, 11, 12, 13, 13, 14, 15, 16, 17, 18, 19, 19, 20, 21};
    for (int n = 0; n <= 16; ++n) {
        MuxRebuildForm form;
        for (int k = 0; k < 16; ++k)
            form.loops[k] = k < n;
        EXPECT_EQ(RebuildEstimateText(form), wxString::Format("%d Secs", addressZero[n])) << n;
        form.addressZeroSearch = false;
        form.firstDeviceSearch = true;
        EXPECT_EQ(RebuildEstimateText(form), wxString::Format("%d Secs", 14 * n + 8)) << n;
        form.firstDeviceSearch = false;
        EXPECT_EQ(RebuildEstimateText(form), "0 Secs") << n;
    }

    // The box labelled 6 sets bit 5; bit 6 is never sent.
    MuxRebuildForm form;
    EXPECT_EQ(RebuildLoopMask(form), 65471);
    for (int k = 0; k < 16; ++k)
        form.loops[k] = k == 5 || k == 6;
    EXPECT_EQ(RebuildLoopMask(form), 32);

    for (const char* running : {"Additional device status : 40 0 0 0 0", "Additional device status : 0 0 0 0",
                                "Device status : 0 0 0 0 0"})
        EXPECT_FALSE(RebuildComplete(running)) << running;
    for (const char* done : {"Additional device status : 0 0 0 0 0", "Additional device status : 3f ff 0 0 0"})
        EXPECT_TRUE(RebuildComplete(done)) << done;
}

TEST(MuxRebuild, InstructsPollsAndRefillsTheGrid)
{
    TestContext t;
    t.target.targetHost = "10.0.0.7";
    t.project.vcpPort = 772;
    t.platform.freeComPorts = Lines({"COM5"});
    t.ui.scanWindow.rows = {{"Device", "old", "", "1"}};
    t.ui.rebuildAnswers.push_back([](MuxRebuildForm& form) {
        form.addressZeroSearch = false;
        form.firstDeviceSearch = true;
        return true;
    });
    const auto status = [](const char* bytes) { return ToolReply{0, Lines({bytes})}; };
    t.tools.replies = {ok, ok, status("Additional device status : 40 0 0 0 0"),
                       status("Additional device status : 0 0 0 0"), status("Additional device status : 0 0 0 0 0"),
                       refused, {0, Lines({"Multiplexer = 1234567890", "Device = 42,0,0,PT7,Pressure"})}, ok};
    EXPECT_TRUE(RebuildMuxLoops(t.ctx, t.ui.scanWindow));
    EXPECT_EQ(t.tools.Commands(), Lines({"ttvsp COM5 10.0.0.7 -p=772",
                                         "pfmux COM5 -wm=1 -wrl=1:1 -wmm=1 -wlm=1 -rl=65471", "pfmux COM5 -rads",
                                         "pfmux COM5 -rads", "pfmux COM5 -rads", "pfmux COM5 -rdl", "pfmux COM5 -rdl",
                                         "ttvsp COM5 -d"}));
    EXPECT_EQ(t.ui.scanWindow.shows, 2);  // emptied, then refilled
    EXPECT_EQ(RowTexts(t.ui.scanWindow.rows), Lines({"Multiplexer|-|-|1234567890", "Device|PT7|Pressure|42"}));
    EXPECT_TRUE(t.ui.messages.empty());
    EXPECT_EQ(Waits(t.ui), (std::vector<wxString>{"wait 2", "wait 1", "wait 1"}));

    TestContext no;
    no.platform.freeComPorts = Lines({"COM5"});
    no.ui.rebuildAnswers.push_back([](MuxRebuildForm&) { return true; });
    no.tools.replies = {ok, {3, {}}};
    EXPECT_FALSE(RebuildMuxLoops(no.ctx, no.ui.scanWindow));
    EXPECT_EQ(no.tools.Commands()[1], "pfmux COM5 -wm=1 -wrl=1:1 -wmm=1 -wlm=0 -rl=65471");
    EXPECT_EQ(no.tools.Commands().Last(), "ttvsp COM5 -d");
    ASSERT_EQ(no.ui.messages.size(), 1u);
    EXPECT_EQ(no.ui.messages[0].text, "Unable communicate with Multiplexer.");
}
