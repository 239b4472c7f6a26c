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

    static QStringList Shown(ConnectTab tab)
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

TEST_F(ConnectDialog, OpensOnUsbIfNotConnectedBefore)
{
    state.SelectedEntry = state.LanEntries[1];
    EXPECT_EQ(conStartTab(), ConnectTab::Usb);
}

TEST_F(ConnectDialog, OpensOnLanIfLanEntryIsOrWasConnected)
{
    state.SelectedEntry = state.LanEntries[1];
    Program().ConnectedAtExit = true;
    EXPECT_EQ(conStartTab(), ConnectTab::Lan);
    Program().ConnectedAtExit = false;
    fake.Connected = true;
    EXPECT_EQ(conStartTab(), ConnectTab::Lan);
}

TEST_F(ConnectDialog, OpensOnUsbForUsbEntryInLanSlot)
{
    fake.Connected = true;
    state.SelectedEntry = state.UsbEntry;
    EXPECT_EQ(conStartTab(), ConnectTab::Usb);
    state.LanEntries[2] = state.UsbEntry;
    EXPECT_EQ(conStartTab(), ConnectTab::Usb);
    state.SelectedEntry = "Gone:1.1.1.1:1";
    EXPECT_EQ(conStartTab(), ConnectTab::Usb);
}

TEST_F(ConnectDialog, WithoutLinkConnectsAndEdits)
{
    const ConnectControls controls = conControls(ConnectTab::Lan, 2);
    EXPECT_TRUE(controls.CanConnect);
    EXPECT_FALSE(controls.CanDisconnect);
    EXPECT_TRUE(controls.CanAdd);
    EXPECT_TRUE(controls.HasEditButtons);
    EXPECT_EQ(controls.Title, 10402);
}

TEST_F(ConnectDialog, WithLinkOnlyDisconnects)
{
    fake.Connected = true;
    const ConnectControls controls = conControls(ConnectTab::Lan, 2);
    EXPECT_FALSE(controls.CanConnect);
    EXPECT_TRUE(controls.CanDisconnect);
    EXPECT_FALSE(controls.CanAdd);
    EXPECT_EQ(controls.Title, 10418);
}

TEST_F(ConnectDialog, AddsUpToNine)
{
    EXPECT_TRUE(conControls(ConnectTab::Lan, 8).CanAdd);
    EXPECT_FALSE(conControls(ConnectTab::Lan, 9).CanAdd);
}

TEST_F(ConnectDialog, UsbHasNoEditButtons)
{
    EXPECT_FALSE(conControls(ConnectTab::Usb, 1).HasEditButtons);
}

TEST_F(ConnectDialog, ListsValidEntriesOfTab)
{
    state.LanEntries[2] = "bad:256.1.1.1:80";
    state.SelectedEntry = state.LanEntries[1];
    EXPECT_EQ(Shown(ConnectTab::Lan),
        (QStringList{ "Van:10.0.0.7:5555 LanNotConnected", "Roof:10.0.0.8:80 LanNotConnected selected" }));
    EXPECT_EQ(Shown(ConnectTab::Usb), QStringList{ "Usb:169.254.1.1:5555 UsbNotConnected selected" });
}

TEST_F(ConnectDialog, MarksConnectedEntryOnly)
{
    fake.Connected = true;
    state.SelectedEntry = state.LanEntries[1];
    EXPECT_EQ(Shown(ConnectTab::Lan),
        (QStringList{ "Van:10.0.0.7:5555 LanNotConnected", "Roof:10.0.0.8:80 LanConnected selected" }));
    EXPECT_EQ(Shown(ConnectTab::Usb), QStringList{ "Usb:169.254.1.1:5555 UsbNotConnected selected" });
    state.SelectedEntry = state.UsbEntry;
    EXPECT_EQ(Shown(ConnectTab::Usb), QStringList{ "Usb:169.254.1.1:5555 UsbConnected selected" });
}

TEST_F(ConnectDialog, SelectsFirstRowByDefault)
{
    EXPECT_EQ(Shown(ConnectTab::Lan).first(), "Van:10.0.0.7:5555 LanNotConnected selected");
    state.LanEntries = {};
    EXPECT_TRUE(Shown(ConnectTab::Lan).isEmpty());
}

TEST_F(ConnectDialog, UsbTabIsEmptyAfterForeignAddress)
{
    state.UsbEntry = "Usb:10.0.0.1:5555";
    conUsbEntryCheck();
    EXPECT_TRUE(Shown(ConnectTab::Usb).isEmpty());
}

