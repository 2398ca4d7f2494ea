// The free COM name scan shared by the platforms: only the probe differs.
#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

#include <functional>

// True when the named port opens, i.e. the name is taken.
using ComPortProbe = std::function<bool(const wxString& name)>;

// The scan covers COM1..COM19: the free-name list has room for 19 names.
constexpr int kLastScannedComPort = 19;

// "COM1".."COM19" in order, each the probe could not open. On Windows the probe opens the plain
// name, so COM10 and up never open and a busy port is listed as free too: both deliberate, kept
// as the tool has always listed them.
wxArrayString ScanFreeComPortNames(const ComPortProbe& opens);

// The POSIX default probe, for a machine that has no COM ports of its own: a name is taken when it
// is listed (one per line, case ignored) in the file that the environment variable
// TGX_TAKEN_COM_PORTS names, read when the probe is made; when that variable is not set, the
// gateway simulator's list, com-ports.txt in the folder TGXSIM_HOME names; without either every
// name is free. The file stands for the COM ports of the PC, the simulated virtual port included.
ComPortProbe TakenComPortListProbe();
