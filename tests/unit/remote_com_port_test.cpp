#include "fakes/test_context.h"
#include "remote/remote_com_port.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>

#include <optional>

TEST(RemoteComPort, CommandLinesAndMessages)
{
    const ToolReply ok{0, {}}, report{0, Lines({"COM7 10.0.0.5:772 up"})};
    const wxArrayString usual = Lines({"COM3", "COM4"});
    const struct {
        const char* name;
        std::vector<ToolReply> replies;
        wxArrayString free;  // the PC's free COM names
        std::optional<RemoteForm> answer;  // the user's choices; none: cancelled
        wxArrayString commands;
        const char* message;  // nullptr: none
    } cases[] = {
        {"no port, no free name", {ok}, {}, {}, Lines({"ttvsp -g"}), "Unable to create virtual com port because there are no free COM port names on this PC"},
        {"first port created, OK unchanged", {ok, ok, ok}, usual, RemoteForm{{}, "COM3", "192.168.1.250", "1772"}, Lines({"ttvsp -g", "ttvsp \"COM3\" \"192.168.1.250\" \"-p=1772\"", "ttvsp COM3 192.168.1.250 -p=1772"}), nullptr},
        {"cancelled", {report}, usual, {}, Lines({"ttvsp -g"}), nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        TestContext t;
        t.project.vcpPort = 1772;
        t.platform.freeComPorts = c.free;
        t.tools.replies.assign(c.replies.begin(), c.replies.end());
        if (c.answer)
            t.ui.remoteAnswers.push_back([a = *c.answer](RemoteForm& form) {
                form = a;
                return true;
            });
        RemoteComPortCommand(t.ctx);
        EXPECT_EQ(t.tools.Commands(), c.commands);
        ASSERT_EQ(t.ui.messages.size(), c.message ? 1u : 0u);
        if (c.message) {
            EXPECT_EQ(t.ui.messages[0].text, c.message);
        }
    }

    // The dialog opens on the current port as reported (leading blanks skipped, the address runs to
    // the colon); the choice holds the free names, then the current one even when it is free too.
    TestContext t;
    t.platform.freeComPorts = Lines({"COM3", "COM7"});
    t.tools.replies = {{0, Lines({"  COM7 plant gw:772 down"})}};
    RemoteComPortCommand(t.ctx);
    const RemoteForm& shown = t.ui.remoteForms.at(0);
    EXPECT_EQ(wxJoin(shown.comNames, ' ') + "|" + shown.comName + "|" + shown.address + "|" + shown.port,
              "COM3 COM7 COM7|COM7|plant gw|772");
}
