#include "print/printer/printers.h"

#include "app/message/message.h"
#include "app/platform/processState.h"
#include "app/platform/seams.h"
#include "app/text/textId.h"
#include "app/values/region.h"

#include <algorithm>
#include <utility>

namespace tarvik {

namespace {

class EmptySystem final : public PrinterSystem {
public:
    QStringList Names() const override
    {
        return {};
    }
    QString DefaultName() const override
    {
        return {};
    }
    std::optional<PrinterAbilities> AbilitiesOf(const QString&) const override
    {
        return {};
    }
    bool PrintsToFile(const QString&) const override
    {
        return false;
    }
    SentJob Send(const PrinterChoice&, const QString&, const QString&) override
    {
        return { 0, QStringLiteral("no printer") };
    }
    JobState StateOf(const QString&, int) const override
    {
        return JobState::Done;
    }
};

const PaperSize* PaperOf(const PrinterAbilities& abilities, const QString& keyword)
{
    const auto find = [&abilities](const QString& at) -> const PaperSize* {
        const auto found = std::find_if(abilities.Papers.begin(), abilities.Papers.end(),
            [&at](const PaperSize& paper) { return paper.Keyword == at; });
        return found == abilities.Papers.end() ? nullptr : &*found;
    };
    const PaperSize* paper = find(keyword);
    return paper == nullptr ? find(abilities.DefaultPaper) : paper;
}

} // namespace

Port<PrinterSystem>& ThePrinterSystem()
{
    static PortOr<PrinterSystem, EmptySystem> port;
    return port;
}

PrinterSystem& NoPrinters()
{
    static EmptySystem system;
    return system;
}

void UsePrinters(PrinterSystem& system)
{
    ThePrinterSystem().Set(system);
    TheSeams().DefaultPrinter = [] { return ThePrinterSystem()->DefaultName(); };
}

PrinterChoice& ThePrinter()
{
    static ProcessState<PrinterChoice> printer;
    PrinterChoice& choice = printer.Get();
    if (choice.Printer.isEmpty())
        choice.Printer = IniDefaultPrinter();
    return choice;
}

bool CheckPrinter()
{
    const QString& name = ThePrinter().Printer;
    if (name.isEmpty()) {
        MsgOk(TextId::NoDefaultPrinter);
        return false;
    }
    if (ThePrinterSystem()->AbilitiesOf(name).has_value())
        return true;
    MsgOk(TextId::PrinterNotAvailable);
    return false;
}

Sheet SheetOf(const PrinterChoice& choice)
{
    Sheet sheet;
    const auto abilities = ThePrinterSystem()->AbilitiesOf(choice.Printer);
    if (!abilities)
        return sheet;
    if (abilities->DotsPerInch > 0)
        sheet.DotsPerInch = { abilities->DotsPerInch, abilities->DotsPerInch };
    if (const PaperSize* paper = PaperOf(*abilities, choice.Paper); paper != nullptr) {
        sheet.Paper = paper->Size;
        sheet.Offset = paper->Offset;
    }
    if (choice.Landscape) {
        std::swap(sheet.Paper.X, sheet.Paper.Y);
        std::swap(sheet.Offset.X, sheet.Offset.Y);
    }
    return sheet;
}

Sheet PrinterSheet()
{
    return SheetOf(ThePrinter());
}

} // namespace tarvik
