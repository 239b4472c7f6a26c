// tests/tools/instrument/wireClient.h: a plain client on a socket. Every wait ends after a minute in a failure.
#pragma once

#include "tools/instrument/descriptor.h"

#include <string>
#include <string_view>

namespace tarvik {

class WireClient {
public:
    explicit WireClient(int port);

    void Send(std::string_view bytes) const;

    /// Sends as far as the other side takes it; false once it takes no more.
    [[nodiscard]] bool TrySend(std::string_view bytes) const;

    /// The next line, without its end.
    std::string Line();

    /// Sends a line and answers the next one.
    std::string Ask(std::string_view line);

    /// The content of a definite block with the line end behind it.
    std::string Block();

    /// True if the instrument answers, false if it turns this client away.
    bool IsServed();

    /// The other side has closed the connection, and nothing is left to read.
    bool IsClosed();

    /// Nothing arrives for the given time.
    bool IsSilent(int milliseconds);

    /// Sends nothing more, but goes on reading.
    void EndSending() const;

    void Close();

private:
    bool HasBytes();
    char Byte();

    Descriptor socket_;
    std::string received_;
    size_t taken_ = 0; ///< of received_
};

/// Connects as soon as the instrument has noticed that its former client is gone; until then it turns others away.
WireClient NextClient(int port);

} // namespace tarvik
