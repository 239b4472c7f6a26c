// tests/lists/editor/real_input_fixture.h: any of the list editors with a real mouse and keyboard, and with the
// program's own messages. For tests on a display with a window manager.
#pragma once

#include "app/message/FmMessage.h" // before the answers of tests

#include "tests/lists/editor/editor_form_fixture.h"
#include "tests/support/realInput.h"

#include <QApplication>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTimer>

namespace tarvik {

/// The program's own message form; Enter answers it as soon as it has the keyboard and `IsReady`.
class RealMessages final : public MessagePresenter {
public:
    void Present(MessageRequest& request) override
    {
        Shown.append(request.HelpNumber);
        FmMessage form(request, QApplication::activeWindow());
        QTimer poll;
        poll.callOnTimeout([&] {
            if (QGuiApplication::focusWindow() != form.windowHandle() || QGuiApplication::focusWindow() == nullptr)
                return;
            if (!IsReady())
                return;
            poll.stop();
            QProcess::startDetached(QStringLiteral("xdotool"), Keys);
        });
        poll.start(1);
        DialogShow(form);
        ++Answered;
    }

    std::function<bool()> IsReady = [] { return true; };
    QStringList Keys{ "key", "--clearmodifiers", "Return" };
    QList<int> Shown;
    int Answered = 0;
};

/// The centre of a part of an upright scroll bar.
inline QPoint PartOfBar(const QScrollBar& bar, QStyle::SubControl part)
{
    QStyleOptionSlider option;
    option.initFrom(&bar);
    option.orientation = Qt::Vertical;
    option.maximum = bar.maximum();
    option.pageStep = bar.pageStep();
    option.sliderPosition = option.sliderValue = bar.value();
    option.subControls = QStyle::SC_All;
    return bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, part, &bar).center();
}

/// Runs `act` once a dialog of this class is active over the present one. Its commands may block until it closes.
template <typename Dialog>
void InDialog(std::function<void(Dialog&)> act)
{
    QTimer::singleShot(1, qApp, [act = std::move(act)] {
        auto* dialog = dynamic_cast<Dialog*>(DialogTop());
        if (dialog == nullptr || !dialog->isActiveWindow())
            InDialog<Dialog>(act);
        else
            act(*dialog);
    });
}

template <typename Form>
class RealEditor : public EditorFormTest<Form> {
protected:
    using EditorFormTest<Form>::form;

    RealEditor()
    {
        TheMessagePresenter().Set(messages_);
    }
    ~RealEditor() override
    {
        if (!form.IsClosed())
            this->GiveUp();
    }

    void OpenActive(const QString& path = {})
    {
        this->Open(path);
        EXPECT_TRUE(Reaches([this] { return form.isActiveWindow(); }));
    }

    /// Keys in the syntax of xdotool.
    static void Press(const QStringList& keys)
    {
        XDo(QStringList{ QStringLiteral("key"), QStringLiteral("--clearmodifiers") } + keys);
    }

    /// Replaces the text of the control with the focus.
    static void TypeText(const QString& text)
    {
        XDo({ QStringLiteral("key"), QStringLiteral("ctrl+a"), QStringLiteral("type"), text });
    }

    void ClickOn(const QString& name, const QString& button = QStringLiteral("1"))
    {
        const QWidget& control = FindControl(form, name);
        XClick(control.mapToGlobal(control.rect().center()), button);
    }

    QScrollBar& Bar(const QString& name = QStringLiteral("VScroll1"))
    {
        return Find<QScrollBar>(form, name);
    }

    /// Drags the slider of a scroll bar down by some pixels.
    void Drag(QScrollBar& bar, int byPx)
    {
        XMove(bar.mapToGlobal(PartOfBar(bar, QStyle::SC_ScrollBarSlider)));
        XDo({ QStringLiteral("mousedown"), QStringLiteral("1"), QStringLiteral("mousemove_relative"),
            QStringLiteral("0"), QString::number(byPx), QStringLiteral("mouseup"), QStringLiteral("1") });
    }

    bool ReachesFocus(const QString& name)
    {
        return Reaches([&] { return form.isActiveWindow() && HasFocus(form, name); });
    }
    bool ReachesText(const QString& name, const QString& text)
    {
        return Reaches([&] { return TextOf(form, name) == text; });
    }

    /// These messages have been shown since the last call, and the form is active again.
    void ExpectMessages(const QList<int>& numbers)
    {
        EXPECT_TRUE(Reaches([&] { return messages_.Answered == numbers.size() && form.isActiveWindow(); }));
        QCoreApplication::processEvents();
        EXPECT_EQ(messages_.Shown, numbers);
        messages_.Shown.clear();
        messages_.Answered = 0;
    }

    /// Escape asks about changes, another Escape returns to them.
    void ExpectEscapeAsks()
    {
        ASSERT_TRUE(Reaches([] { return Editor().EditorDirty; }));
        messages_.Keys = QStringList{ QStringLiteral("key"), QStringLiteral("Escape") };
        Press({ QStringLiteral("Escape") });
        ExpectMessages({ 12769 });
        EXPECT_FALSE(form.IsClosed());
        EXPECT_TRUE(Editor().EditorDirty);
    }

    RealMessages messages_;
};

} // namespace tarvik
