// The table itself: the menu bar, the pop-ups and the tool bar. A row's position is its place in the menu.
#include "app/menu/menu.h"
#include "app/text/textId.h"

#include <QtCore/qnamespace.h>

namespace tarvik {

namespace {

using Rule = EnableRule;

constexpr MenuEntry kSeparator{ nullptr, {}, 0, Command::None, Rule::Untouched, kNoPicture, false };

/// The help number of a menu item is the one after its text number.
constexpr MenuEntry Item(const char* name, TextNumber<0> text, Command run, Rule when, int picture = kNoPicture)
{
    return { name, text, text.Number + 1, run, when, picture, false };
}

constexpr MenuEntry Check(const char* name, TextNumber<0> text, Command run, Rule when)
{
    return { name, text, text.Number + 1, run, when, kNoPicture, true };
}

constexpr MenuEntry Menu(const char* name, TextNumber<0> text)
{
    return { name, text, text.Number + 1, Command::None, Rule::Act, kNoPicture, false };
}

std::vector<MenuGroup> MakeMenuBar()
{
    return {
        { Menu("MnFile", TextId::MenuFile),
            { Item("MnFileOpen", TextId::MenuFileOpen, Command::FileOpen, Rule::Untouched, 1),
                Item("MnFileClose", TextId::MenuFileClose, Command::FileClose, Rule::Document),
                Item("MnFileSaveAs", TextId::MenuFileSaveAs, Command::FileSaveAs, Rule::Document, 2), kSeparator,
                Item("MnFileTvConvert", TextId::MenuFileConvert, Command::FileConvert, Rule::Untouched), kSeparator,
                Item("MnFilePageSetup", TextId::MenuFilePageSetup, Command::FilePageSetup, Rule::Untouched),
                Item("MnFilePrintSetup", TextId::MenuFilePrinterSetup, Command::FilePrintSetup, Rule::Untouched),
                kSeparator,
                Item("MnFilePrintPreview", TextId::MenuFilePrintPreview, Command::FilePrintPreview, Rule::Document, 4),
                Item("MnFilePrint", TextId::MenuFilePrint, Command::FilePrint, Rule::Document, 3), kSeparator,
                Item("MnFileRecent", TextId::MenuFileRecent, Command::None, Rule::RecentFiles), kSeparator,
                Item("MnFileExit", TextId::MenuFileExit, Command::FileExit, Rule::Untouched) } },
        { Menu("MnEdit", TextId::MenuEdit),
            { Item("MnEditCopyGraph", TextId::MenuEditCopyGraphics, Command::EditCopyGraph, Rule::Document, 5) } },
        { Menu("MnView", TextId::MenuView),
            { Check("MnViewDescription", TextId::MenuViewDescription, Command::ViewDescription, Rule::Description),
                kSeparator, Check("MnViewToolbar", TextId::MenuViewToolbar, Command::ViewToolbar, Rule::Untouched),
                Check("MnViewStatusBar", TextId::MenuViewStatusBar, Command::ViewStatusBar, Rule::Untouched) } },
        { Menu("MnInstr", TextId::MenuInstrument),
            { Item("MnInstrDispSc", TextId::MenuInstrumentLiveScreen, Command::LiveScreen, Rule::Link, 16), kSeparator,
                Item("MnInstrAntennaListControl", TextId::MenuInstrumentAntennaLists, Command::Control1, Rule::Link, 6),
                Item("MnInstrKfactorControl", TextId::MenuInstrumentKfactorTables, Command::Control2, Rule::Link, 7),
                Item("MnInstrMemoryListControl", TextId::MenuInstrumentMemoryLists, Command::Control3, Rule::Link, 8),
                Item("MnInstrSuppressListControl", TextId::MenuInstrumentSuppressLists, Command::Control4, Rule::Link,
                    9),
                Item("MnInstrCorrectionSetControl", TextId::MenuInstrumentCorrectionSets, Command::Control6, Rule::Link,
                    10),
                kSeparator,
                Item("MnInstrConnect", TextId::MenuInstrumentConnect, Command::Connect, Rule::Untouched, 0) } },
        { Menu("MnTools", TextId::MenuTools),
            { Item("MnToolsAntennaListEditor", TextId::MenuToolsAntennaListEditor, Command::Editor1, Rule::Untouched,
                  11),
                Item(
                    "MnToolsKfactorEditor", TextId::MenuToolsKfactorTableEditor, Command::Editor2, Rule::Untouched, 12),
                Item("MnToolsMemoryListEditor", TextId::MenuToolsMemoryListEditor, Command::Editor3, Rule::Untouched,
                    13),
                Item("MnToolsSuppressListEditor", TextId::MenuToolsSuppressListEditor, Command::Editor4,
                    Rule::Untouched, 14),
                Item("MnToolsCorrectionSetEditor", TextId::MenuToolsCorrectionSetEditor, Command::Editor6,
                    Rule::Untouched, 15) } },
        { Menu("MnOptions", TextId::MenuOptions),
            { Item("MnOptionsDescr", TextId::MenuOptionsDescription, Command::OptionsDescription,
                  Rule::DescriptionShown),
                Item("MnOptionsColor", TextId::MenuOptionsColours, Command::OptionsColor, Rule::Document) } },
        { Menu("MnWindow", TextId::MenuWindow),
            { Item("MnWindowCascade", TextId::MenuWindowCascade, Command::Arrange0, Rule::Shown),
                Item("MnWindowTileHoriz", TextId::MenuWindowTileHorizontally, Command::Arrange1, Rule::Shown),
                Item("MnWindowTileVert", TextId::MenuWindowTileVertically, Command::Arrange2, Rule::Shown),
                Check("MnWindowAutotile", TextId::MenuWindowAutomaticTiling, Command::AutoTile, Rule::Untouched),
                Item("MnWindowArrangeIcons", TextId::MenuWindowArrangeIcons, Command::Arrange3, Rule::Minimised),
                kSeparator,
                Item("MnWindowDefSize", TextId::MenuWindowDefaultSize, Command::DefaultSize, Rule::OffDefaultSize),
                kSeparator, Item("MnWindowClose", TextId::MenuWindowClose, Command::WindowClose, Rule::Document),
                Item("MnWindowCloseAll", TextId::MenuWindowCloseAll, Command::WindowCloseAll, Rule::Document) } },
        { Menu("MnHelp", TextId::MenuHelp),
            { Item("MnHelpContents", TextId::MenuHelpContents, Command::HelpContents, Rule::Untouched),
                Item("MnHelpIndex", TextId::MenuHelpIndex, Command::HelpIndex, Rule::Untouched),
                Item("MnHelpSearch", TextId::MenuHelpSearch, Command::HelpSearch, Rule::Untouched), kSeparator,
                Item("MnHelpWhatsThis", TextId::MenuHelpWhatsThis, Command::HelpWhatsThis, Rule::Untouched, 20),
                kSeparator, Item("MnHelpSupport", TextId::MenuHelpSupport, Command::HelpSupport, Rule::Untouched),
                Item("MnHelpAbout", TextId::MenuHelpAbout, Command::HelpAbout, Rule::Untouched) } },
    };
}

/// An entry under another name, with everything else of the main entry `main`.
MenuEntry Twin(const char* name, const char* main)
{
    MenuEntry entry = *MenuFind(QString::fromLatin1(main));
    entry.Name = name;
    return entry;
}

/// As above, with another command.
MenuEntry Twin(const char* name, const char* main, Command run)
{
    MenuEntry entry = Twin(name, main);
    entry.Run = run;
    return entry;
}

constexpr MenuEntry Popup(const char* name)
{
    return { name, {}, 0, Command::None, Rule::Act, kNoPicture, false };
}

std::vector<MenuEntry> FrameAreaItems()
{
    return { Twin("ClMnFileOpen", "MnFileOpen"), kSeparator, Twin("ClMnViewToolbar", "MnViewToolbar"),
        Twin("ClMnViewStatusBar", "MnViewStatusBar"), kSeparator, Twin("ClMnInstrDispSc", "MnInstrDispSc"),
        Item("ClMnInstrScreenShotControl", TextId::MenuInstrumentScreenShots, Command::Control5, Rule::Untouched),
        Twin("ClMnInstrAntennaListControl", "MnInstrAntennaListControl"),
        Twin("ClMnInstrKfactorControl", "MnInstrKfactorControl"),
        Twin("ClMnInstrMemoryListControl", "MnInstrMemoryListControl"),
        Twin("ClMnInstrSuppressListControl", "MnInstrSuppressListControl"),
        Twin("ClMnInstrCorrectionSetControl", "MnInstrCorrectionSetControl"), kSeparator,
        Twin("ClMnInstrConnect", "MnInstrConnect") };
}

/// A document's menu always prints through the preview.
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
        { Command::Connect, TextId::ToolConnect, TextId::ToolConnectHint, HelpId::ToolConnect, Rule::Act, "connect" },
        { Command::FileOpen, TextId::ToolOpen, TextId::ToolOpenHint, HelpId::ToolOpen, Rule::Act, "open" },
        { Command::FileSaveAs, TextId::ToolSaveAs, TextId::ToolSaveAsHint, HelpId::ToolSaveAs, Rule::Document,
            "saveas" },
        { Command::FilePrintNow, TextId::ToolPrint, TextId::ToolPrintHint, HelpId::ToolPrint, Rule::Document, "print" },
        { Command::FilePrintPreview, TextId::ToolPrintPreview, TextId::ToolPrintPreviewHint, HelpId::ToolPrintPreview,
            Rule::Document, "preview" },
        { Command::EditCopyGraph, TextId::ToolCopyGraphics, TextId::ToolCopyGraphicsHint, HelpId::ToolCopyGraphics,
            Rule::Document, "copy" },
        { Command::Control1, TextId::ToolAntennaLists, TextId::ToolAntennaListsHint, HelpId::ToolAntennaLists,
            Rule::Link, "antenna-control" },
        { Command::Control2, TextId::ToolKfactorTables, TextId::ToolKfactorTablesHint, HelpId::ToolKfactorTables,
            Rule::Link, "kfactor-control" },
        { Command::Control3, TextId::ToolMemoryLists, TextId::ToolMemoryListsHint, HelpId::ToolMemoryLists, Rule::Link,
            "memory-control" },
        { Command::Control4, TextId::ToolSuppressLists, TextId::ToolSuppressListsHint, HelpId::ToolSuppressLists,
            Rule::Link, "suppress-control" },
        { Command::Control6, TextId::ToolCorrectionSets, TextId::ToolCorrectionSetsHint, HelpId::ToolCorrectionSets,
            Rule::Link, "correction-control" },
        { Command::Editor1, TextId::ToolAntennaListEditor, TextId::ToolAntennaListEditorHint,
            HelpId::ToolAntennaListEditor, Rule::Act, "antenna-editor" },
        { Command::Editor2, TextId::ToolKfactorTableEditor, TextId::ToolKfactorTableEditorHint,
            HelpId::ToolKfactorTableEditor, Rule::Act, "kfactor-editor" },
        { Command::Editor3, TextId::ToolMemoryListEditor, TextId::ToolMemoryListEditorHint,
            HelpId::ToolMemoryListEditor, Rule::Act, "memory-editor" },
        { Command::Editor4, TextId::ToolSuppressListEditor, TextId::ToolSuppressListEditorHint,
            HelpId::ToolSuppressListEditor, Rule::Act, "suppress-editor" },
        { Command::Editor6, TextId::ToolCorrectionSetEditor, TextId::ToolCorrectionSetEditorHint,
            HelpId::ToolCorrectionSetEditor, Rule::Act, "correction-editor" },
        { Command::LiveScreen, TextId::ToolLiveScreen, TextId::ToolLiveScreenHint, HelpId::ToolLiveScreen, Rule::Link,
            "livescreen" },
        { Command::None, TextId::ToolUnused1, TextId::ToolUnused1Hint, HelpId::ToolUnused1, Rule::Never, "unused" },
        { Command::None, TextId::ToolUnused2, TextId::ToolUnused2Hint, HelpId::ToolUnused2, Rule::Never, "unused" },
        { Command::None, TextId::ToolUnused3, TextId::ToolUnused3Hint, HelpId::ToolUnused3, Rule::Never, "unused" },
        { Command::HelpWhatsThis, TextId::ToolWhatsThis, TextId::ToolWhatsThisHint, HelpId::ToolWhatsThis, Rule::Act,
            "whatsthis" },
    } };
    return table;
}

const std::array<FrameKey, 6>& FrameKeys()
{
    static constexpr std::array<FrameKey, 6> table{ { { Qt::Key_C, Command::EditCopyGraph, Rule::Document },
        { Qt::Key_O, Command::FileOpen, Rule::Act }, { Qt::Key_P, Command::FilePrint, Rule::Document },
        { Qt::Key_Q, Command::FileExit, Rule::Act }, { Qt::Key_S, Command::FileSaveAs, Rule::Document },
        { Qt::Key_W, Command::FileClose, Rule::Document } } };
    return table;
}

const std::vector<std::vector<int>>& ToolBarGroups()
{
    static const std::vector<std::vector<int>> groups{ { 0 }, { 1, 2, 3, 4, 5 }, { 16 }, { 6, 7, 8, 9, 10 },
        { 11, 12, 13, 14, 15 }, { 20 } };
    return groups;
}

} // namespace tarvik
