#include "tests/lists/list_fixture.h"

#include "closed/loader.h"
#include "lists/correction/correctionDiagram.h"

namespace tarvik {

namespace {

class CorrTable : public ListTest {
protected:
    CorrTable()
    {
        SetEditorType(FileClassCorrectionSet);
    }

    /// Rows with these texts, as left by the user.
    static std::vector<CorrRow> Rows(CorrTableId table, const QList<QStringList>& texts)
    {
        std::vector<CorrRow> rows(kCorrRows);
        for (qsizetype row = 0; row < texts.size(); ++row)
            Fill(rows[static_cast<size_t>(row)], table, texts.at(row));
        return rows;
    }
    static void Fill(CorrRow& row, CorrTableId table, const QStringList& texts)
    {
        for (int column = 0; column < texts.size(); ++column)
            TypeCorrCell(row, table, column, texts.at(column));
        for (int column = 0; column < texts.size(); ++column) {
            QString text = texts.at(column);
            LeaveCorrCell(row, table, column, text);
        }
    }
    void ExpectFault(const std::optional<CorrFault>& fault, int row, int column)
    {
        ASSERT_TRUE(fault.has_value());
        EXPECT_EQ(fault->Row, row);
        EXPECT_EQ(fault->Column, column);
        Answers().Verify();
    }

