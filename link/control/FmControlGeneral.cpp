#include "link/control/FmControlGeneral.h"

#include "app/forms/Pictures.h"
#include "app/help/help.h"
#include "app/state/frame.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "link/classes/model.h"
#include "link/control/FileListWidget.h"
#include "link/control/FolderComboBox.h"
#include "link/control/controlCommands.h"
#include "link/transfer/FmTransfer.h"

#include <QBoxLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QScreen>

#include <algorithm>

namespace tarvik {

namespace {

/// Name of a control of the pane `side`, "Pc" or "Instr".
QString NameOf(const char* prefix, const QString& side, const char* suffix = "")
{
    return QString::fromLatin1(prefix) + side + QString::fromLatin1(suffix);
}

QPushButton* NewNamedButton(QWidget* parent, const QString& name, const ControlTexts& texts)
{
    return NewButton(parent, name.toLatin1().constData(), texts);
}

void SetTexts(QWidget* control, TopicNumber help, TextNumber<0> hint)
{
    SetControlHelp(control, help);
    SetControlHint(control, hint);
}

} // namespace

FmControlGeneral::FmControlGeneral(QWidget* parent)
    : FormBase("FmControlGeneral", parent)
{
    pc_.Side = ControlSide::Pc;
    instr_.Side = ControlSide::Instr;
    BuildPane(pc_, QStringLiteral("Pc"));
    BuildLayout();
    ConnectPane(pc_);
    ConnectPane(instr_);
    ConnectForm();
}

void FmControlGeneral::BuildPane(Pane& pane, const QString& side)
{
    const bool isPc = pane.Side == ControlSide::Pc;
    pane.Frame = NewFrame(
        this, NameOf("Fr", side).toLatin1().constData(), { isPc ? TextId::ControlPc : TextId::ControlInstrument });
    auto* layout = new QVBoxLayout(pane.Frame);
    BuildFolderRow(pane, side, *layout);
    pane.List = new FileListWidget(ListOf(control_, pane.Side), NameOf("Lv", side), pane.Frame);
    layout->addWidget(pane.List, 1);
    BuildCommandRow(pane, side, *layout);
}

void FmControlGeneral::BuildFolderRow(Pane& pane, const QString& side, QBoxLayout& layout)
{
    const TextNumber<0> text = pane.Side == ControlSide::Pc ? TextId::ControlPcFolder : TextId::ControlInstrumentFolder;
    pane.Combo = new FolderComboBox(NameOf("Cmb", side), pane.Frame);
    pane.Combo->setAccessibleName(LngStr(text));
    SetTexts(pane.Combo, text, text);
    pane.DirUp = NewFolderButton(
        pane.Frame, NameOf("Bt", side, "DirUp"), TextId::ControlFolderUp, TextId::ControlFolderUpHint, "FolderUp");
    pane.DirOpen = NewFolderButton(pane.Frame, NameOf("Bt", side, "DirOpen"), TextId::ControlFolderOpen,
        TextId::ControlFolderOpenHint, "OpenFolder");
    pane.DirNew = NewFolderButton(
        pane.Frame, NameOf("Bt", side, "DirNew"), TextId::ControlFolderNew, TextId::ControlFolderNewHint, "NewFolder");
    auto* row = new QHBoxLayout;
    row->addWidget(pane.Combo, 1);
    for (QPushButton* button : { pane.DirUp, pane.DirOpen, pane.DirNew })
        row->addWidget(button);
    layout.addLayout(row);
}

/// A button with an icon only; its text is the tool tip.
QPushButton* FmControlGeneral::NewFolderButton(
    QWidget* parent, const QString& name, TextNumber<0> text, TextNumber<0> hint, const char* icon)
{
    QPushButton* button = NewNamedButton(parent, name, { text, text, hint });
    button->setToolTip(PlainTip(button->text()));
    button->setText({});
    button->setIcon(PictureIcon(QString::fromLatin1(icon)));
    return button;
}

void FmControlGeneral::BuildCommandRow(Pane& pane, const QString& side, QBoxLayout& layout)
{
    pane.Sel = NewNamedButton(pane.Frame, NameOf("Bt", side, "Sel"), { TextId::ControlSelectAll });
    pane.Del = NewNamedButton(pane.Frame, NameOf("Bt", side, "Del"),
        { TextId::ControlDelete, TextId::ControlDelete, TextId::ControlDeleteHint });
    pane.Ref = NewNamedButton(pane.Frame, NameOf("Bt", side, "Ref"),
        { TextId::ControlRefresh, TextId::ControlRefresh, TextId::ControlRefreshHint });
    pane.Ren = NewNamedButton(pane.Frame, NameOf("Bt", side, "Ren"),
        { TextId::ControlRename, TextId::ControlRename, TextId::ControlRenameHint });
    auto* row = new QHBoxLayout;
    for (QPushButton* button : { pane.Sel, pane.Del, pane.Ref, pane.Ren })
        row->addWidget(button);
    row->addStretch(1);
    layout.addLayout(row);
}

/// One for each class with an editor, all in the same place. They are below the PC pane, since its own row of buttons
/// would make the window too wide for a small screen.
void FmControlGeneral::BuildEditButtons(QBoxLayout& row)
{
    for (size_t at = 0; at < BtPcEdit.size(); ++at) {
        BtPcEdit[at] = NewNamedButton(this, QStringLiteral("BtPcEdit[%1]").arg(at), { TextId::ControlEdit });
        BtPcEdit[at]->hide();
        row.addWidget(BtPcEdit[at]);
    }
}

QBoxLayout* FmControlGeneral::BuildTransferColumn()
{
    BtUl = NewButton(this, "BtUl", { TextId::ControlToInstrument });
    BtDl = NewButton(this, "BtDl", { TextId::ControlToPc });
    BtUl->setIcon(PictureIcon(QStringLiteral("ToRight")));
    BtDl->setIcon(PictureIcon(QStringLiteral("ToLeft")));
    BtUl->setLayoutDirection(Qt::RightToLeft); // the arrow points away from the text
    auto* column = new QVBoxLayout;
    column->addStretch(1);
    column->addWidget(BtUl);
    column->addWidget(BtDl);
    column->addStretch(1);
    return column;
}

QBoxLayout* FmControlGeneral::BuildFormRow()
{
    auto* row = new QHBoxLayout;
    BuildEditButtons(*row);
    BtNew = NewButton(this, "BtNew", { TextId::ControlNew });
    LbFree = NewLabel(this, "LbFree", {});
    NameControl(LbFree, LbFree->objectName());
    BtWhatsThis = NewButton(
        this, "BtWhatsThis", { TextId::ControlWhatsThis, TextId::ControlWhatsThis, TextId::ControlWhatsThisHint });
    BtHlp = NewButton(this, "BtHlp", { TextId::ControlHelp, TextId::ControlHelp, TextId::ControlHelpHint });
    BtClose = NewButton(this, "BtClose", { TextId::ControlClose, TextId::ControlClose, TextId::ControlCloseHint });
    row->addWidget(BtNew);
    row->addWidget(LbFree, 1);
    for (QPushButton* button : { BtWhatsThis, BtHlp, BtClose })
        row->addWidget(button);
    return row;
}

/// Creates the controls in tab order.
void FmControlGeneral::BuildLayout()
{
    QBoxLayout* transfer = BuildTransferColumn();
    BuildPane(instr_, QStringLiteral("Instr"));
    auto* panes = new QHBoxLayout;
    panes->addWidget(pc_.Frame, 1);
    panes->addLayout(transfer);
    panes->addWidget(instr_.Frame, 1);
    auto* form = new QVBoxLayout(this);
    form->addLayout(panes, 1);
    form->addLayout(BuildFormRow());
}

void FmControlGeneral::ConnectPane(Pane& pane)
{
    const ControlSide side = pane.Side;
    const auto onClick = [this, side](QPushButton* button, void (*command)(FileControl&, ControlSide)) {
        connect(button, &QPushButton::clicked, this,
            [this, side, command] { Run([this, side, command] { command(control_, side); }); });
    };
    onClick(pane.DirUp, ControlFolderUp);
    onClick(pane.DirOpen, ControlOpenFolder);
    onClick(pane.DirNew, ControlNewFolder);
    onClick(pane.Sel, ControlSelectAll);
    onClick(pane.Del, ControlDelete);
    onClick(pane.Ref, ControlRefresh);
    onClick(pane.Ren, ControlRename);
    connect(pane.Combo, &FolderComboBox::AboutToDropDown, this, [this, side] { ControlDropDown(control_, side); });
    connect(
        pane.Combo, &QComboBox::activated, this, [this, side](int item) { ControlSelectFolder(control_, side, item); });
    ConnectList(pane);
}

void FmControlGeneral::ConnectList(Pane& pane)
{
    const ControlSide side = pane.Side;
    const FileListWidget* list = pane.List;
    connect(list, &FileListWidget::SelectionEdited, this, [this] { ControlUpdate(control_); });
    connect(list, &FileListWidget::RowOpened, this, [this, side](int row) { ControlOpenRow(control_, side, row); });
    connect(list, &FileListWidget::HeaderClicked, this,
        [this, side](int column) { Run([this, side, column] { ControlHeaderClick(control_, side, column); }); });
    connect(list, &FileListWidget::DeletePressed, this, [this, side] { ControlDeleteByKey(control_, side); });
    connect(list, &FileListWidget::RenamePressed, this, [this, side] { ControlRename(control_, side); });
    connect(list, &FileListWidget::SelectAllPressed, this, [this, side] { ControlSelectAll(control_, side); });
    connect(list, &FileListWidget::Renamed, this,
        [this, side](const QString& sortKey, const QString& name) { ControlRenamed(control_, side, sortKey, name); });
}

void FmControlGeneral::ConnectForm()
{
    const auto onClick = [this](QPushButton* button, void (*command)(FileControl&)) {
        connect(button, &QPushButton::clicked, this, [this, command] { Run([this, command] { command(control_); }); });
    };
    onClick(BtUl, ControlUpload);
    onClick(BtDl, ControlDownload);
    onClick(BtNew, ControlNew);
    for (QPushButton* button : BtPcEdit)
        onClick(button, ControlEdit);
    connect(BtClose, &QPushButton::clicked, this, [this] { Unload(); });
    connect(BtHlp, &QPushButton::clicked, this, [this] { ShowHelp(HelpNumber()); });
    connect(BtWhatsThis, &QPushButton::clicked, this, [] { TheFrame()->EnterWhatsThis(); });
}

void FmControlGeneral::Run(const std::function<void()>& command)
{
    FinishLabelEdits();
    command();
}

void FmControlGeneral::FinishLabelEdits()
{
    for (const Pane* pane : { &pc_, &instr_ })
        pane->List->FinishLabelEdit();
}

void FmControlGeneral::EnableTransfers(bool upload, bool download)
{
    BtUl->setEnabled(upload);
    BtDl->setEnabled(download);
    LbFree->clear();
}

void FmControlGeneral::ShowBusyPointer(bool busy)
{
    FormBase::ShowBusyPointer(busy);
}

void FmControlGeneral::RunTransfer()
{
    FmTransfer form(this);
    DialogShow(form);
}

void FmControlGeneral::Close()
{
    Unload();
}

bool FmControlGeneral::OnLoad()
{
    ControlLoad(control_);
    ApplyClass();
    ApplyClassTexts();
    DialogPush(*this, false);
    pc_.List->setFocus();
    return true;
}

/// Wide enough for names and dates: the default limit of two thirds of the screen is too narrow.
void FmControlGeneral::PrepareWindow(bool removeClose)
{
    FormBase::PrepareWindow(removeClose);
    if (screen() == nullptr)
        return;
    constexpr double kMaxScreenShare = 0.95;
    const QRect area = screen()->availableGeometry();
    resize(sizeHint().boundedTo(area.size() * kMaxScreenShare).expandedTo(size()));
    move(area.center() - rect().center());
}

/// Hides the controls that the class does not have. Both panes are as wide as the wider one needs.
void FmControlGeneral::ApplyClass()
{
    const ControlRules rules = ControlRulesOf(FileClasses().CurrentFileClass);
    if (!rules.Icon.isEmpty())
        setWindowIcon(PictureIcon(rules.Icon));
    for (QWidget* control :
        std::initializer_list<QWidget*>{ instr_.Combo, instr_.DirUp, instr_.DirOpen, instr_.DirNew, instr_.Ren })
        control->setVisible(rules.HasInstrFolders);
    instr_.Del->setVisible(rules.DeletesOnInstr);
    BtNew->setVisible(rules.MakesNew);
    for (size_t at = 0; at < BtPcEdit.size(); ++at)
        BtPcEdit[at]->setVisible(static_cast<int>(at) == rules.EditButton);
    pc_.List->ShowColumns();
    instr_.List->ShowColumns();
    for (const Pane* pane : { &pc_, &instr_ })
        pane->Frame->setMinimumWidth(0);
    const int width = std::max(pc_.Frame->minimumSizeHint().width(), instr_.Frame->minimumSizeHint().width());
    for (const Pane* pane : { &pc_, &instr_ })
        pane->Frame->setMinimumWidth(width);
}

void FmControlGeneral::ApplyClassTexts()
{
    LngSetForm(this, ModCaption(CaptionSlot::ControlTitle));
    SetHelpNumber(ModCaption(CaptionSlot::ControlTitle));
    const auto setBoth = [](QWidget* control, TextNumber<0> text) { SetTexts(control, text, text); };
    for (QPushButton* button : BtPcEdit)
        setBoth(button, ModCaption(CaptionSlot::HintEdit));
    setBoth(BtUl, ModCaption(CaptionSlot::HintUpload));
    setBoth(BtDl, ModCaption(CaptionSlot::HintDownload));
    setBoth(BtNew, ModCaption(CaptionSlot::HintNew));
    for (const Pane* pane : { &pc_, &instr_ }) {
        const TextNumber<0> hint = ModCaption(pane == &pc_ ? CaptionSlot::HintPc : CaptionSlot::HintInstrument);
        setBoth(pane->Frame, hint);
        setBoth(pane->List, hint);
        pane->List->setAccessibleName(LngStr(hint));
        SetTexts(pane->Sel, ModCaption(CaptionSlot::HelpSelect), ModCaption(CaptionSlot::HintSelect));
    }
}

void FmControlGeneral::OnActivate()
{
    if (control_.CanWork)
        WaitUntilPainted(); // with a slow instrument the lists are empty meanwhile, not the whole window
    if (IsLoaded())
        ControlActivate(control_);
}

bool FmControlGeneral::QueryUnload()
{
    FinishLabelEdits();
    return ControlCanClose(control_);
}

bool FmControlGeneral::CanCloseUnasked() const
{
    return ControlCanClose(control_) && !pc_.List->HasOpenLabel() && !instr_.List->HasOpenLabel();
}

void FmControlGeneral::OnUnload()
{
    ControlUnload();
}

std::vector<QPushButton*> FmControlGeneral::BusyButtons() const
{
    std::vector<QPushButton*> buttons{ BtClose, BtDl, BtUl };
    for (const Pane* pane : { &pc_, &instr_ }) {
        for (QPushButton* button :
            { pane->DirUp, pane->DirOpen, pane->DirNew, pane->Sel, pane->Del, pane->Ref, pane->Ren })
            buttons.push_back(button);
    }
    buttons.insert(buttons.end(), BtPcEdit.begin(), BtPcEdit.end());
    return buttons;
}

/// Gives the focus back to a button that lost it by being disabled.
void FmControlGeneral::EnableBusySet(bool on)
{
    if (!on)
        focusBefore_ = focusWidget();
    for (QPushButton* button : BusyButtons())
        button->setEnabled(on);
    if (on && !focusBefore_.isNull())
        focusBefore_->setFocus(Qt::OtherFocusReason);
}

void FmControlGeneral::ShowCombo(ControlSide side)
{
    Pane& pane = PaneOf(side);
    const QString before = pane.Combo->Path();
    pane.Combo->ShowItems(ComboOf(control_, side));
    if (pane.Combo->Path() != before)
        pane.List->scrollToTop();
}

FmControlGeneral::Pane& FmControlGeneral::PaneOf(ControlSide side)
{
    return side == ControlSide::Pc ? pc_ : instr_;
}

} // namespace tarvik
