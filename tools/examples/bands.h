// tools/examples/bands.h: bands of strong transmitters as suppress lists, by the allocations that they name.
#pragma once

#include "lists/suppress/suppressList.h"

#include <vector>

namespace tarvik {

/// All suppress lists of examples/. The file has the list's name.
std::vector<SuppressTable> AllBandLists();

} // namespace tarvik
