#include <functional>

#include <gtest/gtest.h>

#include "core/ClockSlot.h"
#include "core/LocalTime.h"
#include "core/WorldFiles.h"
#include "support/TempDir.h"
#include "support/WorldFixture.h"

namespace zonara {
namespace {

// Rules as a start loads them: read from the file once, their texts already
// turned into moments, then used for every city and slot.
TEST(LocalTime, GivesCitiesAndSlotsTheirLocalTimeWithRulesReadOnce) {
    test::TempDir dir;
    const Paths paths(dir.path());
    test::writeRules(paths);
    DstRuleList rules;
    loadDstRules(paths, rules);
    ASSERT_EQ(rules.size(), 2u);
    EXPECT_EQ(rules[1].start, (RuleMoment{RuleMoment::Form::First, false, 0, 0, 10, 2, 0}));
    EXPECT_EQ(rules[0].end, (RuleMoment{RuleMoment::Form::Last, false, 0, 0, 10, 0, 59}));

    City sydney = test::sampleCity("Sydney", 255, 2);
    ClockSlot london; // the default slot: key 85, rule 1
    ClockSlot unknownRule;
    unknownRule.dstRuleIndex = 7;
    struct Case {
        const char* utc;
        std::function<ZoneTime(const SystemTime&)> local;
        const char* expected; // YYYY-MM-DDTHH:MM:SS
        int dstState;
    };
    const Case cases[] = {
        {"2026-01-01T00:00:00Z", [&](auto utc) { return localTime(utc, sydney, rules); },
         "2026-01-01T11:00:00", 1},
        {"2026-06-15T00:00:00Z", [&](auto utc) { return localTime(utc, sydney, rules); },
         "2026-06-15T10:00:00", 0},
        {"2026-07-01T12:00:00Z", [&](auto utc) { return localTime(utc, london, rules); },
         "2026-07-01T13:00:00", 1},
        {"2026-07-01T12:00:00Z", [&](auto utc) { return localTime(utc, unknownRule, rules); },
         "2026-07-01T12:00:00", 0},
        {"2026-01-01T02:00:00Z", [&](auto utc) { return localTime(utc, 35, 0, rules); },
         "2025-12-31T21:00:00", -1},
    };
    for (const Case& c : cases) {
        const ZoneTime local = c.local(*parseIsoUtc(c.utc));
        SystemTime expected = *parseIsoUtc(c.expected);
        expected.dayOfWeek = local.weekday; // pinned by the zone tests
        EXPECT_EQ(local.ToSystemTime(), expected) << c.utc << " -> " << c.expected;
        EXPECT_EQ(local.dstState, c.dstState) << c.utc;
    }
}

} // namespace
} // namespace zonara
