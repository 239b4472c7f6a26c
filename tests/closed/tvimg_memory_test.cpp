// Pictures that exceed the memory: refused like damaged ones, without leaks.
#include "tests/closed/imgfixture.h"
#include "tests/closed/scarcememory.h"

namespace {

constexpr size_t kPlenty = size_t{ 1 } << 20U;
constexpr uint32_t kBackground = 0xff2040a0;

class ImgMemory : public ImgTest { };

unsigned Zero(int, int, unsigned)
{
    return 0;
}

} // namespace

TEST_F(ImgMemory, ShortageInPngLeavesContext)
{
    PngFile file;
    file.Width = 1200;
    file.Height = 600;
    file.ColorType = 6;
    file.Interlace = 1;
    const std::string path = Store(file.With(&Zero));
    Picture picture(1200, 600, kBackground);
    const TvImgContext context = picture.Context();
    {
        const ScarceMemory scarce(kPlenty);
        EXPECT_NE(img.ImgPngToDc(path.c_str(), &context), 0);
    }
    EXPECT_TRUE(picture.IsAll(kBackground));
    EXPECT_EQ(img.ImgPngToDc(path.c_str(), &context), 0);
}

TEST_F(ImgMemory, ShortageInPcxLeavesNothingToPaint)
{
    PcxFile file;
    file.Width = 1200;
    file.Height = 1000;
    file.PaletteInfo = 2;
    const std::string path = Store(file.WithData(FileBytes(size_t{ 1000 } * 20 * 2, 0xfc))); // runs of 60
    int32_t width = 0;
    int32_t height = 0;
    ASSERT_EQ(img.ImgPcxToMem(path.c_str(), &width, &height), 0);
    {
        const ScarceMemory scarce(kPlenty);
        EXPECT_NE(img.ImgPcxToMem(path.c_str(), &width, &height), 0);
    }
    Picture picture(1200, 1000, kBackground);
    const TvImgContext context = picture.Context();
    EXPECT_NE(img.ImgMemToDc(&context, 1, nullptr), 0);
    EXPECT_TRUE(picture.IsAll(kBackground));
}

TEST_F(ImgMemory, ShortageInWritingKeepsOldFile)
{
    const FileBytes old{ 'o', 'l', 'd' };
    const std::string path = Store(old);
    Picture picture = PictureOfColors(3000, 2000, 300); // more than is kept from one picture to the next
    const TvImgContext context = picture.Context();
    {
        const ScarceMemory scarce(kPlenty);
        EXPECT_NE(img.ImgDcToPng(path.c_str(), &context, 3000, 2000), 0);
        EXPECT_NE(img.ImgDcToPcx(path.c_str(), &context, 3000, 2000, 1, nullptr), 0);
    }
    EXPECT_EQ(Contents(path), old);
    EXPECT_EQ(FolderNames(), std::vector<std::string>{ "picture" });
}
