// lists/memory/memoryEntry.h: the memory entry in the entry dialog, and the dialog's rules.
#pragma once

#include "lists/memory/memoryRecord.h"

namespace tarvik {

/// The edited entry. The caller copies a row here, shows the dialog, and copies the row back even if it is cancelled.
MemoryRecord& MemoryEntry();

/// Contents of the dialog's controls: texts of text boxes, indexes of combo boxes, which are codes.
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

/// The controls whose check can fail; None: all passed.
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

/// `MemoryEntry` as shown in the dialog. Demodulations above 3 are shown as 0, which OK then stores.
MemoryEntryFields FieldsOfMemoryEntry();

/// Title of the dialog, with the entry's number.
QString MemoryEntryTitle();

/// Checks a text box when the focus leaves it, and formats its text in `fields`. Stores nothing. False after a message.
[[nodiscard]] bool CheckMemoryEntryField(MemoryEntryField field, MemoryEntryFields& fields);

/// OK: checks the fields in order and stores the values. Returns the first control that fails, after its message;
/// numbers that passed before it stay in `MemoryEntry`, even if the dialog is then cancelled.
[[nodiscard]] MemoryEntryField AcceptMemoryEntry(MemoryEntryFields& fields);

/// Delete: makes it an unused row with all numbers 0.
void DeleteMemoryEntry();

} // namespace tarvik
