// Read through the fake registry here; tests/unit/windows_platform_test.cpp reads the real one.
#include "base/installation_environment.h"
#include "fakes/fake_platform.h"

#include "wx_test_support.h"

#include <gtest/gtest.h>

TEST(InstallationEnvironment, EachKeyCountsOnlyInItsOwnHive)
{
    FakePlatform platform;
    InstallationEnvironment env;
    platform.registry[{RegistryHive::LocalMachine, kSuiteRegistryKey}] = {{"Path", "C:\\TGx\\"}};
    platform.registry[{RegistryHive::CurrentUser, kConnectRegistryKey}] = {{"Path", "C:\\C\\"}, {"Version", "2.4.1"}};
    EXPECT_FALSE(ReadInstallationEnvironment(platform, env));

    platform.registry[{RegistryHive::CurrentUser, kSuiteRegistryKey}] = {{"Path", "C:\\TGx\\"}, {"Version", "6.2.2"}};
    ASSERT_TRUE(ReadInstallationEnvironment(platform, env));
    EXPECT_EQ(VersionStatusLine(env), "TGxSoftwareSuite 6.2.2 , Firmware  , Templates  , TGxConnect not installed");

    platform.registry[{RegistryHive::LocalMachine, kConnectRegistryKey}] = {{"Path", "C:\\C\\"}, {"Version", "2.4.1"}};
    ASSERT_TRUE(ReadInstallationEnvironment(platform, env));
    DeriveInstallationPaths(env, "\\", "C:\\Docs");
    EXPECT_EQ(VersionStatusLine(env), "TGxSoftwareSuite 6.2.2 , Firmware  , Templates  , TGxConnect 2.4.1");
    EXPECT_EQ(env.TgxConnectInstallerPath, "C:\\C\\installer");
}

// The firmware, build and installer folders are the software folder and a name, as the templates
// folder is; each is where the integration tests find the sample installation's.
TEST(InstallationEnvironment, PathsAreJoinedWithoutInsertingSeparators)
{
    const struct {
        const char* softwarePath;
        const char* separator;
        const char* templates;
        const char* documentation;
        const char* projects;
    } cases[] = {
        {"C:\\TGx\\", "\\", "C:\\TGx\\tgxtemplates", "C:\\TGx\\tgxconfigure\\DOCUMENTATION", "D\\tgxconfigure\\PROJECTS"},
        // Without the trailing separator the last folder and the suffix run together.
        {"C:\\TGx", "\\", "C:\\TGxtgxtemplates", "C:\\TGxtgxconfigure\\DOCUMENTATION", "D\\tgxconfigure\\PROJECTS"},
        {"/opt/Suite", "/", "/opt/Suitetgxtemplates", "/opt/Suitetgxconfigure/DOCUMENTATION", "D/tgxconfigure/PROJECTS"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.softwarePath);
        InstallationEnvironment env;
        env.TgxSoftwarePath = env.TGxConnectPath = c.softwarePath;
        DeriveInstallationPaths(env, c.separator, "D");
        EXPECT_EQ(env.TgxTemplatesPath, c.templates);
        EXPECT_EQ(env.TgxDocumentPath, c.documentation);
        EXPECT_EQ(env.TgxProjectPath, c.projects);
    }
}
