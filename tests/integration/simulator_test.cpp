// The gateway simulator where no workflow test reaches it: strict command lines. The fault rules
// are proven by the fault matrix that injects them. What each tool does for a workflow (the template
// expansion of ttbuild included), and the admin commands (set, reset), are proven by the workflow
// tests that use them. Each tool is started by name from PATH, a process of its own, all sharing
// one scratch state folder.
#include "deploy/captured_output.h"
#include "deploy/tool_runner.h"
#include "unit/temp_dir.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/utils.h>


namespace {

struct RunResult {
    long code = -1;
    wxArrayString out, err;
};

class Simulator : public ::testing::Test {
protected:
    Simulator()
    {
        wxSetEnv("TGXSIM_HOME", dir.path + "/gateway");
        wxString path;
        wxGetEnv("PATH", &path);
        if (!path.StartsWith(TGX_SIMULATOR_BIN wxPATH_SEP))
            wxSetEnv("PATH", TGX_SIMULATOR_BIN wxPATH_SEP + path);
    }

    // One run in the scratch folder, standard error kept as well.
    RunResult Run(const wxString& command)
    {
        RunResult result;
        wxExecuteEnv env;
        env.cwd = dir.path;
        result.code = wxExecute(command, result.out, result.err, wxEXEC_SYNC | wxEXEC_NODISABLE, &env);
        return result;
    }

    TempDir dir;
};

// A command line the real tool would refuse is refused (64, with the usage), so a wrong command
// line of ours fails the workflow tests. How the tools fail otherwise (a missing file, no map, no
// upload) is proven by the workflow tests that meet those failures.
TEST_F(Simulator, WrongCommandLinesAreRefusedWithTheUsage)
{
    for (const char* command : {"ttdevtype", "ttdevtype -a", "ttbuild -s=BUILD -f=LINUX -i=x -a=y -o=z",
                                "ttbuild -s=BUILD -f=WINDOWS -i=x -a=y -o=z -c=config", "ttrestore h backup",
                                "ttreboot h -s=sixty -w -a=1", "ttgetfile h TG7/tgxconfig.prj",
                                "ttputfile h local.txt /tmp/x -z", "ttmbprint h -f=1"}) {
        const RunResult result = Run(command);
        const wxString tool = wxString(command).BeforeFirst(' ');
        EXPECT_EQ(result.code, 64) << command;
        EXPECT_TRUE(result.out.empty() && result.err.size() == 2u && result.err[0].StartsWith(tool + ": ") &&
                    result.err[1].StartsWith("usage: " + tool + " ")) << command << "\n" << wxJoin(result.err, '\n');
    }
}

// A tool printing more than a captured run keeps is cut there, runs to its end and keeps its code.
TEST_F(Simulator, CapturedOutputIsCutAtItsLimit)
{
    ASSERT_EQ(Run("tgxsim fault add ttmbprint exit=3 output=a output=b repeat=140000").code, 0);
    wxArrayString lines;
    EXPECT_EQ(WxToolRunner().RunCaptured(ToolCommand("ttmbprint").Arg("h").Arg("-f=2"), lines), 3);
    EXPECT_TRUE(lines.size() == kMaxCapturedLines && lines.Last() == "b");
}

}  // namespace
