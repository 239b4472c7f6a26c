// The jobs by number: their lists, and which list is read again.
#include "tests/link/transfer/transfer_fixture.h"

#include "link/classes/model.h"

namespace tarvik {

namespace {

class Job : public TransferTest {
protected:
    Job()
    {
        Transfer().OtherLvPc = &otherPc_;
        Transfer().OtherLvInstr = &otherInstr_;
        ChannelRow row;
        row.Name = "fresh.png";
        fake_.Rows = { row };
        StoreLocal("fresh.png");
        AddFile(pc_, "pc.png");
        AddFile(instr_, "instr.png");
        AddFile(otherPc_, "other-pc.png");
        AddFile(otherInstr_, "other-instr.png");
    }

    void Run(TransferJob job)
    {
        Transfer().TransferType = job;
        TransferRunJob();
    }

    /// Names of the lists that were read again: "pc", "instr", "other-pc", "other-instr".
    QStringList ReadAgain() const
    {
        QStringList names;
        const auto add = [&names](const FileList& list, const char* name) {
            const bool isFresh = std::any_of(
                list.Rows.begin(), list.Rows.end(), [](const FileListRow& row) { return row.Text == "fresh.png"; });
            if (isFresh)
                names.append(QString::fromLatin1(name));
        };
        add(pc_, "pc");
        add(instr_, "instr");
        add(otherPc_, "other-pc");
        add(otherInstr_, "other-instr");
        return names;
    }

    FileList otherPc_;
    FileList otherInstr_;
};

} // namespace

TEST_F(Job, UploadReadsInstrumentAgain)
{
    Run(TransferUpload);
    EXPECT_EQ(fake_.Count("PutFile " + Local("pc.png")), 1);
    EXPECT_EQ(ReadAgain(), QStringList({ "instr" }));
}

TEST_F(Job, DownloadReadsPcAgain)
{
    Run(TransferDownload);
    EXPECT_EQ(fake_.Count("GetFile instr.png"), 1);
    EXPECT_EQ(ReadAgain(), QStringList({ "pc" }));
}

TEST_F(Job, DeletionReadsItsSideAgain)
{
    StoreLocal("pc.png");
    Run(TransferDeleteOnPc);
    EXPECT_EQ(Trash, QStringList({ "pc.png" }));
    EXPECT_EQ(ReadAgain(), QStringList({ "pc" }));
    Run(TransferDeleteOnInstr);
    EXPECT_EQ(fake_.Count("RemoveFile instr.png"), 1);
    EXPECT_EQ(ReadAgain(), QStringList({ "pc", "instr" }));
}

TEST_F(Job, FirstSixUseListsOfOtherForm)
{
    Run(TransferUploadOther);
    EXPECT_EQ(fake_.Count("PutFile " + Local("other-pc.png")), 1);
    EXPECT_EQ(ReadAgain(), QStringList({ "other-instr" }));
}

TEST_F(Job, DownloadOfOtherFormReadsItsPcAgain)
{
    Run(TransferDownloadOther);
    EXPECT_EQ(fake_.Count("GetFile other-instr.png"), 1);
    EXPECT_EQ(ReadAgain(), QStringList({ "other-pc" }));
}

TEST_F(Job, UploadOfActiveDataSetReadsNothingAgain)
{
    Run(TransferUploadActive);
    EXPECT_EQ(fake_.Count("PutActiveDatasetFile " + Local("other-pc.png")), 1);
    EXPECT_TRUE(ReadAgain().isEmpty());
}

TEST_F(Job, DownloadOfActiveDataSetReadsPcAgain)
{
    Run(TransferDownloadActive);
    EXPECT_EQ(fake_.Count("GetActiveDatasetFile"), 1);
    EXPECT_EQ(ReadAgain(), QStringList({ "other-pc" }));
}

TEST_F(Job, DeletionOfOtherFormReadsItsSideAgain)
{
    StoreLocal("other-pc.png");
    Run(TransferDeletePcOther);
    EXPECT_EQ(Trash, QStringList({ "other-pc.png" }));
    Run(TransferDeleteInstrOther);
    EXPECT_EQ(fake_.Count("RemoveFile other-instr.png"), 1);
    EXPECT_EQ(ReadAgain(), QStringList({ "other-pc", "other-instr" }));
}

TEST_F(Job, UnknownJobDoesNothing)
{
    for (const int number : { -1, 0, 11 }) {
        const auto job = static_cast<TransferJob>(number);
        Run(job);
        EXPECT_TRUE(fake_.Log.isEmpty());
        EXPECT_TRUE(ReadAgain().isEmpty());
        EXPECT_EQ(TransferLabelId(job).Number, 0);
        EXPECT_EQ(TransferTitleId(job).Number, 0);
    }
}

TEST_F(Job, JobWithoutListsDoesNothing)
{
    TransferState& state = Transfer();
    state.LvPc = state.LvInstr = state.OtherLvPc = state.OtherLvInstr = nullptr;
    for (int number = 1; number <= 10; ++number) {
        const auto job = static_cast<TransferJob>(number);
        if (job != TransferDownloadActive)
            Run(job);
    }
    EXPECT_TRUE(fake_.Log.isEmpty());
    EXPECT_TRUE(Trash.isEmpty());
}

TEST_F(Job, ListIsReadAgainWithoutSort)
{
    pc_.SortOrder = FileListOrder::Ascending;
    Run(TransferDownload);
    EXPECT_EQ(pc_.SortOrder, FileListOrder::Ascending);
    EXPECT_FALSE(pc_.Sorted);
}

TEST_F(Job, CancelledJobReadsItsListAgain)
{
    AddFile(pc_, "second.png");
    fake_.OnCall = [](const QString&) { Transfer().TransferCancel = true; };
    Run(TransferUpload);
    EXPECT_EQ(fake_.Count("PutFile"), 1);
    EXPECT_EQ(ReadAgain(), QStringList({ "instr" }));
}

TEST_F(Job, LostLinkLeavesInstrumentListEmpty)
{
    fake_.Answer("PutFile", ChannelStatus::LinkFailed);
    fake_.Answer("StartFindAllFiles", ChannelStatus::LinkFailed);
    fake_.Gone = true;
    Answers().Expect(12704, Ok);
    Run(TransferUpload);
    EXPECT_TRUE(instr_.Rows.empty());
    EXPECT_FALSE(fake_.Connected);
}

TEST_F(Job, EachJobHasLabelAndTitle)
{
    const int labels[] = { 14006, 14007, 14010, 14011, 14008, 14008, 14006, 14007, 14008, 14008 };
    for (int number = 1; number <= 10; ++number) {
        const auto job = static_cast<TransferJob>(number);
        EXPECT_EQ(TransferLabelId(job).Number, labels[number - 1]) << number;
        EXPECT_EQ(TransferTitleId(job).Number, number <= 6 ? 14002 : 14003) << number;
    }
}

} // namespace tarvik
