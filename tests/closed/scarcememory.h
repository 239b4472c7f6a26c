// tests/closed/scarcememory.h: memory that is not to be had.
#pragma once

#include <cstddef>

/// While it lives, `new` gives no piece of so many bytes or more. In the program that links scarcememory.cpp.
class ScarceMemory {
public:
    explicit ScarceMemory(size_t bytes);
    ScarceMemory(const ScarceMemory&) = delete;
    ScarceMemory& operator=(const ScarceMemory&) = delete;
    ~ScarceMemory();
};
