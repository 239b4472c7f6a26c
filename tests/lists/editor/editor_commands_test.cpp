// The buttons of the list editors: what they check first, their keys, tips and pointer.
#include "tests/lists/editor/list_form_fixture.h"

#include "app/text/lang.h"
#include "closed/loader.h"
#include "lists/bindEditors.h"
#include "lists/editor/editorGeneral.h"
#include "tests/support/fakeFrame.h"
#include "tests/support/fakeHelp.h"

#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace tarvik {

namespace {

class EditorCommands : public ListFormTest {
protected:
    ~EditorCommands() override
    {
        if (!form.IsClosed())
            GiveUp();
    }
};

} // namespace

namespace {

/// The commands that do not check a cell.
class EveryOtherCommand : public EditorCommands, public testing::WithParamInterface<const char*> {
protected:
    /// The command must not run.
    void ExpectListUntouched()
    {
        EXPECT_FALSE(form.IsClosed());
        EXPECT_EQ(CellText(3, 0), "100.000000");
        EXPECT_EQ(FileQuestions, 0);
        EXPECT_TRUE(help_.Topics.isEmpty());
    }

    FakeHelp help_;
};

std::string CommandName(const testing::TestParamInfo<const char*>& info)
{
    return info.param;
}

} // namespace

TEST_P(EveryOtherCommand, KeepsFocusInBadName)
{
    Open(StoredList({ 0 }));
    AnswerFile({});
    Type(form, "TbName", "a.b");
    Answers().Expect(12766, { QStringLiteral("memory list") }, Ok);
    Click(form, GetParam());
    EXPECT_TRUE(HasFocus(form, "TbName"));
    ExpectListUntouched();
}

TEST_P(EveryOtherCommand, KeepsFocusInBadDescription)
{
    Open(StoredList({ 0 }));
    AnswerFile({});
    Type(form, "TbDescr", "a;b");
    Answers().Expect(12764, QStringList(), Ok);
    Click(form, GetParam());
    EXPECT_TRUE(HasFocus(form, "TbDescr"));
    ExpectListUntouched();
}

TEST_P(EveryOtherCommand, ChecksHeadWhenCalledByItsMnemonic)
{
    Open(StoredList({ 0 }));
    AnswerFile({});
    for (const auto& [name, message] : { std::pair("TbName", 12766), std::pair("TbDescr", 12764) }) {
        const QString good = TextOf(form, name);
        Type(form, name, "a;b");
        Answers().Expect(message, Ok);
        Find<QPushButton>(form, GetParam()).click(); // moves no focus
        EXPECT_TRUE(HasFocus(form, name));
        ExpectListUntouched();
        Type(form, name, good);
    }
}

INSTANTIATE_TEST_SUITE_P(
    EditorCommands, EveryOtherCommand, testing::Values("BtNew", "BtOpen", "BtClose", "BtHelp", "BtDel"), &CommandName);

TEST_F(EditorCommands, HelpShowsTopicOfEditor)
{
    FakeHelp help;
    Open();
    Click(form, "BtHelp");
    EXPECT_EQ(help.Topics, QList<int>{ 11995 });
}

TEST_F(EditorCommands, ButtonsHaveTheirTips)
{
    Open();
    const QList<std::pair<QString, int>> tips{ { "BtClose", 10710 }, { "BtHelp", 10734 }, { "BtNew", 10718 },
        { "BtOpen", 10714 }, { "BtSave", 10716 }, { "BtSort", 10724 }, { "BtEdit", 10742 }, { "BtDel", 10712 } };
    for (const auto& [name, text] : tips)
        EXPECT_EQ(FindControl(form, name).toolTip(), PlainTip(LngStr(text))) << name.toStdString();
}

TEST_F(EditorCommands, PointerIsBusyDuringReadAndWrite)
{
    const QString path = StoredList({ 3 });
    Open();
    static QList<Qt::CursorShape> shapes;
    static QWidget* busy = nullptr;
    static decltype(TvFioApi::MemoryListLoadFile) load = nullptr;
    static decltype(TvFioApi::MemoryListSaveFile) save = nullptr;
    shapes.clear();
    busy = &form;
    load = TvFio().MemoryListLoadFile;
    save = TvFio().MemoryListSaveFile;
    TvFio().MemoryListLoadFile = [](int16_t* status, const char* file) {
        shapes.append(busy->cursor().shape());
        load(status, file);
    };
    TvFio().MemoryListSaveFile = [](int16_t* status, const char* file) {
        shapes.append(busy->cursor().shape());
        save(status, file);
    };
    AnswerFile(path);
    Click(form, "BtOpen");
    AnswerFolder(Folder());
    Answers().Expect(12734, Yes);
    EXPECT_TRUE(form.Save());
    EXPECT_EQ(shapes, QList<Qt::CursorShape>({ Qt::WaitCursor, Qt::WaitCursor }));
    EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(EditorCommands, SortAndEditCheckHeadWhenCalledByTheirMnemonics)
{
    Open(StoredList({ 0, 1 }));
    Find<QComboBox>(form, "CbSort").setCurrentIndex(4);
    Type(form, "TbName", "a.b");
    for (const char* button : { "BtSort", "BtEdit" }) {
        Answers().Expect(12766, Ok);
        ExpectNoDialog([&] { Find<QPushButton>(form, button).click(); }); // moves no focus
        EXPECT_TRUE(HasFocus(form, "TbName"));
        EXPECT_EQ(CellText(3, 0), "100.000000");
    }
}

TEST_F(EditorCommands, DoubleClickChecksHead)
{
    Open(StoredList({ 0, 1 }));
    Type(form, "TbName", "a.b");
    Answers().Expect(12766, Ok);
    ExpectNoDialog([&] { QTest::mouseDClick(&Cell(4, 1), Qt::LeftButton); });
    EXPECT_TRUE(HasFocus(form, "TbName"));
}

/// No button is the default one: Enter belongs to cells and text boxes.
TEST_F(EditorCommands, EnterPressesTheFocusedButtonAlone)
{
    FakeHelp help;
    Open(StoredList({ 0, 1 }));
    Find<QComboBox>(form, "CbSort").setCurrentIndex(4);
    for (const char* box : { "CbExt", "CbSort" })
        Key(form, box, Qt::Key_Return);
    EXPECT_EQ(CellText(3, 0), "100.000000");
    EXPECT_FALSE(Editor().EditorDirty);
    Key(form, "BtHelp", Qt::Key_Return);
    EXPECT_EQ(help.Topics, QList<int>{ 11995 });
    Key(form, "BtSort", Qt::Key_Return);
    EXPECT_EQ(CellText(3, 0), "101.000000");
    EXPECT_FALSE(form.IsClosed());
}

TEST_F(EditorCommands, CommandOpensEditorWithStatusBarDisabled)
{
    BindListEditors();
    FakeFrame frame;
    bool seen = false;
    QTimer::singleShot(0, qApp, [&seen] {
        seen = DialogTop() != nullptr;
        if (seen)
            DialogTop()->Unload();
    });
    OpenEditor(FileClassMemoryList);
    EXPECT_TRUE(seen);
    EXPECT_EQ(frame.StatusBarEnabled, QList<bool>({ false, true }));
}

} // namespace tarvik
