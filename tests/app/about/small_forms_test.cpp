#include "app/about/FmAbout.h"
#include "app/about/FmDebug.h"
#include "app/about/FmInfo.h"
#include "app/about/FmLogo.h"
#include "app/about/info.h"
#include "app/forms/Pictures.h"
#include "app/frame/FmTip.h"
#include "app/menu/menu.h"
#include "app/platform/seams.h"
#include "app/state/project.h"
#include "app/text/lang.h"
#include "tests/support/fakeFrame.h"
#include "tests/support/fakeHelp.h"
#include "tests/support/forms.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTimer>

#include <set>

namespace tarvik {

namespace {

class About : public FormTest {
protected:
    FakeFrame frame;
    FakeHelp help;
    const QList<int>& topics = help.Topics;
    const QString& status = frame.Status;
};

using Info = About;

} // namespace

TEST_F(About, AboutAndVersionsCloseWithTheProgram)
{
    FmAbout about;
    EXPECT_TRUE(about.CanCloseUnasked());
    FmInfo versions;
    EXPECT_TRUE(versions.CanCloseUnasked());
}

TEST_F(About, EnterClosesAbout)
{
    FmAbout form;
    ShowForm(form);
    EXPECT_TRUE(Find<QPushButton>(form, "BtClose").isDefault());
    EXPECT_TRUE(HasFocus(form, "BtClose"));
    Key(Qt::Key_Return);
    EXPECT_TRUE(form.IsClosed());
}

TEST_F(About, ShowsProductUseCopyrightAndVersion)
{
    FmAbout form;
    ShowForm(form);
    ExpectControls(form, { "LbProd", "LbUse1", "LbCopy", "LbVers", "BtClose", "BtInfo", "BtHelp" });
    EXPECT_EQ(form.windowTitle(), LngStr(10000));
    EXPECT_EQ(TextOf(form, "LbProd"), LngUnescapeMenu(LngStr(10002)));
    EXPECT_EQ(TextOf(form, "LbUse1"), LngStr(10003));
    EXPECT_EQ(TextOf(form, "LbCopy"), LngStr(10012));
    EXPECT_EQ(TextOf(form, "LbVers"), LngStr1(10014, ProductVersionText()));
    EXPECT_EQ(TextOf(form, "BtClose"), LngStr(10004));
    EXPECT_EQ(TextOf(form, "BtInfo"), LngStr(10009));
    EXPECT_EQ(TextOf(form, "BtHelp"), LngStr(10006));
    ExpectTabOrder(form);
    ExpectNothingClipped(form);
    Click(form, "BtClose");
    EXPECT_TRUE(form.IsClosed());
}

TEST_F(About, ShowsItsTopicByButtonAndByF1)
{
    FmAbout form;
    ShowForm(form);
    Click(form, "BtHelp");
    EXPECT_EQ(topics, QList<int>{ form.HelpNumber() });
    Key(form, "BtInfo", Qt::Key_F1);
    EXPECT_EQ(topics.last(), 10009);
    DialogEnd(form, 0);
}

TEST_F(About, ShowsTheHintOfAButtonUnderThePointer)
{
    FmAbout form;
    ShowForm(form);
    for (const auto& [name, hint] :
        { std::pair("BtClose", 10005), std::pair("BtHelp", 10007), std::pair("BtInfo", 10010) }) {
        PointAt(form, QLatin1String(name));
        EXPECT_EQ(status, LngStr(hint)) << name;
        PointAway(form, QLatin1String(name));
        EXPECT_EQ(status, "") << name;
    }
    DialogEnd(form, 0);
}

TEST_F(About, ClosesByEscapeWithStatus1)
{
    FmAbout form;
    EXPECT_EQ(RunForm(form, [] { Key(Qt::Key_Escape); }), 1);
}

TEST_F(About, OpensTheVersionList)
{
    FmAbout form;
    ShowForm(form);
    QString shown;
    QTimer::singleShot(0, qApp, [&shown] {
        auto* info = qobject_cast<FmInfo*>(QApplication::activeModalWidget());
        ASSERT_NE(info, nullptr);
        shown = TextOf(*info, "TbInfo");
        Click(*info, "BtClose");
    });
    Click(form, "BtInfo");
    EXPECT_TRUE(shown.contains("tvfio"));
    EXPECT_FALSE(form.IsClosed());
    DialogEnd(form, 0);
}

TEST_F(Info, ListsEachFileWithItsVersions)
{
    FmInfo form;
    ShowForm(form);
    ExpectControls(form, { "LbFileName", "LbFileVer", "LbProdVer", "TbInfo", "BtClose", "BtHelp" });
    EXPECT_EQ(form.windowTitle(), LngStr(11700));
    EXPECT_EQ(form.HelpNumber(), 11702);
    EXPECT_EQ(TextOf(form, "LbFileName"), LngStr(11703));
    EXPECT_EQ(TextOf(form, "LbFileVer"), LngStr(11705));
    EXPECT_EQ(TextOf(form, "LbProdVer"), LngStr(11708));
    EXPECT_EQ(TextOf(form, "BtClose"), LngStr(11709));
    EXPECT_EQ(TextOf(form, "BtHelp"), LngStr(11710));
    EXPECT_EQ(TextOf(form, "TbInfo"), InfoText().replace("\r\n", "\n"));
    EXPECT_EQ(HelpNumberOf(&FindControl(form, "TbInfo")), 11702);
    ExpectTabOrder(form);
    ExpectNothingClipped(form);
    DialogEnd(form, 0);
}

TEST_F(Info, ShowsAllFilesWithoutScrolling)
{
    FmInfo form;
    ShowForm(form);
    const auto& box = Find<QPlainTextEdit>(form, "TbInfo");
    EXPECT_EQ(box.verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(box.horizontalScrollBar()->maximum(), 0);
    DialogEnd(form, 0);
}

TEST_F(Info, ShowsThatThePictureModuleIsMissing)
{
    FmInfo form; // the test's folder holds no module
    ShowForm(form);
    EXPECT_FALSE(form.IsClosed());
    const QString none = LngStr(11712);
    EXPECT_TRUE(TextOf(form, "TbInfo").contains(ModuleFileName(Module::Pictures) + u'\t' + none + u'\t' + none));
    DialogEnd(form, 0);
}

TEST_F(Info, HasItsTabStopAfterTheWidestName)
{
    FmInfo form;
    ShowForm(form);
    auto& box = Find<QPlainTextEdit>(form, "TbInfo");
    const QList<QTextOption::Tab> tabs = box.document()->defaultTextOption().tabs();
    ASSERT_EQ(tabs.size(), 2);
    int widest = 0;
    for (const InfoRow& row : InfoRows())
        widest = std::max(widest, box.fontMetrics().horizontalAdvance(row.Name));
    EXPECT_GT(tabs[0].position, widest);
    EXPECT_GT(tabs[1].position, tabs[0].position);
    DialogEnd(form, 0);
}

TEST_F(Info, ShowsItsTopicAndCloses)
{
    FmInfo form;
    ShowForm(form);
    Click(form, "BtHelp");
    EXPECT_EQ(topics, QList<int>{ 11702 });
    Click(form, "BtClose");
    EXPECT_TRUE(form.IsClosed());
}

namespace {

class Logo : public FormTest { };
class DebugForm : public FormTest { };
class TipForm : public FormTest { };

} // namespace

TEST_F(Logo, EndsWithStatus0AfterOneTickOf5000Milliseconds)
{
    std::vector<int> intervals;
    TheSeams().StartTimer = [&intervals](int milliseconds, std::function<void()> tick) {
        intervals.push_back(milliseconds);
        QTimer::singleShot(0, qApp, std::move(tick));
    };
    FmLogo form{ QPixmap(40, 30) };
    EXPECT_EQ(DialogShow(form), 0);
    EXPECT_EQ(intervals, std::vector<int>{ 5000 });
    EXPECT_TRUE(form.IsClosed());
}

TEST_F(Logo, HasTheSizeOfItsPictureAndIsOnTheStack)
{
    TheSeams().StartTimer = [](int, const std::function<void()>&) {};
    FmLogo form{ QPixmap(240, 130) };
    ShowForm(form);
    EXPECT_EQ(form.size(), QSize(240, 130));
    EXPECT_EQ(DialogTop(), &form);
    EXPECT_EQ(form.objectName(), "FmLogo");
    DialogEnd(form, 0);
}

TEST_F(Logo, IgnoresALateTick)
{
    std::function<void()> tick;
    TheSeams().StartTimer = [&tick](int, std::function<void()> action) { tick = std::move(action); };
    {
        FmLogo form{ QPixmap(40, 30) };
        ShowForm(form);
        form.close();
        EXPECT_TRUE(form.IsClosed());
        tick();
    }
    tick();
    EXPECT_FALSE(DialogIsOpen());
}

TEST_F(DebugForm, NamesTheFunctionAndContinues)
{
    for (const char* button : { "BtRetry", "BtIgnore" }) {
        FmDebug form("MnBmpShow");
        ShowForm(form);
        ExpectControls(form, { "LbText1", "BtAbort", "BtRetry", "BtIgnore" });
        EXPECT_EQ(TextOf(form, "LbText1"), "Function: MnBmpShow");
        Click(form, QLatin1String(button));
        EXPECT_TRUE(form.IsClosed()) << button;
    }
}

TEST_F(TipForm, ShowsItsTextUnderTheButtonAndOnTheScreen)
{
    QWidget owner;
    FmTip tip(&owner);
    EXPECT_FALSE(tip.isVisible());
    tip.ShowTip("Memory list editor", QRect(100, 50, 24, 24));
    EXPECT_TRUE(tip.isVisible());
    EXPECT_EQ(TextOf(tip, "LbTip"), "Memory list editor");
    EXPECT_EQ(tip.geometry().topLeft(), QPoint(98, 79));
    const int screenRight = tip.screen()->geometry().right();
    tip.ShowTip("Memory list editor with a long tip", QRect(screenRight - 30, 50, 24, 24));
    EXPECT_EQ(tip.geometry().right(), screenRight - 4);
}

TEST(ProgramPictures, AreDifferentOnEachToolButton)
{
    std::set<QString> seen;
    for (const ToolButton& button : ToolBarTable()) {
        const QIcon icon = PictureIcon(QLatin1String(button.Picture));
        EXPECT_FALSE(icon.isNull()) << button.Picture;
        const QImage image = icon.pixmap(16, 16).toImage();
        QByteArray bytes(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
        EXPECT_NE(bytes.count('\0'), bytes.size()) << button.Picture;
        if (button.Run != Command::None) {
            EXPECT_TRUE(seen.insert(QString::fromLatin1(bytes.toHex())).second) << button.Picture;
        }
    }
}

TEST(ProgramPictures, AreDrawnInFullAtTwiceTheScale)
{
    const QPixmap logo = PicturePixmap("logo", 2.0);
    EXPECT_EQ(logo.size(), QSize(1120, 640));
    EXPECT_EQ(logo.deviceIndependentSize(), QSizeF(560, 320));
    EXPECT_FALSE(ProgramIcon().isNull());
    EXPECT_TRUE(PicturePixmap("no such picture", 1.0).isNull());
    EXPECT_TRUE(PictureIcon("no such picture").isNull());
}

TEST(ProgramPictures, FollowTheColourOfTheText)
{
    const QIcon icon = PictureIcon("connect");
    const QPalette before = QGuiApplication::palette();
    const QImage first = icon.pixmap(24, 24).toImage();
    QPalette dark = before;
    dark.setColor(QPalette::WindowText, Qt::white);
    QGuiApplication::setPalette(dark);
    EXPECT_NE(icon.pixmap(24, 24).toImage(), first);
    QGuiApplication::setPalette(before);
    EXPECT_EQ(icon.pixmap(24, 24).toImage(), first);
}

TEST(ProgramPictures, AreCached)
{
    const QPixmap one = PictureIcon("MDI_SCREEN").pixmap(QSize(16, 16), 1);
    EXPECT_EQ(PictureIcon("MDI_SCREEN").pixmap(QSize(16, 16), 1).cacheKey(), one.cacheKey());
    EXPECT_NE(PictureIcon("MDI_IMAGE").pixmap(QSize(16, 16), 1).cacheKey(), one.cacheKey());
    EXPECT_NE(PictureIcon("MDI_SCREEN").pixmap(QSize(16, 17), 1).cacheKey(), one.cacheKey());
}

TEST(ProgramPictures, ArePalerAsAWholeWhileDisabled)
{
    const QImage normal = PictureIcon("print").pixmap(QSize(24, 24), 1).toImage();
    const QImage disabled = PictureIcon("print").pixmap(QSize(24, 24), 1, QIcon::Disabled).toImage();
    for (int y = 0; y < 24; ++y) {
        for (int x = 0; x < 24; ++x)
            EXPECT_NEAR(disabled.pixelColor(x, y).alpha(), normal.pixelColor(x, y).alpha() * 0.38, 2) << x << ", " << y;
    }
}

TEST(ProgramPictures, AreSharpAtAnyScaleOfTheScreen)
{
    const QIcon icon = PictureIcon("print");
    for (const double scale : { 1.0, 1.25, 1.5, 2.0 }) {
        const int sizePx = qRound(18 * scale);
        QImage screen(64, 64, QImage::Format_ARGB32_Premultiplied);
        screen.fill(Qt::transparent);
        screen.setDevicePixelRatio(scale);
        QPainter painter(&screen);
        icon.paint(&painter, QRect(0, 0, 18, 18));
        painter.end();
        screen.setDevicePixelRatio(1);
        const QImage drawn = icon.pixmap(QSize(sizePx, sizePx), 1).toImage();
        EXPECT_EQ(screen.copy(0, 0, sizePx, sizePx), drawn.convertToFormat(screen.format())) << scale;
    }
}

TEST(ProgramPictures, AreNotDrawnInAnEmptySize)
{
    EXPECT_TRUE(PictureIcon("print").pixmap(QSize(0, 16), 1).isNull());
}

TEST(ProgramPictures, HaveTheTextColourInAHighlightedMenuItem)
{
    const QPalette before = QGuiApplication::palette();
    QPalette palette = before;
    palette.setColor(QPalette::HighlightedText, QColor(1, 2, 3));
    QGuiApplication::setPalette(palette);
    const QImage inMenu = MenuPictureIcon("print").pixmap(24, 24, QIcon::Active).toImage();
    const QImage onButton = PictureIcon("print").pixmap(24, 24, QIcon::Active).toImage();
    QGuiApplication::setPalette(before);
    const QPoint onPaper(inMenu.width() / 2, inMenu.height() * 17 / 24);
    EXPECT_EQ(inMenu.pixelColor(onPaper), QColor(1, 2, 3));
    EXPECT_EQ(onButton.pixelColor(onPaper), QColor(0x2f, 0x80, 0xd1));
    EXPECT_EQ(MenuPictureIcon("print").pixmap(24, 24).toImage(), PictureIcon("print").pixmap(24, 24).toImage());
}

} // namespace tarvik
