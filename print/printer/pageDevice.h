// print/printer/pageDevice.h: where pages are printed: a PDF file or the queue of a printer.
#pragma once

#include "print/printer/sheet.h"

#include <QString>

class QPainter;

namespace tarvik {

/// One print job. Calls in this order: Begin, for each page NewPage and drawing, then End or nothing. Without End
/// nothing is printed and no file is left.
class PageDevice {
public:
    virtual ~PageDevice() = default;

    virtual bool Begin(const QString& title) = 0;

    /// The painter of a new page, in dots, with its origin at the corner of the printable area. Null after a failure.
    virtual QPainter* NewPage() = 0;

    /// True if all pages are in the queue, or the file is in place.
    virtual bool End() = 0;
};

} // namespace tarvik
