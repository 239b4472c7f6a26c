#include "lists/editor/editorGeneral.h"

#include "app/message/message.h"
#include "app/platform/paths.h"
#include "app/platform/processState.h"
#include "app/state/frameHooks.h"
#include "app/text/ansi.h"
#include "app/text/lang.h"
#include "app/values/strings.h"
#include "link/classes/model.h"
#include "lists/values/limits.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <array>
#include <utility>

namespace tarvik {

namespace {

constexpr int kTextFileNameParting = 10743;
constexpr int kTextSaveFolder = 10775;
constexpr int kTextOpenTitle = 11004;
constexpr int kTextFilterCsvAndList = 11001;
constexpr int kTextFilterCsv = 11002;
constexpr int kTextReadOnly = 12728;
constexpr int kTextOverwrite = 12734;
constexpr int kTextFileNotFound = 12780;

/// Texts of the list types that have a CSV form.
struct CsvListTexts {
    int Type;
    int Keyword;
    int Filter;
};
constexpr std::array kCsvLists{ CsvListTexts{ FileClassAntennaList, 10753, 10751 },
    CsvListTexts{ FileClassKfactorTable, 10758, 10756 }, CsvListTexts{ FileClassMemoryList, 10763, 10761 },
    CsvListTexts{ FileClassSuppressList, 10768, 10766 } };
constexpr int kTextFilterCorrectionSet = 10771;

class NoEditors final : public ListEditors {
public:
    bool HasEditor(int) const override
    {
        return false;
    }
    void ShowEditor(int) override { }
};

/// True where "A" and "a" name the same file.
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
        return { LngStr(kTextFilterCorrectionSet) + QStringLiteral("|*") + extension };
    QStringList filters{ LngStr1(kTextFilterCsvAndList, extension.toUpper()) + QStringLiteral("|*.csv;*") + extension,
        LngStr(kTextFilterCsv) + QStringLiteral("|*.csv") };
    for (const CsvListTexts& list : kCsvLists) {
        if (list.Type == Editor().EditorType)
            filters.append(LngStr(list.Filter) + QStringLiteral("|*") + extension);
    }
    return filters;
}

/// Takes the status bar out of use for as long as an editor is open. One editor may open another.
class StatusBarOff {
public:
    StatusBarOff()
        : wasOpen_(std::exchange(Editor().EditorIsOpen, true))
    {
        TheFrameHooks().EnableStatusBar(false);
    }
    ~StatusBarOff()
    {
        Editor().EditorIsOpen = wasOpen_;
        TheFrameHooks().EnableStatusBar(!wasOpen_);
    }
    StatusBarOff(const StatusBarOff&) = delete;
    StatusBarOff& operator=(const StatusBarOff&) = delete;

private:
    bool wasOpen_;
};

} // namespace

EditorState& Editor()
{
    static ProcessState<EditorState> state;
    return state.Get();
}

bool IsListType(int listType)
{
    return listType >= FileClassAntennaList && listType <= FileClassCorrectionSet && listType != FileClassScreenShot;
}

Port<ListEditors>& TheListEditors()
{
    static PortOr<ListEditors, NoEditors> port;
    return port;
}

void OpenEditor(int listType)
{
    if (!IsListType(listType) || !TheListEditors()->HasEditor(listType))
        return;
    ReadInstrumentLimits();
    SetEditorType(listType);
    const StatusBarOff off;
    TheListEditors()->ShowEditor(listType);
}

void SetEditorType(int listType)
{
    ModFileInit(listType);
    Editor().EditorType = listType;
    Editor().ListExtension = ModGetExtension(FileClasses().CurrentFileClass).toLower();
}

int ListTypeOfFile(const QString& path)
{
    constexpr qint64 kLongerThanAnyKeyword = 256;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return FileClassUnknown;
    const QString start = FromAnsi(file.read(kLongerThanAnyKeyword));
    for (const CsvListTexts& list : kCsvLists) {
        const QString keyword = LngStr(list.Keyword);
        if (!keyword.isEmpty() && start.startsWith(keyword, Qt::CaseInsensitive))
            return list.Type;
    }
    return FileClassUnknown;
}

int OpenListFile(const QString& path, bool show)
{
    const int type = ListTypeOfFile(path);
    if (type == FileClassUnknown || !show)
        return type;
    ModFileInit(type);
    Editor().EditorOpenFile = path;
    OpenEditor(type);
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
    const QString& remembered = FileClasses().PcPaths[static_cast<size_t>(FileClasses().CurrentFileClass)];
    return !remembered.isEmpty() && QFileInfo(remembered).isDir() ? remembered : QDir::currentPath();
}

QString OpenListDialog(const QString& initialFolder)
{
    return TheSeams().OpenFile({ LngStr(kTextOpenTitle), initialFolder, OpenFilters() });
}

QString SaveFolderDialog(const QString& fileName)
{
    return TheSeams().BrowseFolder({ LngStr1(kTextSaveFolder, fileName), EditorDefaultFolder() });
}

void RememberFolderOfFile(const QString& path)
{
    RememberFolder(QFileInfo(path).absolutePath());
}

void RememberFolder(const QString& folder)
{
    const QString trimmed = folder.trimmed();
    FileClasses().PcPaths[static_cast<size_t>(FileClasses().CurrentFileClass)] =
        IgnoresCase() ? trimmed.toUpper() : trimmed;
}

QString ListFilePath(const QString& folder, const QString& listName, const QString& extension)
{
    const bool endsInSeparator = folder.endsWith(u'/') || folder.endsWith(QDir::separator());
    return folder + (endsInSeparator ? QString() : QString(QDir::separator())) + listName + extension.toLower();
}

bool IsCsvFile(const QString& path, int extensionText)
{
    return StrEqualNoCase(LngStr(extensionText).right(3), QFileInfo(path).suffix());
}

bool MayWriteFile(const QString& path)
{
    const QFileInfo file(path);
    if (!file.exists())
        return true;
    if (IsWriteProtected(path)) {
        MsgOk1(kTextReadOnly, path);
        return false;
    }
    return MsgYesNoDefNo1(kTextOverwrite, file.fileName()) == MsgResultYes;
}

bool ListFileExists(const QString& path)
{
    const QFileInfo file(path);
    if (file.isFile())
        return true;
    MsgOk2(kTextFileNotFound, file.fileName(), QStringLiteral("1"));
    return false;
}

QString EditorTitle(int titleText, const QString& fileName)
{
    const QString title = LngStr(titleText);
    return fileName.isEmpty() ? title : title + LngStr(kTextFileNameParting) + fileName;
}

} // namespace tarvik
