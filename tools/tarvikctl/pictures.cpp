#include "tools/tarvikctl/pictures.h"

#include "app/project.h"
#include "link/file.h"
#include "link/fileConvert.h"
#include "link/fileSave.h"
#include "screen/closing.h"
#include "screen/descriptionEdit.h"
#include "screen/documentFiles.h"
#include "screen/screenShot.h"
#include "screen/screenWindow.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <utility>

namespace {

/// What documents are made with: the palette that the command line asks for, and the background that the program gives
/// every document, so that the first picture of a batch comes out as the last one does.
void StartDocuments(const CtlArguments& arguments)
{
    BindDocumentFiles();
    TheColorDefaults().Background = kDocumentBackground;
    TheColorDefaults().PalNr = arguments.Palette.value_or(PaletteColour);
}

void Describe(WindowId id, const CtlArguments& arguments, Terminal& terminal)
{
    if (!arguments.Description)
        return;
    DescrSetVisible(true, id);
    if (!DescrSetText(id, *arguments.Description))
        terminal.Refuse(QStringLiteral("the description does not fit into ten lines, the rest of it is left out"));
}

/// FetchScreen, with its temporary file in a folder of its own: this program's may be one that only others write.
WindowId FetchIntoWindow()
{
    const QTemporaryDir folder;
    if (!folder.isValid())
        return FetchScreen();
    const QString programFolder = std::exchange(Program().AppPath, folder.path() + QDir::separator());
    const WindowId id = FetchScreen();
    Program().AppPath = programFolder;
    return id;
}

} // namespace

bool CtlDrawsPictures(const QString& word)
{
    return word == QLatin1String("picture") || word == QLatin1String("capture");
}

void CtlRunPictures(const CtlArguments& arguments, Terminal& terminal)
{
    FileConvertState& state = FileConvert();
    state.TargetExtension = u'.' + arguments.ImageFormat;
    state.TargetFolder = arguments.Into;
    terminal.SetFile(arguments.Into);
    if (!arguments.Into.isEmpty() && !FileMakeTargetFolder(arguments.Into))
        return;
    for (const QString& operand : arguments.Operands)
        state.Sources.append(QFileInfo(operand).absoluteFilePath());

    StartDocuments(arguments);
    FileBatchHooks hooks;
    hooks.Prepare = [&](int window) { Describe(static_cast<WindowId>(window), arguments, terminal); };
    hooks.Progress = [&](int done, int total, const QString&) {
        terminal.SetFile(arguments.Operands[done]);
        terminal.ShowProgress(QStringLiteral("%1 of %2: %3").arg(done + 1).arg(total).arg(arguments.Operands[done]));
    };
    const int converted = FileConvertRun(hooks);
    terminal.ShowProgress({});
    if (converted < arguments.Operands.size())
        terminal.SetFailed();
}

bool CtlIsPictureName(const QString& path)
{
    return ImageKindOf(FileKindOf(path).Kind) != 0;
}

QString CtlCaptureTarget(const CtlArguments& arguments)
{
    const QFileInfo out(arguments.Operands[0]);
    const QString folder = arguments.Into.isEmpty() ? out.path() : arguments.Into;
    if (!arguments.ImageFormat.isEmpty())
        return QDir::cleanPath(FileTargetPath(folder, out.filePath(), u'.' + arguments.ImageFormat));
    return arguments.Into.isEmpty() ? out.filePath() : QDir(folder).filePath(out.fileName());
}

void CtlCapture(const CtlArguments& arguments, Terminal& terminal)
{
    StartDocuments(arguments);
    const WindowId id = FetchIntoWindow();
    if (id <= 0) {
        if (!terminal.HasFailed())
            terminal.Refuse(QStringLiteral("what the instrument sent is no picture"));
        return;
    }
    Describe(id, arguments, terminal);
    if (!FileSaveAsTold(QFileInfo(CtlCaptureTarget(arguments)).absoluteFilePath(), id))
        terminal.SetFailed();
    DropWindow(id);
}
