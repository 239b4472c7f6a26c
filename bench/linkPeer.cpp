#include "bench/linkPeer.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <string_view>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarvik {

namespace {

std::array<char, kMoveBytes> buffer;

bool WriteAll(int file, const char* bytes, size_t count)
{
    while (count > 0) {
        const ssize_t written = ::write(file, bytes, count);
        if (written <= 0)
            return false;
        bytes += written;
        count -= static_cast<size_t>(written);
    }
    return true;
}

void SetNoDelay(int socket)
{
    const int on = 1;
    (void)::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

std::string Catalogue(int entries)
{
    std::string line = "1000,2000";
    for (int i = 0; i < entries; ++i)
        line += ",\"Screen shot " + std::to_string(i) + ".png\",FILE,123456,2024,2,29,12,34,56";
    return line + '\n';
}

/// Name, size and time of last change of each file in `folder`.
std::string BareCatalogue(const std::string& folder)
{
    std::string line;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        struct stat status { };
        std::tm changed{};
        if (::stat(entry.path().c_str(), &status) != 0 || ::localtime_r(&status.st_mtime, &changed) == nullptr)
            return "\n";
        std::array<char, 64> stamp{};
        (void)std::snprintf(stamp.data(), stamp.size(), ",%lld,%d,%d,%d,%d,%d,%d,",
            static_cast<long long>(status.st_size), 1900 + changed.tm_year, 1 + changed.tm_mon, changed.tm_mday,
            changed.tm_hour, changed.tm_min, changed.tm_sec);
        line += entry.path().filename().string() + stamp.data();
    }
    return line + '\n';
}

/// Serves one client.
class Session {
public:
    Session(int client, const std::string& source, const std::string& target, const std::string& catalogue)
        : client_(client)
        , source_(source)
        , target_(target)
        , catalogue_(catalogue)
    {
    }

    void Run()
    {
        std::string line;
        while (ReadLine(line)) {
            if (!Answer(line))
                return;
            if (waiting_.empty() && !Flush())
                return;
        }
    }

private:
    bool ReadLine(std::string& line)
    {
        size_t end = 0;
        while ((end = waiting_.find('\n')) == std::string::npos) {
            std::array<char, 4096> piece{};
            const ssize_t got = ::recv(client_, piece.data(), piece.size(), 0);
            if (got <= 0)
                return false;
            waiting_.append(piece.data(), static_cast<size_t>(got));
            if (const size_t block = waiting_.find(",#"); block != std::string::npos)
                return TakeBlock(block, line);
        }
        line = waiting_.substr(0, end);
        waiting_.erase(0, end + 1);
        return true;
    }

