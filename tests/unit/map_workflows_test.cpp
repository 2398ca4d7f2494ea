#include "deploy/project_save.h"
#include "fakes/test_context.h"
#include "modbus/map_editing.h"
#include "modbus/map_export_command.h"
#include "modbus/map_import.h"
#include "modbus/map_modes.h"
#include "project/project.h"
#include "project/project_file.h"
#include "base/text_file.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/log.h>

#include <functional>
#include <map>

namespace {

// Each test in a scratch build folder, the map tools scripted: a tool whose command line starts
// with a key of `outputs` writes that file into OUTPUT, as the real one would.
class MapWorkflow : public ::testing::Test, protected ScratchContext {
protected:
    MapWorkflow()
    {
        project.automaticModbusMap = 0;
        project.modbusMapLines = Lines({"OLD"});
        tools.onRun = [this](const wxString& command) {
            for (const auto& [start, file] : outputs)
                if (command.StartsWith(start))
                    dir.Write(wxString("tgxconfigure/OUTPUT/") + file.first, file.second);
        };
    }
    wxArrayString FileLines(const wxString& name) const { wxArrayString l; return ReadTextLines(dir.path + "/" + name, l) ? l : Lines({"(missing)"}); }
    size_t TempFilesLeft() const { wxArrayString left; return wxDir::GetAllFiles(env.TgxBuildPath + "/OUTPUT", &left, "_temp.*"); }
    wxString FirstMessage() const { return ui.messages.empty() ? wxString() : ui.messages[0].text; }
    wxString Form() const
    {
        const FileChoiceForm& f = ui.fileForms.back();
        return f.title + "|" + f.folder + "|" + f.fileName + "|" + f.wildcard + (f.save ? "|save" : "") +
               (f.overwritePrompt ? "|overwrite?" : "") + (f.mustExist ? "|must exist" : "");
    }
    std::map<wxString, std::pair<const char*, const char*>> outputs;
    wxLogNull quiet;
};

}  // namespace

TEST_F(MapWorkflow, AutomaticSaveRegeneratesTheMap)
{
    // output: what inifile leaves in _temp.mbd (nullptr: nothing); map: nullptr for an empty one.
    // A failed build (silent, the map kept) and inifile's own exit code (not judged: its output,
    // empty then, is the map) are the fault matrix's AutomaticMap rows.
    const struct { long build, inifile; const char *output, *message, *map; } cases[] = {
        {0, -1, nullptr, "Failed to generate Modbus map - inifile error code -1", "OLD"},
        {0, 0, nullptr, "Failed to read the auto genrated map file", "OLD"},
        {0, 0, "NEW", "", "NEW"},
    };
    project.automaticModbusMap = 1;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.message);
        project.modbusMapLines = Lines({"OLD"});
        ui.messages.clear();
        tools.runs.clear();
        tools.replies = {{c.build, {}}, {c.inifile, {}}};
        outputs = {{"cmd.exe /C inifile", {c.output ? "_temp.mbd" : "_none", c.output ? c.output : ""}}};
        SaveProject(ctx, dir.path + "/plant.prj");
        EXPECT_EQ(FirstMessage(), c.message);
        EXPECT_EQ(FileLines("plant.mbd"), c.map ? Lines({c.map}) : Lines({}));
        EXPECT_EQ(TempFilesLeft(), 0u);
    }
    EXPECT_EQ(tools.runs.at(1).command, "cmd.exe /C inifile _temp -p=../ADDITIONAL -mb >_temp.mbd");
    EXPECT_ALL(tools.runs[1].mode == RunMode::BlockingHidden, tools.runs[1].workingDirectory == env.TgxBuildPath + "/OUTPUT");
}

