#include "lists/antenna/AntennaPanel.h"

#include "app/forms/focusRules.h"
#include "app/forms/form.h"
#include "app/text/textId.h"
#include "link/classes/textRules.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>

#include <algorithm>

namespace tarvik {

namespace {

constexpr int kFrequencyLength = 13;
constexpr int kCodeLength = 3;
constexpr int kNorthOffsetLength = 5;
constexpr int kLinkWidthDigits = 26;
constexpr TopicNumber kTopic = HelpId::CommandAntennaListEditor;
constexpr TopicNumber kLinkTopic = TextId::AntennaSelectKfactorHint;

} // namespace

AntennaPanel::AntennaPanel(QWidget* parent)
    : QWidget(parent)
{
    auto* outside = new QVBoxLayout(this);
    outside->setContentsMargins({});
    QGroupBox* group = NewFrame(this, "FrProperties", { TextId::AntennaProperties });
    outside->addWidget(group);
    auto* layout = new QGridLayout(group);
    BuildBoxes(*layout);
    BuildLinks(*layout);
    layout->setRowStretch(layout->rowCount(), 1);
    AlignBoxes();
}

/// The boxes of the links are in frames of their own.
void AntennaPanel::AlignBoxes()
{
    int labelWidth = 0;
    for (const QLabel* label : findChildren<QLabel*>())
        labelWidth = std::max(labelWidth, label->buddy() == nullptr ? 0 : label->sizeHint().width());
    for (QGridLayout* layout : findChildren<QGridLayout*>())
        layout->setColumnMinimumWidth(0, labelWidth);
    BoxOf(AntennaField::KfactorTable)->setMinimumWidth(fontMetrics().horizontalAdvance(u'0') * kLinkWidthDigits);
}

QLineEdit* AntennaPanel::AddBox(
    QGridLayout& layout, const char* labelName, TextNumber<0> text, AntennaField field, const char* name, int length)
{
    QWidget* parent = layout.parentWidget();
    QLabel* label = NewLabel(parent, labelName, { text });
    const bool isLink = field == AntennaField::KfactorTable || field == AntennaField::CorrectionSet;
    QLineEdit* box = NewTextBox(parent, name, isLink ? kLinkTopic : kTopic, length);
    BindLabel(label, box);
    EnterAsTab(box);
    const int row = layout.rowCount();
    layout.addWidget(label, row, 0);
    layout.addWidget(box, row, 1, 1, field == AntennaField::Name ? 2 : 1); // a name has no unit
    boxes_[static_cast<size_t>(field)] = box;
    connect(box, &QLineEdit::textChanged, this, [this, field] {
        if (!filling_)
            Q_EMIT Edited(field);
    });
    return box;
}

void AntennaPanel::AddUnit(QGridLayout& layout, const char* name, TextNumber<0> unit)
{
    layout.addWidget(NewLabel(layout.parentWidget(), name, { unit }), layout.rowCount() - 1, 2);
}

QComboBox* AntennaPanel::AddBits(
    QGridLayout& layout, const char* labelName, TextNumber<0> text, const char* name, AntennaBits bits)
{
    QWidget* parent = layout.parentWidget();
    QLabel* label = NewLabel(parent, labelName, { text });
    QComboBox* combo = NewCombo(parent, name, kTopic);
    for (int pattern = 0; pattern < kBitPatterns; ++pattern)
        combo->addItem(ModBitPatternToStr(pattern));
    BindLabel(label, combo);
    const int row = layout.rowCount();
    layout.addWidget(label, row, 0);
    layout.addWidget(combo, row, 1, Qt::AlignLeft);
    connect(combo, &QComboBox::currentIndexChanged, this, [this, bits](int pattern) {
        if (!filling_)
            Q_EMIT BitsEdited(bits, pattern);
    });
    return combo;
}

void AntennaPanel::BuildBoxes(QGridLayout& layout)
{
    AddBox(layout, "LbAntennaName", TextId::AntennaName, AntennaField::Name, "TbAntennaName", kTextLength);
    AddBox(layout, "LbStartFreq", TextId::AntennaStartFrequency, AntennaField::StartFrequency, "TbStartFreq",
        kFrequencyLength);
    AddUnit(layout, "LbStartUnit", TextId::Megahertz);
    AddBox(layout, "LbStopFreq", TextId::AntennaStopFrequency, AntennaField::StopFrequency, "TbStopFreq",
        kFrequencyLength);
    AddUnit(layout, "LbStopUnit", TextId::Megahertz);
    AddBox(layout, "LbFreqOffset", TextId::AntennaFrequencyOffset, AntennaField::FrequencyOffset, "TbFreqOffset",
        kFrequencyLength);
    AddUnit(layout, "LbOffsetUnit", TextId::Megahertz);
    CbPassiveBits =
        AddBits(layout, "LbPassiveBits", TextId::AntennaPassiveBits, "CbPassiveBits", &AntennaRow::PassiveBits);
    CbActiveBits = AddBits(layout, "LbActiveBits", TextId::AntennaActiveBits, "CbActiveBits", &AntennaRow::ActiveBits);
    AddBox(layout, "LbAntennaCode", TextId::AntennaCode, AntennaField::Code, "TbAntennaCode", kCodeLength);
    AddBox(layout, "LbNorthOffset", TextId::AntennaNorthOffset, AntennaField::NorthOffset, "TbNorthOffset",
        kNorthOffsetLength);
    AddUnit(layout, "LbNorthUnit", TextId::Degrees);
}

void AntennaPanel::BuildLinks(QGridLayout& layout)
{
    QWidget* parent = layout.parentWidget();
    const auto addFrame = [&layout, parent](const char* name) {
        auto* frame = new QWidget(parent);
        NameControl(frame, QString::fromLatin1(name));
        layout.addWidget(frame, layout.rowCount(), 0, 1, 3);
        auto* inside = new QGridLayout(frame);
        inside->setContentsMargins({});
        return inside;
    };
    const auto addButtons = [](QGridLayout& inside, std::initializer_list<QPushButton*> buttons) {
        auto* row = new QHBoxLayout;
        for (QPushButton* button : buttons)
            row->addWidget(button);
        row->addStretch(1);
        inside.addLayout(row, inside.rowCount(), 1);
    };

    QGridLayout* kfactor = addFrame("FrKfactorTable");
    QWidget* kfactorFrame = kfactor->parentWidget();
    AddBox(
        *kfactor, "LbKfactor", TextId::AntennaKfactorTable, AntennaField::KfactorTable, "TbKfactor", kLinkNameLength);
    BtSelectKfactor =
        NewButton(kfactorFrame, "BtSelectKfactor", { TextId::AntennaSelectKfactor, TextId::AntennaSelectKfactorHint });
    BtNewKfactor =
        NewButton(kfactorFrame, "BtNewKfactor", { TextId::AntennaNewKfactor, TextId::AntennaNewKfactorHint });
    addButtons(*kfactor, { BtSelectKfactor, BtNewKfactor });

    QGridLayout* correction = addFrame("FrCorrectionSet");
    QWidget* correctionFrame = correction->parentWidget();
    AddBox(*correction, "LbCorrectionSet", TextId::AntennaCorrectionSet, AntennaField::CorrectionSet, "TbCorrectionSet",
        kLinkNameLength);
    BtSelectCorrectionSet = NewButton(correctionFrame, "BtSelectCorrectionSet",
        { TextId::AntennaSelectCorrection, TextId::AntennaSelectCorrectionHint });
    BtNewCorrectionSet = NewButton(
        correctionFrame, "BtNewCorrectionSet", { TextId::AntennaNewCorrection, TextId::AntennaNewCorrectionHint });
    QPushButton* edit = NewButton(
        correctionFrame, "BtCorrectionSetEdit", { TextId::AntennaEditCorrection, TextId::AntennaEditCorrectionHint });
    edit->setEnabled(false); // it has no action
    addButtons(*correction, { BtSelectCorrectionSet, BtNewCorrectionSet, edit });
}

QLineEdit* AntennaPanel::BoxOf(AntennaField field) const
{
    return boxes_[static_cast<size_t>(field)];
}

void AntennaPanel::SetText(AntennaField field, const QString& text)
{
    const QScopedValueRollback filling(filling_, true);
    QLineEdit* box = BoxOf(field);
    if (box->text() != text)
        box->setText(text);
}

void AntennaPanel::ShowRow(AntennaRow& row)
{
    const QScopedValueRollback filling(filling_, true);
    for (size_t field = 0; field < boxes_.size(); ++field) {
        boxes_[field]->setText(AntennaFieldText(row, static_cast<AntennaField>(field)));
        boxes_[field]->setCursorPosition(0);
    }
    const BitChoices choices = ShowAntennaBits(row, { CbPassiveBits->currentIndex(), CbActiveBits->currentIndex() });
    CbPassiveBits->setCurrentIndex(choices.Passive);
    CbActiveBits->setCurrentIndex(choices.Active);
}

} // namespace tarvik
