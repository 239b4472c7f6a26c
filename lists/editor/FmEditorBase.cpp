#include "lists/editor/FmEditorBase.h"

#include "app/forms/focusRules.h"
#include "app/frame/recentFiles.h"
#include "app/help/help.h"
#include "app/message/message.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "link/classes/model.h"
#include "link/classes/textRules.h"
#include "lists/editor/editorGeneral.h"

#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>

namespace tarvik {

namespace {

constexpr int kExtList = 0;
constexpr int kExtCsv = 1;

} // namespace

FmEditorBase::FmEditorBase(
    const EditorFrame& frame, const GridShape& shape, std::vector<GridColumn> columns, QWidget* parent)
    : FormBase(frame.Name, parent)
    , frame_(frame)
{
    SetHelpNumber(frame_.HelpNumber);
    auto* layout = new QGridLayout(this);
    layout->addWidget(BuildHead(), 0, 0);
    layout->addWidget(BuildList(shape, std::move(columns)), 1, 0);
    layout->addWidget(BuildFrameCommands(), 0, 1, 2, 1);
    layout->setRowStretch(1, 1);
    layout->setColumnStretch(0, 1);
    Connect();
}

QWidget* FmEditorBase::BuildHead()
{
    auto* head = new QWidget(this);
    auto* layout = new QGridLayout(head);
    layout->setContentsMargins({});
    QLabel* nameLabel = NewLabel(head, "LbName", { frame_.NameText });
    TbName = NewTextBox(head, "TbName", HelpId::EditorName, kTextLength);
    CbExt = NewCombo(head, "CbExt", HelpId::EditorName);
    CbExt->setAccessibleName(PlainCaption(LngStr(TextId::ChooseFileType)));
    QLabel* descriptionLabel = NewLabel(head, "LbDescr", {});
    descriptionLabel->setText(LngStr(TextId::DescriptionKeyword) + LngStr(TextId::Colon));
    descriptionLabel->setAccessibleName(PlainCaption(descriptionLabel->text()));
    TbDescr = NewTextBox(head, "TbDescr", HelpId::EditorDescription, kTextLength);
    BindLabel(nameLabel, TbName);
    BindLabel(descriptionLabel, TbDescr);
    layout->addWidget(nameLabel, 0, 0);
    layout->addWidget(TbName, 0, 1);
    layout->addWidget(CbExt, 0, 2);
    layout->addWidget(descriptionLabel, 1, 0);
    layout->addWidget(TbDescr, 1, 1);
    layout->setColumnStretch(3, 1);
    TbName->setMinimumWidth(fontMetrics().horizontalAdvance(u'0') * (kTextLength + 2));
    return head;
}

QWidget* FmEditorBase::BuildList(const GridShape& shape, std::vector<GridColumn> columns)
{
    QGroupBox* list = NewFrame(this, frame_.ListFrameName, { frame_.ListFrameText });
    auto* layout = new QVBoxLayout(list);
    grid_ = new EditorGrid(list, *this, shape, std::move(columns));
    grid_->setObjectName(QStringLiteral("Grid"));
    lastInTabOrder_ = grid_->LastInput();
    commandRow_ = new QHBoxLayout;
    layout->addWidget(grid_);
    layout->addLayout(commandRow_);
    layout->addStretch(1);
    return list;
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

QWidget* FmEditorBase::BuildFrameCommands()
{
    auto* commands = new QWidget(this);
    auto* layout = new QVBoxLayout(commands);
    layout->setContentsMargins({});
    BtNew = NewButton(commands, "BtNew", { TextId::EditorNew, TextId::EditorNewHint });
    BtOpen = NewButton(commands, "BtOpen", { TextId::EditorOpen, TextId::EditorOpenHint });
    BtSave = NewButton(commands, "BtSave", { TextId::EditorSave, TextId::EditorSaveHint });
    BtHelp = NewButton(commands, "BtHelp", { TextId::EditorHelp, TextId::EditorHelpHint });
    BtClose = NewButton(commands, "BtClose", { TextId::EditorClose, TextId::EditorCloseHint });
    for (QPushButton* button : { BtNew, BtOpen, BtSave })
        layout->addWidget(button);
    layout->addStretch(1);
    for (QPushButton* button : { BtHelp, BtClose })
        layout->addWidget(button);
    // These discard a bad cell or ask first: checking it would only be in the way. Name and description are checked.
    for (QPushButton* button : { BtNew, BtOpen, BtHelp, BtClose })
        SkipLeaveCheck(button);
    return commands;
}

void FmEditorBase::Connect()
{
    connect(BtNew, &QPushButton::clicked, this, &FmEditorBase::OnNew);
    connect(BtOpen, &QPushButton::clicked, this, &FmEditorBase::OnOpen);
    connect(BtSave, &QPushButton::clicked, this, &FmEditorBase::Save);
    connect(BtClose, &QPushButton::clicked, this, &FmEditorBase::OnClose);
    connect(BtHelp, &QPushButton::clicked, this, &FmEditorBase::OnHelp);
    connect(TbName, &QLineEdit::textChanged, this, &FmEditorBase::OnHeadChanged);
    connect(TbDescr, &QLineEdit::textChanged, this, &FmEditorBase::OnHeadChanged);
    connect(CbExt, &QComboBox::currentIndexChanged, this, &FmEditorBase::OnHeadChanged);
    for (QLineEdit* textBox : { TbName, TbDescr })
        EnterAsTab(textBox);
    // An unmodified name is not checked until the list is saved: the field of a new list can be left empty.
    CheckOnEveryLeave(TbName, [this] { return !TbName->isModified() || CheckName(); });
    CheckOnEveryLeave(TbDescr, [this] { return CheckDescription(); });
}

bool FmEditorBase::OnLoad()
{
    DialogPush(*this, false);
    SetEditorType(frame_.ListType);
    FillCbExt();
    OnEditorLoad();
    ShowEmptyList();
    ShowTitle();
    ShowButtonTips();
    const bool isNew = Editor().EditorOpenFile.isEmpty();
    const bool isOpen = isNew || OpenPath(Editor().EditorOpenFile);
    Editor().EditorDirty = false;
    if (isNew)
        TbName->setFocus();
    else
        grid_->FocusCurrent();
    return isOpen;
}

void FmEditorBase::ShowButtonTips()
{
    for (QPushButton* button : findChildren<QPushButton*>())
        button->setToolTip(PlainTip(LngStr(TextNumber<0>(HelpNumberOf(button)))));
}

void FmEditorBase::FillCbExt()
{
    const QScopedValueRollback filling(filling_, true);
    CbExt->clear();
    CbExt->addItem(Editor().ListExtension.toUpper());
    if (frame_.ListType != FileClassCorrectionSet)
        CbExt->addItem(LngStr(TextId::CsvExtension));
}

bool FmEditorBase::QueryUnload()
{
    if (!Editor().EditorDirty)
        return true;
    const MsgResult answer = MsgYesNoCancel(TextId::SaveList);
    return answer == MsgResult::Yes ? Save() : answer == MsgResult::No;
}

void FmEditorBase::OnUnload()
{
    Editor().EditorOpenFile.clear();
}

/// True if no change is lost: none made, saved, or discarded by the user. False if the question is dismissed.
bool FmEditorBase::SaveChangesFirst()
{
    if (!Editor().EditorDirty)
        return true;
    const MsgResult answer = MsgYesNo(TextId::SaveList);
    return answer == MsgResult::Yes ? Save() : answer == MsgResult::No;
}

bool FmEditorBase::MayLeaveHead()
{
    const QWidget* focused = focusWidget();
    return (focused != TbName && focused != TbDescr) || CheckFocused(this);
}

void FmEditorBase::OnClose()
{
    if (MayLeaveHead())
        Unload();
}

void FmEditorBase::OnHelp()
{
    if (MayLeaveHead())
        ShowHelp(frame_.HelpTopic);
}

void FmEditorBase::OnNew()
{
    if (!MayLeaveHead() || !SaveChangesFirst())
        return;
    ShowTitle();
    ShowEmptyList();
    Editor().EditorDirty = false;
}

void FmEditorBase::OnOpen()
{
    if (!MayLeaveHead() || !SaveChangesFirst())
        return;
    const QString path = OpenListDialog(EditorDefaultFolder());
    if (path.isEmpty())
        return;
    OpenPath(path);
    Editor().EditorDirty = false;
    RememberFolderOfFile(path);
}

bool FmEditorBase::OpenPath(const QString& path)
{
    QString name;
    QString description;
    bool isRead = false;
    {
        const BusyPointer busy(*this);
        isRead = ReadList(path, name, description);
    }
    if (!isRead) {
        ShowEmptyList();
        ShowTitle();
        return false;
    }
    ShowHead(name, description);
    {
        const QScopedValueRollback filling(filling_, true);
        CbExt->setCurrentIndex(IsCsvFile(path) ? kExtCsv : kExtList);
    }
    ShowFromTop();
    ShowTitle(QFileInfo(path).fileName());
    RecentFileAdd(path);
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
    const QScopedValueRollback filling(filling_, true);
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

void FmEditorBase::OnHeadChanged()
{
    if (filling_)
        return;
    ShowTitle();
    SetDirty();
}

void FmEditorBase::SetDirty()
{
    Editor().EditorDirty = true;
}

void FmEditorBase::ShowTitle(const QString& fileName)
{
    setWindowTitle(EditorTitle(frame_.TitleText, fileName));
}

QString FmEditorBase::ListName() const
{
    return TbName->text();
}

QString FmEditorBase::ListDescription() const
{
    return TbDescr->text();
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

bool FmEditorBase::Validate()
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
    return grid_->Commit() && grid_->CheckPage() && ValidateRows();
}

bool FmEditorBase::Save()
{
    if (!Validate())
        return false;
    const QString folder = SaveFolderDialog(TbName->text() + CbExt->currentText().toUpper());
    if (!folder.isEmpty() && WriteTo(folder))
        return true;
    ShowTitle();
    return false;
}

bool FmEditorBase::WriteTo(const QString& folder)
{
    const QString path = ListFilePath(folder, TbName->text(), CbExt->currentText());
    bool isWritten = false;
    {
        const BusyPointer busy(*this);
        isWritten = WriteList(path, TbName->text(), TbDescr->text());
    }
    if (!isWritten)
        return false;
    grid_->FillRows(true);
    ShowTitle(TbName->text() + CbExt->currentText());
    Editor().EditorDirty = false;
    RememberFolder(folder);
    RecentFileAdd(path);
    return true;
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
