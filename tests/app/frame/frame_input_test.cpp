#include "app/state/statusBar.h"
#include "app/text/lang.h"
#include "tests/app/frame/frame_form_fixture.h"

#include <QApplication>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
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

} // namespace tarvik
