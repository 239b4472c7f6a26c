// The channel plans of examples/, compared with the standards, and all files in the tree with the generator.
#include "closed/loader.h"
#include "link/classes/model.h"
#include "link/classes/textRules.h"
#include "lists/memory/memoryList.h"
#include "lists/values/limits.h"
#include "tests/support/fixture.h"
#include "tools/examples/plans.h"

#include <QDir>
#include <QProcess>

#include <algorithm>
#include <map>
#include <set>

namespace tarvik {

namespace {

class Examples : public ProgramTest {
protected:
    void SetUp() override
    {
        ReadInstrumentLimits();
        ModFileInit(FileClassMemoryList);
    }

    static ChannelPlan Plan(const QString& name)
    {
        for (ChannelPlan& plan : AllPlans()) {
            if (plan.Name == name)
                return std::move(plan);
        }
        ADD_FAILURE() << "no plan " << name.toStdString();
        return {};
    }

    static std::map<QString, double> ByDescription(const ChannelPlan& plan)
    {
        std::map<QString, double> channels;
        for (const Channel& channel : plan.Channels)
            EXPECT_TRUE(channels.emplace(channel.Description, channel.FrequencyHz).second)
                << channel.Description.toStdString();
        return channels;
    }

    static std::set<double> Frequencies(const ChannelPlan& plan)
    {
        std::set<double> frequencies;
        for (const Channel& channel : plan.Channels)
            EXPECT_TRUE(frequencies.insert(channel.FrequencyHz).second) << channel.FrequencyHz;
        return frequencies;
    }
};

} // namespace

TEST_F(Examples, Pmr446HasSixteenChannels)
{
    const auto channels = ByDescription(Plan("PMR446"));
    EXPECT_EQ(channels.size(), 16u);
    EXPECT_EQ(channels.at("PMR446 ch 01"), 446006250);
    EXPECT_EQ(channels.at("PMR446 ch 08"), 446093750);
    EXPECT_EQ(channels.at("PMR446 ch 16"), 446193750);
}

TEST_F(Examples, MarineChannelsMatchRadioRegulations)
{
    const auto channels = ByDescription(Plan("Marine-VHF"));
    EXPECT_EQ(channels.size(), 93u);
    const std::map<QString, double> expected{ { "Ch 01 ship", 156050000 }, { "Ch 01 coast", 160650000 },
        { "Ch 05 coast", 160850000 }, { "Ch 06 intership and SAR", 156300000 }, { "Ch 07 ship", 156350000 },
        { "Ch 07 coast", 160950000 }, { "Ch 08 intership", 156400000 }, { "Ch 09", 156450000 },
        { "Ch 13 navigation safety", 156650000 }, { "Ch 16 distress and calling", 156800000 },
        { "Ch 17 on-board", 156850000 }, { "Ch 18 ship", 156900000 }, { "Ch 18 coast", 161500000 },
        { "Ch 28 ship", 157400000 }, { "Ch 28 coast ASM 2", 162000000 }, { "Ch 27 coast ASM 1", 161950000 },
        { "Ch 60 ship", 156025000 }, { "Ch 60 coast", 160625000 }, { "Ch 66 coast", 160925000 }, { "Ch 67", 156375000 },
        { "Ch 70 DSC", 156525000 }, { "Ch 77 intership", 156875000 }, { "Ch 78 ship", 156925000 },
        { "Ch 78 coast", 161525000 }, { "Ch 86 ship", 157325000 }, { "Ch 86 coast", 161925000 }, { "Ch 87", 157375000 },
        { "Ch 88", 157425000 }, { "Ch 2006 autonomous devices", 160900000 }, { "AIS 1", 161975000 },
        { "AIS 2", 162025000 } };
    for (const auto& [description, frequencyHz] : expected) {
        const auto found = channels.find(description);
        ASSERT_NE(found, channels.end()) << description.toStdString();
        EXPECT_EQ(found->second, frequencyHz) << description.toStdString();
    }
}

TEST_F(Examples, MarineFrequenciesAreUnique)
{
    EXPECT_EQ(Frequencies(Plan("Marine-VHF")).size(), 93u);
}

TEST_F(Examples, CbChannelsFollowTableWithGapsAndMisplacedChannel)
{
    const std::vector<int> expectedKhz{ 26965, 26975, 26985, 27005, 27015, 27025, 27035, 27055, 27065, 27075, 27085,
        27105, 27115, 27125, 27135, 27155, 27165, 27175, 27185, 27205, 27215, 27225, 27255, 27235, 27245, 27265, 27275,
        27285, 27295, 27305, 27315, 27325, 27335, 27345, 27355, 27365, 27375, 27385, 27395, 27405 };
    const ChannelPlan plan = Plan("CB-CEPT");
    ASSERT_EQ(plan.Channels.size(), expectedKhz.size());
    for (size_t channel = 0; channel < expectedKhz.size(); ++channel)
        EXPECT_EQ(plan.Channels[channel].FrequencyHz, expectedKhz[channel] * 1000.0) << "channel " << channel + 1;
}

TEST_F(Examples, AirbandHas25KilohertzStepsUpToLastChannelBelow137Megahertz)
{
    const ChannelPlan plan = Plan("Airband-25kHz");
    ASSERT_EQ(plan.Channels.size(), 760u);
    EXPECT_EQ(plan.Channels.front().FrequencyHz, 118000000);
    EXPECT_EQ(plan.Channels[1].FrequencyHz, 118025000);
    EXPECT_EQ(plan.Channels.back().FrequencyHz, 136975000);
    EXPECT_EQ(ByDescription(plan).at("Air 121.500 emergency"), 121500000);
}

TEST_F(Examples, BroadcastRasterIs100Kilohertz)
{
    const ChannelPlan plan = Plan("FM-Broadcast");
    ASSERT_EQ(plan.Channels.size(), 206u);
    EXPECT_EQ(plan.Channels.front().FrequencyHz, 87500000);
    EXPECT_EQ(plan.Channels.back().FrequencyHz, 108000000);
    EXPECT_EQ(ByDescription(plan).at("FM 99.9"), 99900000);
}

TEST_F(Examples, ShortRangeChannelsFillTheirBands)
{
    const ChannelPlan low = Plan("SRD-433");
    ASSERT_EQ(low.Channels.size(), 69u);
    EXPECT_EQ(low.Channels.front().FrequencyHz, 433075000);
    EXPECT_EQ(low.Channels.back().FrequencyHz, 434775000);
    const auto high = ByDescription(Plan("SRD-868"));
    EXPECT_EQ(high.size(), 80u);
    EXPECT_EQ(high.at("868.0125 non-specific"), 868012500);
    EXPECT_EQ(high.at("868.6125 alarms"), 868612500);
    EXPECT_EQ(high.at("869.2125 social alarms"), 869212500);
    EXPECT_EQ(high.at("869.5125 non-specific"), 869512500);
    EXPECT_EQ(high.at("869.6625 alarms"), 869662500);
    EXPECT_EQ(high.at("869.9875 non-specific"), 869987500);
}

TEST_F(Examples, DistressListContainsDistressFrequencies)
{
    const std::set<double> frequencies = Frequencies(Plan("Distress"));
    for (const double khz : { 490.0, 518.0, 2182.0, 2187.5, 4125.0, 4207.5, 6215.0, 6312.0, 8291.0, 8414.5, 12290.0,
             12577.0, 16420.0, 16804.5, 121500.0, 156525.0, 156800.0, 243000.0, 406025.0, 406028.0, 406040.0 })
        EXPECT_TRUE(frequencies.contains(khz * 1000)) << khz;
}

TEST_F(Examples, TimeSignalsAreOnTheirCarriers)
{
    const std::set<double> frequencies = Frequencies(Plan("Time-Signals"));
    for (const double khz : { 40.0, 60.0, 77.5, 162.0, 2500.0, 3330.0, 4996.0, 5000.0, 7850.0, 9996.0, 10000.0, 14670.0,
             14996.0, 15000.0, 20000.0 })
        EXPECT_TRUE(frequencies.contains(khz * 1000)) << khz;
}

TEST_F(Examples, FullListFillsEveryRow)
{
    EXPECT_EQ(Plan("Full-1024").Channels.size(), 1024u);
    EXPECT_EQ(Frequencies(Plan("Full-1024")).size(), 1024u);
}

TEST_F(Examples, EveryEntryObeysRulesOfList)
{
    for (const ChannelPlan& plan : AllPlans()) {
        EXPECT_TRUE(ValidListName(plan.Name)) << plan.Name.toStdString();
        EXPECT_TRUE(ValidText(plan.Description) && plan.Description.size() <= kTextLength)
            << plan.Description.toStdString();
        for (const Channel& channel : plan.Channels) {
            const Reception& settings = *channel.Settings;
            EXPECT_TRUE(ValidText(channel.Description) && channel.Description.size() <= kTextLength)
                << channel.Description.toStdString();
            EXPECT_NE(TvFio().CheckBandwidthAndDemodulation(settings.Bandwidth, settings.Demodulation), 0);
            EXPECT_NE(TvFio().CheckIfPanSpanAndIfPanStep(settings.FrequencySpan, settings.DfStep), 0);
        }
    }
}

TEST_F(Examples, FilesInTreeMatchGenerator)
{
    QProcess generator;
    generator.start(QStringLiteral(TARVIK_EXAMPLES), { Folder() });
    ASSERT_TRUE(generator.waitForFinished(60000));
    ASSERT_EQ(generator.exitCode(), 0) << generator.readAllStandardError().toStdString();
    const QStringList filter{ "*.tv?", "*.csv" };
    const auto filesIn = [&filter](const QString& folder) { return QDir(folder).entryList(filter, QDir::Files); };
    for (const auto& [folder, count] : { std::pair{ QString(), 24 }, { QStringLiteral("antennas/"), 14 } }) {
        const QString inTree = QStringLiteral(EXAMPLES_FOLDER "/") + folder;
        const QStringList written = filesIn(FilePath(folder));
        EXPECT_EQ(written.size(), count);
        EXPECT_EQ(filesIn(inTree), written);
        for (const QString& name : written)
            EXPECT_TRUE(Contents(FilePath(folder + name)) == Contents(inTree + name)) << name.toStdString();
    }
}

TEST_F(Examples, BothFormatsHoldSameList)
{
    for (const ChannelPlan& plan : AllPlans()) {
        MemoryTable fromBinary;
        MemoryTable fromCsv;
        const QString base = QStringLiteral(EXAMPLES_FOLDER "/") + plan.Name;
        ASSERT_TRUE(OpenMemoryList(base + QStringLiteral(".tvm"), fromBinary));
        ASSERT_TRUE(OpenMemoryList(base + QStringLiteral(".csv"), fromCsv));
        EXPECT_EQ(fromBinary.MemoryListName, plan.Name);
        EXPECT_TRUE(fromBinary == fromCsv) << plan.Name.toStdString();
    }
}

} // namespace tarvik
