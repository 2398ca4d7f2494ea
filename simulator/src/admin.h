// "tgxsim COMMAND ...": looks at and changes the simulated gateway without editing its files.
#pragma once

#include <wx/arrstr.h>

namespace sim {

// args without the program name. Returns the exit code.
int RunAdmin(const wxArrayString& args);

class SimState;
// "tgxsim mux ..." and "tgxsim pc-ports ...", in mux_admin.cpp.
int RunMuxAdmin(const SimState& state, const wxArrayString& args);

}  // namespace sim
