// Linux and other POSIX systems: the registry is an INI file (see docs/ARCHITECTURE.md).
#pragma once

#include "platform/platform.h"

class PosixPlatform : public Platform {
public:
    // registryFile empty: the default location (TGX_REGISTRY, else the XDG config folder).
    explicit PosixPlatform(const wxString& registryFile = wxString());

    bool RegistryKeyExists(RegistryHive hive, const wxString& key) override;
    wxString RegistryValue(RegistryHive hive, const wxString& key, const wxString& name) override;
    wxString PathSeparator() const override { return "/"; }
    wxString DocumentsDir() const override;
    wxString SilentUpdaterCommand(const wxString& softwarePath) const override;
    wxArrayString InstalledSoftwareQueries() const override { return wxArrayString(); }

    static wxString DefaultRegistryFile();
    // The INI group of a registry key: hive name and key parts joined by "/".
    static wxString RegistryGroup(RegistryHive hive, const wxString& key);

private:
    wxString registryFile;
};
