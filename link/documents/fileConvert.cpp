#include "link/documents/fileConvert.h"

#include "app/message/message.h"
#include "app/platform/paths.h"
#include "app/platform/processState.h"
#include "app/platform/seams.h"
#include "app/state/project.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "app/values/strings.h"
#include "link/documents/documents.h"
#include "link/documents/file.h"
#include "link/documents/fileFormats.h"
#include "link/documents/fileSave.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QSet>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tarvik {

namespace {

QString WithoutSlash(const QString& folder)
{
    QString path = QDir::fromNativeSeparators(folder);
    while (path.endsWith(QLatin1String("//")))
        path.chop(1);
    return PathNoSlash(path, u'/');
}

/// A relative folder is inside the folder of the sources; "~" is the home folder.
QString AbsoluteFolder(const QString& folder)
{
    if (folder == u'~' || folder.startsWith(QLatin1String("~/")))
        return QDir::homePath() + folder.mid(1);
    const QString& chosen = Program().LastFile.Folder;
    return folder.isEmpty() || chosen.isEmpty() ? folder : QDir(chosen).absoluteFilePath(folder);
}

enum class Answer { Save, Skip, Stop };

Answer AskToReplace(const QString& target, bool isBatch)
{
    if (!QFileInfo::exists(target))
        return Answer::Save;
    if (TheMessage().YesAll)
        return Answer::Save;
    if (TheMessage().NoAll)
        return Answer::Skip;
    const MsgResult answer =
        isBatch ? MsgAllChoices1(TextId::OverwriteFile, target) : MsgYesNoDefNo1(TextId::OverwriteFile, target);
    if (answer == MsgResult::Yes)
        return Answer::Save;
    return answer == MsgResult::No ? Answer::Skip : Answer::Stop;
}

void ClearAnswersForAll()
{
    TheMessage().YesAll = false;
    TheMessage().NoAll = false;
}

/// Documents open without windows for the guard's lifetime.
class BatchDocuments {
public:
    BatchDocuments()
    {
        TheDocuments()->BeginBatch(FileConvert().BlackAndWhite);
    }
    ~BatchDocuments()
    {
        TheDocuments()->EndBatch();
    }
    BatchDocuments(const BatchDocuments&) = delete;
    BatchDocuments& operator=(const BatchDocuments&) = delete;
};

QString TargetOf(const QString& source, const QString& folder, const QString& extension)
{
    const QString into = folder.isEmpty() ? QFileInfo(source).path() : QDir(ResolveParentSteps(folder)).absolutePath();
    return QDir::cleanPath(FileTargetPath(into, source, extension));
}

/// One run over the sources.
class Batch {
public:
    explicit Batch(FileBatchWatcher& watcher)
        : watcher_(watcher)
    {
    }

    BatchResult Run()
    {
        const FileConvertState state = FileConvert();
        const QVector<BatchFile> files = FileConvertPlan(state.Sources, state.TargetFolder, state.TargetExtension);
        result_.Total = static_cast<int>(files.size());
        const BatchDocuments batch;
        for (int done = 0; done < result_.Total && MayContinue(); ++done) {
            const BatchFile& file = files[done];
            watcher_.Progress(done, result_.Total, state.Sources[file.Source]);
            if (file.Clash == BatchClash::None)
                Convert(state.Sources[file.Source], result_.Total > 1);
            else
                LeaveOut(file, state.Sources);
            TheSeams().PumpEvents();
        }
        return result_;
    }

private:
    bool MayContinue()
    {
        return !stopped_ && !Program().CloseRequested && !watcher_.IsCancelled();
    }

    void LeaveOut(const BatchFile& file, const QStringList& sources)
    {
        ++result_.LeftOut;
        const auto text =
            file.Clash == BatchClash::ReplacesSource ? TextId::ConvertReplacesSource : TextId::ConvertSameTarget;
        MsgOk2(text, QFileInfo(sources[file.Source]).fileName(), QFileInfo(sources[file.With]).fileName());
    }

    /// Only the first file clears the answer to a question that is asked once for all files.
    void Convert(const QString& source, bool isBatch)
    {
        SetLastFile(source);
        const FileKindInfo kind = FileKindOf(source);
        const OpenedFile opened = FileOpenOfKind(source, kind, std::exchange(isFirst_, false), true);
        if (opened.Window == 0) {
            ++result_.Failed;
            ReportIfNotConverted(source, kind, opened);
            return;
        }
        watcher_.Prepare(opened.Window);
        Save(source, opened.Window, isBatch);
        TheDocuments()->Close(opened.Window);
    }

    /// Reports a list or text, which may have opened in an editor. A picture that can't be opened and a file of unknown
    /// kind have been reported already.
    static void ReportIfNotConverted(const QString& source, const FileKindInfo& kind, const OpenedFile& opened)
    {
        if (opened.Success || (kind.Kind != FileKind::None && !kind.IsPicture()))
            MsgOk1(TextId::UnknownFileType, QFileInfo(source).fileName());
    }

