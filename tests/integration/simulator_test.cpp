// The gateway simulator where no workflow test reaches it: strict command lines and failures, and
// the fault rules as the workflow tests inject them. What each tool does for a workflow (the
// template expansion of ttbuild included), and the admin commands (set, reset), are proven by the
// workflow tests that use them. Each tool is started by name from PATH, a process of its own, all
// sharing one scratch state folder.
#include "unit/temp_dir.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>
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
        ASSERT_FALSE(result.err.empty());
        EXPECT_TRUE(result.err[0].StartsWith(c.error)) << result.err[0];
    }
    EXPECT_FALSE(wxFileExists(dir.path + "/empty/fetched.prj"));
    EXPECT_FALSE(wxFileExists(Gateway("TG7/config/defs.ini")));
}

TEST_F(Simulator, FaultRulesFailMatchingRunsAndCountAcrossRuns)
{
    dir.Write("up/f.txt", "x\r\n");
    const struct {
        const char* name;
        std::vector<const char*> rules;                  // arguments of "tgxsim fault add"
        std::vector<std::pair<const char*, long>> runs;  // command, expected exit code, in order
    } cases[] = {
        {"twice, then success for good", {"ttreboot exit=1 fails=2"}, {{"ttreboot h", 1}, {"ttreboot h", 1}, {"ttreboot h", 0}, {"ttreboot h", 0}}},
        {"substring of the arguments", {"ttputfile match=downloads/ exit=4"}, {{"ttputfile h f.txt /var/www/html/downloads/f.txt", 4}, {"ttputfile h f.txt /var/www/html/f.txt", 0}}},
        {"the first rule that is not spent", {"ttreboot exit=5 fails=1", "ttreboot exit=6"}, {{"ttreboot h", 5}, {"ttreboot h", 0}, {"ttreboot h", 6}}},
        {"a wrong command line is not counted", {"ttreboot exit=3 fails=1"}, {{"ttreboot", 64}, {"ttreboot h", 3}, {"ttreboot h", 0}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ASSERT_EQ(Run("tgxsim reset").code, 0);
        for (const char* rule : c.rules)
            ASSERT_EQ(Run(wxString("tgxsim fault add ") + rule).code, 0) << rule;
        for (const auto& [command, code] : c.runs)
            EXPECT_EQ(Run(command, dir.path + "/up").code, code) << command;
    }
    // A failed restart never reaches the gateway: the last case restarted it once.
    EXPECT_EQ(LinesOf(Gateway("boot.log")).size(), 1u);

    // A rule's own output lines replace the tool's; without them, the failure is on standard error.
    ASSERT_EQ(Run("tgxsim fault add ttdevtype exit=0 output=TG7-Plus \"output=Firmware: TG7main-v6.1.0-build2\"").code, 0);
    EXPECT_EQ(Run("ttdevtype h").out, Lines({"TG7-Plus", "Firmware: TG7main-v6.1.0-build2"}));
    ASSERT_EQ(Run("tgxsim fault add ttrestore exit=3").code, 0);
    const RunResult restore = Run("ttrestore h config");
    EXPECT_EQ(restore.code, 3);
    EXPECT_TRUE(restore.out.empty());
    EXPECT_EQ(restore.err, Lines({"ttrestore: simulated failure (faults.txt line 3)"}));
}

}  // namespace
