// The floors as the composition binds them: the whole frame with its real documents, editors, forms and help.
#include "composition.h"

#include "app/forms/Pictures.h"
#include "app/frame/MfMain.h"
#include "app/frame/startup.h"
#include "app/help/FmHelp.h"
#include "app/message/message.h"
#include "app/platform/seams.h"
#include "app/settings/settings.h"
#include "app/text/lang.h"
#include "closed/loader.h"
#include "link/documents/documents.h"
#include "lists/antenna/antennaList.h"
#include "lists/correction/correctionSet.h"
#include "lists/editor/editorGeneral.h"
#include "lists/kfactor/kfactorTable.h"
#include "lists/suppress/suppressList.h"
#include "screen/diagram/traceBlocks.h"
#include "screen/files/FmScreenShotViewer.h"
#include "tests/support/forms.h"

#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QFile>
#include <QImage>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace tarvik {

namespace {

/// The program in its own folder, after its start.
class Composition : public FormTest {
protected:
    Composition()
    {
        ComposeProgram();
        for (const char* name : { "tvgen", "tvlng", "tvscpi", "tvfio", "tvswp", "tvimg" }) {
            const QString file = QLatin1String(name) + QLatin1String(TARVIK_MODULE_SUFFIX);
            QFile::link(QStringLiteral(TARVIK_MODULES "/") + file, FilePath(file));
        }
        QFile::link(QStringLiteral(HELP_BOOK), FilePath("TARVIK.chm"));
        TheSeams().StartTimer = [](int, std::function<void()> tick) { QTimer::singleShot(0, qApp, std::move(tick)); };
        Answer("FmConnect"); // a start without a connection asks for one
        frame = std::make_unique<MfMain>(Folder().chopped(1));
        if (!frame->Load())
            qFatal("the frame does not load");
        EXPECT_EQ(answered, QStringList{ "FmConnect" });
        answered.clear();
    }

    ~Composition() override
    {
        CloseHelpViewer();
        frame.reset();
    }

    /// Runs `act` once the dialog of this name is open; the logo may come first.
    void WhenOpen(const char* name, std::function<void()> act)
    {
        ++expected_;
        QTimer::singleShot(0, &pending_, [this, name, act = std::move(act)] {
            const QWidget* dialog = QApplication::activeModalWidget();
            if (dialog == nullptr || dialog->objectName() == QLatin1String("FmLogo")) {
                --expected_;
                WhenOpen(name, act);
                return;
            }
            --expected_;
            answered.append(dialog->objectName());
            EXPECT_EQ(dialog->objectName(), QLatin1String(name));
            act();
        });
    }

    /// Notes the next dialog, which should have this name, and closes it.
    void Answer(const char* name)
    {
        WhenOpen(name, [] { QApplication::activeModalWidget()->close(); });
    }

    /// Runs the command of a menu item, which opens no dialog but the expected ones.
    void Trigger(const char* item)
    {
        if (expected_ == 0)
            QTimer::singleShot(0, &pending_, [] {
                QWidget* dialog = QApplication::activeModalWidget();
                if (dialog == nullptr)
                    return;
                ADD_FAILURE() << "unexpected: " << dialog->objectName().toStdString();
                dialog->close();
            });
        frame->findChild<QAction*>(QLatin1String(item))->trigger();
    }

    void Drop(const QString& file)
    {
        QMimeData data;
        data.setUrls({ QUrl::fromLocalFile(file) });
        QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(frame.get(), &enter);
        QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(frame.get(), &drop);
        EXPECT_TRUE(drop.isAccepted());
        QCoreApplication::processEvents();
    }

    QString StorePicture(const QString& name)
    {
        QImage picture(60, 40, QImage::Format_RGB32);
        picture.fill(Qt::blue);
        EXPECT_TRUE(picture.save(FilePath(name)));
        return FilePath(name);
    }

    std::unique_ptr<MfMain> frame;
    QStringList answered; ///< the names of the dialogs

private:
    int expected_ = 0; ///< dialogs that have not opened yet
    QObject pending_; ///< its pending calls end with it
};

} // namespace

TEST_F(Composition, WindowsHaveTheIconOfTheProgram)
{
    const QImage icon = frame->windowIcon().pixmap(32).toImage();
    EXPECT_FALSE(icon.isNull());
    EXPECT_EQ(icon, ProgramIcon().pixmap(32).toImage());
}

TEST_F(Composition, TextsComeFromTheLanguageModule)
{
    EXPECT_EQ(frame->findChild<QAction*>("MnFile")->text(), LngStr(11902));
    EXPECT_FALSE(LngStr(11902).isEmpty());
}

TEST_F(Composition, HelpOpensTheViewer)
{
    Trigger("MnHelpContents");
    ASSERT_NE(HelpViewer(), nullptr);
    EXPECT_TRUE(HelpViewer()->isVisible());
}

TEST_F(Composition, MenuItemsOpenTheirForms)
{
    const std::vector<std::pair<const char*, const char*>> forms{ { "MnHelpAbout", "FmAbout" },
        { "MnInstrConnect", "FmConnect" }, { "MnToolsMemoryListEditor", "FmEditorMemory" },
        { "MnToolsAntennaListEditor", "FmEditorAntenna" }, { "MnToolsKfactorEditor", "FmEditorKfactor" },
        { "MnToolsSuppressListEditor", "FmEditorSuppress" }, { "MnToolsCorrectionSetEditor", "FmEditorCorrectionSet" },
        { "MnFileOpen", "OpenDialog" }, { "MnFileTvConvert", "OpenDialog" } };
    for (const auto& [item, form] : forms) {
        Answer(form);
        Trigger(item);
        EXPECT_EQ(answered, QStringList{ form }) << item;
        answered.clear();
    }
}

