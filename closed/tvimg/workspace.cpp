#include "closed/tvimg/workspace.h"

namespace tvimg {

namespace {

constexpr size_t kMostKeptBytes = size_t{ 16 } << 20U;

Bytes keptLines;
Bytes keptCompressed;

uint8_t* Room(Bytes& kept, size_t bytes)
{
    if (kept.size() < bytes)
        kept.resize(bytes);
    return kept.data();
}

void Release(Bytes& kept)
{
    if (kept.size() > kMostKeptBytes)
        kept = Bytes();
}

} // namespace

Workspace::~Workspace()
{
    Release(keptLines);
    Release(keptCompressed);
}

// Members, so that the memory can't be used without the object that releases it.

uint8_t* Workspace::Lines(size_t bytes)
{
    return Room(keptLines, bytes);
}

uint8_t* Workspace::Compressed(size_t bytes)
{
    return Room(keptCompressed, bytes);
}

} // namespace tvimg
