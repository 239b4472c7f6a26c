// Each operation: what it sends, in how many sends, and what it makes of the answer.
#include "tests/closed/failingfilesystem.h"
#include "tests/closed/scpifixture.h"

#include <cerrno>
#include <utility>

namespace {

using ScpiOperations = ScriptedScpiTest;

using Names = std::vector<std::string>;

} // namespace

TEST_F(ScpiOperations, ConnectedIsToldByZero)
{
    EXPECT_EQ(scpi.scpiGetConnected(), 0);
    EXPECT_EQ(scpi.scpiCheckConnection(), 0);
    scpi.scpiDisconnect();
    EXPECT_NE(scpi.scpiGetConnected(), 0);
    EXPECT_EQ(scpi.scpiCheckConnection(), 1);
}

TEST_F(ScpiOperations, ConnectionThatTheInstrumentClosesIsSeen)
{
    script.IsClosed = true;
    EXPECT_NE(scpi.scpiGetConnected(), 0);
    EXPECT_EQ(scpi.scpiCheckConnection(), 1);
}

TEST_F(ScpiOperations, SendWritesALineAndReadsNothing)
{
    EXPECT_EQ(Call(scpi.scpiSend, "MMEM:FILE:DATE \"a.tvc\", 2024, 2, 29"), kOk);
    EXPECT_EQ(Call(scpi.scpiSendCommand, "SYST:SET:LOCK \"a.tvc\""), kOk);
    EXPECT_EQ(TakeSent(), "MMEM:FILE:DATE \"a.tvc\", 2024, 2, 29\nSYST:SET:LOCK \"a.tvc\"\n");
    EXPECT_TRUE(IsUp());
}

TEST_F(ScpiOperations, SendOfMoreThanOneLineIsRefused)
{
    EXPECT_EQ(Call(scpi.scpiSend, "DISP:WIND:FETC?\nMMEM:DEL ALL,\"a\""), kRefused);
    EXPECT_EQ(Call(scpi.scpiSend, ""), kRefused);
    EXPECT_EQ(Call(scpi.scpiSend, nullptr), kRefused);
    EXPECT_EQ(TakeSent(), "");
    EXPECT_TRUE(IsUp());
}

TEST_F(ScpiOperations, DirectoryIsOneRoundTrip)
{
    char path[TVSCPI_TEXT_SIZE] = "unset";
    Answer(std::string("\"\\Public\\Memory List\"\n") + kNoError);
    script.Sends = 0;
    EXPECT_EQ(Call(scpi.scpiGetCurrentDirectory, path, TVSCPI_TEXT_SIZE), kOk);
    EXPECT_STREQ(path, "\\Public\\Memory List");
    EXPECT_EQ(TakeSent(), Exchange("MMEM:CDIR?"));
    EXPECT_EQ(script.Sends, 1U);
}

TEST_F(ScpiOperations, DirectoryOfTheRootIsASingleBackslash)
{
    char path[TVSCPI_TEXT_SIZE] = "unset";
    Answer(std::string("\"\\\"\r\n") + kNoError);
    EXPECT_EQ(Call(scpi.scpiGetCurrentDirectory, path, TVSCPI_TEXT_SIZE), kOk);
    EXPECT_STREQ(path, "\\");
}

TEST_F(ScpiOperations, DirectoryThatDoesNotFitIsAFailureOfTheLink)
{
    char path[8] = "unset";
    Answer(std::string("\"\\Public\\Memory List\"\n") + kNoError);
    EXPECT_EQ(Call(scpi.scpiGetCurrentDirectory, path, 8), kLinkFailed);
    EXPECT_STREQ(path, "");
    EXPECT_FALSE(IsUp());
}

