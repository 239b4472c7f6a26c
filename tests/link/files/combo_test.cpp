// The folder boxes: their items, and changing the folder.
#include "link/files/combo.h"

#include "link/files/fileList.h"
#include "tests/link/files/fakeDrives.h"
#include "tests/support/fakeChannel.h"
#include "tests/support/fixture.h"

#include <QDir>

namespace tarvik {

namespace {

class PcCombo : public ProgramTest {
protected:
    PcCombo()
    {
        QDir().mkpath(FilePath(QStringLiteral("lists/van")));
        Root = QDir(Folder()).absolutePath();
        CurrentPcFolder() = Root;
        System.All = { { "/", {}, DriveKind::Fixed }, { Root, "Home", DriveKind::Fixed },
            { "/media/stick", "STICK", DriveKind::Removable } };
    }

    void GoTo(const QString& below)
    {
        CurrentPcFolder() = Root + u'/' + below;
    }

    QStringList Texts() const
    {
        QStringList texts;
        for (const FolderItem& item : Combo.Items)
            texts.append(QString(item.Indentation, u'>') + item.Text + u'|' + item.Icon);
        return texts;
    }

    FolderCombo Combo;
    QString Root;
    FakeDrives System;
};

class InstrCombo : public ProgramTest {
protected:
    QStringList Texts() const
    {
        QStringList texts;
        for (const FolderItem& item : Combo.Items)
            texts.append(QString(item.Indentation, u'>') + item.Text + u'|' + item.Icon);
        return texts;
    }

