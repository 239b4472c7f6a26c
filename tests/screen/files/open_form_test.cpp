// Opening pictures in real windows: replacing windows, and with the frame in the background.
#include "app/platform/seams.h"
#include "app/text/lang.h"
#include "link/documents/file.h"
#include "link/documents/fileConvert.h"
#include "link/documents/fileSave.h"
#include "screen/window/descriptionEdit.h"
#include "tests/screen/screen_form_fixture.h"
#include "tests/support/fakeChannel.h"
#include "tests/support/unbindModule.h"

#include <QApplication>
#include <QBuffer>

namespace tarvik {

namespace {

class OpenInWindows : public ScreenForms {
protected:
    /// Opens the maximum number of windows; the first is the oldest.
    void Fill()
    {
        for (int count = 0; count < kDocumentsOfType; ++count) {
            const WindowSlot slot = WindowAllocate(WindowType::Screen, WindowSubtype::Live);
            ScreenCreate(slot, { Picture({ 40, 30 }), QDateTime(), QString(), true });
        }
        QCoreApplication::processEvents();
    }

    QString StorePicture(const char* name, QSize size = QSize(300, 200))
    {
        QString path = FilePath(QLatin1String(name));
        EXPECT_TRUE(Picture(size).save(path, "PNG"));
        return path;
    }

    /// Replaces the oldest window by a picture of 300 by 200 pixels.
    void Replace()
    {
        Answers().Expect(12713, {}, Yes);
        ASSERT_TRUE(FileOpen(StorePicture("new.png"), true, true));
        QCoreApplication::processEvents();
    }

    void ExpectNewPictureIn(WindowId id)
    {
        EXPECT_EQ(Window(id).State(), WinState::Normal);
        EXPECT_TRUE(Child(id).isVisible());
        EXPECT_EQ(Window(id).size(), QSize(300, 200));
        EXPECT_EQ(Shown(id).size(), DevicePixels(id));
        EXPECT_EQ(Document(id).Graph, Picture({ 300, 200 }));
        EXPECT_EQ(Child(id).windowTitle(), "new.png");
        EXPECT_EQ(frame->ChildArea()->activeSubWindow(), &Child(id));
        EXPECT_EQ(WindowTable().Active, id);
        EXPECT_FALSE(WindowIsModified(id));
        EXPECT_EQ(frame->ChildArea()->subWindowList().size(), kDocumentsOfType);
    }
};

class CaptureInWindows : public ScreenForms {
protected:
    CaptureInWindows()
    {
        TheSeams().Sleep = [](int) {};
        QBuffer buffer(&channel_.Contents);
        buffer.open(QIODevice::WriteOnly);
        Picture().save(&buffer, "PNG");
        TheFrame()->MenuUpdate();
    }

