#include "screen/window/ColumnsBox.h"

#include "app/forms/focusRules.h"
#include "app/forms/form.h"

#include <QLineEdit>

#include <algorithm>

namespace tarvik {

namespace {

constexpr int kMaxDigits = 8; ///< leaves space for invalid numbers, so that they can be reported

} // namespace

ColumnsBox::ColumnsBox(QWidget* parent)
    : QAbstractSpinBox(parent)
{
    NameControl(this, QStringLiteral("UpDown"));
    NameControl(lineEdit(), QStringLiteral("Tb"));
    lineEdit()->setMaxLength(kMaxDigits);
    WheelNeedsFocus(this);
    connect(
        lineEdit(), &QLineEdit::textChanged, this, qOverload<>(&QWidget::update)); // the arrows depend on the number
}

QLineEdit* ColumnsBox::TextBox() const
{
    return lineEdit();
}

void ColumnsBox::SetRange(int least, int most)
{
    least_ = least;
    most_ = most;
}

void ColumnsBox::SetValue(int value)
{
    value_ = std::clamp(value, least_, most_);
    lineEdit()->setText(QString::number(value_));
}

int ColumnsBox::Value() const
{
    bool isNumber = false;
    const int typed = lineEdit()->text().trimmed().toInt(&isNumber);
    return isNumber ? std::clamp(typed, least_, most_) : value_;
}

QValidator::State ColumnsBox::validate(QString&, int&) const
{
    return QValidator::Acceptable;
}

void ColumnsBox::stepBy(int steps)
{
    SetValue(Value() + steps);
    lineEdit()->selectAll();
}

QSize ColumnsBox::sizeHint() const
{
    QSize size = QAbstractSpinBox::sizeHint();
    size.setWidth(size.width() + kMaxDigits * fontMetrics().averageCharWidth());
    return size;
}

QAbstractSpinBox::StepEnabled ColumnsBox::stepEnabled() const
{
    StepEnabled steps = StepNone;
    steps.setFlag(StepUpEnabled, Value() < most_);
    steps.setFlag(StepDownEnabled, Value() > least_);
    return steps;
}

} // namespace tarvik
