#include "link/documents/file.h"

#include "app/menu/recentFiles.h"
#include "tests/support/fakeDocuments.h"
#include "tests/support/fixture.h"

namespace tarvik {

class FileOpening : public ProgramTest {
protected:
    FileOpening()
    {
        Editors.OnOpen = [this](const QString& path, FileClass fileClass) {
            return Note(QStringLiteral("editor %1 %2").arg(FileClassNumber(fileClass)).arg(path));
        };
        Editors.OnOpenText = [this](const QString& path, bool show) {
            return Note(QStringLiteral("list %1 %2").arg(path).arg(show));
        };
        Windows.OnOpen = [this] {
            const QString path = Windows.Log.last().section(u' ', 1);
            const int kind = static_cast<int>(Windows.Kinds.last());
            return Note(QStringLiteral("picture %1 %2").arg(kind).arg(path)) ? 5 : 0;
        };
    }

    bool Note(const QString& text)
    {
        Opened.append(text);
        return Succeeds;
    }

    FakeDocuments Windows;
    FakeListFiles Editors;
    QStringList Opened;
    bool Succeeds = true;
};

TEST_F(FileOpening, ListsOpenEditorOfTheirClass)
{
    for (const char* name : { "a.tva", "a.TVK", "a.tvm", "a.tvs", "a.tvc" })
        EXPECT_TRUE(FileOpen(name, true, true));
    EXPECT_EQ(Opened,
        QStringList({ "editor 1 a.tva", "editor 2 a.TVK", "editor 3 a.tvm", "editor 4 a.tvs", "editor 6 a.tvc" }));
}

TEST_F(FileOpening, PicturesOpenDocument)
{
    for (const char* name : { "a.bmp", "a.PCX", "a.png", "a.wmf" })
        EXPECT_TRUE(FileOpen(name, true, true));
    EXPECT_EQ(Opened, QStringList({ "picture 1 a.bmp", "picture 2 a.PCX", "picture 3 a.png", "picture 4 a.wmf" }));
}

TEST_F(FileOpening, ListTextFollowsShowFlag)
{
    FileOpen("a.csv", true, true);
    FileOpen("a.csv", true, false);
    EXPECT_EQ(Opened, QStringList({ "list a.csv 1", "list a.csv 0" }));
}

TEST_F(FileOpening, OtherTextIsOnlyClassified)
{
    FileOpen("a.txt", true, true);
    EXPECT_EQ(Opened, QStringList("list a.txt 0"));
}

TEST_F(FileOpening, UnknownKindIsReported)
{
    Answers().Expect(12750, { "a.swp" }, Ok);
    EXPECT_FALSE(FileOpen("/folder/a.swp", true, true));
    Answers().Expect(12750, { "a" }, Ok);
    EXPECT_FALSE(FileOpen("a", true, true));
    EXPECT_TRUE(Opened.isEmpty());
}

TEST_F(FileOpening, FailureToOpenIsReturned)
{
    Succeeds = false;
    EXPECT_FALSE(FileOpen("a.tvm", true, true));
    EXPECT_FALSE(FileOpen("a.png", true, true));
    EXPECT_FALSE(FileOpen("a.csv", true, true));
}

using FileOpeningWithoutOpeners = ProgramTest;

TEST_F(FileOpeningWithoutOpeners, OpensNothingWithoutMessage)
{
    for (const char* name : { "a.tvm", "a.png", "a.csv", "a.txt" })
        EXPECT_FALSE(FileOpen(name, true, true));
}

TEST_F(FileOpening, PictureHasWindowAndListHasNone)
{
    const OpenedFile picture = FileOpenOfKind("a.png", FileKindOf("a.png"), true, true);
    EXPECT_TRUE(picture.Success);
    EXPECT_EQ(picture.Window, 5);
    const OpenedFile list = FileOpenOfKind("a.tvm", FileKindOf("a.tvm"), true, true);
    EXPECT_TRUE(list.Success);
    EXPECT_EQ(list.Window, 0);
}

TEST_F(FileOpening, UsesGivenKindInsteadOfName)
{
    EXPECT_TRUE(FileOpenOfKind("a.unknown", FileKindOf("a.pcx"), true, true).Success);
    EXPECT_EQ(Opened, QStringList("picture 2 a.unknown"));
}

TEST_F(FileOpening, AbsentWindowsWriteNothing)
{
    TheDocuments().Reset();
    EXPECT_EQ(TheDocuments()->Save("a.png", ImageKind::Png, 1), PictureSaved::Failed);
    EXPECT_FALSE(TheDocuments()->IsDataSet(1));
    EXPECT_TRUE(Windows.Log.isEmpty());
}

TEST_F(FileOpening, RememberedNoOpensNothing)
{
    TheMessage().RememberedAnswer = MsgResult::No;
    EXPECT_FALSE(FileOpen("a.tvm", false, true));
    EXPECT_FALSE(FileOpen("a.unknown", false, true));
    EXPECT_TRUE(Opened.isEmpty());
    EXPECT_EQ(TheMessage().RememberedAnswer, MsgResult::No);
}

TEST_F(FileOpening, ResetClearsRememberedAnswer)
{
    TheMessage().RememberedAnswer = MsgResult::No;
    EXPECT_TRUE(FileOpen("a.tvm", true, true));
    EXPECT_EQ(TheMessage().RememberedAnswer, MsgResult::None);
}

TEST_F(FileOpening, RememberedYesOpens)
{
    TheMessage().RememberedAnswer = MsgResult::Yes;
    EXPECT_TRUE(FileOpen("a.tvm", false, true));
}

TEST_F(FileOpening, PictureThatOpensBecomesRecentFile)
{
    EXPECT_TRUE(FileOpen("/folder/a.png", true, true));
    EXPECT_EQ(RecentFiles(), QStringList("/folder/a.png"));
    FileOpen("/folder/a.tvm", true, true); // the editor knows whether it could be read
    FileOpen("/folder/a.txt", true, true);
    Succeeds = false;
    FileOpen("/folder/b.png", true, true);
    Answers().Expect(12750, Ok);
    FileOpen("/folder/c.xyz", true, true);
    EXPECT_EQ(RecentFiles(), QStringList("/folder/a.png"));
}

TEST_F(FileOpening, SourceOfConversionIsNoRecentFile)
{
    FileOpenOfKind("/folder/a.png", FileKindOf("a.png"), true, true);
    EXPECT_TRUE(RecentFiles().isEmpty());
}

TEST_F(FileOpening, EveryKnownKindCanBeDropped)
{
    for (const char* name :
        { "a.bmp", "a.png", "a.pcx", "a.wmf", "a.csv", "a.TXT", "a.tva", "a.tvk", "a.Tvm", "a.tvs", "a.tvc" })
        EXPECT_TRUE(FileCanBeDropped(name)) << name;
    for (const char* name : { "a.swp", "a.set", "a", "", "tvm", "a.tvm.bak" })
        EXPECT_FALSE(FileCanBeDropped(name)) << name;
}

TEST_F(FileOpening, KindIncludesClassOfList)
{
    EXPECT_EQ(FileKindOf("a.tvm").Kind, FileKind::InstrumentList);
    EXPECT_EQ(FileKindOf("a.tvm").Class, FileClassMemoryList);
    EXPECT_EQ(FileKindOf("a.png").Class, FileClassNone);
    EXPECT_EQ(FileKindOf("a.csv").Image, ImageKind::None);
    EXPECT_FALSE(FileKindOf("a.csv").IsPicture());
    EXPECT_TRUE(FileKindOf("a.png").IsPicture());
}

TEST_F(FileOpening, KnownExtensionReturnsFlagForListsOfClassesOneToFour)
{
    for (const char* name : { "a.bmp", "a.png", "a.pcx", "a.wmf", "a.csv", "a.txt" })
        EXPECT_TRUE(FileKnownExtension(name, false)) << name;
    for (const char* name : { "a.tva", "a.tvk", "a.tvm", "a.tvs" }) {
        EXPECT_TRUE(FileKnownExtension(name, true)) << name;
        EXPECT_FALSE(FileKnownExtension(name, false)) << name;
    }
    EXPECT_FALSE(FileKnownExtension("a.tvc", true));
    EXPECT_FALSE(FileKnownExtension("a.swp", true));
}

} // namespace tarvik
