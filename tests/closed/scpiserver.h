// tests/closed/scpiserver.h: an instrument on a real socket that answers what a test tells it to, as far as the test
// lets it.
#pragma once

#include <cstdint>
#include <deque>
#include <mutex>
#include <string>
#include <thread>

/// What the server does when it has sent as much of an answer as it may.
enum class Afterwards {
    GoesOn,
    Drops, ///< closes the connection
    Stalls, ///< keeps the connection and says no more
    GoesDeaf, ///< the same, and reads no more either
    Trickles, ///< sends one byte a millisecond for ever
    HangsUpOnTheNext, ///< closes the connection when the next request has begun, with most of it unread
};

/// Serves one client at a time on 127.0.0.1, in a thread of its own. The identification and the question for errors end
/// a request. Without a prepared answer it says that there is no error.
class ScpiServer {
public:
    ScpiServer();
    ~ScpiServer();
    ScpiServer(const ScpiServer&) = delete;
    ScpiServer& operator=(const ScpiServer&) = delete;

    /// The port as the connect operation takes it.
    [[nodiscard]] int16_t Port() const
    {
        return static_cast<int16_t>(port_);
    }

    /// Prepares the answer of the next request, of which no more than `most` bytes are sent.
    void Answer(const std::string& bytes, Afterwards afterwards = Afterwards::GoesOn, size_t most = SIZE_MAX);

    /// Drops what was prepared and forgets what was received.
    void Clear();

    /// All that clients have sent.
    [[nodiscard]] std::string Received() const;

private:
    struct Reply {
        std::string Bytes;
        Afterwards Then = Afterwards::GoesOn;
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
    int wake_[2] = { -1, -1 }; ///< a byte in it ends the thread
    std::thread thread_;
};

/// A port of 127.0.0.1 on which nobody listens.
int16_t SilentPort();
