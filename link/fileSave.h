// link/fileSave.h: writing a document under a name and format that the user chooses.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

/// How writing a picture ended.
enum class PictureSaved { Written, Failed, FailedAndTold };

/// The documents as saving and converting see them; bound by the composition. A window is told by its number, 0 for
/// none.
struct FileDocumentHooks {
    std::function<int()> ActiveWindow = [] { return 0; };
    std::function<int()> OpenedCount = [] { return 0; }; ///< how many documents were opened since the start
    std::function<bool(int window)> IsDataSet = [](int) { return false; };
    std::function<PictureSaved(const QString& path, int window)> SavePicture = [](const QString&, int) {
        return PictureSaved::Failed;
    };
    std::function<void(int window)> Close = [](int) {}; ///< without a question
};
FileDocumentHooks& TheFileDocumentHooks();
void FileDocumentHooksReset();

/// Writes a document in the format of the path's extension. False when that is no format (message 12750). A path that
/// can't be written comes back empty. The two kinds of text are tried and not written: with `confirm` the CSV text says
/// so (12763), without it they are no format.
bool FileSaveAs(QString& path, int window, bool confirm);

/// The same, and a picture that can't be written is reported by the message of its kind. True when the picture was
/// written, and for a kind of text that could have been.
[[nodiscard]] bool FileSaveAsTold(const QString& path, int window);

/// The save command of a document: asks for name and format, writes, remembers the name. True when it was written.
bool FileSaveAsDlg(int window);

/// Remembers folder, name and extension of the first of these paths.
void FileRememberPath(const QStringList& paths);

/// True if a file of this name can be made or written; an existing one is left as it is, no other is left behind.
[[nodiscard]] bool FileCanBeWritten(const QString& path);
