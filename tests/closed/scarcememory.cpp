#include "tests/closed/scarcememory.h"

#include <atomic>
#include <cstdlib>
#include <limits>
#include <new>

namespace {

std::atomic<size_t> smallestRefused = std::numeric_limits<size_t>::max();

} // namespace

ScarceMemory::ScarceMemory(size_t bytes)
{
    smallestRefused = bytes;
}

ScarceMemory::~ScarceMemory()
{
    smallestRefused = std::numeric_limits<size_t>::max();
}

// All other forms of `new` and `delete` call these.

void* operator new(size_t bytes)
{
    void* const memory = bytes < smallestRefused ? std::malloc(bytes == 0 ? 1 : bytes) : nullptr;
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, size_t) noexcept
{
    std::free(memory);
}
