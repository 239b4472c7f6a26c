#include "print/page/printJob.h"

#include "print/page/pagePaint.h"
#include "print/page/printSettings.h"

namespace tarvik {

EntryDefaults DefaultsOfEntries()
{
    return { ThePrintSettings().Border, ThePrintSettings().Title };
}

std::vector<PageWindow> PageWindowsOf(const QVector<WindowId>& ids)
{
    std::vector<PageWindow> windows;
    for (const WindowId id : ids)
        windows.push_back({ id, WindowExtentOf(id) });
    return windows;
}

std::vector<PageRecord> PagesOfWindows(std::vector<PageWindow> windows, const Sheet& sheet)
{
    std::vector<PageRecord> pages;
    while (!windows.empty()) {
        PageRecord page = PresentPage();
        FillPage(page, TakePage(windows, page.Layout), sheet, DefaultsOfEntries());
        pages.push_back(page);
    }
    return pages;
}

std::vector<PageRecord> PagesOfPreview(const Sheet& sheet)
{
    std::vector<PageRecord> pages;
    for (const PageRecord& record : ThePages().Table) {
        std::vector<PageWindow> windows;
        for (const PageEntry& entry : record.InUse())
            windows.push_back({ entry.Window, entry.Extent });
        if (windows.empty())
            continue;
        PageRecord page = record;
        FillPage(page, windows, sheet, DefaultsOfEntries());
        pages.push_back(page);
    }
    return pages;
}

PrintResult PrintPages(PageDevice& device, const std::vector<PageRecord>& pages, const Sheet& sheet,
    const QString& title, PrintWatcher& watcher)
{
    if (!device.Begin(title))
        return PrintResult::Failed;
    const auto total = static_cast<int>(pages.size());
    for (int number = 1; number <= total; ++number) {
        if (!watcher.MayPrint(number, total))
            return PrintResult::Cancelled;
        QPainter* painter = device.NewPage();
        if (painter == nullptr)
            return PrintResult::Failed;
        PaintPage(*painter, pages[static_cast<size_t>(number - 1)], sheet);
    }
    return device.End() ? PrintResult::Printed : PrintResult::Failed;
}

} // namespace tarvik
