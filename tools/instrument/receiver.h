// tools/instrument/receiver.h: the receiver at work: it scans its memory list and shows what it hears.
#pragma once

#include "tools/instrument/screenPicture.h"
#include "tools/instrument/storage.h"

#include <QElapsedTimer>

#include <string>

namespace tarvik {

class Receiver {
public:
    /// `storage` holds the memory list and stays the caller's.
    Receiver(const Storage& storage, QString model);

    /// The display of this moment as a PNG file. No two are the same.
    std::string FetchScreen();

private:
    ScreenContent Content();

    const Storage& storage_;
    QString model_;
    QElapsedTimer running_;
    SweepNumber lastSweep_ = 0;
};

/// The used entries of the memory list, suppressed ones left out. Empty without a list that can be read.
std::vector<Carrier> ReadCarriers(const Storage& storage);

/// `picture` as a PNG file; empty if that fails.
std::string PngOf(const QImage& picture);

} // namespace tarvik
