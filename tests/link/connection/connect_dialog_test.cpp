#include "link/connection/connectDialog.h"

#include "app/state/project.h"
#include "tests/support/fakeChannel.h"
#include "tests/support/fixture.h"

namespace tarvik {

namespace {

class ConnectDialog : public ProgramTest {
protected:
    ConnectDialog()
    {
        fake.Connected = false;
        state.UsbEntry = QStringLiteral("Usb:169.254.1.1:5555");
        state.LanEntries[0] = QStringLiteral("Van:10.0.0.7:5555");
        state.LanEntries[1] = QStringLiteral("Roof:10.0.0.8:80");
    }

    static QStringList Shown(int tab)
    {
        QStringList lines;
        for (const ConnectRow& row : conRows(tab))
            lines.append(conEntryOf(row.Fields) + u' ' + row.Icon + (row.Selected ? " selected" : ""));
        return lines;
    }

    FakeChannel fake;
    ConnectionState& state = Connection();
};

using ConnectionEntry = ConnectDialog;

} // namespace

TEST_F(ConnectDialog, OpensOnUsbForWhoHasNotBeenConnected)
{
    state.SelectedEntry = state.LanEntries[1];
    EXPECT_EQ(conStartTab(), ConnectTabUsb);
}

TEST_F(ConnectDialog, OpensOnLanWhenALanEntryIsOrWasConnected)
{
    state.SelectedEntry = state.LanEntries[1];
    Program().ConnectedAtExit = true;
    EXPECT_EQ(conStartTab(), ConnectTabLan);
    Program().ConnectedAtExit = false;
    fake.Connected = true;
    EXPECT_EQ(conStartTab(), ConnectTabLan);
}

TEST_F(ConnectDialog, OpensOnUsbForAnEntryThatIsTheUsbOneToo)
{
    fake.Connected = true;
    state.SelectedEntry = state.UsbEntry;
    EXPECT_EQ(conStartTab(), ConnectTabUsb);
    state.LanEntries[2] = state.UsbEntry;
    EXPECT_EQ(conStartTab(), ConnectTabUsb);
    state.SelectedEntry = "Gone:1.1.1.1:1";
    EXPECT_EQ(conStartTab(), ConnectTabUsb);
}

TEST_F(ConnectDialog, WithoutLinkConnectsAndEdits)
{
    const ConnectControls controls = conControls(ConnectTabLan, 2);
    EXPECT_TRUE(controls.CanConnect);
    EXPECT_FALSE(controls.CanDisconnect);
    EXPECT_TRUE(controls.CanAdd);
    EXPECT_TRUE(controls.HasEditButtons);
    EXPECT_EQ(controls.Title, 10402);
}

TEST_F(ConnectDialog, WithLinkOnlyDisconnects)
{
    fake.Connected = true;
    const ConnectControls controls = conControls(ConnectTabLan, 2);
    EXPECT_FALSE(controls.CanConnect);
    EXPECT_TRUE(controls.CanDisconnect);
    EXPECT_FALSE(controls.CanAdd);
    EXPECT_EQ(controls.Title, 10418);
}

TEST_F(ConnectDialog, AddsUpToNine)
{
    EXPECT_TRUE(conControls(ConnectTabLan, 8).CanAdd);
    EXPECT_FALSE(conControls(ConnectTabLan, 9).CanAdd);
}

TEST_F(ConnectDialog, UsbHasNoEditButtons)
{
    EXPECT_FALSE(conControls(ConnectTabUsb, 1).HasEditButtons);
}

TEST_F(ConnectDialog, ListsTheValidEntriesOfATab)
{
    state.LanEntries[2] = "bad:256.1.1.1:80";
    state.SelectedEntry = state.LanEntries[1];
    EXPECT_EQ(Shown(ConnectTabLan),
        (QStringList{ "Van:10.0.0.7:5555 LanNotConnected", "Roof:10.0.0.8:80 LanNotConnected selected" }));
    EXPECT_EQ(Shown(ConnectTabUsb), QStringList{ "Usb:169.254.1.1:5555 UsbNotConnected selected" });
}

TEST_F(ConnectDialog, MarksTheConnectedEntryOnly)
{
    fake.Connected = true;
    state.SelectedEntry = state.LanEntries[1];
    EXPECT_EQ(Shown(ConnectTabLan),
        (QStringList{ "Van:10.0.0.7:5555 LanNotConnected", "Roof:10.0.0.8:80 LanConnected selected" }));
    EXPECT_EQ(Shown(ConnectTabUsb), QStringList{ "Usb:169.254.1.1:5555 UsbNotConnected selected" });
    state.SelectedEntry = state.UsbEntry;
    EXPECT_EQ(Shown(ConnectTabUsb), QStringList{ "Usb:169.254.1.1:5555 UsbConnected selected" });
}

TEST_F(ConnectDialog, SelectsTheFirstRowWithoutAChosenOne)
{
    EXPECT_EQ(Shown(ConnectTabLan).first(), "Van:10.0.0.7:5555 LanNotConnected selected");
    state.LanEntries = {};
    EXPECT_TRUE(Shown(ConnectTabLan).isEmpty());
}

TEST_F(ConnectDialog, UsbTabIsEmptyAfterAForeignAddress)
{
    state.UsbEntry = "Usb:10.0.0.1:5555";
    conUsbEntryCheck();
    EXPECT_TRUE(Shown(ConnectTabUsb).isEmpty());
}

TEST_F(ConnectDialog, TextIsTakenApartOnlyWithThreeFields)
{
    EXPECT_EQ(conFieldsOf("a:b:c").Port, "c");
    EXPECT_EQ(conFieldsOf("a:b").Name, "");
    EXPECT_EQ(conFieldsOf("a:b:c:d").Name, "");
    EXPECT_EQ(conDefaultEntry(), "Default:172.17.75.1:5555");
}

TEST_F(ConnectionEntry, NewOneIsStoredAndSelected)
{
    EXPECT_TRUE(conEntryAccept({ "New", "10.0.0.9", "5555" }));
    EXPECT_EQ(state.LanEntries[2], "New:10.0.0.9:5555");
    EXPECT_EQ(state.SelectedEntry, "New:10.0.0.9:5555");
}

TEST_F(ConnectionEntry, NewOneNeedsAFreeName)
{
    Answers().Expect(10451, QStringList(), Ok);
    EXPECT_FALSE(conEntryAccept({ "Van", "10.0.0.9", "5555" }));
    EXPECT_EQ(state.LanEntries[2], "");
    EXPECT_EQ(state.SelectedEntry, "");
}

TEST_F(ConnectionEntry, NewOneWithoutANameNeedsThatNameFree)
{
    EXPECT_TRUE(conEntryAccept({ "", "10.0.0.9", "5555" }));
    state.SelectedEntry.clear();
    Answers().Expect(10451, QStringList(), Ok);
    EXPECT_FALSE(conEntryAccept({ "", "10.0.0.10", "5555" }));
}

TEST_F(ConnectionEntry, InvalidOneIsRefused)
{
    for (const ConnectionFields& fields : { ConnectionFields{ "New", "256.1.1.1", "5555" },
             ConnectionFields{ "New", "10.0.0.9", "55555" }, ConnectionFields{ "A:B", "10.0.0.9", "5555" } }) {
        Answers().Expect(10435, QStringList(), Ok);
        EXPECT_FALSE(conEntryAccept(fields));
        Answers().Verify();
    }
    EXPECT_EQ(state.LanEntries[2], "");
}

TEST_F(ConnectionEntry, FullTableIsRefused)
{
    for (size_t slot = 0; slot < state.LanEntries.size(); ++slot)
        state.LanEntries[slot] = QStringLiteral("Van%1:10.0.0.%1:5555").arg(slot);
    Answers().Expect(10435, QStringList(), Ok);
    EXPECT_FALSE(conEntryAccept({ "New", "10.0.0.9", "5555" }));
    EXPECT_EQ(state.LanEntries[8], "Van8:10.0.0.8:5555");
}

TEST_F(ConnectionEntry, EditedOneKeepsItsName)
{
    state.LanEntries[2] = "Van:10.0.0.70:1"; // a second one of that name, which a settings file may hold
    state.SelectedEntry = state.LanEntries[0];
    EXPECT_TRUE(conEntryAccept({ "Van", "10.0.0.9", "80" }));
    EXPECT_EQ(state.LanEntries[0], "Van:10.0.0.9:80");
    EXPECT_EQ(state.SelectedEntry, "Van:10.0.0.9:80");
}

TEST_F(ConnectionEntry, EditedOneTakesNoNameOfAnother)
{
    state.SelectedEntry = state.LanEntries[0];
    Answers().Expect(10451, QStringList(), Ok);
    EXPECT_FALSE(conEntryAccept({ "Roof", "10.0.0.9", "80" }));
    EXPECT_EQ(state.LanEntries[0], "Van:10.0.0.7:5555");
    EXPECT_TRUE(conEntryAccept({ "roof", "10.0.0.9", "80" }));
    EXPECT_EQ(state.LanEntries[0], "roof:10.0.0.9:80");
}

TEST_F(ConnectionEntry, EditedOneThatIsGoneIsRefused)
{
    state.SelectedEntry = "Gone:10.0.0.1:1";
    Answers().Expect(10435, QStringList(), Ok);
    EXPECT_FALSE(conEntryAccept({ "Gone", "10.0.0.9", "80" }));
    EXPECT_EQ(state.LanEntries[2], "");
}

TEST_F(ConnectionEntry, FieldsAreTakenAsTyped)
{
    EXPECT_TRUE(conEntryAccept({ "  New ", "10.0.0.9", "80" }));
    EXPECT_EQ(state.LanEntries[2], "  New :10.0.0.9:80");
}

TEST_F(ConnectionEntry, FieldAtFaultIsTheFirstThatCantStay)
{
    state.SelectedEntry = state.LanEntries[0];
    const auto fault = [](const char* name, const char* address, const char* port) {
        return conFieldAtFault({ QLatin1String(name), QLatin1String(address), QLatin1String(port) });
    };
    EXPECT_EQ(fault("Roof", "256.1.1.1", "x"), ConnectField::Name); // another one's
    EXPECT_EQ(fault("A:B", "256.1.1.1", "x"), ConnectField::Name);
    EXPECT_EQ(fault("Van", "256.1.1.1", "x"), ConnectField::Address);
    EXPECT_EQ(fault("Van", "1.1.1.1:1", "1"), ConnectField::Address);
    EXPECT_EQ(fault("Van", "1.1.1.1", "12345"), ConnectField::Port);
    EXPECT_EQ(fault("Van", "1.1.1.1", "1:1"), ConnectField::Port);
    EXPECT_EQ(fault("Van", "1.1.1.1", "1"), ConnectField::Name); // no room, or the edited one is gone
}

} // namespace tarvik
