// Rebuild Loops: the multiplexer re-scans the loops the user picks, and the configurator window
// then shows what it found.
#pragma once

#include <wx/string.h>

struct AppContext;
struct MuxRebuildForm;
class MuxScanWindow;

// The dialog's estimate of the rebuild's duration, "21 Secs" for all loops searched at address 0.
wxString RebuildEstimateText(const MuxRebuildForm& form);
// The loops to scan as the multiplexer takes them: one bit per ticked box.
int RebuildLoopMask(const MuxRebuildForm& form);
// True when "pfmux COM -rads" reports the rebuild as finished.
bool RebuildComplete(const wxString& statusLine);

// The Rebuild Loops command of the configurator window. True when the grid was refilled.
bool RebuildMuxLoops(AppContext& ctx, MuxScanWindow& window);
