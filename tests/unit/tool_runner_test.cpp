#include "platform/wx_tool_runner.h"

#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/stdpaths.h>

namespace {

// The same small scripts in each platform's shell.
#ifdef __WINDOWS__
const ToolCommand kTwoLinesThenExit3 = ToolCommand::FixedLine("cmd.exe /C \"echo first& echo second& exit 3\"");
const ToolCommand kExit2 = ToolCommand::FixedLine("cmd.exe /C exit 2");
const ToolCommand kPortAndFolder = ToolCommand::FixedLine("cmd.exe /C \"echo %TT_SSH_PORT%& cd\"");
const char kRootFolder[] = "C:\\";
#else
const ToolCommand kTwoLinesThenExit3 = ToolCommand("sh").Arg("-c").Arg("echo first; echo second; exit 3");
const ToolCommand kExit2 = ToolCommand("sh").Arg("-c").Arg("exit 2");
const ToolCommand kPortAndFolder = ToolCommand("sh").Arg("-c").Arg("echo $TT_SSH_PORT; pwd");
const char kRootFolder[] = "/";
#endif

}  // namespace

TEST(WxToolRunner, ReportsExitCodesLinesAndUnstartableTools)
{
    WxToolRunner runner;
    wxArrayString lines;
    EXPECT_EQ(runner.RunCaptured(kTwoLinesThenExit3, lines), 3);
    EXPECT_EQ(lines, Lines({"first", "second"}));

    EXPECT_EQ(runner.RunCaptured(ToolCommand("tgx-no-such-tool").Arg("a b"), lines), -1);
    EXPECT_TRUE(lines.empty());
    EXPECT_EQ(runner.RunBlockingHidden(ToolCommand("tgx-no-such-tool")), -1);
    EXPECT_EQ(runner.RunBlockingHidden(kExit2), 2);
}

TEST(WxToolRunner, ToolsInheritTheEnvironmentAndDirectory)
{
    WxToolRunner runner;
    runner.SetEnvironment("TT_SSH_PORT", "2222");
    ASSERT_TRUE(runner.SetWorkingDirectory(kRootFolder));
    wxArrayString lines;
    EXPECT_EQ(runner.RunCaptured(kPortAndFolder, lines), 0);
    EXPECT_EQ(lines, Lines({"2222", kRootFolder}));
    EXPECT_FALSE(runner.SetWorkingDirectory("/no/such/folder"));
}

// Whatever an argument holds, the tool receives it whole, as one argument; and the command line
// shown for the run is the one a Windows program splits back into the same arguments.
TEST(WxToolRunner, ArgumentsArriveWhole)
{
    const struct {
        const char* argument;
        bool quoted;
        const char* written;
    } rows[] = {
        {"192.168.1.250", true, "\"192.168.1.250\""},
        {"-f=2", false, "-f=2"},
        {"h\" -oProxyCommand=x \"y", true, "\"h\\\" -oProxyCommand=x \\\"y\""},
        {"127.0.0.1 -d", false, "\"127.0.0.1 -d\""},
        {"-oProxyCommand=x", false, "-oProxyCommand=x"},
        {"-o=C:\\out\\", true, "\"-o=C:\\out\\\\\""},
        {"C:\\tgx build\\x\\\\\"y", false, "\"C:\\tgx build\\x\\\\\\\\\\\"y\""},
        {"", false, "\"\""},
        {"22;touch x $(id) `id` | & > <", false, "\"22;touch x $(id) `id` | & > <\""},
    };
    const wxString self = wxStandardPaths::Get().GetExecutablePath();
    ToolCommand command(self);
    command.Arg("--print-arguments");
    wxArrayString expected;
    for (const auto& row : rows) {
        ToolCommand one("t");
        (row.quoted ? one.QuotedArg(row.argument) : one.Arg(row.argument));
        EXPECT_EQ(one.CommandLine(), wxString("t ") + row.written) << row.argument;
        (row.quoted ? command.QuotedArg(row.argument) : command.Arg(row.argument));
        expected.Add(wxString("[") + row.argument + "]");
    }
    wxArrayString lines;
    WxToolRunner runner;
    ASSERT_EQ(runner.RunCaptured(command, lines), 0);
    EXPECT_EQ(lines, expected);
}
