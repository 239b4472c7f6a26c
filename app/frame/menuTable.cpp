// The table itself: the menu bar, the pop-ups and the tool bar. A row's position is its place in the menu.
#include "app/frame/menu.h"

namespace tarvik {

namespace {

using Rule = EnableRule;

constexpr MenuEntry kSeparator{ nullptr, 0, 0, Command::None, Rule::Untouched, kNoPicture, false };

/// The help number of a menu item is the one behind its text number.
constexpr MenuEntry Item(const char* name, int text, Command run, Rule when, int picture = kNoPicture)
{
    return { name, text, text + 1, run, when, picture, false };
}

constexpr MenuEntry Check(const char* name, int text, Command run, Rule when)
{
    return { name, text, text + 1, run, when, kNoPicture, true };
}

constexpr MenuEntry Menu(const char* name, int text)
{
    return { name, text, text + 1, Command::None, Rule::Act, kNoPicture, false };
}

std::vector<MenuGroup> MakeMenuBar()
{
    return {
        { Menu("MnFile", 11902),
            { Item("MnFileOpen", 11904, Command::FileOpen, Rule::Untouched, 1),
                Item("MnFileClose", 11906, Command::FileClose, Rule::Document),
                Item("MnFileSaveAs", 11908, Command::FileSaveAs, Rule::Document, 2), kSeparator,
                Item("MnFileTvConvert", 11910, Command::FileConvert, Rule::Untouched), kSeparator,
                Item("MnFilePageSetup", 11912, Command::FilePageSetup, Rule::Untouched),
                Item("MnFilePrintSetup", 11914, Command::FilePrintSetup, Rule::Untouched), kSeparator,
                Item("MnFilePrintPreview", 11916, Command::FilePrintPreview, Rule::Document, 4),
                Item("MnFilePrint", 11918, Command::FilePrint, Rule::Document, 3), kSeparator,
                Item("MnFileExit", 11920, Command::FileExit, Rule::Untouched) } },
        { Menu("MnEdit", 11922), { Item("MnEditCopyGraph", 11924, Command::EditCopyGraph, Rule::Document, 5) } },
        { Menu("MnView", 11926),
            { Check("MnViewDescription", 11928, Command::ViewDescription, Rule::Description), kSeparator,
                Check("MnViewToolbar", 11930, Command::ViewToolbar, Rule::Untouched),
                Check("MnViewStatusBar", 11932, Command::ViewStatusBar, Rule::Untouched) } },
        { Menu("MnInstr", 11934),
            { Item("MnInstrDispSc", 11936, Command::LiveScreen, Rule::Link, 16), kSeparator,
                Item("MnInstrAntennaListControl", 11980, Command::Control1, Rule::Link, 6),
                Item("MnInstrKfactorControl", 11982, Command::Control2, Rule::Link, 7),
                Item("MnInstrMemoryListControl", 11984, Command::Control3, Rule::Link, 8),
                Item("MnInstrSuppressListControl", 11986, Command::Control4, Rule::Link, 9),
                Item("MnInstrCorrectionSetControl", 11988, Command::Control6, Rule::Link, 10), kSeparator,
                Item("MnInstrConnect", 11938, Command::Connect, Rule::Untouched, 0) } },
        { Menu("MnTools", 11942),
            { Item("MnToolsAntennaListEditor", 11990, Command::Editor1, Rule::Untouched, 11),
                Item("MnToolsKfactorEditor", 11992, Command::Editor2, Rule::Untouched, 12),
                Item("MnToolsMemoryListEditor", 11994, Command::Editor3, Rule::Untouched, 13),
                Item("MnToolsSuppressListEditor", 11996, Command::Editor4, Rule::Untouched, 14),
                Item("MnToolsCorrectionSetEditor", 11998, Command::Editor6, Rule::Untouched, 15) } },
        { Menu("MnOptions", 11944),
            { Item("MnOptionsDescr", 11946, Command::OptionsDescription, Rule::DescriptionShown),
                Item("MnOptionsColor", 11948, Command::OptionsColor, Rule::Document) } },
        { Menu("MnWindow", 11950),
            { Item("MnWindowCascade", 11952, Command::Arrange0, Rule::Shown),
                Item("MnWindowTileHoriz", 11954, Command::Arrange1, Rule::Shown),
                Item("MnWindowTileVert", 11956, Command::Arrange2, Rule::Shown),
                Check("MnWindowAutotile", 11958, Command::AutoTile, Rule::Untouched),
                Item("MnWindowArrangeIcons", 11960, Command::Arrange3, Rule::Minimised), kSeparator,
                Item("MnWindowDefSize", 11962, Command::DefaultSize, Rule::OffDefaultSize), kSeparator,
                Item("MnWindowClose", 11964, Command::WindowClose, Rule::Document),
                Item("MnWindowCloseAll", 11966, Command::WindowCloseAll, Rule::Document) } },
        { Menu("MnHelp", 11968),
            { Item("MnHelpContents", 11970, Command::HelpContents, Rule::Untouched),
                Item("MnHelpIndex", 11972, Command::HelpIndex, Rule::Untouched),
                Item("MnHelpSearch", 11974, Command::HelpSearch, Rule::Untouched), kSeparator,
                Item("MnHelpWhatsThis", 11976, Command::HelpWhatsThis, Rule::Untouched, 20), kSeparator,
                Item("MnHelpSupport", 11978, Command::HelpSupport, Rule::Untouched),
                Item("MnHelpAbout", 11900, Command::HelpAbout, Rule::Untouched) } },
    };
}

/// An entry under another name, with everything else of the main entry `main`.
MenuEntry Twin(const char* name, const char* main)
{
    MenuEntry entry = *MenuFind(QString::fromLatin1(main));
    entry.Name = name;
    return entry;
}

/// The same, running a command of its own.
MenuEntry Twin(const char* name, const char* main, Command run)
{
    MenuEntry entry = Twin(name, main);
    entry.Run = run;
    return entry;
}

constexpr MenuEntry Popup(const char* name)
{
    return { name, 0, 0, Command::None, Rule::Act, kNoPicture, false };
}

std::vector<MenuEntry> FrameAreaItems()
{
    return { Twin("ClMnFileOpen", "MnFileOpen"), kSeparator, Twin("ClMnViewToolbar", "MnViewToolbar"),
        Twin("ClMnViewStatusBar", "MnViewStatusBar"), kSeparator, Twin("ClMnInstrDispSc", "MnInstrDispSc"),
        Item("ClMnInstrScreenShotControl", 12000, Command::Control5, Rule::Untouched),
        Twin("ClMnInstrAntennaListControl", "MnInstrAntennaListControl"),
        Twin("ClMnInstrKfactorControl", "MnInstrKfactorControl"),
        Twin("ClMnInstrMemoryListControl", "MnInstrMemoryListControl"),
        Twin("ClMnInstrSuppressListControl", "MnInstrSuppressListControl"),
        Twin("ClMnInstrCorrectionSetControl", "MnInstrCorrectionSetControl"), kSeparator,
        Twin("ClMnInstrConnect", "MnInstrConnect") };
}

/// Printing from a document's own menu always goes by way of the preview.
std::vector<MenuGroup> MakePopups()
{
    return { { Popup("ClMn"), FrameAreaItems() },
        { Popup("ScMn"),
            { Twin("ScMnFilePrint", "MnFilePrint", Command::FilePrintPreview), kSeparator,
                Twin("ScMnEditCopyGraphics", "MnEditCopyGraph"), kSeparator,
                Twin("ScMnViewDescription", "MnViewDescription"), Twin("ScMnOptionsDescr", "MnOptionsDescr") } },
        { Popup("SwMn"),
            { Twin("SwMnFilePrint", "MnFilePrint", Command::FilePrintPreview), kSeparator,
                Twin("SwMnEditCopyGraphics", "MnEditCopyGraph"), kSeparator,
                Twin("SwMnViewDescription", "MnViewDescription"), Twin("SwMnOptionsDescr", "MnOptionsDescr"),
                Twin("SwMnOptionsColor", "MnOptionsColor") } },
        { Popup("SbMn"), { Twin("SbMnHide", "MnViewStatusBar") } },
        { Popup("TbMn"), { Twin("TbMnHide", "MnViewToolbar") } } };
}

const MenuEntry* FindIn(const std::vector<MenuGroup>& groups, const QString& name)
{
    for (const MenuGroup& group : groups) {
        if (name == QLatin1String(group.Head.Name))
            return &group.Head;
        for (const MenuEntry& entry : group.Items) {
            if (entry.Name != nullptr && name == QLatin1String(entry.Name))
                return &entry;
        }
    }
    return nullptr;
}

} // namespace

const std::vector<MenuGroup>& MenuBarTable()
{
    static const std::vector<MenuGroup> table = MakeMenuBar();
    return table;
}

const std::vector<MenuGroup>& PopupTable()
{
    static const std::vector<MenuGroup> table = MakePopups();
    return table;
}

const MenuEntry* MenuFind(const QString& name)
{
    return FindIn(MenuBarTable(), name);
}

const MenuGroup* PopupFind(const QString& name)
{
    for (const MenuGroup& group : PopupTable()) {
        if (name == QLatin1String(group.Head.Name))
            return &group;
    }
    return nullptr;
}

const std::array<ToolButton, kToolButtons>& ToolBarTable()
{
    static constexpr std::array<ToolButton, kToolButtons> table{ {
        { Command::Connect, 13819, 13821, 13822, Rule::Act, "connect" },
        { Command::FileOpen, 13801, 13802, 13803, Rule::Act, "open" },
        { Command::FileSaveAs, 13804, 13805, 13806, Rule::Document, "saveas" },
        { Command::FilePrintNow, 13807, 13808, 13809, Rule::Document, "print" },
        { Command::FilePrintPreview, 13810, 13811, 13812, Rule::Document, "preview" },
        { Command::EditCopyGraph, 13813, 13814, 13815, Rule::Document, "copy" },
        { Command::Control1, 13837, 13838, 13839, Rule::Link, "antenna-control" },
        { Command::Control2, 13843, 13844, 13845, Rule::Link, "kfactor-control" },
        { Command::Control3, 13849, 13850, 13851, Rule::Link, "memory-control" },
        { Command::Control4, 13855, 13856, 13857, Rule::Link, "suppress-control" },
        { Command::Control6, 13861, 13862, 13863, Rule::Link, "correction-control" },
        { Command::Editor1, 13840, 13841, 13842, Rule::Act, "antenna-editor" },
        { Command::Editor2, 13846, 13847, 13848, Rule::Act, "kfactor-editor" },
        { Command::Editor3, 13852, 13853, 13854, Rule::Act, "memory-editor" },
        { Command::Editor4, 13858, 13859, 13860, Rule::Act, "suppress-editor" },
        { Command::Editor6, 13864, 13865, 13866, Rule::Act, "correction-editor" },
        { Command::LiveScreen, 13816, 13817, 13818, Rule::Link, "livescreen" },
        { Command::None, 13827, 13828, 13829, Rule::Never, "unused" },
        { Command::None, 13830, 13831, 13832, Rule::Never, "unused" },
        { Command::None, 13833, 13834, 13835, Rule::Never, "unused" },
        { Command::HelpWhatsThis, 13824, 13825, 13826, Rule::Act, "whatsthis" },
    } };
    return table;
}

const std::vector<std::vector<int>>& ToolBarGroups()
{
    static const std::vector<std::vector<int>> groups{ { 0 }, { 1, 2, 3, 4, 5 }, { 16 }, { 6, 7, 8, 9, 10 },
        { 11, 12, 13, 14, 15 }, { 20 } };
    return groups;
}

} // namespace tarvik
