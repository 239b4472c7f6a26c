#include "tools/examples/tables.h"

namespace tarvik {

namespace {

struct NamedChannel {
    int Channel;
    const char* Use;
};

constexpr NamedChannel kMarineUses[] = {
    { 6, "intership and SAR" },
    { 8, "intership" },
    { 13, "navigation safety" },
    { 15, "on-board" },
    { 16, "distress and calling" },
    { 17, "on-board" },
    { 27, "ASM 1" },
    { 28, "ASM 2" },
    { 70, "DSC" },
    { 72, "intership" },
    { 75, "navigation" },
    { 76, "navigation" },
    { 77, "intership" },
};

constexpr NamedChannel kAirbandUses[] = {
    { 121500, " emergency" },
    { 123100, " auxiliary" },
    { 123450, " air to air" },
    { 136975, " VDL common" },
};

/// Upper edges of the sub-bands in kHz.
constexpr NamedChannel kShortRange868Uses[] = {
    { 868600, "non-specific" },
    { 868700, "alarms" },
    { 869200, "non-specific" },
    { 869250, "social alarms" },
    { 869400, "alarms" },
    { 869650, "non-specific" },
    { 869700, "alarms" },
    { 870000, "non-specific" },
};

} // namespace

const std::vector<TableRow>& DistressTable()
{
    static const std::vector<TableRow> rows{
        { 490, "NAVTEX national", &kKeyed600 },
        { 518, "NAVTEX", &kKeyed600 },
        { 2174.5, "Distress NBDP", &kKeyed600 },
        { 2182, "Distress voice", &kUpperSideband },
        { 2187.5, "Distress DSC", &kKeyed600 },
        { 3023, "SAR aircraft", &kUpperSideband },
        { 4125, "Distress voice", &kUpperSideband },
        { 4177.5, "Distress NBDP", &kKeyed600 },
        { 4207.5, "Distress DSC", &kKeyed600 },
        { 4209.5, "NAVTEX HF", &kKeyed600 },
        { 4210, "Safety information", &kKeyed600 },
        { 5680, "SAR aircraft", &kUpperSideband },
        { 6215, "Distress voice", &kUpperSideband },
        { 6268, "Distress NBDP", &kKeyed600 },
        { 6312, "Distress DSC", &kKeyed600 },
        { 6314, "Safety information", &kKeyed600 },
        { 8291, "Distress voice", &kUpperSideband },
        { 8364, "Survival craft", &kUpperSideband },
        { 8376.5, "Distress NBDP", &kKeyed600 },
        { 8414.5, "Distress DSC", &kKeyed600 },
        { 8416.5, "Safety information", &kKeyed600 },
        { 12290, "Distress voice", &kUpperSideband },
        { 12520, "Distress NBDP", &kKeyed600 },
        { 12577, "Distress DSC", &kKeyed600 },
        { 12579, "Safety information", &kKeyed600 },
        { 16420, "Distress voice", &kUpperSideband },
        { 16695, "Distress NBDP", &kKeyed600 },
        { 16804.5, "Distress DSC", &kKeyed600 },
        { 16806.5, "Safety information", &kKeyed600 },
        { 19680.5, "Safety information", &kKeyed600 },
        { 22376, "Safety information", &kKeyed600 },
        { 26100.5, "Safety information", &kKeyed600 },
        { 121500, "Aeronautical emergency", &kAirbandAm },
        { 123100, "Aeronautical auxiliary SAR", &kAirbandAm },
        { 156300, "Marine ch 06 SAR", &kNarrowFm15 },
        { 156525, "Marine ch 70 DSC", &kNarrowFm15 },
        { 156650, "Marine ch 13 navigation safety", &kNarrowFm15 },
        { 156800, "Marine ch 16 distress", &kNarrowFm15 },
        { 161975, "AIS 1 search and rescue", &kNarrowFm15 },
        { 162025, "AIS 2 search and rescue", &kNarrowFm15 },
        { 243000, "Survival craft", &kAirbandAm },
        { 406025, "Satellite beacon channel B", &kBeaconFm },
        { 406028, "Satellite beacon channel C", &kBeaconFm },
        { 406037, "Satellite beacon channel F", &kBeaconFm },
        { 406040, "Satellite beacon channel G", &kBeaconFm },
    };
    return rows;
}

const std::vector<TableRow>& TimeSignalTable()
{
    static const std::vector<TableRow> rows{
        { 40, "JJY Japan", &kKeyed300 },
        { 50, "RTZ Russia", &kKeyed300 },
        { 60, "MSF / WWVB / JJY", &kKeyed300 },
        { 68.5, "BPC China", &kKeyed300 },
        { 77.5, "DCF77 Germany", &kKeyed300 },
        { 162, "TDF France", &kKeyed300 },
        { 2500, "WWV / WWVH / BPM", &kShortwaveAm },
        { 3330, "CHU Canada", &kUpperSideband },
        { 4996, "RWM Russia", &kKeyed600 },
        { 5000, "WWV / WWVH / BPM / HLA", &kShortwaveAm },
        { 7850, "CHU Canada", &kUpperSideband },
        { 9996, "RWM Russia", &kKeyed600 },
        { 10000, "WWV / WWVH / BPM", &kShortwaveAm },
        { 14670, "CHU Canada", &kUpperSideband },
        { 14996, "RWM Russia", &kKeyed600 },
        { 15000, "WWV / WWVH / BPM", &kShortwaveAm },
        { 20000, "WWV United States", &kShortwaveAm },
        { 25000, "WWV experimental", &kShortwaveAm },
    };
    return rows;
}

const char* MarineUse(int channel)
{
    for (const NamedChannel& named : kMarineUses) {
        if (named.Channel == channel)
            return named.Use;
    }
    return "";
}

const char* AirbandUse(double frequencyHz)
{
    for (const NamedChannel& named : kAirbandUses) {
        if (named.Channel * 1000.0 == frequencyHz)
            return named.Use;
    }
    return "";
}

const char* ShortRange868Use(double frequencyHz)
{
    for (const NamedChannel& named : kShortRange868Uses) {
        if (frequencyHz < named.Channel * 1000.0)
            return named.Use;
    }
    return "";
}

} // namespace tarvik
