// tools/examples/receptions.h: receiver settings for each kind of signal, as codes of lists/values/translate.h.
#pragma once

#include <cstdint>

namespace tarvik {

/// All settings of a channel but frequency, number and description.
struct Reception {
    std::int16_t Demodulation;
    std::int16_t Bandwidth;
    std::int16_t SquelchStatus;
    std::int16_t FrequencySpan;
    std::int16_t DfStep;
    std::int32_t DfBandwidth;
};

inline constexpr Reception kNarrowFm15{ 0, 8, 1, 3, 19, 21 }; ///< FM 15 kHz; 100 kHz by 1.25 kHz, DF 15 kHz
inline constexpr Reception kNarrowFm12{ 0, 7, 1, 3, 19, 20 }; ///< FM 12 kHz; 100 kHz by 1.25 kHz, DF 12.5 kHz
inline constexpr Reception kNarrowFm9{ 0, 6, 1, 3, 19, 18 }; ///< FM 9 kHz; 100 kHz by 1.25 kHz, DF 9 kHz
inline constexpr Reception kBeaconFm{ 0, 5, 0, 2, 14, 16 }; ///< FM 6 kHz; 50 kHz by 250 Hz, DF 6 kHz
inline constexpr Reception kBroadcastFm{ 0, 12, 0, 6, 27, 28 }; ///< FM 150 kHz; 1 MHz by 12.5 kHz, DF 150 kHz
inline constexpr Reception kAirbandAm{ 1, 8, 1, 3, 19, 21 }; ///< AM 15 kHz: carriers of one channel may be offset
inline constexpr Reception kShortwaveAm{ 1, 5, 0, 1, 11, 16 }; ///< AM 6 kHz; 20 kHz by 100 Hz, DF 6 kHz
inline constexpr Reception kUpperSideband{ 5, 4, 0, 0, 9, 12 }; ///< USB 2.4 kHz; 10 kHz by 50 Hz, DF 2.4 kHz
inline constexpr Reception kKeyed600{ 4, 2, 0, 0, 6, 7 }; ///< CW 600 Hz: keyed carriers and narrow shift keying
inline constexpr Reception kKeyed300{ 4, 1, 0, 0, 6, 4 }; ///< CW 300 Hz; 10 kHz by 20 Hz, DF 300 Hz

} // namespace tarvik
