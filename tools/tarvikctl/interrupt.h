// tools/tarvikctl/interrupt.h: stops a transfer at a termination signal, Ctrl+C for instance.
#pragma once

#include <QString>

namespace tarvik {

/// From now on the first termination signal closes the connection to this IPv4 address and port: the running transfer
/// fails and removes what it has written. A second signal ends the process at once. Signals that the process ignored
/// from its start stay ignored. No effect on systems without signals.
void InterruptClosesLink(const QString& address, int port);

/// Ends the process by the signal that has arrived, as the shell that started it expects; returns if none has.
void EndIfInterrupted();

} // namespace tarvik
