// The channel on a real socket: connecting, deadlines, large files.
#include "tests/closed/scpifixture.h"
#include "tests/closed/scpiserver.h"

#include <QFile>

#include <arpa/inet.h>
#include <chrono>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int32_t kLongMs = 20000; ///< never reached
constexpr int32_t kShortMs = 50;

/// The TCP_NODELAY option of this process's connection to a local port; -1 if there is none.
int NoDelayOfConnection(int16_t port)
{
    constexpr int kMostDescriptors = 256;
    for (int socket = 0; socket < kMostDescriptors; ++socket) {
        sockaddr_in peer{};
        socklen_t size = sizeof peer;
        const bool isConnected = ::getpeername(socket, reinterpret_cast<sockaddr*>(&peer), &size) == 0;
        if (!isConnected || peer.sin_family != AF_INET || peer.sin_port != htons(static_cast<uint16_t>(port)))
            continue;
        int isOn = 0;
        size = sizeof isOn;
        return ::getsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &isOn, &size) == 0 && isOn != 0 ? 1 : 0;
    }
    return -1;
}

class ScpiLink : public ScpiTest {
protected:
    int16_t Connect(int32_t timeoutMs = kLongMs, const char* host = "127.0.0.1", int16_t mode = 1)
    {
        return ConnectTo(server.Port(), timeoutMs, host, mode);
    }

    int16_t ConnectTo(int16_t port, int32_t timeoutMs, const char* host = "127.0.0.1", int16_t mode = 1)
    {
        return Call(scpi.scpiConnect, mode, host, port, timeoutMs, reply, TVSCPI_TEXT_SIZE);
    }

    /// Queues the identification.
    void Identify()
    {
        server.Answer(std::string(kIdentification) + '\n');
    }

    void ExpectConnected()
    {
        Identify();
        ASSERT_EQ(Connect(), kOk);
    }

    /// True if no time beyond a wait of `kShortMs` was spent, with allowance for a busy machine.
    static bool TookAboutShortMs(Clock::time_point start)
    {
        const auto took = Clock::now() - start;
        return took >= std::chrono::milliseconds(kShortMs) && took < std::chrono::milliseconds(kLongMs / 4);
    }

    ScpiServer server;
    char reply[TVSCPI_TEXT_SIZE] = "unset";
};

} // namespace

TEST_F(ScpiLink, ConnectQueriesIdentificationOnly)
{
    Identify();
    EXPECT_EQ(Connect(), kOk);
    EXPECT_STREQ(reply, kIdentification);
    EXPECT_EQ(server.Received(), "*IDN?\n");
    EXPECT_EQ(scpi.scpiGetConnected(), 0);
    EXPECT_EQ(scpi.scpiCheckConnection(), 0);
}

TEST_F(ScpiLink, CommandsAreSentWithoutDelay)
{
    ExpectConnected();
    EXPECT_EQ(NoDelayOfConnection(server.Port()), 1);
}

TEST_F(ScpiLink, ConnectClosesExistingConnection)
{
    ExpectConnected();
    Identify();
    EXPECT_EQ(Connect(), kOk); // the server takes one client at a time: the first connection is closed
}

TEST_F(ScpiLink, ConnectAcceptsLeadingZerosAsDecimal)
{
    EXPECT_EQ(Connect(kLongMs, "127.000.000.001"), kOk);
}

TEST_F(ScpiLink, ConnectWithoutListenerFails)
{
    EXPECT_EQ(ConnectTo(SilentPort(), kLongMs), kLinkFailed);
    EXPECT_STREQ(reply, "");
    EXPECT_NE(scpi.scpiGetConnected(), 0);
    EXPECT_EQ(scpi.scpiCheckConnection(), 1);
}

TEST_F(ScpiLink, ConnectAcceptsAddressesAndOneModeOnly)
{
    for (const char* host : { "localhost", "", "127.0.0.1x", "::1", "127.0.0.256", "127.1", "127.0.0.", "127.0.0.1.",
             "127.0.0.-1", "127.0.0. 1", "127..0.1", ".127.0.0.1", "127.0.0.99999999999999999999" })
        EXPECT_EQ(Connect(kLongMs, host), kLinkFailed) << host;
    EXPECT_EQ(Connect(kLongMs, nullptr), kLinkFailed);
    EXPECT_EQ(Connect(kLongMs, "127.0.0.1", 2), kLinkFailed);
    EXPECT_EQ(server.Received(), "");
}

TEST_F(ScpiLink, ConnectToBusyInstrumentFails)
{
    server.Answer("", Afterwards::Drops);
    EXPECT_EQ(Connect(), kLinkFailed);
    EXPECT_NE(scpi.scpiGetConnected(), 0);
}

TEST_F(ScpiLink, ConnectToSilentInstrumentTimesOut)
{
    server.Answer("", Afterwards::Stalls);
    const auto start = Clock::now();
    EXPECT_EQ(Connect(kShortMs), kLinkFailed);
    EXPECT_TRUE(TookAboutShortMs(start));
}

