#include "app/forms/dialog.h"
#include "app/frame/startup.h"
#include "app/platform/seams.h"
#include "app/settings/ini.h"
#include "app/settings/settings.h"
#include "app/state/project.h"
#include "app/state/statusBar.h"
#include "app/text/lang.h"
#include "tests/support/fakeDialog.h"
#include "tests/support/fakeFrame.h"
#include "tests/support/fakeFrameDocuments.h"
#include "tests/support/fakeInstrumentLink.h"
#include "tests/support/fixture.h"

#include <QRegularExpression>

#include <set>

#if defined(Q_OS_UNIX)
#include <sys/resource.h>
#endif

namespace tarvik {

namespace {

/// A frame that writes down what it is asked.
class FakeHost final : public ProjectHost {
public:
    QString Line;
    QString ProgramFolder;
    std::set<Module> Missing;
    int LogoStatus = 0;
    QStringList Log;

    QString CommandLine() const override
    {
        return Line;
    }
    QString ExecutableFolder() const override
    {
        return ProgramFolder;
    }
    bool LoadModule(Module module, const QString& folder) override
    {
        Log.append(QStringLiteral("load ") + ModuleFileName(module));
        Folders.insert(folder);
        return !Missing.contains(module);
    }
    void BuildTexts() override
    {
        Log.append(QStringLiteral("texts"));
    }
    int ShowLogo() override
    {
        Log.append(QStringLiteral("logo"));
        return LogoStatus;
    }
    void FreeLogo() override
    {
        Log.append(QStringLiteral("free logo"));
    }
    void InstallKeyboardHook() override
    {
        Log.append(QStringLiteral("hook"));
    }
    void ApplyBars() override
    {
        Log.append(QStringLiteral("bars"));
    }
    void ShowFrame() override
    {
        Log.append(QStringLiteral("show"));
        if (WhenShown)
            WhenShown();
    }
    void FocusFirstButton() override
    {
        Log.append(QStringLiteral("focus"));
    }
    void RemoveKeyboardHook() override
    {
        Log.append(QStringLiteral("unhook"));
    }

    std::set<QString> Folders;
    std::function<void()> WhenShown;
};

/// What start and stop ask beside their host, written into its log.
class LoggedFrame final : public FakeFrame {
public:
    explicit LoggedFrame(QStringList& log)
        : log_(log)
    {
        Place = FramePlacement{ WinStateNormal, QRectF(15, 30, 9000, 6000) };
    }
    void MoveTwips(QPointF) override
    {
        log_.append(QStringLiteral("settings"));
    }
    void MenuUpdate() override
    {
        if (LogsMenu)
            log_.append(Program().Started ? QStringLiteral("menu started") : QStringLiteral("menu"));
    }
    bool LogsMenu = false;

private:
    QStringList& log_;
};

class LoggedDocuments final : public FakeFrameDocuments {
public:
    explicit LoggedDocuments(QStringList& log)
        : log_(log)
    {
    }
    void ClearTable() override
    {
        log_.append(QStringLiteral("clear windows"));
    }
    bool CloseAll() override
    {
        log_.append(QStringLiteral("close documents"));
        if (OnCloseAll)
            OnCloseAll();
        return Closes;
    }
    bool Open(const QString& path) override
    {
        log_.append(QStringLiteral("open ") + path.mid(path.lastIndexOf(u'/') + 1));
        return FakeFrameDocuments::Open(path);
    }
    std::function<void()> OnCloseAll;

private:
    QStringList& log_;
};

class LoggedLink final : public FakeInstrumentLink {
public:
    explicit LoggedLink(QStringList& log)
        : log_(log)
    {
    }
    void AutoConnect(bool connectedAtExit) override
    {
        log_.append(connectedAtExit ? QStringLiteral("connect 1") : QStringLiteral("connect 0"));
        StartedMeanwhile = Program().Started;
    }
    bool StartedMeanwhile = false;

private:
    QStringList& log_;
};

class Startup : public ProgramTest {
protected:
    Startup()
    {
        host.ProgramFolder = Folder().chopped(1);
        TheSeams().SystemBox = [this](const QString& title, const QString& text) { boxes.append(title + u'|' + text); };
    }

