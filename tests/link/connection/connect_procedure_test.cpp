#include "link/connection/connect.h"

#include "app/platform/seams.h"
#include "app/state/project.h"
#include "app/text/lang.h"
#include "tests/link/connection/fakeConnectForms.h"
#include "tests/support/fakeChannel.h"
#include "tests/support/fixture.h"
#include "tests/support/unbindModule.h"

namespace tarvik {

namespace {

class ConnectProcedure : public ProgramTest {
protected:
    ConnectProcedure()
    {
        fake.Connected = false;
        fake.OnCall = [this](const QString& call) { steps.append(call); };
        TheSeams().PumpEvents = [this] { steps.append(QStringLiteral("pump")); };
        TheSeams().Sleep = [this](int milliseconds) { steps.append(QStringLiteral("sleep %1").arg(milliseconds)); };
        Connection().SelectedEntry = QStringLiteral("Van:10.0.0.7:5025");
        Connection().InstrumentAccepted = 7;
        Connection().InstrumentSerial = QStringLiteral("before");
        Connection().InstrumentFirmware = 9;
    }

    void Run()
    {
        conHandleConnection(
            [this](const QString& text) {
                status = text;
                steps.append(QStringLiteral("status ") + text);
            },
            [this](const QString& text) {
                debug = text;
                steps.append(QStringLiteral("debug ") + text);
            });
    }

    void Answer(const QString& identification)
    {
        fake.Identification = identification;
        Run();
    }

    void ExpectRefused(const QString& identification, const QString& text)
    {
        steps.clear();
        Answer(identification);
        EXPECT_EQ(status, text) << identification.toStdString();
        EXPECT_TRUE(steps.contains(QStringLiteral("Disconnect"))) << identification.toStdString();
        EXPECT_FALSE(fake.Connected);
        EXPECT_FALSE(Connection().ConnectInProgress);
    }

