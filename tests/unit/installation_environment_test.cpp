#include "app/installation_environment.h"
#include "fakes/fake_platform.h"

#include "wx_test_support.h"

#include <gtest/gtest.h>

namespace {

FakePlatform PlatformWithSuite(const wxString& path)
{
    FakePlatform platform;
    platform.registry[{RegistryHive::CurrentUser, kSuiteRegistryKey}] = {
        {"Path", path}, {"Version", "6.2.2"}, {"FirmwareVersion", "6.2.2"}, {"TemplatesVersion", "3.1.0"}};
    return platform;
}

}  // namespace

TEST(InstallationEnvironment, MissingSuiteKeyIsRefused)
{
    FakePlatform platform;
    // The suite key must be in the user's hive; the machine's does not count.
    platform.registry[{RegistryHive::LocalMachine, kSuiteRegistryKey}] = {{"Path", "C:\\TGx\\"}};
    InstallationEnvironment env;
    EXPECT_FALSE(ReadInstallationEnvironment(platform, env));
}

TEST(InstallationEnvironment, ReadsSuiteAndConnectKeysFromTheirHives)
{
    FakePlatform platform = PlatformWithSuite("C:\\TGx\\");
    platform.registry[{RegistryHive::LocalMachine, kConnectRegistryKey}] = {{"Path", "C:\\Connect\\"},
                                                                          {"Version", "2.4.1"}};
    // A connect key in the user's hive is not the one read.
    platform.registry[{RegistryHive::CurrentUser, kConnectRegistryKey}] = {{"Version", "wrong"}};
    InstallationEnvironment env;
    ASSERT_TRUE(ReadInstallationEnvironment(platform, env));
    EXPECT_EQ(env.TgxSoftwarePath, "C:\\TGx\\");
    EXPECT_EQ(env.TGxSoftwareVersion, "6.2.2");
    EXPECT_EQ(env.FirmwareVersion, "6.2.2");
    EXPECT_EQ(env.TemplatesVersion, "3.1.0");
    EXPECT_EQ(env.TGxConnectPath, "C:\\Connect\\");
    EXPECT_EQ(env.TGxConnectVersion, "2.4.1");
    EXPECT_EQ(VersionStatusLine(env), "TGxSoftwareSuite 6.2.2 , Firmware 6.2.2 , Templates 3.1.0 , TGxConnect 2.4.1");
}

TEST(InstallationEnvironment, MissingConnectKeyAndValuesLeaveEmptyTexts)
{
    FakePlatform platform;
    platform.registry[{RegistryHive::CurrentUser, kSuiteRegistryKey}] = {{"Path", "C:\\TGx\\"}};
    InstallationEnvironment env;
    env.TGxConnectPath = "stale";
    ASSERT_TRUE(ReadInstallationEnvironment(platform, env));
    DeriveInstallationPaths(env, "\\", "C:\\Docs");
    EXPECT_EQ(env.TGxSoftwareVersion, "");
    EXPECT_EQ(env.TGxConnectPath, "");
    EXPECT_EQ(env.TgxConnectInstallerPath, "installer");
    EXPECT_TRUE(VersionStatusLine(env).EndsWith("TGxConnect not installed"));
}

TEST(InstallationEnvironment, PathsAreJoinedWithoutInsertingSeparators)
{
    struct Case {
        const char* softwarePath;
        const char* separator;
        const char* templates;
        const char* documentation;
        const char* projects;
    };
    const Case cases[] = {
        {"C:\\TGx\\", "\\", "C:\\TGx\\tgxtemplates", "C:\\TGx\\tgxconfigure\\DOCUMENTATION", "D\\tgxconfigure\\PROJECTS"},
        // Without the trailing separator the last folder and the suffix run together.
        {"C:\\TGx", "\\", "C:\\TGxtgxtemplates", "C:\\TGxtgxconfigure\\DOCUMENTATION", "D\\tgxconfigure\\PROJECTS"},
        {"/opt/tgx/", "/", "/opt/tgx/tgxtemplates", "/opt/tgx/tgxconfigure/DOCUMENTATION", "D/tgxconfigure/PROJECTS"},
        {"/opt/Suite", "/", "/opt/Suitetgxtemplates", "/opt/Suitetgxconfigure/DOCUMENTATION", "D/tgxconfigure/PROJECTS"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.softwarePath);
        InstallationEnvironment env;
        env.TgxSoftwarePath = c.softwarePath;
        env.TGxConnectPath = c.softwarePath;
        DeriveInstallationPaths(env, c.separator, "D");
        EXPECT_EQ(env.TgxTemplatesPath, c.templates);
        EXPECT_EQ(env.TgxDocumentPath, c.documentation);
        EXPECT_EQ(env.TgxProjectPath, c.projects);
        EXPECT_EQ(env.TgxFirmwarePath, wxString(c.softwarePath) + "tgxfirmware");
        EXPECT_EQ(env.TgxBuildPath, wxString(c.softwarePath) + "tgxconfigure");
        EXPECT_EQ(env.TgxSoftwareInstallerPath, wxString(c.softwarePath) + "installer");
        EXPECT_EQ(env.TgxConnectInstallerPath, wxString(c.softwarePath) + "installer");
    }
}
