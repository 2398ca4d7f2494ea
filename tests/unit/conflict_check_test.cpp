#include "app/app_context.h"
#include "app/conflict_check.h"
#include "fakes/test_context.h"

#include "wx_test_support.h"

#include <gtest/gtest.h>

TEST(ConflictScan, MatchesProductNamesAnywhereInAnyCase)
{
    struct Case {
        const char* line;
        bool conflict;
    };
    const Case cases[] = {
        {"TGx Templates", true},
        {"OLD TGX TOOLS 2.1 (x86)", true},
        {"DisplayName : tgx firmware", true},
        {"Tarn Tools", true},
        {"TGx Software Suite", false},
        {"TGx Template", false},    // singular is another product
        {"TGxTools", false},        // the blank is part of the name
        {"TARN SYSTEMS TGx Connect", false},
        {"", false},
    };
    for (const Case& c : cases) {
        wxArrayString lines;
        lines.Add("DisplayName");
        lines.Add("-----------");
        lines.Add(c.line);
        EXPECT_EQ(ListingNamesConflict(lines), c.conflict) << c.line;
    }
}

class ConflictCheck : public ::testing::Test, protected TestContext {
protected:
    ConflictCheck()
    {
        platform.queries.Add("listing one");
        platform.queries.Add("listing two");
    }
};

TEST_F(ConflictCheck, RunsBothListingsAndPassesWhenClean)
{
    tools.replies = {{0, Lines({"Notepad++"})}, {0, Lines({"TGx Software Suite"})}};
    EXPECT_TRUE(CheckConflictingSoftware(ctx));
    ASSERT_EQ(tools.runs.size(), 2u);
    EXPECT_EQ(tools.runs[0].command, "listing one");
    EXPECT_EQ(tools.runs[1].command, "listing two");
    EXPECT_EQ(tools.runs[0].mode, RunMode::Captured);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(ConflictCheck, AHitInEitherListingEndsTheToolWithTheWarning)
{
    for (int hitIn = 0; hitIn < 2; ++hitIn) {
        SCOPED_TRACE(hitIn);
        ui.messages.clear();
        tools.runs.clear();
        tools.replies = {{0, Lines({hitIn == 0 ? "TARN Tools" : "x"})}, {0, Lines({hitIn == 1 ? "tgx tools" : "y"})}};
        EXPECT_FALSE(CheckConflictingSoftware(ctx));
        EXPECT_EQ(tools.runs.size(), 2u);  // the scan goes on to the end either way
        ASSERT_EQ(ui.messages.size(), 1u);
        EXPECT_EQ(ui.messages[0].caption, "Software Version Conflict");
        EXPECT_EQ(ui.messages[0].icon, MessageIcon::Warning);
        EXPECT_EQ(ui.messages[0].text,
                  "Previous versions of TARN software have been detected on this computer\nYou MUST uninstall the "
                  "following software:-\n\n TGx Templates\n TGx Tools\n TARN Tools\n TGx Firmware\n\nThis program "
                  "will now exit.");
    }
}
