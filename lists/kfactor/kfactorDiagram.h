// lists/kfactor/kfactorDiagram.h: the diagram of a K-factor table.
#pragma once

#include "lists/kfactor/kfactorTable.h"
#include "screen/diagram/multiTrace.h"

namespace tarvik {

/// The rows of the last read or sort, passive and active factor over frequency.
MultiTraceInput KfactorDiagram(const KfactorTable& table, const QString& title);

} // namespace tarvik
