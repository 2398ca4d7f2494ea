#include "gui_support.h"
#include "commands/project_commands.h"
#include "base/text_file.h"
#include "desktop/main_frame.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/filename.h>

#include <string>
#include <vector>

namespace {

// The main window with its lists reachable, started on the sample installation.
class ProjectFrame : public MainFrame {
public:
    using MainFrame::MainFrame;
    wxListBox* Devices() { return m_listDevices; }
    wxListBox* Commands() { return m_listCommands; }
    wxRadioButton* SerialModbus() { return m_radioSerialModbus; }
    wxChoice* Parity() { return m_choiceParity; }
    wxTextCtrl* ConfigurationName() { return m_textConfigurationName; }
    wxTextCtrl* RtuAddress() { return m_textRtuAddress; }
    void Choose(wxMenuItem* item)
    {
        wxCommandEvent event(wxEVT_MENU, item->GetId());
        ProcessWindowEvent(event);
    }
    using MainFrame::m_menuItemClose, MainFrame::m_menuItemSave;
};

class LoadedProject : public ::testing::Test, protected ScriptedFrame<ProjectFrame> {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(frame->StartedUp());
        frame->Show();
        PumpEvents();  // shown and drawn before a project is opened, as a person opens one
        // Open the example through the load command; a copy, since loading rewrites the file.
        wxCopyFile(wxString(TGX_SOURCE_DIR) + "/docs/examples/boiler_house.prj", file);
        dialogs.files = {file};
        LoadProjectFromDisk(frame->Context());
    }

    const wxString file = path + "/boiler_house.prj";
};

}  // namespace

TEST_F(LoadedProject, PanelShowsTheProjectAndItsLists)
{
    EXPECT_EQ(frame->ConfigurationName()->GetValue() + "|" + frame->Parity()->GetStringSelection(),
        wxFileName(file).GetName() + "|Odd");
    ASSERT_EQ(frame->Devices()->GetCount(), 4u);
    EXPECT_EQ(frame->Devices()->GetString(1), "#01 [01] PT-102 Drum pressure : Rosemount3051");
    EXPECT_EQ(frame->Devices()->GetSelection(), 0);
    EXPECT_EQ(frame->Commands()->GetString(2), "CMD 009:01,02,03,04 - CYCLICAL READ 10   ");
    // The port serves the HART devices: its function is fixed while there are any.
    EXPECT_FALSE(frame->SerialModbus()->IsEnabled());
    wxMenuBar* bar = frame->GetMenuBar();
    EXPECT_TRUE(bar->IsEnabled(bar->FindMenuItem("Project", "Save")));
    EXPECT_FALSE(bar->IsChecked(bar->FindMenuItem("Modbus", "Automatic Map")));  // the example has its own map
}

TEST_F(LoadedProject, SelectingADeviceShowsItsCommandsAndADoubleClickOpensModify)
{
    wxCommandEvent select(wxEVT_LISTBOX, frame->Devices()->GetId());
    select.SetEventObject(frame->Devices());
    select.SetInt(2);
    frame->Context().project.selectedCommand = 1;
    frame->Devices()->GetEventHandler()->ProcessEvent(select);
    // From the device's first command.
    EXPECT_ALL(frame->Context().project.selectedDevice == 2, frame->Context().project.selectedCommand == 0);
    ASSERT_EQ(frame->Commands()->GetCount(), 3u);
    EXPECT_EQ(frame->Commands()->GetString(2), "CMD 035:00,12 - WRITE ON TRIGGER");

    frame->Context().project.selectedDevice = 1;
    dialogs.deviceAnswers.push_back([](DeviceForm&) { return false; });
    wxMouseEvent click(wxEVT_LEFT_DCLICK);
    click.SetEventObject(frame->Devices());
    frame->Devices()->GetEventHandler()->ProcessEvent(click);
    PumpEvents();  // Modify arrives as a posted button event
    ASSERT_EQ(dialogs.deviceForms.size(), 1u);
    EXPECT_EQ(dialogs.deviceForms[0].address, "1");

    frame->Context().project.selectedCommand = 2;
    dialogs.commandAnswers.push_back([](CommandForm&) { return false; });
    click.SetEventObject(frame->Commands());
    frame->Commands()->GetEventHandler()->ProcessEvent(click);
    ASSERT_EQ(dialogs.commandForms.size(), 1u);
    EXPECT_EQ(dialogs.commandForms[0].commandNumber, "48");  // device 1 is still selected
}

// Typed text is taken by the menu commands while the entry still has the focus.
TEST_F(LoadedProject, TypedRtuAddressIsTakenBySaveAndClose)
{
    frame->RtuAddress()->SetFocus();
    frame->RtuAddress()->ChangeValue("42");
    frame->Choose(frame->m_menuItemSave);
    wxArrayString saved;
    ASSERT_TRUE(ReadTextLines(file, saved));
    EXPECT_NE(saved.Index("MODBUS RTU ADDRESS:42"), wxNOT_FOUND);

    frame->RtuAddress()->ChangeValue("427");
    frame->Choose(frame->m_menuItemClose);
    EXPECT_EQ(frame->Context().project.modbusRtuAddress, 427);
    ASSERT_EQ(dialogs.questions.size(), 1u);  // the unsaved mark makes Close ask; No keeps it open
    EXPECT_EQ(frame->Context().project.projectOpen, 1);
}
