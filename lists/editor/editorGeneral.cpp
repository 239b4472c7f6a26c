#include "lists/editor/editorGeneral.h"

#include "app/message/message.h"
#include "app/platform/paths.h"
#include "app/platform/processState.h"
#include "app/state/frame.h"
#include "app/text/ansi.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "app/values/strings.h"
#include "lists/values/limits.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <array>

namespace tarvik {

namespace {

/// Texts of the list types that have a CSV format.
struct CsvListTexts {
    FileClass Type;
    TextNumber<0> Keyword;
    TextNumber<0> Filter;
};
constexpr std::array kCsvLists{ CsvListTexts{
                                    FileClassAntennaList, TextId::AntennaListKeyword, TextId::AntennaListFiles },
    CsvListTexts{ FileClassKfactorTable, TextId::KfactorTableKeyword, TextId::KfactorTableFiles },
    CsvListTexts{ FileClassMemoryList, TextId::MemoryListKeyword, TextId::MemoryListFiles },
    CsvListTexts{ FileClassSuppressList, TextId::SuppressListKeyword, TextId::SuppressListFiles } };

class NoEditors final : public ListEditors {
public:
    bool HasEditor(FileClass) const override
    {
        return false;
    }
    void ShowEditor(FileClass) override { }
    bool ReadKfactorBand(const QString&, double&, double&) override
    {
        return false;
    }
};

/// Of the file system.
bool IgnoresCase()
{
#if defined(Q_OS_WIN) || defined(Q_OS_MACOS)
    return true;
#else
    return false;
#endif
}

QStringList OpenFilters()
{
    const QString& extension = Editor().ListExtension;
    if (Editor().EditorType == FileClassCorrectionSet)
        return { LngStr(TextId::CorrectionSetFiles) + QStringLiteral("|*") + extension };
    QStringList filters{ LngStr1(TextId::CsvAndListFiles, extension.toUpper()) + QStringLiteral("|*.csv;*") + extension,
        LngStr(TextId::CsvFiles) + QStringLiteral("|*.csv") };
    for (const CsvListTexts& list : kCsvLists) {
        if (list.Type == Editor().EditorType)
            filters.append(LngStr(list.Filter) + QStringLiteral("|*") + extension);
    }
    return filters;
}

/// Disables the status bar while an editor is open. An editor that another one opens gets a state of its own, but for
/// its result.
class OpenEditorScope {
public:
    OpenEditorScope()
        : outer_(Editor())
    {
        EditorState& state = Editor();
        if (outer_.EditorIsOpen)
            state.EditorOpenFile.clear();
        state.EditorIsOpen = true;
        TheFrame()->EnableStatusBar(false);
    }
    ~OpenEditorScope()
    {
        EditorState& state = Editor();
        state.EditorIsOpen = outer_.EditorIsOpen;
        if (outer_.EditorIsOpen) {
            state.EditorDirty = outer_.EditorDirty;
            state.EditorOpenFile = outer_.EditorOpenFile;
        }
        TheFrame()->EnableStatusBar(!outer_.EditorIsOpen);
    }
    OpenEditorScope(const OpenEditorScope&) = delete;
    OpenEditorScope& operator=(const OpenEditorScope&) = delete;

private:
    EditorState outer_;
};

} // namespace

EditorState& Editor()
{
    static ProcessState<EditorState> state;
    return state.Get();
}

bool IsListType(FileClass listType)
{
    return listType >= FileClassAntennaList && listType <= FileClassCorrectionSet && listType != FileClassScreenShot;
}

Port<ListEditors>& TheListEditors()
{
    static PortOr<ListEditors, NoEditors> port;
    return port;
}

void OpenEditor(FileClass listType)
{
    if (!IsListType(listType) || !TheListEditors()->HasEditor(listType))
        return;
    ReadInstrumentLimits();
    const bool isNested = Editor().EditorIsOpen;
    const FileClass outer = Editor().EditorType;
    SetEditorType(listType);
    {
        const OpenEditorScope scope;
        TheListEditors()->ShowEditor(listType);
    }
    if (isNested)
        SetEditorType(outer);
}

void SetEditorType(FileClass listType)
{
    ModFileInit(listType);
    Editor().EditorType = listType;
    Editor().ListExtension = ModGetExtension(FileClasses().CurrentFileClass).toLower();
}

EditorTypeScope::EditorTypeScope(FileClass listType)
    : outer_(Editor().EditorType)
{
    SetEditorType(listType);
}

EditorTypeScope::~EditorTypeScope()
{
    SetEditorType(outer_);
}

FileClass ListTypeOfFile(const QString& path)
{
    constexpr qint64 kMaxKeywordBytes = 256;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return FileClassUnknown;
    const QString start = FromAnsi(file.read(kMaxKeywordBytes));
    for (const CsvListTexts& list : kCsvLists) {
        const QString keyword = LngStr(list.Keyword);
        if (!keyword.isEmpty() && start.startsWith(keyword, Qt::CaseInsensitive))
            return list.Type;
    }
    return FileClassUnknown;
}

FileClass OpenListFile(const QString& path, bool show)
{
    const FileClass type = ListTypeOfFile(path);
    if (type == FileClassUnknown || !show)
        return type;
    ModFileInit(type);
    Editor().EditorOpenFile = path;
    OpenEditor(type);
    Editor().EditorOpenFile.clear(); // also without an editor for the type
    return type;
}

QString EditorDefaultFolder()
{
    const QString& openFile = Editor().EditorOpenFile;
    if (!openFile.isEmpty()) {
        QString absolute = QFileInfo(openFile).absoluteFilePath();
        if (QFileInfo(absolute).isDir())
            return absolute;
    }
    const QString& remembered = FileClasses().PcPaths[FileClasses().CurrentFileClass];
    return !remembered.isEmpty() && QFileInfo(remembered).isDir() ? remembered : QDir::currentPath();
}

QString OpenListDialog(const QString& initialFolder)
{
    return TheSeams().OpenFile({ LngStr(TextId::OpenListTitle), initialFolder, OpenFilters() });
}

QString SaveFolderDialog(const QString& fileName)
{
    return TheSeams().BrowseFolder({ LngStr1(TextId::SaveListInFolder, fileName), EditorDefaultFolder() });
}

void RememberFolderOfFile(const QString& path)
{
    RememberFolder(QFileInfo(path).absolutePath());
}

void RememberFolder(const QString& folder)
{
    const QString trimmed = folder.trimmed();
    FileClasses().PcPaths[FileClasses().CurrentFileClass] = IgnoresCase() ? trimmed.toUpper() : trimmed;
}

QString ListFilePath(const QString& folder, const QString& listName, const QString& extension)
{
    const bool endsInSeparator = folder.endsWith(u'/') || folder.endsWith(QDir::separator());
    return folder + (endsInSeparator ? QString() : QString(QDir::separator())) + listName + extension.toLower();
}

bool IsCsvFile(const QString& path, TextNumber<0> extensionText)
{
    return StrEqualNoCase(LngStr(extensionText).right(3), QFileInfo(path).suffix());
}

bool MayWriteFile(const QString& path)
{
    const QFileInfo file(path);
    if (!file.exists())
        return true;
    if (IsWriteProtected(path)) {
        MsgOk1(TextId::FileIsReadOnly, path);
        return false;
    }
    return MsgYesNoDefNo1(TextId::OverwriteFile, file.fileName()) == MsgResult::Yes;
}

bool ListFileExists(const QString& path)
{
    const QFileInfo file(path);
    if (file.isFile())
        return true;
    if (file.isDir())
        MsgOkPrecise1(TextId::FileNotFound, TextId::FileIsFolder, path);
    else if (file.exists())
        MsgOkPrecise1(TextId::FileNotFound, TextId::FileNotOrdinary, path);
    else
        MsgOk2(TextId::FileNotFound, file.fileName(), QStringLiteral("1"));
    return false;
}

QString EditorTitle(TextNumber<0> titleText, const QString& fileName)
{
    const QString title = LngStr(titleText);
    return fileName.isEmpty() ? title : title + LngStr(TextId::TitleSeparator) + fileName;
}

} // namespace tarvik
