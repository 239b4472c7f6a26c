// link/documents/fileConvert.h: converts a batch of pictures: the rules of the form `FmFileConvert`, and the batch
// itself.
#pragma once

#include "app/text/textNumber.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

namespace tarvik {

/// Input and result of the form.
struct FileConvertState {
    QStringList Sources; ///< full paths, in the order of the conversion
    QString TargetFolder;
    QString TargetExtension; ///< with its point; empty if no type was chosen
    std::optional<bool> BlackAndWhite; ///< palette of the new files; nullopt for that of new documents
};
FileConvertState& FileConvert();

/// Initial values of the form.
struct FileConvertProposal {
    QString Folder; ///< of the last source that is a document; empty without one
    QVector<TextNumber<0>> Types; ///< entries of `CbType`
    int Selected = 0;
    bool BlackAndWhite = false; ///< the palette of new documents
};

/// Clears the target and proposes one for the sources.
FileConvertProposal FileConvertPropose();

/// True for an existing folder.
bool FolderExists(const QString& path);

/// Creates a missing target folder, one level deep. False after message 12752.
[[nodiscard]] bool FileMakeTargetFolder(const QString& folder);

/// Accepts the form's input: a folder, which is created if missing, the text number of a type, and the palette. False
/// after a message if there is no folder (11426) or it can't be created (12752).
[[nodiscard]] bool FileConvertAccept(const QString& folder, int type, bool blackAndWhite);

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

    /// True ends the batch after the current file.
    virtual bool IsCancelled()
    {
        return false;
    }
};

/// Why a source cannot be converted together with the others.
enum class BatchClash {
    None,
    ReplacesSource, ///< its target is another source
    SameTarget ///< its target is that of an earlier source
};

struct BatchFile {
    int Source = 0; ///< index in the sources
    QString Target;
    BatchClash Clash = BatchClash::None;
    int With = 0; ///< index of the source with which it clashes
};

/// The sources in their order, each file once, however often and by whatever links it is named. Targets are compared
/// without links too. An extension of no picture has no clashes, since nothing is written. An empty folder means that
/// of each source.
QVector<BatchFile> FileConvertPlan(const QStringList& sources, const QString& folder, const QString& extension);

struct BatchResult {
    int Total = 0;
    int Converted = 0;
    int LeftOut = 0; ///< kept existing targets and clashes
    int Failed = 0;
};

/// Opens each source, saves it as `TargetExtension` in `TargetFolder` (by default the source's folder) and closes it.
/// Pictures are saved at their own size, not that of their window. Asks before replacing an existing target (12734),
/// with several sources also for all of them. A failure is reported and the batch continues; a file that opens in an
/// editor is not written and reported too (12750), as is a source that clashes with another one (11424, 11425).
/// Processes events between files; the batch ends when it is cancelled or the program is to close.
BatchResult FileConvertRun(FileBatchWatcher& watcher);
BatchResult FileConvertRun(); ///< unwatched

/// The result in words, in two lines.
QString FileConvertResultText(const BatchResult& result);

} // namespace tarvik
