#include "report/charts/raster/Raster.h"

#include <gtest/gtest.h>

namespace hierfit::report::charts {
namespace {

std::string MakeImage(const std::string& width, const std::string& height) {
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + width + "\" height=\"" + height +
           "\"><rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/><text x=\"5\" y=\"15\">Days</text></svg>";
}

std::size_t BigEndian(const std::string& bytes, std::size_t at) {
    std::size_t number = 0;
    for (std::size_t i = 0; i < 4; ++i) number = number << 8 | static_cast<unsigned char>(bytes.at(at + i));
    return number;
}

class RasterTest : public testing::Test {
  protected:
    const Raster fRaster = std::get<Raster>(Raster::Load(HIERFIT_RASTER));
};

TEST_F(RasterTest, AnImageIsAsLargeAsItsScaleSaysAndTheSameEachTime) {
    const std::tuple<double, std::size_t, std::size_t> cases[] = {
        {1, 61, 30}, {2, 121, 60}, {0.25, 16, 8}, {1e-9, 1, 1}};
    const std::string image = MakeImage("60.5", "30");
    for (const auto& [scale, width, height] : cases) {
        const std::string png = fRaster.MakePng(image, scale).value_or("");
        ASSERT_GT(png.size(), 40U) << scale;
        EXPECT_EQ(png.substr(12, 4), "IHDR") << scale;
        EXPECT_EQ(BigEndian(png, 16), width) << scale;
        EXPECT_EQ(BigEndian(png, 20), height) << scale;
        EXPECT_EQ(fRaster.MakePng(image, scale), png) << scale;
    }
    const std::string pdf = fRaster.MakePdf(MakeImage("60", "30")).value_or("");
    EXPECT_NE(pdf.find("/MediaBox [ 0 0 45 22.5 ]"), std::string::npos) << pdf.substr(0, 2000);
    EXPECT_EQ(fRaster.MakePdf(MakeImage("60", "30")), pdf);
}

TEST_F(RasterTest, NothingComesOfWhatIsNoImageOrTooLarge) {
    const std::string whole = MakeImage("60", "30");
    for (const std::string& image :
         {std::string(), std::string("<svg"), std::string("<html/>"), std::string("\0\xff", 2),
          whole.substr(0, whole.size() / 2), MakeImage("0", "30"), MakeImage("-5", "30")}) {
        EXPECT_FALSE(fRaster.MakePng(image, 1)) << image;
        EXPECT_FALSE(fRaster.MakePdf(image)) << image;
    }
    for (const std::string& image : {MakeImage("16384", "1"), MakeImage("1", "1e9"), MakeImage("9000", "9000")}) {
        EXPECT_FALSE(fRaster.MakePng(image, 2)) << image;
    }
    EXPECT_FALSE(fRaster.MakePng(whole, 0) || fRaster.MakePng(whole, -1));
}

TEST(RasterLoadTest, SaysWhatIsNoModule) {
    for (const char* path : {"/nowhere/libhierfit_raster.so", "/dev/null", "libc.so.6"}) {
        const auto loaded = Raster::Load(path);
        const auto* reason = std::get_if<std::string>(&loaded);
        ASSERT_TRUE(reason) << path;
        EXPECT_NE(reason->find(path), std::string::npos) << *reason;
    }
}

}  // namespace
}  // namespace hierfit::report::charts
