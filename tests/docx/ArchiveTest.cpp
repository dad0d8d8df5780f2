#include "report/archive/Archive.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

namespace hierfit::report {

namespace {

class ArchiveTest : public testing::Test {
  protected:
    const Archive fArchive = std::get<Archive>(Archive::Load(HIERFIT_ARCHIVE));
};

std::vector<ArchiveFile> MakeFiles() {
    return {{"b.xml", std::string(10'000, 'b')}, {"a/picture.png", std::string(10'000, 'p'), true}, {"empty", ""}};
}

TEST_F(ArchiveTest, KeepsTheOrderAndStoresWhatIsDense) {
    const std::string archive = fArchive.Pack(MakeFiles()).value_or("");
    EXPECT_EQ(archive.substr(0, 4), "PK\3\4");
    const std::size_t first = archive.find("b.xml");
    const std::size_t second = archive.find("a/picture.png");
    ASSERT_NE(second, std::string::npos);
    EXPECT_LT(first, second);
    EXPECT_NE(archive.find(std::string(10'000, 'p')), std::string::npos);
    EXPECT_EQ(archive.find(std::string(10'000, 'b')), std::string::npos);
    EXPECT_LT(archive.size(), 11'000U);
}

TEST_F(ArchiveTest, IsTheSameEverywhereAndAtAnyTime) {
    const auto files = MakeFiles();
    const auto expected = fArchive.Pack(files);
    ASSERT_TRUE(expected);
    for (const char* zone : {"UTC", "Asia/Kolkata", "America/St_Johns", "Pacific/Kiritimati"}) {
        setenv("TZ", zone, 1);
        tzset();
        EXPECT_EQ(fArchive.Pack(files), expected) << zone;
    }
    unsetenv("TZ");
    tzset();
}

TEST_F(ArchiveTest, MakesNothingOfNamesThatAreNone) {
    const std::vector<ArchiveFile> cases[] = {{}, {{"", "x"}}, {{"a", "x"}, {"b", "y"}, {"a", "z"}}};
    for (const auto& files : cases) EXPECT_FALSE(fArchive.Pack(files)) << files.size();
}

TEST(ArchiveLoadTest, SaysWhatIsNoModule) {
    for (const char* path : {"/nowhere/libhierfit_archive.so", "/dev/null", "libc.so.6"}) {
        const auto loaded = Archive::Load(path);
        const auto* reason = std::get_if<std::string>(&loaded);
        ASSERT_TRUE(reason) << path;
        EXPECT_NE(reason->find(path), std::string::npos) << *reason;
    }
}

}  // namespace

}  // namespace hierfit::report
