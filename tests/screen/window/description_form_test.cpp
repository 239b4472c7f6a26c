// The description in its window: typing, wrapping, undo, and saving as displayed.
#include "app/text/lang.h"
#include "screen/document/compose.h"
#include "tests/screen/window/description_form_fixture.h"

#include <QClipboard>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QRandomGenerator>
#include <QScrollBar>

namespace tarvik {

namespace {

class DescriptionInWindow : public DescriptionForms {
protected:
    /// Texts with unusual line breaks, heights and directions.
    static QStringList TextsOfAllKinds()
    {
        const QString narrow = QStringLiteral("station 7");
        const QString lent = QStringLiteral("\u0474\u02f0 from other fonts\r\nabove \u0474\u02f0\r\n\u0474\u02f0");
        const QString unbroken = QString(69, u'x') + u'\u00a0' + QString(69, u'y');
        return { narrow, lent, QStringLiteral("wide \u6a5f\u5668 letters\r\nand \u6a5f\r\nbelow"), unbroken,
            QStringLiteral(
                "\u05ea\u05d7\u05e0\u05d4 7\r\nleft \u05ea\u05d7\u05e0\u05d4 right\r\n\u0645\u062d\u0637\u0629"),
            u'E' + QStringLiteral("\u0302").repeated(9) + QStringLiteral("a\u0308o\u0323\u0302\u0301 marks\r\nn\u0303"),
            QString(68, u'x') + QStringLiteral("soft\u00adly broken"), QStringLiteral("antenna \U0001f4e1 up\r\nbelow"),
            QStringLiteral("a\u2028b\u2028\r\nc\u200bd\u2060e\u200d"),
            QStringLiteral("   indented\r\n\r\n      more ") + QString(90, u' ') + u'z',
            QStringLiteral("right \u202eto left\u202c again\r\nlast"),
            QStringLiteral("object \ufffc, and \ufdd0none") };
    }

    void ExpectComposedAsShown(WindowId id)
    {
        const DescriptionBox& box = Description(id);
        const QString text = WindowAt(id).Description;
        EXPECT_EQ(Shown(box), DescrLines(text, id)) << text.toStdString();
        EXPECT_EQ(box.verticalScrollBar()->maximum(), 0) << text.toStdString();
        if (box.devicePixelRatioF() != 1)
            return;
        const QImage shown = Window(id).grab().toImage().convertToFormat(QImage::Format_RGB32);
        EXPECT_TRUE(shown == ComposeWindow(id)) << text.toStdString();
    }

