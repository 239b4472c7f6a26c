// print/printer/filePrinter.h: the printer "PDF file" beside the queues.
#pragma once

#include "print/printer/printers.h"

namespace tarvik {

/// The queues, then "PDF file" (text 13360), which is the default where no queue is. Its pages go to a file that the
/// user chooses.
class WithFilePrinter final : public PrinterSystem {
public:
    /// `queues` outlives this.
    explicit WithFilePrinter(PrinterSystem& queues)
        : queues_(queues)
    {
    }

    QStringList Names() const override;
    QString DefaultName() const override;
    std::optional<PrinterAbilities> AbilitiesOf(const QString& printer) const override;
    bool PrintsToFile(const QString& printer) const override;
    SentJob Send(const PrinterChoice& choice, const QString& title, const QString& pdfPath) override;
    JobState StateOf(const QString& printer, int job) const override;

private:
    PrinterSystem& queues_;
};

} // namespace tarvik
