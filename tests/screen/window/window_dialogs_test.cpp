// The forms for palettes, for the selection of windows, and for screen shots.
#include "app/state/statusBar.h"
#include "app/text/lang.h"
#include "link/control/controlGeneral.h"
#include "screen/bitmap/stretch.h"
#include "screen/files/FmScreenShotViewer.h"
#include "screen/window/FmPalette.h"
#include "screen/window/FmSelectWindow.h"
#include "screen/window/arrange.h"
#include "tests/screen/screen_form_fixture.h"

#include <QApplication>
#include <QListWidget>
#include <QRadioButton>

namespace tarvik {

namespace {

constexpr auto kUnknownPalette = static_cast<PaletteNumber>(5);

class PaletteForm : public ScreenForms {
protected:
    PaletteForm()
        : id(Open())
    {
    }

    void Run(const std::function<void(FmPalette&)>& during)
    {
        FmPalette form(frame.get());
        RunForm(form, [&] { during(form); });
    }

    static QImage InBlackAndWhite()
    {
        QImage picture = Picture();
        ConvertToBlackAndWhite(picture);
        return picture;
    }

    WindowId id;
};

class SelectWindowForm : public ScreenForms {
protected:
    SelectWindowForm()
    {
        for (int count = 0; count < 3; ++count) {
            TheSeams().Now = [count] { return QDateTime(QDate(2026, 1, 1), QTime(0, 0)).addSecs(count); };
            ids.append(Open());
        }
    }

    /// The selected windows.
    QVector<WindowId> Run(const std::function<void(FmSelectWindow&)>& during)
    {
        FmSelectWindow form(WindowsFor(MaskAll, true), WindowTable().Active, frame.get());
        RunForm(form, [&] { during(form); });
        return form.Chosen();
    }

    static void Select(FmSelectWindow& form, const QList<int>& rows)
    {
        auto& list = Find<QListWidget>(form, "LxWin");
        list.clearSelection();
        for (const int row : rows)
            list.item(row)->setSelected(true);
    }

