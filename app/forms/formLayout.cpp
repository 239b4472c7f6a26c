#include "app/forms/formLayout.h"

#include "app/forms/form.h"

#include <QBoxLayout>
#include <QPushButton>

namespace tarvik {

QVBoxLayout* NewFormColumn(QWidget* form)
{
    auto* column = new QVBoxLayout(form);
    column->setContentsMargins(kFormMarginPx, kFormMarginPx, kFormMarginPx, kFormMarginPx);
    return column;
}

QHBoxLayout* NewButtonRow(std::initializer_list<QPushButton*> buttons, std::initializer_list<QPushButton*> left)
{
    auto* row = new QHBoxLayout;
    for (QPushButton* button : left)
        row->addWidget(button);
    if (left.size() != 0)
        row->addSpacing(kFormMarginPx);
    row->addStretch();
    for (QPushButton* button : buttons)
        row->addWidget(button);
    return row;
}

} // namespace tarvik
