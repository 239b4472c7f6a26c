#include "app/forms/dialog.h"
#include "app/settings/ini.h"
#include "app/state/statusBar.h"
#include "closed/loader.h"
#include "tests/app/frame/startup_fixture.h"
#include "tests/support/fakeDialog.h"

#include <QFile>

namespace tarvik {

namespace {

class Shutdown : public Startup { };

} // namespace

TEST_F(Shutdown, IsRefusedSilentlyWhileACommandRuns)
{
    BeginBusy();
    EXPECT_FALSE(ProjectQueryUnload());
    EXPECT_TRUE(host.Log.isEmpty());
    EXPECT_FALSE(QFile::exists(FilePath("Tarvik.ini")));
}

TEST_F(Shutdown, IsRefusedSilentlyWhileADialogIsOpen)
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

TEST_F(Shutdown, WritesTheSettingsEvenAfterACancelledPrompt)
{
    Store(FilePath("Tarvik.ini"), "[Window]\r\nToolbar=1\r\n");
    Program().ToolbarOn = false;
    documents.Closes = false;
    EXPECT_FALSE(ProjectQueryUnload());
    EXPECT_FALSE(IniReadBool(FilePath("Tarvik.ini"), "Window", "Toolbar", true));
    EXPECT_TRUE(CanAct());
}

TEST_F(Shutdown, DisconnectsThenRemovesTheHook)
{
    static QStringList* log = nullptr;
    log = &host.Log;
    TvScpi().scpiDisconnect = [] { log->append(QStringLiteral("disconnect")); };
    ProjectUnload(host);
    EXPECT_EQ(host.Log, QStringList({ "disconnect", "unhook" }));
    EXPECT_TRUE(Program().Ended);
}

TEST_F(Shutdown, RemovesTheHookWithoutAChannel)
{
    ModulesReset();
    ProjectUnload(host);
    EXPECT_EQ(host.Log, QStringList{ "unhook" });
}

} // namespace tarvik