    bool Init()
    {
        return ProjectInit(host);
    }

    FakeHost host;
    LoggedFrame frame{ host.Log };
    LoggedDocuments documents{ host.Log };
    LoggedLink link{ host.Log };
    QStringList boxes;
};

} // namespace

TEST_F(Startup, RunsEachStepOnceInOrder)
{
    ASSERT_TRUE(Init());
    frame.LogsMenu = true;
    ASSERT_TRUE(ProjectStart(host));
    const auto load = [](Module module) { return QStringLiteral("load ") + ModuleFileName(module); };
    const QStringList expected{ load(Module::General), load(Module::Language), load(Module::Channel),
        load(Module::ListStore), load(Module::Traces), "settings", "clear windows", "texts", "logo", "free logo",
        "hook", "bars", "show", "connect 0", "menu started", "focus" };
    EXPECT_EQ(host.Log, expected);
    EXPECT_TRUE(Program().Started);
    EXPECT_TRUE(boxes.isEmpty());
}

TEST_F(Startup, PutsTheStateToItsStart)
{
    Program().Started = true;
    Program().NonModalDialogs = true;
    Program().Idle = false;
    Program().MenusDisabled = true;
    FakeDialog dialog;
    DialogPush(dialog, false);
    host.Line = QStringLiteral("some text");
    ASSERT_TRUE(Init());
    EXPECT_FALSE(Program().Started);
    EXPECT_FALSE(Program().NonModalDialogs);
    EXPECT_TRUE(Program().Idle);
    EXPECT_FALSE(Program().MenusDisabled);
    EXPECT_FALSE(DialogIsOpen());
    EXPECT_EQ(Program().CommandLine, "some text");
    EXPECT_EQ(Program().ProgramTitle, LngStr(11800));
}

TEST_F(Startup, FindsItsPlacesBesideTheExecutable)
{
    ASSERT_TRUE(Init());
    EXPECT_EQ(Program().AppPath, Folder());
    EXPECT_EQ(Program().HelpFilePath, FilePath("TARVIK.chm"));
    EXPECT_EQ(Program().PopupHelpSource, FilePath("TARVIK.chm::/popup/popupid.txt"));
    EXPECT_EQ(host.Folders, std::set<QString>{ Folder() });
    EXPECT_EQ(TheCommonDialog().HelpFile, FilePath("TARVIK.chm"));
    EXPECT_EQ(TheCommonDialog().HelpCommand, 1);
    EXPECT_EQ(TheCommonDialog().InitialFolder, Folder().chopped(1));
}

TEST_F(Startup, AddsNoSecondSeparatorToTheFolder)
{
    host.ProgramFolder = Folder();
    ASSERT_TRUE(Init());
    EXPECT_EQ(Program().AppPath, Folder());
}

TEST_F(Startup, TriesAllFiveLibrariesAfterOneHasFailed)
{
    host.Missing = { Module::General };
    EXPECT_FALSE(Init());
    EXPECT_EQ(host.Log.size(), 5);
    EXPECT_EQ(host.Log.last(), QStringLiteral("load ") + ModuleFileName(Module::Traces));
}

TEST_F(Startup, TellsOfTheTextLibrariesInAPlainBoxUnderTheBuiltInTitle)
{
    for (const Module module : { Module::General, Module::Language }) {
        boxes.clear();
        host.Missing = { module };
        EXPECT_FALSE(Init());
        const QString name = ModuleFileName(module).toUpper();
        EXPECT_EQ(boxes,
            QStringList{ "Tarvik|Tarvik library " + name + " can not be loaded.\rRun setup again.\rTarvik aborted." });
    }
}

TEST_F(Startup, TellsOfEachOtherLibraryByMessage12705)
{
    for (const Module module : { Module::Channel, Module::ListStore, Module::Traces }) {
        host.Missing = { module };
        Answers().Expect(12705, { ModuleFileName(module).toUpper() }, Ok);
        EXPECT_FALSE(Init());
        Answers().Verify();
    }
    EXPECT_TRUE(boxes.isEmpty());
}

TEST_F(Startup, TellsOfEveryMissingLibrary)
{
    host.Missing = { Module::General, Module::Channel, Module::Traces };
    Answers().Expect(12705, { ModuleFileName(Module::Channel).toUpper() }, Ok);
    Answers().Expect(12705, { ModuleFileName(Module::Traces).toUpper() }, Ok);
    EXPECT_FALSE(Init());
    EXPECT_EQ(boxes.size(), 1);
}

TEST_F(Startup, ShowsNoEmptyMessageWhenTheTextsAreMissingToo)
{
    ModulesReset();
    host.Missing = { Module::Language, Module::Channel };
    EXPECT_FALSE(Init());
    ASSERT_EQ(boxes.size(), 2);
    EXPECT_TRUE(boxes[1].contains(ModuleFileName(Module::Channel).toUpper())) << boxes[1].toStdString();
}

TEST_F(Startup, DoesNothingMoreWithoutItsLibraries)
{
    host.Missing = { Module::General };
    EXPECT_FALSE(Init());
    EXPECT_FALSE(host.Log.contains("settings"));
    EXPECT_FALSE(host.Log.contains("texts"));
}

TEST_F(Startup, NeverHonoursAStoredAutoTile)
{
    IniWriteBool(FilePath("Tarvik.ini"), "Window", "AutoTile", true);
    ASSERT_TRUE(Init());
    EXPECT_FALSE(Program().AutoTile);
    ASSERT_TRUE(ProjectQueryUnload());
    EXPECT_FALSE(IniReadBool(FilePath("Tarvik.ini"), "Window", "AutoTile", true));
}

TEST_F(Startup, WritesAutoTileBackWhenTheUserSwitchedItOn)
{
    ASSERT_TRUE(Init());
    Program().AutoTile = true;
    ASSERT_TRUE(ProjectQueryUnload());
    EXPECT_TRUE(IniReadBool(FilePath("Tarvik.ini"), "Window", "AutoTile", false));
}

TEST_F(Startup, NeitherOpensNorConnectsOnceTheProgramIsToEnd)
{
    Store(FilePath("plan.tvm"), "x");
    host.Line = FilePath("plan.tvm");
    ASSERT_TRUE(Init());
    host.WhenShown = [] { Program().CloseWished = true; };
    ASSERT_TRUE(ProjectStart(host));
    EXPECT_TRUE(Program().Started);
    EXPECT_TRUE(Program().CloseWished);
    EXPECT_TRUE(host.Log.filter(QRegularExpression(QStringLiteral("^(open|connect) "))).isEmpty());
}

TEST_F(Startup, EndsWhenTheLogoEndsWith3)
{
    ASSERT_TRUE(Init());
    host.Log.clear();
    host.LogoStatus = 3;
    EXPECT_FALSE(ProjectStart(host));
    EXPECT_EQ(host.Log, QStringList{ "logo" });
    EXPECT_FALSE(Program().Started);
}

TEST_F(Startup, GoesOnWhenTheLogoWasClosedByOtherMeans)
{
    ASSERT_TRUE(Init());
    host.LogoStatus = 1;
    EXPECT_TRUE(ProjectStart(host));
    EXPECT_TRUE(host.Log.contains("show"));
    EXPECT_TRUE(Program().Started);
}

TEST_F(Startup, RemovesLeftOverTemporaryFilesBeforeTheFrameShows)
{
    for (const char* name : { "temp00.set", "temp07.png", "temp09.set", "temp10.png", "temp7.png", "temp03.csv" })
        Store(FilePath(QLatin1String(name)), "x");
    ASSERT_TRUE(Init());
    QStringList whenShown;
    host.WhenShown = [&] { whenShown = QDir(Folder()).entryList(QDir::Files, QDir::Name); };
    ASSERT_TRUE(ProjectStart(host));
    EXPECT_EQ(whenShown, (QStringList{ "temp03.csv", "temp10.png", "temp7.png" }));
}

TEST_F(Startup, OpensTheFileOfTheCommandLineInPlaceOfConnecting)
{
    Store(FilePath("my list.tvm"), "x");
    host.Line = u'"' + FilePath("my list.tvm") + u'"';
    ASSERT_TRUE(Init());
    ASSERT_TRUE(ProjectStart(host));
    EXPECT_TRUE(host.Log.contains("open my list.tvm"));
    EXPECT_FALSE(host.Log.join(u'|').contains("connect"));
    EXPECT_EQ(Program().LastFile.Name, "my list");
    EXPECT_EQ(Program().LastFile.Extension, "tvm");
}

TEST_F(Startup, ConnectsWhenTheFileCouldNotBeOpened)
{
    Store(FilePath("a.tvm"), "x");
    documents.Opens = false;
    host.Line = FilePath("a.tvm");
    ASSERT_TRUE(Init());
    ASSERT_TRUE(ProjectStart(host));
    EXPECT_TRUE(host.Log.contains("open a.tvm"));
    EXPECT_TRUE(host.Log.contains("connect 0"));
}

TEST_F(Startup, ConnectsWithoutAWordWhenTheCommandLineNamesNoFile)
{
    for (const QString& line : { QString(), FilePath("no such.tvm"), QStringLiteral("\""), QStringLiteral("\"\""),
             QStringLiteral("  "), Folder() }) {
        host.Log.clear();
        host.Line = line;
        ASSERT_TRUE(Init());
        ASSERT_TRUE(ProjectStart(host));
        EXPECT_TRUE(host.Log.contains("connect 0")) << line.toStdString();
        EXPECT_FALSE(host.Log.join(u'|').contains("open")) << line.toStdString();
    }
}

TEST_F(Startup, TellsTheConnectionWhetherTheLinkWasUpAtTheLastExit)
{
    ASSERT_TRUE(Init());
    Program().ConnectedAtExit = true;
    ASSERT_TRUE(ProjectStart(host));
    EXPECT_TRUE(host.Log.contains("connect 1"));
}

TEST_F(Startup, CanActOnlyWhenItsLastStepIsDone)
{
    ASSERT_TRUE(Init());
    link.StartedMeanwhile = true;
    ASSERT_TRUE(ProjectStart(host));
    EXPECT_FALSE(link.StartedMeanwhile);
    EXPECT_TRUE(CanAct());
}

namespace {

using StartFile = Startup;
using Shutdown = Startup;

} // namespace

TEST_F(StartFile, IsOpenedBetweenBeginBusyAndEndBusy)
{
    Store(FilePath("a.tvm"), "x");
    bool idle = true;
    int pumps = 0;
    TheSeams().PumpEvents = [&] {
        EXPECT_TRUE(Program().Idle);
        ++pumps;
    };
    documents.OnOpen = [&idle](const QString&) { idle = Program().Idle; };
    EXPECT_TRUE(OpenStartFile(FilePath("a.tvm")));
    EXPECT_FALSE(idle);
    EXPECT_TRUE(Program().Idle);
    EXPECT_EQ(pumps, 1);
}

TEST_F(StartFile, LosesOnePairOfQuotesAndTheBlanksAround)
{
    Store(FilePath("a b.tvm"), "x");
    EXPECT_TRUE(OpenStartFile(FilePath("a b.tvm")));
    EXPECT_TRUE(OpenStartFile(u'"' + FilePath("a b.tvm") + u'"'));
    EXPECT_TRUE(OpenStartFile(QStringLiteral("\"  ") + FilePath("a b.tvm") + QStringLiteral(" \"")));
    EXPECT_TRUE(OpenStartFile(QStringLiteral("  ") + FilePath("a b.tvm")));
    EXPECT_FALSE(OpenStartFile(QStringLiteral("\"\"") + FilePath("a b.tvm") + QStringLiteral("\"\"")));
    EXPECT_FALSE(OpenStartFile(u'"' + FilePath("a b.tvm")));
    EXPECT_FALSE(OpenStartFile(QStringLiteral(" \"") + FilePath("a b.tvm") + u'"'));
}

TEST_F(StartFile, IsRememberedByItsFullPath)
{
    Store(FilePath("a.tvm"), "x");
    QString opened;
    documents.OnOpen = [&opened](const QString& path) { opened = path; };
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(Folder()));
    const QString here = QDir::currentPath(); // without links
    EXPECT_TRUE(OpenStartFile(QStringLiteral("a.tvm")));
    ASSERT_TRUE(QDir::setCurrent(before));
    EXPECT_EQ(opened, here + "/a.tvm");
    EXPECT_EQ(Program().LastFile.Folder, QDir::toNativeSeparators(here + '/'));
    EXPECT_EQ(Program().LastFile.Path, here + "/a.tvm");
}

