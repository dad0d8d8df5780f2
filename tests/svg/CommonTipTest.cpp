#include "report/charts/svg/CommonTip.h"

#include <gtest/gtest.h>

namespace hierfit::report::charts {

namespace {

struct TipsCase {
    std::vector<std::string_view> fvTips;
    std::string fForm;  ///< empty: there is nothing to leave out
    std::vector<std::string> fvRests = {};
};

TEST(CommonTip, LeavesOutWhatAllSay) {
    const TipsCase cases[] = {
        {{"Dose: low\nMean: 1.5", "Dose: low\nMean: 1.25"}, "Dose: low\nMean: \u2026", {"1.5", "1.25"}},
        // Nothing but whole names up to their sign: not the beginnings of figures, nor of words.
        {{"a: b: 12", "a: b: 13"}, "a: b: \u2026", {"12", "13"}},
        {{"Level 1\nSame", "Level 2\nSame"}, "\u2026\nSame", {"Level 1", "Level 2"}},
        {{"x: 1\n\nx: 1", "x: 2\n\ny: 1"}, "x: \u2026\n\n\u2026", {"1\nx: 1", "2\ny: 1"}},
        {{"x: \ny", "x: 2\ny"}, "x: \u2026\ny", {"", "2"}},
        // A line that ends in dots itself counts as one that differs.
        {{"n: long\u2026\nm: 1", "n: long\u2026\nm: 2"}, "n: \u2026\nm: \u2026", {"long\u2026\n1", "long\u2026\n2"}},
        {{"x: 1", "x: 1\ny: 2"}, ""},
        {{"1.5", "1.25"}, ""},
        {{}, ""},
    };
    for (const TipsCase& each : cases) {
        const CommonTip common(each.fvTips);
        ASSERT_EQ(common.IsUseful(), !each.fForm.empty()) << each.fForm;
        if (!common.IsUseful()) continue;
        EXPECT_EQ(common.Form(), each.fForm);
        for (std::size_t at = 0; at < each.fvTips.size(); ++at) {
            EXPECT_EQ(common.RestOf(each.fvTips[at]), each.fvRests[at]);
        }
    }
}

}  // namespace

}  // namespace hierfit::report::charts
