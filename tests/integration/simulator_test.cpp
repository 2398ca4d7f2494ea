// The gateway simulator where no workflow test reaches it: ttbuild's template language, strict
// command lines and failures, fault rules, admin commands and file transfer. Each tool is started
// by name from PATH, a process of its own, all sharing one scratch state folder.
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

    // A build folder as the generator leaves it, with this ct.ini; returns the ttbuild command.
    wxString WriteBuildFolder(const wxString& script)
    {
        dir.Write("build/INCLUDE/ct.ini", script);
        for (const char* name : {"dbsave.txt", "tgxconfig.prj", "MBMAP1.csv"})
            dir.Write(wxString("build/ADDITIONAL/") + name, "x\r\n");
        const wxString build = dir.path + "/build";
        return wxString::Format("ttbuild -s=BUILD -f=LINUX \"-i=%s/INCLUDE\" \"-a=%s/ADDITIONAL\" \"-o=%s/OUTPUT\" "
                                "\"-c=config\"",
            build, build, build);
    }

    wxString Gateway(const wxString& relative) const { return dir.path + "/gateway/" + relative; }

    TempDir dir;
};

struct ExpansionCase {
    const char* name;
    std::vector<std::pair<const char*, const char*>> templates;  // file below the templates folder, text
    const char* script;
    long code;
    std::vector<const char*> defs;  // defs.ini after its two heading lines
    std::vector<const char*> app;   // app.ini after its two heading lines
    const char* error;              // in standard error
};

TEST_F(Simulator, TtbuildExpandsTemplatesAndNamesWhatItCannotExpand)
{
    const std::vector<ExpansionCase> cases = {
        {"arguments", {{"t.ini", "A=$1 B=$10 C=${1}0 D=$0 E=$$2\n"}}, "#include t.ini(a,b,c,d,e,f,g,h,i,j)\n", 0,
            {"; t.ini(a,b,c,d,e,f,g,h,i,j)", "A=a B=j C=a0 D=t.ini E=$2"}, {}, ""},
        {"comments, blanks, empty argument, CR LF", {{"t.ini", "; about t\r\n\r\nX=[$2]   \r\n"}},
            "; head\r\n\r\n#include t.ini(a,,c)\r\n", 0, {"; t.ini(a,,c)", "X=[]"}, {}, ""},
        {"arithmetic", {{"t.ini", "R=$[1000 + $2 * 20] S=$[-(3 - 10) % 4] T=$[7/2]\n"}}, "#include t.ini(0,3)\n", 0,
            {"; t.ini(0,3)", "R=1060 S=3 T=3"}, {}, ""},
        {"symbols and sections",
            {{"sys.ini", "#define SWAP $1\n#section app\nM=${SWAP}\n"},
                {"dev.ini", "#section app\nN=${SWAP},$1\n#section defs\nD=$1\n"}},
            "#include sys.ini(6)\n#include dev.ini(x)\n", 0, {"; dev.ini(x)", "D=x"},
            {"; sys.ini(6)", "M=6", "; dev.ini(x)", "N=6,x"}, ""},
        {"nested include", {{"outer.ini", "#include inner.ini($1,$[$1+1])\nO=$1\n"}, {"inner.ini", "I=$1/$2\n"}},
            "#include outer.ini(4)\n", 0, {"; outer.ini(4) > inner.ini(4,5)", "I=4/5", "; outer.ini(4)", "O=4"}, {},
            ""},
        {"BUILD folder first", {{"t.ini", "W=top\n"}, {"BUILD/t.ini", "W=build\n"}}, "#include t.ini\n", 0,
            {"; t.ini", "W=build"}, {}, ""},
        {"argument not given", {{"t.ini", "A=$3\n"}}, "#include t.ini(a,b)\n", 3, {}, {},
            "t.ini line 1: $3 is used but 2 arguments were given"},
        {"self include", {{"loop.ini", "#include loop.ini\n"}}, "#include loop.ini\n", 3, {}, {},
            "nested deeper than 8"},
        {"missing template", {{"t.ini", "A=1\n"}}, "#include t.ini\n#include nosuchtmpl.ini(0,0,1)\n", 2, {}, {},
            "template 'nosuchtmpl.ini' not found (ct.ini line 2"},
        {"missing nested template", {{"outer.ini", "\n#include gone.ini($1)\n"}}, "#include outer.ini(1)\n", 2, {}, {},
            "template 'gone.ini' not found (outer.ini line 2"},
    };
    for (const ExpansionCase& c : cases) {
        SCOPED_TRACE(c.name);
        const wxString templates = dir.path + "/" + c.name;
        wxFileName::Mkdir(templates + "/BUILD", wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
        for (const auto& [file, text] : c.templates)
            dir.Write(wxString(c.name) + "/" + file, text);
        const wxString command = WriteBuildFolder(c.script);
        for (const char* stale : {"defs.ini", "app.ini", "dbsave.txt"})
            dir.Write(wxString("build/OUTPUT/") + stale, "from an earlier build\r\n");

        const RunResult result = Run(command, templates);
        EXPECT_EQ(result.code, c.code);
        if (c.code != 0) {
            ASSERT_FALSE(result.err.empty());
            EXPECT_TRUE(result.err[0].StartsWith("ttbuild: ") && result.err[0].Contains(c.error)) << result.err[0];
            for (const char* name : {"defs.ini", "app.ini", "dbsave.txt"})
                EXPECT_FALSE(wxFileExists(dir.path + "/build/OUTPUT/" + name)) << "a failed build leaves no " << name;
            continue;
        }
        wxArrayString defs = LinesOf(dir.path + "/build/OUTPUT/defs.ini"), app = LinesOf(dir.path + "/build/OUTPUT/app.ini");
        ASSERT_GE(defs.size(), 2u);
        ASSERT_GE(app.size(), 2u);
        defs.RemoveAt(0, 2);
        app.RemoveAt(0, 2);
        EXPECT_EQ(defs, Lines(c.defs));
        EXPECT_EQ(app, Lines(c.app));
    }
}

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

TEST_F(Simulator, FilesTravelToAndFromTheGatewayUnchanged)
{
    const struct {
        const char* local;
        const char* command;
        const char* onGateway;
        const char* remote;  // fetched back by ttgetfile
    } cases[] = {
        {"TG7+ User Guide.pdf", "ttputfile h \"TG7+ User Guide.pdf\" /var/www/html/downloads/TG7UserGuide.pdf -c",
            "root/var/www/html/downloads/TG7UserGuide.pdf", "/var/www/html/downloads/TG7UserGuide.pdf"},
        {"notes.txt", "ttputfile h notes.txt /var/www/html/downloads/", "root/var/www/html/downloads/notes.txt",
            "/var/www/html/downloads/notes.txt"},
        {"map.csv", "ttputfile h map.csv TG7/MBMAP1.csv", "TG7/MBMAP1.csv", "TG7/MBMAP1.csv"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.command);
        const std::string content = std::string(c.local) + "\nbytes \x01\xC3\xBC\r\nkept as they are\n";
        dir.Write(wxString("up/") + c.local, wxString::FromUTF8(content));
        EXPECT_EQ(Run(c.command, dir.path + "/up").code, 0);
        EXPECT_EQ(ReadBytes(Gateway(c.onGateway)), content);
        EXPECT_EQ(Run(wxString::Format("ttgetfile h %s back", c.remote)).code, 0);
        EXPECT_EQ(ReadBytes(dir.path + "/back"), content);
    }
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
