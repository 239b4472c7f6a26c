// tools/instrument/screenPicture.h: draws the receiver's display.
#pragma once

#include "tools/instrument/spectrum.h"

#include <QDateTime>
#include <QImage>

namespace tarvik {

inline constexpr int kScreenWidthPx = 642;
inline constexpr int kScreenHeightPx = 442;

struct ScreenContent {
    QString Model;
    std::vector<Carrier> Carriers;
    Carrier Tuned;
    SweepNumber Sweep = 0; ///< the newest sweep
    QDateTime Now;
};

/// Deterministic. Needs a QGuiApplication for its fonts.
QImage DrawScreen(const ScreenContent& content);

/// The text of a demodulation code.
QString DemodulationText(int code);

/// A frequency in MHz with groups of three digits: `156.800 000`.
QString FrequencyText(double frequencyHz);

/// A width in a suitable unit: `12.5 kHz`.
QString WidthText(double widthHz);

} // namespace tarvik
