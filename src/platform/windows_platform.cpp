#include "platform/windows_platform.h"

#ifdef __WINDOWS__

#include "platform/com_port_scan.h"

// wx/msw/registry.h needs wxString declared first.
#include <wx/string.h>
#include <wx/log.h>
#include <wx/msw/registry.h>
#include <wx/msw/wrapwin.h>
#include <wx/stdpaths.h>
#include <wx/utils.h>

#include <shellapi.h>

namespace {

wxRegKey::StdKey StdKeyOf(RegistryHive hive)
{
    return hive == RegistryHive::CurrentUser ? wxRegKey::HKCU : wxRegKey::HKLM;
}

// No access rights requested, no sharing, existing devices only, no flags; the plain name,
// without the \\.\ device prefix. So COM10 and up never open, and a port that is in use fails
// to open like a missing one: both deliberate, the free list has always been made so.
bool ComNameOpens(const wxString& name)
{
    const HANDLE port = ::CreateFileW(name.wc_str(), 0, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (port == INVALID_HANDLE_VALUE)
        return false;
    ::CloseHandle(port);
    return true;
}

// cmd.exe takes the rest of its line as one command; a file name with a blank or one of its
// operators needs quotes after ">".
wxString RedirectionTarget(const wxString& outputFile)
{
    if (outputFile.find_first_of(" \t&|<>^()") == wxString::npos)
        return outputFile;
    return "\"" + outputFile + "\"";
}

}  // namespace

bool WindowsPlatform::RegistryKeyExists(RegistryHive hive, const wxString& key)
{
    wxLogNull quiet;
    return wxRegKey(StdKeyOf(hive), key).Exists();
}

wxString WindowsPlatform::RegistryValue(RegistryHive hive, const wxString& key, const wxString& name)
{
    wxLogNull quiet;  // a missing value is an empty text, without a log box
    wxRegKey regKey(StdKeyOf(hive), key);
    wxString value;
    if (!regKey.Exists() || !regKey.HasValue(name) || !regKey.QueryValue(name, value))
        value.clear();
    return value;
}

wxString WindowsPlatform::DocumentsDir() const
{
    return wxStandardPaths::Get().GetDocumentsDir();
}

wxString WindowsPlatform::SilentUpdaterCommand(const wxString&) const
{
    return "powershell \".\\updater.exe /silent\"";
}

wxString WindowsPlatform::UpdaterCommand(const wxString&) const
{
    return "powershell \".\\updater.exe\"";
}

// wxLaunchDefaultApplication lives in the GUI library; the shell's "open" verb is what it uses.
void WindowsPlatform::OpenWithDefaultApplication(const wxString& path)
{
    ShellExecuteW(nullptr, L"open", path.wc_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

wxArrayString WindowsPlatform::InstalledSoftwareQueries() const
{
    // The first spelling is powershell.exe, the second plain powershell: both kept as shipped.
    wxArrayString queries;
    queries.Add("powershell.exe \"Get-ItemProperty HKLM:\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\* "
                "| Select-Object DisplayName\"");
    queries.Add("powershell \"Get-ItemProperty HKLM:\\Software\\Wow6432Node\\Microsoft\\Windows\\CurrentVersion\\"
                "Uninstall\\* | Select-Object DisplayName\"");
    return queries;
}

wxArrayString WindowsPlatform::FreeComPortNames()
{
    return ScanFreeComPortNames(ComNameOpens);
}

ToolCommand WindowsPlatform::RedirectedCommand(const wxString& command, const wxString& outputFile) const
{
    return ToolCommand::FixedLine("cmd.exe /C " + command + " >" + RedirectionTarget(outputFile));
}

ToolCommand WindowsPlatform::ShellCommand(const wxString& command) const
{
    return ToolCommand::FixedLine("cmd.exe /C " + command);
}

std::unique_ptr<Platform> CreatePlatform()
{
    return std::make_unique<WindowsPlatform>();
}

#endif
