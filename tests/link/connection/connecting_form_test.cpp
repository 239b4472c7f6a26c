#include "app/platform/seams.h"
#include "app/text/lang.h"
#include "link/connection/FmConnecting.h"
#include "link/connection/connect.h"
#include "tests/support/fakeChannel.h"
#include "tests/support/forms.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>

namespace tarvik {

namespace {

/// The form runs by itself; tests inspect it while it connects and while it shows the outcome.
class ConnectingForm : public FormTest {
protected:
    ConnectingForm()
    {
        fake.Connected = false;
        Connection().SelectedEntry = QStringLiteral("Van:10.0.0.7:5555");
        Connection().ConnectInProgress = true;
        TheSeams().Sleep = [](int) {};
        TheSeams().StartTimer = [this](int milliseconds, std::function<void()> tick) {
            waitedMs.append(milliseconds);
            WhileShown();
            QTimer::singleShot(0, qApp, std::move(tick));
        };
        fake.OnCall = [this](const QString& call) {
            if (call.startsWith(QLatin1String("Connect")))
                WhileConnecting();
        };
    }

    FakeChannel fake;
    FmConnecting form;
    QList<int> waitedMs;
    std::function<void()> WhileConnecting = [] {};
    std::function<void()> WhileShown = [] {};
};

} // namespace

TEST_F(ConnectingForm, ConnectsShowsOutcomeAndCloses)
{
    QStringList texts;
    WhileConnecting = [&] { texts.append(TextOf(form, "TbStatus")); };
    WhileShown = [&] { texts.append(TextOf(form, "TbStatus")); };
    DialogShow(form);
    EXPECT_EQ(texts, (QStringList{ "Connecting to Van", LngStr(10423) }));
    EXPECT_EQ(waitedMs, QList<int>{ 2000 });
    EXPECT_TRUE(form.IsClosed());
    EXPECT_TRUE(fake.Connected);
    EXPECT_FALSE(Connection().ConnectInProgress);
    EXPECT_EQ(fake.Log, QStringList{ "Connect 1 10.0.0.7 5555 5000" });
}

TEST_F(ConnectingForm, FailureIsShownBeforeItCloses)
{
    fake.Answer("Connect", ChannelStatus::LinkFailed);
    QString text;
    WhileShown = [&] { text = TextOf(form, "TbStatus"); };
    DialogShow(form);
    EXPECT_EQ(text, LngStr(10422));
    EXPECT_EQ(waitedMs, QList<int>{ 2000 });
    EXPECT_TRUE(form.IsClosed());
}

TEST_F(ConnectingForm, CancelTakesEffectWhenConnectReturns)
{
    QString text;
    QString debug = "?";
    WhileConnecting = [&] {
        EXPECT_TRUE(FindControl(form, "BtCancel").isEnabled());
        Click(form, "BtCancel");
        EXPECT_FALSE(FindControl(form, "BtCancel").isEnabled());
    };
    WhileShown = [&] {
        text = TextOf(form, "TbStatus");
        debug = TextOf(form, "LbDebug");
        EXPECT_TRUE(fake.Connected);
    };
    DialogShow(form);
    EXPECT_EQ(text, LngStr(10424));
    EXPECT_EQ(debug, "");
    EXPECT_EQ(waitedMs, QList<int>{ 1000 });
    EXPECT_EQ(fake.Log, (QStringList{ "Connect 1 10.0.0.7 5555 5000", "Disconnect" }));
    EXPECT_FALSE(fake.Connected);
}

TEST_F(ConnectingForm, CancelOfFailedConnectIsShownAsCancel)
{
    fake.Answer("Connect", ChannelStatus::LinkFailed);
    QString text;
    QString debug = "?";
    WhileConnecting = [&] { Click(form, "BtCancel"); };
    WhileShown = [&] {
        text = TextOf(form, "TbStatus");
        debug = TextOf(form, "LbDebug");
    };
    DialogShow(form);
    EXPECT_EQ(text, LngStr(10424));
    EXPECT_EQ(debug, "");
    EXPECT_EQ(waitedMs, QList<int>{ 1000 });
    EXPECT_EQ(fake.Count("Disconnect"), 1);
}

TEST_F(ConnectingForm, CancelQueuedDuringConnectTakesEffect)
{
    QString text;
    WhileConnecting = [&] {
        QMetaObject::invokeMethod(
            &form, [&] { Click(form, "BtCancel"); }, Qt::QueuedConnection);
    };
    WhileShown = [&] { text = TextOf(form, "TbStatus"); };
    DialogShow(form);
    EXPECT_EQ(text, LngStr(10424));
    EXPECT_EQ(waitedMs, QList<int>{ 1000 });
}

TEST_F(ConnectingForm, CancelBeforeConnectDoesNotPreventIt)
{
    TheSeams().Sleep = [&](int) { Click(form, "BtCancel"); };
    DialogShow(form);
    EXPECT_EQ(fake.Log, (QStringList{ "Connect 1 10.0.0.7 5555 5000", "Disconnect" }));
    EXPECT_EQ(waitedMs, QList<int>{ 1000 });
}

TEST_F(ConnectingForm, CancelWhileOutcomeIsShownDisconnects)
{
    WhileShown = [&] { Click(form, "BtCancel"); };
    DialogShow(form);
    EXPECT_EQ(waitedMs, QList<int>{ 2000 });
    EXPECT_FALSE(fake.Connected);
}

TEST_F(ConnectingForm, SecondRunIgnoresCancelOfFirst)
{
    WhileConnecting = [&] { Click(form, "BtCancel"); };
    DialogShow(form);
    WhileConnecting = [&] {
        form.close();
        EXPECT_FALSE(form.IsClosed());
    };
    DialogShow(form);
    EXPECT_TRUE(fake.Connected);
    EXPECT_EQ(waitedMs, (QList<int>{ 1000, 2000 }));
}

TEST_F(ConnectingForm, DoesNotCloseWhileItRuns)
{
    const auto tryToClose = [&] {
        form.close();
        KeyDown(Qt::Key_Escape);
        EXPECT_FALSE(form.IsClosed());
    };
    WhileConnecting = tryToClose;
    WhileShown = tryToClose;
    DialogShow(form);
    EXPECT_EQ(waitedMs, QList<int>{ 2000 });
    EXPECT_TRUE(fake.Connected);
}

TEST_F(ConnectingForm, IsPaintedBeforeItBlocks)
{
    bool painted = false;
    class PaintFilter final : public QObject {
    public:
        explicit PaintFilter(bool& painted)
            : painted_(painted)
        {
        }
        bool eventFilter(QObject*, QEvent* event) override
        {
            painted_ = painted_ || event->type() == QEvent::Paint;
            return false;
        }

    private:
        bool& painted_;
    } filter(painted);
    form.installEventFilter(&filter);
    bool paintedBefore = false;
    TheSeams().Sleep = [&](int) { paintedBefore = painted; };
    DialogShow(form);
    EXPECT_TRUE(paintedBefore);
}

TEST_F(ConnectingForm, HasItsControls)
{
    WhileShown = [&] {
        ExpectControls(form, { "TbStatus", "LbDebug", "BtCancel" });
        ExpectTabOrder(form);
        ExpectNothingClipped(form);
        EXPECT_FALSE(FindControl(form, "LbDebug").isVisible());
        EXPECT_EQ(TextOf(form, "LbDebug"), fake.Identification);
        EXPECT_EQ(form.windowTitle(), LngStr(10300));
        EXPECT_EQ(form.HelpNumber(), 10301);
        EXPECT_EQ(HelpNumberOf(&FindControl(form, "BtCancel")), 10302);
        EXPECT_TRUE(HasFocus(form, "BtCancel"));
    };
    DialogShow(form);
    EXPECT_EQ(waitedMs.size(), 1);
}

} // namespace tarvik
