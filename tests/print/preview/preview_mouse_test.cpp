// The print preview with a real mouse and keyboard.
#include "print/preview/FmPreview.h"
#include "print/preview/SheetView.h"
#include "print/preview/pagination.h"
#include "tests/print/fakePrinters.h"
#include "tests/screen/screen_form_fixture.h"
#include "tests/support/realInput.h"

#include <QLabel>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QWindow>

namespace tarvik {

namespace {

class RealPreview : public ScreenForms {
protected:
    RealPreview()
    {
        UsePrinters(system);
        for (int count = 0; count < 3; ++count)
            Open();
    }

    ~RealPreview() override
    {
        ThePrinterSystem().Reset();
    }

    /// Runs the form with so many windows on a page.
    void Run(int perPage, const std::function<void(FmPreview&)>& during)
    {
        FmPreview form(frame.get());
        RunForm(form, [&] {
            ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
            ASSERT_TRUE(Reaches([&form] { return form.windowHandle()->frameMargins().top() > 0; })); // and in its place
            Type(form, "TbNrOfWindows", QString::number(perPage));
            during(form);
            form.Unload();
        });
    }

    static SheetView& View(FmPreview& form)
    {
        return Find<SheetView>(form, "PbPreview");
    }

    static const PageEntry& Front()
    {
        return PresentPage().Entries[static_cast<size_t>(PresentPage().FrontEntry)];
    }

    static void Hold(SheetView& view, QPoint at)
    {
        XMove(view.mapToGlobal(at));
        XDo({ "mousedown", "1" });
        ASSERT_TRUE(Reaches([&view] { return view.Edit().IsDragging(); }));
    }

    static void Pull(SheetView& view, QPoint by)
    {
        const QRect before = view.Edit().SelectedPixels();
        XDo({ "mousemove_relative", "--", QString::number(by.x()), QString::number(by.y()) });
        ASSERT_TRUE(Reaches([&] { return view.Edit().SelectedPixels() != before; }));
    }

    static void LetGo(SheetView& view)
    {
        XDo({ "mouseup", "1" });
        ASSERT_TRUE(Reaches([&view] { return !view.Edit().IsDragging(); }));
    }

    FakePrinters system;
};

} // namespace

TEST_F(RealPreview, DragMovesAndSizesAWindow)
{
    Run(3, [&](FmPreview& form) {
        SheetView& view = View(form);
        const QRect before = Front().Pixels;
        Hold(view, before.center());
        Pull(view, { 0, 7 });
        LetGo(view);
        EXPECT_EQ(Front().Pixels.topLeft(), before.topLeft() + QPoint(0, 7));
        const QRect moved = Front().Pixels;
        Hold(view, moved.bottomRight());
        Pull(view, { -20, -5 });
        LetGo(view);
        EXPECT_EQ(Front().Pixels.width(), moved.width() - 20);
        EXPECT_EQ(Front().Pixels.topLeft(), moved.topLeft());
    });
}

TEST_F(RealPreview, EscapeDuringADragLeavesTheFormOpen)
{
    Run(3, [&](FmPreview& form) {
        SheetView& view = View(form);
        const SheetRect before = Front().Rectangle;
        Hold(view, Front().Pixels.center());
        Pull(view, { 0, 7 });
        XDo({ "key", "Escape" });
        EXPECT_TRUE(Reaches([&view] { return !view.Edit().IsDragging(); }));
        XDo({ "mouseup", "1" });
        EXPECT_EQ(Front().Rectangle, before);
        EXPECT_FALSE(form.IsClosed());
        XDo({ "key", "Escape" });
        EXPECT_TRUE(Reaches([&form] { return form.IsClosed(); }));
    });
}

TEST_F(RealPreview, ScrollBarAndWheelShowPages)
{
    Run(1, [&](FmPreview& form) {
        auto& bar = Find<QScrollBar>(form, "VsNrPages");
        QStyleOptionSlider option;
        option.initFrom(&bar);
        option.orientation = Qt::Vertical;
        option.maximum = bar.maximum();
        option.pageStep = bar.pageStep();
        option.subControls = QStyle::SC_All;
        const QRect arrow =
            bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarAddLine, &bar);
        XClick(bar.mapToGlobal(arrow.center()));
        EXPECT_TRUE(Reaches([] { return ThePages().Present == 1; }));
        EXPECT_EQ(TextOf(form, "LbPage"), "Page 2 of 3");
        XClick(View(form).mapToGlobal(View(form).rect().center()), "5");
        EXPECT_TRUE(Reaches([] { return ThePages().Present == 2; })) << "the wheel over the sheet";
        XClick(View(form).mapToGlobal(View(form).rect().center()), "4");
        EXPECT_TRUE(Reaches([] { return ThePages().Present == 1; }));
    });
}

TEST_F(RealPreview, KeysMoveTheSelectedWindow)
{
    Run(3, [&](FmPreview& form) {
        View(form).setFocus();
        const QRect before = Front().Pixels;
        XDo({ "key", "ctrl+Up" });
        EXPECT_TRUE(Reaches([&] { return Front().Pixels.top() < before.top(); })); // a slow server may repeat the key
        EXPECT_EQ(Front().Pixels.left(), before.left());
        EXPECT_EQ(Front().Pixels.size(), before.size());
        XDo({ "key", "Delete" });
        EXPECT_TRUE(Reaches([] { return PresentPage().Count < 3; }));
    });
}

} // namespace tarvik
