#include "app/PlatformSeams.h"

#include "app/KeyboardFilter.h"
#include "app/seams.h"
#include "app/startup.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QMessageBox>

#include <cstdio>

namespace {

/// On this platform there is no eye to read a box and no hand to close it.
bool HasNoDisplay()
{
    return QGuiApplication::platformName() == QLatin1String("offscreen")
        || QGuiApplication::platformName() == QLatin1String("minimal");
}

QString BrowseFolder(const FolderQuestion& question)
{
    QFileDialog dialog(QApplication::activeWindow(), question.Title, question.Start);
    dialog.setObjectName(QStringLiteral("FolderBrowser"));
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return dialog.selectedFiles().value(0);
}

/// Filters are "description|pattern" pairs with patterns parted by semicolons, the dialog's by blanks.
QStringList DialogFilters(const QStringList& filters)
{
    QStringList shown;
    for (const QString& filter : filters) {
        const QStringList parts = filter.split(u'|');
        const QString pattern = parts.value(1).replace(u';', u' ');
        shown.append(QStringLiteral("%1 (%2)").arg(parts.value(0), pattern));
    }
    return shown;
}

QString OpenFile(const OpenFileQuestion& question)
{
    const QString folder = question.InitialFolder.isEmpty() ? TheCommonDialog().InitialFolder : question.InitialFolder;
    QFileDialog dialog(QApplication::activeWindow(), question.Title, folder);
    dialog.setObjectName(QStringLiteral("OpenDialog"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters(DialogFilters(question.Filters));
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return dialog.selectedFiles().value(0);
}

/// Told on standard error as well: this box speaks of a program that can't start, perhaps to a script.
void SystemBox(const QString& title, const QString& text)
{
    QString shown = text;
    shown.replace(u'\r', u'\n');
    std::fprintf(stderr, "%s: %s\n", qPrintable(title), qPrintable(shown));
    if (HasNoDisplay())
        return;
    QMessageBox box(QMessageBox::Warning, title, shown, QMessageBox::Ok);
    box.setObjectName(QStringLiteral("SystemBox"));
    box.exec();
}

} // namespace

void BindPlatformSeams()
{
    Seams& seams = TheSeams();
    seams.BrowseFolder = BrowseFolder;
    seams.OpenFile = OpenFile;
    seams.SystemBox = SystemBox;
    seams.OpenUrl = [](const QUrl& url) { return QDesktopServices::openUrl(url); };
    seams.ArrowKeyIsHeld = [] { return KeyboardFilter::ArrowKeyIsHeld(); };
}
