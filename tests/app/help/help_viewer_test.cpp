// The help viewer: its commands and keys, and its use while dialogs are open.
#include "app/forms/form.h"
#include "app/frame/KeyboardFilter.h"
#include "app/help/FmHelp.h"
#include "app/help/help.h"
#include "app/state/project.h"
#include "app/text/lang.h"
#include "tests/support/fixture.h"
#include "tests/support/forms.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTextBrowser>
#include <QTextDocumentFragment>
#include <QTreeWidget>
#include <QWhatsThis>
#include <QWindow>

#include <algorithm>

namespace tarvik {

namespace {

const QString kBook = QStringLiteral(HELP_BOOK);

class HelpViewerTest : public ProgramTest {
protected:
    HelpViewerTest()
    {
        Program().HelpFilePath = kBook;
        BindHelpViewer();
    }

    template <typename Control>
    static Control& Get(const char* name)
    {
        return *HelpViewer()->findChild<Control*>(QString::fromLatin1(name));
    }

    static QString Page()
    {
        return Get<QTextBrowser>("BrPage").source().toString();
    }

    static QString Tab()
    {
        const QTabWidget& tabs = Get<QTabWidget>("TcHelp");
        return tabs.tabText(tabs.currentIndex());
    }

    static void Settle()
    {
        for (int round = 0; round < 5; ++round)
            QCoreApplication::processEvents();
    }
};

} // namespace

TEST_F(HelpViewerTest, ShowsContentsAtTheHomePage)
{
    HelpCommand(11971);
    EXPECT_TRUE(HelpViewer()->isVisible());
    EXPECT_EQ(Tab(), LngStr(10605));
    EXPECT_EQ(Page(), QStringLiteral("index.html#welcome"));
    EXPECT_GT(Get<QTreeWidget>("TvContents").topLevelItemCount(), 5);
}

TEST_F(HelpViewerTest, ShowsTheIndex)
{
    HelpCommand(11973);
    EXPECT_EQ(Tab(), LngStr(10606));
    EXPECT_GT(Get<QListWidget>("LxIndex").count(), 80);
}

TEST_F(HelpViewerTest, ShowsTheSearchWithAnEmptyBox)
{
    TheHelpDisplay()->ShowSearch(QStringLiteral("squelch"));
    EXPECT_EQ(Get<QLineEdit>("TbWords").text(), QStringLiteral("squelch"));
    HelpCommand(11975);
    EXPECT_EQ(Tab(), LngStr(10607));
    EXPECT_EQ(Get<QLineEdit>("TbWords").text(), QString());
    EXPECT_EQ(Get<QListWidget>("LxFound").count(), 0);
    EXPECT_EQ(Get<QLabel>("LbFound").text(), LngStr(10623));
}

TEST_F(HelpViewerTest, ShowsTheTopicOfAHelpNumber)
{
    ShowHelp(10702);
    EXPECT_EQ(Page(), QStringLiteral("memory.html#rows"));
    EXPECT_EQ(HelpViewer()->windowTitle(), QStringLiteral("Rows - Tarvik Help"));
    EXPECT_EQ(Get<QTreeWidget>("TvContents").currentItem()->text(0), QStringLiteral("Rows"));
}

TEST_F(HelpViewerTest, ScrollsToTheTopic)
{
    ShowHelp(12763);
    EXPECT_GT(Get<QTextBrowser>("BrPage").verticalScrollBar()->value(), 0);
}

TEST_F(HelpViewerTest, ReportsANumberWithoutTopic)
{
    Answers().Expect(12702, { QStringLiteral("14301") }, Ok);
    ShowHelp(14301);
    EXPECT_EQ(HelpViewer(), nullptr);
}

TEST_F(HelpViewerTest, ReportsAMissingBook)
{
    Program().HelpFilePath = FilePath(QStringLiteral("none.chm"));
    for (int command : { 11971, 11973, 11975 }) {
        Answers().Expect(12702, { QString::number(command) }, Ok);
        HelpCommand(command);
    }
    Answers().Expect(12702, { QStringLiteral("10738") }, Ok);
    ShowHelp(10738);
}

TEST_F(HelpViewerTest, KeepsOneWindow)
{
    ShowHelp(10702);
    const FmHelp* first = HelpViewer();
    ShowHelp(10738);
    EXPECT_EQ(HelpViewer(), first);
    EXPECT_EQ(Page(), QStringLiteral("memory.html#memory"));
}

TEST_F(HelpViewerTest, SearchesWhileTyping)
{
    HelpCommand(11975);
    QTest::keyClicks(&Get<QLineEdit>("TbWords"), QStringLiteral("decimal comma"));
    const int found = Get<QListWidget>("LxFound").count();
    EXPECT_GT(found, 0);
    EXPECT_EQ(Get<QLabel>("LbFound").text(), LngStr1(10617, QString::number(found)));
    QTest::keyClicks(&Get<QLineEdit>("TbWords"), QStringLiteral(" xyzzy"));
    EXPECT_EQ(Get<QListWidget>("LxFound").count(), 0);
    EXPECT_EQ(Get<QLabel>("LbFound").text(), LngStr(10616));
}

TEST_F(HelpViewerTest, OpensTheFirstTopicFoundOnEnter)
{
    HelpCommand(11975);
    QTest::keyClicks(&Get<QLineEdit>("TbWords"), QStringLiteral("sorting"));
    QTest::keyClick(&Get<QLineEdit>("TbWords"), Qt::Key_Return);
    EXPECT_EQ(Page(), QStringLiteral("memory.html#sorting"));
    EXPECT_TRUE(HelpViewer()->isVisible());
}

TEST_F(HelpViewerTest, SelectsTheTypedKeyword)
{
    HelpCommand(11973);
    QTest::keyClicks(&Get<QLineEdit>("TbKeyword"), QStringLiteral("sEpa"));
    EXPECT_EQ(Get<QListWidget>("LxIndex").currentItem()->text(), QStringLiteral("separator"));
    QTest::keyClick(&Get<QLineEdit>("TbKeyword"), Qt::Key_Return);
    EXPECT_EQ(Page(), QStringLiteral("csv.html#rules"));
}

TEST_F(HelpViewerTest, OpensTheClickedKeyword)
{
    HelpCommand(11973);
    auto& list = Get<QListWidget>("LxIndex");
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(2)).center());
    EXPECT_EQ(Page(), list.item(2)->data(Qt::UserRole).toString());
}

