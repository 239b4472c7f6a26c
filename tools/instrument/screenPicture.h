// tools/instrument/screenPicture.h: the receiver's display as a picture.
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
    SweepNumber Sweep = 0; ///< the newest one
    QDateTime Now;
};

/// The same content gives the same picture. Needs a QGuiApplication, for its fonts.
QImage DrawScreen(const ScreenContent& content);

/// The text of a demodulation code.
QString DemodulationText(int code);

/// A frequency in MHz with groups of three digits: `156.800 000`.
QString FrequencyText(double frequencyHz);

/// A width with the unit that suits it: `12.5 kHz`.
QString WidthText(double widthHz);

} // namespace tarvik
