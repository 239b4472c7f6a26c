// tests/screen/screen_form_fixture.h: document windows in a complete frame, bound as by the composition.
#pragma once

#include "app/state/frame.h"
#include "screen/bindScreen.h"
#include "screen/document/screenTable.h"
#include "screen/document/window.h"
#include "screen/window/DescriptionBox.h"
#include "screen/window/MfScreen.h"
#include "screen/window/screenWindow.h"
#include "tests/app/frame/frame_form_fixture.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QWindow>

namespace tarvik {

class ScreenForms : public MainFrame {
protected:
    ScreenForms()
    {
        BindScreen();
        MfMain& main = Start();
        main.showNormal();
        main.resize(1500, 1100);
        QCoreApplication::processEvents();
    }

    /// A picture without repetitions.
    static QImage Picture(QSize size = QSize(642, 442))
    {
        QImage picture(size, QImage::Format_RGB32);
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x)
                picture.setPixel(x, y, qRgb(x % 256, y % 256, (x / 256 * 16 + y / 256) % 256));
        }
        return picture;
    }

    /// Opens a window. That of a file has its own caption.
    WindowId Open(WindowSubtype subtype = WindowSubtype::File, const QImage& picture = Picture())
    {
        const WindowSlot slot = WindowAllocate(WindowType::Screen, subtype);
        NewDocument document;
        document.Master = picture;
        document.Caption = QStringLiteral("picture %1.png").arg(slot.Id);
        document.Modified = subtype == WindowSubtype::Live;
        ScreenCreate(slot, document);
        QCoreApplication::processEvents();
        return slot.Id;
    }

    static MfScreen& Window(WindowId id)
    {
        auto* view = dynamic_cast<MfScreen*>(ViewOf(id));
        if (view == nullptr)
            qFatal("window %d has no form", id);
        return *view;
    }

    static QMdiSubWindow& Child(WindowId id)
    {
        return *Window(id).ChildWindow();
    }

    static QWidget& Graph(WindowId id)
    {
        return FindControl(Window(id), QStringLiteral("PbGraph"));
    }

    /// The displayed pixels of the picture.
    static QImage Shown(WindowId id)
    {
        QImage shown = Graph(id).grab().toImage().convertToFormat(QImage::Format_RGB32);
        shown.setDevicePixelRatio(1);
        return shown;
    }

    static QSize DevicePixels(WindowId id)
    {
        return (QSizeF(Graph(id).size()) * Graph(id).devicePixelRatioF()).toSize();
    }

    static DescriptionBox& Description(WindowId id)
    {
        return Find<DescriptionBox>(Window(id), QStringLiteral("TbDescription"));
    }

    static ScreenRecord& Document(WindowId id)
    {
        return *ScreenOf(id);
    }

    /// Drags a border of the window; the mouse button stays down.
    void Drag(WindowId id, QPoint by)
    {
        QWindow* window = frame->windowHandle();
        const QRect child = Child(id).rect();
        const QPoint grip(by.x() == 0 ? child.center().x() : child.right() - 1,
            by.y() == 0 ? child.center().y() : child.bottom() - 1);
        const QPoint from = Child(id).mapTo(frame.get(), grip);
        QTest::mouseMove(window, from);
        QTest::mousePress(window, Qt::LeftButton, {}, from);
        QTest::mouseMove(window, from + by);
        QCoreApplication::processEvents();
        heldAt = from + by;
    }

    void ReleaseButton()
    {
        QTest::mouseRelease(frame->windowHandle(), Qt::LeftButton, {}, heldAt);
    }

    static void Tick()
    {
        TheFrameDocuments()->CheckPendingResize();
    }

    void DragAndRelease(WindowId id, QPoint by)
    {
        Drag(id, by);
        ReleaseButton();
        Tick();
    }

    QPoint heldAt;
};

/// Expects the aspect ratio of the original, within whole pixels.
inline void ExpectAspect(QSize graph, QSize master)
{
    const double height = static_cast<double>(graph.width()) * master.height() / master.width();
    const double width = static_cast<double>(graph.height()) * master.width() / master.height();
    EXPECT_TRUE(qAbs(height - graph.height()) <= 1 || qAbs(width - graph.width()) <= 1)
        << graph.width() << " x " << graph.height();
}

} // namespace tarvik
