// The form of data set windows, in the frame.
#include "app/forms/Pictures.h"
#include "app/help/help.h"
#include "app/text/lang.h"
#include "screen/document/compose.h"
#include "screen/document/description.h"
#include "screen/window/FmPalette.h"
#include "screen/window/FmSelectWindow.h"
#include "screen/window/closing.h"
#include "screen/window/descriptionEdit.h"
#include "tests/screen/diagram/dataset_form_fixture.h"

#include <QApplication>
#include <QClipboard>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QRadioButton>

namespace tarvik {

TEST_F(DatasetForm, ShowsTheDiagramOverItsArea)
{
    EXPECT_TRUE(Run([&](FmDatasetViewer& form) {
        EXPECT_EQ(form.objectName(), "FmDatasetViewer");
        EXPECT_EQ(form.windowTitle(), "Biconical 30-1000");
        EXPECT_EQ(form.size(), QSize(792, 560));
        EXPECT_EQ(Graph(form).geometry(), form.rect());
        ExpectControls(form, { "PbGraph", "TbDescription" });
        ExpectTabOrder(form);
        EXPECT_TRUE(Graph(form).hasFocus());
        QImage seen = Graph(form).grab().toImage().convertToFormat(QImage::Format_RGB32);
        seen.setDevicePixelRatio(1);
        EXPECT_EQ(seen, DrawnPicture(id, seen.size()));
        EXPECT_TRUE(form.isModal());
    }));
    EXPECT_FALSE(WindowInUse(id));
}

TEST_F(DatasetForm, IsNoChildWindowOfTheFrame)
{
    Open();
    Run([&](FmDatasetViewer&) {
        EXPECT_EQ(frame->ChildArea()->subWindowList().size(), 1);
        EXPECT_EQ(WindowCount(), 2);
        EXPECT_FALSE(Item("MnFile").isEnabled()) << "it is modal";
        EXPECT_FALSE(Cm(2).isEnabled());
    });
    EXPECT_EQ(WindowCount(), 1);
    EXPECT_TRUE(Item("MnFile").isEnabled());
}

TEST_F(DatasetForm, IsNotArrangedByTheFramesMenu)
{
    Run([&](FmDatasetViewer&) {
        EXPECT_TRUE(TheFrameDocuments()->State().Active);
        EXPECT_FALSE(TheFrameDocuments()->State().AnyShown);
        EXPECT_FALSE(TheFrameDocuments()->State().AnyMinimised);
    });
}

TEST_F(DatasetForm, LastWindowShowsTheHint)
{
    TheFrame()->SetStatusText(QString());
    Run([](FmDatasetViewer&) {});
    EXPECT_EQ(TheFrame()->StatusText(), LngStr(11801));
}

TEST_F(DatasetForm, FormerWindowIsActiveAfterwards)
{
    const WindowId first = Open();
    Open();
    frame->ChildArea()->setActiveSubWindow(&Child(first));
    Run([](FmDatasetViewer&) {});
    EXPECT_EQ(WindowTable().Active, first);
    EXPECT_TRUE(Item("MnFileClose").isEnabled());
}

TEST_F(DatasetForm, EscapeAndCloseBoxCloseItWithoutQuestion)
{
    Run([&](FmDatasetViewer& form) {
        WindowAt(id).Modified = true;
        Key(Qt::Key_Escape);
        EXPECT_TRUE(form.IsClosed());
    });
    Run([&](FmDatasetViewer& form) {
        form.close();
        EXPECT_TRUE(form.IsClosed());
        EXPECT_FALSE(WindowInUse(id));
    });
    EXPECT_TRUE(CanAct());
}

TEST_F(DatasetForm, CtrlWClosesIt)
{
    Run([&](FmDatasetViewer& form) {
        Key(Qt::Key_W, Qt::ControlModifier);
        EXPECT_TRUE(form.IsClosed());
    });
    EXPECT_TRUE(CanAct());
}

TEST_F(DatasetForm, DroppedWindowClosesItsForm)
{
    Run([&](FmDatasetViewer& form) {
        DropWindow(id);
        EXPECT_TRUE(form.IsClosed());
    });
    EXPECT_FALSE(DialogIsOpen());
}

TEST_F(DatasetForm, ResizingRedrawsIt)
{
    Run([&](FmDatasetViewer& form) {
        form.resize(500, 640);
        QCoreApplication::processEvents();
        EXPECT_EQ(Graph(form).geometry(), form.rect());
        EXPECT_EQ(PictureOf(id)->Graph.size(), QSize(500, 640));
        form.resize(10, 10);
        EXPECT_EQ(form.size(), QSize(320, 200)) << "the smallest";
    });
}

TEST_F(DatasetForm, HasTheCaptionOfItsTitleWithoutAName)
{
    MultiTraceInput input = KfactorInput();
    input.Name.clear();
    Run([](FmDatasetViewer& form) { EXPECT_EQ(form.windowTitle(), LngStr(13505)); }, input);
}

TEST_F(DatasetForm, NonModalOneHasADummyCaption)
{
    DatasetTable()[1] = DiagramOf(KfactorInput());
    const WindowSlot slot = WindowAllocate(WindowType::DataSet, WindowSubtype::DataSet);
    WindowInitialise(slot, {}, 0);
    FmDatasetViewer form(slot.Id, "name", frame.get());
    ShowForm(form);
    EXPECT_EQ(form.windowTitle(), "Dummy");
    form.Unload();
    EXPECT_FALSE(WindowInUse(slot.Id));
}

TEST_F(DatasetForm, PopupOffersItsCommands)
{
    Run([&](FmDatasetViewer& form) {
        QMenu& menu = OpenPopup(form);
        EXPECT_EQ(menu.objectName(), "SwMn");
        for (const char* item : { "SwMnFilePrint", "SwMnEditCopyGraphics", "SwMnViewDescription", "SwMnOptionsColor" })
            EXPECT_TRUE(Item(item).isEnabled()) << item;
        EXPECT_FALSE(Item("SwMnOptionsDescr").isEnabled()) << "there is no description";
        menu.close();
    });
    EXPECT_FALSE(DialogIsOpen());
}

TEST_F(DatasetForm, MenuKeyOpensThePopup)
{
    Run([&](FmDatasetViewer& form) {
        QContextMenuEvent menu(QContextMenuEvent::Keyboard, QPoint(5, 5), form.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&Graph(form), &menu);
        ASSERT_NE(QApplication::activePopupWidget(), nullptr);
        EXPECT_EQ(QApplication::activePopupWidget()->objectName(), "SwMn");
        QApplication::activePopupWidget()->close();
    });
}

TEST_F(DatasetForm, CopiesByMenuAndKey)
{
    Run([&](FmDatasetViewer& form) {
        const auto copied = [] { return QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32); };
        QGuiApplication::clipboard()->clear();
        Choose(form, "SwMnEditCopyGraphics");
        EXPECT_EQ(copied(), ComposeWindow(id));
        QGuiApplication::clipboard()->clear();
        Key(Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(copied(), ComposeWindow(id));
    });
}

TEST_F(DatasetForm, PrintsThroughThePreview)
{
    int previews = 0;
    Count(Command::FilePrintPreview, previews);
    Run([&](FmDatasetViewer& form) { Choose(form, "SwMnFilePrint"); });
    EXPECT_EQ(previews, 1);
}

TEST_F(DatasetForm, DescriptionIsTypedBelowTheDiagram)
{
    Run([&](FmDatasetViewer& form) {
        Choose(form, "SwMnViewDescription");
        EXPECT_TRUE(Description(form).isVisible());
        EXPECT_TRUE(Description(form).hasFocus());
        QTest::keyClicks(&Description(form), "Mast south");
        EXPECT_EQ(WindowAt(id).Description, "Mast south");
        EXPECT_EQ(form.height(), 560 + DescrHeight(id));
        EXPECT_EQ(Graph(form).height(), 560);
        EXPECT_EQ(Description(form).palette().color(QPalette::Base), QColor(0xCE, 0xCB, 0xCE));
        EXPECT_EQ(Description(form).palette().color(QPalette::Text), QColor(Qt::black));
        OpenPopup(form).close();
        EXPECT_TRUE(Item("SwMnViewDescription").isChecked());
        EXPECT_TRUE(Item("SwMnOptionsDescr").isEnabled());
        Choose(form, "SwMnViewDescription");
        EXPECT_FALSE(Description(form).isVisible());
        EXPECT_TRUE(Graph(form).hasFocus());
        EXPECT_EQ(form.height(), 560);
    });
}

TEST_F(DatasetForm, WidthOfTheDescriptionHasItsOwnForm)
{
    Run([&](FmDatasetViewer& form) {
        Choose(form, "SwMnViewDescription");
        InNextDialog([&](FormBase& dialog) {
            EXPECT_EQ(dialog.objectName(), "FmDescription");
            Type(dialog, "Tb", "70");
            Click(dialog, "BtClose");
        });
        Choose(form, "SwMnOptionsDescr");
        EXPECT_EQ(WindowAt(id).DescriptionColumns, 70);
    });
}

TEST_F(DatasetForm, PaletteIsChosenForTheDiagram)
{
    Run([&](FmDatasetViewer& form) {
        InNextDialog([&](FormBase& dialog) {
            EXPECT_EQ(dialog.objectName(), "FmPalette");
            Click(dialog, "OpPalette[1]");
            EXPECT_EQ(PictureOf(id)->Graph.pixel(0, 0), 0xFFFFFFFF);
            Click(dialog, "BtClose");
        });
        Choose(form, "SwMnOptionsColor");
        EXPECT_EQ(PaletteOf(id), PaletteNumber::BlackAndWhite);
        EXPECT_EQ(form.focusWidget(), &Graph(form)); // it gets the activation as soon as the system returns it
        EXPECT_EQ(form.palette().color(QPalette::Window), QColor(Qt::white));
    });
}

TEST_F(DatasetForm, CtrlSSavesThePicture)
{
    Run([&](FmDatasetViewer&) {
        QStringList filters;
        TheSeams().SaveFile = [&](const SaveFileQuestion& question) {
            filters = question.Filters;
            return FilePath("diagram.png");
        };
        Key(Qt::Key_S, Qt::ControlModifier);
        EXPECT_EQ(filters.size(), 6) << "texts are offered too";
        EXPECT_EQ(QImage(FilePath("diagram.png")).convertToFormat(QImage::Format_RGB32), ComposeWindow(id));
    });
}

TEST_F(DatasetForm, NothingElseRunsDuringACommand)
{
    Run([&](FmDatasetViewer& form) {
        int questions = 0;
        TheSeams().SaveFile = [&](const SaveFileQuestion&) {
            ++questions;
            Key(Qt::Key_S, Qt::ControlModifier);
            Key(Qt::Key_W, Qt::ControlModifier);
            Key(Qt::Key_Escape);
            EXPECT_FALSE(form.IsClosed());
            return QString();
        };
        Key(Qt::Key_S, Qt::ControlModifier);
        EXPECT_EQ(questions, 1);
    });
}

TEST_F(DatasetForm, KeysOfTheProgramDoNothing)
{
    int opened = 0;
    int exits = 0;
    Count(Command::FileOpen, opened);
    Count(Command::FileExit, exits);
    Run([&](FmDatasetViewer&) {
        Key(Qt::Key_O, Qt::ControlModifier);
        Key(Qt::Key_Q, Qt::ControlModifier);
    });
    EXPECT_EQ(opened, 0);
    EXPECT_EQ(exits, 0);
}

TEST_F(DatasetForm, F1ShowsItsTopic)
{
    Run([&](FmDatasetViewer& form) {
        Key(Qt::Key_F1);
        EXPECT_EQ(help.Topics, QList<int>{ 13505 });
        EXPECT_EQ(HelpNumberOf(&Description(form)), 13506);
    });
}

TEST_F(DatasetForm, SelectionListsItWithItsCaption)
{
    Open();
    Run([&](FmDatasetViewer& form) {
        FmSelectWindow select(WindowsFor(MaskAll, true), WindowTable().Active, &form);
        ShowForm(select);
        auto& list = Find<QListWidget>(select, "LxWin");
        ASSERT_EQ(list.count(), 2);
        EXPECT_EQ(list.currentItem()->text(), "Biconical 30-1000") << "the active one";
        const auto iconOf = [&list](int row) { return list.item(row)->icon().pixmap(32, 32).toImage(); };
        EXPECT_EQ(iconOf(0), PictureIcon("MDI_DIAGRAM").pixmap(32, 32).toImage());
        EXPECT_NE(iconOf(0), iconOf(1)) << "a diagram and a picture";
        select.Unload();
    });
}

TEST_F(DatasetForm, OpensFromARunningCommand)
{
    BindCommand(Command::Editor2, [&] {
        EXPECT_TRUE(Run([&](FmDatasetViewer& form) {
            Choose(form, "SwMnViewDescription");
            EXPECT_TRUE(WindowAt(id).DescriptionVisible);
        }));
        EXPECT_FALSE(Program().Idle) << "the command still runs";
    });
    EXPECT_TRUE(CommandRun(Command::Editor2));
    EXPECT_TRUE(CanAct());
}

TEST_F(DatasetForm, StaysReadableOnADarkPalette)
{
    const QPalette before = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(49, 54, 59), QColor(35, 38, 41)));
    Run([&](FmDatasetViewer& form) {
        EXPECT_EQ(PictureOf(id)->Graph.pixel(0, 0), 0xFFCECBCE) << "a saved picture does not depend on the desktop";
        DescrSetVisible(true, id);
        EXPECT_EQ(Description(form).palette().color(QPalette::Base), QColor(0xCE, 0xCB, 0xCE));
        EXPECT_EQ(form.palette().color(QPalette::Window), QColor(0xCE, 0xCB, 0xCE));
    });
    QApplication::setPalette(before);
}

TEST_F(DatasetForm, LogOffClosesItUnasked)
{
    Run([&](FmDatasetViewer& form) { EXPECT_TRUE(form.CanCloseUnasked()); });
}

} // namespace tarvik
