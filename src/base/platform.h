// The port for what differs between Windows and the other platforms: the registry, the path
// separator, the documents folder, the updater and the installed-software listings, the free COM
// names and the shell that redirects a tool's output into a file. The rest of the code never asks
// which platform it runs on.
#pragma once

#include "base/process_locks.h"
#include "base/tool_command.h"

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
    // The same for the update check the user asks for (Help > Check For Updates).
    virtual wxString UpdaterCommand(const wxString& softwarePath) const = 0;
    // Opens a document with the program the system associates with it; nothing is reported.
    virtual void OpenWithDefaultApplication(const wxString& path) = 0;
    // Command lines that list the installed software, one display name per output line.
    virtual wxArrayString InstalledSoftwareQueries() const = 0;

    // The COM names of COM1..COM19 that the probe could not open, in order: the names offered for
    // a new virtual COM port. At most 19 (see com_port_scan.h for what "free" means).
    virtual wxArrayString FreeComPortNames() = 0;
    // The command line that runs `command` through the platform's shell with its standard output
    // redirected into `outputFile` (relative to the working directory of the run). Only command
    // lines the tool composes itself pass through here, never text a user typed.
    virtual ToolCommand RedirectedCommand(const wxString& command, const wxString& outputFile) const = 0;
    // The command line that runs `command` through the platform's shell, without redirection.
    // Only command lines the tool composes itself pass through here.
    virtual ToolCommand ShellCommand(const wxString& command) const = 0;

    // Tries to take the inter-process lock of `file` without waiting (see process_locks.h).
    virtual LockAttempt TryLock(const wxString& file, std::unique_ptr<InterProcessLock>& lock)
    {
        return locks.TryLock(file, lock);
    }

private:
    ProcessLocks locks;
};

// The implementation for the platform the tool was built for.
std::unique_ptr<Platform> CreatePlatform();
