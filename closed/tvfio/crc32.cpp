#include "closed/tvfio/crc32.h"

#include <array>

namespace tvfio {

namespace {

constexpr uint32_t kPolynomial = 0xEDB88320U;
constexpr size_t kSlices = 16;
using CrcTable = std::array<std::array<uint32_t, 256>, kSlices>;

/// Table k holds the sum of a byte with k zero bytes behind it, so that sixteen bytes take one step.
constexpr CrcTable MakeTable()
{
    CrcTable table{};
    for (uint32_t byte = 0; byte < 256; ++byte) {
        uint32_t sum = byte;
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum >> 1) ^ ((sum & 1U) != 0 ? kPolynomial : 0U);
        table[0][byte] = sum;
    }
    for (size_t slice = 1; slice < kSlices; ++slice) {
        for (uint32_t byte = 0; byte < 256; ++byte) {
            const uint32_t before = table[slice - 1][byte];
            table[slice][byte] = (before >> 8) ^ table[0][before & 0xFFU];
        }
    }
    return table;
}

constexpr CrcTable kTable = MakeTable();

} // namespace

uint32_t Crc32(ByteView bytes, uint32_t previous)
{
    uint32_t sum = ~previous;
    size_t at = 0;
    for (; at + kSlices <= bytes.size(); at += kSlices) {
        const uint32_t first = sum;
        sum = 0;
        for (size_t i = 0; i < sizeof first; ++i)
            sum ^= kTable[kSlices - 1 - i][(bytes[at + i] ^ (first >> (8 * i))) & 0xFFU];
        for (size_t i = sizeof first; i < kSlices; ++i)
            sum ^= kTable[kSlices - 1 - i][bytes[at + i]];
    }
    for (; at < bytes.size(); ++at)
        sum = (sum >> 8) ^ kTable[0][(sum ^ bytes[at]) & 0xFFU];
    return ~sum;
}

} // namespace tvfio
