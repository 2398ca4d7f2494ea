// A hook for `make bench`: ends the process as soon as a frame is shown, so that start-up can be
// timed against an empty frame ended by the same event. "Shown" is the first idle time after the
// frame's first paint: the window is on the display and drawn, and nothing else is waiting.
#pragma once

#include <wx/frame.h>

#include <cstdlib>

inline void ExitWhenShown(wxFrame& frame)
{
    frame.Bind(wxEVT_PAINT, [&frame](wxPaintEvent& event) {
        event.Skip();
        // Ended at once: the time of closing the windows is not start-up's.
        frame.Bind(wxEVT_IDLE, [](wxIdleEvent&) { std::_Exit(0); });
    });
}
