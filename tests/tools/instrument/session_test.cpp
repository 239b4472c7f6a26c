// How long a client keeps its place. The clock is the test's own.
#include "tests/tools/instrument/deskInstrument.h"
#include "tools/instrument/server.h"
#include "tools/instrument/session.h"

#include <gtest/gtest.h>

#include <array>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>

namespace tarvik {

namespace {

using std::chrono::milliseconds;

constexpr LinkTime kStart{ std::chrono::hours(1) };

/// More than any socket buffers.
constexpr size_t kLargeFileBytes = size_t{ 2 } << 20;

class SessionFixture : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, ends_.data()), 0);
        client_ = Descriptor(ends_[0]);
        session_ = std::make_unique<Session>(Descriptor(ends_[1]), desk_.Unit(), plan_, options_);
    }

    void Say(std::string_view bytes)
    {
        ASSERT_EQ(::send(client_.Number(), bytes.data(), bytes.size(), 0), static_cast<ssize_t>(bytes.size()));
    }

    void AskForLargeFile()
    {
        desk_.Put("large", std::string(kLargeFileBytes, 'x'));
        Say("MMEM:DATA? ALL,\"large\"\n");
    }

    size_t Read()
    {
        std::string piece(size_t{ 64 } << 10, ' ');
        const ssize_t count = ::recv(client_.Number(), piece.data(), piece.size(), MSG_DONTWAIT);
        return count > 0 ? static_cast<size_t>(count) : 0;
    }

    /// Serves what the socket reports. False if the session is over.
    bool ServeAt(LinkTime now)
    {
        pollfd wait{ session_->Socket(), session_->WantedEvents(now), 0 };
        EXPECT_GE(::poll(&wait, 1, 0), 0);
        return session_->Service(wait.revents, now);
    }

    DeskInstrument desk_;
    FaultPlan plan_;
    LinkOptions options_;
    std::array<int, 2> ends_{ -1, -1 };
    Descriptor client_;
    std::unique_ptr<Session> session_;
};

} // namespace

TEST_F(SessionFixture, EndsWhenDoneClientReadsNothing)
{
    AskForLargeFile();
    ASSERT_EQ(::shutdown(client_.Number(), SHUT_WR), 0);
    EXPECT_TRUE(ServeAt(kStart));
    EXPECT_TRUE(session_->IsEnding());
    EXPECT_EQ(session_->TimeoutMs(kStart), kReadingPatience.count());

    EXPECT_TRUE(ServeAt(kStart + kReadingPatience - milliseconds(1)));
    EXPECT_EQ(session_->TimeoutMs(kStart + kReadingPatience - milliseconds(1)), 1);
    EXPECT_FALSE(ServeAt(kStart + kReadingPatience));
}

TEST_F(SessionFixture, ServesDoneClientAsLongAsItReads)
{
    AskForLargeFile();
    ASSERT_EQ(::shutdown(client_.Number(), SHUT_WR), 0);
    size_t total = 0;
    LinkTime now = kStart;
    while (ServeAt(now)) {
        ASSERT_LE(total, 2 * kLargeFileBytes);
        total += Read();
        now += kReadingPatience - milliseconds(1);
    }
    while (const size_t count = Read())
        total += count;
    EXPECT_EQ(total, std::string("#7").size() + 7 + kLargeFileBytes + 1);
}

TEST_F(SessionFixture, KeepsPlaceOfSilentClientThatMayStillSend)
{
    AskForLargeFile();
    EXPECT_TRUE(ServeAt(kStart));
    EXPECT_TRUE(ServeAt(kStart + 100 * kReadingPatience));
    EXPECT_FALSE(session_->IsEnding());
    EXPECT_EQ(session_->TimeoutMs(kStart + 100 * kReadingPatience), -1);
}

TEST_F(SessionFixture, DelayIsNotTheClientsSilence)
{
    options_.Delay = 3 * kReadingPatience;
    Say("*IDN?\n");
    ASSERT_EQ(::shutdown(client_.Number(), SHUT_WR), 0);
    EXPECT_TRUE(ServeAt(kStart));
    EXPECT_TRUE(ServeAt(kStart + 2 * kReadingPatience));
    EXPECT_TRUE(ServeAt(kStart + 3 * kReadingPatience));
    EXPECT_GT(Read(), 0U);
    EXPECT_FALSE(ServeAt(kStart + 3 * kReadingPatience));
}

TEST(LostClient, IsGivenUpAfterAMinute)
{
    const Descriptor socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    WatchForLostClient(socket.Number());
    const auto option = [&socket](int level, int name) {
        int value = 0;
        socklen_t size = sizeof value;
        EXPECT_EQ(::getsockopt(socket.Number(), level, name, &value, &size), 0);
        return value;
    };
    EXPECT_EQ(option(SOL_SOCKET, SO_KEEPALIVE), 1);
    EXPECT_EQ(option(IPPROTO_TCP, TCP_KEEPIDLE) + option(IPPROTO_TCP, TCP_KEEPINTVL) * option(IPPROTO_TCP, TCP_KEEPCNT),
        kLostClientSeconds);
    EXPECT_EQ(option(IPPROTO_TCP, TCP_USER_TIMEOUT), kLostClientSeconds * 1000);
}

} // namespace tarvik
