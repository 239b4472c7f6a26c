#include "app/values/general.h"

#include "app/platform/seams.h"
#include "app/values/numberText.h"

#include <QFileInfo>

#include <cmath>
#include <limits>

namespace tarvik {

bool IsNumberText(const QString& text)
{
    return HoldsNumber(QStringView(text));
}

bool IsMetric()
{
    return TheSeams().Region().measurementSystem() != QLocale::ImperialUSSystem; // British paper is metric
}

bool IsNtFamily()
{
#if defined(Q_OS_WIN)
    return true;
#else
    return false;
#endif
}

int ScaleClamped(int value, int numerator, int denominator)
{
    if (denominator == 0)
        return 1;
    const qint64 scaled = qint64{ value } * numerator / denominator;
    return static_cast<int>(Clamp<qint64>(scaled, 1, value));
}

double RoundToStep(double value, double step)
{
    if (step == 0 || value == std::numeric_limits<double>::max())
        return value;
    return std::floor(value / step + 0.5) * step;
}

constexpr double kMmPerInch = 25.4;

double MmFromInch(double inches)
{
    return inches * kMmPerInch;
}

double InchFromMm(double millimetres)
{
    return millimetres / kMmPerInch;
}

int ArrayLength(const QStringList& array)
{
    return static_cast<int>(array.size());
}

QStringList ArrayNew(int length)
{
    return QStringList(std::max(length, 0));
}

QStringList ArrayJoin(const QStringList& first, const QStringList& second)
{
    return first + second;
}

bool FileToBin(const QString& path)
{
    TheSeams().MoveToTrash(path);
    const QFileInfo file(path);
    return !file.exists() && !file.isSymLink(); // a dangling link still exists
}

QString BrowseFolder(const QString& title, const QString& start)
{
    return TheSeams().BrowseFolder({ title, start });
}

} // namespace tarvik
