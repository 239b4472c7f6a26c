// File transfers: what is sent, what is stored, and what remains unchanged after a failure on either side.
#include "tests/closed/failingfilesystem.h"
#include "tests/closed/scpifixture.h"

#include <cerrno>

namespace {

using ScpiTransfers = ScriptedScpiTest;

using Names = std::vector<std::string>;

} // namespace

TEST_F(ScpiTransfers, DownloadsFromEachStore)
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

TEST_F(ScpiTransfers, UploadsToEachStore)
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

TEST_F(ScpiTransfers, TransfersEmptyFileBothWays)
{
    Answer(std::string("#10\n") + kNoError);
    Answer(kNoError);
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path().c_str(), 1000), kOk);
    EXPECT_EQ(Contents(Path()), "");
    TakeSent();
    EXPECT_EQ(Call(scpi.scpiPutFile, Path().c_str(), "a", 1000), kOk);
    EXPECT_EQ(TakeSent(), Exchange("MMEM:DATA ALL,\"a\",#10"));
}

TEST_F(ScpiTransfers, BlockMayContainAnyBytes)
{
    std::string bytes = "#10\n0,\"No error\"\n\r\n";
    for (int code = 0; code < 256; ++code)
        bytes += static_cast<char>(code);
    Answer(Block(bytes) + "\r\n" + kNoError);
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path().c_str(), 1000), kOk);
    EXPECT_EQ(Contents(Path()), bytes);
    EXPECT_TRUE(IsUp());
}

TEST_F(ScpiTransfers, AnswerMayArriveByteByByte)
{
    script.MaxPiece = 1;
    Answer(Block("a file of some bytes") + '\n' + kNoError);
    Answer(std::string("1,DIR\n") + kNoError);
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path().c_str(), 1000), kOk);
    EXPECT_EQ(Contents(Path()), "a file of some bytes");
    EXPECT_EQ(Call(scpi.scpiFindFile, "a", nullptr), kOk);
}

TEST_F(ScpiTransfers, RefusedDownloadKeepsTarget)
{
    Store(Path(), "old");
    Answer("#10\n-256,\"File name not found\"\n");
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path().c_str(), 1000), kRefused);
    Answer("-257,\"File name error\"\n");
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path().c_str(), 1000), kRefused);
    Answer(Block("half") + "\n-250,\"Mass storage error\"\n");
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path().c_str(), 1000), kRefused);
    EXPECT_EQ(Contents(Path()), "old");
    EXPECT_EQ(FolderNames(), (Names{ "target" }));
    EXPECT_TRUE(IsUp());
}

TEST_F(ScpiTransfers, InvalidBlockIsAFailureOfTheLink)
{
    Store(Path(), "old");
    for (const std::string& answer : Names{ "", "#0abc\n", "#1x", "#x5abcde\n", "#15abcdefg\n", "#12ab", "#", "#9",
             "#9268435457x", "#9999999999x", "hello\n", "#2-1\n", "#2 5\n" }) {
        Connect();
        Answer(answer + kNoError);
        EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path().c_str(), 1000), kLinkFailed) << answer;
        EXPECT_FALSE(IsUp()) << answer;
        EXPECT_EQ(Contents(Path()), "old") << answer;
        EXPECT_EQ(FolderNames(), (Names{ "target" })) << answer;
    }
}

TEST_F(ScpiTransfers, RefusesTooLongBlockBeforeStoring)
{
    tvfile::FailingFileSystem disk;
    Answer("#9" + std::to_string(TVSCPI_MAX_BLOCK + 1) + "bytes");
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path().c_str(), 1000), kLinkFailed);
    EXPECT_EQ(disk.BytesWritten, 0U);
    Connect();
    Answer("#9" + std::to_string(TVSCPI_MAX_BLOCK) + "bytes");
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path().c_str(), 1000), kLinkFailed);
    EXPECT_EQ(disk.BytesWritten, 5U);
    EXPECT_EQ(FolderNames(), Names{});
}

TEST_F(ScpiTransfers, FullDiskIsFileFailureAndLinkStays)
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

