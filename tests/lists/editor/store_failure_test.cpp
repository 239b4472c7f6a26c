// Failures of the list store and of the disk in the editors of antenna lists, K-factor tables and suppress lists: the
// message, what stays in the form, and that no file changes.
#include "tests/closed/failingfilesystem.h"
#include "tests/lists/editor/editor_form_fixture.h"

#include "closed/loader.h"
#include "lists/antenna/FmEditorAntenna.h"
#include "lists/kfactor/FmEditorKfactor.h"
#include "lists/suppress/FmEditorSuppress.h"

#include <QComboBox>
#include <QDir>
#include <QScrollBar>

namespace tarvik {

namespace {

/// A call of the store that fails with this status.
template <int Status, typename... Parameters>
void Fail(std::int16_t* status, Parameters...)
{
    *status = Status;
}

/// A failing call, and the message that it gives.
struct StoreFailure {
    void (*Arrange)();
    int Message;
    QStringList Args; ///< number of the row; none for the list
};
using StoreFailures = QList<StoreFailure>;

/// Failures that every family has under its prefix, on writing and on reading.
#define WRITE_FAILURES(Prefix)                                                                                         \
    { [] { TvFio().Prefix##Clear = Fail<14>; }, 12834, {} }, { [] { TvFio().Prefix##SetName = Fail<8>; }, 12828, {} }, \
    {                                                                                                                  \
        [] { TvFio().Prefix##SetDescription = Fail<10>; }, 12830, { }                                                  \
    }
#define READ_FAILURES(Prefix)                                                                                          \
    { [] { TvFio().Prefix##Clear = Fail<14>; }, 12834, {} },                                                           \
        { [] { TvFio().Prefix##LoadFile = Fail<20>; }, 12837, {} },                                                    \
        { [] { TvFio().Prefix##GetName = Fail<13>; }, 12833, {} },                                                     \
    {                                                                                                                  \
        [] { TvFio().Prefix##GetDescription = Fail<13>; }, 12833, { }                                                  \
    }

struct AntennaCase {
    using Form = FmEditorAntenna;
    static constexpr FileClass kClass = FileClassAntennaList;
    static constexpr const char* kExtension = ".tva";
    static constexpr const char* kTitle = "Antenna List Editor";
    static constexpr const char* kCell = "TbCol3[0]";
    static constexpr const char* kCellText = "Dipole";
    static constexpr bool kAsksFirst = true; ///< before the rows pass through the store

    static void Write(const QString& path)
    {
        AntennaTable table;
        table.Name = QStringLiteral("List");
        table.Row(0) = { true, 1, QStringLiteral("Dipole"), 30e6, 90e6, 0, 0, 0, {}, 0, 0, {} };
        EXPECT_TRUE(WriteAntennaFile(path, table));
    }
    static StoreFailures WriteFailures()
    {
        return { WRITE_FAILURES(AntennaList), { [] { TvFio().AntennaSetInclude = Fail<57>; }, 12881, { "1" } },
            { [] { TvFio().AntennaSetName = Fail<44>; }, 12868, { "1" } },
            { [] { TvFio().AntennaSetCorrectionSetName = Fail<56>; }, 12880, { "1" } },
            { [] { TvFio().AntennaSetData = Fail<14>; }, 12834, { "1" } } };
    }
    static StoreFailures ReadFailures()
    {
        return { READ_FAILURES(AntennaList), { [] { TvFio().AntennaListGetMaxNumberOfItems = Fail<12>; }, 12832, {} },
            { [] { TvFio().AntennaGetUsed = Fail<41>; }, 12858, { "1" } },
            { [] { TvFio().AntennaGetName = Fail<13>; }, 12833, { "1" } },
            { [] { TvFio().AntennaGetNorthOffset = Fail<12>; }, 12832, { "1" } } };
    }
    static StoreFailures SortFailures()
    {
        return {};
    }
    static QStringList SortButtons()
    {
        return {};
    }
};

struct KfactorCase {
    using Form = FmEditorKfactor;
    static constexpr FileClass kClass = FileClassKfactorTable;
    static constexpr const char* kExtension = ".tvk";
    static constexpr const char* kTitle = "K-Factor Table Editor";
    static constexpr const char* kCell = "TbCol1[0]";
    static constexpr const char* kCellText = "85.000000";
    static constexpr bool kAsksFirst = true;

    static void Write(const QString& path)
    {
        KfactorTable table;
        table.Name = QStringLiteral("List");
        table.Row(0) = { true, 85e6, 1, 2 };
        table.Row(1) = { true, 30e6, 1, 2 };
        EXPECT_TRUE(WriteKfactorFile(path, table));
    }
    static StoreFailures WriteFailures()
    {
        return { WRITE_FAILURES(KfactorTable), { [] { TvFio().KfactorInsert = Fail<74>; }, 12888, { "1" } },
            { [] { TvFio().KfactorSetFrequency = Fail<71>; }, 12891, { "1" } },
            { [] { TvFio().KfactorSetPassive = Fail<72>; }, 12886, { "1" } },
            { [] { TvFio().KfactorSetActive = Fail<73>; }, 12887, { "1" } } };
    }
    static StoreFailures ReadFailures()
    {
        return { READ_FAILURES(KfactorTable), { [] { TvFio().KfactorTableGetNumberOfKFactors = Fail<12>; }, 12832, {} },
            { [] { TvFio().KfactorGetFrequency = Fail<43>; }, 12860, { "0" } },
            { [] { TvFio().KfactorGetActive = Fail<43>; }, 12860, { "0" } } };
    }
    /// In the sort, and on reading back.
    static StoreFailures SortFailures()
    {
        return { { [] { TvFio().KfactorTableSort = Fail<14>; }, 12834, {} },
            { [] { TvFio().KfactorGetPassive = Fail<43>; }, 12860, { "0" } } };
    }
    static QStringList SortButtons()
    {
        return { "BtSort", "BtView" };
    }
};

struct SuppressCase {
    using Form = FmEditorSuppress;
    static constexpr FileClass kClass = FileClassSuppressList;
    static constexpr const char* kExtension = ".tvs";
    static constexpr const char* kTitle = "Suppress List Editor";
    static constexpr const char* kCell = "TbCol2[0]";
    static constexpr const char* kCellText = "88.000000";
    static constexpr bool kAsksFirst = false;

    static void Write(const QString& path)
    {
        SuppressTable table;
        table.Name = QStringLiteral("List");
        table.Row(0) = { true, kInclude, 88e6, 108e6, {} };
        table.Row(1) = { true, kInclude, 1e6, 90e6, {} };
        EXPECT_TRUE(WriteSuppressFile(path, table));
    }
    /// Reading back from the store is part of writing.
    static StoreFailures WriteFailures()
    {
        return { WRITE_FAILURES(SuppressList), { [] { TvFio().SuppressSetInclude = Fail<60>; }, 12882, { "0" } },
            { [] { TvFio().SuppressSetStartFrequency = Fail<61>; }, 12883, { "0" } },
            { [] { TvFio().SuppressSetStopFrequency = Fail<65>; }, 12884, { "0" } },
            { [] { TvFio().SuppressSetDescription = Fail<66>; }, 12885, { "0" } },
            { [] { TvFio().SuppressSetData = Fail<42>; }, 12859, { "0" } },
            { [] { TvFio().SuppressListGetName = Fail<13>; }, 12833, {} },
            { [] { TvFio().SuppressGetStopFrequency = Fail<12>; }, 12832, { "0" } } };
    }
    static StoreFailures ReadFailures()
    {
        return { READ_FAILURES(SuppressList), { [] { TvFio().SuppressListGetMaxNumberOfItems = Fail<12>; }, 12832, {} },
            { [] { TvFio().SuppressIsInUse = Fail<42>; }, 12859, { "0" } },
            { [] { TvFio().SuppressGetDescription = Fail<13>; }, 12833, { "0" } } };
    }
    static StoreFailures SortFailures()
    {
        return { { [] { TvFio().SuppressListSort = TvFio().SuppressListSortAndMerge = Fail<14>; }, 12834, {} },
            { [] { TvFio().SuppressSetData = Fail<42>; }, 12859, { "0" } },
            { [] { TvFio().SuppressGetInclude = Fail<12>; }, 12832, { "0" } } };
    }
    static QStringList SortButtons()
    {
        return { "BtSort", "BtSortMerge" };
    }
};

#undef WRITE_FAILURES
#undef READ_FAILURES

template <typename Case>
class StoreFailing : public EditorFormTest<typename Case::Form> {
protected:
    StoreFailing()
    {
        SetEditorType(Case::kClass);
        Case::Write(Path());
        original = this->Contents(Path());
        intact = TvFio();
        this->AnswerFolder(this->Folder());
    }

    QString Path(const char* extension = Case::kExtension) const
    {
        return this->FilePath("List") + QLatin1String(extension);
    }
    QStringList Names() const
    {
        return QDir(this->Folder()).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    }

    /// Opens the list and changes its description; the focus stays there.
    void OpenChanged()
    {
        this->Open(Path());
        this->TypeIn("TbDescr", "changed");
    }

    void ExpectReplaceQuestion(const QString& name)
    {
        this->Answers().Expect(12734, { name }, Yes);
    }
    void ExpectMessage(const StoreFailure& failure)
    {
        this->Answers().Expect(failure.Message, failure.Args, Ok);
    }

    /// The changed list is still in the form, unsaved, and there is only the original file.
    void ExpectUnsaved()
    {
        this->Answers().Verify();
        EXPECT_TRUE(Editor().EditorDirty);
        EXPECT_EQ(this->form.windowTitle(), Case::kTitle);
        EXPECT_EQ(this->TextIn("TbName"), "List");
        EXPECT_EQ(this->TextIn("TbDescr"), "changed");
        EXPECT_EQ(this->TextIn(Case::kCell), Case::kCellText);
        EXPECT_TRUE(this->IsFocused("TbDescr"));
        EXPECT_EQ(FileClasses().PcPaths[Case::kClass], "");
        EXPECT_EQ(this->Contents(Path()), original);
        EXPECT_EQ(Names(), QStringList{ QFileInfo(Path()).fileName() });
    }

    void ExpectEmptyForm()
    {
        this->Answers().Verify();
        EXPECT_FALSE(Editor().EditorDirty);
        EXPECT_EQ(this->form.windowTitle(), Case::kTitle);
        EXPECT_EQ(this->TextIn("TbName"), "");
        EXPECT_EQ(this->TextIn(Case::kCell), "");
        EXPECT_FALSE(this->IsEnabled("BtDelete"));
    }

    QByteArray original;
    TvFioApi intact{};
};

using Cases = testing::Types<AntennaCase, KfactorCase, SuppressCase>;

class CaseNames {
public:
    template <typename Case>
    static std::string GetName(int)
    {
        return Case::kExtension + 1;
    }
};

} // namespace

TYPED_TEST_SUITE(StoreFailing, Cases, CaseNames);

TYPED_TEST(StoreFailing, RefusedRowsStayInTheForm)
{
    this->OpenChanged();
    for (const StoreFailure& failure : TypeParam::WriteFailures()) {
        failure.Arrange();
        if (TypeParam::kAsksFirst)
            this->ExpectReplaceQuestion(QStringLiteral("List") + QLatin1String(TypeParam::kExtension));
        this->ExpectMessage(failure);
        if (!TypeParam::kAsksFirst)
            this->Answers().Expect(12726, { this->Path() }, Ok);
        EXPECT_FALSE(this->form.Save());
        TvFio() = this->intact;
        this->ExpectUnsaved();
        ASSERT_FALSE(this->HasFailure()) << failure.Message;
    }
}

TYPED_TEST(StoreFailing, FileThatTheStoreCannotReadLeavesAnEmptyForm)
{
    this->Open(this->Path());
    for (const StoreFailure& failure : TypeParam::ReadFailures()) {
        this->AnswerFile(this->Path());
        Click(this->form, "BtOpen");
        EXPECT_EQ(this->TextIn(TypeParam::kCell), TypeParam::kCellText);
        failure.Arrange();
        this->ExpectMessage(failure);
        Click(this->form, "BtOpen");
        TvFio() = this->intact;
        this->ExpectEmptyForm();
        ASSERT_FALSE(this->HasFailure()) << failure.Message;
    }
}

TYPED_TEST(StoreFailing, FileThatTheStoreCannotReadOnLoadClosesTheForm)
{
    for (const StoreFailure& failure : TypeParam::ReadFailures()) {
        failure.Arrange();
        this->ExpectMessage(failure);
        this->Open(this->Path());
        TvFio() = this->intact;
        this->Answers().Verify();
        EXPECT_TRUE(this->form.IsClosed());
        EXPECT_EQ(Editor().EditorOpenFile, "");
        EXPECT_EQ(Editor().KfactorFileName, "");
    }
}

TYPED_TEST(StoreFailing, FailedSortChangesNothing)
{
    FakeDatasetForms diagrams;
    this->Open(this->Path());
    for (const QString& button : TypeParam::SortButtons()) {
        for (const StoreFailure& failure : TypeParam::SortFailures()) {
            Find<QScrollBar>(this->form, "VScroll1").setValue(7);
            failure.Arrange();
            this->ExpectMessage(failure);
            Click(this->form, button);
            TvFio() = this->intact;
            this->Answers().Verify();
            EXPECT_FALSE(Editor().EditorDirty);
            EXPECT_EQ(Find<QScrollBar>(this->form, "VScroll1").value(), 7);
            Find<QScrollBar>(this->form, "VScroll1").setValue(0);
            EXPECT_EQ(this->TextIn(TypeParam::kCell), TypeParam::kCellText);
            ASSERT_FALSE(this->HasFailure()) << button.toStdString() << failure.Message;
        }
    }
    EXPECT_EQ(diagrams.Names, QStringList());
}

TYPED_TEST(StoreFailing, FullDiskIsReported)
{
    this->OpenChanged();
    const QString name = QFileInfo(this->Path()).fileName();
    {
        tvfile::FailingFileSystem disk;
        disk.BytesLeft = 9;
        this->ExpectReplaceQuestion(name);
        this->Answers().Expect(
            12827, { "The file cannot be written; what was there before is unchanged. The medium is full." }, Ok);
        EXPECT_FALSE(this->form.Save());
    }
    this->ExpectUnsaved();
    Find<QComboBox>(this->form, "CbExt").setCurrentIndex(1);
    {
        tvfile::FailingFileSystem disk;
        disk.BytesLeft = 9;
        this->Answers().ExpectPrecise(12819, 12906, { "List.csv" }, Ok);
        EXPECT_FALSE(this->form.Save());
    }
    this->ExpectUnsaved();
}

TYPED_TEST(StoreFailing, WriteProtectedFileIsReportedInBothFormats)
{
    this->OpenChanged();
    for (int format = 0; format < 2; ++format) {
        Find<QComboBox>(this->form, "CbExt").setCurrentIndex(format);
        const QString path = this->Path(format == 0 ? TypeParam::kExtension : ".csv");
        if (format == 1)
            this->Store(path, "csv");
        ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner));
        this->Answers().Expect(12728, { path }, Ok);
        EXPECT_FALSE(this->form.Save());
        EXPECT_EQ(this->Contents(path), format == 0 ? this->original : "csv");
        static_cast<void>(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner));
        if (format == 1) {
            ASSERT_TRUE(QFile::remove(path));
        }
        this->ExpectUnsaved();
    }
}

TYPED_TEST(StoreFailing, VanishedFolderIsReported)
{
    this->OpenChanged();
    this->AnswerFolder(this->FilePath("gone"));
    this->Answers().Expect(12827, { "No file can be made in this folder. There is no such file or folder." }, Ok);
    EXPECT_FALSE(this->form.Save());
    this->ExpectUnsaved();
    Find<QComboBox>(this->form, "CbExt").setCurrentIndex(1);
    this->Answers().ExpectPrecise(12819, 12907, { "List.csv" }, Ok);
    EXPECT_FALSE(this->form.Save());
    this->ExpectUnsaved();
}

TYPED_TEST(StoreFailing, VanishedFileIsWrittenWithoutAQuestion)
{
    this->OpenChanged();
    ASSERT_TRUE(QFile::remove(this->Path()));
    EXPECT_TRUE(this->form.Save());
    EXPECT_FALSE(Editor().EditorDirty);
    EXPECT_NE(this->Contents(this->Path()), this->original);
}

TYPED_TEST(StoreFailing, FileKeptOnNoLeavesTheChangesUnsaved)
{
    this->OpenChanged();
    this->Answers().Expect(12734, { QFileInfo(this->Path()).fileName() }, No);
    EXPECT_FALSE(this->form.Save());
    this->ExpectUnsaved();
}

} // namespace tarvik
