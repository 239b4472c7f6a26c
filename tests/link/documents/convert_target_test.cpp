// The target of a conversion: its folder, type, names and palette.
#include "tests/link/documents/documents_fixture.h"

#include "app/state/project.h"
#include "link/documents/file.h"

#include <QDir>

namespace tarvik {

namespace {

using ConvertTarget = DocumentsTest;

QVector<int> NumbersOf(const QVector<TextNumber<0>>& texts)
{
    QVector<int> numbers;
    for (const TextNumber<0> text : texts)
        numbers.append(text.Number);
    return numbers;
}

} // namespace

TEST_F(ConvertTarget, PathKeepsBaseName)
{
    EXPECT_EQ(FileTargetPath("/out", "/in/tower.night.bmp", ".png"), "/out/tower.night.png");
    EXPECT_EQ(FileTargetPath("/out/", "/in/a", ".png"), "/out/a.png");
}

TEST_F(ConvertTarget, LastRecognisedSourceDeterminesFolder)
{
    FileConvert() = { { "/one/a.bmp", "/two/b.csv", "/three/c.doc" }, "/old", ".wmf", {} };
    const FileConvertProposal proposal = FileConvertPropose();
    EXPECT_EQ(proposal.Folder, QDir::toNativeSeparators("/two"));
    EXPECT_EQ(NumbersOf(proposal.Types), QVector<int>({ 11603, 11607, 11602, 11606, 11605, 11604 }));
    EXPECT_EQ(proposal.Types[proposal.Selected], 11602);
    EXPECT_EQ(FileConvert().TargetFolder, "");
    EXPECT_EQ(FileConvert().TargetExtension, "");
}

TEST_F(ConvertTarget, WithoutRecognisedSourceTypeMustBeChosen)
{
    FileConvert().Sources = { "/three/c.doc", "/three/d.tvm" };
    const FileConvertProposal proposal = FileConvertPropose();
    EXPECT_EQ(proposal.Folder, "");
    EXPECT_EQ(NumbersOf(proposal.Types), QVector<int>({ 11603, 11607, 11602, 11606, 11605, 11604, 11005 }));
    EXPECT_EQ(proposal.Types[proposal.Selected], 11005);
}

TEST_F(ConvertTarget, ExtensionFollowsType)
{
    const std::pair<int, const char*> types[] = { { 11603, ".csv" }, { 11607, ".txt" }, { 11602, ".bmp" },
        { 11606, ".pcx" }, { 11605, ".png" }, { 11604, ".wmf" }, { 11005, "" } };
    for (const auto& [type, extension] : types) {
        EXPECT_TRUE(FileConvertAccept(Folder(), type, false));
        EXPECT_EQ(FileConvert().TargetExtension, extension);
    }
    EXPECT_EQ(FileConvert().TargetFolder, Folder());
}

TEST_F(ConvertTarget, MissingFolderIsCreatedOneLevelDeep)
{
    EXPECT_TRUE(FileConvertAccept(" " + FilePath("new/") + " ", 11605, false));
    EXPECT_TRUE(QDir(FilePath("new")).exists());
    EXPECT_EQ(FileConvert().TargetFolder, FilePath("new/"));
}

TEST_F(ConvertTarget, FolderTwoLevelsDeepIsRefused)
{
    Answers().Expect(12752, { "two", "No such file or directory" }, Ok);
    EXPECT_FALSE(FileConvertAccept(FilePath("one/two"), 11605, false));
    EXPECT_FALSE(QDir(FilePath("one")).exists());
    EXPECT_EQ(FileConvert().TargetFolder, "");
}

TEST_F(ConvertTarget, FileInPlaceOfFolderIsRefused)
{
    Store(FilePath("taken"), "x");
    Answers().Expect(12752, { "taken", "File exists" }, Ok);
    EXPECT_FALSE(FileConvertAccept(FilePath("taken"), 11605, false));
    EXPECT_EQ(Contents(FilePath("taken")), "x");
}

TEST_F(ConvertTarget, PaletteIsThatOfNewDocumentsUntilChosen)
{
    EXPECT_FALSE(FileConvertPropose().BlackAndWhite);
    Windows.BlackAndWhite = true;
    EXPECT_TRUE(FileConvertPropose().BlackAndWhite);
    EXPECT_TRUE(FileConvertAccept(Folder(), 11605, false));
    EXPECT_EQ(FileConvert().BlackAndWhite, false);
    EXPECT_TRUE(FileConvertAccept(Folder(), 11605, true));
    EXPECT_EQ(FileConvert().BlackAndWhite, true);
}

TEST_F(ConvertTarget, RelativeFolderIsInFolderOfSources)
{
    SetLastFile(FilePath("a.bmp"));
    EXPECT_TRUE(FileConvertAccept("new", 11605, false));
    EXPECT_EQ(FileConvert().TargetFolder, FilePath("new"));
    EXPECT_TRUE(QDir(FilePath("new")).exists());
}

TEST_F(ConvertTarget, TildeIsHomeFolder)
{
    SetLastFile(FilePath("a.bmp"));
    EXPECT_TRUE(FileConvertAccept("~", 11605, false));
    EXPECT_EQ(FileConvert().TargetFolder, QDir::homePath());
    EXPECT_TRUE(FileConvertAccept("~/", 11605, false));
    EXPECT_EQ(FileConvert().TargetFolder, QDir::homePath() + '/');
    EXPECT_TRUE(FileConvertAccept("~out", 11605, false));
    EXPECT_EQ(FileConvert().TargetFolder, FilePath("~out"));
}

TEST_F(ConvertTarget, RefusedFolderIsReportedByItsLastName)
{
    Answers().Expect(12752, { "two", "No such file or directory" }, Ok);
    EXPECT_FALSE(FileConvertAccept(FilePath("one/two//"), 11605, false));
}

TEST_F(ConvertTarget, RootIsAFolder)
{
    EXPECT_TRUE(FolderExists("/"));
    EXPECT_TRUE(FolderExists(Folder()));
    EXPECT_FALSE(FolderExists(""));
}

TEST_F(ConvertTarget, EmptyFolderIsRefused)
{
    Answers().Expect(11426, Ok);
    EXPECT_FALSE(FileConvertAccept("   ", 11605, false));
}

} // namespace tarvik
