// diagram_display [FOLDER]: shows a diagram above the frame and its tiled windows on a real display and works with it
// as a user does: menu, description, copy, selection of windows, smallest size, black and white, maximise, save, close.
// With a folder, leaves pictures of the screen there. Needs a display with a window manager.
#include "app/frame/MfMain.h"
#include "app/menu/commands.h"
#include "app/platform/seams.h"
#include "app/state/dialogStack.h"
#include "app/state/project.h"
#include "closed/loader.h"
#include "composition.h"
#include "screen/diagram/FmDatasetViewer.h"
#include "screen/diagram/datasetViewer.h"
#include "screen/document/compose.h"
#include "screen/files/pictureFile.h"
#include "screen/window/arrange.h"
#include "screen/window/screenWindow.h"
#include "tests/screen/diagram/diagram_fixture.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTimer>
#include <QWindow>
#include <QtTest/QTest>

#include <cstdio>
#include <cstdlib>

namespace tarvik {

namespace {

constexpr int kLongestMs = 20000;
constexpr int kPictures = 2;

void Require(bool condition, const char* what)
{
    if (condition)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::exit(EXIT_FAILURE);
}

template <typename Condition>
void WaitFor(Condition condition, const char* what)
{
    Require(QTest::qWaitFor(condition, kLongestMs), what);
}

bool LoadModules(const QString& folder)
{
    for (const Module module :
        { Module::General, Module::Language, Module::Channel, Module::ListStore, Module::Traces }) {
        if (!ModuleLoad(module, folder))
            return false;
    }
    return true;
}

/// What the display shows.
QImage Screen()
{
    return QGuiApplication::primaryScreen()->grabWindow(0).toImage().convertToFormat(QImage::Format_RGB32);
}

/// True if a widget on the screen looks like a picture. Where its edges are half a pixel away from a pixel of the
/// scaled desktop, its position is off by one, and the last pixels may be outside the screen.
bool ShowsPicture(const QWidget& widget, const QImage& picture)
{
    constexpr int kMostOutside = 2;
    const QPoint corner = (QPointF(widget.mapToGlobal(QPoint())) * widget.devicePixelRatioF()).toPoint();
    QImage screen = Screen();
    screen.setDevicePixelRatio(1);
    for (const QPoint off :
        { QPoint(0, 0), QPoint(1, 0), QPoint(0, 1), QPoint(-1, 0), QPoint(0, -1), QPoint(-1, -1) }) {
        const QPoint at = corner + off;
        const QRect seen = QRect(at, picture.size()) & screen.rect();
        const QSize outside = picture.size() - seen.size();
        if (outside.width() <= kMostOutside && outside.height() <= kMostOutside
            && screen.copy(seen) == picture.copy(seen.translated(-at)))
            return true;
    }
    return false;
}

class Walk {
public:
    explicit Walk(QString folder)
        : folder_(std::move(folder))
    {
    }

    void Run()
    {
        form_ = dynamic_cast<FmDatasetViewer*>(DialogTop());
        Require(form_ != nullptr, "no viewer is open");
        Require(QTest::qWaitForWindowActive(form_, kLongestMs), "the viewer does not become active");
        id_ = WindowTable().Active;
        graph_ = form_->findChild<QWidget*>(QStringLiteral("PbGraph"));
        ExpectPicture("the window shows another picture");
        Shoot("plain");
        TypeDescription();
        Copy();
        SelectWindows();
        Shrink();
        Maximise();
        Save();
        ChooseBlackAndWhite();
        QTest::keyClick(form_->windowHandle(), Qt::Key_Escape);
        Require(form_->IsClosed(), "Escape does not close the viewer");
    }

private:
    void Shoot(const char* name)
    {
        if (folder_.isEmpty())
            return;
        QCoreApplication::processEvents();
        Require(Screen().save(QStringLiteral("%1/%2.png").arg(folder_, QLatin1String(name))), "no picture saved");
    }

    void ExpectPicture(const char* what)
    {
        WaitFor(
            [&] {
                const QSize size = (QSizeF(graph_->size()) * graph_->devicePixelRatioF()).toSize();
                return ShowsPicture(*graph_, DrawnPicture(id_, size));
            },
            what);
    }

    /// Opens the pop-up menu and clicks an entry.
    void Choose(const char* item, const char* picture)
    {
        QTest::mouseClick(graph_, Qt::RightButton, {}, QPoint(200, 120));
        WaitFor([] { return QApplication::activePopupWidget() != nullptr; }, "no pop-up menu");
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        Require(menu != nullptr && menu->objectName() == QLatin1String("SwMn"), "another pop-up menu");
        auto* action = menu->findChild<QAction*>(QLatin1String(item));
        Require(action != nullptr && action->isEnabled(), "the entry is disabled");
        if (picture != nullptr)
            Shoot(picture);
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
    }

    void TypeDescription()
    {
        Choose("SwMnViewDescription", "menu");
        auto* description = form_->findChild<QWidget*>(QStringLiteral("TbDescription"));
        WaitFor([&] { return description->hasFocus(); }, "the description has no focus");
        QTest::keyClicks(description, QStringLiteral("Biconical antenna, mast south, 3 m above ground"));
        ExpectPicture("the picture is wrong above the description");
        Shoot("description");
        graph_->setFocus();
    }

    void Copy()
    {
        QTest::keyClick(graph_, Qt::Key_C, Qt::ControlModifier);
        const QImage copied = QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32);
        Require(copied == ComposeWindow(id_), "another picture is on the clipboard");
    }

