// The commands of the file control window: folders, editors, viewer.
#include "tests/link/control/control_fixture.h"
#include "tests/link/files/fakeDrives.h"
#include "tests/support/fakeDocuments.h"

#include <QDir>
#include <QFileInfo>

namespace tarvik {

namespace {

class FakeViewer final : public ScreenShotViewer {
public:
    explicit FakeViewer(QStringList& asked)
        : asked_(asked)
    {
        TheScreenShotViewer().Set(*this);
    }

    void Show(const QString& path, int row) override
    {
        asked_.append(QStringLiteral("viewer %1 %2").arg(path).arg(row));
    }

private:
    QStringList& asked_;
};

using ControlFolders = ControlTest;

class ControlEditors : public ControlTest {
protected:
    ControlEditors()
    {
        Editors.OnOpen = [this](const QString& path, FileClass fileClass) {
            Asked.append(QStringLiteral("editor %1 %2").arg(FileClassNumber(fileClass)).arg(path));
            CanClose = ControlCanClose(Control);
            DuringEditor();
            return true;
        };
    }
    QString PcFile(const QString& name) const
    {
        return FilePath(QStringLiteral("pc/") + name);
    }

    FakeListFiles Editors;
    bool CanClose = true;
    std::function<void()> DuringEditor = [] {};
};

} // namespace

TEST_F(ControlFolders, NewFolderOnPcIsEdited)
{
    Open(FileClassKfactorTable);
    ControlNewFolder(Control, ControlSide::Pc);
    EXPECT_TRUE(QFileInfo(FilePath("pc/New Folder")).isDir());
    EXPECT_EQ(Asked, QStringList({ "focus pc", "edit pc 0", "transfers 0 0" }));
}

TEST_F(ControlFolders, NewFolderOnInstrumentShowsBusyPointer)
{
    Open(FileClassScreenShot);
    ControlNewFolder(Control, ControlSide::Instr);
    EXPECT_EQ(Instrument.Log.last(), "CreateDirectory New Folder");
    EXPECT_EQ(Asked, QStringList({ "pointer 1", "focus instr", "edit instr 0", "pointer 0", "transfers 0 0" }));
}

TEST_F(ControlFolders, OpenEntersSelectedFolderOfPc)
{
    OnPc({ "+folder", "a.tvk" });
    OnPc({ "folder/b.tvk" });
    Open(FileClassKfactorTable);
    Select(ControlSide::Pc, { "a.tvk" });
    ControlOpenFolder(Control, ControlSide::Pc);
    EXPECT_EQ(Asked, QStringList()) << "a file is no folder";
    Select(ControlSide::Pc, { "folder" });
    ControlOpenFolder(Control, ControlSide::Pc);
    EXPECT_EQ(CurrentPcFolder(), FilePath("pc/folder"));
    EXPECT_EQ(Names(ControlSide::Pc), QStringList({ "b.tvk" }));
    EXPECT_EQ(Asked, QStringList({ "pointer 1", "combo pc", "pointer 0", "transfers 0 0" }));
}

TEST_F(ControlFolders, OpenEntersSelectedFolderOfInstrument)
{
    OnInstr({ "+Trip" });
    Open(FileClassScreenShot);
    Select(ControlSide::Instr, { "Trip" });
    ControlOpenFolder(Control, ControlSide::Instr);
    EXPECT_EQ(Instrument.Log.first(), "SetCurrentDirectory Trip");
    EXPECT_EQ(Instrument.Count("StartFindAllFiles"), 1);
    EXPECT_EQ(Control.CmbInstr.Items.back().Text, "Trip");
}

TEST_F(ControlFolders, UpOnPcEndsAtRoot)
{
    Open(FileClassKfactorTable);
    ControlFolderUp(Control, ControlSide::Pc);
    EXPECT_EQ(CurrentPcFolder() + '/', Folder());
    EXPECT_EQ(Asked, QStringList({ "combo pc", "transfers 0 0" }));
    CurrentPcFolder() = "/";
    Asked.clear();
    Answers().Expect(12731, Ok);
    ControlFolderUp(Control, ControlSide::Pc);
    EXPECT_EQ(Asked, QStringList());
    EXPECT_EQ(CurrentPcFolder(), "/");
}

TEST_F(ControlFolders, UpOnInstrumentGoesUpAndReadsList)
{
    Open(FileClassScreenShot);
    ControlFolderUp(Control, ControlSide::Instr);
    EXPECT_EQ(Instrument.Directory, "\\Public");
    EXPECT_EQ(Instrument.Count("StartFindAllFiles"), 1);
    EXPECT_EQ(Asked, QStringList({ "combo instr", "transfers 0 0" }));
}

TEST_F(ControlFolders, UpOnInstrumentEndsAtRoot)
{
    Instrument.Directory = "\\";
    Open(FileClassScreenShot);
    Answers().Expect(12731, Ok);
    ControlFolderUp(Control, ControlSide::Instr);
    EXPECT_EQ(Instrument.Log, QStringList({ "GetCurrentDirectory" }));
}

TEST_F(ControlFolders, UpClosesWindowWhenLinkIsLost)
{
    Open(FileClassScreenShot);
    Instrument.Answer("GetCurrentDirectory", ChannelStatus::LinkFailed);
    Instrument.Gone = true;
    Answers().Expect(12704, Ok);
    ControlFolderUp(Control, ControlSide::Instr);
    EXPECT_EQ(Instrument.Log, QStringList({ "GetCurrentDirectory", "CheckConnection", "Disconnect" }));
    EXPECT_EQ(Asked, QStringList({ "transfers 0 0", "close" }));
}

TEST_F(ControlFolders, UpKeepsWindowWhileLinkIsUp)
{
    Open(FileClassScreenShot);
    Instrument.Answer("GetCurrentDirectory", ChannelStatus::Refused);
    Answers().Expect(12704, Ok);
    ControlFolderUp(Control, ControlSide::Instr);
    EXPECT_EQ(Instrument.Log, QStringList({ "GetCurrentDirectory", "CheckConnection" }));
    EXPECT_EQ(Asked, QStringList());
}

TEST_F(ControlFolders, FirstDropDownOfPcShowsThatDrivesAreRead)
{
    QString status;
    FakeDrives drives;
    drives.OnRead = [&] { status = Frame.Status; };
    Open(FileClassKfactorTable);
    ControlDropDown(Control, ControlSide::Pc);
    EXPECT_EQ(status, "Reading the drives...");
    EXPECT_EQ(Frame.Status, "");
    EXPECT_EQ(Control.CmbPc.Tag, FolderComboTag::Drives);
    status.clear();
    ControlDropDown(Control, ControlSide::Pc);
    EXPECT_EQ(status, "");
}

TEST_F(ControlFolders, ChosenFolderOfPcIsShown)
{
    const FakeDrives drives;
    Open(FileClassKfactorTable);
    ControlDropDown(Control, ControlSide::Pc);
    Asked.clear();
    ControlSelectFolder(Control, ControlSide::Pc, 0);
    EXPECT_EQ(CurrentPcFolder(), "/");
    EXPECT_EQ(Asked, QStringList({ "pointer 1", "combo pc", "pointer 0", "transfers 0 0" }));
}

TEST_F(ControlFolders, ChosenFolderOfInstrumentIsShown)
{
    Open(FileClassScreenShot);
    ControlDropDown(Control, ControlSide::Instr);
    ControlSelectFolder(Control, ControlSide::Instr, 1);
    EXPECT_EQ(Instrument.Directory, "\\Public");
    EXPECT_EQ(Instrument.Count("StartFindAllFiles"), 1);
}

TEST_F(ControlFolders, MissingChosenFolderLeavesList)
{
    Open(FileClassScreenShot);
    ControlDropDown(Control, ControlSide::Instr);
    Instrument.Answer("SetCurrentDirectory", ChannelStatus::Refused);
    Answers().Expect(12747, Ok);
    ControlSelectFolder(Control, ControlSide::Instr, 1);
    EXPECT_EQ(Instrument.Count("StartFindAllFiles"), 0);
    EXPECT_TRUE(Asked.contains("combo instr"));
}

TEST_F(ControlEditors, EditOpensSelectedFile)
{
    OnPc({ "Van.tvm" });
    Open(FileClassMemoryList);
    Select(ControlSide::Pc, { "Van.tvm" });
    DuringEditor = [this] { OnPc({ "Bus.tvm" }); };
    ControlEdit(Control);
    EXPECT_EQ(
        Asked, QStringList({ "buttons 0", "editor 3 " + PcFile("Van.tvm"), "buttons 1", "focus pc", "transfers 0 0" }));
    EXPECT_EQ(Names(ControlSide::Pc), QStringList({ "Bus.tvm", "Van.tvm" }));
    EXPECT_FALSE(CanClose) << "an editor is open";
}

TEST_F(ControlEditors, EditReportsThatNoFileIsSelected)
{
    OnPc({ "+folder" });
    Open(FileClassMemoryList);
    Answers().Expect(12722, { "memory list", "memory list" }, Ok);
    ControlEdit(Control);
    Select(ControlSide::Pc, { "folder" });
    Answers().Expect(12722, { "memory list", "memory list" }, Ok);
    ControlEdit(Control);
    EXPECT_EQ(Asked, QStringList());
}

TEST_F(ControlEditors, NewOpensEmptyEditor)
{
    Open(FileClassSuppressList);
    ControlNew(Control);
    EXPECT_EQ(Asked, QStringList({ "buttons 0", "editor 4 ", "buttons 1", "focus pc", "transfers 0 0" }));
}

TEST_F(ControlEditors, FileClassSurvivesEditorOfOtherClass)
{
    OnPc({ "a.tva" });
    Open(FileClassAntennaList);
    DuringEditor = [] { ModFileInit(FileClassKfactorTable); };
    ControlNew(Control);
    EXPECT_EQ(FileClasses().CurrentFileClass, FileClassAntennaList);
    EXPECT_EQ(Names(ControlSide::Pc), QStringList({ "a.tva" }));
}

TEST_F(ControlEditors, DoubleClickEntersFolderOrOpensFile)
{
    OnPc({ "+folder", "Van.tvm" });
    Open(FileClassMemoryList);
    ControlOpenRow(Control, ControlSide::Pc, 1);
    EXPECT_TRUE(Asked.contains("editor 3 " + PcFile("Van.tvm")));
    ControlOpenRow(Control, ControlSide::Pc, 0);
    EXPECT_EQ(CurrentPcFolder(), FilePath("pc/folder"));
    Asked.clear();
    ControlOpenRow(Control, ControlSide::Pc, 5);
    ControlOpenRow(Control, ControlSide::Pc, -1);
    EXPECT_EQ(Asked, QStringList());
}

TEST_F(ControlEditors, DoubleClickAndEditOpenTheEditorOfEachClass)
{
    const QList<std::pair<FileClass, QString>> files{ { FileClassAntennaList, "a.tva" },
        { FileClassKfactorTable, "a.tvk" }, { FileClassMemoryList, "a.tvm" }, { FileClassSuppressList, "a.tvs" },
        { FileClassCorrectionSet, "a.tvc" } };
    for (const auto& [fileClass, name] : files) {
        OnPc({ name });
        Open(fileClass);
        const QString opened = QStringLiteral("editor %1 ").arg(FileClassNumber(fileClass)) + PcFile(name);
        ControlOpenRow(Control, ControlSide::Pc, static_cast<int>(Names(ControlSide::Pc).indexOf(name)));
        EXPECT_EQ(Asked.count(opened), 1) << name.toStdString();
        Select(ControlSide::Pc, { name });
        ControlEdit(Control);
        EXPECT_EQ(Asked.count(opened), 2) << name.toStdString();
    }
}

TEST_F(ControlEditors, DoubleClickOnFileOfInstrumentDoesNothing)
{
    OnInstr({ "a.png", "+Trip" });
    Open(FileClassScreenShot);
    ControlOpenRow(Control, ControlSide::Instr, 1);
    EXPECT_EQ(Asked, QStringList());
    ControlOpenRow(Control, ControlSide::Instr, 0);
    EXPECT_EQ(Instrument.Directory, "\\Public\\Screen Shots\\Trip");
}

TEST_F(ControlEditors, DoubleClickOnScreenShotOpensViewer)
{
    OnPc({ "a.png", "b.png" });
    Open(FileClassScreenShot);
    FakeViewer viewer(Asked);
    ControlOpenRow(Control, ControlSide::Pc, 1);
    EXPECT_EQ(Asked, QStringList({ "buttons 0", "viewer " + PcFile("b.png") + " 1", "buttons 1", "transfers 0 0" }));
    EXPECT_EQ(Control.ViewedRow, 1);
}

} // namespace tarvik
