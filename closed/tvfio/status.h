// closed/tvfio/status.h: the status words of the list store and their meaning.
#pragma once

#include <cstdint>
#include <string_view>

namespace tvfio {

/// Result of every operation. For a value up to 82 that `FioStatusHasOwnText` accepts the program has a text by
/// number; for all others it shows `LastExceptionText`, so these add details (which record, the system's error).
enum class FioStatus : int16_t {
    Ok = 0,

    // The list.
    ListNameTooLong = 8, ///< more than 32 characters
    ListNameCharacters = 9, ///< a control character in the name
    ListDescriptionTooLong = 10, ///< more than 32 characters
    ListDescriptionCharacters = 11, ///< a control character in the description
    MissingArgument = 12, ///< the caller passed no pointer for a result, or no text
    BufferTooSmall = 13, ///< the caller's buffer is too small; the text was truncated
    OutOfMemory = 14,
    SortKeyUnknown = 16, ///< a sort key outside 0 to 6
    PathEmpty = 18,
    PathNotText = 19, ///< the path is not UTF-8 or contains a character that no file name can have
    PathIsFolder = 20, ///< a folder where a file is needed

    // A memory entry: invalid field. The number of the entry is added.
    MemoryNumber = 22, ///< outside 0 to 1023
    MemoryFrequency = 23, ///< not a number
    MemoryDemodulation = 24, ///< code outside 0 to 7
    MemoryBandwidth = 25, ///< code outside 0 to 15
    MemorySquelchLevel = 26, ///< not a number
    MemorySquelchSetting = 27, ///< code outside 0 to 1
    MemoryAntennaNumber = 28, ///< negative
    MemoryAttenuator = 29, ///< code outside 0 to 1
    MemoryAfc = 30, ///< code outside 0 to 1
    MemoryDescriptionTooLong = 31, ///< more than 32 characters
    MemoryDescriptionCharacters = 32, ///< a control character in the description
    MemoryStatus = 33, ///< active or suppressed: code outside 0 to 1
    MemoryDfSquelchSetting = 34, ///< code outside 0 to 2
    MemoryDfSquelchLevel = 35, ///< not a number
    MemoryDfMeasurementTime = 36, ///< not a number
    MemoryFrequencySpan = 37, ///< code outside 0 to 12
    MemoryDfStep = 38, ///< code outside 0 to 33
    MemoryDfBandwidth = 39, ///< code outside 0 to 32

    // Index outside the list.
    MemoryIndex = 40, ///< outside 0 to 1023
    AntennaIndex = 41, ///< outside 1 to 99
    SuppressIndex = 42, ///< outside 0 to 99
    KfactorIndex = 43, ///< not below the number of entries

    // An antenna: invalid field.
    AntennaNameTooLong = 44, ///< more than 32 characters
    AntennaNameCharacters = 45,
    AntennaStartFrequency = 46, ///< not a number
    AntennaStopFrequency = 47, ///< not a number
    AntennaFrequencyOffset = 48, ///< not a number
    AntennaPassiveBits = 49, ///< outside 0 to 3
    AntennaActiveBits = 50, ///< outside 0 to 3
    AntennaKfactorNameTooLong = 51, ///< more than 40 characters
    AntennaKfactorNameCharacters = 52,
    AntennaCode = 53, ///< negative
    AntennaNorthOffset = 54, ///< not a number
    AntennaCorrectionNameTooLong = 55, ///< more than 40 characters
    AntennaCorrectionNameCharacters = 56,
    AntennaInclude = 57, ///< not a flag (-1, 0 or 1)

    // A suppressed range: invalid field.
    SuppressInclude = 60, ///< outside 0 to 255
    SuppressStartFrequency = 61, ///< not a number
    SuppressStopFrequency = 65, ///< not a number
    SuppressDescriptionTooLong = 66, ///< more than 32 characters
    SuppressDescriptionCharacters = 70,

    // A K-factor entry: invalid field.
    KfactorFrequency = 71, ///< not a number
    KfactorPassive = 72, ///< not a number
    KfactorActive = 73, ///< not a number
    KfactorFull = 74, ///< the table is full: 1000 entries

    // A correction set.
    CorrectionCount = 75, ///< the count is not the number of used entries of the table
    CorrectionHeaderText = 77, ///< antenna or manufacturer name too long or with a control character
    CorrectionHeaderFrequency = 78, ///< start or stop is not a number
    CorrectionKfactorEntry = 79, ///< a frequency or level is not a number
    CorrectionOmniphaseEntry = 80, ///< a frequency or phase is not a number
    CorrectionAzimuthEntry = 81, ///< a frequency or angle is not a number
    CorrectionAngleCount = 82, ///< more than TVFIO_MAX_ANGLES angles, or a list of angles that is not in use

    // Files; the store's own text is shown.
    FileIsNoList = 15, ///< not a file of this store
    FileOtherFamily = 17, ///< a list of another family
    FileTooNew = 21, ///< written by a later version in an unsupported format
    FileTruncated = 58, ///< shorter than its header says
    FileTrailingBytes = 59, ///< longer than its header says
    FileChecksum = 62, ///< checksum mismatch
    FileStructure = 63, ///< its sections do not fit together
    FileRecord = 64, ///< a record holds an invalid value
    FileCount = 67, ///< more records than the list can hold
    FileSameIndex = 68, ///< two records with the same index
    FileTooLarge = 69, ///< larger than any valid list
    FileOpen = 76, ///< the system refused to open it
    FileRead = 83,
    FileCreate = 84, ///< no file can be created in that folder
    FileWrite = 85, ///< the new file could not be written; the old one is unchanged
    FileReplace = 86, ///< the new file could not replace the old one
    FileReadOnly = 87, ///< the existing file is write-protected
    FileBusy = 88, ///< another program is saving the same file
};

/// True for a status for which the program has a text by number.
bool FioStatusHasOwnText(FioStatus status);

/// One English sentence that describes `status`; a general one for an unknown number.
const char* FioStatusText(FioStatus status);

/// Stores `status` as the last exception, with `detail` appended to its sentence if given, and returns it.
FioStatus Fail(FioStatus status, std::string_view detail = {});

/// The sentence of the last exception; empty if there was none. Windows-1252.
const char* LastExceptionText();

} // namespace tvfio
