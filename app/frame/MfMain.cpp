#include "app/frame/MfMain.h"

#include "app/about/FmLogo.h"
#include "app/forms/Pictures.h"
#include "app/forms/darkColor.h"
#include "app/forms/form.h"
#include "app/frame/ChildArea.h"
#include "app/frame/FrameStatusBar.h"
#include "app/frame/FrameToolbar.h"
#include "app/frame/KeyboardFilter.h"
#include "app/frame/PlatformSeams.h"
#include "app/frame/placement.h"
#include "app/help/FmHelp.h"
#include "app/help/help.h"
#include "app/menu/FrameMenus.h"
#include "app/menu/menu.h"
#include "app/state/progressBar.h"
#include "app/state/project.h"
#include "app/text/textId.h"

#include <QApplication>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QScreen>
#include <QStyle>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

constexpr int kChildAreaPercent = 130; // lightness, relative to the window colour

Qt::WindowStates WindowStateOf(WinState state)
{
    if (state == WinState::Maximised)
        return Qt::WindowMaximized;
    return state == WinState::Minimised ? Qt::WindowMinimized : Qt::WindowNoState;
}

MfMain* current = nullptr;

void Toggle(bool& bar)
{
    bar = !bar;
    current->ApplyBars();
}

/// Null if the event is no key of the frame.
const FrameKey* KeyOf(const QKeyEvent& event)
{
    const auto& keys = FrameKeys();
    const auto* key =
        std::find_if(keys.begin(), keys.end(), [&event](const FrameKey& one) { return one.Key == event.key(); });
    return key != keys.end() && event.modifiers() == Qt::ControlModifier ? key : nullptr;
}

/// Bound while the frame lives.
constexpr std::array kCommands{
    CommandBinding{ Command::FileExit, [] { current->close(); } },
    CommandBinding{ Command::ViewToolbar, [] { Toggle(Program().ToolbarOn); } },
    CommandBinding{ Command::ViewStatusBar, [] { Toggle(Program().StatusBarOn); } },
    CommandBinding{ Command::HelpContents, [] { HelpCommand(HelpId::CommandContents); } },
    CommandBinding{ Command::HelpIndex, [] { HelpCommand(HelpId::CommandIndex); } },
    CommandBinding{ Command::HelpSearch, [] { HelpCommand(HelpId::CommandSearch); } },
    CommandBinding{ Command::HelpSupport, [] { HelpCommand(HelpId::CommandSupport); } },
    CommandBinding{ Command::HelpAbout, [] { HelpCommand(HelpId::CommandAbout); } },
    CommandBinding{ Command::HelpWhatsThis, EnterWhatsThisMode },
};

} // namespace

MfMain* MfMain::Current()
{
    return current;
}

MfMain::MfMain(const QString& programFolder)
    : commands_(kCommands)
    , programFolder_(programFolder)
{
    current = this;
    setObjectName(QStringLiteral("MfMain"));
    setWindowTitle(ProductTitle());
    setAcceptDrops(true);
    SetControlHelp(this, TextId::PressF1ForHelp);
    BuildAreas();
}

MfMain::~MfMain()
{
    disconnect(MdiArea, nullptr, this, nullptr); // the base class activates child windows while it closes
    current = nullptr;
}

