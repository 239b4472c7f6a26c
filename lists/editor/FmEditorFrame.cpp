#include "lists/editor/FmEditorFrame.h"

#include "app/forms/focusRules.h"
#include "app/help/help.h"
#include "app/menu/recentFiles.h"
#include "app/message/message.h"
#include "app/text/lang.h"

#include <QComboBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QPushButton>

namespace tarvik {

namespace {

constexpr int kExtList = 0;
constexpr int kExtCsv = 1;

} // namespace

FmEditorFrame::FmEditorFrame(const EditorFrame& frame, QWidget* parent)
    : FormBase(frame.Name, parent)
    , frame_(frame)
{
    SetHelpNumber(frame_.HelpNumber);
}

void FmEditorFrame::Arrange(QWidget* head, QWidget* list)
{
    auto* layout = new QGridLayout(this);
    layout->addWidget(head, 0, 0);
    layout->addWidget(list, 1, 0);
    layout->addWidget(BuildCommands(), 0, 1, 2, 1);
    layout->setRowStretch(1, 1);
    layout->setColumnStretch(0, 1);
    Connect();
}

QComboBox* FmEditorFrame::NewExtCombo(QWidget* head)
{
    CbExt = NewCombo(head, "CbExt", HelpId::EditorName);
    CbExt->setAccessibleName(PlainCaption(LngStr(TextId::ChooseFileType)));
    return CbExt;
}

QWidget* FmEditorFrame::BuildCommands()
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
    // These discard a bad cell or ask first: checking it would only be in the way. The head is checked.
    for (QPushButton* button : { BtNew, BtOpen, BtHelp, BtClose })
        SkipLeaveCheck(button);
    return commands;
}

void FmEditorFrame::Connect()
{
    connect(BtNew, &QPushButton::clicked, this, &FmEditorFrame::OnNew);
    connect(BtOpen, &QPushButton::clicked, this, &FmEditorFrame::OnOpen);
    connect(BtSave, &QPushButton::clicked, this, &FmEditorFrame::Save);
    connect(BtClose, &QPushButton::clicked, this, &FmEditorFrame::OnClose);
    connect(BtHelp, &QPushButton::clicked, this, &FmEditorFrame::OnHelp);
    connect(CbExt, &QComboBox::currentIndexChanged, this, &FmEditorFrame::OnHeadChanged);
}

bool FmEditorFrame::OnLoad()
{
    DialogPush(*this, false);
    SetEditorType(frame_.ListType);
    if (frame_.Result != nullptr)
        (Editor().*frame_.Result).clear();
    FillCbExt();
    OnEditorLoad();
    folder_.clear();
    ShowEmptyList();
    ShowTitle();
    ShowButtonTips();
    const bool isNew = Editor().EditorOpenFile.isEmpty();
    const bool isOpen = isNew || OpenPath(Editor().EditorOpenFile);
    Editor().EditorDirty = false;
    FocusStart(isNew);
    return isOpen;
}

void FmEditorFrame::ShowButtonTips()
{
    for (QPushButton* button : findChildren<QPushButton*>())
        button->setToolTip(PlainTip(LngStr(TextNumber<0>(HelpNumberOf(button)))));
}

void FmEditorFrame::FillCbExt()
{
    const auto filling = Filling();
    CbExt->clear();
    CbExt->addItem(Editor().ListExtension.toUpper());
    if (frame_.ListType != FileClassCorrectionSet)
        CbExt->addItem(LngStr(TextId::CsvExtension));
}

bool FmEditorFrame::QueryUnload()
{
    if (!Editor().EditorDirty)
        return true;
    const MsgResult answer = MsgYesNoCancel(TextId::SaveList);
    return answer == MsgResult::Yes ? Save() : answer == MsgResult::No;
}

void FmEditorFrame::OnUnload()
{
    EditorState& state = Editor();
    state.EditorOpenFile.clear();
    const bool hasResult = !ListName().isEmpty() && !state.EditorDirty;
    if (frame_.Result == nullptr || !hasResult)
        return;
    state.*frame_.Result = ListName() + CbExt->currentText().toLower();
    state.ResultFolder = folder_;
}

/// True if no change is lost: none made, saved, or discarded by the user. False if the question is dismissed.
bool FmEditorFrame::SaveChangesFirst()
{
    if (!Editor().EditorDirty)
        return true;
    const MsgResult answer = MsgYesNo(TextId::SaveList);
    return answer == MsgResult::Yes ? Save() : answer == MsgResult::No;
}

void FmEditorFrame::OnClose()
{
    if (MayLeaveHead())
        Unload();
}

void FmEditorFrame::OnHelp()
{
    if (MayLeaveHead())
        ShowHelp(frame_.HelpTopic);
}

void FmEditorFrame::OnNew()
{
    if (!MayLeaveHead() || !SaveChangesFirst())
        return;
    ShowTitle();
    folder_.clear();
    ShowEmptyList();
    Editor().EditorDirty = false;
}

void FmEditorFrame::OnOpen()
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

bool FmEditorFrame::OpenPath(const QString& path)
{
    bool isRead = false;
    {
        const BusyPointer busy(*this);
        isRead = ReadFile(path);
    }
    if (!isRead) {
        folder_.clear();
        ShowEmptyList();
        ShowTitle();
        return false;
    }
    folder_ = QFileInfo(path).absolutePath();
    {
        const auto filling = Filling();
        CbExt->setCurrentIndex(CbExt->count() > kExtCsv && IsCsvFile(path, frame_.CsvText) ? kExtCsv : kExtList);
    }
    ShowTitle(QFileInfo(path).fileName());
    RecentFileAdd(path);
    return true;
}

void FmEditorFrame::OnHeadChanged()
{
    if (filling_)
        return;
    ShowTitle();
    SetDirty();
}

void FmEditorFrame::SetDirty()
{
    Editor().EditorDirty = true;
}

void FmEditorFrame::ShowTitle(const QString& fileName)
{
    setWindowTitle(EditorTitle(frame_.TitleText, fileName));
}

bool FmEditorFrame::Save()
{
    if (!Validate())
        return false;
    const QString folder = SaveFolderDialog(ListName() + CbExt->currentText().toUpper());
    if (!folder.isEmpty() && WriteTo(folder))
        return true;
    ShowTitle();
    return false;
}

bool FmEditorFrame::WriteTo(const QString& folder)
{
    const QString path = ListFilePath(folder, ListName(), CbExt->currentText());
    bool isWritten = false;
    {
        const BusyPointer busy(*this);
        isWritten = WriteFile(path);
    }
    if (!isWritten)
        return false;
    folder_ = folder;
    ShowTitle(ListName() + CbExt->currentText());
    Editor().EditorDirty = false;
    RememberFolder(folder);
    RecentFileAdd(path);
    return true;
}

} // namespace tarvik
