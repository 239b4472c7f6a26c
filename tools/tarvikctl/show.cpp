#include "tools/tarvikctl/show.h"

#include "app/text/lang.h"
#include "app/text/textId.h"
#include "lists/memory/memoryList.h"
#include "lists/values/fieldCheck.h"
#include "lists/values/translate.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonValue>
#include <QStringList>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace tarvik {

namespace {

constexpr int kColumnGap = 2;

/// Texts of the grid's columns and of the entry form's labels.
constexpr std::array kHeaderTexts{ TextId::MemoryRowColumn, TextId::MemoryNumberColumn, TextId::EntryStatus,
    TextId::MemoryFrequencyColumn, TextId::MemoryDemodulationColumn, TextId::EntryBandwidth,
    TextId::MemoryDescriptionColumn };

QStringList HeaderCells()
{
    QStringList cells;
    for (const TextNumber<0> id : kHeaderTexts) {
        QString text = LngStr(id).remove(u'&').replace(u'\n', u' ');
        if (text.endsWith(u':'))
            text.chop(1);
        cells.append(text);
    }
    return cells;
}

QStringList RowCells(int row, const MemoryRecord& record)
{
    const QString number = QString::number(record.Number);
    if (!record.Used)
        return { QString::number(row), number, UsedStatusToStr(false), {}, {}, {}, {} };
    return { QString::number(row), number, MemoryStatusToStr(record.Status), CellText(record.Frequency, kMegahertzCell),
        CodeToStr(kDemodulationCodes, record.Demodulation), CodeToStr(kBandwidthCodes, record.Bandwidth),
        record.Description };
}

/// True for the columns of numbers.
bool IsRightAligned(qsizetype column)
{
    return column == 0 || column == 1 || column == 3;
}

QString Aligned(const std::vector<QStringList>& lines)
{
    std::vector<qsizetype> widths(static_cast<size_t>(lines.front().size()));
    for (const QStringList& line : lines) {
        for (qsizetype column = 0; column < line.size(); ++column)
            widths[static_cast<size_t>(column)] = std::max(widths[static_cast<size_t>(column)], line[column].size());
    }
    QString text;
    for (const QStringList& line : lines) {
        QString joined;
        for (qsizetype column = 0; column < line.size(); ++column) {
            const qsizetype width = widths[static_cast<size_t>(column)];
            joined += IsRightAligned(column) ? line[column].rightJustified(width) : line[column].leftJustified(width);
            joined += QString(kColumnGap, u' ');
        }
        while (joined.endsWith(u' '))
            joined.chop(1);
        text += joined + u'\n';
    }
    return text;
}

/// A value as JSON writes it.
QString Encoded(const QJsonValue& value)
{
    const QByteArray array = QJsonDocument(QJsonArray{ value }).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.sliced(1, array.size() - 2));
}

/// Members in a fixed order, which a QJsonObject would not keep.
using Members = std::vector<std::pair<const char*, QJsonValue>>;

QString Joined(const Members& members)
{
    QStringList parts;
    for (const auto& [key, value] : members)
        parts.append(QStringLiteral("\"%1\": ").arg(QLatin1String(key)) + Encoded(value));
    return parts.join(QStringLiteral(", "));
}

Members RowMembers(int row, const MemoryRecord& record)
{
    return { { "row", row }, { "used", record.Used }, { "number", record.Number }, { "frequency", record.Frequency },
        { "demodulation", record.Demodulation }, { "bandwidth", record.Bandwidth },
        { "squelchLevel", record.SquelchLevel }, { "squelchStatus", record.SquelchStatus },
        { "antennaNumber", record.AntennaNumber }, { "attenuatorStatus", record.AttenuatorStatus },
        { "afcStatus", record.AfcStatus }, { "description", record.Description }, { "status", record.Status },
        { "dfSquelchStatus", record.DfSquelchStatus }, { "dfSquelchLevel", record.DfSquelchLevel },
        { "dfMeasurementTime", record.DfMeasurementTime }, { "frequencySpan", record.FrequencySpan },
        { "dfStep", record.DfStep }, { "dfBandwidth", record.DfBandwidth } };
}

} // namespace

QString CtlSummary(const MemoryTable& table)
{
    const auto used = std::count_if(table.Rows.begin(), table.Rows.end(), [](const auto& row) { return row.Used; });
    return QStringLiteral("%1 %2: %3 of %4 rows used")
        .arg(LngStr(TextId::MemoryListKeyword), table.MemoryListName, QString::number(used),
            QString::number(kMemoryRows));
}

QString CtlTable(const MemoryTable& table, bool all)
{
    std::vector<QStringList> lines{ HeaderCells() };
    for (int row = 0; row < kMemoryRows; ++row) {
        if (all || table.Row(row).Used)
            lines.push_back(RowCells(row, table.Row(row)));
    }
    QString text = CtlSummary(table) + u'\n';
    if (!table.MemoryListDescription.isEmpty())
        text += table.MemoryListDescription + u'\n';
    return text + u'\n' + Aligned(lines);
}

QString CtlJson(const MemoryTable& table, bool all)
{
    QStringList rows;
    for (int row = 0; row < kMemoryRows; ++row) {
        if (all || table.Row(row).Used)
            rows.append(QStringLiteral("    { ") + Joined(RowMembers(row, table.Row(row))) + QStringLiteral(" }"));
    }
    const QString list = rows.isEmpty()
        ? QStringLiteral("[]")
        : QStringLiteral("[\n") + rows.join(QStringLiteral(",\n")) + QStringLiteral("\n  ]");
    return QStringLiteral("{\n  \"family\": \"memory\",\n  \"name\": %1,\n  \"description\": %2,\n  \"rows\": ")
               .arg(Encoded(table.MemoryListName), Encoded(table.MemoryListDescription))
        + list + QStringLiteral("\n}\n");
}

} // namespace tarvik
