#include "app/installation_environment.h"
#include "app/user_interface.h"
#include "gui_support.h"
#include "remote/options_dialog.h"
#include "ui/about_box.h"

#include <gtest/gtest.h>

TEST(MaintenanceDialogs, OptionsExchangesItsFormBothWaysAndAboutShowsTheInstallation)
{
    OptionsDialog dialog(nullptr);
    EXPECT_EQ(dialog.GetTitle(), "Options");
    OptionsForm form{{"", "", "", "", "50000"}, "pool.ntp.org", true};
    dialog.TransferFormToWindow(form);
    EXPECT_TRUE(dialog.m_textPorts[4]->GetValue() == "50000" && dialog.m_checkTimeServer->GetValue());
    dialog.m_textPorts[0]->SetValue("any text");
    dialog.m_checkTimeServer->SetValue(false);
    OptionsForm back;  // a fresh form: every field read from the window
    dialog.TransferWindowToForm(back);
    EXPECT_TRUE(back.ports[0] == "any text" && back.ports[4] == "50000");
    EXPECT_TRUE(back.timeServerAddress == "pool.ntp.org" && !back.useTimeServer);

    InstallationEnvironment env;
    env.FirmwareVersion = "6.3.0";
    env.TgxSoftwareInstallerPath = "C:\\TGx\\installer";
    env.TgxProjectPath = "D:\\PROJECTS";
    const wxAboutDialogInfo info = AboutBoxInfo(env, wxIcon());
    EXPECT_EQ(info.GetName() + " " + info.GetVersion(), "TGx+ Configuration tool 6.2.2");
    EXPECT_EQ(info.GetDescription(), "Configuration Utility for TG7-Plus HART Gateway\n\n"
                                     "TGxSoftwareVersion : \t\nTGxConnectVersion : \t\nFirmwareVersion : \t6.3.0\n"
                                     "TemplatesVersion : \t\n\nTgxSoftwarePath : \t\nTGxConnectPath : \t\n"
                                     "TgxSoftwareInstallerPath : \tC:\\TGx\\installer\nTgxConnectInstallerPath : \t\n"
                                     "TgxTemplatesPath : \t\nTgxProjectPath : \t\tD:\\PROJECTS\nTgxFirmwarePath : \t\n"
                                     "TgxDocumentPath : \t\nTgxBuildPath : \t\t\n");
}
