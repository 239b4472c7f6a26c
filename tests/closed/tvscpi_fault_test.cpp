// Every operation against a failing instrument: the connection is dropped and stalled after every byte of its
// answers, and answers are corrupted. In every case the status word is right, no operation exceeds its deadline, and
// a file is either complete or unchanged.
#include "tests/closed/scpifixture.h"
#include "tests/closed/scpiserver.h"

#include <chrono>
#include <functional>
#include <random>

namespace {

constexpr int32_t kLongMs = 20000; ///< never reached
constexpr int32_t kStallMs = 3;

using Names = std::vector<std::string>;

struct Operation {
    std::string Name;
    std::string Answer;
    std::function<int16_t(const TvScpiApi& scpi, const std::string& local, int32_t timeoutMs)> Run;
};

std::string DownloadAnswer()
{
    std::string bytes;
    for (int i = 0; i < 150; ++i)
        bytes += static_cast<char>(i * 7);
    return Block(bytes) + '\n' + kNoError;
}

#define DOWNLOAD(name)                                                                                                 \
    Operation                                                                                                          \
    {                                                                                                                  \
#name, DownloadAnswer(),                                                                                       \
            [](const TvScpiApi& scpi, const std::string& local,                                                        \
                int32_t timeoutMs) { return Call(scpi.name, "remote", local.c_str(), timeoutMs); }                     \
    }
#define UPLOAD(name)                                                                                                   \
    Operation                                                                                                          \
    {                                                                                                                  \
#name, kNoError,                                                                                               \
            [](const TvScpiApi& scpi, const std::string& local,                                                        \
                int32_t timeoutMs) { return Call(scpi.name, local.c_str(), "remote", timeoutMs); }                     \
    }
#define FIND(name)                                                                                                     \
    Operation                                                                                                          \
    {                                                                                                                  \
#name, std::string("1,FILE\n") + kNoError, [](const TvScpiApi& scpi, const std::string&, int32_t) {            \
            int16_t type = 0;                                                                                          \
            return Call(scpi.name, "remote", &type);                                                                   \
        }       \
    }
#define WALK(name)                                                                                                     \
    Operation                                                                                                          \
    {                                                                                                                  \
#name,                                                                                                         \
            std::string("10,20,\"a.tvm\",FILE,5,2024,1,2,3,4,5,\"b\",DIR,0,2023,12,31,23,59,58\n") + kNoError,         \
            [](const TvScpiApi& scpi, const std::string&, int32_t) {                                                   \
                int16_t nothing = 0;                                                                                   \
                return Call(scpi.name, &nothing, nullptr, nullptr);                                                    \
            }       \
    }
#define COMMAND(name, ...)                                                                                             \
    Operation                                                                                                          \
    {                                                                                                                  \
#name, kNoError,                                                                                               \
            [](const TvScpiApi& scpi, const std::string&, int32_t) { return Call(scpi.name, __VA_ARGS__); }            \
    }

