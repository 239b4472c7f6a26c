#include "closed/tvfio/crc32.h"

#include <gtest/gtest.h>

using namespace tvfio;

namespace {

ByteView View(std::string_view text)
{
    return { reinterpret_cast<const uint8_t*>(text.data()), text.size() };
}

} // namespace

TEST(Checksum, MatchesStandardCheckValue)
{
    EXPECT_EQ(Crc32(View("")), 0U);
    EXPECT_EQ(Crc32(View("123456789")), 0xCBF43926U);
    EXPECT_EQ(Crc32(View("The quick brown fox jumps over the lazy dog")), 0x414FA339U);
}

TEST(Checksum, CanBeComputedInPieces)
{
    const std::string_view text = "The quick brown fox jumps over the lazy dog";
    for (size_t cut = 0; cut <= text.size(); ++cut)
        EXPECT_EQ(Crc32(View(text.substr(cut)), Crc32(View(text.substr(0, cut)))), 0x414FA339U) << cut;
}

TEST(Checksum, OfNothingMoreIsWhatItWas)
{
    EXPECT_EQ(Crc32({}, 0xCBF43926U), 0xCBF43926U);
    EXPECT_EQ(Crc32({}), 0U);
}
