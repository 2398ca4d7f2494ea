// What the simulated mbedit does to the map: a scripted edit (mbedit.txt in the state folder),
// or a person's edit in the editor window when there is a display.
//
// mbedit.txt, one step per line ("#" starts a comment line):
//   add LINE              appends a map line
//   replace TAG LINE      replaces every line whose TAGNAME (fifth field) is TAG
//   delete TAG            removes every line whose TAGNAME is TAG
//   discard               closes without saving: the map file is left as it was
#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

namespace sim {

enum class MapEditOutcome { Saved, Discarded };

// Applies the script to `map`. False (with the line and what is wrong) for an unknown step or a
// TAG that no line has.
bool ApplyMapEditScript(const wxArrayString& script, wxArrayString& map, MapEditOutcome& outcome, wxString& problem);

// Opens the editor window on the map file and waits until it is closed: the program
// tgxsim-mbedit beside this one, when there is a display and it was built. Without either the
// map is left as it is. Returns the exit code.
int RunEditorWindow(const wxString& mapPath);

}  // namespace sim
