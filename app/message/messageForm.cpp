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
constexpr int kLeastWrapPx = 200;
constexpr int kHeightReservePx = 160;
constexpr int kLeastTextHeightPx = 100;
constexpr QChar kEllipsis(0x2026);

QString WithoutBlanksAtEnd(QString line)
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

std::vector<MsgButton> MsgButtonSet(int style)
{
    using enum MsgButton;
    switch (style & 7) {
    case MsgButtonsOkCancel:
        return { Ok, Cancel };
    case MsgButtonsAllChoices:
        return { Yes, YesAll, No, NoAll, Cancel };
    case MsgButtonsYesNoCancel:
        return { Yes, No, Cancel };
    case MsgButtonsYesNo:
        return { Yes, No };
    case MsgButtonsYesNoNoAllCancel:
        return { Yes, No, NoAll, Cancel };
    default:
        return { Ok };
    }
}

bool MsgMayClose(int style)
{
    return (style & 7) == MsgButtonsOk;
}

void MsgAnswer(MessageRequest& request, MsgButton button)
{
    switch (button) {
    case MsgButton::Ok:
        request.Result = MsgResultOk;
        break;
    case MsgButton::YesAll:
        request.YesAll = true;
        [[fallthrough]];
    case MsgButton::Yes:
        request.Result = MsgResultYes;
        break;
    case MsgButton::NoAll:
        request.NoAll = true;
        [[fallthrough]];
    case MsgButton::No:
        request.Result = MsgResultNo;
        break;
    case MsgButton::Cancel:
        request.Result = MsgResultCancel;
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
    return std::max(kLeastWrapPx, screenWidthPx - kScreenReservePx);
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
            lines.append(WithoutBlanksAtEnd(paragraph.mid(line.textStart(), line.textLength())));
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
    return std::max(kLeastTextHeightPx, screenHeightPx - kHeightReservePx);
}

} // namespace tarvik
