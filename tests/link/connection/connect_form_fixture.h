// tests/link/connection/connect_form_fixture.h: what the tests of the connection forms begin with: a USB and two LAN
// entries, no link.
#pragma once

#include "app/help/help.h"
#include "link/connection/connect.h"
#include "tests/support/fakeChannel.h"
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
        TheHelpHooks().ShowTopic = [this](int number) {
            topics.append(number);
            return true;
        };
    }

    void FillAllSlots()
    {
        for (size_t slot = 0; slot < state.LanEntries.size(); ++slot)
            state.LanEntries[slot] = QStringLiteral("Van%1:10.0.0.%1:5555").arg(slot);
    }

    FakeChannel fake;
    ConnectionState& state = Connection();
    QList<int> topics;
};

} // namespace tarvik
