// tests/print/preview/preview_form_fixture.h: the print preview on three windows.
#pragma once

#include "app/text/lang.h"
#include "print/bindPrint.h"
#include "print/page/printCommand.h"
#include "print/page/printSettings.h"
#include "print/preview/FmPreview.h"
#include "print/preview/SheetView.h"
#include "print/preview/pagination.h"
#include "tests/print/fakePrinters.h"
#include "tests/screen/screen_form_fixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>

namespace tarvik {

class Preview : public ScreenForms {
protected:
    Preview()
    {
        UsePrinters(system);
        for (int count = 0; count < 3; ++count) {
            TheSeams().Now = [count] { return QDateTime(QDate(2026, 1, 1), QTime(0, 0)).addSecs(count); };
            ids.append(Open());
        }
        PageSlot slot;
        slot.Type = 2;
        for (size_t at = 0; at < 3; ++at)
            PresentPage().Layout[at] = slot;
    }

    ~Preview() override
    {
        ThePrinterSystem().Reset();
    }

    void Run(const std::function<void(FmPreview&)>& during)
    {
        FmPreview form(frame.get());
        RunForm(form, [&] { during(form); });
    }

    static SheetView& View(FmPreview& form)
    {
        return Find<SheetView>(form, "PbPreview");
    }

    static PageRecord& Page(size_t number = 0)
    {
        return ThePages().Table[number];
    }

    static const PageEntry& Entry(size_t at)
    {
        return PresentPage().Entries[at];
    }

    static QVector<WindowId> Windows(size_t page = 0)
    {
        QVector<WindowId> windows;
        for (const PageEntry& entry : Page(page).InUse())
            windows.append(entry.Window);
        return windows;
    }

    static void Press(SheetView& view, QPoint at)
    {
        QTest::mousePress(&view, Qt::LeftButton, {}, at);
    }
    static void Move(SheetView& view, QPoint to)
    {
        QMouseEvent event(
            QEvent::MouseMove, QPointF(to), view.mapToGlobal(QPointF(to)), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(&view, &event);
    }
    static void Release(SheetView& view, QPoint at)
    {
        QTest::mouseRelease(&view, Qt::LeftButton, {}, at);
    }

    static QImage Shown(SheetView& view)
    {
        return view.grab().toImage().convertToFormat(QImage::Format_RGB32);
    }

    /// Three windows arranged without overlap.
    static void Arrange(FmPreview& form)
    {
        Click(form, "BtDflt");
    }

    FakePrinters system;
    QVector<WindowId> ids;
};

} // namespace tarvik
