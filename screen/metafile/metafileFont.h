// screen/metafile/metafileFont.h: fonts of a metafile and the characters of its texts.
#pragma once

#include "screen/metafile/metafileContext.h"

#include <QFont>
#include <QFontMetricsF>

namespace tarvik {

/// Pixels that writing a letter costs beside those of its size.
inline constexpr qint64 kMetafileLetterWork = 256;

/// The font of the state, in pixels.
struct MetafileFontFace {
    QFont Font;
    QFontMetricsF Metrics;
    double Stretch = 1; ///< factor of all widths
    double Degrees = 0; ///< of the base line, counter-clockwise
    quint8 CharacterSet = 0;
    bool Symbols = false; ///< Greek letters and signs in place of the bytes' own
};

MetafileFontFace FaceOf(const MetafileContext& context);

/// The bytes of a text, one character each.
QVector<QByteArray> SplitCharacters(const QByteArray& bytes, quint8 characterSet);

QString DecodeMetafileText(const QByteArray& bytes, const MetafileFontFace& face);

} // namespace tarvik