#if defined(Q_OS_UNIX)

TEST_F(StartFile, ThatCannotBeReadIsPassedOverWithoutAWord)
{
    Store(FilePath("a.tvm"), "x");
    SetLastFile(FilePath("before.tvm"));
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit none{ 0, before.rlim_max }; // so that no more files can be opened, not even by the administrator
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    const bool opened = OpenStartFile(FilePath("a.tvm"));
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_FALSE(opened);
    EXPECT_TRUE(host.Log.isEmpty());
    EXPECT_EQ(Program().LastFile.Name, "before");
}

#endif

TEST_F(StartFile, LeavesTheLastFileAloneWhenThereIsNoSuchFile)
{
    SetLastFile(FilePath("before.tvm"));
    EXPECT_FALSE(OpenStartFile(FilePath("none.tvm")));
    EXPECT_EQ(Program().LastFile.Name, "before");
}

TEST_F(Shutdown, IsRefusedWithoutAWordWhileACommandRuns)
{
    BeginBusy();
    EXPECT_FALSE(ProjectQueryUnload());
    EXPECT_TRUE(host.Log.isEmpty());
    EXPECT_FALSE(QFile::exists(FilePath("Tarvik.ini")));
}

TEST_F(Shutdown, IsRefusedWithoutAWordWhileADialogIsOpen)
{
    FakeDialog dialog;
    DialogPush(dialog, false);
    EXPECT_FALSE(ProjectQueryUnload());
    EXPECT_TRUE(host.Log.isEmpty());
    EXPECT_FALSE(QFile::exists(FilePath("Tarvik.ini")));
    EXPECT_FALSE(dialog.WasUnloaded);
    DialogPop();
    EXPECT_TRUE(ProjectQueryUnload());
}

