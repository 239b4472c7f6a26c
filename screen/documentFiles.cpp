#include "screen/documentFiles.h"

#include "app/project.h"
#include "link/file.h"
#include "link/fileSave.h"
#include "screen/closing.h"
#include "screen/document.h"
#include "screen/screenWindow.h"

#include <memory>

namespace {

bool OpenPicture(const QString& path, int kind)
{
    return ImgOpen(path, kind, SubtypeFile).Result == 0;
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
    const auto opened = std::make_shared<int>(0);
    TheFileOpeners().OpenPicture = [opened](const QString& path, int kind) {
        const bool isOpen = OpenPicture(path, kind);
        *opened += isOpen ? 1 : 0;
        return isOpen;
    };
    FileDocumentHooks& hooks = TheFileDocumentHooks();
    hooks.ActiveWindow = [] { return static_cast<int>(WindowTable().Active); };
    hooks.OpenedCount = [opened] { return *opened; };
    hooks.IsDataSet = [](int window) { return WindowTypeOf(static_cast<WindowId>(window)) == WindowDataSet; };
    hooks.SavePicture = SavePicture;
    hooks.Close = [](int window) { DropWindow(static_cast<WindowId>(window)); };
    TheScreenWindowHooks().Save = [](WindowId id) { return FileSaveAsDlg(id); };
    TheProjectHooks().ClearWindowTable = WindowTableClear;
    TheProjectHooks().CloseAllDocuments = CloseAllWindows;
}
