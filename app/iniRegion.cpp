// What the settings module reads of the system's region.
#include "app/ini.h"
#include "app/seams.h"

QString IniDecimalChar()
{
    const QString point = TheSeams().Region().decimalPoint();
    return point.isEmpty() ? QStringLiteral(".") : point.left(1);
}
