// The document window: opening, display, activation.
#include "app/state/statusBar.h"
#include "app/text/lang.h"
#include "screen/bitmap/stretch.h"
#include "screen/window/closing.h"
#include "screen/window/descriptionEdit.h"
#include "tests/screen/screen_form_fixture.h"
#include "tests/support/fakeFrame.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QMimeData>
#include <QSignalSpy>

namespace tarvik {

namespace {

class ScreenWindowForm : public ScreenForms {
protected:
    void ClickRight(QWidget& on)
    {
        QTest::mouseClick(frame->windowHandle(), Qt::RightButton, {}, on.mapTo(frame.get(), QPoint(40, 40)));
    }

    /// Drags a file over a control and drops it there.
    void Drop(const QWidget& on, const QString& path)
    {
        QMimeData data;
        data.setUrls({ QUrl::fromLocalFile(path) });
        const QPoint at = on.mapTo(frame.get(), QPoint(20, 5));
        QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(frame->windowHandle(), &enter);
        QDragMoveEvent move(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(frame->windowHandle(), &move);
        EXPECT_TRUE(move.isAccepted());
        QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(frame->windowHandle(), &drop);
        QCoreApplication::processEvents();
    }

    static QString OpenMenu()
    {
        const QWidget* menu = QApplication::activePopupWidget();
        return menu == nullptr ? QString() : menu->objectName();
    }

    QString Status() const
    {
        return TextOf(*frame, QStringLiteral("Panel[1]"));
    }
};

} // namespace

TEST_F(ScreenWindowForm, HasItsControls)
{
    MfScreen& window = Window(Open());
    ExpectControls(window,
        { "PbDefGraph", "PbGraph", "TbDescription", "LnDescr", "TbStatus", "TbStatHead[0]", "TbStatHead[1]",
            "TbStatHead[2]", "LnStatus" });
    EXPECT_EQ(window.objectName(), "MfScreen");
}

TEST_F(ScreenWindowForm, OpensInPictureSizeAndShowsIt)
{
    const WindowId id = Open();
    MfScreen& window = Window(id);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.size(), QSize(642, 442));
    EXPECT_EQ(Graph(id).geometry(), QRect(0, 0, 642, 442));
    EXPECT_EQ(Child(id).contentsRect().size(), QSize(642, 442));
    EXPECT_EQ(window.property("Tag").toInt(), id);
    EXPECT_EQ(WindowTable().Active, id);
    EXPECT_EQ(Shown(id), Stretch(Picture(), DevicePixels(id)));
    EXPECT_FALSE(FindControl(window, "PbDefGraph").isVisible());
    EXPECT_EQ(FindControl(window, "PbDefGraph").size(), QSize(642, 442));
}

TEST_F(ScreenWindowForm, IsDrawnOnceOnOpening)
{
    FakeFrame seen;
    NewDocument document;
    document.Master = Picture();
    ScreenCreate(WindowAllocate(WindowType::Screen, WindowSubtype::File), document);
    QCoreApplication::processEvents();
    EXPECT_EQ(seen.Log.filter(LngStr(10106)).size(), 1);
}

TEST_F(ScreenWindowForm, StatusPanelIsFilledButHidden)
{
    MfScreen& window = Window(Open(WindowSubtype::Live));
    EXPECT_EQ(TextOf(window, "TbStatHead[1]"), LngStr(14501));
    EXPECT_NE(TextOf(window, "TbStatHead[0]"), "");
    EXPECT_NE(TextOf(window, "TbStatHead[2]"), "");
    for (const char* name : { "TbStatHead[0]", "TbStatHead[1]", "TbStatHead[2]", "TbStatus", "LnStatus" })
        EXPECT_FALSE(FindControl(window, QLatin1String(name)).isVisible()) << name;
}

TEST_F(ScreenWindowForm, VisibleStatusPanelIsHiddenByDrawing)
{
    const WindowId id = Open();
    for (const char* name : { "TbStatHead[0]", "TbStatHead[2]", "TbStatus", "LnStatus" })
        FindControl(Window(id), QLatin1String(name)).show();
    DrawScreenWindow(id);
    for (const char* name : { "TbStatHead[0]", "TbStatHead[2]", "TbStatus", "LnStatus" })
        EXPECT_FALSE(FindControl(Window(id), QLatin1String(name)).isVisible()) << name;
}

TEST_F(ScreenWindowForm, PanelAndDescriptionUseDocumentColours)
{
    const WindowId id = Open();
    Window(id).SetColours(0x030201, 0x060504);
    const QColor paper(1, 2, 3);
    const QColor text(4, 5, 6);
    EXPECT_EQ(Window(id).palette().color(QPalette::Window), paper);
    for (const char* name : { "TbStatus", "TbDescription" }) {
        EXPECT_EQ(FindControl(Window(id), QLatin1String(name)).palette().color(QPalette::Base), paper) << name;
        EXPECT_EQ(FindControl(Window(id), QLatin1String(name)).palette().color(QPalette::Text), text) << name;
    }
    for (const char* name : { "TbStatHead[0]", "TbStatHead[1]", "TbStatHead[2]", "LnStatus", "LnDescr" })
        EXPECT_EQ(FindControl(Window(id), QLatin1String(name)).palette().color(QPalette::WindowText), text) << name;
}

TEST_F(ScreenWindowForm, CaptionIsFileNameOrTitle)
{
    const WindowId file = Open();
    const WindowId live = Open(WindowSubtype::Live);
    EXPECT_EQ(Child(file).windowTitle(), "picture 1.png");
    EXPECT_TRUE(Child(live).windowTitle().startsWith(LngStr(14500) + LngStr(14301)));
    EXPECT_EQ(Graph(file).accessibleName(), "picture 1.png");
}

TEST_F(ScreenWindowForm, CaptionShowsPlaceholderCharactersLiterally)
{
    const WindowId id = Open();
    Window(id).SetCaption("scan [*] 50% & more.png");
    EXPECT_EQ(Window(id).Caption(), "scan [*] 50% & more.png");
    EXPECT_EQ(Child(id).windowTitle(), "scan [*][*] 50% & more.png"); // doubled marks are displayed as typed
}

TEST_F(ScreenWindowForm, IconDistinguishesLiveScreensFromFiles)
{
    const QImage file = Child(Open()).windowIcon().pixmap(32).toImage();
    const QImage live = Child(Open(WindowSubtype::Live)).windowIcon().pixmap(32).toImage();
    EXPECT_FALSE(file.isNull());
    EXPECT_FALSE(live.isNull());
    EXPECT_NE(file, live);
}

TEST_F(ScreenWindowForm, TitleBarButtonsAreLegibleOnDarkPalette)
{
    const QPalette before = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(49, 54, 59), QColor(35, 38, 41)));
    for (const WindowId id : { Open(), Open() }) { // the second one is active
        const QRect buttons(Child(id).width() - 64, 0, 64, Child(id).contentsMargins().top());
        const QImage shown = Child(id).grab(buttons).toImage();
        int lightest = 0;
        for (int y = 0; y < shown.height(); ++y) {
            for (int x = 0; x < shown.width(); ++x)
                lightest = std::max(lightest, shown.pixelColor(x, y).lightness());
        }
        EXPECT_GT(lightest, 200) << id;
    }
    QApplication::setPalette(before);
}

