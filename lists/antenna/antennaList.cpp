#include "lists/antenna/antennaList.h"

#include "app/message/message.h"
#include "app/text/textId.h"
#include "app/values/numberPicture.h"
#include "closed/loader.h"
#include "lists/editor/editorGeneral.h"
#include "lists/values/fieldCheck.h"
#include "lists/values/storeWalk.h"

#include <array>
#include <utility>

namespace tarvik {

namespace {

constexpr std::array kPatterns{ "00", "01", "10", "11" };

/// Index 0 of the store is never used.
struct AntennaFamily : ListFamily<AntennaTable> {
    static constexpr StoreSlots kSlots{ 1, 1, 1, false };

    static ListCalls Calls()
    {
        const TvFioApi& store = TvFio();
        return { store.AntennaListClear, store.AntennaListLoadFile, store.AntennaListSaveFile, store.AntennaListGetName,
            store.AntennaListSetName, store.AntennaListGetDescription, store.AntennaListSetDescription,
            store.AntennaListGetMaxNumberOfItems, store.AntennaSetData };
    }

    static void VisitFields(auto& visit, auto& row)
    {
        const TvFioApi& store = TvFio();
        visit.Used(store.AntennaGetUsed, row.Used);
        visit(store.AntennaGetInclude, store.AntennaSetInclude, row.Include);
        visit(store.AntennaGetName, store.AntennaSetName, row.Name);
        visit(store.AntennaGetStartFrequency, store.AntennaSetStartFrequency, row.StartFrequency);
        visit(store.AntennaGetStopFrequency, store.AntennaSetStopFrequency, row.StopFrequency);
        visit(store.AntennaGetDefFrequencyOffset, store.AntennaSetDefFrequencyOffset, row.FrequencyOffset);
        visit(store.AntennaGetPassiveBits, store.AntennaSetPassiveBits, row.PassiveBits);
        visit(store.AntennaGetActiveBits, store.AntennaSetActiveBits, row.ActiveBits);
        visit(store.AntennaGetKFactorTableName, store.AntennaSetKFactorTableName, row.KfactorTableName);
        visit(store.AntennaGetAntennaCode, store.AntennaSetAntennaCode, row.AntennaCode);
        visit(store.AntennaGetNorthOffset, store.AntennaSetNorthOffset, row.NorthOffset);
        visit(store.AntennaGetCorrectionSetName, store.AntennaSetCorrectionSetName, row.CorrectionSetName);
    }
};

/// A frequency as its text in a list reads.
double ThroughText(double frequencyHz)
{
    double value = frequencyHz;
    static_cast<void>(StrToDouble(PlainNumberText(frequencyHz), value)); // the text of a number is one
    return value;
}

bool IsOutside(double frequencyHz)
{
    return frequencyHz < Limits().FrequencyHz.Min || frequencyHz > Limits().FrequencyHz.Max;
}

} // namespace

QString ModBitPatternToStr(int pattern)
{
    return pattern >= 0 && pattern < kBitPatterns ? QString::fromLatin1(kPatterns[static_cast<size_t>(pattern)])
                                                  : QStringLiteral("--");
}

int ModStrToBitPattern(const QString& text)
{
    const qsizetype blanks = std::find_if(text.begin(), text.end(), [](QChar c) { return c != u' '; }) - text.begin();
    const QString pattern = text.mid(blanks);
    const QString padded = pattern.size() == 1 ? u'0' + pattern : pattern;
    const auto found = std::find(kPatterns.begin(), kPatterns.end(), padded);
    return static_cast<int>(found - kPatterns.begin());
}

bool ReadAntennaFile(const QString& path, AntennaTable& table)
{
    table = {};
    const bool isRead = IsCsvFile(path) ? ReadAntennaCSVFile(path, table) : ReadAntennaMRFile(path, table);
    if (!isRead)
        table = {};
    return isRead;
}

bool ReadAntennaMRFile(const QString& path, AntennaTable& table)
{
    if (!ListFileExists(path) || !LoadStore<AntennaFamily>(path, table))
        return false;
    for (AntennaRow& row : table.Rows)
        row.Include = row.Include != 0 ? 1 : 0; // the store keeps -1 as well
    return true;
}

bool WriteAntennaFile(const QString& path, const AntennaTable& table)
{
    return IsCsvFile(path) ? WriteAntennaCSVFile(path, table) : WriteAntennaMRFile(path, table);
}

bool WriteAntennaMRFile(const QString& path, const AntennaTable& table)
{
    return MayWriteFile(path) && WriteStore<AntennaFamily>(table) && SaveStore<AntennaFamily>(path);
}

std::optional<AntennaRefusal> ValidateAntennaRows(std::vector<AntennaRow>& rows)
{
    int included = 0;
    for (int number = 0; number < static_cast<int>(rows.size()); ++number) {
        AntennaRow& row = rows[static_cast<size_t>(number)];
        if (!row.Used)
            continue;
        included += row.Include != 0 ? 1 : 0;
        if (row.Include != 0 && included >= Limits().MaxAntennasIncluded) {
            MsgOk(TextId::TooManyAntennasIncluded);
            return AntennaRefusal{ AntennaFault::TooManyIncluded, number };
        }
        if (ThroughText(row.StopFrequency) < ThroughText(row.StartFrequency))
            std::swap(row.StartFrequency, row.StopFrequency);
        const bool startIsOutside = IsOutside(ThroughText(row.StartFrequency));
        if (!startIsOutside && !IsOutside(ThroughText(row.StopFrequency)))
            continue;
        MsgOk(TextId::FrequencyOutsideRange);
        return AntennaRefusal{ startIsOutside ? AntennaFault::StartFrequency : AntennaFault::StopFrequency, number };
    }
    return {};
}

} // namespace tarvik