TEST_F(ScpiTransfers, BlockLargerThanFreeSpaceIsNotStored)
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

TEST_F(ScpiTransfers, IrreplaceableTargetIsFileFailure)
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

TEST_F(ScpiTransfers, SmallDownloadIsFlushedAndLargeOneIsNot)
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

TEST_F(ScpiTransfers, MissingFolderIsFileFailureAndNothingIsSent)
{
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path("none/target").c_str(), 1000), kLocalFile);
    EXPECT_EQ(Call(scpi.scpiPutFile, Path("none").c_str(), "a", 1000), kLocalFile);
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", "", 1000), kLocalFile);
    EXPECT_EQ(Call(scpi.scpiPutFile, nullptr, "a", 1000), kLocalFile);
    EXPECT_EQ(TakeSent(), "");
    EXPECT_TRUE(IsUp());
}

TEST_F(ScpiTransfers, RefusedUploadKeepsLink)
{
    Store(Path(), "bytes");
    Answer("-258,\"Media protected\"\n");
    EXPECT_EQ(Call(scpi.scpiPutMemoryListFile, Path().c_str(), "a", 1000), kRefused);
    EXPECT_TRUE(IsUp());
}

TEST_F(ScpiTransfers, UnreadableFileIsFileFailureAndNothingIsSent)
{
    Store(Path(), "bytes");
    tvfile::FailingFileSystem disk;
    disk.ReadableBytes = 0;
    EXPECT_EQ(Call(scpi.scpiPutFile, Path().c_str(), "a", 1000), kLocalFile);
    EXPECT_EQ(TakeSent(), "");
    EXPECT_TRUE(IsUp());
}

TEST_F(ScpiTransfers, FileTruncatedDuringUploadClosesLink)
{
    Store(Path(), std::string(size_t{ 1 } << 20, 'x'));
    tvfile::FailingFileSystem disk;
    disk.ReadableBytes = size_t{ 600 } << 10;
    EXPECT_EQ(Call(scpi.scpiPutFile, Path().c_str(), "a", 1000), kLinkFailed);
    EXPECT_FALSE(IsUp());
    EXPECT_FALSE(TakeSent().ends_with("SYST:ERR?\n"));
}

TEST_F(ScpiTransfers, StoresScreenFromStream)
{
    EXPECT_EQ(Call(scpi.scpiSend, "DISP:WIND:FETC?"), kOk);
    script.Arrived = Block("picture") + '\n';
    Answer(kNoError);
    EXPECT_EQ(Call(scpi.scpiGetFileFromStream, Path().c_str(), 5000), kOk);
    EXPECT_EQ(Contents(Path()), "picture");
    EXPECT_EQ(TakeSent(), "DISP:WIND:FETC?\nSYST:ERR?\n");
    EXPECT_TRUE(IsUp());
}

TEST_F(ScpiTransfers, StoresScreenDespiteOlderErrors)
{
    Answer(Block("picture") + "\n-258,\"Media protected\"\n");
    EXPECT_EQ(Call(scpi.scpiGetFileFromStream, Path().c_str(), 5000), kOk);
    EXPECT_EQ(Contents(Path()), "picture");
}

TEST_F(ScpiTransfers, RefusedScreenKeepsTargetAndLink)
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

TEST_F(ScpiTransfers, EmptyBlockOfStreamIsEmptyFile)
{
    Answer(std::string("#10\n") + kNoError);
    EXPECT_EQ(Call(scpi.scpiGetFileFromStream, Path().c_str(), 5000), kOk);
    EXPECT_EQ(Contents(Path()), "");
}

TEST_F(ScpiTransfers, TimeOutOfDownloadCoversWholeFile)
{
    const tvscpi::FakeClock clock;
    Answer(Block(std::string(100, 'x')) + '\n' + kNoError);
    script.MaxPiece = 1;
    script.PieceTime = std::chrono::milliseconds(1000);
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path().c_str(), 10000), kLinkFailed);
    EXPECT_EQ(clock.Elapsed(), std::chrono::milliseconds(10000));
    EXPECT_FALSE(IsUp());
}
