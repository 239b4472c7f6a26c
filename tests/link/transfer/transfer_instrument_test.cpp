// Transfer jobs with the simulated receiver: a slow link, cancelling, a lost link.
#include "app/forms/dialog.h"
#include "link/channel/channel.h"
#include "link/classes/model.h"
#include "link/transfer/FmTransfer.h"
#include "link/transfer/transfer.h"
#include "tests/support/forms.h"
#include "tests/support/instrumentProcess.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProgressBar>
#include <QPushButton>

namespace tarvik {

namespace {

const QDateTime kChanged(QDate(2024, 2, 29), QTime(23, 59, 57));

class TransferToInstrument : public FormTest {
protected:
    TransferToInstrument()
    {
        CurrentPcFolder() = QDir::toNativeSeparators(Folder().chopped(1));
        ModFileInit(FileClassScreenShot);
        Transfer().LvPc = &pc_;
        Transfer().LvInstr = &instr_;
        QString identification;
        EXPECT_EQ(
            ChannelConnect(QStringLiteral("127.0.0.1"), instrument_.Port(), identification), ChannelStatus::Success);
        EXPECT_EQ(ChannelCreateDirectory(QStringLiteral("Slow")), ChannelStatus::Success);
        EXPECT_EQ(ChannelSetDirectory(QStringLiteral("Slow")), ChannelStatus::Success);
        for (const char* name : { "a.png", "b.png", "c.png", "d.png" })
            StoreLocal(QString::fromLatin1(name));
        TransferListPc(pc_, FileClasses().FileClassMask, true);
        TransferSelectAllFiles(pc_);
    }

    ~TransferToInstrument() override
    {
        ChannelDisconnect();
    }

    void StoreLocal(const QString& name) const
    {
        Store(FilePath(name), name.toUtf8());
        QFile file(FilePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(kChanged, QFileDevice::FileModificationTime));
    }

    /// Calls `step` with each new value of the bar.
    void Run(TransferJob job, const std::function<void(FmTransfer& form, int done)>& step = {})
    {
        Transfer().TransferType = job;
        FmTransfer form;
        QObject::connect(&Find<QProgressBar>(form, "progressBar"), &QProgressBar::valueChanged, &form, [&](int done) {
            positions_.append(done);
            if (step)
                step(form, done);
        });
        DialogShow(form);
        EXPECT_TRUE(form.IsClosed());
    }

    static QStringList NamesOf(const FileList& list)
    {
        QStringList names;
        for (const FileListRow& row : list.Rows)
            names.append(row.Text);
        return names;
    }

    InstrumentProcess instrument_{ { QStringLiteral("--port"), QString::fromLatin1(kFourDigitPorts),
        QStringLiteral("--delay"), QStringLiteral("20") } };
    FileList pc_;
    FileList instr_;
    QList<int> positions_; ///< values of the bar, from the initial 0
};

} // namespace

TEST_F(TransferToInstrument, FilesKeepContentsAndDateThereAndBack)
{
    Run(TransferUpload);
    EXPECT_EQ(positions_, QList<int>({ 0, 1, 2, 3, 4 }));
    ASSERT_EQ(NamesOf(instr_), QStringList({ "a.png", "b.png", "c.png", "d.png" }));
    EXPECT_EQ(TransferRowDate(instr_.Rows.front()), kChanged);

    ASSERT_TRUE(QDir().mkdir(FilePath("back")));
    CurrentPcFolder() = FilePath("back");
    TransferSelectAllFiles(instr_);
    Run(TransferDownload);
    EXPECT_EQ(NamesOf(pc_), QStringList({ "a.png", "b.png", "c.png", "d.png" }));
    EXPECT_EQ(Contents(FilePath("back/c.png")), "c.png");
    EXPECT_EQ(QFileInfo(FilePath("back/c.png")).lastModified(), kChanged);
}

TEST_F(TransferToInstrument, ListsEveryExampleOfInstrument)
{
    const std::pair<FileClass, const char*> folders[] = { { FileClassAntennaList, "Antenna List" },
        { FileClassKfactorTable, "K-Factor Table" }, { FileClassMemoryList, "Memory List" },
        { FileClassSuppressList, "Suppress List" }, { FileClassCorrectionSet, "Correction Set" } };
    for (const auto& [fileClass, folder] : folders) {
        ModFileInit(fileClass);
        FileList list;
        TransferListInstr(list, FileClasses().FileClassMask, true);
        const QDir onDisk(instrument_.Path(QStringLiteral("Public/") + QLatin1String(folder)));
        EXPECT_EQ(NamesOf(list), onDisk.entryList(QDir::Files, QDir::Name | QDir::IgnoreCase)) << folder;
        EXPECT_FALSE(list.Rows.empty()) << folder;
    }
}

TEST_F(TransferToInstrument, CancelTakesEffectBetweenFiles)
{
    Run(TransferUpload, [](FmTransfer& form, int done) {
        if (done == 2) // queued like a user's click
            QMetaObject::invokeMethod(&Find<QPushButton>(form, "BtCancel"), "click", Qt::QueuedConnection);
    });
    EXPECT_EQ(positions_, QList<int>({ 0, 1, 2 }));
    EXPECT_EQ(NamesOf(instr_), QStringList({ "a.png", "b.png" }));
}

TEST_F(TransferToInstrument, ReplacesAndDeletesExistingFiles)
{
    Run(TransferUpload);
    Answers().ExpectWhile(12734, Yes, [] { TheMessage().YesAll = true; });
    Run(TransferUpload);
    EXPECT_EQ(instr_.Rows.size(), 4U);
    TransferSelectAllFiles(instr_);
    Run(TransferDeleteOnInstr);
    EXPECT_TRUE(instr_.Rows.empty());
}

TEST_F(TransferToInstrument, LostInstrumentEndsJobAndLeavesListEmpty)
{
    Run(TransferUpload);
    positions_.clear();
    TransferSelectAllFiles(instr_);
    ASSERT_TRUE(QDir().mkdir(FilePath("back")));
    CurrentPcFolder() = FilePath("back");
    Answers().Expect(12704, Ok);
    Run(TransferDownload, [this](FmTransfer&, int done) {
        if (done == 1)
            instrument_.Kill();
    });
    EXPECT_EQ(positions_, QList<int>({ 0, 1 }));
    EXPECT_FALSE(ChannelIsUp());
    EXPECT_EQ(QDir(FilePath("back")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
        QStringList({ "a.png" }));
    TransferListInstr(instr_, FileClasses().FileClassMask);
    EXPECT_TRUE(instr_.Rows.empty());
}

} // namespace tarvik
