#include "app/installation_environment.h"
#include "app/user_interface.h"
#include "gui_support.h"
#include "remote/options_dialog.h"
#include "ui/about_box.h"

#include <gtest/gtest.h>

TEST(OptionsDialog, ExchangesItsFormBothWays)
{
    OptionsDialog dialog(nullptr);
    EXPECT_EQ(dialog.GetTitle(), "Options");
    EXPECT_EQ(dialog.GetSize(), wxSize(283, 399));
    for (wxStaticText* heading : {dialog.m_headingPorts, dialog.m_headingTimeServer}) {
        EXPECT_EQ(heading->GetForegroundColour(), wxColour(51, 153, 255));
        EXPECT_EQ(heading->GetFont().GetWeight(), wxFONTWEIGHT_BOLD);
        EXPECT_EQ(heading->GetFont().GetPointSize(), 9);
    }
    EXPECT_EQ(dialog.m_headingPorts->GetLabel(), "Port numbers");
    EXPECT_EQ(dialog.m_labelPorts[5]->GetLabel(), "HART IP (TCP)");

    OptionsForm in;
    const char* const ports[6] = {"772", "502", "1100", "503", "50000", "5094"};
    for (int i = 0; i < 6; ++i)
        in.ports[i] = ports[i];
    in.timeServerAddress = "pool.ntp.org";
    in.useTimeServer = true;
    dialog.TransferFormToWindow(in);
    EXPECT_EQ(dialog.m_textPorts[4]->GetValue(), "50000");
    EXPECT_EQ(dialog.m_textTimeServer->GetValue(), "pool.ntp.org");
    EXPECT_TRUE(dialog.m_checkTimeServer->GetValue());

    dialog.m_textPorts[0]->SetValue("any text");
    dialog.m_textTimeServer->SetValue("ntp.plant.local");
    dialog.m_checkTimeServer->SetValue(false);
    OptionsForm out;
    dialog.TransferWindowToForm(out);
    EXPECT_EQ(out.ports[0], "any text");
    EXPECT_EQ(out.ports[5], "5094");
    EXPECT_EQ(out.timeServerAddress, "ntp.plant.local");
    EXPECT_FALSE(out.useTimeServer);
    dialog.Show();
    EXPECT_TRUE(SaveScreenshot(&dialog, "options_dialog.png"));
}

TEST(AboutBox, NameVersionAndTheInstallation)
{
    InstallationEnvironment env;
    env.FirmwareVersion = "6.2.2";
    env.TgxBuildPath = "/opt/tgx/tgxconfigure";
    const wxAboutDialogInfo info = AboutBoxInfo(env, wxIcon());
    EXPECT_EQ(info.GetName(), "TGx+ Configuration tool");
    EXPECT_EQ(info.GetVersion(), "6.2.2");
    EXPECT_TRUE(info.GetDescription().Contains("FirmwareVersion : \t6.2.2\n"));
    EXPECT_TRUE(info.GetDescription().EndsWith("TgxBuildPath : \t\t/opt/tgx/tgxconfigure\n"));
    EXPECT_TRUE(info.HasCopyright() && info.HasWebSite());
}
