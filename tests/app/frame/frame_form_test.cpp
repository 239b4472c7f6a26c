#include "app/about/FmLogo.h"
#include "app/frame/tip.h"
#include "app/settings/ini.h"
#include "app/state/progressBar.h"
#include "app/state/statusBar.h"
#include "app/text/lang.h"
#include "tests/app/frame/frame_form_fixture.h"
#include "tests/support/fakeInstrumentLink.h"

#include <QApplication>
#include <QCursor>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QScreen>
#include <QWhatsThis>

namespace tarvik {

TEST_F(MainFrame, StartsWithAllItsControlsUnderTheirNames)
{
    MfMain& main = Start();
    QStringList names{ "MdiArea", "MenuBar", "PbToolbar", "PbStatusBar", "StatusBar", "progressBar", "ImConnect",
        "ImNoConnect", "Panel[1]", "Panel[2]", "Panel[3]", "Panel[4]" };
    for (int index = 0; index < kToolButtons; ++index)
        names.append(QStringLiteral("Cm[%1]").arg(index));
    ExpectControls(main, names);
    EXPECT_EQ(main.objectName(), "MfMain");
    EXPECT_NE(main.findChild<QTimer*>("TmTips"), nullptr);
    EXPECT_NE(main.findChild<QTimer*>("TmProgress"), nullptr);
    EXPECT_EQ(main.windowTitle(), LngStr(11800));
}

TEST_F(MainFrame, EveryItemHasItsCaptionAndHelpNumber)
{
    Start();
    const auto expectItem = [this](const MenuEntry& entry) {
        if (entry.Name == nullptr || entry.Text == 0)
            return;
        EXPECT_EQ(Item(entry.Name).text(), CaptionWithKey(LngStr(entry.Text), entry.Run)) << entry.Name;
        EXPECT_EQ(Item(entry.Name).property(kHelpNumberProperty).toInt(), entry.Help) << entry.Name;
        EXPECT_EQ(Item(entry.Name).icon().isNull(), entry.Picture == kNoPicture) << entry.Name;
    };
    for (const auto* table : { &MenuBarTable(), &PopupTable() }) {
        for (const MenuGroup& group : *table) {
            expectItem(group.Head);
            for (const MenuEntry& entry : group.Items)
                expectItem(entry);
        }
    }
}

TEST_F(MainFrame, MnemonicsOfAMenuAreUnique)
{
    Start();
    for (const auto* table : { &MenuBarTable(), &PopupTable() }) {
        for (const MenuGroup& group : *table) {
            QStringList seen;
            for (const MenuEntry& entry : group.Items) {
                if (entry.Name == nullptr)
                    continue;
                const QString caption = Item(entry.Name).text();
                const QString letter = caption.mid(caption.indexOf(u'&') + 1, 1).toLower();
                EXPECT_FALSE(seen.contains(letter)) << group.Head.Name << ": " << caption.toStdString();
                seen.append(letter);
            }
        }
    }
}

TEST_F(MainFrame, LaysTheButtonsOutInGroupsWithPitchAndGap)
{
    MfMain& main = Start();
    const int pitch = PixelsFromTwips(&main, 360);
    const int gap = PixelsFromTwips(&main, 120);
    int left = Cm(0).x();
    for (const std::vector<int>& group : ToolBarGroups()) {
        for (const int index : group) {
            EXPECT_EQ(Cm(index).x(), left) << index;
            left += pitch;
        }
        left += gap;
    }
    for (const int unused : { 17, 18, 19 })
        EXPECT_FALSE(Cm(unused).isVisible()) << unused;
}

TEST_F(MainFrame, MenusAndToolBarAreOffWhileADialogIsOpen)
{
    Start();
    FmLogo dialog{ QPixmap(10, 10) };
    TheSeams().StartTimer = [](int, const std::function<void()>&) {};
    ShowForm(dialog);
    for (const MenuGroup& group : MenuBarTable())
        EXPECT_FALSE(Item(group.Head.Name).isEnabled()) << group.Head.Name;
    for (int index = 0; index < kToolButtons; ++index)
        EXPECT_FALSE(Cm(index).isEnabled()) << index;
    DialogEnd(dialog, 0);
    for (const MenuGroup& group : MenuBarTable())
        EXPECT_TRUE(Item(group.Head.Name).isEnabled()) << group.Head.Name;
    EXPECT_TRUE(Cm(0).isEnabled());
    EXPECT_FALSE(Cm(2).isEnabled());
}

TEST_F(MainFrame, ShowsTheStateOfTheLink)
{
    MfMain& main = Start();
    EXPECT_FALSE(FindControl(main, "ImConnect").isVisible());
    EXPECT_TRUE(FindControl(main, "ImNoConnect").isVisible());
    EXPECT_FALSE(Item("MnInstrDispSc").isEnabled());
    EXPECT_TRUE(Item("MnInstrConnect").isEnabled());
    EXPECT_EQ(Item("MnInstrConnect").text(), LngStr(11938));
    SetLink(true);
    EXPECT_TRUE(FindControl(main, "ImConnect").isVisible());
    EXPECT_FALSE(FindControl(main, "ImNoConnect").isVisible());
    EXPECT_TRUE(Item("MnInstrDispSc").isEnabled());
    EXPECT_TRUE(Cm(8).isEnabled());
    EXPECT_EQ(Item("MnInstrConnect").text(), LngStr(11940));
    EXPECT_EQ(Item("ClMnInstrConnect").property(kHelpNumberProperty).toInt(), 11941);
    EXPECT_EQ(Cm(0).accessibleName(), LngStr(13820));
    SetLink(false);
    EXPECT_EQ(Cm(0).accessibleName(), LngStr(13819));
    EXPECT_FALSE(Cm(8).isEnabled());
}

TEST_F(MainFrame, RunsTheCommandOfAnItemAndOfAButton)
{
    Start();
    int editors = 0;
    Count(Command::Editor3, editors);
    Item("MnToolsMemoryListEditor").trigger();
    Cm(13).click();
    EXPECT_EQ(editors, 2);
}

TEST_F(MainFrame, DistinguishesPrintingByMenuAndByButton)
{
    Start();
    OpenDocument();
    TheFrame()->MenuUpdate();
    int prints = 0;
    int printsNow = 0;
    Count(Command::FilePrint, prints);
    Count(Command::FilePrintNow, printsNow);
    Item("MnFilePrint").trigger();
    Cm(3).click();
    EXPECT_EQ(prints, 1);
    EXPECT_EQ(printsNow, 1);
}

TEST_F(MainFrame, HidesTheToolBarByItsMenuAndSavesThat)
{
    MfMain& main = Start();
    int room = main.ChildArea()->height();
    documents.OnRetile = [&] { room = main.ChildArea()->height() - room; };
    const int barHeight = FindControl(main, "PbToolbar").height();
    Item("TbMnHide").trigger();
    EXPECT_EQ(room, barHeight) << "the room that they are tiled in";
    EXPECT_FALSE(FindControl(main, "PbToolbar").isVisible());
    EXPECT_FALSE(Program().ToolbarOn);
    EXPECT_FALSE(Item("MnViewToolbar").isChecked());
    EXPECT_FALSE(Item("ClMnViewToolbar").isChecked());
    EXPECT_EQ(documents.Retiles, 1);
    main.close();
    EXPECT_FALSE(IniReadBool(FilePath("Tarvik.ini"), "Window", "Toolbar", true));
}

TEST_F(MainFrame, TogglesTheStatusBarFromEachOfItsItems)
{
    MfMain& main = Start();
    bool on = true;
    for (const char* item : { "MnViewStatusBar", "ClMnViewStatusBar", "SbMnHide", "MnViewStatusBar" }) {
        Item(item).trigger();
        on = !on;
        EXPECT_EQ(FindControl(main, "PbStatusBar").isVisible(), on) << item;
        EXPECT_EQ(Item("MnViewStatusBar").isChecked(), on) << item;
        EXPECT_EQ(Program().StatusBarOn, on) << item;
    }
}

TEST_F(MainFrame, EnablesTheDocumentWindowsWithTheMenus)
{
    Start();
    documents.Enabled.clear();
    BeginBusy();
    EndBusy();
    EXPECT_EQ(documents.Enabled, (QList<bool>{ false, true }));
}

TEST_F(MainFrame, UpdatesItsMenusWhenAChildIsActivated)
{
    MfMain& main = Start();
    QMdiSubWindow* first = main.ChildArea()->addSubWindow(new QLineEdit);
    QMdiSubWindow* second = main.ChildArea()->addSubWindow(new QLineEdit);
    first->show();
    second->show();
    OpenDocument();
    EXPECT_FALSE(Cm(2).isEnabled());
    main.ChildArea()->setActiveSubWindow(first);
    EXPECT_TRUE(Cm(2).isEnabled());
}

TEST_F(MainFrame, ReturnsTheFocusToTheActiveChildAfterAnyButtonButTheLast)
{
    MfMain& main = Start();
    auto* box = new QLineEdit;
    main.ChildArea()->addSubWindow(box)->show();
    for (const int index : { 0, 11 }) {
        Cm(index).setFocus();
        Cm(index).click();
        EXPECT_TRUE(box->hasFocus()) << index;
    }
    Cm(20).setFocus();
    Cm(20).click();
    EXPECT_TRUE(Cm(20).hasFocus());
    QWhatsThis::leaveWhatsThisMode();
}

TEST_F(MainFrame, LeavesTheFocusOnItsButtonWithoutAChild)
{
    Start();
    Cm(11).setFocus();
    Cm(11).click();
    EXPECT_TRUE(Cm(11).hasFocus());
    Item("MnToolsAntennaListEditor").trigger();
    EXPECT_TRUE(Cm(11).hasFocus());
}

TEST_F(MainFrame, LeavesTheFocusWhereACommandSetIt)
{
    MfMain& main = Start();
    auto* box = new QLineEdit;
    BindCommand(Command::Editor1, [&main, box] {
        main.ChildArea()->addSubWindow(box)->show();
        box->setFocus();
    });
    Cm(1).setFocus();
    Item("MnToolsAntennaListEditor").trigger();
    EXPECT_TRUE(box->hasFocus());
}

TEST_F(MainFrame, ChecksTheDescriptionOfTheActiveWindow)
{
    Start();
    for (const bool isVisible : { true, false }) {
        OpenDocument(isVisible);
        TheFrame()->MenuUpdate();
        EXPECT_TRUE(Item("MnViewDescription").isEnabled());
        EXPECT_EQ(Item("MnViewDescription").isChecked(), isVisible);
        EXPECT_EQ(Item("MnOptionsDescr").isEnabled(), isVisible);
    }
}

TEST_F(MainFrame, PopUpMenusOfAWindowShowWhetherItsDescriptionIsVisible)
{
    MfMain& main = Start();
    for (const bool isVisible : { true, false }) {
        OpenDocument(isVisible);
        for (const char* menu : { "ScMn", "SwMn" }) {
            main.Popup(QLatin1String(menu), QPoint(50, 50));
            const QString item = QLatin1String(menu) + QStringLiteral("ViewDescription");
            EXPECT_EQ(Item(qPrintable(item)).isChecked(), isVisible) << menu;
            if (QWidget* popup = QApplication::activePopupWidget())
                popup->hide();
        }
    }
}

TEST_F(MainFrame, ConnectionPicturesFollowThePalette)
{
    MfMain& main = Start();
    auto& picture = Find<QLabel>(main, "ImNoConnect");
    const QImage light = picture.pixmap(Qt::ReturnByValue).toImage();
    QPalette dark = main.palette();
    dark.setColor(QPalette::WindowText, Qt::white);
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::ButtonText, Qt::white);
    const QPalette before = QApplication::palette();
    QApplication::setPalette(dark);
    QCoreApplication::processEvents();
    EXPECT_NE(picture.pixmap(Qt::ReturnByValue).toImage(), light);
    QApplication::setPalette(before);
}

