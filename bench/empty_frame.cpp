// The floor for start-up: an empty frame of the main window's size, ended by the same hook as
// `tgxconfig` with TGX_EXIT_WHEN_SHOWN set (scripts/bench.sh times both).
#include "desktop/exit_when_shown.h"

#include <wx/app.h>

class EmptyFrameApp : public wxApp {
public:
    bool OnInit() override
    {
        auto* frame = new wxFrame(nullptr, wxID_ANY, "TG7+ Configuration tool", wxDefaultPosition, wxSize(545, 765));
        ExitWhenShown(*frame);
        frame->Show(true);
        return true;
    }
};

wxIMPLEMENT_APP(EmptyFrameApp);
