// Leaving a bad cell with a real mouse and keyboard: xdotool sends the events through the display server. Runs on a
// display with a window manager.
#include "tests/lists/editor/real_input_fixture.h"

#include "lists/editor/editorGeneral.h"
#include "tests/lists/editor/list_form_fixture.h"
#include "tests/support/fakeHelp.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QProcess>
#include <QScrollBar>
#include <QStyle>
#include <QTest>
#include <QTimer>

namespace tarvik {

namespace {

/// Counts the presses of Enter, repeats included, that reach the program.
class EnterCounter final : public QObject {
public:
    EnterCounter()
    {
        qApp->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress && watched->isWindowType()) {
            Count += static_cast<QKeyEvent*>(event)->key() == Qt::Key_Return ? 1 : 0;
        }
        return false;
    }
    int Count = 0;
};

/// Gives access to the action that a pressed part of a scroll bar repeats.
struct RepeatAction : QAbstractSlider {
    static SliderAction Of(const QScrollBar& bar)
    {
        return (bar.*(&RepeatAction::repeatAction))();
    }
};

class RealMouse : public ListFormTest {
protected:
    RealMouse()
    {
        TheMessagePresenter().Set(messages_);
        Open(StoredList({ 0, 1, 2 }));
        EXPECT_TRUE(Reaches([this] { return form.isActiveWindow(); }));
        form.CellSetFocus(0, 3);
    }
    ~RealMouse() override
    {
        if (!form.IsClosed())
            GiveUp();
    }

    QScrollBar& Bar()
    {
        return Find<QScrollBar>(form, "VScroll1");
    }

    /// Moves the pointer to a position of `control` and clicks.
    void ClickAt(const QWidget& control, const QPoint& position, const QString& button = QStringLiteral("1"))
    {
        XClick(control.mapToGlobal(position), button);
    }
    void ClickOn(const QString& name, const QString& button = QStringLiteral("1"))
    {
        const QWidget& control = FindControl(form, name);
        ClickAt(control, control.rect().center(), button);
    }

    QPoint PartOfBar(QStyle::SubControl part)
    {
        return tarvik::PartOfBar(Bar(), part);
    }

    void TypeBadFrequency()
    {
        XDo({ "type", "abc" }); // replaces the selected text
        ASSERT_TRUE(Reaches([this] { return CellText(3, 0) == "abc"; }));
    }

    /// One message was shown, and everything is as before.
    void ExpectOneMessage(int number)
    {
        EXPECT_TRUE(Reaches([this] { return messages_.Answered > 0 && form.isActiveWindow(); }));
        QCoreApplication::processEvents();
        EXPECT_EQ(messages_.Shown, QList<int>{ number });
        EXPECT_EQ(Bar().value(), 0);
        EXPECT_EQ(RepeatAction::Of(Bar()), QAbstractSlider::SliderNoAction);
        EXPECT_FALSE(Bar().isSliderDown());
    }
    void ExpectBadCellKept()
    {
        ExpectOneMessage(12765);
        EXPECT_TRUE(Reaches([this] { return Cell(3, 0).hasFocus(); }));
        EXPECT_EQ(CellText(3, 0), "abc");
        EXPECT_EQ(CellText(5, 2), "Row 2");
    }

    /// The cell can be mended, and the list can be used again.
    void ExpectGoesOn()
    {
        XDo({ "key", "ctrl+a", "type", "250" });
        EXPECT_TRUE(Reaches([this] { return CellText(3, 0) == "250"; }));
        ClickAt(Bar(), PartOfBar(QStyle::SC_ScrollBarAddPage));
        EXPECT_TRUE(Reaches([this] { return Bar().value() == 20; }));
        form.CellSetFocus(20, 3);
        ClickAt(Bar(), PartOfBar(QStyle::SC_ScrollBarSubPage));
        EXPECT_TRUE(Reaches([this] { return Bar().value() == 0; }));
        EXPECT_EQ(CellText(3, 0), "250.000000");
        EXPECT_EQ(messages_.Shown.size(), 1);
    }

    RealMessages messages_;
};

/// What the mouse can do to leave a cell.
class LeavingBadCell : public RealMouse { };

} // namespace

TEST_F(LeavingBadCell, ByTroughOfScrollBar)
{
    TypeBadFrequency();
    ClickAt(Bar(), PartOfBar(QStyle::SC_ScrollBarAddPage));
    ExpectBadCellKept();
    ExpectGoesOn();
}

TEST_F(LeavingBadCell, ByArrowOfScrollBar)
{
    TypeBadFrequency();
    ClickAt(Bar(), PartOfBar(QStyle::SC_ScrollBarAddLine));
    ExpectBadCellKept();
    ExpectGoesOn();
}

