#include "lists/editor/FmEditorBase.h"

#include "app/forms/focusRules.h"
#include "app/message/message.h"
#include "app/text/lang.h"
#include "link/classes/textRules.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

namespace tarvik {

FmEditorBase::FmEditorBase(const EditorFrame& frame, const EditorHead& head, const GridShape& shape,
    std::vector<GridColumn> columns, QWidget* parent)
    : FmEditorFrame(frame, parent)
{
    QWidget* top = BuildHead(head);
    Arrange(top, BuildList(head, shape, std::move(columns)));
    ConnectHead();
}

QWidget* FmEditorBase::BuildHead(const EditorHead& texts)
{
    auto* head = new QWidget(this);
    auto* layout = new QGridLayout(head);
    layout->setContentsMargins({});
    QLabel* nameLabel = NewLabel(head, "LbName", { texts.NameText });
    TbName = NewTextBox(head, "TbName", HelpId::EditorName, kTextLength);
    QComboBox* format = NewExtCombo(head);
    QLabel* descriptionLabel = NewLabel(head, "LbDescr", {});
    descriptionLabel->setText(LngStr(TextId::DescriptionKeyword) + LngStr(TextId::Colon));
    descriptionLabel->setAccessibleName(PlainCaption(descriptionLabel->text()));
    TbDescr = NewTextBox(head, "TbDescr", HelpId::EditorDescription, kTextLength);
    BindLabel(nameLabel, TbName);
    BindLabel(descriptionLabel, TbDescr);
    layout->addWidget(nameLabel, 0, 0);
    layout->addWidget(TbName, 0, 1);
    layout->addWidget(format, 0, 2);
    layout->addWidget(descriptionLabel, 1, 0);
    layout->addWidget(TbDescr, 1, 1);
    layout->setColumnStretch(3, 1);
    TbName->setMinimumWidth(fontMetrics().horizontalAdvance(u'0') * (kTextLength + 2));
    return head;
}

QWidget* FmEditorBase::BuildList(const EditorHead& texts, const GridShape& shape, std::vector<GridColumn> columns)
{
    auto* row = new QWidget(this);
    listRow_ = new QHBoxLayout(row);
    listRow_->setContentsMargins({});
    QGroupBox* list = NewFrame(row, texts.ListFrameName, { texts.ListFrameText });
    listRow_->addWidget(list, 1);
    auto* layout = new QVBoxLayout(list);
    grid_ = new EditorGrid(list, *this, shape, std::move(columns));
    lastInTabOrder_ = grid_->LastInput();
    commandRow_ = new QHBoxLayout;
    layout->addWidget(grid_);
    layout->addLayout(commandRow_);
    layout->addStretch(1);
    return row;
}

void FmEditorBase::AddCommand(QWidget* command)
{
    commandRow_->addWidget(command);
    setTabOrder(lastInTabOrder_, command);
    lastInTabOrder_ = command;
}

void FmEditorBase::AddCommandSpace()
{
    commandRow_->addStretch(1);
}

void FmEditorBase::AddPanel(QWidget* panel)
{
    listRow_->addWidget(panel);
    for (QWidget* control : panel->findChildren<QWidget*>()) {
        if (!(control->focusPolicy() & Qt::TabFocus))
            continue;
        setTabOrder(lastInTabOrder_, control);
        lastInTabOrder_ = control;
    }
}

void FmEditorBase::ConnectHead()
{
    for (QLineEdit* textBox : { TbName, TbDescr }) {
        connect(textBox, &QLineEdit::textChanged, this, &FmEditorBase::OnHeadChanged);
        EnterAsTab(textBox);
    }
    // An unmodified name is not checked until the list is saved: the field of a new list can be left empty.
    CheckOnEveryLeave(TbName, [this] { return !TbName->isModified() || CheckName(); });
    CheckOnEveryLeave(TbDescr, [this] { return CheckDescription(); });
}

void FmEditorBase::FocusStart(bool isNew)
{
    if (isNew)
        TbName->setFocus();
    else
        grid_->FocusCurrent();
}

bool FmEditorBase::ReadFile(const QString& path)
{
    QString name;
    QString description;
    if (!ReadList(path, name, description))
        return false;
    ShowHead(name, description);
    ShowFromTop();
    return true;
}

bool FmEditorBase::WriteFile(const QString& path)
{
    if (!WriteList(path, TbName->text(), TbDescr->text()))
        return false;
    grid_->FillRows(true);
    return true;
}

void FmEditorBase::ShowEmptyList()
{
    ClearRows();
    ShowHead({}, {});
    ShowFromTop();
}

void FmEditorBase::ShowHead(const QString& name, const QString& description)
{
    const auto filling = Filling();
    NameInvalid = false;
    for (QLineEdit* textBox : { TbName, TbDescr }) {
        textBox->setText(textBox == TbName ? name : description);
        textBox->setCursorPosition(0); // a long text shows its beginning
    }
}

void FmEditorBase::ShowFromTop()
{
    grid_->ResetCurrent();
    grid_->ScrollToTop();
    grid_->FillRows(true);
    RowSelected(grid_->CurrentRow());
    OnListShown();
}

QString FmEditorBase::ListName() const
{
    return TbName->text();
}

QString FmEditorBase::ListDescription() const
{
    return TbDescr->text();
}

bool FmEditorBase::MayLeaveHead()
{
    const QWidget* focused = focusWidget();
    return (focused != TbName && focused != TbDescr) || CheckFocused(this);
}

bool FmEditorBase::CheckName()
{
    NameInvalid = !ValidListName(TbName->text());
    return !NameInvalid;
}

bool FmEditorBase::CheckDescription()
{
    if (ValidText(TbDescr->text()))
        return true;
    MsgOk(TextId::ForbiddenCharacter);
    return false;
}

bool FmEditorBase::ValidateHead()
{
    if (!CheckName()) {
        TbName->setFocus();
        return false;
    }
    if (!CheckDescription()) {
        TbDescr->setFocus();
        return false;
    }
    if (TbName->text().isEmpty()) {
        MsgOk1(TextId::ListNameMissing, LngStr(ModCaption(CaptionSlot::Noun)));
        return false;
    }
    return true;
}

bool FmEditorBase::ValidatePage()
{
    return grid_->Commit() && grid_->CheckPage();
}

bool FmEditorBase::Validate()
{
    return ValidateHead() && ValidatePage();
}

void FmEditorBase::CellKeyDown(int column, int key, int shift)
{
    grid_->CellKeyDown(column, key, shift);
}

void FmEditorBase::CellSetFocus(int row, int column)
{
    grid_->CellSetFocus(row, column);
}

} // namespace tarvik
