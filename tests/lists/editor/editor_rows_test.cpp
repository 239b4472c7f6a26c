// Each editor reports each change of its rows in one place: a copy of the table that only takes what is reported equals
// the saved table.
#include "tests/lists/editor/editor_form_fixture.h"

#include "lists/antenna/FmEditorAntenna.h"
#include "lists/correction/FmEditorCorrectionSet.h"
#include "lists/kfactor/FmEditorKfactor.h"
#include "lists/memory/FmEditorMemory.h"
#include "lists/suppress/FmEditorSuppress.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QTabWidget>

#include <algorithm>

namespace tarvik {

namespace {

/// What a user does to a control: types the text, selects the next entry of a combo box, or clicks.
struct Edit {
    const char* Control;
    const char* Text = "";
};
using Edits = QList<Edit>;

/// A copy of the rows that follows what an editor reports.
template <typename Record>
class Follower final : public RowChanges<Record> {
public:
    void RowChanged(int row, const Record& before, const Record& after) override
    {
        Record& own = Rows.at(static_cast<size_t>(row));
        EXPECT_TRUE(own == before) << "row " << row << " has changed without a report";
        own = after;
        Changed.append(row);
    }

    std::vector<Record> Rows;
    QList<int> Changed;
};

template <typename Row>
std::vector<Row> UsedOf(std::vector<Row> rows)
{
    rows.erase(std::remove_if(rows.begin(), rows.end(), [](const Row& row) { return !row.Used; }), rows.end());
    return rows;
}

template <typename Row, typename Rows>
std::vector<Row> Vector(const Rows& rows)
{
    return { rows.begin(), rows.end() };
}

// A case stores a list with three used rows, 0 to 2, and names the controls of the editor: `RowEdits` are edits of
// row 0 (the key that leaves a cell of the antenna list selects the next row), `NewRow` is one of row 4, and `Unsort`
// moves row 0 after all others in the order of a button.

struct AntennaCase {
    using Form = FmEditorAntenna;
    using Record = AntennaRow;
    static constexpr FileClass kClass = FileClassAntennaList;
    static constexpr const char* kFile = "List.tva";
    static constexpr const char* kName = "TbName";
    static constexpr const char* kDelete = "BtDelete";
    static constexpr const char* kRow1 = "TbCol3[1]";

    static void Write(const QString& path)
    {
        AntennaTable table;
        table.Name = QStringLiteral("List");
        for (int row = 0; row < 3; ++row)
            table.Row(row) = { true, 1, QStringLiteral("Dipole"), 30e6 + row * 1e6, 90e6, 0, 1, 1, {}, 0, 0, {} };
        ASSERT_TRUE(WriteAntennaFile(path, table));
    }
    static std::vector<Record> Read(const QString& path)
    {
        AntennaTable table;
        EXPECT_TRUE(ReadAntennaFile(path, table));
        return Vector<Record>(table.Rows);
    }
    static RowChanges<Record>& Changes(Form& form)
    {
        return form;
    }
    static Edits RowEdits()
    {
        return { { "CbCol1[0]" }, { "BtSelectKfactor" }, { "BtNewKfactor" }, { "BtSelectCorrectionSet" },
            { "BtNewCorrectionSet" }, { "TbAntennaName", "Rod" }, { "TbStartFreq", "200" },
            { "TbStopFreq", "70" }, // swapped on saving
            { "TbFreqOffset", "-3" }, { "CbPassiveBits" }, { "CbActiveBits" }, { "TbAntennaCode", "7" },
            { "TbNorthOffset", "12.5" }, { "TbKfactor", "Mast" }, { "TbCorrectionSet", "Array" },
            { "TbCol3[0]", "Whip" } };
    }
    static Edit NewRow()
    {
        return { "TbCol3[4]", "Loop" };
    }
    static QStringList SortButtons()
    {
        return {};
    }
    static Edits Unsort(int)
    {
        return {};
    }
};

struct KfactorCase {
    using Form = FmEditorKfactor;
    using Record = KfactorEntry;
    static constexpr FileClass kClass = FileClassKfactorTable;
    static constexpr const char* kFile = "List.tvk";
    static constexpr const char* kName = "TbName";
    static constexpr const char* kDelete = "BtDelete";
    static constexpr const char* kRow1 = "TbCol1[1]";

