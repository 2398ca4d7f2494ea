// The gateway simulator where no workflow test reaches it: strict command lines, runs at the same
// moment. The fault rules are proven by the fault matrix that injects them. What each tool does
// for a workflow (the template expansion of ttbuild included), and the admin commands (set,
// reset), are proven by the workflow tests that use them; gateways told apart by loopback
// address, each with its own firmware, state and fault rules, by tests/ansible/fleet_test.sh
// (four at once), tgxcfg_parallel_test.cpp and, for the default gateway, whole_windows_test.cpp.
// Each tool is started by name from PATH, a process of its own, all sharing one scratch state
// folder.
#include "platform/captured_output.h"
#include "platform/wx_tool_runner.h"
#include "base/text_file.h"
#include "unit/temp_dir.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/utils.h>

#include <algorithm>
#include <cstdlib>
#include <thread>
#include <vector>


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

    wxArrayString LogLines(const wxString& relative) const
    {
        wxArrayString lines;
        ReadTextLines(dir.path + "/gateway/" + relative, lines);
        return lines;
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
        EXPECT_ALL(result.out.empty(), result.err.size() == 2u, result.err[0].StartsWith(tool + ": "), result.err[1].StartsWith("usage: " + tool + " ")) << command << "\n" << wxJoin(result.err, '\n');
    }
}

// A tool printing more than a captured run keeps is cut there, runs to its end and keeps its code.
TEST_F(Simulator, CapturedOutputIsCutAtItsLimit)
{
    ASSERT_EQ(Run("tgxsim fault add ttmbprint exit=3 output=a output=b repeat=140000").code, 0);
    wxArrayString lines;
    EXPECT_EQ(WxToolRunner().RunCaptured(ToolCommand("ttmbprint").Arg("h").Arg("-f=2"), lines), 3);
    EXPECT_ALL(lines.size() == kMaxCapturedLines, lines.Last() == "b");
}

// Runs at the same moment each log one whole line, count against a rule once each, and each
// restart lands in its own gateway's boot.log.
TEST_F(Simulator, RunsAtTheSameMomentLogAndCountEachRun)
{
    ASSERT_EQ(Run("tgxsim fault delay ttreboot 0.3").code, 0);
    ASSERT_EQ(Run("tgxsim fault add ttreboot exit=3 fails=4 output=down").code, 0);
    std::vector<std::thread> runs;
    std::vector<int> codes(8);  // as the shell reports them: zero or not is all they share
    for (int i = 0; i < 8; ++i)
        runs.emplace_back([this, i, &codes] {
            codes[i] = std::system(wxString::Format("ttreboot 127.0.0.%d -w >\"%s/reboot%d.txt\"", i + 2, dir.path,
                i).utf8_str());
        });
    for (std::thread& run : runs)
        run.join();
    EXPECT_EQ(std::count(codes.begin(), codes.end(), 0), 4);

    const wxArrayString runLog = LogLines("run.log");
    ASSERT_EQ(runLog.size(), 8u) << wxJoin(runLog, '\n');
    int failed = 0;
    for (const wxString& line : runLog) {
        const wxArrayString fields = wxSplit(line, '\t', '\0');
        ASSERT_GE(fields.size(), 8u) << line;
        const bool restarted = fields[2] == "exit=0";
        failed += fields[2] == "exit=3";
        EXPECT_EQ(LogLines("gateways/" + fields[3].AfterFirst('=') + "/boot.log").size(), restarted ? 1u : 0u) << line;
    }
    EXPECT_EQ(failed, 4);
}

}  // namespace
