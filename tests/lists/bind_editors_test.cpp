// How the program reaches the list editors.
#include "app/menu/commands.h"
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
            auto* editor = dynamic_cast<FormBase*>(DialogTop());
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

TEST_F(BindEditors, EachCommandOpensItsEditor)
{
    const QList<std::pair<Command, QString>> editors{ { Command::Editor1, "Antenna List Editor" },
        { Command::Editor2, "K-Factor Table Editor" }, { Command::Editor3, "Memory List Editor" },
        { Command::Editor4, "Suppress List Editor" }, { Command::Editor6, "Correction Set Editor" } };
    for (const auto& [command, title] : editors)
        EXPECT_EQ(TitleShownBy([command = command] { EXPECT_TRUE(CommandRun(command)); }), title);
}

TEST_F(BindEditors, BandOfATableIsThatOfItsFirstAndLastRow)
{
    SetEditorType(FileClassKfactorTable);
    Store(FilePath("Mast.csv"),
        "K-Factor Table,Mast\r\nDescription,\r\n1,30000000,1,1\r\n2,20000000,1,1\r\n3,85000000,1,1\r\n");
    double first = 1;
    double last = 2;
    EXPECT_TRUE(TheListEditors()->ReadKfactorBand(FilePath("Mast.csv"), first, last));
    EXPECT_EQ(first, 30e6);
    EXPECT_EQ(last, 85e6);
    Store(FilePath("Empty.csv"), "K-Factor Table,Mast\r\nDescription,\r\n");
    EXPECT_TRUE(TheListEditors()->ReadKfactorBand(FilePath("Empty.csv"), first, last));
    EXPECT_EQ(first, 30e6);
    Answers().Expect(12780, { QStringLiteral("gone.tvk"), QStringLiteral("1") }, Ok);
    EXPECT_FALSE(TheListEditors()->ReadKfactorBand(FilePath("gone.tvk"), first, last));
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
    EXPECT_TRUE(TheListFiles()->Open(FilePath("a.tvp"), FileClassScreenShot));
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
