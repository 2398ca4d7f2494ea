#include "app/installation_environment.h"
#include "app/small_commands.h"
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
    EXPECT_EQ(dialog.m_headingTimeServer->GetForegroundColour(), wxColour(51, 153, 255));
    OptionsForm form;
    form.ports[4] = "50000";
    form.timeServerAddress = "pool.ntp.org";
    form.useTimeServer = true;
    dialog.TransferFormToWindow(form);
    EXPECT_TRUE(dialog.m_textPorts[4]->GetValue() == "50000" && dialog.m_checkTimeServer->GetValue());
    dialog.m_textPorts[0]->SetValue("any text");
    dialog.m_textTimeServer->SetValue("ntp.plant.local");
    dialog.m_checkTimeServer->SetValue(false);
    dialog.TransferWindowToForm(form);
    EXPECT_TRUE(form.ports[0] == "any text" && form.ports[4] == "50000");
    EXPECT_TRUE(form.timeServerAddress == "ntp.plant.local" && !form.useTimeServer);
    dialog.Show();
    EXPECT_TRUE(SaveScreenshot(&dialog, "options_dialog.png"));
}

TEST(AboutBox, NameVersionAndDescription)
{
    InstallationEnvironment env;
    env.FirmwareVersion = "6.2.2";
    const wxAboutDialogInfo info = AboutBoxInfo(env, wxIcon());
    EXPECT_EQ(info.GetName() + " " + info.GetVersion(), "TGx+ Configuration tool 6.2.2");
    EXPECT_EQ(info.GetDescription(), AboutDescription(env));
}
