// closed/tvfio/status.h: the status words of the list store and their meaning.
#pragma once

#include <cstdint>
#include <string_view>

namespace tvfio {

/// Result of every operation. A value up to 82 that `FioStatusHasOwnText` accepts is one for which the program has a
/// text by number; with all others it shows what `LastExceptionText` says, so these carry details of their own (which
/// record, what the system answered).
enum class FioStatus : int16_t {
    Ok = 0,

    // The list itself.
    ListNameTooLong = 8, ///< more than 32 characters
    ListNameCharacters = 9, ///< a control character in the name
    ListDescriptionTooLong = 10, ///< more than 32 characters
    ListDescriptionCharacters = 11, ///< a control character in the description
    MissingArgument = 12, ///< the caller passed no place for a result, or no text
    BufferTooSmall = 13, ///< the caller's buffer does not hold the text; it was cut
    OutOfMemory = 14,
    SortKeyUnknown = 16, ///< a sort key outside 0 to 6
    PathEmpty = 18,
    PathNotText = 19, ///< the path is not UTF-8 or holds a character no file name can have
    PathIsFolder = 20, ///< a folder where a file is needed

    // A memory entry: the field that is out of range. An item number goes with these.
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

    // No such item in the list.
    MemoryIndex = 40, ///< outside 0 to 1023
    AntennaIndex = 41, ///< outside 1 to 99
    SuppressIndex = 42, ///< outside 0 to 99
    KfactorIndex = 43, ///< not below the number of entries

    // An antenna: the field that is out of range.
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

    // A suppressed range: the field that is out of range.
    SuppressInclude = 60, ///< outside 0 to 255
    SuppressStartFrequency = 61, ///< not a number
    SuppressStopFrequency = 65, ///< not a number
    SuppressDescriptionTooLong = 66, ///< more than 32 characters
    SuppressDescriptionCharacters = 70,

    // A K-factor entry: the field that is out of range.
    KfactorFrequency = 71, ///< not a number
    KfactorPassive = 72, ///< not a number
    KfactorActive = 73, ///< not a number
    KfactorFull = 74, ///< the table has 1000 entries already

    // A correction set.
    CorrectionCount = 75, ///< the count is not the number of used entries of the table
    CorrectionHeaderText = 77, ///< antenna or manufacturer name too long or with a control character
    CorrectionHeaderFrequency = 78, ///< start or stop is not a number
    CorrectionKfactorEntry = 79, ///< a frequency or level is not a number
    CorrectionOmniphaseEntry = 80, ///< a frequency or phase is not a number
    CorrectionAzimuthEntry = 81, ///< a frequency or angle is not a number
    CorrectionAngleCount = 82, ///< more than TVFIO_MAX_ANGLES angles, or none where a count is given

    // Files. The store's own text is shown for these.
    FileIsNoList = 15, ///< not a file of this store
    FileOtherFamily = 17, ///< a list of another kind
    FileTooNew = 21, ///< written by a later version in a form that this one cannot read
    FileTruncated = 58, ///< shorter than it says
    FileTrailingBytes = 59, ///< longer than it says
    FileChecksum = 62, ///< its bytes have changed since it was written
    FileStructure = 63, ///< its parts do not fit together
    FileRecord = 64, ///< a record holds a value that cannot be
    FileCount = 67, ///< more records than the list has room for
    FileSameIndex = 68, ///< two records for the same place
    FileTooLarge = 69, ///< larger than any list can be
    FileOpen = 76, ///< the system refused to open it
    FileRead = 83,
    FileCreate = 84, ///< no file can be made in that folder
    FileWrite = 85, ///< the new file could not be written; the old one is as it was
    FileReplace = 86, ///< the new file could not be put in the place of the old one
    FileReadOnly = 87, ///< the existing file is write-protected
    FileBusy = 88, ///< another program is saving the same file
};

/// True for a status for which the program has a text by number.
bool FioStatusHasOwnText(FioStatus status);

/// What `status` says, one English sentence; a general one for a number that has no meaning here.
const char* FioStatusText(FioStatus status);

/// Keeps `status` as the last exception, with `detail` behind its sentence where given, and returns it.
FioStatus Fail(FioStatus status, std::string_view detail = {});

/// The sentence of the last exception; empty before the first. Windows-1252.
const char* LastExceptionText();

} // namespace tvfio
