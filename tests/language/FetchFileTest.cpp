#include "host/FetchFile.h"

#include "host/context/RunContext.h"
#include "tests/language/TemporaryFolder.h"

namespace hierfit::language::test {

namespace {

struct Fetched {
    std::string fText;
    std::vector<document::Diagnostic> fvDiagnostics;
};

Fetched Fetch(const std::string& userFolder, const std::string& path) {
    context::Settings settings;
    settings.fTemplateFolder = userFolder;
    context::RunContext context(settings, nullptr, "unused");
    const context::RunContext::Activation activation(context);
    std::string text = FetchFile::fetch(path, true, true);
    return {std::move(text), context.GetDocument().fvDiagnostics};
}

}  // namespace

TEST(FetchFile, TakesTheUsersFileFirst) {
    const TemporaryFolder folder;
    const std::string installed = folder.Write("template/A.xml", "installed");
    const std::string other = folder.Write("template/B.xml", std::string("B\0\r\n\xFF", 5));
    folder.Write("mine/A.xml", "mine");
    folder.Write("mine/template/B.xml", "not looked for here");
    const struct {
        std::string fUserFolder, fPath, fText;
    } cases[] = {
        {"", installed, "installed"},
        {folder.Path("mine"), installed, "mine"},
        {folder.Path("mine/"), installed, "mine"},
        {folder.Path("mine"), "A.xml", "mine"},
        {folder.Path("mine"), folder.Path("nowhere/A.xml"), "mine"},
        {folder.Path("mine"), other, std::string("B\0\r\n\xFF", 5)},
        {folder.Path("absent"), installed, "installed"},
        {folder.Path("mine"), folder.Path("template/C.xml"), ""},
        {"", folder.Path("template"), ""},
        {folder.Path("mine"), folder.Path("template/"), ""},
    };
    for (const auto& [userFolder, path, text] : cases) {
        const auto fetched = Fetch(userFolder, path);
        EXPECT_EQ(fetched.fText, text) << userFolder << " " << path;
    }
}

TEST(FetchFile, LeavesOutWhatIsTooLarge) {
    const TemporaryFolder folder;
    const std::string limit(std::size_t{16} << 20, ' ');
    EXPECT_EQ(Fetch("", folder.Write("fits.xml", limit)).fText.size(), limit.size());
    EXPECT_EQ(Fetch("", folder.Write("large.xml", limit + ' ')).fText, "");
}

TEST(FetchFile, SaysWhenTheUsersFileCannotBeRead) {
    const TemporaryFolder folder;
    const std::string installed = folder.Write("template/A.xml", "installed");
    std::filesystem::create_directories(folder.Path("mine/A.xml"));
    const auto fetched = Fetch(folder.Path("mine"), installed);
    EXPECT_EQ(fetched.fText, "installed");
    ASSERT_EQ(fetched.fvDiagnostics.size(), 1U);
    EXPECT_EQ(fetched.fvDiagnostics[0].fText, "A.xml: the file in the folder of templates cannot be read");
    EXPECT_TRUE(Fetch(folder.Path("absent"), installed).fvDiagnostics.empty());
}

}  // namespace hierfit::language::test
