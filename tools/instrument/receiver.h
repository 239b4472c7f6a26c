// tools/instrument/receiver.h: simulates reception: scans the memory list and draws the display.
#pragma once

#include "tools/instrument/screenPicture.h"
#include "tools/instrument/storage.h"

#include <QElapsedTimer>

#include <string>

namespace tarvik {

class Receiver {
public:
    /// `storage` contains the memory list and must outlive this.
    Receiver(const Storage& storage, QString model);

    /// The current display as a PNG file. No two are equal.
    std::string FetchScreen();

private:
    ScreenContent Content();

    const Storage& storage_;
    QString model_;
    QElapsedTimer running_;
    SweepNumber lastSweep_ = 0;
};

/// The used entries of the memory list that are not suppressed. Empty without a readable list.
std::vector<Carrier> ReadCarriers(const Storage& storage);

/// `picture` as a PNG file; empty if that fails.
std::string PngOf(const QImage& picture);

} // namespace tarvik
