#include "tools/examples/plans.h"

#include "tools/examples/receptions.h"
#include "tools/examples/tables.h"

namespace tarvik {

namespace {

constexpr double kKilohertz = 1000.0;

QString Megahertz(double frequencyHz, int decimals)
{
    return QString::number(frequencyHz / 1e6, 'f', decimals);
}

QString TwoDigits(int number)
{
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
}

/// ECC Decision (15)05: 446.0 to 446.2 MHz in 16 channels of 12.5 kHz.
ChannelPlan Pmr446()
{
    ChannelPlan plan{ QStringLiteral("PMR446"), QStringLiteral("ECC Decision (15)05"), {} };
    for (int channel = 1; channel <= 16; ++channel)
        plan.Channels.push_back({ 446006250.0 + (channel - 1) * 12.5 * kKilohertz,
            QStringLiteral("PMR446 ch %1").arg(TwoDigits(channel)), &kNarrowFm12 });
    return plan;
}

/// Radio Regulations, Appendix 18: 25 kHz between the ships' frequencies of channels 60, 01, 61, 02 and so on; the
/// coast stations of two-frequency channels 4.6 MHz above.
double MarineShipHz(int channel)
{
    return channel < 60 ? 156050000.0 + (channel - 1) * 50 * kKilohertz
                        : 156025000.0 + (channel - 60) * 50 * kKilohertz;
}

bool MarineIsTwoFrequency(int channel)
{
    return channel <= 5 || channel == 7 || (channel >= 18 && channel <= 28) || (channel >= 60 && channel <= 66)
        || (channel >= 78 && channel <= 86);
}

void AddMarineChannel(ChannelPlan& plan, int channel)
{
    const QString name = QStringLiteral("Ch %1").arg(TwoDigits(channel));
    const double shipHz = MarineShipHz(channel);
    const auto withUse = [](const QString& text, const char* use) {
        return *use == '\0' ? text : text + QLatin1Char(' ') + QLatin1String(use);
    };
    if (!MarineIsTwoFrequency(channel)) {
        plan.Channels.push_back({ shipHz, withUse(name, MarineUse(channel)), &kNarrowFm15 });
        return;
    }
    plan.Channels.push_back({ shipHz, name + QStringLiteral(" ship"), &kNarrowFm15 });
    plan.Channels.push_back(
        { shipHz + 4600 * kKilohertz, withUse(name + QStringLiteral(" coast"), MarineUse(channel)), &kNarrowFm15 });
}

ChannelPlan MarineVhf()
{
    ChannelPlan plan{ QStringLiteral("Marine-VHF"), QStringLiteral("ITU Radio Regulations App. 18"), {} };
    for (int channel = 1; channel <= 28; ++channel)
        AddMarineChannel(plan, channel);
    for (int channel = 60; channel <= 88; ++channel)
        AddMarineChannel(plan, channel);
    plan.Channels.push_back({ 160900000.0, QStringLiteral("Ch 2006 autonomous devices"), &kNarrowFm15 });
    plan.Channels.push_back({ 161975000.0, QStringLiteral("AIS 1"), &kNarrowFm15 });
    plan.Channels.push_back({ 162025000.0, QStringLiteral("AIS 2"), &kNarrowFm15 });
    return plan;
}

/// ECC Decision (11)03: 40 channels, 10 kHz apart. The raster skips one place after channels 3, 7, 11, 15 and 19;
/// channel 23 follows 24 and 25.
double CbHz(int channel)
{
    if (channel == 23)
        return 27255000.0;
    if (channel == 24 || channel == 25)
        return 27235000.0 + (channel - 24) * 10 * kKilohertz;
    if (channel > 25)
        return 27265000.0 + (channel - 26) * 10 * kKilohertz;
    const int leftOut = channel / 4;
    return 26965000.0 + (channel - 1 + leftOut) * 10 * kKilohertz;
}

ChannelPlan Cb()
{
    ChannelPlan plan{ QStringLiteral("CB-CEPT"), QStringLiteral("ECC Decision (11)03"), {} };
    for (int channel = 1; channel <= 40; ++channel)
        plan.Channels.push_back({ CbHz(channel), QStringLiteral("CB ch %1").arg(TwoDigits(channel)), &kNarrowFm9 });
    return plan;
}

/// ICAO Annex 10, Volume V: 25 kHz apart from 118.000 to 136.975 MHz.
ChannelPlan Airband()
{
    ChannelPlan plan{ QStringLiteral("Airband-25kHz"), QStringLiteral("ICAO Annex 10 Volume V"), {} };
    for (int kilohertz = 118000; kilohertz < 137000; kilohertz += 25) {
        const double frequencyHz = kilohertz * kKilohertz;
        plan.Channels.push_back({ frequencyHz,
            QStringLiteral("Air %1%2").arg(Megahertz(frequencyHz, 3), QLatin1String(AirbandUse(frequencyHz))),
            &kAirbandAm });
    }
    return plan;
}

/// Recommendation ITU-R BS.412: integer multiples of 100 kHz.
ChannelPlan Broadcast()
{
    ChannelPlan plan{ QStringLiteral("FM-Broadcast"), QStringLiteral("Rec. ITU-R BS.412 87.5-108 MHz"), {} };
    for (int tenths = 875; tenths <= 1080; ++tenths)
        plan.Channels.push_back({ tenths * 100 * kKilohertz,
            QStringLiteral("FM %1").arg(Megahertz(tenths * 100 * kKilohertz, 1)), &kBroadcastFm });
    return plan;
}

/// ERC/REC 70-03, Annex 1: 433.05 to 434.79 MHz in channels of 25 kHz.
ChannelPlan ShortRange433()
{
    ChannelPlan plan{ QStringLiteral("SRD-433"), QStringLiteral("ERC/REC 70-03 433.05-434.79 MHz"), {} };
    for (int channel = 1; channel <= 69; ++channel)
        plan.Channels.push_back({ 433075000.0 + (channel - 1) * 25 * kKilohertz,
            QStringLiteral("SRD 433 ch %1").arg(TwoDigits(channel)), &kNarrowFm15 });
    return plan;
}

/// ERC/REC 70-03, Annexes 1 and 7: 868 to 870 MHz in channels of 25 kHz, each described by the use of its sub-band.
ChannelPlan ShortRange868()
{
    ChannelPlan plan{ QStringLiteral("SRD-868"), QStringLiteral("ERC/REC 70-03 868-870 MHz"), {} };
    for (int channel = 0; channel < 80; ++channel) {
        const double frequencyHz = 868012500.0 + channel * 25 * kKilohertz;
        plan.Channels.push_back({ frequencyHz,
            QStringLiteral("%1 %2").arg(Megahertz(frequencyHz, 4), QLatin1String(ShortRange868Use(frequencyHz))),
            &kNarrowFm15 });
    }
    return plan;
}

ChannelPlan PlanOfTable(const QString& name, const QString& description, const std::vector<TableRow>& rows)
{
    ChannelPlan plan{ name, description, {} };
    for (const TableRow& row : rows)
        plan.Channels.push_back({ row.Kilohertz * kKilohertz, QLatin1String(row.Description), row.Settings });
    return plan;
}

void Append(ChannelPlan& plan, const ChannelPlan& other)
{
    plan.Channels.insert(plan.Channels.end(), other.Channels.begin(), other.Channels.end());
}

/// Fills a memory list completely: whole services, and the two AIS channels.
ChannelPlan Full()
{
    ChannelPlan plan{ QStringLiteral("Full-1024"), QStringLiteral("Airband broadcast CB PMR446 AIS"), {} };
    for (const ChannelPlan& part : { Airband(), Broadcast(), Cb(), Pmr446() })
        Append(plan, part);
    const ChannelPlan marine = MarineVhf();
    plan.Channels.insert(plan.Channels.end(), marine.Channels.end() - 2, marine.Channels.end());
    return plan;
}

} // namespace

std::vector<ChannelPlan> AllPlans()
{
    return { Pmr446(), MarineVhf(), Cb(), Airband(), Broadcast(), ShortRange433(), ShortRange868(),
        PlanOfTable(QStringLiteral("Distress"), QStringLiteral("ITU Radio Regulations App. 15"), DistressTable()),
        PlanOfTable(QStringLiteral("Time-Signals"), QStringLiteral("Rec. ITU-R TF.768"), TimeSignalTable()), Full() };
}

MemoryTable TableOfPlan(const ChannelPlan& plan, const MemoryTable& empty)
{
    MemoryTable table = empty;
    table.MemoryListName = plan.Name;
    table.MemoryListDescription = plan.Description;
    int row = 0;
    for (const Channel& channel : plan.Channels) {
        MemoryRecord& record = table.Row(row);
        record.Used = true;
        record.Number = static_cast<std::int16_t>(row);
        record.Frequency = channel.FrequencyHz;
        record.Description = channel.Description;
        record.Demodulation = channel.Settings->Demodulation;
        record.Bandwidth = channel.Settings->Bandwidth;
        record.SquelchStatus = channel.Settings->SquelchStatus;
        record.SquelchLevel = 10;
        record.AntennaNumber = 1;
        record.DfSquelchLevel = 10;
        record.DfMeasurementTime = 0.2;
        record.FrequencySpan = channel.Settings->FrequencySpan;
        record.DfStep = channel.Settings->DfStep;
        record.DfBandwidth = channel.Settings->DfBandwidth;
        ++row;
    }
    return table;
}

} // namespace tarvik
