// tools/tarvikctl/printArguments.h: the options of tarvikctl print.
#pragma once

#include "print/page/pageTable.h"
#include "print/printer/sheet.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace tarvik {

struct PrintArguments {
    QStringList Files;
    QString Pdf; ///< to write; empty for a printer
    QString Printer; ///< a queue; empty for the default one
    QString PaperKeyword; ///< of the printing system
    bool Landscape = false;
    Sheet Paper; ///< of a PDF
    std::optional<PageMargins> Margins;
    QString Settings; ///< a settings file; empty for none
    int PerPage = 0; ///< 0 for as many as the layout has
    bool Arrange = false;
    std::optional<bool> Title;
    std::optional<bool> Outline;
    bool BlackAndWhite = false;
    std::optional<QString> Description;
    bool Layout = false; ///< print the page table instead of the pages
};

/// Parses the words after "print". nullopt for wrong usage, with the reason in `error`.
std::optional<PrintArguments> PrintParse(const QStringList& words, QString& error);

} // namespace tarvik
