// The simulated gateway kept on disk: one state folder, found through TGXSIM_HOME (default
// $HOME/.tgxsim), created with factory settings on first use.
//
//   settings.ini        device type, firmware and templates versions
//   TG7/                the gateway user's home: relative remote paths (TG7/tgxconfig.prj) start here
//   root/               the gateway's file system for absolute remote paths (/var/www/html/...)
//   faults.txt          fault rules and delays (fault_plan.h)
//   fault-counters.txt  how often each rule has been met, so "fail twice" spans processes
//   run.log             one line per tool run
//   boot.log            one line per gateway restart
#pragma once

#include <wx/string.h>

namespace sim {

struct GatewaySettings {
    wxString deviceType = "TG7-Plus";
    wxString firmware = "6.2.2";
    wxString templates = "3.1.0";
};

class SimState {
public:
    // The folder from the environment (or the default), not yet created.
    static wxString FolderFromEnvironment();

    explicit SimState(const wxString& folder);

    // Creates the folder and the gateway's standard folders and settings when missing.
    bool Open(wxString& problem);
    // Back to factory state: the simulator's own files and folders removed (nothing else in
    // the folder is touched, in case it was pointed at a folder of value), then Open again.
    bool Reset(wxString& problem);

    const wxString& Folder() const { return folder; }
    // A file or folder below the state folder, its parts given with "/".
    wxString File(const wxString& relative) const;

    // Where a path on the gateway lives on disk: "/x/y" under root/, "x/y" under the state
    // folder. False for paths that would leave the gateway ("..") and for empty ones.
    bool ResolveRemote(const wxString& remote, wxString& local) const;

    bool LoadSettings(GatewaySettings& settings) const;
    bool SaveSettings(const GatewaySettings& settings) const;

    bool AppendRunLog(const wxString& line) const;
    bool AppendBootLog(const wxString& line) const;

    static const wxUniChar sep;

private:
    wxString folder;
};

// "2024-05-01 10:20:30.123", the stamp of every log line.
wxString Timestamp();

// TT_SSH_PORT as the tools see it, "(unset)" when it is not in the environment.
wxString SshPortForLog();

}  // namespace sim
