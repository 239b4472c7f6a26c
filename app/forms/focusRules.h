// app/forms/focusRules.h: focus changes: checks on leaving a control, Enter as Tab, selection on focus.
#pragma once

#include <functional>

class QLineEdit;
class QWidget;

namespace tarvik {

/// Runs `check` when the user moves the focus from `control` to another control of the same window. False keeps the
/// focus and swallows the click that would have moved it. A change to another window runs no check.
void CheckOnLeave(QWidget* control, std::function<bool()> check);

/// As above, also by controls of `SkipLeaveCheck`, which don't discard this input.
void CheckOnEveryLeave(QWidget* control, std::function<bool()> check);

/// Lets `control` take the focus without such a check: buttons that close, cancel, show help, or discard the input.
void SkipLeaveCheck(QWidget* control);

/// Runs the check of the focused control in `window`, for commands that take no focus (a mnemonic). True if it passes
/// or there is none.
[[nodiscard]] bool CheckFocused(const QWidget* window);

/// Swallows the mouse press that is being handled, and the context menu that it asks for: of a control that may not get
/// the focus.
void SwallowPress();

/// Enter in this text box moves on to the next control, as Tab does.
void EnterAsTab(QLineEdit* textBox);

/// Selects the whole text when the text box gets the focus.
void SelectAllOnFocus(QLineEdit* textBox);

/// Lets the wheel change the value of a combo or spin box only while it has the focus, which the wheel does not give to
/// it. Otherwise its form scrolls.
void WheelNeedsFocus(QWidget* control);

} // namespace tarvik
