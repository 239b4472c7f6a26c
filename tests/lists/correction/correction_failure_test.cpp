// Failures of the list store and of the disk in the editor of correction sets. Loading and saving fail silently.
#include "tests/closed/failingfilesystem.h"
#include "tests/lists/correction/correction_form_fixture.h"

#include "closed/loader.h"

#include <QDir>

namespace tarvik {

namespace {

template <typename... Parameters>
std::int16_t Fail(Parameters...)
{
    return 14;
}

/// Each makes one call of a load fail.
using Arrangement = void (*)();
const QList<Arrangement> kLoadFailures{ [] { TvFio().AntCorrLoadFile = Fail; }, [] { TvFio().AntCorrGetHeader = Fail; },
    [] { TvFio().AntCorrGetModIdent = Fail; }, [] { TvFio().AntCorrGetKFactor = Fail; },
    [] { TvFio().AntCorrGetOmniphase = Fail; }, [] { TvFio().AntCorrGetAzimuth = Fail; },
    [] { TvFio().AntCorrGetFileName = Fail; } };
const QList<Arrangement> kSortFailures{ [] { TvFio().AntCorrSortKFactor = Fail; },
    [] { TvFio().AntCorrSortOmniphase = Fail; }, [] { TvFio().AntCorrSortAzimuth = Fail; } };

class CorrectionFailure : public CorrectionForm {
protected:
    CorrectionFailure()
        : path(StoredSet("Mast.tvc"))
        , original(Contents(path))
        , intact(TvFio())
    {
        AnswerFolder(Folder());
    }

    void OpenChanged()
    {
        Open(path);
        Type(form, "TbManufacturerName", "Other");
    }
    void ExpectUnsaved(const QString& title)
    {
        Answers().Verify();
        EXPECT_TRUE(Editor().EditorDirty);
        EXPECT_EQ(form.windowTitle(), title);
        EXPECT_EQ(TextOf(form, "TbFileName"), "Mast");
        EXPECT_EQ(TextOf(form, "TbManufacturerName"), "Other");
        EXPECT_TRUE(HasFocus(form, "TbManufacturerName"));
        EXPECT_EQ(TextOf(form, "KT_TbCol_passive[1]"), "3.00");
        EXPECT_EQ(FileClasses().PcPaths[FileClassCorrectionSet], "");
        EXPECT_EQ(Contents(path), original);
        EXPECT_EQ(QDir(Folder()).entryList(QDir::Files | QDir::Hidden), QStringList{ "Mast.tvc" });
    }
    static void ExpectNoAngles()
    {
        const std::int32_t handle = TvFio().AntCorrNewAngles(1);
        EXPECT_EQ(handle, 1);
        TvFio().AntCorrFreeAngles(handle);
    }