    static void Write(const QString& path)
    {
        KfactorTable table;
        table.Name = QStringLiteral("List");
        for (int row = 0; row < 3; ++row)
            table.Row(row) = { true, 30e6 + row * 1e6, 1, 2 };
        ASSERT_TRUE(WriteKfactorFile(path, table));
    }
    static std::vector<Record> Read(const QString& path)
    {
        KfactorTable table;
        EXPECT_TRUE(LoadKfactorFile(path, table));
        return Vector<Record>(table.Rows);
    }
    static RowChanges<Record>& Changes(Form& form)
    {
        return form;
    }
    static Edits RowEdits()
    {
        return { { "TbCol1[0]", "29" }, { "TbCol2[0]", "-1.5" }, { "TbCol3[0]", "2.5" } };
    }
    static Edit NewRow()
    {
        return { "TbCol1[4]", "50" };
    }
    static QStringList SortButtons()
    {
        return { "BtSort", "BtView" };
    }
    static Edits Unsort(int button)
    {
        return { { "TbCol1[0]", button == 0 ? "900" : "901" } };
    }
};

struct SuppressCase {
    using Form = FmEditorSuppress;
    using Record = SuppressRow;
    static constexpr FileClass kClass = FileClassSuppressList;
    static constexpr const char* kFile = "List.tvs";
    static constexpr const char* kName = "TbName";
    static constexpr const char* kDelete = "BtDelete";
    static constexpr const char* kRow1 = "TbCol2[1]";

    static void Write(const QString& path)
    {
        SuppressTable table;
        table.Name = QStringLiteral("List");
        for (int row = 0; row < 3; ++row)
            table.Row(row) = { true, kInclude, 30e6 + row * 1e6, 40e6, {} };
        ASSERT_TRUE(WriteSuppressFile(path, table));
    }
    static std::vector<Record> Read(const QString& path)
    {
        SuppressTable table;
        EXPECT_TRUE(ReadSuppressFile(path, table));
        return Vector<Record>(table.Rows);
    }
    static RowChanges<Record>& Changes(Form& form)
    {
        return form;
    }
    static Edits RowEdits()
    {
        return { { "CbCol1[0]" }, { "TbCol2[0]", "29" }, { "TbCol3[0]", "41" }, { "TbCol4[0]", "Band II" } };
    }
    static Edit NewRow()
    {
        return { "TbCol2[4]", "50" };
    }
    static QStringList SortButtons()
    {
        return { "BtSort", "BtSortMerge" };
    }
    static Edits Unsort(int button)
    {
        return { { "TbCol3[0]", button == 0 ? "950" : "951" }, { "TbCol2[0]", button == 0 ? "900" : "901" } };
    }
};

struct MemoryCase {
    using Form = FmEditorMemory;
    using Record = MemoryRecord;
    static constexpr FileClass kClass = FileClassMemoryList;
    static constexpr const char* kFile = "List.tvm";
    static constexpr const char* kName = "TbName";
    static constexpr const char* kDelete = "BtDel";
    static constexpr const char* kRow1 = "TbCol3[1]";

    static void Write(const QString& path)
    {
        MemoryTable table = EmptyMemoryTable();
        table.MemoryListName = QStringLiteral("List");
        for (int row = 0; row < 3; ++row)
            UseRow(table, row, 30e6 + row * 1e6);
        ASSERT_TRUE(WriteMemoryList(path, table));
    }
    static std::vector<Record> Read(const QString& path)
    {
        MemoryTable table;
        EXPECT_TRUE(ReadMemoryListMRFile(path, table));
        return Vector<Record>(table.Rows);
    }
    static RowChanges<Record>& Changes(Form& form)
    {
        return form;
    }
    static Edits RowEdits()
    {
        return { { "CbCol1[0]" }, { "TbCol3[0]", "29" }, { "TbCol5[0]", "Channel 1" } };
    }
    static Edit NewRow()
    {
        return { "TbCol3[4]", "50" };
    }
    static QStringList SortButtons()
    {
        return { "LbHdr3", "LbHdr3" }; // rising, then falling
    }
    static Edits Unsort(int button)
    {
        return { { "TbCol3[0]", button == 0 ? "900" : "20" } };
    }
};

/// One table of a correction set.
template <CorrTableId kTable>
struct CorrectionCase {
    using Form = FmEditorCorrectionSet;
    using Record = CorrRow;
    static constexpr FileClass kClass = FileClassCorrectionSet;
    static constexpr const char* kFile = "List.tvc";
    static constexpr const char* kName = "TbFileName";

