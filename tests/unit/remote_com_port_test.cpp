#include "fakes/test_context.h"
#include "remote/remote_com_port.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>

TEST(RemoteComPort, ReportLineNeedsAllFourFields)
{
    struct Case {
        const char* line;
        bool valid;
        const char* com;
        const char* address;
        int port;
    } cases[] = {
        {"COM7 10.0.0.5:772 up", true, "COM7", "10.0.0.5", 772},
        {"  COM3 plant gw:80 down", true, "COM3", "plant gw", 80},  // the address runs to the colon
        {"COM7 10.0.0.5 772 up", false, "", "", 0},
        {"COM7 10.0.0.5:772", false, "", "", 0},
    };
    for (const Case& c : cases) {
        VirtualPortReport report;
        EXPECT_EQ(ParseVirtualPortReport(c.line, report), c.valid) << c.line;
        if (c.valid) {
            EXPECT_EQ(report.comName, c.com);
            EXPECT_EQ(report.address, c.address);
            EXPECT_EQ(report.port, c.port);
        }
    }
}

TEST(RemoteComPort, CommandLinesAndMessages)
{
    const auto pick = [](const char* com, const char* address, const char* port) {
        return [=](RemoteForm& form) {
            form.comName = com;
            form.address = address;
            form.port = port;
            return true;
        };
    };
    struct Case {
        const char* name;
        std::vector<ToolReply> replies;
        bool noFreeNames;
        std::function<bool(RemoteForm&)> answer;  // empty: cancelled
        wxArrayString commands;
        const char* message;  // nullptr: none
    } cases[] = {
        {"no TGxConnect", {{-1, {}}}, false, {}, Lines({"ttvsp -g"}),
         "Remote Coms Port functionality requires TGxConnect software to be installed"},
        {"unreadable report", {{0, Lines({"COM7 10.0.0.5 772 up"})}}, false, {}, Lines({"ttvsp -g"}),
         "Unable to determine name of current VSP port"},
        {"no port, no free name", {{0, {}}}, true, {}, Lines({"ttvsp -g"}),
         "Unable to create virtual com port because there are no free COM port names on this PC"},
        {"first port refused", {{0, {}}, {2, {}}}, false, {},
         Lines({"ttvsp -g", "ttvsp \"COM3\" \"192.168.1.250\" \"-p=1772\""}), "Unable to create virtual com port."},
        {"first port created, OK unchanged", {{0, {}}, {0, {}}, {0, {}}}, false, pick("COM3", "192.168.1.250", "1772"),
         Lines({"ttvsp -g", "ttvsp \"COM3\" \"192.168.1.250\" \"-p=1772\"", "ttvsp COM3 192.168.1.250 -p=1772"}), nullptr},
        {"renamed, re-creation refused", {{0, Lines({"COM7 10.0.0.5:772 up"})}, {0, {}}, {1, {}}}, false,
         pick("COM4", "10.0.0.9", "9 00"), Lines({"ttvsp -g", "ttvsp -d", "ttvsp COM4 10.0.0.9 -p=9 00"}),
         "Unable to create virtual com port. Please ensure you have the latest version of TARN tools installed"},
        {"cancelled", {{0, Lines({"COM7 10.0.0.5:772 up"})}}, false, {}, Lines({"ttvsp -g"}), nullptr},
    };
    for (Case& c : cases) {
        SCOPED_TRACE(c.name);
        TestContext t;
        t.project.vcpPort = 1772;
        if (!c.noFreeNames)
            t.platform.freeComPorts = Lines({"COM3", "COM4"});
        t.tools.replies.assign(c.replies.begin(), c.replies.end());
        if (c.answer)
            t.ui.remoteAnswers.push_back(c.answer);
        RemoteComPortCommand(t.ctx);
        EXPECT_EQ(t.tools.Commands(), c.commands);
        ASSERT_EQ(t.ui.messages.size(), c.message ? 1u : 0u);
        if (c.message) {
            EXPECT_EQ(t.ui.messages[0].text, c.message);
        }
    }

    // The choice holds the free names, then the current one even when it is free too.
    TestContext t;
    t.platform.freeComPorts = Lines({"COM3", "COM7"});
    t.tools.replies = {{0, Lines({"COM7 10.0.0.5:772 up"})}};
    RemoteComPortCommand(t.ctx);
    EXPECT_EQ(t.ui.remoteForms.at(0).comNames, Lines({"COM3", "COM7", "COM7"}));
}
