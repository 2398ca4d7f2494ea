// Adding, changing, deleting and selecting the HART commands of the selected device.
#pragma once

#include <wx/string.h>

struct AppContext;
struct HartCommandEntry;

void AddCommand(AppContext& ctx);
void ModifyCommand(AppContext& ctx);
void DeleteCommand(AppContext& ctx);
void SelectCommand(AppContext& ctx, int index);

// Reads "48" or "48:1,2,3" and the interval into `command`; false when the entry is not
// acceptable (command number above 255 or not a number, interval below 1 or not a number).
bool ParseCommandEntry(const wxString& numberText, const wxString& intervalText, HartCommandEntry& command);

// The "Command Number" text the dialog shows for a command: "48:1,2,3", or "48".
wxString CommandNumberText(const HartCommandEntry& command);