    void SelectWindows()
    {
        QTimer::singleShot(0, form_, [this] {
            WaitFor([this] { return DialogTop() != form_; }, "no selection of windows");
            auto* select = dynamic_cast<FormBase*>(DialogTop());
            Require(select != nullptr && select->objectName() == QLatin1String("FmSelectWindow"), "another form");
            Require(QTest::qWaitForWindowActive(select, kLongestMs), "the selection does not become active");
            const auto* list = select->findChild<QListWidget*>(QStringLiteral("LxWin"));
            Require(list->count() == 1 + kPictures, "the list has other windows");
            Require(list->currentItem()->text() == form_->windowTitle(), "the diagram is not the current window");
            Shoot("selection");
            select->findChild<QPushButton*>(QStringLiteral("BtOk"))->click();
        });
        ChooseWindows(MaskAll, true);
        Require(TheScreenWindows().Chosen == QVector<WindowId>{ id_ }, "other windows are chosen");
        WaitFor([this] { return form_->isActiveWindow(); }, "the viewer does not become active again");
    }

    void Shrink()
    {
        const QSize before = form_->size();
        form_->resize(1, 1);
        WaitFor([this] { return form_->size() == form_->minimumSize(); }, "the window is not as small as it can be");
        Require(graph_->size() == QSize(320, 200), "the picture has another smallest size");
        ExpectPicture("the smallest window shows another picture");
        Shoot("smallest");
        form_->resize(before);
        WaitFor([&] { return form_->size() == before; }, "the window does not return to its size");
    }

    void Maximise()
    {
        const QSize before = graph_->size();
        form_->showMaximized();
        WaitFor([&] { return form_->isMaximized() && graph_->size() == form_->size(); },
            "the maximised window shows more than the picture");
        ExpectPicture("the maximised window shows another picture");
        Shoot("maximised");
        form_->showNormal();
        WaitFor([&] { return graph_->size() == before; }, "the window does not return to its size");
        ExpectPicture("the restored window shows another picture");
    }

    void Save()
    {
        const QTemporaryDir folder;
        for (const char* name : { "a.png", "a.bmp", "a.pcx", "a.wmf" }) {
            const QString path = folder.filePath(QLatin1String(name));
            TheSeams().SaveFile = [path](const SaveFileQuestion&) { return path; };
            QTest::keyClick(graph_, Qt::Key_S, Qt::ControlModifier);
            const std::optional<QSize> size = PictureSize(path);
            Require(size && *size == ComposeWindow(id_).size(), name);
        }
    }

    void ChooseBlackAndWhite()
    {
        QTimer::singleShot(0, form_, [this] {
            WaitFor([this] { return DialogTop() != form_; }, "no palette form");
            auto* palette = dynamic_cast<FormBase*>(DialogTop());
            Require(palette != nullptr && palette->objectName() == QLatin1String("FmPalette"), "another form");
            Require(QTest::qWaitForWindowActive(palette, kLongestMs), "the palette form does not become active");
            palette->findChild<QRadioButton*>(QStringLiteral("OpPalette[1]"))->click();
            Shoot("palette");
            palette->findChild<QPushButton*>(QStringLiteral("BtClose"))->click();
        });
        Choose("SwMnOptionsColor", nullptr);
        WaitFor([this] { return DialogTop() == form_ && CanActOnDialog(); }, "the palette form stays open");
        ExpectPicture("the window is not in black and white");
        Require(PictureOf(id_)->Graph.pixel(0, 0) == 0xFFFFFFFF, "the paper is not white");
        Shoot("black-and-white");
    }

    QString folder_;
    FmDatasetViewer* form_ = nullptr;
    QWidget* graph_ = nullptr;
    WindowId id_ = 0;
};

/// Pictures in windows of the frame, side by side.
void TilePictures()
{
    for (int at = 0; at < kPictures; ++at) {
        const WindowSlot slot = WindowAllocate(WindowType::Screen, WindowSubtype::File);
        NewDocument document;
        document.Master = QImage(640, 440, QImage::Format_RGB32);
        document.Master.fill(QColor(40, 60 + 80 * at, 90));
        document.Caption = QStringLiteral("picture %1.png").arg(at + 1);
        ScreenCreate(slot, document);
    }
    ArrangeWindows(Arrangement::TileVertically);
}

} // namespace

} // namespace tarvik

using namespace tarvik;

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (qEnvironmentVariableIsSet("DARK"))
        QApplication::setPalette(QPalette(QColor(49, 54, 59), QColor(35, 38, 41)));
    ComposeProgram();
    Require(LoadModules(QStringLiteral(PROGRAM_FOLDER "/")), "a module is missing");
    Program().AppPath = QStringLiteral(PROGRAM_FOLDER "/");
    MfMain frame(QStringLiteral(PROGRAM_FOLDER));
    frame.BuildTexts();
    frame.ShowFrame();
    frame.InstallKeyboardHook();
    Program().Started = true;
    Require(QTest::qWaitForWindowActive(&frame, kLongestMs), "the frame does not become active");
    TilePictures();
    Walk walk(QApplication::arguments().value(1));
    QTimer::singleShot(0, &frame, [&walk] { walk.Run(); });
    Require(DatasetShow(KfactorInput(200, 3)), "nothing was shown");
    Require(CanAct() && WindowCount() == kPictures, "something stays open");
    return EXIT_SUCCESS;
}