    FakeChannel channel_;
};

} // namespace

TEST_F(OpenInWindows, PictureLibraryIsRetriedUntilFound)
{
    const QString path = StorePicture("a.png");
    UnbindModule(Module::Pictures);
    EXPECT_FALSE(FileOpen(path, true, true)) << "without a word";
    EXPECT_EQ(WindowCount(), 0);
    const QString name = ModuleFileName(Module::Pictures);
    ASSERT_TRUE(QFile::link(QStringLiteral(TARVIK_MODULES "/") + name, FilePath(name)));
    EXPECT_TRUE(FileOpen(path, true, true));
    EXPECT_EQ(Document(1).Master, Picture({ 300, 200 }));
}

TEST_F(OpenInWindows, SaveWithoutPictureLibraryEndsWithoutMessage)
{
    const WindowId id = Open();
    UnbindModule(Module::Pictures);
    for (const char* name : { "a.png", "a.pcx", "a.bmp", "a.wmf" }) {
        QString path = FilePath(name);
        EXPECT_TRUE(FileSaveAs(path, id, true));
        EXPECT_EQ(path, "") << name;
        EXPECT_FALSE(QFile::exists(FilePath(name)));
    }
}

TEST_F(CaptureInWindows, IsStartedByBothMenuItemsAndButton)
{
    Item("MnInstrDispSc").trigger();
    Item("ClMnInstrDispSc").trigger();
    Cm(16).click();
    ASSERT_EQ(WindowCount(WindowType::Screen), 3);
    EXPECT_EQ(channel_.Count("Send DISP:WIND:FETC?"), 3);
    for (WindowId id = 1; id <= 3; ++id) {
        EXPECT_EQ(Shown(id).size(), DevicePixels(id));
        EXPECT_EQ(Document(id).Graph, Picture());
        EXPECT_EQ(Child(id).windowTitle(), WindowTitle(id, Document(id).Date));
        EXPECT_EQ(Window(id).property(kHelpNumberProperty).toInt(), 14502) << "help about live screens";
    }
    EXPECT_EQ(WindowTable().Active, 3);
    EXPECT_TRUE(CanAct());
    EXPECT_EQ(frame->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(CaptureInWindows, LostLinkDisablesCommands)
{
    ASSERT_TRUE(Item("MnInstrDispSc").isEnabled());
    channel_.Answer("GetFileFromStream", ChannelStatus::LinkFailed);
    Answers().Expect(12703, {}, Ok);
    Item("MnInstrDispSc").trigger();
    EXPECT_FALSE(Item("MnInstrDispSc").isEnabled());
    EXPECT_TRUE(CanAct());
    EXPECT_TRUE(frame->ChildArea()->subWindowList().isEmpty());
}

TEST_F(CaptureInWindows, ClosingAsksAndCancelKeepsPicture)
{
    Item("MnInstrDispSc").trigger();
    Answers().Expect(12714, { Child(1).windowTitle() }, Cancel);
    Child(1).close();
    EXPECT_EQ(Document(1).Graph, Picture());
    Answers().Expect(12714, No);
    Child(1).close();
    QCoreApplication::processEvents();
    EXPECT_EQ(WindowCount(), 0);
}

TEST_F(CaptureInWindows, MaximisedWindowsDoNotStretchCapture)
{
    Item("MnInstrDispSc").trigger();
    Child(1).showMaximized();
    Item("MnInstrDispSc").trigger();
    EXPECT_EQ(Window(2).State(), WinState::Normal);
    EXPECT_EQ(Window(2).size(), QSize(642, 442));
}

TEST_F(OpenInWindows, OldestIsReplaced)
{
    Fill();
    Replace();
    ExpectNewPictureIn(1);
    EXPECT_EQ(Window(1).property(kHelpNumberProperty).toInt(), 14401) << "help about images of files";
}

TEST_F(OpenInWindows, OldestIsReplacedWhenMinimised)
{
    Fill();
    Child(1).showMinimized();
    Replace();
    ExpectNewPictureIn(1);
}

TEST_F(OpenInWindows, OldestIsReplacedWhenMaximised)
{
    Fill();
    frame->ChildArea()->setActiveSubWindow(&Child(1));
    Child(1).showMaximized();
    Replace();
    ExpectNewPictureIn(1);
}

TEST_F(OpenInWindows, ReplacedWindowKeepsDescription)
{
    Fill();
    DescrSetVisible(true, 1);
    DescrSetText(1, QStringLiteral("Mast"));
    Replace();
    EXPECT_TRUE(WindowAt(1).DescriptionVisible);
    EXPECT_EQ(Description(1).toPlainText(), "Mast");
    EXPECT_TRUE(Description(1).isVisible());
    EXPECT_EQ(Document(1).Master, Picture({ 300, 200 }));
    ExpectAspect(Graph(1).size(), QSize(300, 200));
}

TEST_F(OpenInWindows, BatchContinuesInBackground)
{
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    const WindowId open = Open();
    FileConvert().Sources = { StorePicture("a.png"), StorePicture("b.png", { 30, 20 }) };
    FileConvert().TargetExtension = QStringLiteral(".bmp");
    EXPECT_EQ(FileConvertRun().Converted, 2);
    EXPECT_EQ(QImage(FilePath("a.bmp")).size(), QSize(300, 200));
    EXPECT_EQ(QImage(FilePath("b.bmp")).size(), QSize(30, 20));
    EXPECT_EQ(WindowCount(), 1);
    EXPECT_TRUE(WindowInUse(open));
}

TEST_F(OpenInWindows, BatchWorksWhileWindowsAreTiled)
{
    const WindowId first = Open();
    const WindowId second = Open(WindowSubtype::Live);
    Item("MnWindowAutotile").trigger();
    FileConvert().Sources = { StorePicture("a.png"), StorePicture("b.png") };
    FileConvert().TargetExtension = QStringLiteral(".bmp");
    EXPECT_EQ(FileConvertRun().Converted, 2);
    EXPECT_TRUE(QFile::exists(FilePath("b.bmp")));
    EXPECT_EQ(WindowCount(), 2);
    EXPECT_TRUE(WindowInUse(first));
    EXPECT_TRUE(WindowIsModified(second));
}

} // namespace tarvik
