// The description in its window: typing, wrapping, what is copied, and the form of its width.
#include "app/lang.h"
#include "screen/FmDescription.h"
#include "screen/compose.h"
#include "screen/description.h"
#include "screen/descriptionEdit.h"
#include "tests/screen/screenForms.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QRandomGenerator>
#include <QTextBlock>
#include <QTextLayout>

namespace {

class DescriptionInWindow : public ScreenForms {
protected:
    WindowId OpenWithDescription(const QString& text = {})
    {
        const WindowId id = Open();
        DescrSetVisible(true, id);
        DescrSetText(id, text);
        Description(id).setFocus();
        return id;
    }

    /// The lines that the box shows.
    static QStringList Shown(const DescriptionBox& box)
    {
        QStringList lines;
        for (QTextBlock block = box.document()->begin(); block.isValid(); block = block.next()) {
            for (int at = 0; at < block.layout()->lineCount(); ++at) {
                const QTextLine line = block.layout()->lineAt(at);
                lines.append(block.text().mid(line.textStart(), line.textLength()));
            }
        }
        return lines;
    }

    static QString RandomText(QRandomGenerator& random)
    {
        static const QString kCharacters = QStringLiteral("aaaabbbbccccdddd    ---//..,,;(){}\u00e4\u00b5\u201c");
        QString text;
        const int length = random.bounded(400);
        for (int at = 0; at < length; ++at)
            text += kCharacters[random.bounded(static_cast<int>(kCharacters.size()))];
        return text;
    }
};

class DescriptionForm : public DescriptionInWindow {
protected:
    DescriptionForm()
    {
        id = OpenWithDescription(kText);
    }

    void Run(const std::function<void(FmDescription&)>& during)
    {
        FmDescription form(id, frame.get());
        RunForm(form, [&] { during(form); });
    }

    /// Twelve words, so that a narrow block takes more lines than a wide one.
    const QString kText = QStringLiteral("measured on the roof of the station with the small antenna at noon, no wind");
    WindowId id = 0;
};

} // namespace

TEST_F(DescriptionInWindow, StandsBelowThePictureInTheMiddle)
{
    const WindowId id = OpenWithDescription("one line");
    const QRect box = Description(id).geometry();
    EXPECT_EQ(box.width(), DescrWidth(id));
    EXPECT_EQ(box.height(), DescrLineHeight(id));
    EXPECT_EQ(box.bottom(), Window(id).rect().bottom());
    EXPECT_EQ(box.left(), (Window(id).width() - box.width()) / 2);
    EXPECT_EQ(FindControl(Window(id), "LnDescr").geometry(), QRect(0, box.top() - 1, Window(id).width(), 1));
    EXPECT_TRUE(Description(id).isVisible());
    DescrToggle(id);
    EXPECT_FALSE(Description(id).isVisible());
    EXPECT_FALSE(FindControl(Window(id), "LnDescr").isVisible());
}

TEST_F(DescriptionInWindow, TypedTextIsKeptAndTheWindowGrowsWithIt)
{
    const WindowId id = OpenWithDescription();
    const int height = Window(id).height();
    QTest::keyClicks(&Description(id), "Mast");
    Key(Qt::Key_Return);
    QTest::keyClicks(&Description(id), "south");
    EXPECT_EQ(WindowAt(id).Description, "Mast\r\nsouth");
    EXPECT_EQ(Window(id).height(), height + DescrLineHeight(id));
    EXPECT_EQ(Graph(id).size(), QSize(642, 442));
    EXPECT_EQ(Shown(Description(id)), (QStringList{ "Mast", "south" }));
}

TEST_F(DescriptionInWindow, EleventhLineIsTakenBackAtOnce)
{
    const WindowId id = OpenWithDescription();
    for (int line = 1; line <= 9; ++line)
        Key(Qt::Key_Return);
    QTest::keyClicks(&Description(id), "ten");
    const QString ten = WindowAt(id).Description;
    Key(Qt::Key_Return);
    EXPECT_EQ(WindowAt(id).Description, ten);
    EXPECT_EQ(Description(id).blockCount(), 10);
    QTest::keyClicks(&Description(id), "!");
    EXPECT_EQ(WindowAt(id).Description, ten + u'!');
}

TEST_F(DescriptionInWindow, BoxAndSavedPictureBreakLinesAlike)
{
    const WindowId id = OpenWithDescription();
    QRandomGenerator random(4711);
    for (int round = 0; round < 300; ++round) {
        WindowAt(id).DescriptionColumns = static_cast<qint16>(40 + random.bounded(61));
        const QString text = RandomText(random);
        if (DescrLines(text, id).size() > kDescriptionLines)
            continue;
        DescrSetText(id, text);
        const QString stored = WindowAt(id).Description;
        ApplySize(id);
        EXPECT_EQ(Shown(Description(id)), DescrLines(stored, id)) << stored.toStdString();
    }
}

