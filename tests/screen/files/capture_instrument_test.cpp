// Captures from the simulated receiver over a real connection, with faults.
#include "link/channel/channel.h"
#include "screen/files/screenShot.h"
#include "tests/support/instrumentProcess.h"
#include "tests/support/screens.h"

namespace tarvik {

namespace {

class CaptureFromInstrument : public ScreenTest {
protected:
    CaptureFromInstrument()
    {
        TheSeams().Sleep = [](int) {};
    }

    ~CaptureFromInstrument() override
    {
        ChannelDisconnect();
    }

    void Connect(const QStringList& arguments = {})
    {
        instrument_ = std::make_unique<InstrumentProcess>(
            arguments + QStringList{ QStringLiteral("--port"), QString::fromLatin1(kFourDigitPorts) });
        QString identification;
        ASSERT_EQ(
            ChannelConnect(QStringLiteral("127.0.0.1"), instrument_->Port(), identification), ChannelStatus::Success);
    }

    QStringList EntriesOfFolder() const
    {
        return QDir(Folder()).entryList(QDir::Files | QDir::Hidden);
    }

    std::unique_ptr<InstrumentProcess> instrument_;
};

} // namespace

TEST_F(CaptureFromInstrument, ShowsDisplayOfInstrument)
{
    Connect();
    const WindowId id = FetchScreen();
    ASSERT_GT(id, 0);
    EXPECT_EQ(ScreenOf(id)->Master.size(), QSize(642, 442));
    EXPECT_EQ(Views[id].Client, QSize(642, 442));
    EXPECT_TRUE(ChannelIsUp());
    EXPECT_EQ(EntriesOfFolder(), QStringList());
}

TEST_F(CaptureFromInstrument, OpensNewWindowEachTime)
{
    Connect();
    EXPECT_GT(FetchScreen(), 0);
    EXPECT_GT(FetchScreen(), 0);
    EXPECT_EQ(WindowCount(WindowType::Screen), 2);
}

TEST_F(CaptureFromInstrument, FaultsAreReportedOnceAndCloseLink)
{
    // The first command belongs to connecting.
    for (const char* fault : { "drop=2", "garbage=2", "cut=2", "stall=2" }) {
        Connect({ QStringLiteral("--fault"), QString::fromLatin1(fault) });
        Answers().Expect(12703, {}, Ok);
        EXPECT_EQ(FetchScreen(), -1) << fault;
        EXPECT_FALSE(ChannelIsUp()) << fault;
        EXPECT_EQ(WindowCount(), 0) << fault;
        EXPECT_EQ(EntriesOfFolder(), QStringList()) << fault;
    }
}

TEST_F(CaptureFromInstrument, RefusalClosesLink)
{
    Connect({ QStringLiteral("--fault"), QStringLiteral("refuse=2") });
    Answers().Expect(12703, {}, Ok);
    EXPECT_EQ(FetchScreen(), -1);
    EXPECT_FALSE(ChannelIsUp());
    EXPECT_EQ(EntriesOfFolder(), QStringList());
}

TEST_F(CaptureFromInstrument, DisconnectDuringCaptureIsReportedOnce)
{
    Connect();
    TheSeams().Sleep = [this](int) { instrument_->Kill(); };
    Answers().Expect(12703, {}, Ok);
    EXPECT_EQ(FetchScreen(), -1);
    EXPECT_FALSE(ChannelIsUp());
    EXPECT_EQ(WindowCount(), 0);
    EXPECT_EQ(EntriesOfFolder(), QStringList());
}

TEST_F(CaptureFromInstrument, LostLinkKeepsExistingWindows)
{
    Connect({ QStringLiteral("--fault"), QStringLiteral("cut=3") });
    const WindowId first = FetchScreen();
    ASSERT_GT(first, 0);
    const QImage shown = ScreenOf(first)->Graph;
    Answers().Expect(12703, {}, Ok);
    EXPECT_EQ(FetchScreen(), -1);
    EXPECT_EQ(WindowCount(), 1);
    EXPECT_EQ(ScreenOf(first)->Graph, shown);
    EXPECT_TRUE(WindowIsModified(first));
}

TEST_F(CaptureFromInstrument, WorksAgainOnNewLink)
{
    Connect({ QStringLiteral("--fault"), QStringLiteral("drop=2") });
    Answers().Expect(12703, Ok);
    EXPECT_EQ(FetchScreen(), -1);
    QString identification;
    ASSERT_EQ(ChannelConnect(QStringLiteral("127.0.0.1"), instrument_->Port(), identification), ChannelStatus::Success);
    EXPECT_GT(FetchScreen(), 0);
}

} // namespace tarvik
