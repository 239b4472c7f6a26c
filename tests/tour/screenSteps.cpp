#include "tests/tour/screenSteps.h"

#include "print/preview/SheetView.h"
#include "tests/tour/controls.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QTest>

#include <cstdio>

namespace tarvik {

namespace {

const QString kFrame = QStringLiteral("MfMain");
const QString kMessage = QStringLiteral("FmMessage");

using Action = std::function<void(QWidget& form)>;
using Question = std::function<bool(QWidget& form)>;

Question WindowsAre(qsizetype count)
{
    return [count](QWidget& frame) {
        qsizetype shown = 0;
        const auto windows = frame.findChildren<QWidget*>(QStringLiteral("MfScreen"));
        for (const QWidget* window : windows)
            shown += window->isVisible() ? 1 : 0;
        return shown == count;
    };
}

TourStep OnFrame(const char* picture, const char* item, qsizetype windows)
{
    return { QString::fromLatin1(picture), kFrame, [item](QWidget& frame) { ChooseMenu(frame, item); },
        WindowsAre(windows) };
}

TourStep OnForm(const char* picture, const char* form, Action act)
{
    return { QString::fromLatin1(picture), QString::fromLatin1(form), std::move(act), [](QWidget&) { return true; } };
}

TourStep ChooseFile(const char* dialog, const QString& path)
{
    return OnForm("", dialog, [path](QWidget& form) { Choose(form, path); });
}

TourStep ClickOn(const char* picture, const char* form, const char* button)
{
    return OnForm(picture, form, [button](QWidget& box) { Click(box, button); });
}

QString Saved(const QString& folder, const char* extension)
{
    return folder + QString::fromLatin1(kTourPicture) + u'.' + QString::fromLatin1(extension);
}

void Describe(QWidget& frame)
{
    Control<QPlainTextEdit>(frame, QStringLiteral("TbDescription"))
        .setPlainText(QStringLiteral("Mast 2, harbour office.\nStrong carrier on the distress frequency."));
}

std::vector<TourStep> CaptureSteps()
{
    return {
        OnFrame("", "MnInstrDispSc", 0),
        OnFrame("captured", "MnViewDescription", 1),
        { QString(), kFrame, Describe, WindowsAre(1) },
        OnFrame("described", "MnInstrDispSc", 1),
        OnFrame("captured-again", "MnOptionsColor", 2),
        ClickOn("", "FmPalette", "OpPalette[1]"),
        ClickOn("black-and-white", "FmPalette", "BtClose"),
        OnFrame("", "MnWindowTileHoriz", 2),
        OnFrame("tiled-horizontally", "MnWindowTileVert", 2),
        OnFrame("tiled-vertically", "MnWindowCascade", 2),
    };
}

/// Saves the active window in the four formats, then answers the questions on closing: the other window was never
/// saved.
std::vector<TourStep> SaveSteps(const QString& folder)
{
    std::vector<TourStep> steps{ OnFrame("cascaded", "MnFileSaveAs", 2) };
    for (const char* extension : { "png", "bmp", "pcx", "wmf" }) {
        steps.push_back(ChooseFile("SaveDialog", Saved(folder, extension)));
        const bool isLast = QLatin1String(extension) == QLatin1String("wmf");
        steps.push_back(OnFrame("", isLast ? "MnOptionsColor" : "MnFileSaveAs", 2));
    }
    // An opened picture starts with the palette set last.
    steps.push_back(ClickOn("", "FmPalette", "OpPalette[0]"));
    steps.push_back(ClickOn("colour-again", "FmPalette", "BtClose"));
    steps.push_back(OnFrame("", "MnWindowCloseAll", 2));
    steps.push_back(ClickOn("unsaved", "FmMessage", "BtNo"));
    return steps;
}

std::vector<TourStep> ConvertSteps(const QString& folder)
{
    const QString batch = u'"' + Saved(folder, "bmp") + QStringLiteral("\" \"") + Saved(folder, "pcx") + u'"';
    return {
        OnFrame("closed", "MnFileOpen", 0),
        ChooseFile("OpenDialog", Saved(folder, "wmf")),
        OnFrame("picture-opened", "MnFileTvConvert", 1),
        ChooseFile("OpenDialog", batch),
        OnForm("convert", "FmFileConvert",
            [folder](QWidget& form) {
                auto& type = Control<QComboBox>(form, QStringLiteral("CbType"));
                type.setCurrentText(QStringLiteral("PNG picture"));
                Type(form, "TbDir", folder + QString::fromLatin1(kTourConverted));
                Click(form, "BtClose");
            }),
        // Both sources have the same base name, so the second one is left out.
        ClickOn("convert-clash", "FmMessage", "BtOk"),
        ClickOn("convert-result", "FmMessage", "BtOk"),
        OnFrame("converted", "MnWindowCloseAll", 1),
    };
}

/// Moves the selected window of the preview with the mouse.
void DragSelected(QWidget& preview)
{
    auto& sheet = Control<SheetView>(preview, QStringLiteral("PbPreview"));
    const QPoint from = sheet.Edit().SelectedPixels().center();
    const QPoint to = from + QPoint(12, 20);
    QTest::mousePress(&sheet, Qt::LeftButton, {}, from);
    QMouseEvent move(QEvent::MouseMove, QPointF(to), sheet.mapToGlobal(QPointF(to)), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&sheet, &move);
    QTest::mouseRelease(&sheet, Qt::LeftButton, {}, to);
}

/// Three pictures in the preview, one moved; then on two pages, printed to a PDF file.
std::vector<TourStep> PrintSteps(const QString& folder)
{
    const QString batch = u'"' + Saved(folder, "png") + QStringLiteral("\" \"") + Saved(folder, "pcx")
        + QStringLiteral("\" \"") + Saved(folder, "wmf") + u'"';
    const auto typePerPage = [](const char* number) {
        return [number](QWidget& form) { Type(form, "TbNrOfWindows", QString::fromLatin1(number)); };
    };
    return {
        OnFrame("", "MnFileOpen", 0),
        ChooseFile("OpenDialog", batch),
        OnFrame("", "MnFilePageSetup", 3),
        ClickOn("page-setup", "FmPageSetup", "BtPrinter"),
        ClickOn("printer-setup", "FmPrintSetup", "BtCancel"),
        ClickOn("", "FmPageSetup", "BtOk"),
        OnFrame("", "MnFilePrintPreview", 3),
        OnForm("preview", "FmPreview", typePerPage("3")),
        OnForm("preview-arranged", "FmPreview", DragSelected),
        OnForm("preview-dragged", "FmPreview", typePerPage("2")),
        ClickOn("preview-two-pages", "FmPreview", "BtPrint"),
        ChooseFile("SaveDialog", folder + QString::fromLatin1(kTourPages)),
        ClickOn("", "FmPreview", "BtClose"),
        OnFrame("printed", "MnWindowCloseAll", 3),
    };
}

int PagesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? static_cast<int>(file.readAll().count("/Type /Page\n")) : 0;
}

bool Require(bool condition, const QString& what)
{
    if (!condition)
        std::fprintf(stderr, "the tour went wrong: %s\n", qPrintable(what));
    return condition;
}

} // namespace

