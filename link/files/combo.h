// link/files/combo.h: the two folder boxes of the file control window, one for the PC and one for the instrument: their
// items, and changing the folder. Data only; FolderComboBox shows it.
#pragma once

#include "link/channel/channel.h"
#include "link/files/drives.h"

#include <QString>

#include <vector>

namespace tarvik {

struct FolderItem {
    QString Text;
    QString Icon; ///< key of the image list
    QString Path; ///< full path
    int Indentation = 0; ///< levels

    bool operator==(const FolderItem&) const = default;
};

/// What the PC's box lists: the current folder alone, or the drives.
enum class FolderComboTag { Current = 0, Drives = 1 };

struct FolderCombo {
    std::vector<FolderItem> Items;
    int Selected = -1;
    FolderComboTag Tag = FolderComboTag::Current; ///< Drives after the first drop-down
    std::vector<Drive> Drives; ///< as read at the first drop-down
};

/// Shows `CurrentPcFolder` alone or, by the tag, below its drive among all drives.
void ComboPcShow(FolderCombo& combo);

/// Before the list drops down; reads the drives the first time.
void ComboPcDropDown(FolderCombo& combo);

/// One folder up, or to the nearest parent that still exists; false at a root.
[[nodiscard]] bool ComboPcUp(FolderCombo& combo);

/// Enters a subfolder, or the folder of an item, if it exists.
void ComboPcEnter(FolderCombo& combo, const QString& name);
void ComboPcSelect(FolderCombo& combo, int item);

/// True for a folder without a parent.
bool PcFolderIsRoot(const QString& path);

/// Shows the instrument's directory alone, or a single blank item if it can't be read.
[[nodiscard]] ChannelStatus ComboInstrShow(FolderCombo& combo);

/// Before the list drops down: shows the directory with all its parents.
void ComboInstrDropDown(FolderCombo& combo);

/// One directory up. Message 12747 when the instrument doesn't have it.
void ComboInstrUp(FolderCombo& combo);

/// Enters a subdirectory. Message 12747 when the instrument doesn't have it.
void ComboInstrEnter(FolderCombo& combo, const QString& name);

/// Enters the directory of an item; true when the list must be read again. Message 12747 as above.
[[nodiscard]] bool ComboInstrSelect(FolderCombo& combo, int item);

/// The parent of an absolute directory; the root's is the root.
QString InstrParentFolder(const QString& path);

bool InstrFolderIsRoot(const QString& path);

} // namespace tarvik
