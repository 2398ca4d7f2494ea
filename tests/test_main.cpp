// Unit and integration tests run on wxBase alone: no display, no GUI library.
#include <gtest/gtest.h>
#include <wx/init.h>
#include <wx/string.h>

#include <cstdlib>

namespace {

void FailOnAssert(const wxString& file, int line, const wxString& func, const wxString& cond, const wxString& msg)
{
    ADD_FAILURE() << "wxWidgets assertion at " << file << ":" << line << " in " << func << ": " << cond << " " << msg;
}

}  // namespace

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    wxInitializer toolkit;
    if (!toolkit.IsOk())
        return EXIT_FAILURE;
    wxSetAssertHandler(FailOnAssert);
    return RUN_ALL_TESTS();
}
