// app/frame/FrameToolbar.h: the frame's tool bar: the buttons `Cm[0]` to `Cm[20]` and their tips.
#pragma once

#include "app/frame/tip.h"
#include "app/menu/menu.h"
#include "app/text/textNumber.h"

#include <QPointer>
#include <QToolBar>

class QTimer;
class QToolButton;

namespace tarvik {

class FmTip;

class FrameToolbar final : public QToolBar {
    Q_OBJECT
public:
    explicit FrameToolbar(QWidget* frame);

    void SetTexts();

    /// Places the buttons in their groups. Called once.
    void LayOut();

    /// Writes only states that differ, to avoid flicker. A button that is disabled with the focus on it, as while a
    /// command runs, gets the focus back when it is enabled.
    void Apply(const MenuOutcome& outcome);

    void FocusFirstButton();
    void StartTips();
    void CloseTip();

Q_SIGNALS:
    void CommandDone(); ///< of any button but the last one
    void Ticked(); ///< the timer of the tips

private:
    QToolButton* NewToolButton(int index);
    void WriteStates(const MenuOutcome& outcome);
    void ShowLinkState(bool linkUp);
    void SetButtonTexts(int index, TextNumber<0> tip, TextNumber<0> hint);
    void Tick();
    int ButtonUnderPointer() const;

    std::array<QToolButton*, kToolButtons> Cm{};
    QTimer* TmTips = nullptr;
    FmTip* tip_ = nullptr;
    TipCounter counter_;
    bool linkUp_ = false;
    QWidget* disabledFocus_ = nullptr; ///< the button that was disabled with the focus on it
    QPointer<QWidget> focusMeanwhile_; ///< has had the focus since
};

} // namespace tarvik