TEST_F(HelpViewerTest, GoesBackForwardAndHome)
{
    ShowHelp(10702);
    ShowHelp(10739);
    QTest::mouseClick(&Get<QPushButton>("BtBack"), Qt::LeftButton);
    EXPECT_EQ(Page(), QStringLiteral("memory.html#rows"));
    QTest::mouseClick(&Get<QPushButton>("BtForward"), Qt::LeftButton);
    EXPECT_EQ(Page(), QStringLiteral("memory-entry.html#entry"));
    EXPECT_FALSE(Get<QPushButton>("BtForward").isEnabled());
    QTest::mouseClick(&Get<QPushButton>("BtHome"), Qt::LeftButton);
    EXPECT_EQ(Page(), QStringLiteral("index.html#welcome"));
}

TEST_F(HelpViewerTest, ClosesOnEscapeFromEveryControl)
{
    for (const char* name : { "TvContents", "BrPage", "BtHome" }) {
        HelpCommand(11971);
        QTest::keyClick(&Get<QWidget>(name), Qt::Key_Escape);
        EXPECT_FALSE(HelpViewer()->isVisible()) << name;
    }
    HelpCommand(11973);
    QTest::keyClick(&Get<QLineEdit>("TbKeyword"), Qt::Key_Escape);
    EXPECT_FALSE(HelpViewer()->isVisible());
    HelpCommand(11975);
    QTest::keyClick(&Get<QLineEdit>("TbWords"), Qt::Key_Escape);
    EXPECT_FALSE(HelpViewer()->isVisible());
}

TEST_F(HelpViewerTest, DoesNotKeepTheProgramAlive)
{
    HelpCommand(11971);
    EXPECT_FALSE(HelpViewer()->testAttribute(Qt::WA_QuitOnClose));
}

TEST_F(HelpViewerTest, StaysUsableWhenOpenedFromADialog)
{
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    Settle();
    ShowHelp(10702);
    Settle();
    EXPECT_EQ(HelpViewer()->Owner(), dialog.windowHandle());
    auto& home = Get<QPushButton>("BtHome");
    const QPoint place = home.mapTo(HelpViewer(), home.rect().center());
    QTest::mouseClick(HelpViewer()->windowHandle(), Qt::LeftButton, {}, place);
    EXPECT_EQ(Page(), QStringLiteral("index.html#welcome"));
}