void MfMain::BuildAreas()
{
    MdiArea = new tarvik::ChildArea(this);
    MdiArea->setObjectName(QStringLiteral("MdiArea"));
    MdiArea->setActivationOrder(
        QMdiArea::ActivationHistoryOrder); // a closed window gives way to the one used before it
    MdiArea->viewport()->installEventFilter(this);
    MdiArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded); // a picture may be larger than the area
    MdiArea->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    ColourChildArea();
    setCentralWidget(MdiArea);
    connect(MdiArea, &QMdiArea::subWindowActivated, this, [this] { MenuUpdate(); });

    menus_ = new FrameMenus(this);
    toolbar_ = new FrameToolbar(this);
    toolbar_->installEventFilter(this);
    connect(toolbar_, &FrameToolbar::CommandDone, this, &MfMain::ReturnFocus);
    connect(toolbar_, &FrameToolbar::Ticked, this, [] { TheFrameDocuments()->CheckPendingResize(); });
    addToolBar(Qt::TopToolBarArea, toolbar_);
    statusBar_ = new FrameStatusBar(this);
    statusBar_->installEventFilter(this);
    setStatusBar(statusBar_);
    keyboard_ = new KeyboardFilter(this);
    TmProgress = new QTimer(this);
    TmProgress->setObjectName(QStringLiteral("TmProgress"));
    TmProgress->setInterval(kProgressTimerMs);
    connect(TmProgress, &QTimer::timeout, this, [] { ProgressRefresh(); });

    ImLogoMr = new QLabel(this);
    ImLogoMr->setObjectName(QStringLiteral("ImLogoMr"));
    ImLogoMr->setPixmap(PicturePixmap(QStringLiteral("logo"), devicePixelRatioF()));
    ImLogoMr->hide();
}

/// Contrasts with the bars and, on a dark palette, with the menus, which are darkest there.
void MfMain::ColourChildArea()
{
    const QColor window = palette().color(QPalette::Window);
    MdiArea->setBackground(IsDark(window) ? window.lighter(kChildAreaPercent) : window.darker(kChildAreaPercent));
}

void MfMain::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && MdiArea != nullptr)
        ColourChildArea();
}

bool MfMain::Load()
{
    if (!ProjectInit(*this))
        return false;
    toolbar_->LayOut();
    return ProjectStart(*this);
}

void MfMain::CloseWhenPossible()
{
    if (closing_)
        return;
    Program().CloseRequested = true;
    CloseSystemBox();
    TryPendingClose();
}

/// Closes from the message loop, since this also runs while a dialog unloads.
void MfMain::TryPendingClose()
{
    if (Program().CloseRequested)
        QTimer::singleShot(0, this, &MfMain::FollowCloseRequest);
}

void MfMain::FollowCloseRequest()
{
    ProgramState& program = Program();
    if (!program.CloseRequested || closing_)
        return;
    DialogForm* dialog = DialogTop();
    if (dialog != nullptr && dialog->CanCloseUnasked()) {
        dialog->Unload();
        program.CloseRequested = DialogTop() != dialog;
    } else if (program.Started && CanAct()) {
        program.CloseRequested = false; // cancelling a prompt now withdraws it
        close();
    }
}

bool MfMain::CloseForLogOff()
{
    if (closing_)
        return false; // the prompts are not answered yet
    DialogForm* dialog = DialogTop();
    while (dialog != nullptr && dialog->CanCloseUnasked()) {
        dialog->Unload();
        if (DialogTop() == dialog)
            return false;
        dialog = DialogTop();
    }
    return !Program().Started || close(); // nothing is unsaved during the start
}

QString MfMain::CommandLine() const
{
    return QCoreApplication::arguments().mid(1).join(u' ');
}

QString MfMain::ExecutableFolder() const
{
    return programFolder_;
}

ModuleLoadResult MfMain::LoadModule(Module module, const QString& folder)
{
    return ModuleLoad(module, folder);
}

void MfMain::BuildTexts()
{
    setWindowTitle(Program().ProgramTitle);
    setAccessibleName(Program().ProgramTitle);
    MdiArea->setAccessibleName(Program().ProgramTitle);
    menuBar()->setAccessibleName(Program().ProgramTitle);
    menus_->SetTexts();
    toolbar_->SetTexts();
    statusBar_->SetTexts();
}

int MfMain::ShowLogo()
{
    FmLogo logo(ImLogoMr->pixmap(Qt::ReturnByValue));
    return DialogShow(logo);
}

void MfMain::FreeLogo()
{
    ImLogoMr->setPixmap({});
}

void MfMain::InstallKeyboardHook()
{
    keyboard_->Install();
}

void MfMain::RemoveKeyboardHook()
{
    keyboard_->Remove();
}

