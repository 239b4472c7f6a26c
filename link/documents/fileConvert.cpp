#include "link/documents/fileConvert.h"

#include "app/message/message.h"
#include "app/platform/processState.h"
#include "app/platform/seams.h"
#include "app/state/project.h"
#include "app/text/lang.h"
#include "app/values/strings.h"
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

constexpr int kTextChooseType = 11005;
constexpr int kMessageNotConverted = 12750;
constexpr int kMessageFolderNotMade = 12752;
constexpr int kQuestionReplace = 12734;

QString WithoutSlash(const QString& folder)
{
    QString path = QDir::fromNativeSeparators(folder);
    while (path.endsWith(QLatin1String("//")))
        path.chop(1);
    return PathNoSlash(path, u'/');
}

/// A folder that is named without a place stands in the one in which the sources were chosen; "~" is the user's own.
QString PlacedFolder(const QString& folder)
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
    const int answer = isBatch ? MsgAllChoices1(kQuestionReplace, target) : MsgYesNoDefNo1(kQuestionReplace, target);
    if (answer == MsgResultYes)
        return Answer::Save;
    return answer == MsgResultNo ? Answer::Skip : Answer::Stop;
}

void ForgetAnswersForAll()
{
    TheMessage().YesAll = false;
    TheMessage().NoAll = false;
}

/// One run over the sources.
class Batch {
public:
    explicit Batch(const FileBatchHooks& hooks)
        : hooks_(hooks)
    {
    }

    int Run()
    {
        const QStringList sources = FileConvert().Sources;
        for (int done = 0; done < sources.size() && !stopped_ && !Program().CloseWished; ++done) {
            hooks_.Progress(done, static_cast<int>(sources.size()), sources[done]);
            Convert(sources[done], done == 0, sources.size() > 1);
            TheSeams().PumpEvents();
        }
        return converted_;
    }

private:
    /// Only the first file forgets what the user answered to a question that is asked once for all of them.
    void Convert(const QString& source, bool isFirst, bool isBatch)
    {
        const FileDocumentHooks& documents = TheFileDocumentHooks();
        SetLastFile(source);
        documents.TakeOpened();
        const bool isOpen = FileOpen(source, isFirst, true);
        const int window = documents.TakeOpened();
        if (window == 0) {
            TellIfNotConverted(source, isOpen);
            return;
        }
        hooks_.Prepare(window);
        Save(source, window, isBatch);
        documents.Close(window);
    }

    /// What can't be opened has been told; not so a list or a text, which may have been seen in an editor.
    static void TellIfNotConverted(const QString& source, bool isOpen)
    {
        const FileKind kind = FileKindOf(source).Kind;
        if (isOpen || (kind != FileKind::None && ImageKindOf(kind) == 0))
            MsgOk1(kMessageNotConverted, QFileInfo(source).fileName());
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
        const bool isPicture = ImageKindOf(FileKindOf(target).Kind) != 0; // else nothing is written
        TheFileDocumentHooks().ToOwnSize(window); // behind the question, which lets its window be drawn
        if (FileSaveAs(target, window, true) && isPicture && !target.isEmpty())
            ++converted_;
    }

    const FileBatchHooks& hooks_;
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
        if (FileFormatOf(source) != nullptr)
            proposal.Folder = QDir::toNativeSeparators(QFileInfo(source).path());
    }
    for (const FileFormat& format : FileFormats()) {
        if (format.Kind == FileKind::Bitmap)
            proposal.Selected = static_cast<int>(proposal.Types.size());
        proposal.Types.append(format.Name);
    }
    if (proposal.Folder.isEmpty()) {
        proposal.Selected = static_cast<int>(proposal.Types.size());
        proposal.Types.append(kTextChooseType);
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
    MsgOk2(kMessageFolderNotMade, QFileInfo(path).fileName(), QString::fromLocal8Bit(error.message().c_str()));
    return false;
}

bool FileConvertAccept(const QString& folder, int type)
{
    const QString target = PlacedFolder(folder.trimmed());
    if (!FileMakeTargetFolder(target))
        return false;
    const auto& formats = FileFormats();
    const auto found =
        std::find_if(formats.begin(), formats.end(), [type](const FileFormat& at) { return at.Name == type; });
    FileConvert().TargetFolder = target;
    FileConvert().TargetExtension = found == formats.end() ? QString() : LngStr(found->Extension);
    return true;
}

QString FileTargetPath(const QString& folder, const QString& source, const QString& extension)
{
    return PathWithSlash(QDir::fromNativeSeparators(folder), u'/') + QFileInfo(source).completeBaseName() + extension;
}

int FileConvertRun(const FileBatchHooks& hooks)
{
    ForgetAnswersForAll();
    const int converted = Batch(hooks).Run();
    ForgetAnswersForAll();
    return converted;
}

} // namespace tarvik
