#include "tests/lists/correction/correction_fixture.h"

#include "closed/loader.h"

#include <QFile>

namespace tarvik {

namespace {

class CorrSetTest : public CorrectionTest<ListTest> {
protected:
    void ExpectRefused(CorrBox box, int message, const QStringList& args)
    {
        Answers().Expect(message, args, Ok);
        CorrHeaderTexts texts = Texts;
        EXPECT_FALSE(CheckCorrBox(box, texts, set)) << message;
        Answers().Verify();
    }

    CorrSet set;
    CorrHeaderTexts Texts{ QStringLiteral("Mast"), QStringLiteral("Dipole"), QStringLiteral("Works"),
        QStringLiteral("7"), QStringLiteral("30"), QStringLiteral("1000") };
};

} // namespace

TEST_F(CorrSetTest, NewSetHasTheStoresDefaults)
{
    EXPECT_EQ(set.Header.Version, 1);
    EXPECT_EQ(set.Header.Year, 2012);
    EXPECT_EQ(set.Header.Month, 1);
    EXPECT_EQ(set.Header.Day, 1);
    EXPECT_STREQ(set.Identity.Text, "TARVIK_CORRECTIONFILE");
    const std::array<std::int32_t, 11> expected{ 4090, 1000, 1, 1, 1, 0, 1, 0, 1, 1, 0 };
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), set.Identity.Values));
    const CorrHeaderTexts texts = CorrHeaderTextsOf(set);
    EXPECT_EQ(texts.FileName, "");
    EXPECT_EQ(texts.AntennaCode, "0");
    EXPECT_EQ(texts.StartFrequency, "0");
    EXPECT_EQ(texts.StopFrequency, "0");
}

TEST_F(CorrSetTest, BoxesAreStoredInTheHeader)
{
    for (const CorrBox box : kCorrBoxes)
        EXPECT_TRUE(CheckCorrBox(box, Texts, set));
    EXPECT_EQ(set.FileName, "Mast");
    EXPECT_STREQ(set.Header.AntennaName, "Dipole");
    EXPECT_STREQ(set.Header.ManufacturerName, "Works");
    EXPECT_EQ(set.Header.AntennaCode, 7);
    EXPECT_EQ(set.Header.StartFrequencyHz, 30e6);
    EXPECT_EQ(set.Header.StopFrequencyHz, 1e9);
    EXPECT_EQ(Texts.StartFrequency, "30.000000");
}

TEST_F(CorrSetTest, BadBoxesHaveTheirMessages)
{
    Texts.AntennaName.clear();
    ExpectRefused(CorrBox::AntName, 12767, { QStringLiteral("Antenna") });
    Texts.AntennaCode = "x";
    ExpectRefused(CorrBox::AntCode, 12765, {});
    Texts.StartFrequency = "";
    ExpectRefused(CorrBox::StartFreq, 12765, {});
    Texts.StopFrequency = "?";
    ExpectRefused(CorrBox::StopFreq, 12765, {});
    Texts.ManufacturerName = "a;b";
    ExpectRefused(CorrBox::ManufacturerName, 12767, { QStringLiteral("Manufacturer") });
    Texts.FileName = "a.b";
    Answers().Expect(12766, { QStringLiteral("correction set") }, Ok);
    ExpectRefused(CorrBox::FileName, 12767, { QStringLiteral("correction set") });
    EXPECT_STREQ(set.Header.AntennaName, "");
}

TEST_F(CorrSetTest, ValuesAreClamped)
{
    Texts.AntennaCode = "999";
    Texts.StopFrequency = "9000";
    EXPECT_TRUE(CheckCorrBox(CorrBox::AntCode, Texts, set));
    EXPECT_TRUE(CheckCorrBox(CorrBox::StopFreq, Texts, set));
    EXPECT_EQ(set.Header.AntennaCode, 255);
    EXPECT_EQ(Texts.AntennaCode, "255");
    EXPECT_EQ(set.Header.StopFrequencyHz, 8e9);
}

