#include "link/fileSave.h"

#include "app/general.h"
#include "app/lang.h"
#include "app/message.h"
#include "app/project.h"
#include "app/seams.h"
#include "app/statusBar.h"
#include "link/fileFormats.h"

#include <QFile>
#include <QFileInfo>

namespace {

constexpr int kMessageUnknownFormat = 12750;
constexpr int kMessageTextNotWritten = 12763;
constexpr int kTitleSaveAs = 11601;
constexpr int kHelpSaveAs = 11600;

/// How a save ended.
enum class Saved { Yes, No, NoAndTold, NoFormat };

Saved SaveText(FileKind kind, const QString& path, bool confirm)
{
    if (!confirm)
        return Saved::NoFormat;
    if (!FileCanBeWritten(path))
        return Saved::No;
    if (kind == FileKind::ListText)
        MsgOk1(kMessageTextNotWritten, path);
    return Saved::Yes;
}

Saved SavePicture(const QString& path, int window)
{
    if (!FileCanBeWritten(path))
        return Saved::No;
    switch (TheFileDocumentHooks().SavePicture(path, window)) {
    case PictureSaved::Written:
        return Saved::Yes;
    case PictureSaved::FailedAndTold:
        return Saved::NoAndTold;
    default:
        return Saved::No;
    }
}

Saved SaveByExtension(const QString& path, int window, bool confirm)
{
    const FileFormat* format = FileFormatOf(path);
    Saved result = Saved::NoFormat;
    if (format != nullptr)
        result = format->IsImage() ? SavePicture(path, window) : SaveText(format->Kind, path, confirm);
    if (result == Saved::NoFormat)
        MsgOk(kMessageUnknownFormat);
    return result;
}

/// The extension that the save dialog begins with: a kind of text is no format of a document.
QString LastDocumentExtension()
{
    const QString& last = Program().LastFile.Extension;
    const bool isText = last.toUpper() == QLatin1String("CSV") || last.toUpper() == QLatin1String("TXT");
    return isText ? QString() : last;
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
    question.FilterIndex = FileSaveFilterIndex(formats, LastDocumentExtension());
    question.DefaultExtension = LastDocumentExtension();
    question.HelpNumber = kHelpSaveAs;
    return question;
}

} // namespace

FileDocumentHooks& TheFileDocumentHooks()
{
    static FileDocumentHooks hooks;
    return hooks;
}

void FileDocumentHooksReset()
{
    TheFileDocumentHooks() = {};
}

bool FileCanBeWritten(const QString& path)
{
    const QFileInfo info(path);
    if (info.exists())
        return info.isFile() && !HasReadOnlyAttribute(path) && QFile(path).open(QIODevice::ReadWrite);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return false;
    const bool hasRoom = file.write(" ", 1) == 1 && file.flush();
    file.remove();
    return hasRoom;
}

bool FileSaveAs(QString& path, int window, bool confirm)
{
    const Saved result = SaveByExtension(path, window, confirm);
    if (result == Saved::No || result == Saved::NoAndTold)
        path.clear();
    return result != Saved::NoFormat;
}

bool FileSaveAsTold(const QString& path, int window)
{
    const Saved result = SaveByExtension(path, window, true);
    const FileFormat* format = FileFormatOf(path);
    if (result == Saved::No && format->IsImage())
        MsgOk1(format->WriteFailed, QFileInfo(path).fileName());
    return result == Saved::Yes;
}

bool FileSaveAsDlg(int window)
{
    const QString path = TheSeams().SaveFile(SaveQuestion(window)).trimmed();
    if (path.isEmpty() || !FileSaveAsTold(path, window))
        return false;
    FileRememberPath({ path });
    StatusClear();
    return true;
}

void FileRememberPath(const QStringList& paths)
{
    if (!paths.isEmpty())
        SetLastFile(paths.first());
}
