#include "fakes/scripted_tool_runner.h"
#include "fakes/scripted_user_interface.h"
#include "gui_support.h"
#include "platform/posix_platform.h"
#include "project/project_file.h"
#include "ui/main_frame.h"

#include <gtest/gtest.h>

namespace {

class ModbusMenuFrame : public MainFrame {
public:
    using MainFrame::MainFrame;
    // A click as the menu delivers it: a check item is toggled first, the event says its new state.
    void Click(wxMenuItem* item)
    {
        item->Check(!item->IsChecked());
        wxCommandEvent event(wxEVT_MENU, item->GetId());
        event.SetInt(item->IsChecked() ? 1 : 0);
        ProcessWindowEvent(event);
    }
    wxString Marks() const
    {
        return wxString(m_menuItemAutomaticMap->IsChecked() ? "A" : "-") + (m_menuItemUserDefinedMap->IsChecked() ? "U" : "-");
    }
    using MainFrameBase::m_menuItemAutomaticMap, MainFrameBase::m_menuItemUserDefinedMap;
};

}  // namespace

TEST(ModbusMenu, CheckMarksFollowTheModeOnceTheChangeIsConfirmed)
{
    SampleInstallation dir;
    PosixPlatform platform(dir.registry);
    ScriptedUserInterface dialogs;
    ScriptedToolRunner tools;
    tools.fallback = {4, {}};  // no build: the automatic save keeps the map, silently
    FramePtr<ModbusMenuFrame> frame(new ModbusMenuFrame(platform, tools, &dialogs));
    AppContext& ctx = frame->Context();
    ctx.env.TgxBuildPath = dir.path;  // what a switch to automatic generates goes here
    LoadDefaultProject(ctx.project);
    ctx.project.automaticModbusMap = 0;
    ctx.project.projectFilePath.Assign(dir.path + "/plant.prj");
    frame->RefreshPanelFromProject();
    EXPECT_EQ(frame->Marks(), "-U");

    dialogs.answers = {false, true};
    const std::pair<wxMenuItem*, const char*> clicks[] = {
        {frame->m_menuItemAutomaticMap, "-U"},   // answered No
        {frame->m_menuItemUserDefinedMap, "-U"}, // the checked item: nothing asked
        {frame->m_menuItemAutomaticMap, "A-"},   // answered Yes
    };
    for (const auto& [item, marks] : clicks) {
        frame->Click(item);
        EXPECT_EQ(frame->Marks(), marks);
    }
    EXPECT_EQ(dialogs.questions.size(), 2u);
}