TEST_F(MainFrame, ResetsTheCaptionOfTheLiveScreenWhileTheLinkIsUp)
{
    Start();
    Item("MnInstrDispSc").setText("another");
    SetLink(false);
    EXPECT_EQ(Item("MnInstrDispSc").text(), "another");
    SetLink(true);
    EXPECT_EQ(Item("MnInstrDispSc").text(), LngStr(11936));
    EXPECT_EQ(Item("MnInstrDispSc").property(kHelpNumberProperty).toInt(), 11937);
}

TEST_F(MainFrame, KeepsACheckMarkThatItsCommandDidNotChange)
{
    Start();
    EXPECT_FALSE(Item("MnWindowAutotile").isChecked());
    Item("MnWindowAutotile").trigger();
    EXPECT_FALSE(Item("MnWindowAutotile").isChecked());
}

TEST_F(MainFrame, DrawsTheProgressWithWhiteAndBlackCharacters)
{
    MfMain& main = Start();
    QWidget& picture = FindControl(main, "progressBar");
    const QImage empty = picture.grab().toImage();
    ProgressStart(4);
    ProgressAdd(2);
    EXPECT_EQ(picture.accessibleDescription(), "50%");
    const QImage half = picture.grab().toImage();
    int white = 0;
    int black = 0;
    for (int y = 2; y < half.height() - 2; ++y) {
        for (int x = 2; x < half.width() - 2; ++x) {
            white += half.pixelColor(x, y).lightness() > 235 ? 1 : 0;
            black += half.pixelColor(x, y).lightness() < 60 ? 1 : 0;
        }
    }
    EXPECT_GT(white, 0);
    EXPECT_GT(black, 0);
    EXPECT_TRUE(main.findChild<QTimer*>("TmProgress")->isActive());
    EXPECT_EQ(main.findChild<QTimer*>("TmProgress")->interval(), 200);
    ProgressEnd();
    EXPECT_FALSE(main.findChild<QTimer*>("TmProgress")->isActive());
    EXPECT_EQ(picture.grab().toImage(), empty);
}

