#include "app/installation_environment.h"
#include "platform/posix_platform.h"
#include "temp_dir.h"

#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/utils.h>

TEST(PosixRegistryFile, KeysAreGroupsOfTheFile)
{
    TempDir dir;
    const wxString file = dir.Write("registry.ini",
                                    "[HKEY_CURRENT_USER/Software/TARN SYSTEMS LTD/TGx Software Suite]\n"
                                    "Path=/opt/tgx $HOME/\n"
                                    "Version=6.2.2\n"
                                    "[HKEY_CURRENT_USER/Software/TARN SYSTEMS LTD/TGx Connect]\n"
                                    "Version=wrong hive\n");
    PosixPlatform platform(file);
    EXPECT_TRUE(platform.RegistryKeyExists(RegistryHive::CurrentUser, kSuiteRegistryKey));
    EXPECT_FALSE(platform.RegistryKeyExists(RegistryHive::LocalMachine, kSuiteRegistryKey));
    EXPECT_FALSE(platform.RegistryKeyExists(RegistryHive::LocalMachine, kConnectRegistryKey));
    // Values are taken literally: no variable expansion.
    EXPECT_EQ(platform.RegistryValue(RegistryHive::CurrentUser, kSuiteRegistryKey, "Path"), "/opt/tgx $HOME/");
    EXPECT_EQ(platform.RegistryValue(RegistryHive::CurrentUser, kSuiteRegistryKey, "FirmwareVersion"), "");
    EXPECT_EQ(platform.RegistryValue(RegistryHive::LocalMachine, kConnectRegistryKey, "Version"), "");
}

TEST(PosixRegistryFile, MissingOrDamagedFilesHoldNoKeys)
{
    TempDir dir;
    const char binary[] = {'\xff', '\xfe', '[', '\x00', ']', '\n', '='};
    wxFile(dir.path + "/binary.ini", wxFile::write).Write(binary, sizeof binary);
    dir.Write("empty.ini", "");
    for (const char* name : {"missing.ini", "binary.ini", "empty.ini"}) {
        PosixPlatform platform(dir.path + "/" + name);
        EXPECT_FALSE(platform.RegistryKeyExists(RegistryHive::CurrentUser, kSuiteRegistryKey)) << name;
        EXPECT_EQ(platform.RegistryValue(RegistryHive::CurrentUser, kSuiteRegistryKey, "Path"), "") << name;
    }
}

TEST(PosixRegistryFile, FoundThroughTheEnvironment)
{
    wxString savedRegistry, savedConfig;
    const bool hadRegistry = wxGetEnv("TGX_REGISTRY", &savedRegistry);
    const bool hadConfig = wxGetEnv("XDG_CONFIG_HOME", &savedConfig);

    wxSetEnv("TGX_REGISTRY", "/srv/reg.ini");
    EXPECT_EQ(PosixPlatform::DefaultRegistryFile(), "/srv/reg.ini");
    wxUnsetEnv("TGX_REGISTRY");
    wxSetEnv("XDG_CONFIG_HOME", "/home/eng/.cfg");
    EXPECT_EQ(PosixPlatform::DefaultRegistryFile(), "/home/eng/.cfg/tgx/registry.ini");
    wxUnsetEnv("XDG_CONFIG_HOME");
    EXPECT_EQ(PosixPlatform::DefaultRegistryFile(), wxGetHomeDir() + "/.config/tgx/registry.ini");

    hadRegistry ? wxSetEnv("TGX_REGISTRY", savedRegistry) : wxUnsetEnv("TGX_REGISTRY");
    hadConfig ? wxSetEnv("XDG_CONFIG_HOME", savedConfig) : wxUnsetEnv("XDG_CONFIG_HOME");
}

TEST(PosixPlatformFacilities, UpdaterRunsOnlyWhenShippedAndNoListingsExist)
{
    TempDir dir;
    PosixPlatform platform(dir.path + "/none.ini");
    EXPECT_EQ(platform.SilentUpdaterCommand(dir.path + "/"), "");
    dir.Write("updater", "#!/bin/sh\n");
    EXPECT_EQ(platform.SilentUpdaterCommand(dir.path + "/"), "");  // not executable
    wxExecute("chmod +x \"" + dir.path + "/updater\"", wxEXEC_SYNC);
    EXPECT_EQ(platform.SilentUpdaterCommand(dir.path + "/"), "./updater /silent");
    EXPECT_TRUE(platform.InstalledSoftwareQueries().empty());
    EXPECT_EQ(platform.PathSeparator(), "/");
}
