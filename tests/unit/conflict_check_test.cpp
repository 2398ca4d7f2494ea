#include "base/app_context.h"
#include "commands/conflict_check.h"
#include "fakes/test_context.h"

#include "wx_test_support.h"

#include <gtest/gtest.h>

TEST(ConflictScan, MatchesProductNamesAnywhereInAnyCase)
{
    const struct {
        const char* line;
        bool conflict;
    } cases[] = {{"TGx Templates", true}, {"OLD TGX TOOLS 2.1 (x86)", true}, {"DisplayName : tgx firmware", true},
        {"Tarn Tools", true}, {"TGx Software Suite", false}, {"", false},
        {"TGx Template", false},  // singular is another product
        {"TGxTools", false}};     // the blank is part of the name
    for (const auto& c : cases)
        EXPECT_EQ(ListingNamesConflict(Lines({"DisplayName", "-----------", c.line})), c.conflict) << c.line;
}

TEST(ConflictCheck, BothListingsRunAndAHitInEitherEndsTheToolWithTheWarning)
{
    for (int hitIn = -1; hitIn < 2; ++hitIn) {
        SCOPED_TRACE(hitIn);
        TestContext t;
        t.platform.queries = Lines({"listing one", "listing two"});
        t.tools.replies = {{0, Lines({hitIn == 0 ? "TARN Tools" : "x"})}, {0, Lines({hitIn == 1 ? "tgx tools" : "y"})}};
        EXPECT_EQ(CheckConflictingSoftware(t.ctx), hitIn < 0);
        EXPECT_EQ(t.tools.Commands(), Lines({"listing one", "listing two"}));  // the scan goes on to the end
        EXPECT_EQ(t.tools.runs[0].mode, RunMode::Captured);
        ASSERT_EQ(t.ui.messages.size(), hitIn < 0 ? 0u : 1u);
        if (hitIn < 0)
            continue;
        EXPECT_EQ(t.ui.messages[0].caption, "Software Version Conflict");
        EXPECT_ALL(t.ui.messages[0].icon == MessageIcon::Warning, !t.ui.messages[0].centred);
        EXPECT_EQ(t.ui.messages[0].text,
            "Previous versions of TARN software have been detected on this computer\nYou MUST uninstall the "
            "following software:-\n\n TGx Templates\n TGx Tools\n TARN Tools\n TGx Firmware\n\nThis program "
            "will now exit.");
    }
}
