// print/page/pageTable.h: the printed pages: which windows they show, and where. Lengths are inches on the sheet, from
// its upper left corner.
#pragma once

#include "app/settings/ini.h"
#include "screen/document/window.h"

#include <QRect>
#include <QSize>

#include <array>
#include <span>
#include <vector>

namespace tarvik {

inline constexpr int kPages = 500;
inline constexpr int kWindowsPerPage = 10;
inline constexpr int kNoEntry = -1;

struct PageMargins {
    float Left = 0;
    float Top = 0;
    float Right = 0;
    float Bottom = 0;

    bool operator==(const PageMargins&) const = default;
};

struct SheetRect {
    float Left = 0;
    float Top = 0;
    float Width = 0;
    float Height = 0;

    float Right() const
    {
        return Left + Width;
    }
    float Bottom() const
    {
        return Top + Height;
    }
    bool operator==(const SheetRect&) const = default;
};

/// What the layout of pages knows of a window. Pixels on the screen.
struct WindowExtent {
    WindowType Type = WindowType::Free;
    QSize Graph; ///< `PbGraph`
    int DescriptionHeight = 0; ///< with its line; 0 without
};

/// Parts of an entry's height, which add up to 1.
struct EntryShares {
    float Title = 0;
    float Picture = 1;
    float Description = 0;
    float Status = 0; ///< 0: a status panel is not printed
};

/// A window on a page.
struct PageEntry {
    SheetRect Rectangle;
    QRect Pixels; ///< the same in the picture of the preview
    WindowId Window = 0;
    WindowExtent Extent;
    bool Outline = false; ///< a box is drawn around it
    bool Title = false; ///< its title line is drawn
    EntryShares Shares;
    bool Repaint = false; ///< the preview has to compose it again
    int Order = 0; ///< stacking order, lowest drawn first; of equal ones the earlier entry
};

/// A remembered position.
struct PageSlot {
    qint32 Type = 0; ///< window type; 0: none
    IniRect Rectangle; ///< all -1: undefined
    bool Title = true;
    bool Outline = true;
    qint32 Order = 0;
};
using PageSlots = std::array<PageSlot, kWindowsPerPage>;

struct PageRecord {
    PageMargins Margins;
    int Count = 0; ///< of the entries in use
    std::array<PageEntry, kWindowsPerPage> Entries;
    PageSlots Layout;
    bool BlackAndWhite = false; ///< pictures are printed in black and white
    int FrontEntry = kNoEntry; ///< the one of the highest order; selected in the preview

    std::span<PageEntry> InUse()
    {
        return { Entries.data(), static_cast<size_t>(Count) };
    }
    std::span<const PageEntry> InUse() const
    {
        return { Entries.data(), static_cast<size_t>(Count) };
    }
};

struct PageState {
    std::vector<PageRecord> Table = std::vector<PageRecord>(kPages);
    int Present = 0; ///< the page whose layout and margins come from the settings file and go there
};

/// `PageTable` and the present page.
PageState& ThePages();
PageRecord& PresentPage();

/// Clears windows and front entry of a page; margins and layout stay.
void ClearPage(PageRecord& page);

/// The entry that is drawn last; kNoEntry on an empty page.
int HighestEntry(const PageRecord& page);

/// Brings an entry to the front; the others keep their order among themselves. Orders become the ranks from 0.
void BringToFront(PageRecord& page, int entry);

/// Indices of the entries as they are drawn.
std::array<int, kWindowsPerPage> DrawingOrder(const PageRecord& page);

} // namespace tarvik
