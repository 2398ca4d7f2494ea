// Linux and other POSIX systems: the registry is an INI file, the COM ports are those a probe
// reports, /bin/sh redirects (see docs/DECISIONS.md, POSIX platform).
#pragma once

#include "base/platform.h"
#include "platform/com_port_scan.h"

class PosixPlatform : public Platform {
public:
    // registryFile empty: the default location (TGX_REGISTRY, else the XDG config folder).
    // comPortProbe empty: TakenComPortListProbe(), made afresh for every scan.
    explicit PosixPlatform(const wxString& registryFile = wxString(), ComPortProbe comPortProbe = ComPortProbe());

    bool RegistryKeyExists(RegistryHive hive, const wxString& key) override;
    wxString RegistryValue(RegistryHive hive, const wxString& key, const wxString& name) override;
    wxString PathSeparator() const override { return "/"; }
    wxString DocumentsDir() const override;
    wxString SilentUpdaterCommand(const wxString& softwarePath) const override;
    wxString UpdaterCommand(const wxString& softwarePath) const override;
    void OpenWithDefaultApplication(const wxString& path) override;
    wxArrayString InstalledSoftwareQueries() const override { return wxArrayString(); }
    wxArrayString FreeComPortNames() override;
    ToolCommand RedirectedCommand(const wxString& command, const wxString& outputFile) const override;
    ToolCommand ShellCommand(const wxString& command) const override;

    static wxString DefaultRegistryFile();
    // The INI group of a registry key: hive name and key parts joined by "/".
    static wxString RegistryGroup(RegistryHive hive, const wxString& key);

private:
    wxString registryFile;
    ComPortProbe comPortProbe;
};
