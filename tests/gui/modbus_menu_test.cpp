#include "gui_support.h"
#include "project/project_file.h"
#include "desktop/main_frame.h"

#include <gtest/gtest.h>

class ModbusMenu : public ::testing::Test, protected ScriptedFrame<> {};

TEST_F(ModbusMenu, CheckMarksFollowTheModeOnceTheChangeIsConfirmed)
{
    tools.fallback = {4, {}};  // no build: the automatic save keeps the map, silently
    AppContext& ctx = frame->Context();
    ctx.env.TgxBuildPath = path;  // what a switch to automatic generates goes here
    LoadDefaultProject(ctx.project);
    ctx.project.automaticModbusMap = 0;
    ctx.project.projectFilePath.Assign(path + "/plant.prj");
    frame->RefreshPanelFromProject();
    wxMenuBar* bar = frame->GetMenuBar();
    const int automatic = bar->FindMenuItem("Modbus", "Automatic Map"), user = bar->FindMenuItem("Modbus", "User defined Map");
    dialogs.answers = {false, true};
    const std::pair<int, const char*> clicks[] = {
        {automatic, "-U"},  // answered No
        {user, "-U"},       // the checked item: nothing asked
        {automatic, "A-"},  // answered Yes
    };
    for (const auto& [id, marks] : clicks) {
        bar->Check(id, !bar->IsChecked(id));  // a click as the menu delivers it: the item toggled first
        wxCommandEvent event(wxEVT_MENU, id);
        event.SetInt(bar->IsChecked(id) ? 1 : 0);
        frame->ProcessWindowEvent(event);
        EXPECT_EQ(wxString(bar->IsChecked(automatic) ? "A" : "-") + (bar->IsChecked(user) ? "U" : "-"), marks);
    }
    EXPECT_EQ(dialogs.questions.size(), 2u);
}
