#include "app/frame/PlatformSeams.h"

#include "app/forms/focusRules.h"
#include "app/forms/form.h"
#include "app/frame/KeyboardFilter.h"
#include "app/frame/startup.h"
#include "app/platform/seams.h"
#include "app/state/project.h"

#include <QApplication>
#include <QComboBox>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeDatabase>
#include <QScreen>
#include <QTreeView>

#include <algorithm>

namespace tarvik {

namespace {

/// True for platforms where nobody can read or close a box.
bool HasNoDisplay()
{
    return QGuiApplication::platformName() == QLatin1String("offscreen")
        || QGuiApplication::platformName() == QLatin1String("minimal");
}

constexpr QSize kDialogSize(820, 500);

/// Makes names, sizes, kinds and dates of files fit their columns. A native dialog has no such list and its own size.
void ShowWholeEntries(QFileDialog& dialog)
{
    const auto* files = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
    if (files == nullptr)
        return;
    files->header()->setStretchLastSection(false);
    files->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    files->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    dialog.resize(kDialogSize.boundedTo(dialog.screen()->availableSize()));
}

/// Common to all file dialogs.
void Prepare(QFileDialog& dialog)
{
    ShowWholeEntries(dialog);
    for (QComboBox* combo : dialog.findChildren<QComboBox*>())
        WheelNeedsFocus(combo);
}

QString BrowseFolder(const FolderQuestion& question)
{
    QFileDialog dialog(QApplication::activeWindow(), question.Title, question.Start);
    dialog.setObjectName(QStringLiteral("FolderBrowser"));
    Prepare(dialog);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return dialog.selectedFiles().value(0);
}

/// Filters are "description|pattern" pairs with patterns separated by semicolons, the dialog's by blanks.
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

QStringList AskToOpen(const OpenFilesQuestion& question, QFileDialog::FileMode mode)
{
    QFileDialog dialog(QApplication::activeWindow(), question.Title, FolderOf(question.InitialFolder));
    dialog.setObjectName(QStringLiteral("OpenDialog"));
    Prepare(dialog);
    dialog.setFileMode(mode);
    dialog.setNameFilters(DialogFilters(question.Filters));
    dialog.setDefaultSuffix(question.DefaultExtension);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles() : QStringList();
}

QString OpenFile(const OpenFileQuestion& question)
{
    return AskToOpen({ question.Title, question.InitialFolder, question.Filters, {} }, QFileDialog::ExistingFile)
        .value(0);
}

QStringList OpenFiles(const OpenFilesQuestion& question)
{
    return AskToOpen(question, QFileDialog::ExistingFiles);
}

/// The extension of a filter.
QString ExtensionOfFilter(const QString& filter)
{
    return QFileInfo(filter.section(u'|', 1).section(u';', 0, 0)).suffix();
}

/// A save dialog that recognises only known extensions: "Tower.2024" has none, so the filter's is added before the
/// check for an existing file.
class SaveDialog final : public QFileDialog {
public:
    explicit SaveDialog(const SaveFileQuestion& question)
        : QFileDialog(QApplication::activeWindow(), question.Title, FolderOf(question.InitialFolder))
        , filters_(question.Filters)
    {
        setObjectName(QStringLiteral("SaveDialog"));
        Prepare(*this);
        setAcceptMode(QFileDialog::AcceptSave);
        setFileMode(QFileDialog::AnyFile);
        const QStringList shown = DialogFilters(filters_);
        setNameFilters(shown);
        SetControlHelp(this, question.HelpNumber);
        connect(this, &QFileDialog::filterSelected, this, [this] { UseFilter(); });
        selectNameFilter(shown.value(question.FilterIndex - 1));
        UseFilter();
        if (!question.FileName.isEmpty())
            selectFile(question.FileName + u'.' + defaultSuffix());
    }

    /// Checks for the file that will be written: callers trim the path.
    void accept() override
    {
        auto* edit = findChild<QLineEdit*>(QStringLiteral("fileNameEdit")); // a native dialog has none
        if (edit != nullptr) {
            const QString name = WithExtension(edit->text().trimmed());
            if (name != edit->text())
                edit->setText(name);
        }
        QFileDialog::accept();
    }

private:
    void UseFilter()
    {
        const qsizetype at = DialogFilters(filters_).indexOf(selectedNameFilter());
        setDefaultSuffix(ExtensionOfFilter(filters_.value(std::max<qsizetype>(at, 0))));
    }

    QString WithExtension(QString name) const
    {
        if (!LacksExtension(QFileInfo(directory(), name)))
            return name;
        while (name.endsWith(u'.'))
            name.chop(1);
        return name + u'.' + defaultSuffix();
    }

    /// A number after the last point numbers a series and is no extension. The toolkit completes names without a point.
    bool LacksExtension(const QFileInfo& file) const
    {
        const QString end = file.suffix();
        if (file.isDir() || !file.fileName().contains(u'.'))
            return false;
        const auto isMeant = [&end](const QString& filter) {
            return ExtensionOfFilter(filter).compare(end, Qt::CaseInsensitive) == 0;
        };
        if (std::any_of(filters_.begin(), filters_.end(), isMeant))
            return false;
        return std::all_of(end.begin(), end.end(), [](QChar character) { return character.isDigit(); })
            || QMimeDatabase().mimeTypeForFile(file, QMimeDatabase::MatchExtension).isDefault();
    }

    QStringList filters_;
};

QString SaveFile(const SaveFileQuestion& question)
{
    SaveDialog dialog(question);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return dialog.selectedFiles().value(0);
}

const QString kSystemBox = QStringLiteral("SystemBox");

void SystemBox(const QString& title, const QString& text)
{
    if (HasNoDisplay() || Program().CloseRequested)
        return;
    QMessageBox box(QMessageBox::Warning, title, QString(text).replace(u'\r', u'\n'), QMessageBox::Ok);
    box.setObjectName(kSystemBox);
    box.exec();
}

} // namespace

void CloseSystemBox()
{
    QWidget* box = QApplication::activeModalWidget();
    if (box != nullptr && box->objectName() == kSystemBox)
        box->close();
}

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

} // namespace tarvik
