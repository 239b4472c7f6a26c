#include "app/forms/form.h"

#include "app/forms/focusRules.h"
#include "app/state/statusBar.h"
#include "app/text/ansi.h"
#include "app/text/lang.h"
#include "app/values/numberText.h"
#include "app/values/region.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QValidator>

#include <algorithm>

namespace tarvik {

namespace {

constexpr double kTwipsPerInch = 1440.0;
constexpr double kDefaultDotsPerInch = 96.0;

/// The hint of the nearest parent that has one.
TextNumber<0> HintAround(const QWidget* control)
{
    for (const QWidget* at = control; at != nullptr && !at->isWindow();) {
        at = at->parentWidget();
        const int hint = at == nullptr ? 0 : at->property(kHintNumberProperty).toInt();
        if (hint != 0)
            return TextNumber<0>(hint);
    }
    return {};
}

/// Shows the control's hint on the status line while the pointer is over it. A pointer that leaves a nested
/// control is over the outer one; if it has left both, the outer one gets the next Leave event.
class HintFilter final : public QObject {
public:
    explicit HintFilter(QWidget* control)
        : QObject(control)
    {
        control->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Enter)
            StatusSetId(TextNumber<0>(watched->property(kHintNumberProperty).toInt()));
        if (event->type() == QEvent::Leave)
            StatusSet(LngStr(HintAround(qobject_cast<QWidget*>(watched))));
        return QObject::eventFilter(watched, event);
    }
};

class AnsiValidator final : public QValidator {
public:
    using QValidator::QValidator;

    State validate(QString& input, int&) const override
    {
        return IsAnsi(input) ? Acceptable : Invalid;
    }
};

class NumberValidator final : public QValidator {
public:
    using QValidator::QValidator;

    State validate(QString& input, int&) const override
    {
        const QChar mark = IniDecimalChar().front();
        const auto isAllowed = [mark](QChar character) { return IsAnsi(character) || IsNumberSign(character, mark); };
        return std::all_of(input.begin(), input.end(), isAllowed) ? Acceptable : Invalid;
    }
};

/// Keeps a picture, which a text would replace.
void SetLabelText(QLabel* label, const QString& text)
{
    if (label->pixmap().isNull())
        label->setText(text);
}

bool IsLine(const QWidget* control)
{
    const auto* frame = qobject_cast<const QFrame*>(control);
    return frame != nullptr && (frame->frameShape() == QFrame::HLine || frame->frameShape() == QFrame::VLine);
}

void SetTextByKind(QWidget* control, const QString& text)
{
    if (auto* textBox = qobject_cast<QLineEdit*>(control))
        textBox->setText(text);
    else if (auto* label = qobject_cast<QLabel*>(control))
        SetLabelText(label, text);
    else if (auto* button = qobject_cast<QAbstractButton*>(control))
        button->setText(text);
    else if (auto* frame = qobject_cast<QGroupBox*>(control))
        frame->setTitle(text);
    else if (auto* multiLine = qobject_cast<QPlainTextEdit*>(control))
        multiLine->setPlainText(text);
}

/// A layout sets positions, so a wider control also gets a larger minimum size.
void AdjustGeometry(QWidget* control, const GeometryAdjustment& by, bool withHeight)
{
    const int width = PixelsFromTwips(control, by.Width);
    const int height = withHeight ? PixelsFromTwips(control, by.Height) : 0;
    const QSize size = control->size();
    control->move(control->pos() + QPoint(PixelsFromTwips(control, by.Left), PixelsFromTwips(control, by.Top)));
    control->resize(size.width() + width, size.height() + height);
    const QSize least = control->sizeHint();
    if (width > 0)
        control->setMinimumWidth(least.width() + width);
    if (height > 0)
        control->setMinimumHeight(least.height() + height);
}

template <typename Control>
Control* Prepared(Control* control, const QString& name, const ControlTexts& texts)
{
    NameControl(control, name);
    if (!texts.Text.IsNone())
        LngSetCtrl(control, texts.Text);
    if (texts.Help.Number != 0)
        SetControlHelp(control, texts.Help);
    if (!texts.Hint.IsNone())
        SetControlHint(control, texts.Hint);
    return control;
}

} // namespace

int HelpNumberOf(const QWidget* control)
{
    for (const QWidget* at = control; at != nullptr; at = at->parentWidget()) {
        const int number = at->property(kHelpNumberProperty).toInt();
        if (number != 0)
            return number;
        if (at->isWindow())
            break;
    }
    return 0;
}

void SetControlHelp(QWidget* control, TopicNumber help)
{
    control->setProperty(kHelpNumberProperty, help.Number);
}

void SetControlHint(QWidget* control, TextNumber<0> hint)
{
    const bool isNew = !control->property(kHintNumberProperty).isValid();
    control->setProperty(kHintNumberProperty, hint.Number);
    if (isNew)
        new HintFilter(control);
}

