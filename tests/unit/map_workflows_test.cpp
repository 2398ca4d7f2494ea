#include "fakes/test_context.h"
#include "modbus/map_editing.h"
#include "modbus/map_export_command.h"
#include "modbus/map_import.h"
#include "modbus/map_modes.h"
#include "platform/posix_platform.h"
#include "project/project_file.h"
#include "project/text_file.h"
#include "temp_dir.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/log.h>

#include <functional>
#include <map>

namespace {

const char kNoName[] = "The current project has no name as it has not yet been saved.\nYou must save this project first";
const char kToAutomatic[] =
    "Enable Automatic Modbus Map Generation\n\nThe user defined modbus map will be lost !! Do you wish to continue ?";
const char kToUser[] =
    "Enable User Defined Map\n\nAutomatic modbus map generation will be disabled !! Do you wish to continue ?";

class MapWorkflow : public ::testing::Test, protected TestContext {
protected:
    MapWorkflow()
    {
        platform.separator = "/";
        env.TgxBuildPath = dir.path + "/tgxconfigure";
        env.TgxProjectPath = dir.path + "/projects";
        for (const char* sub : {"tgxconfigure/INCLUDE", "tgxconfigure/ADDITIONAL", "tgxconfigure/OUTPUT", "projects"})
            wxFileName::Mkdir(dir.path + "/" + sub, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
        LoadDefaultProject(project);
        project.automaticModbusMap = 0;
        project.projectFilePath.Assign(ProjectPath());
        project.modbusMapLines = Lines({"HOLDING,1,0,UINT16,SYS:STATUS,Gateway status,1"});
        target.targetEntry = "10.0.0.9";
    }
    wxString ProjectPath() const { return dir.path + "/plant.prj"; }
    wxString Out(const char* name) const { return env.TgxBuildPath + "/OUTPUT/" + name; }
    // The lines of a file, {"(missing)"} when there is none.
    static wxArrayString FileLines(const wxString& path)
    {
        wxArrayString lines;
        return ReadTextLines(path, lines) ? lines : Lines({"(missing)"});
    }
    // The build output's temporary files that exist.
    wxArrayString TempFilesLeft() const
    {
        wxArrayString left;
        for (const char* name : {"_temp.ini", "_temp.dat", "_temp.json", "_temp.mbd"})
            if (wxFileExists(Out(name)))
                left.Add(name);
        return left;
    }
    // Each tool whose command starts with a key writes that output file, as the real one would.
    void ToolsWrite(std::map<wxString, std::pair<const char*, const char*>> outputs)
    {
        tools.onRun = [this, outputs](const wxString& command) {
            for (const auto& [start, file] : outputs)
                if (command.StartsWith(start))
                    dir.Write(wxString("tgxconfigure/OUTPUT/") + file.first, file.second);
        };
    }
    TempDir dir;
    wxLogNull quiet;  // the clean-ups between cases remove files that may not be there
};

}  // namespace

TEST_F(MapWorkflow, AutomaticSaveWritesTheProjectThenRegeneratesThenWritesTheMap)
{
    project.automaticModbusMap = 1;
    dir.Write("plant.mbd", "OLD\r\n");
    const wxArrayString projectLines = ProjectFileLines(project);
    wxArrayString seenProject, seenScript, seenMap;
    tools.onRun = [&](const wxString& command) {
        if (!command.Contains("inifile"))
            return;
        seenProject = FileLines(ProjectPath());
        seenScript = FileLines(Out("_temp.ini"));
        seenMap = FileLines(dir.path + "/plant.mbd");
        dir.Write("tgxconfigure/OUTPUT/_temp.mbd", "HOLDING,1,0,UINT16,SYS:STATUS,Gateway status,1\r\nX\r\n");
    };
    SaveProject(ctx, ProjectPath());
    EXPECT_EQ(seenProject, projectLines);
    EXPECT_EQ(seenScript, Lines({"#include defs.ini", "#include app.ini"}));
    EXPECT_EQ(seenMap, Lines({"OLD"}));
    ASSERT_EQ(tools.runs.size(), 2u);
    EXPECT_TRUE(tools.runs[0].command.StartsWith("ttbuild "));
    EXPECT_EQ(tools.runs[1].command, "cmd.exe /C inifile _temp -p=../ADDITIONAL -mb >_temp.mbd");
    EXPECT_EQ(tools.runs[1].mode, RunMode::BlockingHidden);
    EXPECT_EQ(tools.runs[1].workingDirectory, env.TgxBuildPath + "/OUTPUT");
    EXPECT_EQ(FileLines(dir.path + "/plant.mbd"), Lines({"HOLDING,1,0,UINT16,SYS:STATUS,Gateway status,1", "X"}));
    EXPECT_TRUE(TempFilesLeft().empty());
    EXPECT_TRUE(ui.messages.empty());
    // The same command line through the POSIX shell.
    EXPECT_EQ(PosixPlatform().RedirectedCommand("inifile _temp -p=../ADDITIONAL -mb", "_temp.mbd"),
              "/bin/sh -c 'inifile _temp -p=../ADDITIONAL -mb >_temp.mbd'");
}

TEST_F(MapWorkflow, AutomaticMapFailures)
{
    struct Case {
        long build, inifile;
        const char* output;  // what inifile leaves in _temp.mbd; nullptr: no file
        const char* message;
        std::vector<const char*> map;
    };
    const Case cases[] = {
        {4, 0, "NEW", "", {"OLD"}},  // the build failed: silent, map kept, inifile not run
        {0, -1, nullptr, "Failed to generate Modbus map - inifile error code -1", {"OLD"}},
        {0, 3, "NEW", "", {"NEW"}},  // inifile's own exit code is not judged
        {0, 0, "", "", {}},
        {0, 0, nullptr, "Failed to read the auto genrated map file", {"OLD"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.message);
        TestContext t;
        t.platform.separator = "/";
        t.env.TgxBuildPath = env.TgxBuildPath;
        t.project.automaticModbusMap = 1;
        t.project.modbusMapLines = Lines({"OLD"});
        t.project.projectFilePath.Assign(ProjectPath());
        t.tools.replies = {{c.build, {}}, {c.inifile, {}}};
        t.tools.onRun = [&](const wxString& command) {
            if (command.Contains("inifile") && c.output)
                dir.Write("tgxconfigure/OUTPUT/_temp.mbd", c.output);
        };
        SaveProject(t.ctx, ProjectPath());
        EXPECT_EQ(t.tools.runs.size(), c.build == 0 ? 2u : 1u);
        EXPECT_EQ(t.ui.messages.empty() ? wxString() : t.ui.messages[0].text, c.message);
        wxArrayString expected;
        for (const char* line : c.map)
            expected.Add(line);
        EXPECT_EQ(FileLines(dir.path + "/plant.mbd"), expected);
        EXPECT_TRUE(TempFilesLeft().empty());
        wxRemoveFile(Out("_temp.mbd"));
    }
}

TEST_F(MapWorkflow, ModeSwitch)
{
    struct Case {
        int modeBefore;
        bool toAutomatic, itemWasUnchecked, answer;
        const char* question;  // nullptr: none asked
        int modeAfter;
    };
    const Case cases[] = {
        {0, true, true, true, kToAutomatic, 1},
        {0, true, true, false, kToAutomatic, 0},
        {1, false, true, true, kToUser, 0},
        {1, true, false, true, nullptr, 1},  // a click on the item already checked
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.modeAfter);
        TestContext t;
        t.platform.separator = "/";
        LoadDefaultProject(t.project);
        t.project.automaticModbusMap = c.modeBefore;
        t.project.projectFilePath.Assign(ProjectPath());
        t.project.modbusMapLines = Lines({"KEPT"});
        t.ui.answers = {c.answer};
        t.tools.fallback = {4, {}};  // the build fails: an automatic save keeps the map
        wxRemoveFile(ProjectPath());
        const bool changed = SwitchMapMode(t.ctx, c.toAutomatic, c.itemWasUnchecked);
        EXPECT_EQ(changed, c.modeAfter != c.modeBefore);
        ASSERT_EQ(t.ui.questions.size(), c.question ? 1u : 0u);
        if (c.question) {
            EXPECT_EQ(t.ui.questions[0].text, c.question);
            EXPECT_EQ(t.ui.questions[0].caption, "Warning");
            EXPECT_EQ(t.ui.questions[0].icon, MessageIcon::None);
        }
        EXPECT_EQ(t.project.automaticModbusMap, c.modeAfter);
        EXPECT_EQ(t.ui.refreshCount, changed ? 1 : 0);
        EXPECT_EQ(wxFileExists(ProjectPath()), changed);
        EXPECT_EQ(FileLines(dir.path + "/plant.mbd"), changed ? Lines({"KEPT"}) : Lines({"(missing)"}));
        wxRemoveFile(dir.path + "/plant.mbd");
    }
}

TEST_F(MapWorkflow, EveryMapCommandChecksTheProjectFirst)
{
    struct Case {
        const char* name;
        std::function<void(AppContext&)> run;
        bool needsName;
    };
    const Case cases[] = {
        {"mode", [](AppContext& c) { SwitchMapMode(c, true, true); }, true},
        {"delete", DeleteModbusMap, false},
        {"edit", [](AppContext& c) { EditModbusMap(c); }, true},
        {"import device", [](AppContext& c) { ImportMapFromDevice(c); }, true},
        {"import project", ImportMapFromProject, true},
        {"export", ExportModbusMap, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        TestContext closed;
        c.run(closed.ctx);
        EXPECT_EQ(closed.ui.events, std::vector<wxString>{"message: No Project open"});
        TestContext unnamed;
        LoadDefaultProject(unnamed.project);
        c.run(unnamed.ctx);
        EXPECT_EQ(unnamed.ui.events.at(0) == wxString("message: ") + kNoName, c.needsName);
        EXPECT_TRUE(unnamed.tools.runs.empty());
    }
}

TEST_F(MapWorkflow, DeleteAsksThenClearsWithoutSaving)
{
    for (const bool answer : {false, true}) {
        ui.answers = {answer};
        DeleteModbusMap(ctx);
        EXPECT_EQ(project.modbusMapLines.empty(), answer);
    }
    DeleteModbusMap(ctx);  // an empty map still asks, and is "deleted"
    EXPECT_EQ(ui.events, std::vector<wxString>({"question: Are you sure you wish to delete the existing Modbus Map ?",
                                                "question: Are you sure you wish to delete the existing Modbus Map ?",
                                                "message: Map Deleted",
                                                "question: Are you sure you wish to delete the existing Modbus Map ?"}));
    EXPECT_FALSE(wxFileExists(ProjectPath()));
    EXPECT_EQ(project.automaticModbusMap, 0);
}

TEST_F(MapWorkflow, EditRunsTheChainAndTakesTheEditedMapBack)
{
    project.floatSwapBytes = 1;
    project.floatSwapWords = 0;
    project.floatSwapLongs = 1;
    wxArrayString mapGivenToEditor;
    ToolsWrite({{"ttbuild", {"app.ini", "MBITEM=x\r\n"}},
                {"cmd.exe /C inifile", {"_temp.dat", "SYS:STATUS,UINT16,Gateway status\r\n"}},
                {"cmd.exe /C dbtojson", {"_temp.json", "{}\r\n"}}});
    const auto writeFiles = tools.onRun;
    tools.onRun = [&](const wxString& command) {
        writeFiles(command);
        if (command.StartsWith("mbedit")) {
            mapGivenToEditor = FileLines(Out("_temp.mbd"));
            dir.Write("tgxconfigure/OUTPUT/_temp.mbd", "EDITED\r\n");
        }
    };
    EXPECT_TRUE(EditModbusMap(ctx));
    wxArrayString commands = tools.Commands();
    EXPECT_TRUE(commands[0].StartsWith("ttbuild "));
    commands.RemoveAt(0);
    EXPECT_EQ(commands, Lines({"cmd.exe /C inifile _temp -p=../ADDITIONAL -db >_temp.dat",
                               "cmd.exe /C dbtojson _temp.dat _temp.json", "mbedit /d _temp.json /m _temp.mbd /s 10"}));
    for (size_t i = 1; i < tools.runs.size(); ++i) {
        EXPECT_EQ(tools.runs[i].mode, RunMode::BlockingHidden);
        EXPECT_EQ(tools.runs[i].workingDirectory, env.TgxBuildPath + "/OUTPUT");
    }
    EXPECT_EQ(mapGivenToEditor, Lines({"HOLDING,1,0,UINT16,SYS:STATUS,Gateway status,1"}));
    EXPECT_EQ(project.modbusMapLines, Lines({"EDITED"}));
    EXPECT_EQ(FileLines(dir.path + "/plant.mbd"), Lines({"EDITED"}));
    EXPECT_EQ(TempFilesLeft(), Lines({}));
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(MapWorkflow, EditFailures)
{
    struct Case {
        std::vector<long> codes;  // ttbuild, inifile, dbtojson
        bool appIni, mapFile;
        const char* message;
    };
    const Case cases[] = {
        {{0}, false, true, "Unable to locate or open file app.ini"},
        {{0, 2}, true, true, "Unable to generate _temp.dat file from _temp.ini 2"},
        {{0, -1}, true, true, "Unable to generate _temp.dat file from _temp.ini -1"},
        {{0, 0, 1}, true, true, "Unable to generate _temp.json file from _temp.dat"},
        {{0, 0, 0}, true, false, "Unable to copy project modbus file to _temp.mbd"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.message);
        wxRemoveFile(Out("app.ini"));
        tools.runs.clear();
        ui.messages.clear();
        for (const long code : c.codes)
            tools.replies.push_back({code, {}});
        ToolsWrite({{"ttbuild", {c.appIni ? "app.ini" : "other.ini", ""}},
                    {"cmd.exe /C inifile", {"_temp.dat", "partial"}},
                    {"cmd.exe /C dbtojson", {"_temp.json", "partial"}}});
        const auto writeFiles = tools.onRun;
        tools.onRun = [&](const wxString& command) {
            writeFiles(command);
            if (!c.mapFile && command.StartsWith("cmd.exe /C dbtojson"))
                wxRemoveFile(dir.path + "/plant.mbd");
        };
        EXPECT_FALSE(EditModbusMap(ctx));
        EXPECT_EQ(tools.runs.size(), c.codes.size());
        ASSERT_EQ(ui.messages.size(), 1u);
        EXPECT_EQ(ui.messages[0].text, c.message);
        EXPECT_EQ(TempFilesLeft(), Lines({}));
    }
}

TEST_F(MapWorkflow, ImportFromDevice)
{
    struct Case {
        long getFile;
        long print;
        std::vector<const char*> map;
    };
    const Case cases[] = {
        {0, 0, {"FETCHED"}},
        {1, 0, {"PRINTED"}},    // no map file on the gateway: the running map
        {1, 1, {"KEPT"}},       // neither: the map stays, nothing is said
    };
    const wxString local = env.TgxProjectPath + "/MBMAP1.csv";
    for (const Case& c : cases) {
        TestContext t;
        t.platform.separator = "/";
        t.env.TgxProjectPath = env.TgxProjectPath;
        LoadDefaultProject(t.project);
        t.project.projectFilePath.Assign(ProjectPath());
        t.project.automaticModbusMap = 0;
        t.project.modbusMapLines = Lines({"KEPT"});
        t.ui.texts = {wxString("10.0.0.9")};
        t.tools.replies = {{c.getFile, {}}, {c.print, Lines({"PRINTED"})}};
        t.tools.onRun = [&](const wxString& command) {
            if (command.StartsWith("ttgetfile") && c.getFile == 0)
                dir.Write("projects/MBMAP1.csv", "FETCHED\r\n");
        };
        EXPECT_TRUE(ImportMapFromDevice(t.ctx));
        wxArrayString expected;
        for (const char* line : c.map)
            expected.Add(line);
        EXPECT_EQ(FileLines(dir.path + "/plant.mbd"), expected);
        EXPECT_FALSE(wxFileExists(local));
        EXPECT_EQ(t.tools.runs[0].command, "ttgetfile \"10.0.0.9\" TG7/MBMAP1.csv \"" + local + "\"");
        EXPECT_EQ(t.tools.runs.size(), c.getFile == 0 ? 1u : 2u);
        if (c.getFile != 0) {
            EXPECT_EQ(t.tools.runs[1].command, "ttmbprint \"10.0.0.9\" -f=2");
        }
        EXPECT_EQ(t.ui.progress, std::vector<wxString>({"begin: Load Modbus map from TG7\n | Downloading modbus map",
                                                        "pulse: Downloading modbus map", "end"}));
        EXPECT_TRUE(t.ui.messages.empty());
    }
}

TEST_F(MapWorkflow, ImportFromProject)
{
    struct Case {
        const char* mbd;
        const char* mb;
        const char* map;
        bool found;
    };
    const Case cases[] = {
        {"NEW", "OLDER", "NEW", true},
        {nullptr, "OLDER", "OLDER", true},
        {nullptr, nullptr, "(missing)", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.map);
        const wxString other = dir.path + "/other/boiler.prj";
        wxFileName::Rmdir(dir.path + "/other", wxPATH_RMDIR_RECURSIVE);
        dir.Write("other/boiler.prj", "TGX VERSION:6.2.2\r\n");
        if (c.mbd)
            dir.Write("other/boiler.mbd", c.mbd);
        if (c.mb)
            dir.Write("other/boiler.mb", c.mb);
        wxRemoveFile(dir.path + "/plant.mbd");
        ui.messages.clear();
        ui.files = {other};
        ImportMapFromProject(ctx);
        const FileChoiceForm& form = ui.fileForms.back();
        EXPECT_EQ(form.title, "Load Modbus Map From Project");
        EXPECT_EQ(form.folder, env.TgxProjectPath);
        EXPECT_EQ(form.fileName, "*.prj");
        EXPECT_EQ(form.wildcard, "*.prj");
        EXPECT_TRUE(form.mustExist && !form.save);
        // Saved in every case, also when the other project had no map.
        EXPECT_EQ(FileLines(dir.path + "/plant.mbd"), c.found ? Lines({c.map}) : Lines({}));
        EXPECT_EQ(ui.messages.size(), c.found ? 0u : 1u);
        if (!c.found) {
            EXPECT_EQ(ui.messages[0].text, "This project does not have a modbus map associated with it.");
        }
    }
}

TEST_F(MapWorkflow, ExportChoosesTheLayoutByThePathAlone)
{
    const std::pair<const char*, const char*> cases[] = {
        {"MAP.CSV", "SECTION,ADDRESS,BYTE_ORDER,TYPE,TAGNANE,DESCRIPTION,REG_COUNT"},
        {"map.csv.txt", "Modbus Register Map"},
        {"map", "Modbus Register Map"},
    };
    project.projectFilePath.Clear();  // an unsaved project may be exported
    for (const auto& [name, firstLine] : cases) {
        ui.files = {dir.path + "/" + name};
        ExportModbusMap(ctx);
        EXPECT_EQ(FileLines(dir.path + "/" + name)[0], firstLine);
    }
    const FileChoiceForm& form = ui.fileForms.at(0);
    EXPECT_EQ(form.title, "Export map as CSV or Text file");
    EXPECT_EQ(form.folder, platform.documentsDir);
    EXPECT_EQ(form.fileName, "data.csv");
    EXPECT_EQ(form.wildcard, "CSV files (*.csv)|*.csv|Text files (*.txt)|*.txt");
    EXPECT_TRUE(form.save && form.overwritePrompt);
    EXPECT_TRUE(ui.messages.empty());
}
