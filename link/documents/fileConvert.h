// link/documents/fileConvert.h: converts a batch of pictures: the rules of the form `FmFileConvert`, and the batch
// itself.
#pragma once

#include "app/text/textNumber.h"

#include <QString>
#include <QStringList>
#include <QVector>

namespace tarvik {

/// Input and result of the form.
struct FileConvertState {
    QStringList Sources; ///< full paths, in the order of the conversion
    QString TargetFolder;
    QString TargetExtension; ///< with its point; empty if no type was chosen
};
FileConvertState& FileConvert();

/// Initial values of the form.
struct FileConvertProposal {
    QString Folder; ///< of the last source that is a document; empty without one
    QVector<TextNumber<0>> Types; ///< entries of `CbType`
    int Selected = 0;
};

/// Clears the target and proposes one for the sources.
FileConvertProposal FileConvertPropose();

/// True for an existing folder.
bool FolderExists(const QString& path);

/// Creates a missing target folder, one level deep. False after message 12752.
[[nodiscard]] bool FileMakeTargetFolder(const QString& folder);

/// Accepts the form's input: a folder, which is created if missing, and the text number of a type. False if the folder
/// can't be created.
[[nodiscard]] bool FileConvertAccept(const QString& folder, int type);

/// Path of the converted file: the target folder, the source's base name, the target extension with its point.
QString FileTargetPath(const QString& folder, const QString& source, const QString& extension);

/// Watches a batch; this base class does nothing.
class FileBatchWatcher {
public:
    virtual ~FileBatchWatcher() = default;

    /// Before a file is opened.
    virtual void Progress(int /*done*/, int /*total*/, const QString& /*source*/) { }

    /// Between opening and saving.
    virtual void Prepare(int /*window*/) { }
};

/// Opens each source, saves it as `TargetExtension` in `TargetFolder` (by default the source's folder) and closes it.
/// Pictures are saved at their own size, not that of their window. Asks before replacing an existing target (12734),
/// with several sources also for all of them. A failure is reported and the batch continues; a file that opens in an
/// editor is not written and reported too (12750). Processes events between files; the batch ends when the program is
/// to close. Returns the number of pictures written.
int FileConvertRun(FileBatchWatcher& watcher);
int FileConvertRun(); ///< unwatched

} // namespace tarvik