TEST_F(MainFrame, HasTheTitleOfTheProgram)
{
    MfMain& main = Start();
    Program().ProgramTitle = "Fake";
    main.BuildTexts();
    EXPECT_EQ(main.windowTitle(), "Fake");
    EXPECT_EQ(main.accessibleName(), "Fake");
    EXPECT_EQ(main.menuBar()->accessibleName(), "Fake");
}

TEST_F(MainFrame, ShowsTheTipOfTheButtonUnderThePointer)
{
    MfMain& main = Start();
    auto* timer = main.findChild<QTimer*>("TmTips");
    EXPECT_TRUE(timer->isActive());
    const auto tick = [timer](int times) {
        for (int at = 0; at < times; ++at)
            QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection, QGenericArgument());
    };
    timer->stop(); // only the ticks of the test count
    QWidget& tip = FindControl(main, "FmTip");
    QCursor::setPos(Cm(1).mapToGlobal(Cm(1).rect().center()));
    tick(9);
    EXPECT_FALSE(tip.isVisible());
    tick(1);
    EXPECT_TRUE(tip.isVisible());
    EXPECT_EQ(TextOf(main, "LbTip"), TipText(LngStr(13801)));
    EXPECT_EQ(tip.geometry(),
        TipRect(QRect(Cm(1).mapToGlobal(QPoint()), Cm(1).size()),
            Find<QLabel>(main, "LbTip").fontMetrics().size(Qt::TextSingleLine, TipText(LngStr(13801))),
            main.screen()->geometry()));
    QCursor::setPos(main.mapToGlobal(main.rect().center()));
    tick(1);
    EXPECT_FALSE(tip.isVisible());
}

