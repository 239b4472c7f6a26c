#include "link/documents/fileSave.h"

#include "app/menu/recentFiles.h"
#include "app/message/message.h"
#include "app/platform/replaceFile.h"
#include "app/platform/seams.h"
#include "app/state/project.h"
#include "app/state/statusBar.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "link/documents/documents.h"
#include "link/documents/fileFormats.h"

#include <QFileInfo>

namespace tarvik {

namespace {

bool CheckText(FileKind kind, const QString& path)
{
    if (!CanReplaceFile(path))
        return false;
    if (kind == FileKind::ListText)
        MsgOk1(TextId::CsvTextNotWritten, path);
    return true;
}

bool SavePicture(const FileFormat& format, ImageKind kind, const QString& path, int window)
{
    const PictureSaved result = CanReplaceFile(path) ? TheDocuments()->Save(path, kind, window) : PictureSaved::Failed;
    if (result == PictureSaved::Failed)
        MsgOk1(format.WriteFailed, QFileInfo(path).fileName());
    return result == PictureSaved::Written;
}

SaveFileQuestion SaveQuestion(int window)
{
    const QVector<FileFormat> formats = FileSaveFormats(TheDocuments()->IsDataSet(window));
    const LastFileName& last = Program().LastFile;
    SaveFileQuestion question;
    question.Title = LngStr(TextId::SaveAsTitle);
    question.InitialFolder = last.Folder;
    question.FileName = last.Name;
    question.Filters = FileSaveFilters(formats);
    question.FilterIndex = FileSaveFilterIndex(formats, last.Extension);
    question.HelpNumber = HelpId::SaveAs;
    return question;
}

} // namespace

bool FileSaveAs(QString& path, int window, bool confirm)
{
    return FileSaveAsKind(path, FileKindOf(path), window, confirm);
}

bool FileSaveAsKind(QString& path, const FileKindInfo& kind, int window, bool confirm)
{
    const FileFormat* format = FileFormatOf(kind.Kind);
    if (format == nullptr || (!format->IsImage() && !confirm)) {
        MsgOk1(TextId::UnknownFileType, QFileInfo(path).fileName());
        return false;
    }
    const bool isDone =
        format->IsImage() ? SavePicture(*format, kind.Image, path, window) : CheckText(format->Kind, path);
    if (!isDone)
        path.clear();
    return true;
}

bool FileSaveAsDlg(int window)
{
    const QString path = TheSeams().SaveFile(SaveQuestion(window)).trimmed();
    const FileKindInfo kind = FileKindOf(path);
    QString saved = path;
    if (path.isEmpty() || !FileSaveAsKind(saved, kind, window, true) || saved.isEmpty())
        return false;
    FileRememberPath({ path });
    StatusClear();
    if (kind.IsPicture())
        RecentFileAdd(path);
    return kind.IsPicture();
}

void FileRememberPath(const QStringList& paths)
{
    if (!paths.isEmpty())
        SetLastFile(paths.first());
}

} // namespace tarvik
