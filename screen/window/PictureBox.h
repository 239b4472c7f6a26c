// screen/window/PictureBox.h: a widget that shows a picture owned by others.
#pragma once

#include <QImage>
#include <QWidget>

#include <functional>

namespace tarvik {

/// Paints the picture over its whole area. The picture is requested at each painting, with the size in device pixels
/// that is sharp on this screen.
class PictureBox final : public QWidget {
    Q_OBJECT
public:
    using Source = std::function<QImage(QSize devicePixels)>;

    PictureBox(QWidget* parent, const char* name, Source source);

    /// The picture has been replaced.
    void PictureChanged();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const QImage& Picture();

    Source source_;
    QImage shown_; ///< last result of the source
    QSize shownFor_; ///< the size requested for it
};

} // namespace tarvik