TEST_F(MapWorkflow, ModeSwitchAndDelete)
{
    const char* const toAutomatic =
        "Enable Automatic Modbus Map Generation\n\nThe user defined modbus map will be lost !! Do you wish to continue ?";
    const char* const toUser =
        "Enable User Defined Map\n\nAutomatic modbus map generation will be disabled !! Do you wish to continue ?";
    const struct { int before; bool toAutomatic, itemWasUnchecked, answer; const char* question; int after; } cases[] = {
        {0, true, true, true, toAutomatic, 1}, {0, true, true, false, toAutomatic, 0}, {1, false, true, true, toUser, 0},
        {1, true, false, true, nullptr, 1},  // a click on the item already checked
    };
    tools.fallback = {4, {}};  // no build: the automatic save keeps the map
    for (const auto& c : cases) {
        SCOPED_TRACE(c.after);
        project.automaticModbusMap = c.before;
        ui.answers = {c.answer};
        ui.questions.clear();
        wxRemoveFile(dir.path + "/plant.mbd");
        const bool switched = c.after != c.before;
        EXPECT_EQ(SwitchMapMode(ctx, c.toAutomatic, c.itemWasUnchecked), switched);
        const QuestionForm* q = ui.questions.empty() ? nullptr : &ui.questions[0];
        EXPECT_EQ(q ? q->caption + (q->icon == MessageIcon::None ? ": " : " (icon): ") + q->text : wxString(),
                  c.question ? wxString("Warning: ") + c.question : wxString());
        EXPECT_EQ(project.automaticModbusMap, c.after);
        EXPECT_EQ(FileLines("plant.mbd"), switched ? Lines({"OLD"}) : Lines({"(missing)"}));
    }
    ui.events.clear();
    ui.answers = {false, true};
    for (int i = 0; i < 3; ++i)  // No, Yes, then (unanswered: No) on the empty map
        DeleteModbusMap(ctx);
    EXPECT_EQ(project.modbusMapLines, Lines({}));
    const wxString ask = "question: Are you sure you wish to delete the existing Modbus Map ?";
    EXPECT_EQ(ui.events, std::vector<wxString>({ask, ask, "message: Map Deleted", ask}));
    EXPECT_EQ(FileLines("plant.mbd"), Lines({"(missing)"}));  // not saved
}

TEST_F(MapWorkflow, EveryMapCommandChecksTheProjectFirst)
{
    const std::pair<std::function<void(AppContext&)>, bool> commands[] = {
        {[](AppContext& c) { SwitchMapMode(c, true, true); }, true}, {DeleteModbusMap, false},
        {[](AppContext& c) { EditModbusMap(c); }, true}, {[](AppContext& c) { ImportMapFromDevice(c); }, true},
        {ImportMapFromProject, true}, {ExportModbusMap, false}};
    for (const auto& [run, needsName] : commands) {
        TestContext closed, unnamed;
        LoadDefaultProject(unnamed.project);
        run(closed.ctx);
        run(unnamed.ctx);
        EXPECT_EQ(closed.ui.events, std::vector<wxString>{"message: No Project open"});
        EXPECT_EQ(unnamed.ui.events.at(0) == "message: The current project has no name as it has not yet been saved.\n"
                                             "You must save this project first",
                  needsName);
    }
}

TEST_F(MapWorkflow, EditRunsTheChainAndCleansUpAfterEachFailure)
{
    // The replies of ttbuild, inifile, dbtojson, mbedit; the file ttbuild leaves; where the project is saved (a
    // folder that does not exist: no map file); "": the edited map is taken back, the editor's exit code not examined.
    const struct { std::deque<ToolReply> replies; const char *appIni, *prj, *message; } cases[] = {
        {{{0, {}}}, "other.ini", "plant.prj", "Unable to locate or open file app.ini"},
        {{{0, {}}, {0, {}}, {0, {}}}, "app.ini", "missing/plant.prj", "Unable to copy project modbus file to _temp.mbd"},
        {{{0, {}}, {0, {}}, {0, {}}, {1, {}}}, "app.ini", "plant.prj", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.message);
        wxRemoveFile(env.TgxBuildPath + "/OUTPUT/app.ini");
        tools.runs.clear();
        ui.messages.clear();
        tools.replies = c.replies;
        outputs = {{"ttbuild", {c.appIni, ""}}, {"cmd.exe /C inifile", {"_temp.dat", "x"}},
                   {"cmd.exe /C dbtojson", {"_temp.json", "x"}}, {"mbedit", {"_temp.mbd", "EDITED"}}};
        project.projectFilePath.Assign(dir.path + "/" + c.prj);
        EXPECT_EQ(EditModbusMap(ctx), *c.message == '\0');
        EXPECT_EQ(tools.runs.size(), c.replies.size());
        EXPECT_EQ(FirstMessage(), c.message);
        EXPECT_EQ(TempFilesLeft(), 0u);
    }
    EXPECT_EQ(tools.Commands(), Lines({tools.runs[0].command, "cmd.exe /C inifile _temp -p=../ADDITIONAL -db >_temp.dat",
                                       "cmd.exe /C dbtojson _temp.dat _temp.json", "mbedit /d _temp.json /m _temp.mbd /s 4"}));
    EXPECT_EQ(FileLines("plant.mbd"), Lines({"EDITED"}));
}