TEST_F(ScpiLink, TooLongIdentificationIsAFailure)
{
    Identify();
    EXPECT_EQ(Call(scpi.scpiConnect, 1, "127.0.0.1", server.Port(), kLongMs, reply, 8), kLinkFailed);
    EXPECT_NE(scpi.scpiGetConnected(), 0);
    for (const std::string& text :
        { std::string("\n"), std::string("tab\there\n"), std::string(TVSCPI_TEXT_SIZE, 'x') + '\n' }) {
        server.Answer(text, Afterwards::Stalls);
        EXPECT_EQ(Connect(kShortMs), kLinkFailed) << text;
    }
}

TEST_F(ScpiLink, OperationWithoutAnswerTimesOutAndClosesLink)
{
    ExpectConnected();
    tvscpi::TheChannel().DefaultTimeoutMs = kShortMs;
    server.Answer("", Afterwards::Stalls);
    const auto start = Clock::now();
    EXPECT_EQ(Call(scpi.scpiFindFile, "a", nullptr), kLinkFailed);
    EXPECT_TRUE(TookAboutShortMs(start));
    EXPECT_NE(scpi.scpiGetConnected(), 0);
    EXPECT_EQ(scpi.scpiCheckConnection(), 1);
}

TEST_F(ScpiLink, TimeOutCoversWholeOperation)
{
    ExpectConnected();
    Store(Path(), "old");
    server.Answer("#71000000", Afterwards::Trickles);
    const auto start = Clock::now();
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path().c_str(), kShortMs), kLinkFailed);
    EXPECT_TRUE(TookAboutShortMs(start));
    EXPECT_EQ(Contents(Path()), "old");
    EXPECT_EQ(FolderNames(), (std::vector<std::string>{ "target" }));
}

TEST_F(ScpiLink, UploadToInstrumentThatDoesNotReadTimesOut)
{
    QFile file(QString::fromStdString(Path()));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(qint64{ 64 } << 20));
    server.Answer(std::string(kIdentification) + '\n', Afterwards::StopsReading);
    ASSERT_EQ(Connect(), kOk);
    const auto start = Clock::now();
    EXPECT_EQ(Call(scpi.scpiPutFile, Path().c_str(), "a", kShortMs), kLinkFailed);
    EXPECT_TRUE(TookAboutShortMs(start));
    EXPECT_EQ(scpi.scpiCheckConnection(), 1);
}

TEST_F(ScpiLink, DisconnectDuringUploadClosesLink)
{
    QFile file(QString::fromStdString(Path()));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(qint64{ 64 } << 20));
    server.Answer(std::string(kIdentification) + '\n', Afterwards::ClosesOnNextRequest);
    ASSERT_EQ(Connect(), kOk);
    EXPECT_EQ(Call(scpi.scpiPutFile, Path().c_str(), "a", kLongMs), kLinkFailed);
    EXPECT_EQ(scpi.scpiCheckConnection(), 1);
}

TEST_F(ScpiLink, DisconnectIsDetectedWithoutCommand)
{
    server.Answer(std::string(kIdentification) + '\n', Afterwards::Drops);
    ASSERT_EQ(Connect(), kOk);
    const auto start = Clock::now();
    while (scpi.scpiGetConnected() == 0 && Clock::now() - start < std::chrono::milliseconds(kLongMs))
        std::this_thread::yield();
    EXPECT_NE(scpi.scpiGetConnected(), 0);
    EXPECT_EQ(scpi.scpiCheckConnection(), 1);
    EXPECT_EQ(Call(scpi.scpiSend, "x"), kLinkFailed);
}

TEST_F(ScpiLink, LargeFileArrivesUnchanged)
{
    std::string bytes;
    for (uint32_t i = 0; i < (3U << 20) + 7; ++i)
        bytes += static_cast<char>((i * 2654435761U) >> 24);
    ExpectConnected();
    server.Answer(Block(bytes) + '\n' + kNoError);
    EXPECT_EQ(Call(scpi.scpiGetFile, "a", Path().c_str(), kLongMs), kOk);
    EXPECT_TRUE(Contents(Path()) == bytes);

    server.Clear();
    EXPECT_EQ(Call(scpi.scpiPutFile, Path().c_str(), "b", kLongMs), kOk);
    EXPECT_TRUE(server.Received() == "*CLS\nMMEM:DATA ALL,\"b\"," + Block(bytes) + "\nSYST:ERR?\n");
}

TEST_F(ScpiLink, WalksCatalogueOfTenThousandFiles)
{
    constexpr int kFiles = 10000;
    std::string answer = "1,2";
    for (int i = 0; i < kFiles; ++i)
        answer += ",\"file" + std::to_string(i) + ".png\",FILE,100,2024,1,2,3,4,5";
    ExpectConnected();
    server.Answer(answer + '\n' + kNoError);
    int16_t nothing = -1;
    ASSERT_EQ(Call(scpi.scpiStartFindAllFiles, &nothing, nullptr, nullptr), kOk);
    int16_t last = 0;
    int count = 0;
    char name[TVSCPI_TEXT_SIZE] = "";
    while (last == 0) {
        int16_t part = 0;
        int16_t type = -1;
        ASSERT_EQ(
            Call(scpi.scpiGetNextFile, &type, &last, &part, &part, &part, &part, &part, &part, name, TVSCPI_TEXT_SIZE),
            kOk);
        ++count;
    }
    EXPECT_EQ(count, kFiles);
    EXPECT_STREQ(name, "file9999.png");
}
