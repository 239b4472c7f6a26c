// screen/FmScreenShotViewer.h: shows a screen shot of the PC over the window it was chosen in.
#pragma once

#include "app/form.h"

#include <QImage>

class PictureBox;

/// The picture as large as the window lets it be, in its own aspect. A picture that can't be read is reported, and no
/// window opens.
class FmScreenShotViewer final : public FormBase {
    Q_OBJECT
public:
    explicit FmScreenShotViewer(const QString& path, QWidget* parent = nullptr);

protected:
    bool OnLoad() override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void BuildControls();
    void BuildLayout();
    void PlacePicture();

    QString path_;
    QImage picture_;
    QWidget* stage_ = nullptr; ///< the room of the picture
    PictureBox* PbGraph = nullptr;
    QPushButton* BtClose = nullptr;
    QPushButton* BtHelp = nullptr;
};
