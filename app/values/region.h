// app/values/region.h: the habits of the system's region.
#pragma once

#include <QDateTime>
#include <QString>

namespace tarvik {

/// Order of the parts in the region's short date: 0 month first, 1 day first, 2 year first; -1 if it can't be told.
int IniDateOrder();

/// The region's decimal character, "." where it has none.
QString IniDecimalChar();

/// What parts the fields of a list. The regions that the system knows don't name it, so it follows the habit of
/// spreadsheets: ";" where the decimal character is a comma, "," where it is a point; ";" when no region is set.
QString IniListSeparator();

/// Name of the system's default printer, trimmed; empty without one.
QString IniDefaultPrinter();

/// The region's short date, and its time with seconds.
QString IniDateText(const QDateTime& date);
QString IniTimeText(const QDateTime& date);

} // namespace tarvik
