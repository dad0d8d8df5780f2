#include "host/unicode/Excerpt.h"

#include <gtest/gtest.h>

#include "tests/support/ExampleFile.h"

namespace hierfit::unicode {
namespace {

using test::Repeated;

TEST(Excerpt, LongTextsKeepTheirEnds) {
    const std::string wide = Repeated("\u20AC", 1000);  // three bytes each
    const std::string cut = Repeated("\u20AC", 4) + "..." + Repeated("\u20AC", 3);
    const std::pair<std::string, std::string> cases[] = {
        {"0123456789", "0123456789"},
        {"0123456789a", "0123...89a"},
        {wide, cut},
        {"a" + wide + "z", "a" + Repeated("\u20AC", 3) + "..." + Repeated("\u20AC", 2) + "z"},
        {Repeated("\xBF", 1000), Repeated("\xBF", 16) + "..." + Repeated("\xBF", 12)},  // no character begins
    };
    for (const auto& [text, excerpt] : cases) EXPECT_EQ(Excerpt(text, 10), excerpt);
}

TEST(Excerpt, NoTextGetsLongerThanAskedFor) {
    for (std::size_t size = 0; size < 600; ++size) {
        const std::string excerpt = Excerpt(Repeated("\u00E9", size));
        EXPECT_LE(excerpt.size(), 2 * 200U) << size;
        EXPECT_EQ(excerpt.find("...") == std::string::npos, size <= 197) << size;
    }
}

}  // namespace
}  // namespace hierfit::unicode