TEST_F(Shutdown, ClosesTheDocumentsThenWritesTheSettings)
{
    bool writtenBefore = true;
    documents.OnCloseAll = [&] {
        writtenBefore = QFile::exists(FilePath("Tarvik.ini"));
        EXPECT_FALSE(Program().Idle);
    };
    EXPECT_TRUE(ProjectQueryUnload());
    EXPECT_FALSE(writtenBefore);
    EXPECT_TRUE(QFile::exists(FilePath("Tarvik.ini")));
    EXPECT_TRUE(Program().Idle);
}

TEST_F(Shutdown, WritesTheSettingsAlsoWhenAPromptWasCancelled)
{
    Store(FilePath("Tarvik.ini"), "[Window]\r\nToolbar=1\r\n");
    Program().ToolbarOn = false;
    documents.Closes = false;
    EXPECT_FALSE(ProjectQueryUnload());
    EXPECT_FALSE(IniReadBool(FilePath("Tarvik.ini"), "Window", "Toolbar", true));
    EXPECT_TRUE(CanAct());
}

TEST_F(Shutdown, GivesBackTheLinkThenTheHook)
{
    static QStringList* log = nullptr;
    log = &host.Log;
    TvScpi().scpiDisconnect = [] { log->append(QStringLiteral("disconnect")); };
    ProjectUnload(host);
    EXPECT_EQ(host.Log, QStringList({ "disconnect", "unhook" }));
    EXPECT_TRUE(Program().Ended);
}

TEST_F(Shutdown, GivesBackTheHookWithoutAChannel)
{
    ModulesReset();
    ProjectUnload(host);
    EXPECT_EQ(host.Log, QStringList{ "unhook" });
}

} // namespace tarvik