std::vector<TourStep> ScreenSteps(const QString& folder)
{
    std::vector<TourStep> steps;
    for (const std::vector<TourStep>& part :
        { CaptureSteps(), SaveSteps(folder), ConvertSteps(folder), PrintSteps(folder) })
        steps.insert(steps.end(), part.begin(), part.end());
    return steps;
}

bool CheckScreenResults(const QString& folder)
{
    const QImage png = QImage(Saved(folder, "png")).convertToFormat(QImage::Format_RGB32);
    const QImage bitmap = QImage(Saved(folder, "bmp")).convertToFormat(QImage::Format_RGB32);
    const QImage converted = QImage(folder + QString::fromLatin1(kTourConverted) + u'/'
        + QString::fromLatin1(kTourPicture) + QStringLiteral(".png"))
                                 .convertToFormat(QImage::Format_RGB32);
    return Require(!png.isNull() && png.allGray(), QStringLiteral("the saved picture is not grey"))
        && Require(png == bitmap, QStringLiteral("PNG and bitmap differ"))
        && Require(png == converted, QStringLiteral("the converted picture differs"))
        && Require(QFile::exists(Saved(folder, "wmf")), QStringLiteral("no metafile"))
        && Require(PagesOf(folder + QString::fromLatin1(kTourPages)) == 2, QStringLiteral("not two printed pages"));
}

} // namespace tarvik
