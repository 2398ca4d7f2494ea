#include "fakes/scripted_tool_runner.h"
#include "fakes/scripted_user_interface.h"
#include "gui_support.h"
#include "platform/posix_platform.h"
#include "project/project_commands.h"
#include "project/text_file.h"
#include "ui/main_frame.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/file.h>
#include <wx/filename.h>

namespace {

class ModbusMenuFrame : public MainFrame {
public:
    using MainFrame::MainFrame;
    wxMenuItem* Automatic() { return m_menuItemAutomaticMap; }
    wxMenuItem* UserDefined() { return m_menuItemUserDefinedMap; }
    wxMenuItem* Export() { return m_menuItemExportMap; }
};

class ModbusMenu : public ::testing::Test {
protected:
    void SetUp() override
    {
        // A copy of the installation: a switch to automatic mode writes into its build folder.
        folder = wxFileName::CreateTempFileName(wxFileName::GetTempDir() + "/tgxprj");
        wxRemoveFile(folder);
        CopyTree(wxString(TGX_SOURCE_DIR) + "/simulator/installation", folder + "/installation");
        registry = folder + "/registry.ini";
        wxFile(registry, wxFile::write)
            .Write("[HKEY_CURRENT_USER/Software/TARN SYSTEMS LTD/TGx Software Suite]\nPath=" + folder +
                   "/installation/\nVersion=6.2.2\nFirmwareVersion=6.2.2\nTemplatesVersion=3.1.0\n");
        platform = std::make_unique<PosixPlatform>(registry);
        frame.reset(new ModbusMenuFrame(*platform, tools, &dialogs));
        ASSERT_TRUE(frame->StartedUp());
        frame->Show();
        wxCopyFile(wxString(TGX_SOURCE_DIR) + "/docs/examples/boiler_house.prj", folder + "/boiler_house.prj");
        wxCopyFile(wxString(TGX_SOURCE_DIR) + "/docs/examples/boiler_house.mbd", folder + "/boiler_house.mbd");
        dialogs.files = {folder + "/boiler_house.prj"};
        LoadProjectFromDisk(frame->Context());
    }
    void TearDown() override
    {
        frame.reset();
        wxFileName::Rmdir(folder, wxPATH_RMDIR_RECURSIVE);
    }
    // A click as the menu delivers it: a check item is toggled first, the event says its new state.
    void Click(wxMenuItem* item)
    {
        if (item->IsCheckable())
            item->Check(!item->IsChecked());
        wxCommandEvent event(wxEVT_MENU, item->GetId());
        event.SetInt(item->IsCheckable() && item->IsChecked() ? 1 : 0);
        event.SetEventObject(frame.get());
        frame->ProcessWindowEvent(event);
    }
    bool AutomaticShown() { return frame->Automatic()->IsChecked() && !frame->UserDefined()->IsChecked(); }
    bool UserShown() { return !frame->Automatic()->IsChecked() && frame->UserDefined()->IsChecked(); }

    wxString registry, folder;
    std::unique_ptr<PosixPlatform> platform;
    ScriptedUserInterface dialogs;
    ScriptedToolRunner tools;
    FramePtr<ModbusMenuFrame> frame;
};

}  // namespace

TEST_F(ModbusMenu, CheckMarksFollowTheMode)
{
    tools.fallback = {4, {}};  // no build: the automatic save keeps the map, silently
    EXPECT_TRUE(UserShown());
    dialogs.answers = {false};
    Click(frame->Automatic());
    EXPECT_TRUE(UserShown());
    Click(frame->UserDefined());  // already checked: stays so, nothing asked
    EXPECT_TRUE(UserShown());
    EXPECT_EQ(dialogs.questions.size(), 1u);
    dialogs.answers = {true};
    Click(frame->Automatic());
    EXPECT_TRUE(AutomaticShown());
    EXPECT_EQ(frame->Context().project.automaticModbusMap, 1);
}

TEST_F(ModbusMenu, ExportWritesTheChosenFile)
{
    dialogs.files = {folder + "/map.txt"};
    Click(frame->Export());
    wxArrayString lines;
    ASSERT_TRUE(ReadTextLines(folder + "/map.txt", lines));
    EXPECT_EQ(lines.size(), 5 + frame->Context().project.modbusMapLines.size());
    EXPECT_EQ(lines[0], "Modbus Register Map");
}
