#include "app/settings/settings.h"

#include "app/state/project.h"
#include "tests/support/fakeFrame.h"
#include "tests/support/fixture.h"

namespace tarvik {

class Settings : public ProgramTest {
protected:
    Settings()
    {
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(FilePath("config")));
    }

    /// A frame on a screen of 15360 by 11520 twips with a maximum height of 11000.
    FakeFrame& BindFrame()
    {
        frame_.emplace();
        frame_->Screen = { 15360, 11520 };
        frame_->HighestTwips = 11000;
        frame_->Place = FramePlacement{ WinState::Normal, QRectF(150, 300.5, 9000, 6000) };
        return *frame_;
    }

    void StoreIni(const QByteArray& text)
    {
        Store(IniFileName(), text);
    }

    QStringList Lines() const
    {
        return QString::fromUtf8(Contents(IniFileName())).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

private:
    std::optional<FakeFrame> frame_;
};

TEST_F(Settings, AreInTheFolderOfTheExecutable)
{
    EXPECT_EQ(IniFileName(), Program().AppPath + "Tarvik.ini");
}

TEST_F(Settings, MissingFileGivesDefaults)
{
    BindFrame();
    IniRead();
    EXPECT_EQ(Program().MainWindowState, WinState::Maximised);
    EXPECT_TRUE(Program().ToolbarOn);
    EXPECT_TRUE(Program().StatusBarOn);
    EXPECT_FALSE(Program().AutoTile);
    EXPECT_EQ(Program().LastFile.Name, "");
    EXPECT_EQ(Program().LastFile.Folder, Program().AppPath);
    EXPECT_FALSE(QFileInfo::exists(IniFileName()));
}

TEST_F(Settings, FrameDefaultsFollowTheActualSize)
{
    const FakeFrame& frame = BindFrame();
    IniRead();
    EXPECT_EQ(Program().MainWindowState, WinState::Maximised);
    EXPECT_EQ(frame.Placed, QStringList({ "size 15360 11520", "place 0 520" }));
}

TEST_F(Settings, FrameIsSizedBeforeItIsMoved)
{
    const FakeFrame& frame = BindFrame();
    StoreIni("[Tarvik]\nWinLeft=1,5\nWinTop=20.5\nWinState=0\nWinHeight=6000\nWinWidth=9000\n");
    IniRead();
    EXPECT_EQ(frame.Placed, QStringList({ "size 9000 6000", "place 1 20.5" }));
    EXPECT_EQ(Program().MainWindowState, WinState::Normal);
}

TEST_F(Settings, TakesAnUnknownFrameStateForNormal)
{
    for (const auto& [stored, state] : { std::pair("1", WinState::Minimised), std::pair("2", WinState::Maximised),
             std::pair("3", WinState::Normal), std::pair("-1", WinState::Normal) }) {
        StoreIni(QByteArray("[Tarvik]\nWinState=") + stored + '\n');
        IniRead();
        EXPECT_EQ(Program().MainWindowState, state) << stored;
    }
}

TEST_F(Settings, FrameLengthsAreLimited)
{
    const FakeFrame& frame = BindFrame();
    StoreIni("[Tarvik]\nWinWidth=1e30\nWinHeight=6000\nWinLeft=-1e30\nWinTop=0\n");
    IniRead();
    EXPECT_EQ(frame.Placed, QStringList({ "size 1e+06 6000", "place -1e+06 0" }));
}

TEST_F(Settings, FrameIsWrittenFirstWithItsNormalPlace)
{
    BindFrame();
    IniWrite();
    EXPECT_EQ(Lines().first(6),
        QStringList({ "[Tarvik]", "WinState=0", "WinLeft=150", "WinTop=300.5", "WinWidth=9000", "WinHeight=6000" }));
}

TEST_F(Settings, KeysOfTheFrameStayWithoutAFrame)
{
    StoreIni("[Tarvik]\nWinLeft=7\n");
    IniRead();
    IniWrite();
    EXPECT_EQ(Lines().first(2), QStringList({ "[Tarvik]", "WinLeft=7" }));
    EXPECT_EQ(Lines().filter(QStringLiteral("Win")), QStringList({ "WinLeft=7", "[Window]" }));
}

TEST_F(Settings, LastFileComesFromFolderAndName)
{
    StoreIni("[File]\nPath=" + Folder().toUtf8() + "lists\nName=Plan.TVM\n");
    IniRead();
    EXPECT_EQ(Program().LastFile.Path, Folder() + "lists/Plan.TVM");
    EXPECT_EQ(Program().LastFile.Name, "Plan");
    EXPECT_EQ(Program().LastFile.Extension, "tvm");
}

TEST_F(Settings, BlankFolderOfTheLastFileIsTheProgramFolder)
{
    StoreIni("[File]\nPath=\"   \"\nName=x.tvm\n");
    IniRead();
    EXPECT_EQ(Program().LastFile.Folder, Program().AppPath);
    EXPECT_EQ(Program().LastFile.Name, "x");
}

TEST_F(Settings, LastFileIsWrittenAsItWasOpened)
{
    SetLastFile("/Home/Lists/Plan.TVM");
    IniWrite();
    EXPECT_EQ(Lines().first(3), QStringList({ "[File]", "Path=/Home/Lists/", "Name=Plan.TVM" }));
}

TEST_F(Settings, SwitchesAreReadAndWrittenLast)
{
    StoreIni("[Window]\nToolbar=0\nStatusbar=2\nAutoTile=1\n");
    IniRead();
    EXPECT_FALSE(Program().ToolbarOn);
    EXPECT_FALSE(Program().StatusBarOn);
    EXPECT_TRUE(Program().AutoTile);
    QFile::remove(IniFileName());
    Program().ToolbarOn = true;
    IniWrite();
    EXPECT_EQ(Lines().last(4), QStringList({ "[Window]", "Toolbar=1", "Statusbar=0", "AutoTile=1" }));
}

TEST_F(Settings, GroupsRunBetweenLastFileAndSwitches)
{
    static QStringList log;
    log.clear();
    const SettingsGroup first{ [](const QString&) { log.append(QStringLiteral("read a")); },
        [](const QString& file) {
            EXPECT_EQ(file, IniFileName());
            log.append(QStringLiteral("write a"));
        } };
    const SettingsGroup second{ [](const QString&) { log.append(QStringLiteral("read b")); },
        [](const QString&) { log.append(QStringLiteral("write b")); } };
    SettingsSetGroups({ first, second });
    IniRead();
    IniWrite();
    EXPECT_EQ(log, QStringList({ "read a", "read b", "write a", "write b" }));
}

TEST_F(Settings, ForeignLinesAreKept)
{
    StoreIni("; my notes\n[Window]\nToolbar=1\nLater=5\n\n[Other]\nx=1\n");
    IniRead();
    Program().ToolbarOn = false;
    IniWrite();
    EXPECT_TRUE(Contents(IniFileName())
                    .startsWith("; my notes\n[Window]\nToolbar=0\nLater=5\nStatusbar=1\nAutoTile=0\n\n[Other]\nx=1\n"));
}

TEST_F(Settings, UnwritableFileKeepsTheLastSettings)
{
    StoreIni("[Window]\nToolbar=1\n");
    QFile::setPermissions(IniFileName(), QFile::ReadOwner);
    Program().ToolbarOn = false;
    IniWrite();
    EXPECT_EQ(IniFileName(), Program().AppPath + "Tarvik.ini");
    EXPECT_EQ(Contents(IniFileName()), "[Window]\nToolbar=1\n");
    EXPECT_TRUE(IniHasPlace());
    EXPECT_FALSE(QFileInfo::exists(FilePath("config")));
}

} // namespace tarvik
