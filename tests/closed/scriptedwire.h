// tests/closed/scriptedwire.h: a connection whose peer is a list of answers.
#pragma once

#include "closed/tvscpi/wire.h"

#include <cstring>
#include <deque>
#include <string>

namespace tvscpi {

/// The clock of deadlines, which moves only when a scripted wire or the test moves it.
class FakeClock {
public:
    FakeClock()
    {
        now_ = {};
        NowOfDeadlines = [] { return now_; };
    }
    FakeClock(const FakeClock&) = delete;
    FakeClock& operator=(const FakeClock&) = delete;
    ~FakeClock()
    {
        NowOfDeadlines = &Clock::now;
    }

    static void Pass(std::chrono::milliseconds time)
    {
        now_ += time;
    }

    static std::chrono::milliseconds Elapsed()
    {
        return std::chrono::duration_cast<std::chrono::milliseconds>(now_.time_since_epoch());
    }

private:
    static inline Clock::time_point now_;
};

/// State shared between a test and its wire, which the channel owns.
struct WireScript {
    std::deque<std::string> Answers; ///< one arrives after each complete request, in order
    std::string Sent;
    size_t MaxPiece = SIZE_MAX; ///< maximum bytes per receive
    std::chrono::milliseconds PieceTime{ 0 }; ///< passes on the fake clock before each receive
    int LeftMs = -1; ///< of the deadline of the last send or receive, before it
    size_t SendLimit = SIZE_MAX; ///< sending fails after this many bytes
    size_t Sends = 0;
    bool IsClosed = false; ///< by the instrument
    std::string Arrived; ///< received but not read yet
};

/// A request ends with the error query or the identification query. When no answer is left, the deadline passes.
class ScriptedWire final : public Wire {
public:
    explicit ScriptedWire(WireScript& script)
        : script_(script)
    {
    }

    bool Send(ByteView bytes, const Deadline& deadline) override
    {
        script_.LeftMs = deadline.LeftMs();
        ++script_.Sends;
        if (script_.Sent.size() + bytes.size() > script_.SendLimit)
            return false;
        script_.Sent.append(bytes.begin(), bytes.end());
        const bool isEnd = script_.Sent.ends_with("SYST:ERR?\n") || script_.Sent.ends_with("*IDN?\n");
        if (isEnd && !script_.Answers.empty()) {
            script_.Arrived += script_.Answers.front();
            script_.Answers.pop_front();
        }
        return true;
    }

    bool Receive(std::span<uint8_t> room, size_t& got, const Deadline& deadline) override
    {
        script_.LeftMs = deadline.LeftMs();
        FakeClock::Pass(script_.PieceTime);
        if (deadline.IsOver())
            return false;
        got = std::min({ room.size(), script_.Arrived.size(), script_.MaxPiece });
        std::memcpy(room.data(), script_.Arrived.data(), got);
        script_.Arrived.erase(0, got);
        return got > 0;
    }

    WireState Look() override
    {
        if (!script_.Arrived.empty())
            return WireState::HasBytes;
        return script_.IsClosed ? WireState::Closed : WireState::Quiet;
    }

private:
    WireScript& script_;
};

} // namespace tvscpi
