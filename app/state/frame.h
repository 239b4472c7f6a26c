// app/state/frame.h: the port to the main frame, for the rooms below it.
#pragma once

#include "app/platform/port.h"
#include "app/state/project.h"

#include <QRectF>
#include <QString>

#include <optional>

namespace tarvik {

/// Panels of the status bar, left to right. The first one shows the status text.
inline constexpr int kStatusPanels = 4;

/// Where the frame is, for the settings.
struct FramePlacement {
    WinState State = WinState::Normal;
    QRectF NormalTwips; ///< the restored rectangle, also while maximised
};

/// Implemented by `MfMain`. Without a frame nothing is shown.
class Frame {
public:
    virtual ~Frame() = default;

    virtual void MenuUpdate() = 0;
    virtual bool HasActivation() const = 0;
    virtual void ShowBusyPointer(bool busy) = 0;
    virtual void CloseTip() = 0;

    /// Called before a command blocks the thread: hides the menu that started it and paints the rest.
    virtual void FinishPainting() = 0;

    virtual QString StatusText() const = 0;
    virtual void SetStatusText(const QString& text) = 0;
    virtual void SetPanelText(int panel, const QString& text) = 0; ///< panel 1 to 4
    virtual void EnableStatusBar(bool on) = 0; ///< off while an editor is open

    virtual void ShowProgress(int percent, const QString& text) = 0;
    virtual void ClearProgress() = 0;
    virtual void EnableProgressTimer(bool on) = 0; ///< its tick calls ProgressRefresh

    /// Help number of the highlighted menu entry, 0 for one without a topic; empty while no menu is open.
    virtual std::optional<int> HighlightedHelp() const = 0;
    virtual void EnterWhatsThis() = 0;
    virtual void ShowAbout() = 0;

    virtual QSizeF ScreenTwips() const = 0; ///< available size of its screen
    virtual QSizeF ResizeTwips(QSizeF size) = 0; ///< returns the size as set, which may differ
    virtual void MoveTwips(QPointF leftTop) = 0;
    virtual std::optional<FramePlacement> Placement() const = 0; ///< empty without a frame
};

Port<Frame>& TheFrame();

} // namespace tarvik
