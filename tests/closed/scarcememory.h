// tests/closed/scarcememory.h: simulated lack of memory.
#pragma once

#include <cstddef>

/// During its lifetime `new` fails for blocks of that many bytes or more. Works in programs that link
/// scarcememory.cpp.
class ScarceMemory {
public:
    explicit ScarceMemory(size_t bytes);
    ScarceMemory(const ScarceMemory&) = delete;
    ScarceMemory& operator=(const ScarceMemory&) = delete;
    ~ScarceMemory();
};