TEST_F(ScpiOperations, CommandsOfFoldersAndNames)
{
    for (int i = 0; i < 4; ++i)
        Answer(kNoError);
    EXPECT_EQ(Call(scpi.scpiSetCurrentDirectory, "\\Public\\Screen Shots"), kOk);
    EXPECT_EQ(TakeSent(), Exchange("MMEM:CDIR \"\\Public\\Screen Shots\""));
    EXPECT_EQ(Call(scpi.scpiCreateDirectory, "New"), kOk);
    EXPECT_EQ(TakeSent(), Exchange("MMEM:MDIR \"New\""));
    EXPECT_EQ(Call(scpi.scpiRemoveDirectory, "New"), kOk);
    EXPECT_EQ(TakeSent(), Exchange("MMEM:RDIR \"New\""));
    EXPECT_EQ(Call(scpi.scpiRename, "old, 1", "new, 2"), kOk);
    EXPECT_EQ(TakeSent(), Exchange("MMEM:MOVE \"old, 1\",\"new, 2\""));
}

TEST_F(ScpiOperations, ErrorInTheQueueIsARefusalAndTheLinkStays)
{
    Answer("-256,\"File name not found\"\n");
    EXPECT_EQ(Call(scpi.scpiSetCurrentDirectory, "\\Nowhere"), kRefused);
    EXPECT_TRUE(IsUp());
    EXPECT_EQ(scpi.scpiCheckConnection(), 0);
}

TEST_F(ScpiOperations, QueryThatIsRefusedHasAnErrorLineOnly)
{
    char path[TVSCPI_TEXT_SIZE] = "unset";
    Answer("-250,\"Mass storage error\"\r\n");
    EXPECT_EQ(Call(scpi.scpiGetCurrentDirectory, path, TVSCPI_TEXT_SIZE), kRefused);
    EXPECT_STREQ(path, "");
    EXPECT_TRUE(IsUp());
}

TEST_F(ScpiOperations, QueryWithoutAnAnswerAndWithoutAnErrorIsAFailureOfTheLink)
{
    char path[TVSCPI_TEXT_SIZE] = "unset";
    Answer(kNoError);
    EXPECT_EQ(Call(scpi.scpiGetCurrentDirectory, path, TVSCPI_TEXT_SIZE), kLinkFailed);
    EXPECT_FALSE(IsUp());
}

TEST_F(ScpiOperations, QuotesCommasAndUmlautsTravelUnharmed)
{
    const std::string name = "K\xFCste, \"Nord\".tvm";
    Answer(std::string("1,FILE\n") + kNoError);
    int16_t type = -1;
    int16_t err = -1;
    EXPECT_EQ(scpi.scpiFindFile(&err, name.c_str(), &type), 1);
    EXPECT_EQ(TakeSent(), Exchange("MMEM:EXIS? ALL,\"K\xFCste, \"\"Nord\"\".tvm\""));
}

TEST_F(ScpiOperations, NamesThatAreNoNamesAreRefusedAndNotSent)
{
    for (const std::string& name :
        Names{ "", ".", "..", "a\nb", "a\tb", "..\\x", "a/b", "C:x", "a\x7F", std::string(TVSCPI_MAX_NAME + 1, 'n') }) {
        EXPECT_EQ(Call(scpi.scpiCreateDirectory, name.c_str()), kRefused) << name;
        EXPECT_EQ(Call(scpi.scpiRemoveDirectory, name.c_str()), kRefused) << name;
        EXPECT_EQ(Call(scpi.scpiRename, name.c_str(), "b"), kRefused) << name;
        EXPECT_EQ(Call(scpi.scpiRename, "a", name.c_str()), kRefused) << name;
        EXPECT_EQ(Call(scpi.scpiRemoveFile, name.c_str()), kRefused) << name;
        EXPECT_EQ(Call(scpi.scpiGetFile, name.c_str(), Path().c_str(), 1000), kRefused) << name;
        EXPECT_EQ(Call(scpi.scpiPutFile, Path().c_str(), name.c_str(), 1000), kRefused) << name;
        EXPECT_EQ(Call(scpi.scpiFindFile, name.c_str(), nullptr), kRefused) << name;
    }
    EXPECT_EQ(Call(scpi.scpiSetCurrentDirectory, "a\nb"), kRefused);
    EXPECT_EQ(Call(scpi.scpiSetCurrentDirectory, ""), kRefused);
    EXPECT_EQ(TakeSent(), "");
    EXPECT_TRUE(IsUp());
    EXPECT_EQ(FolderNames(), Names{});
}

