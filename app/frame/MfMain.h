// app/frame/MfMain.h: the main frame. It is the start object: loading it runs the whole start-up, and it lives until
// the process ends. It shows and passes on; the rules are in startup.h, menu.h, tip.h and dropFiles.h.
#pragma once

#include "app/frame/commands.h"
#include "app/frame/startup.h"
#include "app/state/frame.h"

#include <QMainWindow>

class QLabel;
class QMdiArea;
class QTimer;

namespace tarvik {

class FrameMenus;
class FrameStatusBar;
class FrameToolbar;
class KeyboardFilter;

class MfMain final : public QMainWindow, public ProjectHost, public Frame {
    Q_OBJECT
public:
    /// `programFolder` holds the modules, the help book and the settings file.
    explicit MfMain(const QString& programFolder);
    ~MfMain() override;

    /// The frame while it lives; null before and behind.
    static MfMain* Current();

    /// The load event: start-up from the first step to the last. False ends the process.
    [[nodiscard]] bool Load();

    /// Closes as the close box does. A wish that comes during the start, a command or a dialog waits for its end, and
    /// dialogs that hold nothing of the user's go at once.
    void CloseWhenPossible();

    /// Opens a right-click menu at a place on the screen, if the program can act.
    void Popup(const QString& name, const QPoint& at);

    /// What a child window does with a key of its own: Ctrl+C copies. True when the key has run a command.
    bool FrameKeyDown(const QKeyEvent& event);

    QMdiArea* ChildArea() const
    {
        return MdiArea;
    }

    QString CommandLine() const override;
    QString ExecutableFolder() const override;
    bool LoadModule(Module module, const QString& folder) override;
    void BuildTexts() override;
    int ShowLogo() override;
    void FreeLogo() override;
    void InstallKeyboardHook() override;
    void ApplyBars() override;
    void ShowFrame() override;
    void FocusFirstButton() override;
    void RemoveKeyboardHook() override;

    void MenuUpdate() override;
    bool HasActivation() const override;
    void ShowBusyPointer(bool busy) override;
    void CloseTip() override;
    void FinishPainting() override;
    QString StatusText() const override;
    void SetStatusText(const QString& text) override;
    void SetPanelText(int panel, const QString& text) override;
    void EnableStatusBar(bool on) override;
    void ShowProgress(int percent, const QString& text) override;
    void ClearProgress() override;
    void EnableProgressTimer(bool on) override;
    std::optional<int> HighlightedHelp() const override;
    void EnterWhatsThis() override;
    void ShowAbout() override;
    QSizeF ScreenTwips() const override;
    QSizeF ResizeTwips(QSizeF size) override;
    void MoveTwips(QPointF leftTop) override;
    std::optional<FramePlacement> Placement() const override;

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    QMenu* createPopupMenu() override;

private:
    void BuildAreas();
    void ColourChildArea();
    void PursueCloseWish();
    void ShowBar(QWidget* bar, bool on);
    bool PopupForBar(QObject* watched, QEvent* event);
    void ReturnFocus();

    PortScope<Frame> inForce_{ TheFrame(), *this };
    CommandScope commands_;
    QString programFolder_;
    QMdiArea* MdiArea = nullptr;
    QLabel* ImLogoMr = nullptr;
    FrameMenus* menus_ = nullptr;
    FrameToolbar* toolbar_ = nullptr;
    FrameStatusBar* statusBar_ = nullptr;
    KeyboardFilter* keyboard_ = nullptr;
    QTimer* TmProgress = nullptr;
    QRect placement_; ///< restored: the place of the title bar, the size of what it stands over; from the settings
};

} // namespace tarvik
