#include "app/message/messageForm.h"

#include "app/text/textId.h"

#include <QFontMetrics>
#include <QTextLayout>

#include <algorithm>
#include <array>
#include <numeric>

namespace tarvik {

namespace {

constexpr int kScreenReservePx = 274;
constexpr int kMinWrapPx = 200;
constexpr int kHeightReservePx = 160;
constexpr int kMinTextHeightPx = 100;
constexpr QChar kEllipsis(0x2026);

QString WithoutTrailingBlanks(QString line)
{
    while (line.endsWith(u' '))
        line.chop(1);
    return line;
}

} // namespace

MsgButtonInfo MsgButtonInfoOf(MsgButton button)
{
    static constexpr std::array<MsgButtonInfo, kMsgButtonCount> kInfos{ { { "BtOk", TextId::ButtonOk },
        { "BtYes", TextId::ButtonYes }, { "BtYesAll", TextId::ButtonYesAll }, { "BtNo", TextId::ButtonNo },
        { "BtNoAll", TextId::ButtonNoAll }, { "BtCancel", TextId::ButtonCancel } } };
    return kInfos[static_cast<size_t>(button)];
}

std::vector<MsgButton> MsgButtonSet(MsgButtons set)
{
    using enum MsgButton;
    switch (set) {
    case MsgButtons::OkCancel:
        return { Ok, Cancel };
    case MsgButtons::AllChoices:
        return { Yes, YesAll, No, NoAll, Cancel };
    case MsgButtons::YesNoCancel:
        return { Yes, No, Cancel };
    case MsgButtons::YesNo:
        return { Yes, No };
    case MsgButtons::YesNoNoAllCancel:
        return { Yes, No, NoAll, Cancel };
    default:
        return { Ok };
    }
}

bool MsgMayClose(MsgButtons set)
{
    return set == MsgButtons::Ok;
}

void MsgAnswer(MessageRequest& request, MsgButton button)
{
    switch (button) {
    case MsgButton::Ok:
        request.Result = MsgResult::Ok;
        break;
    case MsgButton::YesAll:
        request.YesAll = true;
        [[fallthrough]];
    case MsgButton::Yes:
        request.Result = MsgResult::Yes;
        break;
    case MsgButton::NoAll:
        request.NoAll = true;
        [[fallthrough]];
    case MsgButton::No:
        request.Result = MsgResult::No;
        break;
    case MsgButton::Cancel:
        request.Result = MsgResult::Cancel;
        break;
    }
}

int MsgRowWidthPx(const std::vector<int>& buttonWidthsPx)
{
    const int buttons = std::accumulate(buttonWidthsPx.begin(), buttonWidthsPx.end(), 0);
    const int gaps = std::max(0, static_cast<int>(buttonWidthsPx.size()) - 1);
    return buttons + gaps * kMsgGapPx + 2 * kMsgGapPx;
}

int MsgWrapWidthPx(int screenWidthPx)
{
    return std::max(kMinWrapPx, screenWidthPx - kScreenReservePx);
}

QStringList MsgLines(const QString& text, const QFont& font, int wrapWidthPx)
{
    QTextOption breaks;
    breaks.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QStringList lines;
    const QStringList paragraphs = text.split(u'\n');
    for (const QString& paragraph : paragraphs) {
        QTextLayout layout(paragraph, font);
        layout.setTextOption(breaks);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(wrapWidthPx);
            lines.append(WithoutTrailingBlanks(paragraph.mid(line.textStart(), line.textLength())));
        }
        layout.endLayout();
    }
    return lines;
}

QString MsgElidedText(QStringList lines, const QFontMetrics& metrics, int wrapWidthPx, int heightPx)
{
    const int fitting = std::max(1, (heightPx + metrics.leading()) / metrics.lineSpacing());
    if (lines.size() > fitting) {
        lines.resize(fitting);
        lines.last() = metrics.elidedText(lines.constLast() + kEllipsis, Qt::ElideRight, wrapWidthPx);
    }
    return lines.join(u'\n');
}

int MsgTextHeightPx(int screenHeightPx)
{
    return std::max(kMinTextHeightPx, screenHeightPx - kHeightReservePx);
}

} // namespace tarvik