    CorrRecords records;
};

constexpr auto kKFactor = CorrTableId::KFactor;
constexpr auto kOmniphase = CorrTableId::Omniphase;
constexpr auto kAzimuth = CorrTableId::Azimuth;

} // namespace

TEST_F(CorrTable, AnglesAreJoinedWithBars)
{
    EXPECT_EQ(AzimuthFormat({}), "");
    EXPECT_EQ(AzimuthFormat({ 12 }), "12.00");
    EXPECT_EQ(AzimuthFormat({ 12, -5.5, 360 }), "12.00 | -5.50 | 360.00");
}

TEST_F(CorrTable, AnglesAreReadAndClamped)
{
    EXPECT_EQ(AzimuthParse("12|-5,5 | 370", u'|'), (std::vector<double>{ 12, -5.5, 360 }));
    EXPECT_EQ(AzimuthParse("-1000", u'|'), (std::vector<double>{ -360 }));
    EXPECT_EQ(AzimuthParse("", u'|'), std::vector<double>());
    EXPECT_FALSE(AzimuthParse("12 | x", u'|').has_value());
    EXPECT_FALSE(AzimuthParse("12 | ", u'|').has_value());
    EXPECT_FALSE(AzimuthParse(" ", u'|').has_value());
}

TEST_F(CorrTable, TypedAnglesAreRewrittenOnLeaving)
{
    CorrRow row;
    QString text = "12|-5,5|370";
    TypeCorrCell(row, kAzimuth, kCorrFrequency, "30");
    TypeCorrCell(row, kAzimuth, kCorrAngles, text);
    LeaveCorrCell(row, kAzimuth, kCorrAngles, text);
    EXPECT_EQ(text, "12.00 | -5.50 | 360.00");
    EXPECT_EQ(row.Texts[kCorrAngles], text);
    EXPECT_FALSE(row.Invalid[kCorrAngles]);
}

TEST_F(CorrTable, EmptyCellsOfUsedRowAreInvalid)
{
    CorrRow row;
    TypeCorrCell(row, kKFactor, kCorrFrequency, "3");
    EXPECT_TRUE(row.Used);
    EXPECT_FALSE(row.Invalid[kCorrFrequency]);
    EXPECT_TRUE(row.Invalid[kCorrPassive]);
    EXPECT_TRUE(row.Invalid[kCorrActive]);
    TypeCorrCell(row, kKFactor, kCorrFrequency, "");
    EXPECT_EQ(row, CorrRow());
}

TEST_F(CorrTable, CellStaysInvalidUntilItIsLeft)
{
    CorrRow row;
    QString text = "1";
    TypeCorrCell(row, kKFactor, kCorrFrequency, "3");
    TypeCorrCell(row, kKFactor, kCorrPassive, text);
    EXPECT_TRUE(row.Invalid[kCorrPassive]);
    LeaveCorrCell(row, kKFactor, kCorrPassive, text);
    EXPECT_FALSE(row.Invalid[kCorrPassive]);
}

TEST_F(CorrTable, LeftCellOfUsedRowMustNotBeEmpty)
{
    CorrRow row;
    QString text;
    TypeCorrCell(row, kAzimuth, kCorrFrequency, "3");
    row.Invalid = {};
    LeaveCorrCell(row, kAzimuth, kCorrAngles, text);
    EXPECT_TRUE(row.Invalid[kCorrAngles]);
}

TEST_F(CorrTable, LeftCellIsJudgedByItsKindWithoutMessage)
{
    CorrRow row;
    Fill(row, kKFactor, { "9000", "500", "x" });
    EXPECT_EQ(row.Texts[kCorrFrequency], "8000.000000");
    EXPECT_EQ(row.Texts[kCorrPassive], "200.00");
    EXPECT_EQ(row.Texts[kCorrActive], "x");
    EXPECT_EQ(row.Invalid, (std::array{ false, false, true }));
    CorrRow phase;
    Fill(phase, kOmniphase, { "100", "-400" });
    EXPECT_EQ(phase.Texts[kCorrPhase], "-360.00");
    CorrRow unused;
    QString text = "";
    LeaveCorrCell(unused, kKFactor, kCorrFrequency, text);
    EXPECT_EQ(unused, CorrRow());
}

TEST_F(CorrTable, ValidationReportsFirstInvalidCell)
{
    const auto rows = Rows(kKFactor, { { "30", "1", "2" }, { "40", "", "2" } });
    Answers().Expect(12894, { QStringLiteral("2") }, Ok);
    ExpectFault(ValidateCorrTab(kKFactor, rows, records), 1, kCorrPassive);
    const auto several = Rows(kKFactor, { { "30", "1", "" }, { "", "1", "2" } });
    Answers().Expect(12894, { QStringLiteral("1") }, Ok);
    ExpectFault(ValidateCorrTab(kKFactor, several, records), 0, kCorrActive); // row by row
}

TEST_F(CorrTable, ValidationReportsCellThatDoesNotParse)
{
    auto rows = Rows(kKFactor, { { "30", "1", "2" }, { "40", "1", "2" } });
    rows[1].Texts[kCorrActive] = "x"; // typed, and not left yet
    Answers().Expect(12892, { QStringLiteral("2"), QStringLiteral("2") }, Ok);
    ExpectFault(ValidateCorrTab(kKFactor, rows, records), 1, kCorrActive);
    auto angles = Rows(kAzimuth, { { "30", "1 | 2" } });
    angles[0].Texts[kCorrAngles] = "1 | x";
    Answers().Expect(12893, { QStringLiteral("1"), QStringLiteral("1") }, Ok);
    ExpectFault(ValidateCorrTab(kAzimuth, angles, records), 0, kCorrAngles);
}

TEST_F(CorrTable, RecordsHoldHertzLevelsAndAngles)
{
    EXPECT_FALSE(ValidateCorrTab(kKFactor, Rows(kKFactor, { { "30", "1.5", "-2" } }), records).has_value());
    EXPECT_EQ(CorrValue(kKFactor, records, 0, kCorrFrequency), 30e6);
    EXPECT_EQ(CorrValue(kKFactor, records, 0, kCorrPassive), 1.5);
    EXPECT_EQ(CorrValue(kKFactor, records, 0, kCorrActive), -2);
    const KfactorCorrEntry entry = records.KFactor[0];
    EXPECT_EQ(double{ entry.PassiveLevel }, 1.5);
    EXPECT_EQ(entry.Used, 1);
    EXPECT_FALSE(ValidateCorrTab(kOmniphase, Rows(kOmniphase, { { "30", "90" } }), records).has_value());
    EXPECT_EQ(CorrValue(kOmniphase, records, 0, kCorrPhase), 90);
    EXPECT_FALSE(ValidateCorrTab(kAzimuth, Rows(kAzimuth, { { "30", "1 | 2 | 3" } }), records).has_value());
    EXPECT_EQ(CorrAngles(records, 0), (std::vector<double>{ 1, 2, 3 }));
    EXPECT_EQ(UsedCorrEntries(kAzimuth, records), 1);
}

TEST_F(CorrTable, DigitsThatCellsDoNotShowAreKept)
{
    records.KFactor[0] = { 1, 0, 30000000.25, 1.2345, -2.3456 };
    records.Azimuth[0] = { 1, 0, 30e6, TvFio().AntCorrNewAngles(1) };
    *TvFio().AntCorrGetAngles(records.Azimuth[0].Angles, nullptr) = 12.3456;
    for (const auto table : { kKFactor, kAzimuth })
        EXPECT_FALSE(ValidateCorrTab(table, CorrRowsOf(table, records), records).has_value());
    EXPECT_EQ(CorrValue(kKFactor, records, 0, kCorrFrequency), 30000000.25);
    EXPECT_EQ(CorrValue(kKFactor, records, 0, kCorrPassive), -2.3456);
    EXPECT_EQ(CorrAngles(records, 0), (std::vector<double>{ 12.3456 }));
}

TEST_F(CorrTable, EmptyTablePassesAndOneEntryDoesNot)
{
    EXPECT_FALSE(CheckCorrDuplicates(kOmniphase, records).has_value());
    records.Omniphase[5].Used = 1;
    Answers().Expect(12772, QStringList(), Ok);
    ExpectFault(CheckCorrDuplicates(kOmniphase, records), 0, 0);
}

TEST_F(CorrTable, SameFrequencyIsReportedAtTheEarlierRow)
{
    const auto rows = Rows(kOmniphase, { { "30", "1" }, { "40", "1" }, { "50", "1" }, { "40", "2" } });
    ASSERT_FALSE(ValidateCorrTab(kOmniphase, rows, records).has_value());
    Answers().Expect(12895, { QStringLiteral("2"), QStringLiteral("4") }, Ok);
    ExpectFault(CheckCorrDuplicates(kOmniphase, records), 1, 0);
}

TEST_F(CorrTable, DeletedRowKeepsItsFrequencyInForce)
{
    auto rows = Rows(kOmniphase, { { "30", "1" }, { "40", "1" }, { "50", "1" } });
    ASSERT_FALSE(ValidateCorrTab(kOmniphase, rows, records).has_value());
    rows[0] = {};
    rows[2] = {};
    Fill(rows[2], kOmniphase, { "30", "1" });
    ASSERT_FALSE(ValidateCorrTab(kOmniphase, rows, records).has_value());
    Answers().Expect(12895, { QStringLiteral("1"), QStringLiteral("3") }, Ok);
    ExpectFault(CheckCorrDuplicates(kOmniphase, records), 0, 0);
}

TEST_F(CorrTable, FirstOfSeveralEarlierRowsIsReported)
{
    for (const size_t row : { 1U, 3U, 5U })
        records.Omniphase[row] = { static_cast<std::int16_t>(row == 5 ? 1 : 0), 0, 30e6, 0 };
    records.Omniphase[0] = { 1, 0, 40e6, 0 };
    Answers().Expect(12895, { QStringLiteral("2"), QStringLiteral("6") }, Ok);
    ExpectFault(CheckCorrDuplicates(kOmniphase, records), 1, 0);
}

TEST_F(CorrTable, NewRowHasNoDigitsOfADeletedOne)
{
    records.KFactor[0] = { 0, 0, 30000000.25, 1.2345, -2.3456 };
    ASSERT_FALSE(ValidateCorrTab(kKFactor, Rows(kKFactor, { { "30", "-2.35", "1.23" } }), records).has_value());
    EXPECT_EQ(CorrValue(kKFactor, records, 0, kCorrFrequency), 30e6);
    EXPECT_EQ(CorrValue(kKFactor, records, 0, kCorrPassive), -2.35);
}

TEST_F(CorrTable, SortPassesCountOfUsedEntriesAndRefillsCells)
{
    auto rows = Rows(kKFactor, { { "85", "1", "2" } });
    Fill(rows[7], kKFactor, { "30", "3", "4" });
    ASSERT_FALSE(ValidateCorrTab(kKFactor, rows, records).has_value());
    ASSERT_TRUE(SortCorrRecords(kKFactor, records));
    rows = CorrRowsOf(kKFactor, records);
    EXPECT_EQ(rows[0].Texts, (std::array<QString, 3>{ "30.000000", "3.00", "4.00" }));
    EXPECT_EQ(rows[1].Texts, (std::array<QString, 3>{ "85.000000", "1.00", "2.00" }));
    EXPECT_FALSE(rows[7].Used);
}

TEST_F(CorrTable, StoreFailureOfSortIsReported)
{
    records.Omniphase[0] = { 1, 0, qQNaN(), 0 };
    Answers().Expect(12864, QStringList(), Ok);
    EXPECT_FALSE(SortCorrRecords(kOmniphase, records));
}

TEST_F(CorrTable, AnglesAreReleasedWithTheTable)
{
    std::int32_t handle = 0;
    {
        CorrRecords others;
        ASSERT_FALSE(ValidateCorrTab(kAzimuth, Rows(kAzimuth, { { "30", "1" } }), others).has_value());
        handle = others.Azimuth[0].Angles;
        EXPECT_NE(TvFio().AntCorrGetAngles(handle, nullptr), nullptr);
        const std::int32_t replaced = handle;
        ASSERT_FALSE(ValidateCorrTab(kAzimuth, Rows(kAzimuth, { { "30", "2" } }), others).has_value());
        EXPECT_EQ(CorrAngles(others, 0), (std::vector<double>{ 2 }));
        handle = others.Azimuth[0].Angles;
        EXPECT_TRUE(handle == replaced || TvFio().AntCorrGetAngles(replaced, nullptr) == nullptr);
    }
    EXPECT_EQ(TvFio().AntCorrGetAngles(handle, nullptr), nullptr);
}

TEST_F(CorrTable, DiagramOfFactorsHasPassiveThenActive)
{
    ASSERT_FALSE(
        ValidateCorrTab(kKFactor, Rows(kKFactor, { { "30", "1", "2" }, { "40", "3", "4" } }), records).has_value());
    const MultiTraceInput diagram = CorrectionDiagram(kKFactor, records, "title");
    EXPECT_EQ(diagram.Name, "title");
    EXPECT_EQ(diagram.PointCount, 2);
    EXPECT_EQ(diagram.SeriesCount, 2);
    EXPECT_EQ(static_cast<int>(diagram.XUnit), 10);
    EXPECT_EQ(static_cast<int>(diagram.YUnit), 25);
    EXPECT_EQ(diagram.Points[1].X, 40e6);
    EXPECT_EQ(diagram.Points[1].Y[0], 3);
    EXPECT_EQ(diagram.Points[1].Y[1], 4);
}

TEST_F(CorrTable, DiagramOfPhaseHasASecondSeriesOfZeros)
{
    ASSERT_FALSE(
        ValidateCorrTab(kOmniphase, Rows(kOmniphase, { { "30", "90" }, { "40", "-90" } }), records).has_value());
    const MultiTraceInput diagram = CorrectionDiagram(kOmniphase, records, "title");
    EXPECT_EQ(static_cast<int>(diagram.YUnit), 11);
    EXPECT_EQ(diagram.SeriesCount, 2);
    EXPECT_EQ(diagram.SeriesNames[1], "");
    EXPECT_EQ(diagram.Points[1].Y[0], -90);
    EXPECT_EQ(diagram.Points[1].Y[1], 0);
}

} // namespace tarvik