TEST_F(ScpiOperations, LongestNameIsSent)
{
    const std::string name(TVSCPI_MAX_NAME, 'n');
    Answer(kNoError);
    EXPECT_EQ(Call(scpi.scpiCreateDirectory, name.c_str()), kOk);
    EXPECT_EQ(TakeSent(), Exchange("MMEM:MDIR \"" + name + '"'));
}

TEST_F(ScpiOperations, FindTellsFilesFoldersAndNothing)
{
    struct Case {
        const char* Answer;
        int16_t Result;
        int16_t Type;
    };
    for (const Case& each : { Case{ "0", 0, 0 }, Case{ "1,FILE", 1, 0 }, Case{ "1,DIR", 1, 1 } }) {
        Answer(std::string(each.Answer) + '\n' + kNoError);
        int16_t err = -1;
        int16_t type = -1;
        EXPECT_EQ(scpi.scpiFindFile(&err, "a", &type), each.Result) << each.Answer;
        EXPECT_EQ(err, kOk) << each.Answer;
        EXPECT_EQ(type, each.Type) << each.Answer;
    }
}

TEST_F(ScpiOperations, FindThatFailsIsNeitherThereNorNot)
{
    Answer("-257,\"File name error\"\n");
    int16_t err = -1;
    int16_t type = -1;
    const int16_t result = scpi.scpiFindFile(&err, "a", &type);
    EXPECT_EQ(err, kRefused);
    EXPECT_NE(result, 0);
    EXPECT_NE(result, 1);
}

TEST_F(ScpiOperations, FindsAndRemovesOfEachStore)
{
    using Find = decltype(scpi.scpiFindFile);
    for (const Worded<Find>& each :
        { Worded<Find>{ scpi.scpiFindFile, "ALL" }, Worded<Find>{ scpi.scpiFindInKfactorTableFiles, "KFAC" },
            Worded<Find>{ scpi.scpiFindInCorrectionSetFiles, "CORR" } }) {
        Answer(std::string("0\n") + kNoError);
        EXPECT_EQ(Call(each.Call, "a", nullptr), kOk);
        EXPECT_EQ(TakeSent(), Exchange("MMEM:EXIS? " + each.Word + ",\"a\""));
    }
    using Remove = decltype(scpi.scpiRemoveFile);
    for (const Worded<Remove>& each :
        { Worded<Remove>{ scpi.scpiRemoveFile, "ALL" }, Worded<Remove>{ scpi.scpiRemoveKfactorTableFile, "KFAC" },
            Worded<Remove>{ scpi.scpiRemoveCorrectionSetFile, "CORR" } }) {
        Answer(kNoError);
        EXPECT_EQ(Call(each.Call, "a"), kOk);
        EXPECT_EQ(TakeSent(), Exchange("MMEM:DEL " + each.Word + ",\"a\""));
    }
}

TEST_F(ScpiOperations, DownloadsOfEachStore)
{
    using Get = decltype(scpi.scpiGetFile);
    for (const Worded<Get>& each : { Worded<Get>{ scpi.scpiGetFile, "ALL" },
             Worded<Get>{ scpi.scpiGetAntennaListFile, "ANT" }, Worded<Get>{ scpi.scpiGetKfactorTableFile, "KFAC" },
             Worded<Get>{ scpi.scpiGetMemoryListFile, "MEM" }, Worded<Get>{ scpi.scpiGetSuppressListFile, "SUPP" },
             Worded<Get>{ scpi.scpiGetCorrectionSetFile, "CORR" } }) {
        Answer(Block("bytes of " + each.Word) + '\n' + kNoError);
        EXPECT_EQ(Call(each.Call, "a", Path().c_str(), 1000), kOk);
        EXPECT_EQ(TakeSent(), Exchange("MMEM:DATA? " + each.Word + ",\"a\""));
        EXPECT_EQ(Contents(Path()), "bytes of " + each.Word);
        EXPECT_EQ(FolderNames(), (Names{ "target" }));
    }
    Answer(Block("active") + '\n' + kNoError);
    EXPECT_EQ(Call(scpi.scpiGetActiveDatasetFile, Path().c_str(), 1000), kOk);
    EXPECT_EQ(TakeSent(), Exchange("MMEM:ACT:DATA?"));
    EXPECT_EQ(Contents(Path()), "active");
}