TEST_F(DescriptionInWindow, NoLineIsHiddenBelowTheEdge)
{
    const WindowId id = OpenWithDescription();
    QTest::keyClicks(&Description(id), "a");
    Key(Qt::Key_Return);
    QTest::keyClicks(&Description(id), "b");
    DescriptionBox& box = Description(id);
    const QRect last = box.cursorRect();
    EXPECT_TRUE(box.viewport()->rect().contains(last.topLeft()));
    EXPECT_LE(last.bottom(), box.viewport()->rect().bottom());
    box.moveCursor(QTextCursor::Start);
    EXPECT_EQ(box.cursorRect().top(), 0);
}

TEST_F(DescriptionInWindow, PastedTextIsPlain)
{
    const WindowId id = OpenWithDescription();
    auto* data = new QMimeData;
    data->setText("a\tb\x01");
    data->setHtml("<b>a</b>");
    QGuiApplication::clipboard()->setMimeData(data);
    Description(id).paste();
    EXPECT_EQ(WindowAt(id).Description, "a b");
}

TEST_F(DescriptionInWindow, TabLeavesIt)
{
    const WindowId id = OpenWithDescription("text");
    Key(Qt::Key_Tab);
    EXPECT_FALSE(Description(id).hasFocus());
    EXPECT_EQ(WindowAt(id).Description, "text");
}

TEST_F(DescriptionInWindow, CopyKeyTakesThePictureWithoutASelectionAndElseTheText)
{
    const WindowId id = OpenWithDescription("some words");
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32), ComposeWindow(id));
    Description(id).selectAll();
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "some words");
    Graph(id).setFocus();
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QGuiApplication::clipboard()->mimeData()->hasImage());
}

TEST_F(DescriptionInWindow, ShowingItInAMaximisedWindowEmptiesIt)
{
    const WindowId id = OpenWithDescription("text");
    DescrToggle(id);
    Child(id).showMaximized();
    DescrToggle(id);
    EXPECT_EQ(WindowAt(id).Description, "");
    EXPECT_EQ(Description(id).toPlainText(), "");
}

TEST_F(DescriptionInWindow, CommandTurnsItOnAndOffAndChecksItsItem)
{
    const WindowId id = Open();
    Item("MnViewDescription").trigger();
    EXPECT_TRUE(WindowAt(id).DescriptionVisible);
    EXPECT_TRUE(Item("MnViewDescription").isChecked());
    EXPECT_TRUE(Item("MnOptionsDescr").isEnabled());
    Item("MnViewDescription").trigger();
    EXPECT_FALSE(WindowAt(id).DescriptionVisible);
    EXPECT_FALSE(Item("MnViewDescription").isChecked());
}

TEST_F(DescriptionInWindow, IsWrittenInBlackOnThePaperOnAnyPalette)
{
    const WindowId id = OpenWithDescription("text");
    const QPalette colours = Description(id).palette();
    EXPECT_EQ(colours.color(QPalette::Base), QColor(0xCE, 0xCF, 0xCE));
    EXPECT_EQ(colours.color(QPalette::Text), QColor(Qt::black));
    EXPECT_EQ(Window(id).palette().color(QPalette::Window), QColor(0xCE, 0xCF, 0xCE));
}

TEST_F(DescriptionForm, HasItsControls)
{
    Run([&](FmDescription& form) {
        ExpectControls(form,
            { "Tb", "UpDown", "LbText1", "LbText2", "LbDefault", "BtApply", "BtClose", "BtCancel", "BtDefault",
                "BtHelp" });
        ExpectTabOrder(form);
        ExpectNothingClipped(form);
        EXPECT_EQ(form.windowTitle(), LngStr(10500));
        EXPECT_EQ(form.HelpNumber(), 10501);
        EXPECT_EQ(TextOf(form, "Tb"), "70");
        EXPECT_EQ(TextOf(form, "LbDefault"), LngStr(10506) + " 70");
        EXPECT_TRUE(FindControl(form, "UpDown").hasFocus() || HasFocus(form, "Tb"));
        Click(form, "BtHelp");
        EXPECT_EQ(topics, QList<int>{ 10501 });
        Click(form, "BtCancel");
    });
}

