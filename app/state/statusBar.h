// app/state/statusBar.h: the busy and idle state of the program and the status line.
#pragma once

#include "app/text/textNumber.h"

#include <QString>

namespace tarvik {

/// A command starts: not idle any more, status text and fourth panel cleared. Nothing if one already runs.
void BeginBusy();

/// The command has ended: idle, status text, hold and pointer cleared. Nothing if none runs.
void EndBusy();

/// Busy for its lifetime. Scopes nest: the one that made the program busy makes it idle again.
class BusyScope {
public:
    BusyScope();
    ~BusyScope();
    BusyScope(const BusyScope&) = delete;
    BusyScope& operator=(const BusyScope&) = delete;

private:
    bool wasIdle_;
};

/// Sets `Idle` without side effects and returns its former value.
bool IdleSet(bool value);

/// Shows `text` when no job holds the line, and the frame or a form on the stack has the activation (an empty
/// text is always shown).
void StatusSet(const QString& text);
void StatusSetId(TextNumber<0> id);

/// The ready texts 10600 to 10603.
void StatusSetReady(int index);

/// A job takes the line: `text` is shown whatever the state.
void StatusJob(const QString& text);

void StatusClear();

/// Shows the busy pointer, on the top dialog or else the frame, while a job holds the line; puts it back otherwise.
void MousePointerBusy();

} // namespace tarvik
