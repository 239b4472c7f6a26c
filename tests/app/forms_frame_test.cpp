#include "app/FmLogo.h"
#include "app/ini.h"
#include "app/lang.h"
#include "app/progressBar.h"
#include "app/statusBar.h"
#include "tests/app/formsFrame.h"

#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>

TEST_F(Frame, StartsWithAllItsControlsUnderTheirNames)
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

TEST_F(Frame, EveryItemBearsItsCaptionAndHelpNumber)
{
    Start();
    const auto expectItem = [this](const MenuEntry& entry) {
        if (entry.Name == nullptr || entry.Text == 0)
            return;
        EXPECT_EQ(Item(entry.Name).text(), LngStr(entry.Text)) << entry.Name;
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

TEST_F(Frame, MnemonicsOfAMenuDoNotRepeat)
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

TEST_F(Frame, GivesTheFirstButtonTheFocusAtTheEndOfTheStart)
{
    Start();
    EXPECT_TRUE(Cm(0).hasFocus());
}

TEST_F(Frame, LaysTheButtonsOutInGroupsWithPitchAndGap)
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

TEST_F(Frame, MenusAndToolBarAreOffWhileADialogIsOpen)
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

TEST_F(Frame, ShowsTheStateOfTheLink)
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

TEST_F(Frame, RunsTheCommandOfAnItemAndOfAButton)
{
    Start();
    int editors = 0;
    Count(Command::Editor3, editors);
    Item("MnToolsMemoryListEditor").trigger();
    Cm(13).click();
    EXPECT_EQ(editors, 2);
}

TEST_F(Frame, TellsApartPrintingByMenuAndByButton)
{
    Start();
    TheDocumentHooks().State = [] { return DocumentsState{ true, false, true, false, false, false }; };
    TheFrameHooks().MenuUpdate();
    int prints = 0;
    int printsNow = 0;
    Count(Command::FilePrint, prints);
    Count(Command::FilePrintNow, printsNow);
    Item("MnFilePrint").trigger();
    Cm(3).click();
    EXPECT_EQ(prints, 1);
    EXPECT_EQ(printsNow, 1);
}

TEST_F(Frame, HidesTheToolBarByItsOwnMenuAndSavesThat)
{
    MfMain& main = Start();
    int retiles = 0;
    int room = main.ChildArea()->height();
    TheDocumentHooks().Retile = [&] {
        ++retiles;
        room = main.ChildArea()->height() - room;
    };
    const int barHeight = FindControl(main, "PbToolbar").height();
    Item("TbMnHide").trigger();
    EXPECT_EQ(room, barHeight) << "the room that they are tiled in";
    EXPECT_FALSE(FindControl(main, "PbToolbar").isVisible());
    EXPECT_FALSE(Program().ToolbarOn);
    EXPECT_FALSE(Item("MnViewToolbar").isChecked());
    EXPECT_FALSE(Item("ClMnViewToolbar").isChecked());
    EXPECT_EQ(retiles, 1);
    main.close();
    EXPECT_FALSE(IniReadBool(FilePath("Tarvik.ini"), "Window", "Toolbar", true));
}

TEST_F(Frame, TogglesTheStatusBarFromEachOfItsItems)
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

TEST_F(Frame, EnablesTheDocumentWindowsWithTheMenus)
{
    Start();
    QList<bool> enabled;
    TheDocumentHooks().Enable = [&enabled](bool on) { enabled.append(on); };
    BeginBusy();
    EndBusy();
    EXPECT_EQ(enabled, (QList<bool>{ false, true }));
}

TEST_F(Frame, UpdatesItsMenusWhenAChildIsActivated)
{
    MfMain& main = Start();
    QMdiSubWindow* first = main.ChildArea()->addSubWindow(new QLineEdit);
    QMdiSubWindow* second = main.ChildArea()->addSubWindow(new QLineEdit);
    first->show();
    second->show();
    TheDocumentHooks().State = [] { return DocumentsState{ true, false, true, false, false, false }; };
    EXPECT_FALSE(Cm(2).isEnabled());
    main.ChildArea()->setActiveSubWindow(first);
    EXPECT_TRUE(Cm(2).isEnabled());
}

TEST_F(Frame, GivesTheFocusBackToTheActiveChildAfterEachButtonButTheLast)
{
    MfMain& main = Start();
    TheHelpHooks().EnterWhatsThis = {};
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
}

TEST_F(Frame, LeavesTheFocusOnItsButtonWithoutAChild)
{
    Start();
    Cm(11).setFocus();
    Cm(11).click();
    EXPECT_TRUE(Cm(11).hasFocus());
    Item("MnToolsAntennaListEditor").trigger();
    EXPECT_TRUE(Cm(11).hasFocus());
}

TEST_F(Frame, LeavesTheFocusWhereACommandHasPutIt)
{
    MfMain& main = Start();
    auto* box = new QLineEdit;
    TheCommandHooks()[Command::Editor1] = [&main, box] {
        main.ChildArea()->addSubWindow(box)->show();
        box->setFocus();
    };
    Cm(1).setFocus();
    Item("MnToolsAntennaListEditor").trigger();
    EXPECT_TRUE(box->hasFocus());
}

TEST_F(Frame, ChecksTheDescriptionOfTheActiveWindow)
{
    Start();
    for (const bool isVisible : { true, false }) {
        TheDocumentHooks().State = [isVisible] { return DocumentsState{ true, false, true, false, false, isVisible }; };
        TheFrameHooks().MenuUpdate();
        EXPECT_TRUE(Item("MnViewDescription").isEnabled());
        EXPECT_EQ(Item("MnViewDescription").isChecked(), isVisible);
        EXPECT_EQ(Item("MnOptionsDescr").isEnabled(), isVisible);
    }
}

TEST_F(Frame, ResetsTheCaptionOfTheLiveScreenWhileTheLinkIsUp)
{
    Start();
    Item("MnInstrDispSc").setText("another");
    SetLink(false);
    EXPECT_EQ(Item("MnInstrDispSc").text(), "another");
    SetLink(true);
    EXPECT_EQ(Item("MnInstrDispSc").text(), LngStr(11936));
    EXPECT_EQ(Item("MnInstrDispSc").property(kHelpNumberProperty).toInt(), 11937);
}

TEST_F(Frame, KeepsACheckMarkThatItsCommandDidNotChange)
{
    Start();
    EXPECT_FALSE(Item("MnWindowAutotile").isChecked());
    Item("MnWindowAutotile").trigger();
    EXPECT_FALSE(Item("MnWindowAutotile").isChecked());
}

TEST_F(Frame, StartsWithTheBarsThatTheSettingsAskFor)
{
    IniWriteBool(FilePath("Tarvik.ini"), "Window", "Toolbar", false);
    IniWriteBool(FilePath("Tarvik.ini"), "Window", "Statusbar", false);
    MfMain& main = Start();
    EXPECT_FALSE(FindControl(main, "PbToolbar").isVisible());
    EXPECT_FALSE(FindControl(main, "PbStatusBar").isVisible());
    EXPECT_FALSE(Item("MnViewToolbar").isChecked());
    EXPECT_FALSE(Item("MnViewStatusBar").isChecked());
}

TEST_F(Frame, StandsWhereItStoodLast)
{
    IniWriteInt(FilePath("Tarvik.ini"), "Tarvik", "WinState", 0);
    IniWriteSingle(FilePath("Tarvik.ini"), "Tarvik", "WinWidth", 9000);
    IniWriteSingle(FilePath("Tarvik.ini"), "Tarvik", "WinHeight", 6000);
    IniWriteSingle(FilePath("Tarvik.ini"), "Tarvik", "WinLeft", 150);
    IniWriteSingle(FilePath("Tarvik.ini"), "Tarvik", "WinTop", 300);
    MfMain& main = Start();
    EXPECT_EQ(main.geometry(), QRect(10, 20, 600, 400).intersected(main.screen()->availableGeometry()));
    EXPECT_FALSE(main.isMaximized());
    main.close();
    EXPECT_EQ(IniReadSingle(FilePath("Tarvik.ini"), "Tarvik", "WinWidth", 0), static_cast<float>(main.width()) * 15.0F);
    EXPECT_EQ(IniReadSingle(FilePath("Tarvik.ini"), "Tarvik", "WinLeft", 0), 150.0F);
}

TEST_F(Frame, GivesItsPictureToTheLogoAndFreesIt)
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

TEST_F(Frame, IsMaximisedWithoutSettings)
{
    MfMain& main = Start();
    EXPECT_TRUE(main.isMaximized());
    EXPECT_EQ(Program().MainWindowState, WinStateMaximised);
}

TEST_F(Frame, KeepsItsRestoredSizeWhileItIsMaximised)
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

TEST_F(Frame, RefusesToCloseWhileACommandRuns)
{
    MfMain& main = Start();
    BeginBusy();
    EXPECT_FALSE(main.close());
    EXPECT_FALSE(QFile::exists(FilePath("Tarvik.ini")));
    EndBusy();
    EXPECT_TRUE(main.close());
}

TEST_F(Frame, RefusesToCloseBeforeTheStartIsOver)
{
    bool closed = true;
    TheProjectHooks().AutoConnect = [this, &closed](bool) { closed = frame->close(); };
    Start();
    EXPECT_FALSE(closed);
    EXPECT_TRUE(frame->isVisible());
}

TEST_F(Frame, ClosesByItsExitItem)
{
    MfMain& main = Start();
    Item("MnFileExit").trigger();
    EXPECT_FALSE(main.isVisible());
    EXPECT_TRUE(QFile::exists(FilePath("Tarvik.ini")));
}

TEST_F(Frame, StaysWhenAPromptWasCancelled)
{
    MfMain& main = Start();
    TheProjectHooks().CloseAllDocuments = [] { return false; };
    EXPECT_FALSE(main.close());
    EXPECT_TRUE(main.isVisible());
    EXPECT_TRUE(QFile::exists(FilePath("Tarvik.ini")));
}

TEST_F(Frame, DrawsTheProgressWithWhiteAndBlackCharacters)
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

TEST_F(Frame, TipTimerStartsSlowAndGoesOnFast)
{
    MfMain& main = Start();
    auto* timer = main.findChild<QTimer*>("TmTips");
    EXPECT_EQ(timer->interval(), 1000);
    int checks = 0;
    TheDocumentHooks().CheckPendingResize = [&checks] { ++checks; };
    QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection, QGenericArgument());
    EXPECT_EQ(timer->interval(), 50);
    EXPECT_EQ(checks, 1);
}

TEST_F(Frame, TakesItsStatusBarOutOfUseWhileAnEditorIsOpen)
{
    MfMain& main = Start();
    TheFrameHooks().EnableStatusBar(false);
    EXPECT_FALSE(FindControl(main, "StatusBar").isEnabled());
    TheFrameHooks().EnableStatusBar(true);
    EXPECT_TRUE(FindControl(main, "StatusBar").isEnabled());
}

TEST_F(Frame, EndsALongStatusTextInDotsAndTellsAllOfItInATip)
{
    MfMain& main = Start();
    const int width = main.width();
    QWidget& panel = FindControl(main, "Panel[3]");
    const QString text(200, u'm');
    TheFrameHooks().SetPanelText(3, text);
    TheFrameHooks().SetPanelText(1, text.repeated(20));
    QCoreApplication::processEvents();
    EXPECT_EQ(main.width(), width);
    EXPECT_EQ(TextOf(main, "Panel[3]"), text);
    QHelpEvent ask(QEvent::ToolTip, QPoint(5, 5), panel.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&panel, &ask);
    EXPECT_EQ(panel.toolTip(), text);
    const QImage cut = panel.grab().toImage();
    TheFrameHooks().SetPanelText(3, panel.fontMetrics().elidedText(text, Qt::ElideRight, panel.width()));
    EXPECT_EQ(panel.grab().toImage(), cut);
    QApplication::sendEvent(&panel, &ask);
    EXPECT_EQ(panel.toolTip(), "");
}

TEST_F(Frame, SetsItsEmptyAreaApartFromItsBarsOnAnyPalette)
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

TEST_F(Frame, TabReachesEveryButtonOnce)
{
    MfMain& main = Start();
    SetLink(true);
    ExpectTabOrder(main);
    ExpectNothingClipped(main);
}

TEST_F(Frame, LeavesNoHookBehind)
{
    Start();
    frame.reset();
    TheFrameHooks().MenuUpdate();
    TheFrameHooks().SetStatusText("x");
    EXPECT_TRUE(CommandRun(Command::ViewToolbar));
    ProgressStart(2);
    ProgressEnd();
}

TEST_F(Frame, EndsAtOnceWithoutALibrary)
{
    QFile::remove(FilePath(ModuleFileName(Module::ListStore)));
    Answers().Expect(12705, { ModuleFileName(Module::ListStore).toUpper() }, Ok);
    frame = std::make_unique<MfMain>(Folder().chopped(1));
    EXPECT_FALSE(frame->Load());
    EXPECT_FALSE(frame->isVisible());
}

TEST_F(Frame, AWishToCloseDuringTheStartWaitsForItsEnd)
{
    TheSeams().StartTimer = [this](int, std::function<void()> tick) {
        frame->CloseWhenStarted();
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
