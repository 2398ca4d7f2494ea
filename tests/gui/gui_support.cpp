#include "gui_support.h"

#include <wx/filefn.h>

void PumpEvents(int milliseconds)
{
    for (int waited = 0; waited < milliseconds; waited += 20) {
        wxYield();
        wxMilliSleep(20);
    }
}

bool SaveScreenshot(wxWindow* window, const wxString& name)
{
    const wxString shot = wxString(TGX_TEST_OUTPUT_DIR) + "/" + name;
    if (wxFileExists(shot))
        wxRemoveFile(shot);
    window->Raise();
    window->Update();
    PumpEvents(500);
    const wxRect rect = window->GetScreenRect();
    wxArrayString ignored;
    wxExecute(wxString::Format("import -window root -crop %dx%d+%d+%d \"%s\"", rect.width, rect.height, rect.x, rect.y,
                               shot),
              ignored, wxEXEC_SYNC);
    return wxFileExists(shot);
}
