// The commands Open and Convert Files, and converting a batch.
#include "tests/link/documents/documents_fixture.h"

#include "app/state/project.h"
#include "app/text/lang.h"
#include "link/documents/file.h"
#include "link/documents/fileFormats.h"

#include <QDir>

namespace tarvik {

namespace {

class LoggingWatcher final : public FileBatchWatcher {
public:
    explicit LoggingWatcher(QStringList& log)
        : log_(log)
    {
    }

    void Progress(int done, int total, const QString& source) override
    {
        log_.append(QStringLiteral("%1/%2 %3").arg(done).arg(total).arg(source.section('/', -1)));
    }
    void Prepare(int window) override
    {
        log_.append(QStringLiteral("prepare %1").arg(window));
    }

private:
    QStringList& log_;
};

class FileConverting : public DocumentsTest {
protected:
    FileConverting()
    {
        FileConvert().TargetFolder = FilePath("out");
        FileConvert().TargetExtension = ".png";
        QDir(Folder()).mkdir("out");
    }

    void Sources(const QStringList& names)
    {
        FileConvert().Sources.clear();
        for (const QString& name : names)
            FileConvert().Sources.append(FilePath(name));
    }

    QString Target(const char* name)
    {
        return FilePath("out/") + QString::fromLatin1(name);
    }

    void Exists(const char* name)
    {
        Store(Target(name), "old");
    }

    /// Names of saved files, in order.
    QStringList SavedNames()
    {
        QStringList names;
        for (const QString& line : Log) {
            if (line.startsWith(QLatin1String("save")))
                names.append(line.section('/', -1));
        }
        return names;
    }

