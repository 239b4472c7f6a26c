// app/text/lang.h: texts by number from the language module, with their macros expanded.
#pragma once

#include "app/text/textNumber.h"

#include <QString>

namespace tarvik {

/// Text `id`; empty for a number without text. The variants with arguments fill %1 and %2; arguments appear unchanged,
/// in any script and with any "@".
QString LngStr(TextNumber<0> id);
QString LngStr1(TextNumber<1> id, const QString& arg);
QString LngStr2(TextNumber<2> id, const QString& arg1, const QString& arg2);

/// Replaces the macros "@1" to "@5", also inside replacements. Any other "@" stays, and so does a macro inside its own
/// replacement. Applied to every text.
QString LngExpandMacros(const QString& text);

/// Removes the first "&&" from a caption.
QString LngUnescapeMenu(const QString& text);

/// Adjustments of a control's position and size for a language with longer words, in twips.
struct GeometryAdjustment {
    int Count = 0; ///< how many of the four exist; a control needs 3 or 4
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;
};

/// The adjustments of the control with text `id`.
GeometryAdjustment LngCtrlSize(TextNumber<0> id);

} // namespace tarvik
