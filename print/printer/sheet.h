// print/printer/sheet.h: what the layout of pages knows of a printer, in inches and dots.
#pragma once

namespace tarvik {

/// A value for each axis of the sheet.
struct PerAxis {
    float X = 0;
    float Y = 0;
};

inline constexpr float kDefaultDotsPerInch = 150; ///< without a printer, or with one that gives none
inline constexpr PerAxis kDefaultPaper{ 8.25F, 11.7F };
inline constexpr float kDefaultOffset = 1;

/// Defaults are those without a printer.
struct Sheet {
    PerAxis DotsPerInch{ kDefaultDotsPerInch, kDefaultDotsPerInch };
    PerAxis Paper = kDefaultPaper; ///< inches
    PerAxis Offset{ kDefaultOffset, kDefaultOffset }; ///< inches at each edge that can't be printed on
};

} // namespace tarvik
