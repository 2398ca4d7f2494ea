#include "deploy/configure_device.h"
#include "deploy/device_tools.h"
#include "fakes/test_context.h"
#include "deploy/load_from_device.h"
#include "project/project.h"
#include "project/project_file.h"
#include "base/text_file.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <tuple>

TEST(TargetAddress, PromptSplitsAtTheLastColon)
{
    const struct {
        const char* typed;
        const char* host;
        const char* port;  // nullptr: TT_SSH_PORT untouched
    } cases[] = {{"10.0.0.7:2222", "10.0.0.7", "2222"}, {"gateway.local", "gateway.local", nullptr},
        {"10.0.0.7:", "10.0.0.7", ""}, {":2222", ":2222", nullptr}, {"fe80::1:22", "fe80::1", "22"},
        {"host:abc", "host", "abc"},  // not checked
        {nullptr, "kept", nullptr}};  // cancelled
    for (const auto& c : cases) {
        SCOPED_TRACE(c.typed ? c.typed : "cancelled");
        TestContext t;
        t.target.targetEntry = "192.168.1.250";
        t.target.targetHost = "kept";
        t.ui.texts = {c.typed ? std::optional<wxString>(c.typed) : std::nullopt};
        ASSERT_EQ(PromptTargetAddress(t.ctx), c.typed != nullptr);
        const TextEntryForm& form = t.ui.textForms.at(0);
        EXPECT_EQ(Lines({form.message, form.caption, form.value}),
            Lines({"Enter device IP address or domain name", "User entry required", "192.168.1.250"}));
        EXPECT_EQ(t.target.targetHost, c.host);
        EXPECT_EQ(t.target.targetEntry, c.typed ? c.typed : "192.168.1.250");
        const auto port = t.tools.environment.find("TT_SSH_PORT");
        EXPECT_EQ(port == t.tools.environment.end() ? "untouched" : port->second, c.port ? c.port : "untouched");
    }
}

namespace {

class Configure : public ::testing::Test, protected ScratchContext {
protected:
    Configure()
    {
        project.automaticModbusMap = 0;
        project.modbusMapLines = Lines({"HOLDING,40001,ABCD,FLOAT,PV,Value,2"});
        target.targetEntry = "192.168.1.250";
        ui.texts = {wxString("10.0.0.9:2200"), wxString("Boiler12House")};
    }
    // ttdevtype's report of the gateway.
    static ToolReply Report(const char* firmware, const char* templates = "Templates: TG7tmpl-v3.1.0")
    {
        return {0, Lines({"TG7-Plus", firmware, templates})};
    }
};

}  // namespace

TEST_F(Configure, ASuccessfulRunInOrder)
{
    tools.replies = {Report("Firmware: TG7main-v6.2.2-build7"), {0, {}}, {0, {}}, {0, {}}};
    // Another run has the installation for two attempts; the build and the upload are one turn, of
    // the installation and of the project folder.
    platform.busyAttempts = 2;
    tools.onRun = [this](const wxString& command) { platform.lockEvents.Add(command.BeforeFirst(' ')); };
    ConfigureDevice(ctx);
    EXPECT_EQ(platform.lockEvents, Lines({"ttdevtype", "lock " + env.TgxBuildPath + "/tgxconfig.lock", "lock " + dir.path
                                          + "/tgxconfig.lock", "ttbuild", "ttrestore", "unlock", "unlock", "ttreboot"}));
    EXPECT_EQ(std::count(ui.events.begin(), ui.events.end(), "waiting: Waiting for another run of the configuration "
                                                             "tool to finish with " + env.TgxBuildPath), 1);
    EXPECT_EQ(GetText(project.tagName), "Boiler12");
    EXPECT_ALL(project.projectSaved == 1, wxFileExists(dir.path + "/plant.prj"));
    EXPECT_EQ(ui.textForms.at(1).message + "|" + ui.textForms.at(1).allowedChars,
        "Enter a Tagname for this TG7|ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz1234567890");
    EXPECT_EQ(tools.environment["TT_SSH_PORT"], "2200");
    wxArrayString commands = tools.Commands();
    ASSERT_EQ(commands.size(), 4u);
    EXPECT_TRUE(commands[1].StartsWith("ttbuild -s=BUILD -f=LINUX"));  // its line is the generator's tests'
    commands[1] = "ttbuild";
    EXPECT_EQ(commands, Lines({"ttdevtype \"10.0.0.9\"", "ttbuild", "ttrestore \"10.0.0.9\" config",
                            "ttreboot \"10.0.0.9\" -s=60 -w -a=1"}));
    EXPECT_EQ(tools.runs[2].workingDirectory, env.TgxBuildPath + "/OUTPUT");
    EXPECT_EQ(ui.progress, (std::vector<wxString>{"begin: Device configuration | Configuring device .. Please wait",
                                                  "pulse: Checking firmware and templates versions",
                                                  "pulse: Building Configuration", "pulse: Uploading Configuration",
                                                  "pulse: Restarting the HART Gateway", "pulse: Done", "end"}));
    EXPECT_EQ(ui.events[ui.events.size() - 3], "wait 1");
    EXPECT_EQ(ui.events.back(), "message: Configuration Complete");
}

