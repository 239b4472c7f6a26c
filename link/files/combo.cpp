#include "link/files/combo.h"

#include "app/message/message.h"
#include "app/text/textId.h"
#include "app/values/strings.h"
#include "link/files/fileList.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>

namespace tarvik {

namespace {

const QString kInstrRoot = QStringLiteral("\\");
const QString kIconOpen = QStringLiteral("OpenFolder");
const QString kIconClosed = QStringLiteral("ClosedFolder");
const QString kIconRoot = QStringLiteral("HardDrive");

QString PortablePath(const QString& path)
{
    return QDir(QDir::fromNativeSeparators(path)).absolutePath();
}

QString NativePath(const QString& path)
{
    return QDir::toNativeSeparators(path);
}

/// The folders below `root` down to and including `path`, topmost first.
QStringList FoldersBelow(const QString& root, const QString& path)
{
    QStringList folders;
    for (QString folder = path; folder != root && !PcFolderIsRoot(folder);
         folder = PortablePath(QFileInfo(folder).path()))
        folders.prepend(folder);
    return folders;
}

FolderItem DriveItem(const Drive& drive)
{
    return { DriveText(drive), DriveIcon(drive.Kind), NativePath(drive.Root), 0 };
}

bool HasFolder(const Drive& drive, const QString& path)
{
    return path == drive.Root || path.startsWith(PathWithSlash(drive.Root, u'/'));
}

/// Index of the innermost drive that contains the folder; the number of drives without one.
size_t DriveOfFolder(const std::vector<Drive>& drives, const QString& path)
{
    size_t found = drives.size();
    for (size_t at = 0; at < drives.size(); ++at) {
        const bool isInner = found == drives.size() || drives[at].Root.size() > drives[found].Root.size();
        if (HasFolder(drives[at], path) && isInner)
            found = at;
    }
    return found;
}

void ShowCurrent(FolderCombo& combo)
{
    const QString path = PortablePath(CurrentPcFolder());
    if (PcFolderIsRoot(path)) {
        FolderItem item = DriveItem(DriveAtRoot(path));
        item.Icon = kIconRoot;
        combo.Items = { item };
    } else {
        const auto depth = static_cast<int>(FoldersBelow({}, path).size());
        combo.Items = { { QFileInfo(path).fileName(), kIconOpen, NativePath(path), depth } };
    }
    combo.Selected = 0;
}

void AddChain(FolderCombo& combo, const QString& root, const QString& path)
{
    combo.Selected = static_cast<int>(combo.Items.size()) - 1;
    int level = 0;
    for (const QString& folder : FoldersBelow(root, path)) {
        const QString& icon = folder == path ? kIconOpen : kIconClosed;
        combo.Items.push_back({ QFileInfo(folder).fileName(), icon, NativePath(folder), ++level });
        combo.Selected = static_cast<int>(combo.Items.size()) - 1;
    }
}

void ShowDrives(FolderCombo& combo)
{
    const QString path = PortablePath(CurrentPcFolder());
    const size_t owner = DriveOfFolder(combo.Drives, path);
    if (owner == combo.Drives.size()) { // on a volume mounted later, or not for users
        ShowCurrent(combo);
        return;
    }
    combo.Items.clear();
    int selected = -1;
    for (size_t at = 0; at < combo.Drives.size(); ++at) {
        combo.Items.push_back(DriveItem(combo.Drives[at]));
        if (at != owner)
            continue;
        AddChain(combo, combo.Drives[at].Root, path);
        selected = combo.Selected;
    }
    combo.Selected = selected;
}

void GoTo(FolderCombo& combo, const QString& path)
{
    if (QFileInfo(path).isDir())
        CurrentPcFolder() = NativePath(PortablePath(path));
    ComboPcShow(combo);
}

FolderItem InstrItem(const QString& path)
{
    if (InstrFolderIsRoot(path))
        return { kInstrRoot, kIconRoot, kInstrRoot, 0 };
    return { path.mid(path.lastIndexOf(u'\\') + 1), kIconOpen, path, static_cast<int>(path.count(u'\\')) };
}

void ShowBlank(FolderCombo& combo)
{
    combo.Items = { FolderItem() };
    combo.Selected = 0;
}

void Close(FolderItem& item)
{
    if (!InstrFolderIsRoot(item.Path))
        item.Icon = kIconClosed;
}

/// Shows each directory from the root to the current one.
void ShowChain(FolderCombo& combo)
{
    QString path;
    if (ChannelGetDirectory(path) != ChannelStatus::Success) {
        ShowBlank(combo);
        return;
    }
    combo.Items = { InstrItem(path) };
    while (!InstrFolderIsRoot(path)) {
        path = InstrParentFolder(path);
        combo.Items.insert(combo.Items.begin(), InstrItem(path));
        Close(combo.Items.front());
    }
    combo.Selected = static_cast<int>(combo.Items.size()) - 1;
}

/// True if the instrument has changed its directory.
bool GoToInstr(const QString& path)
{
    const ChannelStatus status = ChannelSetDirectory(path);
    if (status == ChannelStatus::Refused)
        MsgOk(TextId::InstrumentFolderGone);
    return status == ChannelStatus::Success;
}

const FolderItem* ItemOf(const FolderCombo& combo, int item)
{
    const bool exists = item >= 0 && static_cast<size_t>(item) < combo.Items.size();
    return exists ? &combo.Items[static_cast<size_t>(item)] : nullptr;
}

} // namespace

void ComboPcShow(FolderCombo& combo)
{
    if (combo.Tag == FolderComboTag::Drives)
        ShowDrives(combo);
    else
        ShowCurrent(combo);
}

void ComboPcDropDown(FolderCombo& combo)
{
    if (combo.Tag == FolderComboTag::Current) {
        combo.Drives = TheDriveSource()->Drives();
        for (Drive& drive : combo.Drives)
            drive.Root = PortablePath(drive.Root);
        combo.Tag = FolderComboTag::Drives;
    }
    ComboPcShow(combo);
}

bool ComboPcUp(FolderCombo& combo)
{
    QString path = PortablePath(CurrentPcFolder());
    if (PcFolderIsRoot(path))
        return false;
    do
        path = QFileInfo(path).path();
    while (!PcFolderIsRoot(path) && !QFileInfo(path).isDir());
    GoTo(combo, path);
    return true;
}

void ComboPcEnter(FolderCombo& combo, const QString& name)
{
    GoTo(combo, PathWithSlash(PortablePath(CurrentPcFolder()), u'/') + name);
}

void ComboPcSelect(FolderCombo& combo, int item)
{
    if (const FolderItem* chosen = ItemOf(combo, item))
        GoTo(combo, QString(chosen->Path));
}

bool PcFolderIsRoot(const QString& path)
{
    return QDir(path).isRoot();
}

ChannelStatus ComboInstrShow(FolderCombo& combo)
{
    QString path;
    const ChannelStatus status = ChannelGetDirectory(path);
    ShowBlank(combo);
    if (status == ChannelStatus::Success)
        combo.Items = { InstrItem(path) };
    return status;
}

void ComboInstrDropDown(FolderCombo& combo)
{
    ShowChain(combo);
}

void ComboInstrUp(FolderCombo& combo)
{
    QString path;
    if (ChannelGetDirectory(path) == ChannelStatus::Success && GoToInstr(InstrParentFolder(path)))
        ShowChain(combo);
}

void ComboInstrEnter(FolderCombo& combo, const QString& name)
{
    if (!GoToInstr(name))
        return;
    const FolderItem parent = combo.Items.empty() ? FolderItem() : combo.Items[static_cast<size_t>(combo.Selected)];
    for (FolderItem& item : combo.Items)
        Close(item);
    const QString path = (InstrFolderIsRoot(parent.Path) ? QString() : parent.Path) + u'\\' + name;
    combo.Items.push_back({ name, kIconOpen, path, parent.Indentation + 1 });
    combo.Selected = static_cast<int>(combo.Items.size()) - 1;
}

bool ComboInstrSelect(FolderCombo& combo, int item)
{
    const FolderItem* chosen = ItemOf(combo, item);
    const bool isEntered = chosen != nullptr && !chosen->Path.isEmpty() && GoToInstr(chosen->Path);
    ShowChain(combo);
    return isEntered;
}

QString InstrParentFolder(const QString& path)
{
    const qsizetype last = path.lastIndexOf(u'\\');
    return last > 0 ? path.left(last) : kInstrRoot;
}

bool InstrFolderIsRoot(const QString& path)
{
    return path == kInstrRoot || path.isEmpty();
}

} // namespace tarvik
