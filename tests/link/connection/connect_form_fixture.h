// tests/link/connection/connect_form_fixture.h: the connection forms with a USB and two LAN entries, not connected.
#pragma once

#include "link/connection/connect.h"
#include "tests/link/connection/fakeConnectForms.h"
#include "tests/support/fakeChannel.h"
#include "tests/support/fakeHelp.h"
#include "tests/support/forms.h"

namespace tarvik {

class ConnectionForms : public FormTest {
protected:
    ConnectionForms()
    {
        fake.Connected = false;
        state.UsbEntry = QStringLiteral("Usb:169.254.1.1:5555");
        state.LanEntries[0] = QStringLiteral("Van:10.0.0.7:5555");
        state.LanEntries[1] = QStringLiteral("Roof:10.0.0.8:80");
    }

    void FillAllSlots()
    {
        for (size_t slot = 0; slot < state.LanEntries.size(); ++slot)
            state.LanEntries[slot] = QStringLiteral("Van%1:10.0.0.%1:5555").arg(slot);
    }

    FakeChannel fake;
    FakeConnectForms forms;
    ConnectionState& state = Connection();
    FakeHelp help;
    const QList<int>& topics = help.Topics;
};

} // namespace tarvik