TEST_F(ScreenWindowForm, HelpNumbersDependOnKind)
{
    const WindowId file = Open();
    EXPECT_EQ(HelpNumberOf(&Graph(file)), 14401);
    EXPECT_EQ(HelpNumberOf(&Child(file)), 14401);
    EXPECT_EQ(HelpNumberOf(&Description(file)), 14402);
    EXPECT_EQ(HelpNumberOf(&FindControl(Window(file), "TbStatus")), 14504);
    const WindowId live = Open(WindowSubtype::Live);
    EXPECT_EQ(HelpNumberOf(&Graph(live)), 14502);
    EXPECT_EQ(HelpNumberOf(&Description(live)), 14503);
}

TEST_F(ScreenWindowForm, F1InDescriptionFocusesPictureAndOpensTopic)
{
    const WindowId id = Open();
    DescrSetVisible(true, id);
    Description(id).setFocus();
    ASSERT_TRUE(Description(id).hasFocus());
    Key(Qt::Key_F1);
    EXPECT_TRUE(Graph(id).hasFocus());
    EXPECT_EQ(help.Topics, QList<int>{ 14401 });
}

TEST_F(ScreenWindowForm, NewWindowsDoNotCoverEachOther)
{
    QVector<QPoint> places;
    for (int count = 0; count < 12; ++count) {
        const QPoint place = Child(Open()).pos();
        EXPECT_FALSE(places.contains(place));
        places.append(place);
    }
    EXPECT_EQ(places[0], QPoint(0, 0));
}

TEST_F(ScreenWindowForm, ActiveWindowIsInFront)
{
    const WindowId first = Open();
    const WindowId second = Open();
    EXPECT_EQ(WindowTable().Active, second);
    frame->ChildArea()->setActiveSubWindow(&Child(first));
    EXPECT_EQ(WindowTable().Active, first);
    EXPECT_TRUE(Item("MnFileClose").isEnabled());
}