    QVector<WindowId> ids;
};

class ScreenShotViewerForm : public ScreenForms { };

} // namespace

TEST_F(PaletteForm, HasItsControls)
{
    Run([&](FmPalette& form) {
        ExpectControls(form, { "FrPalette", "OpPalette[0]", "OpPalette[1]", "BtClose", "BtCancel", "BtHelp" });
        ExpectNothingClipped(form);
        EXPECT_EQ(form.windowTitle(), LngStr(13200));
        EXPECT_EQ(form.HelpNumber(), 13201);
        EXPECT_FALSE(FindControl(form, "BtHelp").isEnabled());
        EXPECT_TRUE(Find<QRadioButton>(form, "OpPalette[0]").isChecked());
        Key(Qt::Key_F1);
        EXPECT_EQ(help.Topics, QList<int>{ 13203 });
        Click(form, "BtCancel");
    });
}

TEST_F(PaletteForm, PreviewsChoiceAtOnce)
{
    Run([&](FmPalette& form) {
        Click(form, "OpPalette[1]");
        EXPECT_EQ(Document(id).Graph, InBlackAndWhite());
        EXPECT_TRUE(BlackAndWhite());
        Click(form, "OpPalette[0]");
        EXPECT_EQ(Document(id).Graph, Picture());
        EXPECT_FALSE(BlackAndWhite());
        Click(form, "BtClose");
        EXPECT_TRUE(form.IsClosed());
    });
}

TEST_F(PaletteForm, CloseKeepsChoice)
{
    Run([&](FmPalette& form) {
        Click(form, "OpPalette[1]");
        Click(form, "BtClose");
    });
    EXPECT_EQ(Document(id).PalNr, PaletteNumber::BlackAndWhite);
    EXPECT_EQ(TheColorDefaults().PalNr, PaletteNumber::BlackAndWhite);
    Run([&](FmPalette& form) {
        EXPECT_TRUE(Find<QRadioButton>(form, "OpPalette[1]").isChecked());
        Click(form, "BtClose");
    });
}

TEST_F(PaletteForm, CancelAndEscapeRestorePalette)
{
    for (const bool byEscape : { false, true }) {
        Run([&](FmPalette& form) {
            Click(form, "OpPalette[1]");
            if (byEscape)
                Key(Qt::Key_Escape);
            else
                Click(form, "BtCancel");
            EXPECT_TRUE(form.IsClosed());
        });
        EXPECT_EQ(Document(id).PalNr, PaletteNumber::Colour);
        EXPECT_EQ(Document(id).Graph, Picture());
    }
}

TEST_F(PaletteForm, ArrowKeysChooseAtOnceAndTabReachesButtons)
{
    Run([&](FmPalette& form) {
        Key(Qt::Key_Down);
        EXPECT_EQ(Document(id).Graph, InBlackAndWhite());
        Key(Qt::Key_Up);
        EXPECT_EQ(Document(id).Graph, Picture());
        Key(Qt::Key_Tab);
        EXPECT_TRUE(HasFocus(form, "BtClose"));
        Key(Qt::Key_Tab);
        EXPECT_TRUE(HasFocus(form, "BtCancel"));
        Key(Qt::Key_Tab);
        EXPECT_TRUE(HasFocus(form, "OpPalette[0]"));
        Click(form, "BtCancel");
    });
}

TEST_F(PaletteForm, ShowsPictureForInvalidPalette)
{
    PaletteStore(kUnknownPalette, id);
    Run([&](FmPalette& form) {
        EXPECT_TRUE(Find<QRadioButton>(form, "OpPalette[0]").isChecked());
        Click(form, "OpPalette[1]");
        Click(form, "BtCancel");
    });
    EXPECT_EQ(Document(id).PalNr, kUnknownPalette);
    EXPECT_EQ(Document(id).Graph, Picture());
}

TEST_F(PaletteForm, EnterKeepsChoice)
{
    Run([&](FmPalette& form) {
        Click(form, "OpPalette[1]");
        Key(Qt::Key_Return);
        EXPECT_TRUE(form.IsClosed());
    });
    EXPECT_EQ(Document(id).PalNr, PaletteNumber::BlackAndWhite);
}

TEST_F(PaletteForm, DoesNotOpenForDiagramThatIsNotDrawnYet)
{
    const WindowSlot slot = WindowAllocate(WindowType::DataSet, WindowSubtype::DataSet);
    WindowInitialise(slot, {}, 0);
    StatusSet(QStringLiteral("before"));
    ColorDialog(); // a form would block here
    EXPECT_EQ(TheFrame()->StatusText(), "");
    EXPECT_EQ(TheColorDefaults().PalNr, PaletteNumber::Colour);
}

TEST_F(PaletteForm, FrameShowsItsHint)
{
    Run([&](FmPalette& form) {
        PointAt(form, "FrPalette");
        EXPECT_EQ(TheFrame()->StatusText(), LngStr(13216));
        Click(form, "BtCancel");
    });
}

TEST_F(PaletteForm, OpensByItsCommandAndFocusesWindow)
{
    QTimer::singleShot(0, qApp, [] {
        QWidget* form = QApplication::activeModalWidget();
        ASSERT_NE(form, nullptr);
        EXPECT_EQ(form->objectName(), "FmPalette");
        Click(*form, "BtClose");
    });
    EXPECT_TRUE(CommandRun(Command::OptionsColor));
    EXPECT_EQ(frame->focusWidget(), &Graph(id)); // it gets the activation as soon as the system returns it
}

TEST_F(SelectWindowForm, HasItsControls)
{
    Run([&](FmSelectWindow& form) {
        ExpectControls(form, { "LxWin", "BtAll", "BtClear", "BtOk", "BtCancel", "BtHelp" });
        ExpectTabOrder(form);
        ExpectNothingClipped(form);
        EXPECT_EQ(form.windowTitle(), LngStr(13400));
        EXPECT_TRUE(HasFocus(form, "LxWin"));
        Click(form, "BtHelp");
        EXPECT_EQ(help.Topics, QList<int>{ 13401 });
        Click(form, "BtCancel");
    });
}

TEST_F(SelectWindowForm, OffersCaptionsNewestFirst)
{
    Run([&](FmSelectWindow& form) {
        auto& list = Find<QListWidget>(form, "LxWin");
        ASSERT_EQ(list.count(), 3);
        for (int row = 0; row < 3; ++row)
            EXPECT_EQ(list.item(row)->text(), Window(ids[2 - row]).Caption());
        EXPECT_TRUE(list.item(0)->toolTip().contains(list.item(0)->text()));
        Click(form, "BtCancel");
    });
}

TEST_F(SelectWindowForm, ActiveWindowIsInitiallySelected)
{
    frame->ChildArea()->setActiveSubWindow(&Child(ids[1]));
    const auto chosen = Run([&](FmSelectWindow&) { Key(Qt::Key_Return); });
    EXPECT_EQ(chosen, QVector<WindowId>{ ids[1] });
}

TEST_F(SelectWindowForm, ChosenOnesAreInListOrder)
{
    const auto chosen = Run([&](FmSelectWindow& form) {
        Select(form, { 2, 0 });
        Click(form, "BtOk");
    });
    EXPECT_EQ(chosen, (QVector<WindowId>{ ids[2], ids[0] }));
}

TEST_F(SelectWindowForm, AllAndNone)
{
    const auto chosen = Run([&](FmSelectWindow& form) {
        Click(form, "BtClear");
        EXPECT_FALSE(FindControl(form, "BtOk").isEnabled());
        Click(form, "BtAll");
        EXPECT_TRUE(FindControl(form, "BtOk").isEnabled());
        Click(form, "BtOk");
    });
    EXPECT_EQ(chosen.size(), 3);
}

TEST_F(SelectWindowForm, CancelAndEscapeSelectNothing)
{
    EXPECT_TRUE(Run([&](FmSelectWindow& form) { Click(form, "BtCancel"); }).isEmpty());
    EXPECT_TRUE(Run([&](FmSelectWindow&) { Key(Qt::Key_Escape); }).isEmpty());
}

TEST_F(SelectWindowForm, DoubleClickChoosesOne)
{
    const auto chosen = Run([&](FmSelectWindow& form) {
        auto& list = Find<QListWidget>(form, "LxWin");
        const QPoint at = list.visualItemRect(list.item(1)).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, at);
    });
    EXPECT_EQ(chosen, QVector<WindowId>{ ids[1] });
}

