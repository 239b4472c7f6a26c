// tests/support/screens.h: a test with document windows that nobody sees.
#pragma once

#include "app/platform/seams.h"
#include "screen/window/screenWindow.h"
#include "tests/support/fakeFrame.h"
#include "tests/support/fakeView.h"
#include "tests/support/fixture.h"

namespace tarvik {

class ScreenTest : public ProgramTest {
protected:
    ScreenTest()
    {
        TheSeams().Now = [this] {
            moment_ = moment_.addSecs(1);
            return moment_;
        };
    }

    /// The clock, which goes on by a second each time it is read.
    QDateTime moment_{ QDate(2024, 5, 6), QTime(7, 8, 0) };

    FakeViews Views;
    FakeFrame Frame;

    static QImage Picture(QSize size = { 642, 442 }, QColor colour = Qt::blue)
    {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(colour);
        return picture;
    }

    /// A window with a picture, as the loaders make it.
    static WindowId Open(WindowSubtype subtype = WindowSubtype::File, const QImage& picture = Picture())
    {
        const WindowSlot slot = WindowAllocate(WindowType::Screen, subtype);
        ScreenCreate(slot, { picture, QDateTime(), QStringLiteral("file.png"), false });
        return slot.Id;
    }

    static WindowId OpenLive(const QImage& picture = Picture())
    {
        return Open(WindowSubtype::Live, picture);
    }

    /// A slot of a type without a view, as a diagram takes it.
    static WindowId TakeSlot(WindowType type = WindowType::DataSet)
    {
        const WindowSlot slot = WindowAllocate(type, WindowSubtype::DataSet);
        WindowInitialise(slot, {}, 0);
        return slot.Id;
    }
};

} // namespace tarvik
