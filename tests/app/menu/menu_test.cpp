#include "app/menu/commands.h"
#include "app/menu/menu.h"
#include "app/state/linkState.h"
#include "app/state/project.h"
#include "closed/loader.h"
#include "tests/support/fakeCommands.h"
#include "tests/support/fakeDialog.h"
#include "tests/support/fixture.h"

namespace tarvik {

namespace {

class MenuUpdate : public ProgramTest {
protected:
    /// Started, able to act, link up, a document of each kind open: everything is on.
    static MenuInput AllOn()
    {
        MenuInput input;
        input.Started = true;
        input.CanAct = true;
        input.LinkUp = true;
        input.Documents.Active = true;
        input.Documents.AnyMinimised = true;
        input.Documents.AnyShown = true;
        input.Documents.DescriptionVisible = true;
        input.HasRecentFiles = true;
        return input;
    }

    static MenuOutcome Compute(const MenuInput& input)
    {
        bool disabled = false;
        return MenuCompute(input, disabled).value();
    }

    /// Empty for an item that is unchanged.
    static std::optional<bool> State(const MenuInput& input, const char* name)
    {
        return Compute(input).Entry(*MenuFind(QLatin1String(name)));
    }

    static void ExpectStates(const MenuInput& input, const std::vector<const char*>& names, bool enabled)
    {
        for (const char* name : names)
            EXPECT_EQ(State(input, name), std::optional<bool>(enabled)) << name;
    }

