#include "link/documents/fileDialogs.h"

#include "app/platform/processState.h"
#include "app/platform/seams.h"
#include "app/state/project.h"
#include "app/text/lang.h"
#include "link/documents/fileConvert.h"
#include "link/documents/fileFormats.h"
#include "link/documents/fileSave.h"

namespace tarvik {

namespace {

constexpr int kTitleOpen = 11501;
constexpr int kTitleConvert = 11514;

QStringList AskForFiles(bool convert)
{
    OpenFilesQuestion question;
    question.Title = LngStr(convert ? kTitleConvert : kTitleOpen);
    question.InitialFolder = Program().LastFile.Folder;
    question.Filters = FileOpenFilters();
    question.DefaultExtension = convert ? QStringLiteral("swp") : QStringLiteral("bmp");
    return TheSeams().OpenFiles(question);
}

/// Only the first file forgets what the user answered to a question that is asked once for all of them.
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

FileDialogHooks& TheFileDialogHooks()
{
    static ProcessState<FileDialogHooks> hooks;
    return hooks.Get();
}

void FileOpenDlg(bool convert)
{
    const QStringList paths = AskForFiles(convert);
    if (paths.isEmpty())
        return;
    FileRememberPath(paths);
    if (!convert) {
        OpenAll(paths);
        return;
    }
    FileConvert().Sources = paths;
    if (TheFileDialogHooks().ShowConvertForm())
        FileConvertRun({});
}

} // namespace tarvik
