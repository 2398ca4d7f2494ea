#include "base/app_context.h"
#include "commands/startup.h"
#include "fakes/test_context.h"

#include "wx_test_support.h"

#include <gtest/gtest.h>

class Startup : public ::testing::Test, protected ScratchContext {
protected:
    Startup()
    {
        platform.documentsDir = "/home/eng/Documents";
        dir.Write("suite/tgxtemplates/BUILD/ct.cfg", "DEV_TYPE Generic a b c d e\nDEV_TYPE KFD2 k b c d e\n");
        platform.registry[{RegistryHive::CurrentUser, kSuiteRegistryKey}] = {
            {"Path", dir.path + "/suite/"}, {"Version", "6.2.2"}, {"FirmwareVersion", "6.2.2"}, {"TemplatesVersion", "3.1"}};
        target.targetHost = target.targetEntry = "stale";
        project.projectOpen = 1;
    }
};

TEST_F(Startup, ReadsTheInstallationAndStartsWithNoProjectOpen)
{
    ASSERT_TRUE(RunStartup(ctx));
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(env.TgxProjectPath, "/home/eng/Documents/tgxconfigure/PROJECTS");
    ASSERT_EQ(deviceTypes.deviceTypeCount, 2);
    // The updater runs captured, from the software folder.
    ASSERT_EQ(tools.runs.size(), 1u);
    EXPECT_EQ(tools.runs[0].command + "|" + tools.runs[0].workingDirectory,
        "powershell \".\\updater.exe /silent\"|" + dir.path + "/suite/");
    EXPECT_EQ(tools.runs[0].mode, RunMode::Captured);
    EXPECT_EQ(tools.environment["TT_SSH_PORT"], "22");
    EXPECT_ALL(project.projectOpen == 0, project.projectSaved == 1);
    EXPECT_EQ(target.targetHost + target.targetEntry, "");
    EXPECT_EQ(ui.events, (std::vector<wxString>{"refresh", "status: TGxSoftwareSuite 6.2.2 , Firmware 6.2.2 , "
                                                           "Templates 3.1 , TGxConnect not installed"}));
    // Without an updater nothing is run.
    platform.updaterCommand.clear();
    tools.runs.clear();
    ASSERT_TRUE(RunStartup(ctx));
    EXPECT_TRUE(tools.runs.empty());
}

TEST_F(Startup, AMissingRegistryKeyOrDeviceTypeFileIsFatal)
{
    const auto registry = platform.registry;
    platform.registry.clear();
    EXPECT_FALSE(RunStartup(ctx));
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].caption, "Alert - Program cannot continue");
    EXPECT_ALL(ui.messages[0].icon == MessageIcon::Error, !ui.messages[0].centred);
    EXPECT_EQ(ui.messages[0].text, "Cannot locate registry entries required by this program\n\nThis program cannot "
                                   "continue and will now terminate");
    EXPECT_TRUE(tools.runs.empty());  // before anything runs

    platform.registry = registry;
    ui.messages.clear();
    wxRemoveFile(dir.path + "/suite/tgxtemplates/BUILD/ct.cfg");
    EXPECT_FALSE(RunStartup(ctx));
    ASSERT_EQ(ui.messages.size(), 1u);
    // The toolkit's standard caption.
    EXPECT_EQ(ui.messages[0].caption + "|" + ui.messages[0].text, "|FAULT : cannot locate ct.cfg file");
    EXPECT_EQ(tools.runs.size(), 1u);  // after the updater
    EXPECT_ALL(ui.refreshCount == 0, project.projectOpen == 1);  // the project was not touched
}
