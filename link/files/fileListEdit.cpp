#include "app/text/textId.h"
#include "link/files/fileList.h"

#include "app/message/message.h"
#include "app/platform/paths.h"
#include "app/text/ansi.h"
#include "app/text/lang.h"
#include "closed/loader.h"
#include "link/channel/channel.h"
#include "link/channel/linkFailure.h"
#include "link/classes/model.h"
#include "link/classes/textRules.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

/// Looks in the current folder, whatever the class.
constexpr FileClass kAnyFile = FileClassScreenShot;

const QString kNewFolder = QStringLiteral("New Folder");

QString NumberedFolder(int number)
{
    return kNewFolder + QStringLiteral(" (%1)").arg(number);
}

bool IsFolder(const QString& name)
{
    return QFileInfo(PcFilePath(name)).isDir();
}

bool IsFile(const QString& name)
{
    return QFileInfo(PcFilePath(name)).isFile();
}

/// True for a dangling link too.
bool IsTaken(const QString& name)
{
    const QFileInfo info(PcFilePath(name));
    return info.exists() || info.isSymLink();
}

bool IsSameIgnoringCase(const QString& first, const QString& second)
{
    return first.compare(second, Qt::CaseInsensitive) == 0;
}

/// False for a name that leads into another folder.
bool IsBareName(const QString& name)
{
    return !name.contains(u'/') && !name.contains(QDir::separator());
}

void SetName(FileListRow& row, const QString& key, const QString& text)
{
    row.Key = key;
    row.Text = text;
}

bool TrimmedNameIsMissing(QString& newName)
{
    newName = newName.trimmed();
    if (newName.isEmpty())
        MsgOk(TextId::FileNameMissing);
    return newName.isEmpty();
}

/// Operations of the list store on one class.
struct ListStoreCalls {
    FileClass Class;
    decltype(TvFioApi::MemoryListClear) Clear;
    decltype(TvFioApi::MemoryListLoadFile) LoadFile;
    decltype(TvFioApi::MemoryListSetName) SetName;
    decltype(TvFioApi::MemoryListSaveFile) SaveFile;
};

std::array<ListStoreCalls, 4> AllListStoreCalls()
{
    const TvFioApi& fio = TvFio();
    return { {
        { FileClassAntennaList, fio.AntennaListClear, fio.AntennaListLoadFile, fio.AntennaListSetName,
            fio.AntennaListSaveFile },
        { FileClassKfactorTable, fio.KfactorTableClear, fio.KfactorTableLoadFile, fio.KfactorTableSetName,
            fio.KfactorTableSaveFile },
        { FileClassMemoryList, fio.MemoryListClear, fio.MemoryListLoadFile, fio.MemoryListSetName,
            fio.MemoryListSaveFile },
        { FileClassSuppressList, fio.SuppressListClear, fio.SuppressListLoadFile, fio.SuppressListSetName,
            fio.SuppressListSaveFile },
    } };
}

/// Gives the list in the file the name of the file. A file that can't be read is left as it is, without a message.
void RenameListInFile(const QString& path, const QString& listName)
{
    const auto all = AllListStoreCalls();
    const auto calls = std::find_if(
        all.begin(), all.end(), [](const ListStoreCalls& row) { return row.Class == FileClasses().CurrentFileClass; });
    if (calls == all.end() || !ModuleIsBound(Module::ListStore))
        return;
    const QByteArray file = ModulePath(path);
    int16_t status = 0;
    calls->Clear(&status);
    if (status == 0)
        calls->LoadFile(&status, file.constData());
    if (status == 0)
        calls->SetName(&status, listName.toLatin1().constData());
    if (status == 0)
        calls->SaveFile(&status, file.constData());
}

bool RenamePcFolder(FileListRow& row, const QString& newName)
{
    if (IsTaken(newName)) {
        MsgOk1(TextId::FileNameInUse, newName);
        return false;
    }
    if (!IsBareName(newName) || !QDir().rename(PcFilePath(row.Text), PcFilePath(newName))) {
        MsgOk(TextId::FolderNotRenamed);
        return false;
    }
    SetName(row, u'F' + newName, newName);
    return true;
}

/// False after a message.
bool CanTakeName(const FileListRow& row, const QString& newName)
{
    if (IsFolder(newName) || (IsFile(newName) && !IsSameIgnoringCase(newName, row.Key))) {
        MsgOk1(TextId::FileNameInUse, newName);
        return false;
    }
    if (!ValidNameChars(FileBaseName(newName))) {
        MsgOk2(TextId::BadFileName, newName, LngStr(ModCaption(CaptionSlot::Noun)));
        return false;
    }
    if (!IsSameIgnoringCase(FileExtension(newName), FileExtension(row.Key))) {
        MsgOk(TextId::ExtensionNotChanged);
        return false;
    }
    return true;
}

bool RenamePcFile(FileListRow& row, const QString& newName)
{
    if (!CanTakeName(row, newName))
        return false;
    if (IsSameIgnoringCase(newName, row.Key))
        return true;
    if (IsTaken(newName)) {
        MsgOk1(TextId::FileNameInUse, newName);
        return false;
    }
    if (!QDir().rename(PcFilePath(row.Key), PcFilePath(newName))) {
        MsgOk1(TextId::FileNotRenamed, row.Text);
        return false;
    }
    RenameListInFile(PcFilePath(newName), FileBaseName(newName));
    SetName(row, newName, newName);
    return true;
}

