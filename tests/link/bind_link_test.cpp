#include "app/menu/commands.h"
#include "app/platform/instrumentLink.h"
#include "app/platform/seams.h"
#include "app/state/project.h"
#include "app/text/lang.h"
#include "link/bindLink.h"
#include "link/classes/model.h"
#include "link/connection/connect.h"
#include "tests/support/fakeChannel.h"
#include "tests/support/fakeDocuments.h"
#include "tests/support/fakeHelp.h"
#include "tests/support/forms.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

namespace tarvik {

namespace {

/// The link bound as by the composition, without a frame.
class BoundLink : public FormTest {
protected:
    BoundLink()
    {
        BindLink();
        fake.Connected = false;
        Program().Started = true;
        Connection().LanEntries[0] = QStringLiteral("Van:10.0.0.7:5555");
        Connection().SelectedEntry = Connection().LanEntries[0];
        TheSeams().Sleep = [](int) {};
        TheSeams().StartTimer = [](int, std::function<void()> tick) { QTimer::singleShot(0, qApp, std::move(tick)); };
        fake.OnCall = [this](const QString& call) { calls.append(call.section(u' ', 0, 0) + u'@' + ActiveForm()); };
    }

    static QString ActiveForm()
    {
        const QWidget* form = QApplication::activeModalWidget();
        return form == nullptr ? QString() : form->objectName();
    }

    /// Closes the form `name` once it is shown.
    void CloseWhenShown(const QString& name)
    {
        QTimer::singleShot(0, qApp, [this, name] {
            if (ActiveForm() != name) {
                CloseWhenShown(name);
                return;
            }
            shown.append(name);
            EXPECT_TRUE(QTest::qWaitForWindowActive(QApplication::activeModalWidget()));
            Click(*QApplication::activeModalWidget(), "BtCancel");
        });
    }

    FakeChannel fake;
    QStringList calls;
    QStringList shown;
};

} // namespace

TEST_F(BoundLink, CommandOpensConnections)
{
    CloseWhenShown("FmConnect");
    EXPECT_TRUE(CommandRun(Command::Connect));
    EXPECT_EQ(shown, QStringList{ "FmConnect" });
    EXPECT_TRUE(CanAct());
}

TEST_F(BoundLink, InstrumentHasNameAndAddressOfItsConnection)
{
    EXPECT_EQ(TheInstrumentLink()->Name(), "Van");
    EXPECT_EQ(TheInstrumentLink()->Address(), "10.0.0.7:5555");
}

TEST_F(BoundLink, CancelledConversionOpensNothing)
{
    const FakeDocuments documents;
    Store(FilePath("a.bmp"), {});
    TheSeams().OpenFiles = [this](const OpenFilesQuestion&) { return QStringList{ FilePath("a.bmp") }; };
    CloseWhenShown("FmFileConvert");
    EXPECT_TRUE(CommandRun(Command::FileConvert));
    EXPECT_EQ(shown, QStringList{ "FmFileConvert" });
    EXPECT_EQ(documents.Log, QStringList());
}

TEST_F(BoundLink, StartReconnects)
{
    TheInstrumentLink()->AutoConnect(true);
    EXPECT_EQ(calls, QStringList{ "Connect@FmConnecting" });
    EXPECT_TRUE(fake.Connected);
    EXPECT_TRUE(CanAct());
}

TEST_F(BoundLink, StartOffersConnectionsAfterFailure)
{
    Program().ConnectedAtExit = true;
    fake.Answer("Connect", ChannelStatus::LinkFailed);
    CloseWhenShown("FmConnect");
    TheInstrumentLink()->AutoConnect(true);
    EXPECT_EQ(calls, QStringList{ "Connect@FmConnecting" });
    EXPECT_EQ(shown, QStringList{ "FmConnect" });
}

TEST_F(BoundLink, HelpIsRefusedDuringConnect)
{
    FakeHelp help;
    Connection().ConnectInProgress = true;
    ShowHelp(10301);
    EXPECT_TRUE(help.Topics.isEmpty());
    Connection().ConnectInProgress = false;
    ShowHelp(10301);
    EXPECT_EQ(help.Topics, QList<int>{ 10301 });
}

TEST_F(BoundLink, InstrumentIsAcceptedOnlyIfRecognised)
{
    for (const int accepted : { 0, 1, 2 }) {
        Connection().InstrumentAccepted = accepted;
        EXPECT_EQ(TheInstrumentLink()->IsAccepted(), accepted == 1);
    }
}

TEST_F(BoundLink, ControlCommandsOpenTheirFileClass)
{
    fake.Connected = true;
    const std::vector<std::pair<Command, FileClass>> commands{ { Command::Control1, FileClassAntennaList },
        { Command::Control2, FileClassKfactorTable }, { Command::Control3, FileClassMemoryList },
        { Command::Control4, FileClassSuppressList }, { Command::Control5, FileClassScreenShot },
        { Command::Control6, FileClassCorrectionSet } };
    for (const auto& [command, fileClass] : commands) {
        QTimer closer;
        closer.callOnTimeout([] {
            if (auto* form = dynamic_cast<FormBase*>(QApplication::activeModalWidget()))
                form->Unload();
        });
        closer.start(0);
        EXPECT_TRUE(CommandRun(command));
        EXPECT_EQ(FileClasses().CurrentFileClass, fileClass);
    }
}

} // namespace tarvik
