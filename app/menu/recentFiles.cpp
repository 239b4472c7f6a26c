#include "app/menu/recentFiles.h"

#include "app/menu/frameDocuments.h"
#include "app/platform/paths.h"
#include "app/platform/processState.h"
#include "app/state/project.h"
#include "app/state/statusBar.h"
#include "app/values/strings.h"

#include <QDir>
#include <QFileInfo>

namespace tarvik {

namespace {

constexpr int kPathCharacters = 60;

QStringList& Files()
{
    static ProcessState<QStringList> files;
    return files.Get();
}

/// Keeps the name and as many of its folders as fit.
QString Shortened(const QString& path)
{
    if (path.size() <= kPathCharacters)
        return path;
    QString end = path.right(kPathCharacters - 1);
    if (const qsizetype folder = end.indexOf(QDir::separator()); folder >= 0)
        end.remove(0, folder);
    else if (end.front().isLowSurrogate())
        end.remove(0, 1);
    return u'…' + end;
}

} // namespace

const QStringList& RecentFiles()
{
    return Files();
}

void RecentFileAdd(const QString& path)
{
    const QString file = QDir::cleanPath(QFileInfo(ResolveParentSteps(path)).absoluteFilePath());
    Files().removeAll(file);
    Files().prepend(file);
    if (Files().size() > kRecentFiles)
        Files().removeLast();
}

void RecentFilesClear()
{
    Files().clear();
}

QString RecentFileCaption(int number, const QString& path)
{
    return QStringLiteral("&%1 ").arg(number) + StrCaption(Shortened(QDir::toNativeSeparators(path)));
}

void RecentFileOpen(const QString& path)
{
    if (!CanAct())
        return;
    const BusyScope busy;
    SetLastFile(path);
    TheFrameDocuments()->Open(path);
}

} // namespace tarvik
