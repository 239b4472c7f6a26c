#include "tools/tarvikctl/textTable.h"

#include <algorithm>

namespace tarvik {

QString AlignedTable(const std::vector<QStringList>& lines, const QList<int>& right)
{
    constexpr int kColumnGap = 2;
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
            const bool isRight = right.contains(static_cast<int>(column));
            joined += isRight ? line[column].rightJustified(width) : line[column].leftJustified(width);
            joined += QString(kColumnGap, u' ');
        }
        while (joined.endsWith(u' '))
            joined.chop(1);
        text += joined + u'\n';
    }
    return text;
}

QString ColumnTitle(QString caption)
{
    caption.remove(u'&').replace(u'\n', u' ');
    if (caption.endsWith(u':'))
        caption.chop(1);
    return caption;
}

} // namespace tarvik
