// The gateway simulator as the configuration tool meets it: each tool started by name from PATH
// through wxExecute, a process of its own, all sharing one scratch state folder.
#include "deploy/tool_runner.h"

#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/file.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/stopwatch.h>
#include <wx/tokenzr.h>
#include <wx/utils.h>

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace {

const wxString kHost = "192.168.1.250";
const wxString kTemplates = TGX_SOURCE_DIR "/simulator/installation/tgxtemplates";

struct RunResult {
    long code = -1;
    wxArrayString out, err;
};

// The file's text with its line ends as they are.
wxString ReadRaw(const wxString& path)
{
    wxFile file(path);
    wxString text;
    if (!file.IsOpened() || !file.ReadAll(&text, wxConvUTF8))
        return "<no file " + path + ">";
    return text;
}

wxArrayString LinesOf(const wxString& path) { return wxStringTokenize(ReadRaw(path), "\r\n", wxTOKEN_STRTOK); }

wxArrayString ToArray(const std::vector<const char*>& texts)
{
    wxArrayString lines;
    for (const char* text : texts)
        lines.Add(text);
    return lines;
}

// How the configuration tool reads a version from a ttdevtype line.
wxString VersionOf(const wxString& line) { return (line.Contains("v") ? line.AfterLast('v') : line).BeforeFirst('-'); }

// A DEV_TYPE row of ct.cfg: the type name and its five templates.
struct DeviceType {
    wxString name;
    wxArrayString templates;
};

std::vector<DeviceType> ShippedDeviceTypes()
{
    std::vector<DeviceType> types;
    for (const wxString& line : LinesOf(kTemplates + "/BUILD/ct.cfg")) {
        wxArrayString words = wxStringTokenize(line, " \t", wxTOKEN_STRTOK);
        if (words.size() == 7 && words[0] == "DEV_TYPE")
            types.push_back({words[1], wxArrayString(words.begin() + 2, words.end())});
    }
    return types;
}

// ct.ini as the configuration generator writes it for a gateway with these devices at poll
// addresses 0, 5, 10 ... and float swap code 6.
wxString ConfigurationScript(const std::vector<DeviceType>& devices)
{
    const int count = static_cast<int>(devices.size());
    wxString s;
    s << "; --- CREATED BY TGXCONFIGTOOL APPLICATION              ---\r\n;\r\n"
      << wxString::Format("#include defstmpl.ini(TG7,1,%d,6,0,,50002,0,1,pool.ntp.org)\r\n", count)
      << wxString::Format("#include hartlooptmpl.ini(0,%d)\r\n", count)
      << "#include fimportstmpl.ini(4,MODBUS,RS485,19200,8,1,NOPARITY,1)\r\n"
      << "#include inetdtmpl.ini(502,4000,5000,5100,514,5094)\r\n;\r\n";
    for (int i = 0; i < count; ++i)
        s << wxString::Format("#include %s(0,%d,%d)\r\n", devices[i].templates[0], i, 5 * i);
    s << "#include systemmb.ini\r\n";
    for (int column = 1; column <= 3; ++column)
        for (int i = 0; i < count; ++i)
            s << wxString::Format("#include %s(0,%d)\r\n", devices[i].templates[column], i);
    s << "#include hartloopmbtmpl.ini(0)\r\n";
    for (int i = 0; i < count; ++i)
        s << wxString::Format("#include %s(0,%d)\r\n", devices[i].templates[4], i);
    return s << ";\r\n; END\r\n";
}

class Simulator : public ::testing::Test {
protected:
    Simulator()
    {
        scratch = wxFileName::CreateTempFileName(wxFileName::GetTempDir() + "/tgxsim");
        wxRemoveFile(scratch);
        wxFileName::Mkdir(scratch, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
        home = scratch + "/gateway";
        wxSetEnv("TGXSIM_HOME", home);
        wxSetEnv("TT_SSH_PORT", "22");
        wxString path;
        wxGetEnv("PATH", &path);
        if (!path.StartsWith(TGX_SIMULATOR_BIN wxPATH_SEP))
            wxSetEnv("PATH", TGX_SIMULATOR_BIN wxPATH_SEP + path);
    }
    ~Simulator() override
    {
        wxSetWorkingDirectory(wxFileName::GetTempDir());
        wxFileName::Rmdir(scratch, wxPATH_RMDIR_RECURSIVE);
    }

    // One run, standard error kept as well, in the scratch folder unless told otherwise.
    RunResult Run(const wxString& command, const wxString& cwd = wxString())
    {
        RunResult result;
        wxExecuteEnv env;
        env.cwd = cwd.empty() ? scratch : cwd;
        result.code = wxExecute(command, result.out, result.err, wxEXEC_SYNC | wxEXEC_NODISABLE, &env);
        return result;
    }

    wxString Write(const wxString& relative, const wxString& content) const
    {
        const wxString full = scratch + "/" + relative;
        wxFileName::Mkdir(wxFileName(full).GetPath(), wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
        wxFile(full, wxFile::write).Write(content, wxConvUTF8);
        return full;
    }

    // A build folder as the generator leaves it: INCLUDE/ct.ini, the three ADDITIONAL files, OUTPUT.
    wxString WriteBuildFolder(const wxString& script)
    {
        Write("build/INCLUDE/ct.ini", script);
        Write("build/ADDITIONAL/dbsave.txt", "1,SYS:OPERMODE,0\r\n1,L0:NANCTRL,0\r\n");
        Write("build/ADDITIONAL/tgxconfig.prj", "TGX TAGNAME:TG7\r\nDEVICE COUNT:2\r\n");
        Write("build/ADDITIONAL/MBMAP1.csv",
            "HOLDING,1,0,UINT16,SYS:STATUS,Gateway status,1\r\n"
            "HOLDING,1022,6,FLOAT,L0D1:PV,Pressure,2\r\n");
        wxFileName::Mkdir(scratch + "/build/OUTPUT", wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
        return scratch + "/build";
    }

    static wxString BuildCommand(const wxString& build)
    {
        return wxString::Format("ttbuild -s=BUILD -f=LINUX \"-i=%s/INCLUDE\" \"-a=%s/ADDITIONAL\" \"-o=%s/OUTPUT\" "
                                "\"-c=config\"",
            build, build, build);
    }

    wxString Gateway(const wxString& relative) const { return home + "/" + relative; }

    wxString scratch, home;
};

TEST_F(Simulator, CommissioningRehearsalRunsEndToEnd)
{
    const std::vector<DeviceType> types = ShippedDeviceTypes();
    ASSERT_GE(types.size(), 3u);
    ASSERT_EQ(types[2].name, "Rosemount3051");
    const wxString build = WriteBuildFolder(ConfigurationScript({types[0], types[2]}));

    WxToolRunner tools;
    tools.SetEnvironment("TT_SSH_PORT", "2222");
    wxArrayString lines;
    ASSERT_EQ(tools.RunCaptured("ttdevtype \"" + kHost + "\"", lines), 0);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0], "TG7-Plus");
    EXPECT_EQ(VersionOf(lines[1]), "6.2.2");
    EXPECT_EQ(VersionOf(lines[2]), "3.1.0");

    ASSERT_TRUE(tools.SetWorkingDirectory(kTemplates));
    ASSERT_EQ(tools.RunBlockingHidden(BuildCommand(build)), 0);
    const wxString defs = ReadRaw(build + "/OUTPUT/defs.ini");
    const wxString app = ReadRaw(build + "/OUTPUT/app.ini");
    EXPECT_TRUE(defs.Contains("\r\n[L0D1]\r\nTYPE=Rosemount3051\r\nMANUFACTURER=Emerson\r\nADDRESS=5\r\n")) << defs;
    EXPECT_TRUE(app.Contains("\r\nMBITEM=HOLDING,1022,6,FLOAT,L0D1:PV,Pressure,2\r\n")) << app;
    wxString bare = defs + app;
    bare.Replace("\r\n", "");
    EXPECT_FALSE(bare.Contains("\n") || bare.Contains("\r")) << "every line ends in CR LF";
    for (const char* name : {"dbsave.txt", "tgxconfig.prj", "MBMAP1.csv"})
        EXPECT_EQ(ReadRaw(build + "/OUTPUT/" + name), ReadRaw(build + "/ADDITIONAL/" + name)) << name;

    ASSERT_TRUE(tools.SetWorkingDirectory(build + "/OUTPUT"));
    EXPECT_EQ(tools.RunCaptured("ttrestore \"" + kHost + "\" config", lines), 0);
    EXPECT_EQ(ReadRaw(Gateway("TG7/config/app.ini")), app);

    ASSERT_TRUE(tools.SetWorkingDirectory(scratch));
    const wxString fetched = scratch + "/projects/tgxconfig.prj";
    wxFileName::Mkdir(scratch + "/projects");
    EXPECT_EQ(
        tools.RunCaptured(wxString::Format("ttgetfile \"%s\" TG7/tgxconfig.prj \"%s\"", kHost, fetched), lines), 0);
    EXPECT_EQ(ReadRaw(fetched), ReadRaw(build + "/ADDITIONAL/tgxconfig.prj"));
    EXPECT_EQ(tools.RunCaptured("ttmbprint \"" + kHost + "\" -f=2", lines), 0);
    EXPECT_EQ(lines, LinesOf(build + "/ADDITIONAL/MBMAP1.csv"));
    EXPECT_EQ(tools.RunCaptured(wxString::Format("ttreboot \"%s\" -s=%d -w -a=%d", kHost, 60, 5), lines), 0);

    const wxArrayString boots = LinesOf(Gateway("boot.log"));
    ASSERT_EQ(boots.size(), 1u);
    EXPECT_TRUE(boots[0].EndsWith("\thost=192.168.1.250\tTT_SSH_PORT=2222\toptions=-s=60 -w -a=5")) << boots[0];

    // The run log: one line per run, naming the tool, its exit code, host, port and folder.
    const wxArrayString runs = LinesOf(Gateway("run.log"));
    const char* const expected[] = {"ttdevtype", "ttbuild", "ttrestore", "ttgetfile", "ttmbprint", "ttreboot"};
    ASSERT_EQ(runs.size(), 6u);
    for (size_t i = 0; i < runs.size(); ++i) {
        const wxArrayString fields = wxSplit(runs[i], '\t', 0);
        ASSERT_GE(fields.size(), 7u) << runs[i];
        EXPECT_EQ(fields[1], expected[i]);
        EXPECT_EQ(fields[2], "exit=0");
        EXPECT_EQ(fields[3], i == 1 ? wxString("host=-") : "host=" + kHost);
        EXPECT_EQ(fields[4], "TT_SSH_PORT=2222");
    }
    // The folder as the system names it: native separators on Windows.
    EXPECT_EQ(wxSplit(runs[2], '\t', 0)[5], "cwd=" + wxFileName(build + "/OUTPUT").GetFullPath());
}

// Every device type the sample set ships builds, and the map it gives is sound: seven fields per
// item, no two items on one register, every tag name defined in defs.ini.
TEST_F(Simulator, ShippedTemplatesGiveAConsistentMapForEveryDeviceType)
{
    const std::vector<DeviceType> types = ShippedDeviceTypes();
    ASSERT_EQ(types.size(), 8u);
    const wxString build = WriteBuildFolder(ConfigurationScript(types));
    const RunResult built = Run(BuildCommand(build), kTemplates);
    ASSERT_EQ(built.code, 0) << wxJoin(built.err, '\n');

    const wxArrayString defs = LinesOf(build + "/OUTPUT/defs.ini");
    for (size_t i = 0; i < types.size(); ++i) {
        const int at = defs.Index(wxString::Format("[L0D%zu]", i));
        ASSERT_NE(at, wxNOT_FOUND);
        EXPECT_EQ(defs[at + 1], "TYPE=" + types[i].name);
    }
    std::map<long, wxString> owner;  // register -> tag name
    size_t items = 0;
    for (const wxString& line : LinesOf(build + "/OUTPUT/app.ini")) {
        if (!line.StartsWith("MBITEM="))
            continue;
        ++items;
        const wxArrayString f = wxSplit(line.AfterFirst('='), ',', 0);
        ASSERT_EQ(f.size(), 7u) << line;
        long address = 0, count = 0;
        ASSERT_TRUE(f[1].ToLong(&address) && f[6].ToLong(&count) && count > 0) << line;
        EXPECT_EQ(count, f[3] == "FLOAT" || f[3] == "UINT32" ? 2 : 1) << line;
        const wxString point = "POINT=" + f[4] + "," + f[3] + ",";
        EXPECT_TRUE(std::any_of(defs.begin(), defs.end(), [&](const wxString& d) { return d.StartsWith(point); }))
            << "no " << point << " in defs.ini for " << line;
        for (long r = address; r < address + count; ++r)
            EXPECT_TRUE(owner.emplace(r, f[4]).second) << "register " << r << " twice: " << line;
    }
    EXPECT_EQ(items, 5 + 3 + 8 * 3 + 8 * 7);  // system, loop, three tables, device blocks
}

struct ExpansionCase {
    const char* name;
    std::vector<std::pair<const char*, const char*>> templates;  // file below the templates folder, text
    const char* script;
    long code;
    std::vector<const char*> defs;  // defs.ini after its two heading lines
    std::vector<const char*> app;  // app.ini after its two heading lines
    const char* error;  // in standard error
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
        {"unknown symbol", {{"t.ini", "\nA=${NOPE}\n"}}, "#include t.ini\n", 3, {}, {},
            "t.ini line 2: symbol 'NOPE' is not defined"},
        {"division by zero", {{"t.ini", "A=$[1/($1-$1)]\n"}}, "#include t.ini(2)\n", 3, {}, {}, "division by zero"},
        {"unknown directive", {{"t.ini", "#if 1\n"}}, "#include t.ini\n", 3, {}, {}, "unknown directive '#if'"},
        {"self include", {{"loop.ini", "#include loop.ini\n"}}, "#include loop.ini\n", 3, {}, {},
            "nested deeper than 8"},
        {"not an include", {}, "; fine\nTAG=1\n", 3, {}, {}, "ct.ini line 2: only '#include' lines"},
        {"missing template", {{"t.ini", "A=1\n"}}, "#include t.ini\n#include nosuchtmpl.ini(0,0,1)\n", 2, {}, {},
            "template 'nosuchtmpl.ini' not found (ct.ini line 2"},
        {"missing nested template", {{"outer.ini", "\n#include gone.ini($1)\n"}}, "#include outer.ini(1)\n", 2, {}, {},
            "template 'gone.ini' not found (outer.ini line 2"},
    };
    for (const ExpansionCase& c : cases) {
        SCOPED_TRACE(c.name);
        const wxString templates = scratch + "/" + c.name;
        wxFileName::Mkdir(templates + "/BUILD", wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
        for (const auto& [file, text] : c.templates)
            Write(wxString(c.name) + "/" + file, text);
        const wxString build = WriteBuildFolder(c.script);
        for (const char* stale : {"defs.ini", "app.ini", "dbsave.txt"})
            Write(wxString("build/OUTPUT/") + stale, "from an earlier build\r\n");

        const RunResult result = Run(BuildCommand(build), templates);
        EXPECT_EQ(result.code, c.code);
        if (c.code != 0) {
            ASSERT_FALSE(result.err.empty());
            EXPECT_TRUE(result.err[0].StartsWith("ttbuild: ") && result.err[0].Contains(c.error)) << result.err[0];
            for (const char* name : {"defs.ini", "app.ini", "dbsave.txt"})
                EXPECT_FALSE(wxFileExists(build + "/OUTPUT/" + name)) << "a failed build leaves no " << name;
            continue;
        }
        wxArrayString defs = LinesOf(build + "/OUTPUT/defs.ini"), app = LinesOf(build + "/OUTPUT/app.ini");
        ASSERT_GE(defs.size(), 2u);
        ASSERT_GE(app.size(), 2u);
        defs.RemoveAt(0, 2);
        app.RemoveAt(0, 2);
        EXPECT_EQ(defs, ToArray(c.defs));
        EXPECT_EQ(app, ToArray(c.app));
    }
}

TEST_F(Simulator, WrongCommandLinesAreUsageErrors)
{
    const char* const commands[] = {
        "ttdevtype",
        "ttdevtype h extra",
        "ttdevtype -a",
        "ttbuild -s=BUILD -f=LINUX -i=x -a=y -o=z",
        "ttbuild -s=BUILD -f=WINDOWS -i=x -a=y -o=z -c=config",
        "ttbuild -s=BUILD -f=LINUX -i=x -a=y -o=z -c=config -x=1",
        "ttbuild -s=BUILD -s=BUILD -f=LINUX -i=x -a=y -o=z -c=config",
        "ttbuild -s= -f=LINUX -i=x -a=y -o=z -c=config",
        "ttrestore h",
        "ttrestore h backup",
        "ttreboot",
        "ttreboot h -s=sixty -w -a=1",
        "ttreboot h -q",
        "ttreboot h -w -w",
        "ttgetfile h TG7/tgxconfig.prj",
        "ttputfile h local.txt",
        "ttputfile h local.txt /tmp/x -z",
        "ttmbprint h",
        "ttmbprint h -f=1",
    };
    for (const char* command : commands) {
        SCOPED_TRACE(command);
        const wxString tool = wxString(command).BeforeFirst(' ');
        const RunResult result = Run(command);
        EXPECT_EQ(result.code, 64);
        EXPECT_TRUE(result.out.empty());
        ASSERT_EQ(result.err.size(), 2u);
        EXPECT_TRUE(result.err[0].StartsWith(tool + ": ")) << result.err[0];
        EXPECT_TRUE(result.err[1].StartsWith("usage: " + tool + " ")) << result.err[1];
    }
    EXPECT_EQ(LinesOf(Gateway("run.log")).size(), WXSIZEOF(commands)) << "wrong command lines are logged too";
}

TEST_F(Simulator, FailuresExitNonZeroAndChangeNothing)
{
    struct Case {
        const char* command;
        long code;
        const char* error;
    };
    Write("local.txt", "x\r\n");
    Write("empty/.keep", "");
    const Case cases[] = {
        {"ttgetfile h TG7/nothing.prj fetched.prj", 1, "ttgetfile: TG7/nothing.prj: no such file"},
        {"ttgetfile h ../settings.ini fetched.prj", 1, "no such file"},
        {"ttputfile h missing.pdf /var/www/html/downloads/x.pdf", 1, "ttputfile: missing.pdf: no such file"},
        {"ttputfile h local.txt /no/such/folder/x.txt", 1, "no folder for /no/such/folder/x.txt"},
        {"ttmbprint h -f=2", 1, "ttmbprint: no Modbus map"},
        {"ttrestore h config", 1, "ttrestore: nothing uploaded"},
        {"ttbuild -s=BUILD -f=LINUX -i=empty -a=empty -o=out -c=config", 4, "ttbuild: no folder BUILD"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.command);
        const RunResult result
            = Run(c.command, scratch + (wxString(c.command).StartsWith("ttrestore") ? "/empty" : ""));
        EXPECT_EQ(result.code, c.code);
        ASSERT_FALSE(result.err.empty());
        EXPECT_TRUE(result.err[0].Contains(c.error)) << result.err[0];
    }
    EXPECT_FALSE(wxFileExists(scratch + "/fetched.prj"));
    EXPECT_FALSE(wxFileExists(Gateway("TG7/tgxconfig.prj")));
    EXPECT_FALSE(wxFileExists(Gateway("root/var/www/html/downloads/x.pdf")));

    const wxString build = WriteBuildFolder("#include defstmpl.ini\n");
    wxRemoveFile(build + "/ADDITIONAL/tgxconfig.prj");
    const RunResult noProject = Run(BuildCommand(build), kTemplates);
    EXPECT_EQ(noProject.code, 4);
    ASSERT_FALSE(noProject.err.empty());
    EXPECT_TRUE(noProject.err[0].Contains("no tgxconfig.prj in")) << noProject.err[0];
}

TEST_F(Simulator, FilesTravelToAndFromTheGatewayUnchanged)
{
    struct Case {
        const char* local;
        const char* command;  // %s: the host
        const char* onGateway;
        const char* remote;  // fetched back by ttgetfile
    };
    const Case cases[] = {
        {"TG7+ User Guide.pdf", "ttputfile \"%s\" \"TG7+ User Guide.pdf\" /var/www/html/downloads/TG7UserGuide.pdf",
            "root/var/www/html/downloads/TG7UserGuide.pdf", "/var/www/html/downloads/TG7UserGuide.pdf"},
        {"index.html", "ttputfile \"%s\" index.html /var/www/html/index.html", "root/var/www/html/index.html",
            "/var/www/html/index.html"},
        {"installer/TGxConnect.msi",
            "ttputfile \"%s\" \"installer/TGxConnect.msi\" /var/www/html/downloads/TGxConnect.msi -c",
            "root/var/www/html/downloads/TGxConnect.msi", "/var/www/html/downloads/TGxConnect.msi"},
        {"notes.txt", "ttputfile \"%s\" notes.txt /var/www/html/downloads/", "root/var/www/html/downloads/notes.txt",
            "/var/www/html/downloads/notes.txt"},
        {"map.csv", "ttputfile \"%s\" map.csv TG7/MBMAP1.csv", "TG7/MBMAP1.csv", "TG7/MBMAP1.csv"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.command);
        const wxString content = wxString::Format("%s\nbytes \x01\r\nkept as they are\n", c.local);
        const wxString local = Write(wxString("up/") + c.local, content);
        EXPECT_EQ(Run(wxString::Format(c.command, kHost), scratch + "/up").code, 0);
        EXPECT_EQ(ReadRaw(Gateway(c.onGateway)), content);
        EXPECT_EQ(Run(wxString::Format("ttgetfile \"%s\" %s \"%s\"", kHost, c.remote, scratch + "/back")).code, 0);
        EXPECT_EQ(ReadRaw(scratch + "/back"), content);
    }
}

struct FaultCase {
    const char* name;
    std::vector<const char*> rules;  // arguments of "tgxsim fault add"
    std::vector<std::pair<const char*, long>> runs;  // command, expected exit code, in order
};

TEST_F(Simulator, FaultRulesFailMatchingRunsAndCountAcrossRuns)
{
    Write("up/f.txt", "x\r\n");
    const std::vector<FaultCase> cases = {
        {"always", {"ttreboot exit=3"}, {{"ttreboot h", 3}, {"ttreboot h -a=1", 3}, {"ttreboot h", 3}}},
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
            EXPECT_EQ(Run(command, scratch + "/up").code, code) << command;
    }

    // A failed restart never reaches the gateway: the last case restarted it once.
    EXPECT_EQ(LinesOf(Gateway("boot.log")).size(), 1u);
    // Clearing forgets the counts: the same rule fails again from the start.
    ASSERT_EQ(Run("tgxsim fault clear").code, 0);
    ASSERT_EQ(Run("tgxsim fault add ttdevtype exit=2 fails=1").code, 0);
    EXPECT_EQ(Run("ttdevtype h").code, 2);
    EXPECT_EQ(Run("ttdevtype h").code, 0);
    ASSERT_EQ(Run("tgxsim fault clear").code, 0);
    ASSERT_EQ(Run("tgxsim fault add ttdevtype exit=2 fails=1").code, 0);
    EXPECT_EQ(Run("ttdevtype h").code, 2);
}

TEST_F(Simulator, FaultOutputDelayAndBrokenFaultFiles)
{
    ASSERT_EQ(
        Run("tgxsim fault add ttdevtype exit=0 output=TG7-Plus \"output=Firmware: TG7main-v6.1.0-build2\"").code, 0);
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
    EXPECT_EQ(Run("tgxsim fault add ttrebot exit=1").code, 64);
    EXPECT_EQ(Run("tgxsim fault add ttreboot exit=300").code, 64);
    EXPECT_EQ(Run("tgxsim fault delay ttreboot soon").code, 64);
    Write("gateway/faults.txt", "ttreboot fails=many\r\n");
    const RunResult broken = Run("ttreboot h");
    EXPECT_EQ(broken.code, 78);
    ASSERT_FALSE(broken.err.empty());
    EXPECT_TRUE(broken.err[0].Contains("faults.txt, line 1: fails must be a number")) << broken.err[0];
}

TEST_F(Simulator, AdminCommandsSetTheGatewayAndResetIt)
{
    struct Case {
        const char* command;
        long code;
        const char* line;  // expected ttdevtype output line
        size_t index;
        const char* version;  // what the configuration tool reads from it, "" for the type line
    };
    const Case cases[] = {
        {"tgxsim set firmware 6.2.3", 0, nullptr, 1, "6.2.3"},
        {"tgxsim set templates 3.2.0-beta", 0, nullptr, 2, "3.2.0"},
        {"tgxsim set type TG7-Lite", 0, "TG7-Lite", 0, ""},
        {"tgxsim set firmware v7", 64, nullptr, 1, "6.2.3"},
        {"tgxsim set firmware", 64, nullptr, 1, "6.2.3"},
        {"tgxsim set colour red", 64, nullptr, 0, ""},
        {"tgxsim frobnicate", 64, nullptr, 0, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.command);
        EXPECT_EQ(Run(c.command).code, c.code);
        const RunResult devtype = Run("ttdevtype h");
        ASSERT_EQ(devtype.out.size(), 3u);
        if (c.line) {
            EXPECT_EQ(devtype.out[c.index], c.line);
        }
        if (*c.version) {
            EXPECT_EQ(VersionOf(devtype.out[c.index]), c.version);
        }
    }

    Write("up/index.html", "<html/>\r\n");
    ASSERT_EQ(Run("ttputfile h index.html /var/www/html/index.html", scratch + "/up").code, 0);
    Write("gateway/keep-me.txt", "not the simulator's\r\n");
    ASSERT_EQ(Run("tgxsim reset").code, 0);
    EXPECT_EQ(Run("ttdevtype h").out,
        Lines({"TG7-Plus", "Firmware: TG7main-v6.2.2-build7", "Templates: TG7templates-v3.1.0-build3"}));
    EXPECT_FALSE(wxFileExists(Gateway("root/var/www/html/index.html")));
    EXPECT_TRUE(wxDirExists(Gateway("root/var/www/html/downloads")));
    EXPECT_TRUE(wxFileExists(Gateway("keep-me.txt")));
}

#ifdef __UNIX__  // the home folder comes from HOME here; Windows has its own profile folder
TEST_F(Simulator, StateFolderDefaultsToDotTgxsimInTheHomeFolder)
{
    wxString savedHome;
    wxGetEnv("HOME", &savedHome);
    wxSetEnv("HOME", scratch);
    wxUnsetEnv("TGXSIM_HOME");
    const RunResult where = Run("tgxsim home");
    const RunResult devtype = Run("ttdevtype h");
    wxSetEnv("HOME", savedHome);

    ASSERT_EQ(where.out.size(), 1u);
    EXPECT_EQ(where.out[0], scratch + "/.tgxsim");
    EXPECT_EQ(devtype.code, 0);
    EXPECT_TRUE(wxFileExists(scratch + "/.tgxsim/settings.ini"));
    EXPECT_TRUE(wxFileExists(scratch + "/.tgxsim/run.log"));
}
#endif

}  // namespace
