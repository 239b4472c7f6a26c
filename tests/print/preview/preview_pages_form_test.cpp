// The print preview: pages, windows on them, what is kept.
#include "tests/print/preview/preview_form_fixture.h"

namespace tarvik {

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