TEST_F(SelectWindowForm, DoubleClickWithoutSelectionKeepsFormOpen)
{
    const auto chosen = Run([&](FmSelectWindow& form) {
        auto& list = Find<QListWidget>(form, "LxWin");
        const QPoint at = list.visualItemRect(list.item(1)).center();
        Click(form, "BtClear");
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ControlModifier, at);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ControlModifier, at);
        Q_EMIT list.itemDoubleClicked(list.item(1));
        EXPECT_FALSE(form.IsClosed());
        Click(form, "BtCancel");
    });
    EXPECT_TRUE(chosen.isEmpty());
}

TEST_F(SelectWindowForm, OpensForModuleAndFillsItsSelection)
{
    QTimer::singleShot(0, qApp, [] {
        QWidget* form = QApplication::activeModalWidget();
        ASSERT_NE(form, nullptr);
        Click(*form, "BtAll");
        Click(*form, "BtOk");
    });
    ChooseWindows(MaskAll, true);
    EXPECT_EQ(TheScreenWindows().Chosen, (QVector<WindowId>{ ids[2], ids[1], ids[0] }));
}

TEST_F(SelectWindowForm, DoesNotOpenForSingleCandidate)
{
    for (int at = 0; at < 2; ++at)
        Child(ids[at]).close();
    ChooseWindows(MaskAll, true);
    EXPECT_EQ(TheScreenWindows().Chosen, QVector<WindowId>{ ids[2] });
}

TEST_F(ScreenShotViewerForm, ShowsPictureUnderItsName)
{
    FmScreenShotViewer form(Picture(), "Channel 16.png", frame.get());
    RunForm(form, [&] {
        ExpectControls(form, { "PbGraph", "BtClose", "BtHelp" });
        ExpectTabOrder(form);
        ExpectNothingClipped(form);
        EXPECT_EQ(form.windowTitle(), "Channel 16.png");
        EXPECT_EQ(form.HelpNumber(), 12483);
        QWidget& graph = FindControl(form, "PbGraph");
        ExpectAspect(graph.size(), QSize(642, 442));
        EXPECT_LE(graph.width(), 642);
        form.resize(500, 700);
        ExpectAspect(graph.size(), QSize(642, 442));
        EXPECT_TRUE(graph.parentWidget()->rect().contains(graph.geometry()));
        Key(Qt::Key_Escape);
        EXPECT_TRUE(form.IsClosed());
    });
}

TEST_F(ScreenShotViewerForm, ShowsVeryThinPicture)
{
    FmScreenShotViewer form(Picture({ 30000, 3 }), "line.png", frame.get());
    RunForm(form, [&] {
        EXPECT_GE(FindControl(form, "PbGraph").height(), 1);
        EXPECT_GT(FindControl(form, "PbGraph").width(), 300);
        Key(Qt::Key_Escape);
    });
}

TEST_F(ScreenShotViewerForm, OpensNothingForNonPicture)
{
    Store(FilePath("broken.png"), "no picture");
    Answers().Expect(12760, Ok);
    TheScreenShotViewer()->Show(FilePath("broken.png"), 0);
    EXPECT_TRUE(CanAct());
}

TEST_F(ScreenShotViewerForm, IsOpenedByFileControl)
{
    ASSERT_TRUE(Picture().save(FilePath("shot.png")));
    QString shown;
    QTimer look;
    look.callOnTimeout([&] {
        QWidget* form = QApplication::activeModalWidget();
        if (form == nullptr) // the picture is still being loaded
            return;
        look.stop();
        shown = form->objectName();
        Click(*form, "BtClose");
    });
    look.start(0);
    TheScreenShotViewer()->Show(FilePath("shot.png"), 0);
    EXPECT_EQ(shown, "FmScreenShotViewer");
}

} // namespace tarvik
