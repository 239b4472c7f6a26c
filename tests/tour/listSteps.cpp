#include "tests/tour/listSteps.h"

#include "lists/antenna/antennaList.h"
#include "lists/correction/correctionSet.h"
#include "lists/kfactor/kfactorTable.h"
#include "lists/suppress/suppressList.h"
#include "tests/tour/controls.h"

#include <QTabWidget>

#include <cstdio>

namespace tarvik {

namespace {

const QString kFrame = QStringLiteral("MfMain");
const QString kAntennas = QStringLiteral("FmEditorAntenna");
const QString kTable = QStringLiteral("FmEditorKfactor");
const QString kSet = QStringLiteral("FmEditorCorrectionSet");
const QString kSuppress = QStringLiteral("FmEditorSuppress");
const QString kListName = QStringLiteral("Tour site");
const QString kTableName = QStringLiteral("Tour mast");
const QString kSetName = QStringLiteral("Tour set");
const QString kRangesName = QStringLiteral("Tour bands");

using Action = std::function<void(QWidget& form)>;
using Question = std::function<bool(QWidget& form)>;

TourStep Step(
    const char* picture, const QString& form, Action act, Question ready = [](QWidget&) { return true; })
{
    return { QString::fromLatin1(picture), form, std::move(act), std::move(ready) };
}

Action ClickOn(const char* button)
{
    return [button](QWidget& form) { Click(form, button); };
}

Action Menu(const char* item)
{
    return [item](QWidget& frame) { ChooseMenu(frame, item); };
}

Question Reads(const char* control, const QString& text)
{
    return [=](QWidget& form) { return Text(form, control) == text; };
}

Question IsTitled(const QString& end)
{
    return [end](QWidget& form) { return TitleEndsWith(form, end); };
}

TourStep SaveTo(const QString& folder)
{
    return Step("", QStringLiteral("FolderBrowser"), [folder](QWidget& dialog) { Choose(dialog, folder); });
}

/// Types texts into the cells of a row, in the columns of these names.
void TypeRow(QWidget& form, int row, const QStringList& columns, const QStringList& texts)
{
    for (qsizetype cell = 0; cell < columns.size(); ++cell)
        Type(form, qPrintable(QStringLiteral("%1[%2]").arg(columns[cell]).arg(row)), texts[cell]);
}

void TypeTable(QWidget& form)
{
    const QStringList columns{ "TbCol1", "TbCol2", "TbCol3" };
    TypeRow(form, 0, columns, { "30", "-2.5", "-12" });
    TypeRow(form, 1, columns, { "100", "8", "-1" });
    TypeRow(form, 2, columns, { "300", "17.5", "9" });
    Type(form, "TbName", kTableName);
    Click(form, "BtView");
}

/// The diagram is opened from the table's own editor, over that of the antennas.
std::vector<TourStep> TableSteps(const QString& folder)
{
    return {
        Step("kfactor-new", kTable, TypeTable),
        Step("diagram", QStringLiteral("FmDatasetViewer"), [](QWidget& diagram) { diagram.close(); }),
        Step("kfactor", kTable, ClickOn("BtSave"), Reads("TbCol1[2]", QStringLiteral("300.000000"))),
        SaveTo(folder),
        Step("", kTable, ClickOn("BtClose"), IsTitled(kTableName + QStringLiteral(".TVK"))),
    };
}

void TypeSet(QWidget& form)
{
    Type(form, "TbFileName", kSetName);
    Type(form, "TbAntName", QStringLiteral("Mast 2"));
    Type(form, "TbAntCode", QStringLiteral("7"));
    Type(form, "TbStartFreq", QStringLiteral("30"));
    Type(form, "TbStopFreq", QStringLiteral("300"));
    const QStringList kfactors{ "KT_TbCol_freq", "KT_TbCol_passive", "KT_TbCol_active" };
    TypeRow(form, 0, kfactors, { "30", "-2.5", "-12" });
    TypeRow(form, 1, kfactors, { "300", "17.5", "9" });
    Control<QTabWidget>(form, QStringLiteral("CsTab")).setCurrentIndex(2);
    const QStringList angles{ "AZ_TbCol_freq", "AZ_TbCol_azimuth" };
    TypeRow(form, 0, angles, { "30", "0 | 90 | 180 | 270" });
    TypeRow(form, 1, angles, { "300", "45 | 225" });
}

std::vector<TourStep> SetSteps(const QString& folder)
{
    return {
        Step("correction-new", kSet, TypeSet),
        Step("correction", kSet, ClickOn("BtSave")),
        SaveTo(folder),
        Step("", kSet, ClickOn("BtClose"), IsTitled(kSetName + QStringLiteral(".TVC"))),
    };
}

std::vector<TourStep> AntennaSteps(const QString& folder)
{
    std::vector<TourStep> steps{
        Step("", kFrame, Menu("MnToolsAntennaListEditor")),
        Step("antennas-new", kAntennas,
            [](QWidget& form) {
                Type(form, "TbName", kListName);
                Type(form, "TbAntennaName", QStringLiteral("Mast 2 broadband"));
                Click(form, "BtNewKfactor");
            }),
    };
    for (const TourStep& step : TableSteps(folder))
        steps.push_back(step);
    steps.push_back(Step("", kAntennas, ClickOn("BtNewCorrectionSet"), Reads("TbKfactor", kTableName)));
    for (const TourStep& step : SetSteps(folder))
        steps.push_back(step);
    steps.push_back(Step("antennas-linked", kAntennas, ClickOn("BtSave"), Reads("TbCorrectionSet", kSetName)));
    steps.push_back(SaveTo(folder));
    steps.push_back(Step("", kAntennas, ClickOn("BtClose"), IsTitled(kListName + QStringLiteral(".TVA"))));
    return steps;
}

std::vector<TourStep> SuppressSteps(const QString& folder)
{
    return {
        Step("", kFrame, Menu("MnToolsSuppressListEditor")),
        Step("suppress-new", kSuppress,
            [](QWidget& form) {
                Type(form, "TbName", kRangesName);
                const QStringList columns{ "TbCol2", "TbCol3" };
                TypeRow(form, 0, columns, { "100", "108" });
                TypeRow(form, 1, columns, { "87.5", "100" });
                Type(form, "TbCol4[1]", QStringLiteral("Broadcast band II"));
                Click(form, "CbCol1[0]");
                Click(form, "CbCol1[1]");
            }),
        Step("suppress-typed", kSuppress, ClickOn("BtSortMerge")),
        Step("suppress-merged", kSuppress, ClickOn("BtSave"), Reads("TbCol3[0]", QStringLiteral("108.000000"))),
        SaveTo(folder),
        Step("", kSuppress, ClickOn("BtClose"), IsTitled(kRangesName + QStringLiteral(".TVS"))),
    };
}

bool Require(bool condition, const char* what)
{
    if (!condition)
        std::fprintf(stderr, "the tour went wrong: %s\n", what);
    return condition;
}

bool CheckAntenna(const QString& folder)
{
    AntennaTable list;
    if (!Require(ReadAntennaFile(folder + kListName + QStringLiteral(".tva"), list), "the antenna list cannot be read"))
        return false;
    const AntennaRow& antenna = list.Row(0);
    return Require(antenna.Used && antenna.KfactorTableName == kTableName && antenna.CorrectionSetName == kSetName,
               "the antenna is not linked")
        && Require(antenna.StartFrequency == 30e6 && antenna.StopFrequency == 300e6,
            "the antenna has not the band of its table");
}

} // namespace

std::vector<TourStep> ListSteps(const QString& folder)
{
    std::vector<TourStep> steps = AntennaSteps(folder);
    for (const TourStep& step : SuppressSteps(folder))
        steps.push_back(step);
    return steps;
}

bool CheckListResults(const QString& folder)
{
    KfactorTable table;
    SuppressTable ranges;
    CorrSet set;
    return CheckAntenna(folder)
        && Require(LoadKfactorFile(folder + kTableName + QStringLiteral(".tvk"), table), "the table cannot be read")
        && Require(table.Count == 3 && table.Row(1).Frequency == 100e6 && table.Row(1).Passive == 8,
            "the table is not what was typed")
        && Require(LoadCorrSet(folder + kSetName + QStringLiteral(".tvc"), set), "the set cannot be read")
        && Require(UsedCorrEntries(CorrTableId::KFactor, set.Records) == 2
                && CorrAngles(set.Records, 0) == std::vector<double>({ 0, 90, 180, 270 }),
            "the set is not what was typed")
        && Require(ReadSuppressFile(folder + kRangesName + QStringLiteral(".tvs"), ranges), "the ranges cannot be read")
        && Require(ranges.Row(0).StartFrequency == 87.5e6 && ranges.Row(0).StopFrequency == 108e6 && !ranges.Row(1).Used
                && ranges.Row(0).Description == QLatin1String("Broadcast band II"),
            "the ranges are not merged");
}

} // namespace tarvik
