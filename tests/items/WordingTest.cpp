#include "report/items/Wording.h"

#include <map>

namespace hierfit::report::items {

namespace {

TEST(Wording, SaysWhatTheInnermostFinds) {
    const std::map<std::string_view, std::string_view> german{{"Table", "Tabelle"}, {"^1 out of ^2", "^2, davon ^1"}};
    const auto find = [&](std::string_view english) {
        const auto found = german.find(english);
        return found == german.end() ? std::nullopt : std::optional(found->second);
    };
    EXPECT_EQ(Say("Table"), "Table");
    const Wording outer(find);
    EXPECT_EQ(Say("Table"), "Tabelle");
    EXPECT_EQ(Say("Figure"), "Figure");
    EXPECT_EQ(Say("^1 out of ^2", {"3", "^1"}), "^1, davon 3");
    {
        const Wording inner(nullptr);
        EXPECT_EQ(Say("Table"), "Table");
    }
    EXPECT_EQ(Say("Table"), "Tabelle");
}

}  // namespace

}  // namespace hierfit::report::items
