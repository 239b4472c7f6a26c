// The form of a description's width.
#include "app/state/statusBar.h"
#include "app/text/lang.h"
#include "screen/window/FmDescription.h"
#include "tests/screen/window/description_form_fixture.h"

#include <QApplication>
#include <QLineEdit>
#include <QPaintEvent>

namespace tarvik {

namespace {

class DescriptionForm : public DescriptionForms {
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

    /// Twelve words, which need more lines in a narrow block than in a wide one.
    const QString kText = QStringLiteral("measured on the roof of the station with the small antenna at noon, no wind");
    WindowId id = 0;
};

} // namespace

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
        EXPECT_EQ(help.Topics, QList<int>{ 10501 });
        Click(form, "BtCancel");
    });
}

TEST_F(DescriptionForm, ApplyShowsWidthAndCancelRestoresIt)
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

TEST_F(DescriptionForm, CancelAndEscapeRestoreCutText)
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
        EXPECT_TRUE(Description(id).textCursor().atEnd());
    }
}

TEST_F(DescriptionForm, OkAndEnterKeepWidth)
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

TEST_F(DescriptionForm, RefusesInvalidWidth)
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

TEST_F(DescriptionForm, ArrowsStepWithinRange)
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

/// Records paint events at a position of a control.
class PaintsAt final : public QObject {
public:
    PaintsAt(QWidget& control, const QRect& place)
        : place_(place)
    {
        control.installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            Count += static_cast<QPaintEvent*>(event)->region().intersects(place_) ? 1 : 0;
        return false;
    }
    int Count = 0;

private:
    QRect place_;
};

TEST_F(DescriptionForm, DisablesArrowsAtLimits)
{
    Run([&](FmDescription& form) {
        QWidget& box = FindControl(form, "UpDown");
        const int field = FindControl(form, "Tb").geometry().right() + 1;
        const QRect arrows(field, 0, box.width() - field, box.height());
        const auto picture = [&] { return box.grab(arrows).toImage(); };
        QCoreApplication::processEvents();
        const QImage both = picture();
        PaintsAt paints(box, arrows);
        for (const char* columns : { "40", "70" }) {
            paints.Count = 0;
            Find<QLineEdit>(form, "Tb").setText(columns);
            QCoreApplication::processEvents();
            EXPECT_EQ(paints.Count, 1);
            EXPECT_EQ(picture() == both, qstrcmp(columns, "70") == 0) << "the least one takes no step down";
        }
        Click(form, "BtCancel");
    });
}

TEST_F(DescriptionForm, WheelStepsTheColumnsOnlyWhileTheyHaveTheFocus)
{
    Run([&](FmDescription& form) {
        QWidget& box = FindControl(form, "UpDown");
        auto& columns = Find<QLineEdit>(form, "Tb");
        columns.setText("50");
        for (QWidget* over : { &box, static_cast<QWidget*>(&columns) }) {
            FindControl(form, "BtDefault").setFocus();
            Wheel(*over);
            EXPECT_EQ(columns.text(), "50");
            EXPECT_TRUE(HasFocus(form, "BtDefault"));
        }
        box.setFocus();
        Wheel(box);
        EXPECT_EQ(columns.text(), "49");
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
    StatusSet(QStringLiteral("before"));
    EXPECT_TRUE(CommandRun(Command::OptionsDescription));
    EXPECT_TRUE(CanAct());
    EXPECT_EQ(TheFrame()->StatusText(), "");
}

} // namespace tarvik
