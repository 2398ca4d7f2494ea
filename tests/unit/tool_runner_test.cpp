#include "build/tool_runner.h"

#include "wx_test_support.h"

#include <gtest/gtest.h>

TEST(WxToolRunner, ReportsExitCodesLinesAndUnstartableTools)
{
    WxToolRunner runner;
    wxArrayString lines;
    EXPECT_EQ(runner.RunCaptured("sh -c 'echo first; echo second; exit 3'", lines), 3);
    EXPECT_EQ(lines, Lines({"first", "second"}));

    EXPECT_EQ(runner.RunCaptured("tgx-no-such-tool \"a b\"", lines), -1);
    EXPECT_TRUE(lines.empty());
    EXPECT_EQ(runner.RunBlockingHidden("tgx-no-such-tool"), -1);
    EXPECT_EQ(runner.RunBlockingHidden("sh -c 'exit 2'"), 2);
}

TEST(WxToolRunner, ToolsInheritTheEnvironmentAndDirectory)
{
    WxToolRunner runner;
    runner.SetEnvironment("TT_SSH_PORT", "2222");
    ASSERT_TRUE(runner.SetWorkingDirectory("/"));
    wxArrayString lines;
    EXPECT_EQ(runner.RunCaptured("sh -c 'echo $TT_SSH_PORT; pwd'", lines), 0);
    EXPECT_EQ(lines, Lines({"2222", "/"}));
    EXPECT_FALSE(runner.SetWorkingDirectory("/no/such/folder"));
}
