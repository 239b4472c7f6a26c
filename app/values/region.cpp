#include "app/values/region.h"

#include "app/platform/seams.h"

namespace tarvik {

namespace {

/// `format` without the time zone, with which the long time of a region may start or end.
QString WithoutTimeZone(QString format)
{
    format.remove(QStringLiteral("(t)"));
    bool inQuotes = false;
    for (qsizetype at = 0; at < format.size(); ++at) {
        if (format[at] == u'\'')
            inQuotes = !inQuotes;
        else if (format[at] == u't' && !inQuotes)
            format.remove(at--, 1);
    }
    return format.trimmed();
}

} // namespace

int IniDateOrder()
{
    constexpr int kUnknown = -1;
    const QString format = TheSeams().Region().dateFormat(QLocale::ShortFormat);
    for (const QChar character : format) {
        if (character == u'M')
            return 0;
        if (character == u'd')
            return 1;
        if (character == u'y')
            return 2;
    }
    return kUnknown;
}

QString IniDecimalChar()
{
    const QString point = TheSeams().Region().decimalPoint();
    return point.isEmpty() ? QStringLiteral(".") : point.left(1);
}

QString IniListSeparator()
{
    const bool isComma = TheSeams().Region().language() != QLocale::C && IniDecimalChar() == QLatin1String(".");
    return isComma ? QStringLiteral(",") : QStringLiteral(";");
}

QString IniDefaultPrinter()
{
    return TheSeams().DefaultPrinter().trimmed();
}

QString IniDateText(const QDateTime& date)
{
    return TheSeams().Region().toString(date.date(), QLocale::ShortFormat);
}

QString IniTimeText(const QDateTime& date)
{
    const QLocale region = TheSeams().Region();
    return region.toString(date.time(), WithoutTimeZone(region.timeFormat(QLocale::LongFormat)));
}

} // namespace tarvik
