// app/help/helpSeal.h: the seal at the end of the help book, which detects damage before the book is unpacked.
#pragma once

#include <QByteArray>
#include <QCryptographicHash>

namespace tarvik {

/// The bytes after `content`: a mark and the SHA-256 of the content. Other readers of such books ignore them.
inline QByteArray HelpSeal(const QByteArray& content)
{
    return QByteArray("TarvikHelpSeal01") + QCryptographicHash::hash(content, QCryptographicHash::Sha256);
}

inline constexpr qsizetype kHelpSealSize = 16 + 32;

} // namespace tarvik
