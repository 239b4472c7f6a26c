// tools/tarvikctl/layoutText.h: the page table as JSON.
#pragma once

#include "print/page/pageTable.h"
#include "print/printer/sheet.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <vector>

namespace tarvik {

/// Lengths are in inches, device rectangles in dots. `files` belong to `windows`, one by one.
QString LayoutText(const Sheet& sheet, const std::vector<PageRecord>& pages, const QVector<WindowId>& windows,
    const QStringList& files);

} // namespace tarvik