TEST_F(Composition, MessagesHaveTheirForm)
{
    Answer("FmMessage");
    MsgOk(TextNumber<0>(12707));
    EXPECT_EQ(answered, QStringList{ "FmMessage" });
}

TEST_F(Composition, DroppedPictureOpensInAWindow)
{
    Drop(StorePicture("a.png"));
    const QList<QMdiSubWindow*> windows = frame->ChildArea()->subWindowList();
    ASSERT_EQ(windows.size(), 1);
    EXPECT_TRUE(windows[0]->windowTitle().contains("a.png")) << windows[0]->windowTitle().toStdString();
}

TEST_F(Composition, DroppedListOpensInItsEditor)
{
    Answer("FmEditorMemory");
    Drop(QStringLiteral(EXAMPLES_FOLDER "/PMR446.tvm"));
    EXPECT_EQ(answered, QStringList{ "FmEditorMemory" });
}

TEST_F(Composition, ListOfEachKindOpensInItsEditor)
{
    KfactorTable table;
    AntennaTable antennas;
    SuppressTable ranges;
    CorrSet set;
    table.Name = antennas.Name = ranges.Name = QStringLiteral("List");
    table.Row(0) = { true, 30e6, 1, 2 };
    table.Row(1) = { true, 40e6, 1, 2 };
    for (const char* extension : { ".tvk", ".csv" }) {
        ASSERT_TRUE(WriteKfactorFile(FilePath("table") + extension, table));
        ASSERT_TRUE(WriteAntennaFile(FilePath("antennas") + (extension[1] == 't' ? ".tva" : ".csv"), antennas));
        ASSERT_TRUE(WriteSuppressFile(FilePath("ranges") + (extension[1] == 't' ? ".tvs" : ".csv"), ranges));
    }
    ASSERT_TRUE(SetCorrHeader(set));
    ASSERT_TRUE(SaveCorrSet(FilePath("set.tvc")));
    const std::vector<std::pair<const char*, const char*>> files{ { "table.tvk", "FmEditorKfactor" },
        { "table.csv", "FmEditorKfactor" }, { "antennas.tva", "FmEditorAntenna" },
        { "antennas.csv", "FmEditorAntenna" }, { "ranges.tvs", "FmEditorSuppress" },
        { "ranges.csv", "FmEditorSuppress" }, { "set.tvc", "FmEditorCorrectionSet" } };
    for (const auto& [file, form] : files) {
        answered.clear();
        Answer(form);
        Drop(FilePath(file));
        Answer(form);
        EXPECT_TRUE(OpenStartFile(FilePath(file))); // as from the command line
        EXPECT_EQ(answered, QStringList({ form, form })) << file;
    }
}

TEST_F(Composition, ViewerOfScreenShotsEndsWithTheProgram)
{
    WhenOpen("FmScreenShotViewer", [this] { frame->CloseWhenPossible(); });
    ShowScreenShot(StorePicture("a.png"));
    QCoreApplication::processEvents();
    EXPECT_FALSE(frame->isVisible());
}

TEST_F(Composition, PaletteEndsWithTheProgramAndPutsThePictureBack)
{
    Drop(StorePicture("a.png"));
    WhenOpen("FmPalette", [this] {
        Click(*QApplication::activeModalWidget(), "OpPalette[1]");
        frame->CloseWhenPossible();
    });
    Trigger("MnOptionsColor");
    QCoreApplication::processEvents();
    EXPECT_FALSE(frame->isVisible()) << "without a question: the picture is as it was opened";
}

TEST_F(Composition, EverySettingIsWrittenAtExit)
{
    frame->close();
    const QByteArray text = Contents(FilePath("Tarvik.ini"));
    for (const char* section : { "[Tarvik]", "[File]", "[Print]", "[connection]", "[Screen]", "[Window]" })
        EXPECT_TRUE(text.contains(section)) << section;
}

/// Widgets, blocks of samples and lists of angles that one turn leaves behind would add up over a day.
TEST_F(Composition, EditorsAndDiagramsReleaseEverything)
{
    const auto turn = [this](const char* form, const char* view, const QString& file, FileClass fileClass) {
        answered.clear();
        WhenOpen(form, [this, view] {
            Answer("FmDatasetViewer");
            QWidget* editor = QApplication::activeModalWidget();
            QTest::mouseClick(editor->findChild<QPushButton*>(QLatin1String(view)), Qt::LeftButton);
            Editor().EditorDirty = false; // the sort of a correction set is a change
            editor->close();
        });
        EXPECT_TRUE(TheListFiles()->Open(QStringLiteral(EXAMPLES_FOLDER "/antennas/") + file, fileClass));
        EXPECT_EQ(answered, (QStringList{ QLatin1String(form), "FmDatasetViewer" }));
    };
    const auto bothTurns = [&turn] {
        turn("FmEditorKfactor", "BtView", "Biconical.tvk", FileClassKfactorTable);
        turn("FmEditorCorrectionSet", "KT_BtView", "Biconical.tvc", FileClassCorrectionSet);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    bothTurns();
    const qsizetype widgets = QApplication::allWidgets().size();
    for (int round = 0; round < 5; ++round)
        bothTurns();
    EXPECT_EQ(QApplication::allWidgets().size(), widgets);
    for (uint32_t handle = 1; handle < 100; ++handle) {
        uint32_t size = 0;
        EXPECT_EQ(TraceBlockOf(handle, &size), nullptr) << handle;
    }
    const std::int32_t angles = TvFio().AntCorrNewAngles(1);
    EXPECT_EQ(angles, 1) << "a list is still there";
    TvFio().AntCorrFreeAngles(angles);
}

} // namespace tarvik
