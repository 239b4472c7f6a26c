// tools/tarvikctl/textTable.h: tables of text for a terminal.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace tarvik {

/// Lines of aligned columns, two blanks apart; `right` has the indexes of columns of numbers. `lines` is not empty.
QString AlignedTable(const std::vector<QStringList>& lines, const QList<int>& right);

/// The caption of a column or label on one line, without mnemonic mark and colon.
QString ColumnTitle(QString caption);

} // namespace tarvik
