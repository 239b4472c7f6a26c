// tests/fuzz/liststore.h: invariants of loading arbitrary bytes as a list file.
#pragma once

#include "closed/tvfio/calls.h"

#include <cstdlib>

namespace tarvik {

/// A refused file leaves an empty list; an accepted list round-trips.
template <typename List>
void FuzzList(tvfio::ByteView file)
{
    static const tvfio::Bytes empty = List().Encode();
    if (tvfio::LoadBytes<List>(file) != tvfio::FioStatus::Ok) {
        if (List::Current().Encode() != empty)
            std::abort();
        return;
    }
    const tvfio::Bytes saved = List::Current().Encode();
    if (tvfio::LoadBytes<List>(saved) != tvfio::FioStatus::Ok || List::Current().Encode() != saved)
        std::abort();
}

} // namespace tarvik
