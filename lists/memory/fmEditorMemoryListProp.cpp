#include "lists/memory/fmEditorMemoryListProp.h"

#include "app/forms/focusRules.h"
#include "app/help/help.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
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

constexpr int kNumberLength = 13;
constexpr int kStatusAccepted = 0;
constexpr int kStatusCancelled = 1;

/// Keeps cursor and selection if the text does not change.
void ShowText(QLineEdit* textBox, const QString& text)
{
    if (textBox->text() != text)
        textBox->setText(text);
}

} // namespace

fmEditorMemoryListProp::fmEditorMemoryListProp(QWidget* parent)
    : FormBase("fmEditorMemoryListProp", parent)
{
    SetHelpNumber(HelpId::MemoryEntry);
    auto* layout = new QGridLayout(this);
    layout->addWidget(BuildReceiver(), 0, 0);
    layout->addWidget(BuildDirectionFinder(), 0, 1);
    layout->addWidget(BuildEntry(), 1, 0, 1, 2);
    layout->addWidget(BuildButtons(), 2, 0, 1, 2);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    WatchChanges();
}

QLineEdit* fmEditorMemoryListProp::AddText(QGridLayout* layout, const char* label, TextNumber<0> text, const char* name,
    int length, const char* unit, TextNumber<0> unitText)
{
    QWidget* parent = layout->parentWidget();
    const int row = layout->rowCount();
    QLabel* caption = NewLabel(parent, label, { text });
    QLineEdit* textBox = NewTextBox(parent, name, HelpId::MemoryEntryValue, length);
    BindLabel(caption, textBox);
    EnterAsTab(textBox);
    SelectAllOnFocus(textBox);
    layout->addWidget(caption, row, 0);
    layout->addWidget(textBox, row, 1);
    if (unit != nullptr)
        layout->addWidget(NewLabel(parent, unit, { unitText }), row, 2);
    return textBox;
}

QComboBox* fmEditorMemoryListProp::AddCombo(
    QGridLayout* layout, const char* label, TextNumber<0> text, const char* name, const CodeTable& codes)
{
    QWidget* parent = layout->parentWidget();
    const int row = layout->rowCount();
    QLabel* caption = NewLabel(parent, label, { text });
    QComboBox* combo = NewCombo(parent, name, HelpId::MemoryEntryValue);
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
    TbFrequency = AddText(
        layout, "LbFreq", TextId::EntryFrequency, "TbFrequency", kNumberLength, "LbFreqUnit", TextId::EntryMegahertz);
    CbModulation = AddCombo(layout, "LbModu", TextId::EntryDemodulation, "CbModulation", kDemodulationCodes);
    CbBandwidth = AddCombo(layout, "LbBandwidth", TextId::EntryBandwidth, "CbBandwidth", kBandwidthCodes);
    CbSquelchStat = AddCombo(layout, "LbSquelchStatus", TextId::EntrySquelch, "CbSquelchStat", kSquelchStatusCodes);
    TbSquelchVal = AddText(layout, "LbSquelchVal", TextId::EntrySquelchLevel, "TbSquelchVal", kNumberLength,
        "LbSquelchUnit", TextId::EntryDecibelMicrovolt);
    TbAttennaNumber = AddText(layout, "LbAntennaNumber", TextId::EntryAntennaNumber, "TbAttennaNumber", kNumberLength);
    CbAttnStatus =
        AddCombo(layout, "LbAttenuatorStatus", TextId::EntryAttenuator, "CbAttnStatus", kAttenuatorStatusCodes);
    CbAFCStatus = AddCombo(layout, "LbAFCStatus", TextId::EntryAfc, "CbAFCStatus", kAfcStatusCodes);
    return group;
}

QWidget* fmEditorMemoryListProp::BuildDirectionFinder()
{
    auto* group = new QGroupBox(this);
    auto* layout = new QGridLayout(group);
    CbDFSquelchStat =
        AddCombo(layout, "LbDFSquelchStatus", TextId::EntryDfSquelch, "CbDFSquelchStat", kDfSquelchStatusCodes);
    TbDFSquelchVal = AddText(layout, "LbDFSquelchVal", TextId::EntryDfSquelchLevel, "TbDFSquelchVal", kNumberLength,
        "LbDFSquelchUnit", TextId::EntryDecibelMicrovolt);
    TbDFMeasurementTime = AddText(layout, "LbDFMeasurementTime", TextId::EntryDfMeasurementTime, "TbDFMeasurementTime",
        kNumberLength, "LbDFMeasurementTimeUnit", TextId::EntrySeconds);
    CbFrequencySpan =
        AddCombo(layout, "LbFrequencySpan", TextId::EntryFrequencySpan, "CbFrequencySpan", kFrequencySpanCodes);
    CbDFStep = AddCombo(layout, "LbDFStep", TextId::EntryDfStep, "CbDFStep", kDfStepCodes);
    CbDFBw = AddCombo(layout, "LbDFBw", TextId::EntryDfBandwidth, "CbDFBw", kDfBandwidthCodes);
    layout->setRowStretch(layout->rowCount(), 1);
    return group;
}

QWidget* fmEditorMemoryListProp::BuildEntry()
{
    auto* group = new QGroupBox(this);
    auto* layout = new QGridLayout(group);
    TbDescription = AddText(layout, "LbDescr", TextId::EntryDescription, "TbDescription", kTextLength);
    CbStatus = AddCombo(layout, "LbStatus", TextId::EntryStatus, "CbStatus", kMemoryStatusCodes);
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
    QPushButton* BtDelete = NewButton(buttons, "BtDelete", { TextId::EditorDelete, TextId::EditorDeleteHint });
    QPushButton* BtOk = NewButton(buttons, "BtOk", { TextId::EntryOk, TextId::EntryOkHint });
    QPushButton* BtCancel = NewButton(buttons, "BtCancel", { TextId::EntryCancel, TextId::EntryCancelHint });
    QPushButton* BtHelp = NewButton(buttons, "BtHelp", { TextId::EditorHelp, TextId::EditorHelpHint });
    layout->addWidget(BtDelete);
    layout->addStretch(1);
    for (QPushButton* button : { BtOk, BtCancel, BtHelp })
        layout->addWidget(button);
    for (QPushButton* button : { BtDelete, BtCancel, BtHelp })
        SkipLeaveCheck(button);
    connect(BtDelete, &QPushButton::clicked, this, &fmEditorMemoryListProp::OnDelete);
    connect(BtOk, &QPushButton::clicked, this, &fmEditorMemoryListProp::OnOk);
    connect(BtCancel, &QPushButton::clicked, this, [this] { DialogEnd(*this, kStatusCancelled); });
    connect(BtHelp, &QPushButton::clicked, this, [] { ShowHelp(HelpId::MemoryEntry); });
    return buttons;
}

void fmEditorMemoryListProp::WatchChanges()
{
    const auto changed = [] { Editor().EditorDirty = true; };
    for (QLineEdit* textBox : findChildren<QLineEdit*>())
        connect(textBox, &QLineEdit::textChanged, this, changed);
    for (QComboBox* combo : findChildren<QComboBox*>())
        connect(combo, &QComboBox::currentIndexChanged, this, changed);
    for (QLineEdit* number : { TbFrequency, TbSquelchVal, TbAttennaNumber, TbDFSquelchVal, TbDFMeasurementTime })
        LimitToNumber(number);
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
        const QScopedValueRollback dirty(Editor().EditorDirty); // filling the controls changes nothing
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
    if (!CheckFocused(this)) // a mnemonic does not move the focus
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
