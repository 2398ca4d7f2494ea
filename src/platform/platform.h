// The port for what differs between Windows and the other platforms: the registry, the path
// separator, the documents folder, the updater and the installed-software listings. The rest of
// the code never asks which platform it runs on.
#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

#include <memory>

enum class RegistryHive { CurrentUser, LocalMachine };

class Platform {
public:
    virtual ~Platform() = default;

    virtual bool RegistryKeyExists(RegistryHive hive, const wxString& key) = 0;
    // The value's text, empty when the key or the value is missing.
    virtual wxString RegistryValue(RegistryHive hive, const wxString& key, const wxString& name) = 0;

    // Inserted where installation paths are joined ("\" on Windows).
    virtual wxString PathSeparator() const = 0;
    virtual wxString DocumentsDir() const = 0;

    // Command line of the silent update check run at every start, with the software folder as
    // the current directory; empty when there is no updater to run.
    virtual wxString SilentUpdaterCommand(const wxString& softwarePath) const = 0;
    // Command lines that list the installed software, one display name per output line.
    virtual wxArrayString InstalledSoftwareQueries() const = 0;
};

// The implementation for the platform the tool was built for.
std::unique_ptr<Platform> CreatePlatform();
