// closed/tvscpi/socket.h: a TCP connection as a wire.
#pragma once

#include "closed/tvscpi/wire.h"

#include <memory>

namespace tvscpi {

/// Connects to an IPv4 address in dotted form. Null if the text is no such address, nobody answers, or the deadline
/// passes.
[[nodiscard]] std::unique_ptr<Wire> ConnectSocket(const char* address, uint16_t port, const Deadline& deadline);

} // namespace tvscpi
