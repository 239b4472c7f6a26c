// screen/window/ColumnsBox.h: a number to be typed, with two arrows that step it.
#pragma once

#include <QAbstractSpinBox>

namespace tarvik {

/// The text box (`Tb`) takes anything that is typed and keeps it: whoever reads it checks it. The arrows (`UpDown`)
/// keep to a range, and begin at the value that was set last when the text is no number.
class ColumnsBox final : public QAbstractSpinBox {
    Q_OBJECT
public:
    explicit ColumnsBox(QWidget* parent);

    QLineEdit* TextBox() const;
    void SetRange(int least, int most);
    void SetValue(int value);

    QValidator::State validate(QString& input, int& position) const override;
    void stepBy(int steps) override;
    QSize sizeHint() const override;

protected:
    StepEnabled stepEnabled() const override;

private:
    int Value() const;

    int least_ = 0;
    int most_ = 0;
    int value_ = 0;
};

} // namespace tarvik
