#include "tests/tour/steps.h"

#include "tests/tour/controls.h"
#include "tests/tour/instrument.h"
#include "tests/tour/listSteps.h"
#include "tests/tour/screenSteps.h"

#include <QComboBox>
#include <QTest>

namespace tarvik {

namespace {

const QString kFrame = QStringLiteral("MfMain");
const QString kEditor = QStringLiteral("FmEditorMemory");
const QString kControl = QStringLiteral("FmControlGeneral");
const QString kMessage = QStringLiteral("FmMessage");
const QString kTourList = QString::fromLatin1(kTourListName) + QStringLiteral(".tvm");
const QString kFirstList = QString::fromLatin1(kTourFirstList);
const QString kShot = QStringLiteral("Channel 16.png");
const QString kOtherShot = QStringLiteral("Navigation safety.png");

using Action = std::function<void(QWidget& form)>;
using Question = std::function<bool(QWidget& form)>;

TourStep Step(
    const char* picture, const QString& form, Action act, Question ready = [](QWidget&) { return true; })
{
    return { QString::fromLatin1(picture), form, std::move(act), std::move(ready) };
}

TourStep ChooseStep(const char* picture, const char* dialog, const QString& path)
{
    return Step(picture, QString::fromLatin1(dialog), [path](QWidget& form) { Choose(form, path); });
}

Action ClickOn(const char* button)
{
    return [button](QWidget& form) { Click(form, button); };
}

Action ClickRowAnd(const char* list, const QString& row, const char* button)
{
    return [=](QWidget& form) {
        ClickRow(form, list, row);
        Click(form, button);
    };
}

Action Open(const char* list, const QString& row)
{
    return [=](QWidget& form) { DoubleClickRow(form, list, row); };
}

Action Name(const char* list, const QString& name)
{
    return [=](QWidget& form) { TypeRowName(form, list, name); };
}

Action Menu(const char* item)
{
    return [item](QWidget& form) { ChooseMenu(form, item); };
}

Question Shows(const char* list, const QString& row)
{
    return [=](QWidget& form) { return HasRow(form, list, row); };
}

Question ShowsNot(const char* list, const QString& row)
{
    return [=](QWidget& form) { return !HasRow(form, list, row); };
}

TourStep Yes(const char* picture = "")
{
    return Step(picture, kMessage, ClickOn("BtYes"));
}

/// The outcome is shown for a while, then the form closes by itself.
TourStep Connected(const char* picture)
{
    return Step(
        picture, QStringLiteral("FmConnecting"), [](QWidget&) {},
        [](QWidget& form) { return Text(form, "TbStatus") == QLatin1String("Connected."); });
}

std::vector<TourStep> FetchSteps()
{
    return {
        Step("logo", QStringLiteral("FmLogo"), [](QWidget&) {}),
        Connected("connected"),
        Step("frame", kFrame, Menu("MnInstrMemoryListControl")),
        Step("memory-control", kControl, ClickRowAnd("LvInstr", kFirstList, "BtDl"), Shows("LvInstr", kFirstList)),
        Step("downloaded", kControl, ClickRowAnd("LvPc", kFirstList, "BtPcEdit[2]"), Shows("LvPc", kFirstList)),
    };
}

std::vector<TourStep> EditSteps()
{
    return {
        Step("opened", kEditor,
            [](QWidget& form) {
                Type(form, "TbCol3[2]", QString::fromLatin1(kTourFrequencyMhz));
                QTest::keyClick(&Control(form, QStringLiteral("TbCol3[2]")), Qt::Key_Down);
                Type(form, "TbName", QString::fromLatin1(kTourListName));
                QTest::keyClick(&Control(form, QStringLiteral("TbName")), Qt::Key_Return);
            }),
        Step("edited", kEditor, ClickOn("BtEdit"),
            [](QWidget& form) { return Text(form, "TbCol3[2]") == QLatin1String(kTourFrequencyMhz); }),
        Step("entry", QStringLiteral("fmEditorMemoryListProp"), ClickOn("BtOk")),
        Step("back", kEditor, ClickOn("LbHdr3")),
    };
}

std::vector<TourStep> SaveSteps(const QString& folder)
{
    const QString csv = QString::fromLatin1(kTourListName) + QStringLiteral(".csv");
    const auto titled = [](const QString& end) { return [end](QWidget& form) { return TitleEndsWith(form, end); }; };
    return {
        Step("sorted", kEditor, ClickOn("BtSave"),
            [](QWidget& form) { return Text(form, "TbCol3[0]") == QLatin1String(kTourFrequencyMhz); }),
        ChooseStep("folder", "FolderBrowser", folder),
        Step("saved-binary", kEditor, ClickOn("BtOpen"), titled(QStringLiteral(".TVM"))),
        ChooseStep("open", "OpenDialog", folder + kTourList),
        Step(
            "opened-again", kEditor,
            [](QWidget& form) {
                Control<QComboBox>(form, QStringLiteral("CbExt")).setCurrentIndex(1);
                Click(form, "BtSave");
            },
            titled(kTourList)),
        ChooseStep("", "FolderBrowser", folder),
        Step("saved-csv", kEditor, ClickOn("BtClose"), titled(csv)),
    };
}

/// The instrument holds one memory list: the new one replaces it. It is fetched again and compared.
std::vector<TourStep> SendSteps()
{
    return {
        Step("listed", kControl, ClickRowAnd("LvPc", kTourList, "BtUl"), Shows("LvPc", kTourList)),
        Yes("replace"),
        Step("", kControl, ClickOn("BtInstrRef")),
        Step("uploaded", kControl, ClickRowAnd("LvInstr", kTourList, "BtDl"), Shows("LvInstr", kTourList)),
        Yes("replace-on-pc"),
        Step("downloaded-again", kControl, ClickOn("BtClose"), Shows("LvPc", kTourList)),
    };
}

/// The same steps on the file lists of both sides, PC first.
std::vector<TourStep> CleanUpSteps(const char* list, const char* newFolder, const char* rename, const char* remove)
{
    const QString fresh = QStringLiteral("New Folder");
    const QString named = QStringLiteral("Tour shots");
    const bool isPc = QLatin1String(list) == QLatin1String("LvPc");
    return {
        Step("", kControl, ClickOn(newFolder)),
        Step(isPc ? "new-folder-pc" : "new-folder", kControl, Name(list, named), Shows(list, fresh)),
        Step(isPc ? "renamed-folder-pc" : "renamed-folder", kControl, ClickRowAnd(list, kShot, rename),
            Shows(list, named)),
        Step("", kControl, Name(list, QStringLiteral("Renamed.png"))),
        Step("", kControl, ClickRowAnd(list, QStringLiteral("Renamed.png"), remove),
            Shows(list, QStringLiteral("Renamed.png"))),
        Yes(isPc ? "delete-pc" : "delete"),
        Step("", kControl, ClickRowAnd(list, named, remove), ShowsNot(list, QStringLiteral("Renamed.png"))),
        Yes(),
        Step(
            isPc ? "deleted-pc" : "deleted", kControl, [](QWidget&) {}, ShowsNot(list, named)),
    };
}

std::vector<TourStep> OpenShotsSteps()
{
    return {
        Step("", kFrame, Menu("ClMnInstrScreenShotControl")),
        Step("shots-root", kControl, Open("LvInstr", QStringLiteral("Public")),
            Shows("LvInstr", QStringLiteral("Public"))),
        Step("", kControl, Open("LvInstr", QStringLiteral("Screen Shots")),
            Shows("LvInstr", QStringLiteral("Screen Shots"))),
        Step(
            "shots", kControl,
            [](QWidget& form) {
                Click(form, "BtInstrSel");
                Click(form, "BtDl");
            },
            Shows("LvInstr", kShot)),
        Step(
            "shots-downloaded", kControl, [](QWidget&) {}, Shows("LvPc", kOtherShot)),
    };
}

std::vector<TourStep> LostSteps(TourInstrument& instrument)
{
    return {
        Step("", kControl,
            [&instrument](QWidget& form) {
                instrument.Stop();
                Click(form, "BtInstrDirUp");
            }),
        Step("lost", kMessage, ClickOn("BtOk")),
        Step("not-connected", kFrame,
            [&instrument](QWidget& form) {
                instrument.Start();
                ChooseMenu(form, "MnInstrConnect");
            }),
        Step("connect", QStringLiteral("FmConnect"), ClickOn("BtCon")),
        Connected("found-again"),
    };
}

std::vector<TourStep> EndSteps()
{
    return { Step("end", kFrame, [](QWidget& form) { form.close(); }) };
}

} // namespace

std::vector<TourStep> TourSteps(const TourFolders& folders, TourInstrument& instrument)
{
    std::vector<TourStep> steps;
    for (const std::vector<TourStep>& part : { FetchSteps(), EditSteps(), SaveSteps(folders.MemoryLists), SendSteps(),
             OpenShotsSteps(), CleanUpSteps("LvPc", "BtPcDirNew", "BtPcRen", "BtPcDel"),
             CleanUpSteps("LvInstr", "BtInstrDirNew", "BtInstrRen", "BtInstrDel"), LostSteps(instrument),
             ScreenSteps(folders.Pictures), ListSteps(folders.OtherLists), EndSteps() })
        steps.insert(steps.end(), part.begin(), part.end());
    return steps;
}

} // namespace tarvik