TEST_F(ScpiOperations, UploadsOfEachStore)
{
    Store(Path(), "all of it");
    using Put = decltype(scpi.scpiPutFile);
    for (const Worded<Put>& each : { Worded<Put>{ scpi.scpiPutFile, "ALL" },
             Worded<Put>{ scpi.scpiPutAntennaListFile, "ANT" }, Worded<Put>{ scpi.scpiPutKfactorTableFile, "KFAC" },
             Worded<Put>{ scpi.scpiPutMemoryListFile, "MEM" }, Worded<Put>{ scpi.scpiPutSuppressListFile, "SUPP" },
             Worded<Put>{ scpi.scpiPutCorrectionSetFile, "CORR" } }) {
        Answer(kNoError);
        script.Sends = 0;
        EXPECT_EQ(Call(each.Call, Path().c_str(), "a", 1000), kOk);
        EXPECT_EQ(TakeSent(), Exchange("MMEM:DATA " + each.Word + ",\"a\",#19all of it"));
        EXPECT_EQ(script.Sends, 1U);
    }
    Answer(kNoError);
    EXPECT_EQ(Call(scpi.scpiPutActiveDatasetFile, Path().c_str(), 1000), kOk);
    EXPECT_EQ(TakeSent(), Exchange("MMEM:ACT:DATA #19all of it"));
}

TEST_F(ScpiOperations, EmptyFileTravelsBothWays)
{
    Answer(std::string("#10\n") + kNoError);
    Answer(kNoError);
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path().c_str(), 1000), kOk);
    EXPECT_EQ(Contents(Path()), "");
    TakeSent();
    EXPECT_EQ(Call(scpi.scpiPutFile, Path().c_str(), "a", 1000), kOk);
    EXPECT_EQ(TakeSent(), Exchange("MMEM:DATA ALL,\"a\",#10"));
}

TEST_F(ScpiOperations, BlockHoldsAnyBytes)
{
    std::string bytes = "#10\n0,\"No error\"\n\r\n";
    for (int code = 0; code < 256; ++code)
        bytes += static_cast<char>(code);
    Answer(Block(bytes) + "\r\n" + kNoError);
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path().c_str(), 1000), kOk);
    EXPECT_EQ(Contents(Path()), bytes);
    EXPECT_TRUE(IsUp());
}

TEST_F(ScpiOperations, AnswerThatComesByteByByteIsTheSame)
{
    script.MaxPiece = 1;
    Answer(Block("a file of some bytes") + '\n' + kNoError);
    Answer(std::string("1,DIR\n") + kNoError);
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path().c_str(), 1000), kOk);
    EXPECT_EQ(Contents(Path()), "a file of some bytes");
    EXPECT_EQ(Call(scpi.scpiFindFile, "a", nullptr), kOk);
}

TEST_F(ScpiOperations, DownloadThatIsRefusedLeavesTheTarget)
{
    Store(Path(), "old");
    Answer("#10\n-256,\"File name not found\"\n");
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path().c_str(), 1000), kRefused);
    Answer("-257,\"File name error\"\n");
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path().c_str(), 1000), kRefused);
    EXPECT_EQ(Contents(Path()), "old");
    EXPECT_EQ(FolderNames(), (Names{ "target" }));
    EXPECT_TRUE(IsUp());
}

TEST_F(ScpiOperations, BlockThatIsNoneIsAFailureOfTheLink)
{
    Store(Path(), "old");
    for (const std::string& answer : Names{ "#0abc\n", "#1x", "#x5abcde\n", "#15abcdefg\n", "#12ab", "#", "#9",
             "#9268435457x", "#9999999999x", "hello\n", "#2-1\n", "#2 5\n" }) {
        Connect();
        Answer(answer + kNoError);
        EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path().c_str(), 1000), kLinkFailed) << answer;
        EXPECT_FALSE(IsUp()) << answer;
        EXPECT_EQ(Contents(Path()), "old") << answer;
        EXPECT_EQ(FolderNames(), (Names{ "target" })) << answer;
    }
}

