// tests/tools/instrument/wireClient.h: a plain socket client. Every wait fails after a minute.
#pragma once

#include "tools/instrument/descriptor.h"

#include <string>
#include <string_view>

namespace tarvik {

class WireClient {
public:
    explicit WireClient(int port);

    void Send(std::string_view bytes) const;

    /// Sends until the peer accepts no more; false then.
    [[nodiscard]] bool TrySend(std::string_view bytes) const;

    /// The next line, without its terminator.
    std::string Line();

    /// Sends a line and returns the next one.
    std::string Ask(std::string_view line);

    /// The content of a definite-length block, which must be followed by a line end.
    std::string Block();

    /// True if the instrument answers, false if it turns this client away.
    bool IsServed();

    /// True if the peer has closed the connection and nothing is left to read.
    bool IsClosed();

    /// True if nothing arrives for the given time.
    bool IsSilent(int durationMs);

    /// Shuts down sending; reading continues.
    void EndSending() const;

    void Close();

private:
    bool HasBytes();
    char Byte();

    Descriptor socket_;
    std::string received_;
    size_t taken_ = 0; ///< consumed bytes of received_
};

/// Connects once the instrument has noticed that its previous client is gone; before, it turns others away.
WireClient NextClient(int port);

} // namespace tarvik
