// tests/support/fakeFrame.h: what a frame would show, written down.
#pragma once

#include "app/state/frameHooks.h"

#include <QStringList>

namespace tarvik {

class FakeFrame {
public:
    FakeFrame()
    {
        FrameHooks& hooks = TheFrameHooks();
        hooks.MenuUpdate = [this] { Log.append(QStringLiteral("menu")); };
        hooks.SetStatusText = [this](const QString& text) {
            Status = text;
            Log.append(QStringLiteral("status:") + text);
        };
        hooks.StatusText = [this] { return Status; };
        hooks.SetPanelText = [this](int panel, const QString& text) {
            Log.append(QStringLiteral("panel%1:%2").arg(panel).arg(text));
        };
        hooks.HasActivation = [this] { return Active; };
        hooks.ShowBusyPointer = [this](bool busy) { Busy = busy; };
        hooks.CloseTip = [this] { ++TipsClosed; };
    }

    ~FakeFrame()
    {
        FrameHooksReset();
    }

    FakeFrame(const FakeFrame&) = delete;
    FakeFrame& operator=(const FakeFrame&) = delete;

    bool Active = true;
    bool Busy = false;
    int TipsClosed = 0;
    QString Status;
    QStringList Log; ///< calls in their order
};

} // namespace tarvik
