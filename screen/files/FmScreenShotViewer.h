// screen/files/FmScreenShotViewer.h: shows a screen shot file of the PC.
#pragma once

#include "app/forms/form.h"

#include <QImage>

namespace tarvik {

class PictureBox;

/// Shows a picture centred, scaled down to the window if needed, in its aspect ratio.
class FmScreenShotViewer final : public FormBase {
    Q_OBJECT
public:
    FmScreenShotViewer(const QImage& picture, const QString& name, QWidget* parent = nullptr);

    bool CanCloseUnasked() const override
    {
        return true;
    }

protected:
    bool OnLoad() override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void BuildControls();
    void BuildLayout();
    QSize FittedSize(QSize available) const; ///< of the picture, at least 1 by 1
    void PlacePicture();

    QImage picture_;
    QWidget* stage_ = nullptr; ///< area of the picture
    PictureBox* PbGraph = nullptr;
    QPushButton* BtClose = nullptr;
    QPushButton* BtHelp = nullptr;
};

/// Shows a PNG file, or the message if it can't be read.
void ShowScreenShot(const QString& path);

} // namespace tarvik
