// Remote COM port settings: the virtual COM port on the PC that tunnels to the gateway's HART
// loop, reported, created and re-pointed with ttvsp.
#pragma once

#include <wx/string.h>

struct AppContext;

// The virtual port as "ttvsp -g" reports it: "COM7 10.0.0.5:772 up".
struct VirtualPortReport {
    wxString comName;
    wxString address;
    int port = 0;
};

// False unless the line holds all four fields (name, address before a colon, port, one more word).
bool ParseVirtualPortReport(const wxString& line, VirtualPortReport& report);

// The Remote COM port command: creates a first port when there is none, then lets the user change
// it. False when it stopped on a failure or the dialog was cancelled.
bool RemoteComPortCommand(AppContext& ctx);

// The messages the multiplexer workflows share with it.
extern const char* const kNoFreeComNames;
extern const char* const kCannotCreateVirtualPort;
