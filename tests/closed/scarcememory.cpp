#include "tests/closed/scarcememory.h"

#include <atomic>
#include <cstdlib>
#include <limits>
#include <new>

namespace {

std::atomic<size_t> smallestRefused = std::numeric_limits<size_t>::max();

void* Allocate(size_t bytes)
{
    return bytes < smallestRefused ? std::malloc(bytes == 0 ? 1 : bytes) : nullptr;
}

} // namespace

ScarceMemory::ScarceMemory(size_t bytes)
{
    smallestRefused = bytes;
}

ScarceMemory::~ScarceMemory()
{
    smallestRefused = std::numeric_limits<size_t>::max();
}

// The forms for arrays call these, but the sanitizers have one of their own for nothrow.

void* operator new(size_t bytes)
{
    void* const memory = Allocate(bytes);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

void* operator new(size_t bytes, const std::nothrow_t&) noexcept
{
    return Allocate(bytes);
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, size_t) noexcept
{
    std::free(memory);
}
