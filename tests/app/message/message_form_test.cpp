#include "app/message/FmMessage.h"
#include "app/state/project.h"
#include "tests/support/forms.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>

namespace tarvik {

namespace {

constexpr int kMessage = 12734;

class MessageForm : public FormTest {
protected:
    MessageForm()
    {
        Program().ProgramTitle = QStringLiteral("Tarvik");
        TheMessage().HelpNumber = kMessage;
        TheMessage().Text = QStringLiteral("The file exists. Replace it?");
    }

    /// Shows a message of this style; `during` gets the form.
    int RunStyle(int style, const std::function<void(FmMessage&)>& during)
    {
        TheMessage().Style = style;
        FmMessage form(TheMessage());
        return RunForm(form, [&form, &during] { during(form); });
    }

    static QStringList VisibleButtons(FmMessage& form)
    {
        QList<QPushButton*> buttons = form.findChildren<QPushButton*>();
        buttons.removeIf([](const QPushButton* button) { return !button->isVisible(); });
        std::sort(
            buttons.begin(), buttons.end(), [](const QPushButton* a, const QPushButton* b) { return a->x() < b->x(); });
        QStringList names;
        for (const QPushButton* button : buttons)
            names.append(button->objectName());
        return names;
    }
};

struct ButtonSet {
    int Style;
    QStringList Names;
};

void PrintTo(const ButtonSet& set, std::ostream* out)
{
    *out << "style " << set.Style;
}

class MessageFormButtons : public MessageForm, public testing::WithParamInterface<ButtonSet> { };

} // namespace

TEST_P(MessageFormButtons, AreThoseOfTheStyleFromLeftToRight)
{
    RunStyle(GetParam().Style | static_cast<int>(MsgIcon::Question), [](FmMessage& form) {
        EXPECT_EQ(VisibleButtons(form), GetParam().Names);
        ExpectNothingClipped(form);
        ExpectTabOrder(form);
        DialogEnd(form, 0);
    });
}

INSTANTIATE_TEST_SUITE_P(EachSet, MessageFormButtons,
    testing::Values(ButtonSet{ 0, { "BtOk" } }, ButtonSet{ 1, { "BtOk", "BtCancel" } },
        ButtonSet{ 2, { "BtYes", "BtYesAll", "BtNo", "BtNoAll", "BtCancel" } },
        ButtonSet{ 3, { "BtYes", "BtNo", "BtCancel" } }, ButtonSet{ 4, { "BtYes", "BtNo" } },
        ButtonSet{ 5, { "BtOk" } }, ButtonSet{ 6, { "BtYes", "BtNo", "BtNoAll", "BtCancel" } }));

namespace {

struct ButtonAnswer {
    const char* Name;
    int Style;
    int Result; ///< also the form's status
    bool YesAll;
    bool NoAll;
};

void PrintTo(const ButtonAnswer& answer, std::ostream* out)
{
    *out << answer.Name;
}

class MessageFormAnswers : public MessageForm, public testing::WithParamInterface<ButtonAnswer> { };

} // namespace

TEST_P(MessageFormAnswers, AreStoredInTheRequest)
{
    const ButtonAnswer& answer = GetParam();
    const int status = RunStyle(answer.Style, [&](FmMessage& form) { Click(form, QLatin1String(answer.Name)); });
    EXPECT_EQ(static_cast<int>(TheMessage().Result), answer.Result);
    EXPECT_EQ(TheMessage().YesAll, answer.YesAll);
    EXPECT_EQ(TheMessage().NoAll, answer.NoAll);
    EXPECT_EQ(status, answer.Result);
    EXPECT_FALSE(TheMessage().Showing);
}

INSTANTIATE_TEST_SUITE_P(EachButton, MessageFormAnswers,
    testing::Values(ButtonAnswer{ "BtOk", 48, 1, false, false }, ButtonAnswer{ "BtCancel", 35, 2, false, false },
        ButtonAnswer{ "BtYes", 36, 6, false, false }, ButtonAnswer{ "BtNo", 36, 7, false, false },
        ButtonAnswer{ "BtYesAll", 34, 6, true, false }, ButtonAnswer{ "BtNoAll", 34, 7, false, true }));

TEST_F(MessageForm, HasEveryControlUnderItsName)
{
    FmMessage form(TheMessage());
    ExpectControls(form, { "ImQuest", "ImExcl", "LbText", "BtOk", "BtYes", "BtYesAll", "BtNo", "BtNoAll", "BtCancel" });
    EXPECT_EQ(form.objectName(), "FmMessage");
}

TEST_F(MessageForm, ShowsTitleTextAndHelpNumbers)
{
    RunStyle(36, [](FmMessage& form) {
        EXPECT_EQ(form.windowTitle(), "Tarvik");
        EXPECT_EQ(TextOf(form, "LbText"), "The file exists. Replace it?");
        EXPECT_EQ(form.HelpNumber(), kMessage);
        EXPECT_EQ(HelpNumberOf(&FindControl(form, "LbText")), kMessage);
        EXPECT_EQ(HelpNumberOf(&FindControl(form, "BtNo")), kMessage);
        EXPECT_EQ(HelpNumberOf(&FindControl(form, "ImQuest")), 13108);
        EXPECT_EQ(HelpNumberOf(&FindControl(form, "ImExcl")), 13109);
        EXPECT_TRUE(TheMessage().Showing);
        Click(form, "BtNo");
    });
}

TEST_F(MessageForm, ShowsTheQuestionIconForStyle32Only)
{
    RunStyle(36, [](FmMessage& form) {
        EXPECT_TRUE(FindControl(form, "ImQuest").isVisible());
        EXPECT_FALSE(FindControl(form, "ImExcl").isVisible());
        Click(form, "BtNo");
    });
    RunStyle(16 + 4, [](FmMessage& form) {
        EXPECT_FALSE(FindControl(form, "ImQuest").isVisible());
        EXPECT_TRUE(FindControl(form, "ImExcl").isVisible());
        Click(form, "BtNo");
    });
}

TEST_F(MessageForm, GivesNoTheFocusWhenAskedTo)
{
    TheMessage().DefaultToNo = true;
    RunStyle(36, [](FmMessage& form) {
        EXPECT_TRUE(HasFocus(form, "BtNo"));
        EXPECT_FALSE(TheMessage().DefaultToNo);
        Key(Qt::Key_Return);
    });
    EXPECT_EQ(TheMessage().Result, No);
}

TEST_F(MessageForm, GivesTheFirstButtonTheFocusOtherwise)
{
    RunStyle(36, [](FmMessage& form) {
        EXPECT_TRUE(HasFocus(form, "BtYes"));
        Click(form, "BtNo");
    });
}

TEST_F(MessageForm, IgnoresDefaultToNoWithoutANoButton)
{
    TheMessage().DefaultToNo = true;
    RunStyle(48, [](FmMessage& form) {
        EXPECT_TRUE(HasFocus(form, "BtOk"));
        EXPECT_FALSE(TheMessage().DefaultToNo);
        Click(form, "BtOk");
    });
}

TEST_F(MessageForm, EndsWithCancelWhenACharacterIsTypedOnOk)
{
    const int status = RunStyle(48, [](FmMessage&) { Key(Qt::Key_X); });
    EXPECT_EQ(TheMessage().Result, Cancel);
    EXPECT_EQ(status, 2);
}

TEST_F(MessageForm, EndsWithCancelWhenABlankIsTypedOnOk)
{
    RunStyle(1, [](FmMessage& form) {
        ASSERT_TRUE(HasFocus(form, "BtOk"));
        Key(Qt::Key_Space);
    });
    EXPECT_EQ(TheMessage().Result, Cancel);
}

TEST_F(MessageForm, EndsWithOkOnEnterBecauseTheButtonTakesIt)
{
    RunStyle(48, [](FmMessage&) { Key(Qt::Key_Return); });
    EXPECT_EQ(TheMessage().Result, Ok);
}

/// The press has shown the message.
TEST_F(MessageForm, StaysWhileEnterIsHeld)
{
    for (const int style : { 48, 36 }) {
        RunStyle(style, [](FmMessage& form) {
            for (int repeat = 0; repeat < 3; ++repeat) {
                RepeatKey(Qt::Key_Return);
                RepeatKey(Qt::Key_Enter);
            }
            KeyUp(Qt::Key_Return);
            EXPECT_FALSE(form.IsClosed());
            Key(Qt::Key_Return);
            EXPECT_TRUE(form.IsClosed());
        });
    }
}

TEST_F(MessageForm, StaysWhenACharacterIsTypedOnAnotherButton)
{
    RunStyle(36, [](FmMessage& form) {
        Key(Qt::Key_X);
        EXPECT_FALSE(form.IsClosed());
        Click(form, "BtYes");
    });
    EXPECT_EQ(TheMessage().Result, Yes);
}

TEST_F(MessageForm, StaysWhenACommandKeyIsPressedOnOk)
{
    RunStyle(48, [](FmMessage& form) {
        Key(Qt::Key_C, Qt::ControlModifier);
        EXPECT_FALSE(form.IsClosed());
        Click(form, "BtOk");
    });
}

TEST_F(MessageForm, LeavesTheResultEmptyOnEscape)
{
    const int status = RunStyle(36, [](FmMessage&) { Key(Qt::Key_Escape); });
    EXPECT_EQ(status, 1);
    EXPECT_EQ(TheMessage().Result, MsgResult::None);
    EXPECT_FALSE(TheMessage().Showing);
}

TEST_F(MessageForm, RefusesTheCloseBoxUnlessTheStyleIsPlainOk)
{
    for (const int style : { 1, 2, 3, 4, 5, 6 }) {
        RunStyle(style, [](FmMessage& form) {
            form.close();
            EXPECT_FALSE(form.IsClosed());
            EXPECT_FALSE(form.windowFlags().testFlag(Qt::WindowCloseButtonHint));
            DialogEnd(form, 0);
        });
    }
    const int status = RunStyle(0, [](FmMessage& form) {
        EXPECT_TRUE(form.windowFlags().testFlag(Qt::WindowCloseButtonHint));
        form.close();
    });
    EXPECT_EQ(status, 1);
    EXPECT_EQ(TheMessage().Result, MsgResult::None);
}

TEST_F(MessageForm, IsOnTheDialogStackWhileItShows)
{
    RunStyle(48, [](FmMessage& form) {
        EXPECT_EQ(DialogTop(), &form);
        Click(form, "BtOk");
    });
    EXPECT_FALSE(DialogIsOpen());
}

TEST_F(MessageForm, CentresTheNarrowerOfTextAndButtons)
{
    TheMessage().Text = QStringLiteral("No.");
    RunStyle(34, [](FmMessage& form) {
        const QRect icon = FindControl(form, "ImQuest").geometry();
        const QRect text = FindControl(form, "LbText").geometry();
        const int leftOver = icon.left();
        const int rightOver = form.width() - 1 - text.right();
        EXPECT_NEAR(leftOver, rightOver, 2);
        int buttons = 2 * kMsgGapPx + 4 * kMsgGapPx;
        for (const QString& name : VisibleButtons(form))
            buttons += FindControl(form, name).width();
        EXPECT_EQ(form.width(), buttons);
        DialogEnd(form, 0);
    });
}

TEST_F(MessageForm, WrapsALongTextAndGrowsDownwards)
{
    TheMessage().Text = QStringLiteral("A frequency list that is far too long for a line. ").repeated(60);
    RunStyle(36, [](FmMessage& form) {
        const int screenWidth = form.screen()->size().width();
        EXPECT_LE(FindControl(form, "LbText").width(), MsgWrapWidthPx(screenWidth));
        EXPECT_LE(form.width(), screenWidth);
        EXPECT_GT(FindControl(form, "LbText").height(), 3 * form.fontMetrics().height());
        ExpectNothingClipped(form);
        DialogEnd(form, 0);
    });
}

TEST_F(MessageForm, WrapsAPathWithoutBlanks)
{
    TheMessage().Text = QStringLiteral("/home/user/a-very-long-folder-name").repeated(30);
    RunStyle(36, [](FmMessage& form) {
        EXPECT_LE(form.width(), form.screen()->availableGeometry().width());
        ExpectNothingClipped(form);
        DialogEnd(form, 0);
    });
}

TEST_F(MessageForm, KeepsItsButtonsOnTheScreenUnderAVeryLongText)
{
    TheMessage().Text = QStringLiteral("a\n").repeated(300);
    RunStyle(36, [](FmMessage& form) {
        EXPECT_LE(form.height(), form.screen()->availableGeometry().height());
        EXPECT_TRUE(TextOf(form, "LbText").endsWith(QChar(0x2026)));
        EXPECT_EQ(FindControl(form, "LbText").accessibleName(), TheMessage().Text);
        DialogEnd(form, 0);
    });
}

TEST_F(MessageForm, ShowsMarkupAsItIs)
{
    TheMessage().Text = QStringLiteral("<b>list</b> & more");
    RunStyle(48, [](FmMessage& form) {
        EXPECT_EQ(Find<QLabel>(form, "LbText").textFormat(), Qt::PlainText);
        EXPECT_EQ(TextOf(form, "LbText"), "<b>list</b> & more");
        Click(form, "BtOk");
    });
}

TEST_F(MessageForm, WaitsWhileAnotherMessageShows)
{
    BindMessageForm();
    QStringList order;
    const auto answer = [&order] {
        auto* form = qobject_cast<FmMessage*>(QApplication::activeModalWidget());
        ASSERT_NE(form, nullptr);
        order.append(TextOf(*form, "LbText"));
        Click(*form, "BtOk");
    };
    QTimer::singleShot(0, qApp, [&] {
        QTimer::singleShot(0, qApp, [&] {
            answer();
            QTimer::singleShot(0, qApp, answer);
        });
        MsgRaw(48, QStringLiteral("second"), 2); // raised while the first one shows
        order.append(QStringLiteral("second answered"));
    });
    MsgRaw(48, QStringLiteral("first"), 1);
    EXPECT_EQ(order, (QStringList{ "first", "second", "second answered" }));
}

TEST_F(MessageForm, AnswersAWrapperWithTheButtonPressed)
{
    BindMessageForm();
    QTimer::singleShot(0, qApp, [] {
        auto* form = qobject_cast<FmMessage*>(QApplication::activeModalWidget());
        ASSERT_NE(form, nullptr);
        EXPECT_EQ(form->HelpNumber(), kMessage);
        Click(*form, "BtYesAll");
    });
    EXPECT_EQ(MsgAllChoices1(TextNumber<1>(kMessage), "a.tvm"), Yes);
    EXPECT_TRUE(TheMessage().YesAll);
}

TEST(MessageFormText, IsElidedOnlyIfTooLong)
{
    const QFontMetrics metrics{ QFont() };
    const int threeLines = metrics.size(0, "1\n2\n3").height();
    EXPECT_EQ(MsgElidedText({ "1", "2", "3" }, metrics, 500, threeLines), "1\n2\n3");
    const QString cut = MsgElidedText({ "1", "2", "3", "4" }, metrics, 500, threeLines);
    EXPECT_EQ(cut, QString("1\n2\n3") + QChar(0x2026));
    EXPECT_LE(metrics.size(0, cut).height(), threeLines);
}

TEST(MessageFormText, EllipsisFitsTheLineThatItEnds)
{
    const QFontMetrics metrics{ QFont() };
    const QString full(20, u'm');
    const int width = metrics.horizontalAdvance(full);
    const QString cut = MsgElidedText({ full, full }, metrics, width, metrics.height());
    EXPECT_TRUE(cut.endsWith(QChar(0x2026)));
    EXPECT_TRUE(cut.startsWith("mmm"));
    EXPECT_LE(metrics.horizontalAdvance(cut), width);
}

TEST(MessageFormText, BreaksBetweenWordsWhereItCan)
{
    const QFont font;
    const int width = qCeil(QFontMetricsF(font).horizontalAdvance("two words"));
    EXPECT_EQ(MsgLines("two words and more", font, width), QStringList({ "two words", "and more" }));
}

TEST(MessageFormText, BreaksWordsThatAreTooWide)
{
    const QFont font;
    const int width = QFontMetrics(font).horizontalAdvance(QString(10, u'm'));
    const QStringList lines = MsgLines(QString(25, u'm'), font, width);
    EXPECT_EQ(lines.size(), 3);
    EXPECT_EQ(lines.join(QString()), QString(25, u'm'));
}

TEST(MessageFormText, KeepsLineEndsAndEmptyLines)
{
    EXPECT_EQ(MsgLines("one\n\n  two\n", QFont(), 500), QStringList({ "one", "", "  two", "" }));
}

TEST(MessageFormText, DoesNotSplitCharacters)
{
    const QString word = QString::fromUcs4(U"\U0001F4FB").repeated(40);
    const QStringList lines = MsgLines(word, QFont(), 1);
    EXPECT_EQ(lines.join(QString()), word);
    EXPECT_EQ(lines.size(), 40);
}

TEST(MessageFormText, LeavesSpaceForMarginsAndButtons)
{
    EXPECT_EQ(MsgWrapWidthPx(1920), 1646);
    EXPECT_EQ(MsgWrapWidthPx(300), 200);
    EXPECT_EQ(MsgTextHeightPx(1080), 920);
    EXPECT_GT(MsgWrapWidthPx(100), 0);
    EXPECT_GT(MsgTextHeightPx(100), 0);
}

TEST(MessageFormText, ButtonRowHasGapsAndMargins)
{
    EXPECT_EQ(MsgRowWidthPx({}), 32);
    EXPECT_EQ(MsgRowWidthPx({ 80 }), 80 + 32);
    EXPECT_EQ(MsgRowWidthPx({ 80, 90, 100 }), 270 + 2 * 16 + 32);
}

TEST_F(MessageForm, ClosesWithTheProgramUnlessItAsks)
{
    for (int buttons = 0; buttons <= 6; ++buttons) {
        RunStyle(buttons, [&](FmMessage& form) {
            EXPECT_EQ(form.CanCloseUnasked(), VisibleButtons(form).size() == 1) << buttons;
            form.Unload();
            EXPECT_TRUE(form.IsClosed());
        });
    }
}

} // namespace tarvik
