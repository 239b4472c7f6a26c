#include "print/bindPrint.h"

#include "app/menu/commands.h"
#include "print/page/FmPageSetup.h"
#include "print/page/FmPrintProgress.h"
#include "print/page/FmPrintSetup.h"
#include "print/page/printCommand.h"
#include "print/preview/FmPreview.h"
#include "print/printer/filePrinter.h"
#include "print/printer/queues.h"

#include <array>

namespace tarvik {

namespace {

constexpr std::array kCommands{
    CommandBinding{ Command::FilePageSetup, ShowPageSetup },
    CommandBinding{ Command::FilePrintSetup, ShowPrintSetup },
    CommandBinding{ Command::FilePrintPreview, ShowPreview },
    CommandBinding{ Command::FilePrint, [] { PrintWindows(PrintMode::Chosen); } },
    CommandBinding{ Command::FilePrintNow, [] { PrintWindows(PrintMode::Active); } },
};

} // namespace

void BindPrint()
{
    static WithFilePrinter printers(SystemQueues());
    UsePrinters(printers);
    BindPrintProgress();
    CommandsBind(kCommands);
}

} // namespace tarvik