TEST_F(HelpViewerTest, StaysUsableWhenADialogOpens)
{
    ShowHelp(10702);
    Settle();
    QSignalSpy hidden(HelpViewer()->windowHandle(), &QWindow::visibleChanged);
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    Settle();
    auto& home = Get<QPushButton>("BtHome");
    const QPoint place = home.mapTo(HelpViewer(), home.rect().center());
    QTest::mouseClick(HelpViewer()->windowHandle(), Qt::LeftButton, {}, place);
    EXPECT_EQ(Page(), QStringLiteral("index.html#welcome"));
    EXPECT_EQ(hidden.count(), 0) << "the viewer flickered";
}

TEST_F(HelpViewerTest, OutlivesTheDialogItWasOpenedFrom)
{
    {
        QDialog below;
        below.setModal(true);
        below.show();
        Settle();
        {
            QDialog dialog;
            dialog.setModal(true);
            dialog.show();
            Settle();
            ShowHelp(10702);
        }
        Settle();
        EXPECT_TRUE(HelpViewer()->isVisible());
        EXPECT_EQ(HelpViewer()->Owner(), below.windowHandle());
    }
    Settle();
    EXPECT_TRUE(HelpViewer()->isVisible());
    EXPECT_EQ(HelpViewer()->Owner(), nullptr);
}

TEST_F(HelpViewerTest, ShowsNothingFromOutsideTheBook)
{
    HelpCommand(11971);
    auto& page = Get<QTextBrowser>("BrPage");
    const QString outside = FilePath(QStringLiteral("secret.html"));
    Store(outside, "secret");
    page.setSource(QUrl::fromLocalFile(outside));
    EXPECT_FALSE(page.toPlainText().contains(QLatin1String("secret")));
}

TEST_F(HelpViewerTest, UsesTheDarkStyleOnADarkPalette)
{
    HelpCommand(11971);
    auto& page = Get<QTextBrowser>("BrPage");
    const QUrl style(QStringLiteral("style.css"));
    const QVariant light = page.loadResource(QTextDocument::StyleSheetResource, style);
    QPalette palette = page.palette();
    palette.setColor(QPalette::Base, Qt::black);
    page.setPalette(palette);
    EXPECT_NE(page.loadResource(QTextDocument::StyleSheetResource, style), light);
}

TEST_F(HelpViewerTest, NamesEveryControlThatTakesTheFocus)
{
    HelpCommand(11971);
    int controls = 0;
    for (const QWidget* control : HelpViewer()->findChildren<QWidget*>()) {
        const bool isInner = control->objectName().startsWith(QLatin1String("qt_")) || control->objectName().isEmpty();
        if (control->focusPolicy() == Qt::NoFocus || isInner)
            continue;
        ++controls;
        EXPECT_FALSE(control->accessibleName().isEmpty()) << control->objectName().toStdString();
    }
    EXPECT_GE(controls, 9);
}

TEST_F(HelpViewerTest, ReachesItsControlsByTab)
{
    HelpCommand(11975);
    HelpViewer()->activateWindow();
    QStringList reached;
    for (int step = 0; step < 8; ++step) {
        QWidget* control = HelpViewer()->focusWidget();
        reached.append(control->objectName());
        QTest::keyClick(control, Qt::Key_Tab);
    }
    for (const char* name : { "TbWords", "LxFound", "BtHome", "BrPage" })
        EXPECT_TRUE(reached.contains(QLatin1String(name))) << name << " in " << reached.join(u' ').toStdString();
}

TEST_F(HelpViewerTest, MovesTheFocusIntoTheChosenTab)
{
    ShowHelp(10702);
    EXPECT_EQ(HelpViewer()->focusWidget(), &Get<QTextBrowser>("BrPage"));
    Get<QTabWidget>("TcHelp").setCurrentIndex(1);
    EXPECT_EQ(HelpViewer()->focusWidget(), &Get<QLineEdit>("TbKeyword"));
    Get<QTabWidget>("TcHelp").setCurrentIndex(2);
    EXPECT_EQ(HelpViewer()->focusWidget(), &Get<QLineEdit>("TbWords"));
    Get<QTabWidget>("TcHelp").tabBar()->setFocus();
    Get<QTabWidget>("TcHelp").setCurrentIndex(0);
    EXPECT_EQ(HelpViewer()->focusWidget(), Get<QTabWidget>("TcHelp").tabBar());
}

