#include "link/documents/fileConvert.h"

#include "app/message/message.h"
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

#include <algorithm>
#include <filesystem>
#include <system_error>

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

/// One run over the sources.
class Batch {
public:
    explicit Batch(FileBatchWatcher& watcher)
        : watcher_(watcher)
    {
    }

    int Run()
    {
        const QStringList sources = FileConvert().Sources;
        for (int done = 0; done < sources.size() && !stopped_ && !Program().CloseRequested; ++done) {
            watcher_.Progress(done, static_cast<int>(sources.size()), sources[done]);
            Convert(sources[done], done == 0, sources.size() > 1);
            TheSeams().PumpEvents();
        }
        return converted_;
    }

private:
    /// Only the first file clears the answer to a question that is asked once for all files.
    void Convert(const QString& source, bool isFirst, bool isBatch)
    {
        SetLastFile(source);
        const FileKindInfo kind = FileKindOf(source);
        const OpenedFile opened = FileOpenOfKind(source, kind, isFirst, true);
        if (opened.Window == 0) {
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
        if (answer != Answer::Save)
            return;
        const FileKindInfo kind = FileKindOf(target); // a text is not written
        TheDocuments()->UseOwnSize(window); // after the question, which processes paint events
        if (FileSaveAsKind(target, kind, window, true) && kind.IsPicture() && !target.isEmpty())
            ++converted_;
    }

    FileBatchWatcher& watcher_;
    int converted_ = 0;
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

bool FileConvertAccept(const QString& folder, int type)
{
    const QString target = AbsoluteFolder(folder.trimmed());
    if (!FileMakeTargetFolder(target))
        return false;
    const auto& formats = FileFormats();
    const auto found =
        std::find_if(formats.begin(), formats.end(), [type](const FileFormat& at) { return at.Name.Number == type; });
    FileConvert().TargetFolder = target;
    FileConvert().TargetExtension = found == formats.end() ? QString() : LngStr(found->Extension);
    return true;
}

QString FileTargetPath(const QString& folder, const QString& source, const QString& extension)
{
    return PathWithSlash(QDir::fromNativeSeparators(folder), u'/') + QFileInfo(source).completeBaseName() + extension;
}

int FileConvertRun(FileBatchWatcher& watcher)
{
    ClearAnswersForAll();
    const int converted = Batch(watcher).Run();
    ClearAnswersForAll();
    return converted;
}

int FileConvertRun()
{
    FileBatchWatcher unwatched;
    return FileConvertRun(unwatched);
}

} // namespace tarvik
