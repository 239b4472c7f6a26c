#include "app/forms/dialog.h"
#include "app/settings/ini.h"
#include "app/text/lang.h"
#include "tests/app/frame/startup_fixture.h"
#include "tests/support/fakeDialog.h"

#include <QDir>
#include <QRegularExpression>

#include <cstdio>

namespace tarvik {

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

TEST_F(Startup, ResetsTheProgramState)
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

TEST_F(Startup, TakesItsTitleFromTheLanguage)
{
    TvLng().LngGetStr = [](int32_t id, const char*, char* out, int32_t outSize) -> int32_t {
        return std::snprintf(out, static_cast<size_t>(outSize), "text %d", id);
    };
    ASSERT_TRUE(Init());
    EXPECT_EQ(Program().ProgramTitle, "text 11800");
}

TEST_F(Startup, FindsItsFilesInTheFolderOfTheExecutable)
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

TEST_F(Startup, LoadsAllFiveLibrariesAfterAFailure)
{
    host.Missing = { Module::General };
    EXPECT_FALSE(Init());
    EXPECT_EQ(host.Log.size(), 5);
    EXPECT_EQ(host.Log.last(), QStringLiteral("load ") + ModuleFileName(Module::Traces));
}

TEST_F(Startup, ReportsAMissingTextLibraryInASystemBox)
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

TEST_F(Startup, ReportsAnyOtherLibraryByMessage12705)
{
    for (const Module module : { Module::Channel, Module::ListStore, Module::Traces }) {
        host.Missing = { module };
        Answers().Expect(12705, { ModuleFileName(module).toUpper() }, Ok);
        EXPECT_FALSE(Init());
        Answers().Verify();
    }
    EXPECT_TRUE(boxes.isEmpty());
}

TEST_F(Startup, PrintsTheReasonAfterTheText)
{
    host.Missing = { Module::Language, Module::ListStore };
    const QString missing = ModuleFileName(Module::ListStore);
    Answers().Expect(12705, { missing.toUpper() }, Ok);
    EXPECT_FALSE(Init());
    EXPECT_EQ(printed,
        QStringList(
            { "Tarvik: " + ModuleMissingText(Module::Language) + "\rreason of " + ModuleFileName(Module::Language),
                "Tarvik: " + LngStr1(12705, missing.toUpper()) + "\rreason of " + missing }));
    EXPECT_EQ(boxes, QStringList{ "Tarvik|" + ModuleMissingText(Module::Language) }) << "without the reason";
}

TEST_F(Startup, ReportsEveryMissingLibrary)
{
    host.Missing = { Module::General, Module::Channel, Module::Traces };
    Answers().Expect(12705, { ModuleFileName(Module::Channel).toUpper() }, Ok);
    Answers().Expect(12705, { ModuleFileName(Module::Traces).toUpper() }, Ok);
    EXPECT_FALSE(Init());
    EXPECT_EQ(boxes.size(), 1);
}

TEST_F(Startup, ReportsInASystemBoxWhenTheTextsAreMissingToo)
{
    ModulesReset();
    host.Missing = { Module::Language, Module::Channel };
    EXPECT_FALSE(Init());
    ASSERT_EQ(boxes.size(), 2);
    EXPECT_TRUE(boxes[1].contains(ModuleFileName(Module::Channel).toUpper())) << boxes[1].toStdString();
}

TEST_F(Startup, StopsWithoutItsLibraries)
{
    host.Missing = { Module::General };
    EXPECT_FALSE(Init());
    EXPECT_FALSE(host.Log.contains("settings"));
    EXPECT_FALSE(host.Log.contains("texts"));
}

TEST_F(Startup, IgnoresAStoredAutoTile)
{
    IniWriteBool(FilePath("Tarvik.ini"), "Window", "AutoTile", true);
    ASSERT_TRUE(Init());
    EXPECT_FALSE(Program().AutoTile);
    ASSERT_TRUE(ProjectQueryUnload());
    EXPECT_FALSE(IniReadBool(FilePath("Tarvik.ini"), "Window", "AutoTile", true));
}

TEST_F(Startup, WritesAutoTileWhenSwitchedOn)
{
    ASSERT_TRUE(Init());
    Program().AutoTile = true;
    ASSERT_TRUE(ProjectQueryUnload());
    EXPECT_TRUE(IniReadBool(FilePath("Tarvik.ini"), "Window", "AutoTile", false));
}

TEST_F(Startup, NeitherOpensNorConnectsAfterACloseRequest)
{
    Store(FilePath("plan.tvm"), "x");
    host.Line = FilePath("plan.tvm");
    ASSERT_TRUE(Init());
    host.WhenShown = [] { Program().CloseRequested = true; };
    ASSERT_TRUE(ProjectStart(host));
    EXPECT_TRUE(Program().Started);
    EXPECT_TRUE(Program().CloseRequested);
    EXPECT_TRUE(host.Log.filter(QRegularExpression(QStringLiteral("^(open|connect) "))).isEmpty());
}

TEST_F(Startup, EndsWithLogoStatus3)
{
    ASSERT_TRUE(Init());
    host.Log.clear();
    host.LogoStatus = 3;
    EXPECT_FALSE(ProjectStart(host));
    EXPECT_EQ(host.Log, QStringList{ "logo" });
    EXPECT_FALSE(Program().Started);
}

TEST_F(Startup, ContinuesWithAnyOtherLogoStatus)
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

TEST_F(Startup, ReportsPreReleaseBetweenFrameAndConnection)
{
    ASSERT_TRUE(Init());
    Program().PreRelease = "beta 2";
    const QString version = "Tarvik " + ProductVersionNumbers() + ' ' + ProductVersionText();
    host.Log.clear();
    Answers().ExpectWhile(12706, Ok, [this] { host.Log.append("message"); });
    ASSERT_TRUE(ProjectStart(host));
    EXPECT_TRUE(TheMessage().Text.startsWith(version + " is a pre-release version")) << TheMessage().Text.toStdString();
    const qsizetype message = host.Log.indexOf("message");
    EXPECT_GT(message, host.Log.indexOf("show"));
    EXPECT_LT(message, host.Log.indexOf("connect 0"));
}

TEST_F(Startup, SaysThatSettingsCannotBeSaved)
{
    Store(FilePath("config"), "a file");
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(FilePath("config")));
    ASSERT_TRUE(Init());
    Program().AppPath = FilePath("gone/");
    host.Log.clear();
    Answers().ExpectWhile(12931, Ok, [this] { host.Log.append("message"); });
    ASSERT_TRUE(ProjectStart(host));
    EXPECT_EQ(TheMessage().Args, QStringList{ FilePath("config/tarvik") });
    const qsizetype message = host.Log.indexOf("message");
    EXPECT_GT(message, host.Log.indexOf("show"));
    EXPECT_LT(message, host.Log.indexOf("connect 0"));
}

TEST_F(Startup, SaysNothingOfSettingsAfterACloseRequest)
{
    Store(FilePath("config"), "a file");
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(FilePath("config")));
    ASSERT_TRUE(Init());
    Program().AppPath = FilePath("gone/");
    host.WhenShown = [] { Program().CloseRequested = true; };
    EXPECT_TRUE(ProjectStart(host));
}

TEST_F(Startup, OpensTheFileOfTheCommandLineInsteadOfConnecting)
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

TEST_F(Startup, ConnectsSilentlyWhenTheCommandLineNamesNoFile)
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

TEST_F(Startup, PassesOnWhetherTheLinkWasUpAtTheLastExit)
{
    ASSERT_TRUE(Init());
    Program().ConnectedAtExit = true;
    ASSERT_TRUE(ProjectStart(host));
    EXPECT_TRUE(host.Log.contains("connect 1"));
}

TEST_F(Startup, CanActOnlyAfterItsLastStep)
{
    ASSERT_TRUE(Init());
    link.WasStarted = true;
    ASSERT_TRUE(ProjectStart(host));
    EXPECT_FALSE(link.WasStarted);
    EXPECT_TRUE(CanAct());
}

} // namespace tarvik
