// print/printer/printers.h: the system's printers, and the one in use.
#pragma once

#include "app/platform/port.h"
#include "print/printer/sheet.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

namespace tarvik {

/// A size of paper, upright, with the widest of its four edges that can't be printed on in each axis. Inches.
struct PaperSize {
    QString Keyword; ///< the printing system's name
    QString Name; ///< for the user
    PerAxis Size;
    PerAxis Offset;
};

enum class Sides { One, LongEdge, ShortEdge };
enum class PrintQuality { Draft = 3, Normal = 4, High = 5 };

/// What a printer can do. An empty list means that there is no choice.
struct PrinterAbilities {
    QVector<PaperSize> Papers;
    QString DefaultPaper; ///< keyword
    QStringList Bins; ///< keywords
    bool TwoSided = false;
    bool Colour = false;
    QVector<PrintQuality> Qualities;
    int MostCopies = 1;
    float DotsPerInch = 0; ///< 0: not known
};

/// The choices for a job. Those that a printer refuses are passed over.
struct PrinterChoice {
    QString Printer;
    QString Paper; ///< keyword
    bool Landscape = false;
    int Copies = 1;
    Sides Side = Sides::One;
    bool Colour = true;
    QString Bin; ///< empty: the printer's own choice
    PrintQuality Quality = PrintQuality::Normal;
};

/// A job in a queue. Without an error `Id` is its number there.
struct SentJob {
    int Id = 0;
    QString Error; ///< why it was not sent
};

enum class JobState { Waiting, Done, Cancelled, Failed };

/// Access to the printing system.
class PrinterSystem {
public:
    virtual ~PrinterSystem() = default;

    virtual QStringList Names() const = 0;
    virtual QString DefaultName() const = 0; ///< empty without a printer

    /// Nothing for a printer that has vanished.
    virtual std::optional<PrinterAbilities> AbilitiesOf(const QString& printer) const = 0;

    /// True for a printer whose pages go to a PDF file of the user's choice, not to a queue.
    virtual bool PrintsToFile(const QString& printer) const = 0;

    /// Sends a PDF file to a queue.
    virtual SentJob Send(const PrinterChoice& choice, const QString& title, const QString& pdfPath) = 0;

    /// Done also for a job that the queue no longer knows.
    virtual JobState StateOf(const QString& printer, int job) const = 0;
};

/// Without an implementation there is no printer.
Port<PrinterSystem>& ThePrinterSystem();

/// A system without any printer.
PrinterSystem& NoPrinters();

/// Sets the printing system, and the name of its default printer as the system's. `system` lives as long as the
/// program.
void UsePrinters(PrinterSystem& system);

/// The printer in use: at first the system's default one with its default paper. Kept for the run.
PrinterChoice& ThePrinter();

/// Message 12708 without a default printer, 12709 if the one in use has vanished.
[[nodiscard]] bool CheckPrinter();

/// The sheet of a printer with a choice of paper; that without a printer if it has vanished.
Sheet SheetOf(const PrinterChoice& choice);

/// That of the printer in use.
Sheet PrinterSheet();

} // namespace tarvik
