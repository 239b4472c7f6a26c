// app/platform/debug.h: the debug channel: checks that must never fail, and reports for whoever looks for a fault.
#pragma once

#include <QString>

namespace tarvik {

/// Checks that must never fail; both do nothing in the delivered program.
void DebugAssert(const char* name, bool condition);
void DebugReport(const char* name);

/// What a diagnostic build says in a plain system box before it gives up, and before that about an error. The delivered
/// program says neither.
QString DebugFailureText(const QString& name, const QString& text);
QString DebugErrorText(int number, const QString& description);

} // namespace tarvik
