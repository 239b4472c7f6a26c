#include "tools/tarvikctl/pictures.h"

#include "app/platform/closeSignal.h"
#include "app/platform/paths.h"
#include "app/platform/seams.h"
#include "app/state/project.h"
#include "app/values/general.h"
#include "link/documents/file.h"
#include "link/documents/fileConvert.h"
#include "link/documents/fileSave.h"
#include "screen/files/documentFiles.h"
#include "screen/files/screenShot.h"
#include "screen/window/closing.h"
#include "screen/window/descriptionEdit.h"
#include "screen/window/screenWindow.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <utility>

namespace tarvik {

namespace {

/// Sets the defaults of documents: the palette of the command line, and the background of the program.
void StartDocuments(const CtlArguments& arguments)
{
    BindDocumentFiles();
    TheColorDefaults().Background = kDocumentBackground;
    TheColorDefaults().PalNr = arguments.Palette.value_or(PaletteNumber::Colour);
}

void Describe(WindowId id, const std::optional<QString>& description, Terminal& terminal)
{
    if (!description)
        return;
    DescrSetVisible(true, id);
    if (!DescrSetText(id, *description))
        terminal.Refuse(QStringLiteral("the description does not fit into ten lines, the rest of it is left out"));
}

/// FetchScreen with its temporary file in a temporary folder, since the program folder may not be writable.
WindowId FetchIntoWindow(Terminal& terminal)
{
    const QTemporaryDir folder;
    if (!folder.isValid()) {
        terminal.Refuse(QStringLiteral("there is no place for a temporary file"));
        return 0;
    }
    const QString programFolder = std::exchange(Program().AppPath, folder.path() + QDir::separator());
    const WindowId id = FetchScreen();
    Program().AppPath = programFolder;
    if (id <= 0 && !terminal.HasFailed())
        terminal.Refuse(QStringLiteral("what the instrument sent is no picture"));
    return id;
}

void StopOnSignal()
{
    OnCloseSignal([] { Program().CloseRequested = true; }, RepeatedSignal::Kills);
}

/// The files of a batch.
struct Batch {
    QStringList Paths;
    QStringList Names; ///< as given on the command line
};

/// The files that can be converted together. Reports and omits a file that would replace another source, or become the
/// same file as another; omits a file given twice.
Batch BatchOf(const CtlArguments& arguments, const FileConvertState& state, Terminal& terminal)
{
    QStringList all;
    for (const QString& operand : arguments.Operands)
        all.append(QFileInfo(ResolveParentSteps(operand)).absoluteFilePath());
    Batch batch;
    for (const BatchFile& file : FileConvertPlan(all, state.TargetFolder, state.TargetExtension)) {
        const QString& name = arguments.Operands[file.Source];
        terminal.SetFile(name);
        switch (file.Clash) {
        case BatchClash::ReplacesSource:
            terminal.Refuse(QStringLiteral("would replace %1, which is to be converted itself").arg(file.Target));
            break;
        case BatchClash::SameTarget:
            terminal.Refuse(QStringLiteral("would become the same file as %1").arg(arguments.Operands[file.With]));
            break;
        case BatchClash::None:
            batch.Paths.append(all[file.Source]);
            batch.Names.append(name);
        }
    }
    return batch;
}

/// Adds the description to each picture and shows the progress.
class TerminalWatcher final : public FileBatchWatcher {
public:
    TerminalWatcher(const CtlArguments& arguments, const QStringList& names, Terminal& terminal)
        : arguments_(arguments)
        , names_(names)
        , terminal_(terminal)
    {
    }

    void Progress(int done, int total, const QString& /*source*/) override
    {
        terminal_.SetFile(names_[done]);
        terminal_.ShowProgress(QStringLiteral("%1 of %2: %3").arg(done + 1).arg(total).arg(names_[done]));
    }
    void Prepare(int window) override
    {
        Describe(static_cast<WindowId>(window), arguments_.Description, terminal_);
    }

private:
    const CtlArguments& arguments_;
    const QStringList& names_;
    Terminal& terminal_;
};

} // namespace

bool CtlDrawsPictures(CtlCommand command)
{
    return command == CtlCommand::Picture || command == CtlCommand::Capture || command == CtlCommand::Print;
}

WindowId CtlOpenPicture(const QString& path, const std::optional<QString>& description, Terminal& terminal)
{
    const OpenedFile opened = FileOpenOfKind(QFileInfo(path).absoluteFilePath(), FileKindOf(path), true, true);
    const auto id = static_cast<WindowId>(opened.Window);
    if (id != 0)
        Describe(id, description, terminal);
    else if (!terminal.HasFailed())
        terminal.Refuse(QStringLiteral("can't be opened"));
    return id;
}

void CtlRunPictures(const CtlArguments& arguments, Terminal& terminal)
{
    FileConvertState& state = FileConvert();
    state.TargetExtension = u'.' + arguments.ImageFormat;
    state.TargetFolder = arguments.Into;
    terminal.SetFile(arguments.Into);
    if (!arguments.Into.isEmpty() && !FileMakeTargetFolder(arguments.Into))
        return;
    const Batch batch = BatchOf(arguments, state, terminal);
    state.Sources = batch.Paths;

    StopOnSignal();
    StartDocuments(arguments);
    TerminalWatcher watcher(arguments, batch.Names, terminal);
    const int converted = FileConvertRun(watcher).Converted;
    terminal.ShowProgress({});
    if (converted < batch.Paths.size())
        terminal.SetFailed();
    if (Program().CloseRequested) {
        terminal.SetFile(QStringLiteral("tarvikctl"));
        terminal.Refuse(QStringLiteral("stopped, %1 of %2 files are written").arg(converted).arg(batch.Paths.size()));
    }
}

bool CtlIsPictureName(const QString& path)
{
    return FileKindOf(path).IsPicture();
}

QString CtlCaptureTarget(const CtlArguments& arguments)
{
    const QFileInfo out(arguments.Operands[0]);
    QString name = out.fileName();
    if (!arguments.ImageFormat.isEmpty())
        name = (CtlIsPictureName(name) ? out.completeBaseName() : name) + u'.' + arguments.ImageFormat;
    const QString folder = arguments.Into.isEmpty() ? out.path() : arguments.Into;
    return QDir::cleanPath(QDir(ResolveParentSteps(folder)).filePath(name));
}

void CtlCapture(const CtlArguments& arguments, Terminal& terminal)
{
    StopOnSignal();
    StartDocuments(arguments);
    terminal.ShowProgress(QStringLiteral("fetching the display"));
    const WindowId id = FetchIntoWindow(terminal);
    terminal.ShowProgress({});
    TheSeams().PumpEvents();
    if (id <= 0)
        return;
    Describe(id, arguments.Description, terminal);
    QString path = QFileInfo(CtlCaptureTarget(arguments)).absoluteFilePath();
    if (Program().CloseRequested)
        terminal.Refuse(QStringLiteral("stopped, nothing is written"));
    else if (!FileSaveAs(path, id, true) || path.isEmpty())
        terminal.SetFailed();
    DropWindow(id);
}

} // namespace tarvik