TEST_F(ScpiOperations, DiskThatIsFullIsAFailureOfTheFileAndTheLinkStays)
{
    Store(Path(), "old");
    tvfile::FailingFileSystem disk;
    disk.BytesLeft = 5;
    Answer(Block("ten bytes.") + '\n' + kNoError);
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path().c_str(), 1000), kLocalFile);
    EXPECT_EQ(Contents(Path()), "old");
    EXPECT_EQ(FolderNames(), (Names{ "target" }));
    Answer(std::string("0\n") + kNoError);
    EXPECT_EQ(Call(scpi.scpiFindFile, "a", nullptr), kOk);
}

TEST_F(ScpiOperations, BlockThatDoesNotFitOnTheDiskIsNotStored)
{
    tvfile::FailingFileSystem disk;
    disk.Free = 9;
    Answer(Block("ten bytes.") + '\n' + kNoError);
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path().c_str(), 1000), kLocalFile);
    EXPECT_EQ(disk.BytesWritten, 0U);
    EXPECT_EQ(FolderNames(), Names{});
    EXPECT_TRUE(IsUp());
    disk.Free = 10;
    Answer(Block("ten bytes.") + '\n' + kNoError);
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path().c_str(), 1000), kOk);
}

TEST_F(ScpiOperations, TargetThatCannotBeReplacedIsAFailureOfTheFile)
{
    Store(Path(), "old");
    tvfile::FailingFileSystem disk;
    disk.ReplaceError = EACCES;
    Answer(Block("new") + '\n' + kNoError);
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path().c_str(), 1000), kLocalFile);
    EXPECT_EQ(Contents(Path()), "old");
    EXPECT_EQ(FolderNames(), (Names{ "target" }));
    EXPECT_TRUE(IsUp());
}

TEST_F(ScpiOperations, SmallDownloadIsFlushedAndLargeOneIsNot)
{
    tvfile::FailingFileSystem disk;
    int flushes = 0;
    disk.AtFlush = [&flushes] { ++flushes; };
    Answer(Block("small") + '\n' + kNoError);
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path().c_str(), 1000), kOk);
    EXPECT_EQ(flushes, 1);
    const std::string large(size_t{ 3 } << 20, 'x');
    Answer(Block(large) + '\n' + kNoError);
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path().c_str(), 1000), kOk);
    EXPECT_EQ(flushes, 1);
    EXPECT_TRUE(Contents(Path()) == large);
}

TEST_F(ScpiOperations, FolderThatIsNotThereIsAFailureOfTheFileAndNothingIsSent)
{
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path("none/target").c_str(), 1000), kLocalFile);
    EXPECT_EQ(Call(scpi.scpiPutFile, Path("none").c_str(), "a", 1000), kLocalFile);
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", "", 1000), kLocalFile);
    EXPECT_EQ(Call(scpi.scpiPutFile, nullptr, "a", 1000), kLocalFile);
    EXPECT_EQ(TakeSent(), "");
    EXPECT_TRUE(IsUp());
}

TEST_F(ScpiOperations, UploadThatIsRefusedLeavesTheLink)
{
    Store(Path(), "bytes");
    Answer("-258,\"Media protected\"\n");
    EXPECT_EQ(Call(scpi.scpiPutMemoryListFile, Path().c_str(), "a", 1000), kRefused);
    EXPECT_TRUE(IsUp());
}

TEST_F(ScpiOperations, FileThatCannotBeReadIsAFailureOfTheFileAndNothingIsSent)
{
    Store(Path(), "bytes");
    tvfile::FailingFileSystem disk;
    disk.ReadableBytes = 0;
    EXPECT_EQ(Call(scpi.scpiPutFile, Path().c_str(), "a", 1000), kLocalFile);
    EXPECT_EQ(TakeSent(), "");
    EXPECT_TRUE(IsUp());
}

TEST_F(ScpiOperations, FileThatEndsUnderWayEndsTheLink)
{
    Store(Path(), std::string(size_t{ 1 } << 20, 'x'));
    tvfile::FailingFileSystem disk;
    disk.ReadableBytes = size_t{ 600 } << 10;
    EXPECT_EQ(Call(scpi.scpiPutFile, Path().c_str(), "a", 1000), kLinkFailed);
    EXPECT_FALSE(IsUp());
    EXPECT_FALSE(TakeSent().ends_with("SYST:ERR?\n"));
}