TEST_F(HelpViewerTest, GoesToTheSearchByCtrlF)
{
    ShowHelp(10702);
    ASSERT_TRUE(QTest::qWaitForWindowActive(HelpViewer()));
    QTest::keyClick(HelpViewer()->windowHandle(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(Tab(), LngStr(10607));
    EXPECT_EQ(HelpViewer()->focusWidget(), &Get<QLineEdit>("TbWords"));
}

TEST_F(HelpViewerTest, FitsTheScreen)
{
    HelpCommand(11971);
    EXPECT_LE(HelpViewer()->width(), HelpViewer()->screen()->availableSize().width());
    EXPECT_LE(HelpViewer()->height(), HelpViewer()->screen()->availableSize().height());
}

namespace {

bool IsPoppedUp()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::ranges::any_of(
        windows, [](const QWidget* window) { return window->inherits("QWhatsThat") && window->isVisible(); });
}

} // namespace

TEST_F(HelpViewerTest, PopsUpTheTextOfAHelpNumber)
{
    QWidget owner;
    owner.show();
    ShowPopupHelp(&owner, 10724, QPoint(10, 10));
    EXPECT_TRUE(IsPoppedUp());
    QWhatsThis::hideText();
}

TEST_F(HelpViewerTest, PopsUpTextWithMarkupCharactersAsItIs)
{
    const QString text = PopupHelpText(11979);
    ASSERT_TRUE(text.contains(u'>'));
    QWidget owner;
    owner.show();
    const auto shown = [&] {
        const QWidgetList windows = QApplication::topLevelWidgets();
        const auto popup = std::ranges::find_if(
            windows, [](const QWidget* window) { return window->inherits("QWhatsThat") && window->isVisible(); });
        return popup == windows.end() ? QImage() : (*popup)->grab().toImage();
    };
    QWhatsThis::showText(QPoint(10, 10), PlainTip(text), &owner);
    const QImage expected = shown();
    ASSERT_FALSE(expected.isNull());
    QWhatsThis::hideText();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ShowPopupHelp(&owner, 11979, QPoint(10, 10));
    EXPECT_EQ(shown(), expected);
    QWhatsThis::hideText();
}

TEST_F(HelpViewerTest, PopsUpTheTextOfAButtonInWhatsThisModeInsteadOfPressingIt)
{
    KeyboardFilter filter;
    filter.Install();
    QPushButton button;
    SetControlHelp(&button, 10724);
    button.show();
    QSignalSpy pressed(&button, &QPushButton::clicked);
    EnterWhatsThisMode();
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_TRUE(IsPoppedUp());
    EXPECT_EQ(pressed.count(), 0);
    EXPECT_FALSE(HelpViewer() != nullptr && HelpViewer()->isVisible());
    QWhatsThis::hideText();
    QWhatsThis::leaveWhatsThisMode();
    filter.Remove();
}

TEST_F(HelpViewerTest, PopsUpTheTextOfAMenuItemInWhatsThisModeInsteadOfRunningIt)
{
    QMenu menu;
    QAction* action = menu.addAction(QStringLiteral("a"));
    action->setProperty(kHelpNumberProperty, 11905);
    QSignalSpy triggered(action, &QAction::triggered);
    EnterWhatsThisMode();
    EXPECT_EQ(action->whatsThis(), PlainTip(PopupHelpText(11905)));
    EXPECT_EQ(QTextDocumentFragment::fromHtml(action->whatsThis()).toPlainText(), PopupHelpText(11905));
    menu.popup(QPoint(10, 10));
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
    EXPECT_TRUE(IsPoppedUp());
    EXPECT_EQ(triggered.count(), 0);
    QWhatsThis::hideText();
    QWhatsThis::leaveWhatsThisMode();
}

TEST_F(HelpViewerTest, PopsUpTheTextOfADisabledMenuItemInWhatsThisMode)
{
    KeyboardFilter filter;
    filter.Install();
    QMenu menu;
    QAction* action = menu.addAction(QStringLiteral("a"));
    action->setProperty(kHelpNumberProperty, 11907);
    action->setEnabled(false);
    menu.popup(QPoint(10, 10));
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
    EXPECT_FALSE(IsPoppedUp());
    EnterWhatsThisMode();
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
    EXPECT_TRUE(IsPoppedUp());
    EXPECT_FALSE(menu.isVisible());
    EXPECT_FALSE(QWhatsThis::inWhatsThisMode());
    QWhatsThis::hideText();
    filter.Remove();
}

TEST_F(HelpViewerTest, KeysChangeTheSizeOfTheText)
{
    HelpCommand(11971);
    const auto& page = Find<QTextBrowser>(*HelpViewer(), "BrPage");
    const double normal = page.font().pointSizeF();
    ASSERT_TRUE(QTest::qWaitForWindowActive(HelpViewer()));
    Key(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_LT(page.font().pointSizeF(), normal);
    Key(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(page.font().pointSizeF(), normal);
    Key(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(page.font().pointSizeF(), normal);
}

} // namespace tarvik