TEST_F(MapWorkflow, ImportFromDeviceFallsBackToThePrintedMap)
{
    const struct { long getFile, print; const char* map; } cases[] = {{0, 0, "FETCHED"}, {1, 0, "PRINTED"}, {1, 1, "OLD"}};
    for (const auto& c : cases) {
        project.modbusMapLines = Lines({"OLD"});
        tools.runs.clear();
        ui.texts = {wxString("10.0.0.9")};
        tools.replies = {{c.getFile, {}}, {c.print, Lines({"PRINTED"})}};
        outputs = {{"ttgetfile", {c.getFile ? "../../none" : "../../MBMAP1.csv", "FETCHED"}}};
        EXPECT_TRUE(ImportMapFromDevice(ctx));
        EXPECT_EQ(FileLines("plant.mbd"), Lines({c.map}));
        EXPECT_FALSE(wxFileExists(dir.path + "/MBMAP1.csv"));
        EXPECT_EQ(wxJoin(tools.Commands(), '|', '\0'), "ttgetfile \"10.0.0.9\" TG7/MBMAP1.csv \"" + dir.path + "/MBMAP1.csv\"" +
                                                        (c.getFile ? "|ttmbprint \"10.0.0.9\" -f=2" : ""));
    }
    EXPECT_EQ(wxJoin(wxArrayString(3, &ui.progress.at(0)), '|', '\0'),
              "begin: Load Modbus map from TG7\n | Downloading modbus map|pulse: Downloading modbus map|end");
}

TEST_F(MapWorkflow, ImportFromProjectTriesMbdThenMbAndSavesInEveryCaseAndExportAsksForItsFile)
{
    // A project without a map leaves the open map as it was (saved again, unchanged).
    const char* const cases[][3] = {{"NEW", "OLDER", "NEW"}, {nullptr, nullptr, "NEW"}, {nullptr, "OLDER", "OLDER"}};
    for (const auto& c : cases) {
        wxFileName::Rmdir(dir.path + "/other", wxPATH_RMDIR_RECURSIVE);
        for (int i = 0; i < 2; ++i)
            if (c[i])
                dir.Write(wxString("other/boiler.") + (i ? "mb" : "mbd"), c[i]);
        ui.files = {dir.path + "/other/boiler.prj"};
        ImportMapFromProject(ctx);
        EXPECT_EQ(FileLines("plant.mbd"), c[2] ? Lines({c[2]}) : Lines({}));
    }
    EXPECT_EQ(FirstMessage(), "This project does not have a modbus map associated with it.");
    EXPECT_EQ(Form(), "Load Modbus Map From Project|" + dir.path + "|*.prj|*.prj|must exist");

    project.projectFilePath.Clear();  // an unsaved project may be exported
    ui.files = {dir.path + "/MAP.CSV"};
    ExportModbusMap(ctx);
    EXPECT_EQ(FileLines("MAP.CSV").Last(), "OLDER");  // the layouts: tgxcfg's ExportMapChoosesTheLayoutByTheFileName
    EXPECT_EQ(Form(), "Export map as CSV or Text file|" + platform.documentsDir +
                          "|data.csv|CSV files (*.csv)|*.csv|Text files (*.txt)|*.txt|save|overwrite?");
}
