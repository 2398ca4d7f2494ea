#include "deploy/tool_runner.h"

#include "wx_test_support.h"

#include <gtest/gtest.h>

namespace {

// The same small scripts in each platform's shell.
#ifdef __WINDOWS__
const char kTwoLinesThenExit3[] = "cmd.exe /C \"echo first& echo second& exit 3\"";
const char kExit2[] = "cmd.exe /C exit 2";
const char kPortAndFolder[] = "cmd.exe /C \"echo %TT_SSH_PORT%& cd\"";
const char kRootFolder[] = "C:\\";
#else
const char kTwoLinesThenExit3[] = "sh -c 'echo first; echo second; exit 3'";
const char kExit2[] = "sh -c 'exit 2'";
const char kPortAndFolder[] = "sh -c 'echo $TT_SSH_PORT; pwd'";
const char kRootFolder[] = "/";
#endif

}  // namespace

TEST(WxToolRunner, ReportsExitCodesLinesAndUnstartableTools)
{
    WxToolRunner runner;
    wxArrayString lines;
    EXPECT_EQ(runner.RunCaptured(kTwoLinesThenExit3, lines), 3);
    EXPECT_EQ(lines, Lines({"first", "second"}));

    EXPECT_EQ(runner.RunCaptured("tgx-no-such-tool \"a b\"", lines), -1);
    EXPECT_TRUE(lines.empty());
    EXPECT_EQ(runner.RunBlockingHidden("tgx-no-such-tool"), -1);
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
