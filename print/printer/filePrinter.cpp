#include "print/printer/filePrinter.h"

#include "app/text/lang.h"
#include "app/text/textId.h"
#include "app/values/general.h"
#include "print/printer/paperSizes.h"

namespace tarvik {

namespace {

QString FilePrinterName()
{
    return LngStr(TextId::FilePrinter);
}

/// What a page in a file can be. Paper is that of the user's region.
PrinterAbilities FileAbilities()
{
    PrinterAbilities abilities;
    for (const NamedPaper& paper : NamedPapers()) {
        abilities.Papers.append({ QString::fromLatin1(paper.Keyword), QString::fromLatin1(paper.Name), paper.Inches,
            { kPdfOffset, kPdfOffset } });
    }
    abilities.DefaultPaper = abilities.Papers[IsMetric() ? kPaperA4 : kPaperLetter].Keyword;
    abilities.DotsPerInch = kPdfDotsPerInch;
    return abilities;
}

} // namespace

QStringList WithFilePrinter::Names() const
{
    return queues_.Names() << FilePrinterName();
}

QString WithFilePrinter::DefaultName() const
{
    const QString queue = queues_.DefaultName();
    return queue.isEmpty() ? FilePrinterName() : queue;
}

std::optional<PrinterAbilities> WithFilePrinter::AbilitiesOf(const QString& printer) const
{
    return PrintsToFile(printer) ? FileAbilities() : queues_.AbilitiesOf(printer);
}

bool WithFilePrinter::PrintsToFile(const QString& printer) const
{
    return printer == FilePrinterName();
}

SentJob WithFilePrinter::Send(const PrinterChoice& choice, const QString& title, const QString& pdfPath)
{
    return queues_.Send(choice, title, pdfPath);
}

JobState WithFilePrinter::StateOf(const QString& printer, int job) const
{
    return queues_.StateOf(printer, job);
}

} // namespace tarvik
