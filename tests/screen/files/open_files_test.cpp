// Opening picture files by the commands, also when no window is free.
#include "app/text/lang.h"
#include "link/documents/file.h"
#include "link/documents/fileConvert.h"
#include "link/documents/fileDialogs.h"
#include "screen/files/documentFiles.h"
#include "screen/files/pictureFile.h"
#include "tests/support/screens.h"

namespace tarvik {

namespace {

class OpenFiles : public ScreenTest {
protected:
    OpenFiles()
    {
        BindDocumentFiles();
        TheSeams().OpenFiles = [this](const OpenFilesQuestion&) { return chosen_; };
    }

    /// Chooses three pictures together.
    void ChooseThree()
    {
        for (const char* name : { "a.png", "b.png", "c.png" }) {
            chosen_.append(FilePath(QLatin1String(name)));
            ASSERT_TRUE(EncodePicture(chosen_.last(), ImageKind::Png, Picture({ 8, 6 }, Qt::red)));
        }
    }

    /// Opens the maximum number of windows; the first is the oldest.
    static void Fill()
    {
        for (int count = 0; count < kDocumentsOfType; ++count)
            Open(WindowSubtype::Live, Picture({ 4, 4 }));
    }

    static int CountOfFiles()
    {
        int count = 0;
        for (WindowId id = WindowNext(0); id != 0; id = WindowNext(id))
            count += WindowIsFileImage(id) ? 1 : 0;
        return count;
    }

