// The gateway simulator where no workflow test reaches it: strict command lines and failures, the
// fault rules and the admin commands. What each tool does for a workflow (the template expansion
// of ttbuild included) is proven by the workflow tests that use it. Each tool is started by name
// from PATH, a process of its own, all sharing one scratch state folder.
#include "unit/temp_dir.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/stopwatch.h>
#include <wx/tokenzr.h>
#include <wx/utils.h>

#include <utility>
#include <vector>

namespace {

struct RunResult {
    long code = -1;
    wxArrayString out, err;
};

wxArrayString LinesOf(const wxString& path)
{
    return wxStringTokenize(wxString::FromUTF8(ReadBytes(path)), "\r\n", wxTOKEN_STRTOK);
}

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

    // One run, standard error kept as well, in the scratch folder unless told otherwise.
    RunResult Run(const wxString& command, const wxString& cwd = wxString())
    {
        RunResult result;
        wxExecuteEnv env;
        env.cwd = cwd.empty() ? dir.path : cwd;
        result.code = wxExecute(command, result.out, result.err, wxEXEC_SYNC | wxEXEC_NODISABLE, &env);
        return result;
    }

    wxString Gateway(const wxString& relative) const { return dir.path + "/gateway/" + relative; }

    TempDir dir;
};

// A command line the real tool would refuse is refused (64, with the usage), so a wrong command
// line of ours fails the workflow tests; other failures exit non-zero and change nothing.
TEST_F(Simulator, WrongCommandLinesAndFailuresExitNonZeroAndChangeNothing)
{
    dir.Write("empty/.keep", "");
    const struct {
        const char* command;
        long code;
        const char* error;  // the start of standard error's first line
    } cases[] = {
        {"ttdevtype", 64, "ttdevtype: "},
        {"ttdevtype -a", 64, "ttdevtype: "},
        {"ttbuild -s=BUILD -f=LINUX -i=x -a=y -o=z", 64, "ttbuild: "},
        {"ttbuild -s=BUILD -f=WINDOWS -i=x -a=y -o=z -c=config", 64, "ttbuild: "},
        {"ttrestore h backup", 64, "ttrestore: "},
        {"ttreboot h -s=sixty -w -a=1", 64, "ttreboot: "},
        {"ttgetfile h TG7/tgxconfig.prj", 64, "ttgetfile: "},
        {"ttputfile h local.txt /tmp/x -z", 64, "ttputfile: "},
        {"ttmbprint h -f=1", 64, "ttmbprint: "},
        {"ttgetfile h TG7/nothing.prj fetched.prj", 1, "ttgetfile: TG7/nothing.prj: no such file"},
        {"ttgetfile h ../settings.ini fetched.prj", 1, "ttgetfile: ../settings.ini: no such file"},
        {"ttputfile h missing.pdf /var/www/html/downloads/x.pdf", 1, "ttputfile: missing.pdf: no such file"},
        {"ttmbprint h -f=2", 1, "ttmbprint: no Modbus map"},
        {"ttrestore h config", 1, "ttrestore: nothing uploaded"},
        {"ttbuild -s=BUILD -f=LINUX -i=empty -a=empty -o=out -c=config", 4, "ttbuild: no folder BUILD"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.command);
        const RunResult result = Run(c.command, dir.path + "/empty");
        EXPECT_EQ(result.code, c.code);
        EXPECT_TRUE(result.out.empty());
        ASSERT_EQ(result.err.size(), c.code == 64 ? 2u : 1u);
        EXPECT_TRUE(result.err[0].StartsWith(c.error)) << result.err[0];
        if (c.code == 64) {
            EXPECT_TRUE(result.err[1].StartsWith("usage: " + wxString(c.command).BeforeFirst(' ') + " "));
        }
    }
    EXPECT_EQ(LinesOf(Gateway("run.log")).size(), WXSIZEOF(cases)) << "wrong command lines are logged too";
    EXPECT_FALSE(wxFileExists(dir.path + "/empty/fetched.prj"));
    EXPECT_FALSE(wxFileExists(Gateway("TG7/config/defs.ini")));
}

struct FaultCase {
    const char* name;
    std::vector<const char*> rules;                  // arguments of "tgxsim fault add"
    std::vector<std::pair<const char*, long>> runs;  // command, expected exit code, in order
};

