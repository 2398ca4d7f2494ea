// The simulated gateways kept on disk: one state folder, found through TGXSIM_HOME (default
// $HOME/.tgxsim), created with factory settings on first use. Its top level is the default
// gateway, the one every address answers to; a loopback address other than 127.0.0.1 names a
// gateway of its own below gateways/, so one simulator serves several gateways at once.
//
// Each gateway's own (in the state folder for the default one, in gateways/127.a.b.c/ for others):
//   settings.ini        device type, firmware and templates versions
//   TG7/                the gateway user's home: relative remote paths (TG7/tgxconfig.prj) start here
//   root/               the gateway's file system for absolute remote paths (/var/www/html/...)
//   boot.log            one line per gateway restart
//   mux.txt             the multiplexer behind the gateway (mux_state.h)
// Shared by all, the PC's and the test's side (in the state folder):
//   faults.txt          fault rules and delays (fault_plan.h)
//   fault-counters.txt  how often each rule has been met, so "fail twice" spans processes
//   fault-counters.lock locked while a run reads and rewrites the counts
//   run.log             one line per tool run
//   mbedit.txt, vsp.txt, pc-com-ports.txt, com-ports.txt (map_editor.h, mux_state.h)
#pragma once

#include <wx/arrstr.h>
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

    // The gateway an address names: the address itself for a loopback address other than
    // 127.0.0.1 written as four decimal numbers (0 to 255, no leading zeros), else empty, the
    // default gateway.
    static wxString GatewayName(const wxString& address);

    explicit SimState(const wxString& folder);

    // Creates the folder and the default gateway's standard folders and settings when missing.
    bool Open(wxString& problem);
    // Works from now on with the gateway the address names (GatewayName), creating it with
    // factory settings on first use.
    bool SelectGateway(const wxString& address, wxString& problem);
    // Back to factory state: the simulator's own files and folders removed, every gateway's
    // (nothing else in the folder is touched, in case it was pointed at a folder of value),
    // then Open again.
    bool Reset(wxString& problem);
    // The selected gateway alone back to factory state; the shared files stay.
    bool ResetGateway(wxString& problem);

    const wxString& Folder() const { return folder; }
    // A shared file or folder below the state folder, its parts given with "/".
    wxString File(const wxString& relative) const;

    // The selected gateway: its name (empty for the default one), its folder and files.
    const wxString& Gateway() const { return gateway; }
    const wxString& GatewayFolder() const { return gatewayFolder; }
    wxString GatewayFile(const wxString& relative) const;
    // The gateways below gateways/, by address.
    wxArrayString GatewayNames() const;

    // Where a path on the gateway lives on disk: "/x/y" under root/, "x/y" under the gateway's
    // folder. False for paths that would leave the gateway ("..") and for empty ones.
    bool ResolveRemote(const wxString& remote, wxString& local) const;

    bool LoadSettings(GatewaySettings& settings) const;
    bool SaveSettings(const GatewaySettings& settings) const;

    bool AppendRunLog(const wxString& line) const;
    bool AppendBootLog(const wxString& line) const;

    static const wxUniChar sep;

private:
    wxString folder;
    wxString gateway, gatewayFolder;
};

// "2024-05-01 10:20:30.123", the stamp of every log line.
wxString Timestamp();

// TT_SSH_PORT as the tools see it, "(unset)" when it is not in the environment.
wxString SshPortForLog();

}  // namespace sim