    void Save(const QString& source, int window, bool isBatch)
    {
        const FileConvertState& state = FileConvert();
        const QString folder = state.TargetFolder.isEmpty() ? QFileInfo(source).path() : state.TargetFolder;
        QString target = FileTargetPath(folder, source, state.TargetExtension);
        const Answer answer = AskToReplace(target, isBatch);
        stopped_ = answer == Answer::Stop;
        if (answer != Answer::Save) {
            ++result_.LeftOut;
            return;
        }
        const FileKindInfo kind = FileKindOf(target); // a text is not written
        TheDocuments()->UseOwnSize(window); // after the question, which processes paint events
        const bool isWritten = FileSaveAsKind(target, kind, window, true) && kind.IsPicture() && !target.isEmpty();
        ++(isWritten ? result_.Converted : result_.Failed);
    }

    FileBatchWatcher& watcher_;
    BatchResult result_;
    bool isFirst_ = true;
    bool stopped_ = false;
};

} // namespace

FileConvertState& FileConvert()
{
    static ProcessState<FileConvertState> state;
    return state.Get();
}

FileConvertProposal FileConvertPropose()
{
    FileConvertState& state = FileConvert();
    state.TargetFolder.clear();
    state.TargetExtension.clear();
    FileConvertProposal proposal;
    for (const QString& source : state.Sources) {
        if (FileFormatOf(FileKindOf(source).Kind) != nullptr)
            proposal.Folder = QDir::toNativeSeparators(QFileInfo(source).path());
    }
    for (const FileFormat& format : FileFormats()) {
        if (format.Kind == FileKind::Bitmap)
            proposal.Selected = static_cast<int>(proposal.Types.size());
        proposal.Types.append(format.Name);
    }
    if (proposal.Folder.isEmpty()) {
        proposal.Selected = static_cast<int>(proposal.Types.size());
        proposal.Types.append(TextId::ChooseFileType);
    }
    proposal.BlackAndWhite = TheDocuments()->IsBlackAndWhite();
    return proposal;
}

bool FolderExists(const QString& path)
{
    return QFileInfo(WithoutSlash(path)).isDir();
}

bool FileMakeTargetFolder(const QString& folder)
{
    if (FolderExists(folder))
        return true;
    const QString path = WithoutSlash(folder);
    std::error_code error;
    std::filesystem::create_directory(QFileInfo(path).filesystemFilePath(), error);
    if (!error)
        return true;
    MsgOk2(TextId::FolderNotMade, QFileInfo(path).fileName(), QString::fromLocal8Bit(error.message().c_str()));
    return false;
}

bool FileConvertAccept(const QString& folder, int type, bool blackAndWhite)
{
    if (folder.trimmed().isEmpty()) {
        MsgOk(TextId::ConvertFolderMissing);
        return false;
    }
    const QString target = AbsoluteFolder(folder.trimmed());
    if (!FileMakeTargetFolder(target))
        return false;
    const auto& formats = FileFormats();
    const auto found =
        std::find_if(formats.begin(), formats.end(), [type](const FileFormat& at) { return at.Name.Number == type; });
    FileConvert().TargetFolder = target;
    FileConvert().TargetExtension = found == formats.end() ? QString() : LngStr(found->Extension);
    FileConvert().BlackAndWhite = blackAndWhite;
    return true;
}

QString FileTargetPath(const QString& folder, const QString& source, const QString& extension)
{
    return PathWithSlash(QDir::fromNativeSeparators(folder), u'/') + QFileInfo(source).completeBaseName() + extension;
}

QVector<BatchFile> FileConvertPlan(const QStringList& sources, const QString& folder, const QString& extension)
{
    const bool isPicture = FileKindOf(u'x' + extension).IsPicture();
    QHash<QString, int> sourceByPath;
    for (int at = static_cast<int>(sources.size()) - 1; at >= 0; --at)
        sourceByPath[ResolveLinks(sources[at])] = at;
    QHash<QString, int> sourceByTarget;
    QSet<QString> seen;
    QVector<BatchFile> files;
    for (int at = 0; at < sources.size(); ++at) {
        const QString named = ResolveFolder(sources[at]);
        if (seen.contains(named))
            continue;
        seen.insert(named);
        BatchFile file{ at, TargetOf(sources[at], folder, extension) };
        const QString target = ResolveLinks(file.Target);
        if (isPicture && target != ResolveLinks(sources[at]) && sourceByPath.contains(target)) {
            file.Clash = BatchClash::ReplacesSource;
            file.With = sourceByPath[target];
        } else if (isPicture && sourceByTarget.contains(target)) {
            file.Clash = BatchClash::SameTarget;
            file.With = sourceByTarget[target];
        } else {
            sourceByTarget[target] = at;
        }
        files.append(file);
    }
    return files;
}

BatchResult FileConvertRun(FileBatchWatcher& watcher)
{
    ClearAnswersForAll();
    const BatchResult result = Batch(watcher).Run();
    ClearAnswersForAll();
    return result;
}

QString FileConvertResultText(const BatchResult& result)
{
    return LngStr2(TextId::ConvertResult, QString::number(result.Converted), QString::number(result.Total)) + u'\n'
        + LngStr2(TextId::ConvertResultRest, QString::number(result.LeftOut), QString::number(result.Failed));
}

BatchResult FileConvertRun()
{
    FileBatchWatcher unwatched;
    return FileConvertRun(unwatched);
}

} // namespace tarvik
