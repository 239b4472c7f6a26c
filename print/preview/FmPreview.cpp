#include "print/preview/FmPreview.h"

#include "app/forms/focusRules.h"
#include "app/help/help.h"
#include "app/state/frame.h"
#include "app/state/statusBar.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "print/page/FmPageSetup.h"
#include "print/page/printCommand.h"
#include "print/page/printSettings.h"
#include "print/preview/SheetView.h"
#include "print/preview/pagination.h"
#include "print/printer/printers.h"
#include "screen/document/screenTable.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCheckBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QWheelEvent>

#include <algorithm>

namespace tarvik {

namespace {

/// Without a setting: most of a small screen.
constexpr QSize kFirstSizePx(820, 640);

constexpr QSize kLeastSheetPx(240, 240);
constexpr int kSheetMarginPx = 10;
constexpr int kSideSpacingPx = 6;

/// The page shows the palette of the active window.
bool ActiveIsBlackAndWhite()
{
    const DocumentPicture* picture = PictureOf(WindowTable().Active);
    return picture != nullptr && picture->PalNr == PaletteNumber::BlackAndWhite;
}

} // namespace

FmPreview::FmPreview(QWidget* parent)
    : FormBase("FmPreview", parent)
{
    LngSetForm(this, TextId::PreviewTitle);
    SetHelpNumber(HelpId::Preview);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    BuildSheet();
    BuildChoices();
    BuildPosition();
    BuildButtons();
    BuildLayout();
    ConnectControls();
}

/// The picture, and the scroll bar with one step for each page.
void FmPreview::BuildSheet()
{
    area_ = new QWidget(this);
    area_->setMinimumSize(kLeastSheetPx);
    area_->setAutoFillBackground(true);
    area_->setBackgroundRole(QPalette::Dark);
    area_->setContentsMargins(kSheetMarginPx, kSheetMarginPx, kSheetMarginPx, kSheetMarginPx);
    PbPreview = new SheetView(area_);
    PbPreview->setAccessibleName(LngStr(TextId::PreviewSheet));
    SetControlHelp(PbPreview, TextId::PreviewSheet);
    SetControlHint(PbPreview, TextId::PreviewSheetHint);
    VsNrPages = new QScrollBar(Qt::Vertical, this);
    NameControl(VsNrPages, QStringLiteral("VsNrPages"));
    VsNrPages->setAccessibleName(LngStr(TextId::PreviewPageHint));
    VsNrPages->setPageStep(1);
    SetControlHelp(VsNrPages, TextId::PreviewPage);
    SetControlHint(VsNrPages, TextId::PreviewPageHint);
    LbPage = NewLabel(this, "LbPage", {});
}

void FmPreview::BuildChoices()
{
    LbNrOfWindows = NewLabel(this, "LbNrOfWindows", { TextId::PreviewPerPage });
    TbNrOfWindows = NewTextBox(this, "TbNrOfWindows", TextId::PreviewPerPage, 2);
    SetControlHint(TbNrOfWindows, TextId::PreviewPerPageHint);
    TbNrOfWindows->setFixedWidth(TbNrOfWindows->fontMetrics().averageCharWidth() * 5);
    TbNrOfWindows->setAlignment(Qt::AlignRight);
    SelectAllOnFocus(TbNrOfWindows);
    BindLabel(LbNrOfWindows, TbNrOfWindows);
    ChOutline =
        NewCheckBox(this, "ChOutline", { TextId::PreviewOutline, TextId::PreviewOutline, TextId::PreviewOutlineHint });
    ChTitle = NewCheckBox(
        this, "ChTitle", { TextId::PreviewTitleLine, TextId::PreviewTitleLine, TextId::PreviewTitleLineHint });
    ChBw = NewCheckBox(
        this, "ChBw", { TextId::PreviewBlackAndWhite, TextId::PreviewBlackAndWhite, TextId::PreviewBlackAndWhiteHint });
}

void FmPreview::BuildPosition()
{
    FrPos = NewFrame(this, "FrPos", { TextId::PreviewPosition, TextId::PreviewPosition, TextId::PreviewPositionHint });
    auto* grid = new QGridLayout(FrPos);
    const int width = FrPos->fontMetrics().horizontalAdvance(QStringLiteral("0000.00 mm"));
    for (int row = 0; row < 4; ++row) {
        const auto at = static_cast<size_t>(row);
        LbPos[at] = NewLabel(FrPos, "LbPos", { TextId::PreviewEdges + row });
        LbPos[at]->setObjectName(QStringLiteral("LbPos[%1]").arg(row));
        LbPosVal[at] = NewLabel(FrPos, "LbPosVal", {});
        LbPosVal[at]->setObjectName(QStringLiteral("LbPosVal[%1]").arg(row));
        LbPosVal[at]->setMinimumWidth(width);
        LbPosVal[at]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(LbPos[at], row, 0);
        grid->addWidget(LbPosVal[at], row, 1);
    }
}

void FmPreview::BuildButtons()
{
    BtAdd = NewButton(this, "BtAdd", { TextId::PreviewAdd, TextId::PreviewAdd, TextId::PreviewAddHint });
    BtDel = NewButton(this, "BtDel", { TextId::PreviewRemove, TextId::PreviewRemove, TextId::PreviewRemoveHint });
    BtDflt = NewButton(this, "BtDflt", { TextId::PreviewArrange, TextId::PreviewArrange, TextId::PreviewArrangeHint });
    BtPrint = NewButton(this, "BtPrint", { TextId::PreviewPrint, TextId::PreviewPrint, TextId::PreviewPrintHint });
    BtSetup = NewButton(this, "BtSetup", { TextId::PreviewSetup, TextId::PreviewSetup, TextId::PreviewSetupHint });
    BtClose = NewButton(this, "BtClose", { TextId::PreviewClose, TextId::PreviewClose, TextId::PreviewCloseHint });
    BtCancel = NewButton(this, "BtCancel", { TextId::PreviewCancel, TextId::PreviewCancel, TextId::PreviewCancelHint });
    BtHelp = NewButton(this, "BtHelp", { TextId::PreviewHelp, TextId::PreviewHelp, TextId::PreviewHelpHint });
    BtWhatsThis = NewButton(
        this, "BtWhatsThis", { TextId::PreviewWhatsThis, TextId::PreviewWhatsThis, TextId::PreviewWhatsThisHint });
}

QVBoxLayout* FmPreview::BuildSide()
{
    auto* perPage = new QHBoxLayout;
    perPage->addWidget(LbNrOfWindows, 1);
    perPage->addWidget(TbNrOfWindows);
    auto* side = new QVBoxLayout;
    side->setSpacing(kSideSpacingPx);
    side->addLayout(perPage);
    side->addSpacing(kSideSpacingPx);
    for (QCheckBox* box : { ChOutline, ChTitle, ChBw })
        side->addWidget(box, 0, Qt::AlignLeft); // limits the click area to the text
    side->addSpacing(kSideSpacingPx);
    for (QPushButton* button : { BtAdd, BtDel, BtDflt })
        side->addWidget(button);
    side->addSpacing(kSideSpacingPx);
    side->addWidget(FrPos);
    side->addStretch(1);
    for (QPushButton* button : { BtPrint, BtSetup, BtClose, BtCancel, BtHelp, BtWhatsThis })
        side->addWidget(button);
    return side;
}

void FmPreview::BuildLayout()
{
    auto* sheet = new QHBoxLayout;
    sheet->setSpacing(0);
    sheet->addWidget(area_, 1);
    sheet->addWidget(VsNrPages);
    auto* left = new QVBoxLayout;
    left->addLayout(sheet, 1);
    left->addWidget(LbPage, 0, Qt::AlignHCenter);
    auto* form = new QHBoxLayout(this);
    form->setContentsMargins(kFormMarginPx, kFormMarginPx, kFormMarginPx, kFormMarginPx);
    form->setSpacing(kFormMarginPx);
    form->addLayout(left, 1);
    form->addLayout(BuildSide());
}

void FmPreview::ConnectControls()
{
    const auto onClick = [this](QPushButton* button, void (FmPreview::*action)()) {
        connect(button, &QPushButton::clicked, this, action);
    };
    onClick(BtAdd, &FmPreview::OnAdd);
    onClick(BtDel, &FmPreview::OnRemove);
    onClick(BtDflt, &FmPreview::OnArrange);
    onClick(BtPrint, &FmPreview::OnPrint);
    onClick(BtSetup, &FmPreview::OnSetup);
    connect(BtClose, &QPushButton::clicked, this, [this] {
        keeps_ = true;
        Unload();
    });
    connect(BtCancel, &QPushButton::clicked, this, [this] { Unload(); });
    connect(BtHelp, &QPushButton::clicked, this, [this] { ShowHelp(HelpNumber()); });
    connect(BtWhatsThis, &QPushButton::clicked, this, [] { TheFrame()->EnterWhatsThis(); });
    connect(ChOutline, &QCheckBox::clicked, this, &FmPreview::OnOutline);
    connect(ChTitle, &QCheckBox::clicked, this, &FmPreview::OnTitle);
    connect(ChBw, &QCheckBox::clicked, this, &FmPreview::OnBlackAndWhite);
    connect(TbNrOfWindows, &QLineEdit::textEdited, this, &FmPreview::OnPerPage);
    connect(TbNrOfWindows, &QLineEdit::editingFinished, this,
        [this] { TbNrOfWindows->setText(QString::number(perPage_)); });
    connect(VsNrPages, &QScrollBar::valueChanged, this, &FmPreview::OnPage);
    connect(PbPreview, &SheetView::Changed, this, &FmPreview::ShowState);
    for (QWidget* control : findChildren<QWidget*>())
        control->installEventFilter(this);
}

bool FmPreview::OnLoad()
{
    const PrintSettings& settings = ThePrintSettings();
    titleBefore_ = settings.Title;
    outlineBefore_ = settings.Border;
    keeps_ = false;
    for (PageRecord& page : ThePages().Table)
        page.BlackAndWhite = ActiveIsBlackAndWhite();
    perPage_ = OpenPages(PrinterSheet());
    TbNrOfWindows->setText(QString::number(perPage_));
    DialogPush(*this, false);
    RestoreSize();
    ShowPages();
    PbPreview->setFocus();
    return true;
}

void FmPreview::OnUnload()
{
    StoreSize();
    PrintSettings& settings = ThePrintSettings();
    if (keeps_) {
        StoreLayout(PbPreview->Edit().SheetInUse());
    } else {
        settings.Title = titleBefore_;
        settings.Border = outlineBefore_;
    }
    for (PageRecord& page : ThePages().Table)
        ClearPage(page);
}

void FmPreview::RestoreSize()
{
    const PrintSettings& settings = ThePrintSettings();
    const QSize stored(PixelsFromTwips(this, double{ settings.PreviewWidth }),
        PixelsFromTwips(this, double{ settings.PreviewHeight }));
    const QSize wanted = stored.isEmpty() ? kFirstSizePx : stored;
    const QRect area = screen()->availableGeometry();
    resize(wanted.boundedTo(area.size()).expandedTo(minimumSizeHint()));
    move(area.center() - rect().center());
    setWindowState(settings.PreviewMaximized ? Qt::WindowMaximized : Qt::WindowNoState);
}

/// The size of the restored window, also while it is maximised.
void FmPreview::StoreSize() const
{
    PrintSettings& settings = ThePrintSettings();
    const QSize restored = isMaximized() ? normalGeometry().size() : size();
    settings.PreviewMaximized = isMaximized();
    if (restored.isEmpty())
        return;
    settings.PreviewWidth = static_cast<float>(restored.width() * TwipsPerPixel(this));
    settings.PreviewHeight = static_cast<float>(restored.height() * TwipsPerPixel(this));
}

void FmPreview::resizeEvent(QResizeEvent* event)
{
    FormBase::resizeEvent(event);
    layout()->activate();
    LayOutSheet();
}

/// The sheet has the paper's proportions, in the middle of its area.
void FmPreview::LayOutSheet()
{
    const Sheet sheet = PrinterSheet();
    const QSize size = PreviewSize(sheet, area_->contentsRect().size());
    QRect place(QPoint(), size);
    place.moveCenter(area_->contentsRect().center());
    PbPreview->setGeometry(place);
    PbPreview->Edit().SetScale(sheet, size);
    DrawPage();
}

void FmPreview::DrawPage()
{
    StatusSetId(TextId::StatusDrawingPage);
    {
        const BusyPointer busy(*this);
        PbPreview->RedrawPage();
    }
    StatusClear();
    ShowState();
}

/// After a change of the pages or of the present one.
void FmPreview::ShowPages()
{
    const int last = std::max(PagesInUse() - 1, 0);
    {
        const QSignalBlocker blocked(VsNrPages);
        VsNrPages->setRange(0, last);
        VsNrPages->setValue(ThePages().Present);
    }
    VsNrPages->setEnabled(last > 0);
    LbPage->setText(LngStr2(
        TextId::PreviewPage, QString::number(ThePages().Present + 1), QString::number(VsNrPages->maximum() + 1)));
    LbPage->setAccessibleName(LbPage->text());
    for (PageEntry& entry : PresentPage().InUse())
        entry.Repaint = true;
    PbPreview->Edit().PlacePresentPage();
    DrawPage();
}

void FmPreview::ShowState()
{
    const PageRecord& page = PresentPage();
    const PageEntry* selected =
        page.FrontEntry == kNoEntry ? nullptr : &page.Entries[static_cast<size_t>(page.FrontEntry)];
    ChOutline->setChecked(selected == nullptr ? ThePrintSettings().Border : selected->Outline);
    ChTitle->setChecked(selected == nullptr ? ThePrintSettings().Title : selected->Title);
    ChBw->setChecked(page.BlackAndWhite);
    BtAdd->setEnabled(CanAddWindows());
    BtDel->setEnabled(selected != nullptr);
    BtDflt->setEnabled(selected != nullptr);
    BtPrint->setEnabled(PagesInUse() > 0);
    ShowPosition();
}

void FmPreview::ShowPosition()
{
    const auto texts = PositionTexts();
    for (size_t row = 0; row < texts.size(); ++row) {
        if (LbPosVal[row]->text() == texts[row])
            continue;
        LbPosVal[row]->setText(texts[row]);
        LbPosVal[row]->setAccessibleName(texts[row]);
    }
}

void FmPreview::OnPerPage(const QString& text)
{
    bool isNumber = false;
    const int perPage = text.trimmed().toInt(&isNumber);
    if (!isNumber || perPage < 1 || perPage > kWindowsPerPage || perPage == perPage_)
        return;
    if (!Repaginate(perPage, PbPreview->Edit().SheetInUse())) {
        TbNrOfWindows->setText(QString::number(perPage_));
        return;
    }
    perPage_ = perPage;
    ShowPages();
}

void FmPreview::OnAdd()
{
    if (AddChosenWindows(perPage_, PbPreview->Edit().SheetInUse()))
        ShowPages();
}

void FmPreview::OnRemove()
{
    RemoveFrontEntry();
    ShowPages();
}

void FmPreview::OnArrange()
{
    ArrangePages(PbPreview->Edit().SheetInUse());
    ShowPages();
}

void FmPreview::OnPrint()
{
    StoreLayout(PbPreview->Edit().SheetInUse());
    PrintWindows(PrintMode::Preview);
}

void FmPreview::OnSetup()
{
    FmPageSetup form(this);
    DialogShow(form);
    LayOutSheet();
}

void FmPreview::OnPage(int number)
{
    ThePages().Present = number;
    ShowPages();
}

void FmPreview::OnTitle(bool on)
{
    ThePrintSettings().Title = on;
    PbPreview->Show(PbPreview->Edit().SetTitle(on));
}

void FmPreview::OnOutline(bool on)
{
    ThePrintSettings().Border = on;
    PbPreview->Show(PbPreview->Edit().SetOutline(on));
}

void FmPreview::OnBlackAndWhite(bool on)
{
    for (PageRecord& page : ThePages().Table)
        page.BlackAndWhite = on;
    ShowPages();
}

/// Over the sheet and around it.
void FmPreview::wheelEvent(QWheelEvent* event)
{
    if (area_->geometry().contains(event->position().toPoint()))
        QCoreApplication::sendEvent(VsNrPages, event);
}

/// The form sees keys before its controls.
bool FmPreview::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<QKeyEvent&>(*event);
        if (OnKey(key.modifiers() & ~Qt::KeypadModifier, key.key()))
            return true;
    }
    return FormBase::eventFilter(watched, event);
}

