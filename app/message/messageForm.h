// app/message/messageForm.h: the rules of the message form: buttons, answers, widths.
#pragma once

#include "app/message/message.h"
#include "app/text/textNumber.h"

#include <QStringList>

#include <vector>

class QFont;
class QFontMetrics;

namespace tarvik {

enum class MsgButton { Ok, Yes, YesAll, No, NoAll, Cancel };
inline constexpr int kMsgButtonCount = 6;

/// The given name of a button and its text.
struct MsgButtonInfo {
    const char* Name;
    TextNumber<0> Text;
};
MsgButtonInfo MsgButtonInfoOf(MsgButton button);

/// The buttons of a set, left to right. A set that does not exist shows a single OK.
std::vector<MsgButton> MsgButtonSet(MsgButtons set);

/// True for the one set that the system menu may close.
bool MsgMayClose(MsgButtons set);

/// Stores the answer of `button`.
void MsgAnswer(MessageRequest& request, MsgButton button);

/// Answer of a character key that is typed while OK has the focus.
inline constexpr MsgResult kMsgResultOfCharacter = MsgResult::Cancel;

inline constexpr int kMsgGapPx = 16; ///< between two buttons, and each margin of the row

/// Width of the button row with its margins.
int MsgRowWidthPx(const std::vector<int>& buttonWidthsPx);

/// The text wraps at this width.
int MsgWrapWidthPx(int screenWidthPx);

/// The lines of `text`, broken between words, or inside a word that is wider than `wrapWidthPx`. Blanks at the end of a
/// line are left out.
QStringList MsgLines(const QString& text, const QFont& font, int wrapWidthPx);

/// `lines` as one text, elided to fit `heightPx`, so that the buttons stay on the screen under any text.
QString MsgElidedText(QStringList lines, const QFontMetrics& metrics, int wrapWidthPx, int heightPx);

/// Height available to the text on a screen; the rest is for title bar, margins and buttons.
int MsgTextHeightPx(int screenHeightPx);

} // namespace tarvik
