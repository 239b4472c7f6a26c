// tools/instrument/linkOptions.h: options of the link: rate, delay and faults.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tarvik {

enum class FaultKind {
    Drop, ///< close the connection after the answers to earlier commands
    Stall, ///< stop reading and answering
    Garbage, ///< replace the next answer by random bytes
    Cut, ///< end the next non-empty block after half of its bytes
    Refuse ///< refuse the next command on files or settings
};

struct Fault {
    FaultKind Kind = FaultKind::Drop;
    std::uint64_t AtCommand = 1; ///< counted from 1 across all clients; happens once
};

struct LinkOptions {
    std::int64_t BytesPerSecond = 0; ///< in each direction; 0 means unlimited
    std::chrono::milliseconds Delay{ 0 }; ///< from the arrival of a message to its execution
    std::vector<Fault> Faults;
    bool Verbose = false; ///< log each command to standard error
};

/// Parses `KIND` or `KIND=N`.
std::optional<Fault> ReadFault(std::string_view text);

} // namespace tarvik
