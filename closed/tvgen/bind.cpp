#include "closed/tvgen.h"

#include "closed/tvgen/helpers.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

void* CopyToBlock(const char* bytes, int32_t size)
{
    if (bytes == nullptr || size < 0)
        return nullptr;
    const auto count = static_cast<size_t>(size);
    void* block = std::malloc(std::max<size_t>(count, 1));
    if (block != nullptr)
        std::memcpy(block, bytes, count);
    return block;
}

void FreeBlock(void* block)
{
    std::free(block);
}

} // namespace

int16_t TvGenBind(TvGenApi* api)
{
    if (api == nullptr || api->Size < sizeof(TvGenApi))
        return 1;
    api->GenSplitPath = SplitPath;
    api->GenFileDateAndTime = FileDateAndTime;
    api->GenStrToDate = TextToDate;
    api->GenVbStrToGlobal = CopyToBlock;
    api->GenElemsFree = FreeBlock;
    return 0;
}
