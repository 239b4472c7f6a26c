// What every form has: controls adjusted by the language, their hints, and Escape.
#include "app/state/project.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "closed/loader.h"
#include "tests/support/fakeDialog.h"
#include "tests/support/fakeFrame.h"
#include "tests/support/forms.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QVBoxLayout>
#include <QWhatsThis>

namespace tarvik {

namespace {

/// A form whose layout leaves its size free.
class SizedForm final : public FormBase {
public:
    SizedForm()
        : FormBase("SizedForm")
    {
        LngSetForm(this, TextNumber<0>(11700));
        auto* box = new QPlainTextEdit;
        box->setMinimumSize(400, 200);
        (new QVBoxLayout(this))->addWidget(box);
    }
    bool OnLoad() override
    {
        DialogPush(*this, false);
        return true;
    }
};

class FormControls : public FormTest {
protected:
    /// The language module adjusts every control by these numbers, of which `count` exist.
    static void Adjust(int16_t count)
    {
        static int16_t existing = 0;
        existing = count;
        TvLng().LngGetCtrlSize = [](int32_t, int32_t* left, int32_t* top, int32_t* width, int32_t* height) {
            *left = 150;
            *top = 300;
            *width = 450;
            *height = 600;
            return existing;
        };
    }
};

} // namespace

TEST_F(FormControls, FormAsksOnceWhetherItMayClose)
{
    class AskingForm final : public FormBase {
    public:
        AskingForm()
            : FormBase("AskingForm")
        {
        }
        bool OnLoad() override
        {
            DialogPush(*this, false);
            return true;
        }
        bool QueryUnload() override
        {
            if (++Questions < 5)
                Unload(); // as an end signal during the question does
            return true;
        }
        int Questions = 0;
    };
    AskingForm form;
    ShowForm(form);
    form.Unload();
    EXPECT_EQ(form.Questions, 1);
    EXPECT_TRUE(form.IsClosed());
}

TEST_F(FormControls, WheelOverABoxWithoutTheFocusIsLeftToItsParent)
{
    QWidget form;
    QComboBox* box = NewCombo(&form, "CbBox", HelpId::About);
    box->addItems({ "one", "two" });
    QWheelEvent wheel(
        QPointF(5, 5), QPointF(5, 5), {}, { 0, -120 }, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(box, &wheel);
    EXPECT_FALSE(wheel.isAccepted());
    EXPECT_EQ(box->currentIndex(), 0);
}

TEST_F(FormControls, FormOpensInTheMiddleOfTheScreen)
{
    SizedForm form;
    form.move(5, 5);
    ShowForm(form);
    const QPoint off = QRect(form.pos(), form.size()).center() - form.screen()->availableGeometry().center();
    EXPECT_LE(off.manhattanLength(), 2);
}

TEST_F(FormControls, EscapeInAnotherDialogDoesNotCloseTheFormBelowOnItsRelease)
{
    QWidget other; // has the keyboard, as a file dialog above the form
    FakeDialog form;
    DialogPush(form, false);
    QTest::keyPress(&other, Qt::Key_Escape);
    form.Active = true;
    QTest::keyRelease(&other, Qt::Key_Escape);
    EXPECT_FALSE(form.WasUnloaded);
    QTest::keyPress(&other, Qt::Key_Escape);
    EXPECT_TRUE(form.WasUnloaded);
}

TEST_F(FormControls, ReleasesOfAHeldKeyAreNotReleases)
{
    QWidget other;
    QTest::keyPress(&other, Qt::Key_Shift);
    QKeyEvent repeated(QEvent::KeyRelease, Qt::Key_Down, Qt::ShiftModifier, {}, true);
    QApplication::sendEvent(&other, &repeated);
    EXPECT_TRUE(Program().ShiftDown);
    QTest::keyRelease(&other, Qt::Key_Shift);
    EXPECT_FALSE(Program().ShiftDown);
}

TEST_F(FormControls, PointerThatLeavesANestedControlIsOverTheOuterOne)
{
    FakeFrame frame;
    frame.Active = true;
    QWidget form;
    QWidget outer(&form);
    QWidget inner(&outer);
    SetControlHint(&outer, TextNumber<0>(13601));
    SetControlHint(&inner, TextNumber<0>(13602));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&inner, &leave);
    EXPECT_EQ(frame.Status, LngStr(13601));
    QApplication::sendEvent(&outer, &leave);
    EXPECT_EQ(frame.Status, "");
}

TEST_F(FormControls, ThreeAdjustmentsMoveOnlyAComboBox)
{
    Adjust(3);
    QWidget form;
    QPushButton button(&form);
    button.setGeometry(10, 10, 80, 30);
    LngSetCtrl(&button, TextNumber<0>(10004));
    EXPECT_EQ(button.geometry(), QRect(10, 10, 80, 30));
    QComboBox combo(&form);
    combo.setGeometry(10, 10, 80, 30);
    LngSetCtrl(&combo, TextNumber<0>(10004));
    EXPECT_EQ(combo.geometry(), QRect(20, 30, 110, 30));
    EXPECT_EQ(combo.currentText(), "");
}

TEST_F(FormControls, FourAdjustmentsMoveAndSizeAControl)
{
    Adjust(4);
    QWidget form;
    QPushButton button(&form);
    button.setGeometry(10, 10, 80, 30);
    LngSetCtrl(&button, TextNumber<0>(10004));
    EXPECT_EQ(button.geometry(), QRect(20, 30, 110, 70));
    EXPECT_EQ(button.text(), LngStr(10004));
}

TEST_F(FormControls, FourAdjustmentsMakeAFormLargerThanItsLayout)
{
    SizedForm plain;
    ShowForm(plain);
    const QSize before = plain.size();
    DialogEnd(plain, 0);
    Adjust(4);
    SizedForm larger;
    ShowForm(larger);
    EXPECT_EQ(larger.windowTitle(), LngStr(11700));
    EXPECT_EQ(larger.size(), before + QSize(PixelsFromTwips(&larger, 450), PixelsFromTwips(&larger, 600)));
    DialogEnd(larger, 0);
    Adjust(3);
    SizedForm same;
    ShowForm(same);
    EXPECT_EQ(same.size(), before);
    DialogEnd(same, 0);
}

TEST_F(FormControls, BusyPointerLastsAsLongAsTheOutermostGuard)
{
    SizedForm form;
    const auto isBusy = [&form] { return form.cursor().shape() == Qt::WaitCursor; };
    {
        const BusyPointer outer(form);
        EXPECT_TRUE(isBusy());
        {
            const BusyPointer inner(form);
            EXPECT_TRUE(isBusy());
        }
        EXPECT_TRUE(isBusy());
    }
    EXPECT_FALSE(isBusy());
}

TEST_F(FormControls, HintsCanChangeLater)
{
    FakeFrame frame;
    QWidget form;
    auto* button = NewButton(&form, "BtX", { TextNumber<0>(10004), 0, TextNumber<0>(10005) });
    SetControlHint(button, TextNumber<0>(10007));
    PointAt(form, "BtX");
    EXPECT_EQ(frame.Status, LngStr(10007));
}

TEST_F(FormControls, TwipsAre15InAPixelAt96DotsPerInch)
{
    QWidget form;
    EXPECT_DOUBLE_EQ(TwipsPerPixel(&form), 1440.0 / form.screen()->logicalDotsPerInch());
    EXPECT_EQ(PixelsFromTwips(&form, TwipsPerPixel(&form) * 24), 24);
}

namespace {

/// A form with a drop-down list.
class ListForm final : public FormBase {
public:
    ListForm()
        : FormBase("ListForm")
    {
        auto* combo = NewCombo(this, "CbList", 0);
        combo->addItems({ "one", "two" });
        auto* box = NewTextBox(this, "TbText", 0, 20);
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(combo);
        layout->addWidget(box);
    }
    bool OnLoad() override
    {
        DialogPush(*this, false);
        return true;
    }
};

class Escape : public FormTest { };

/// Asks before it closes; the answer is always no.
class AskingForm final : public FormBase {
public:
    AskingForm()
        : FormBase("AskingForm")
    {
    }
    int Questions = 0;
    std::function<void(FormBase& question)> During;

protected:
    bool OnLoad() override
    {
        DialogPush(*this, false);
        return true;
    }
    bool QueryUnload() override
    {
        ++Questions;
        ListForm question;
        RunForm(question, [&] { During(question); });
        return false;
    }
};

} // namespace

TEST_F(Escape, AnswersAQuestionOnlyIfPressedAgain)
{
    AskingForm form;
    form.During = [](FormBase& question) {
        KeyUp(Qt::Key_Escape);
        EXPECT_FALSE(question.IsClosed());
        KeyDown(Qt::Key_Escape);
        EXPECT_TRUE(question.IsClosed());
    };
    ShowForm(form);
    KeyDown(Qt::Key_Escape);
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    KeyUp(Qt::Key_Escape); // of the answer
    EXPECT_EQ(form.Questions, 1);
    form.During = [](FormBase& question) {
        KeyUp(Qt::Key_Escape);
        question.Unload();
    };
    KeyDown(Qt::Key_Escape);
    EXPECT_EQ(form.Questions, 2);
    DialogEnd(form, 0);
}

TEST_F(Escape, ClosesAFormThatHasNoCancelButton)
{
    ListForm form;
    EXPECT_EQ(RunForm(form, [] { Key(Qt::Key_Escape); }), 1);
}

TEST_F(Escape, ClosesOneFormForEachPressAndRelease)
{
    ListForm lower;
    ListForm upper;
    ShowForm(lower);
    ShowForm(upper);
    KeyDown(Qt::Key_Escape);
    EXPECT_TRUE(upper.IsClosed());
    EXPECT_FALSE(lower.IsClosed());
    lower.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&lower));
    KeyUp(Qt::Key_Escape);
    EXPECT_TRUE(lower.IsClosed());
}

