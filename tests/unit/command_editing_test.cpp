#include "fakes/test_context.h"
#include "commands/command_editing.h"
#include "project/project.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>

TEST(CommandEntry, NumberAndArgumentSyntax)
{
    const struct {
        const char* number;
        const char* interval;
        bool accepted;
        std::vector<int> args;
        const char* shown;  // the entry as the dialog shows it again
    } cases[] = {
        {"48:", "10", true, {}, "48"},
        {"48:1,2,3,4,5,6,7,8,9", "1", true, {1, 2, 3, 4, 5, 6, 7, 8}, "48:1,2,3,4,5,6,7,8"},  // the ninth is ignored
        {"48:1,2,", "1", true, {1, 2}, "48:1,2"},  // an empty rest ends the list
        {"48:1,,3", "1", true, {1, 0, 3}, "48:1,0,3"},
        {"255", "1", true, {}, "255"},
        {"0", "1", true, {}, "0"},
        {"256", "1", false, {}, ""},
        {"-1", "1", false, {}, ""},
        {"x", "1", false, {}, ""},
        {"3", "0", false, {}, ""},
        {"3", "", false, {}, ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(wxString(c.number) + " / " + c.interval);
        HartCommandEntry entry{};
        ASSERT_EQ(ParseCommandEntry(c.number, c.interval, entry), c.accepted);
        if (c.accepted) {
            EXPECT_EQ(std::vector<int>(entry.args, entry.args + entry.argCount), c.args);
            EXPECT_EQ(CommandNumberText(entry), c.shown);
        }
    }
}

namespace {

class Commands : public ::testing::Test, protected TestContext {
protected:
    Commands()
    {
        LoadDefaultProject(project);
        project.deviceCount = 1;
        project.selectedDevice = 0;
        project.projectSaved = 1;
    }
    void Answer(const char* number, const char* interval, bool enabled = true, bool write = false)
    {
        ui.commandAnswers.push_back([=](CommandForm& form) {
            form = CommandForm{number, interval, enabled, write};
            return true;
        });
    }
    ProjectDevice& device() { return project.devices[0]; }
};

}  // namespace

TEST_F(Commands, AddStoresAcceptedEntriesAndMarksEveryOkAsAnEdit)
{
    Answer("48:1,2", "10", false, true);
    Answer("256", "1");
    AddCommand(ctx);
    const CommandForm& shown = ui.commandForms.at(0);
    EXPECT_EQ(shown.commandNumber + " " + shown.cycleInterval, "1 1");
    EXPECT_ALL(shown.enabledForPolling, !shown.writeCommand);
    const HartCommandEntry& c = device().commands[0];
    EXPECT_EQ((std::vector<int>{c.commandNumber, c.cycleInterval, c.pollEnabled, c.writeCommand, c.argCount}),
        (std::vector<int>{48, 10, 0, 1, 2}));
    project.projectSaved = 1;
    AddCommand(ctx);  // refused without a word, but still an edit
    EXPECT_ALL(device().commandCount == 1, project.projectSaved == 0, ui.messages.empty());

    // Fifty commands are the limit, and a device is needed: no dialog then.
    device().commandCount = MAX_COMMANDS;
    AddCommand(ctx);
    project.selectedDevice = -1, device().commandCount = 0;
    AddCommand(ctx);
    EXPECT_EQ(ui.commandForms.size(), 2u);
}

TEST_F(Commands, ModifyReplacesInPlaceAndDeleteMovesLaterCommandsDown)
{
    device().commandCount = 3;
    for (int i = 0; i < 3; ++i)
        device().commands[i] = HartCommandEntry{i + 1, {i, 2}, 2, 10, 1, 0};
    project.selectedCommand = 1;
    Answer("33", "20");
    ModifyCommand(ctx);
    EXPECT_EQ(ui.commandForms.at(0).commandNumber + " " + ui.commandForms.at(0).cycleInterval, "2:1,2 10");
    EXPECT_ALL(device().commands[1].commandNumber == 33, device().commands[1].argCount == 0);

    project.selectedCommand = 0;
    DeleteCommand(ctx);
    ASSERT_EQ(device().commandCount, 2);
    EXPECT_ALL(device().commands[0].commandNumber == 33, device().commands[1].args[0] == 2);
    EXPECT_EQ(project.selectedCommand, 0);
    project.selectedCommand = 1, project.projectSaved = 1;  // the last one
    DeleteCommand(ctx);
    EXPECT_ALL(project.selectedCommand == 0, project.projectSaved == 0);
}
