// link/files/combo.h: the two boxes of folders in the file control window, one for the PC and one for the instrument:
// their items, and the ways from one folder to another. What a box holds is data; a control shows it.
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

/// State of the PC's box.
enum FolderComboTag { FolderComboPresent = 0, FolderComboDrives = 1 };

struct FolderCombo {
    std::vector<FolderItem> Items;
    int Selected = -1;
    int Tag = FolderComboPresent; ///< whether the drives have been filled in
    std::vector<Drive> Drives; ///< as they were when they were filled in
};

/// Shows `CurrentPcFolder`: alone, or below its drive among all drives, by the tag.
void ComboPcShow(FolderCombo& combo);

/// Before the list drops down: the first time the drives are filled in.
void ComboPcDropDown(FolderCombo& combo);

/// One folder up, or to the nearest one above that is still there; false at a root.
[[nodiscard]] bool ComboPcUp(FolderCombo& combo);

/// Into a sub-folder, or to the folder of an item. One that is gone is not entered.
void ComboPcEnter(FolderCombo& combo, const QString& name);
void ComboPcSelect(FolderCombo& combo, int item);

/// True for a folder that has none above it.
bool PcFolderIsRoot(const QString& path);

/// Shows the instrument's directory alone, or a single blank item where it can't be read.
[[nodiscard]] ChannelStatus ComboInstrShow(FolderCombo& combo);

/// Before the list drops down: the directory with all those above it.
void ComboInstrDropDown(FolderCombo& combo);

/// One directory up. Message 12747 when the instrument doesn't have it.
void ComboInstrUp(FolderCombo& combo);

/// Into a sub-directory. Message 12747 when the instrument doesn't have it.
void ComboInstrEnter(FolderCombo& combo, const QString& name);

/// To the directory of an item; true when the list is to be read again. Message 12747 as above.
[[nodiscard]] bool ComboInstrSelect(FolderCombo& combo, int item);

/// The directory above an absolute one; the root for one of the first level and for the root.
QString InstrFolderAbove(const QString& path);

bool InstrFolderIsRoot(const QString& path);

} // namespace tarvik
