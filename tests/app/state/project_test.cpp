#include "app/state/project.h"

#include "app/platform/processState.h"
#include "tests/support/fixture.h"

namespace tarvik {

using Project = ProgramTest;

TEST_F(Project, VersionTextIsItsThreeNumbers)
{
    EXPECT_EQ(
        ProductVersionText(), QStringLiteral("%1.%2.%3").arg(ProductMajor()).arg(ProductMinor()).arg(ProductBuild()));
    EXPECT_EQ(ProductTitle(), "Tarvik");
    EXPECT_EQ(ProductSecondBuild(), 0);
    EXPECT_EQ(Program().PreRelease, "");
    EXPECT_EQ(HelpFileName(), "TARVIK.chm");
}

TEST_F(Project, ResetRestoresTheStartValues)
{
    Program().Idle = false;
    Program().AutoTile = true;
    Program().MainWindowState = WinState::Normal;
    Program().LastFile.Name = "x";
    ResetAllState();
    EXPECT_TRUE(Program().Idle);
    EXPECT_FALSE(Program().Started);
    EXPECT_FALSE(Program().AutoTile);
    EXPECT_EQ(Program().MainWindowState, WinState::Maximised);
    EXPECT_EQ(Program().DialogResult, 1);
    EXPECT_EQ(Program().LastFile.Name, "");
}

#if !defined(Q_OS_WIN) && !defined(Q_OS_MACOS)

TEST_F(Project, LastFileIsSplitIntoItsParts)
{
    SetLastFile(" /Home/My Lists/Plan.2024.TVM ");
    const LastFileName& last = Program().LastFile;
    EXPECT_EQ(last.Path, "/Home/My Lists/Plan.2024.TVM");
    EXPECT_EQ(last.Folder, "/Home/My Lists/");
    EXPECT_EQ(last.Name, "Plan.2024");
    EXPECT_EQ(last.Extension, "tvm");
}

TEST_F(Project, LastFileMayBeAFolderAlone)
{
    SetLastFile("/Home/Lists/");
    const LastFileName& last = Program().LastFile;
    EXPECT_EQ(last.Folder, "/Home/Lists/");
    EXPECT_EQ(last.Name, "");
    EXPECT_EQ(last.Extension, "");
}

#endif

} // namespace tarvik
