// app/text/lang.h: every text by number, from the language module, with the macros inside texts expanded.
#pragma once

#include "app/text/textNumber.h"

#include <QString>

namespace tarvik {

/// Text `id`; empty for a number without text. The forms with arguments fill %1 and %2; what an argument holds is shown
/// as it is, in any script and with any "@" in it.
QString LngStr(TextNumber<0> id);
QString LngStr1(TextNumber<1> id, const QString& arg);
QString LngStr2(TextNumber<2> id, const QString& arg1, const QString& arg2);

/// Replaces "@1" to "@5", also inside the replacements; any other "@" stays, and so does a pair inside a replacement
/// that leads back to itself. Used after every fetch.
QString LngExpandMacros(const QString& text);

/// Takes the first "&&" out of a caption.
QString LngUnescapeMenu(const QString& text);

/// Adjustments of a control's place and size for a language with longer words, in twips.
struct GeometryAdjustment {
    int Count = 0; ///< how many of the four exist; a control asks for 3 or 4 of them
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;
};

/// The adjustments of the control that bears text `id`.
GeometryAdjustment LngCtrlSize(TextNumber<0> id);

} // namespace tarvik
