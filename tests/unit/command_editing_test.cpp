#include "fakes/test_context.h"
#include "project/command_editing.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>

TEST(CommandEntry, NumberAndArgumentSyntax)
{
    struct Case {
        const char* number;
        const char* interval;
        bool accepted;
        int command;
        std::vector<int> args;
    };
    const Case cases[] = {
        {"48", "10", true, 48, {}},
        {"48:", "10", true, 48, {}},
        {"48:1,2,3", "1", true, 48, {1, 2, 3}},
        {"48:1,2,3,4,5,6,7,8,9", "1", true, 48, {1, 2, 3, 4, 5, 6, 7, 8}},  // the ninth is ignored
        {"48:1,2,", "1", true, 48, {1, 2}},                                  // an empty rest ends the list
        {"48:1,,3", "1", true, 48, {1, 0, 3}},
        {"255", "1", true, 255, {}},
        {"0", "1", true, 0, {}},
        {"256", "1", false, 0, {}},
        {"-1", "1", false, 0, {}},
        {"x", "1", false, 0, {}},
        {"3", "0", false, 0, {}},
        {"3", "-5", false, 0, {}},
        {"3", "", false, 0, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(wxString(c.number) + " / " + c.interval);
        HartCommandEntry entry{};
        ASSERT_EQ(ParseCommandEntry(c.number, c.interval, entry), c.accepted);
        if (!c.accepted)
            continue;
        EXPECT_EQ(entry.commandNumber, c.command);
        EXPECT_EQ(std::vector<int>(entry.args, entry.args + entry.argCount), c.args);
        EXPECT_EQ(CommandNumberText(entry), c.args.empty() ? wxString(c.number).BeforeFirst(':')
                                                           : wxString::Format("%d:", c.command) + [&] {
                                                                 wxString s;
                                                                 for (size_t i = 0; i < c.args.size(); ++i)
                                                                     s << (i ? "," : "") << c.args[i];
                                                                 return s;
                                                             }());
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
    }
    void Answer(const char* number, const char* interval, bool enabled = true, bool write = false)
    {
        ui.commandAnswers.push_back([=](CommandForm& form) {
            form.commandNumber = number;
            form.cycleInterval = interval;
            form.enabledForPolling = enabled;
            form.writeCommand = write;
            return true;
        });
    }
    ProjectDevice& device() { return project.devices[0]; }
};

}  // namespace

TEST_F(Commands, AddStoresAcceptedEntriesAndMarksEveryOkAsAnEdit)
{
    Answer("48:1,2", "10", false, true);
    AddCommand(ctx);
    const CommandForm& shown = ui.commandForms.at(0);
    EXPECT_EQ(shown.commandNumber, "1");
    EXPECT_EQ(shown.cycleInterval, "1");
    EXPECT_TRUE(shown.enabledForPolling);
    EXPECT_FALSE(shown.writeCommand);
    ASSERT_EQ(device().commandCount, 1);
    const HartCommandEntry& c = device().commands[0];
    EXPECT_EQ((std::vector<int>{c.commandNumber, c.cycleInterval, c.pollEnabled, c.writeCommand, c.argCount}),
              (std::vector<int>{48, 10, 0, 1, 2}));

    project.projectSaved = 1;
    Answer("256", "1");
    AddCommand(ctx);
    Answer("3", "0");
    AddCommand(ctx);
    EXPECT_EQ(device().commandCount, 1);
    EXPECT_EQ(project.projectSaved, 0);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(Commands, FiftyCommandsAreTheLimitAndADeviceIsNeeded)
{
    device().commandCount = MAX_COMMANDS;
    AddCommand(ctx);
    project.selectedDevice = -1;
    device().commandCount = 0;
    AddCommand(ctx);
    EXPECT_TRUE(ui.commandForms.empty());
}

TEST_F(Commands, ModifyShowsTheSlotAndReplacesItInPlace)
{
    device().commandCount = 2;
    device().commands[1] = HartCommandEntry{9, {1, 2}, 2, 10, 1, 0};
    project.selectedCommand = 1;
    Answer("33", "20");
    ModifyCommand(ctx);
    EXPECT_EQ(ui.commandForms.at(0).commandNumber, "9:1,2");
    EXPECT_EQ(ui.commandForms.at(0).cycleInterval, "10");
    EXPECT_EQ(device().commands[1].commandNumber, 33);
    EXPECT_EQ(device().commands[1].argCount, 0);
    EXPECT_EQ(project.selectedCommand, 1);
}

TEST_F(Commands, DeleteMovesLaterCommandsDown)
{
    device().commandCount = 3;
    for (int i = 0; i < 3; ++i)
        device().commands[i] = HartCommandEntry{i + 1, {i}, 1, 1, 1, 0};
    project.selectedCommand = 0;
    DeleteCommand(ctx);
    ASSERT_EQ(device().commandCount, 2);
    EXPECT_EQ(device().commands[0].commandNumber, 2);
    EXPECT_EQ(device().commands[1].args[0], 2);
    EXPECT_EQ(project.selectedCommand, 0);

    device().commandCount = 3;
    project.selectedCommand = 2;  // the last of three
    DeleteCommand(ctx);
    EXPECT_EQ(project.selectedCommand, 1);
    EXPECT_EQ(project.projectSaved, 0);
}
