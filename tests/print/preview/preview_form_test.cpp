// The print preview.
#include "app/text/lang.h"
#include "print/bindPrint.h"
#include "print/page/printCommand.h"
#include "print/page/printSettings.h"
#include "print/preview/FmPreview.h"
#include "print/preview/SheetView.h"
#include "print/preview/pagination.h"
#include "tests/print/fakePrinters.h"
#include "tests/screen/screen_form_fixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>

namespace tarvik {

namespace {

class Preview : public ScreenForms {
protected:
    Preview()
    {
        UsePrinters(system);
        for (int count = 0; count < 3; ++count) {
            TheSeams().Now = [count] { return QDateTime(QDate(2026, 1, 1), QTime(0, 0)).addSecs(count); };
            ids.append(Open());
        }
        PageSlot slot;
        slot.Type = 2;
        for (size_t at = 0; at < 3; ++at)
            PresentPage().Layout[at] = slot;
    }

    ~Preview() override
    {
        ThePrinterSystem().Reset();
    }

    void Run(const std::function<void(FmPreview&)>& during)
    {
        FmPreview form(frame.get());
        RunForm(form, [&] { during(form); });
    }

    static SheetView& View(FmPreview& form)
    {
        return Find<SheetView>(form, "PbPreview");
    }

    static PageRecord& Page(size_t number = 0)
    {
        return ThePages().Table[number];
    }

    static const PageEntry& Entry(size_t at)
    {
        return PresentPage().Entries[at];
    }

    static QVector<WindowId> Windows(size_t page = 0)
    {
        QVector<WindowId> windows;
        for (const PageEntry& entry : Page(page).InUse())
            windows.append(entry.Window);
        return windows;
    }

