// screen/diagram/diagram.h: a diagram: what it shows, and its painting.
#pragma once

#include "screen/diagram/diagramContent.h"
#include "screen/document/color.h"

namespace tarvik {

/// Look of a diagram. Colours are 0x00BBGGRR.
struct DiagramStyle {
    WindowId Id = 0;
    qint16 DocumentIndex = 0;
    bool GridX = true; ///< vertical lines
    bool GridY = true; ///< horizontal lines
    quint32 Background = kDiagramBackground;
    quint32 Label = 0xF7F3F7; ///< of the grid: too pale for texts on this background, which are black
    std::array<quint32, 5> Lines{ 0xF7F300, 0x73E3FF, 0x00FF00, 0x0000FF, 0xFF0000 }; ///< for further lines; unused
    int PictureHeight = 24; ///< scale units; unused
};

/// The diagram of a table.
class Diagram final : public DocumentPicture {
public:
    Diagram(const MultiTraceInput& input, OwnedTraces traces);

    QSize OwnSize() const override
    {
        return {};
    }

    /// Grid, traces, frame, axis labels, legend and title. In black and white the traces are black on white paper and
    /// differ by their markers. Without the module of traces there are none.
    QImage Draw(QSize devicePixels, double scale) const override;
    QImage ForPage(QSize devicePixels, double scale, bool blackAndWhite) const override;

    DiagramContent Content;
    OwnedTraces Traces;
    DiagramStyle Style;

private:
    QImage DrawIn(PaletteNumber palette, QSize devicePixels, double scale) const;
};

/// The diagram of a table, in the palette of new documents; null if ConvertTraces gives nothing.
std::unique_ptr<Diagram> DiagramOf(const MultiTraceInput& input);

} // namespace tarvik
