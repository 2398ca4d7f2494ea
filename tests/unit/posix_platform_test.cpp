#include "wx_test_support.h"

#ifndef __WINDOWS__

#include "base/installation_environment.h"
#include "platform/wx_tool_runner.h"
#include "platform/posix_platform.h"
#include "base/text_file.h"
#include "temp_dir.h"

#include <gtest/gtest.h>
#include <wx/utils.h>

namespace {

// Sets an environment variable for one scope and restores what was there.
class ScopedEnv {
public:
    ScopedEnv(const wxString& name, const wxString& value) : name(name), had(wxGetEnv(name, &saved)) { wxSetEnv(name, value); }
    ~ScopedEnv() { had ? wxSetEnv(name, saved) : wxUnsetEnv(name); }

private:
    wxString name, saved;
    bool had;
};

}  // namespace

TEST(PosixRegistryFile, KeysAreGroupsOfTheFileNamedByTheEnvironment)
{
    TempDir dir;
    const wxString file = dir.Write("registry.ini",
                                    "[HKEY_CURRENT_USER/Software/TARN SYSTEMS LTD/TGx Software Suite]\n"
                                    "Path=/opt/tgx $HOME/\n");
    PosixPlatform platform(file);
    EXPECT_TRUE(platform.RegistryKeyExists(RegistryHive::CurrentUser, kSuiteRegistryKey));
    EXPECT_FALSE(platform.RegistryKeyExists(RegistryHive::LocalMachine, kSuiteRegistryKey));
    // Values are taken literally: no variable expansion.
    EXPECT_EQ(platform.RegistryValue(RegistryHive::CurrentUser, kSuiteRegistryKey, "Path"), "/opt/tgx $HOME/");
    EXPECT_EQ(platform.RegistryValue(RegistryHive::CurrentUser, kSuiteRegistryKey, "Version"), "");

    // Missing or damaged files hold no keys, without a word.
    const char binary[] = {'\xff', '\xfe', '[', '\x00', ']', '\n', '='};
    wxFile(dir.path + "/binary.ini", wxFile::write).Write(binary, sizeof binary);
    for (const char* name : {"missing.ini", "binary.ini"})
        EXPECT_FALSE(PosixPlatform(dir.path + "/" + name).RegistryKeyExists(RegistryHive::CurrentUser, kSuiteRegistryKey));

    // Without TGX_REGISTRY (which the tgxcfg tests set), the file is in the configuration folder.
    ScopedEnv registry("TGX_REGISTRY", ""), config("XDG_CONFIG_HOME", "/home/eng/.cfg");
    EXPECT_EQ(PosixPlatform::DefaultRegistryFile(), "/home/eng/.cfg/tgx/registry.ini");
    wxUnsetEnv("XDG_CONFIG_HOME");
    EXPECT_EQ(PosixPlatform::DefaultRegistryFile(), wxGetHomeDir() + "/.config/tgx/registry.ini");
}

TEST(PosixPlatformFacilities, UpdaterRunsOnlyWhenShippedAndExecutable)
{
    TempDir dir;
    PosixPlatform platform(dir.path + "/none.ini");
    EXPECT_EQ(platform.SilentUpdaterCommand(dir.path + "/"), "");
    dir.Write("updater", "#!/bin/sh\n");
    EXPECT_EQ(platform.SilentUpdaterCommand(dir.path + "/"), "");  // not executable
    wxExecute("chmod +x \"" + dir.path + "/updater\"", wxEXEC_SYNC);
    EXPECT_EQ(platform.SilentUpdaterCommand(dir.path + "/"), "./updater /silent");
}

// The scan itself (COM1..COM19, each probed, in order) is shared with Windows.
TEST(PosixComPorts, DefaultProbeReadsTheTakenListNamedByTheEnvironment)
{
    TempDir dir;
    const wxString list = dir.Write("taken.txt", "com2\r\n  COM5 \n\nCOM30\nCOM1x\n");
    const wxString from7 = " COM7 COM8 COM9 COM10 COM11 COM12 COM13 COM14 COM15 COM16 COM17 COM18 COM19";
    const struct {
        wxString listFile, free;
    } cases[] = {{list, "COM1 COM3 COM4 COM6" + from7}, {"", "COM1 COM2 COM3 COM4 COM5 COM6" + from7}};
    for (const auto& c : cases) {
        ScopedEnv env("TGX_TAKEN_COM_PORTS", c.listFile);
        EXPECT_EQ(wxJoin(PosixPlatform(dir.path + "/none.ini").FreeComPortNames(), ' '), c.free) << c.listFile;
    }
}

TEST(PosixShell, RedirectionThroughBinSh)
{
    PosixPlatform platform("/nonexistent/registry.ini");
    // The map generation's line, with /bin/sh in cmd.exe's place.
    EXPECT_EQ(platform.RedirectedCommand("inifile _temp -p=../ADDITIONAL -mb", "_temp.mbd").Arguments(),
              (std::vector<wxString>{"/bin/sh", "-c", "inifile _temp -p=../ADDITIONAL -mb >_temp.mbd"}));
    // Quotes, backslashes and $ reach the shell intact; the command's exit code is the run's.
    TempDir dir;
    wxExecuteEnv env;
    env.cwd = dir.path;
    const wxString file = "it's a \"file\" $HOME.txt";
    EXPECT_EQ(ExecuteTool(platform.RedirectedCommand("(printf '%s\\n' \"it's\" 'back\\slash'; exit 3)", file), wxEXEC_SYNC, nullptr, &env), 3);
    wxArrayString lines;
    ASSERT_TRUE(ReadTextLines(dir.path + "/" + file, lines));
    EXPECT_EQ(lines, Lines({"it's", "back\\slash"}));
}

#endif
