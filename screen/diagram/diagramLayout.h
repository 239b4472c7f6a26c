// screen/diagram/diagramLayout.h: where the parts of a diagram are. Device pixels of the picture.
#pragma once

#include "screen/diagram/diagramText.h"

#include <QFont>
#include <QRect>
#include <QVector>

namespace tarvik {

/// A text, centred in a place of its size.
struct DiagramLabel {
    QString Text;
    QRect Place;
};

/// A piece of a trace in the legend.
struct DiagramSample {
    int Trace = 0;
    QRect Place;
};

struct DiagramLayout {
    QFont Font;
    int LineWidth = 1; ///< of grid and frame
    QRect Plot; ///< of grid and traces, the frame is around it; width and height are even
    QVector<int> Columns; ///< of the vertical grid lines
    QVector<int> Rows; ///< of the horizontal ones
    QVector<DiagramLabel> Labels;
    QVector<DiagramSample> Samples;
};

/// Font of the axes for a picture of this height: from the program's own down to the one with which the plot has three
/// quarters of the height, or the smallest that can be read. `scale` is device pixels to a pixel.
QFont DiagramFont(int height, double scale);

/// Around the plot are bands of three lines of text and a few pixels more, wider on the left if the labels need it.
/// From the top: title, then legend with the unit of the y axis beside it; below the plot the labels of the x axis,
/// then its caption. Labels stay in the picture and apart from each other: where there is no room for all labels of an
/// axis, only every second, every fifth, or the first and the last are there. Long titles and names are elided, and
/// what still doesn't fit is left out.
DiagramLayout LayOutDiagram(const DiagramText& text, QSize size, double scale);

} // namespace tarvik
