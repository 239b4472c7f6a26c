// tools/instrument/server.h: listens, and serves one client at a time.
#pragma once

#include "tools/instrument/instrument.h"
#include "tools/instrument/linkOptions.h"
#include "tools/instrument/session.h"

#include <memory>
#include <string>

namespace tarvik {

class Server {
public:
    /// Both stay the caller's.
    Server(Instrument& instrument, const LinkOptions& options);

    /// Listens on the first port from `firstPort` to `lastPort` that is free; port 0 takes any. False, with `errno`,
    /// when there is none.
    [[nodiscard]] bool Listen(const std::string& address, int firstPort, int lastPort);

    /// The port that it listens on.
    int Port() const;

    /// Serves until the descriptor `stop` can be read. False, with `errno`, when the system fails.
    [[nodiscard]] bool Serve(int stop);

private:
    void AcceptClient();

    Instrument& instrument_;
    const LinkOptions& options_;
    FaultPlan plan_;
    Descriptor listener_;
    std::unique_ptr<Session> session_;
};

} // namespace tarvik
