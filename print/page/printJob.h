// print/page/printJob.h: prints windows, or the pages of the preview as they are.
#pragma once

#include "print/page/pageFill.h"
#include "print/page/pageTable.h"
#include "print/printer/pageDevice.h"

#include <QString>

namespace tarvik {

/// What a job tells while it runs.
class PrintWatcher {
public:
    virtual ~PrintWatcher() = default;

    /// Before page `number` of `total` is drawn, from 1. False cancels the job.
    virtual bool MayPrint(int number, int total) = 0;
};

enum class PrintResult { Printed, Cancelled, Failed };

/// Pages of a list of windows by layout, margins and palette of the present page.
std::vector<PageRecord> PagesOfWindows(std::vector<PageWindow> windows, const Sheet& sheet);

/// The pages of the table that show a window, filled again from their layouts.
std::vector<PageRecord> PagesOfPreview(const Sheet& sheet);

PrintResult PrintPages(PageDevice& device, const std::vector<PageRecord>& pages, const Sheet& sheet,
    const QString& title, PrintWatcher& watcher);

/// The windows in that order, with what their layout needs.
std::vector<PageWindow> PageWindowsOf(const QVector<WindowId>& ids);

/// Flags of entries without a slot, of the settings.
EntryDefaults DefaultsOfEntries();

} // namespace tarvik
