// The sheet of the print preview: controls, mouse, keys.
#include "tests/print/preview/preview_form_fixture.h"

namespace tarvik {

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

} // namespace tarvik
