// lists/memory/memoryEntry.h: the entry that the entry dialog edits, and the rules of its OK.
#pragma once

#include "lists/memory/memoryRecord.h"

namespace tarvik {

/// The caller puts a row here, runs the dialog, and takes the row back, whatever the dialog ended with.
MemoryRecord& MemoryEntry();

/// What the dialog's controls show: texts of the text boxes, indexes of the combo boxes (each index is a code).
struct MemoryEntryFields {
    QString Frequency; ///< MHz
    int Demodulation = 0;
    int Bandwidth = 0;
    QString SquelchLevel;
    int SquelchStatus = 0;
    QString AntennaNumber;
    int AttenuatorStatus = 0;
    int AfcStatus = 0;
    QString Description;
    int Status = 0;
    int DfSquelchStatus = 0;
    QString DfSquelchLevel;
    QString DfMeasurementTime;
    int FrequencySpan = 0;
    int DfStep = 0;
    int DfBandwidth = 0;
};

/// The controls that a check can fail on; None when all passed.
enum class MemoryEntryField {
    None,
    Frequency,
    SquelchLevel,
    AntennaNumber,
    Bandwidth,
    AfcStatus,
    DfSquelchLevel,
    DfMeasurementTime,
    FrequencySpan,
    Description
};

/// `MemoryEntry` as the dialog shows it. Demodulations above 3 show as the first one, and OK then stores that.
MemoryEntryFields FieldsOfMemoryEntry();

/// Title of the dialog: with the entry's number.
QString MemoryEntryTitle();

/// Checks one text control on leaving; `fields` gets the text as it is then shown. False after a message.
[[nodiscard]] bool CheckMemoryEntryField(MemoryEntryField field, MemoryEntryFields& fields);

/// OK: runs the checks in their order and stores the values. The first failure shows its message and names the
/// control; the numbers that passed before it stay in `MemoryEntry`, also when the dialog is cancelled afterwards.
[[nodiscard]] MemoryEntryField AcceptMemoryEntry(MemoryEntryFields& fields);

/// Delete: an unused row, all numbers 0.
void DeleteMemoryEntry();

} // namespace tarvik
