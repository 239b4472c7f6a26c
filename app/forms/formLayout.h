// app/forms/formLayout.h: layouts that forms share.
#pragma once

#include <initializer_list>

class QHBoxLayout;
class QPushButton;
class QVBoxLayout;
class QWidget;

namespace tarvik {

/// The column of a form's contents, with kFormMarginPx around it.
QVBoxLayout* NewFormColumn(QWidget* form);

/// The last row of a form: `buttons` on the right, `left` on the left.
QHBoxLayout* NewButtonRow(std::initializer_list<QPushButton*> buttons, std::initializer_list<QPushButton*> left = {});

} // namespace tarvik
