#include "app/platform/debug.h"

namespace tarvik {

void DebugAssert(const char*, bool) { }

void DebugReport(const char*) { }

QString DebugFailureText(const QString& name, const QString& text)
{
    return QStringLiteral("Program Failure: ") + name + QStringLiteral("( )\r") + text;
}

QString DebugErrorText(int number, const QString& description)
{
    return QStringLiteral("Error = %1\r -> ").arg(number) + description;
}

} // namespace tarvik
