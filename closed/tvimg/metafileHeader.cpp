#include "closed/tvimg/metafileHeader.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tvimg {

namespace {

constexpr uint32_t kPlaceableKey = 0x9AC6CDD7;
constexpr size_t kPlaceableBytes = 22;
constexpr size_t kHeaderBytes = 18;
constexpr uint16_t kHeaderWords = 9;
constexpr int kPixelsPerInch = 96;

constexpr size_t kRecordHeaderBytes = 6;
constexpr uint16_t kEndOfFile = 0x0000;
constexpr uint16_t kSetMapMode = 0x0103;
constexpr uint16_t kSetWindowExtent = 0x020C;

/// Pixels of one logical unit in the mapping modes 1 to 8. The last two have no unit of their own.
constexpr std::array<double, 8> kPixelsPerUnit{ 1, kPixelsPerInch / 254.0, kPixelsPerInch / 2540.0,
    kPixelsPerInch / 100.0, kPixelsPerInch / 1000.0, kPixelsPerInch / 1440.0, 1, 1 };

int16_t Coordinate(ByteView bytes, size_t at)
{
    return static_cast<int16_t>(Word(bytes, at));
}

/// Half a pixel or less is a pixel: nothing that is there disappears.
int64_t Pixels(int units, double pixelsPerUnit)
{
    const int64_t pixels = std::llround(std::abs(units) * pixelsPerUnit);
    return units == 0 ? 0 : std::max<int64_t>(pixels, 1);
}

bool IsHeader(ByteView bytes)
{
    return bytes.size() >= kHeaderBytes && (Word(bytes, 0) == 1 || Word(bytes, 0) == 2)
        && Word(bytes, 2) == kHeaderWords && (Word(bytes, 4) == 0x0100 || Word(bytes, 4) == 0x0300);
}

bool IsPlaceable(ByteView head)
{
    return head.size() >= kPlaceableBytes && DoubleWord(head, 0) == kPlaceableKey;
}

std::optional<PictureSize> PlaceableSize(ByteView head)
{
    const uint16_t unitsPerInch = Word(head, 14);
    if (unitsPerInch == 0)
        return std::nullopt;
    const double pixelsPerUnit = double{ kPixelsPerInch } / unitsPerInch;
    return PictureSize{ Pixels(Coordinate(head, 10) - Coordinate(head, 6), pixelsPerUnit),
        Pixels(Coordinate(head, 12) - Coordinate(head, 8), pixelsPerUnit) };
}

/// The first window extent among the records.
std::optional<PictureSize> WindowExtent(ByteView records)
{
    double pixelsPerUnit = 1;
    while (records.size() >= kRecordHeaderBytes) {
        const uint64_t recordBytes = uint64_t{ DoubleWord(records, 0) } * 2;
        const uint16_t function = Word(records, 4);
        if (recordBytes < kRecordHeaderBytes || recordBytes > records.size() || function == kEndOfFile)
            break;
        if (function == kSetMapMode && recordBytes >= kRecordHeaderBytes + 2) {
            const uint16_t mode = Word(records, kRecordHeaderBytes);
            pixelsPerUnit = mode >= 1 && mode <= kPixelsPerUnit.size() ? kPixelsPerUnit[mode - 1U] : pixelsPerUnit;
        }
        // The height stands first.
        if (function == kSetWindowExtent && recordBytes >= kRecordHeaderBytes + 4)
            return PictureSize{ Pixels(Coordinate(records, kRecordHeaderBytes + 2), pixelsPerUnit),
                Pixels(Coordinate(records, kRecordHeaderBytes), pixelsPerUnit) };
        records = records.subspan(recordBytes);
    }
    return std::nullopt;
}

} // namespace

bool IsMetafile(ByteView head)
{
    return IsPlaceable(head) || IsHeader(head);
}

std::optional<PictureSize> MetafileSize(ByteView head)
{
    if (!IsPlaceable(head))
        return WindowExtent(head.subspan(kHeaderBytes));
    return IsHeader(head.subspan(kPlaceableBytes)) ? PlaceableSize(head) : std::nullopt;
}

} // namespace tvimg
