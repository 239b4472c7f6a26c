// app/help/helpSeal.h: the seal at the end of the help book, by which a damaged book is told before it is unpacked.
#pragma once

#include <QByteArray>
#include <QCryptographicHash>

namespace tarvik {

/// Bytes that stand behind `content`: a mark and the SHA-256 of the content. Readers of such books pass over them.
inline QByteArray HelpSeal(const QByteArray& content)
{
    return QByteArray("TarvikHelpSeal01") + QCryptographicHash::hash(content, QCryptographicHash::Sha256);
}

inline constexpr qsizetype kHelpSealSize = 16 + 32;

} // namespace tarvik
