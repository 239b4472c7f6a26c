// clipboard_copier: copies a window with its description by the menu, and has another program paste it while this one
// runs. Both clipboard formats must equal the saved picture. Needs a display.
#include "app/frame/MfMain.h"
#include "app/state/project.h"
#include "closed/loader.h"
#include "composition.h"
#include "screen/document/compose.h"
#include "screen/window/descriptionEdit.h"
#include "screen/window/screenWindow.h"

#include <QAction>
#include <QApplication>
#include <QProcess>
#include <QtTest/QTest>

#include <cstdio>

namespace tarvik {

namespace {

constexpr int kLongestMs = 20000;

QImage Picture()
{
    QImage picture(320, 200, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, qRgb(x % 256, y, (x * y) % 256));
    }
    return picture;
}

bool LoadModules(const QString& folder)
{
    for (const Module module : { Module::General, Module::Language, Module::Channel, Module::ListStore }) {
        if (!ModuleLoad(module, folder))
            return false;
    }
    return true;
}

void OpenWithDescription()
{
    const WindowSlot slot = WindowAllocate(WindowType::Screen, WindowSubtype::File);
    NewDocument document;
    document.Master = Picture();
    ScreenCreate(slot, document);
    DescrSetVisible(true, slot.Id);
    DescrSetText(slot.Id, QStringLiteral("Mast south"));
}

/// Runs the event loop meanwhile: the other program requests the data from this one.
QImage Paste(const char* form)
{
    QProcess xclip;
    xclip.start(QStringLiteral("xclip"),
        { QStringLiteral("-selection"), QStringLiteral("clipboard"), QStringLiteral("-target"),
            QString::fromLatin1(form), QStringLiteral("-out") });
    const bool ended = QTest::qWaitFor([&xclip] { return xclip.state() == QProcess::NotRunning; }, kLongestMs);
    if (!ended || xclip.error() == QProcess::FailedToStart)
        std::fprintf(stderr, "xclip does not run\n");
    return QImage::fromData(xclip.readAllStandardOutput()).convertToFormat(QImage::Format_RGB32);
}

} // namespace

} // namespace tarvik

using namespace tarvik;

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    ComposeProgram();
    if (!LoadModules(QStringLiteral(PROGRAM_FOLDER "/")))
        return EXIT_FAILURE;
    MfMain frame(QStringLiteral(PROGRAM_FOLDER));
    frame.BuildTexts();
    frame.ShowFrame();
    Program().Started = true;
    if (!QTest::qWaitForWindowActive(&frame, kLongestMs)) {
        std::fprintf(stderr, "the frame does not become active\n");
        return EXIT_FAILURE;
    }
    OpenWithDescription();
    frame.findChild<QAction*>(QStringLiteral("MnEditCopyGraph"))->trigger();
    const QImage expected = ComposeWindow(WindowTable().Active);
    for (const char* form : { "image/png", "image/bmp" }) {
        if (expected.isNull() || Paste(form) != expected) {
            std::fprintf(stderr, "%s is another picture\n", form);
            return EXIT_FAILURE;
        }
    }
    return EXIT_SUCCESS;
}
