#include "app/settings/settings.h"

#include "app/state/project.h"
#include "tests/support/fixture.h"

#include <algorithm>

namespace tarvik {

class Settings : public ProgramTest {
protected:
    /// A frame on a screen of 15360 by 11520 twips that takes no height above 11000.
    void BindFrame()
    {
        FramePlacementHooks& frame = TheFramePlacement();
        frame.ScreenSizeTwips = [] { return QSizeF(15360, 11520); };
        frame.SetState = [this](int state) { Note("state", state); };
        frame.SetWidthTwips = [this](double width) {
            Note("width", width);
            Size.setWidth(width);
        };
        frame.SetHeightTwips = [this](double height) {
            Note("height", height);
            Size.setHeight(std::min(height, 11000.0));
        };
        frame.SetLeftTwips = [this](double left) { Note("left", left); };
        frame.SetTopTwips = [this](double top) { Note("top", top); };
        frame.SizeTwips = [this] { return Size; };
        frame.State = [] { return int{ WinStateNormal }; };
        frame.NormalRectTwips = [] { return QRectF(150, 300.5, 9000, 6000); };
    }

    void StoreIni(const QByteArray& text)
    {
        Store(IniFileName(), text);
    }

    QStringList Lines() const
    {
        return QString::fromUtf8(Contents(IniFileName())).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

    QStringList Log; ///< what was set on the frame, in order
    QSizeF Size;

private:
    void Note(const char* what, double value)
    {
        Log.append(QStringLiteral("%1 %2").arg(QLatin1String(what)).arg(value));
    }
};

TEST_F(Settings, StandBesideTheExecutable)
{
    EXPECT_EQ(IniFileName(), Program().AppPath + "Tarvik.ini");
}

TEST_F(Settings, MissingFileGivesDefaults)
{
    BindFrame();
    IniRead();
    EXPECT_EQ(Program().MainWindowState, WinStateMaximised);
    EXPECT_TRUE(Program().ToolbarOn);
    EXPECT_TRUE(Program().StatusBarOn);
    EXPECT_FALSE(Program().AutoTile);
    EXPECT_EQ(Program().LastFile.Name, "");
    EXPECT_EQ(Program().LastFile.Folder, Program().AppPath);
    EXPECT_FALSE(QFileInfo::exists(IniFileName()));
}

TEST_F(Settings, FrameDefaultsFollowTheSizeAsSet)
{
    BindFrame();
    IniRead();
    EXPECT_EQ(Log, QStringList({ "state 2", "width 15360", "height 11520", "left 0", "top 520" }));
}

TEST_F(Settings, FrameIsReadInItsOrder)
{
    BindFrame();
    StoreIni("[Tarvik]\nWinLeft=1,5\nWinTop=20.5\nWinState=0\nWinHeight=6000\nWinWidth=9000\n");
    IniRead();
    EXPECT_EQ(Log, QStringList({ "state 0", "width 9000", "height 6000", "left 1", "top 20.5" }));
    EXPECT_EQ(Program().MainWindowState, WinStateNormal);
}

TEST_F(Settings, FrameLengthsStayWithinReach)
{
    BindFrame();
    StoreIni("[Tarvik]\nWinWidth=1e30\nWinHeight=6000\nWinLeft=-1e30\nWinTop=0\n");
    IniRead();
    EXPECT_EQ(Log, QStringList({ "state 2", "width 1e+06", "height 6000", "left -1e+06", "top 0" }));
}

TEST_F(Settings, FrameIsWrittenFirstWithItsNormalPlace)
{
    BindFrame();
    IniWrite();
    EXPECT_EQ(Lines().first(6),
        QStringList({ "[Tarvik]", "WinState=0", "WinLeft=150", "WinTop=300.5", "WinWidth=9000", "WinHeight=6000" }));
}

TEST_F(Settings, WithoutAFrameItsKeysStay)
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
    QStringList log;
    const auto group = [&log](const char* name) {
        return SettingsGroup{ [&log, name](const QString&) { log.append(QStringLiteral("read ") + name); },
            [&log, name](const QString& file) {
                EXPECT_EQ(file, IniFileName());
                log.append(QStringLiteral("write ") + name);
            } };
    };
    SettingsSetGroups({ group("a"), group("b") });
    IniRead();
    IniWrite();
    EXPECT_EQ(log, QStringList({ "read a", "read b", "write a", "write b" }));
}

TEST_F(Settings, ForeignLinesSurvive)
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
    EXPECT_EQ(Contents(IniFileName()), "[Window]\nToolbar=1\n");
}

} // namespace tarvik
