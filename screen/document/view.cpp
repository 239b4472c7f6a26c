#include "screen/document/view.h"

#include "app/platform/processState.h"

#include <array>
#include <utility>

namespace tarvik {

namespace {

/// A window that is never shown and always has the requested size.
class SizesView final : public ScreenView {
public:
    WinState State() const override
    {
        return WinState::Normal;
    }
    void SetNormal() override { }
    void Show() override { }

    QSize ClientSize() const override
    {
        return client_;
    }
    void SetClientSize(QSize size) override
    {
        client_ = size;
    }
    void MoveTo(QPoint) override { }

    QSize GraphSize() const override
    {
        return graph_;
    }
    void SetGraphSize(QSize size) override
    {
        graph_ = size;
    }
    void GraphChanged() override { }

    QString Caption() const override
    {
        return caption_;
    }
    void SetCaption(const QString& caption) override
    {
        caption_ = caption;
    }
    void SetIcon(bool) override { }

    void SetDescription(const QString&) override { }
    void LayOutDescription(const DescriptionLayout&) override { }
    void SetColours(quint32, quint32) override { }
    void FillStatus(const QString&, const QString&, const QString&) override { }
    void HideStatus() override { }
    void Unload() override { }

private:
    QSize client_{ 0, 0 };
    QSize graph_{ 0, 0 };
    QString caption_;
};

class NoDesktop final : public ScreenDesktop {
public:
    ScreenViewOwner Load(WindowId) override
    {
        return LoadSizesView();
    }
    bool MainFrameIsActive() override
    {
        return false;
    }
    void Arrange(Arrangement) override { }
    bool SetClipboard(const QImage&) override
    {
        return false;
    }
    bool Save(WindowId) override
    {
        return false;
    }
    QVector<WindowId> SelectWindows(const QVector<WindowId>&, WindowId) override
    {
        return {};
    }
};

using Views = std::array<ScreenViewOwner, kWindowSlots + 1>;

Views& TheViews()
{
    static ProcessState<Views> views;
    return views.Get();
}

} // namespace

Port<ScreenDesktop>& TheScreenDesktop()
{
    static PortOr<ScreenDesktop, NoDesktop> port;
    return port;
}

ScreenViewOwner LoadSizesView()
{
    return std::make_shared<SizesView>();
}

ScreenView* ViewOf(WindowId id)
{
    return WindowIsValid(id) ? TheViews().at(static_cast<size_t>(id)).get() : nullptr;
}

ScreenView& ViewLoad(WindowId id)
{
    ScreenViewOwner& view = TheViews().at(static_cast<size_t>(id));
    if (!view)
        view = TheScreenDesktop()->Load(id);
    return *view;
}

void ViewSet(WindowId id, ScreenViewOwner view)
{
    TheViews().at(static_cast<size_t>(id)) = std::move(view);
}

void ViewDrop(WindowId id)
{
    if (WindowIsValid(id))
        TheViews().at(static_cast<size_t>(id)).reset();
}

} // namespace tarvik
