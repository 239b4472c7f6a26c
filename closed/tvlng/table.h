// closed/tvlng/table.h: the texts built into the module, sorted by number.
#pragma once

#include <cstddef>
#include <cstdint>

struct TvText {
    int32_t Number;
    const char* Text; ///< Windows-1252
};
extern const TvText kTvTexts[];
extern const size_t kTvTextCount;