    FakeChannel fake;
    QString status;
    QString debug;
    QStringList steps;
};

} // namespace

TEST_F(ConnectProcedure, RunsStepsInOrder)
{
    Run();
    EXPECT_EQ(steps,
        (QStringList{ "status Connecting to Van", "pump", "debug route delete", "pump", "sleep 800", "pump",
            "Connect 1 10.0.0.7 5025 5000", "debug TARVIK,TR-100,123456,4.3", "status " + LngStr(10423) }));
    EXPECT_FALSE(Connection().ConnectInProgress);
    EXPECT_TRUE(fake.Connected);
}

TEST_F(ConnectProcedure, AddressMayContainLeadingZerosAndBlanks)
{
    Connection().SelectedEntry = "Van: 010.000.00.07 : 80";
    ASSERT_TRUE(conEntryValid(Connection().SelectedEntry));
    Run();
    EXPECT_EQ(fake.Log, QStringList{ "Connect 1 10.0.0.7 80 5000" });
}

TEST_F(ConnectProcedure, IsInProgressUntilItsEnd)
{
    Connection().ConnectInProgress = false;
    bool during = false;
    fake.OnCall = [&](const QString&) { during = Connection().ConnectInProgress; };
    Run();
    EXPECT_TRUE(during);
    EXPECT_FALSE(Connection().ConnectInProgress);
}

TEST_F(ConnectProcedure, StoresIdentification)
{
    Answer("TARVIK,TR-100, 00123 ,4.31.7 build 2");
    EXPECT_EQ(Connection().InstrumentAccepted, 1);
    EXPECT_EQ(Connection().InstrumentSerial, " 00123 ");
    EXPECT_DOUBLE_EQ(Connection().InstrumentFirmware, 4.31);
}

TEST_F(ConnectProcedure, FirmwareThatIsNoNumberIsZero)
{
    Answer("TARVIK,TR-100,1,V4.3");
    EXPECT_EQ(status, LngStr(10423));
    EXPECT_EQ(Connection().InstrumentFirmware, 0);
}

TEST_F(ConnectProcedure, AcceptsEveryMakerWithEveryModel)
{
    for (int maker : { 10425, 10426 }) {
        for (int model = 10427; model <= 10432; ++model) {
            Connection().InstrumentAccepted = 0;
            Answer(LngStr(maker) + u',' + LngStr(model) + ",1,1");
            EXPECT_EQ(status, LngStr(10423)) << maker << ' ' << model;
            EXPECT_EQ(Connection().InstrumentAccepted, 1);
            EXPECT_TRUE(fake.Connected);
        }
    }
    EXPECT_EQ(fake.Count("Disconnect"), 0);
}

TEST_F(ConnectProcedure, ModelIsTrimmedAndMakerIsNot)
{
    Answer("Tarvik Instruments,  TR-300DF ,1,1");
    EXPECT_EQ(status, LngStr(10423));
    ExpectRefused(" TARVIK,TR-100,1,1", LngStr(10434) + " TARVIK TR-100");
}

TEST_F(ConnectProcedure, IsCaseSensitive)
{
    ExpectRefused("Tarvik,TR-100,1,1", LngStr(10434) + "Tarvik TR-100");
    ExpectRefused("TARVIK,tr-100,1,1", LngStr(10434) + "TARVIK tr-100");
}

TEST_F(ConnectProcedure, StoresIdentificationOfOtherModel)
{
    ExpectRefused("TARVIK,TR-900,77,5.5", LngStr(10434) + "TARVIK TR-900");
    EXPECT_EQ(Connection().InstrumentAccepted, 0);
    EXPECT_EQ(Connection().InstrumentSerial, "77");
    EXPECT_DOUBLE_EQ(Connection().InstrumentFirmware, 5.5);
}

TEST_F(ConnectProcedure, OtherMakerKeepsPreviousIdentification)
{
    ExpectRefused("Acme,TR-100,1,1", LngStr(10434) + "Acme TR-100");
    EXPECT_EQ(Connection().InstrumentAccepted, 7);
    EXPECT_EQ(Connection().InstrumentSerial, "before");
    EXPECT_EQ(Connection().InstrumentFirmware, 9);
}

TEST_F(ConnectProcedure, AnswerNeedsFourFields)
{
    for (const char* answer : { "", "TARVIK", "TARVIK,TR-100", "TARVIK,TR-100,1", "SSH-2.0-server" })
        ExpectRefused(QLatin1String(answer), LngStr(10433));
    EXPECT_EQ(Connection().InstrumentAccepted, 7);
}

TEST_F(ConnectProcedure, FurtherCommasBelongToFourthField)
{
    Answer("TARVIK,TR-100,1,4.3,option 7");
    EXPECT_EQ(status, LngStr(10423));
    EXPECT_DOUBLE_EQ(Connection().InstrumentFirmware, 4.3);
}

TEST_F(ConnectProcedure, EmptyFieldsAreNoKnownInstrument)
{
    UnbindModule(Module::Language); // every text is empty, also the names of makers and models
    Answer(",,,");
    EXPECT_EQ(fake.Count("Disconnect"), 1);
    EXPECT_EQ(Connection().InstrumentAccepted, 7);
}

TEST_F(ConnectProcedure, FailedConnectEndsIt)
{
    for (ChannelStatus failure : { ChannelStatus::LinkFailed, ChannelStatus::Refused }) {
        fake.Answer("Connect", failure);
        Run();
        EXPECT_EQ(status, LngStr(10422));
        EXPECT_EQ(debug, "SCPI connect not successfull.");
        EXPECT_FALSE(Connection().ConnectInProgress);
    }
    EXPECT_EQ(fake.Count("Disconnect"), 0);
    EXPECT_EQ(Connection().InstrumentAccepted, 7);
}

TEST_F(ConnectProcedure, InvalidEntryFailsWithoutConnecting)
{
    for (const char* entry :
        { "", "Van", "Van:10.0.0.7", "Van:10.0.0.7:x", "Van:10.0.0.7:", "Van:10.0.0.7:99999", "a:b:10.0.0.7:80" }) {
        Connection().SelectedEntry = QLatin1String(entry);
        Run();
        EXPECT_EQ(status, LngStr(10422)) << entry;
        EXPECT_FALSE(Connection().ConnectInProgress) << entry;
    }
    EXPECT_TRUE(fake.Log.isEmpty());
}

namespace {

class ConnectStart : public ProgramTest {
protected:
    ConnectStart()
    {
        fake.Connected = false;
        forms.OnDialog = [this] {
            EXPECT_FALSE(Program().Idle);
            shown.append(QStringLiteral("dialog"));
        };
        forms.OnConnecting = [this] {
            EXPECT_TRUE(Connection().ConnectInProgress);
            shown.append(QStringLiteral("connecting"));
            fake.Connected = connects;
            Connection().ConnectInProgress = false;
        };
    }

    FakeChannel fake;
    FakeConnectForms forms;
    bool connects = true;
    QStringList shown;
};

} // namespace

TEST_F(ConnectStart, Reconnects)
{
    conStart(true);
    EXPECT_EQ(shown, QStringList{ "connecting" });
}

TEST_F(ConnectStart, OffersConnectionsWhenReconnectingFails)
{
    connects = false;
    conStart(true);
    EXPECT_EQ(shown, (QStringList{ "connecting", "dialog" }));
}

TEST_F(ConnectStart, OffersConnectionsIfNotConnectedBefore)
{
    conStart(false);
    EXPECT_EQ(shown, QStringList{ "dialog" });
    EXPECT_TRUE(Program().Idle);
}

TEST_F(ConnectStart, OffersNothingWhileProgramCloses)
{
    connects = false;
    Program().CloseRequested = true;
    conStart(true);
    EXPECT_EQ(shown, QStringList{ "connecting" });
}

TEST_F(ConnectStart, OffersNothingWhileLinkIsUp)
{
    fake.Connected = true;
    conStart(false);
    EXPECT_TRUE(shown.isEmpty());
}

TEST_F(ConnectStart, RunsOneConnectAtATime)
{
    Connection().ConnectInProgress = true;
    conShowConnecting();
    EXPECT_TRUE(shown.isEmpty());
    EXPECT_TRUE(Connection().ConnectInProgress);
}

TEST_F(ConnectStart, WithoutFormsNothingIsInProgress)
{
    TheConnectForms().Reset();
    conStart(true);
    EXPECT_FALSE(Connection().ConnectInProgress);
    EXPECT_TRUE(Program().Idle);
}

} // namespace tarvik
