#include "lists/memory/fmEditorMemoryListProp.h"

#include "app/forms/focusRules.h"
#include "app/help/help.h"
#include "app/text/lang.h"
#include "link/classes/textRules.h"
#include "lists/editor/editorGeneral.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>

namespace tarvik {

namespace {

constexpr int kFormHelp = 10739;
constexpr int kValueHelp = 10825;
constexpr int kNumberLength = 13;
constexpr int kStatusAccepted = 0;
constexpr int kStatusCancelled = 1;

/// Keeps cursor and mark of a text that stays the same.
void ShowText(QLineEdit* textBox, const QString& text)
{
    if (textBox->text() != text)
        textBox->setText(text);
}

} // namespace

fmEditorMemoryListProp::fmEditorMemoryListProp(QWidget* parent)
    : FormBase("fmEditorMemoryListProp", parent)
{
    SetHelpNumber(kFormHelp);
    auto* layout = new QGridLayout(this);
    layout->addWidget(BuildReceiver(), 0, 0);
    layout->addWidget(BuildDirectionFinder(), 0, 1);
    layout->addWidget(BuildEntry(), 1, 0, 1, 2);
    layout->addWidget(BuildButtons(), 2, 0, 1, 2);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    WatchChanges();
}

QLineEdit* fmEditorMemoryListProp::AddText(
    QGridLayout* layout, const char* label, int text, const char* name, int length, const char* unit, int unitText)
{
    QWidget* parent = layout->parentWidget();
    const int row = layout->rowCount();
    QLabel* caption = NewLabel(parent, label, { text });
    QLineEdit* textBox = NewTextBox(parent, name, kValueHelp, length);
    BindLabel(caption, textBox);
    EnterAsTab(textBox);
    MarkTextOnEnter(textBox);
    layout->addWidget(caption, row, 0);
    layout->addWidget(textBox, row, 1);
    if (unit != nullptr)
        layout->addWidget(NewLabel(parent, unit, { unitText }), row, 2);
    return textBox;
}

QComboBox* fmEditorMemoryListProp::AddCombo(
    QGridLayout* layout, const char* label, int text, const char* name, const CodeTable& codes)
{
    QWidget* parent = layout->parentWidget();
    const int row = layout->rowCount();
    QLabel* caption = NewLabel(parent, label, { text });
    QComboBox* combo = NewCombo(parent, name, kValueHelp);
    for (int code = 0; code < codes.Count; ++code)
        combo->addItem(CodeToStr(codes, code));
    BindLabel(caption, combo);
    layout->addWidget(caption, row, 0);
    layout->addWidget(combo, row, 1);
    return combo;
}

QWidget* fmEditorMemoryListProp::BuildReceiver()
{
    auto* group = new QGroupBox(this);
    auto* layout = new QGridLayout(group);
    TbFrequency = AddText(layout, "LbFreq", 10912, "TbFrequency", kNumberLength, "LbFreqUnit", 10922);
    CbModulation = AddCombo(layout, "LbModu", 10913, "CbModulation", kDemodulationCodes);
    CbBandwidth = AddCombo(layout, "LbBandwidth", 10914, "CbBandwidth", kBandwidthCodes);
    CbSquelchStat = AddCombo(layout, "LbSquelchStatus", 10916, "CbSquelchStat", kSquelchStatusCodes);
    TbSquelchVal = AddText(layout, "LbSquelchVal", 10915, "TbSquelchVal", kNumberLength, "LbSquelchUnit", 10923);
    TbAttennaNumber = AddText(layout, "LbAntennaNumber", 10917, "TbAttennaNumber", kNumberLength);
    CbAttnStatus = AddCombo(layout, "LbAttenuatorStatus", 10918, "CbAttnStatus", kAttenuatorStatusCodes);
    CbAFCStatus = AddCombo(layout, "LbAFCStatus", 10919, "CbAFCStatus", kAfcStatusCodes);
    return group;
}

QWidget* fmEditorMemoryListProp::BuildDirectionFinder()
{
    auto* group = new QGroupBox(this);
    auto* layout = new QGridLayout(group);
    CbDFSquelchStat = AddCombo(layout, "LbDFSquelchStatus", 10924, "CbDFSquelchStat", kDfSquelchStatusCodes);
    TbDFSquelchVal =
        AddText(layout, "LbDFSquelchVal", 10925, "TbDFSquelchVal", kNumberLength, "LbDFSquelchUnit", 10923);
    TbDFMeasurementTime = AddText(
        layout, "LbDFMeasurementTime", 10926, "TbDFMeasurementTime", kNumberLength, "LbDFMeasurementTimeUnit", 10929);
    CbFrequencySpan = AddCombo(layout, "LbFrequencySpan", 10927, "CbFrequencySpan", kFrequencySpanCodes);
    CbDFStep = AddCombo(layout, "LbDFStep", 10928, "CbDFStep", kDfStepCodes);
    CbDFBw = AddCombo(layout, "LbDFBw", 10967, "CbDFBw", kDfBandwidthCodes);
    layout->setRowStretch(layout->rowCount(), 1);
    return group;
}

QWidget* fmEditorMemoryListProp::BuildEntry()
{
    auto* group = new QGroupBox(this);
    auto* layout = new QGridLayout(group);
    TbDescription = AddText(layout, "LbDescr", 10920, "TbDescription", kTextLength);
    CbStatus = AddCombo(layout, "LbStatus", 10921, "CbStatus", kMemoryStatusCodes);
    TbDescription->setMinimumWidth(fontMetrics().horizontalAdvance(u'0') * (kTextLength + 2));
    layout->setAlignment(CbStatus, Qt::AlignLeft);
    layout->setColumnStretch(2, 1);
    return group;
}

QWidget* fmEditorMemoryListProp::BuildButtons()
{
    auto* buttons = new QWidget(this);
    auto* layout = new QHBoxLayout(buttons);
    layout->setContentsMargins({});
    QPushButton* BtDelete = NewButton(buttons, "BtDelete", { 10711, 10712 });
    QPushButton* BtOk = NewButton(buttons, "BtOk", { 10705, 10706 });
    QPushButton* BtCancel = NewButton(buttons, "BtCancel", { 10707, 10708 });
    QPushButton* BtHelp = NewButton(buttons, "BtHelp", { 10733, 10734 });
    layout->addWidget(BtDelete);
    layout->addStretch(1);
    for (QPushButton* button : { BtOk, BtCancel, BtHelp })
        layout->addWidget(button);
    for (QPushButton* button : { BtDelete, BtCancel, BtHelp })
        LeaveFreely(button);
    connect(BtDelete, &QPushButton::clicked, this, &fmEditorMemoryListProp::OnDelete);
    connect(BtOk, &QPushButton::clicked, this, &fmEditorMemoryListProp::OnOk);
    connect(BtCancel, &QPushButton::clicked, this, [this] { DialogEnd(*this, kStatusCancelled); });
    connect(BtHelp, &QPushButton::clicked, this, [] { ShowHelp(kFormHelp); });
    return buttons;
}

void fmEditorMemoryListProp::WatchChanges()
{
    const auto changed = [] { Editor().EditorDirty = true; };
    for (QLineEdit* textBox : findChildren<QLineEdit*>())
        connect(textBox, &QLineEdit::textChanged, this, changed);
    for (QComboBox* combo : findChildren<QComboBox*>())
        connect(combo, &QComboBox::currentIndexChanged, this, changed);
    CheckLeaving(TbFrequency, MemoryEntryField::Frequency);
    CheckLeaving(TbSquelchVal, MemoryEntryField::SquelchLevel);
    CheckLeaving(TbAttennaNumber, MemoryEntryField::AntennaNumber);
    CheckLeaving(TbDescription, MemoryEntryField::Description);
    CheckLeaving(TbDFSquelchVal, MemoryEntryField::DfSquelchLevel);
    CheckLeaving(TbDFMeasurementTime, MemoryEntryField::DfMeasurementTime);
}

void fmEditorMemoryListProp::CheckLeaving(QLineEdit* textBox, MemoryEntryField field)
{
    CheckOnLeave(textBox, [this, field] {
        MemoryEntryFields fields = Fields();
        const bool passed = CheckMemoryEntryField(field, fields);
        if (passed)
            ShowTexts(fields);
        return passed;
    });
}

bool fmEditorMemoryListProp::OnLoad()
{
    dirtyBefore_ = Editor().EditorDirty;
    accepted_ = false;
    DialogPush(*this, false);
    setWindowTitle(MemoryEntryTitle());
    {
        const QScopedValueRollback dirty(Editor().EditorDirty); // filling the controls is no change
        ShowFields(FieldsOfMemoryEntry());
    }
    TbFrequency->setFocus(Qt::TabFocusReason);
    return true;
}

void fmEditorMemoryListProp::OnUnload()
{
    if (!accepted_)
        Editor().EditorDirty = dirtyBefore_;
}

MemoryEntryFields fmEditorMemoryListProp::Fields() const
{
    MemoryEntryFields fields;
    fields.Frequency = TbFrequency->text();
    fields.Demodulation = CbModulation->currentIndex();
    fields.Bandwidth = CbBandwidth->currentIndex();
    fields.SquelchLevel = TbSquelchVal->text();
    fields.SquelchStatus = CbSquelchStat->currentIndex();
    fields.AntennaNumber = TbAttennaNumber->text();
    fields.AttenuatorStatus = CbAttnStatus->currentIndex();
    fields.AfcStatus = CbAFCStatus->currentIndex();
    fields.Description = TbDescription->text();
    fields.Status = CbStatus->currentIndex();
    fields.DfSquelchStatus = CbDFSquelchStat->currentIndex();
    fields.DfSquelchLevel = TbDFSquelchVal->text();
    fields.DfMeasurementTime = TbDFMeasurementTime->text();
    fields.FrequencySpan = CbFrequencySpan->currentIndex();
    fields.DfStep = CbDFStep->currentIndex();
    fields.DfBandwidth = CbDFBw->currentIndex();
    return fields;
}

void fmEditorMemoryListProp::ShowTexts(const MemoryEntryFields& fields)
{
    ShowText(TbFrequency, fields.Frequency);
    ShowText(TbSquelchVal, fields.SquelchLevel);
    ShowText(TbAttennaNumber, fields.AntennaNumber);
    ShowText(TbDescription, fields.Description);
    ShowText(TbDFSquelchVal, fields.DfSquelchLevel);
    ShowText(TbDFMeasurementTime, fields.DfMeasurementTime);
}

void fmEditorMemoryListProp::ShowFields(const MemoryEntryFields& fields)
{
    ShowTexts(fields);
    CbModulation->setCurrentIndex(fields.Demodulation);
    CbBandwidth->setCurrentIndex(fields.Bandwidth);
    CbSquelchStat->setCurrentIndex(fields.SquelchStatus);
    CbAttnStatus->setCurrentIndex(fields.AttenuatorStatus);
    CbAFCStatus->setCurrentIndex(fields.AfcStatus);
    CbStatus->setCurrentIndex(fields.Status);
    CbDFSquelchStat->setCurrentIndex(fields.DfSquelchStatus);
    CbFrequencySpan->setCurrentIndex(fields.FrequencySpan);
    CbDFStep->setCurrentIndex(fields.DfStep);
    CbDFBw->setCurrentIndex(fields.DfBandwidth);
}

QWidget* fmEditorMemoryListProp::ControlOf(MemoryEntryField field) const
{
    switch (field) {
    case MemoryEntryField::SquelchLevel:
        return TbSquelchVal;
    case MemoryEntryField::AntennaNumber:
        return TbAttennaNumber;
    case MemoryEntryField::Bandwidth:
        return CbBandwidth;
    case MemoryEntryField::AfcStatus:
        return CbAFCStatus;
    case MemoryEntryField::DfSquelchLevel:
        return TbDFSquelchVal;
    case MemoryEntryField::DfMeasurementTime:
        return TbDFMeasurementTime;
    case MemoryEntryField::FrequencySpan:
        return CbFrequencySpan;
    case MemoryEntryField::Description:
        return TbDescription;
    default:
        return TbFrequency;
    }
}

void fmEditorMemoryListProp::OnOk()
{
    if (!CheckFocused(this)) // a mnemonic takes the focus from no control
        return;
    MemoryEntryFields fields = Fields();
    const MemoryEntryField failed = AcceptMemoryEntry(fields);
    ShowTexts(fields);
    if (failed != MemoryEntryField::None) {
        ControlOf(failed)->setFocus(Qt::OtherFocusReason);
        return;
    }
    accepted_ = true;
    DialogEnd(*this, kStatusAccepted);
}

void fmEditorMemoryListProp::OnDelete()
{
    DeleteMemoryEntry();
    Editor().EditorDirty = true;
    accepted_ = true;
    DialogEnd(*this, kStatusAccepted);
}

} // namespace tarvik
