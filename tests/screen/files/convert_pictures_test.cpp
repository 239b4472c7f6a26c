// Batch conversion of pictures in the frame, with windows and menu.
#include "app/platform/seams.h"
#include "app/state/progressBar.h"
#include "link/bindLink.h"
#include "link/documents/fileConvert.h"
#include "link/documents/fileDialogs.h"
#include "screen/bitmap/stretch.h"
#include "screen/window/closing.h"
#include "screen/window/descriptionEdit.h"
#include "tests/screen/screen_form_fixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

namespace tarvik {

namespace {

class ConvertInFrame : public ScreenForms {
protected:
    ConvertInFrame()
    {
        BindLink();
        QDir(Folder()).mkdir("out");
    }

    QString StorePicture(const QString& name, QSize size)
    {
        EXPECT_TRUE(Picture(size).save(FilePath(name)));
        return FilePath(name);
    }

    /// Chooses these files in the dialog of the menu's command, and the folder and PNG in the form that follows.
    void Convert(const QStringList& paths)
    {
        TheSeams().OpenFiles = [paths](const OpenFilesQuestion&) { return paths; };
        QTimer::singleShot(0, qApp, [folder = FilePath("out"), palette = blackAndWhite] {
            QWidget* form = nullptr;
            ASSERT_TRUE(QTest::qWaitFor([&form] {
                form = QApplication::activeModalWidget();
                return form != nullptr && form->isVisible();
            }));
            Find<QLineEdit>(*form, "TbDir").setText(folder);
            auto& types = Find<QComboBox>(*form, "CbType");
            types.setCurrentIndex(types.findData(11605));
            if (palette)
                Find<QCheckBox>(*form, "CkBlackAndWhite").setChecked(*palette);
            Find<QPushButton>(*form, "BtClose").click();
        });
        Item("MnFileTvConvert").trigger();
    }

    std::optional<bool> blackAndWhite; ///< chosen in the form; nullopt to leave it as it is

