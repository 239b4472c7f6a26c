#include "screen/document/description.h"

#include "app/platform/processState.h"
#include "app/settings/ini.h"
#include "app/state/project.h"

#include <QFontMetrics>
#include <QtMath>

#include <algorithm>

namespace tarvik {

namespace {

const QString kSection = QStringLiteral("Screen");
const QString kViewKey = QStringLiteral("ViewDescr");
const QString kLineEnd = QStringLiteral("\r\n");

constexpr int kFontPixels = 12;
constexpr int kSeparatorHeight = 1;

QString WithoutBlanksAtEnd(QString text)
{
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

} // namespace

DescriptionDefaults& TheDescriptionDefaults()
{
    static ProcessState<DescriptionDefaults> defaults;
    return defaults.Get();
}

void DescrLoadSettings(const QString& iniFile)
{
    TheDescriptionDefaults().ViewDescr = IniReadByte(iniFile, kSection, kViewKey, 0);
}

void DescrSaveSettings(const QString& iniFile)
{
    IniWriteByte(iniFile, kSection, kViewKey, TheDescriptionDefaults().ViewDescr);
}

DescriptionColumns DescrColumnsOf(WindowType windowType)
{
    switch (windowType) {
    case WindowType::DataSet:
        return { WindowDefaultColumns(windowType), 60, 110 };
    case WindowType::Screen:
        return { WindowDefaultColumns(windowType), 40, 100 };
    default:
        return {};
    }
}

bool ValidInt(const QString& text, const DescriptionColumns& limits, int& value)
{
    bool isNumber = false;
    const short number = text.trimmed().toShort(&isNumber);
    if (!isNumber || number < limits.Least || number > limits.Most)
        return false;
    value = number;
    return true;
}

bool DescrVisible(WindowId id)
{
    if (!WindowInUse(id) || !WindowAt(id).DescriptionVisible)
        return false;
    const ScreenView* view = ViewOf(id);
    return view == nullptr || view->State() != WinState::Maximised;
}

QFont DescrFont(WindowType windowType)
{
    QFont font(QStringLiteral("Courier New"));
    font.setStyleHint(QFont::TypeWriter);
    font.setFixedPitch(true);
    font.setPixelSize(kFontPixels);
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    font.setBold(windowType == WindowType::Screen);
    return font;
}

int DescrWidth(WindowId id)
{
    if (!WindowInUse(id))
        return 0;
    const QFontMetricsF metrics(DescrFont(WindowTypeOf(id))); // columns can be fractions of a pixel wide
    return qCeil(metrics.horizontalAdvance(QString(WindowAt(id).DescriptionColumns, u' ')));
}

int DescrLineHeight(WindowId id)
{
    return DescriptionPitch(DescrFont(WindowTypeOf(id)));
}

DescriptionText DescrLaidOut(const QString& text, WindowId id)
{
    return { DescriptionPlain(text), DescrFont(WindowTypeOf(id)), DescrWidth(id) };
}

QStringList DescrLines(const QString& text, WindowId id)
{
    return DescrLaidOut(text, id).Lines();
}

int DescrLineCount(WindowId id)
{
    return WindowInUse(id) ? DescrLaidOut(WindowAt(id).Description, id).LineCount() : 0;
}

int DescrHeight(WindowId id)
{
    return DescrVisible(id) ? DescrPrintedHeight(id) : 0;
}

int DescrPrintedHeight(WindowId id)
{
    if (!WindowInUse(id) || !WindowAt(id).DescriptionVisible)
        return 0;
    return std::max(DescrLineCount(id), 1) * DescrLineHeight(id) + kSeparatorHeight;
}

DescriptionLayout DescrLayout(WindowId id, QSize client)
{
    const int height = DescrHeight(id);
    const int width = DescrWidth(id);
    if (height == 0)
        return { false, QRect(0, client.height(), width, 0), client.height() };
    const int lineTop = client.height() - height;
    const QRect text((client.width() - width) / 2, lineTop + kSeparatorHeight, width, height - kSeparatorHeight);
    return { true, text, lineTop };
}

QString DescrFit(const QString& text, int columns)
{
    qsizetype line = 1;
    for (qsizetype position = 1; position <= text.size(); ++position) {
        const bool atLineEnd = QStringView(text).sliced(position - 1).startsWith(kLineEnd);
        if (atLineEnd || position == columns * line)
            ++line;
        if (line > kDescriptionLines)
            return text.left(atLineEnd ? position - 1 : position);
    }
    return text;
}

QString DescrNormalised(const QString& text)
{
    return WithoutBlanksAtEnd(DescriptionPlain(text).replace(u'\n', kLineEnd));
}

QString DescrStored(const QString& text)
{
    QString held = DescrNormalised(text).left(kDescriptionLength);
    if (held.endsWith(u'\r') || (!held.isEmpty() && held.back().isHighSurrogate())) // half of a pair that was cut
        held.chop(1);
    return WithoutBlanksAtEnd(held);
}

} // namespace tarvik
