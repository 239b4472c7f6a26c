#include "lists/antenna/antennaFields.h"

#include "lists/values/fieldCheck.h"

namespace tarvik {

namespace {

constexpr CellFormat kDegreesCell{ "##0.0", 1.0 };
constexpr const char* kCodePicture = "#0";

/// A number other than the code.
struct Number {
    double AntennaRow::*Value;
    CellFormat Format;
    Range<double> Bounds;
};

Number NumberOf(AntennaField field)
{
    switch (field) {
    case AntennaField::StopFrequency:
        return { &AntennaRow::StopFrequency, kMegahertzCell, Limits().FrequencyHz };
    case AntennaField::FrequencyOffset:
        return { &AntennaRow::FrequencyOffset, kMegahertzCell, Limits().AntennaConverterOffsetHz };
    case AntennaField::NorthOffset:
        return { &AntennaRow::NorthOffset, kDegreesCell, Limits().NorthOffset };
    default:
        return { &AntennaRow::StartFrequency, kMegahertzCell, Limits().FrequencyHz };
    }
}

} // namespace

QString AntennaFieldText(const AntennaRow& row, AntennaField field)
{
    switch (field) {
    case AntennaField::Name:
        return row.Name;
    case AntennaField::KfactorTable:
        return row.KfactorTableName;
    case AntennaField::CorrectionSet:
        return row.CorrectionSetName;
    case AntennaField::Code:
        return CellText(row.AntennaCode, { kCodePicture, 1.0 });
    default:
        return CellText(row.*NumberOf(field).Value, NumberOf(field).Format);
    }
}

bool CheckAntennaField(AntennaRow& row, AntennaField field, QString& text)
{
    switch (field) {
    case AntennaField::Name:
        return CheckCellText(text, row.Name);
    case AntennaField::KfactorTable:
        return CheckCellText(text, row.KfactorTableName);
    case AntennaField::CorrectionSet:
        return CheckCellText(text, row.CorrectionSetName);
    case AntennaField::Code:
        return CheckCellInt(text, row.AntennaCode, Limits().AntennaCode, kCodePicture);
    default: {
        const Number number = NumberOf(field);
        return CheckStoredCell(text, row.*number.Value, number.Bounds, number.Format);
    }
    }
}

BitChoices ShowAntennaBits(AntennaRow& row, const BitChoices& before)
{
    const auto isInRange = [](std::int16_t bits) { return bits >= 0 && bits < kBitPatterns; };
    BitChoices choices = before;
    if (!isInRange(row.PassiveBits))
        row.PassiveBits = 0;
    choices.Passive = row.PassiveBits;
    if (isInRange(row.ActiveBits)) {
        choices.Active = row.ActiveBits;
    } else {
        row.ActiveBits = 0;
        choices.Passive = 0;
    }
    return choices;
}

} // namespace tarvik