    FakeChannel Instrument;
    FolderCombo Combo;
};

const QString kSets = QStringLiteral("SetCurrentDirectory");

} // namespace

TEST_F(PcCombo, ShowsCurrentFolderAloneAtItsDepth)
{
    GoTo("lists");
    ComboPcShow(Combo);
    ASSERT_EQ(Combo.Items.size(), 1u);
    EXPECT_EQ(Combo.Items[0].Text, "lists");
    EXPECT_EQ(Combo.Items[0].Icon, "OpenFolder");
    EXPECT_EQ(Combo.Items[0].Indentation, (Root + "/lists").count('/'));
    EXPECT_EQ(Combo.Items[0].Path, Root + "/lists");
    EXPECT_EQ(Combo.Selected, 0);
    EXPECT_EQ(Combo.Tag, FolderComboTag::Current);
    EXPECT_EQ(System.Reads, 0);
}

TEST_F(PcCombo, ShowsRootAsDrive)
{
    CurrentPcFolder() = QDir::rootPath();
    ComboPcShow(Combo);
    ASSERT_EQ(Combo.Items.size(), 1u);
    EXPECT_EQ(Combo.Items[0].Icon, "HardDrive");
    EXPECT_TRUE(Combo.Items[0].Text.endsWith(" (/)")) << Combo.Items[0].Text.toStdString();
    EXPECT_EQ(Combo.Items[0].Indentation, 0);
}

TEST_F(PcCombo, DropsDownDrivesWithFoldersBelowInnermostOne)
{
    GoTo("lists/van");
    ComboPcShow(Combo);
    ComboPcDropDown(Combo);
    EXPECT_EQ(Texts(),
        QStringList({ "File System (/)|HardDrive", "Home (" + Root + ")|HardDrive", ">lists|ClosedFolder",
            ">>van|OpenFolder", "STICK (/media/stick)|Floppy" }));
    EXPECT_EQ(Combo.Selected, 3);
    EXPECT_EQ(Combo.Tag, FolderComboTag::Drives);
}

TEST_F(PcCombo, ReadsDrivesAtFirstDropDownOnly)
{
    ComboPcDropDown(Combo);
    ComboPcDropDown(Combo);
    EXPECT_EQ(System.Reads, 1);
}

TEST_F(PcCombo, SelectsDriveWhoseRootIsCurrentFolder)
{
    ComboPcDropDown(Combo);
    EXPECT_EQ(Combo.Selected, 1);
    EXPECT_EQ(Combo.Items.size(), 3u);
}

TEST_F(PcCombo, ShowsFolderOutsideAllDrivesAlone)
{
    System.All = { { "/nowhere", "N", DriveKind::Fixed } };
    GoTo("lists");
    ComboPcDropDown(Combo);
    EXPECT_EQ(Combo.Items.size(), 1u);
    EXPECT_EQ(Combo.Selected, 0);
}

TEST_F(PcCombo, EntersFolderAndGoesUpAgain)
{
    ComboPcDropDown(Combo);
    ComboPcEnter(Combo, "lists");
    EXPECT_EQ(CurrentPcFolder(), Root + "/lists");
    EXPECT_EQ(Combo.Items[static_cast<size_t>(Combo.Selected)].Text, "lists");
    EXPECT_TRUE(ComboPcUp(Combo));
    EXPECT_EQ(CurrentPcFolder(), Root);
    EXPECT_EQ(Combo.Items.size(), 3u);
}

TEST_F(PcCombo, GoesAboveHomeFolderButNotAboveRoot)
{
    ComboPcDropDown(Combo);
    EXPECT_TRUE(ComboPcUp(Combo));
    EXPECT_EQ(CurrentPcFolder(), QFileInfo(Root).path());
    CurrentPcFolder() = QDir::rootPath();
    EXPECT_FALSE(ComboPcUp(Combo));
    EXPECT_EQ(CurrentPcFolder(), QDir::rootPath());
}

TEST_F(PcCombo, GoesUpToNearestExistingFolder)
{
    GoTo("lists/van");
    ComboPcShow(Combo);
    QDir(Root + "/lists").removeRecursively();
    EXPECT_TRUE(ComboPcUp(Combo));
    EXPECT_EQ(CurrentPcFolder(), Root);
}

TEST_F(PcCombo, EntersFolderOfItem)
{
    GoTo("lists/van");
    ComboPcDropDown(Combo);
    ComboPcSelect(Combo, 2);
    EXPECT_EQ(CurrentPcFolder(), Root + "/lists");
    EXPECT_EQ(Combo.Selected, 2);
    ComboPcSelect(Combo, 0);
    EXPECT_EQ(CurrentPcFolder(), "/");
}

TEST_F(PcCombo, StaysWhenFolderIsMissing)
{
    ComboPcEnter(Combo, "missing");
    EXPECT_EQ(CurrentPcFolder(), Root);
    ComboPcDropDown(Combo);
    ComboPcSelect(Combo, 2); // the stick has been pulled out
    EXPECT_EQ(CurrentPcFolder(), Root);
    ComboPcSelect(Combo, 99);
    ComboPcSelect(Combo, -1);
    EXPECT_EQ(CurrentPcFolder(), Root);
}

TEST_F(InstrCombo, ShowsDirectoryAloneAtItsDepth)
{
    EXPECT_EQ(ComboInstrShow(Combo), ChannelStatus::Success);
    EXPECT_EQ(Texts(), QStringList({ ">>Screen Shots|OpenFolder" }));
}

TEST_F(InstrCombo, ShowsRootAsDrive)
{
    Instrument.Directory = "\\";
    EXPECT_EQ(ComboInstrShow(Combo), ChannelStatus::Success);
    EXPECT_EQ(Texts(), QStringList({ "\\|HardDrive" }));
}

TEST_F(InstrCombo, ShowsBlankItemWithoutAnswer)
{
    Instrument.Answer("GetCurrentDirectory", ChannelStatus::LinkFailed);
    EXPECT_EQ(ComboInstrShow(Combo), ChannelStatus::LinkFailed);
    EXPECT_EQ(Texts(), QStringList({ "|" }));
}

TEST_F(InstrCombo, DropsDownOneItemPerLevel)
{
    ComboInstrDropDown(Combo);
    EXPECT_EQ(Texts(), QStringList({ "\\|HardDrive", ">Public|ClosedFolder", ">>Screen Shots|OpenFolder" }));
    EXPECT_EQ(Combo.Selected, 2);
    EXPECT_EQ(Combo.Items[1].Path, "\\Public");
}

TEST_F(InstrCombo, GoesUpOneLevel)
{
    ComboInstrUp(Combo);
    EXPECT_EQ(
        Instrument.Log, QStringList({ "GetCurrentDirectory", "SetCurrentDirectory \\Public", "GetCurrentDirectory" }));
    EXPECT_EQ(Texts(), QStringList({ "\\|HardDrive", ">Public|OpenFolder" }));
}

TEST_F(InstrCombo, GoesUpFromFirstLevelToRoot)
{
    Instrument.Directory = "\\Public";
    ComboInstrUp(Combo);
    EXPECT_EQ(Instrument.Directory, "\\");
    EXPECT_EQ(Texts(), QStringList({ "\\|HardDrive" }));
}

TEST_F(InstrCombo, ReportsMissingParentDirectory)
{
    EXPECT_EQ(ComboInstrShow(Combo), ChannelStatus::Success);
    Instrument.Answer(kSets, ChannelStatus::Refused);
    Answers().Expect(12747, Ok);
    ComboInstrUp(Combo);
    EXPECT_EQ(Texts(), QStringList({ ">>Screen Shots|OpenFolder" }));
}

TEST_F(InstrCombo, StaysWithoutAnswer)
{
    Instrument.Answer("GetCurrentDirectory", ChannelStatus::LinkFailed);
    ComboInstrUp(Combo);
    EXPECT_EQ(Instrument.Count(kSets), 0);
    Instrument.Answer(kSets, ChannelStatus::LinkFailed);
    ComboInstrEnter(Combo, "Trip");
    EXPECT_TRUE(Combo.Items.empty());
}

TEST_F(InstrCombo, AppendsEnteredDirectory)
{
    EXPECT_EQ(ComboInstrShow(Combo), ChannelStatus::Success);
    ComboInstrEnter(Combo, "Trip");
    EXPECT_EQ(Instrument.Log.last(), "SetCurrentDirectory Trip");
    EXPECT_EQ(Texts(), QStringList({ ">>Screen Shots|ClosedFolder", ">>>Trip|OpenFolder" }));
    EXPECT_EQ(Combo.Items[1].Path, "\\Public\\Screen Shots\\Trip");
    EXPECT_EQ(Combo.Selected, 1);
}

TEST_F(InstrCombo, KeepsIconOfRootWhenDirectoryIsEntered)
{
    Instrument.Directory = "\\";
    EXPECT_EQ(ComboInstrShow(Combo), ChannelStatus::Success);
    ComboInstrEnter(Combo, "Public");
    EXPECT_EQ(Texts(), QStringList({ "\\|HardDrive", ">Public|OpenFolder" }));
    EXPECT_EQ(Combo.Items[1].Path, "\\Public");
}

TEST_F(InstrCombo, ReportsMissingDirectoryToEnter)
{
    EXPECT_EQ(ComboInstrShow(Combo), ChannelStatus::Success);
    Instrument.Answer(kSets, ChannelStatus::Refused);
    Answers().Expect(12747, Ok);
    ComboInstrEnter(Combo, "Trip");
    EXPECT_EQ(Combo.Items.size(), 1u);
}

TEST_F(InstrCombo, EntersDirectoryOfItem)
{
    ComboInstrDropDown(Combo);
    EXPECT_TRUE(ComboInstrSelect(Combo, 1));
    EXPECT_EQ(Instrument.Directory, "\\Public");
    EXPECT_EQ(Texts(), QStringList({ "\\|HardDrive", ">Public|OpenFolder" }));
}

TEST_F(InstrCombo, ReadsDirectoriesAgainWhenThatOfItemIsMissing)
{
    ComboInstrDropDown(Combo);
    Instrument.Answer(kSets, ChannelStatus::Refused);
    Answers().Expect(12747, Ok);
    EXPECT_FALSE(ComboInstrSelect(Combo, 0));
    EXPECT_EQ(Combo.Items.size(), 3u);
    EXPECT_EQ(Combo.Selected, 2);
}

TEST_F(InstrCombo, SendsNothingForBlankItem)
{
    Instrument.Answer("GetCurrentDirectory", ChannelStatus::LinkFailed);
    EXPECT_EQ(ComboInstrShow(Combo), ChannelStatus::LinkFailed);
    EXPECT_FALSE(ComboInstrSelect(Combo, 0));
    EXPECT_EQ(Instrument.Count(kSets), 0);
}

TEST_F(InstrCombo, HandlesAnyPathFromInstrument)
{
    for (const char* path : { "Public\\A", "\\\\", "\\Public\\", "A", "\\\\\\A\\\\" }) {
        Instrument.Directory = QString::fromLatin1(path);
        ComboInstrDropDown(Combo);
        ASSERT_FALSE(Combo.Items.empty()) << path;
        EXPECT_EQ(Combo.Items.front().Text, "\\") << path;
        EXPECT_EQ(Combo.Selected, static_cast<int>(Combo.Items.size()) - 1) << path;
    }
}

} // namespace tarvik
