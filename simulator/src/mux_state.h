// The PC's virtual COM port and the HART multiplexer behind a simulated gateway. The PC's side
// is shared, in the state folder; each gateway has its own multiplexer (sim_state.h):
//
//   vsp.txt            the virtual COM port, "COMn HOST PORT", while one exists; HOST picks the
//                      gateway whose multiplexer pfmux reaches
//   pc-com-ports.txt   the COM names the PC's own ports take, one per line
//   com-ports.txt      every taken COM name (the PC's and the virtual port's), rewritten on each
//                      change: the configuration tool's COM name probe reads it
//   mux.txt            the gateway's multiplexer: its address, the rebuild duration, the devices
//                      on its loops
#pragma once

#include "sim_state.h"

#include <wx/arrstr.h>
#include <wx/string.h>

#include <vector>

namespace sim {

struct VirtualPort {
    wxString comName;
    wxString host;
    long port = 0;
};

// False when there is no virtual port.
bool LoadVirtualPort(const SimState& state, VirtualPort& port);
// Creates or re-points the one virtual port; `port` with an empty name removes it.
bool SaveVirtualPort(const SimState& state, const VirtualPort& port);
bool SetPcComPorts(const SimState& state, const wxArrayString& names);

struct MuxDevice {
    int loop = 0;
    int pollAddress = 0;
    wxString longAddress;
    wxString tag;
    wxString description;
    bool listed = false;  // in the multiplexer's device list (found by a rebuild)
};

struct Multiplexer {
    wxString address = "0000000000";
    long rebuildPolls = 3;  // "-rads" polls that report a rebuild as running
    long rebuildRemaining = 0;
    std::vector<MuxDevice> devices;
};

bool LoadMultiplexer(const SimState& state, Multiplexer& mux);
bool SaveMultiplexer(const SimState& state, const Multiplexer& mux);

// The device list as "pfmux COM -rdl" prints it, devices by loop and polling address.
wxArrayString DeviceListLines(const Multiplexer& mux);
// Re-scans the loops whose bits are set: each such loop lists afterwards only what the search
// finds (address 0 only; or the first device, lowest polling address, of the loop).
void RebuildLoops(Multiplexer& mux, long loopMask, bool firstDeviceSearch);

// The gateway's virtual serial port number and mode, from the configuration installed on it.
long GatewayVcpPort(const SimState& state);
wxString GatewayMode(const SimState& state);

}  // namespace sim
