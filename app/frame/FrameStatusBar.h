// app/frame/FrameStatusBar.h: the frame's status bar: four panels, the progress picture and the connection pictures.
#pragma once

#include "app/state/frame.h"

#include <QStatusBar>

#include <array>

class QLabel;

namespace tarvik {

class ProgressPicture;

class FrameStatusBar final : public QStatusBar {
    Q_OBJECT
public:
    explicit FrameStatusBar(QWidget* frame);

    /// Help numbers, hints and accessible names.
    void SetTexts();

    /// `panel` counts from 1.
    void SetPanelText(int panel, const QString& text);
    QString PanelText(int panel) const;

    /// The connection picture and, in panel 3, the name of the connection.
    void ShowLinkState(bool linkUp);

    /// Disables the panels, as while an editor is open.
    void EnablePanels(bool enabled);

    ProgressPicture* Progress() const
    {
        return progress_;
    }

private:
    QLabel* NewPanel(int panel);
    QLabel* NewConnectionPicture(const char* name, const QString& picture);
    void ShowConnectionPictures();
    void changeEvent(QEvent* event) override;

    QWidget* panels_ = nullptr;
    std::array<QLabel*, kStatusPanels> Panels{};
    ProgressPicture* progress_ = nullptr;
    QLabel* ImConnect = nullptr;
    QLabel* ImNoConnect = nullptr;
};

} // namespace tarvik
