#include "print/page/pageSetup.h"

#include "app/values/general.h"
#include "print/page/pageFill.h"
#include "print/page/pageLayout.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

constexpr int kHundredthsOfMmPerInch = 2540;
constexpr int kThousandthsPerInch = 1000;

/// Nearly whole lengths are not rounded up.
constexpr double kUnitTolerance = 0.01;

int UnitsOf(float inches)
{
    return qRound(double{ inches } * LengthUnitsPerInch());
}

int UnitsAtLeast(float inches)
{
    return static_cast<int>(std::ceil(double{ inches } * LengthUnitsPerInch() - kUnitTolerance));
}

std::array<float*, kEdges> MarginsOf(PageMargins& margins)
{
    return { &margins.Left, &margins.Top, &margins.Right, &margins.Bottom };
}

/// For every page. Lengths that were not changed keep their exact value.
void SetMargins(const std::array<int, kEdges>& units)
{
    const auto margins = MarginsOf(ThePages().Table.front().Margins);
    for (size_t edge = 0; edge < units.size(); ++edge) {
        if (UnitsOf(*margins[edge]) != units[edge])
            *margins[edge] = static_cast<float>(units[edge]) / static_cast<float>(LengthUnitsPerInch());
    }
    for (PageRecord& page : ThePages().Table)
        page.Margins = ThePages().Table.front().Margins;
}

/// The printer of that name, whatever its case; empty if it has vanished.
QString PrinterNamed(const QString& name)
{
    const QStringList names = ThePrinterSystem()->Names();
    const auto found =
        std::find_if(names.begin(), names.end(), [&name](const QString& at) { return at.toUpper() == name.toUpper(); });
    return found == names.end() ? QString() : *found;
}

bool HasPaper(const PrinterAbilities& abilities, const QString& keyword)
{
    return std::any_of(abilities.Papers.begin(), abilities.Papers.end(),
        [&keyword](const PaperSize& paper) { return paper.Keyword == keyword; });
}

void TakeChoices(const PrinterChoice& asked, const PrinterAbilities& abilities, PrinterChoice& choice)
{
    choice.Landscape = asked.Landscape;
    if (HasPaper(abilities, asked.Paper))
        choice.Paper = asked.Paper;
    if (asked.Bin.isEmpty() || abilities.Bins.contains(asked.Bin))
        choice.Bin = asked.Bin;
    if (asked.Copies >= 1 && asked.Copies <= abilities.MostCopies)
        choice.Copies = asked.Copies;
    if (abilities.TwoSided || asked.Side == Sides::One)
        choice.Side = asked.Side;
    if (abilities.Colour || !asked.Colour)
        choice.Colour = asked.Colour;
    if (abilities.Qualities.contains(asked.Quality))
        choice.Quality = asked.Quality;
}

} // namespace

int LengthUnitsPerInch()
{
    return IsMetric() ? kHundredthsOfMmPerInch : kThousandthsPerInch;
}

PageSetup PageSetupNow()
{
    PageSetup setup{ ThePrinter(), {} };
    PageMargins margins = RepairedMargins(ThePages().Table.front().Margins, PrinterSheet());
    const auto edges = MarginsOf(margins);
    std::transform(edges.begin(), edges.end(), setup.Margins.begin(), [](const float* edge) { return UnitsOf(*edge); });
    return setup;
}

std::array<int, kEdges> LeastMargins(const PrinterChoice& choice)
{
    const Sheet sheet = SheetOf(choice);
    const int x = UnitsAtLeast(sheet.Offset.X);
    const int y = UnitsAtLeast(sheet.Offset.Y);
    return { x, y, x, y };
}

int MostMargin(const PrinterChoice& choice)
{
    const Sheet sheet = SheetOf(choice);
    return UnitsOf(std::max(sheet.Paper.X, sheet.Paper.Y) - kLeastPrintableInches);
}

void ApplyPageSetup(const PageSetup& setup)
{
    SetMargins(setup.Margins);
    ApplyPrinterChoice(setup.Choice);
}

void ApplyPrinterChoice(const PrinterChoice& asked)
{
    PrinterChoice& choice = ThePrinter();
    const QString name = PrinterNamed(asked.Printer);
    if (!name.isEmpty())
        choice.Printer = name;
    if (const auto abilities = ThePrinterSystem()->AbilitiesOf(choice.Printer))
        TakeChoices(asked, *abilities, choice);
    RepairPages(PrinterSheet());
}

} // namespace tarvik