    QImage Written(const QString& name)
    {
        return QImage(FilePath("out/" + name)).convertToFormat(QImage::Format_RGB32);
    }
};

} // namespace

TEST_F(ConvertInFrame, KeepsPixelsAndClosesWindowOfEveryPicture)
{
    const QStringList sources{ StorePicture("usual.bmp", { 642, 442 }), StorePicture("tiny.bmp", { 9, 5 }),
        StorePicture("narrow.bmp", { 3, 400 }), StorePicture("large.bmp", { 2600, 1700 }) };
    Answers().Expect(11422, Ok);
    Convert(sources);
    for (const char* name : { "usual", "tiny", "narrow", "large" }) {
        const QString base = QString::fromLatin1(name);
        EXPECT_EQ(Written(base + ".png"), QImage(FilePath(base + ".bmp")).convertToFormat(QImage::Format_RGB32))
            << name;
    }
    EXPECT_EQ(WindowCount(), 0);
    EXPECT_TRUE(CanAct());
}

TEST_F(ConvertInFrame, TiledAndMaximisedWindowsKeepPixels)
{
    const QString source = StorePicture("a.bmp", { 642, 442 });
    const WindowId mine = Open();
    Open();
    Item("MnWindowAutotile").trigger();
    Convert({ source });
    EXPECT_EQ(Written("a.png"), Picture());
    Item("MnWindowAutotile").trigger();
    Child(mine).showMaximized();
    QFile::remove(FilePath("out/a.png"));
    Convert({ source });
    EXPECT_EQ(Written("a.png"), Picture());
    EXPECT_EQ(WindowCount(), 2);
}

TEST_F(ConvertInFrame, WindowDrawnDuringQuestionKeepsPixels)
{
    const QString source = StorePicture("a.bmp", { 642, 442 });
    Store(FilePath("out/a.png"), "old");
    Open();
    Item("MnWindowAutotile").trigger();
    Answers().ExpectWhile(12734, Yes, [] { DrawScreenWindow(WindowTable().Active); });
    Convert({ source });
    EXPECT_EQ(Written("a.png"), Picture());
}

TEST_F(ConvertInFrame, OpensNoWindowsAndKeepsActiveOne)
{
    const WindowId mine = Open();
    const WindowId active = Open();
    int most = 0;
    const auto pump = TheSeams().PumpEvents;
    TheSeams().PumpEvents = [&] {
        pump();
        most = std::max(most, static_cast<int>(frame->findChildren<MfScreen*>().size()));
    };
    Answers().Expect(11422, Ok);
    Convert({ StorePicture("a.bmp", { 642, 442 }), StorePicture("b.bmp", { 642, 442 }) });
    EXPECT_EQ(most, 2) << "the windows that were open";
    EXPECT_EQ(WindowTable().Active, active);
    EXPECT_TRUE(WindowInUse(mine));
}

TEST_F(ConvertInFrame, FrameShowsNeitherStatusNorProgressOfEachFile)
{
    int pumps = 0;
    const auto pump = TheSeams().PumpEvents;
    TheSeams().PumpEvents = [&] {
        pump();
        ++pumps;
        EXPECT_FALSE(Progress().Active);
        EXPECT_EQ(TextOf(*frame, "Panel[1]"), "");
    };
    Answers().Expect(11422, Ok);
    Convert({ StorePicture("a.bmp", { 642, 442 }), StorePicture("b.bmp", { 642, 442 }) });
    EXPECT_GE(pumps, 2);
}

TEST_F(ConvertInFrame, AutomaticTilingWaitsForEndOfBatch)
{
    const WindowId first = Open();
    Open();
    Item("MnWindowAutotile").trigger();
    const QRect tiled = Child(first).geometry();
    Child(first).move(tiled.topLeft() + QPoint(40, 30));
    const QRect moved = Child(first).geometry();
    int pumps = 0;
    const auto pump = TheSeams().PumpEvents;
    TheSeams().PumpEvents = [&] {
        pump();
        if (QApplication::activeModalWidget() != nullptr && Program().LastFile.Name == "b") {
            ++pumps;
            EXPECT_EQ(Child(first).geometry(), moved);
        }
    };
    Answers().Expect(11422, Ok);
    Convert({ StorePicture("a.bmp", { 642, 442 }), StorePicture("b.bmp", { 642, 442 }) });
    EXPECT_GT(pumps, 0);
    EXPECT_EQ(Child(first).geometry(), tiled);
}

TEST_F(ConvertInFrame, PaletteOfFormIsUsedForFilesOnly)
{
    const QString source = StorePicture("a.bmp", { 642, 442 });
    TheColorDefaults().PalNr = PaletteNumber::BlackAndWhite;
    blackAndWhite = false;
    Convert({ source });
    EXPECT_EQ(Written("a.png"), Picture());
    EXPECT_EQ(TheColorDefaults().PalNr, PaletteNumber::BlackAndWhite);
    QFile::remove(FilePath("out/a.png"));
    TheColorDefaults().PalNr = PaletteNumber::Colour;
    blackAndWhite = true;
    Convert({ source });
    QImage expected = Picture();
    ConvertToBlackAndWhite(expected);
    EXPECT_EQ(Written("a.png"), expected);
    EXPECT_EQ(TheColorDefaults().PalNr, PaletteNumber::Colour);
}

TEST_F(ConvertInFrame, HintAfterLastWindowIsShownOnce)
{
    Answers().Expect(11422, Ok);
    int timers = 0;
    const auto start = TheSeams().StartTimer;
    TheSeams().StartTimer = [&](int milliseconds, const std::function<void()>& tick) {
        ++timers;
        start(milliseconds, tick);
    };
    QStringList sources;
    for (int number = 0; number < 5; ++number)
        sources.append(StorePicture(QStringLiteral("%1.bmp").arg(number), { 20, 10 }));
    Convert(sources);
    EXPECT_LT(timers, 5) << "one for each file would poll until the end of the batch";
}

TEST_F(ConvertInFrame, UnsavedDocumentsAreUnchanged)
{
    const WindowId mine = Open(WindowSubtype::Live);
    Answers().Expect(12754, { "gone.bmp" }, Ok);
    Answers().Expect(11422, Ok);
    Convert({ StorePicture("a.bmp", { 20, 10 }), FilePath("gone.bmp") });
    EXPECT_TRUE(WindowInUse(mine));
    EXPECT_TRUE(WindowIsModified(mine));
    EXPECT_EQ(Document(mine).Master, Picture());
}

TEST_F(ConvertInFrame, OtherExtensionKeepsUnsavedDocumentOpen)
{
    const WindowId mine = Open(WindowSubtype::Live);
    TheSeams().SaveFile = [this](const SaveFileQuestion&) { return FilePath("out/a.txt"); };
    Answers().Expect(12714, Yes);
    EXPECT_FALSE(CloseWindow(mine, true));
    EXPECT_TRUE(WindowInUse(mine));
    EXPECT_TRUE(WindowIsModified(mine));
}

} // namespace tarvik
