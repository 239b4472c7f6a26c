#include "app/state/frame.h"

namespace tarvik {

namespace {

class NoFrame final : public Frame {
public:
    void MenuUpdate() override { }
    bool HasActivation() const override
    {
        return false;
    }
    void ShowBusyPointer(bool) override { }
    void CloseTip() override { }
    void FinishPainting() override { }
    QString StatusText() const override
    {
        return {};
    }
    void SetStatusText(const QString&) override { }
    void SetPanelText(int, const QString&) override { }
    void EnableStatusBar(bool) override { }
    void ShowProgress(int, const QString&) override { }
    void ClearProgress() override { }
    void EnableProgressTimer(bool) override { }
    std::optional<int> HighlightedHelp() const override
    {
        return std::nullopt;
    }
    void EnterWhatsThis() override { }
    void ShowAbout() override { }
    QSizeF ScreenTwips() const override
    {
        return {};
    }
    QSizeF ResizeTwips(QSizeF size) override
    {
        return size;
    }
    void MoveTwips(QPointF) override { }
    std::optional<FramePlacement> Placement() const override
    {
        return std::nullopt;
    }
};

} // namespace

Port<Frame>& TheFrame()
{
    static PortOr<Frame, NoFrame> port;
    return port;
}

} // namespace tarvik
