// tests/support/fakeFrameDocuments.h: open documents as the frame sees them. In force while it lives.
#pragma once

#include "app/menu/frameDocuments.h"

#include <QFileInfo>
#include <QList>
#include <QStringList>

#include <functional>

namespace tarvik {

class FakeFrameDocuments : public FrameDocuments {
public:
    DocumentsState State() const override
    {
        return Now;
    }
    void Enable(bool enabled) override
    {
        Enabled.append(enabled);
    }
    void Retile() override
    {
        ++Retiles;
        if (OnRetile)
            OnRetile();
    }
    void CheckPendingResize() override
    {
        ++ResizeChecks;
    }
    void ClearTable() override { }
    bool CloseAll() override
    {
        ++CloseAlls;
        if (OnClose)
            OnClose();
        return Closes;
    }
    bool Open(const QString& path) override
    {
        Opened.append(QFileInfo(path).fileName());
        if (OnOpen)
            OnOpen(path);
        return Opens;
    }
    bool CanOpen(const QString& path) const override
    {
        return path.endsWith(KnownEnd);
    }
    bool CanTake(const QMimeData&) const override
    {
        return TakesData;
    }

    DocumentsState Now;
    QList<bool> Enabled;
    int Retiles = 0;
    int ResizeChecks = 0;
    int CloseAlls = 0;
    QStringList Opened; ///< names
    QString KnownEnd = QStringLiteral(".tvm"); ///< of the files that may be dropped
    bool Closes = true;
    bool Opens = true;
    bool TakesData = false;
    std::function<void()> OnRetile;
    std::function<void()> OnClose; ///< the time of the prompts
    std::function<void(const QString& path)> OnOpen;

private:
    PortScope<FrameDocuments> inForce_{ TheFrameDocuments(), *this };
};

} // namespace tarvik
