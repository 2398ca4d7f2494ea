// Refuses to run beside the older products of the same family, whose tools clash with the suite's.
#pragma once

#include <wx/arrstr.h>

struct AppContext;

// True when a line of an installed-software listing names a conflicting product: a
// case-insensitive match anywhere in the line.
bool ListingNamesConflict(const wxArrayString& lines);

// Runs the listings; on a conflict shows the message and returns false (the tool must end).
bool CheckConflictingSoftware(AppContext& ctx);
