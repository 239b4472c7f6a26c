// link/documents/fileConvert.h: converting a batch of pictures: what the form `FmFileConvert` proposes and accepts, and
// the loop.
#pragma once

#include "app/text/textNumber.h"

#include <QString>
#include <QStringList>
#include <QVector>

namespace tarvik {

/// What the form works on and leaves behind.
struct FileConvertState {
    QStringList Sources; ///< full paths, in the order of the conversion
    QString TargetFolder;
    QString TargetExtension; ///< with its point; empty when no type was chosen
};
FileConvertState& FileConvert();

/// What the form shows when it opens.
struct FileConvertProposal {
    QString Folder; ///< of the last source that is a document; empty without one
    QVector<TextNumber<0>> Types; ///< entries of `CbType`
    int Selected = 0;
};

/// Clears the target and looks at the sources.
FileConvertProposal FileConvertPropose();

/// True for a folder that is there.
bool FolderExists(const QString& path);

/// Makes a missing target folder, one level deep. False after message 12752.
[[nodiscard]] bool FileMakeTargetFolder(const QString& folder);

/// Takes the form's answer: a folder, which is made where it is missing, and the text number of a type. False when the
/// folder can't be made.
[[nodiscard]] bool FileConvertAccept(const QString& folder, int type);

/// Path of the converted file: the target folder, the source's base name, the target extension with its point.
QString FileTargetPath(const QString& folder, const QString& source, const QString& extension);

/// Who watches a batch; this one does nothing.
class FileBatchWatcher {
public:
    virtual ~FileBatchWatcher() = default;

    /// Before a file is opened.
    virtual void Progress(int /*done*/, int /*total*/, const QString& /*source*/) { }

    /// Between opening and saving.
    virtual void Prepare(int /*window*/) { }
};

/// Opens each source, saves it as `TargetExtension` in `TargetFolder` (a source's own folder while that is empty) and
/// closes it. The picture keeps its own size, however large its window came out. An existing target is replaced when
/// the user says so (12734); with one source that is Yes or No, with more of them also for all. A file that fails has
/// reported it, and the next one follows; of one that opens elsewhere, in an editor, nothing is written, which is told
/// (12750). Between two files events run, and the batch ends when the program is to end. Returns how many pictures were
/// written.
int FileConvertRun(FileBatchWatcher& watcher);
int FileConvertRun(); ///< unwatched

} // namespace tarvik