TEST_F(LeavingBadCell, BySliderOfScrollBar)
{
    TypeBadFrequency();
    const QPoint from = Bar().mapToGlobal(PartOfBar(QStyle::SC_ScrollBarSlider));
    XDo({ "mousemove", QString::number(from.x()), QString::number(from.y()), "mousedown", "1", "mousemove_relative",
        "0", "60", "mouseup", "1" });
    ExpectBadCellKept();
    ExpectGoesOn();
}

TEST_F(LeavingBadCell, ByMenuOfScrollBar)
{
    TypeBadFrequency();
    bool hadMenu = false;
    QTimer closing; // a menu would wait for an answer
    closing.callOnTimeout([&hadMenu] {
        QWidget* menu = QApplication::activePopupWidget();
        hadMenu = hadMenu || menu != nullptr;
        if (menu != nullptr)
            menu->close();
    });
    closing.start(1);
    ClickAt(Bar(), PartOfBar(QStyle::SC_ScrollBarAddPage), "3");
    ExpectBadCellKept();
    EXPECT_FALSE(hadMenu);
    ExpectGoesOn();
}

TEST_F(LeavingBadCell, ByWheelOverCells)
{
    TypeBadFrequency();
    ClickOn(CellName(3, 8), "5");
    ExpectBadCellKept();
    ExpectGoesOn();
}

TEST_F(LeavingBadCell, ByWheelOverScrollBar)
{
    TypeBadFrequency();
    ClickOn("VScroll1", "5");
    ExpectBadCellKept();
    ExpectGoesOn();
}

TEST_F(LeavingBadCell, ByRowLabel)
{
    TypeBadFrequency();
    ClickOn(CellName(0, 2));
    ExpectBadCellKept();
    ExpectGoesOn();
}

TEST_F(LeavingBadCell, ByReadOnlyCell)
{
    TypeBadFrequency();
    ClickOn(CellName(4, 2));
    ExpectBadCellKept();
    ExpectGoesOn();
}

TEST_F(LeavingBadCell, ByOtherCell)
{
    TypeBadFrequency();
    ClickOn(CellName(5, 2));
    ExpectBadCellKept();
    ExpectGoesOn();
}

TEST_F(LeavingBadCell, ByMenuOfOtherCell)
{
    TypeBadFrequency();
    ClickOn(CellName(5, 2), "3");
    ExpectBadCellKept();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    ExpectGoesOn();
}

TEST_F(LeavingBadCell, ByCheckBox)
{
    TypeBadFrequency();
    ClickOn(CellName(1, 2));
    ExpectBadCellKept();
    EXPECT_FALSE(IsChecked(2));
    ExpectGoesOn();
}

TEST_F(LeavingBadCell, ByHeader)
{
    TypeBadFrequency();
    ClickOn("LbHdr3");
    ExpectBadCellKept();
    EXPECT_EQ(Find<QComboBox>(form, "CbSort").currentIndex(), 0);
    ExpectGoesOn();
}

TEST_F(LeavingBadCell, ByButton)
{
    TypeBadFrequency();
    ClickOn("BtSort");
    ExpectBadCellKept();
    ExpectGoesOn();
}

TEST_F(LeavingBadCell, ByMnemonicOfButton)
{
    TypeBadFrequency();
    const QString caption = Find<QPushButton>(form, "BtEdit").text();
    XDo({ "key", "alt+" + caption.mid(caption.indexOf('&') + 1, 1).toLower() });
    ExpectBadCellKept();
    ExpectGoesOn();
}

TEST_F(LeavingBadCell, ByMenuKeyIsNoLeaving)
{
    TypeBadFrequency();
    XDo({ "key", "Menu" });
    ASSERT_TRUE(Reaches([] { return QApplication::activePopupWidget() != nullptr; }));
    XDo({ "key", "Escape" });
    ASSERT_TRUE(Reaches([this] { return QApplication::activePopupWidget() == nullptr && Cell(3, 0).hasFocus(); }));
    EXPECT_TRUE(messages_.Shown.isEmpty());
    XDo({ "key", "Tab" });
    ExpectBadCellKept();
    ExpectGoesOn();
}

TEST_F(LeavingBadCell, AfterHelpWithFocusOnButton)
{
    FakeHelp help;
    TypeBadFrequency();
    ClickOn("BtHelp");
    ASSERT_TRUE(Reaches([this] { return HasFocus(form, "BtHelp"); }));
    EXPECT_TRUE(messages_.Shown.isEmpty());
    ClickAt(Bar(), PartOfBar(QStyle::SC_ScrollBarAddPage));
    ExpectBadCellKept();
    ExpectGoesOn();
}

