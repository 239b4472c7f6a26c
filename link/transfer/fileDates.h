// link/transfer/fileDates.h: the dates and locks that files keep when they are copied.
#pragma once

#include "link/classes/model.h"

#include <QDateTime>
#include <QString>

namespace tarvik {

/// Whether a file that is fetched keeps its date: the one list of a class has none on the instrument.
bool TransferKeepsDate(FileClass fileClass);

/// Gives a PC file its time of last change (local time), and the read-only attribute if asked. Other times stay. An
/// invalid date leaves the time as it is, and so does a file that can't be written.
void FileSetPcDate(const QString& path, const QDateTime& date, bool readOnly);

/// Locks or unlocks a file on the instrument. No answer is read.
void TransferSetLock(const QString& name, bool lock);

/// Tells the instrument a file's time, unless that is invalid, and locks it if asked. No answer is read.
void FileSetInstrDate(const QString& name, const QDateTime& date, bool lock);

} // namespace tarvik
