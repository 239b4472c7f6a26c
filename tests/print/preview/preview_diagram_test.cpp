// A diagram in the print preview, opened from its window's menu; the layout across a restart.
#include "print/bindPrint.h"
#include "print/page/pageLayout.h"
#include "print/page/printSettings.h"
#include "print/preview/FmPreview.h"
#include "print/preview/SheetView.h"
#include "tests/print/fakePrinters.h"
#include "tests/screen/diagram/dataset_form_fixture.h"

#include <QPushButton>

namespace tarvik {

namespace {

class PreviewOfDiagram : public DatasetForm {
protected:
    PreviewOfDiagram()
    {
        BindPrint();
        UsePrinters(system);
    }

    ~PreviewOfDiagram() override
    {
        ThePrinterSystem().Reset();
    }

    /// Opens the preview from the menu of the diagram's window.
    void RunPreview(const std::function<void(FormBase&)>& during)
    {
        Run([&](FmDatasetViewer& form) {
            InNextDialog([&](FormBase& preview) {
                EXPECT_EQ(preview.objectName(), "FmPreview");
                during(preview);
                if (DialogTop() == &preview)
                    preview.Unload();
            });
            Choose(form, "SwMnFilePrint");
        });
    }

    static SheetView& View(FormBase& form)
    {
        return Find<SheetView>(form, "PbPreview");
    }

    static const PageEntry& Entry(size_t at)
    {
        return PresentPage().Entries[at];
    }

    FakePrinters system;
};

} // namespace

TEST_F(PreviewOfDiagram, ShowsItFirst)
{
    const WindowId picture = Open();
    RunPreview([&](FormBase& form) {
        EXPECT_EQ(Entry(0).Window, id);
        EXPECT_EQ(Entry(0).Extent.Type, WindowType::DataSet);
        ThePages().Present = 1;
        EXPECT_EQ(Entry(0).Window, picture);
        ThePages().Present = 0;
        EXPECT_GT(View(form).Picture().Composed(), 0);
    });
}

TEST_F(PreviewOfDiagram, IsSizedFreelyAndPrintedAsSized)
{
    SheetRect sized;
    RunPreview([&](FormBase& form) {
        Key(form, "PbPreview", Qt::Key_Up, Qt::ControlModifier | Qt::ShiftModifier);
        for (int turn = 0; turn < 20; ++turn)
            Key(form, "PbPreview", Qt::Key_Up, Qt::ControlModifier | Qt::ShiftModifier);
        sized = Entry(0).Rectangle;
        EXPECT_GT(sized.Width / sized.Height, 2 * AspectOf(Entry(0).Extent, Entry(0).Shares) / 3);
        Click(form, "BtPrint");
        Click(form, "BtClose");
    });
    ASSERT_EQ(system.Sent.size(), 1);
    EXPECT_EQ(PresentPage().Layout[0].Type, 1);
    EXPECT_EQ(PresentPage().Layout[0].Rectangle.Height, sized.Height);
    RunPreview([&](FormBase&) { EXPECT_EQ(Entry(0).Rectangle, sized); });
}

TEST_F(PreviewOfDiagram, LayoutAndSizeSurviveARestart)
{
    SheetRect placed;
    QSize size;
    RunPreview([&](FormBase& form) {
        form.resize(781, 655);
        Key(form, "PbPreview", Qt::Key_Down, Qt::ControlModifier);
        placed = Entry(0).Rectangle;
        size = form.size();
        Click(form, "BtClose");
    });
    PrintSaveSettings(FilePath("print.ini"));
    ThePages() = {};
    ThePrintSettings() = {};
    PrintLoadSettings(FilePath("print.ini"));
    RunPreview([&](FormBase& form) {
        EXPECT_EQ(form.size(), size);
        EXPECT_NEAR(Entry(0).Rectangle.Left, placed.Left, 1e-5);
        EXPECT_NEAR(Entry(0).Rectangle.Top, placed.Top, 1e-5);
        EXPECT_NEAR(Entry(0).Rectangle.Width, placed.Width, 1e-5);
        EXPECT_NEAR(Entry(0).Rectangle.Height, placed.Height, 1e-5);
    });
}

} // namespace tarvik