    static void ExpectButtons(const MenuInput& input, const std::vector<int>& buttons, bool enabled)
    {
        const MenuOutcome outcome = Compute(input);
        for (const int button : buttons)
            EXPECT_EQ(outcome.Buttons[static_cast<size_t>(button)], enabled) << button;
    }
};

const std::vector<const char*> kDocumentItems{ "MnFileClose", "MnFileSaveAs", "MnFilePrintPreview", "MnFilePrint",
    "MnOptionsColor", "MnWindowClose", "MnWindowCloseAll", "MnEditCopyGraph" };
const std::vector<const char*> kLinkItems{ "MnInstrDispSc", "MnInstrAntennaListControl", "MnInstrKfactorControl",
    "MnInstrMemoryListControl", "MnInstrSuppressListControl", "MnInstrCorrectionSetControl" };
const std::vector<const char*> kArrangeItems{ "MnWindowCascade", "MnWindowTileHoriz", "MnWindowTileVert" };
const std::vector<int> kActButtons{ 0, 1, 11, 12, 13, 14, 15, 20 };
const std::vector<int> kDocumentButtons{ 2, 3, 4, 5 };
const std::vector<int> kLinkButtons{ 6, 7, 8, 9, 10, 16 };

} // namespace

TEST_F(MenuUpdate, MenusAndActButtonsAreOnWhenTheProgramCanAct)
{
    MenuInput input;
    input.Started = true;
    input.CanAct = true;
    EXPECT_TRUE(Compute(input).MenusEnabled);
    ExpectButtons(input, kActButtons, true);
    input.CanAct = false;
    EXPECT_FALSE(Compute(input).MenusEnabled);
    ExpectButtons(input, kActButtons, false);
}

TEST_F(MenuUpdate, EverythingIsOffBeforeTheStartIsOver)
{
    MenuInput input = AllOn();
    input.Started = false;
    const MenuOutcome outcome = Compute(input);
    EXPECT_FALSE(outcome.MenusEnabled);
    for (const bool button : outcome.Buttons)
        EXPECT_FALSE(button);
}

TEST_F(MenuUpdate, EverythingIsOffWhileADialogIsOpen)
{
    MenuInput input = AllOn();
    input.CanAct = false;
    const MenuOutcome outcome = Compute(input);
    EXPECT_FALSE(outcome.MenusEnabled);
    for (const bool button : outcome.Buttons)
        EXPECT_FALSE(button);
}

TEST_F(MenuUpdate, DocumentItemsFollowTheActiveDocument)
{
    MenuInput input = AllOn();
    ExpectStates(input, kDocumentItems, true);
    ExpectButtons(input, kDocumentButtons, true);
    input.Documents.Active = false;
    ExpectStates(input, kDocumentItems, false);
    ExpectButtons(input, kDocumentButtons, false);
}

TEST_F(MenuUpdate, LinkItemsFollowTheLink)
{
    MenuInput input = AllOn();
    ExpectStates(input, kLinkItems, true);
    ExpectButtons(input, kLinkButtons, true);
    input.LinkUp = false;
    ExpectStates(input, kLinkItems, false);
    ExpectButtons(input, kLinkButtons, false);
}

TEST_F(MenuUpdate, TheConnectItemIsNeverTouched)
{
    MenuInput input = AllOn();
    EXPECT_EQ(State(input, "MnInstrConnect"), std::nullopt);
    input.LinkUp = false;
    EXPECT_EQ(State(input, "MnInstrConnect"), std::nullopt);
}

TEST_F(MenuUpdate, ItemsWithoutARuleAreNeverTouched)
{
    const QStringList free{ "MnFileOpen", "MnFileTvConvert", "MnFilePageSetup", "MnFilePrintSetup", "MnFileExit",
        "MnViewToolbar", "MnViewStatusBar", "MnInstrConnect", "MnToolsAntennaListEditor", "MnToolsKfactorEditor",
        "MnToolsMemoryListEditor", "MnToolsSuppressListEditor", "MnToolsCorrectionSetEditor", "MnWindowAutotile",
        "MnHelpContents", "MnHelpIndex", "MnHelpSearch", "MnHelpWhatsThis", "MnHelpSupport", "MnHelpAbout" };
    MenuInput nothing;
    nothing.Started = true;
    nothing.CanAct = true;
    for (const MenuGroup& group : MenuBarTable()) {
        for (const MenuEntry& entry : group.Items) {
            if (entry.Name != nullptr) {
                const bool isFree = free.contains(QLatin1String(entry.Name));
                EXPECT_EQ(Compute(nothing).Entry(entry).has_value(), !isFree) << entry.Name;
            }
        }
    }
}

TEST_F(MenuUpdate, RecentFilesNeedOne)
{
    MenuInput input = AllOn();
    ExpectStates(input, { "MnFileRecent" }, true);
    input.HasRecentFiles = false;
    ExpectStates(input, { "MnFileRecent" }, false);
}

TEST_F(MenuUpdate, ArrangingNeedsAWindowThatIsNotMinimised)
{
    MenuInput input = AllOn();
    ExpectStates(input, kArrangeItems, true);
    input.Documents.AnyShown = false;
    ExpectStates(input, kArrangeItems, false);
    input = AllOn();
    input.Documents.Active = false;
    ExpectStates(input, kArrangeItems, false);
}

TEST_F(MenuUpdate, ArrangingIconsNeedsAMinimisedWindow)
{
    MenuInput input = AllOn();
    ExpectStates(input, { "MnWindowArrangeIcons" }, true);
    input.Documents.AnyMinimised = false;
    ExpectStates(input, { "MnWindowArrangeIcons" }, false);
    input = AllOn();
    input.Documents.Active = false;
    ExpectStates(input, { "MnWindowArrangeIcons" }, false);
}

TEST_F(MenuUpdate, DefaultSizeNeedsADocumentOffItsDefaultSize)
{
    MenuInput input = AllOn();
    ExpectStates(input, { "MnWindowDefSize" }, true);
    input.Documents.ActiveAtDefaultSize = true;
    ExpectStates(input, { "MnWindowDefSize" }, false);
    input = AllOn();
    input.Documents.Active = false;
    ExpectStates(input, { "MnWindowDefSize" }, false);
}

TEST_F(MenuUpdate, TheDescriptionNeedsAWindowThatIsNotMaximised)
{
    MenuInput input = AllOn();
    ExpectStates(input, { "MnViewDescription" }, true);
    EXPECT_EQ(Compute(input).DescriptionEnabled, std::optional<bool>(true));
    input.Documents.ActiveIsMaximised = true;
    ExpectStates(input, { "MnViewDescription" }, false);
    EXPECT_EQ(Compute(input).DescriptionEnabled, std::optional<bool>(false));
    input.Documents.Active = false;
    ExpectStates(input, { "MnViewDescription" }, false);
    EXPECT_EQ(Compute(input).DescriptionEnabled, std::nullopt);
}

TEST_F(MenuUpdate, DescriptionSettingsNeedAVisibleDescriptionToo)
{
    MenuInput input = AllOn();
    ExpectStates(input, { "MnOptionsDescr" }, true);
    input.Documents.DescriptionVisible = false;
    ExpectStates(input, { "MnOptionsDescr" }, false);
    input = AllOn();
    input.Documents.ActiveIsMaximised = true;
    ExpectStates(input, { "MnOptionsDescr" }, false);
}

TEST_F(MenuUpdate, TheDescriptionsCheckFollowsTheActiveWindow)
{
    MenuInput input = AllOn();
    EXPECT_EQ(Compute(input).DescriptionChecked, std::optional<bool>(true));
    input.Documents.DescriptionVisible = false;
    EXPECT_EQ(Compute(input).DescriptionChecked, std::optional<bool>(false));
    input.CanAct = false;
    EXPECT_EQ(Compute(input).DescriptionChecked, std::nullopt);
}

TEST_F(MenuUpdate, ButtonsWithoutCommandStayOffInEveryState)
{
    ExpectButtons(AllOn(), { 17, 18, 19 }, false);
    ExpectButtons(MenuInput(), { 17, 18, 19 }, false);
}

TEST_F(MenuUpdate, ItemsOfADisabledMenuAreUnchanged)
{
    MenuInput input = AllOn();
    input.CanAct = false;
    for (const char* name : kDocumentItems)
        EXPECT_EQ(State(input, name), std::nullopt) << name;
}

TEST_F(MenuUpdate, ConnectCaptionDependsOnTheLink)
{
    MenuInput input = AllOn();
    EXPECT_EQ(Compute(input).Connect.Text, 11940);
    EXPECT_EQ(Compute(input).Connect.Help, 11941);
    EXPECT_TRUE(Compute(input).ResetLiveScreenCaption);
    EXPECT_TRUE(Compute(input).LinkUp);
    input.LinkUp = false;
    EXPECT_EQ(Compute(input).Connect.Text, 11938);
    EXPECT_EQ(Compute(input).Connect.Help, 11939);
    EXPECT_FALSE(Compute(input).ResetLiveScreenCaption);
    EXPECT_FALSE(Compute(input).LinkUp);
}

TEST_F(MenuUpdate, SecondUpdateWithMenusOffHasNoEffect)
{
    MenuInput input = AllOn();
    input.CanAct = false;
    bool disabled = false;
    EXPECT_TRUE(MenuCompute(input, disabled));
    EXPECT_TRUE(disabled);
    EXPECT_FALSE(MenuCompute(input, disabled));
    input.CanAct = true;
    EXPECT_TRUE(MenuCompute(input, disabled));
    EXPECT_FALSE(disabled);
}

TEST_F(MenuUpdate, EachUpdateBeforeTheStartSwitchesOff)
{
    MenuInput input;
    bool disabled = true;
    EXPECT_TRUE(MenuCompute(input, disabled));
    EXPECT_TRUE(disabled);
}

TEST_F(MenuUpdate, InputComesFromTheProgram)
{
    Program().Started = true;
    EXPECT_TRUE(MenuInputNow().Started);
    EXPECT_TRUE(MenuInputNow().CanAct);
    EXPECT_FALSE(MenuInputNow().LinkUp);
    EXPECT_FALSE(MenuInputNow().Documents.Active);
    Program().Idle = false;
    EXPECT_FALSE(MenuInputNow().CanAct);
    TvScpi().scpiGetConnected = [] { return int16_t(0); };
    EXPECT_TRUE(MenuInputNow().LinkUp);
    ModulesReset();
    EXPECT_FALSE(LinkIsUp());
}

namespace {

using Commands = ProgramTest;

} // namespace

TEST_F(Commands, RunBetweenBeginBusyAndEndBusy)
{
    bool idleWithin = true;
    BindCommand(Command::FileOpen, [&idleWithin] { idleWithin = Program().Idle; });
    EXPECT_TRUE(CommandRun(Command::FileOpen));
    EXPECT_FALSE(idleWithin);
    EXPECT_TRUE(Program().Idle);
}

TEST_F(Commands, DoNotRunWhileAnotherOneRuns)
{
    int runs = 0;
    BindCommand(Command::FileOpen, [&runs] {
        ++runs;
        EXPECT_FALSE(CommandRun(Command::FileOpen));
    });
    EXPECT_TRUE(CommandRun(Command::FileOpen));
    EXPECT_EQ(runs, 1);
}

TEST_F(Commands, TheExitRunsWhileTheProgramIsIdle)
{
    bool canAct = false;
    BindCommand(Command::FileExit, [&canAct] { canAct = CanAct(); });
    EXPECT_TRUE(CommandRun(Command::FileExit));
    EXPECT_TRUE(canAct);
}

TEST_F(Commands, ScopeRestoresTheFormerBinding)
{
    static int outer = 0;
    static int inner = 0;
    outer = inner = 0;
    constexpr CommandBinding kOuter{ Command::FileOpen, [] { ++outer; } };
    constexpr CommandBinding kInner{ Command::FileOpen, [] { ++inner; } };
    {
        const CommandScope first({ &kOuter, 1 });
        {
            const CommandScope second({ &kInner, 1 });
            CommandRun(Command::FileOpen);
        }
        CommandRun(Command::FileOpen);
    }
    EXPECT_TRUE(CommandRun(Command::FileOpen));
    EXPECT_EQ(outer, 1);
    EXPECT_EQ(inner, 1);
}

TEST_F(Commands, UnboundCommandDoesNothing)
{
    EXPECT_TRUE(CommandRun(Command::OptionsColor));
    EXPECT_TRUE(Program().Idle);
}

TEST_F(Commands, RunOnADocumentThatIsTheNewestDialog)
{
    std::vector<bool> idle;
    BindCommand(Command::EditCopyGraph, [&idle] { idle.push_back(Program().Idle); });
    FakeDialog dialog;
    EXPECT_FALSE(CommandRunOnDialog(Command::EditCopyGraph)) << "there is none";
    dialog.WhileOpen = [] { EXPECT_FALSE(CommandRunOnDialog(Command::EditCopyGraph)) << "it is no document"; };
    DialogShow(dialog);
    FakeDialog document;
    document.ShowsDocument = true;
    document.WhileOpen = [] {
        EXPECT_FALSE(CanAct());
        EXPECT_FALSE(CommandRun(Command::EditCopyGraph));
        EXPECT_TRUE(CommandRunOnDialog(Command::EditCopyGraph));
        FakeDialog above;
        above.WhileOpen = [] { EXPECT_FALSE(CommandRunOnDialog(Command::EditCopyGraph)); };
        DialogShow(above);
    };
    DialogShow(document);
    EXPECT_EQ(idle, std::vector<bool>{ false });
    EXPECT_TRUE(Program().Idle);
}

TEST_F(Commands, OnADialogRunWithinACommandOfTheProgram)
{
    int copies = 0;
    BindCommand(Command::EditCopyGraph, [&copies] { ++copies; });
    BindCommand(Command::Editor2, [] {
        FakeDialog document;
        document.ShowsDocument = true;
        document.WhileOpen = [] { EXPECT_TRUE(CommandRunOnDialog(Command::EditCopyGraph)); };
        DialogShow(document);
        EXPECT_FALSE(Program().Idle) << "the outer one still runs";
    });
    EXPECT_TRUE(CommandRun(Command::Editor2));
    EXPECT_EQ(copies, 1);
}

TEST_F(Commands, OnADialogDoNotNest)
{
    int copies = 0;
    BindCommand(Command::EditCopyGraph, [&copies] { ++copies; });
    BindCommand(Command::FileSaveAs, [] {
        EXPECT_FALSE(CanActOnDialog());
        EXPECT_FALSE(CommandRunOnDialog(Command::EditCopyGraph));
        EXPECT_FALSE(CommandRunOnDialog(Command::FileClose));
    });
    FakeDialog document;
    document.ShowsDocument = true;
    document.WhileOpen = [&] {
        EXPECT_TRUE(CommandRunOnDialog(Command::FileSaveAs));
        EXPECT_FALSE(document.WasUnloaded);
        EXPECT_TRUE(CanActOnDialog());
    };
    DialogShow(document);
    EXPECT_EQ(copies, 0);
}

TEST_F(Commands, ClosingADocumentThatIsADialogUnloadsIt)
{
    int closes = 0;
    BindCommand(Command::FileClose, [&closes] { ++closes; });
    FakeDialog document;
    document.ShowsDocument = true;
    document.WhileOpen = [&] {
        EXPECT_TRUE(CommandRunOnDialog(Command::FileClose));
        EXPECT_TRUE(document.WasUnloaded);
    };
    DialogShow(document);
    EXPECT_EQ(closes, 0) << "the frame's command is for its own windows";
}

} // namespace tarvik