TEST_F(MainFrame, ClosesTheTipForACommandADialogAndAnotherProgram)
{
    MfMain& main = Start();
    main.findChild<QTimer*>("TmTips")->stop();
    QWidget& tip = FindControl(main, "FmTip");
    tip.show();
    Cm(13).click();
    EXPECT_FALSE(tip.isVisible());
    tip.show();
    TheFrame()->CloseTip();
    EXPECT_FALSE(tip.isVisible());
}

TEST_F(MainFrame, TipTimerSpeedsUpAfterTheFirstTick)
{
    MfMain& main = Start();
    auto* timer = main.findChild<QTimer*>("TmTips");
    EXPECT_EQ(timer->interval(), 1000);
    const int before = documents.ResizeChecks;
    QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection, QGenericArgument());
    EXPECT_EQ(timer->interval(), 50);
    EXPECT_EQ(documents.ResizeChecks, before + 1);
}

TEST_F(MainFrame, DisablesItsStatusBarWhileAnEditorIsOpen)
{
    MfMain& main = Start();
    TheFrame()->EnableStatusBar(false);
    EXPECT_FALSE(FindControl(main, "StatusBar").isEnabled());
    TheFrame()->EnableStatusBar(true);
    EXPECT_TRUE(FindControl(main, "StatusBar").isEnabled());
}

