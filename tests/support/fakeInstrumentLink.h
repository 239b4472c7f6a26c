// tests/support/fakeInstrumentLink.h: an instrument as rooms below link/ see it. It is in force while it lives.
#pragma once

#include "app/platform/instrumentLink.h"

#include <QList>

namespace tarvik {

class FakeInstrumentLink : public InstrumentLink {
public:
    bool IsAccepted() const override
    {
        return Accepted;
    }
    QString Name() const override
    {
        return ConnectionName;
    }
    QString Address() const override
    {
        return ConnectionAddress;
    }
    bool IsConnecting() const override
    {
        return Connecting;
    }
    void AutoConnect(bool connectedAtExit) override
    {
        AutoConnects.append(connectedAtExit);
    }

    QString ConnectionName;
    QString ConnectionAddress;
    bool Accepted = false;
    bool Connecting = false;
    QList<bool> AutoConnects;

private:
    PortScope<InstrumentLink> inForce_{ TheInstrumentLink(), *this };
};

} // namespace tarvik
