// Uploading a file as the active data set.
#include "tests/link/transfer/transfer_fixture.h"

namespace tarvik {

namespace {

class UploadActive : public TransferTest {
protected:
    UploadActive()
    {
        AddFile(pc_, "a.set");
        AddFile(pc_, "b.set");
    }

    QString Put(const QString& name) const
    {
        return QStringLiteral("PutActiveDatasetFile %1 100000").arg(Local(name));
    }
};

} // namespace

TEST_F(UploadActive, EachFileIsSentAndBarShowsOne)
{
    TransferPutActive(pc_);
    EXPECT_EQ(fake_.Log, QStringList({ Put("a.set"), Put("b.set") }));
    EXPECT_EQ(ShownOf("value"), QStringList({ "value 1", "value 1" }));
    EXPECT_EQ(ShownOf("label").first(), "label Copying to the instrument: a.set");
}

TEST_F(UploadActive, FoldersAreRefused)
{
    pc_.Rows.clear();
    AddFolder(pc_, "One");
    Answers().Expect(12744, { QStringLiteral("One") }, Ok);
    TransferPutActive(pc_);
    EXPECT_TRUE(fake_.Log.isEmpty());
}

TEST_F(UploadActive, FailedLinkDisconnectsAndEndsJob)
{
    fake_.Answer("PutActiveDatasetFile", ChannelStatus::LinkFailed);
    Answers().ExpectWhile(12703, Ok, [this] { EXPECT_TRUE(fake_.Connected); });
    TransferPutActive(pc_);
    EXPECT_EQ(fake_.Log, QStringList({ Put("a.set"), "Disconnect" }));
}

TEST_F(UploadActive, RefusedFileIsReportedByNameAndJobContinues)
{
    fake_.Answer("PutActiveDatasetFile", ChannelStatus::Refused);
    Answers().Expect(12723, { QStringLiteral("a.set") }, Ok);
    TransferPutActive(pc_);
    EXPECT_EQ(fake_.Log, QStringList({ Put("a.set"), Put("b.set") }));
}

TEST_F(UploadActive, UnreadableFileIsReportedAndJobContinues)
{
    fake_.Answer("PutActiveDatasetFile", ChannelStatus::LocalFile);
    Answers().Expect(12704, Ok);
    TransferPutActive(pc_);
    EXPECT_EQ(fake_.Log, QStringList({ Put("a.set"), "CheckConnection", Put("b.set") }));
}

} // namespace tarvik
