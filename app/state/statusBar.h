// app/state/statusBar.h: the busy and idle state of the program and the status line.
#pragma once

#include "app/text/textNumber.h"

#include <QString>

namespace tarvik {

/// A command starts: clears `Idle`, the status text and the fourth panel. No effect if one already runs.
void BeginBusy();

/// The command has ended: sets `Idle`, clears status text, hold and busy pointer. No effect if none runs.
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

/// Shows `text` if no job holds the line and the frame or a form on the stack is active; an empty text needs no
/// activation.
void StatusSet(const QString& text);
void StatusSetId(TextNumber<0> id);

/// The ready texts 10600 to 10603.
void StatusSetReady(int index);

/// Holds the line for a job and shows `text`, whatever is active.
void StatusJob(const QString& text);

void StatusClear();

/// Shows the busy pointer, on the top dialog or else the frame, while a job holds the line, else the normal one.
void MousePointerBusy();

} // namespace tarvik
