#include "fakes/scripted_tool_runner.h"
#include "fakes/scripted_user_interface.h"
#include "gui_support.h"
#include "platform/posix_platform.h"
#include "project/cmd_dialog.h"
#include "project/device_dialog.h"
#include "project/project_commands.h"
#include "ui/main_frame.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>

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
};

class LoadedProject : public ::testing::Test {
protected:
    void SetUp() override
    {
        frame.reset(new ProjectFrame(platform, tools, &dialogs));
        ASSERT_TRUE(frame->StartedUp());
        frame->Show();
        // Open the example through the load command; a copy, since loading rewrites the file.
        wxCopyFile(wxString(TGX_SOURCE_DIR) + "/docs/examples/boiler_house.prj", project);
        dialogs.files = {project};
        LoadProjectFromDisk(frame->Context());
    }

    SampleInstallation installation;
    const wxString project = installation.path + "/boiler_house.prj";
    PosixPlatform platform{installation.registry};
    ScriptedUserInterface dialogs;
    ScriptedToolRunner tools;
    FramePtr<ProjectFrame> frame;
};

}  // namespace

TEST_F(LoadedProject, PanelShowsTheProjectAndItsLists)
{
    EXPECT_EQ(frame->ConfigurationName()->GetValue(), wxFileName(project).GetName());
    EXPECT_EQ(frame->Parity()->GetStringSelection(), "Odd");
    ASSERT_EQ(frame->Devices()->GetCount(), 4u);
    EXPECT_EQ(frame->Devices()->GetString(1), "#01 [01] PT-102 Drum pressure : Rosemount3051");
    EXPECT_EQ(frame->Devices()->GetString(3), "#03 [05] TT-104 Stack temperature : EHTMT82  [DISABLED]");
    EXPECT_EQ(frame->Devices()->GetSelection(), 0);
    EXPECT_EQ(frame->Commands()->GetString(2), "CMD 009:01,02,03,04 - CYCLICAL READ 10   ");
    // The port serves the HART devices: its function is fixed while there are any.
    EXPECT_FALSE(frame->SerialModbus()->IsEnabled());
    wxMenuBar* bar = frame->GetMenuBar();
    EXPECT_TRUE(bar->IsEnabled(bar->FindMenuItem("Project", "Save")));
    EXPECT_FALSE(bar->IsChecked(bar->FindMenuItem("Modbus", "Automatic Map")));  // the example has its own map
    // A picture for people: the main window with a project.
    EXPECT_TRUE(SaveScreenshot(frame.get(), "main_window.png")) << "screenshots need ImageMagick's import";
}

TEST_F(LoadedProject, SelectingADeviceShowsItsCommands)
{
    wxCommandEvent select(wxEVT_LISTBOX, frame->Devices()->GetId());
    select.SetEventObject(frame->Devices());
    select.SetInt(2);
    frame->Context().project.selectedCommand = 1;
    frame->Devices()->GetEventHandler()->ProcessEvent(select);
    EXPECT_EQ(frame->Context().project.selectedDevice, 2);
    EXPECT_EQ(frame->Context().project.selectedCommand, 0);  // from the first command
    ASSERT_EQ(frame->Commands()->GetCount(), 3u);
    EXPECT_EQ(frame->Commands()->GetString(2), "CMD 035:00,12 - WRITE ON TRIGGER");
}

TEST_F(LoadedProject, DoubleClickOnALineOpensModify)
{
    frame->Context().project.selectedDevice = 1;
    dialogs.deviceAnswers.push_back([](DeviceForm&) { return false; });
    wxMouseEvent click(wxEVT_LEFT_DCLICK);
    click.SetEventObject(frame->Devices());
    frame->Devices()->GetEventHandler()->ProcessEvent(click);
    PumpEvents();  // Modify arrives as a posted button event
    ASSERT_EQ(dialogs.deviceForms.size(), 1u);
    EXPECT_EQ(dialogs.deviceForms[0].address, "1");
    EXPECT_EQ(dialogs.deviceForms[0].typeNames[dialogs.deviceForms[0].typeSelection], "Rosemount3051");

    frame->Context().project.selectedCommand = 2;
    dialogs.commandAnswers.push_back([](CommandForm&) { return false; });
    click.SetEventObject(frame->Commands());
    frame->Commands()->GetEventHandler()->ProcessEvent(click);
    ASSERT_EQ(dialogs.commandForms.size(), 1u);
    EXPECT_EQ(dialogs.commandForms[0].commandNumber, "48");  // device 1 is still selected
}

TEST(Dialogs, ExchangeTheirFormsBothWays)
{
    DeviceDialog device(nullptr);
    DeviceForm in;
    in.typeNames = Lines({"Generic", "KFD2"});
    in.typeSelection = 1;
    in.address = "0123456789";
    in.autoAddressing = true;
    device.TransferFormToWindow(in);
    EXPECT_EQ(device.GetTitle(), "Setup Hart Device");
    EXPECT_EQ(device.m_choiceDeviceType->GetStringSelection(), "KFD2");
    EXPECT_EQ(device.m_textHartAddress->GetValue(), "0123456789");
    EXPECT_FALSE(device.m_checkEnabled->GetValue());
    EXPECT_TRUE(device.m_checkAutoAddressing->GetValue());
    device.m_choiceDeviceType->SetSelection(0);
    device.m_textHartAddress->SetValue("12");
    device.m_checkEnabled->SetValue(true);
    DeviceForm out;
    device.TransferWindowToForm(out);
    EXPECT_EQ(out.typeSelection, 0);
    EXPECT_EQ(out.address, "12");
    EXPECT_TRUE(out.enabledForPolling && out.autoAddressing);
    device.Show();
    EXPECT_TRUE(SaveScreenshot(&device, "device_dialog.png"));

    CmdDialog command(nullptr);
    command.TransferFormToWindow(CommandForm{"48:1,2", "10", true, false});
    EXPECT_EQ(command.GetTitle(), "Hart Command");
    EXPECT_EQ(command.m_textCommandNumber->GetValue(), "48:1,2");
    EXPECT_EQ(command.m_textCycleInterval->GetValue(), "10");
    command.m_textCycleInterval->SetValue("60");
    command.m_checkWrite->SetValue(true);
    CommandForm read;
    command.TransferWindowToForm(read);
    EXPECT_EQ(read.commandNumber, "48:1,2");
    EXPECT_EQ(read.cycleInterval, "60");
    EXPECT_TRUE(read.enabledForPolling && read.writeCommand);
    command.Show();
    EXPECT_TRUE(SaveScreenshot(&command, "command_dialog.png"));
}
