// print/printer/PdfPages.h: pages as a PDF file. Pictures are stored without loss in their own pixels, texts as text.
#pragma once

#include "print/printer/pageDevice.h"

#include <QIODevice>

#include <memory>

class QPdfWriter;

namespace tarvik {

/// Writes to a device, page by page, so that memory does not grow with the number of pages. The sheet's dots per inch
/// must be whole and equal in both axes.
class PdfPages final : public PageDevice {
public:
    /// `device` is open and outlives this.
    PdfPages(QIODevice& device, const Sheet& sheet);
    ~PdfPages() override;

    bool Begin(const QString& title) override;
    QPainter* NewPage() override;
    bool End() override;

private:
    Sheet sheet_;
    std::unique_ptr<QPdfWriter> writer_;
    std::unique_ptr<QPainter> painter_;
    bool hasPage_ = false;
};

} // namespace tarvik
