// app/text/ansi.h: the single-byte text (Windows-1252) of the closed modules, of CSV files and of the instrument.
#pragma once

#include <QByteArray>
#include <QString>

namespace tarvik {

/// `text` as Windows-1252; a character outside that set becomes "?".
QByteArray ToAnsi(const QString& text);

/// The text of Windows-1252 bytes. The five unassigned bytes become the C1 characters of the same value.
QString FromAnsi(QByteArrayView bytes);

/// True if Windows-1252 has `character`, so that a file keeps it.
bool IsAnsi(QChar character);
bool IsAnsi(const QString& text);

} // namespace tarvik
