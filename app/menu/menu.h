// app/menu/menu.h: the one table of menu items, tool bar buttons and their pop-up twins, and the rules of what is
// enabled.
#pragma once

#include "app/menu/commands.h"
#include "app/menu/frameDocuments.h"
#include "app/text/textNumber.h"

#include <QString>

#include <array>
#include <optional>
#include <vector>

namespace tarvik {

/// When a menu item or button is enabled. Items of a menu follow their rule only while their menu is enabled.
enum class EnableRule {
    Untouched, ///< enabled from the start, never changed
    Act, ///< the program has started and can act
    Document, ///< and a document window is active
    Link, ///< and the link is up
    Shown, ///< and a document window is not minimised
    Minimised, ///< and a document window is minimised
    OffDefaultSize, ///< and the active document window does not have its default size
    Description, ///< and the active document window is not maximised
    DescriptionShown, ///< and its description is visible too
    RecentFiles, ///< and a file was opened or saved in this run
    Never
};

inline constexpr int kNoPicture = -1;

/// An item of a menu. An item without a name is a separator.
struct MenuEntry {
    const char* Name;
    TextNumber<0> Text; ///< caption
    int Help; ///< help number
    Command Run;
    EnableRule When;
    int Picture; ///< index of the tool bar button with the same picture
    bool HasCheck; ///< the item shows a state
};

struct MenuGroup {
    MenuEntry Head;
    std::vector<MenuEntry> Items; ///< by position
};

/// The menu bar, left to right.
const std::vector<MenuGroup>& MenuBarTable();

/// The right-click menus: `ClMn`, `ScMn`, `SwMn`, `SbMn`, `TbMn`. A twin has the numbers, the rule and the check of
/// the main entry whose name it repeats.
const std::vector<MenuGroup>& PopupTable();

/// Item `name` of the menu bar; null without one.
const MenuEntry* MenuFind(const QString& name);

/// Pop-up `name`; null without one.
const MenuGroup* PopupFind(const QString& name);

inline constexpr int kToolButtons = 21;

struct ToolButton {
    Command Run;
    TextNumber<0> Tip;
    TextNumber<0> Hint; ///< on the status line
    int Help;
    EnableRule When;
    const char* Picture; ///< file name of the picture, without folder and ending
};

/// `Cm[0]` to `Cm[20]`.
const std::array<ToolButton, kToolButtons>& ToolBarTable();

/// The groups of buttons from left to right; buttons in no group are never shown.
const std::vector<std::vector<int>>& ToolBarGroups();

inline constexpr int kToolButtonPitchTwips = 360;
inline constexpr int kToolGroupGapTwips = 120;

inline constexpr int kToolButtonConnect = 0;
inline constexpr int kToolButtonWhatsThis = 20;

/// A key of the frame, pressed with Ctrl.
struct FrameKey {
    int Key; ///< Qt::Key
    Command Run;
    EnableRule When;
};
const std::array<FrameKey, 6>& FrameKeys();

/// The caption without the key after its tab, unless `run` is the command of a key.
QString CaptionWithKey(const QString& caption, Command run);

/// Caption and help number of `MnInstrConnect` and its twin.
struct ConnectCaption {
    TextNumber<0> Text;
    int Help;
};
ConnectCaption ConnectCaptionFor(bool linkUp);

/// Text of the status line while an item is highlighted: the hint of the button that runs the same command or, for
/// printing, the same with another argument; none without one. Connecting has another hint while the link is up.
TextNumber<0> MenuHint(const MenuEntry& entry, bool linkUp);

/// A caption as the system shows it: the NT family has one blank at the end.
QString FrameCaption(const QString& text, bool isNtFamily);

/// Menu items have pictures only if the system's check mark is at least 13 pixels wide and high.
bool HasMenuPictures(int checkWidthPx, int checkHeightPx);

struct MenuInput {
    bool Started = false;
    bool CanAct = false;
    bool LinkUp = false;
    DocumentsState Documents;
    bool HasRecentFiles = false;
};

/// The state as it is now.
MenuInput MenuInputNow();

/// What an update writes. An empty optional leaves its item unchanged.
struct MenuOutcome {
    bool MenusEnabled = false; ///< every entry of the menu bar
    std::array<bool, kToolButtons> Buttons{};
    ConnectCaption Connect{};
    bool ResetLiveScreenCaption = false;
    std::optional<bool> DescriptionEnabled;
    std::optional<bool> DescriptionChecked;
    bool LinkUp = false; ///< which connection picture is visible

    /// State of a menu's item; empty if it is unchanged.
    std::optional<bool> Entry(const MenuEntry& entry) const;

    MenuInput Input;
};

/// Recomputes everything. Empty if the menus are already off and stay so. `menusDisabled` is the result of the last
/// update, and is updated.
std::optional<MenuOutcome> MenuCompute(const MenuInput& input, bool& menusDisabled);

/// True if `rule` holds, whether or not its menu is enabled.
bool RuleHolds(EnableRule rule, const MenuInput& input);

} // namespace tarvik
