#include "screen/diagram/datasetViewer.h"

#include "app/state/frame.h"
#include "app/state/statusBar.h"
#include "app/text/textId.h"
#include "closed/loader.h"
#include "link/connection/connect.h"
#include "screen/diagram/diagram.h"
#include "screen/document/view.h"
#include "screen/window/closing.h"
#include "screen/window/screenWindow.h"

#include <utility>

namespace tarvik {

namespace {

class NoForms final : public DatasetForms {
public:
    bool ShowModal(WindowId, const QString&) override
    {
        return false;
    }
};

/// Makes the window that is active now active again at the end.
class ActiveWindowKeeper {
public:
    ActiveWindowKeeper()
        : active_(WindowTable().Active)
    {
    }
    ~ActiveWindowKeeper()
    {
        WindowSetActive(active_);
        TheFrame()->MenuUpdate();
    }
    ActiveWindowKeeper(const ActiveWindowKeeper&) = delete;
    ActiveWindowKeeper& operator=(const ActiveWindowKeeper&) = delete;

private:
    WindowId active_;
};

void DropFormerDiagrams()
{
    for (const WindowId id : WindowsFor(MaskDataSet, true))
        DropWindow(id);
}

WindowId TakeWindow()
{
    const WindowSlot slot = WindowAllocate(WindowType::DataSet, WindowSubtype::DataSet);
    if (slot.Id == 0)
        return 0;
    const QSize size = WindowDefaultSize(WindowType::DataSet, {});
    WindowPlacement placement;
    placement.RequestedWidth = size.width();
    placement.RequestedHeight = size.height();
    WindowInitialise(slot, placement, static_cast<qint16>(Connection().InstrumentAccepted));
    return slot.Id;
}

/// There is one diagram at a time on the screen.
enum class Former { Drop, Keep };

/// The window of the diagram, without a view yet; 0 without one.
WindowId MakeDiagram(const MultiTraceInput& input, Former former)
{
    const BusyScope busy;
    if (!ModuleIsBound(Module::Traces))
        return 0;
    std::unique_ptr<Diagram> diagram = DiagramOf(input);
    if (diagram == nullptr)
        return 0;
    if (former == Former::Drop)
        DropFormerDiagrams();
    const WindowId id = TakeWindow();
    if (id == 0)
        return 0;
    diagram->Style.Id = id;
    diagram->Style.DocumentIndex = WindowDocumentIndex(id);
    DatasetTable().at(static_cast<size_t>(WindowDocumentIndex(id))) = std::move(diagram);
    WindowAt(id).GraphicsValid = true;
    return id;
}

} // namespace

Port<DatasetForms>& TheDatasetForms()
{
    static PortOr<DatasetForms, NoForms> port;
    return port;
}

WindowId DatasetOpen(const MultiTraceInput& input)
{
    const WindowId id = MakeDiagram(input, Former::Keep);
    if (id == 0)
        return 0;
    ViewSet(id, LoadSizesView());
    SizeNewWindow(id);
    ViewOf(id)->SetCaption(input.Name);
    return id;
}

bool DatasetShow(const MultiTraceInput& input)
{
    const ActiveWindowKeeper keeper;
    const WindowId id = MakeDiagram(input, Former::Drop);
    if (id == 0)
        return false;
    const bool shown = TheDatasetForms()->ShowModal(id, input.Name);
    DropWindow(id);
    if (WindowCount() == 0)
        StatusSetId(TextId::PressF1ForHelp); // the dialog has restored the status line
    return shown;
}

} // namespace tarvik
