#include <array>
#include <tuple>

#include "host/FacSTDictionary.h"
#include "host/ParserMessage.h"
#include "host/PathFactory.h"
#include "host/language/Catalogue.h"
#include "tests/support/ExampleFile.h"

namespace hierfit::language::test {

namespace {

using Arguments = std::vector<std::string_view>;

/// A run in English, or in no language at all.
class LanguageRun {
  public:
    explicit LanguageRun(bool isEnglish, const std::string& shareDirectory = "share")
        : fpCatalogue(isEnglish ? Catalogue::Open(HIERFIT_SHARE "/languages/en.mo") : nullptr),
          fContext({}, fpCatalogue.get(), shareDirectory),
          fActivation(fContext) {
        if (isEnglish && !fpCatalogue) throw std::runtime_error("no English catalogue");
    }

  private:
    std::unique_ptr<Catalogue> fpCatalogue;
    context::RunContext fContext;
    context::RunContext::Activation fActivation;
};

}  // namespace

TEST(FillMarks, FillsInOnePass) {
    const std::string many = hierfit::test::Repeated("^1", 32);
    const std::tuple<std::string, Arguments, std::string> cases[] = {
        {"^2 before ^1, ^2", {"a", "b"}, "b before a, b"},
        {"^1-^2", {"^2", "^1"}, "^2-^1"},
        {"^1 ^2 ^3", {"a", {}, "c"}, "a ^2 c"},
        {"^9 ^9", {"", "", "", "", "", "", "", "", "i"}, "i i"},
        {"^0 ^a ^: ^", {"a"}, "^0 ^a ^: ^"},
        {"^10", {"a"}, "a0"},
        {many + "^1 ^1", {"a"}, std::string(32, 'a') + "^1 ^1"},
    };
    for (const auto& [text, arguments, filled] : cases) EXPECT_EQ(FillMarks(text, arguments), filled);
}

TEST(Translation, ReadsTheEnglishCatalogue) {
    const std::array<std::string, 3> cases[] = {
        {"Variance ", "Variance", "Variance "},
        {"VarOfEffect", "Variance of A", "VarOfEffect"},
        {"Probability Distribution ^1, Link Function ^2 ...", "Probability distribution: A; link function: B",
         "Probability Distribution A, Link Function B ..."},
        {"[%1:\n^1:]1", "[%1:\nA:]1", "[%1:\nA:]1"},
    };
    for (const bool isEnglish : {true, false}) {
        const LanguageRun run(isEnglish);
        for (const auto& [key, english, untranslated] : cases)
            EXPECT_EQ(ParserMessage().GetTranslatedText(key, "A", "B", nullptr, nullptr, nullptr),
                      isEnglish ? english : untranslated);
    }
}

TEST(Translation, FillsUpToFiveMarks) {
    const LanguageRun run(false);
    const ParserMessage message;
    EXPECT_EQ(message.GetTranslatedText("^1^2^3^4^5^6", "a", "b", "c", "d", "e"), "abcde^6");
    EXPECT_EQ(message.GetTranslatedText("^1^2^3^4^5", nullptr, "b", nullptr, "", nullptr), "^1b^3^5");
}

TEST(Translation, TheDictionaryLeavesMarks) {
    const std::string key = "Probability Distribution ^1, Link Function ^2 ...";
    const LanguageRun run(true);
    FacSTDictionary dictionary(PathFactory::getPathInstance(3).GetStringTableLocation());
    dictionary.SetProcedure("Any");
    EXPECT_EQ(dictionary.LookUp(key), "Probability distribution: ^1; link function: ^2");
    EXPECT_EQ(dictionary.LookUp("none such ^1"), "none such ^1");
    const LanguageRun inner(false);
    EXPECT_EQ(dictionary.LookUp(key), key) << "the run that is under way decides";
}

TEST(PathFinder, TellsWhereTheRunsFilesLie) {
    for (const char* share : {"a/share", "a/share/"}) {
        const LanguageRun run(false, share);
        EXPECT_EQ(PathFactory::getPathInstance(3).GetBaseDirectory(), "a/share/");
        EXPECT_EQ(PathFactory::getPathInstance().GetStringTableLocation(), "a/share/languages/");
    }
}

}  // namespace hierfit::language::test
