#include "link/channel/channel.h"
#include "link/connection/connect.h"

#include "app/state/project.h"
#include "app/text/lang.h"
#include "tests/support/fakeChannel.h"
#include "tests/support/fixture.h"
#include "tests/support/unbindModule.h"

namespace tarvik {

class Connect : public ProgramTest {
protected:
    void Load(const QByteArray& lines)
    {
        Store(FilePath("x.ini"), "[connection]\n" + lines);
        conLoadSettings(FilePath("x.ini"));
    }

    QByteArray Saved() const
    {
        conSaveSettings(FilePath("x.ini"));
        return Contents(FilePath("x.ini"));
    }

    static std::array<QString, kLanEntries>& Lan()
    {
        return Connection().LanEntries;
    }

    static void FillAllSlots()
    {
        for (size_t slot = 0; slot < Lan().size(); ++slot)
            Lan()[slot] = QStringLiteral("Van%1:10.0.0.%1:5555").arg(slot);
    }
};

TEST_F(Connect, MissingKeysTakeFactoryAddresses)
{
    conLoadSettings(FilePath("none.ini"));
    EXPECT_EQ(Lan()[0], "Default:172.17.75.1:5555");
    EXPECT_EQ(Lan()[1], "");
    EXPECT_EQ(Connection().UsbEntry, "USB (only 1 instance):169.254.1.1:5555");
    EXPECT_EQ(Connection().SelectedEntry, "");
    EXPECT_FALSE(Program().ConnectedAtExit);
}

TEST_F(Connect, EmptyFirstEntryStaysEmpty)
{
    Load("ipAddressLan0=\n");
    EXPECT_EQ(Lan()[0], "");
}

TEST_F(Connect, LoadingPacksEntriesAndDropsBadOnes)
{
    Load("Connected=1\nipAddressLan0=bad\nipAddressLan3=Van:10.0.0.7:5555\nipAddressLan5=256:256.1.1.1:80\n"
         "ipAddressLan8=Roof:10.0.0.8:80\nipAddressLan9=Ninth:10.0.0.9:80\nipAddressSelected=Roof:10.0.0.8:80\n");
    EXPECT_EQ(Lan()[0], "Van:10.0.0.7:5555");
    EXPECT_EQ(Lan()[1], "Roof:10.0.0.8:80");
    EXPECT_EQ(Lan()[2], "");
    EXPECT_EQ(Connection().SelectedEntry, "Roof:10.0.0.8:80");
    EXPECT_TRUE(Program().ConnectedAtExit);
}

TEST_F(Connect, SavingWritesEveryKeyInOrder)
{
    const FakeChannel connected;
    conLoadSettings(FilePath("none.ini"));
    EXPECT_EQ(Saved(),
        "[connection]\nConnected=1\nipAddressLan0=Default:172.17.75.1:5555\nipAddressLan1=\nipAddressLan2=\n"
        "ipAddressLan3=\nipAddressLan4=\nipAddressLan5=\nipAddressLan6=\nipAddressLan7=\nipAddressLan8=\n"
        "ipAddressUsb0=USB (only 1 instance):169.254.1.1:5555\nipAddressSelected=\n");
}

TEST_F(Connect, BlanksAroundEntryAreKept)
{
    const QStringList entries{ "  Van:10.0.0.7:80", "Bus:10.0.0.8:80 ", "\u00A0Car\":10.0.0.9:80",
        "\"Air:10.0.0.6:80" };
    for (qsizetype slot = 0; slot < entries.size(); ++slot)
        Lan()[static_cast<size_t>(slot)] = entries[slot];
    Connection().SelectedEntry = entries[0];
    conSaveSettings(FilePath("x.ini"));
    Lan() = {};
    Connection().SelectedEntry.clear();
    conLoadSettings(FilePath("x.ini"));
    EXPECT_EQ(QStringList(Lan().begin(), Lan().begin() + entries.size()), entries);
    EXPECT_EQ(Connection().SelectedEntry, entries[0]);
}

TEST_F(Connect, SavesCurrentLinkState)
{
    FakeChannel disconnected;
    disconnected.Connected = false;
    Program().ConnectedAtExit = true;
    EXPECT_TRUE(Saved().contains("Connected=0\n"));
}

TEST_F(Connect, LinkIsDownWithoutChannelModule)
{
    const FakeChannel connected;
    EXPECT_TRUE(ChannelIsUp());
    UnbindModule(Module::Channel);
    EXPECT_FALSE(ChannelIsUp());
}

TEST_F(Connect, EntryNeedsThreeFields)
{
    EXPECT_TRUE(conEntryValid("Van:10.0.0.7:5555"));
    EXPECT_TRUE(conEntryValid(":0.0.0.0:0"));
    EXPECT_TRUE(conEntryValid("Any; \"name\":255.255.255.255:9999"));
    EXPECT_FALSE(conEntryValid(""));
    EXPECT_FALSE(conEntryValid("10.0.0.7:5555"));
    EXPECT_FALSE(conEntryValid("A:B:10.0.0.7:5555"));
}

TEST_F(Connect, AddressNeedsFourNumbersUpTo255)
{
    for (const char* address : { "256.1.1.1", "1.1.1", "1.1.1.1.1", "1.1.1.", "1.1.1.x", "-1.1.1.1", "+1.1.1.1",
             "1e1.1.1.1", "12abc.1.1.1", "1,0.1.1.1", "" })
        EXPECT_FALSE(conEntryValid(QStringLiteral("n:%1:80").arg(QLatin1String(address)))) << address;
}

TEST_F(Connect, NormalisedAddressHasNoLeadingZerosOrBlanks)
{
    EXPECT_EQ(conNormalisedAddress("10.0.0.7"), "10.0.0.7");
    EXPECT_EQ(conNormalisedAddress("192.168.001.010"), "192.168.1.10");
    EXPECT_EQ(conNormalisedAddress(" 10. 0.0 .07 "), "10.0.0.7");
    EXPECT_EQ(conNormalisedAddress("010.0.0.256"), "010.0.0.256");
    EXPECT_EQ(conNormalisedAddress("rx.local"), "rx.local");
}

TEST_F(Connect, PortHasAtMostFourDigits)
{
    for (const char* port : { "10000", "55555", "00080", "", "-1", "+80", "80.5", "8e1", "x", "80x" })
        EXPECT_FALSE(conEntryValid(QStringLiteral("n:1.1.1.1:%1").arg(QLatin1String(port)))) << port;
}

TEST_F(Connect, AddTakesFirstFreeSlotAndSelects)
{
    Lan()[0] = "Van:10.0.0.7:5555";
    Lan()[1] = "rubbish";
    EXPECT_TRUE(conEntryAdd("Roof", "10.0.0.8", "80"));
    EXPECT_EQ(Lan()[1], "Roof:10.0.0.8:80");
    EXPECT_EQ(Connection().SelectedEntry, "Roof:10.0.0.8:80");
}

TEST_F(Connect, AddRefusesInvalidEntriesAndFullTable)
{
    EXPECT_FALSE(conEntryAdd("Roof", "10.0.0.300", "80"));
    EXPECT_EQ(Lan()[0], "");
    FillAllSlots();
    EXPECT_FALSE(conEntryAdd("Roof", "10.0.0.8", "80"));
    EXPECT_EQ(Lan()[8], "Van8:10.0.0.8:5555");
    EXPECT_EQ(Connection().SelectedEntry, "");
}

TEST_F(Connect, ReplaceChangesSelectedEntry)
{
    FillAllSlots();
    Connection().SelectedEntry = Lan()[4];
    EXPECT_TRUE(conEntryReplace("New", "10.1.1.1", "1"));
    EXPECT_EQ(Lan()[4], "New:10.1.1.1:1");
    EXPECT_EQ(Connection().SelectedEntry, "New:10.1.1.1:1");
}

TEST_F(Connect, ReplaceRefusesInvalidEntriesAndForeignSelection)
{
    FillAllSlots();
    Connection().SelectedEntry = Lan()[4];
    EXPECT_FALSE(conEntryReplace("New", "10.1.1.1", "99999"));
    Connection().SelectedEntry = "Gone:1.1.1.1:1";
    EXPECT_FALSE(conEntryReplace("New", "10.1.1.1", "1"));
    EXPECT_EQ(Lan()[4], "Van4:10.0.0.4:5555");
    EXPECT_EQ(Connection().SelectedEntry, "Gone:1.1.1.1:1");
}

TEST_F(Connect, RemoveClearsEverySlotOfNameAndPacks)
{
    Lan()[0] = "Van:10.0.0.1:1";
    Lan()[1] = "Roof:10.0.0.2:1";
    Lan()[2] = "Van:10.0.0.3:1";
    Lan()[3] = "van:10.0.0.4:1";
    conEntryRemove("Van");
    EXPECT_EQ(Lan()[0], "Roof:10.0.0.2:1");
    EXPECT_EQ(Lan()[1], "van:10.0.0.4:1");
    EXPECT_EQ(Lan()[2], "");
}

TEST_F(Connect, RemovedFactoryNameIsFreeAgain)
{
    conLoadSettings(FilePath("none.ini"));
    EXPECT_FALSE(conNameFree("Default"));
    conEntryRemove("Default");
    EXPECT_TRUE(conNameFree("Default"));
    EXPECT_TRUE(conEntryAdd("Default", "10.0.0.1", "1"));
}

TEST_F(Connect, NameIsComparedExactlyAndWithoutUsbEntry)
{
    Lan()[2] = "Van:10.0.0.1:1";
    Connection().UsbEntry = "Usb:169.254.1.1:5555";
    EXPECT_FALSE(conNameFree("Van"));
    EXPECT_TRUE(conNameFree("van"));
    EXPECT_TRUE(conNameFree("Usb"));
}

TEST_F(Connect, RemovingAllEntriesLeavesTableEmptyAtNextStart)
{
    conLoadSettings(FilePath("none.ini"));
    conEntryRemove("Default");
    conSaveSettings(FilePath("x.ini"));
    conLoadSettings(FilePath("x.ini"));
    EXPECT_EQ(Lan()[0], "");
}

TEST_F(Connect, UsbEntryWithFixedAddressIsKept)
{
    Load("ipAddressUsb0=My USB:169.254.1.1:80\n");
    EXPECT_EQ(Connection().UsbEntry, "My USB:169.254.1.1:80");
}

TEST_F(Connect, ForeignUsbAddressLosesPortAndIsRestoredAtNextStart)
{
    Load("ipAddressUsb0=My USB:10.0.0.1:80\n");
    EXPECT_EQ(Connection().UsbEntry, "My USB:169.254.1.1");
    EXPECT_FALSE(conEntryValid(Connection().UsbEntry));
    conSaveSettings(FilePath("x.ini"));
    conLoadSettings(FilePath("x.ini"));
    EXPECT_EQ(Connection().UsbEntry, "USB (only 1 instance):169.254.1.1:5555");
}

TEST_F(Connect, OtherUsbKeysAreKept)
{
    Load("ipAddressUsb1=Second:1.1.1.1:1\n");
    EXPECT_EQ(Connection().UsbEntry, "USB (only 1 instance):169.254.1.1:5555");
    EXPECT_TRUE(Saved().contains("ipAddressUsb1=Second:1.1.1.1:1\n"));
}

TEST_F(Connect, InstrumentIsNamedByRecognition)
{
    EXPECT_EQ(conInstrumentName(true), LngStr(11804));
    EXPECT_EQ(conInstrumentName(false), LngStr(11805));
}

} // namespace tarvik
