#include "link/documents/fileSave.h"

#include "app/message/message.h"
#include "app/platform/processState.h"
#include "app/platform/replaceFile.h"
#include "app/platform/seams.h"
#include "app/state/project.h"
#include "app/state/statusBar.h"
#include "app/text/lang.h"
#include "link/documents/fileFormats.h"

#include <QFileInfo>

namespace tarvik {

namespace {

constexpr int kMessageUnknownFormat = 12750;
constexpr int kMessageTextNotWritten = 12763;
constexpr int kTitleSaveAs = 11601;
constexpr int kHelpSaveAs = 11600;

bool TryText(FileKind kind, const QString& path)
{
    if (!CanReplaceFile(path))
        return false;
    if (kind == FileKind::ListText)
        MsgOk1(kMessageTextNotWritten, path);
    return true;
}

bool SavePicture(const FileFormat& format, const QString& path, int window)
{
    const PictureSaved result =
        CanReplaceFile(path) ? TheFileDocumentHooks().SavePicture(path, window) : PictureSaved::Failed;
    if (result == PictureSaved::Failed)
        MsgOk1(format.WriteFailed, QFileInfo(path).fileName());
    return result == PictureSaved::Written;
}

SaveFileQuestion SaveQuestion(int window)
{
    const QVector<FileFormat> formats = FileSaveFormats(TheFileDocumentHooks().IsDataSet(window));
    const LastFileName& last = Program().LastFile;
    SaveFileQuestion question;
    question.Title = LngStr(kTitleSaveAs);
    question.InitialFolder = last.Folder;
    question.FileName = last.Name;
    question.Filters = FileSaveFilters(formats);
    question.FilterIndex = FileSaveFilterIndex(formats, last.Extension);
    question.HelpNumber = kHelpSaveAs;
    return question;
}

} // namespace

FileDocumentHooks& TheFileDocumentHooks()
{
    static ProcessState<FileDocumentHooks> hooks;
    return hooks.Get();
}

bool FileSaveAs(QString& path, int window, bool confirm)
{
    const FileFormat* format = FileFormatOf(path);
    if (format == nullptr || (!format->IsImage() && !confirm)) {
        MsgOk(kMessageUnknownFormat);
        return false;
    }
    const bool isDone = format->IsImage() ? SavePicture(*format, path, window) : TryText(format->Kind, path);
    if (!isDone)
        path.clear();
    return true;
}

bool FileSaveAsDlg(int window)
{
    const QString path = TheSeams().SaveFile(SaveQuestion(window)).trimmed();
    QString saved = path;
    if (path.isEmpty() || !FileSaveAs(saved, window, true) || saved.isEmpty())
        return false;
    FileRememberPath({ path });
    StatusClear();
    return FileFormatOf(path)->IsImage();
}

void FileRememberPath(const QStringList& paths)
{
    if (!paths.isEmpty())
        SetLastFile(paths.first());
}

} // namespace tarvik
