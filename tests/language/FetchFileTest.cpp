#include "host/FetchFile.h"

#include <array>

#include "host/context/RunContext.h"
#include "tests/language/TemporaryFolder.h"

namespace hierfit::language::test {

namespace {

using Texts = std::vector<std::string>;

/// The text, and the texts of the diagnostics.
std::pair<std::string, Texts> Fetch(const std::string& userFolder, const std::string& path) {
    context::Settings settings;
    settings.fTemplateFolder = userFolder;
    context::RunContext context(settings, nullptr, "unused");
    const context::RunContext::Activation activation(context);
    const std::string text = FetchFile::fetch(path, true, true);
    Texts diagnostics;
    for (const auto& diagnostic : context.GetDocument().fvDiagnostics) diagnostics.push_back(diagnostic.fText);
    return {text, diagnostics};
}

}  // namespace

TEST(FetchFile, TakesTheUsersFileFirst) {
    const TemporaryFolder folder;
    const std::string installed = folder.Write("template/A.xml", "installed");
    const std::string other = folder.Write("template/B.xml", std::string("B\0\r\n\xFF", 5));
    folder.Write("mine/A.xml", "mine");
    folder.Write("mine/template/B.xml", "not looked for here");
    const std::array<std::string, 3> cases[] = {
        {"", installed, "installed"},
        {folder.Path("mine"), installed, "mine"},
        {folder.Path("mine"), "A.xml", "mine"},
        {folder.Path("mine"), other, std::string("B\0\r\n\xFF", 5)},
        {folder.Path("absent"), installed, "installed"},
        {folder.Path("mine"), folder.Path("template/C.xml"), ""},
        {"", folder.Path("template"), ""},
    };
    for (const auto& [userFolder, path, text] : cases) {
        EXPECT_EQ(Fetch(userFolder, path).first, text) << userFolder << " " << path;
    }
}

TEST(FetchFile, LeavesOutWhatIsTooLarge) {
    const TemporaryFolder folder;
    const std::string limit(std::size_t{16} << 20, ' ');
    EXPECT_EQ(Fetch("", folder.Write("fits.xml", limit)).first.size(), limit.size());
    EXPECT_EQ(Fetch("", folder.Write("large.xml", limit + ' ')).first, "");
}

TEST(FetchFile, SaysWhenTheUsersFileCannotBeRead) {
    const TemporaryFolder folder;
    const std::string installed = folder.Write("template/A.xml", "installed");
    std::filesystem::create_directories(folder.Path("mine/A.xml"));
    const Texts diagnostics{"A.xml: the file in the folder of templates cannot be read"};
    EXPECT_EQ(Fetch(folder.Path("mine"), installed), std::pair(std::string("installed"), diagnostics));
}

}  // namespace hierfit::language::test
