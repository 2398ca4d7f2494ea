// Saving the project: the project file, then (in automatic map mode) the map made anew from the
// devices, then the map file beside it; and the question before unsaved edits are lost.
#pragma once

#include <wx/string.h>

struct AppContext;

// Writes the project file at `path`, then (in automatic map mode) regenerates the map, then
// writes the map file beside it, and marks the project saved. A file that cannot be written is
// put to the interface at once ("Could not save FILE: REASON", ContinueAfterFailedSave): when it
// lets the save go on, the rest is done as if it had been written; otherwise nothing more is done
// and the result is false, so the workflow that saved stops.
bool SaveProject(AppContext& ctx, const wxString& path);

// Asks before unsaved edits are lost; true when the command may go on.
bool ConfirmDiscardUnsaved(AppContext& ctx);
