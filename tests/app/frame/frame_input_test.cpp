#include "app/state/statusBar.h"
#include "app/text/lang.h"
#include "tests/app/frame/frame_form_fixture.h"

#include <QApplication>
#include <QCursor>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QRegularExpression>
#include <QTabWidget>
#include <QWhatsThis>

namespace tarvik {

namespace {

constexpr int kHelpFrame = 11801;

void RightClick(QWidget& widget, QEvent::Type type)
{
    const QPointF at(widget.rect().center());
    QMouseEvent event(type, at, widget.mapToGlobal(at), Qt::RightButton, Qt::RightButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

QMenu* OpenMenu()
{
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

} // namespace

TEST_F(MainFrame, ShowsTheHintsOfButtonsPanelsAndPictures)
{
    MfMain& main = Start();
    const std::vector<std::pair<const char*, int>> hints{ { "Cm[1]", 13802 }, { "Cm[0]", 13821 }, { "Panel[1]", 13601 },
        { "Panel[2]", 13605 }, { "Panel[3]", 13603 }, { "Panel[4]", 13604 }, { "progressBar", 13605 },
        { "ImConnect", 13607 }, { "ImNoConnect", 13609 } };
    for (const auto& [name, hint] : hints) {
        PointAt(main, QLatin1String(name));
        EXPECT_EQ(TextOf(main, "Panel[1]"), LngStr(hint)) << name;
        PointAway(main, QLatin1String(name));
        if (QLatin1String(name) == QLatin1String("progressBar"))
            PointAway(main, "Panel[2]"); // around the bar, with the same hint
        EXPECT_EQ(TextOf(main, "Panel[1]"), "") << name;
    }
    SetLink(true);
    PointAt(main, "Cm[0]");
    EXPECT_EQ(TextOf(main, "Panel[1]"), LngStr(13823));
}

TEST_F(MainFrame, ShowsNoHintWhileAJobHoldsTheLine)
{
    MfMain& main = Start();
    BeginBusy();
    StatusJob("Working");
    PointAt(main, "Cm[1]");
    EXPECT_EQ(TextOf(main, "Panel[1]"), "Working");
}

TEST_F(MainFrame, HasItsHelpNumbers)
{
    MfMain& main = Start();
    const std::vector<std::pair<const char*, int>> numbers{ { "Cm[0]", 13822 }, { "Cm[20]", 13826 },
        { "Panel[1]", 13602 }, { "StatusBar", 13602 }, { "PbStatusBar", 13600 }, { "progressBar", 13606 },
        { "ImConnect", 13608 }, { "ImNoConnect", 13610 }, { "MdiArea", kHelpFrame } };
    for (const auto& [name, number] : numbers)
        EXPECT_EQ(HelpNumberOf(&FindControl(main, QLatin1String(name))), number) << name;
}

TEST_F(MainFrame, F1ShowsTheTopicOfTheControlWithTheFocus)
{
    Start();
    Key(Qt::Key_F1);
    EXPECT_EQ(help.Topics, QList<int>{ 13822 });
    Cm(11).setFocus();
    Key(Qt::Key_F1);
    EXPECT_EQ(help.Topics, (QList<int>{ 13822, 13842 }));
}

TEST_F(MainFrame, F1ShowsTheTopicOfTheHighlightedMenuEntry)
{
    MfMain& main = Start();
    auto* menu = main.findChild<QMenu*>("MnTools");
    menu->popup(QPoint(50, 50));
    menu->setActiveAction(&Item("MnToolsMemoryListEditor"));
    QTest::keyClick(menu, Qt::Key_F1);
    EXPECT_EQ(help.Topics, QList<int>{ 11995 });
    menu->hide();
}

TEST_F(MainFrame, F1ShowsTheTopicOfAnOpenMenuWithoutHighlightedEntry)
{
    MfMain& main = Start();
    auto* menu = main.findChild<QMenu*>("MnTools");
    menu->popup(QPoint(50, 50));
    menu->setActiveAction(nullptr);
    QTest::keyClick(menu, Qt::Key_F1);
    EXPECT_EQ(help.Topics, QList<int>{ 11943 });
    menu->hide();
}

TEST_F(MainFrame, F1IgnoresAMenuThatIsOnlyUnderThePointer)
{
    MfMain& main = Start();
    QMenuBar& bar = *main.menuBar();
    const QPoint file = bar.actionGeometry(&Item("MnFile")).center();
    QMouseEvent move(QEvent::MouseMove, file, bar.mapToGlobal(QPointF(file)), Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(&bar, &move);
    ASSERT_EQ(bar.activeAction(), &Item("MnFile"));
    Key(Qt::Key_F1);
    EXPECT_EQ(help.Topics, QList<int>{ 13822 });
    bar.setFocus();
    Key(Qt::Key_F1);
    EXPECT_EQ(help.Topics, (QList<int>{ 13822, 11903 }));
}

TEST_F(MainFrame, ForgetsShiftWhenAnotherProgramGetsTheKeyboard)
{
    Start();
    KeyDown(Qt::Key_Shift);
    EXPECT_TRUE(Program().ShiftDown);
    QEvent away(QEvent::ApplicationDeactivate);
    QCoreApplication::sendEvent(qApp, &away);
    EXPECT_FALSE(Program().ShiftDown);
}

TEST_F(MainFrame, ShiftF1EntersWhatsThis)
{
    Start();
    KeyDown(Qt::Key_Shift);
    KeyDown(Qt::Key_F1, Qt::ShiftModifier);
    EXPECT_TRUE(QWhatsThis::inWhatsThisMode());
    EXPECT_TRUE(help.Asked.isEmpty());
    QWhatsThis::leaveWhatsThisMode();
    Item("MnHelpWhatsThis").trigger();
    EXPECT_TRUE(QWhatsThis::inWhatsThisMode());
    QWhatsThis::leaveWhatsThisMode();
    Cm(20).click();
    EXPECT_TRUE(QWhatsThis::inWhatsThisMode());
    QWhatsThis::leaveWhatsThisMode();
}

TEST_F(MainFrame, CtrlCCopiesWhenADocumentIsActive)
{
    Start();
    int copies = 0;
    Count(Command::EditCopyGraph, copies);
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(copies, 0);
    OpenDocument();
    TheFrame()->MenuUpdate();
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(copies, 1);
    Key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(copies, 1);
}

TEST_F(MainFrame, KeysRunTheirCommands)
{
    Start();
    static std::vector<Command> ran;
    ran.clear();
    static constexpr std::array kBound{ CommandBinding{ Command::FileOpen, [] { ran.push_back(Command::FileOpen); } },
        CommandBinding{ Command::FileSaveAs, [] { ran.push_back(Command::FileSaveAs); } },
        CommandBinding{ Command::FilePrint, [] { ran.push_back(Command::FilePrint); } },
        CommandBinding{ Command::FileClose, [] { ran.push_back(Command::FileClose); } },
        CommandBinding{ Command::FileExit, [] { ran.push_back(Command::FileExit); } } };
    const CommandScope bound(kBound);
    const auto press = [] {
        ran.clear();
        for (const Qt::Key key : { Qt::Key_O, Qt::Key_S, Qt::Key_P, Qt::Key_W, Qt::Key_Q }) {
            Key(key, Qt::ControlModifier);
            Key(key);
            Key(key, Qt::ControlModifier | Qt::ShiftModifier);
        }
    };
    press();
    EXPECT_EQ(ran, (std::vector{ Command::FileOpen, Command::FileExit }));
    OpenDocument();
    TheFrame()->MenuUpdate();
    press();
    EXPECT_EQ(ran,
        (std::vector{
            Command::FileOpen, Command::FileSaveAs, Command::FilePrint, Command::FileClose, Command::FileExit }));
    const BusyScope busy;
    press();
    EXPECT_TRUE(ran.empty());
}

TEST_F(MainFrame, MenusShowTheKeysOfTheirCommands)
{
    Start();
    for (const auto& [item, key] : { std::pair("MnFileOpen", "Ctrl+O"), std::pair("MnFileSaveAs", "Ctrl+S"),
             std::pair("MnFilePrint", "Ctrl+P"), std::pair("MnFileClose", "Ctrl+W"), std::pair("MnFileExit", "Ctrl+Q"),
             std::pair("MnEditCopyGraph", "Ctrl+C"), std::pair("ScMnEditCopyGraphics", "Ctrl+C") })
        EXPECT_EQ(Item(item).text().section(u'\t', 1), QLatin1String(key)) << item;
    for (const char* item : { "ScMnFilePrint", "SwMnFilePrint", "MnWindowClose" })
        EXPECT_FALSE(Item(item).text().contains(u'\t')) << item << " has no key: it runs another command";
}

TEST_F(MainFrame, CtrlTabWalksThroughAllWindows)
{
    MfMain& main = Start();
    const QList<QMdiSubWindow*> windows = OpenWindows(3);
    QMdiArea& area = *main.ChildArea();
    ASSERT_EQ(area.activeSubWindow(), windows[2]);
    QList<qsizetype> walk;
    const auto step = [&](Qt::Key key, Qt::KeyboardModifiers modifiers) {
        Key(key, modifiers);
        walk.append(windows.indexOf(area.activeSubWindow()));
    };
    for (int at = 0; at < 4; ++at)
        step(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(walk, (QList<qsizetype>{ 0, 1, 2, 0 }));
    for (int at = 0; at < 3; ++at)
        step(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(walk.sliced(4), (QList<qsizetype>{ 2, 1, 0 }));
    Cm(0).setFocus();
    step(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(walk.back(), 1) << "the focus is in the tool bar";
    const BusyScope busy;
    step(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(walk.back(), 1);
}

TEST_F(MainFrame, CtrlTabInAnotherWindowIsNotForTheFrame)
{
    MfMain& main = Start();
    const QList<QMdiSubWindow*> windows = OpenWindows(2);
    QTabWidget tabs;
    tabs.addTab(new QWidget, "a");
    tabs.addTab(new QWidget, "b");
    tabs.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&tabs));
    tabs.setFocus();
    Key(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(tabs.currentIndex(), 1);
    tabs.close();
    main.activateWindow();
    EXPECT_EQ(main.ChildArea()->activeSubWindow(), windows[1]);
}

TEST_F(MainFrame, CtrlTabWithoutWindowsDoesNothing)
{
    Start();
    Key(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_TRUE(Cm(0).hasFocus());
}

TEST_F(MainFrame, WindowMenuListsTheOpenWindows)
{
    MfMain& main = Start();
    auto* menu = main.findChild<QMenu*>("MnWindow");
    const auto itemsBefore = menu->actions().size();
    const auto open = [menu] {
        Q_EMIT menu->aboutToShow();
        return menu->findChildren<QAction*>(QRegularExpression("^MnWindowList"));
    };
    EXPECT_TRUE(open().isEmpty());
    EXPECT_EQ(menu->actions().size(), itemsBefore);

    const QList<QMdiSubWindow*> windows = OpenWindows(10);
    windows[1]->setWindowTitle("a & b");
    windows[3]->showMinimized();
    main.ChildArea()->setActiveSubWindow(windows[2]);
    QList<QAction*> items = open();
    ASSERT_EQ(items.size(), 10);
    EXPECT_EQ(menu->actions().size(), itemsBefore + 11);
    EXPECT_EQ(items[0]->text(), "&1 Window 1");
    EXPECT_EQ(items[1]->text(), "&2 a && b");
    EXPECT_EQ(items[9]->text(), "10 Window 10");
    for (const QAction* item : items)
        EXPECT_EQ(item->isChecked(), item == items[2]);
    EXPECT_EQ(items[0]->property(kHelpNumberProperty).toInt(), 12013);
    items[0]->hover();
    EXPECT_EQ(TextOf(main, "Panel[1]"), LngStr(12012));

    items[3]->trigger();
    EXPECT_EQ(main.ChildArea()->activeSubWindow(), windows[3]);
    EXPECT_FALSE(windows[3]->isMinimized());
    delete windows[0];
    items = open();
    ASSERT_EQ(items.size(), 9);
    EXPECT_EQ(items[0]->text(), "&1 a && b");
    EXPECT_TRUE(items[2]->isChecked());
}

TEST_F(MainFrame, ShiftF10OpensTheMenuOfItsEmptyArea)
{
    Start();
    Key(Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_NE(OpenMenu(), nullptr);
    EXPECT_EQ(OpenMenu()->objectName(), "ClMn");
    OpenMenu()->hide();
    Key(Qt::Key_F10);
    Key(Qt::Key_F10, Qt::ControlModifier);
    EXPECT_EQ(OpenMenu(), nullptr);
}

TEST_F(MainFrame, OpensTheMenuOfItsEmptyAreaOnRightButtonRelease)
{
    MfMain& main = Start();
    QWidget& area = *main.ChildArea()->viewport();
    RightClick(area, QEvent::MouseButtonPress);
    EXPECT_EQ(OpenMenu(), nullptr);
    RightClick(area, QEvent::MouseButtonRelease);
    ASSERT_NE(OpenMenu(), nullptr);
    EXPECT_EQ(OpenMenu()->objectName(), "ClMn");
    EXPECT_TRUE(Item("ClMnViewToolbar").isChecked());
    EXPECT_FALSE(Item("ClMnInstrDispSc").isEnabled());
    EXPECT_FALSE(Item("ClMnInstrMemoryListControl").isEnabled());
    EXPECT_TRUE(Item("ClMnInstrConnect").isEnabled());
    OpenMenu()->hide();
}

TEST_F(MainFrame, OpensTheMenuOfItsEmptyAreaByTheMenuKey)
{
    Start();
    const QPoint at(5, 5);
    QContextMenuEvent key(QContextMenuEvent::Keyboard, at, Cm(0).mapToGlobal(at));
    QApplication::sendEvent(&Cm(0), &key);
    ASSERT_NE(OpenMenu(), nullptr);
    EXPECT_EQ(OpenMenu()->objectName(), "ClMn");
    OpenMenu()->hide();
    QContextMenuEvent mouse(QContextMenuEvent::Mouse, at, Cm(0).mapToGlobal(at));
    QApplication::sendEvent(&Cm(0), &mouse);
    EXPECT_EQ(OpenMenu(), nullptr);
}

TEST_F(MainFrame, OpensTheMenusOfItsBars)
{
    MfMain& main = Start();
    for (const auto& [bar, menu] : { std::pair("PbToolbar", "TbMn"), std::pair("PbStatusBar", "SbMn") }) {
        RightClick(FindControl(main, QLatin1String(bar)), QEvent::MouseButtonPress);
        ASSERT_NE(OpenMenu(), nullptr) << bar;
        EXPECT_EQ(OpenMenu()->objectName(), QLatin1String(menu));
        OpenMenu()->hide();
    }
}

TEST_F(MainFrame, OpensNoMenuWhileACommandRuns)
{
    MfMain& main = Start();
    BeginBusy();
    RightClick(*main.ChildArea()->viewport(), QEvent::MouseButtonRelease);
    RightClick(FindControl(main, "PbToolbar"), QEvent::MouseButtonPress);
    EXPECT_EQ(OpenMenu(), nullptr);
}

TEST_F(MainFrame, TakesADropOfKnownFilesAndOpensThem)
{
    MfMain& main = Start();
    Store(FilePath("a.tvm"), "x");
    Store(FilePath("b.tvm"), "x");
    QMimeData data;
    data.setUrls({ QUrl::fromLocalFile(FilePath("a.tvm")), QUrl::fromLocalFile(FilePath("b.tvm")) });
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&main, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&main, &drop);
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
    EXPECT_TRUE(documents.Opened.isEmpty()) << "the other program waits";
    QCoreApplication::processEvents();
    EXPECT_EQ(documents.Opened, (QStringList{ "a.tvm", "b.tvm" }));
}

TEST_F(MainFrame, TakesADropAsACopyWhateverIsOffered)
{
    MfMain& main = Start();
    Store(FilePath("a.tvm"), "x");
    QMimeData data;
    data.setUrls({ QUrl::fromLocalFile(FilePath("a.tvm")) });
    const Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;
    QDragEnterEvent enter(QPoint(10, 10), offered, &data, Qt::LeftButton, Qt::ShiftModifier);
    enter.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(&main, &enter);
    EXPECT_EQ(enter.dropAction(), Qt::CopyAction);
    QDragMoveEvent move(QPoint(20, 20), offered, &data, Qt::LeftButton, Qt::ShiftModifier);
    move.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(&main, &move);
    EXPECT_TRUE(move.isAccepted());
    EXPECT_EQ(move.dropAction(), Qt::CopyAction);
    QDropEvent drop(QPointF(20, 20), offered, &data, Qt::LeftButton, Qt::ShiftModifier);
    drop.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(&main, &drop);
    EXPECT_TRUE(drop.isAccepted());
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction) << "or the other program deletes the file";
    QCoreApplication::processEvents();
    EXPECT_EQ(documents.Opened, QStringList{ "a.tvm" });
}

TEST_F(MainFrame, OpensNoMoreDroppedFilesOnceItHasClosed)
{
    MfMain& main = Start();
    documents.OnOpen = [&main](const QString&) {
        QTimer::singleShot(0, &main, [&main] { main.close(); }); // the user does not wait for the others
    };
    Store(FilePath("a.tvm"), "x");
    Store(FilePath("b.tvm"), "x");
    DropOpenFiles({ FilePath("a.tvm"), FilePath("b.tvm") });
    EXPECT_FALSE(main.isVisible());
    EXPECT_EQ(documents.Opened, QStringList{ "a.tvm" });
}

TEST_F(MainFrame, RefusesADropWhileACommandRuns)
{
    MfMain& main = Start();
    Store(FilePath("a.tvm"), "x");
    QMimeData data;
    data.setUrls({ QUrl::fromLocalFile(FilePath("a.tvm")) });
    BeginBusy();
    QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&main, &drop);
    EXPECT_FALSE(drop.isAccepted());
    QCoreApplication::processEvents();
    EXPECT_TRUE(documents.Opened.isEmpty());
}

TEST_F(MainFrame, RefusesADragOfAnUnknownFile)
{
    MfMain& main = Start();
    QMimeData data;
    data.setUrls({ QUrl::fromLocalFile("/tmp/a.exe") });
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&main, &enter);
    EXPECT_FALSE(enter.isAccepted());
    QDragMoveEvent move(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&main, &move);
    EXPECT_FALSE(move.isAccepted());
}

TEST_F(MainFrame, ClosedMenuLeavesNoHint)
{
    MfMain& main = Start();
    auto* menu = main.findChild<QMenu*>("MnFile");
    menu->popup(QPoint(50, 50));
    Item("MnFileOpen").hover();
    EXPECT_EQ(TextOf(main, "Panel[1]"), LngStr(13802));
    menu->hide();
    EXPECT_EQ(TextOf(main, "Panel[1]"), "");
}

TEST_F(MainFrame, ShowsNoTipBelowAMenu)
{
    MfMain& main = Start();
    auto* timer = main.findChild<QTimer*>("TmTips");
    timer->stop(); // only the ticks of the test count
    QCursor::setPos(Cm(1).mapToGlobal(Cm(1).rect().center()));
    main.findChild<QMenu*>("MnFile")->popup(main.mapToGlobal(QPoint(50, 50)));
    for (int tick = 0; tick < 12; ++tick)
        QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection, QGenericArgument());
    EXPECT_FALSE(FindControl(main, "FmTip").isVisible());
    main.findChild<QMenu*>("MnFile")->hide();
}

TEST_F(MainFrame, HelpItemsShowTheirPages)
{
    Start();
    for (const char* item : { "MnHelpContents", "MnHelpIndex", "MnHelpSearch", "MnHelpSupport" })
        Item(item).trigger();
    EXPECT_EQ(help.Asked, (QStringList{ "contents", "index", "search help-1", "topic 11979" }));
}

} // namespace tarvik
