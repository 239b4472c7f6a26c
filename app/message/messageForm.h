// app/message/messageForm.h: the message form's rules: which buttons a style has, what each answers, how wide things
// are.
#pragma once

#include "app/message/message.h"

#include <QSize>

#include <vector>

class QFontMetrics;

namespace tarvik {

enum class MsgButton { Ok, Yes, YesAll, No, NoAll, Cancel };
inline constexpr int kMsgButtonCount = 6;

/// The given name of a button and the number of its text.
struct MsgButtonInfo {
    const char* Name;
    int Text;
};
MsgButtonInfo MsgButtonInfoOf(MsgButton button);

/// Buttons of a style, left to right. A set that does not exist shows a single OK.
std::vector<MsgButton> MsgButtonSet(int style);

/// True for the one set that the system menu may close.
bool MsgMayClose(int style);

/// Stores what pressing `button` answers.
void MsgAnswer(MessageRequest& request, MsgButton button);

/// What a character key answers that is typed while OK has the focus.
inline constexpr int kMsgResultOfCharacter = MsgResultCancel;

inline constexpr int kMsgGapPx = 16; ///< between two buttons, and each margin of the row

/// Width of the button row with its margins.
int MsgRowWidthPx(const std::vector<int>& buttonWidthsPx);

/// The text wraps at this width.
int MsgWrapWidthPx(int screenWidthPx);

/// `text` with break marks put into words that are wider than `widthPx`, so that a long path wraps too.
QString MsgBreakLongWords(const QString& text, const QFontMetrics& metrics, int widthPx);

/// `text`, cut behind the last character that still fits `heightPx` when wrapped and then ended by "...", as one sign;
/// a text that fits comes back as it is. Keeps the buttons on the screen under a text without end.
QString MsgCutToHeight(const QString& text, const QFontMetrics& metrics, int wrapWidthPx, int heightPx);

/// Height that a screen leaves to the text; the rest is for title bar, margins and buttons.
int MsgTextHeightPx(int screenHeightPx);

/// Size of the wrapped text: no wider than needed, as high as its lines.
QSize MsgTextSize(const QString& text, const QFontMetrics& metrics, int wrapWidthPx);

} // namespace tarvik