TEST_F(MainFrame, NamesTheConnectedInstrument)
{
    FakeInstrumentLink instrument;
    instrument.ConnectionName = QStringLiteral("Van <2>");
    instrument.ConnectionAddress = QStringLiteral("10.0.0.7:5555");
    MfMain& main = Start();
    SetLink(true);
    QWidget& picture = FindControl(main, "ImConnect");
    const QString connection = QStringLiteral("Connected to “Van <2>” at 10.0.0.7:5555");
    EXPECT_EQ(picture.toolTip(), PlainTip(connection));
    EXPECT_EQ(picture.accessibleName(), connection);
    EXPECT_EQ(TextOf(main, "Panel[3]"), "Van <2>");
    SetLink(false);
    EXPECT_EQ(TextOf(main, "Panel[3]"), "");
    EXPECT_EQ(FindControl(main, "ImNoConnect").toolTip(), PlainTip(LngStr(13609)));
    instrument.ConnectionName = QStringLiteral("Tower");
    SetLink(true);
    EXPECT_EQ(TextOf(main, "Panel[3]"), "Tower");
    EXPECT_TRUE(picture.accessibleName().contains(QLatin1String("Tower")));
}

TEST_F(MainFrame, ElidesALongStatusTextAndShowsAllOfItInATip)
{
    MfMain& main = Start();
    const int width = main.width();
    QWidget& panel = FindControl(main, "Panel[3]");
    const QString text(200, u'm');
    TheFrame()->SetPanelText(3, text);
    TheFrame()->SetPanelText(1, text.repeated(20));
    QCoreApplication::processEvents();
    EXPECT_EQ(main.width(), width);
    EXPECT_EQ(TextOf(main, "Panel[3]"), text);
    QHelpEvent ask(QEvent::ToolTip, QPoint(5, 5), panel.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&panel, &ask);
    EXPECT_EQ(panel.toolTip(), PlainTip(text));
    const QImage cut = panel.grab().toImage();
    TheFrame()->SetPanelText(3, panel.fontMetrics().elidedText(text, Qt::ElideRight, panel.width()));
    EXPECT_EQ(panel.grab().toImage(), cut);
    QApplication::sendEvent(&panel, &ask);
    EXPECT_EQ(panel.toolTip(), "");
}

/// Counts the paint events of a control.
class PaintCounter final : public QObject {
public:
    explicit PaintCounter(QWidget& control)
    {
        control.installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override
    {
        Count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int Count = 0;
};

TEST_F(MainFrame, DrawsTheTextOfAJobAtOnce)
{
    MfMain& main = Start();
    QCoreApplication::processEvents();
    PaintCounter paints(FindControl(main, "Panel[1]"));
    StatusJob("Reading the drives...");
    EXPECT_EQ(paints.Count, 1) << "a job may let no events run";
    StatusClear();
}

TEST_F(MainFrame, HasAnEmptyAreaInAnotherColourOnAnyPalette)
{
    MfMain& main = Start();
    QPalette palette = main.palette();
    const auto areaOn = [&](int lightness) {
        palette.setColor(QPalette::Window, QColor(lightness, lightness, lightness));
        main.setPalette(palette);
        return main.ChildArea()->background().color().lightness();
    };
    EXPECT_LT(areaOn(0xEF), 0xEF - 20);
    EXPECT_GT(areaOn(0x2A), 0x2A + 10);
}

TEST_F(MainFrame, TabReachesEveryButtonOnce)
{
    MfMain& main = Start();
    SetLink(true);
    ExpectTabOrder(main);
    ExpectNothingClipped(main);
}

} // namespace tarvik
