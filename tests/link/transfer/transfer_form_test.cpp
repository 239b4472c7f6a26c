// The form that runs a transfer job.
#include "tests/support/forms.h"

#include "app/forms/dialog.h"
#include "app/platform/seams.h"
#include "app/state/project.h"
#include "app/text/lang.h"
#include "link/classes/model.h"
#include "link/transfer/FmTransfer.h"
#include "link/transfer/transfer.h"
#include "tests/support/drawnText.h"
#include "tests/support/fakeChannel.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDir>
#include <QLabel>
#include <QProgressBar>

namespace tarvik {

namespace {

/// Runs the form with an upload of three files; `during` is called during the first one.
class TransferForm : public FormTest {
protected:
    TransferForm()
    {
        CurrentPcFolder() = QDir::toNativeSeparators(Folder().chopped(1));
        ModFileInit(FileClassScreenShot);
        Transfer().LvPc = &pc_;
        Transfer().LvInstr = &instr_;
        Transfer().TransferType = TransferUpload;
        for (const char* name : { "a.png", "b.png", "c.png" }) {
            TransferAddRow(
                pc_, QString::fromLatin1(name), ChannelRowType::File, QDateTime(QDate(2025, 4, 5), QTime(6, 7, 8)));
            pc_.Rows.back().Selected = true;
        }
    }

    int Run(const std::function<void()>& during)
    {
        bool isFirst = true;
        fake_.OnCall = [&](const QString& call) {
            if (call.startsWith("PutFile") && std::exchange(isFirst, false))
                during();
        };
        const int status = DialogShow(form);
        EXPECT_FALSE(isFirst) << "nothing was put";
        EXPECT_TRUE(form.IsClosed());
        return status;
    }

    QProgressBar& Bar()
    {
        return Find<QProgressBar>(form, "progressBar");
    }

