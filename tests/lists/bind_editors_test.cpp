// How the program reaches the list editors.
#include "app/frame/commands.h"
#include "link/documents/documents.h"
#include "lists/bindEditors.h"
#include "tests/lists/editor/list_form_fixture.h"

#include <QTest>
#include <QTimer>

namespace tarvik {

namespace {

class BindEditors : public ListFormTest {
protected:
    BindEditors()
    {
        BindListEditors();
    }

    /// Runs `open`; what the editor that it shows has in its title, or nothing.
    static QString TitleShownBy(const std::function<void()>& open)
    {
        QString title;
        QTimer closing;
        closing.setSingleShot(true);
        closing.callOnTimeout([&title] {
            auto* editor = dynamic_cast<FmEditorMemory*>(DialogTop());
            ASSERT_NE(editor, nullptr);
            title = editor->windowTitle();
            editor->Unload();
        });
        closing.start(0);
        open();
        return title;
    }
};

} // namespace

TEST_F(BindEditors, CommandOpensTheMemoryListEditor)
{
    EXPECT_EQ(TitleShownBy([] { EXPECT_TRUE(CommandRun(Command::Editor3)); }), "Memory List Editor");
}

TEST_F(BindEditors, EditorBelongsToTheActiveWindow)
{
    QWidget window;
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const QWidget* parent = nullptr;
    QTimer::singleShot(0, qApp, [&parent] {
        auto* editor = dynamic_cast<FmEditorMemory*>(DialogTop());
        ASSERT_NE(editor, nullptr);
        parent = editor->parentWidget();
        editor->Unload();
    });
    OpenEditor(FileClassMemoryList);
    EXPECT_EQ(parent, &window);
}

TEST_F(BindEditors, ListFileOpensInItsEditor)
{
    const QString path = StoredList({ 3 });
    EXPECT_EQ(TitleShownBy([&] { EXPECT_TRUE(TheListFiles()->Open(path, FileClassMemoryList)); }),
        "Memory List Editor - Van.tvm");
    EXPECT_TRUE(Editor().EditorOpenFile.isEmpty());
}

TEST_F(BindEditors, FileOfClassWithoutEditorIsForgotten)
{
    EXPECT_TRUE(TheListFiles()->Open(FilePath("a.tva"), FileClassAntennaList));
    EXPECT_TRUE(Editor().EditorOpenFile.isEmpty());
    EXPECT_EQ(DialogTop(), nullptr);
}

TEST_F(BindEditors, TextFileOpensInItsEditorIfItIsToBeShown)
{
    const QString path = StoredList({ 3 }, "Van.csv");
    ExpectNoDialog([&] { EXPECT_TRUE(TheListFiles()->OpenText(path, false)); });
    EXPECT_EQ(TitleShownBy([&] { EXPECT_TRUE(TheListFiles()->OpenText(path, true)); }), "Memory List Editor - Van.csv");
    Store(FilePath("other.csv"), "a,b\r\n");
    EXPECT_FALSE(TheListFiles()->OpenText(FilePath("other.csv"), true));
}

} // namespace tarvik
