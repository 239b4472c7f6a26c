// lists/antenna/antennaFields.h: contents and checks of the controls that show an antenna.
#pragma once

#include "lists/antenna/antennaList.h"

#include <array>

namespace tarvik {

/// Text boxes of the properties.
enum class AntennaField {
    Name,
    StartFrequency,
    StopFrequency,
    FrequencyOffset,
    NorthOffset,
    Code,
    KfactorTable,
    CorrectionSet
};

/// The numbers, in the order of their validation.
inline constexpr std::array kAntennaNumbers{ AntennaField::StartFrequency, AntennaField::StopFrequency,
    AntennaField::FrequencyOffset, AntennaField::NorthOffset, AntennaField::Code };
inline constexpr std::array kAntennaTexts{ AntennaField::Name, AntennaField::KfactorTable,
    AntennaField::CorrectionSet };

/// What a box shows, also for an unused row.
QString AntennaFieldText(const AntennaRow& row, AntennaField field);

/// Checks the text of a box, stores the value and sets `text` to what the box shows. False after a message.
[[nodiscard]] bool CheckAntennaField(AntennaRow& row, AntennaField field, QString& text);

/// One of the two bit patterns of a row.
using AntennaBits = std::int16_t AntennaRow::*;

/// Choices of the two combo boxes of bits.
struct BitChoices {
    int Passive = 0;
    int Active = 0;
};

/// The choices that show a row, after `before`. Bits out of range are set to 0 in the row. For active bits this resets
/// the choice of the passive ones and leaves that of the active ones.
BitChoices ShowAntennaBits(AntennaRow& row, const BitChoices& before);

} // namespace tarvik
