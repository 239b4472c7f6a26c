// link/classes/textRules.h: what a list's name and its free texts may hold.
#pragma once

#include <QByteArrayView>
#include <QString>

namespace tarvik {

inline constexpr int kTextLength = 32; ///< longest name and description of a list, and longest text of a record

/// 1 to 32 characters, all of them safe in a file name on the PC and on the instrument.
bool ValidNameChars(const QString& name);

/// `ValidNameChars`, else message 12766; and not the reserved word "none" in any case of letters, else 12770. Both
/// carry the noun of the present file class.
[[nodiscard]] bool ValidListName(const QString& name);

/// None of the four characters that a CSV file can't carry: double quote, semicolon, quote, comma. No message.
bool ValidText(const QString& text);
bool ValidText(QByteArrayView text);

} // namespace tarvik
