#include "app/values/strings.h"

#include "app/text/lang.h"
#include "app/text/textId.h"
#include "app/values/region.h"
#include "closed/loader.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tarvik {

namespace {

struct PrefixText {
    int Power;
    TextNumber<0> Text;
};

constexpr std::array<PrefixText, 14> kPrefixes{ { { -24, TextId::PrefixYocto }, { -21, TextId::PrefixZepto },
    { -18, TextId::PrefixAtto }, { -15, TextId::PrefixFemto }, { -12, TextId::PrefixPico }, { -9, TextId::PrefixNano },
    { -6, TextId::PrefixMicro }, { -3, TextId::PrefixMilli }, { 3, TextId::PrefixKilo }, { 6, TextId::PrefixMega },
    { 9, TextId::PrefixGiga }, { 12, TextId::PrefixTera }, { 15, TextId::PrefixPeta }, { 18, TextId::PrefixExa } } };

/// First day of the packed dates of the general module.
constexpr QDate PackedDateZero()
{
    return QDate::fromJulianDay(2415019); // 1899-12-30
}

bool IsDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

/// Reads digits from `at`, then skips to the next digit. False without digits or for a number beyond 16 bits.
bool TakeNumber(const QString& text, qsizetype& at, int& number)
{
    const qsizetype start = at;
    while (at < text.size() && IsDigit(text[at]))
        ++at;
    bool ok = false;
    number = QStringView(text).sliced(start, at - start).toShort(&ok);
    while (at < text.size() && !IsDigit(text[at]))
        ++at;
    return ok;
}

/// Puts three numbers, in the order of the region, into the places of month, day and year.
void OrderDate(std::array<int, 3>& parts)
{
    constexpr int kDayFirst = 1;
    constexpr int kYearFirst = 2;
    auto& [month, day, year] = parts;
    const int order = IniDateOrder();
    if (order == kDayFirst)
        std::swap(month, day);
    else if (order == kYearFirst)
        std::rotate(parts.begin(), parts.begin() + 2, parts.end());
    if (month > 12)
        std::swap(month, day);
    if (day > 31)
        std::swap(day, year);
}

} // namespace

QString StrFormatTrim(double value, QStringView picture, int, int)
{
    QString text = FormatPicture(value, picture);
    if (!text.isEmpty() && !IsDigit(text.back()))
        text.chop(1);
    return text;
}

QString StrPrefix(int power)
{
    if (power == 0)
        return {};
    const auto found = std::find_if(
        kPrefixes.begin(), kPrefixes.end(), [power](const PrefixText& prefix) { return prefix.Power == power; });
    return found == kPrefixes.end() ? QStringLiteral("?") : LngStr(found->Text);
}

int StrDigitPower(const QString& text, DigitPowerMode mode)
{
    const qsizetype exponentAt = text.indexOf(u'E', 0, Qt::CaseInsensitive);
    const QString mantissa = exponentAt < 0 ? text : text.first(exponentAt);
    const int exponent = exponentAt < 0 ? 0 : text.sliced(exponentAt + 1).toInt();
    const auto digitsIn = [](QStringView part) {
        return static_cast<int>(std::count_if(part.begin(), part.end(), IsDigit));
    };
    const qsizetype point = mantissa.indexOf(u'.');
    const int lastPower = exponent - (point < 0 ? 0 : digitsIn(QStringView(mantissa).sliced(point)));

    int power = lastPower + digitsIn(mantissa);
    int noted = lastPower;
    for (const QChar character : mantissa) {
        if (!IsDigit(character))
            continue;
        --power;
        if (character == u'0')
            continue;
        noted = power;
        if (mode == DigitPowerMode::Highest || (mode == DigitPowerMode::FirstFraction && power < 0))
            break;
    }
    return noted;
}

QString StrReplace(const QString& text, const QString& find, const QString& replacement)
{
    QString replaced = text;
    return find.isEmpty() ? replaced : replaced.replace(find, replacement);
}

/// A menu shows the text after a tab as the item's key.
QString StrCaption(QString text)
{
    return text.replace(u'\t', u' ').replace(u'&', QLatin1String("&&"));
}

bool StrEqualNoCase(const QString& a, const QString& b)
{
    return a.trimmed().compare(b.trimmed(), Qt::CaseInsensitive) == 0;
}

QString PathNoSlash(const QString& path, QChar separator)
{
    const bool isRoot = path.size() == 1 && separator == u'/';
    return path.endsWith(separator) && !isRoot ? path.chopped(1) : path;
}

QString PathWithSlash(const QString& path, QChar separator)
{
    return path.endsWith(separator) ? path : path + separator;
}

QDate StrToDate(const QString& text, bool& ok)
{
    const QString trimmed = text.trimmed();
    std::array<int, 3> parts{};
    qsizetype at = 0;
    ok = std::all_of(parts.begin(), parts.end(), [&](int& part) { return TakeNumber(trimmed, at, part); });
    if (!ok)
        return {};
    OrderDate(parts);
    const QByteArray packedText = QStringLiteral("%1 %2 %3").arg(parts[0]).arg(parts[1]).arg(parts[2]).toLatin1();
    double packed = 0;
    ok = ModuleIsBound(Module::General) && TvGen().GenStrToDate(packedText.constData(), &packed) == 0;
    return ok ? PackedDateZero().addDays(static_cast<qint64>(packed)) : QDate();
}

} // namespace tarvik