    static void Press(SheetView& view, QPoint at)
    {
        QTest::mousePress(&view, Qt::LeftButton, {}, at);
    }
    static void Move(SheetView& view, QPoint to)
    {
        QMouseEvent event(
            QEvent::MouseMove, QPointF(to), view.mapToGlobal(QPointF(to)), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(&view, &event);
    }
    static void Release(SheetView& view, QPoint at)
    {
        QTest::mouseRelease(&view, Qt::LeftButton, {}, at);
    }

    static QImage Shown(SheetView& view)
    {
        return view.grab().toImage().convertToFormat(QImage::Format_RGB32);
    }

    /// Three windows arranged without overlap.
    static void Arrange(FmPreview& form)
    {
        Click(form, "BtDflt");
    }

    FakePrinters system;
    QVector<WindowId> ids;
};

} // namespace

TEST_F(Preview, HasItsControls)
{
    Run([&](FmPreview& form) {
        ExpectControls(form,
            { "PbPreview", "VsNrPages", "LbPage", "LbNrOfWindows", "TbNrOfWindows", "ChOutline", "ChTitle", "ChBw",
                "BtAdd", "BtDel", "BtDflt", "BtPrint", "BtSetup", "BtClose", "BtCancel", "BtHelp", "BtWhatsThis",
                "FrPos", "LbPos[0]", "LbPos[3]", "LbPosVal[0]", "LbPosVal[3]" });
        ExpectTabOrder(form);
        ExpectNothingClipped(form);
        EXPECT_EQ(form.windowTitle(), LngStr(13300));
        EXPECT_EQ(form.HelpNumber(), 13301);
        Click(form, "BtHelp");
        EXPECT_EQ(help.Topics, QList<int>{ 13301 });
        Click(form, "BtCancel");
    });
}

TEST_F(Preview, ShowsAllWindowsTheActiveOneFirst)
{
    WindowSetActive(ids[0]);
    Run([&](FmPreview& form) {
        EXPECT_EQ(Windows(), (QVector<WindowId>{ ids[0], ids[2], ids[1] }));
        EXPECT_EQ(TextOf(form, "TbNrOfWindows"), "3");
        EXPECT_EQ(TextOf(form, "LbPage"), "Page 1 of 1");
        EXPECT_FALSE(FindControl(form, "VsNrPages").isEnabled());
        Click(form, "BtCancel");
    });
}

TEST_F(Preview, SheetHasTheAspectOfThePaper)
{
    Run([&](FmPreview& form) {
        for (const QSize size : { QSize(700, 560), QSize(1200, 640), QSize(640, 900) }) {
            form.resize(size);
            QCoreApplication::processEvents();
            const QSize sheet = View(form).size();
            EXPECT_NEAR(sheet.width() / 8.25, sheet.height() / 11.75, 0.2) << sheet.width() << " x " << sheet.height();
            EXPECT_TRUE(View(form).parentWidget()->contentsRect().contains(View(form).geometry()));
            EXPECT_EQ(View(form).Edit().PreviewPixels(), sheet);
        }
        Click(form, "BtCancel");
    });
}

TEST_F(Preview, MouseMovesAWindow)
{
    Run([&](FmPreview& form) {
        Arrange(form);
        SheetView& view = View(form);
        const QRect before = Entry(0).Pixels;
        Press(view, before.center());
        Move(view, before.center() + QPoint(0, 3));
        EXPECT_EQ(view.Edit().SelectedPixels(), before.translated(0, 3));
        Release(view, before.center() + QPoint(0, 3));
        EXPECT_EQ(Entry(0).Pixels, before.translated(0, 3));
        Click(form, "BtCancel");
    });
}

TEST_F(Preview, EscapeInADragLeavesWindowAndForm)
{
    Run([&](FmPreview& form) {
        Arrange(form);
        SheetView& view = View(form);
        const SheetRect before = Entry(0).Rectangle;
        const QPoint from = Entry(0).Pixels.center();
        Press(view, from);
        Move(view, from + QPoint(0, 5));
        Key(Qt::Key_Escape);
        EXPECT_FALSE(form.IsClosed());
        EXPECT_FALSE(view.Edit().IsDragging());
        Release(view, from + QPoint(0, 5));
        EXPECT_EQ(Entry(0).Rectangle, before);
        Key(Qt::Key_Escape);
        EXPECT_TRUE(form.IsClosed());
    });
}

TEST_F(Preview, PointerShowsTheHandle)
{
    Run([&](FmPreview& form) {
        Arrange(form);
        SheetView& view = View(form);
        const QRect place = view.Edit().SelectedPixels();
        const auto pointerAt = [&view](QPoint at) {
            QMouseEvent event(
                QEvent::MouseMove, QPointF(at), view.mapToGlobal(QPointF(at)), Qt::NoButton, Qt::NoButton, {});
            QApplication::sendEvent(&view, &event);
            return view.cursor().shape();
        };
        const QPoint middle = place.center();
        EXPECT_EQ(pointerAt({ middle.x(), place.top() }), Qt::SizeVerCursor);
        EXPECT_EQ(pointerAt({ middle.x(), place.bottom() }), Qt::SizeVerCursor);
        EXPECT_EQ(pointerAt({ place.left(), middle.y() }), Qt::SizeHorCursor);
        EXPECT_EQ(pointerAt({ place.right(), middle.y() }), Qt::SizeHorCursor);
        EXPECT_EQ(pointerAt(place.topRight()), Qt::SizeBDiagCursor);
        EXPECT_EQ(pointerAt(place.bottomLeft()), Qt::SizeBDiagCursor);
        EXPECT_EQ(pointerAt(place.topLeft()), Qt::SizeFDiagCursor);
        EXPECT_EQ(pointerAt(place.bottomRight()), Qt::SizeFDiagCursor);
        EXPECT_EQ(pointerAt(middle), Qt::ArrowCursor);
        Click(form, "BtCancel");
    });
}

TEST_F(Preview, HandlesInvertWhatIsBelow)
{
    Run([&](FmPreview& form) {
        Arrange(form);
        SheetView& view = View(form);
        const QImage shown = Shown(view);
        const double scale = view.devicePixelRatioF();
        for (const QRect& handle : HandlesOf(view.Edit().SelectedPixels())) {
            const QPoint at = (QPointF(handle.center()) * scale).toPoint();
            EXPECT_EQ(shown.pixel(at), view.Picture().Picture().pixel(at) ^ 0x808080U);
        }
        Click(form, "BtCancel");
    });
}

TEST_F(Preview, PositionIsThatOfTheSelectedWindow)
{
    SetRegion(QLocale("en_US"));
    Run([&](FmPreview& form) {
        Arrange(form);
        Press(View(form), Entry(1).Pixels.center());
        Release(View(form), Entry(1).Pixels.center());
        const auto texts = PositionTexts();
        for (size_t row = 0; row < texts.size(); ++row)
            EXPECT_EQ(TextOf(form, QStringLiteral("LbPosVal[%1]").arg(row)), texts[row]);
        EXPECT_TRUE(texts[0].endsWith(" in"));
        Click(form, "BtCancel");
    });
}

TEST_F(Preview, NumberOfWindowsDistributesThemAgain)
{
    Run([&](FmPreview& form) {
        Type(form, "TbNrOfWindows", "1");
        EXPECT_EQ(PagesInUse(), 3);
        EXPECT_EQ(TextOf(form, "LbPage"), "Page 1 of 3");
        EXPECT_EQ(Find<QScrollBar>(form, "VsNrPages").maximum(), 2);
        Type(form, "TbNrOfWindows", "2");
        EXPECT_EQ(PagesInUse(), 2);
        EXPECT_EQ(Page(0).Count, 2);
        Click(form, "BtCancel");
    });
}

TEST_F(Preview, BadNumberOfWindowsIsIgnored)
{
    Run([&](FmPreview& form) {
        for (const char* bad : { "0", "11", "x", "" }) {
            Type(form, "TbNrOfWindows", "3");
            Type(form, "TbNrOfWindows", bad);
            EXPECT_EQ(Page(0).Count, bad == QLatin1String("11") ? 1 : 3) << "the first digit counts; " << bad;
        }
        FindControl(form, "BtAdd").setFocus();
        EXPECT_EQ(TextOf(form, "TbNrOfWindows"), "3") << "what is in force";
        Click(form, "BtCancel");
    });
}

TEST_F(Preview, DeleteInTheNumberRemovesNoWindow)
{
    Run([&](FmPreview& form) {
        Key(form, "TbNrOfWindows", Qt::Key_Delete);
        Key(form, "TbNrOfWindows", Qt::Key_Left);
        EXPECT_EQ(Page(0).Count, 3);
        EXPECT_TRUE(HasFocus(form, "TbNrOfWindows"));
        Click(form, "BtCancel");
    });
}

TEST_F(Preview, ScrollBarAndKeysShowPages)
{
    Run([&](FmPreview& form) {
        Type(form, "TbNrOfWindows", "1");
        Find<QScrollBar>(form, "VsNrPages").setValue(1);
        EXPECT_EQ(ThePages().Present, 1);
        EXPECT_EQ(TextOf(form, "LbPage"), "Page 2 of 3");
        Key(form, "PbPreview", Qt::Key_PageDown);
        EXPECT_EQ(ThePages().Present, 2);
        Key(form, "PbPreview", Qt::Key_PageDown);
        EXPECT_EQ(ThePages().Present, 2);
        Key(form, "PbPreview", Qt::Key_PageUp);
        EXPECT_EQ(ThePages().Present, 1);
        Click(form, "BtCancel");
    });
}

TEST_F(Preview, DeleteRemovesTheSelectedWindow)
{
    Run([&](FmPreview& form) {
        const WindowId front = Entry(static_cast<size_t>(Page().FrontEntry)).Window;
        Key(form, "PbPreview", Qt::Key_Delete);
        EXPECT_EQ(Page(0).Count, 2);
        EXPECT_FALSE(Windows().contains(front));
        Click(form, "BtDel");
        Click(form, "BtDel");
        EXPECT_EQ(Page(0).Count, 0);
        EXPECT_FALSE(FindControl(form, "BtDel").isEnabled());
        EXPECT_FALSE(FindControl(form, "BtPrint").isEnabled());
        EXPECT_EQ(TextOf(form, "LbPosVal[0]"), "");
        Key(form, "PbPreview", Qt::Key_Delete);
        Click(form, "BtCancel");
    });
}

TEST_F(Preview, InsertOffersTheWindowsAndMarksAMissingOne)
{
    Run([&](FmPreview& form) {
        const WindowId removed = Entry(static_cast<size_t>(Page().FrontEntry)).Window;
        Click(form, "BtDel");
        QString marked;
        QTimer::singleShot(0, qApp, [&] {
            QWidget* select = QApplication::activeModalWidget();
            ASSERT_NE(select, nullptr);
            const auto& list = Find<QListWidget>(*select, "LxWin");
            ASSERT_EQ(list.selectedItems().size(), 1);
            marked = list.selectedItems().first()->text();
            Click(*select, "BtOk");
        });
        Key(form, "PbPreview", Qt::Key_Insert);
        EXPECT_EQ(marked, ViewOf(removed)->Caption());
        EXPECT_EQ(Windows().last(), removed);
        EXPECT_EQ(Page(0).Count, 3);
        Click(form, "BtCancel");
    });
}

TEST_F(Preview, SingleWindowIsAddedWithoutQuestion)
{
    Child(ids[0]).close();
    Child(ids[1]).close();
    Run([&](FmPreview& form) {
        EXPECT_FALSE(FindControl(form, "BtAdd").isEnabled()) << "it is on the page";
        Click(form, "BtDel");
        EXPECT_EQ(Page(0).Count, 0);
        Click(form, "BtAdd");
        EXPECT_EQ(Windows(), QVector<WindowId>{ ids[2] });
        Click(form, "BtCancel");
    });
}

TEST_F(Preview, FullPagePassesWindowsOn)
{
    Run([&](FmPreview& form) {
        QTimer::singleShot(0, qApp, [] {
            QWidget* select = QApplication::activeModalWidget();
            ASSERT_NE(select, nullptr);
            Click(*select, "BtAll");
            Click(*select, "BtOk");
        });
        Click(form, "BtAdd");
        EXPECT_EQ(PagesInUse(), 2);
        EXPECT_EQ(ThePages().Present, 1);
        EXPECT_EQ(Find<QScrollBar>(form, "VsNrPages").maximum(), 1);
        EXPECT_EQ(TextOf(form, "LbPage"), "Page 2 of 2");
        Click(form, "BtCancel");
    });
}

TEST_F(Preview, ArrowsGoToHelpAndPrint)
{
    Run([&](FmPreview& form) {
        for (const auto& [key, name] :
            std::initializer_list<std::pair<Qt::Key, const char*>>{ { Qt::Key_Left, "BtHelp" },
                { Qt::Key_Right, "BtPrint" }, { Qt::Key_Up, "BtHelp" }, { Qt::Key_Down, "BtPrint" } }) {
            Key(form, "PbPreview", key);
            EXPECT_TRUE(HasFocus(form, name));
        }
        Click(form, "BtCancel");
    });
}

TEST_F(Preview, KeysMoveSizeAndSelect)
{
    Run([&](FmPreview& form) {
        Arrange(form);
        const QRect before = View(form).Edit().SelectedPixels();
        const auto front = static_cast<size_t>(Page().FrontEntry);
        Key(form, "PbPreview", Qt::Key_Down, Qt::ControlModifier);
        EXPECT_EQ(Entry(front).Pixels, before.translated(0, 1));
        Key(form, "BtPrint", Qt::Key_Up, Qt::ControlModifier);
        EXPECT_EQ(Entry(front).Pixels, before);
        Key(form, "PbPreview", Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(Entry(front).Pixels.width(), before.width() - 1);
        Key(form, "PbPreview", Qt::Key_PageDown, Qt::ControlModifier);
        EXPECT_NE(static_cast<size_t>(Page().FrontEntry), front);
        Click(form, "BtCancel");
    });
}

TEST_F(Preview, BoxesSetTheSelectedWindowAndTheDefaults)
{
    ThePrintSettings().Border = true;
    ThePrintSettings().Title = false;
    Run([&](FmPreview& form) {
        const auto front = static_cast<size_t>(Page().FrontEntry);
        EXPECT_TRUE(Find<QCheckBox>(form, "ChOutline").isChecked());
        EXPECT_TRUE(Find<QCheckBox>(form, "ChTitle").isChecked()) << "the slot's flag";
        Click(form, "ChOutline");
        Click(form, "ChTitle");
        EXPECT_FALSE(Entry(front).Outline);
        EXPECT_FALSE(Entry(front).Title);
        EXPECT_EQ(Entry(front).Shares.Title, 0);
        EXPECT_FALSE(ThePrintSettings().Border);
        EXPECT_FALSE(ThePrintSettings().Title);
        Click(form, "BtCancel");
    });
    EXPECT_TRUE(ThePrintSettings().Border) << "as they were";
    EXPECT_FALSE(ThePrintSettings().Title);
}

TEST_F(Preview, BlackAndWhiteIsThatOfAllPages)
{
    Run([&](FmPreview& form) {
        EXPECT_FALSE(Find<QCheckBox>(form, "ChBw").isChecked());
        Click(form, "ChBw");
        EXPECT_TRUE(Page(0).BlackAndWhite);
        EXPECT_TRUE(Page(499).BlackAndWhite);
        Click(form, "BtCancel");
    });
    ScreenOf(WindowTable().Active)->PalNr = PaletteNumber::BlackAndWhite;
    Run([&](FmPreview& form) {
        EXPECT_TRUE(Find<QCheckBox>(form, "ChBw").isChecked()) << "as the active window";
        Click(form, "BtCancel");
    });
    ScreenOf(WindowTable().Active)->PalNr = PaletteNumber::Colour;
    Run([&](FmPreview& form) {
        EXPECT_FALSE(Page(499).BlackAndWhite);
        Click(form, "BtCancel");
    });
}

TEST_F(Preview, CloseKeepsTheLayoutAndCancelDoesNot)
{
    const PageSlots before = Page().Layout;
    Run([&](FmPreview& form) {
        Arrange(form);
        Click(form, "BtCancel");
    });
    EXPECT_EQ(Page().Layout[0].Rectangle.Width, before[0].Rectangle.Width);
    SheetRect placed;
    Run([&](FmPreview& form) {
        Arrange(form);
        placed = Entry(0).Rectangle;
        Click(form, "BtClose");
    });
    EXPECT_EQ(Page().Layout[0].Rectangle.Width, placed.Width);
    EXPECT_EQ(Page().Layout[0].Type, 2);
    EXPECT_EQ(Page().Layout[3].Type, 0);
    EXPECT_EQ(PagesInUse(), 0);
    Run([&](FmPreview& form) {
        EXPECT_FLOAT_EQ(Entry(0).Rectangle.Left, placed.Left);
        EXPECT_FLOAT_EQ(Entry(0).Rectangle.Top, placed.Top);
        EXPECT_FLOAT_EQ(Entry(0).Rectangle.Width, placed.Width);
        Click(form, "BtCancel");
    });
}

TEST_F(Preview, StackingSurvivesClosing)
{
    WindowId front = 0;
    Run([&](FmPreview& form) {
        Press(View(form), { 0, 0 });
        Release(View(form), { 0, 0 });
        View(form).Edit().SelectNext(1);
        front = Entry(static_cast<size_t>(Page().FrontEntry)).Window;
        EXPECT_NE(front, Windows().last());
        Click(form, "BtClose");
    });
    Run([&](FmPreview& form) {
        EXPECT_EQ(Entry(static_cast<size_t>(Page().FrontEntry)).Window, front);
        Click(form, "BtCancel");
    });
}

TEST_F(Preview, SizeIsKept)
{
    Run([&](FmPreview& form) {
        form.resize(777, 666);
        Click(form, "BtCancel");
    });
    EXPECT_GT(ThePrintSettings().PreviewWidth, 0);
    Run([&](FmPreview& form) {
        EXPECT_EQ(form.size(), QSize(777, 666));
        EXPECT_FALSE(form.isMaximized());
        form.showMaximized();
        QCoreApplication::processEvents();
        Click(form, "BtCancel");
    });
    EXPECT_TRUE(ThePrintSettings().PreviewMaximized);
    Run([&](FmPreview& form) {
        EXPECT_TRUE(form.isMaximized());
        form.showNormal();
        QCoreApplication::processEvents();
        Click(form, "BtCancel");
    });
    EXPECT_FALSE(ThePrintSettings().PreviewMaximized);
}

TEST_F(Preview, PrintPrintsThePagesAsTheyAre)
{
    Run([&](FmPreview& form) {
        Type(form, "TbNrOfWindows", "2");
        Click(form, "BtPrint");
        EXPECT_FALSE(form.IsClosed());
        Click(form, "BtCancel");
    });
    ASSERT_EQ(system.Sent.size(), 1);
    EXPECT_EQ(system.Sent[0].Pdf.count("/Type /Page\n"), 2);
    EXPECT_EQ(Page().Layout[1].Type, 2) << "stored";
}

TEST_F(Preview, PageSetupFitsTheWindows)
{
    Run([&](FmPreview& form) {
        Arrange(form);
        const QSize sheet = View(form).size();
        QTimer::singleShot(0, qApp, [] {
            QWidget* setup = QApplication::activeModalWidget();
            ASSERT_NE(setup, nullptr);
            Click(*setup, "OpOrientation[1]");
            Click(*setup, "BtOk");
        });
        Click(form, "BtSetup");
        EXPECT_LT(sheet.width(), sheet.height());
        EXPECT_GT(View(form).width(), View(form).height());
        for (const PageEntry& entry : Page().InUse())
            EXPECT_TRUE(View(form).rect().contains(entry.Pixels));
        Click(form, "BtCancel");
    });
}

TEST_F(Preview, WithoutPrinterItDoesNotOpen)
{
    system.Default.clear();
    Answers().Expect(12708, {}, Ok);
    ShowPreview();
    system.Default = "gone";
    Answers().Expect(12709, {}, Ok);
    ShowPreview();
}

TEST_F(Preview, ThousandRedrawsComposeOnlyWhatChanged)
{
    Run([&](FmPreview& form) {
        Arrange(form);
        SheetView& view = View(form);
        const int before = view.Picture().Composed();
        for (int turn = 0; turn < 500; ++turn) {
            Key(form, "PbPreview", Qt::Key_Down, Qt::ControlModifier);
            Key(form, "PbPreview", Qt::Key_Up, Qt::ControlModifier);
        }
        EXPECT_EQ(view.Picture().Composed(), before + 1000);
        Click(form, "BtCancel");
    });
}

} // namespace tarvik