TEST_F(DescriptionForm, ApplyShowsTheWidthAndCancelPutsItBack)
{
    const int height = Window(id).height();
    Run([&](FmDescription& form) {
        Type(form, "Tb", "40");
        Click(form, "BtApply");
        EXPECT_EQ(WindowAt(id).DescriptionColumns, 40);
        EXPECT_EQ(Description(id).width(), DescrWidth(id));
        EXPECT_EQ(DescrLineCount(id), 2);
        EXPECT_NE(Window(id).height(), height + 1);
        Click(form, "BtCancel");
        EXPECT_TRUE(form.IsClosed());
    });
    EXPECT_EQ(WindowAt(id).DescriptionColumns, 70);
    EXPECT_EQ(WindowAt(id).Description, kText);
    EXPECT_EQ(Description(id).toPlainText(), kText);
}

TEST_F(DescriptionForm, CancelAndEscapeRestoreATextThatApplyHasShortened)
{
    QString text;
    for (int line = 1; line <= 10; ++line)
        text += QString(68, QChar(u'a' + line)) + (line < 10 ? "\r\n" : "");
    DescrSetText(id, text);
    for (const bool byEscape : { false, true }) {
        Run([&](FmDescription& form) {
            Type(form, "Tb", "40");
            Click(form, "BtApply");
            EXPECT_LT(WindowAt(id).Description.size(), text.size());
            EXPECT_LE(DescrLineCount(id), 10);
            if (byEscape)
                Key(Qt::Key_Escape);
            else
                Click(form, "BtCancel");
            EXPECT_TRUE(form.IsClosed());
        });
        EXPECT_EQ(WindowAt(id).Description, text);
        EXPECT_EQ(WindowAt(id).DescriptionColumns, 70);
    }
}

TEST_F(DescriptionForm, OkAndEnterKeepTheWidth)
{
    Run([&](FmDescription& form) {
        Type(form, "Tb", "50");
        Click(form, "BtClose");
        EXPECT_TRUE(form.IsClosed());
    });
    EXPECT_EQ(WindowAt(id).DescriptionColumns, 50);
    Run([&](FmDescription& form) {
        Type(form, "Tb", "100");
        Key(Qt::Key_Return);
        EXPECT_TRUE(form.IsClosed());
    });
    EXPECT_EQ(WindowAt(id).DescriptionColumns, 100);
}

TEST_F(DescriptionForm, RefusesWhatIsNoWidth)
{
    Run([&](FmDescription& form) {
        for (const char* typed : { "39", "101", "", "many", "40000", "50.5" }) {
            for (const char* button : { "BtApply", "BtClose" }) {
                Type(form, "Tb", typed);
                Answers().Expect(12749, { "100", "40" }, Ok);
                Click(form, QLatin1String(button));
                EXPECT_FALSE(form.IsClosed()) << typed;
                EXPECT_TRUE(FindControl(form, "UpDown").hasFocus() || HasFocus(form, "Tb"));
                EXPECT_EQ(TextOf(form, "Tb"), QLatin1String(typed));
                EXPECT_EQ(WindowAt(id).DescriptionColumns, 70);
            }
        }
        Click(form, "BtCancel");
    });
}

TEST_F(DescriptionForm, DefaultIsSeventy)
{
    Run([&](FmDescription& form) {
        Type(form, "Tb", "41");
        Click(form, "BtDefault");
        EXPECT_EQ(TextOf(form, "Tb"), "70");
        Click(form, "BtCancel");
    });
}

TEST_F(DescriptionForm, ArrowsStepWithinTheRange)
{
    Run([&](FmDescription& form) {
        Key(Qt::Key_Up);
        EXPECT_EQ(TextOf(form, "Tb"), "71");
        Key(Qt::Key_PageDown);
        EXPECT_EQ(TextOf(form, "Tb"), "61");
        Type(form, "Tb", "100");
        Key(Qt::Key_Up);
        EXPECT_EQ(TextOf(form, "Tb"), "100");
        Type(form, "Tb", "none");
        Key(Qt::Key_Down);
        EXPECT_EQ(TextOf(form, "Tb"), "60") << "from the last value that was one";
        Click(form, "BtCancel");
    });
}

TEST_F(DescriptionForm, OpensByItsCommand)
{
    QTimer::singleShot(0, qApp, [] {
        QWidget* form = QApplication::activeModalWidget();
        ASSERT_NE(form, nullptr);
        EXPECT_EQ(form->objectName(), "FmDescription");
        Click(*form, "BtCancel");
    });
    EXPECT_TRUE(CommandRun(Command::OptionsDescription));
    EXPECT_TRUE(CanAct());
}