    /// Stores the data block whose header is at `block` in the received text.
    bool TakeBlock(size_t block, std::string& line)
    {
        line.clear();
        const auto digits = static_cast<size_t>(waiting_.at(block + 2) - '0');
        uint64_t left = std::stoull(waiting_.substr(block + 3, digits));
        const std::string first = waiting_.substr(block + 3 + digits);
        waiting_.clear();
        const int file = ::open(target_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
        if (file < 0 || !WriteAll(file, first.data(), first.size()))
            return false;
        left -= first.size();
        while (left > 0) {
            const ssize_t got = ::recv(client_, buffer.data(), std::min<uint64_t>(left, buffer.size()), 0);
            if (got <= 0 || !WriteAll(file, buffer.data(), static_cast<size_t>(got)))
                return false;
            left -= static_cast<uint64_t>(got);
        }
        char lineEnd = 0;
        return ::close(file) == 0 && ::recv(client_, &lineEnd, 1, 0) == 1;
    }

    bool Answer(const std::string& line)
    {
        const auto is = [&line](std::string_view start) { return line.starts_with(start); };
        if (is("*IDN?"))
            answer_ += "maker,model,serial,firmware\n";
        else if (is("SYST:ERR?"))
            answer_ += "0,\"No error\"\n";
        else if (is("MMEM:EXIS?"))
            answer_ += "0\n";
        else if (is("MMEM:CAT?"))
            answer_ += catalogue_;
        else if (is("MMEM:DATA?"))
            return SendBlock();
        else if (is("PING"))
            answer_ += "0\n";
        else if (is("WALK "))
            answer_ += BareCatalogue(line.substr(5));
        else if (is("GIVE "))
            return MoveToSocket(source_, client_, std::stoull(line.substr(5)));
        else if (is("TAKE ")) {
            answer_ += "0\n"; // what follows is no line: it comes when this side is ready for it
            if (!Flush() || !MoveToFile(client_, target_, std::stoull(line.substr(5))))
                return false;
            answer_ += "0\n";
        }
        return true;
    }

    bool SendBlock()
    {
        struct stat status { };
        if (::stat(source_.c_str(), &status) != 0)
            return false;
        const std::string digits = std::to_string(status.st_size);
        answer_ += '#' + std::to_string(digits.size()) + digits;
        if (!Flush() || !MoveToSocket(source_, client_, static_cast<uint64_t>(status.st_size)))
            return false;
        answer_ += '\n';
        return true;
    }

    bool Flush()
    {
        const bool isSent = SendText(client_, answer_);
        answer_.clear();
        return isSent;
    }

    int client_;
    const std::string& source_;
    const std::string& target_;
    const std::string& catalogue_;
    std::string waiting_;
    std::string answer_;
};

[[noreturn]] void Serve(int listener, const std::string& source, const std::string& target, int entries)
{
    const std::string catalogue = Catalogue(entries);
    for (;;) {
        const int client = ::accept(listener, nullptr, nullptr);
        if (client < 0)
            std::_Exit(1);
        SetNoDelay(client);
        Session(client, source, target, catalogue).Run();
        (void)::close(client);
    }
}

sockaddr_in Loopback(uint16_t port)
{
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    place.sin_port = htons(port);
    return place;
}

} // namespace

LinkPeer StartLinkPeer(const std::string& source, const std::string& target, int entries)
{
    const int listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in place = Loopback(0);
    socklen_t size = sizeof place;
    if (listener < 0 || ::bind(listener, reinterpret_cast<const sockaddr*>(&place), size) != 0
        || ::listen(listener, 1) != 0 || ::getsockname(listener, reinterpret_cast<sockaddr*>(&place), &size) != 0)
        std::abort();
    LinkPeer peer;
    peer.Port = ntohs(place.sin_port);
    peer.Process = ::fork();
    if (peer.Process == 0)
        Serve(listener, source, target, entries);
    (void)::close(listener);
    return peer;
}

LinkPeer StartInstrument(const std::string& program, const std::string& root)
{
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0)
        std::abort();
    LinkPeer peer;
    peer.Process = ::fork();
    if (peer.Process == 0) {
        (void)::dup2(ends[1], STDOUT_FILENO);
        (void)::execl(program.c_str(), program.c_str(), "--port", "0", "--root", root.c_str(), nullptr);
        std::_Exit(1);
    }
    (void)::close(ends[1]);
    std::string line;
    char letter = 0;
    while (::read(ends[0], &letter, 1) == 1 && letter != '\n')
        line += letter;
    (void)::close(ends[0]);
    constexpr std::string_view kStart = "port ";
    if (!line.starts_with(kStart))
        std::abort();
    peer.Port = static_cast<uint16_t>(std::stoi(line.substr(kStart.size())));
    return peer;
}

void StopLinkPeer(const LinkPeer& peer)
{
    (void)::kill(peer.Process, SIGTERM);
    (void)::waitpid(peer.Process, nullptr, 0);
}

int ConnectToPeer(uint16_t port)
{
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_in place = Loopback(port);
    if (socket < 0 || ::connect(socket, reinterpret_cast<const sockaddr*>(&place), sizeof place) != 0)
        std::abort();
    SetNoDelay(socket);
    return socket;
}

bool SendText(int socket, const std::string& text)
{
    size_t sent = 0;
    while (sent < text.size()) {
        const ssize_t count = ::send(socket, text.data() + sent, text.size() - sent, MSG_NOSIGNAL);
        if (count <= 0)
            return false;
        sent += static_cast<size_t>(count);
    }
    return true;
}

bool MoveToSocket(const std::string& path, int socket, uint64_t bytes)
{
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    while (file >= 0 && bytes > 0) {
        const ssize_t got = ::read(file, buffer.data(), std::min<uint64_t>(bytes, buffer.size()));
        if (got <= 0 || !WriteAll(socket, buffer.data(), static_cast<size_t>(got)))
            break;
        bytes -= static_cast<uint64_t>(got);
    }
    (void)::close(file);
    return bytes == 0;
}

bool MoveToFile(int socket, const std::string& path, uint64_t bytes)
{
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    while (file >= 0 && bytes > 0) {
        const ssize_t got = ::recv(socket, buffer.data(), std::min<uint64_t>(bytes, buffer.size()), 0);
        if (got <= 0 || !WriteAll(file, buffer.data(), static_cast<size_t>(got)))
            break;
        bytes -= static_cast<uint64_t>(got);
    }
    return ::close(file) == 0 && bytes == 0;
}

} // namespace tarvik