    int ClosedCount()
    {
        return static_cast<int>(Log.filter("close").size());
    }
};

class FilesOfDialog : public DocumentsTest {
protected:
    static BatchResult Unused()
    {
        ADD_FAILURE() << "nothing is to be converted";
        return {};
    }
    static BatchResult Run()
    {
        return FileConvertRun();
    }
    bool ToPng()
    {
        FileConvert().TargetFolder = Folder();
        FileConvert().TargetExtension = ".png";
        return true;
    }
};

} // namespace

TEST_F(FilesOfDialog, AsksForPictures)
{
    SetLastFile(FilePath("x.png"));
    FileOpenDlg();
    EXPECT_EQ(OpenQuestion.Title, "Open");
    EXPECT_EQ(OpenQuestion.InitialFolder, Program().LastFile.Folder);
    EXPECT_EQ(OpenQuestion.Filters, FileOpenFilters());
    EXPECT_EQ(OpenQuestion.DefaultExtension, "bmp");
    FileConvertDlg(Refuse, Unused);
    EXPECT_EQ(OpenQuestion.Title, "Convert Files");
    EXPECT_EQ(OpenQuestion.DefaultExtension, "swp");
}

TEST_F(FilesOfDialog, OpensEachFileUpToFirstFailure)
{
    OpenAnswer = { FilePath("a.png"), FilePath("bad.png"), FilePath("c.png") };
    FileOpenDlg();
    EXPECT_EQ(Log, QStringList({ "open " + FilePath("a.png"), "open " + FilePath("bad.png") }));
    EXPECT_EQ(Program().LastFile.Name, "bad");
}

TEST_F(FilesOfDialog, RememberedNoOpensNoMoreFiles)
{
    OpenAnswer = { FilePath("a.png"), FilePath("b.png") };
    Windows.OnOpen = [] {
        TheMessage().RememberedAnswer = MsgResult::No;
        return 1;
    };
    FileOpenDlg();
    EXPECT_EQ(Log, QStringList("open " + FilePath("a.png")));
    FileOpenDlg();
    EXPECT_EQ(Log.size(), 2) << "a new dialog clears the answer";
}

TEST_F(FilesOfDialog, CancelledConversionChangesNothing)
{
    OpenAnswer = { FilePath("a.png") };
    FileConvertDlg(Refuse, Unused);
    EXPECT_TRUE(Log.isEmpty());
    EXPECT_EQ(FileConvert().Sources, OpenAnswer);
    EXPECT_EQ(Program().LastFile.Name, "a") << "the next dialog starts there";
}

TEST_F(FilesOfDialog, AcceptedConversionConvertsFiles)
{
    OpenAnswer = { FilePath("a.bmp") };
    FileConvertDlg(
        [this] {
            EXPECT_EQ(FileConvert().Sources, OpenAnswer);
            FileConvert().TargetFolder = Folder();
            FileConvert().TargetExtension = ".png";
            return true;
        },
        Run);
    EXPECT_EQ(Log, QStringList({ "open " + FilePath("a.bmp"), "save 1 " + FilePath("a.png"), "close 1" }));
}

TEST_F(FilesOfDialog, ResultOfSeveralFilesIsShown)
{
    OpenAnswer = { FilePath("a.bmp"), FilePath("bad.bmp"), FilePath("c.bmp"), FilePath("d.bmp") };
    Store(FilePath("c.png"), "old");
    Answers().Expect(12734, No);
    Answers().ExpectWhile(
        11422, Ok, [] { EXPECT_EQ(TheMessage().Text, LngStr2(11422, "2", "4") + '\n' + LngStr2(11423, "1", "1")); });
    FileConvertDlg([this] { return ToPng(); }, Run);
}

TEST_F(FilesOfDialog, ResultIsNotShownIfProgramIsToClose)
{
    OpenAnswer = { FilePath("a.bmp"), FilePath("b.bmp") };
    TheSeams().PumpEvents = [] { Program().CloseRequested = true; };
    FileConvertDlg([this] { return ToPng(); }, Run);
    EXPECT_EQ(Log.filter("save").size(), 1);
}

TEST_F(FileConverting, OpensSavesAndClosesOneAfterTheOther)
{
    Sources({ "b.bmp", "a.wmf" });
    EXPECT_EQ(FileConvertRun().Converted, 2);
    EXPECT_EQ(Log,
        QStringList({ "open " + FilePath("b.bmp"), "save 1 " + Target("b.png"), "close 1", "open " + FilePath("a.wmf"),
            "save 2 " + Target("a.png"), "close 2" }));
}

TEST_F(FileConverting, FileThatFailsToOpenIsSkipped)
{
    Sources({ "bad.bmp", "a.bmp" });
    EXPECT_EQ(FileConvertRun().Converted, 1);
    EXPECT_EQ(SavedNames(), QStringList("a.png"));
    EXPECT_EQ(ClosedCount(), 1);
}

TEST_F(FileConverting, ListOpenedInEditorIsReported)
{
    const FakeListFiles editors;
    Sources({ "a.tvm", "b.csv", "c.bmp" });
    Answers().Expect(12750, { "a.tvm" }, Ok);
    Answers().Expect(12750, { "b.csv" }, Ok);
    EXPECT_EQ(FileConvertRun().Converted, 1);
    EXPECT_EQ(Log, QStringList({ "open " + FilePath("c.bmp"), "save 1 " + Target("c.png"), "close 1" }));
}

TEST_F(FileConverting, UnopenedListIsReported)
{
    Sources({ "a.tvm", "b.csv", "c.txt" });
    for (const char* name : { "a.tvm", "b.csv", "c.txt" })
        Answers().Expect(12750, { QString::fromLatin1(name) }, Ok);
    EXPECT_EQ(FileConvertRun().Converted, 0);
    EXPECT_TRUE(Log.isEmpty());
}

TEST_F(FileConverting, FileOfUnknownKindIsReportedOnceByName)
{
    Sources({ "a.doc" });
    Answers().Expect(12750, { "a.doc" }, Ok);
    EXPECT_EQ(FileConvertRun().Converted, 0);
}

TEST_F(FileConverting, WindowReturnedByOpenIsSavedAndClosed)
{
    Windows.OnOpen = [] { return 3; };
    Sources({ "a.bmp" });
    EXPECT_EQ(FileConvertRun().Converted, 1);
    EXPECT_EQ(Log, QStringList({ "open " + FilePath("a.bmp"), "save 3 " + Target("a.png"), "close 3" }));
}

TEST_F(FileConverting, DocumentOpenedEarlierStaysOpen)
{
    EXPECT_TRUE(FileOpen(FilePath("mine.bmp"), true, true));
    Sources({ "bad.bmp" });
    EXPECT_EQ(FileConvertRun().Converted, 0);
    EXPECT_EQ(ClosedCount(), 0);
}

TEST_F(FileConverting, PictureIsSavedAtItsOwnSize)
{
    Sources({ "a.bmp" });
    FileConvertRun();
    EXPECT_EQ(Log, QStringList({ "open " + FilePath("a.bmp"), "save 1 " + Target("a.png"), "close 1" }));
    EXPECT_EQ(Windows.OwnSize, QStringList("own 1 after open " + FilePath("a.bmp")));
}

TEST_F(FileConverting, TextTargetWritesNothing)
{
    FileConvert().TargetExtension = ".csv";
    Sources({ "a.bmp" });
    Answers().Expect(12763, { Target("a.csv") }, Ok);
    EXPECT_EQ(FileConvertRun().Converted, 0);
    FileConvert().TargetExtension = ".txt";
    EXPECT_EQ(FileConvertRun().Converted, 0);
    EXPECT_EQ(ClosedCount(), 2);
    EXPECT_TRUE(QDir(FilePath("out")).isEmpty());
}

TEST_F(FileConverting, ClosingProgramCompletesCurrentFileOnly)
{
    Sources({ "a.bmp", "b.bmp", "c.bmp" });
    int files = 0;
    TheSeams().PumpEvents = [&files] { Program().CloseRequested = ++files == 2; };
    EXPECT_EQ(FileConvertRun().Converted, 2);
    EXPECT_EQ(SavedNames(), QStringList({ "a.png", "b.png" }));
    EXPECT_EQ(ClosedCount(), 2);
}

TEST_F(FileConverting, CancelEndsBatchAfterCurrentFile)
{
    class Cancelling final : public FileBatchWatcher {
    public:
        void Prepare(int window) override
        {
            cancelled_ = window == 2;
        }
        bool IsCancelled() override
        {
            return cancelled_;
        }

    private:
        bool cancelled_ = false;
    };
    Sources({ "a.bmp", "b.bmp", "c.bmp" });
    Cancelling watcher;
    const BatchResult result = FileConvertRun(watcher);
    EXPECT_EQ(result.Converted, 2);
    EXPECT_EQ(result.Total, 3);
    EXPECT_EQ(Log.last(), "close 2");
}

TEST_F(FileConverting, SourceIsNotReplacedByOtherSource)
{
    Store(FilePath("a.png"), "original");
    FileConvert().TargetFolder = Folder();
    Sources({ "a.bmp", "a.png" });
    Answers().Expect(11424, { "a.bmp", "a.png" }, Ok);
    Answers().ExpectWhile(12734, Yes, [] { TheMessage().YesAll = true; });
    const BatchResult result = FileConvertRun();
    EXPECT_EQ(Log, QStringList({ "open " + FilePath("a.png"), "save 1 " + FilePath("a.png"), "close 1" }));
    EXPECT_EQ(result.Converted, 1);
    EXPECT_EQ(result.LeftOut, 1);
    EXPECT_EQ(result.Failed, 0);
}

TEST_F(FileConverting, SourceIsNotReplacedThroughLink)
{
    Store(FilePath("a.png"), "original");
    ASSERT_TRUE(QFile::link(Folder(), FilePath("link")));
    FileConvert().TargetFolder = FilePath("link");
    Sources({ "a.bmp", "a.png" });
    Answers().Expect(11424, { "a.bmp", "a.png" }, Ok);
    Answers().Expect(12734, Yes);
    EXPECT_EQ(FileConvertRun().Converted, 1);
    EXPECT_EQ(SavedNames(), QStringList("a.png"));
    EXPECT_EQ(Log.filter("open"), QStringList("open " + FilePath("a.png")));
}

TEST_F(FileConverting, SecondSourceOfATargetIsLeftOut)
{
    Sources({ "a.bmp", "a.pcx", "b.bmp" });
    Answers().Expect(11425, { "a.pcx", "a.bmp" }, Ok);
    const BatchResult result = FileConvertRun();
    EXPECT_EQ(SavedNames(), QStringList({ "a.png", "b.png" }));
    EXPECT_EQ(result.LeftOut, 1);
}

TEST_F(FileConverting, SourceNamedTwiceIsConvertedOnce)
{
    Sources({ "a.bmp", "a.bmp" });
    const BatchResult result = FileConvertRun();
    EXPECT_EQ(result.Total, 1);
    EXPECT_EQ(result.Converted, 1);
}

TEST_F(FileConverting, LeftOutFirstFileKeepsOldAnswersFromTheNext)
{
    TheMessage().RememberedAnswer = MsgResult::No;
    Store(FilePath("a.png"), "original");
    FileConvert().TargetFolder = Folder();
    Sources({ "a.bmp", "a.png" });
    Answers().Expect(11424, Ok);
    Answers().Expect(12734, Yes);
    EXPECT_EQ(FileConvertRun().Converted, 1);
}

TEST_F(FileConverting, CountsFilesByOutcome)
{
    Exists("a.png");
    Sources({ "a.bmp", "bad.bmp", "c.bmp", "d.tvm", "e.bmp" });
    Answers().Expect(12734, No);
    Answers().Expect(12750, { "d.tvm" }, Ok);
    const BatchResult result = FileConvertRun();
    EXPECT_EQ(result.Total, 5);
    EXPECT_EQ(result.Converted, 2);
    EXPECT_EQ(result.LeftOut, 1);
    EXPECT_EQ(result.Failed, 2);
}

TEST_F(FileConverting, DocumentsKnowBatchAndItsPalette)
{
    bool wasInBatch = false;
    Windows.OnOpen = [&] {
        wasInBatch = Windows.InBatch;
        return 1;
    };
    Sources({ "a.bmp" });
    FileConvertRun();
    EXPECT_TRUE(wasInBatch);
    EXPECT_FALSE(Windows.InBatch);
    EXPECT_EQ(Windows.BatchPalette, std::nullopt);
    FileConvert().BlackAndWhite = true;
    FileConvertRun();
    EXPECT_EQ(Windows.BatchPalette, true);
}

TEST_F(FileConverting, RemembersLastFileOpened)
{
    Sources({ "a.bmp", "b.bmp" });
    FileConvertRun();
    EXPECT_EQ(Program().LastFile.Name, "b");
}

TEST_F(FileConverting, SingleExistingTargetIsAskedFor)
{
    Exists("a.png");
    Sources({ "a.bmp" });
    Answers().Expect(12734, { Target("a.png") }, No);
    EXPECT_EQ(FileConvertRun().Converted, 0);
    EXPECT_TRUE(SavedNames().isEmpty());
    EXPECT_EQ(ClosedCount(), 1);
    Answers().Expect(12734, { Target("a.png") }, Yes);
    EXPECT_EQ(FileConvertRun().Converted, 1);
    EXPECT_EQ(SavedNames(), QStringList("a.png"));
}

TEST_F(FileConverting, SingleQuestionHasTwoButtonsAndABatchFive)
{
    Exists("a.png");
    Sources({ "a.bmp" });
    Answers().ExpectWhile(12734, No, [] { EXPECT_EQ(TheMessage().Buttons(), MsgButtons::YesNo); });
    FileConvertRun();
    Sources({ "a.bmp", "bad.bmp" });
    Answers().ExpectWhile(12734, No, [] { EXPECT_EQ(TheMessage().Buttons(), MsgButtons::AllChoices); });
    FileConvertRun();
}

TEST_F(FileConverting, EachExistingTargetIsAskedFor)
{
    Exists("a.png");
    Exists("b.png");
    Sources({ "a.bmp", "b.bmp", "c.bmp" });
    Answers().Expect(12734, { Target("a.png") }, No);
    Answers().Expect(12734, { Target("b.png") }, Yes);
    EXPECT_EQ(FileConvertRun().Converted, 2);
    EXPECT_EQ(SavedNames(), QStringList({ "b.png", "c.png" }));
}

TEST_F(FileConverting, YesForAllIsValidForThisBatchOnly)
{
    Exists("a.png");
    Exists("b.png");
    Sources({ "a.bmp", "b.bmp" });
    Answers().ExpectWhile(12734, Yes, [] { TheMessage().YesAll = true; });
    EXPECT_EQ(FileConvertRun().Converted, 2);
    EXPECT_FALSE(TheMessage().YesAll);
    Answers().Expect(12734, No);
    Answers().Expect(12734, No);
    EXPECT_EQ(FileConvertRun().Converted, 0);
}

TEST_F(FileConverting, AnswersForAllOfEarlierBatchAreIgnored)
{
    Exists("a.png");
    Sources({ "a.bmp", "bad.bmp" });
    TheMessage().YesAll = true;
    Answers().Expect(12734, No);
    EXPECT_EQ(FileConvertRun().Converted, 0);
}

TEST_F(FileConverting, NoForAllSkipsExistingTargetsOnly)
{
    Exists("a.png");
    Exists("b.png");
    Sources({ "a.bmp", "b.bmp", "c.bmp" });
    Answers().ExpectWhile(12734, No, [] { TheMessage().NoAll = true; });
    EXPECT_EQ(FileConvertRun().Converted, 1);
    EXPECT_EQ(SavedNames(), QStringList("c.png"));
    EXPECT_EQ(ClosedCount(), 3);
}

TEST_F(FileConverting, CancelClosesDocumentAndEndsBatch)
{
    Exists("b.png");
    Sources({ "a.bmp", "b.bmp", "c.bmp" });
    Answers().Expect(12734, Cancel);
    EXPECT_EQ(FileConvertRun().Converted, 1);
    EXPECT_EQ(Log.filter("open").size(), 2);
    EXPECT_EQ(Log.last(), "close 2");
}

TEST_F(FileConverting, TargetEqualToSourceIsAskedFor)
{
    Store(FilePath("a.png"), "old");
    FileConvert().TargetFolder = Folder();
    Sources({ "a.png" });
    Answers().Expect(12734, { FilePath("a.png") }, Yes);
    EXPECT_EQ(FileConvertRun().Converted, 1);
}

TEST_F(FileConverting, TargetWithoutTypeFailsForEachFile)
{
    FileConvert().TargetExtension.clear();
    Sources({ "a.bmp", "b.bmp" });
    Answers().Expect(12750, { "a" }, Ok);
    Answers().Expect(12750, { "b" }, Ok);
    EXPECT_EQ(FileConvertRun().Converted, 0);
    EXPECT_EQ(ClosedCount(), 2);
}

TEST_F(FileConverting, FailedWriteDoesNotEndBatch)
{
    Windows.Outcome = PictureSaved::Failed;
    Sources({ "a.bmp", "b.bmp" });
    Answers().Expect(12761, { "a.png" }, Ok);
    Answers().Expect(12761, { "b.png" }, Ok);
    EXPECT_EQ(FileConvertRun().Converted, 0);
    EXPECT_EQ(ClosedCount(), 2);
}

TEST_F(FileConverting, WatcherSeesProgressAndPreparesDocumentBeforeSaving)
{
    Sources({ "a.bmp", "b.bmp" });
    LoggingWatcher watcher(Log);
    FileConvertRun(watcher);
    EXPECT_EQ(Log.mid(0, 4),
        QStringList({ "0/2 a.bmp", "open " + FilePath("a.bmp"), "prepare 1", "save 1 " + Target("a.png") }));
    EXPECT_TRUE(Log.contains("1/2 b.bmp"));
}

} // namespace tarvik
