// link/classes/textRules.h: the characters that a list's name and free texts may contain.
#pragma once

#include <QByteArrayView>
#include <QString>

namespace tarvik {

inline constexpr int kTextLength = 32; ///< longest name and description of a list, and longest text of a record

/// 1 to 32 characters, all safe in a file name on the PC and on the instrument.
bool ValidNameChars(const QString& name);

/// `ValidNameChars`, else message 12766; not the reserved word "none" in any case, else 12770. Both messages contain
/// the noun of the current file class.
[[nodiscard]] bool ValidListName(const QString& name);

/// None of the characters that a CSV file can't contain (double quote, semicolon, apostrophe, comma), no control
/// character but the tab, and none of the five that Windows-1252 leaves unassigned. No message.
bool ValidText(const QString& text);
bool ValidText(QByteArrayView text);

} // namespace tarvik
