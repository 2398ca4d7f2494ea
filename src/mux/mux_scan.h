// Multiplexer > Scan: the gateway gets a base multiplexer configuration, the multiplexer behind it
// is asked for its devices through a temporary virtual COM port, and the devices the user picks
// become the project's.
#pragma once

#include "base/mux_scan_window.h"

#include <wx/arrstr.h>

#include <vector>

struct AppContext;

// The baud rates the multiplexer may run at, as the scan dialog offers them.
extern const char* const kMuxNoContact;
extern const char* const kMuxNoDevices;

// The grid rows of the multiplexer's device list ("Multiplexer = ..." and "Device = ..." lines;
// other lines give no row).
std::vector<MuxRow> MuxRowsFromDeviceList(const wxArrayString& lines);

// Up to three "pfmux COM -rdl" runs, 2 s apart, the first after 2 s; true with the list of the
// first that succeeded.
bool ReadMuxDeviceList(AppContext& ctx, const wxString& comName, bool waitFirst, int pause, wxArrayString& lines);

// The Scan command. On success the configurator window is open and shows the rows.
bool MuxScanCommand(AppContext& ctx);

// Add All and Add Selected: the project becomes the multiplexer (row 0) with the chosen rows as
// its devices. An empty grid (a rebuild whose list could not be read) changes nothing and says so.
void AddAllMuxDevices(AppContext& ctx, const MuxScanWindow& window);
void AddSelectedMuxDevices(AppContext& ctx, const MuxScanWindow& window);
