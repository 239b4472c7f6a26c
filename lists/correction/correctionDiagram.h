// lists/correction/correctionDiagram.h: the diagrams of a correction set's tables.
#pragma once

#include "lists/correction/correctionTable.h"
#include "screen/diagram/multiTrace.h"

namespace tarvik {

/// The used records of a sorted table over frequency: both factors, or the phase with a second series of zeros. An
/// azimuth table has no diagram.
MultiTraceInput CorrectionDiagram(CorrTableId table, const CorrRecords& records, const QString& title);

} // namespace tarvik
