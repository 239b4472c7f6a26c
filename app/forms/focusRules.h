// app/forms/focusRules.h: what happens when the focus moves: checks that keep it, Enter that acts as Tab, marked texts.
#pragma once

#include <functional>

class QLineEdit;
class QWidget;

namespace tarvik {

/// Runs `check` when the user moves the focus from `control` to another control of the same window. False keeps the
/// focus, and the click that would have moved it does nothing. Changing to another window checks nothing.
void CheckOnLeave(QWidget* control, std::function<bool()> check);

/// Lets `control` take the focus without such a check: buttons that close, cancel, help, or throw away what was typed.
void LeaveFreely(QWidget* control);

/// Runs the check of the control that has the focus in `window`, for commands that take no focus (a mnemonic).
/// True when it passes or there is none.
[[nodiscard]] bool CheckFocused(const QWidget* window);

/// Enter in this single text box moves on to the next control, as Tab does.
void EnterAsTab(QLineEdit* textBox);

/// Entering the text box marks its whole text.
void MarkTextOnEnter(QLineEdit* textBox);

} // namespace tarvik
