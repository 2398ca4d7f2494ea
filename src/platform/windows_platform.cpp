#include "platform/windows_platform.h"

#ifdef __WINDOWS__

// wx/msw/registry.h needs wxString declared first.
#include <wx/string.h>
#include <wx/log.h>
#include <wx/msw/registry.h>
#include <wx/stdpaths.h>

namespace {

wxRegKey::StdKey StdKeyOf(RegistryHive hive)
{
    return hive == RegistryHive::CurrentUser ? wxRegKey::HKCU : wxRegKey::HKLM;
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

std::unique_ptr<Platform> CreatePlatform()
{
    return std::make_unique<WindowsPlatform>();
}

#endif