    static void Write(const QString& path)
    {
        CorrSet set;
        CorrHeaderTexts texts{ QStringLiteral("List"), QStringLiteral("Dipole"), {}, QStringLiteral("7"),
            QStringLiteral("30"), QStringLiteral("1000") };
        for (const CorrBox box : kCorrBoxes)
            ASSERT_TRUE(CheckCorrBox(box, texts, set));
        for (const CorrTableId table : kCorrTables) {
            std::vector<CorrRow> rows(kCorrRows);
            for (int row = 0; row < 3; ++row) {
                for (int column = 0; column < CorrColumnsOf(table); ++column)
                    TypeCorrCell(rows[static_cast<size_t>(row)], table, column, QString::number(30 + row));
                rows[static_cast<size_t>(row)].Invalid = {};
            }
            ASSERT_FALSE(ValidateCorrTab(table, rows, set.Records).has_value());
            ASSERT_TRUE(SortCorrRecords(table, set.Records));
        }
        ASSERT_TRUE(SetCorrHeader(set));
        ASSERT_TRUE(SaveCorrSet(path));
    }
    static std::vector<Record> Read(const QString& path)
    {
        CorrSet set;
        EXPECT_TRUE(LoadCorrSet(path, set));
        return CorrRowsOf(kTable, set.Records);
    }
    static RowChanges<Record>& Changes(Form& form)
    {
        auto& tabs = Find<QTabWidget>(form, "CsTab");
        tabs.setCurrentIndex(static_cast<int>(kTable));
        return *dynamic_cast<CorrTabPage*>(tabs.currentWidget());
    }
};

struct CorrectionKfactorCase : CorrectionCase<CorrTableId::KFactor> {
    static constexpr const char* kDelete = "KT_BtDelete";
    static constexpr const char* kRow1 = "KT_TbCol_freq[1]";

    static Edits RowEdits()
    {
        return { { "KT_TbCol_freq[0]", "29" }, { "KT_TbCol_passive[0]", "1.5" }, { "KT_TbCol_active[0]", "2.5" } };
    }
    static Edit NewRow()
    {
        return { "KT_TbCol_freq[4]", "50" };
    }
    static QStringList SortButtons()
    {
        return { "KT_BtSort", "KT_BtView" };
    }
    static Edits Unsort(int button)
    {
        return { { "KT_TbCol_freq[0]", button == 0 ? "900" : "901" } };
    }
};

struct CorrectionOmniphaseCase : CorrectionCase<CorrTableId::Omniphase> {
    static constexpr const char* kDelete = "OP_BtDelete";
    static constexpr const char* kRow1 = "OP_TbCol_freq[1]";

    static Edits RowEdits()
    {
        return { { "OP_TbCol_freq[0]", "29" }, { "OP_TbCol_deg[0]", "-90" } };
    }
    static Edit NewRow()
    {
        return { "OP_TbCol_freq[4]", "50" };
    }
    static QStringList SortButtons()
    {
        return { "OP_BtSort", "OP_BtView" };
    }
    static Edits Unsort(int button)
    {
        return { { "OP_TbCol_freq[0]", button == 0 ? "900" : "901" } };
    }
};

struct CorrectionAzimuthCase : CorrectionCase<CorrTableId::Azimuth> {
    static constexpr const char* kDelete = "AZ_BtDelete";
    static constexpr const char* kRow1 = "AZ_TbCol_freq[1]";