TEST_F(ScpiOperations, SendThatFailsEndsTheLink)
{
    script.SendLimit = 3;
    EXPECT_EQ(Call(scpi.scpiSend, "SYST:SET:LOCK \"a\""), kLinkFailed);
    EXPECT_FALSE(IsUp());
}

TEST_F(ScpiOperations, BytesThatWaitBeforeACommandEndTheLink)
{
    script.Arrived = "0\n";
    EXPECT_EQ(Call(scpi.scpiFindFile, "a", nullptr), kLinkFailed);
    EXPECT_FALSE(IsUp());
    EXPECT_EQ(TakeSent(), "");
}

TEST_F(ScpiOperations, BytesBehindAnAnswerEndTheLinkAtTheNextCommand)
{
    Answer(std::string("0\n") + kNoError + "0\n");
    EXPECT_EQ(Call(scpi.scpiFindFile, "a", nullptr), kOk);
    EXPECT_EQ(Call(scpi.scpiFindFile, "b", nullptr), kLinkFailed);
    EXPECT_FALSE(IsUp());
}

TEST_F(ScpiOperations, ScreenIsStoredFromTheStream)
{
    EXPECT_EQ(Call(scpi.scpiSend, "DISP:WIND:FETC?"), kOk);
    script.Arrived = Block("picture") + '\n';
    Answer(kNoError);
    EXPECT_EQ(Call(scpi.scpiGetFileFromStream, Path().c_str(), 5000), kOk);
    EXPECT_EQ(Contents(Path()), "picture");
    EXPECT_EQ(TakeSent(), "DISP:WIND:FETC?\nSYST:ERR?\n");
    EXPECT_TRUE(IsUp());
}

TEST_F(ScpiOperations, ScreenIsStoredWhateverOlderErrorsWaitInTheQueue)
{
    Answer(Block("picture") + "\n-258,\"Media protected\"\n");
    EXPECT_EQ(Call(scpi.scpiGetFileFromStream, Path().c_str(), 5000), kOk);
    EXPECT_EQ(Contents(Path()), "picture");
}

TEST_F(ScpiOperations, ScreenThatIsRefusedLeavesTargetAndLink)
{
    Store(Path(), "old");
    for (const char* answer : { "-100,\"Command error\"\n", "#10\n-250,\"Mass storage error\"\n" }) {
        Answer(answer);
        EXPECT_EQ(Call(scpi.scpiGetFileFromStream, Path().c_str(), 5000), kRefused) << answer;
        EXPECT_EQ(Contents(Path()), "old") << answer;
        EXPECT_TRUE(IsUp()) << answer;
    }
    EXPECT_EQ(FolderNames(), (Names{ "target" }));
}

TEST_F(ScpiOperations, EmptyBlockOfTheStreamIsAnEmptyFile)
{
    Answer(std::string("#10\n") + kNoError);
    EXPECT_EQ(Call(scpi.scpiGetFileFromStream, Path().c_str(), 5000), kOk);
    EXPECT_EQ(Contents(Path()), "");
}

TEST_F(ScpiOperations, WithoutALinkEveryOperationFails)
{
    scpi.scpiDisconnect();
    char text[TVSCPI_TEXT_SIZE] = "unset";
    int16_t nothing = 0;
    EXPECT_EQ(Call(scpi.scpiSend, "x"), kLinkFailed);
    EXPECT_EQ(Call(scpi.scpiGetCurrentDirectory, text, TVSCPI_TEXT_SIZE), kLinkFailed);
    EXPECT_EQ(Call(scpi.scpiCreateDirectory, "a"), kLinkFailed);
    EXPECT_EQ(Call(scpi.scpiStartFindMemoryListFiles, &nothing, nullptr, nullptr), kLinkFailed);
    EXPECT_NE(nothing, 0);
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path().c_str(), 1000), kLinkFailed);
    EXPECT_EQ(Call(scpi.scpiGetFileFromStream, Path().c_str(), 1000), kLinkFailed);
    EXPECT_EQ(Call(scpi.scpiPutFile, Path().c_str(), "a", 1000), kLinkFailed);
    EXPECT_EQ(FolderNames(), Names{});
}
