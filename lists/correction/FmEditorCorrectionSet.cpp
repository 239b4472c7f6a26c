#include "lists/correction/FmEditorCorrectionSet.h"

#include "app/forms/focusRules.h"
#include "app/text/lang.h"
#include "link/classes/textRules.h"
#include "lists/correction/correctionDiagram.h"
#include "screen/diagram/datasetViewer.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabBar>
#include <QTabWidget>
#include <QWheelEvent>

namespace tarvik {

namespace {

constexpr EditorFrame kFrame{ "FmEditorCorrectionSet", FileClassCorrectionSet, TextId::CorrectionEditorTitle,
    HelpId::CommandCorrectionSetEditor, HelpId::CommandCorrectionSetEditor, TextId::CsvExtension,
    &EditorState::CorrectionSetFileName };
constexpr int kCodeLength = 3;
constexpr int kFrequencyLength = 13;
constexpr int kWheelNotch = 120; // eighths of a degree

} // namespace

FmEditorCorrectionSet::FmEditorCorrectionSet(QWidget* parent)
    : FmEditorFrame(kFrame, parent)
{
    QWidget* head = BuildHead();
    Arrange(head, BuildTabs());
    ConnectHead();
}

QLineEdit* FmEditorCorrectionSet::AddBox(
    QGridLayout& layout, int row, int column, const char* labelName, TextNumber<0> text, const char* name, int length)
{
    QWidget* head = layout.parentWidget();
    QLabel* label = NewLabel(head, labelName, { text });
    QLineEdit* box = NewTextBox(head, name, HelpId::CommandCorrectionSetEditor, length);
    BindLabel(label, box);
    layout.addWidget(label, row, column);
    layout.addWidget(box, row, column + 1);
    return box;
}

QWidget* FmEditorCorrectionSet::BuildHead()
{
    auto* head = new QWidget(this);
    auto* layout = new QGridLayout(head);
    layout->setContentsMargins({});
    TbFileName = AddBox(*layout, 0, 0, "LbFileName", TextId::CorrectionSetKeyword, "TbFileName", kTextLength);
    layout->addWidget(NewExtCombo(head), 0, 2);
    TbAntName = AddBox(*layout, 1, 0, "LbAntName", TextId::CorrAntennaName, "TbAntName", kTextLength);
    TbAntCode = AddBox(*layout, 1, 2, "LbAntCode", TextId::CorrAntennaCode, "TbAntCode", kCodeLength);
    TbManufacturerName =
        AddBox(*layout, 2, 0, "LbManufacturerName", TextId::CorrManufacturer, "TbManufacturerName", kTextLength);
    TbStartFreq = AddBox(*layout, 2, 2, "LbStartFreq", TextId::CorrStartFrequency, "TbStartFreq", kFrequencyLength);
    TbStopFreq = AddBox(*layout, 3, 2, "LbStopFreq", TextId::CorrStopFrequency, "TbStopFreq", kFrequencyLength);
    layout->addWidget(NewLabel(head, "LbStartUnit", { TextId::Megahertz }), 2, 4);
    layout->addWidget(NewLabel(head, "LbStopUnit", { TextId::Megahertz }), 3, 4);
    layout->setColumnStretch(5, 1);
    for (QLineEdit* name : { TbFileName, TbAntName, TbManufacturerName })
        name->setMinimumWidth(fontMetrics().horizontalAdvance(u'0') * (kTextLength + 2));
    return head;
}

QWidget* FmEditorCorrectionSet::BuildTabs()
{
    CsTab = new QTabWidget(this);
    NameControl(CsTab, QStringLiteral("CsTab"));
    CsTab->tabBar()->setFocusPolicy(Qt::StrongFocus); // a click on a tab leaves the focused control, which is checked
    CsTab->tabBar()->setAccessibleName(LngStr(TextId::CorrectionSetKeyword));
    const std::array captions{ TextId::CorrKFactorTab, TextId::CorrOmniphaseTab, TextId::CorrAzimuthTab };
    for (const CorrTableId table : kCorrTables) {
        const auto index = static_cast<size_t>(table);
        auto* page = new CorrTabPage(CsTab, table, set_.Records);
        pages_[index] = page;
        CsTab->addTab(page, LngStr(captions[index]));
        connect(page, &CorrTabPage::Edited, this, &FmEditorCorrectionSet::SetDirty);
        connect(page, &CorrTabPage::FaultFound, this, [this, page] { CsTab->setCurrentWidget(page); });
        connect(page, &CorrTabPage::SortClicked, this, [this, page] {
            if (MayLeaveHead())
                SortTab(*page);
        });
        connect(page, &CorrTabPage::ViewClicked, this, [this, page] {
            if (MayLeaveHead())
                ViewCorrTab(*page);
        });
    }
    connect(CsTab, &QTabWidget::currentChanged, this, &FmEditorCorrectionSet::OnTab);
    return CsTab;
}

void FmEditorCorrectionSet::ConnectHead()
{
    for (const CorrBox box : kCorrBoxes) {
        QLineEdit* textBox = BoxOf(box);
        EnterAsTab(textBox);
        if (box == CorrBox::FileName) {
            connect(textBox, &QLineEdit::textChanged, this, &FmEditorCorrectionSet::OnHeadChanged);
            continue;
        }
        connect(textBox, &QLineEdit::textChanged, this, [this] {
            if (!IsFilling())
                SetDirty();
        });
        CheckOnEveryLeave(textBox, [this, box, textBox] { return !textBox->isModified() || CheckBox(box); });
    }
}

CorrTabPage& FmEditorCorrectionSet::Page(CorrTableId table)
{
    return *pages_[static_cast<size_t>(table)];
}

QLineEdit* FmEditorCorrectionSet::BoxOf(CorrBox box) const
{
    switch (box) {
    case CorrBox::FileName:
        return TbFileName;
    case CorrBox::AntName:
        return TbAntName;
    case CorrBox::AntCode:
        return TbAntCode;
    case CorrBox::StartFreq:
        return TbStartFreq;
    case CorrBox::StopFreq:
        return TbStopFreq;
    default:
        return TbManufacturerName;
    }
}

CorrHeaderTexts FmEditorCorrectionSet::Texts() const
{
    return { TbFileName->text(), TbAntName->text(), TbManufacturerName->text(), TbAntCode->text(), TbStartFreq->text(),
        TbStopFreq->text() };
}

void FmEditorCorrectionSet::ShowTexts(const CorrHeaderTexts& texts)
{
    const auto filling = Filling();
    const std::array<std::pair<QLineEdit*, QString>, kCorrBoxes.size()> boxes{ { { TbFileName, texts.FileName },
        { TbAntName, texts.AntennaName }, { TbManufacturerName, texts.ManufacturerName },
        { TbAntCode, texts.AntennaCode }, { TbStartFreq, texts.StartFrequency },
        { TbStopFreq, texts.StopFrequency } } };
    for (const auto& [textBox, text] : boxes) {
        if (textBox->text() == text)
            continue;
        textBox->setText(text);
        textBox->setCursorPosition(0);
    }
}

bool FmEditorCorrectionSet::CheckBox(CorrBox box)
{
    CorrHeaderTexts texts = Texts();
    const bool passed = CheckCorrBox(box, texts, set_);
    if (passed)
        ShowTexts(texts);
    return passed;
}

bool FmEditorCorrectionSet::ValidateCorrHeader()
{
    for (const CorrBox box : kCorrBoxes) {
        if (CheckBox(box))
            continue;
        BoxOf(box)->setFocus();
        return false;
    }
    return true;
}

/// The tables are sorted in the store, which then holds the set that is to be saved.
bool FmEditorCorrectionSet::Validate()
{
    if (!ValidateCorrHeader())
        return false;
    for (CorrTabPage* page : pages_) {
        if (!SortTab(*page))
            return false;
    }
    return SetCorrHeader(set_);
}

bool FmEditorCorrectionSet::SortTab(CorrTabPage& page)
{
    if (!page.Validate())
        return false;
    const BusyPointer busy(*this);
    if (!page.Sort())
        return false;
    SetDirty();
    return true;
}

void FmEditorCorrectionSet::ViewCorrTab(CorrTabPage& page)
{
    if (SortTab(page))
        DatasetShow(CorrectionDiagram(page.Table(), set_.Records, windowTitle()));
}

bool FmEditorCorrectionSet::MayLeaveHead()
{
    for (const CorrBox box : kCorrBoxes) {
        if (focusWidget() == BoxOf(box))
            return CheckFocused(this);
    }
    return true;
}

QString FmEditorCorrectionSet::ListName() const
{
    return TbFileName->text();
}

void FmEditorCorrectionSet::FocusStart(bool)
{
    TbFileName->setFocus();
}

void FmEditorCorrectionSet::ShowEmptyList()
{
    set_.Clear();
    ShowSet();
}

bool FmEditorCorrectionSet::ReadFile(const QString& path)
{
    if (!LoadCorrSet(path, set_))
        return false;
    ShowSet();
    return true;
}

bool FmEditorCorrectionSet::WriteFile(const QString& path)
{
    return SaveCorrSet(path);
}

void FmEditorCorrectionSet::ShowSet()
{
    ShowTexts(CorrHeaderTextsOf(set_));
    for (CorrTabPage* page : pages_)
        page->Refill();
    const QSignalBlocker silence(CsTab);
    CsTab->setCurrentIndex(0);
    shownTab_ = 0;
}

/// A mnemonic takes no focus first: what is being edited is checked here.
void FmEditorCorrectionSet::OnTab()
{
    if (!MayLeaveHead()) {
        const QSignalBlocker silence(CsTab);
        CsTab->setCurrentIndex(shownTab_);
        return;
    }
    static_cast<void>(pages_[static_cast<size_t>(shownTab_)]->Grid().Commit()); // never refuses: a bad cell is marked
    shownTab_ = CsTab->currentIndex();
    auto& page = Page(static_cast<CorrTableId>(shownTab_));
    page.Grid().FillRows(true);
    page.Grid().CellSetFocus(page.Grid().TopRow(), kCorrFrequency + 1);
}

void FmEditorCorrectionSet::MouseWheel(int, int delta, int x, int y)
{
    wheelDelta_ += delta;
    const int notches = wheelDelta_ / kWheelNotch;
    wheelDelta_ %= kWheelNotch; // small deltas of a touch pad add up
    for (CorrTabPage* page : pages_) {
        QWidget& group = page->Group();
        const QRect place(group.mapToGlobal(QPoint()), group.size());
        if (notches != 0 && group.isVisible() && place.contains(x, y))
            page->Grid().TurnPage(notches > 0);
    }
}

void FmEditorCorrectionSet::wheelEvent(QWheelEvent* event)
{
    const QPoint place = event->globalPosition().toPoint();
    MouseWheel(event->modifiers().toInt(), event->angleDelta().y(), place.x(), place.y());
    event->accept();
}

} // namespace tarvik
