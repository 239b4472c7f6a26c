// Correction sets on the command line: three tables and a header, in the binary form and as JSON.
#include "app/message/message.h"
#include "app/text/ansi.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "lists/correction/correctionDiagram.h"
#include "lists/correction/correctionSet.h"
#include "lists/editor/editorGeneral.h"
#include "lists/values/listError.h"
#include "tools/tarvikctl/jsonText.h"
#include "tools/tarvikctl/listFile.h"
#include "tools/tarvikctl/textTable.h"

#include <QFileInfo>

#include <algorithm>

namespace tarvik {

namespace {

/// The header's members, as JSON names them.
struct HeaderMembers {
    QString AntennaName;
    QString ManufacturerName;
    std::int16_t AntennaCode = 0;
    std::int16_t Version = 0;
    double StartFrequency = 0;
    double StopFrequency = 0;
    std::int16_t Year = 0;
    std::int16_t Month = 0;
    std::int16_t Day = 0;
};

void VisitHeader(auto& visit, auto& header)
{
    visit("antennaName", header.AntennaName);
    visit("manufacturerName", header.ManufacturerName);
    visit("antennaCode", header.AntennaCode);
    visit("version", header.Version);
    visit("startFrequency", header.StartFrequency);
    visit("stopFrequency", header.StopFrequency);
    visit("year", header.Year);
    visit("month", header.Month);
    visit("day", header.Day);
}

HeaderMembers MembersOf(const CorrSet& set)
{
    const CorrHeaderTexts texts = CorrHeaderTextsOf(set);
    return { texts.AntennaName, texts.ManufacturerName, set.Header.AntennaCode, set.Header.Version,
        set.Header.StartFrequencyHz, set.Header.StopFrequencyHz, set.Header.Year, set.Header.Month, set.Header.Day };
}

/// One entry of a table.
struct EntryMembers {
    double Frequency = 0;
    double Passive = 0;
    double Active = 0;
    double Phase = 0;
    std::vector<double> Angles;
};

void VisitEntry(CorrTableId table, auto& visit, auto& entry)
{
    visit("frequency", entry.Frequency);
    if (table == CorrTableId::KFactor) {
        visit("passive", entry.Passive);
        visit("active", entry.Active);
    } else if (table == CorrTableId::Omniphase) {
        visit("phase", entry.Phase);
    } else {
        visit("angles", entry.Angles);
    }
}

const char* WordOf(CorrTableId table)
{
    return table == CorrTableId::KFactor ? "kfactor" : table == CorrTableId::Omniphase ? "omniphase" : "azimuth";
}

EntryMembers EntryOf(CorrTableId table, const CorrRecords& records, int row)
{
    EntryMembers entry;
    entry.Frequency = CorrValue(table, records, row, kCorrFrequency);
    if (table == CorrTableId::KFactor) {
        entry.Passive = CorrValue(table, records, row, kCorrPassive);
        entry.Active = CorrValue(table, records, row, kCorrActive);
    } else if (table == CorrTableId::Omniphase) {
        entry.Phase = CorrValue(table, records, row, kCorrPhase);
    } else {
        entry.Angles = CorrAngles(records, row);
    }
    return entry;
}

double Clamped(double value, Range<double> bounds)
{
    return std::clamp(value, bounds.Min, bounds.Max);
}

class CorrectionFile final : public ListFile {
public:
    bool Read(const QString& path, bool /*isCsv*/) override
    {
        if (!ListFileExists(path))
            return false;
        const std::int16_t status = ReadCorrSet(path, set_);
        ShowListError(status, kNoItem, true); // the editor says nothing
        return status == 0;
    }

    QString ReadJson(const QJsonObject& list) override
    {
        set_.Clear();
        JsonReader reader(list, {});
        QJsonObject header;
        std::array<QJsonArray, kCorrTables.size()> tables;
        reader("name", set_.FileName);
        reader("header", header);
        for (const CorrTableId table : kCorrTables)
            reader(WordOf(table), tables[static_cast<size_t>(table)]);
        QString error = reader.Finish();
        if (error.isEmpty())
            error = ReadHeader(header);
        for (const CorrTableId table : kCorrTables) {
            if (error.isEmpty())
                error = ReadTable(table, tables[static_cast<size_t>(table)]);
        }
        return error;
    }

