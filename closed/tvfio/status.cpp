#include "closed/tvfio/status.h"

#include "closed/tvfio.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace tvfio {

namespace {

struct StatusText {
    FioStatus Status;
    const char* Text;
};

constexpr std::array kStatusTexts{
    StatusText{ FioStatus::Ok, "No error." },
    StatusText{ FioStatus::ListNameTooLong, "The list's name is longer than 32 characters." },
    StatusText{ FioStatus::ListNameCharacters, "The list's name holds a control character." },
    StatusText{ FioStatus::ListDescriptionTooLong, "The list's description is longer than 32 characters." },
    StatusText{ FioStatus::ListDescriptionCharacters, "The list's description holds a control character." },
    StatusText{ FioStatus::MissingArgument, "An argument is missing." },
    StatusText{ FioStatus::BufferTooSmall, "The text is longer than the place for it." },
    StatusText{ FioStatus::OutOfMemory, "There is not enough memory." },
    StatusText{ FioStatus::SortKeyUnknown, "The list cannot be sorted by this key." },
    StatusText{ FioStatus::PathEmpty, "The file name is empty." },
    StatusText{ FioStatus::PathNotText, "The file name holds characters that cannot be used." },
    StatusText{ FioStatus::PathIsFolder, "A folder has this name." },
    StatusText{ FioStatus::MemoryNumber, "The memory number is outside 0 to 1023." },
    StatusText{ FioStatus::MemoryFrequency, "The frequency is not a number." },
    StatusText{ FioStatus::MemoryDemodulation, "The demodulation is unknown." },
    StatusText{ FioStatus::MemoryBandwidth, "The bandwidth is unknown." },
    StatusText{ FioStatus::MemorySquelchLevel, "The squelch level is not a number." },
    StatusText{ FioStatus::MemorySquelchSetting, "The squelch setting is unknown." },
    StatusText{ FioStatus::MemoryAntennaNumber, "The antenna number is negative." },
    StatusText{ FioStatus::MemoryAttenuator, "The attenuator setting is unknown." },
    StatusText{ FioStatus::MemoryAfc, "The AFC setting is unknown." },
    StatusText{ FioStatus::MemoryDescriptionTooLong, "The description is longer than 32 characters." },
    StatusText{ FioStatus::MemoryDescriptionCharacters, "The description holds a control character." },
    StatusText{ FioStatus::MemoryStatus, "The status is neither active nor suppressed." },
    StatusText{ FioStatus::MemoryDfSquelchSetting, "The DF squelch setting is unknown." },
    StatusText{ FioStatus::MemoryDfSquelchLevel, "The DF squelch level is not a number." },
    StatusText{ FioStatus::MemoryDfMeasurementTime, "The DF measurement time is not a number." },
    StatusText{ FioStatus::MemoryFrequencySpan, "The frequency span is unknown." },
    StatusText{ FioStatus::MemoryDfStep, "The DF step is unknown." },
    StatusText{ FioStatus::MemoryDfBandwidth, "The DF bandwidth is unknown." },
    StatusText{ FioStatus::MemoryIndex, "The memory list has no such entry." },
    StatusText{ FioStatus::AntennaIndex, "The antenna list has no such antenna." },
    StatusText{ FioStatus::SuppressIndex, "The suppress list has no such range." },
    StatusText{ FioStatus::KfactorIndex, "The K-factor table has no such entry." },
    StatusText{ FioStatus::AntennaNameTooLong, "The antenna's name is longer than 32 characters." },
    StatusText{ FioStatus::AntennaNameCharacters, "The antenna's name holds a control character." },
    StatusText{ FioStatus::AntennaStartFrequency, "The start frequency is not a number." },
    StatusText{ FioStatus::AntennaStopFrequency, "The stop frequency is not a number." },
    StatusText{ FioStatus::AntennaFrequencyOffset, "The frequency offset is not a number." },
    StatusText{ FioStatus::AntennaPassiveBits, "The passive bits are unknown." },
    StatusText{ FioStatus::AntennaActiveBits, "The active bits are unknown." },
    StatusText{ FioStatus::AntennaKfactorNameTooLong, "The K-factor table's name is longer than 40 characters." },
    StatusText{ FioStatus::AntennaKfactorNameCharacters, "The K-factor table's name holds a control character." },
    StatusText{ FioStatus::AntennaCode, "The antenna code is negative." },
    StatusText{ FioStatus::AntennaNorthOffset, "The north offset is not a number." },
    StatusText{ FioStatus::AntennaCorrectionNameTooLong, "The correction set's name is longer than 40 characters." },
    StatusText{ FioStatus::AntennaCorrectionNameCharacters, "The correction set's name holds a control character." },
    StatusText{ FioStatus::AntennaInclude, "The antenna is neither included nor excluded." },
    StatusText{ FioStatus::SuppressInclude, "The include setting is outside 0 to 255." },
    StatusText{ FioStatus::SuppressStartFrequency, "The start frequency is not a number." },
    StatusText{ FioStatus::SuppressStopFrequency, "The stop frequency is not a number." },
    StatusText{ FioStatus::SuppressDescriptionTooLong, "The description is longer than 32 characters." },
    StatusText{ FioStatus::SuppressDescriptionCharacters, "The description holds a control character." },
    StatusText{ FioStatus::KfactorFrequency, "The frequency is not a number." },
    StatusText{ FioStatus::KfactorPassive, "The passive K-factor is not a number." },
    StatusText{ FioStatus::KfactorActive, "The active K-factor is not a number." },
    StatusText{ FioStatus::KfactorFull, "The K-factor table is full." },
    StatusText{ FioStatus::CorrectionCount, "The number of entries does not fit the table." },
    StatusText{
        FioStatus::CorrectionHeaderText, "A name of the correction set is too long or holds a control character." },
    StatusText{ FioStatus::CorrectionHeaderFrequency, "A frequency of the correction set is not a number." },
    StatusText{ FioStatus::CorrectionKfactorEntry, "A K-factor entry holds a value that is not a number." },
    StatusText{ FioStatus::CorrectionOmniphaseEntry, "A phase entry holds a value that is not a number." },
    StatusText{ FioStatus::CorrectionAzimuthEntry, "An azimuth entry holds a value that is not a number." },
    StatusText{ FioStatus::CorrectionAngleCount, "An azimuth entry has too many angles." },
    StatusText{ FioStatus::FileIsNoList, "The file is not a list file." },
    StatusText{ FioStatus::FileOtherFamily, "The file holds a list of another kind." },
    StatusText{ FioStatus::FileTooNew, "The file was written by a later version." },
    StatusText{ FioStatus::FileTruncated, "The file is incomplete." },
    StatusText{ FioStatus::FileTrailingBytes, "The file is longer than it should be." },
    StatusText{ FioStatus::FileChecksum, "The file is damaged: its checksum is wrong." },
    StatusText{ FioStatus::FileStructure, "The file is damaged: its parts do not fit together." },
    StatusText{ FioStatus::FileRecord, "The file is damaged." },
    StatusText{ FioStatus::FileCount, "The file has more records than the list can hold." },
    StatusText{ FioStatus::FileSameIndex, "The file has two records for the same place." },
    StatusText{ FioStatus::FileTooLarge, "The file is larger than any list can be." },
    StatusText{ FioStatus::FileOpen, "The file cannot be opened." },
    StatusText{ FioStatus::FileRead, "The file cannot be read." },
    StatusText{ FioStatus::FileCreate, "No file can be made in this folder." },
    StatusText{ FioStatus::FileWrite, "The file cannot be written; what was there before is unchanged." },
    StatusText{ FioStatus::FileReplace, "The old file cannot be replaced; it is unchanged." },
    StatusText{ FioStatus::FileReadOnly, "The file is write-protected." },
    StatusText{ FioStatus::FileBusy, "Another program is saving this file." },
};

/// The statuses up to 82 for which the program has no text by number.
constexpr std::array<int16_t, 13> kWithoutOwnText{ 7, 15, 17, 21, 58, 59, 62, 63, 64, 67, 68, 69, 76 };

std::array<char, TVFIO_TEXT_SIZE> lastException{};

} // namespace

bool FioStatusHasOwnText(FioStatus status)
{
    const auto number = static_cast<int16_t>(status);
    return number >= 8 && number <= 82
        && std::find(kWithoutOwnText.begin(), kWithoutOwnText.end(), number) == kWithoutOwnText.end();
}

const char* FioStatusText(FioStatus status)
{
    for (const StatusText& entry : kStatusTexts) {
        if (entry.Status == status)
            return entry.Text;
    }
    return "Unknown error.";
}

FioStatus Fail(FioStatus status, std::string_view detail)
{
    const char* gap = detail.empty() ? "" : " ";
    (void)std::snprintf(lastException.data(), lastException.size(), "%s%s%.*s", FioStatusText(status), gap,
        static_cast<int>(detail.size()), detail.data());
    return status;
}

const char* LastExceptionText()
{
    return lastException.data();
}

} // namespace tvfio
