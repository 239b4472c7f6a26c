// print/printer/cupsPrinters.h: the queues of the printing system.
#pragma once

#include "print/printer/printers.h"

namespace tarvik {

/// Asks the scheduler that the environment or the system's configuration names.
class CupsPrinters final : public PrinterSystem {
public:
    QStringList Names() const override;
    QString DefaultName() const override;
    std::optional<PrinterAbilities> AbilitiesOf(const QString& printer) const override;
    QString Send(const PrinterChoice& choice, const QString& title, const QString& pdfPath) override;
};

} // namespace tarvik
