// tools/instrument/linkOptions.h: how the link behaves, and what goes wrong on it.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tarvik {

enum class FaultKind {
    Drop, ///< the connection is closed behind the answers of former commands
    Stall, ///< nothing is read or answered any more
    Garbage, ///< the next answer is random bytes
    Cut, ///< the next block that is not empty ends after half of its bytes
    Refuse ///< the next command on files or settings is refused
};

struct Fault {
    FaultKind Kind = FaultKind::Drop;
    std::uint64_t AtCommand = 1; ///< counted from 1, over all clients; it happens once
};

struct LinkOptions {
    std::int64_t BytesPerSecond = 0; ///< in each direction; 0 is as fast as it goes
    std::chrono::milliseconds Delay{ 0 }; ///< from the arrival of a message to its execution
    std::vector<Fault> Faults;
    bool Verbose = false; ///< tell each command on standard error
};

/// Reads `KIND` or `KIND=N`.
std::optional<Fault> ReadFault(std::string_view text);

} // namespace tarvik
