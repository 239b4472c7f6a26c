#include "tools/examples/bands.h"

#include <span>

namespace tarvik {

namespace {

struct Band {
    double StartKhz;
    double StopKhz;
    std::int16_t Include;
    const char* Description;
};

/// ITU Radio Regulations, Article 5, Region 1, bands allocated to broadcasting; the plans are GE75 for long and medium
/// wave, GE84 for band II, GE06 for band III and UHF. UHF ends where Decision (EU) 2017/899 begins mobile use.
constexpr Band kBroadcast[] = {
    { 148.5, 283.5, kInclude, "LW GE75" },
    { 526.5, 1606.5, kInclude, "MW GE75" },
    { 3950, 4000, kInclude, "SW 75 m" },
    { 5900, 6200, kInclude, "SW 49 m" },
    { 7200, 7450, kInclude, "SW 41 m" },
    { 9400, 9900, kInclude, "SW 31 m" },
    { 11600, 12100, kInclude, "SW 25 m" },
    { 13570, 13870, kInclude, "SW 22 m" },
    { 15100, 15800, kInclude, "SW 19 m" },
    { 17480, 17900, kInclude, "SW 16 m" },
    { 18900, 19020, kInclude, "SW 15 m" },
    { 21450, 21850, kInclude, "SW 13 m" },
    { 25670, 26100, kInclude, "SW 11 m" },
    { 87500, 108000, kInclude, "FM band II GE84" },
    { 174000, 230000, kInclude, "DAB band III GE06" },
    { 470000, 694000, kInclude, "DVB-T UHF GE06" },
};

/// Frequency arrangements of the decisions of the ECC, with the numbers of 3GPP TS 38.104 for the bands. What base
/// stations transmit is suppressed; what mobile stations transmit is listed, but not.
constexpr Band kCellular[] = {
    { 703000, 733000, kExclude, "n28 up ECC/DEC/(15)01" },
    { 738000, 758000, kInclude, "n67 down ECC/DEC/(15)01" },
    { 758000, 788000, kInclude, "n28 down ECC/DEC/(15)01" },
    { 791000, 821000, kInclude, "n20 down ECC/DEC/(09)03" },
    { 832000, 862000, kExclude, "n20 up ECC/DEC/(09)03" },
    { 880000, 915000, kExclude, "n8 up ECC/DEC/(06)13" },
    { 925000, 960000, kInclude, "n8 down ECC/DEC/(06)13" },
    { 1452000, 1492000, kInclude, "n75 down ECC/DEC/(13)03" },
    { 1710000, 1785000, kExclude, "n3 up ECC/DEC/(06)13" },
    { 1805000, 1880000, kInclude, "n3 down ECC/DEC/(06)13" },
    { 1920000, 1980000, kExclude, "n1 up ECC/DEC/(06)01" },
    { 2110000, 2170000, kInclude, "n1 down ECC/DEC/(06)01" },
    { 2300000, 2400000, kInclude, "n40 both ECC/DEC/(14)02" },
    { 2500000, 2570000, kExclude, "n7 up ECC/DEC/(05)05" },
    { 2570000, 2620000, kInclude, "n38 both ECC/DEC/(05)05" },
    { 2620000, 2690000, kInclude, "n7 down ECC/DEC/(05)05" },
    { 3400000, 3800000, kInclude, "n78 both ECC/DEC/(11)06" },
};

SuppressTable TableOfBands(const QString& name, const QString& description, std::span<const Band> bands)
{
    SuppressTable table;
    table.Name = name;
    table.Description = description;
    int row = 0;
    for (const Band& band : bands)
        table.Row(row++) = { true, band.Include, band.StartKhz * 1000, band.StopKhz * 1000,
            QString::fromLatin1(band.Description) };
    return table;
}

} // namespace

std::vector<SuppressTable> AllBandLists()
{
    return { TableOfBands(QStringLiteral("Broadcast-Bands"), QStringLiteral("ITU Region 1"), kBroadcast),
        TableOfBands(QStringLiteral("Cellular-Bands"), QStringLiteral("CEPT"), kCellular) };
}

} // namespace tarvik
