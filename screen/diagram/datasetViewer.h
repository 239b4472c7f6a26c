// screen/diagram/datasetViewer.h: shows a table of an editor as a diagram, in a data set window of its own.
#pragma once

#include "app/platform/port.h"
#include "screen/diagram/multiTrace.h"
#include "screen/document/window.h"

namespace tarvik {

/// Shows `input` as a diagram and returns when the user has closed it; the window that was active before is then active
/// again. It replaces a diagram that is still open. False, with nothing shown, without a point or with values that
/// ConvertTraces refuses, without the module of traces, without a free window (after its message), or if memory runs
/// out.
bool DatasetShow(const MultiTraceInput& input);

/// Opens `input` as a diagram in a window of its own, beside those that are open, without a form. 0 where DatasetShow
/// is false.
WindowId DatasetOpen(const MultiTraceInput& input);

/// The forms of data sets.
class DatasetForms {
public:
    /// Shows a data set window modally; it is closed on return. False if there are no forms.
    virtual bool ShowModal(WindowId id, const QString& name) = 0;

protected:
    ~DatasetForms() = default;
};

/// Without an implementation nothing is shown.
Port<DatasetForms>& TheDatasetForms();

} // namespace tarvik
