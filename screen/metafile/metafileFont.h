// screen/metafile/metafileFont.h: fonts of a metafile and decoding of its texts.
#pragma once

#include "screen/metafile/metafileContext.h"

#include <QFont>
#include <QFontMetricsF>

namespace tarvik {

/// Fixed cost of a character in pixels, besides its area.
inline constexpr qint64 kMetafileCharacterCost = 256;

/// The font of a state, in pixels.
struct MetafileFontFace {
    QFont Font;
    QFontMetricsF Metrics;
    double Stretch = 1; ///< factor for all widths
    double Degrees = 0; ///< direction of the baseline, counter-clockwise
    quint8 CharacterSet = 0;
    bool Symbols = false; ///< decode bytes as Greek letters and signs
};

MetafileFontFace FaceOf(const MetafileContext& context);

/// Splits a text into its characters, each of one or two bytes.
QVector<QByteArray> SplitCharacters(const QByteArray& bytes, quint8 characterSet);

QString DecodeMetafileText(const QByteArray& bytes, const MetafileFontFace& face);

} // namespace tarvik
