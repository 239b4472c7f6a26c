// app/platform/instrumentLink.h: the port to the instrument at the other end of the link, for rooms below link/.
#pragma once

#include "app/platform/port.h"

#include <QString>

namespace tarvik {

/// Implemented by link/. Without it nothing is or gets connected.
class InstrumentLink {
public:
    virtual ~InstrumentLink() = default;

    /// True if the instrument that answered last was recognised.
    virtual bool IsAccepted() const = 0;

    /// Name and address ("10.0.0.7:5555") of the connection in use, or of the last one.
    virtual QString Name() const = 0;
    virtual QString Address() const = 0;

    /// True while the program connects: help requests are ignored then.
    virtual bool IsConnecting() const = 0;

    /// Reconnects if the link was up when the program last ended, then offers the connections if it is down.
    virtual void AutoConnect(bool connectedAtExit) = 0;
};

Port<InstrumentLink>& TheInstrumentLink();

} // namespace tarvik
