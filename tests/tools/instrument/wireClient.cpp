#include "tests/tools/instrument/wireClient.h"

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <array>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

namespace {

constexpr int kPatienceMs = 10000;

bool WaitFor(int socket, short events, int milliseconds)
{
    pollfd wait{ socket, events, 0 };
    return ::poll(&wait, 1, milliseconds) == 1;
}

} // namespace

WireClient::WireClient(int port)
    : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    EXPECT_EQ(::connect(socket_.Number(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
}

bool WireClient::TrySend(std::string_view bytes) const
{
    while (!bytes.empty()) {
        const bool canSend = WaitFor(socket_.Number(), POLLOUT, kPatienceMs);
        const ssize_t count = canSend ? ::send(socket_.Number(), bytes.data(), bytes.size(), MSG_NOSIGNAL) : -1;
        if (count < 0)
            return false;
        bytes.remove_prefix(static_cast<size_t>(count));
    }
    return true;
}

void WireClient::Send(std::string_view bytes) const
{
    EXPECT_TRUE(TrySend(bytes));
}

char WireClient::Byte()
{
    if (taken_ == received_.size()) {
        std::array<char, 65536> buffer{};
        const bool comes = WaitFor(socket_.Number(), POLLIN, kPatienceMs);
        const ssize_t count = comes ? ::recv(socket_.Number(), buffer.data(), buffer.size(), 0) : 0;
        if (count <= 0) {
            ADD_FAILURE() << (comes ? "the connection is closed" : "no answer");
            return '\n';
        }
        received_.assign(buffer.data(), static_cast<size_t>(count));
        taken_ = 0;
    }
    return received_[taken_++];
}

std::string WireClient::Line()
{
    std::string line;
    for (char byte = Byte(); byte != '\n'; byte = Byte())
        line.push_back(byte);
    return line;
}

std::string WireClient::Ask(std::string_view line)
{
    Send(std::string(line) + '\n');
    return Line();
}

std::string WireClient::Block()
{
    EXPECT_EQ(Byte(), '#');
    const int digits = Byte() - '0';
    size_t size = 0;
    for (int i = 0; i < digits; ++i)
        size = size * 10 + static_cast<size_t>(Byte() - '0');
    std::string content;
    while (content.size() < size && !testing::Test::HasFailure())
        content.push_back(Byte());
    EXPECT_EQ(Byte(), '\n');
    return content;
}

bool WireClient::IsClosed()
{
    if (taken_ < received_.size() || !WaitFor(socket_.Number(), POLLIN, kPatienceMs))
        return false;
    char byte = 0;
    return ::recv(socket_.Number(), &byte, 1, 0) <= 0;
}

bool WireClient::IsSilent(int milliseconds)
{
    return taken_ == received_.size() && !WaitFor(socket_.Number(), POLLIN, milliseconds);
}

void WireClient::EndSending() const
{
    ::shutdown(socket_.Number(), SHUT_WR);
}

void WireClient::Close()
{
    socket_.Close();
}