TEST_F(LeavingBadCell, ByOtherWindowIsNoLeaving)
{
    TypeBadFrequency();
    QProcess other;
    other.start(QStringLiteral("xmessage"), { "-geometry", "200x100+0+0", "other" });
    ASSERT_TRUE(Reaches([this] { return !form.isActiveWindow(); }));
    EXPECT_TRUE(messages_.Shown.isEmpty());
    ClickOn(CellName(5, 2)); // back, on another cell
    ExpectBadCellKept();
    other.kill();
    EXPECT_TRUE(other.waitForFinished());
    ExpectGoesOn();
}

TEST_F(LeavingBadCell, ByTitleBarIsNoLeaving)
{
    TypeBadFrequency();
    XDo({ "mousemove", QString::number(form.geometry().center().x()), QString::number(form.geometry().top() - 8),
        "click", "1" });
    EXPECT_TRUE(Cell(3, 0).hasFocus());
    ClickOn(CellName(5, 2));
    ExpectBadCellKept(); // one message in all
    ExpectGoesOn();
}

TEST_F(LeavingBadCell, ByCloseOfTitleBarAsksThenKeepsCell)
{
    TypeBadFrequency();
    XDo({ "key", "alt+F4" });
    EXPECT_TRUE(Reaches([this] { return messages_.Answered == 2 && form.isActiveWindow(); }));
    EXPECT_EQ(messages_.Shown, QList<int>({ 12769, 12765 })); // the question is answered by Yes
    EXPECT_FALSE(form.IsClosed());
    EXPECT_TRUE(Reaches([this] { return Cell(3, 0).hasFocus(); }));
    EXPECT_EQ(CellText(3, 0), "abc");
}

/// Enter is held, and held again to answer the message.
class HeldEnter : public RealMouse {
protected:
    void HoldTwice()
    {
        const EnterCounter presses;
        messages_.IsReady = [&presses] {
            if (presses.Count < 20)
                return false;
            QProcess::execute(QStringLiteral("xdotool"), { "keyup", "Return" });
            return true;
        };
        messages_.Keys = QStringList{ "keydown", "Return" };
        XDo({ "keydown", "Return" });
        EXPECT_TRUE(Reaches([&presses] { return presses.Count >= 40; }));
        XDo({ "keyup", "Return" });
    }
};

TEST_F(HeldEnter, ReportsBadCellOnce)
{
    TypeBadFrequency();
    HoldTwice();
    ExpectBadCellKept();
    ExpectGoesOn();
}

TEST_F(HeldEnter, ReportsBadNameOnce)
{
    ClickOn("TbName");
    XDo({ "key", "ctrl+a", "type", "a.b" });
    HoldTwice();
    ExpectOneMessage(12766);
    EXPECT_TRUE(HasFocus(form, "TbName"));
}

/// A bad name and a bad description, by every way that could skip the check.
class LeavingBadHead : public RealMouse, public testing::WithParamInterface<const char*> { };

TEST_P(LeavingBadHead, KeepsNameWithMessage)
{
    ClickOn("TbName");
    XDo({ "key", "ctrl+a", "type", "a.b" });
    ASSERT_TRUE(Reaches([this] { return TextOf(form, "TbName") == "a.b"; }));
    ClickOn(GetParam());
    ExpectOneMessage(12766);
    EXPECT_TRUE(Reaches([this] { return HasFocus(form, "TbName"); }));
    EXPECT_FALSE(form.IsClosed());
    EXPECT_EQ(CellText(3, 0), "100.000000");
    EXPECT_EQ(Find<QComboBox>(form, "CbSort").currentIndex(), 0);
}

TEST_P(LeavingBadHead, KeepsDescriptionWithMessage)
{
    ClickOn("TbDescr");
    XDo({ "key", "ctrl+a", "type", "a;b" });
    ASSERT_TRUE(Reaches([this] { return TextOf(form, "TbDescr") == "a;b"; }));
    ClickOn(GetParam());
    ExpectOneMessage(12764);
    EXPECT_TRUE(Reaches([this] { return HasFocus(form, "TbDescr"); }));
    EXPECT_FALSE(form.IsClosed());
    EXPECT_EQ(CellText(3, 0), "100.000000");
    EXPECT_EQ(Find<QComboBox>(form, "CbSort").currentIndex(), 0);
}

INSTANTIATE_TEST_SUITE_P(Click, LeavingBadHead,
    testing::Values("LbCol0[2]", "TbCol4[2]", "LbHdr3", "BtNew", "BtOpen", "BtClose", "BtHelp", "BtDel"));

} // namespace tarvik