std::vector<Operation> Operations()
{
    return {
        { "scpiGetCurrentDirectory", std::string("\"\\Public\\Memory List\"\n") + kNoError,
            [](const TvScpiApi& scpi, const std::string&, int32_t) {
                char path[TVSCPI_TEXT_SIZE] = "";
                return Call(scpi.scpiGetCurrentDirectory, path, TVSCPI_TEXT_SIZE);
            } },
        COMMAND(scpiSetCurrentDirectory, "\\Public"),
        COMMAND(scpiCreateDirectory, "remote"),
        COMMAND(scpiRemoveDirectory, "remote"),
        COMMAND(scpiRename, "remote", "other"),
        COMMAND(scpiRemoveFile, "remote"),
        COMMAND(scpiRemoveKfactorTableFile, "remote"),
        COMMAND(scpiRemoveCorrectionSetFile, "remote"),
        FIND(scpiFindFile),
        FIND(scpiFindInKfactorTableFiles),
        FIND(scpiFindInCorrectionSetFiles),
        WALK(scpiStartFindAllFiles),
        WALK(scpiStartFindAntennaListFiles),
        WALK(scpiStartFindKfactorTableFiles),
        WALK(scpiStartFindMemoryListFiles),
        WALK(scpiStartFindSuppressListFiles),
        WALK(scpiStartFindCorrectionSetFiles),
        DOWNLOAD(scpiGetFile),
        DOWNLOAD(scpiGetAntennaListFile),
        DOWNLOAD(scpiGetKfactorTableFile),
        DOWNLOAD(scpiGetMemoryListFile),
        DOWNLOAD(scpiGetSuppressListFile),
        DOWNLOAD(scpiGetCorrectionSetFile),
        { "scpiGetActiveDatasetFile", DownloadAnswer(),
            [](const TvScpiApi& scpi, const std::string& local, int32_t timeoutMs) {
                return Call(scpi.scpiGetActiveDatasetFile, local.c_str(), timeoutMs);
            } },
        { "scpiGetFileFromStream", DownloadAnswer(),
            [](const TvScpiApi& scpi, const std::string& local, int32_t timeoutMs) {
                EXPECT_EQ(Call(scpi.scpiSend, "DISP:WIND:FETC?"), kOk);
                return Call(scpi.scpiGetFileFromStream, local.c_str(), timeoutMs);
            } },
        UPLOAD(scpiPutFile),
        UPLOAD(scpiPutAntennaListFile),
        UPLOAD(scpiPutKfactorTableFile),
        UPLOAD(scpiPutMemoryListFile),
        UPLOAD(scpiPutSuppressListFile),
        UPLOAD(scpiPutCorrectionSetFile),
        { "scpiPutActiveDatasetFile", kNoError,
            [](const TvScpiApi& scpi, const std::string& local, int32_t timeoutMs) {
                return Call(scpi.scpiPutActiveDatasetFile, local.c_str(), timeoutMs);
            } },
    };
}

class ScpiFaults : public ScpiTest {
protected:
    ScpiFaults()
    {
        Store(Path(), "old");
    }

    /// Reconnects and runs `operation` with `answer`, of which `most` bytes arrive.
    int16_t RunAgainst(const Operation& operation, const std::string& answer, Afterwards afterwards, size_t most)
    {
        char reply[TVSCPI_TEXT_SIZE] = "";
        scpi.scpiDisconnect();
        server.Clear();
        server.Answer(std::string(kIdentification) + '\n');
        EXPECT_EQ(Call(scpi.scpiConnect, 1, "127.0.0.1", server.Port(), kLongMs, reply, TVSCPI_TEXT_SIZE), kOk);
        server.Answer(answer, afterwards, most);
        const int32_t timeoutMs = afterwards == Afterwards::Stalls ? kStallMs : kLongMs;
        tvscpi::TheChannel().DefaultTimeoutMs = timeoutMs;
        return operation.Run(scpi, Path(), timeoutMs);
    }

    /// Expects the state after a failure of the link.
    void ExpectGone()
    {
        ASSERT_NE(scpi.scpiGetConnected(), 0);
        ASSERT_EQ(scpi.scpiCheckConnection(), 1);
        ASSERT_EQ(Contents(Path()), "old");
        ASSERT_EQ(FolderNames(), (Names{ "target" }));
    }

    /// Cuts each answer after each of its bytes; returns the number of cuts.
    size_t CutEverywhere(Afterwards afterwards)
    {
        size_t places = 0;
        for (const Operation& operation : Operations()) {
            for (size_t most = 0; most < operation.Answer.size() && !HasFatalFailure(); ++most, ++places) {
                SCOPED_TRACE(operation.Name + " after " + std::to_string(most));
                const auto start = std::chrono::steady_clock::now();
                EXPECT_EQ(RunAgainst(operation, operation.Answer, afterwards, most), kLinkFailed);
                EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(kLongMs / 2));
                ExpectGone();
            }
        }
        return places;
    }

    ScpiServer server;
    std::mt19937 random{ 20240229 };
};

} // namespace

TEST_F(ScpiFaults, WholeAnswersSucceed)
{
    for (const Operation& operation : Operations())
        EXPECT_EQ(RunAgainst(operation, operation.Answer, Afterwards::Continues, SIZE_MAX), kOk) << operation.Name;
}

TEST_F(ScpiFaults, ConnectionDroppedAfterAnyByte)
{
    EXPECT_GE(CutEverywhere(Afterwards::Drops), 2000U);
}

