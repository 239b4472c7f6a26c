#include "lists/memory/memoryEntry.h"

#include "app/message/message.h"
#include "app/platform/processState.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "closed/loader.h"
#include "link/classes/textRules.h"
#include "lists/editor/editorGeneral.h"
#include "lists/values/fieldCheck.h"

namespace tarvik {

namespace {

/// Demodulations above it are shown as 0.
constexpr int kLastShownDemodulation = 3;

/// Checks and stores a number. If the text has not changed, `value` keeps digits that the text does not show.
bool CheckReal(QString& text, double& value, Range<double> limits, const CellFormat& format)
{
    const QString shown = CellText(value, format);
    double checked = 0;
    if (!CheckCellScaled(text, checked, limits, format))
        return false;
    if (text != shown)
        value = checked;
    return true;
}

bool CheckNumber(MemoryEntryField field, MemoryEntryFields& fields, MemoryRecord& record)
{
    switch (field) {
    case MemoryEntryField::Frequency:
        return CheckReal(fields.Frequency, record.Frequency, Limits().FrequencyHz, kMegahertzCell);
    case MemoryEntryField::SquelchLevel:
        return CheckReal(fields.SquelchLevel, record.SquelchLevel, Limits().SquelchLevel, kLevelCell);
    case MemoryEntryField::AntennaNumber:
        return CheckCellInt(fields.AntennaNumber, record.AntennaNumber, Limits().AntennaNr, "#0");
    case MemoryEntryField::DfSquelchLevel:
        return CheckReal(fields.DfSquelchLevel, record.DfSquelchLevel, Limits().DfSquelchLevel, kLevelCell);
    case MemoryEntryField::DfMeasurementTime:
        return CheckReal(fields.DfMeasurementTime, record.DfMeasurementTime, Limits().DfMeasTimeSec, kLevelCell);
    default:
        return true;
    }
}

bool CheckDescription(const QString& text)
{
    if (ValidText(text))
        return true;
    MsgOk(TextId::ForbiddenCharacter);
    return false;
}

bool Require(std::int16_t allowed, TextNumber<0> message)
{
    if (allowed == 0)
        MsgOk(message);
    return allowed != 0;
}

std::int16_t Code(int index)
{
    return static_cast<std::int16_t>(index);
}

bool CheckPair(MemoryEntryField field, const MemoryEntryFields& fields)
{
    const TvFioApi& store = TvFio();
    switch (field) {
    case MemoryEntryField::Bandwidth:
        return Require(store.CheckBandwidthAndDemodulation(Code(fields.Bandwidth), Code(fields.Demodulation)),
            TextId::BandwidthNotPossible);
    case MemoryEntryField::AfcStatus:
        return Require(store.CheckAutoFreqControlAndDemodulation(Code(fields.AfcStatus), Code(fields.Demodulation)),
            TextId::AfcNotPossible);
    case MemoryEntryField::FrequencySpan:
        return Require(
            store.CheckIfPanSpanAndIfPanStep(Code(fields.FrequencySpan), Code(fields.DfStep)), TextId::SpanNotPossible);
    default:
        return true;
    }
}

/// Stores the index of a combo box; without a selection the code is unchanged.
template <typename Integer>
void StoreIndex(int index, Integer& code)
{
    if (index >= 0)
        code = static_cast<Integer>(index);
}

void StoreRemaining(const MemoryEntryFields& fields, MemoryRecord& record)
{
    StoreIndex(fields.Bandwidth, record.Bandwidth);
    StoreIndex(fields.Demodulation, record.Demodulation);
    StoreIndex(fields.SquelchStatus, record.SquelchStatus);
    StoreIndex(fields.AttenuatorStatus, record.AttenuatorStatus);
    StoreIndex(fields.AfcStatus, record.AfcStatus);
    record.Description = fields.Description;
    StoreIndex(fields.Status, record.Status);
    record.Used = true;
    StoreIndex(fields.DfSquelchStatus, record.DfSquelchStatus);
    StoreIndex(fields.FrequencySpan, record.FrequencySpan);
    StoreIndex(fields.DfStep, record.DfStep);
    StoreIndex(fields.DfBandwidth, record.DfBandwidth);
}

} // namespace

MemoryRecord& MemoryEntry()
{
    static ProcessState<MemoryRecord> entry;
    return entry.Get();
}

MemoryEntryFields FieldsOfMemoryEntry()
{
    const MemoryRecord& record = MemoryEntry();
    MemoryEntryFields fields;
    fields.Frequency = CellText(record.Frequency, kMegahertzCell);
    fields.Demodulation = record.Demodulation > kLastShownDemodulation ? 0 : record.Demodulation;
    fields.Bandwidth = record.Bandwidth;
    fields.SquelchLevel = CellText(record.SquelchLevel, kLevelCell);
    fields.SquelchStatus = record.SquelchStatus;
    fields.AntennaNumber = QString::number(record.AntennaNumber);
    fields.AttenuatorStatus = record.AttenuatorStatus;
    fields.AfcStatus = record.AfcStatus;
    fields.Description = record.Description;
    fields.Status = record.Status;
    fields.DfSquelchStatus = record.DfSquelchStatus;
    fields.DfSquelchLevel = CellText(record.DfSquelchLevel, kLevelCell);
    fields.DfMeasurementTime = CellText(record.DfMeasurementTime, kLevelCell);
    fields.FrequencySpan = record.FrequencySpan;
    fields.DfStep = record.DfStep;
    fields.DfBandwidth = record.DfBandwidth;
    return fields;
}

QString MemoryEntryTitle()
{
    return EditorTitle(TextId::MemoryEntryTitle, QString::number(MemoryEntry().Number));
}

bool CheckMemoryEntryField(MemoryEntryField field, MemoryEntryFields& fields)
{
    if (field == MemoryEntryField::Description)
        return CheckDescription(fields.Description);
    MemoryRecord scratch = MemoryEntry(); // nothing is stored before OK
    return CheckNumber(field, fields, scratch);
}

MemoryEntryField AcceptMemoryEntry(MemoryEntryFields& fields)
{
    using Field = MemoryEntryField;
    for (const Field field : { Field::Frequency, Field::SquelchLevel, Field::AntennaNumber, Field::Bandwidth,
             Field::AfcStatus, Field::DfSquelchLevel, Field::DfMeasurementTime, Field::FrequencySpan }) {
        if (!CheckNumber(field, fields, MemoryEntry()) || !CheckPair(field, fields))
            return field;
    }
    StoreRemaining(fields, MemoryEntry());
    return Field::None;
}

void DeleteMemoryEntry()
{
    MemoryEntry() = {};
}

} // namespace tarvik
