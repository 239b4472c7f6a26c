// Most mutations get a header with correct length and checksum; otherwise no other code would be reached.
#include "closed/tvfio/container.h"
#include "closed/tvfio/crc32.h"

namespace tarvik {

extern "C" size_t LLVMFuzzerMutate(uint8_t* data, size_t size, size_t maxSize);

namespace {

constexpr unsigned kLeaveBroken = 16; // one in this many stays broken

} // namespace

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t maxSize, unsigned seed)
{
    const size_t mutated = LLVMFuzzerMutate(data, size, maxSize);
    if (mutated < tvfio::kHeaderBytes || seed % kLeaveBroken == 0)
        return mutated;
    const tvfio::ByteView file(data, mutated);
    tvfio::PutInt(data + 12, static_cast<uint32_t>(mutated - tvfio::kHeaderBytes));
    tvfio::PutInt(data + 16, tvfio::Crc32(file.subspan(tvfio::kHeaderBytes), tvfio::Crc32(file.first(16))));
    return mutated;
}

} // namespace tarvik
