// tools/instrument/server.h: listens on a port and serves one client at a time.
#pragma once

#include "tools/instrument/instrument.h"
#include "tools/instrument/linkOptions.h"
#include "tools/instrument/session.h"

#include <memory>
#include <string>

namespace tarvik {

/// A client whose machine or network has vanished is given up after so long.
inline constexpr int kLostClientSeconds = 60;

/// Has the system look for a silent client's end of the connection: left alone it would do so after two hours.
void WatchForLostClient(int socket);

class Server {
public:
    /// Both must outlive this.
    Server(Instrument& instrument, const LinkOptions& options);

    /// Listens on the first free port from `firstPort` to `lastPort`; port 0 means any. False, with `errno`, if there
    /// is none.
    [[nodiscard]] bool Listen(const std::string& address, int firstPort, int lastPort);

    /// The port in use.
    int Port() const;

    /// Serves until the descriptor `stop` becomes readable. False, with `errno`, on a system error.
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