TEST_F(Configure, StopsBeforeTheGatewayWhenAskedTo)
{
    // Never saved: stops at once, even with a map.
    project.projectFilePath.Clear();
    ConfigureDevice(ctx);
    EXPECT_EQ(ui.messages.at(0).text,
              "The current project has no name as it has not yet been saved.\nYou must save this project first");

    // No map, and the answer is No.
    project.projectFilePath.Assign(dir.path + "/plant.prj");
    project.modbusMapLines.Clear();
    ui.answers = {false};
    ConfigureDevice(ctx);
    EXPECT_EQ(ui.questions.at(0).caption, "Warning");
    EXPECT_EQ(ui.questions.at(0).icon, MessageIcon::Exclamation);
    EXPECT_EQ(ui.questions.at(0).text, "WARNING : There is no Modbus Map configured for this project\nYou can create or "
                                       "edit a map using the Modbus menu\n\nDo you wish to continue without a map ?");

    // Cancelled address, then cancelled tag.
    ui.answers = {true, true};
    ui.texts = {std::nullopt, wxString("10.0.0.9"), std::nullopt};
    ConfigureDevice(ctx);
    ConfigureDevice(ctx);
    EXPECT_TRUE(tools.runs.empty());
    EXPECT_FALSE(wxFileExists(dir.path + "/plant.prj"));  // nothing saved either
    EXPECT_EQ(ui.messages.size(), 1u);
}

// Loading what was fetched, and the map's fallback to ttmbprint, run end to end in tgxcfg_gateway_test.cpp
// (fetch) and the fault matrix's Fetch rows.
TEST(LoadFromDevice, FetchCommandLinesAndFailures)
{
    TestContext t;
    auto [tools, ui, project, ctx] = std::tie(t.tools, t.ui, t.project, t.ctx);
    ui.texts = {wxString("10.0.0.7"), wxString("10.0.0.7")};
    LoadProjectFromDevice(ctx);  // the scripted runner writes no file: nothing to read
    const wxArrayString commands = tools.Commands();
    ASSERT_EQ(commands.size(), 3u);
    // A folder of this fetch's own in the temporary folder, gone afterwards.
    const wxString folder = commands[0].AfterLast(' ').Mid(1).BeforeLast(wxFILE_SEP_PATH);
    EXPECT_TRUE(folder.StartsWith(wxFileName::GetTempDir() + wxFILE_SEP_PATH + "tgxconfig-download-")) << folder;
    EXPECT_FALSE(wxDirExists(folder));
    EXPECT_EQ(commands[0], "ttgetfile \"10.0.0.7\" TG7/tgxconfig.prj \"" + folder + wxFILE_SEP_PATH + "tgxconfig.prj\"");
    EXPECT_EQ(commands[1], "ttgetfile \"10.0.0.7\" TG7/MBMAP1.csv \"" + folder + wxFILE_SEP_PATH + "MBMAP1.csv\"");
    EXPECT_EQ(commands[2], "ttmbprint \"10.0.0.7\" -f=2");
    EXPECT_EQ(ui.progress.at(0), "begin: Downloading project file | Load config from TG7\n");
    EXPECT_EQ(ui.messages.at(0).text, "Error in project file");

    tools.runs.clear();
    tools.replies = {{1, {}}};
    LoadProjectFromDevice(ctx);
    EXPECT_EQ(tools.runs.size(), 1u);
    EXPECT_EQ(ui.messages.at(1).text, "Failed to obtain configuration from TG7.");
    EXPECT_EQ(ui.progress.back(), "end");
    EXPECT_EQ(project.projectOpen, 0);
}
