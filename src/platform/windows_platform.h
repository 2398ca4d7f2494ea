// Windows: the suite's registry keys through wxRegKey, PowerShell for the updater and the
// installed-software listings, CreateFileW for the free COM names, cmd.exe for redirections.
#pragma once

#include "base/platform.h"

class WindowsPlatform : public Platform {
public:
    bool RegistryKeyExists(RegistryHive hive, const wxString& key) override;
    wxString RegistryValue(RegistryHive hive, const wxString& key, const wxString& name) override;
    wxString PathSeparator() const override { return "\\"; }
    wxString DocumentsDir() const override;
    wxString SilentUpdaterCommand(const wxString& softwarePath) const override;
    wxString UpdaterCommand(const wxString& softwarePath) const override;
    void OpenWithDefaultApplication(const wxString& path) override;
    wxArrayString InstalledSoftwareQueries() const override;
    wxArrayString FreeComPortNames() override;
    ToolCommand RedirectedCommand(const wxString& command, const wxString& outputFile) const override;
    ToolCommand ShellCommand(const wxString& command) const override;
};
