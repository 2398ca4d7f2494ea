#include "fakes/scripted_tool_runner.h"
#include "fakes/scripted_user_interface.h"
#include "gui_support.h"
#include "mux/mux_rebuild_dialog.h"
#include "mux/mux_scan_frame.h"
#include "mux/scan_dialog.h"
#include "platform/posix_platform.h"
#include "remote/remote_dialog.h"
#include "ui/main_frame.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>

namespace {

// A click on a control as the user's: a box or radio button takes the value, then the event comes.
void Click(wxControl* control, wxEventType type, bool value = true)
{
    if (wxCheckBox* box = dynamic_cast<wxCheckBox*>(control))
        box->SetValue(value);
    if (wxRadioButton* radio = dynamic_cast<wxRadioButton*>(control))
        radio->SetValue(value);
    wxCommandEvent event(type, control->GetId());
    event.SetEventObject(control);
    event.SetInt(value);
    control->GetEventHandler()->ProcessEvent(event);
}

}  // namespace

TEST(RemoteAndScanDialogs, ShowAndReturnTheirForms)
{
    RemoteDialog remote(nullptr);
    remote.TransferFormToWindow(RemoteForm{Lines({"COM3", "COM4", "COM7"}), "COM7", "10.0.0.5", "772"});
    EXPECT_EQ(remote.m_choiceComPort->GetStringSelection(), "COM7");
    remote.m_choiceComPort->SetSelection(1);
    remote.m_textPort->SetValue("900");
    RemoteForm out;
    remote.TransferWindowToForm(out);
    EXPECT_EQ(out.comName + " " + out.address + " " + out.port, "COM4 10.0.0.5 900");
    remote.Show();
    EXPECT_TRUE(SaveScreenshot(&remote, "remote_dialog.png"));

    ScanDialog scan(nullptr);
    scan.TransferFormToWindow(ScanForm{"10.0.0.7:2200", "9600"});
    EXPECT_EQ(scan.m_choiceBaudRate->GetStrings(), Lines({"4800", "9600", "19200", "38400", "57600", "76800", "115200"}));
    scan.m_choiceBaudRate->SetStringSelection("115200");
    ScanForm scanned;
    scan.TransferWindowToForm(scanned);
    EXPECT_EQ(scanned.address + " " + scanned.baudRate, "10.0.0.7:2200 115200");
    scan.Show();
    EXPECT_TRUE(SaveScreenshot(&scan, "scan_dialog.png"));
}

TEST(RebuildDialog, EstimateFollowsTheBoxes)
{
    guiMUXRebuild dialog(nullptr);
    EXPECT_EQ(dialog.m_textEstimate->GetValue(), "21 Secs");
    Click(dialog.m_checkLoops[3], wxEVT_CHECKBOX, false);
    EXPECT_FALSE(dialog.m_checkAllLoops->GetValue());
    EXPECT_EQ(dialog.m_textEstimate->GetValue(), "20 Secs");
    Click(dialog.m_checkAllLoops, wxEVT_CHECKBOX, false);
    EXPECT_EQ(dialog.m_textEstimate->GetValue(), "8 Secs");
    Click(dialog.m_checkAllLoops, wxEVT_CHECKBOX);
    Click(dialog.m_radioFirstDevice, wxEVT_RADIOBUTTON);
    EXPECT_EQ(dialog.m_textEstimate->GetValue(), "232 Secs");
    dialog.Show();
    EXPECT_TRUE(SaveScreenshot(&dialog, "rebuild_dialog.png"));
}

TEST(MuxScanFrame, OpensAtTheMainWindowsRightEdgeWithScanDisabled)
{
    SampleInstallation installation;
    PosixPlatform platform(installation.registry);
    ScriptedToolRunner tools;
    ScriptedUserInterface dialogs;
    FramePtr<MainFrame> frame(new MainFrame(platform, tools, &dialogs));
    ASSERT_TRUE(frame->StartedUp());
    frame->Move(20, 20);
    frame->Show();
    PumpEvents();

    MuxScanWindow* window = frame->Context().ui.OpenMuxScanWindow();
    MUXScanFrame* scanFrame = frame->OpenedMuxScanFrame();
    ASSERT_TRUE(window != nullptr && scanFrame != nullptr);
    wxMenuBar* bar = frame->GetMenuBar();
    const int scanItem = bar->FindMenuItem("Multiplexer", "Scan");
    EXPECT_FALSE(bar->IsEnabled(scanItem));
    EXPECT_EQ(scanFrame->GetPosition(), wxPoint(frame->GetScreenRect().GetRight(), frame->GetScreenRect().GetTop()));
    window->ShowRows({{"Multiplexer", "-", "-", "0000000000"}, {"Device", "TT101", "Flow, line 2", "0101010101"}});
    EXPECT_EQ(scanFrame->m_grid->GetCellValue(1, 2), "Flow, line 2");
    scanFrame->m_grid->SelectRow(1);
    EXPECT_EQ(window->SelectedRows(), std::vector<int>{1});
    EXPECT_TRUE(SaveScreenshot(scanFrame, "mux_scan_frame.png"));

    // Add All fills the project; the window stays open until Close.
    Click(scanFrame->m_buttonAddAll, wxEVT_BUTTON);
    EXPECT_EQ(frame->Context().project.deviceCount, 2);
    EXPECT_EQ(frame->OpenedMuxScanFrame(), scanFrame);
    Click(scanFrame->m_buttonClose, wxEVT_BUTTON);
    PumpEvents();
    EXPECT_EQ(frame->OpenedMuxScanFrame(), nullptr);
    EXPECT_TRUE(bar->IsEnabled(scanItem));
}
