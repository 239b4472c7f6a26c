#include "tests/tools/instrument/wireClient.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <chrono>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

namespace tarvik {

namespace {

constexpr int kPatienceMs = 60000; // file systems can block for long on a busy machine

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

bool WireClient::HasBytes()
{
    if (taken_ < received_.size())
        return true;
    std::array<char, 65536> buffer{};
    const bool comes = WaitFor(socket_.Number(), POLLIN, kPatienceMs);
    const ssize_t count = comes ? ::recv(socket_.Number(), buffer.data(), buffer.size(), 0) : 0;
    received_.assign(buffer.data(), count > 0 ? static_cast<size_t>(count) : 0);
    taken_ = 0;
    return count > 0;
}

char WireClient::Byte()
{
    if (HasBytes())
        return received_[taken_++];
    ADD_FAILURE() << "the connection is closed, or no answer comes";
    return '\n';
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
    while (content.size() < size && HasBytes()) {
        const size_t count = std::min(received_.size() - taken_, size - content.size());
        content.append(received_, taken_, count);
        taken_ += count;
    }
    EXPECT_EQ(Byte(), '\n');
    return content;
}

bool WireClient::IsServed()
{
    return TrySend("*OPC?\n") && HasBytes() && Line() == "1";
}

bool WireClient::IsClosed()
{
    if (taken_ < received_.size() || !WaitFor(socket_.Number(), POLLIN, kPatienceMs))
        return false;
    char byte = 0;
    return ::recv(socket_.Number(), &byte, 1, 0) <= 0;
}

bool WireClient::IsSilent(int durationMs)
{
    return taken_ == received_.size() && !WaitFor(socket_.Number(), POLLIN, durationMs);
}

void WireClient::EndSending() const
{
    ::shutdown(socket_.Number(), SHUT_WR);
}

void WireClient::Close()
{
    socket_.Close();
}

WireClient NextClient(int port)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(kPatienceMs);
    for (;;) {
        WireClient client(port);
        const bool isServed = client.IsServed();
        const bool isOver = std::chrono::steady_clock::now() >= end;
        EXPECT_TRUE(isServed || !isOver) << "the instrument serves nobody";
        if (isServed || isOver)
            return client;
    }
}

} // namespace tarvik
