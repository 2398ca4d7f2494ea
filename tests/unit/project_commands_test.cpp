#include "fakes/test_context.h"
#include "project/project.h"
#include "commands/project_commands.h"
#include "project/project_file.h"
#include "base/text_file.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>

namespace {

const char* const kUnsavedQuestion =
    "The current project has not been saved and will be lost.\nAre you sure you wish to continue ?";

// A save in automatic map mode builds the configuration: into the scratch installation.
class ProjectCommands : public ::testing::Test, protected ScratchContext {
protected:
    ProjectCommands()
    {
        project.projectFilePath.Clear();
        project.projectSaved = 1;
        project.projectOpen = 0;
    }
};

}  // namespace

TEST_F(ProjectCommands, NewAsksBeforeLosingEditsAndSavesAtOnce)
{
    project.projectOpen = 1;
    project.projectSaved = 0;
    ui.answers = {false};
    NewProject(ctx);
    ASSERT_EQ(ui.questions.size(), 1u);
    EXPECT_EQ(ui.questions[0].caption + "|" + ui.questions[0].text, wxString("Warning|") + kUnsavedQuestion);
    EXPECT_TRUE(ui.fileForms.empty());

    ui.answers = {true};
    ui.files = {dir.path + "/plant"};  // a bare name gets the extension
    NewProject(ctx);
    ASSERT_EQ(ui.fileForms.size(), 1u);
    const FileChoiceForm& form = ui.fileForms[0];
    EXPECT_EQ(Lines({form.title, form.folder, form.wildcard}), Lines({"Create New Project", dir.path, "*.prj"}));
    EXPECT_ALL(form.save, form.overwritePrompt);
    EXPECT_ALL(wxFileExists(dir.path + "/plant.prj"), wxFileExists(dir.path + "/plant.mbd"));
    EXPECT_ALL(project.projectOpen == 1, project.projectSaved == 1);
    EXPECT_EQ(project.projectFilePath.GetFullPath(), dir.path + wxFILE_SEP_PATH + "plant.prj");
    EXPECT_EQ(ui.events.back(), "refresh");
}

// What the file becomes (current format, ".mbd" map) is checked by tgxcfg resave's expected files.
TEST_F(ProjectCommands, LoadOpensAnOlderProjectWithItsMap)
{
    for (const char* name : {"legacy_plant.prj", "legacy_plant.mb"})
        wxCopyFile(wxString(TGX_SOURCE_DIR) + "/docs/examples/" + name, dir.path + "/" + name);
    ui.files = {dir.path + "/legacy_plant.prj"};
    LoadProjectFromDisk(ctx);
    EXPECT_TRUE(ui.questions.empty());  // nothing was unsaved
    EXPECT_ALL(ui.fileForms[0].mustExist, ui.fileForms[0].title == "Load Project");
    EXPECT_EQ((std::vector<int>{project.projectOpen, project.projectSaved, project.selectedDevice, project.deviceCount}),
        (std::vector<int>{1, 1, 0, 2}));
    EXPECT_EQ(GetText(project.tagName), "Old_Plant_3");
    EXPECT_EQ(project.modbusMapLines.size(), 2u);
    EXPECT_TRUE(wxFileExists(dir.path + "/legacy_plant.mbd"));
}

TEST_F(ProjectCommands, LoadRefusesEmptyFilesAndIgnoresCancel)
{
    WriteTextLines(dir.path + "/empty.prj", wxArrayString());
    ui.files = {std::nullopt, dir.path + "/missing.prj", dir.path + "/empty.prj"};
    for (int i = 0; i < 3; ++i)
        LoadProjectFromDisk(ctx);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].caption + "|" + ui.messages[0].text, "|Invalid project file (no content)");
    EXPECT_EQ(project.projectOpen, 0);
}

TEST_F(ProjectCommands, SaveWithoutANameAsksForOne)
{
    LoadDefaultProject(project);
    ui.files = {std::nullopt};
    SaveProjectCommand(ctx);
    ASSERT_EQ(ui.fileForms.size(), 1u);
    EXPECT_EQ(ui.fileForms[0].title, "Save Project As ...");
    EXPECT_EQ(project.projectSaved, 0);

    ui.files = {dir.path + "/named"};
    SaveProjectCommand(ctx);
    EXPECT_EQ(project.projectSaved, 1);
    EXPECT_TRUE(wxFileExists(dir.path + "/named.prj"));
    SaveProjectCommand(ctx);  // now it has a name: no dialog
    EXPECT_EQ(ui.fileForms.size(), 2u);
}

TEST_F(ProjectCommands, CloseKeepsEverythingWhenTheAnswerIsNo)
{
    LoadDefaultProject(project);
    project.projectFilePath.Assign(dir.path + "/p.prj");
    ui.answers = {false, true};
    CloseProject(ctx);
    EXPECT_ALL(project.projectOpen == 1, project.projectSaved == 0, project.projectFilePath.IsOk());
    CloseProject(ctx);
    EXPECT_ALL(project.projectOpen == 0, project.projectSaved == 1, !project.projectFilePath.IsOk());
    EXPECT_EQ(GetText(project.tagName), "Unnamed");  // settings stay until the next New or Load
    CloseProject(ctx);                                // nothing open: nothing asked
    EXPECT_EQ(ui.questions.size(), 2u);
}

TEST_F(ProjectCommands, PanelEditsStoreTheirSettingAndMarkTheProjectEdited)
{
    LoadDefaultProject(project);
    struct Case {
        const char* name;
        std::function<void()> edit;
        std::function<bool()> stored;
        bool refreshes;
    };
    const Case cases[] = {
        {"parity", [&] { SetParity(ctx, "Odd"); }, [&] { return GetText(project.serialParity) == "ODDPARITY"; }, false},
        {"baud rate", [&] { SetBaudRate(ctx, "76800"); }, [&] { return project.serialBaudRate == 76800; }, false},
        {"stop bits", [&] { SetStopBits(ctx, "2"); }, [&] { return project.serialStopBits == 2; }, false},
        {"interface", [&] { SetInterfaceStandard(ctx, "RS485"); }, [&] { return GetText(project.serialPortType) == "RS485"; }, false},
        {"RTU address, digits first", [&] { SetRtuAddress(ctx, "12abc"); }, [&] { return project.modbusRtuAddress == 12; }, false},
        {"swap longs", [&] { SetFloatSwap(ctx, FloatSwap::Longs, true); }, [&] { return project.floatSwapLongs == 1; }, false},
        {"secondary master", [&] { SetPrimaryMaster(ctx, false); }, [&] { return project.primaryMaster == 0; }, false},
        {"deferral", [&] { SetPollingDeferralMode(ctx, "FULL"); }, [&] { return GetText(project.pollingDeferralMode) == "FULL"; }, true},
        {"function", [&] { SetSerialPortFunction(ctx, "MODBUS"); }, [&] { return GetText(project.serialPortFunction) == "MODBUS"; }, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        project.projectSaved = 1;
        const int refreshes = ui.refreshCount;
        c.edit();
        EXPECT_ALL(c.stored(), project.projectSaved == 0);
        EXPECT_EQ(ui.refreshCount - refreshes, c.refreshes ? 1 : 0);
    }
}
