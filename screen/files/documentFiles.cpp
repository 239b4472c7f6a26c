#include "screen/files/documentFiles.h"

#include "app/state/project.h"
#include "link/documents/file.h"
#include "link/documents/fileSave.h"
#include "screen/files/document.h"
#include "screen/window/closing.h"
#include "screen/window/screenWindow.h"

#include <memory>
#include <utility>

namespace tarvik {

namespace {

bool OpenPicture(const QString& path, int kind, WindowId& opened)
{
    const OpenedImage image = ImgOpen(path, kind, SubtypeFile);
    if (image.Result == 0)
        opened = image.Id;
    return image.Result == 0;
}

/// What is composed is the stretched copy, which is as large as the window came out: beside others, or maximised.
void ToOwnSize(int window)
{
    const auto id = static_cast<WindowId>(window);
    ScreenRecord* record = ScreenOf(id);
    if (record != nullptr && record->Graph.size() != record->Master.size())
        record->Graph = ScreenPicture(id, record->Master.size());
}

PictureSaved SavePicture(const QString& path, int window)
{
    const auto id = static_cast<WindowId>(window);
    if (ImgSave(path, id))
        return PictureSaved::Written;
    const FileKind kind = FileKindOf(path).Kind;
    return kind == FileKind::Metafile ? PictureSaved::FailedAndTold : PictureSaved::Failed;
}

} // namespace

void BindDocumentFiles()
{
    const auto opened = std::make_shared<WindowId>(WindowId{ 0 });
    TheFileOpeners().OpenPicture = [opened](const QString& path, int kind) { return OpenPicture(path, kind, *opened); };
    FileDocumentHooks& hooks = TheFileDocumentHooks();
    hooks.ActiveWindow = [] { return static_cast<int>(WindowTable().Active); };
    hooks.TakeOpened = [opened] { return static_cast<int>(std::exchange(*opened, WindowId{ 0 })); };
    hooks.IsDataSet = [](int window) { return WindowTypeOf(static_cast<WindowId>(window)) == WindowDataSet; };
    hooks.ToOwnSize = ToOwnSize;
    hooks.SavePicture = SavePicture;
    hooks.Close = [](int window) { DropWindow(static_cast<WindowId>(window)); };
    TheScreenWindowHooks().Save = [](WindowId id) { return FileSaveAsDlg(id); };
    TheProjectHooks().ClearWindowTable = WindowTableClear;
    TheProjectHooks().CloseAllDocuments = CloseAllWindows;
}

} // namespace tarvik