/// The text box needs these keys for its text: a Delete there must not remove a window.
bool FmPreview::TextBoxTakes(int key) const
{
    return TbNrOfWindows->hasFocus() && (key == Qt::Key_Delete || key == Qt::Key_Left || key == Qt::Key_Right);
}

bool FmPreview::OnKey(Qt::KeyboardModifiers modifiers, int key)
{
    if (PbPreview->Edit().IsDragging() || TextBoxTakes(key))
        return false;
    if (key >= Qt::Key_Left && key <= Qt::Key_Down)
        return OnArrow(modifiers, key);
    if (key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
        const int direction = key == Qt::Key_PageUp ? -1 : 1;
        if (modifiers == Qt::ControlModifier)
            PbPreview->Show(PbPreview->Edit().SelectNext(direction));
        else if (modifiers == Qt::NoModifier)
            VsNrPages->setValue(VsNrPages->value() + direction);
        ShowState();
        return true;
    }
    if (modifiers != Qt::NoModifier || (key != Qt::Key_Insert && key != Qt::Key_Delete))
        return false;
    (key == Qt::Key_Insert ? BtAdd : BtDel)->click();
    return true;
}

bool FmPreview::OnArrow(Qt::KeyboardModifiers modifiers, int key)
{
    const bool isBack = key == Qt::Key_Left || key == Qt::Key_Up;
    if (modifiers == Qt::NoModifier) {
        (isBack ? BtHelp : BtPrint)->setFocus(Qt::OtherFocusReason);
        return true;
    }
    const bool isSizing = modifiers == (Qt::ControlModifier | Qt::ShiftModifier);
    if (!isSizing && modifiers != Qt::ControlModifier)
        return false;
    const bool isVertical = key == Qt::Key_Up || key == Qt::Key_Down;
    const int step = isBack ? -1 : 1;
    const QPoint distance = isVertical ? QPoint(0, step) : QPoint(step, 0);
    const Handle part = !isSizing ? Handle::Inside : isVertical ? Handle::Bottom : Handle::Right;
    PbPreview->Show(PbPreview->Edit().Step(part, distance));
    return true;
}

void ShowPreview()
{
    if (!CheckPrinter())
        return;
    FmPreview form(QApplication::activeWindow());
    DialogShow(form);
    StatusClear();
}

} // namespace tarvik