TEST_F(Simulator, FaultRulesFailMatchingRunsAndCountAcrossRuns)
{
    dir.Write("up/f.txt", "x\r\n");
    const std::vector<FaultCase> cases = {
        {"twice, then success for good", {"ttreboot exit=1 fails=2"},
            {{"ttreboot h", 1}, {"ttreboot h", 1}, {"ttreboot h", 0}, {"ttreboot h", 0}}},
        {"substring of the arguments", {"ttputfile match=downloads/ exit=4"},
            {{"ttputfile h f.txt /var/www/html/downloads/f.txt", 4}, {"ttputfile h f.txt /var/www/html/f.txt", 0}}},
        {"glob over the whole argument line", {"\"ttputfile\" \"match=h f.txt /var/*\" exit=5"},
            {{"ttputfile h f.txt /var/www/html/f.txt", 5}, {"ttputfile h f.txt TG7/f.txt", 0}}},
        {"any tool, once", {"* exit=9 fails=1"}, {{"ttdevtype h", 9}, {"ttmbprint h -f=2", 1}, {"ttdevtype h", 0}}},
        {"the first rule that is not spent", {"ttreboot exit=5 fails=1", "ttreboot exit=6"},
            {{"ttreboot h", 5}, {"ttreboot h", 0}, {"ttreboot h", 6}, {"ttreboot h", 6}}},
        {"a wrong command line is not counted", {"ttreboot exit=3 fails=1"},
            {{"ttreboot", 64}, {"ttreboot h", 3}, {"ttreboot h", 0}}},
    };
    for (const FaultCase& c : cases) {
        SCOPED_TRACE(c.name);
        ASSERT_EQ(Run("tgxsim reset").code, 0);
        for (const char* rule : c.rules)
            ASSERT_EQ(Run(wxString("tgxsim fault add ") + rule).code, 0) << rule;
        for (const auto& [command, code] : c.runs)
            EXPECT_EQ(Run(command, dir.path + "/up").code, code) << command;
    }
    // A failed restart never reaches the gateway: the last case restarted it once.
    EXPECT_EQ(LinesOf(Gateway("boot.log")).size(), 1u);
    // Clearing forgets the counts: the same rule fails again from the start.
    for (int round = 0; round < 2; ++round) {
        ASSERT_EQ(Run("tgxsim fault clear").code, 0);
        ASSERT_EQ(Run("tgxsim fault add ttdevtype exit=2 fails=1").code, 0);
        EXPECT_EQ(Run("ttdevtype h").code, 2);
    }
}

TEST_F(Simulator, FaultOutputDelayAndBrokenFaultFiles)
{
    ASSERT_EQ(Run("tgxsim fault add ttdevtype exit=0 output=TG7-Plus \"output=Firmware: TG7main-v6.1.0-build2\"").code, 0);
    ASSERT_EQ(Run("tgxsim fault add ttrestore exit=3").code, 0);
    ASSERT_EQ(Run("tgxsim fault delay ttmbprint 0.6").code, 0);

    const RunResult devtype = Run("ttdevtype h");
    EXPECT_EQ(devtype.code, 0);
    EXPECT_EQ(devtype.out, Lines({"TG7-Plus", "Firmware: TG7main-v6.1.0-build2"}));
    const RunResult restore = Run("ttrestore h config");
    EXPECT_EQ(restore.code, 3);
    EXPECT_TRUE(restore.out.empty());
    EXPECT_EQ(restore.err, Lines({"ttrestore: simulated failure (faults.txt line 2)"}));
    wxStopWatch watch;
    EXPECT_EQ(Run("ttmbprint h -f=2").code, 1);
    EXPECT_GE(watch.Time(), 600);
    const wxArrayString runs = LinesOf(Gateway("run.log"));
    ASSERT_EQ(runs.size(), 3u);
    EXPECT_TRUE(runs[0].EndsWith("\tfault rule at line 1")) << runs[0];
    EXPECT_TRUE(runs[2].EndsWith("\tdelayed 0.6s")) << runs[2];

    // The admin refuses rules it cannot read; a hand-made bad line stops every tool loudly.
    for (const char* refused : {"fault add ttrebot exit=1", "fault add ttreboot exit=300", "fault delay ttreboot soon"})
        EXPECT_EQ(Run(wxString("tgxsim ") + refused).code, 64) << refused;
    dir.Write("gateway/faults.txt", "ttreboot fails=many\r\n");
    const RunResult broken = Run("ttreboot h");
    EXPECT_EQ(broken.code, 78);
    ASSERT_FALSE(broken.err.empty());
    EXPECT_TRUE(broken.err[0].Contains("faults.txt, line 1: fails must be a number")) << broken.err[0];
}

TEST_F(Simulator, AdminCommandsSetTheGatewayAndResetIt)
{
    for (const char* command : {"set firmware 6.2.3", "set templates 3.2.0-beta", "set type TG7-Lite"})
        EXPECT_EQ(Run(wxString("tgxsim ") + command).code, 0) << command;
    for (const char* command : {"set firmware v7", "set firmware", "set colour red", "frobnicate"})
        EXPECT_EQ(Run(wxString("tgxsim ") + command).code, 64) << command;
    EXPECT_EQ(Run("ttdevtype h").out,
        Lines({"TG7-Lite", "Firmware: TG7main-v6.2.3-build7", "Templates: TG7templates-v3.2.0-beta-build3"}));

    dir.Write("up/index.html", "<html/>\r\n");
    ASSERT_EQ(Run("ttputfile h index.html /var/www/html/index.html", dir.path + "/up").code, 0);
    dir.Write("gateway/keep-me.txt", "not the simulator's\r\n");
    ASSERT_EQ(Run("tgxsim reset").code, 0);
    EXPECT_EQ(Run("ttdevtype h").out,
        Lines({"TG7-Plus", "Firmware: TG7main-v6.2.2-build7", "Templates: TG7templates-v3.1.0-build3"}));
    EXPECT_FALSE(wxFileExists(Gateway("root/var/www/html/index.html")));
    EXPECT_TRUE(wxDirExists(Gateway("root/var/www/html/downloads")));
    EXPECT_TRUE(wxFileExists(Gateway("keep-me.txt")));
}

}  // namespace
