#include "app/message/messageForm.h"

#include <QFontMetrics>

#include <algorithm>
#include <array>
#include <numeric>

namespace tarvik {

namespace {

constexpr int kScreenReservePx = 274;
constexpr int kLeastWrapPx = 200;
constexpr int kUnlimitedPx = 1 << 20;
constexpr int kHeightReservePx = 160;
constexpr int kLeastTextHeightPx = 100;
constexpr QChar kBreakMark(0x200B);
constexpr QChar kEllipsis(0x2026);

/// Appends `word`, broken into pieces that fit `widthPx`.
void AppendBroken(QString& out, const QString& word, const QFontMetrics& metrics, int widthPx)
{
    QString piece;
    for (const QChar character : word) {
        const bool mayBreak = !piece.isEmpty() && !character.isLowSurrogate();
        if (mayBreak && metrics.horizontalAdvance(piece + character) > widthPx) {
            out += piece + kBreakMark;
            piece.clear();
        }
        piece += character;
    }
    out += piece;
}

} // namespace

MsgButtonInfo MsgButtonInfoOf(MsgButton button)
{
    static constexpr std::array<MsgButtonInfo, kMsgButtonCount> kInfos{ { { "BtOk", 13100 }, { "BtYes", 13101 },
        { "BtYesAll", 13110 }, { "BtNo", 13103 }, { "BtNoAll", 13112 }, { "BtCancel", 13105 } } };
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

QString MsgBreakLongWords(const QString& text, const QFontMetrics& metrics, int widthPx)
{
    QString out;
    QString word;
    for (const QChar character : text) {
        word += character;
        if (!character.isSpace())
            continue;
        AppendBroken(out, word, metrics, widthPx);
        word.clear();
    }
    AppendBroken(out, word, metrics, widthPx);
    return out;
}

QString MsgCutToHeight(const QString& text, const QFontMetrics& metrics, int wrapWidthPx, int heightPx)
{
    const auto fits = [&](const QString& candidate) {
        return MsgTextSize(candidate, metrics, wrapWidthPx).height() <= heightPx;
    };
    if (fits(text))
        return text;
    qsizetype kept = 0;
    for (qsizetype tooLong = text.size(); tooLong - kept > 1;) {
        const qsizetype middle = (kept + tooLong) / 2;
        (fits(text.first(middle) + kEllipsis) ? kept : tooLong) = middle;
    }
    return text.first(kept) + kEllipsis;
}

int MsgTextHeightPx(int screenHeightPx)
{
    return std::max(kLeastTextHeightPx, screenHeightPx - kHeightReservePx);
}

QSize MsgTextSize(const QString& text, const QFontMetrics& metrics, int wrapWidthPx)
{
    const QRect room(0, 0, wrapWidthPx, kUnlimitedPx);
    return metrics.boundingRect(room, Qt::TextWordWrap | Qt::AlignLeft | Qt::AlignTop, text).size();
}

} // namespace tarvik