    const QString kTitle = "Correction Set Editor";
    QString path;
    QByteArray original;
    TvFioApi intact;
};

} // namespace

TEST_F(CorrectionFailure, EachFailedCallOfALoadLeavesAnEmptyFormWithoutMessage)
{
    Open(path);
    AnswerFile(path);
    for (const Arrangement arrange : kLoadFailures) {
        Click(form, "BtOpen");
        EXPECT_EQ(TextOf(form, "TbFileName"), "Mast");
        arrange();
        Click(form, "BtOpen");
        TvFio() = intact;
        EXPECT_EQ(form.windowTitle(), kTitle);
        EXPECT_EQ(TextOf(form, "TbFileName"), "");
        EXPECT_EQ(TextOf(form, "TbAntName"), "");
        EXPECT_EQ(TextOf(form, "KT_TbCol_freq[0]"), "");
        EXPECT_EQ(TextOf(form, "OP_TbCol_freq[0]"), "");
        EXPECT_EQ(TextOf(form, "AZ_TbCol_freq[0]"), "");
        EXPECT_FALSE(Editor().EditorDirty);
        ExpectNoAngles();
    }
}

TEST_F(CorrectionFailure, EachFailedCallOfALoadClosesAFormThatOpensWithTheFile)
{
    for (const Arrangement arrange : kLoadFailures) {
        arrange();
        Open(path);
        TvFio() = intact;
        EXPECT_TRUE(form.IsClosed());
        EXPECT_EQ(Editor().CorrectionSetFileName, "");
        ExpectNoAngles();
    }
}

TEST_F(CorrectionFailure, FailedSortIsReportedAndChangesNothing)
{
    const QStringList buttons{ "KT_BtSort", "OP_BtSort", "AZ_BtSort" };
    Open(path);
    for (int tab = 0; tab < buttons.size(); ++tab) {
        Find<QTabWidget>(form, "CsTab").setCurrentIndex(tab);
        kSortFailures.at(tab)();
        Answers().Expect(12834, QStringList(), Ok);
        Click(form, buttons.at(tab));
        TvFio() = intact;
        Answers().Verify();
        EXPECT_FALSE(Editor().EditorDirty);
        EXPECT_EQ(form.windowTitle(), "Correction Set Editor - Mast.tvc");
    }
    EXPECT_EQ(TextOf(form, "OP_TbCol_deg[1]"), "180.00");
}

TEST_F(CorrectionFailure, FailedSortEndsASave)
{
    OpenChanged();
    for (const Arrangement arrange : kSortFailures) {
        arrange();
        Answers().Expect(12834, QStringList(), Ok);
        EXPECT_FALSE(form.Save());
        TvFio() = intact;
        ExpectUnsaved(kTitle + " - Mast.tvc");
    }
    EXPECT_EQ(FolderQuestions, 0);
}

TEST_F(CorrectionFailure, RefusedHeaderEndsASaveWithItsPlainText)
{
    OpenChanged();
    TvFio().AntCorrSetHeader = Fail;
    Answers().ExpectWhile(11999, Ok, [] { EXPECT_EQ(TheMessage().Text, "Error setting header"); });
    EXPECT_FALSE(form.Save());
    EXPECT_EQ(FolderQuestions, 0);
    ExpectUnsaved(kTitle + " - Mast.tvc");
}

TEST_F(CorrectionFailure, FailedSaveShowsNothing)
{
    OpenChanged();
    TvFio().AntCorrSaveFile = Fail;
    Answers().Expect(12734, { "Mast.tvc" }, Yes);
    EXPECT_FALSE(form.Save());
    ExpectUnsaved(kTitle);
}

TEST_F(CorrectionFailure, FullDiskShowsNothing)
{
    OpenChanged();
    tvfile::FailingFileSystem disk;
    disk.BytesLeft = 9;
    Answers().Expect(12734, { "Mast.tvc" }, Yes);
    EXPECT_FALSE(form.Save());
    ExpectUnsaved(kTitle);
}

TEST_F(CorrectionFailure, WriteProtectedFileIsReported)
{
    OpenChanged();
    ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner));
    Answers().Expect(12728, { path }, Ok);
    EXPECT_FALSE(form.Save());
    ExpectUnsaved(kTitle);
}

TEST_F(CorrectionFailure, FileKeptOnNoLeavesTheChangesUnsaved)
{
    OpenChanged();
    Answers().Expect(12734, { "Mast.tvc" }, No);
    EXPECT_FALSE(form.Save());
    ExpectUnsaved(kTitle);
}

TEST_F(CorrectionFailure, VanishedFileIsWrittenWithoutAQuestion)
{
    OpenChanged();
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_TRUE(form.Save());
    EXPECT_FALSE(Editor().EditorDirty);
    EXPECT_NE(Contents(path), original);
}

TEST_F(CorrectionFailure, SameFrequencyIsReportedAtTheEarlierRow)
{
    OpenChanged();
    Find<QTabWidget>(form, "CsTab").setCurrentIndex(1);
    Type(form, "OP_TbCol_freq[1]", "30");
    Key(Qt::Key_Tab);
    Find<QTabWidget>(form, "CsTab").setCurrentIndex(0);
    Answers().Expect(12895, { "1", "2" }, Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_EQ(Find<QTabWidget>(form, "CsTab").currentIndex(), 1);
    EXPECT_TRUE(HasFocus(form, "OP_TbCol_freq[0]"));
    EXPECT_EQ(FolderQuestions, 0);
    EXPECT_TRUE(Editor().EditorDirty);
    EXPECT_EQ(Contents(path), original);
}

TEST_F(CorrectionFailure, AnglesWithoutMemoryAreNotLostSilently)
{
    OpenChanged();
    Find<QTabWidget>(form, "CsTab").setCurrentIndex(2);
    FindControl(form, "AZ_TbCol_azimuth[1]").setFocus();
    Key(Qt::Key_1);
    Key(Qt::Key_Tab);
    TvFio().AntCorrNewAngles = [](std::int16_t) { return std::int32_t{ 0 }; };
    Answers().Expect(12893, { "2", "1" }, Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_TRUE(Editor().EditorDirty);
    EXPECT_EQ(FolderQuestions, 0);
    EXPECT_EQ(Contents(path), original);
}

} // namespace tarvik
