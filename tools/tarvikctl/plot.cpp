#include "tools/tarvikctl/plot.h"

#include "app/platform/replaceFile.h"
#include "app/text/textId.h"
#include "lists/correction/correctionDiagram.h"
#include "lists/editor/csv.h"
#include "lists/editor/editorGeneral.h"
#include "lists/values/limits.h"
#include "screen/diagram/diagram.h"
#include "tools/tarvikctl/jsonText.h"
#include "tools/tarvikctl/readList.h"

#include <QBuffer>
#include <QColor>
#include <QFileInfo>

#include <cstring>

namespace tarvik {

namespace {

/// "#RRGGBB" of a colour 0x00BBGGRR.
QString ColourText(quint32 colour)
{
    return QColor(
        static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF), static_cast<int>(colour >> 16 & 0xFF))
        .name()
        .toUpper();
}

std::vector<double> SamplesOf(const Trace& trace)
{
    uint32_t bytes = 0;
    const void* block = TraceBlockOf(trace.Handle, &bytes);
    std::vector<double> samples(block == nullptr ? 0 : bytes / sizeof(double));
    if (block != nullptr)
        std::memcpy(samples.data(), block, samples.size() * sizeof(double));
    return samples;
}

QString Values(const MultiTraceInput& input, const TraceSet& set)
{
    JsonWriter writer;
    writer("name", input.Name);
    writer("points", input.PointCount);
    writer("series", input.SeriesCount);
    writer("xStep", set.XStep);
    writer("xFirst", set.XFirst);
    writer("xLast", set.XLast);
    writer("yStep", set.YStep);
    writer("yBottom", set.YBottom);
    writer("yTop", set.YTop);
    QStringList traces;
    for (int series = 0; series < set.SeriesCount; ++series) {
        const Trace& trace = set.Traces[series];
        JsonWriter member;
        member("colour", ColourText(trace.Colour));
        member("samples", SamplesOf(trace));
        traces.append(member.Object());
    }
    const QString object = writer.Object();
    return object.first(object.size() - 2) + QStringLiteral(", \"traces\": ") + JsonRows(traces, {})
        + QStringLiteral(" }\n");
}

/// False after a message.
bool WritePicture(const QString& path, const Diagram& diagram, QSize size)
{
    const QImage picture = diagram.Draw(size, 1.0);
    QByteArray png;
    QBuffer buffer(&png);
    if (!MayWriteFile(path))
        return false;
    if (!picture.isNull() && picture.save(&buffer, "PNG"))
        return CsvSaveBytes(path, png);
    MsgOk1(TextId::PngNotWritten, QFileInfo(path).fileName());
    return false;
}

} // namespace

void CtlRunPlot(const CtlArguments& arguments, Terminal& terminal)
{
    ReadInstrumentLimits();
    const QString& path = arguments.Operands[0];
    const ReadList read = ReadListFile(path, terminal);
    if (read.List == nullptr)
        return;
    if (!read.List->DiagramInput(arguments.PlotOmniphase).has_value()) {
        terminal.Refuse(QStringLiteral("this kind of list has no such diagram"));
        return;
    }
    if (!read.List->PrepareDiagram(arguments.PlotOmniphase))
        return;
    const auto input = read.List->DiagramInput(arguments.PlotOmniphase);
    const auto diagram = DiagramOf(*input);
    if (diagram == nullptr) {
        terminal.Refuse(QStringLiteral("there is nothing to show"));
        return;
    }
    if (arguments.Values) {
        TerminalWrite(stdout, Values(*input, diagram->Traces.Set));
        return;
    }
    const QFileInfo file(path);
    const QString target = arguments.Operands.size() > 1
        ? arguments.Operands[1]
        : file.path() + u'/' + file.completeBaseName() + QStringLiteral(".png");
    terminal.SetFile(target);
    if (!WritePicture(target, *diagram, arguments.PlotSize))
        terminal.SetFailed();
}

} // namespace tarvik
