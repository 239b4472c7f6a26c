// print/printer/paperSizes.h: the sizes of paper for pages that go to a file.
#pragma once

#include "print/printer/sheet.h"

#include <QString>

#include <array>

namespace tarvik {

struct NamedPaper {
    const char* Name;
    const char* Keyword; ///< the printing system's name
    PerAxis Inches; ///< upright
};

/// A3, A4, A5, Letter, Legal.
const std::array<NamedPaper, 5>& NamedPapers();

/// The size of that name, whatever its case; null without one.
const NamedPaper* PaperNamed(const QString& name);

inline constexpr int kPaperA4 = 1;
inline constexpr int kPaperLetter = 3;

/// Edges that are kept free of print, and resolution, of such pages.
inline constexpr float kPdfOffset = 0.25F;
inline constexpr float kPdfDotsPerInch = 300;

} // namespace tarvik
