#include "screen/files/screenShot.h"

#include "app/message/message.h"
#include "app/text/lang.h"
#include "screen/document/color.h"
#include "screen/files/pictureFile.h"
#include "screen/window/closing.h"
#include "tests/support/fakeChannel.h"
#include "tests/support/screens.h"
#include "tests/support/unbindModule.h"

#include <QBuffer>

namespace tarvik {

namespace {

class Captures : public ScreenTest {
protected:
    Captures()
    {
        TheSeams().Sleep = [this](
                               int milliseconds) { channel_.Log.append(QStringLiteral("Sleep %1").arg(milliseconds)); };
        QBuffer buffer(&channel_.Contents);
        buffer.open(QIODevice::WriteOnly);
        Picture({ 64, 48 }).save(&buffer, "PNG");
    }

    QString Temporary(int number = 0) const
    {
        return FilePath(QStringLiteral("temp%1.png").arg(number, 2, 10, QLatin1Char('0')));
    }

    FakeChannel channel_;
};

} // namespace

TEST_F(Captures, FetchDisplayIntoWindow)
{
    const WindowId id = FetchScreen();
    ASSERT_EQ(id, 1);
    EXPECT_EQ(ScreenOf(id)->Master, Picture({ 64, 48 }));
    EXPECT_EQ(Views[id].Client, QSize(64, 48));
    EXPECT_EQ(WindowSubtypeOf(id), WindowSubtype::Live);
    EXPECT_EQ(ScreenOf(id)->Date, moment_);
    EXPECT_EQ(Views[id].Title, WindowTitle(id, moment_)) << "the temporary name is not seen";
    EXPECT_EQ(channel_.Log,
        (QStringList{ QStringLiteral("Send DISP:WIND:FETC?"), QStringLiteral("Sleep 2000"),
            QStringLiteral("GetFileFromStream %1 5000").arg(Temporary()) }));
}

TEST_F(Captures, RepaintFrameBeforeBlocking)
{
    class PaintedFrame final : public FakeFrame {
    public:
        explicit PaintedFrame(QStringList& log)
            : log_(log)
        {
        }
        void FinishPainting() override
        {
            log_.append(QStringLiteral("Paint"));
            EXPECT_TRUE(Busy);
            EXPECT_FALSE(Program().Idle);
        }

    private:
        QStringList& log_;
    };
    PaintedFrame frame(channel_.Log);
    CaptureScreen();
    ASSERT_FALSE(channel_.Log.isEmpty());
    EXPECT_EQ(channel_.Log.first(), "Paint");
    EXPECT_EQ(channel_.Log.count(QStringLiteral("Paint")), 1);
}

TEST_F(Captures, AskForSavingWhenClosed)
{
    const WindowId id = FetchScreen();
    Answers().Expect(12714, { ScreenTitle(id) }, Cancel);
    EXPECT_FALSE(CloseWindow(id, true));
    EXPECT_TRUE(WindowInUse(id));
}

TEST_F(Captures, AreShownInFrontWhileFrameIsActive)
{
    EXPECT_EQ(Views[FetchScreen()].Shown, 0);
    Views.FrameIsActive = true;
    EXPECT_EQ(Views[FetchScreen()].Shown, 1);
}

TEST_F(Captures, LoadingShowsAndClearsStatusLine)
{
    FetchScreen();
    EXPECT_EQ(Frame.Log.value(0), QStringLiteral("status:") + LngStr(14500) + LngStr(14301) + LngStr(10104));
    EXPECT_EQ(Frame.Status, QString());
}

TEST_F(Captures, ShowBackgroundWhereTransparent)
{
    channel_.Contents.clear();
    QBuffer buffer(&channel_.Contents);
    buffer.open(QIODevice::WriteOnly);
    QImage picture(2, 2, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    picture.save(&buffer, "PNG");
    TheColorDefaults().Background = 0x102030;
    EXPECT_EQ(ScreenOf(FetchScreen())->Master.pixelColor(0, 0), QColor(0x30, 0x20, 0x10));
}

TEST_F(Captures, LeaveNoTemporaryFile)
{
    Store(Temporary(), "left over");
    FetchScreen();
    EXPECT_EQ(QDir(Folder()).entryList(QDir::Files), QStringList());
}

TEST_F(Captures, OpenOneWindowEach)
{
    const WindowId first = FetchScreen();
    const WindowId second = FetchScreen();
    EXPECT_NE(first, second);
    EXPECT_EQ(WindowCount(WindowType::Screen), 2);
}

TEST_F(Captures, WithoutLinkDoNothing)
{
    channel_.Connected = false;
    EXPECT_EQ(FetchScreen(), -1);
    EXPECT_EQ(channel_.Log, QStringList());
    EXPECT_EQ(WindowCount(), 0);
}

TEST_F(Captures, BrokenTransferClosesLinkAndIsReportedOnce)
{
    channel_.Answer(QStringLiteral("GetFileFromStream"), ChannelStatus::LinkFailed);
    Answers().Expect(12703, {}, Ok);
    EXPECT_EQ(FetchScreen(), -1);
    EXPECT_EQ(channel_.Count(QStringLiteral("Disconnect")), 1);
    EXPECT_EQ(channel_.Count(QStringLiteral("GetFileFromStream")), 1) << "no second try";
    EXPECT_FALSE(channel_.Connected);
    EXPECT_EQ(WindowCount(), 0);
}

TEST_F(Captures, AnyOtherTransferFailureClosesLinkToo)
{
    for (const ChannelStatus status : { ChannelStatus::Refused, ChannelStatus::LocalFile, ChannelStatus::Unknown }) {
        channel_.Connected = true;
        channel_.Answer(QStringLiteral("GetFileFromStream"), status);
        Answers().ExpectWhile(
            12703, Ok, [this] { EXPECT_FALSE(channel_.Connected) << "the link ends before the message"; });
        EXPECT_EQ(FetchScreen(), -1) << static_cast<int>(status);
        EXPECT_EQ(WindowCount(), 0) << static_cast<int>(status);
    }
}

TEST_F(Captures, ExistingTemporaryFileIsRemovedBeforeTransfer)
{
    bool isThere = false;
    channel_.OnCall = [&](const QString& call) {
        if (call.startsWith(QStringLiteral("Send")))
            Store(Temporary(), "made meanwhile");
        else if (call.startsWith(QStringLiteral("GetFile")))
            isThere = QFile::exists(Temporary());
    };
    EXPECT_GT(FetchScreen(), 0);
    EXPECT_FALSE(isThere);
}

TEST_F(Captures, WorkWithReadOnlyProgramFolder)
{
    Program().AppPath = FilePath(QStringLiteral("gone/"));
    ASSERT_GT(FetchScreen(), 0);
    EXPECT_FALSE(QFile::exists(Program().AppPath));
    const QString path = channel_.Log.last().section(u' ', 1, 1);
    EXPECT_TRUE(path.endsWith(QStringLiteral("/temp00.png"))) << path.toStdString();
    EXPECT_FALSE(QFileInfo::exists(QFileInfo(path).path())) << "nothing is left of its own folder";
}

TEST_F(Captures, FailureOfCommandIsIgnored)
{
    channel_.Answer(QStringLiteral("Send"), ChannelStatus::Refused);
    EXPECT_GT(FetchScreen(), 0);
}

TEST_F(Captures, UnreadablePictureIsSkippedAndItsFileKept)
{
    channel_.Contents = "no picture";
    EXPECT_EQ(FetchScreen(), -1);
    EXPECT_EQ(WindowCount(), 0);
    EXPECT_TRUE(QFile::exists(Temporary()));
    EXPECT_TRUE(channel_.Connected);
}

TEST_F(Captures, TruncatedPictureOpensNoWindow)
{
    channel_.Contents.chop(20);
    EXPECT_EQ(FetchScreen(), -1);
    EXPECT_EQ(WindowCount(), 0);
    EXPECT_EQ(Frame.Status, QString());
}

TEST_F(Captures, PictureOfAbsurdSizeIsSkipped)
{
    // The width in the first chunk of a PNG file.
    channel_.Contents.replace(16, 4, QByteArray::fromHex("7fffffff"));
    EXPECT_EQ(FetchScreen(), -1);
    EXPECT_EQ(WindowCount(), 0);
    EXPECT_TRUE(QFile::exists(Temporary()));
}

TEST_F(Captures, AskIndependentlyOfAnswersAboutFiles)
{
    for (int count = 0; count < kDocumentsOfType; ++count)
        Open();
    for (const MsgResult before : { No, Yes }) {
        TheMessage().RememberedAnswer = before;
        Answers().Expect(12713, {}, No);
        EXPECT_EQ(FetchScreen(), -1);
    }
    EXPECT_EQ(WindowSubtypeOf(1), WindowSubtype::File);
}

TEST_F(Captures, FullTableIsReported)
{
    for (WindowId id = 1; id <= kWindowSlots; ++id)
        WindowTable().Table[static_cast<size_t>(id)].Type = WindowType::DataSet;
    Answers().Expect(12711, {}, Ok);
    EXPECT_EQ(FetchScreen(), -1);
}

TEST_F(Captures, HundredAndFirstReplacesOldestOrNothing)
{
    const WindowId oldest = Open();
    for (int count = 1; count < kDocumentsOfType; ++count)
        Open();
    Answers().Expect(12713, {}, No);
    EXPECT_EQ(FetchScreen(), -1);
    EXPECT_TRUE(WindowIsFileImage(oldest));
    Answers().Expect(12713, {}, Yes);
    EXPECT_EQ(FetchScreen(), oldest);
    EXPECT_EQ(WindowSubtypeOf(oldest), WindowSubtype::Live);
    EXPECT_TRUE(WindowIsModified(oldest));
}

TEST_F(Captures, UseFirstAvailableTemporaryName)
{
    EXPECT_EQ(TemporaryName(QStringLiteral("png")), QStringLiteral("temp00.png"));
    ASSERT_TRUE(QDir(Folder()).mkdir(QStringLiteral("temp00.png"))); // can't be deleted as a file
    EXPECT_EQ(TemporaryName(QStringLiteral("png")), QStringLiteral("temp01.png"));
    EXPECT_EQ(TemporaryName(QStringLiteral("set")), QStringLiteral("temp00.set"));
    Store(Temporary(1), "left over");
    EXPECT_EQ(TemporaryName(QStringLiteral("png")), QStringLiteral("temp01.png"));
    EXPECT_FALSE(QFile::exists(Temporary(1)));
    for (int number = 1; number < 9; ++number)
        ASSERT_TRUE(QDir().mkdir(Temporary(number)));
    EXPECT_EQ(TemporaryName(QStringLiteral("png")), QStringLiteral("temp09.png"));
}

TEST_F(Captures, WithoutTemporaryNameFailSilently)
{
    for (int number = 0; number < 10; ++number)
        ASSERT_TRUE(QDir().mkdir(Temporary(number)));
    EXPECT_EQ(TemporaryName(QStringLiteral("png")), QString());
    EXPECT_EQ(FetchScreen(), -1);
    EXPECT_EQ(channel_.Log, QStringList());
}

TEST_F(Captures, WithoutLibraryNothingIsFetched)
{
    UnbindModule(Module::Pictures);
    CaptureScreen();
    EXPECT_EQ(channel_.Log, QStringList());
}

TEST_F(Captures, LibraryLostDuringTransferOpensNoWindow)
{
    channel_.OnCall = [](const QString& call) {
        if (call.startsWith(QStringLiteral("GetFileFromStream")))
            UnbindModule(Module::Pictures);
    };
    EXPECT_EQ(FetchScreen(), -1);
    EXPECT_EQ(WindowCount(), 0);
}

TEST_F(Captures, CommandKeepsProgramBusy)
{
    bool wasBusy = false;
    bool wasIdle = true;
    channel_.OnCall = [&](const QString&) {
        wasBusy = Frame.Busy;
        wasIdle = Program().Idle;
    };
    CaptureScreen();
    EXPECT_TRUE(wasBusy);
    EXPECT_FALSE(wasIdle);
    EXPECT_FALSE(Frame.Busy);
    EXPECT_TRUE(Program().Idle);
    EXPECT_EQ(WindowCount(WindowType::Screen), 1);
}

TEST_F(Captures, PointerIsRestoredWhenCommandsAreEnabled)
{
    class PointerFrame final : public FakeFrame {
    public:
        void MenuUpdate() override
        {
            if (Program().Idle)
                WasBusy.append(Busy);
        }
        QVector<bool> WasBusy;
    };
    PointerFrame frame;
    CaptureScreen();
    EXPECT_EQ(frame.WasBusy, QVector<bool>{ false });
}

TEST_F(Captures, AutoTileFollowsNumberOfWindows)
{
    int tiled = 0;
    Views.WhenArranged = [&](Arrangement) { ++tiled; };
    Program().AutoTile = true;
    FetchScreen();
    EXPECT_EQ(tiled, 0);
    FetchScreen();
    EXPECT_EQ(tiled, 1);
}

} // namespace tarvik
