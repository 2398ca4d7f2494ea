// Runs one simulated tool: the steps every tool shares.
#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

namespace sim {

// Opens the state folder, checks the command line, applies the fault file's delay and rules,
// runs the tool and writes the run log. Returns the exit code.
int RunTool(const wxString& name, const wxArrayString& args);

// The name a program was started under: the file name of argv[0] without ".exe".
wxString ToolNameFromProgram(const wxString& argv0);

}  // namespace sim
