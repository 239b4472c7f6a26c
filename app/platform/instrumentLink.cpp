#include "app/platform/instrumentLink.h"

namespace tarvik {

namespace {

class NoInstrument final : public InstrumentLink {
public:
    bool IsAccepted() const override
    {
        return false;
    }
    QString Name() const override
    {
        return {};
    }
    QString Address() const override
    {
        return {};
    }
    bool IsConnecting() const override
    {
        return false;
    }
    void AutoConnect(bool) override { }
};

} // namespace

Port<InstrumentLink>& TheInstrumentLink()
{
    static PortOr<InstrumentLink, NoInstrument> port;
    return port;
}

} // namespace tarvik