    /// Without focus the block is centred and overlaps on both sides; in the composed picture it starts at the edge.
    void ExpectNarrow(WindowId id)
    {
        DescriptionBox& box = Description(id);
        EXPECT_EQ(box.x(), DescrLayout(id, Window(id).size()).Text.x());
        EXPECT_LT(box.x(), 0);
        if (box.devicePixelRatioF() != 1)
            return;
        const QImage shown = box.grab().toImage().convertToFormat(QImage::Format_RGB32);
        const QImage composed = ComposeWindow(id).copy(QRect(0, box.y(), Window(id).width(), box.height()));
        EXPECT_TRUE(shown.copy(0, 0, Window(id).width(), box.height()) == composed);
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

} // namespace

TEST_F(DescriptionInWindow, IsCentredBelowPicture)
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

TEST_F(DescriptionInWindow, TypedTextIsStoredAndWindowGrows)
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

TEST_F(DescriptionInWindow, EleventhLineIsUndoneAtOnce)
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

TEST_F(DescriptionInWindow, BoxAndSavedPictureWrapAlike)
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

TEST_F(DescriptionInWindow, SavedPictureMatchesDisplay)
{
    const WindowId id = OpenWithDescription();
    for (const QString& text : TextsOfAllKinds()) {
        DescrSetText(id, text);
        Graph(id).setFocus(); // hides the caret
        QCoreApplication::processEvents();
        ExpectComposedAsShown(id);
    }
}

TEST_F(DescriptionInWindow, PictureSavedFromNarrowWindowShowsLineStarts)
{
    const WindowId id =
        OpenWithDescription(QStringLiteral("This line begins at the edge of the picture, and ends beyond"));
    for (const int width : { 480, 400, 250 }) {
        Window(id).SetClientSize({ width, Window(id).height() });
        Graph(id).setFocus();
        QCoreApplication::processEvents();
        EXPECT_EQ(Window(id).width(), width);
        ExpectNarrow(id);
    }
}

TEST_F(DescriptionInWindow, NarrowWindowFollowsCaret)
{
    const WindowId id = OpenWithDescription();
    Window(id).SetClientSize({ 250, Window(id).height() });
    DescriptionBox& box = Description(id);
    EXPECT_EQ(box.x(), 0) << "the first letter will be at the edge";
    QTest::keyClicks(&box, "ab");
    EXPECT_EQ(box.x(), 0);
    QTest::keyClicks(&box, QString(58, u'c'));
    EXPECT_EQ(box.x(), 250 - box.cursorRect().right() - 1);
    const int scrolled = box.x();
    Key(Qt::Key_Left);
    EXPECT_EQ(box.x(), scrolled) << "it is seen where it is";
    Key(Qt::Key_Home);
    EXPECT_EQ(box.x(), 0);
    Graph(id).setFocus();
    EXPECT_EQ(box.x(), (250 - box.width()) / 2);
    box.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(box.x(), 0);
    Graph(id).setFocus();
    box.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(box.x(), (250 - box.width()) / 2) << "what is clicked stays under the pointer";
    Window(id).SetClientSize({ 800, Window(id).height() });
    EXPECT_EQ(box.x(), (800 - box.width()) / 2);
}

TEST_F(DescriptionInWindow, FallbackFontsKeepLineHeight)
{
    const WindowId id = OpenWithDescription();
    const int height = Window(id).height();
    DescrSetText(id, QStringLiteral("\u0474\r\n").repeated(9) + u'x');
    EXPECT_EQ(Window(id).height(), height + 9 * DescrLineHeight(id));
    Description(id).moveCursor(QTextCursor::Start);
    EXPECT_EQ(Description(id).verticalScrollBar()->value(), 0);
    Description(id).moveCursor(QTextCursor::End);
    EXPECT_EQ(Description(id).verticalScrollBar()->value(), 0);
    EXPECT_LE(Description(id).cursorRect().bottom(), Description(id).height());
}

TEST_F(DescriptionInWindow, NonBreakingSpaceIsKeptAndDoesNotWrap)
{
    const WindowId id = OpenWithDescription(QString(60, u'x') + u' ');
    Description(id).moveCursor(QTextCursor::End);
    QTest::keyClicks(&Description(id), " 100");
    QTest::sendKeyEvent(QTest::Click, &Description(id), Qt::Key_nobreakspace, QChar(0xA0), Qt::NoModifier);
    QTest::keyClicks(&Description(id), "MHz and");
    EXPECT_TRUE(WindowAt(id).Description.contains(QChar(0xA0)));
    EXPECT_EQ(Shown(Description(id)), DescrLines(WindowAt(id).Description, id));
}

TEST_F(DescriptionInWindow, AnyLineEndStartsNewLine)
{
    const WindowId id = OpenWithDescription("a");
    Description(id).moveCursor(QTextCursor::End);
    Key(Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClicks(&Description(id), "b");
    EXPECT_EQ(WindowAt(id).Description, "a\r\nb");
    EXPECT_EQ(Description(id).blockCount(), 2);
}

TEST_F(DescriptionInWindow, InputMethodTextBecomesPlainAndCaretStays)
{
    const WindowId id = OpenWithDescription("[]");
    DescriptionBox& box = Description(id);
    box.moveCursor(QTextCursor::Start);
    box.moveCursor(QTextCursor::Right);
    QInputMethodEvent unfinished(QStringLiteral("ka"), {});
    QCoreApplication::sendEvent(&box, &unfinished);
    EXPECT_EQ(WindowAt(id).Description, "[]") << "what is not committed yet is not part of it";
    QInputMethodEvent committed;
    committed.setCommitString(QStringLiteral("\u304b\t\u2028\x01"));
    QCoreApplication::sendEvent(&box, &committed);
    QTest::keyClicks(&box, "x");
    EXPECT_EQ(WindowAt(id).Description, QStringLiteral("[\u304b \r\n x]"));
    EXPECT_EQ(box.Text(), QStringLiteral("[\u304b \n x]"));
}

TEST_F(DescriptionInWindow, TooLongPasteIsUndoneCompletely)
{
    const WindowId id = OpenWithDescription("kept");
    const QString line = QStringLiteral("one of many lines\n");
    for (const QString& text : { line.repeated(10000), QString(10000000, u'x') }) {
        QGuiApplication::clipboard()->setText(text);
        Description(id).paste();
        EXPECT_EQ(WindowAt(id).Description, "kept");
        EXPECT_EQ(Description(id).Text(), "kept");
        EXPECT_EQ(Window(id).height(), 442 + DescrLineHeight(id) + 1);
    }
}

TEST_F(DescriptionInWindow, PasteKeepsTrailingBlank)
{
    const WindowId id = OpenWithDescription("south");
    Description(id).moveCursor(QTextCursor::Start);
    QGuiApplication::clipboard()->setText(QStringLiteral("mast "));
    Description(id).paste();
    EXPECT_EQ(WindowAt(id).Description, "mast south");
}

TEST_F(DescriptionInWindow, UndoneInputKeepsUndoHistory)
{
    const WindowId id = OpenWithDescription();
    DescriptionBox& box = Description(id);
    QGuiApplication::clipboard()->setText("first");
    box.paste();
    QGuiApplication::clipboard()->setText(QStringLiteral("\n").repeated(10));
    box.moveCursor(QTextCursor::Start);
    box.paste();
    EXPECT_EQ(box.Text(), "first");
    EXPECT_EQ(box.textCursor().position(), 5) << "the caret is at the end";
    for (int step = 0; step < 3; ++step)
        box.undo();
    EXPECT_EQ(WindowAt(id).Description, "");
    for (int step = 0; step < 3; ++step)
        box.redo();
    EXPECT_EQ(WindowAt(id).Description, "first");
    EXPECT_EQ(box.Text(), "first");
}

TEST_F(DescriptionInWindow, UndoDoesNotRestoreTextTooWide)
{
    const WindowId id = OpenWithDescription();
    DescriptionBox& box = Description(id);
    QGuiApplication::clipboard()->setText(QString(690, u'x'));
    box.paste();
    box.selectAll();
    QTest::keyClicks(&box, "short");
    WindowAt(id).DescriptionColumns = 40;
    ApplySize(id);
    EXPECT_FALSE(box.document()->isUndoAvailable());
    box.undo();
    EXPECT_EQ(box.Text(), "short");
    QTest::keyClicks(&box, "er");
    box.undo();
    EXPECT_EQ(WindowAt(id).Description, "short");
}

TEST_F(DescriptionInWindow, DraggingSelectionBeyondEdgeDoesNotScroll)
{
    const WindowId id = OpenWithDescription("one\r\ntwo\r\nthree");
    DescriptionBox& box = Description(id);
    EXPECT_EQ(box.verticalScrollBar()->maximum(), 0);
    QTest::mousePress(box.viewport(), Qt::LeftButton, {}, QPoint(2, 2));
    QTest::mouseMove(box.viewport(), QPoint(60, box.height() + 30));
    box.verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(box.cursorForPosition({ 0, 0 }).position(), 0);
    QTest::mouseRelease(box.viewport(), Qt::LeftButton, {}, QPoint(60, box.height() + 30));
}

TEST_F(DescriptionInWindow, NoLineIsHiddenBelowEdge)
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

TEST_F(DescriptionInWindow, TabMovesFocusOut)
{
    const WindowId id = OpenWithDescription("text");
    Key(Qt::Key_Tab);
    EXPECT_FALSE(Description(id).hasFocus());
    EXPECT_EQ(WindowAt(id).Description, "text");
}

TEST_F(DescriptionInWindow, CopyKeyCopiesSelectionOrElsePicture)
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

TEST_F(DescriptionInWindow, ShowingInMaximisedWindowClearsIt)
{
    const WindowId id = OpenWithDescription("text");
    DescrToggle(id);
    Child(id).showMaximized();
    DescrToggle(id);
    EXPECT_EQ(WindowAt(id).Description, "");
    EXPECT_EQ(Description(id).toPlainText(), "");
}

TEST_F(DescriptionInWindow, CommandTogglesItAndItsMenuItem)
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

TEST_F(DescriptionInWindow, CommandMovesFocusIntoItAndBack)
{
    const WindowId id = Open();
    Item("MnViewDescription").trigger();
    EXPECT_EQ(frame->focusWidget(), &Description(id));
    QTest::keyClicks(&Description(id), "typed at once");
    EXPECT_EQ(WindowAt(id).Description, "typed at once");
    Item("MnViewDescription").trigger();
    EXPECT_EQ(frame->focusWidget(), &Graph(id));
    Item("MnViewDescription").trigger();
    Child(id).showMaximized();
    EXPECT_EQ(frame->focusWidget(), &Graph(id)) << "it is not seen there";
}

TEST_F(DescriptionInWindow, TabMovesFocusFromPictureToIt)
{
    const WindowId id = OpenWithDescription();
    Graph(id).setFocus();
    Key(Qt::Key_Tab);
    EXPECT_EQ(frame->focusWidget(), &Description(id));
}

TEST_F(DescriptionInWindow, IsBlackOnPaperWithAnyPalette)
{
    const WindowId id = OpenWithDescription("text");
    const QPalette colours = Description(id).palette();
    EXPECT_EQ(colours.color(QPalette::Base), QColor(0xCE, 0xCF, 0xCE));
    EXPECT_EQ(colours.color(QPalette::Text), QColor(Qt::black));
    EXPECT_EQ(Window(id).palette().color(QPalette::Window), QColor(0xCE, 0xCF, 0xCE));
}

TEST_F(DescriptionInWindow, HidingKeepsUndoHistory)
{
    const WindowId id = OpenWithDescription();
    QTest::keyClicks(&Description(id), "south");
    DescrToggle(id);
    Child(id).showMaximized();
    Child(id).showNormal();
    DescrToggle(id);
    Description(id).undo();
    EXPECT_EQ(WindowAt(id).Description, "");
}

TEST_F(DescriptionInWindow, StaysVisibleBelowPictureHigherThanArea)
{
    const WindowId id = Open(WindowSubtype::File, Picture(QSize(300, 1400)));
    const QWidget& seen = *frame->ChildArea()->viewport();
    const auto lowerEdge = [&] { return Description(id).mapTo(&seen, QPoint(0, Description(id).height())).y(); };
    Item("MnViewDescription").trigger();
    EXPECT_EQ(lowerEdge(), seen.height());
    QTest::keyClick(&Description(id), Qt::Key_Return);
    QTest::keyClick(&Description(id), Qt::Key_Return);
    EXPECT_EQ(lowerEdge(), seen.height());
    frame->ChildArea()->verticalScrollBar()->setValue(0);
    EXPECT_GT(lowerEdge(), seen.height());
    QTest::keyClicks(&Description(id), "x");
    EXPECT_EQ(lowerEdge(), seen.height());
}

} // namespace tarvik
