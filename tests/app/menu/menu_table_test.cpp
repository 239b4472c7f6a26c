#include "app/menu/menu.h"
#include "app/text/lang.h"
#include "tests/support/fixture.h"

namespace tarvik {

namespace {

class MenuTable : public ProgramTest { };

struct GivenItem {
    const char* Name;
    int Text;
};

/// As the menus are given, and the recent files: name and text number of each entry in order.
const std::vector<GivenItem> kGivenItems{ { "MnFile", 11902 }, { "MnFileOpen", 11904 }, { "MnFileClose", 11906 },
    { "MnFileSaveAs", 11908 }, { "MnFileTvConvert", 11910 }, { "MnFilePageSetup", 11912 },
    { "MnFilePrintSetup", 11914 }, { "MnFilePrintPreview", 11916 }, { "MnFilePrint", 11918 }, { "MnFileRecent", 12014 },
    { "MnFileExit", 11920 }, { "MnEdit", 11922 }, { "MnEditCopyGraph", 11924 }, { "MnView", 11926 },
    { "MnViewDescription", 11928 }, { "MnViewToolbar", 11930 }, { "MnViewStatusBar", 11932 }, { "MnInstr", 11934 },
    { "MnInstrDispSc", 11936 }, { "MnInstrAntennaListControl", 11980 }, { "MnInstrKfactorControl", 11982 },
    { "MnInstrMemoryListControl", 11984 }, { "MnInstrSuppressListControl", 11986 },
    { "MnInstrCorrectionSetControl", 11988 }, { "MnInstrConnect", 11938 }, { "MnTools", 11942 },
    { "MnToolsAntennaListEditor", 11990 }, { "MnToolsKfactorEditor", 11992 }, { "MnToolsMemoryListEditor", 11994 },
    { "MnToolsSuppressListEditor", 11996 }, { "MnToolsCorrectionSetEditor", 11998 }, { "MnOptions", 11944 },
    { "MnOptionsDescr", 11946 }, { "MnOptionsColor", 11948 }, { "MnWindow", 11950 }, { "MnWindowCascade", 11952 },
    { "MnWindowTileHoriz", 11954 }, { "MnWindowTileVert", 11956 }, { "MnWindowAutotile", 11958 },
    { "MnWindowArrangeIcons", 11960 }, { "MnWindowDefSize", 11962 }, { "MnWindowClose", 11964 },
    { "MnWindowCloseAll", 11966 }, { "MnHelp", 11968 }, { "MnHelpContents", 11970 }, { "MnHelpIndex", 11972 },
    { "MnHelpSearch", 11974 }, { "MnHelpWhatsThis", 11976 }, { "MnHelpSupport", 11978 }, { "MnHelpAbout", 11900 } };

std::vector<const MenuEntry*> AllEntries(const std::vector<MenuGroup>& groups)
{
    std::vector<const MenuEntry*> entries;
    for (const MenuGroup& group : groups) {
        entries.push_back(&group.Head);
        for (const MenuEntry& entry : group.Items) {
            if (entry.Name != nullptr)
                entries.push_back(&entry);
        }
    }
    return entries;
}

QStringList NamesOf(const char* popup)
{
    QStringList names;
    for (const MenuEntry& entry : PopupFind(QLatin1String(popup))->Items) {
        if (entry.Name != nullptr)
            names.append(QLatin1String(entry.Name));
    }
    return names;
}

const MenuEntry& PopupEntry(const char* popup, const char* name)
{
    for (const MenuEntry& entry : PopupFind(QLatin1String(popup))->Items) {
        if (entry.Name != nullptr && QLatin1String(entry.Name) == QLatin1String(name))
            return entry;
    }
    qFatal("no %s", name);
}

int PictureAt(const char* menu, size_t position)
{
    for (const MenuGroup& group : MenuBarTable()) {
        if (QLatin1String(group.Head.Name) == QLatin1String(menu))
            return group.Items.at(position).Picture;
    }
    return PopupFind(QLatin1String(menu))->Items.at(position).Picture;
}

} // namespace

TEST_F(MenuTable, HasEachGivenItemInOrderWithItsNumbers)
{
    const std::vector<const MenuEntry*> entries = AllEntries(MenuBarTable());
    ASSERT_EQ(entries.size(), kGivenItems.size());
    for (size_t at = 0; at < entries.size(); ++at) {
        EXPECT_STREQ(entries[at]->Name, kGivenItems[at].Name);
        EXPECT_EQ(entries[at]->Text, kGivenItems[at].Text) << entries[at]->Name;
        EXPECT_EQ(entries[at]->Help, kGivenItems[at].Text + 1) << entries[at]->Name;
        EXPECT_FALSE(LngStr(entries[at]->Text).isEmpty()) << entries[at]->Name;
    }
}

TEST_F(MenuTable, EveryItemOfAMenuButTheSubMenuRunsACommand)
{
    for (const MenuGroup& group : MenuBarTable()) {
        for (const MenuEntry& entry : group.Items) {
            const bool runsNone = entry.Name == nullptr || QLatin1String(entry.Name) == QLatin1String("MnFileRecent");
            EXPECT_EQ(entry.Run == Command::None, runsNone) << group.Head.Name;
        }
    }
}

TEST_F(MenuTable, PopupsHaveTheirGivenEntries)
{
    EXPECT_EQ(NamesOf("ClMn"),
        (QStringList{ "ClMnFileOpen", "ClMnViewToolbar", "ClMnViewStatusBar", "ClMnInstrDispSc",
            "ClMnInstrScreenShotControl", "ClMnInstrAntennaListControl", "ClMnInstrKfactorControl",
            "ClMnInstrMemoryListControl", "ClMnInstrSuppressListControl", "ClMnInstrCorrectionSetControl",
            "ClMnInstrConnect" }));
    EXPECT_EQ(NamesOf("ScMn"),
        (QStringList{ "ScMnFilePrint", "ScMnEditCopyGraphics", "ScMnViewDescription", "ScMnOptionsDescr" }));
    EXPECT_EQ(NamesOf("SwMn"),
        (QStringList{
            "SwMnFilePrint", "SwMnEditCopyGraphics", "SwMnViewDescription", "SwMnOptionsDescr", "SwMnOptionsColor" }));
    EXPECT_EQ(NamesOf("SbMn"), QStringList{ "SbMnHide" });
    EXPECT_EQ(NamesOf("TbMn"), QStringList{ "TbMnHide" });
    EXPECT_EQ(PopupFind("MnFile"), nullptr);
}

TEST_F(MenuTable, TwinsMatchTheirMainEntries)
{
    const std::vector<std::array<const char*, 3>> twins{ { "ClMn", "ClMnFileOpen", "MnFileOpen" },
        { "ClMn", "ClMnViewToolbar", "MnViewToolbar" }, { "ClMn", "ClMnViewStatusBar", "MnViewStatusBar" },
        { "ClMn", "ClMnInstrDispSc", "MnInstrDispSc" }, { "ClMn", "ClMnInstrConnect", "MnInstrConnect" },
        { "ClMn", "ClMnInstrAntennaListControl", "MnInstrAntennaListControl" },
        { "ClMn", "ClMnInstrKfactorControl", "MnInstrKfactorControl" },
        { "ClMn", "ClMnInstrMemoryListControl", "MnInstrMemoryListControl" },
        { "ClMn", "ClMnInstrSuppressListControl", "MnInstrSuppressListControl" },
        { "ClMn", "ClMnInstrCorrectionSetControl", "MnInstrCorrectionSetControl" },
        { "ScMn", "ScMnEditCopyGraphics", "MnEditCopyGraph" }, { "ScMn", "ScMnViewDescription", "MnViewDescription" },
        { "ScMn", "ScMnOptionsDescr", "MnOptionsDescr" }, { "SwMn", "SwMnEditCopyGraphics", "MnEditCopyGraph" },
        { "SwMn", "SwMnViewDescription", "MnViewDescription" }, { "SwMn", "SwMnOptionsDescr", "MnOptionsDescr" },
        { "SwMn", "SwMnOptionsColor", "MnOptionsColor" }, { "SbMn", "SbMnHide", "MnViewStatusBar" },
        { "TbMn", "TbMnHide", "MnViewToolbar" } };
    for (const auto& [popup, name, main] : twins) {
        const MenuEntry& twin = PopupEntry(popup, name);
        const MenuEntry* entry = MenuFind(QLatin1String(main));
        ASSERT_NE(entry, nullptr) << main;
        EXPECT_EQ(twin.Text, entry->Text) << name;
        EXPECT_EQ(twin.Help, entry->Help) << name;
        EXPECT_EQ(twin.Run, entry->Run) << name;
        EXPECT_EQ(twin.When, entry->When) << name;
        EXPECT_EQ(twin.Picture, entry->Picture) << name;
        EXPECT_EQ(twin.HasCheck, entry->HasCheck) << name;
    }
}

TEST_F(MenuTable, PrintingFromADocumentsMenuRunsThePreview)
{
    for (const auto& [popup, name] : { std::pair("ScMn", "ScMnFilePrint"), std::pair("SwMn", "SwMnFilePrint") }) {
        EXPECT_EQ(PopupEntry(popup, name).Run, Command::FilePrintPreview);
        EXPECT_EQ(PopupEntry(popup, name).Text, 11918);
    }
    EXPECT_EQ(MenuFind("MnFilePrint")->Run, Command::FilePrint);
    EXPECT_EQ(ToolBarTable()[3].Run, Command::FilePrintNow);
}

TEST_F(MenuTable, ScreenShotControlIsTheOnlyWayToClass5)
{
    EXPECT_EQ(PopupEntry("ClMn", "ClMnInstrScreenShotControl").Run, Command::Control5);
    for (const MenuEntry* entry : AllEntries(MenuBarTable()))
        EXPECT_NE(entry->Run, Command::Control5);
    for (const ToolButton& button : ToolBarTable())
        EXPECT_NE(button.Run, Command::Control5);
}

TEST_F(MenuTable, PicturesAreAtTheirPositions)
{
    EXPECT_EQ(PictureAt("MnFile", 0), 1);
    EXPECT_EQ(PictureAt("MnFile", 2), 2);
    EXPECT_EQ(PictureAt("MnFile", 9), 4);
    EXPECT_EQ(PictureAt("MnFile", 10), 3);
    EXPECT_EQ(PictureAt("MnEdit", 0), 5);
    EXPECT_EQ(PictureAt("MnInstr", 0), 16);
    for (size_t at = 2; at <= 6; ++at)
        EXPECT_EQ(PictureAt("MnInstr", at), static_cast<int>(at) + 4);
    EXPECT_EQ(PictureAt("MnInstr", 8), 0);
    for (size_t at = 0; at <= 4; ++at)
        EXPECT_EQ(PictureAt("MnTools", at), static_cast<int>(at) + 11);
    EXPECT_EQ(PictureAt("MnHelp", 4), 20);
    EXPECT_EQ(PictureAt("ScMn", 0), 3);
    EXPECT_EQ(PictureAt("ScMn", 2), 5);
}

TEST_F(MenuTable, ToolBarHasItsGivenNumbers)
{
    struct Row {
        int Index;
        int Tip;
        int Hint;
        int Help;
    };
    const std::vector<Row> rows{ { 0, 13819, 13821, 13822 }, { 1, 13801, 13802, 13803 }, { 2, 13804, 13805, 13806 },
        { 3, 13807, 13808, 13809 }, { 4, 13810, 13811, 13812 }, { 5, 13813, 13814, 13815 }, { 6, 13837, 13838, 13839 },
        { 7, 13843, 13844, 13845 }, { 8, 13849, 13850, 13851 }, { 9, 13855, 13856, 13857 }, { 10, 13861, 13862, 13863 },
        { 11, 13840, 13841, 13842 }, { 12, 13846, 13847, 13848 }, { 13, 13852, 13853, 13854 },
        { 14, 13858, 13859, 13860 }, { 15, 13864, 13865, 13866 }, { 16, 13816, 13817, 13818 },
        { 17, 13827, 13828, 13829 }, { 18, 13830, 13831, 13832 }, { 19, 13833, 13834, 13835 },
        { 20, 13824, 13825, 13826 } };
    ASSERT_EQ(rows.size(), ToolBarTable().size());
    for (const Row& row : rows) {
        const ToolButton& button = ToolBarTable()[static_cast<size_t>(row.Index)];
        EXPECT_EQ(button.Tip, row.Tip) << row.Index;
        EXPECT_EQ(button.Hint, row.Hint) << row.Index;
        EXPECT_EQ(button.Help, row.Help) << row.Index;
    }
}

TEST_F(MenuTable, ToolBarHasItsGroups)
{
    const std::vector<std::vector<int>> groups{ { 0 }, { 1, 2, 3, 4, 5 }, { 16 }, { 6, 7, 8, 9, 10 },
        { 11, 12, 13, 14, 15 }, { 20 } };
    EXPECT_EQ(ToolBarGroups(), groups);
}

TEST_F(MenuTable, AnItemShowsTheHintOfTheButtonWithItsCommand)
{
    EXPECT_EQ(MenuHint(*MenuFind("MnFileOpen"), false), 13802);
    EXPECT_EQ(MenuHint(*MenuFind("MnToolsMemoryListEditor"), false), 13853);
    EXPECT_EQ(MenuHint(*MenuFind("MnFilePrint"), false), 13808);
    EXPECT_EQ(MenuHint(PopupEntry("ScMn", "ScMnFilePrint"), false), 13811);
    EXPECT_EQ(MenuHint(*MenuFind("MnFileExit"), false), 0);
    EXPECT_EQ(MenuHint(*MenuFind("MnFile"), false), 0);
}

TEST_F(MenuTable, HintOfConnectingDependsOnTheLink)
{
    EXPECT_EQ(MenuHint(*MenuFind("MnInstrConnect"), false), 13821);
    EXPECT_EQ(MenuHint(*MenuFind("MnInstrConnect"), true), 13823);
    EXPECT_EQ(MenuHint(PopupEntry("ClMn", "ClMnInstrConnect"), true), 13823);
    EXPECT_EQ(MenuHint(*MenuFind("MnFileOpen"), true), 13802);
}

TEST_F(MenuTable, CaptionsEndWithABlankOnlyOnTheNtFamily)
{
    EXPECT_EQ(FrameCaption("&Open...", true), "&Open... ");
    EXPECT_EQ(FrameCaption("&Open...", false), "&Open...");
}

TEST_F(MenuTable, PicturesNeedACheckMarkOf13By13Pixels)
{
    EXPECT_TRUE(HasMenuPictures(13, 13));
    EXPECT_FALSE(HasMenuPictures(12, 13));
    EXPECT_FALSE(HasMenuPictures(13, 12));
}

} // namespace tarvik
