#include "link/documents/fileDialogs.h"

#include "app/message/message.h"
#include "app/platform/seams.h"
#include "app/state/project.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "link/documents/file.h"
#include "link/documents/fileFormats.h"
#include "link/documents/fileSave.h"

namespace tarvik {

namespace {

QStringList AskForFiles(bool convert)
{
    OpenFilesQuestion question;
    question.Title = LngStr(convert ? TextId::ConvertFilesTitle : TextId::OpenFilesTitle);
    question.InitialFolder = Program().LastFile.Folder;
    question.Filters = FileOpenFilters();
    question.DefaultExtension = convert ? QStringLiteral("swp") : QStringLiteral("bmp");
    return TheSeams().OpenFiles(question);
}

/// Only the first file clears the answer to a question that is asked once for all files.
void OpenAll(const QStringList& paths)
{
    bool isFirst = true;
    for (const QString& path : paths) {
        SetLastFile(path);
        if (!FileOpen(path, isFirst, true))
            return;
        isFirst = false;
    }
}

} // namespace

void FileOpenDlg()
{
    const QStringList paths = AskForFiles(false);
    FileRememberPath(paths);
    OpenAll(paths);
}

void FileConvertDlg(const std::function<bool()>& askForTarget, const std::function<BatchResult()>& convert)
{
    const QStringList paths = AskForFiles(true);
    if (paths.isEmpty())
        return;
    FileRememberPath(paths);
    FileConvert().Sources = paths;
    if (!askForTarget())
        return;
    const BatchResult result = convert();
    if (result.Total > 1 && !Program().CloseRequested)
        MsgRaw(MsgStyle(MsgButtons::Ok, MsgIcon::Exclamation), FileConvertResultText(result),
            TextId::ConvertResult.Number);
}

} // namespace tarvik
