// screen/files/FmScreenShotViewer.h: shows a screen shot of the PC over the window it was chosen in.
#pragma once

#include "app/forms/form.h"

#include <QImage>

namespace tarvik {

class PictureBox;

/// The picture as large as the window lets it be, in its own aspect and never larger than it is.
class FmScreenShotViewer final : public FormBase {
    Q_OBJECT
public:
    FmScreenShotViewer(const QImage& picture, const QString& name, QWidget* parent = nullptr);

protected:
    bool OnLoad() override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void BuildControls();
    void BuildLayout();
    QSize SizeIn(QSize room) const;
    void PlacePicture();

    QImage picture_;
    QWidget* stage_ = nullptr; ///< the room of the picture
    PictureBox* PbGraph = nullptr;
    QPushButton* BtClose = nullptr;
    QPushButton* BtHelp = nullptr;
};

/// Shows a file; one that can't be read is reported.
void ShowScreenShot(const QString& path);

} // namespace tarvik
