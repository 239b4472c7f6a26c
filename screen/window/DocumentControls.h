// screen/window/DocumentControls.h: what every document window shows: picture, line, description.
#pragma once

#include "screen/document/view.h"

#include <QObject>

#include <optional>
#include <utility>

class QFrame;

namespace tarvik {

class DescriptionBox;
class PictureBox;

/// Line of a document window in the text colour.
QFrame* NewDocumentLine(QWidget* window, const char* name);

/// Sets one colour of a widget.
void SetDocumentColour(QWidget* widget, QPalette::ColorRole role, const QColor& colour);

/// Children of the window's widget, which owns this object too. The picture is that of the window's document; what is
/// typed goes to the description.
class DocumentControls final : public QObject {
    Q_OBJECT
public:
    DocumentControls(QWidget* window, WindowId id);

    void LayOutDescription(const DescriptionLayout& layout);

    /// Background and text; false if they are the present ones.
    bool SetColours(quint32 paper, quint32 text);

    /// F1 in the description refers to the window.
    bool eventFilter(QObject* watched, QEvent* event) override;

    PictureBox* PbGraph;
    QFrame* LnDescr;
    DescriptionBox* TbDescription;

private:
    QWidget* window_;
    WindowId id_;
    std::optional<std::pair<quint32, quint32>> colours_; ///< background and text as shown
};

} // namespace tarvik
