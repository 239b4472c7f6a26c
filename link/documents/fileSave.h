// link/documents/fileSave.h: writing a document under a name and format that the user chooses.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace tarvik {

/// How writing a picture ended.
enum class PictureSaved { Written, Failed, FailedAndTold };

/// The documents as saving and converting see them; bound by the composition. A window is told by its number, 0 for
/// none.
struct FileDocumentHooks {
    std::function<int()> ActiveWindow = [] { return 0; };
    std::function<int()> TakeOpened = [] { return 0; }; ///< the window of a file opened since this was last asked
    std::function<bool(int window)> IsDataSet = [](int) { return false; };
    std::function<void(int window)> ToOwnSize = [](int) {}; ///< saved as large as it is, not as it is shown
    std::function<PictureSaved(const QString& path, int window)> SavePicture = [](const QString&, int) {
        return PictureSaved::Failed;
    };
    std::function<void(int window)> Close = [](int) {}; ///< without a question
};
FileDocumentHooks& TheFileDocumentHooks();

/// Writes a document in the format of the path's extension. False when that is no format (message 12750). A path under
/// which no picture could be written, which is told by the message of its kind, or no text, comes back empty. The two
/// kinds of text are tried and not written: with `confirm` the CSV text says so (12763), without it they are no format.
bool FileSaveAs(QString& path, int window, bool confirm);

/// The save command of a document: asks for name and format, writes, remembers the name. True when a picture was
/// written; a kind of text holds nothing of a document, so that its window must not go.
bool FileSaveAsDlg(int window);

/// Remembers folder, name and extension of the first of these paths.
void FileRememberPath(const QStringList& paths);

} // namespace tarvik
