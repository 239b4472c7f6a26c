// Each operation: its request, the number of sends, and its result for each answer.
#include "tests/closed/scpifixture.h"

#include <utility>

namespace {

using ScpiOperations = ScriptedScpiTest;

using Names = std::vector<std::string>;

} // namespace

TEST_F(ScpiOperations, ConnectedIsZero)
{
    EXPECT_EQ(scpi.scpiGetConnected(), 0);
    EXPECT_EQ(scpi.scpiCheckConnection(), 0);
    scpi.scpiDisconnect();
    EXPECT_NE(scpi.scpiGetConnected(), 0);
    EXPECT_EQ(scpi.scpiCheckConnection(), 1);
}

TEST_F(ScpiOperations, DetectsConnectionClosedByInstrument)
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

TEST_F(ScpiOperations, SendRefusesMoreThanOneLine)
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

TEST_F(ScpiOperations, RootDirectoryIsSingleBackslash)
{
    char path[TVSCPI_TEXT_SIZE] = "unset";
    Answer(std::string("\"\\\"\r\n") + kNoError);
    EXPECT_EQ(Call(scpi.scpiGetCurrentDirectory, path, TVSCPI_TEXT_SIZE), kOk);
    EXPECT_STREQ(path, "\\");
}

TEST_F(ScpiOperations, TooLongDirectoryIsAFailureOfTheLink)
{
    char path[8] = "unset";
    Answer(std::string("\"\\Public\\Memory List\"\n") + kNoError);
    EXPECT_EQ(Call(scpi.scpiGetCurrentDirectory, path, 8), kLinkFailed);
    EXPECT_STREQ(path, "");
    EXPECT_FALSE(IsUp());
}

TEST_F(ScpiOperations, SendsFolderAndNameCommands)
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

TEST_F(ScpiOperations, QueuedErrorIsRefusalAndLinkStays)
{
    Answer("-256,\"File name not found\"\n");
    EXPECT_EQ(Call(scpi.scpiSetCurrentDirectory, "\\Nowhere"), kRefused);
    EXPECT_TRUE(IsUp());
    EXPECT_EQ(scpi.scpiCheckConnection(), 0);
}

TEST_F(ScpiOperations, InvalidErrorLineIsAFailureOfTheLink)
{
    for (const std::string& line : Names{ "", "0", "0,", "0,No error", "0,\"No error", "0,\"No error\"x", "0,\"a\tb\"",
             "0 ,\"a\"", "+0,\"a\"", "-,\"a\"", "--1,\"a\"", "32768,\"a\"", "-32769,\"a\"", "0;\"a\"" }) {
        Connect();
        Answer(line + '\n');
        EXPECT_EQ(Call(scpi.scpiCreateDirectory, "a"), kLinkFailed) << line;
        EXPECT_FALSE(IsUp()) << line;
    }
}

TEST_F(ScpiOperations, AnyErrorCodeIsRefusal)
{
    for (const std::string& line : Names{ "-32768,\"a\"", "32767,\"\"", "1,\"say \"\"no\"\"\"" }) {
        Answer(line + '\n');
        EXPECT_EQ(Call(scpi.scpiCreateDirectory, "a"), kRefused) << line;
    }
    EXPECT_TRUE(IsUp());
}

TEST_F(ScpiOperations, RefusedQueryHasErrorLineOnly)
{
    char path[TVSCPI_TEXT_SIZE] = "unset";
    Answer("-250,\"Mass storage error\"\r\n");
    EXPECT_EQ(Call(scpi.scpiGetCurrentDirectory, path, TVSCPI_TEXT_SIZE), kRefused);
    EXPECT_STREQ(path, "");
    EXPECT_TRUE(IsUp());
}

TEST_F(ScpiOperations, QueryWithoutAnswerAndErrorIsAFailureOfTheLink)
{
    char path[TVSCPI_TEXT_SIZE] = "unset";
    Answer(kNoError);
    EXPECT_EQ(Call(scpi.scpiGetCurrentDirectory, path, TVSCPI_TEXT_SIZE), kLinkFailed);
    EXPECT_FALSE(IsUp());
}

TEST_F(ScpiOperations, QuotesCommasAndUmlautsRoundTrip)
{
    const std::string name = "K\xFCste, \"Nord\".tvm";
    Answer(std::string("1,FILE\n") + kNoError);
    int16_t type = -1;
    int16_t err = -1;
    EXPECT_EQ(scpi.scpiFindFile(&err, name.c_str(), &type), 1);
    EXPECT_EQ(TakeSent(), Exchange("MMEM:EXIS? ALL,\"K\xFCste, \"\"Nord\"\".tvm\""));
}

TEST_F(ScpiOperations, RefusesInvalidNamesWithoutSending)
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

TEST_F(ScpiOperations, FindDistinguishesFilesFoldersAndNothing)
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

TEST_F(ScpiOperations, FindWithInvalidAnswerIsAFailureOfTheLink)
{
    for (const std::string& line : Names{ "", "1", "1,", "1,LINK", "1,FILE,x", "0,FILE", "2", "00" }) {
        Connect();
        Answer(line + '\n' + kNoError);
        EXPECT_EQ(Call(scpi.scpiFindFile, "a", nullptr), kLinkFailed) << line;
        EXPECT_FALSE(IsUp()) << line;
    }
}

TEST_F(ScpiOperations, FailedFindReportsNeitherFoundNorMissing)
{
    Answer("-257,\"File name error\"\n");
    int16_t err = -1;
    int16_t type = -1;
    const int16_t result = scpi.scpiFindFile(&err, "a", &type);
    EXPECT_EQ(err, kRefused);
    EXPECT_NE(result, 0);
    EXPECT_NE(result, 1);
}

TEST_F(ScpiOperations, FindsAndRemovesInEachStore)
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

TEST_F(ScpiOperations, FailedSendClosesLink)
{
    script.SendLimit = 3;
    EXPECT_EQ(Call(scpi.scpiSend, "SYST:SET:LOCK \"a\""), kLinkFailed);
    EXPECT_FALSE(IsUp());
}

TEST_F(ScpiOperations, BytesPendingBeforeCommandCloseLink)
{
    script.Arrived = "0\n";
    EXPECT_EQ(Call(scpi.scpiFindFile, "a", nullptr), kLinkFailed);
    EXPECT_FALSE(IsUp());
    EXPECT_EQ(TakeSent(), "");
}

TEST_F(ScpiOperations, BytesAfterAnswerCloseLinkAtNextCommand)
{
    Answer(std::string("0\n") + kNoError + "0\n");
    Answer(std::string("0\n") + kNoError);
    EXPECT_EQ(Call(scpi.scpiFindFile, "a", nullptr), kOk);
    TakeSent();
    EXPECT_EQ(Call(scpi.scpiFindFile, "b", nullptr), kLinkFailed);
    EXPECT_EQ(TakeSent(), "");
    EXPECT_FALSE(IsUp());
}

TEST_F(ScpiOperations, EveryOperationFailsWithoutLink)
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

TEST_F(ScpiOperations, TimeOutOfShortAnswerCoversWholeOperation)
{
    const tvscpi::FakeClock clock;
    Answer(std::string("1,FILE\n") + kNoError);
    script.MaxPiece = 1;
    script.PieceTime = std::chrono::milliseconds(1000);
    int16_t type = -1;
    EXPECT_EQ(Call(scpi.scpiFindFile, "a", &type), kLinkFailed);
    EXPECT_EQ(clock.Elapsed(), std::chrono::milliseconds(5000));
    EXPECT_FALSE(IsUp());
}