TEST_F(ConnectDialog, TextNeedsThreeFields)
{
    EXPECT_EQ(conFieldsOf("a:b:c").Port, "c");
    EXPECT_EQ(conFieldsOf("a:b").Name, "");
    EXPECT_EQ(conFieldsOf("a:b:c:d").Name, "");
    EXPECT_EQ(conDefaultEntry(), "Default:172.17.75.1:5555");
}

TEST_F(ConnectionEntry, NewEntryIsStoredAndSelected)
{
    EXPECT_TRUE(conEntryAccept({ "New", "10.0.0.9", "5555" }));
    EXPECT_EQ(state.LanEntries[2], "New:10.0.0.9:5555");
    EXPECT_EQ(state.SelectedEntry, "New:10.0.0.9:5555");
}

TEST_F(ConnectionEntry, NewEntryNeedsFreeName)
{
    Answers().Expect(10451, QStringList(), Ok);
    EXPECT_FALSE(conEntryAccept({ "Van", "10.0.0.9", "5555" }));
    EXPECT_EQ(state.LanEntries[2], "");
    EXPECT_EQ(state.SelectedEntry, "");
}

TEST_F(ConnectionEntry, NewEntryWithoutNameNeedsEmptyNameFree)
{
    EXPECT_TRUE(conEntryAccept({ "", "10.0.0.9", "5555" }));
    state.SelectedEntry.clear();
    Answers().Expect(10451, QStringList(), Ok);
    EXPECT_FALSE(conEntryAccept({ "", "10.0.0.10", "5555" }));
}

TEST_F(ConnectionEntry, InvalidEntryIsRefused)
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

TEST_F(ConnectionEntry, EditedEntryKeepsItsName)
{
    state.LanEntries[2] = "Van:10.0.0.70:1"; // a second one of that name, as a settings file may contain
    state.SelectedEntry = state.LanEntries[0];
    EXPECT_TRUE(conEntryAccept({ "Van", "10.0.0.9", "80" }));
    EXPECT_EQ(state.LanEntries[0], "Van:10.0.0.9:80");
    EXPECT_EQ(state.SelectedEntry, "Van:10.0.0.9:80");
}

TEST_F(ConnectionEntry, EditedEntryCannotTakeNameOfAnother)
{
    state.SelectedEntry = state.LanEntries[0];
    Answers().Expect(10451, QStringList(), Ok);
    EXPECT_FALSE(conEntryAccept({ "Roof", "10.0.0.9", "80" }));
    EXPECT_EQ(state.LanEntries[0], "Van:10.0.0.7:5555");
    EXPECT_TRUE(conEntryAccept({ "roof", "10.0.0.9", "80" }));
    EXPECT_EQ(state.LanEntries[0], "roof:10.0.0.9:80");
}

TEST_F(ConnectionEntry, MissingEditedEntryIsRefused)
{
    state.SelectedEntry = "Gone:10.0.0.1:1";
    Answers().Expect(10435, QStringList(), Ok);
    EXPECT_FALSE(conEntryAccept({ "Gone", "10.0.0.9", "80" }));
    EXPECT_EQ(state.LanEntries[2], "");
}

TEST_F(ConnectionEntry, FieldsAreStoredAsTyped)
{
    EXPECT_TRUE(conEntryAccept({ "  New ", "10.0.0.9", "80" }));
    EXPECT_EQ(state.LanEntries[2], "  New :10.0.0.9:80");
}

TEST_F(ConnectionEntry, FieldAtFaultIsFirstInvalidOne)
{
    state.SelectedEntry = state.LanEntries[0];
    const auto fault = [](const char* name, const char* address, const char* port) {
        return conFieldAtFault({ QLatin1String(name), QLatin1String(address), QLatin1String(port) });
    };
    EXPECT_EQ(fault("Roof", "256.1.1.1", "x"), ConnectField::Name); // in use
    EXPECT_EQ(fault("A:B", "256.1.1.1", "x"), ConnectField::Name);
    EXPECT_EQ(fault("Van", "256.1.1.1", "x"), ConnectField::Address);
    EXPECT_EQ(fault("Van", "1.1.1.1:1", "1"), ConnectField::Address);
    EXPECT_EQ(fault("Van", "1.1.1.1", "12345"), ConnectField::Port);
    EXPECT_EQ(fault("Van", "1.1.1.1", "1:1"), ConnectField::Port);
    EXPECT_EQ(fault("Van", "1.1.1.1", "1"), ConnectField::Name); // no free slot, or the edited entry is missing
}

} // namespace tarvik