/// False for a name that must not be sent to the instrument.
bool CanBeInstrName(const QString& name)
{
    const bool hasSeparator =
        std::any_of(name.begin(), name.end(), [](QChar letter) { return QStringView(u"\\/:").contains(letter); });
    return IsAnsi(name) && !hasSeparator && name != QLatin1String(".") && name != QLatin1String("..");
}

/// False if the list must keep the old text.
bool RenameInstrFolder(FileListRow& row, const QString& oldName, const QString& newName)
{
    if (!CanBeInstrName(newName)) {
        MsgOk1(TextId::InstrumentFolderNotRenamed, oldName);
        return false;
    }
    ChannelFound taken;
    if (ChannelFind(kAnyFile, newName, taken) != ChannelStatus::Success)
        return true;
    if (taken.Result != ChannelPresence::Missing) {
        MsgOk1(TextId::FileNameInUse, newName);
        return false;
    }
    if (ChannelRename(oldName, newName) != ChannelStatus::Success) {
        MsgOk1(TextId::InstrumentFolderNotRenamed, oldName);
        return false;
    }
    SetName(row, u'F' + newName, newName);
    return true;
}

/// The instrument itself checks whether the new name is free.
bool RenameInstrFile(FileListRow& row, const QString& oldName, const QString& newName)
{
    const bool canRename = FileClasses().CurrentFileClass == FileClassScreenShot;
    if (!canRename || ChannelRename(oldName, newName) != ChannelStatus::Success) {
        MsgOk1(TextId::FileNotRenamed, row.Text);
        return false;
    }
    SetName(row, u'F' + newName, newName);
    return true;
}

bool RenameInstrRow(FileListRow& row, const QString& newName)
{
    const QString oldName = TransferIsFolderRow(row) ? row.Text : row.Key;
    ChannelFound found;
    if (ChannelFind(kAnyFile, oldName, found) != ChannelStatus::Success) {
        (void)ReportLinkFailure();
        return false;
    }
    if (found.Result != ChannelPresence::Exists)
        return false;
    if (found.Type == ChannelRowType::Folder)
        return RenameInstrFolder(row, oldName, newName);
    return found.Type != ChannelRowType::File || RenameInstrFile(row, oldName, newName);
}

void DeselectAll(FileList& list)
{
    const FileListChange change(*list.View);
    for (FileListRow& row : list.Rows)
        row.Selected = false;
}

/// Shows the new folder as the only selected row and edits its name.
void ShowNewFolder(FileList& list, const QString& name)
{
    {
        const FileListChange change(*list.View);
        TransferAddRow(list, name, ChannelRowType::Folder, {});
        list.Rows.back().Selected = true;
        list.CurrentRow = static_cast<int>(list.Rows.size()) - 1;
        TransferKeepSorted(list);
    }
    list.View->GiveFocus();
    list.View->StartLabelEdit(list.CurrentRow);
}

/// Looks for a free name in the instrument's folder; the last one tried is used even if it is taken.
ChannelStatus FindFreeInstrName(QString& name)
{
    constexpr int kLastNumber = 100;
    ChannelFound found;
    name = kNewFolder;
    ChannelStatus err = ChannelFind(kAnyFile, name, found);
    if (err != ChannelStatus::Success)
        return err;
    const auto isTaken = [&] { return found.Result == ChannelPresence::Exists && err != ChannelStatus::LinkFailed; };
    for (int number = 2; number <= kLastNumber && isTaken(); ++number) {
        name = NumberedFolder(number);
        err = ChannelFind(kAnyFile, name, found);
    }
    return err;
}

bool HasRow(const FileList& list, int row)
{
    return row >= 0 && row < static_cast<int>(list.Rows.size());
}

FileListRow& RowAt(FileList& list, int row)
{
    return list.Rows[static_cast<size_t>(row)];
}

} // namespace

void TransferRenamePc(FileList& list, int row, QString& newName, bool& cancel)
{
    cancel = true;
    if (!HasRow(list, row) || TrimmedNameIsMissing(newName))
        return;
    FileListRow& renamed = RowAt(list, row);
    if (IsFolder(renamed.Text))
        cancel = !RenamePcFolder(renamed, newName);
    else if (IsFile(renamed.Key))
        cancel = !RenamePcFile(renamed, newName);
    else
        list.View->GiveFocus();
}

void TransferRenameInstr(FileList& list, int row, QString& newName, bool& cancel)
{
    cancel = true;
    if (HasRow(list, row) && !TrimmedNameIsMissing(newName))
        cancel = !RenameInstrRow(RowAt(list, row), newName);
}

void TransferNewFolderPc(FileList& list)
{
    DeselectAll(list);
    QString name = kNewFolder;
    for (int number = 2; IsTaken(name); ++number)
        name = NumberedFolder(number);
    if (QDir().mkdir(PcFilePath(name)))
        ShowNewFolder(list, name);
}

void TransferNewFolderInstr(FileList& list)
{
    DeselectAll(list);
    QString name;
    if (FindFreeInstrName(name) != ChannelStatus::Success || ChannelCreateDirectory(name) != ChannelStatus::Success) {
        MsgOk(TextId::InstrumentFolderNotMade);
        return;
    }
    ShowNewFolder(list, name);
}

} // namespace tarvik
