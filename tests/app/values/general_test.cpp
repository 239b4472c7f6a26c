#include "app/platform/paths.h"
#include "app/platform/seams.h"
#include "app/values/general.h"
#include "tests/support/fixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cmath>
#include <limits>

namespace tarvik {

using General = ProgramTest;

TEST_F(General, NumberTextNeedsADigitBeforeOtherCharacters)
{
    for (const char* text : { "12", " 12 ", "12abc", "-1.5e3", "1,000.5", "- 5", "+,.e7" })
        EXPECT_TRUE(IsNumberText(text)) << text;
    for (const char* text : { "", "  ", "abc12", " -e ", "+-.,", "x", ".e", "\u0664" })
        EXPECT_FALSE(IsNumberText(text)) << text;
}

TEST_F(General, MetricFollowsTheRegion)
{
    EXPECT_FALSE(IsMetric());
    SetRegion(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_TRUE(IsMetric());
    SetRegion(QLocale(QLocale::English, QLocale::UnitedKingdom));
    EXPECT_TRUE(IsMetric());
}

TEST_F(General, NtFamilyIsTrueOnWindowsOnly)
{
#if defined(Q_OS_WIN)
    EXPECT_TRUE(IsNtFamily());
#else
    EXPECT_FALSE(IsNtFamily());
#endif
}

TEST_F(General, TiesReturnTheSecondArgument)
{
    EXPECT_EQ(SmallestOf<qint16>(2, 1), 1);
    EXPECT_EQ(LargestOf<qint32>(2, 1), 2);
    EXPECT_TRUE(std::signbit(SmallestOf(0.0, -0.0)));
    EXPECT_FALSE(std::signbit(SmallestOf(-0.0, 0.0)));
    EXPECT_TRUE(std::signbit(LargestOf(0.0F, -0.0F)));
    EXPECT_FALSE(std::signbit(LargestOf(-0.0F, 0.0F)));
}

TEST_F(General, ClampRaisesThenLowers)
{
    EXPECT_EQ(Clamp(5, 1, 10), 5);
    EXPECT_EQ(Clamp(0, 1, 10), 1);
    EXPECT_EQ(Clamp(11.0, 1.0, 10.0), 10.0);
    EXPECT_EQ(Clamp(5, 10, 1), 1);
}

TEST_F(General, RangeIncludesItsEnds)
{
    EXPECT_TRUE(InRange(1, 1, 3));
    EXPECT_TRUE(InRange(3, 1, 3));
    EXPECT_FALSE(InRange(0, 1, 3));
    EXPECT_FALSE(InRange(4, 1, 3));
}

TEST_F(General, SwapExchanges)
{
    QString a = "a";
    QString b = "b";
    Swap(a, b);
    EXPECT_EQ(a, "b");
    EXPECT_EQ(b, "a");
}

TEST_F(General, ScaleStaysBetweenOneAndTheValue)
{
    EXPECT_EQ(ScaleClamped(100, 1, 3), 33);
    EXPECT_EQ(ScaleClamped(100, 1, 1000), 1);
    EXPECT_EQ(ScaleClamped(100, 5, 1), 100);
    EXPECT_EQ(ScaleClamped(100, 5, 0), 1);
    EXPECT_EQ(ScaleClamped(2000000000, 2000000000, 2000000000), 2000000000);
}

TEST_F(General, RoundsToTheNearestStepHalvesUpwards)
{
    EXPECT_EQ(RoundToStep(12.4, 5), 10);
    EXPECT_EQ(RoundToStep(12.5, 5), 15);
    EXPECT_EQ(RoundToStep(-2.5, 5), 0);
    EXPECT_EQ(RoundToStep(-2.6, 5), -5);
    EXPECT_EQ(RoundToStep(12.4, 0), 12.4);
    const double largest = std::numeric_limits<double>::max();
    EXPECT_EQ(RoundToStep(largest, 5), largest);
}

TEST_F(General, InchesAndMillimetres)
{
    EXPECT_EQ(MmFromInch(2), 50.8);
    EXPECT_EQ(InchFromMm(50.8), 2);
}

TEST_F(General, ArraysOfTexts)
{
    EXPECT_EQ(ArrayLength({}), 0);
    EXPECT_EQ(ArrayLength(ArrayNew(3)), 3);
    EXPECT_EQ(ArrayNew(-1), QStringList());
    EXPECT_EQ(ArrayJoin({ "a" }, { "b", "c" }), QStringList({ "a", "b", "c" }));
    EXPECT_EQ(ArrayJoin({}, {}), QStringList());
}

TEST_F(General, FileToBinReturnsWhetherTheFileIsGone)
{
    Store(FilePath("a"), "x");
    TheSeams().MoveToTrash = [](const QString&) { return true; };
    EXPECT_FALSE(FileToBin(FilePath("a")));
    TheSeams().MoveToTrash = [](const QString& path) { return QFile::remove(path); };
    EXPECT_TRUE(FileToBin(FilePath("a")));
}

TEST_F(General, FileToBinDetectsADanglingLink)
{
    ASSERT_TRUE(QFile::link(FilePath("gone"), FilePath("link")));
    TheSeams().MoveToTrash = [](const QString&) { return false; };
    EXPECT_FALSE(FileToBin(FilePath("link")));
}

TEST_F(General, ReadOnlyMeansThatNobodyMayWrite)
{
    Store(FilePath("a"), "x");
    EXPECT_FALSE(HasReadOnlyAttribute(FilePath("a")));
    EXPECT_FALSE(HasReadOnlyAttribute(FilePath("gone")));
    SetReadOnlyAttribute(FilePath("a"));
    EXPECT_TRUE(HasReadOnlyAttribute(FilePath("a")));
    QFile::setPermissions(FilePath("a"), QFile::ReadOwner | QFile::WriteGroup);
    EXPECT_FALSE(HasReadOnlyAttribute(FilePath("a")));
    EXPECT_EQ(Contents(FilePath("a")), "x");
}

TEST_F(General, ResolvesParentStepsThroughLinks)
{
    const QString folder = QFileInfo(Folder()).canonicalFilePath();
    ASSERT_TRUE(QDir(folder).mkpath("other/place"));
    ASSERT_TRUE(QFile::link(folder + "/other/place", folder + "/here"));
    EXPECT_EQ(ResolveParentSteps(folder + "/here/../a"), folder + "/other/a");
    EXPECT_EQ(ResolveParentSteps(folder + "/here/.."), folder + "/other");
    EXPECT_EQ(ResolveParentSteps(folder + "/here/a..b"), folder + "/here/a..b");
    EXPECT_EQ(ResolveParentSteps("a"), "a");
    EXPECT_EQ(ResolveParentSteps(folder + "/gone/../a"), folder + "/gone/../a");
}

TEST_F(General, BrowseFolderPassesTitleAndStart)
{
    EXPECT_EQ(BrowseFolder("Title", "/start"), ""); // not bound yet
    FolderQuestion asked;
    TheSeams().BrowseFolder = [&asked](const FolderQuestion& question) {
        asked = question;
        return QStringLiteral("/chosen");
    };
    EXPECT_EQ(BrowseFolder("Title", "/start"), "/chosen");
    EXPECT_EQ(asked.Title, "Title");
    EXPECT_EQ(asked.Start, "/start");
}

} // namespace tarvik
