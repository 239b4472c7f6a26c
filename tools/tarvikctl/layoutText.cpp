#include "tools/tarvikctl/layoutText.h"

#include "print/page/pageLayout.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <array>
#include <charconv>

namespace tarvik {

namespace {

/// The shortest number that reads back as the same 32-bit float.
double Shortest(float value)
{
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    return QByteArray(text.data(), end - text.data()).toDouble();
}

QJsonObject Axes(const PerAxis& value)
{
    return { { QStringLiteral("x"), Shortest(value.X) }, { QStringLiteral("y"), Shortest(value.Y) } };
}

QJsonObject Rectangle(double left, double top, double width, double height)
{
    return { { QStringLiteral("left"), left }, { QStringLiteral("top"), top }, { QStringLiteral("width"), width },
        { QStringLiteral("height"), height } };
}

QJsonObject Margins(const PageMargins& margins)
{
    return { { QStringLiteral("left"), Shortest(margins.Left) }, { QStringLiteral("top"), Shortest(margins.Top) },
        { QStringLiteral("right"), Shortest(margins.Right) }, { QStringLiteral("bottom"), Shortest(margins.Bottom) } };
}

QJsonObject Entry(const PageEntry& entry, const QString& file, const Sheet& sheet)
{
    const SheetRect& place = entry.Rectangle;
    const QRect device = DeviceRectangle(place, sheet);
    return { { QStringLiteral("file"), file }, { QStringLiteral("type"), static_cast<int>(entry.Extent.Type) },
        { QStringLiteral("rectangle"),
            Rectangle(Shortest(place.Left), Shortest(place.Top), Shortest(place.Width), Shortest(place.Height)) },
        { QStringLiteral("device"), Rectangle(device.left(), device.top(), device.width(), device.height()) },
        { QStringLiteral("outline"), entry.Outline }, { QStringLiteral("title"), entry.Title },
        { QStringLiteral("titleShare"), Shortest(entry.Shares.Title) },
        { QStringLiteral("pictureShare"), Shortest(entry.Shares.Picture) },
        { QStringLiteral("descriptionShare"), Shortest(entry.Shares.Description) },
        { QStringLiteral("statusShare"), Shortest(entry.Shares.Status) }, { QStringLiteral("order"), entry.Order } };
}

} // namespace

QString LayoutText(const Sheet& sheet, const std::vector<PageRecord>& pages, const QVector<WindowId>& windows,
    const QStringList& files)
{
    QJsonArray pageTexts;
    for (const PageRecord& page : pages) {
        QJsonArray entries;
        for (const PageEntry& entry : page.InUse())
            entries.append(Entry(entry, files.value(windows.indexOf(entry.Window)), sheet));
        pageTexts.append(QJsonObject{ { QStringLiteral("margins"), Margins(page.Margins) },
            { QStringLiteral("front"), page.FrontEntry }, { QStringLiteral("blackAndWhite"), page.BlackAndWhite },
            { QStringLiteral("entries"), entries } });
    }
    const QJsonObject table{ { QStringLiteral("paper"),
                                 QJsonObject{ { QStringLiteral("width"), Shortest(sheet.Paper.X) },
                                     { QStringLiteral("height"), Shortest(sheet.Paper.Y) } } },
        { QStringLiteral("offset"), Axes(sheet.Offset) }, { QStringLiteral("dpi"), Axes(sheet.DotsPerInch) },
        { QStringLiteral("pages"), pageTexts } };
    return QString::fromUtf8(QJsonDocument(table).toJson());
}

} // namespace tarvik
