#include "link/classes/model.h"

#include "app/state/project.h"
#include "app/text/lang.h"
#include "tests/support/fileClasses.h"
#include "tests/support/fixture.h"

namespace tarvik {

using Model = ProgramTest;

TEST_F(Model, ClassSetsItsMaskAndCaptions)
{
    ModFileInit(FileClassMemoryList);
    EXPECT_EQ(FileClasses().CurrentFileClass, FileClassMemoryList);
    EXPECT_EQ(FileClasses().FileClassMask, 8);
    EXPECT_EQ(ModCaption(CaptionSlot::HintEdit), 12463);
    EXPECT_EQ(ModCaption(CaptionSlot::Noun), 12469);
    EXPECT_EQ(ModCaption(CaptionSlot::HelpSelect), 12472);
    EXPECT_EQ(ModCaption(CaptionSlot::Editor), 10763);
}

TEST_F(Model, ClassesHaveFixedNumbers)
{
    EXPECT_EQ(FileClassNumber(FileClassNone), 0);
    for (size_t at = 0; at < kClassesOfAllKinds.size(); ++at)
        EXPECT_EQ(FileClassNumber(kClassesOfAllKinds[at]), static_cast<int>(at) + 1);
}

TEST_F(Model, EveryClassHasItsOwnCaptions)
{
    const int first[] = { 12443, 12453, 12463, 12473, 12483, 12493 };
    const int editor[] = { 10753, 10758, 10763, 10768, 10768, 10773 }; // screen shots leave the former one
    for (const FileClass fileClass : kFileClasses) {
        ModFileInit(fileClass);
        EXPECT_EQ(FileClasses().FileClassMask, 1 << FileClassNumber(fileClass));
        for (int slot = 1; slot <= 10; ++slot)
            EXPECT_EQ(ModCaption(static_cast<CaptionSlot>(slot)), first[FileClassNumber(fileClass) - 1] + slot - 1);
        EXPECT_EQ(ModCaption(CaptionSlot::Editor), editor[FileClassNumber(fileClass) - 1]);
    }
}

TEST_F(Model, ScreenShotsKeepEditorCaption)
{
    ModFileInit(FileClassAntennaList);
    ModFileInit(FileClassScreenShot);
    EXPECT_EQ(ModCaption(CaptionSlot::Editor), 10753);
}

TEST_F(Model, UnknownClassHasNoTexts)
{
    ModFileInit(FileClassKfactorTable);
    for (const int number : { 0, 7, -1, 99 }) {
        ModFileInit(static_cast<FileClass>(number));
        EXPECT_EQ(FileClasses().CurrentFileClass, FileClassUnknown);
        EXPECT_EQ(FileClasses().FileClassMask, 4);
        EXPECT_EQ(ModCaption(CaptionSlot::Noun), 0);
        EXPECT_EQ(ModCaption(CaptionSlot::Editor), 0);
    }
}

TEST_F(Model, ExtensionsOfListsOnly)
{
    EXPECT_EQ(ModGetExtension(FileClassAntennaList), ".tva");
    EXPECT_EQ(ModGetExtension(FileClassKfactorTable), ".tvk");
    EXPECT_EQ(ModGetExtension(FileClassMemoryList), ".tvm");
    EXPECT_EQ(ModGetExtension(FileClassSuppressList), ".tvs");
    EXPECT_EQ(ModGetExtension(FileClassCorrectionSet), ".tvc");
    for (const int number : { 0, 5, 7, -1 })
        EXPECT_EQ(ModGetExtension(static_cast<FileClass>(number)), "") << number;
}

TEST_F(Model, ExtensionMatchesInAnyCase)
{
    EXPECT_TRUE(FileExtMatches("shot.PNG", 32));
    EXPECT_TRUE(FileExtMatches("/a.b/Shot.Png", 32));
    EXPECT_TRUE(FileExtMatches("plan.TVM", 8 | 32));
    EXPECT_FALSE(FileExtMatches("plan.tvm", 32));
    EXPECT_FALSE(FileExtMatches("plan.tvm", 0));
    EXPECT_FALSE(FileExtMatches("plan", 127));
    EXPECT_FALSE(FileExtMatches("png", 32));
}

TEST_F(Model, EveryClassMatchesItsOwnExtension)
{
    const char* names[] = { "x.tva", "x.tvk", "x.tvm", "x.tvs", "x.png", "x.tvc" };
    for (const FileClass fileClass : kFileClasses) {
        for (const FileClass other : kFileClasses)
            EXPECT_EQ(FileExtMatches(names[FileClassNumber(other) - 1], FileClassBit(fileClass)), fileClass == other);
    }
}

TEST_F(Model, FoldersOfScreenShotsAreNotStored)
{
    FileClasses().PcPaths[FileClassScreenShot] = "/shots";
    FileClasses().InstrPaths[FileClassScreenShot] = "\\Shots";
    ModSavePaths(FilePath("x.ini"));
    ModLoadPaths(FilePath("x.ini"));
    EXPECT_EQ(FileClasses().PcPaths[FileClassScreenShot], "/shots");
    EXPECT_EQ(FileClasses().InstrPaths[FileClassScreenShot], "\\Shots");
    EXPECT_FALSE(Contents(FilePath("x.ini")).contains("PathSs"));
}

TEST_F(Model, MissingFolderIsReplacedAtNextExit)
{
    Store(FilePath("x.ini"), "[File]\nPcPathMl=/gone/for/good\nInstrPathMl=\n");
    ModLoadPaths(FilePath("x.ini"));
    EXPECT_EQ(FileClasses().PcPaths[FileClassMemoryList], Program().AppPath);
    EXPECT_EQ(FileClasses().InstrPaths[FileClassMemoryList], "\\Public");
    ModSavePaths(FilePath("x.ini"));
    const QByteArray text = Contents(FilePath("x.ini"));
    EXPECT_TRUE(text.contains("PcPathMl=" + Program().AppPath.toUtf8() + "\n"));
    EXPECT_TRUE(text.contains("InstrPathMl=\\Public\n"));
}

TEST_F(Model, InstrumentHoldsOneListOfThreeClasses)
{
    for (int number = 0; number <= 7; ++number)
        EXPECT_EQ(ModHasOneList(static_cast<FileClass>(number)), number == 1 || number == 3 || number == 4) << number;
}

TEST_F(Model, ScreenShotsAndUnknownClassesHaveFoldersOnTheInstrument)
{
    for (int number = -1; number <= 8; ++number) {
        const bool isList = number >= 1 && number <= 6 && number != 5;
        EXPECT_EQ(ModHasInstrFolders(static_cast<FileClass>(number)), !isList) << number;
    }
}

} // namespace tarvik
