// tests/support/fakeView.h: document windows without a form; they record their calls.
#pragma once

#include "app/state/project.h"
#include "link/documents/fileSave.h"
#include "screen/document/view.h"

#include <QStringList>

#include <array>
#include <functional>

namespace tarvik {

class FakeView final : public ScreenView {
public:
    WinState WindowState = WinState::Normal;
    QSize Client{ 300, 200 };
    QSize Graph{ 0, 0 };
    QPoint Place{ -1, -1 };
    QString Title;
    QString Description;
    DescriptionLayout Layout;
    quint32 Paper = 0;
    quint32 Ink = 0;
    bool IconOfFile = false;
    QStringList Status; ///< date, text, time
    bool StatusIsHidden = false;
    QSize Smallest{ 0, 0 }; ///< a window is not made smaller than this
    int Drawings = 0;
    int Sizings = 0; ///< how often a client size was set
    int Shown = 0;
    std::function<void()> OnSized = [] {}; ///< what a real window raises
    std::function<void()> OnFilled = [] {};

    WinState State() const override
    {
        return WindowState;
    }
    void SetNormal() override
    {
        WindowState = WinState::Normal;
    }
    void Show() override
    {
        ++Shown;
    }
    QSize ClientSize() const override
    {
        return Client;
    }
    void SetClientSize(QSize size) override
    {
        if (WindowState == WinState::Maximised)
            return;
        Client = size.expandedTo(Smallest);
        ++Sizings;
        OnSized();
    }
    void MoveTo(QPoint leftTop) override
    {
        Place = leftTop;
    }
    QSize GraphSize() const override
    {
        return Graph;
    }
    void SetGraphSize(QSize size) override
    {
        Graph = size;
    }
    void GraphChanged() override
    {
        ++Drawings;
    }
    QString Caption() const override
    {
        return Title;
    }
    void SetCaption(const QString& caption) override
    {
        Title = caption;
    }
    void SetIcon(bool imageFromFile) override
    {
        IconOfFile = imageFromFile;
    }
    void SetDescription(const QString& text) override
    {
        Description = text;
    }
    void LayOutDescription(const DescriptionLayout& layout) override
    {
        Layout = layout;
    }
    void SetColours(quint32 paper, quint32 text) override
    {
        Paper = paper;
        Ink = text;
    }
    void FillStatus(const QString& date, const QString& text, const QString& time) override
    {
        Status = QStringList{ date, text, time };
        OnFilled();
    }
    void HideStatus() override
    {
        StatusIsHidden = true;
    }
    void Unload() override { }
};

/// A desktop on which every window that is made gets a fake view.
class FakeViews final : public ScreenDesktop {
public:
    FakeViews()
    {
        TheScreenDesktop().Set(*this);
    }
    FakeViews(const FakeViews&) = delete;
    FakeViews& operator=(const FakeViews&) = delete;

    ScreenViewOwner Load(WindowId id) override
    {
        auto view = std::make_shared<FakeView>();
        view->WindowState = FirstState;
        views_.at(static_cast<size_t>(id)) = view.get();
        ++Loaded;
        return view;
    }
    bool MainFrameIsActive() override
    {
        return FrameIsActive;
    }
    void Arrange(Arrangement arrangement) override
    {
        WhenArranged(arrangement);
    }
    bool SetClipboard(const QImage& picture) override
    {
        Copied = picture;
        return TakesCopies;
    }
    bool Save(WindowId id) override
    {
        return WhenSaved(id);
    }
    QVector<WindowId> SelectWindows(const QVector<WindowId>& offered, WindowId /*marked*/) override
    {
        return WhenOffered(offered);
    }

    WinState FirstState = WinState::Normal;
    int Loaded = 0;
    bool FrameIsActive = false;
    bool TakesCopies = false;
    QImage Copied; ///< last
    std::function<void(Arrangement)> WhenArranged = [](Arrangement) {};
    std::function<bool(WindowId)> WhenSaved = [](WindowId id) { return FileSaveAsDlg(id); };
    std::function<QVector<WindowId>(const QVector<WindowId>&)> WhenOffered = [](const QVector<WindowId>&) {
        return QVector<WindowId>();
    };

    /// The view of a window that is open.
    FakeView& operator[](WindowId id)
    {
        return *views_.at(static_cast<size_t>(id));
    }

private:
    std::array<FakeView*, kWindowSlots + 1> views_{};
};

} // namespace tarvik