void MfMain::ApplyBars()
{
    ShowBar(toolbar_, Program().ToolbarOn);
    ShowBar(statusBar_, Program().StatusBarOn);
    menus_->ShowToggles();
}

/// Rearranges the child windows if their area has changed.
void MfMain::ShowBar(QWidget* bar, bool on)
{
    if (bar->isHidden() == !on)
        return;
    bar->setVisible(on);
    layout()->activate(); // resizes the area now, not on the next event
    TheFrameDocuments()->Retile();
}

void MfMain::ShowFrame()
{
    QVector<QRect> screens;
    for (const QScreen* one : QGuiApplication::screens())
        screens.append(one->availableGeometry());
    if (placement_.isValid()) {
        const int border = style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
        const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight);
        const QRect placed = PlacementOnScreens(placement_, screens);
        placement_ = { placed.topLeft(), PlacedSize(placed, screens, QSize(2 * border, 2 * border + title)) };
        resize(placement_.size());
        move(placement_.topLeft()); // of the title bar, which would be off the screen otherwise
    }
    setWindowState(WindowStateOf(Program().MainWindowState)); // after the geometry, which would reset it
    setVisible(true);
    toolbar_->StartTips();
}

void MfMain::FocusFirstButton()
{
    toolbar_->FocusFirstButton();
}

void MfMain::ReturnFocus()
{
    if (QMdiSubWindow* child = MdiArea->activeSubWindow())
        child->setFocus();
}

QMdiArea* MfMain::ChildArea() const
{
    return MdiArea;
}

void MfMain::Popup(const QString& name, const QPoint& at)
{
    menus_->Popup(name, at);
}

bool MfMain::FrameKeyDown(const QKeyEvent& event)
{
    if (MdiArea->StepKey(event))
        return true;
    const FrameKey* key = KeyOf(event);
    return key != nullptr && RuleHolds(key->When, MenuInputNow()) && CommandRun(key->Run);
}

bool MfMain::DialogKeyDown(const QKeyEvent& event)
{
    const FrameKey* key = KeyOf(event);
    return key != nullptr && key->When == EnableRule::Document && CommandRunOnDialog(key->Run);
}

void MfMain::keyPressEvent(QKeyEvent* event)
{
    if (!FrameKeyDown(*event))
        QMainWindow::keyPressEvent(event);
}

bool MfMain::QueryClose()
{
    const QScopedValueRollback closing(closing_, true);
    return ProjectQueryUnload();
}

void MfMain::closeEvent(QCloseEvent* event)
{
    if (!Program().Started || !QueryClose()) { // start-up can't be interrupted
        event->ignore();
        return;
    }
    ProjectUnload(*this);
    event->accept();
    if (QThread::currentThread()->loopLevel() > 0)
        QCoreApplication::exit(0);
}

/// The menu key opens the frame's menu: one of its entries is in no other menu.
void MfMain::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() == QContextMenuEvent::Keyboard)
        Popup(QStringLiteral("ClMn"), MdiArea->mapToGlobal(QPoint()));
    event->accept();
}

QMenu* MfMain::createPopupMenu()
{
    return nullptr; // the bars have their own menus
}

bool MfMain::eventFilter(QObject* watched, QEvent* event)
{
    return PopupForBar(watched, event) || QMainWindow::eventFilter(watched, event);
}

/// `ClMn` opens on release over the empty area, the menus of the bars on press.
bool MfMain::PopupForBar(QObject* watched, QEvent* event)
{
    const bool isArea = watched == MdiArea->viewport() && event->type() == QEvent::MouseButtonRelease;
    const bool isBar = watched != MdiArea->viewport() && event->type() == QEvent::MouseButtonPress;
    if (!isArea && !isBar)
        return false;
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (mouse->button() != Qt::RightButton)
        return false;
    const char* name = isArea ? "ClMn" : watched == toolbar_ ? "TbMn" : "SbMn";
    Popup(QString::fromLatin1(name), mouse->globalPosition().toPoint());
    return true;
}

} // namespace tarvik
