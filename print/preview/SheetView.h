// print/preview/SheetView.h: the preview's sheet: shows the present page, and passes mouse and Escape on to its
// editing.
#pragma once

#include "print/preview/sheetEdit.h"
#include "print/preview/sheetPicture.h"

#include <QWidget>

namespace tarvik {

/// `PbPreview`.
class SheetView final : public QWidget {
    Q_OBJECT
public:
    explicit SheetView(QWidget* parent);

    SheetEdit& Edit()
    {
        return edit_;
    }

    /// Draws the page again and shows it.
    void RedrawPage();

    /// Draws what has changed, and raises `Changed`.
    void Show(SheetChange change);

    const SheetPicture& Picture() const
    {
        return picture_;
    }

Q_SIGNALS:
    /// The selection, or the place of the selected window, has changed.
    void Changed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void EndDrag(SheetChange change);
    void ShowPointer(QPoint at);

    SheetEdit edit_;
    SheetPicture picture_;
};

} // namespace tarvik
