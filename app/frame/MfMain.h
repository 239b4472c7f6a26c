// app/frame/MfMain.h: the main frame. Loading it runs the whole start-up, and it lives until the process ends. The
// rules are in startup.h, menu.h, tip.h and dropFiles.h.
#pragma once

#include "app/frame/startup.h"
#include "app/menu/commands.h"
#include "app/state/frame.h"

#include <QMainWindow>

class QLabel;
class QMdiArea;
class QTimer;

namespace tarvik {

class ChildArea;
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

    /// The frame; nullptr before construction and after destruction.
    static MfMain* Current();

    /// The load event: the whole start-up. False ends the process.
    [[nodiscard]] bool Load();

    /// Closes as the close box does. During start-up, a command or a dialog the request is pending until that ends;
    /// dialogs without user data close at once. A refusal ends the request. While the prompts of an earlier close are
    /// open, they are the answer to this one too.
    void CloseWhenPossible();

    /// Closes as the close box does, after dialogs without user data, before it returns. False if the user cancelled or
    /// something else is running, so that the session must go on.
    [[nodiscard]] bool CloseForLogOff();

    /// Opens right-click menu `name` at screen position `at`, if the program, or the document in the newest dialog, can
    /// act.
    void Popup(const QString& name, const QPoint& at);

    /// Handles a key that nothing in the frame has taken: `FrameKeys`, and the steps between child windows. True if it
    /// did.
    bool FrameKeyDown(const QKeyEvent& event);

    /// As above for a dialog that is the window of a document: the keys of commands on documents.
    bool DialogKeyDown(const QKeyEvent& event);

    QMdiArea* ChildArea() const;

    QString CommandLine() const override;
    QString ExecutableFolder() const override;
    ModuleLoadResult LoadModule(Module module, const QString& folder) override;
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
    void TryPendingClose();
    void FollowCloseRequest();
    bool QueryClose();
    void ShowBar(QWidget* bar, bool on);
    bool PopupForBar(QObject* watched, QEvent* event);
    void ReturnFocus();

    PortScope<Frame> framePort_{ TheFrame(), *this };
    CommandScope commands_;
    QString programFolder_;
    tarvik::ChildArea* MdiArea = nullptr;
    QLabel* ImLogoMr = nullptr;
    FrameMenus* menus_ = nullptr;
    FrameToolbar* toolbar_ = nullptr;
    FrameStatusBar* statusBar_ = nullptr;
    KeyboardFilter* keyboard_ = nullptr;
    QTimer* TmProgress = nullptr;
    bool closing_ = false; ///< documents are being closed, maybe with prompts
    QRect placement_; ///< restored, from the settings: position of the title bar, size without it
};

} // namespace tarvik
