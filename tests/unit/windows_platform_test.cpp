// The Windows platform against the real registry, CreateFileW and cmd.exe (under Wine in CI).
// A tool that cannot be started (-1) is checked by tool_runner_test.cpp, on both platforms.
#include "wx_test_support.h"

#ifdef __WINDOWS__

#include "base/installation_environment.h"
#include "platform/wx_tool_runner.h"
#include "platform/windows_platform.h"
#include "base/text_file.h"
#include "temp_dir.h"

#include <gtest/gtest.h>
#include <wx/filefn.h>
#include <wx/utils.h>

namespace {

// reg.exe writes the keys, as an installer or an administrator would; the platform reads them
// back. Every key lives below a scratch key of this process, in both hives, so nothing of a real
// installation is touched: the keys the tool asks for are looked up below it.
class ScratchRegistry : public ::testing::Test {
protected:
    const wxString scratch = wxString::Format("Software\\tgx-tests\\%lu", wxGetProcessId());

    ~ScratchRegistry() override { Clear(); }

    void Clear()
    {
        for (const char* hive : {"HKCU", "HKLM"})
            Reg(wxString::Format("reg delete \"%s\\%s\" /f", hive, scratch));
    }

    // Imports REGEDIT4 text in which "[HKCU:key]" and "[HKLM:key]" stand for keys below the scratch key.
    void Import(const wxString& text)
    {
        wxString content = "REGEDIT4\r\n\r\n" + text;
        content.Replace("[HKCU:", "[HKEY_CURRENT_USER\\" + scratch + "\\");
        content.Replace("[HKLM:", "[HKEY_LOCAL_MACHINE\\" + scratch + "\\");
        const wxString file = dir.Write("keys.reg", content);
        ASSERT_EQ(Reg("reg import \"" + file + "\""), 0) << content;
    }

    static long Reg(const wxString& command)
    {
        wxArrayString output, errors;
        return wxExecute(command, output, errors, wxEXEC_SYNC | wxEXEC_NODISABLE);
    }

    TempDir dir;
};

class ScratchKeyPlatform : public WindowsPlatform {
public:
    explicit ScratchKeyPlatform(const wxString& root) : root(root + "\\") {}
    bool RegistryKeyExists(RegistryHive hive, const wxString& key) override
    {
        return WindowsPlatform::RegistryKeyExists(hive, root + key);
    }
    wxString RegistryValue(RegistryHive hive, const wxString& key, const wxString& name) override
    {
        return WindowsPlatform::RegistryValue(hive, root + key, name);
    }

private:
    wxString root;
};

// The header lines of the keys the tool reads, in Import's notation.
const wxString kSuiteInUserHive = wxString("[HKCU:") + kSuiteRegistryKey + "]\r\n";
const wxString kSuiteInMachineHive = wxString("[HKLM:") + kSuiteRegistryKey + "]\r\n";
const wxString kConnectInUserHive = wxString("[HKCU:") + kConnectRegistryKey + "]\r\n";
const wxString kConnectInMachineHive = wxString("[HKLM:") + kConnectRegistryKey + "]\r\n";

}  // namespace

TEST_F(ScratchRegistry, InstallationEnvironmentFromTheRegistry)
{
    const wxString fullSuite = wxString("\"Path\"=\"C:\\\\Program Files\\\\TARN\\\\TGx\\\\\"\r\n") +
                               "\"Version\"=\"6.2.2\"\r\n\"FirmwareVersion\"=\"6.2.1\"\r\n\"TemplatesVersion\"=\"3.1.0\"\r\n";
    struct Case {
        const char* name;
        wxString keys;
        wxString read;  // templates folder|TGxConnect installer|status line; empty: not started
    } cases[] = {
        {"both keys", kSuiteInUserHive + fullSuite + kConnectInMachineHive + "\"Path\"=\"D:\\\\Connect\\\\\"\r\n\"Version\"=\"2.4.1\"\r\n", "C:\\Program Files\\TARN\\TGx\\tgxtemplates|D:\\Connect\\installer|TGxSoftwareSuite 6.2.2 , Firmware 6.2.1 , Templates 3.1.0 , TGxConnect 2.4.1"},
        // The connect key counts only in the machine's hive.
        {"connect key absent", kSuiteInUserHive + fullSuite + kConnectInUserHive + "\"Version\"=\"2.4.1\"\r\n", "C:\\Program Files\\TARN\\TGx\\tgxtemplates|installer|TGxSoftwareSuite 6.2.2 , Firmware 6.2.1 , Templates 3.1.0 , TGxConnect not installed"},
        // Missing, empty and non-text values are empty texts, without a word.
        {"values missing", kSuiteInUserHive + "\"Path\"=\"C:\\\\TGx\"\r\n\"TemplatesVersion\"=\"\"\r\n\"Version\"=dword:00000006\r\n", "C:\\TGxtgxtemplates|installer|TGxSoftwareSuite  , Firmware  , Templates  , TGxConnect not installed"},
        // The suite key counts only in the user's hive.
        {"suite key absent", kSuiteInMachineHive + fullSuite, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Clear();
        Import(c.keys);
        ScratchKeyPlatform platform(scratch);
        InstallationEnvironment env;
        const bool started = ReadInstallationEnvironment(platform, env);
        DeriveInstallationPaths(env, platform.PathSeparator(), platform.DocumentsDir());
        EXPECT_EQ(started ? env.TgxTemplatesPath + "|" + env.TgxConnectInstallerPath + "|" + VersionStatusLine(env) : wxString(), c.read);
    }
}

TEST(WindowsComPorts, ThePlainNameIsProbed)
{
    // A file named like a port in the current folder opens: the plain name is what is probed.
    TempDir dir;
    dir.Write("COM12", "");
    const wxString previous = wxGetCwd();
    ASSERT_TRUE(wxSetWorkingDirectory(dir.path));
    const wxArrayString free = WindowsPlatform().FreeComPortNames();
    wxSetWorkingDirectory(previous);

    // Without the device prefix, COM10 and up are never open ports: always free. (The scan's order
    // and range are shared with POSIX and checked there.)
    for (int n = 10; n <= 19; ++n)
        EXPECT_EQ(free.Index(wxString::Format("COM%d", n)) != wxNOT_FOUND, n != 12) << n;
}

TEST(WindowsShell, RedirectionThroughCmdExe)
{
    WindowsPlatform platform;
    // The map generation's line, as the tool has always run it.
    EXPECT_EQ(platform.RedirectedCommand("inifile _temp -p=../ADDITIONAL -mb", "_temp.mbd").CommandLine(),
              "cmd.exe /C inifile _temp -p=../ADDITIONAL -mb >_temp.mbd");

    struct Case {
        const char* command;
        const char* file;
        long code;
        const char* firstLine;
    } cases[] = {
        // The blank before ">" belongs to echo's text: cmd.exe's own rule.
        {"echo spaced", "out file.txt", 0, "spaced "},  // a file name with a blank
        {"exit 3", "empty.txt", 3, nullptr},  // the command's exit code is the run's
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.command);
        TempDir dir;
        wxExecuteEnv env;
        env.cwd = dir.path;
        EXPECT_EQ(ExecuteTool(platform.RedirectedCommand(c.command, c.file), wxEXEC_SYNC | wxEXEC_HIDE_CONSOLE, nullptr, &env),
                  c.code);
        wxArrayString lines;
        ASSERT_TRUE(ReadTextLines(dir.path + "\\" + c.file, lines));
        EXPECT_EQ(lines, c.firstLine ? Lines({c.firstLine}) : wxArrayString());
    }
}

#endif
