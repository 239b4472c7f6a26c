// How the frame opens and closes.
#include "app/platform/closeSignal.h"
#include "app/settings/ini.h"
#include "app/state/progressBar.h"
#include "app/state/statusBar.h"
#include "tests/app/frame/frame_form_fixture.h"
#include "tests/support/fakeDialog.h"
#include "tests/support/fakeInstrumentLink.h"

#include <QApplication>
#include <QLabel>

#if defined(Q_OS_UNIX)
#include <csignal>
#include <unistd.h>
#endif

namespace tarvik {

TEST_F(MainFrame, FocusesTheFirstButtonAfterTheStart)
{
    Start();
    EXPECT_TRUE(Cm(0).hasFocus());
}

TEST_F(MainFrame, ShowsTheBarsOfTheSettings)
{
    IniWriteBool(FilePath("Tarvik.ini"), "Window", "Toolbar", false);
    IniWriteBool(FilePath("Tarvik.ini"), "Window", "Statusbar", false);
    MfMain& main = Start();
    EXPECT_FALSE(FindControl(main, "PbToolbar").isVisible());
    EXPECT_FALSE(FindControl(main, "PbStatusBar").isVisible());
    EXPECT_FALSE(Item("MnViewToolbar").isChecked());
    EXPECT_FALSE(Item("MnViewStatusBar").isChecked());
}

TEST_F(MainFrame, OpensWhereItWasLast)
{
    IniWriteInt(FilePath("Tarvik.ini"), "Tarvik", "WinState", 0);
    IniWriteSingle(FilePath("Tarvik.ini"), "Tarvik", "WinWidth", 9000);
    IniWriteSingle(FilePath("Tarvik.ini"), "Tarvik", "WinHeight", 6000);
    IniWriteSingle(FilePath("Tarvik.ini"), "Tarvik", "WinLeft", 150);
    IniWriteSingle(FilePath("Tarvik.ini"), "Tarvik", "WinTop", 300);
    MfMain& main = Start();
    EXPECT_EQ(main.pos(), QPoint(10, 20)) << "of the title bar";
    EXPECT_EQ(main.size(), QSize(600, 400));
    EXPECT_FALSE(main.isMaximized());
    main.close();
    EXPECT_EQ(IniReadSingle(FilePath("Tarvik.ini"), "Tarvik", "WinWidth", 0), static_cast<float>(main.width()) * 15.0F);
    EXPECT_EQ(IniReadSingle(FilePath("Tarvik.ini"), "Tarvik", "WinLeft", 0), 150.0F);
}

TEST_F(MainFrame, ShowsItsPictureInTheLogoAndFreesIt)
{
    QSize shown;
    QSize kept;
    TheSeams().StartTimer = [&](int, std::function<void()> tick) {
        kept = Find<QLabel>(*frame, "ImLogoMr").pixmap(Qt::ReturnByValue).size();
        shown = Find<QLabel>(dynamic_cast<QWidget&>(*DialogTop()), "ImLogo").pixmap(Qt::ReturnByValue).size();
        EXPECT_FALSE(frame->isVisible());
        QTimer::singleShot(0, qApp, std::move(tick));
    };
    Start();
    EXPECT_FALSE(kept.isEmpty());
    EXPECT_EQ(shown, kept);
    EXPECT_TRUE(Find<QLabel>(*frame, "ImLogoMr").pixmap(Qt::ReturnByValue).isNull());
}

TEST_F(MainFrame, IsMaximisedWithoutSettings)
{
    MfMain& main = Start();
    EXPECT_TRUE(main.isMaximized());
    EXPECT_EQ(Program().MainWindowState, WinState::Maximised);
}

TEST_F(MainFrame, KeepsItsRestoredSizeWhileItIsMaximised)
{
    IniWriteInt(FilePath("Tarvik.ini"), "Tarvik", "WinState", 2);
    IniWriteSingle(FilePath("Tarvik.ini"), "Tarvik", "WinWidth", 9000);
    IniWriteSingle(FilePath("Tarvik.ini"), "Tarvik", "WinHeight", 6000);
    IniWriteSingle(FilePath("Tarvik.ini"), "Tarvik", "WinLeft", 150);
    IniWriteSingle(FilePath("Tarvik.ini"), "Tarvik", "WinTop", 300);
    MfMain& main = Start();
    EXPECT_TRUE(main.isMaximized());
    main.close();
    EXPECT_EQ(IniReadInt(FilePath("Tarvik.ini"), "Tarvik", "WinState", 0), 2);
    EXPECT_EQ(IniReadSingle(FilePath("Tarvik.ini"), "Tarvik", "WinWidth", 0), 9000.0F);
    EXPECT_EQ(IniReadSingle(FilePath("Tarvik.ini"), "Tarvik", "WinHeight", 0), 6000.0F);
    EXPECT_EQ(IniReadSingle(FilePath("Tarvik.ini"), "Tarvik", "WinLeft", 0), 150.0F);
    EXPECT_EQ(IniReadSingle(FilePath("Tarvik.ini"), "Tarvik", "WinTop", 0), 300.0F);
}

TEST_F(MainFrame, SavesThatItWasMinimisedWithItsRestoredSize)
{
    IniWriteInt(FilePath("Tarvik.ini"), "Tarvik", "WinState", 0);
    IniWriteSingle(FilePath("Tarvik.ini"), "Tarvik", "WinWidth", 9000);
    IniWriteSingle(FilePath("Tarvik.ini"), "Tarvik", "WinHeight", 6000);
    MfMain& main = Start();
    main.showMinimized();
    ASSERT_TRUE(main.isMinimized());
    main.close();
    EXPECT_EQ(IniReadInt(FilePath("Tarvik.ini"), "Tarvik", "WinState", 0), 1);
    EXPECT_EQ(IniReadSingle(FilePath("Tarvik.ini"), "Tarvik", "WinWidth", 0), 9000.0F);
    EXPECT_EQ(IniReadSingle(FilePath("Tarvik.ini"), "Tarvik", "WinHeight", 0), 6000.0F);
}

TEST_F(MainFrame, RefusesToCloseWhileACommandRuns)
{
    MfMain& main = Start();
    BeginBusy();
    EXPECT_FALSE(main.close());
    EXPECT_FALSE(QFile::exists(FilePath("Tarvik.ini")));
    EndBusy();
    EXPECT_TRUE(main.close());
}

TEST_F(MainFrame, RefusesToCloseDuringTheStart)
{
    bool closed = true;
    class ClosingLink final : public FakeInstrumentLink {
    public:
        ClosingLink(const std::unique_ptr<MfMain>& main, bool& closed)
            : main_(main)
            , closed_(closed)
        {
        }
        void AutoConnect(bool) override
        {
            closed_ = main_->close();
        }

    private:
        const std::unique_ptr<MfMain>& main_;
        bool& closed_;
    };
    ClosingLink link(frame, closed);
    Start();
    EXPECT_FALSE(closed);
    EXPECT_TRUE(frame->isVisible());
}

TEST_F(MainFrame, ClosesByItsExitItem)
{
    MfMain& main = Start();
    Item("MnFileExit").trigger();
    EXPECT_FALSE(main.isVisible());
    EXPECT_TRUE(QFile::exists(FilePath("Tarvik.ini")));
}

TEST_F(MainFrame, StaysWhenAPromptWasCancelled)
{
    MfMain& main = Start();
    documents.Closes = false;
    EXPECT_FALSE(main.close());
    EXPECT_TRUE(main.isVisible());
    EXPECT_TRUE(QFile::exists(FilePath("Tarvik.ini")));
}

TEST_F(MainFrame, UnbindsItselfOnDestruction)
{
    Start();
    frame.reset();
    TheFrame()->MenuUpdate();
    TheFrame()->SetStatusText("x");
    EXPECT_TRUE(CommandRun(Command::ViewToolbar));
    ProgressStart(2);
    ProgressEnd();
}

TEST_F(MainFrame, EndsAtOnceWithoutALibrary)
{
    QFile::remove(FilePath(ModuleFileName(Module::ListStore)));
    Answers().Expect(12705, { ModuleFileName(Module::ListStore).toUpper() }, Ok);
    frame = std::make_unique<MfMain>(Folder().chopped(1));
    EXPECT_FALSE(frame->Load());
    EXPECT_FALSE(frame->isVisible());
}

TEST_F(MainFrame, CloseRequestWaitsForTheEndOfTheStart)
{
    TheSeams().StartTimer = [this](int, std::function<void()> tick) {
        frame->CloseWhenPossible();
        EXPECT_FALSE(Program().Started);
        QTimer::singleShot(0, qApp, std::move(tick)); // ends the logo
    };
    frame = std::make_unique<MfMain>(Folder().chopped(1));
    EXPECT_TRUE(frame->Load());
    EXPECT_TRUE(Program().Started);
    EXPECT_TRUE(frame->isVisible());
    QCoreApplication::processEvents();
    EXPECT_FALSE(frame->isVisible());
    EXPECT_TRUE(QFile::exists(FilePath("Tarvik.ini")));
}

TEST_F(MainFrame, CloseRequestWaitsForTheEndOfACommand)
{
    MfMain& main = Start();
    BeginBusy();
    main.CloseWhenPossible();
    QCoreApplication::processEvents();
    EXPECT_TRUE(main.isVisible());
    EndBusy();
    QCoreApplication::processEvents();
    EXPECT_FALSE(main.isVisible());
    EXPECT_TRUE(QFile::exists(FilePath("Tarvik.ini")));
}

TEST_F(MainFrame, CloseRequestWaitsForADialog)
{
    MfMain& main = Start();
    FakeDialog dialog;
    dialog.WhileOpen = [&main, &dialog] {
        main.CloseWhenPossible();
        QCoreApplication::processEvents();
        EXPECT_TRUE(main.isVisible());
        EXPECT_FALSE(dialog.WasUnloaded);
    };
    DialogShow(dialog);
    QCoreApplication::processEvents();
    EXPECT_FALSE(main.isVisible());
}

TEST_F(MainFrame, CloseRequestClosesADialogWithoutUserData)
{
    MfMain& main = Start();
    FakeDialog dialog;
    dialog.ClosesUnasked = true;
    dialog.WhileOpen = [&main, &dialog] {
        main.CloseWhenPossible();
        QCoreApplication::processEvents();
        EXPECT_TRUE(dialog.WasUnloaded);
    };
    DialogShow(dialog);
    QCoreApplication::processEvents();
    EXPECT_FALSE(main.isVisible());
}

TEST_F(MainFrame, CloseRequestWaitsForADialogAboveOneWithoutUserData)
{
    MfMain& main = Start();
    FakeDialog above;
    above.WhileOpen = [&main] {
        main.CloseWhenPossible();
        QCoreApplication::processEvents();
    };
    FakeDialog below;
    below.ClosesUnasked = true;
    below.WhileOpen = [&above, &below] {
        DialogShow(above);
        EXPECT_FALSE(below.WasUnloaded);
        QCoreApplication::processEvents();
        EXPECT_TRUE(below.WasUnloaded);
    };
    DialogShow(below);
    QCoreApplication::processEvents();
    EXPECT_FALSE(main.isVisible());
}

TEST_F(MainFrame, CloseRequestEndsWithACancelledPrompt)
{
    MfMain& main = Start();
    documents.Closes = false;
    main.CloseWhenPossible();
    QCoreApplication::processEvents();
    EXPECT_EQ(documents.CloseAlls, 1);
    BeginBusy();
    EndBusy();
    QCoreApplication::processEvents();
    EXPECT_EQ(documents.CloseAlls, 1);
    EXPECT_TRUE(main.isVisible());
}

TEST_F(MainFrame, CloseRequestsDuringThePromptsAreAnsweredByThem)
{
    MfMain& main = Start();
    documents.Closes = false;
    documents.OnClose = [&main] {
        main.CloseWhenPossible();
        QCoreApplication::processEvents();
        EXPECT_FALSE(main.CloseForLogOff());
    };
    main.CloseWhenPossible();
    QCoreApplication::processEvents();
    TheFrame()->MenuUpdate();
    QCoreApplication::processEvents();
    EXPECT_EQ(documents.CloseAlls, 1);
    main.CloseWhenPossible();
    QCoreApplication::processEvents();
    EXPECT_EQ(documents.CloseAlls, 2);
    EXPECT_TRUE(main.isVisible());
}

TEST_F(MainFrame, CloseRequestEndsWithADialogThatRefuses)
{
    MfMain& main = Start();
    FakeDialog dialog;
    dialog.ClosesUnasked = true;
    dialog.RefusesToClose = true;
    dialog.WhileOpen = [&main, &dialog] {
        main.CloseWhenPossible();
        QCoreApplication::processEvents();
        dialog.RefusesToClose = false;
    };
    DialogShow(dialog);
    QCoreApplication::processEvents();
    EXPECT_TRUE(main.isVisible());
}

#if defined(Q_OS_UNIX)

TEST_F(MainFrame, EachEndSignalOfARunAsks)
{
    MfMain& main = Start();
    OnCloseSignal([] { MfMain::Current()->CloseWhenPossible(); }, RepeatedSignal::Requests);
    documents.Closes = false;
    int expected = 0;
    for (const int signal : { SIGTERM, SIGTERM, SIGINT, SIGHUP, SIGTERM }) {
        ::kill(::getpid(), signal);
        ++expected;
        ASSERT_TRUE(QTest::qWaitFor([&] { return documents.CloseAlls == expected; })) << expected;
        EXPECT_TRUE(main.isVisible());
    }
    documents.Closes = true;
    ::kill(::getpid(), SIGTERM);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !main.isVisible(); }));
}

