// The gateway the device commands talk to.
#pragma once

#include <wx/string.h>

// Start-up address of the target. The desktop program's "-a" option is declared but, as in every
// shipped version, never parsed, so the start-up address stays this one.
extern const char* const kInitialTargetAddress;

struct TargetAddress {
    wxString targetEntry;  // as last accepted in the address prompt, port included
    wxString targetHost;   // host part only; substituted into the tool command lines
};
