// Unit and integration tests run on wxBase alone: no display, no GUI library.
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/init.h>
#include <wx/string.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

int main(int argc, char** argv)
{
    // The tool runner's tests start this program as a tool that prints its arguments, one a line.
    if (argc > 1 && std::strcmp(argv[1], "--print-arguments") == 0) {
        for (int i = 2; i < argc; ++i)
            std::printf("[%s]\n", argv[i]);
        return 0;
    }
    ::testing::InitGoogleTest(&argc, argv);
    wxInitializer toolkit;
    if (!toolkit.IsOk())
        return EXIT_FAILURE;
    wxSetAssertHandler(FailOnWxAssert);
    return RUN_ALL_TESTS();
}
