// print/page/pageSetup.h: what the page setup and the printer setup show and change: paper, margins, printer.
#pragma once

#include "print/page/pageTable.h"
#include "print/printer/printers.h"

#include <array>

namespace tarvik {

/// Edges in the order left, top, right, bottom.
inline constexpr int kEdges = 4;

/// Lengths are shown in whole units: hundredths of a millimetre in a metric region, else thousandths of an inch.
int LengthUnitsPerInch();

struct PageSetup {
    PrinterChoice Choice;
    std::array<int, kEdges> Margins{}; ///< of the first page, in units
};

/// The present state.
PageSetup PageSetupNow();

/// The least margins of a printer and paper, in units.
std::array<int, kEdges> LeastMargins(const PrinterChoice& choice);

/// The largest margin that leaves a printable area.
int MostMargin(const PrinterChoice& choice);

/// Takes the settings over and repairs the pages.
void ApplyPageSetup(const PageSetup& setup);

/// Takes over a printer and the choices that it supports; the others stay as they are. A printer that has vanished is
/// not chosen. Repairs the pages.
void ApplyPrinterChoice(const PrinterChoice& choice);

} // namespace tarvik
