// app/platform/debug.h: the debug channel: assertions and reports for developers.
#pragma once

#include <QString>

namespace tarvik {

/// Both do nothing in the delivered program.
void DebugAssert(const char* name, bool condition);
void DebugReport(const char* name);

/// What a diagnostic build shows in a plain system box on a failed assertion and on an error. The delivered program
/// shows neither.
QString DebugFailureText(const QString& name, const QString& text);
QString DebugErrorText(int number, const QString& description);

} // namespace tarvik
