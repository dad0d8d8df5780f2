#include "host/document/RareList.h"

#include <gtest/gtest.h>

#include <string>

namespace hierfit::document {

namespace {

using Words = RareList<std::string>;

TEST(RareList, HoldsItsOwnElements) {
    Words one;
    EXPECT_TRUE(one.empty());
    one.push_back("a");
    Words other = one;
    other.push_back("b");
    EXPECT_EQ(one.Get(), std::vector<std::string>({"a"}));
    EXPECT_EQ(other.Get(), std::vector<std::string>({"a", "b"}));
    one = other;
    for (std::string& word : one) word += '!';
    EXPECT_EQ(one.Get(), std::vector<std::string>({"a!", "b!"}));
    EXPECT_FALSE(one == other);
    one.clear();
    EXPECT_EQ(one.size(), 0u);
    EXPECT_EQ(one, Words());
}

}  // namespace

}  // namespace hierfit::document
