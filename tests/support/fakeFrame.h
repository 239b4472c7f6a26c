// tests/support/fakeFrame.h: what a frame would show, written down. It is in force while it lives.
#pragma once

#include "app/state/frame.h"

#include <QStringList>

#include <algorithm>

namespace tarvik {

class FakeFrame : public Frame {
public:
    void MenuUpdate() override
    {
        Log.append(QStringLiteral("menu"));
    }
    bool HasActivation() const override
    {
        return Active;
    }
    void ShowBusyPointer(bool busy) override
    {
        Busy = busy;
    }
    void CloseTip() override
    {
        ++TipsClosed;
    }
    void FinishPainting() override { }
    QString StatusText() const override
    {
        return Status;
    }
    void SetStatusText(const QString& text) override
    {
        Status = text;
        Log.append(QStringLiteral("status:") + text);
    }
    void SetPanelText(int panel, const QString& text) override
    {
        Log.append(QStringLiteral("panel%1:%2").arg(panel).arg(text));
    }
    void EnableStatusBar(bool on) override
    {
        StatusBarEnabled.append(on);
    }
    void ShowProgress(int percent, const QString& text) override
    {
        Progress.append(text);
        Percents.append(percent);
    }
    void ClearProgress() override
    {
        Progress.append(QStringLiteral("clear"));
    }
    void EnableProgressTimer(bool on) override
    {
        Progress.append(on ? QStringLiteral("timer on") : QStringLiteral("timer off"));
    }
    std::optional<int> HighlightedHelp() const override
    {
        return Highlighted;
    }
    void EnterWhatsThis() override
    {
        ++WhatsThis;
    }
    void ShowAbout() override
    {
        ++Abouts;
    }
    QSizeF ScreenTwips() const override
    {
        return Screen;
    }
    QSizeF ResizeTwips(QSizeF size) override
    {
        Placed.append(QStringLiteral("size %1 %2").arg(size.width()).arg(size.height()));
        return { size.width(), std::min(size.height(), HighestTwips) };
    }
    void MoveTwips(QPointF leftTop) override
    {
        Placed.append(QStringLiteral("place %1 %2").arg(leftTop.x()).arg(leftTop.y()));
    }
    std::optional<FramePlacement> Placement() const override
    {
        return Place;
    }

    bool Active = true;
    bool Busy = false;
    int TipsClosed = 0;
    QString Status;
    QStringList Log; ///< menu, status, panel: calls in their order
    QList<bool> StatusBarEnabled;
    QStringList Progress; ///< texts, "clear", "timer on", "timer off"
    QList<int> Percents;
    std::optional<int> Highlighted;
    int WhatsThis = 0;
    int Abouts = 0;
    QSizeF Screen{ 19200, 10800 };
    double HighestTwips = 1e9; ///< what ResizeTwips sets at most
    QStringList Placed; ///< "size width height", "place left top"
    std::optional<FramePlacement> Place; ///< by default no frame that could be asked

private:
    PortScope<Frame> inForce_{ TheFrame(), *this };
};

} // namespace tarvik
