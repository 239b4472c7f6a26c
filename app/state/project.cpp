#include "app/state/project.h"

#include "app/platform/processState.h"
#include "app/state/dialogStack.h"

#include <QDir>
#include <QFileInfo>

#include <array>

namespace tarvik {

namespace {

constexpr std::array kVersion{ TV_PRODUCT_VERSION }; // from the build

QString UpperCasedFolder(const QString& folder)
{
#if defined(Q_OS_WIN) || defined(Q_OS_MACOS)
    return folder.toUpper();
#else
    return folder; // upper case would name another folder here
#endif
}

} // namespace

QString ProductTitle()
{
    return QStringLiteral("Tarvik");
}

QString ProductVersionText()
{
    return ProductVersionNumbers();
}

int ProductMajor()
{
    return kVersion[0];
}

int ProductMinor()
{
    return kVersion[1];
}

int ProductBuild()
{
    return kVersion[2];
}

int ProductSecondBuild()
{
    return kVersion[3];
}

QString ProductVersionNumbers()
{
    return QStringLiteral("%1.%2.%3").arg(ProductMajor()).arg(ProductMinor()).arg(ProductBuild());
}

ProgramState& Program()
{
    static ProcessState<ProgramState> state;
    return state.Get();
}

bool CanAct()
{
    return !DialogIsOpen() && Program().Idle;
}

void SetLastFile(const QString& path)
{
    const QFileInfo info(path.trimmed());
    LastFileName& last = Program().LastFile;
    last.Path = info.filePath();
    QString folder = QDir::toNativeSeparators(info.path());
    if (!folder.endsWith(QDir::separator()))
        folder.append(QDir::separator());
    last.Folder = UpperCasedFolder(folder);
    last.Name = info.completeBaseName();
    last.Extension = info.suffix().toLower();
}

QString TemporaryFileName(int number, const QString& extension)
{
    return QStringLiteral("temp%1.%2").arg(number, 2, 10, QLatin1Char('0')).arg(extension);
}

QString HelpFileName()
{
    return QStringLiteral("TARVIK.chm");
}

} // namespace tarvik