    QStringList chosen_;
};

} // namespace

TEST_F(OpenFiles, ExtensionOfPictureIsCaseInsensitive)
{
    const QString path = FilePath(QStringLiteral("a.PnG"));
    ASSERT_TRUE(EncodePicture(path, ImageKind::Png, Picture({ 8, 6 })));
    EXPECT_TRUE(FileOpen(path, true, true));
    EXPECT_EQ(CountOfFiles(), 1);
    EXPECT_EQ(ScreenOf(1)->SourceTag, WindowSubtype::File);
    EXPECT_EQ(Views[1].Title, QStringLiteral("a.PnG"));
}

TEST_F(OpenFiles, UnknownExtensionOpensNoWindow)
{
    Answers().Expect(12750, { QStringLiteral("a.gif") }, Ok);
    EXPECT_FALSE(FileOpen(FilePath(QStringLiteral("a.gif")), true, true));
    EXPECT_EQ(WindowCount(), 0);
}

TEST_F(OpenFiles, MissingFileShowsMessageOfItsKind)
{
    Answers().Expect(12758, { QStringLiteral("a.wmf") }, Ok);
    EXPECT_FALSE(FileOpen(FilePath(QStringLiteral("a.wmf")), true, true));
    EXPECT_EQ(WindowCount(), 0);
}

TEST_F(OpenFiles, FolderNamedLikePictureIsRefused)
{
    ASSERT_TRUE(QDir(Folder()).mkdir(QStringLiteral("a.bmp")));
    Answers().Expect(12754, { QStringLiteral("a.bmp") }, Ok);
    EXPECT_FALSE(FileOpen(FilePath(QStringLiteral("a.bmp")), true, true));
}

TEST_F(OpenFiles, NoKeepsWindowsAndSkipsOtherFiles)
{
    Fill();
    ChooseThree();
    const WindowId active = WindowTable().Active;
    const auto documents = ScreenTable();
    const auto windows = WindowTable().Table;
    Answers().Expect(12713, {}, No); // once
    FileOpenDlg();
    EXPECT_EQ(CountOfFiles(), 0);
    EXPECT_EQ(WindowTable().Active, active);
    for (size_t id = 1; id <= kDocumentsOfType; ++id) {
        EXPECT_EQ(ScreenTable()[id].Master, documents[id].Master);
        EXPECT_EQ(WindowTable().Table[id].Created, windows[id].Created);
        EXPECT_EQ(WindowTable().Table[id].Subtype, WindowSubtype::Live);
    }
}

TEST_F(OpenFiles, AfterNoNothingOpensUntilReset)
{
    Fill();
    ChooseThree();
    Answers().Expect(12713, No);
    EXPECT_FALSE(FileOpen(chosen_[0], true, true));
    WindowFreeSlot(7); // even though a slot is free now
    EXPECT_FALSE(FileOpen(chosen_[1], false, true));
    EXPECT_FALSE(FileOpen(FilePath(QStringLiteral("a.gif")), false, true)) << "not a word about what it is";
    EXPECT_TRUE(FileOpen(chosen_[1], true, true));
}

TEST_F(OpenFiles, NextOpeningAsksAgain)
{
    Fill();
    ChooseThree();
    for (const MsgResult answer : { No, Yes, No }) {
        Answers().Expect(12713, {}, answer);
        EXPECT_EQ(FileOpen(chosen_[0], true, true), answer == Yes);
    }
    EXPECT_EQ(CountOfFiles(), 1);
}

TEST_F(OpenFiles, YesReplacesOldestForEachFileOfSameOpening)
{
    Fill();
    ChooseThree();
    WindowAt(50).Created = QDateTime(QDate(2000, 1, 1), QTime(0, 0));
    Answers().Expect(12713, {}, Yes); // once
    FileOpenDlg();
    EXPECT_EQ(Views[50].Title, QStringLiteral("a.png"));
    EXPECT_EQ(Views[1].Title, QStringLiteral("b.png"));
    EXPECT_EQ(Views[2].Title, QStringLiteral("c.png"));
    EXPECT_EQ(CountOfFiles(), 3);
    EXPECT_EQ(WindowCount(), kDocumentsOfType);
}

TEST_F(OpenFiles, ReplacementTilesNothing)
{
    Fill();
    ChooseThree();
    Program().AutoTile = true;
    Views.WhenArranged = [](Arrangement) { ADD_FAILURE() << "there are as many windows as before"; };
    Answers().Expect(12713, Yes);
    EXPECT_TRUE(FileOpen(chosen_[0], true, true));
}

TEST_F(OpenFiles, DismissedQuestionIsAskedAgain)
{
    Fill();
    ChooseThree();
    Answers().Expect(12713, MsgResult::None);
    EXPECT_FALSE(FileOpen(chosen_[0], true, true));
    Answers().Expect(12713, Yes);
    EXPECT_TRUE(FileOpen(chosen_[0], false, true));
}

TEST_F(OpenFiles, BatchWithoutFreeSlotAsksOnceAndConvertsNothing)
{
    Fill();
    ChooseThree();
    FileConvert().Sources = chosen_;
    FileConvert().TargetExtension = QStringLiteral(".bmp");
    Answers().Expect(12713, {}, No); // once
    EXPECT_EQ(FileConvertRun().Converted, 0);
    EXPECT_EQ(WindowCount(), kDocumentsOfType);
    EXPECT_EQ(QDir(Folder()).entryList(QDir::Files), (QStringList{ "a.png", "b.png", "c.png" }));
}

TEST_F(OpenFiles, BatchReplacesOldestOnlyOnce)
{
    Fill();
    ChooseThree();
    FileConvert().Sources = chosen_;
    FileConvert().TargetExtension = QStringLiteral(".bmp");
    Answers().Expect(12713, {}, Yes); // once: its window is closed with the first file
    EXPECT_EQ(FileConvertRun().Converted, 3);
    EXPECT_FALSE(WindowInUse(1));
    EXPECT_EQ(WindowCount(), kDocumentsOfType - 1);
}

TEST_F(OpenFiles, OpensRemainingFilesAfterUnreadableOne)
{
    ChooseThree();
    Store(chosen_[1], "no picture");
    FileConvert().Sources = chosen_;
    FileConvert().TargetExtension = QStringLiteral(".bmp");
    Answers().Expect(12760, { QStringLiteral("b.png") }, Ok);
    EXPECT_EQ(FileConvertRun().Converted, 2);
    EXPECT_EQ(WindowCount(), 0);
}

} // namespace tarvik