#endif

TEST_F(MainFrame, LogOffClosesAndAsksForDocuments)
{
    MfMain& main = Start();
    documents.Closes = false;
    EXPECT_FALSE(main.CloseForLogOff());
    EXPECT_EQ(documents.CloseAlls, 1);
    EXPECT_TRUE(main.isVisible());
    QCoreApplication::processEvents();
    EXPECT_EQ(documents.CloseAlls, 1) << "a cancelled log-off does not come true later";
    documents.Closes = true;
    EXPECT_TRUE(main.CloseForLogOff());
    EXPECT_FALSE(main.isVisible());
    EXPECT_TRUE(QFile::exists(FilePath("Tarvik.ini")));
}

TEST_F(MainFrame, LogOffStopsWhileSomethingRuns)
{
    MfMain& main = Start();
    {
        const BusyScope busy;
        EXPECT_FALSE(main.CloseForLogOff());
    }
    FakeDialog dialog;
    dialog.WhileOpen = [&main] { EXPECT_FALSE(main.CloseForLogOff()); };
    DialogShow(dialog);
    EXPECT_EQ(documents.CloseAlls, 0);
    EXPECT_TRUE(main.isVisible());
}

TEST_F(MainFrame, LogOffClosesDialogsWithoutUserData)
{
    MfMain& main = Start();
    FakeDialog above;
    above.ClosesUnasked = true;
    above.WhileOpen = [&main] { EXPECT_TRUE(main.CloseForLogOff()); };
    FakeDialog below;
    below.ClosesUnasked = true;
    below.WhileOpen = [&above] { DialogShow(above); };
    DialogShow(below);
    EXPECT_TRUE(above.WasUnloaded);
    EXPECT_TRUE(below.WasUnloaded);
    EXPECT_FALSE(main.isVisible());
}

TEST_F(MainFrame, LogOffIsNotStoppedByTheStart)
{
    TheSeams().StartTimer = [this](int, std::function<void()> tick) {
        EXPECT_TRUE(frame->CloseForLogOff());
        QTimer::singleShot(0, qApp, std::move(tick)); // ends the logo
    };
    Start();
    EXPECT_EQ(documents.CloseAlls, 0);
}

} // namespace tarvik
