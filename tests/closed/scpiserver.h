// tests/closed/scpiserver.h: an instrument on a real socket with scripted answers and faults.
#pragma once

#include <cstdint>
#include <deque>
#include <mutex>
#include <string>
#include <thread>

/// What the server does after the allowed part of an answer.
enum class Afterwards {
    Continues,
    Drops, ///< closes the connection
    Stalls, ///< keeps the connection but sends nothing more
    StopsReading, ///< as Stalls, and stops reading
    Trickles, ///< sends one byte per millisecond for ever
    ClosesOnNextRequest, ///< closes the connection once the next request has started, with most of it unread
};

/// Serves one client at a time on 127.0.0.1, in its own thread. A request ends with the identification or error
/// query. Without a queued answer it reports no error.
class ScpiServer {
public:
    ScpiServer();
    ~ScpiServer();
    ScpiServer(const ScpiServer&) = delete;
    ScpiServer& operator=(const ScpiServer&) = delete;

    /// The port in the form that the connect operation takes.
    [[nodiscard]] int16_t Port() const
    {
        return static_cast<int16_t>(port_);
    }

    /// Queues the answer to the next request, of which at most `most` bytes are sent.
    void Answer(const std::string& bytes, Afterwards afterwards = Afterwards::Continues, size_t most = SIZE_MAX);

    /// Drops queued answers and received requests.
    void Clear();

    /// Everything that clients have sent.
    [[nodiscard]] std::string Received() const;

private:
    struct Reply {
        std::string Bytes;
        Afterwards Then = Afterwards::Continues;
    };

    void Serve();
    void Talk(int client);
    bool SendReply(int client);

    uint16_t port_ = 0;
    int listener_ = -1;
    mutable std::mutex mutex_;
    std::deque<Reply> replies_;
    std::string received_;
    int client_ = -1;
    int wake_[2] = { -1, -1 }; ///< writing a byte ends the thread
    std::thread thread_;
};

/// A port of 127.0.0.1 without a listener.
int16_t SilentPort();
