// Saving a document: formats, save dialog, failures.
#include "tests/link/documents/documents_fixture.h"

#include "app/menu/recentFiles.h"
#include "app/state/project.h"
#include "link/documents/fileFormats.h"
#include "tests/support/fakeFrame.h"

#include <QDir>
#include <QFile>

namespace tarvik {

namespace {

using FileFilters = ProgramTest;
using FileSaving = DocumentsTest;

} // namespace

TEST_F(FileFilters, OpenDialogOffersAllPicturesThenEachKind)
{
    EXPECT_EQ(FileOpenFilters(),
        QStringList({ "All pictures|*.bmp;*.png;*.pcx;*.wmf", "Windows bitmap|*.bmp", "PNG picture|*.png",
            "PCX picture|*.pcx", "Windows metafile|*.wmf" }));
}

TEST_F(FileFilters, SaveDialogOffersPicturesForPicture)
{
    EXPECT_EQ(FileSaveFilters(FileSaveFormats(false)),
        QStringList({ "Windows bitmap|*.bmp", "PCX picture|*.pcx", "PNG picture|*.png", "Windows metafile|*.wmf" }));
}

TEST_F(FileFilters, SaveDialogOffersTextsFirstForDataSet)
{
    EXPECT_EQ(FileSaveFilters(FileSaveFormats(true)),
        QStringList({ "CSV text|*.csv", "Plain text|*.txt", "Windows bitmap|*.bmp", "PCX picture|*.pcx",
            "PNG picture|*.png", "Windows metafile|*.wmf" }));
}

TEST_F(FileFilters, SaveDialogSelectsExtensionUsedLast)
{
    EXPECT_EQ(FileSaveFilterIndex(FileSaveFormats(false), "png"), 3);
    EXPECT_EQ(FileSaveFilterIndex(FileSaveFormats(false), "PCX"), 2);
    EXPECT_EQ(FileSaveFilterIndex(FileSaveFormats(true), "wmf"), 6);
    EXPECT_EQ(FileSaveFilterIndex(FileSaveFormats(true), "tvm"), 1);
    EXPECT_EQ(FileSaveFilterIndex(FileSaveFormats(true), ""), 1);
}

TEST_F(FileFilters, FormatFollowsExtensionInAnyCase)
{
    ASSERT_NE(FileFormatOf(FileKindOf("a/b.PnG").Kind), nullptr);
    EXPECT_EQ(FileFormatOf(FileKindOf("a/b.PnG").Kind)->Kind, FileKind::Png);
    EXPECT_EQ(FileFormatOf(FileKindOf("a.png/b").Kind), nullptr);
    EXPECT_EQ(FileFormatOf(FileKindOf("a.tvm").Kind), nullptr);
}

TEST_F(FileSaving, PictureIsWrittenByExtension)
{
    for (const char* name : { "a.bmp", "a.PNG", "a.pcx", "a.wmf" }) {
        QString path = FilePath(QString::fromLatin1(name));
        EXPECT_TRUE(FileSaveAs(path, 7, true));
        EXPECT_EQ(path, FilePath(QString::fromLatin1(name)));
        EXPECT_EQ(Log.takeLast(), "save 7 " + path);
    }
    EXPECT_EQ(
        Windows.Kinds, QList<ImageKind>({ ImageKind::Bitmap, ImageKind::Png, ImageKind::Pcx, ImageKind::Metafile }));
}

TEST_F(FileSaving, DataSetWithPictureNameIsWrittenAsPicture)
{
    Windows.DataSet = true;
    QString path = FilePath("diagram.png");
    EXPECT_TRUE(FileSaveAs(path, 2, true));
    EXPECT_EQ(Log, QStringList("save 2 " + path));
}

TEST_F(FileSaving, UnknownExtensionIsReported)
{
    for (const char* name : { "a.swp", "a.tvm", "a", "a.jpeg" }) {
        QString path = FilePath(QString::fromLatin1(name));
        Answers().Expect(12750, Ok);
        EXPECT_FALSE(FileSaveAs(path, 1, true));
        EXPECT_FALSE(QFile::exists(path));
    }
    EXPECT_TRUE(Log.isEmpty());
}

TEST_F(FileSaving, CsvTextIsCheckedReportedAndNotWritten)
{
    QString path = FilePath("a.csv");
    Answers().Expect(12763, { path }, Ok);
    EXPECT_TRUE(FileSaveAs(path, 1, true));
    EXPECT_EQ(path, FilePath("a.csv"));
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_TRUE(Log.isEmpty());
}

TEST_F(FileSaving, PlainTextIsCheckedAndSilentlyNotWritten)
{
    QString path = FilePath("a.txt");
    EXPECT_TRUE(FileSaveAs(path, 1, true));
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_TRUE(Log.isEmpty());
}

TEST_F(FileSaving, TextWithoutConfirmationIsNoFormat)
{
    for (const char* name : { "a.csv", "a.txt" }) {
        QString path = FilePath(QString::fromLatin1(name));
        Answers().Expect(12750, Ok);
        EXPECT_FALSE(FileSaveAs(path, 1, false));
    }
}

TEST_F(FileSaving, UnwritablePathIsCleared)
{
    for (const char* name : { "no/such/folder/a.csv", "no/such/folder/a.txt" }) {
        QString path = FilePath(QString::fromLatin1(name));
        EXPECT_TRUE(FileSaveAs(path, 1, true));
        EXPECT_TRUE(path.isEmpty());
    }
    QString path = FilePath("no/such/folder/a.png");
    Answers().Expect(12761, { "a.png" }, Ok);
    EXPECT_TRUE(FileSaveAs(path, 1, true));
    EXPECT_TRUE(path.isEmpty());
    EXPECT_TRUE(Log.isEmpty());
}

TEST_F(FileSaving, PathOfFailedPictureIsCleared)
{
    Windows.Outcome = PictureSaved::Failed;
    QString path = FilePath("a.pcx");
    Answers().Expect(12757, { "a.pcx" }, Ok);
    EXPECT_TRUE(FileSaveAs(path, 1, false));
    EXPECT_TRUE(path.isEmpty());
}

TEST_F(FileSaving, DialogProposesLastFile)
{
    SetLastFile(FilePath("night.pcx"));
    EXPECT_FALSE(FileSaveAsDlg(3));
    EXPECT_EQ(Question.Title, "Save As");
    EXPECT_EQ(Question.InitialFolder, Program().LastFile.Folder);
    EXPECT_EQ(Question.FileName, "night");
    EXPECT_EQ(Question.FilterIndex, 2);
    EXPECT_EQ(Question.HelpNumber, 11600);
    EXPECT_TRUE(Log.isEmpty()) << "the dialog was cancelled";
}

TEST_F(FileSaving, DialogIgnoresTextUsedLast)
{
    Windows.DataSet = true;
    for (const char* name : { "a.CSV", "a.txt" }) {
        SetLastFile(FilePath(QString::fromLatin1(name)));
        FileSaveAsDlg(3);
        EXPECT_EQ(Question.FilterIndex, 1);
    }
}

TEST_F(FileSaving, DialogSavesAndRemembersName)
{
    SaveAnswer = "  " + FilePath("Tower.PNG") + " ";
    EXPECT_TRUE(FileSaveAsDlg(3));
    EXPECT_EQ(Log, QStringList("save 3 " + FilePath("Tower.PNG")));
    EXPECT_EQ(Program().LastFile.Name, "Tower");
    EXPECT_EQ(Program().LastFile.Extension, "png");
}

TEST_F(FileSaving, SavedPictureBecomesRecentFile)
{
    SaveAnswer = FilePath("Tower.PNG") + ' ';
    EXPECT_TRUE(FileSaveAsDlg(3));
    EXPECT_EQ(RecentFiles(), QStringList(FilePath("Tower.PNG")));
}

TEST_F(FileSaving, WhatIsNotWrittenIsNoRecentFile)
{
    SaveAnswer = FilePath("a.png");
    Windows.Outcome = PictureSaved::FailedAndReported;
    EXPECT_FALSE(FileSaveAsDlg(3));
    SaveAnswer = FilePath("a.txt");
    EXPECT_FALSE(FileSaveAsDlg(3));
    SaveAnswer = FilePath("a.csv");
    Answers().Expect(12763, Ok);
    EXPECT_FALSE(FileSaveAsDlg(3));
    SaveAnswer.clear();
    EXPECT_FALSE(FileSaveAsDlg(3));
    EXPECT_TRUE(RecentFiles().isEmpty());
}

TEST_F(FileSaving, DialogClearsStatusAfterSaving)
{
    FakeFrame frame;
    frame.Status = "Saving";
    SaveAnswer = FilePath("a.png");
    EXPECT_TRUE(FileSaveAsDlg(3));
    EXPECT_EQ(frame.Status, "");
}

TEST_F(FileSaving, SavingAsTextDoesNotSaveDocument)
{
    SaveAnswer = FilePath("a.csv");
    Answers().Expect(12763, { SaveAnswer }, Ok);
    EXPECT_FALSE(FileSaveAsDlg(3)) << "the window must stay open";
    EXPECT_EQ(Program().LastFile.Extension, "csv");
    SaveAnswer = FilePath("b.txt");
    EXPECT_FALSE(FileSaveAsDlg(3));
    EXPECT_EQ(Program().LastFile.Name, "b");
    SaveAnswer = FilePath("none/c.txt");
    EXPECT_FALSE(FileSaveAsDlg(3));
    EXPECT_EQ(Program().LastFile.Name, "b");
}

TEST_F(FileSaving, DialogReportsUnknownExtensionAndRemembersNothing)
{
    SaveAnswer = FilePath("a.jpeg");
    Answers().Expect(12750, { "a.jpeg" }, Ok);
    EXPECT_FALSE(FileSaveAsDlg(3));
    EXPECT_EQ(Program().LastFile.Name, "");
}

TEST_F(FileSaving, DialogAnsweredWithBlanksSavesNothing)
{
    SaveAnswer = "   ";
    EXPECT_FALSE(FileSaveAsDlg(3));
    EXPECT_TRUE(Log.isEmpty());
}

TEST_F(FileSaving, DialogReportsUnwritablePathAndRemembersNothing)
{
    const std::pair<const char*, int> kinds[] = { { "a.bmp", 12755 }, { "a.pcx", 12757 }, { "a.wmf", 12759 },
        { "a.png", 12761 } };
    for (const auto& [name, message] : kinds) {
        SaveAnswer = FilePath("none/") + QString::fromLatin1(name);
        Answers().Expect(message, { QString::fromLatin1(name) }, Ok);
        EXPECT_FALSE(FileSaveAsDlg(3));
        EXPECT_EQ(Program().LastFile.Name, "");
    }
}

TEST_F(FileSaving, FailureOfWriterIsReportedOnce)
{
    SaveAnswer = FilePath("a.png");
    Windows.Outcome = PictureSaved::Failed;
    Answers().Expect(12761, { "a.png" }, Ok);
    EXPECT_FALSE(FileSaveAsDlg(3));
    SaveAnswer = FilePath("a.wmf");
    Windows.Outcome = PictureSaved::FailedAndReported;
    EXPECT_FALSE(FileSaveAsDlg(3));
}

TEST_F(FileSaving, RemembersFolderNameAndLowerCaseExtension)
{
    FileRememberPath({ "  " + FilePath("Shot.one.BMP"), FilePath("other.png") });
    EXPECT_EQ(Program().LastFile.Name, "Shot.one");
    EXPECT_EQ(Program().LastFile.Extension, "bmp");
    EXPECT_EQ(Program().LastFile.Folder, QDir::toNativeSeparators(Folder()));
    FileRememberPath({});
    EXPECT_EQ(Program().LastFile.Name, "Shot.one");
}

} // namespace tarvik