    bool MayBeSaved() override
    {
        CorrHeaderTexts texts = CorrHeaderTextsOf(set_);
        const bool isHeaderSound = std::all_of(
            kCorrBoxes.begin(), kCorrBoxes.end(), [&](CorrBox box) { return CheckCorrBox(box, texts, set_); });
        return isHeaderSound && std::all_of(kCorrTables.begin(), kCorrTables.end(), [&](CorrTableId table) {
            return !CheckCorrDuplicates(table, set_.Records).has_value();
        });
    }

    bool Sort(int) override
    {
        return std::all_of(kCorrTables.begin(), kCorrTables.end(),
            [&](CorrTableId table) { return SortCorrRecords(table, set_.Records); });
    }

    /// The store sorts a table when it takes it over.
    bool Write(const QString& path) override
    {
        if (!Sort(0) || !SetCorrHeader(set_) || !MayWriteFile(path))
            return false;
        const std::int16_t status = StoreCorrSet(path);
        ShowListError(status, kNoItem, true);
        return status == 0;
    }

    bool PrepareDiagram(bool omniphase) override
    {
        const CorrTableId table = PlottedTable(omniphase);
        return !CheckCorrDuplicates(table, set_.Records).has_value() && SortCorrRecords(table, set_.Records);
    }

    std::optional<MultiTraceInput> DiagramInput(bool omniphase) const override
    {
        return CorrectionDiagram(PlottedTable(omniphase), set_.Records, set_.FileName);
    }

    QString Summary() const override
    {
        QStringList counts;
        for (const CorrTableId table : kCorrTables)
            counts.append(QStringLiteral("%1 %2").arg(
                QString::number(UsedCorrEntries(table, set_.Records)), QLatin1String(WordOf(table))));
        return QStringLiteral("%1 %2: %3 entries")
            .arg(LngStr(TextId::CorrectionSetKeyword), set_.FileName, counts.join(QStringLiteral(", ")));
    }

    QString Table(bool all) const override
    {
        QString text = Summary() + u'\n';
        for (const CorrTableId table : kCorrTables)
            text += u'\n' + TableText(table, all);
        return text;
    }

    QString Json(bool all) const override
    {
        JsonWriter header;
        const HeaderMembers members = MembersOf(set_);
        VisitHeader(header, members);
        QString text = QStringLiteral("{\n  \"family\": \"correction\",\n  \"name\": %1,\n  \"header\": %2")
                           .arg(JsonString(set_.FileName), header.Object());
        for (const CorrTableId table : kCorrTables)
            text += QStringLiteral(",\n  \"%1\": ").arg(QLatin1String(WordOf(table)))
                + JsonRows(Objects(table, all), QStringLiteral("  "));
        return text + QStringLiteral("\n}\n");
    }

private:
    static CorrTableId PlottedTable(bool omniphase)
    {
        return omniphase ? CorrTableId::Omniphase : CorrTableId::KFactor;
    }

    QStringList Objects(CorrTableId table, bool all) const
    {
        QStringList objects;
        for (int row = 0; row < kCorrRows; ++row) {
            if (!all && !IsCorrEntryUsed(table, set_.Records, row))
                continue;
            JsonWriter writer;
            writer("row", std::int32_t{ row });
            const EntryMembers entry = EntryOf(table, set_.Records, row);
            VisitEntry(table, writer, entry);
            objects.append(writer.Object());
        }
        return objects;
    }

