// The print commands: what is printed, into a file or on a queue, and what is said when it fails.
#include "print/page/printCommand.h"

#include "app/state/project.h"
#include "app/state/statusBar.h"
#include "print/page/printSettings.h"
#include "print/preview/pagination.h"
#include "print/printer/filePrinter.h"
#include "print/printer/jobWatch.h"
#include "screen/document/screenTable.h"
#include "tests/print/fakePrinters.h"
#include "tests/support/screens.h"

#include <QDir>
#include <QFile>

namespace tarvik {

namespace {

/// Counts pages, and may cancel before one of them.
class Progress final : public PrintProgress {
public:
    PrintOutcome Run(int pages, const Job& job) override
    {
        Pages = pages;
        Watcher watcher(*this);
        return job(watcher);
    }

    int Pages = 0;
    QList<int> Begun;
    int CancelBefore = 0;
    QStringList Status; ///< shown with each page

private:
    class Watcher final : public PrintWatcher {
    public:
        explicit Watcher(Progress& owner)
            : owner_(owner)
        {
        }
        bool MayPrint(int number, int) override
        {
            owner_.Begun.append(number);
            owner_.Status.append(TheFrame()->StatusText());
            return number != owner_.CancelBefore;
        }

    private:
        Progress& owner_;
    };
};

class PrintCommand : public ScreenTest {
protected:
    PrintCommand()
        : system(queues)
        , question()
    {
        UsePrinters(system);
        ThePrintProgress().Set(progress);
        Frame.Active = true;
        TheSeams().SaveFile = [this](const SaveFileQuestion& asked) {
            question = asked;
            ++asks;
            return path;
        };
        TheSeams().StartTimer = [this](int milliseconds, std::function<void()> tick) {
            EXPECT_EQ(milliseconds, kJobWatchIntervalMs);
            ticks.push_back(std::move(tick));
        };
        Views.WhenOffered = [this](const QVector<WindowId>& ids) {
            offered = ids;
            return chosen;
        };
        path = FilePath("out.pdf");
    }

    ~PrintCommand() override
    {
        ThePrintProgress().Reset();
        ThePrinterSystem().Reset();
    }

    WindowId OpenTitled(const QString& title)
    {
        const WindowId id = Open();
        ViewOf(id)->SetCaption(title);
        return id;
    }

    /// One tick of the watch.
    void Tick()
    {
        ASSERT_FALSE(ticks.empty());
        const auto tick = ticks.front();
        ticks.erase(ticks.begin());
        tick();
    }

    static int PagesOf(const QByteArray& pdf)
    {
        return static_cast<int>(pdf.count("/Type /Page\n"));
    }

