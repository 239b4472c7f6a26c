// screen/window/ColumnsBox.h: a number field with two arrows that step it.
#pragma once

#include <QAbstractSpinBox>

namespace tarvik {

/// The text box (`Tb`) accepts any text; the reader validates it. The arrows (`UpDown`) stay within a range, and
/// start at the value set last if the text is not a number.
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
