// screen/window/PictureBox.h: shows a picture that lives elsewhere.
#pragma once

#include <QImage>
#include <QWidget>

#include <functional>

namespace tarvik {

/// Paints the picture over its whole area. The picture stays its owner's: it is asked for at each painting, with the
/// size in device pixels that would be sharp on this screen.
class PictureBox final : public QWidget {
    Q_OBJECT
public:
    using Source = std::function<QImage(QSize devicePixels)>;

    PictureBox(QWidget* parent, const char* name, Source source);

    /// The picture is another one.
    void PictureChanged();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const QImage& Picture();

    Source source_;
    QImage shown_; ///< what the source gave last
    QSize shownFor_; ///< the size that it was asked for
};

} // namespace tarvik