    FakePrinters queues;
    WithFilePrinter system;
    Progress progress;
    SaveFileQuestion question;
    int asks = 0;
    QString path;
    QVector<WindowId> offered;
    QVector<WindowId> chosen;
    std::vector<std::function<void()>> ticks;
};

} // namespace

TEST_F(PrintCommand, PrintsTheActiveWindowOnTheQueue)
{
    OpenTitled("one.png");
    OpenTitled("two.png");
    PrintWindows(PrintMode::Active);
    ASSERT_EQ(queues.Sent.size(), 1);
    EXPECT_EQ(queues.Sent[0].Title, "two.png");
    EXPECT_EQ(queues.Sent[0].Choice.Printer, "Office");
    EXPECT_EQ(PagesOf(queues.Sent[0].Pdf), 1);
    EXPECT_EQ(progress.Pages, 1);
    EXPECT_EQ(asks, 0);
    EXPECT_TRUE(offered.isEmpty());
}

TEST_F(PrintCommand, PrintsTheChosenWindowsInTheirOrder)
{
    const WindowId one = OpenTitled("one.png");
    const WindowId two = OpenTitled("two.png");
    const WindowId three = OpenTitled("three.png");
    chosen = { two, one };
    PrintWindows(PrintMode::Chosen);
    EXPECT_EQ(offered, (QVector<WindowId>{ three, two, one }));
    ASSERT_EQ(queues.Sent.size(), 1);
    EXPECT_EQ(queues.Sent[0].Title, "two.png");
    EXPECT_EQ(PagesOf(queues.Sent[0].Pdf), 2) << "without slots a window a page";
    EXPECT_EQ(progress.Begun, (QList<int>{ 1, 2 }));
    EXPECT_EQ(progress.Status, (QStringList{ "Printing page 1 of 2...", "Printing page 2 of 2..." }));
    EXPECT_EQ(Frame.Status, "");
}

TEST_F(PrintCommand, OnePageHasATextOfItsOwn)
{
    OpenTitled("one.png");
    PrintWindows(PrintMode::Active);
    EXPECT_EQ(progress.Status, QStringList{ "Printing the page..." });
}

TEST_F(PrintCommand, NothingChosenPrintsNothing)
{
    OpenTitled("one.png");
    OpenTitled("two.png");
    PrintWindows(PrintMode::Chosen);
    EXPECT_TRUE(queues.Sent.isEmpty());
    EXPECT_EQ(progress.Pages, 0);
}

TEST_F(PrintCommand, WithoutWindowPrintsNothing)
{
    PrintWindows(PrintMode::Active);
    PrintWindows(PrintMode::Chosen);
    PrintWindows(PrintMode::Preview);
    EXPECT_TRUE(queues.Sent.isEmpty());
}

TEST_F(PrintCommand, WithoutPrinterNothingIsAsked)
{
    OpenTitled("one.png");
    OpenTitled("two.png");
    UsePrinters(queues);
    queues.Default.clear();
    Answers().Expect(12708, {}, Ok);
    PrintWindows(PrintMode::Chosen);
    queues.Default = "gone";
    Answers().Expect(12709, {}, Ok);
    PrintWindows(PrintMode::Chosen);
    EXPECT_TRUE(offered.isEmpty());
    EXPECT_TRUE(queues.Sent.isEmpty());
}

TEST_F(PrintCommand, ElevenWindowsGoOnToTheNextPage)
{
    for (PageSlot& slot : PresentPage().Layout)
        slot.Type = 2;
    for (int count = 0; count < 11; ++count)
        chosen.append(OpenTitled(QString::number(count)));
    PrintWindows(PrintMode::Chosen);
    ASSERT_EQ(queues.Sent.size(), 1);
    EXPECT_EQ(PagesOf(queues.Sent[0].Pdf), 2);
}

TEST_F(PrintCommand, PrintsThePagesOfThePreview)
{
    const WindowId one = OpenTitled("one.png");
    const WindowId two = OpenTitled("two.png");
    const Sheet sheet = PrinterSheet();
    BuildPages(PageWindowsOf({ one, two }), sheet);
    ASSERT_TRUE(Repaginate(2, sheet));
    PrintWindows(PrintMode::Preview);
    ASSERT_EQ(queues.Sent.size(), 1);
    EXPECT_EQ(PagesOf(queues.Sent[0].Pdf), 1);
    EXPECT_TRUE(offered.isEmpty());
}

TEST_F(PrintCommand, RefusedJobIsReportedWithItsReason)
{
    OpenTitled("one.png");
    queues.Refusal = "The queue is closed.";
    Answers().Expect(13365, { "Office", "The queue is closed." }, Ok);
    PrintWindows(PrintMode::Active);
    EXPECT_TRUE(ticks.empty());
}

TEST_F(PrintCommand, CancelledJobIsNotSent)
{
    chosen = { OpenTitled("one.png"), OpenTitled("two.png") };
    progress.CancelBefore = 2;
    PrintWindows(PrintMode::Chosen);
    EXPECT_EQ(progress.Begun, (QList<int>{ 1, 2 }));
    EXPECT_TRUE(queues.Sent.isEmpty());
    EXPECT_TRUE(ticks.empty());
}

TEST_F(PrintCommand, PdfFileIsAskedForAndWritten)
{
    OpenTitled("Channel 16: noon.png");
    ThePrinter().Printer = "PDF file";
    PrintWindows(PrintMode::Active);
    EXPECT_EQ(question.Title, "Save Pages as PDF");
    EXPECT_EQ(question.Filters, QStringList{ "PDF files|*.pdf" });
    EXPECT_EQ(question.FileName, "Channel 16- noon");
    EXPECT_TRUE(Contents(path).startsWith("%PDF-"));
    EXPECT_EQ(PagesOf(Contents(path)), 1);
    EXPECT_TRUE(queues.Sent.isEmpty());
}

TEST_F(PrintCommand, ProposedFileNameKeepsTheWholeTitle)
{
    OpenTitled("Live Screen 22.11.2026 17:19");
    ThePrinter().Printer = "PDF file";
    PrintWindows(PrintMode::Active);
    EXPECT_EQ(question.FileName, "Live Screen 22-11-2026 17-19");
}

TEST_F(PrintCommand, FolderOfThePdfFilesIsRemembered)
{
    OpenTitled("one.png");
    ThePrinter().Printer = "PDF file";
    Program().LastFile.Folder = "/pictures";
    PrintWindows(PrintMode::Active);
    EXPECT_EQ(question.InitialFolder, "/pictures");
    PrintWindows(PrintMode::Active);
    EXPECT_EQ(question.InitialFolder + u'/', Folder());
    EXPECT_EQ(Program().LastFile.Folder, "/pictures");
}

TEST_F(PrintCommand, CancelledQuestionForTheFilePrintsNothing)
{
    OpenTitled("one.png");
    ThePrinter().Printer = "PDF file";
    path.clear();
    PrintWindows(PrintMode::Active);
    EXPECT_EQ(asks, 1);
    EXPECT_EQ(progress.Pages, 0);
}

TEST_F(PrintCommand, CancelledJobLeavesTheOldFile)
{
    chosen = { OpenTitled("one.png"), OpenTitled("two.png") };
    ThePrinter().Printer = "PDF file";
    Store(path, "old");
    progress.CancelBefore = 2;
    PrintWindows(PrintMode::Chosen);
    EXPECT_EQ(Contents(path), "old");
    EXPECT_EQ(QDir(Folder()).entryList(QDir::Files | QDir::Hidden), QStringList{ "out.pdf" });
}

TEST_F(PrintCommand, FileThatCannotBeWrittenIsReported)
{
    OpenTitled("one.png");
    ThePrinter().Printer = "PDF file";
    path = FilePath("no folder/out.pdf");
    Answers().Expect(13364, { path, "" }, Ok);
    PrintWindows(PrintMode::Active);
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(PrintCommand, WriteProtectedFileStays)
{
    OpenTitled("one.png");
    ThePrinter().Printer = "PDF file";
    Store(path, "old");
    QFile(path).setPermissions(QFile::ReadOwner);
    Answers().Expect(12728, { path }, Ok);
    PrintWindows(PrintMode::Active);
    EXPECT_EQ(Contents(path), "old");
    EXPECT_EQ(progress.Pages, 0);
}

TEST_F(PrintCommand, JobIsWatchedUntilItIsPrinted)
{
    OpenTitled("one.png");
    queues.States[1] = JobState::Waiting;
    PrintWindows(PrintMode::Active);
    ASSERT_EQ(ticks.size(), 1U);
    Tick();
    ASSERT_EQ(ticks.size(), 1U) << "still waiting";
    queues.States[1] = JobState::Done;
    Tick();
    EXPECT_TRUE(ticks.empty());
}

TEST_F(PrintCommand, JobsCancelledOrFailedAtThePrinterAreReported)
{
    OpenTitled("one.png");
    PrintWindows(PrintMode::Active);
    PrintWindows(PrintMode::Active);
    ASSERT_EQ(ticks.size(), 1U) << "one timer for all jobs";
    queues.States = { { 1, JobState::Cancelled }, { 2, JobState::Failed } };
    Answers().Expect(13366, { "one.png", "Office" }, Ok);
    Answers().Expect(13367, { "one.png", "Office" }, Ok);
    Tick();
    EXPECT_TRUE(ticks.empty());
}

TEST_F(PrintCommand, NothingIsReportedDuringACommand)
{
    OpenTitled("one.png");
    PrintWindows(PrintMode::Active);
    queues.States[1] = JobState::Failed;
    IdleSet(false);
    Tick();
    IdleSet(true);
    Answers().Expect(13367, { "one.png", "Office" }, Ok);
    Tick();
    EXPECT_TRUE(ticks.empty());
}

} // namespace tarvik