    FakeChannel fake_;
    FileList pc_;
    FileList instr_;
    FmTransfer form;
};

} // namespace

TEST_F(TransferForm, HasItsControls)
{
    Run([&] {
        ExpectControls(form, { "Label", "progressBar", "BtCancel" });
        EXPECT_EQ(TextOf(form, "BtCancel"), LngStr(14004));
        EXPECT_EQ(form.HelpNumber(), 14003);
        EXPECT_EQ(HelpNumberOf(&FindControl(form, "BtCancel")), 14004);
        ExpectTabOrder(form);
        ExpectNothingClipped(form);
    });
}

TEST_F(TransferForm, OpensWithTextsOfJob)
{
    Transfer().LvPc = nullptr;
    Transfer().LvInstr = nullptr;
    for (int number = 1; number <= 10; ++number) {
        const auto job = static_cast<TransferJob>(number);
        Transfer().TransferType = job;
        Transfer().TransferCancel = true;
        FmTransfer opened;
        TheSeams().PumpUntil = [&](const std::function<bool()>&) { // called before the job starts
            EXPECT_EQ(opened.windowTitle(), LngStr(number <= 6 ? 14002 : 14003));
            EXPECT_EQ(TextOf(opened, "Label"), LngStr1(TransferLabelId(job), " ..."));
            EXPECT_EQ(Find<QProgressBar>(opened, "progressBar").value(), 0);
            EXPECT_FALSE(Transfer().TransferCancel);
        };
        DialogShow(opened); // its job has no lists
        EXPECT_TRUE(opened.IsClosed());
    }
}

TEST_F(TransferForm, RunsJobOnceVisibleThenCloses)
{
    Run([&] {
        EXPECT_TRUE(form.isVisible());
        EXPECT_TRUE(form.isActiveWindow());
        EXPECT_EQ(form.cursor().shape(), Qt::WaitCursor);
        EXPECT_EQ(FindControl(form, "BtCancel").cursor().shape(), Qt::ArrowCursor) << "it can be clicked";
        EXPECT_EQ(DialogTop(), &form);
    });
    EXPECT_EQ(fake_.Count("PutFile"), 3);
    EXPECT_EQ(fake_.Log.last(), "StartFindAllFiles");
    EXPECT_FALSE(DialogIsOpen());
}

TEST_F(TransferForm, ShowsCurrentFileAndProgress)
{
    QStringList labels;
    QStringList bar;
    fake_.OnCall = [&](const QString& call) {
        if (!call.startsWith("PutFile"))
            return;
        labels.append(TextOf(form, "Label"));
        bar.append(QStringLiteral("%1 of %2").arg(Bar().value()).arg(Bar().maximum()));
    };
    DialogShow(form);
    EXPECT_EQ(labels, QStringList({ LngStr1(14006, "a.png"), LngStr1(14006, "b.png"), LngStr1(14006, "c.png") }));
    EXPECT_EQ(bar, QStringList({ "0 of 3", "1 of 3", "2 of 3" }));
    EXPECT_EQ(Bar().value(), 3);
}

TEST_F(TransferForm, BarOfJobWithoutFilesStaysAtStart)
{
    pc_.Rows.clear();
    TransferAddRow(pc_, "One", ChannelRowType::Folder, {});
    pc_.Rows.back().Selected = true;
    Answers().ExpectWhile(12744, Ok, [&] {
        EXPECT_EQ(Bar().value(), 0);
        EXPECT_GT(Bar().maximum(), Bar().minimum()) << "an empty range would show an indeterminate bar";
    });
    DialogShow(form);
    EXPECT_TRUE(form.IsClosed());
}

TEST_F(TransferForm, CancelStopsAfterCurrentFile)
{
    const DrawnText drawn(Find<QLabel>(form, "Label"));
    Run([&] {
        Click(form, "BtCancel");
        EXPECT_EQ(TextOf(form, "Label"), LngStr(14009));
        EXPECT_EQ(drawn.Text, LngStr(14009));
        EXPECT_TRUE(Transfer().TransferCancel);
    });
    EXPECT_EQ(fake_.Count("PutFile"), 1);
    EXPECT_EQ(fake_.Count("Send MMEM:FILE:TIME"), 1);
    EXPECT_EQ(fake_.Log.last(), "StartFindAllFiles");
}

TEST_F(TransferForm, DrawsNameOfFileBeforeTransfer)
{
    const DrawnText drawn(Find<QLabel>(form, "Label"));
    QStringList texts;
    fake_.OnCall = [&](const QString& call) {
        if (call.startsWith("PutFile"))
            texts.append(drawn.Text);
    };
    DialogShow(form);
    EXPECT_EQ(texts, QStringList({ LngStr1(14006, "a.png"), LngStr1(14006, "b.png"), LngStr1(14006, "c.png") }));
}

TEST_F(TransferForm, MoreClicksOnCancelChangeNothing)
{
    Run([&] {
        for (int click = 0; click < 3; ++click)
            Click(form, "BtCancel");
        EXPECT_EQ(TextOf(form, "Label"), LngStr(14009));
        EXPECT_FALSE(form.IsClosed());
    });
    EXPECT_EQ(fake_.Count("PutFile"), 1);
}

TEST_F(TransferForm, CancelByTheKeyboard)
{
    Run([&] { Key(form, "BtCancel", Qt::Key_Space); });
    EXPECT_EQ(fake_.Count("PutFile"), 1);
}

TEST_F(TransferForm, EscapeStopsJobAndFormStaysUntilItEnds)
{
    Run([&] {
        Key(Qt::Key_Escape);
        EXPECT_FALSE(form.IsClosed());
        EXPECT_EQ(TextOf(form, "Label"), LngStr(14009));
    });
    EXPECT_EQ(fake_.Count("PutFile"), 1);
}

TEST_F(TransferForm, CloseEventIsRefusedAndStopsJob)
{
    Run([&] {
        QCloseEvent event;
        QCoreApplication::sendEvent(&form, &event);
        EXPECT_FALSE(event.isAccepted());
        EXPECT_FALSE(form.IsClosed());
        EXPECT_TRUE(Transfer().TransferCancel);
    });
    EXPECT_EQ(fake_.Count("PutFile"), 1);
}

TEST_F(TransferForm, LaterActivationsStartNoSecondJob)
{
    Run([&] {
        form.hide();
        form.show();
        QCoreApplication::processEvents();
    });
    EXPECT_EQ(fake_.Count("PutFile"), 3);
}

TEST_F(TransferForm, LongNameIsElidedInMiddle)
{
    const QString name = QString(200, u'x') + ".png";
    pc_.Rows.resize(1);
    pc_.Rows.front().Text = name;
    Run([&] {
        EXPECT_TRUE(TextOf(form, "Label").contains(QChar(0x2026)));
        EXPECT_TRUE(TextOf(form, "Label").endsWith(".png"));
        EXPECT_TRUE(FindControl(form, "Label").accessibleName().contains(name));
        ExpectNothingClipped(form);
    });
}

TEST_F(TransferForm, UnknownJobClosesFormAtOnce)
{
    Transfer().TransferType = static_cast<TransferJob>(11);
    DialogShow(form);
    EXPECT_TRUE(form.IsClosed());
    EXPECT_FALSE(DialogIsOpen());
    EXPECT_TRUE(fake_.Log.isEmpty());
}

TEST_F(TransferForm, JobWithoutFormShowsNothing)
{
    DialogShow(form);
    TheTransferProgress()->SetValue(1);
    EXPECT_EQ(Bar().value(), 3);
}

} // namespace tarvik
