#include "tests/tour/steps.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>

namespace {

const QString kEditor = QStringLiteral("FmEditorMemory");

template <typename Kind = QWidget>
Kind& Control(QWidget& form, const QString& name)
{
    auto* control = form.findChild<Kind*>(name);
    if (control == nullptr)
        qFatal("%s has no %s", qPrintable(form.objectName()), qPrintable(name));
    return *control;
}

void Click(QWidget& form, const char* name)
{
    QTest::mouseClick(&Control(form, QString::fromLatin1(name)), Qt::LeftButton);
}

void Type(QWidget& form, const char* name, const QString& text)
{
    QWidget& box = Control(form, QString::fromLatin1(name));
    QTest::mouseClick(&box, Qt::LeftButton);
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&box, text);
}

QString Text(QWidget& form, const char* name)
{
    return Control<QLineEdit>(form, QString::fromLatin1(name)).text();
}

bool TitleEndsWith(QWidget& form, const QString& end)
{
    return form.windowTitle().endsWith(end);
}

void Choose(QWidget& dialog, const QString& path)
{
    auto& name = Control<QLineEdit>(dialog, QStringLiteral("fileNameEdit"));
    name.setText(path);
    QTest::keyClick(&name, Qt::Key_Return);
}

TourStep ChooseStep(const char* picture, const char* dialog, const QString& path)
{
    return { QString::fromLatin1(picture), QString::fromLatin1(dialog), [path](QWidget& form) { Choose(form, path); } };
}

std::vector<TourStep> EditSteps()
{
    return {
        { QStringLiteral("logo"), QStringLiteral("FmLogo"), [](QWidget&) {} },
        { QStringLiteral("opened"), kEditor,
            [](QWidget& form) {
                Type(form, "TbCol3[2]", QString::fromLatin1(kTourFrequencyMhz));
                QTest::keyClick(&Control(form, QStringLiteral("TbCol3[2]")), Qt::Key_Down);
                Type(form, "TbName", QString::fromLatin1(kTourListName));
                QTest::keyClick(&Control(form, QStringLiteral("TbName")), Qt::Key_Return);
            } },
        { QStringLiteral("edited"), kEditor, [](QWidget& form) { Click(form, "BtEdit"); },
            [](QWidget& form) { return Text(form, "TbCol3[2]") == QString::fromLatin1(kTourFrequencyMhz); } },
        { QStringLiteral("entry"), QStringLiteral("fmEditorMemoryListProp"),
            [](QWidget& form) { Click(form, "BtOk"); } },
        { QStringLiteral("back"), kEditor, [](QWidget& form) { Click(form, "LbHdr3"); } },
    };
}

std::vector<TourStep> SaveSteps(const QString& folder)
{
    const QString binary = QString::fromLatin1(kTourListName) + QStringLiteral(".tvm");
    const QString csv = QString::fromLatin1(kTourListName) + QStringLiteral(".csv");
    return {
        { QStringLiteral("sorted"), kEditor, [](QWidget& form) { Click(form, "BtSave"); },
            [](QWidget& form) { return Text(form, "TbCol3[0]") == QString::fromLatin1(kTourFrequencyMhz); } },
        ChooseStep("folder", "FolderBrowser", folder),
        { QStringLiteral("saved-binary"), kEditor, [](QWidget& form) { Click(form, "BtOpen"); },
            [](QWidget& form) { return TitleEndsWith(form, QStringLiteral(".TVM")); } },
        ChooseStep("open", "OpenDialog", folder + binary),
        { QStringLiteral("opened-again"), kEditor,
            [](QWidget& form) {
                Control<QComboBox>(form, QStringLiteral("CbExt")).setCurrentIndex(1);
                Click(form, "BtSave");
            },
            [binary](QWidget& form) { return TitleEndsWith(form, binary); } },
        ChooseStep("", "FolderBrowser", folder),
        { QStringLiteral("saved-csv"), kEditor, [](QWidget& form) { Click(form, "BtClose"); },
            [csv](QWidget& form) { return TitleEndsWith(form, csv); } },
        { QStringLiteral("frame"), QStringLiteral("MfMain"), [](QWidget& form) { form.close(); } },
    };
}

} // namespace

std::vector<TourStep> TourSteps(const QString& folder)
{
    std::vector<TourStep> steps = EditSteps();
    const std::vector<TourStep> saving = SaveSteps(folder);
    steps.insert(steps.end(), saving.begin(), saving.end());
    return steps;
}
