#include "app/PlatformSeams.h"

#include "app/KeyboardFilter.h"
#include "app/form.h"
#include "app/seams.h"
#include "app/startup.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

#include <algorithm>
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

QString FolderOf(const QString& asked)
{
    return asked.isEmpty() ? TheCommonDialog().InitialFolder : asked;
}

QString OpenFile(const OpenFileQuestion& question)
{
    QFileDialog dialog(QApplication::activeWindow(), question.Title, FolderOf(question.InitialFolder));
    dialog.setObjectName(QStringLiteral("OpenDialog"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters(DialogFilters(question.Filters));
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return dialog.selectedFiles().value(0);
}

QStringList OpenFiles(const OpenFilesQuestion& question)
{
    QFileDialog dialog(QApplication::activeWindow(), question.Title, FolderOf(question.InitialFolder));
    dialog.setObjectName(QStringLiteral("OpenDialog"));
    dialog.setFileMode(QFileDialog::ExistingFiles);
    dialog.setNameFilters(DialogFilters(question.Filters));
    dialog.setDefaultSuffix(question.DefaultExtension);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return dialog.selectedFiles();
}

/// The extension that a filter of the save dialog stands for.
QString ExtensionOfFilter(const QString& filter)
{
    return QFileInfo(filter.section(u'|', 1).section(u';', 0, 0)).suffix();
}

QString SaveFile(const SaveFileQuestion& question)
{
    const QStringList shown = DialogFilters(question.Filters);
    QFileDialog dialog(QApplication::activeWindow(), question.Title, FolderOf(question.InitialFolder));
    dialog.setObjectName(QStringLiteral("SaveDialog"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters(shown);
    SetControlHelp(&dialog, question.HelpNumber);
    const auto useFilter = [&](const QString& filter) {
        const auto at = std::max<qsizetype>(shown.indexOf(filter), 0);
        dialog.setDefaultSuffix(ExtensionOfFilter(question.Filters.value(at)));
    };
    QObject::connect(&dialog, &QFileDialog::filterSelected, useFilter);
    dialog.selectNameFilter(shown.value(question.FilterIndex - 1));
    useFilter(dialog.selectedNameFilter());
    dialog.selectFile(question.FileName);
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
    seams.OpenFiles = OpenFiles;
    seams.SaveFile = SaveFile;
    seams.SystemBox = SystemBox;
    seams.OpenUrl = [](const QUrl& url) { return QDesktopServices::openUrl(url); };
    seams.ArrowKeyIsHeld = [] { return KeyboardFilter::ArrowKeyIsHeld(); };
}
