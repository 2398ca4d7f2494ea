// Helpers shared by the GUI tests.
#pragma once

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/string.h>
#include <wx/utils.h>

#include "unit/temp_dir.h"

#include <memory>
#include <string>
#include <vector>

class wxTopLevelWindow;

struct FrameCloser {
    void operator()(wxFrame* frame) const
    {
        frame->Destroy();
        wxTheApp->ProcessIdle();
    }
};
template <class T>
using FramePtr = std::unique_ptr<T, FrameCloser>;

// Lets the window map and paint, then writes a screenshot of it to the test output folder (or to
// TGX_SCREENSHOT_DIR when set). False when the picture could not be taken (ImageMagick's import
// missing).
bool SaveScreenshot(wxWindow* window, const wxString& name);

// Processes pending and posted events for a moment.
void PumpEvents(int milliseconds = 100);

// What keeps a shown window from being whole, one line each: not on screen, smaller on screen
// than the toolkit has laid it out, smaller than its content's minimum, or a GTK widget in it
// allocated less than its minimum (a cut control).
std::vector<std::string> WindowProblems(wxTopLevelWindow& window);

// A scratch folder with a registry file that names the sample installation.
struct SampleInstallation : TempDir {
    const wxString registry = Write("registry.ini", "[HKEY_CURRENT_USER/Software/TARN SYSTEMS LTD/TGx Software Suite]\n"
                                                    "Path=" TGX_SOURCE_DIR "/simulator/installation/\nVersion=6.2.2\n"
                                                    "FirmwareVersion=6.2.2\nTemplatesVersion=3.1.0\n");
};