    static Edits RowEdits()
    {
        return { { "AZ_TbCol_freq[0]", "29" }, { "AZ_TbCol_azimuth[0]", "10 | 20" } };
    }
    static Edit NewRow()
    {
        return { "AZ_TbCol_freq[4]", "50" };
    }
    static QStringList SortButtons()
    {
        return { "AZ_BtSort" };
    }
    static Edits Unsort(int)
    {
        return { { "AZ_TbCol_freq[0]", "900" } };
    }
};

template <typename Case>
class RowsOfEditor : public EditorFormTest<typename Case::Form> {
protected:
    RowsOfEditor()
    {
        SetEditorType(Case::kClass);
        const QString path = this->FilePath(Case::kFile);
        Case::Write(path);
        follower.Rows = Case::Read(path);
        Editor().EditorIsOpen = true; // as OpenEditor does
        this->Open(path);
        Case::Changes(this->form).SetObserver(&follower);
        this->AnswerFolder(this->Folder());
        this->AnswerFile(this->FilePath("Linked"));
        this->Editors.Band = { 20e6, 80e6 };
        this->Editors.WhileShown = [] { Editor().KfactorFileName = Editor().CorrectionSetFileName = "Nested"; };
    }

    /// Does it, and leaves the control.
    void Do(const Edit& edit)
    {
        const QString name = QLatin1String(edit.Control);
        QWidget& control = FindControl(this->form, name);
        if (qobject_cast<QAbstractButton*>(&control) != nullptr)
            Click(this->form, name);
        else if (qobject_cast<QComboBox*>(&control) != nullptr)
            Key(this->form, name, Qt::Key_Down);
        else
            this->TypeAndLeave(name, QLatin1String(edit.Text));
    }

    void ExpectReported(int row, const char* what)
    {
        EXPECT_FALSE(follower.Changed.isEmpty()) << what;
        EXPECT_EQ(follower.Changed.count(row), follower.Changed.size()) << what;
        follower.Changed.clear();
    }

    /// Saves the list under another name.
    void ExpectSavedAsReported()
    {
        this->TypeAndLeave(Case::kName, "Saved");
        ASSERT_TRUE(this->form.Save());
        const QStringList files = QDir(this->Folder()).entryList({ "Saved.*" });
        ASSERT_EQ(files.size(), 1);
        EXPECT_TRUE(UsedOf(follower.Rows) == UsedOf(Case::Read(this->FilePath(files.first()))));
    }

    FakeDatasetForms diagrams;
    Follower<typename Case::Record> follower;
};

using Cases = testing::Types<AntennaCase, KfactorCase, SuppressCase, MemoryCase, CorrectionKfactorCase,
    CorrectionOmniphaseCase, CorrectionAzimuthCase>;
TYPED_TEST_SUITE(RowsOfEditor, Cases);

} // namespace

TYPED_TEST(RowsOfEditor, EveryEditOfARowIsReported)
{
    for (const Edit& edit : TypeParam::RowEdits()) {
        this->Do(edit);
        this->ExpectReported(0, edit.Control);
    }
    this->ExpectSavedAsReported();
}

TYPED_TEST(RowsOfEditor, UseOfANewRowIsReported)
{
    this->Do(TypeParam::NewRow());
    this->ExpectReported(4, TypeParam::NewRow().Control);
    EXPECT_TRUE(this->follower.Rows[4].Used);
}

TYPED_TEST(RowsOfEditor, EverySortIsReported)
{
    const QStringList buttons = TypeParam::SortButtons();
    for (int button = 0; button < buttons.size(); ++button) {
        for (const Edit& edit : TypeParam::Unsort(button))
            this->Do(edit);
        this->follower.Changed.clear();
        Click(this->form, buttons[button]);
        EXPECT_GT(this->follower.Changed.size(), 1) << buttons[button].toStdString();
    }
    this->ExpectSavedAsReported();
}

TYPED_TEST(RowsOfEditor, DeletionIsReported)
{
    FindControl(this->form, TypeParam::kRow1).setFocus();
    Click(this->form, TypeParam::kDelete);
    this->ExpectReported(1, "deletion");
    EXPECT_FALSE(this->follower.Rows[1].Used);
    this->ExpectSavedAsReported();
}

TYPED_TEST(RowsOfEditor, HeadIsNoRow)
{
    this->TypeAndLeave(TypeParam::kName, "Other");
    EXPECT_EQ(this->follower.Changed, QList<int>());
    this->ExpectSavedAsReported();
}

} // namespace tarvik
