// GUI tests: the real toolkit, started once for the whole suite, under a display (xvfb-run).
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/string.h>

#include <cstdlib>

namespace {

class TestApp : public wxApp {
public:
    bool OnInit() override { return true; }
};

}  // namespace

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    wxApp::SetInstance(new TestApp);
    if (!wxEntryStart(argc, argv) || !wxTheApp->CallOnInit())
        return EXIT_FAILURE;
    wxSetAssertHandler(FailOnWxAssert);
    // Logged errors go to the test output instead of a modal box that nobody would close.
    delete wxLog::SetActiveTarget(new wxLogStderr);
    const int result = RUN_ALL_TESTS();
    wxTheApp->OnExit();
    wxEntryCleanup();
    return result;
}
