// app/values/region.h: formats of the system's region.
#pragma once

#include <QDateTime>
#include <QString>

namespace tarvik {

/// Order of the parts in the region's short date: 0 month first, 1 day first, 2 year first; -1 if unknown.
int IniDateOrder();

/// The region's decimal character, "." if it has none.
QString IniDecimalChar();

/// Separator of the fields of a list. System locales have none, so it is that of spreadsheets: ";" if the decimal
/// character is a comma, "," if it is a point; ";" if no region is set.
QString IniListSeparator();

/// Name of the system's default printer, trimmed; empty without one.
QString IniDefaultPrinter();

/// The region's short date, and its time with seconds.
QString IniDateText(const QDateTime& date);
QString IniTimeText(const QDateTime& date);

} // namespace tarvik
