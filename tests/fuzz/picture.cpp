// Arbitrary bytes as the start of a picture file of any kind, of this length and of a much larger one.
#include "closed/tvimg/fileInfo.h"

#include <cstdlib>

namespace tarvik {

namespace {

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

void DemandSoundInfo(tvimg::ByteView head, uint64_t fileBytes)
{
    const std::optional<ScreenImageInfo> info = tvimg::ContentInfo(head, fileBytes);
    if (!info)
        return;
    Require(info->Kind >= 1 && info->Kind <= 4);
    Require(tvimg::IsAllowed({ info->Width, info->Height }));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    constexpr uint64_t kLarge = uint64_t{ 1 } << 30U;
    DemandSoundInfo({ data, size }, size);
    DemandSoundInfo({ data, size }, kLarge);
    return 0;
}

} // namespace tarvik
