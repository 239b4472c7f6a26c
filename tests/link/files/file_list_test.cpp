// Rows of file lists: texts, sorting, counting and selecting.
#include "tests/link/files/file_list_fixture.h"

#include "app/platform/seams.h"

namespace tarvik {

using FileLists = FileListTest;

TEST_F(FileLists, FileRowHasNameDateTimeAndSortKey)
{
    TransferAddRow(list_, "Plan 1.tvm", ChannelRowType::File, QDateTime(QDate(2025, 4, 5), QTime(6, 7, 8), Qt::UTC));
    EXPECT_EQ(Row(0).Text, "Plan 1.tvm");
    EXPECT_EQ(Row(0).Key, "Plan 1.tvm");
    EXPECT_EQ(Row(0).Icon, "File");
    EXPECT_EQ(Row(0).SubItems[0], "05/04/25");
    EXPECT_EQ(Row(0).SubItems[1], "06:07:08");
    EXPECT_EQ(Row(0).SubItems[2], "-Plan 1.tvm");
    EXPECT_FALSE(Row(0).Selected);
    EXPECT_FALSE(TransferIsFolderRow(Row(0)));
}

TEST_F(FileLists, FolderRowHasNoDate)
{
    TransferAddRow(list_, "Old", ChannelRowType::Folder, QDateTime(QDate(2025, 4, 5), QTime(6, 7, 8), Qt::UTC));
    EXPECT_EQ(Row(0).Text, "Old");
    EXPECT_EQ(Row(0).Key, "FOld");
    EXPECT_EQ(Row(0).Icon, "ClosedFolder");
    EXPECT_EQ(Row(0).SubItems[0], "");
    EXPECT_EQ(Row(0).SubItems[1], "");
    EXPECT_EQ(Row(0).SubItems[2], "+Old");
    EXPECT_TRUE(TransferIsFolderRow(Row(0)));
}

TEST_F(FileLists, FileNamedLikeKeyOfFolderIsNoFolder)
{
    AddFile("FOld", QDate(2025, 1, 1));
    EXPECT_FALSE(TransferIsFolderRow(Row(0)));
}

TEST_F(FileLists, YearIsShownWithoutCentury)
{
    AddFile("a.tvm", QDate(2000, 12, 31));
    EXPECT_EQ(Row(0).SubItems[0], "31/12/00");
}

TEST_F(FileLists, MarkersChooseIconOfDataSetOnly)
{
    const FileMarkers restricted{ true, true, true };
    const FileMarkers preset{ false, true, true };
    const FileMarkers locked{ false, false, true };
    TransferAddRow(list_, "a.set", ChannelRowType::File, {}, restricted);
    TransferAddRow(list_, "a.set", ChannelRowType::File, {}, preset);
    TransferAddRow(list_, "a.set", ChannelRowType::File, {}, locked);
    TransferAddRow(list_, "a.set", ChannelRowType::File, {});
    TransferAddRow(list_, "a.SET", ChannelRowType::File, {}, restricted);
    TransferAddRow(list_, "a.tvm", ChannelRowType::File, {}, restricted);
    QStringList icons;
    for (const FileListRow& row : list_.Rows)
        icons.append(row.Icon);
    EXPECT_EQ(icons, QStringList({ "RestrictedFile", "PresetFile", "LockedFile", "File", "File", "File" }));
}

TEST_F(FileLists, PathOfFileHasOneSeparator)
{
    const QChar separator = QDir::separator();
    EXPECT_EQ(PcFilePath("a.tvm"), CurrentPcFolder() + separator + "a.tvm");
    CurrentPcFolder() = separator;
    EXPECT_EQ(PcFilePath("a.tvm"), separator + QStringLiteral("a.tvm"));
    CurrentPcFolder().clear();
    EXPECT_EQ(PcFilePath("a.tvm"), "");
}

TEST_F(FileLists, SortColumnListsFoldersFirst)
{
    AddFile("b.tvm", QDate(2025, 1, 1));
    AddFolder("z");
    AddFile("A.tvm", QDate(2025, 1, 1));
    AddFolder("Y");
    TransferSortColumn(list_, kFileSortColumn);
    EXPECT_EQ(Names(), QStringList({ "Y", "z", "A.tvm", "b.tvm" }));
    EXPECT_TRUE(list_.Sorted);
    EXPECT_EQ(list_.SortKey, kFileSortColumn);
    EXPECT_EQ(Changes, QStringList({ "begin", "end" }));
}

TEST_F(FileLists, EachSortReversesOrderWhateverTheColumn)
{
    AddFile("a.tvm", QDate(2025, 1, 1), QTime(8, 0));
    AddFile("b.tvm", QDate(2025, 1, 1), QTime(9, 0));
    TransferHeaderClick(list_, kFileNameColumn);
    EXPECT_EQ(Names(), QStringList({ "a.tvm", "b.tvm" }));
    TransferHeaderClick(list_, kFileTimeColumn);
    EXPECT_EQ(Names(), QStringList({ "b.tvm", "a.tvm" }));
    TransferHeaderClick(list_, kFileNameColumn);
    EXPECT_EQ(Names(), QStringList({ "a.tvm", "b.tvm" }));
    TransferHeaderClick(list_, kFileNameColumn);
    EXPECT_EQ(Names(), QStringList({ "b.tvm", "a.tvm" }));
}

TEST_F(FileLists, RowsOfSameTimeAreSortedByName)
{
    for (const char* name : { "b.tvm", "c.tvm", "a.tvm" })
        AddFile(QString::fromLatin1(name));
    for (int turn = 0; turn < 2; ++turn) {
        TransferSortColumn(list_, kFileTimeColumn);
        EXPECT_EQ(Names(), QStringList({ "a.tvm", "b.tvm", "c.tvm" }));
    }
}

TEST_F(FileLists, ClickOnNameColumnSortsBySortColumn)
{
    AddFile("a.tvm", QDate(2025, 1, 1));
    AddFolder("z");
    TransferHeaderClick(list_, kFileNameColumn);
    EXPECT_EQ(Names(), QStringList({ "z", "a.tvm" }));
    EXPECT_EQ(list_.SortKey, kFileSortColumn);
}

TEST_F(FileLists, SortsByDateThenTime)
{
    AddFile("c.tvm", QDate(2025, 2, 1));
    AddFile("b.tvm", QDate(2024, 12, 31));
    AddFile("d.tvm", QDate(2025, 2, 1), QTime(12, 0, 1));
    AddFile("a.tvm", QDate(1999, 12, 31));
    AddFolder("z");
    TransferSortColumn(list_, kFileDateColumn);
    EXPECT_EQ(Names(), QStringList({ "z", "a.tvm", "b.tvm", "c.tvm", "d.tvm" }));
    TransferSortColumn(list_, kFileDateColumn);
    EXPECT_EQ(Names(), QStringList({ "d.tvm", "c.tvm", "b.tvm", "a.tvm", "z" }));
}

TEST_F(FileLists, SortByDateShowsShortFormOfRegionUntilNextListing)
{
    StoreAt("a.tvm", QDateTime(QDate(2025, 4, 5), QTime(6, 7, 8), Qt::UTC));
    MakeFolder("z");
    TransferListPc(list_, Mask());
    TransferSortColumn(list_, kFileDateColumn);
    EXPECT_EQ(Dates(), QStringList({ "", "4/5/25" }));
    TransferSortColumn(list_, kFileDateColumn);
    EXPECT_EQ(Dates(), QStringList({ "4/5/25", "" }));
    EXPECT_EQ(TransferRowDate(Row(0)), QDateTime(QDate(2025, 4, 5), QTime(6, 7, 8), Qt::UTC));
    TransferListPc(list_, Mask());
    EXPECT_EQ(Dates(), QStringList({ "05/04/25", "" }));
}

TEST_F(FileLists, SortByDateKeepsFormThatRegionSharesWithList)
{
    SetRegion(QLocale(QLocale::Italian, QLocale::Italy));
    AddFile("a.tvm", QDate(2025, 4, 5));
    TransferSortColumn(list_, kFileDateColumn);
    EXPECT_EQ(Dates(), QStringList({ "05/04/25" }));
}

TEST_F(FileLists, SortedListStaysSortedWhenReadAgain)
{
    StoreAt("a.tvm", QDateTime(QDate(2025, 1, 2), QTime(1, 1)));
    StoreAt("b.tvm", QDateTime(QDate(2024, 1, 2), QTime(1, 1)));
    TransferListPc(list_, Mask(), true);
    TransferSortColumn(list_, kFileDateColumn);
    EXPECT_EQ(Names(), QStringList({ "a.tvm", "b.tvm" }));
    StoreAt("c.tvm", QDateTime(QDate(2024, 6, 2), QTime(1, 1)));
    TransferListPc(list_, Mask());
    EXPECT_EQ(Names(), QStringList({ "a.tvm", "c.tvm", "b.tvm" }));
    EXPECT_EQ(list_.SortKey, kFileDateColumn);
}

TEST_F(FileLists, SortMovesSelectionAndCurrentRow)
{
    AddFile("b.tvm", QDate(2025, 1, 1));
    AddFile("a.tvm", QDate(2025, 1, 1));
    Row(0).Selected = true;
    list_.CurrentRow = 0;
    TransferSortColumn(list_, kFileSortColumn);
    EXPECT_EQ(list_.CurrentRow, 1);
    EXPECT_EQ(TransferFirstSelected(list_), 1);
}

TEST_F(FileLists, CountsSelectedRowsWithAndWithoutFolders)
{
    AddFolder("z");
    AddFile("a.tvm", QDate(2025, 1, 1));
    AddFile("b.tvm", QDate(2025, 1, 1));
    EXPECT_FALSE(TransferAnySelected(list_));
    EXPECT_EQ(TransferFirstSelected(list_), -1);
    Row(0).Selected = true;
    Row(2).Selected = true;
    EXPECT_TRUE(TransferAnySelected(list_));
    EXPECT_EQ(TransferCountSelected(list_), 2);
    EXPECT_EQ(TransferCountSelectedFiles(list_), 1);
    EXPECT_EQ(TransferFirstSelected(list_), 0);
}

TEST_F(FileLists, SelectAllSelectsFilesAndDeselectsFolders)
{
    AddFolder("z");
    AddFile("a.tvm", QDate(2025, 1, 1));
    Row(0).Selected = true;
    TransferSelectAllFiles(list_);
    EXPECT_FALSE(Row(0).Selected);
    EXPECT_TRUE(Row(1).Selected);
    EXPECT_EQ(Changes, QStringList({ "begin", "end" }));
}

TEST_F(FileLists, DateOfRowIsReadDayFirstWhateverTheRegion)
{
    AddFile("a.tvm", QDate(2025, 4, 5), QTime(6, 7, 8));
    for (const QLocale& region : { QLocale(QLocale::English, QLocale::UnitedStates), QLocale(QLocale::Japanese) }) {
        SetRegion(region);
        EXPECT_EQ(TransferRowDate(Row(0)), QDateTime(QDate(2025, 4, 5), QTime(6, 7, 8), Qt::UTC));
    }
}

TEST_F(FileLists, CenturyOfDateIsNearest)
{
    TheSeams().Now = [] { return QDateTime(QDate(2026, 6, 1), QTime(12, 0)); };
    FileListRow row;
    row.SubItems = { QStringLiteral("01/02/45"), QStringLiteral("00:00:00"), QString() };
    EXPECT_EQ(TransferRowDate(row).date(), QDate(2045, 2, 1));
    row.SubItems[0] = "01/02/46";
    EXPECT_EQ(TransferRowDate(row).date(), QDate(1946, 2, 1));
    TheSeams().Now = [] { return QDateTime(QDate(2031, 6, 1), QTime(12, 0)); };
    row.SubItems[0] = "01/02/31";
    EXPECT_EQ(TransferRowDate(row).date(), QDate(2031, 2, 1));
}

TEST_F(FileLists, RowWithUnreadableDateHasNone)
{
    FileListRow row;
    for (const char* date : { "", "5/4/25", "32/01/25", "01/13/25", "aa/bb/cc" }) {
        row.SubItems = { QString::fromLatin1(date), QStringLiteral("01:02:03"), QString() };
        EXPECT_FALSE(TransferRowDate(row).isValid()) << date;
    }
    row.SubItems = { QStringLiteral("01/02/25"), QStringLiteral("25:00:00"), QString() };
    EXPECT_FALSE(TransferRowDate(row).isValid());
}

} // namespace tarvik