TEST_F(CorrSetTest, FileHoldsHeaderTablesAndIdentity)
{
    const QString path = StoredSet("Mast.tvc");
    ASSERT_TRUE(LoadCorrSet(path, set));
    const CorrHeaderTexts texts = CorrHeaderTextsOf(set);
    EXPECT_EQ(texts.FileName, "Mast");
    EXPECT_EQ(texts.AntennaName, "Dipole");
    EXPECT_EQ(texts.StartFrequency, "30.5"); // the plain number, not the picture of a cell
    EXPECT_EQ(UsedCorrEntries(CorrTableId::KFactor, set.Records), 2);
    EXPECT_EQ(CorrAngles(set.Records, 1), (std::vector<double>{ 10, 20 }));
    EXPECT_STREQ(set.Identity.Text, "TARVIK_CORRECTIONFILE");
}

TEST_F(CorrSetTest, UnchangedFrequencyKeepsItsFraction)
{
    set.Header.StartFrequencyHz = 30000000.25;
    CorrHeaderTexts texts = CorrHeaderTextsOf(set);
    EXPECT_TRUE(CheckCorrBox(CorrBox::StartFreq, texts, set));
    EXPECT_EQ(set.Header.StartFrequencyHz, 30000000.25);
    EXPECT_TRUE(CheckCorrBox(CorrBox::StartFreq, texts, set)); // now shown as a cell shows it
    EXPECT_EQ(set.Header.StartFrequencyHz, 30000000.25);
}

TEST_F(CorrSetTest, UnreadableFileLeavesEmptySetWithoutMessage)
{
    ASSERT_TRUE(LoadCorrSet(StoredSet("Mast.tvc"), set));
    Store(FilePath("bad.tvc"), "no set");
    EXPECT_FALSE(LoadCorrSet(FilePath("bad.tvc"), set));
    EXPECT_EQ(set.FileName, "");
    EXPECT_EQ(UsedCorrEntries(CorrTableId::KFactor, set.Records), 0);
}

TEST_F(CorrSetTest, LoadingReleasesTheAnglesOfTheSetBefore)
{
    const QString path = StoredSet("Array 2.tvc");
    ASSERT_TRUE(LoadCorrSet(path, set));
    EXPECT_EQ(set.FileName, "Array 2");
    const std::int32_t first = set.Records.Azimuth[0].Angles;
    ASSERT_TRUE(LoadCorrSet(path, set));
    EXPECT_EQ(set.Records.Azimuth[0].Angles, first) << "the handle is free again";
}

TEST_F(CorrSetTest, FrequencyOutsideTheLimitsIsCorrectedEvenUnchanged)
{
    CorrHeaderTexts texts = CorrHeaderTextsOf(set);
    EXPECT_TRUE(CheckCorrBox(CorrBox::StopFreq, texts, set));
    EXPECT_EQ(set.Header.StopFrequencyHz, 8000);
    EXPECT_EQ(texts.StopFrequency, "0.008000");
}

TEST_F(CorrSetTest, VersionAndDateAreKeptFromTheFile)
{
    set.Header.Version = 3;
    set.Header.Year = 2026;
    set.Header.Month = 11;
    set.Header.Day = 22;
    ASSERT_TRUE(SetCorrHeader(set));
    ASSERT_TRUE(SaveCorrSet(FilePath("Dated.tvc")));
    ASSERT_TRUE(LoadCorrSet(StoredSet("Mast.tvc"), set));
    EXPECT_EQ(set.Header.Version, 1);
    ASSERT_TRUE(LoadCorrSet(FilePath("Dated.tvc"), set));
    for (const CorrBox box : kCorrBoxes)
        EXPECT_TRUE(CheckCorrBox(box, Texts, set));
    EXPECT_EQ(set.Header.Version, 3);
    EXPECT_EQ(set.Header.Year, 2026);
    EXPECT_EQ(set.Header.Month, 11);
    EXPECT_EQ(set.Header.Day, 22);
}

TEST_F(CorrSetTest, RefusedHeaderHasAPlainMessage)
{
    set.Header.StartFrequencyHz = qQNaN();
    Answers().Expect(11999, QStringList(), Ok);
    EXPECT_FALSE(SetCorrHeader(set));
    EXPECT_EQ(TheMessage().Text, "Error setting header");
}

TEST_F(CorrSetTest, SavingAsksBeforeReplacing)
{
    Store(FilePath("Mast.tvc"), "before");
    Answers().Expect(12734, { QStringLiteral("Mast.tvc") }, No);
    EXPECT_FALSE(SaveCorrSet(FilePath("Mast.tvc")));
    EXPECT_EQ(Contents(FilePath("Mast.tvc")), "before");
}

} // namespace tarvik
