// app/forms/formLayout.h: what forms are laid out with.
#pragma once

#include <initializer_list>

class QHBoxLayout;
class QPushButton;
class QVBoxLayout;
class QWidget;

namespace tarvik {

/// The column of a form's contents, with kFormMarginPx around it.
QVBoxLayout* NewFormColumn(QWidget* form);

/// The last row of a form: its buttons at the right, those of `left` at the left.
QHBoxLayout* NewButtonRow(std::initializer_list<QPushButton*> buttons, std::initializer_list<QPushButton*> left = {});

} // namespace tarvik
