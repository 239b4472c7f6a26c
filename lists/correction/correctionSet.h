// lists/correction/correctionSet.h: a correction set: the header and the three tables of one antenna, in the list store
// and in files.
#pragma once

#include "lists/correction/correctionTable.h"

#include <QString>

namespace tarvik {

/// The boxes of the header as texts. Frequencies in MHz.
struct CorrHeaderTexts {
    QString FileName; ///< name of the set, without extension
    QString AntennaName;
    QString ManufacturerName;
    QString AntennaCode;
    QString StartFrequency;
    QString StopFrequency;
};

/// Boxes of the header, in the order of their validation.
enum class CorrBox { FileName, AntName, AntCode, StartFreq, StopFreq, ManufacturerName };
inline constexpr std::array kCorrBoxes{ CorrBox::FileName, CorrBox::AntName, CorrBox::AntCode, CorrBox::StartFreq,
    CorrBox::StopFreq, CorrBox::ManufacturerName };

/// A set. The fields of the header that no control shows (version and date) are kept from the file.
struct CorrSet {
    QString FileName; ///< base name of the file; empty for a new set
    CorrHeader Header{};
    CorrModIdent Identity{}; ///< of the file; not handed to the store, which writes its own
    CorrRecords Records;

    CorrSet();

    /// A new set, with the defaults of the store.
    void Clear();
};

/// Name and texts of a set as its boxes show them.
CorrHeaderTexts CorrHeaderTextsOf(const CorrSet& set);

/// Checks one box and stores its value in the header; the text becomes what the box shows. False after a message.
[[nodiscard]] bool CheckCorrBox(CorrBox box, CorrHeaderTexts& texts, CorrSet& set);

/// Replaces the store's current set and `set` by a file. False, without a message, with an empty set; the other one
/// returns the store's status.
[[nodiscard]] bool LoadCorrSet(const QString& path, CorrSet& set);
[[nodiscard]] std::int16_t ReadCorrSet(const QString& path, CorrSet& set);

/// Hands the header to the store. False after the message "Error setting header".
[[nodiscard]] bool SetCorrHeader(const CorrSet& set);

/// Writes the store's current set; asks before replacing a file. False without a message when the store fails.
[[nodiscard]] bool SaveCorrSet(const QString& path);

/// Status of the store for writing its current set.
std::int16_t StoreCorrSet(const QString& path);

/// Sets the texts of a header, cut to its fields.
void SetCorrTexts(const QString& antennaName, const QString& manufacturerName, CorrHeader& header);

} // namespace tarvik