double TwipsPerPixel(const QWidget* control)
{
    const QScreen* screen = control->screen();
    return kTwipsPerInch / (screen == nullptr ? kDefaultDotsPerInch : screen->logicalDotsPerInch());
}

int PixelsFromTwips(const QWidget* control, double twips)
{
    return qRound(twips / TwipsPerPixel(control));
}

void LngSetCtrl(QWidget* control, TextNumber<0> id)
{
    GeometryAdjustment adjustment = LngCtrlSize(id);
    if (auto* combo = qobject_cast<QComboBox*>(control)) {
        const bool isSimple = combo->isEditable() && combo->maxVisibleItems() == 0;
        if (adjustment.Count >= 3)
            AdjustGeometry(control, adjustment, isSimple);
        return;
    }
    if (IsLine(control)) { // the four numbers move its two ends
        adjustment.Width -= adjustment.Left;
        adjustment.Height -= adjustment.Top;
    } else {
        SetTextByKind(control, LngStr(id));
    }
    if (adjustment.Count == 4)
        AdjustGeometry(control, adjustment, true);
}

void LngSetForm(QWidget* form, TextNumber<0> id)
{
    form->setWindowTitle(LngStr(id));
    const GeometryAdjustment adjustment = LngCtrlSize(id);
    if (adjustment.Count != 4)
        return;
    const QPoint by(PixelsFromTwips(form, adjustment.Left), PixelsFromTwips(form, adjustment.Top));
    const QSize growth(PixelsFromTwips(form, adjustment.Width), PixelsFromTwips(form, adjustment.Height));
    form->setProperty(kGrowthProperty, growth);
    form->setGeometry(QRect(form->pos() + by, form->size() + growth));
}

void NameControl(QWidget* control, const QString& name)
{
    control->setObjectName(name);
    if (control->accessibleName().isEmpty())
        control->setAccessibleName(name);
}

QPushButton* NewButton(QWidget* parent, const char* name, const ControlTexts& texts)
{
    auto* button = Prepared(new QPushButton(parent), QString::fromLatin1(name), texts);
    button->setAutoDefault(false);
    button->setAccessibleName(PlainCaption(button->text()));
    return button;
}

QLabel* NewLabel(QWidget* parent, const char* name, const ControlTexts& texts)
{
    auto* label = Prepared(new QLabel(parent), QString::fromLatin1(name), texts);
    label->setTextFormat(Qt::PlainText); // a name in it may look like markup
    label->setAccessibleName(PlainCaption(label->text()));
    return label;
}

QLineEdit* NewTextBox(QWidget* parent, const char* name, TopicNumber help, int maxLength)
{
    auto* textBox = Prepared(new QLineEdit(parent), QString::fromLatin1(name), { {}, help, {} });
    textBox->setMaxLength(maxLength);
    LimitToAnsi(textBox);
    return textBox;
}

QComboBox* NewCombo(QWidget* parent, const char* name, TopicNumber help)
{
    auto* combo = Prepared(new QComboBox(parent), QString::fromLatin1(name), { {}, help, {} });
    WheelNeedsFocus(combo);
    return combo;
}

QCheckBox* NewCheckBox(QWidget* parent, const char* name, const ControlTexts& texts)
{
    auto* check = Prepared(new QCheckBox(parent), QString::fromLatin1(name), texts);
    if (!check->text().isEmpty())
        check->setAccessibleName(PlainCaption(check->text()));
    return check;
}

QRadioButton* NewOption(QWidget* parent, const QString& name, const ControlTexts& texts)
{
    auto* option = Prepared(new QRadioButton(parent), name, texts);
    option->setAccessibleName(PlainCaption(option->text()));
    return option;
}

QGroupBox* NewFrame(QWidget* parent, const char* name, const ControlTexts& texts)
{
    auto* frame = Prepared(new QGroupBox(parent), QString::fromLatin1(name), texts);
    frame->setAccessibleName(PlainCaption(frame->title()));
    return frame;
}

void BindLabel(QLabel* label, QWidget* control)
{
    label->setBuddy(control);
    control->setAccessibleName(PlainCaption(label->text()));
}

QString PlainCaption(const QString& text)
{
    QString plain;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const bool isMark = text[at] == u'&';
        if (isMark && at + 1 < text.size() && text[at + 1] == u'&')
            ++at; // a doubled mark shows as one
        else if (isMark)
            continue;
        plain.append(text[at]);
    }
    plain = plain.trimmed();
    if (plain.endsWith(u':'))
        plain.chop(1);
    return plain;
}

QString PlainTip(const QString& text)
{
    const QString shown = QStringLiteral("<span style=\"white-space: pre-wrap\">%1</span>");
    return text.isEmpty() ? QString() : shown.arg(text.toHtmlEscaped());
}

void LimitToAnsi(QLineEdit* textBox)
{
    textBox->setValidator(new AnsiValidator(textBox));
}

void LimitToNumber(QLineEdit* textBox)
{
    textBox->setValidator(new NumberValidator(textBox));
}

} // namespace tarvik
