#include "host/language/Catalogue.h"

#include <map>

#include "tests/language/TemporaryFolder.h"

namespace hierfit::language::test {

namespace {

using Texts = std::map<std::string, std::string>;

void Append(std::string& bytes, std::uint32_t word, bool isBigEndian) {
    for (int i = 0; i < 4; ++i) bytes += static_cast<char>(word >> 8 * (isBigEndian ? 3 - i : i));
}

/// The bytes of a catalogue file: header, both tables, then the texts in the order of the tables.
std::string FileOf(const Texts& texts, bool isBigEndian) {
    const auto count = static_cast<std::uint32_t>(texts.size());
    std::string bytes;
    for (const std::uint32_t word : {0x950412deU, 0U, count, 28U, 28 + 8 * count, 0U, 28 + 16 * count})
        Append(bytes, word, isBigEndian);
    std::string pool;
    const auto appendPair = [&](const std::string& text) {
        Append(bytes, static_cast<std::uint32_t>(text.size()), isBigEndian);
        Append(bytes, static_cast<std::uint32_t>(28 + 16 * count + pool.size()), isBigEndian);
        pool += text + '\0';
    };
    for (const auto& [source, translation] : texts) appendPair(source);
    for (const auto& [source, translation] : texts) appendPair(translation);
    return bytes + pool;
}

const Texts kTexts{
    {"", "Language: xx\n"},          {"Target", "Ziel"}, {"Target ^1", "Ziel: ^1"}, {"Variance ", "Varianz"},
    {"[%1:\n^1:]1", "%1"},           {"a", "A"},         {"\xC3\x84", "a umlaut"},  {"\xF0\x9F\x8D\xBA", "four bytes"},
    {"long", std::string(300, 'x')},
};

/// Asks for every text. Each answer must be the right one, or none; gives how many there were.
std::size_t CountRightAnswers(const Catalogue& catalogue) {
    std::size_t count = 0;
    for (const auto& [source, translation] : kTexts) {
        const auto found = catalogue.Find(source);
        if (!found) continue;
        EXPECT_EQ(*found, translation) << source;
        ++count;
    }
    return count;
}

class BothByteOrders : public ::testing::TestWithParam<bool> {};
INSTANTIATE_TEST_SUITE_P(Catalogue, BothByteOrders, ::testing::Bool());

}  // namespace

TEST_P(BothByteOrders, FindsEachTextAndNoOther) {
    const auto catalogue = Catalogue::FromBytes(FileOf(kTexts, GetParam()));
    ASSERT_TRUE(catalogue);
    EXPECT_EQ(CountRightAnswers(*catalogue), kTexts.size() - 1) << "all but the description";
    for (const char* key : {"", "Targe", "Target ", "Target ^", "Target ^2", "Variance", "0", "\xC3", "\xFF", "longer"})
        EXPECT_FALSE(catalogue->Find(key)) << key;
}

TEST_P(BothByteOrders, TruncatedFilesGiveNothingWrong) {
    const std::string whole = FileOf(kTexts, GetParam());
    const std::size_t tablesEnd = 28 + 16 * kTexts.size();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        // A buffer of the exact size, so that a sanitizer sees a byte too far.
        const auto catalogue = Catalogue::FromBytes(std::string(whole, 0, size));
        ASSERT_EQ(catalogue != nullptr, size >= tablesEnd) << size;
        if (catalogue) CountRightAnswers(*catalogue);
    }
}

TEST_P(BothByteOrders, DamagedWordsDoNoHarm) {
    const std::string whole = FileOf(kTexts, GetParam());
    const auto size = static_cast<std::uint32_t>(whole.size());
    const std::uint32_t words[] = {0U, 1U, size - 4, size, size + 1, 0x7fffffffU, 0x80000000U, 0xfffffffcU, ~0U};
    for (std::size_t at = 0; at < 28 + 16 * kTexts.size(); at += 4) {
        for (const std::uint32_t word : words) {
            std::string bytes;
            Append(bytes, word, GetParam());
            const auto catalogue = Catalogue::FromBytes(std::string(whole).replace(at, 4, bytes));
            if (!catalogue) continue;
            for (const auto& [source, translation] : kTexts) {
                EXPECT_LE(catalogue->Find(source).value_or("").size(), whole.size());
            }
        }
    }
}

TEST(Catalogue, RefusesWhatItDoesNotKnow) {
    const std::string good = FileOf(kTexts, false);
    const std::string cases[] = {
        std::string(28, '\0'),
        "msgid \"Mean\"\nmsgstr \"Mean\"\n",
        std::string(good).replace(4, 1, "\x01"),  // a later revision, minor and major
        std::string(good).replace(6, 1, "\x01"),
        std::string(good).replace(0, 1, "\xdf"),
    };
    for (const auto& bytes : cases) EXPECT_FALSE(Catalogue::FromBytes(bytes)) << bytes;
    const auto empty = Catalogue::FromBytes(FileOf({}, false));
    ASSERT_TRUE(empty);
    EXPECT_FALSE(empty->Find("a"));
}

TEST(Catalogue, OpensRegularFilesOnly) {
    const TemporaryFolder folder;
    const auto catalogue = Catalogue::Open(folder.Write("xx.mo", FileOf(kTexts, false)));
    ASSERT_TRUE(catalogue);
    EXPECT_EQ(catalogue->Find("Target"), "Ziel");
    std::filesystem::create_directory(folder.Path("folder.mo"));
    for (const auto& path : {folder.Path("none.mo"), folder.Path("folder.mo"), folder.Write("empty.mo", "")})
        EXPECT_FALSE(Catalogue::Open(path)) << path;
}

TEST(Catalogue, ListsLanguages) {
    const TemporaryFolder folder;
    for (const char* name : {"fr.mo", "de.mo", "pt_BR.mo", "de.po", ".mo", "mo", "notes.txt"}) folder.Write(name, "");
    std::filesystem::create_directory(folder.Path("es.mo"));
    EXPECT_EQ(ListLanguages(folder.Path("")), (std::vector<std::string>{"C", "de", "fr", "pt_BR"}));
    EXPECT_EQ(ListLanguages(folder.Path("missing")), std::vector<std::string>{"C"});
}

}  // namespace hierfit::language::test