TEST_F(Escape, IsHandledOnceThoughWidgetsAndWindowGetIt)
{
    ListForm lower;
    ListForm upper;
    ShowForm(lower);
    ShowForm(upper);
    FindControl(upper, "TbText").setFocus();
    KeyDown(Qt::Key_Escape);
    EXPECT_TRUE(upper.IsClosed());
    EXPECT_FALSE(lower.IsClosed());
    DialogEnd(lower, 0);
}

TEST_F(Escape, ThatClosesAListLeavesItsFormOpen)
{
    ListForm form;
    ShowForm(form);
    auto& combo = Find<QComboBox>(form, "CbList");
    combo.showPopup();
    QWidget* popup = QApplication::activePopupWidget();
    ASSERT_NE(popup, nullptr);
    QTest::keyPress(popup, Qt::Key_Escape);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    KeyUp(Qt::Key_Escape);
    EXPECT_FALSE(form.IsClosed());
    Key(Qt::Key_Escape);
    EXPECT_TRUE(form.IsClosed());
}

/// As a window system sends it: the list closes before the key goes down.
TEST_F(Escape, ThatClosesAListBeforeItGoesDownLeavesItsFormOpen)
{
    ListForm form;
    ShowForm(form);
    auto& combo = Find<QComboBox>(form, "CbList");
    combo.showPopup();
    QWidget* popup = QApplication::activePopupWidget();
    ASSERT_NE(popup, nullptr);
    QKeyEvent before(QEvent::ShortcutOverride, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(popup->windowHandle(), &before);
    ASSERT_EQ(QApplication::activePopupWidget(), nullptr);
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(form.windowHandle(), &press);
    KeyUp(Qt::Key_Escape);
    EXPECT_FALSE(form.IsClosed());
    Key(Qt::Key_Escape);
    EXPECT_TRUE(form.IsClosed());
}

TEST_F(Escape, ThatLeavesTheWhatsThisModeLeavesItsFormOpen)
{
    ListForm form;
    ShowForm(form);
    QWhatsThis::enterWhatsThisMode();
    Key(Qt::Key_Escape);
    EXPECT_FALSE(QWhatsThis::inWhatsThisMode());
    ASSERT_FALSE(form.IsClosed());
    Key(Qt::Key_Escape);
    EXPECT_TRUE(form.IsClosed());
}

namespace {

/// A form with a default button, another button and a combo box.
class ButtonForm final : public FormBase {
public:
    ButtonForm()
        : FormBase("ButtonForm")
    {
        auto* layout = new QVBoxLayout(this);
        for (const char* name : { "BtFirst", "BtSecond" }) {
            QPushButton* button = NewButton(this, name, {});
            connect(button, &QPushButton::clicked, this, [this, name] { Pressed.append(QLatin1String(name)); });
            layout->addWidget(button);
        }
        Find<QPushButton>(*this, "BtFirst").setDefault(true);
        QComboBox* combo = NewCombo(this, "CbList", {});
        combo->addItems({ "a", "b", "c" });
        combo->setCurrentIndex(1);
        layout->addWidget(combo);
    }
    bool OnLoad() override
    {
        DialogPush(*this, false);
        return true;
    }

    QStringList Pressed;
};

} // namespace

TEST_F(FormControls, EnterPressesTheFocusedButton)
{
    ButtonForm form;
    ShowForm(form);
    Key(form, "BtSecond", Qt::Key_Return);
    Key(form, "BtSecond", Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(form.Pressed, QStringList({ "BtSecond", "BtSecond" }));
    Key(form, "CbList", Qt::Key_Return);
    EXPECT_EQ(form.Pressed.last(), "BtFirst"); // the default button
    form.Unload();
}

TEST_F(FormControls, HeldEnterPressesAButtonOnce)
{
    ButtonForm form;
    ShowForm(form);
    for (const char* name : { "BtFirst", "BtSecond", "CbList" }) { // the last presses the default button
        FindControl(form, name).setFocus();
        form.Pressed.clear();
        KeyDown(Qt::Key_Return);
        for (int repeat = 0; repeat < 3; ++repeat) {
            RepeatKey(Qt::Key_Return);
            RepeatKey(Qt::Key_Enter);
        }
        EXPECT_EQ(form.Pressed.size(), 1) << name;
    }
    form.Unload();
}

TEST_F(FormControls, HeldEnterMakesLines)
{
    SizedForm form;
    ShowForm(form);
    auto& box = *form.findChild<QPlainTextEdit*>();
    box.setFocus();
    KeyDown(Qt::Key_Return);
    RepeatKey(Qt::Key_Return);
    EXPECT_EQ(box.toPlainText(), "\n\n");
    DialogEnd(form, 0);
}

TEST_F(FormControls, WheelChangesAComboBoxOnlyWhileItHasTheFocus)
{
    ButtonForm form;
    ShowForm(form);
    auto& combo = Find<QComboBox>(form, "CbList");
    FindControl(form, "BtFirst").setFocus();
    Wheel(combo);
    EXPECT_EQ(combo.currentIndex(), 1);
    EXPECT_TRUE(HasFocus(form, "BtFirst"));
    combo.setFocus();
    Wheel(combo);
    EXPECT_EQ(combo.currentIndex(), 2);
    form.Unload();
}

} // namespace tarvik
