// Bindings of the composition for documents: file openers, commands, capture.
#include "app/text/lang.h"
#include "link/documents/file.h"
#include "screen/document/compose.h"
#include "screen/window/descriptionEdit.h"
#include "tests/screen/screen_form_fixture.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>

namespace tarvik {

namespace {

class BoundScreen : public ScreenForms { };

} // namespace

TEST_F(BoundScreen, OpensPictureFilesInWindows)
{
    ASSERT_TRUE(Picture().save(FilePath("one.png")));
    EXPECT_TRUE(FileOpen(FilePath("one.png"), true, true));
    ASSERT_EQ(WindowCount(WindowType::Screen), 1);
    const WindowId id = WindowTable().Active;
    EXPECT_EQ(Child(id).windowTitle(), "one.png");
    EXPECT_EQ(Document(id).Master, Picture());
    EXPECT_TRUE(Window(id).isVisible());
}

TEST_F(BoundScreen, OpensNoWindowForOtherFiles)
{
    Store(FilePath("one.png"), "no picture");
    Answers().Expect(12760, Ok);
    EXPECT_FALSE(FileOpen(FilePath("one.png"), true, true));
    EXPECT_TRUE(frame->ChildArea()->subWindowList().isEmpty());
}

TEST_F(BoundScreen, OpeningTilesIfAutoTile)
{
    ASSERT_TRUE(Picture().save(FilePath("one.png")));
    Item("MnWindowAutotile").trigger();
    EXPECT_TRUE(FileOpen(FilePath("one.png"), true, true));
    EXPECT_TRUE(FileOpen(FilePath("one.png"), true, true));
    const QVector<WindowId> ids = WindowsFor(MaskAll, true);
    ASSERT_EQ(ids.size(), 2);
    EXPECT_FALSE(Child(ids[0]).geometry().intersects(Child(ids[1]).geometry()));
}

TEST_F(BoundScreen, CopyPutsComposedPictureOnClipboard)
{
    const WindowId id = Open();
    DescrSetVisible(true, id);
    DescrSetText(id, "Mast south");
    Item("MnEditCopyGraph").trigger();
    const QImage held = QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(held, ComposeWindow(id));
    EXPECT_GT(held.height(), 442);
}

TEST_F(BoundScreen, CopyIsDisabledWithoutWindow)
{
    EXPECT_FALSE(Item("MnEditCopyGraph").isEnabled());
    EXPECT_FALSE(Cm(5).isEnabled());
    Open();
    EXPECT_TRUE(Item("MnEditCopyGraph").isEnabled());
    EXPECT_TRUE(Cm(5).isEnabled());
}

TEST_F(BoundScreen, CaptureWithoutInstrumentDoesNothing)
{
    EXPECT_TRUE(CommandRun(Command::LiveScreen));
    EXPECT_EQ(WindowCount(), 0);
    EXPECT_TRUE(CanAct());
}

} // namespace tarvik
