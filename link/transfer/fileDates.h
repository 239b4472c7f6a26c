// link/transfer/fileDates.h: dates and locks of copied files.
#pragma once

#include "link/classes/model.h"

#include <QDateTime>
#include <QString>

namespace tarvik {

/// True if a downloaded file keeps its date; a single list of a class has none on the instrument.
bool TransferKeepsDate(FileClass fileClass);

/// Sets the time of last change of a PC file to what clocks here show as `date`, whatever its time zone, and the
/// read-only attribute if asked. The time is left unchanged if it is invalid or the file can't be written.
void FileSetPcDate(const QString& path, const QDateTime& date, bool readOnly);

/// Locks or unlocks a file on the instrument; reads no answer.
void TransferSetLock(const QString& name, bool lock);

/// Sets the date of a file on the instrument unless it is invalid, and locks it if asked; reads no answer.
void FileSetInstrDate(const QString& name, const QDateTime& date, bool lock);

} // namespace tarvik