TEST_F(ScpiFaults, ConnectionStalledAfterAnyByte)
{
    EXPECT_GE(CutEverywhere(Afterwards::Stalls), 2000U);
}

TEST_F(ScpiFaults, ConnectDroppedOrStalledAfterAnyByte)
{
    const std::string answer = std::string(kIdentification) + '\n';
    for (size_t most = 0; most < answer.size(); ++most) {
        for (const Afterwards afterwards : { Afterwards::Drops, Afterwards::Stalls }) {
            char reply[TVSCPI_TEXT_SIZE] = "";
            server.Clear();
            server.Answer(answer, afterwards, most);
            const int32_t timeoutMs = afterwards == Afterwards::Stalls ? 10 * kStallMs : kLongMs;
            EXPECT_EQ(
                Call(scpi.scpiConnect, 1, "127.0.0.1", server.Port(), timeoutMs, reply, TVSCPI_TEXT_SIZE), kLinkFailed)
                << most;
            EXPECT_EQ(scpi.scpiCheckConnection(), 1) << most;
        }
    }
}

TEST_F(ScpiFaults, RandomBytesInsteadOfAnswer)
{
    constexpr int kRounds = 20;
    std::uniform_int_distribution<int> byte(0, 255);
    std::uniform_int_distribution<int> length(0, 300);
    for (const Operation& operation : Operations()) {
        for (int round = 0; round < kRounds && !HasFatalFailure(); ++round) {
            SCOPED_TRACE(operation.Name + " round " + std::to_string(round));
            std::string answer(static_cast<size_t>(length(random)), '\0');
            for (char& each : answer)
                each = static_cast<char>(byte(random));
            const Afterwards afterwards = round % 2 == 0 ? Afterwards::Drops : Afterwards::Stalls;
            EXPECT_EQ(RunAgainst(operation, answer, afterwards, SIZE_MAX), kLinkFailed);
            ExpectGone();
        }
    }
}

TEST_F(ScpiFaults, AnswerWithOneChangedByteGivesWholeFileOrNone)
{
    std::uniform_int_distribution<int> difference(1, 255);
    constexpr size_t kWholeBytes = 150;
    constexpr size_t kHeadBytes = 5;
    for (const Operation& operation : Operations()) {
        // A changed byte inside a file goes unnoticed, so a few of them are enough.
        const bool hasFile = operation.Answer.size() > kWholeBytes;
        for (size_t at = 0; at < operation.Answer.size() && !HasFatalFailure(); ++at) {
            if (hasFile && at > kHeadBytes && at < kWholeBytes && at % 40 != 0)
                continue;
            SCOPED_TRACE(operation.Name + " at " + std::to_string(at));
            std::string answer = operation.Answer;
            answer[at] = static_cast<char>(answer[at] + difference(random));
            const int16_t status = RunAgainst(operation, answer, Afterwards::Stalls, SIZE_MAX);
            EXPECT_TRUE(status == kOk || status == kLinkFailed || status == kRefused) << status;
            if (status != kOk || !hasFile)
                ASSERT_EQ(Contents(Path()), "old");
            else
                ASSERT_EQ(Contents(Path()).size(), kWholeBytes);
            ASSERT_EQ(FolderNames(), (Names{ "target" }));
            Store(Path(), "old");
        }
    }
}

TEST_F(ScriptedScpiTest, EveryOperationHasItsTimeOut)
{
    constexpr int32_t kGivenMs = 7777;
    const tvscpi::FakeClock clock;
    Store(Path(), "old");
    for (const Operation& operation : Operations()) {
        Connect();
        Answer(operation.Answer);
        EXPECT_EQ(operation.Run(scpi, Path(), kGivenMs), kOk) << operation.Name;
        const bool isTransfer = operation.Name.starts_with("scpiGet") || operation.Name.starts_with("scpiPut");
        const bool isGiven = isTransfer && operation.Name != "scpiGetCurrentDirectory";
        EXPECT_EQ(script.LeftMs, isGiven ? kGivenMs : 5000) << operation.Name;
    }
    EXPECT_EQ(Call(scpi.scpiSend, "*RST"), kOk);
    EXPECT_EQ(script.LeftMs, 5000);
}
