// A Platform with an in-memory registry and settable facilities, so that the Windows
// behaviour (backslash joins, PowerShell listings, cmd.exe redirections) can be exercised anywhere.
#pragma once

#include "base/platform.h"

#include <map>
#include <utility>

class FakePlatform : public Platform {
public:
    std::map<std::pair<RegistryHive, wxString>, std::map<wxString, wxString>> registry;
    wxString separator = "\\";
    wxString documentsDir = "C:\\Users\\eng\\Documents";
    wxString updaterCommand = "powershell \".\\updater.exe /silent\"";
    wxArrayString queries;
    wxArrayString freeComPorts;

    bool RegistryKeyExists(RegistryHive hive, const wxString& key) override
    {
        return registry.count({hive, key}) != 0;
    }
    wxString RegistryValue(RegistryHive hive, const wxString& key, const wxString& name) override
    {
        const auto found = registry.find({hive, key});
        if (found == registry.end())
            return wxString();
        const auto value = found->second.find(name);
        return value == found->second.end() ? wxString() : value->second;
    }
    wxString PathSeparator() const override { return separator; }
    wxString DocumentsDir() const override { return documentsDir; }
    wxString SilentUpdaterCommand(const wxString&) const override { return updaterCommand; }
    wxString UpdaterCommand(const wxString&) const override { return "powershell \".\\updater.exe\""; }
    void OpenWithDefaultApplication(const wxString& path) override { openedDocuments.Add(path); }
    wxArrayString openedDocuments;
    wxArrayString InstalledSoftwareQueries() const override { return queries; }
    wxArrayString FreeComPortNames() override { return freeComPorts; }
    ToolCommand RedirectedCommand(const wxString& command, const wxString& outputFile) const override
    {
        return ToolCommand::FixedLine("cmd.exe /C " + command + " >" + outputFile);
    }
    ToolCommand ShellCommand(const wxString& command) const override
    {
        return ToolCommand::FixedLine("cmd.exe /C " + command);
    }
    // Another process holds the lock for this many attempts; then this one takes it. Each taking
    // and release is listed in lockEvents ("lock FILE", "unlock").
    int busyAttempts = 0;
    wxArrayString lockEvents;
    LockAttempt TryLock(const wxString& file, std::unique_ptr<InterProcessLock>& lock) override
    {
        if (busyAttempts > 0) {
            --busyAttempts;
            return LockAttempt::Busy;
        }
        struct Noted : InterProcessLock {
            explicit Noted(wxArrayString& events) : events(events) {}
            ~Noted() override { events.Add("unlock"); }
            wxArrayString& events;
        };
        lockEvents.Add("lock " + file);
        lock = std::make_unique<Noted>(lockEvents);
        return LockAttempt::Taken;
    }
};
