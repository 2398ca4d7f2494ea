#include "base/installation_environment.h"
#include "gui_support.h"
#include "desktop/about_box.h"

#include <gtest/gtest.h>

TEST(AboutBox, ShowsTheInstallation)
{
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