TEST_F(ScreenWindowForm, ClickActivatesWindow)
{
    const WindowId first = Open();
    Open();
    const QPoint at = Child(first).mapTo(frame.get(), QPoint(60, 6));
    QTest::mouseClick(frame->windowHandle(), Qt::LeftButton, {}, at);
    EXPECT_EQ(WindowTable().Active, first);
}

TEST_F(ScreenWindowForm, StaysActiveUnderDialog)
{
    const WindowId id = Open();
    FormBase* dialog = nullptr;
    class Dialog final : public FormBase {
    public:
        explicit Dialog(QWidget* parent)
            : FormBase("Dialog", parent)
        {
        }
        bool OnLoad() override
        {
            DialogPush(*this, false);
            return true;
        }
    } form(frame.get());
    dialog = &form;
    ShowForm(*dialog);
    EXPECT_EQ(WindowTable().Active, id);
    DialogEnd(*dialog, 0);
    EXPECT_EQ(WindowTable().Active, id);
}

TEST_F(ScreenWindowForm, RightButtonOpensItsMenu)
{
    const WindowId id = Open();
    ClickRight(Graph(id));
    EXPECT_EQ(OpenMenu(), "ScMn");
    QApplication::activePopupWidget()->close();
}

TEST_F(ScreenWindowForm, RightButtonActivatesWindow)
{
    const WindowId first = Open();
    Open();
    const QPoint at = Child(first).mapTo(frame.get(), QPoint(10, 60));
    QTest::mouseClick(frame->windowHandle(), Qt::RightButton, {}, at);
    EXPECT_EQ(OpenMenu(), "ScMn");
    EXPECT_EQ(WindowTable().Active, first);
    QApplication::activePopupWidget()->close();
}

TEST_F(ScreenWindowForm, CtrlCOnPictureCopiesIt)
{
    const WindowId id = Open();
    QGuiApplication::clipboard()->clear();
    const QSignalSpy copies(QGuiApplication::clipboard(), &QClipboard::dataChanged);
    Graph(id).setFocus();
    QTest::keyClick(frame->windowHandle(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(copies.count(), 1);
    EXPECT_FALSE(QGuiApplication::clipboard()->image().isNull());
}

TEST_F(ScreenWindowForm, RightButtonBesidePictureOpensWindowMenu)
{
    const WindowId id = Open();
    Graph(id).hide(); // exposes the paper around the picture
    ClickRight(Window(id));
    EXPECT_EQ(OpenMenu(), "ScMn");
    QApplication::activePopupWidget()->close();
}

TEST_F(ScreenWindowForm, RightButtonIsIgnoredWhileCommandRuns)
{
    const WindowId id = Open();
    BeginBusy();
    ClickRight(Graph(id));
    EXPECT_EQ(OpenMenu(), "");
    EndBusy();
}

TEST_F(ScreenWindowForm, MenuKeyOpensItsMenu)
{
    const WindowId id = Open();
    QContextMenuEvent ask(QContextMenuEvent::Keyboard, QPoint(20, 20), Graph(id).mapToGlobal(QPoint(20, 20)));
    QApplication::sendEvent(&Graph(id), &ask);
    EXPECT_EQ(OpenMenu(), "ScMn");
    QApplication::activePopupWidget()->close();
}

TEST_F(ScreenWindowForm, IgnoresMouseWhileCommandRuns)
{
    const WindowId first = Open();
    const WindowId second = Open();
    const QPoint at = Child(first).mapTo(frame.get(), QPoint(60, 6));
    BeginBusy();
    QTest::mouseClick(frame->windowHandle(), Qt::LeftButton, {}, at);
    EXPECT_EQ(WindowTable().Active, second);
    EndBusy();
    QTest::mouseClick(frame->windowHandle(), Qt::LeftButton, {}, at);
    EXPECT_EQ(WindowTable().Active, first);
}

TEST_F(ScreenWindowForm, DroppedFilesGoToFrame)
{
    ASSERT_TRUE(Picture().save(FilePath("dropped.png")));
    const WindowId id = Open();
    DescrSetVisible(true, id);
    int windows = 1;
    for (QWidget* at : { &Graph(id), static_cast<QWidget*>(&Description(id)) }) {
        Drop(*at, FilePath("dropped.png"));
        EXPECT_EQ(WindowCount(), ++windows);
    }
    EXPECT_EQ(WindowAt(id).Description, "");
}

} // namespace tarvik