    QString TableText(CorrTableId table, bool all) const
    {
        const std::array titles{ std::array{ TextId::KfactorFrequencyColumn, TextId::KfactorPassiveColumn,
                                     TextId::KfactorActiveColumn },
            std::array{ TextId::OmniphaseFrequencyColumn, TextId::OmniphasePhaseColumn, TextId::OmniphasePhaseColumn },
            std::array{ TextId::AzimuthFrequencyColumn, TextId::AzimuthAnglesColumn, TextId::AzimuthAnglesColumn } };
        const int columns = CorrColumnsOf(table);
        std::vector<QStringList> lines(1);
        lines.front().append(ColumnTitle(LngStr(TextId::KfactorRowColumn)));
        for (int column = 0; column < columns; ++column)
            lines.front().append(ColumnTitle(LngStr(titles[static_cast<size_t>(table)][static_cast<size_t>(column)])));
        const std::vector<CorrRow> rows = CorrRowsOf(table, set_.Records);
        for (int row = 0; row < kCorrRows; ++row) {
            const CorrRow& cells = rows[static_cast<size_t>(row)];
            if (!all && !cells.Used)
                continue;
            lines.push_back({ QString::number(row + 1) });
            for (int column = 0; column < columns; ++column)
                lines.back().append(cells.Texts[static_cast<size_t>(column)]);
        }
        const QList<int> right = table == CorrTableId::Azimuth ? QList<int>{ 0, 1 } : QList<int>{ 0, 1, 2, 3 };
        return AlignedTable(lines, right);
    }

    QString ReadHeader(const QJsonObject& object)
    {
        HeaderMembers members;
        JsonReader reader(object, QStringLiteral("header"));
        VisitHeader(reader, members);
        QString error = reader.Finish();
        CorrHeader& header = set_.Header;
        SetCorrTexts(members.AntennaName, members.ManufacturerName, header);
        header.AntennaCode = std::clamp(members.AntennaCode, Limits().AntennaCode.Min, Limits().AntennaCode.Max);
        header.Version = members.Version;
        header.StartFrequencyHz = Clamped(members.StartFrequency, Limits().FrequencyHz);
        header.StopFrequencyHz = Clamped(members.StopFrequency, Limits().FrequencyHz);
        header.Year = members.Year;
        header.Month = members.Month;
        header.Day = members.Day;
        return error;
    }

    QString ReadTable(CorrTableId table, const QJsonArray& entries)
    {
        for (qsizetype index = 0; index < entries.size(); ++index) {
            const QString place = QStringLiteral("%1[%2]").arg(QLatin1String(WordOf(table))).arg(index);
            if (!entries.at(index).isObject())
                return place + QStringLiteral(": not an object");
            JsonReader reader(entries.at(index).toObject(), place);
            std::int32_t row = -1;
            EntryMembers entry;
            reader("row", row);
            VisitEntry(table, reader, entry);
            QString error = reader.Finish();
            if (error.isEmpty() && (row < 0 || row >= kCorrRows))
                error = place + QStringLiteral(": the table has no row %1").arg(row);
            else if (error.isEmpty() && IsCorrEntryUsed(table, set_.Records, row))
                error = place + QStringLiteral(": row %1 occurs twice").arg(row);
            else if (error.isEmpty() && entry.Angles.size() > TVFIO_MAX_ANGLES)
                error = place + QStringLiteral(": more than %1 angles").arg(TVFIO_MAX_ANGLES);
            if (error.isEmpty() && !Store(table, row, entry))
                error = place + QStringLiteral(": no memory for its angles");
            if (!error.isEmpty())
                return error;
        }
        return {};
    }

    /// False if memory for the angles runs out.
    [[nodiscard]] bool Store(CorrTableId table, int row, const EntryMembers& entry)
    {
        CorrRecords& records = set_.Records;
        bool isStored = true;
        SetCorrValue(table, records, row, kCorrFrequency, Clamped(entry.Frequency, Limits().FrequencyHz));
        if (table == CorrTableId::KFactor) {
            SetCorrValue(table, records, row, kCorrPassive, Clamped(entry.Passive, Limits().KFactorLevel));
            SetCorrValue(table, records, row, kCorrActive, Clamped(entry.Active, Limits().KFactorLevel));
        } else if (table == CorrTableId::Omniphase) {
            SetCorrValue(table, records, row, kCorrPhase, Clamped(entry.Phase, kDegrees));
        } else {
            std::vector<double> angles = entry.Angles;
            for (double& angle : angles)
                angle = Clamped(angle, kDegrees);
            isStored = SetCorrAngles(records, row, angles);
        }
        SetCorrEntryUsed(table, records, row, true);
        return isStored;
    }

    CorrSet set_;
};

} // namespace

std::unique_ptr<ListFile> NewCorrectionFile()
{
    return std::make_unique<CorrectionFile>();
}

} // namespace tarvik
