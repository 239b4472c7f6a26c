// What page setup and printer setup change.
#include "print/page/pageSetup.h"

#include "print/page/pageLayout.h"
#include "tests/print/fakePrinters.h"
#include "tests/support/fixture.h"

namespace tarvik {

namespace {

class PageSetups : public ProgramTest {
protected:
    PageSetups()
    {
        UsePrinters(system);
        First().Margins = { 1, 1.5F, 0.5F, 2 };
    }

    static PageRecord& First()
    {
        return ThePages().Table.front();
    }

    /// Takes over the present choice after a change of it.
    template <typename Change>
    static void Choose(const Change& change)
    {
        PrinterChoice choice = ThePrinter();
        change(choice);
        ApplyPrinterChoice(choice);
    }

    FakePrinters system;
};

using Margins = std::array<int, kEdges>;

} // namespace

TEST_F(PageSetups, MarginsAreThousandthsOfAnInch)
{
    SetRegion(QLocale("en_US"));
    EXPECT_EQ(PageSetupNow().Margins, (Margins{ 1000, 1500, 500, 2000 }));
    EXPECT_EQ(LeastMargins(ThePrinter()), (Margins{ 250, 125, 250, 125 }));
}

TEST_F(PageSetups, MarginsAreHundredthsOfAMillimetreInAMetricRegion)
{
    SetRegion(QLocale("de_DE"));
    EXPECT_EQ(PageSetupNow().Margins, (Margins{ 2540, 3810, 1270, 5080 }));
    EXPECT_EQ(LeastMargins(ThePrinter()), (Margins{ 635, 318, 635, 318 })) << "317.5 is below the printer's offset";
}

TEST_F(PageSetups, MarginsComeBackInInches)
{
    SetRegion(QLocale("de_DE"));
    PageSetup setup = PageSetupNow();
    setup.Margins = { 2540, 1270, 1270, 5080 };
    ApplyPageSetup(setup);
    EXPECT_EQ(First().Margins, (PageMargins{ 1, 0.5F, 0.5F, 2 }));
    EXPECT_EQ(ThePages().Table.back().Margins, First().Margins);
}

TEST_F(PageSetups, MarginsThatWereNotChangedStayExact)
{
    First().Margins.Left = 1.23456F;
    PageSetup setup = PageSetupNow();
    EXPECT_EQ(setup.Margins[0], 1235);
    setup.Margins[1] = 1000;
    ApplyPageSetup(setup);
    EXPECT_EQ(First().Margins.Left, 1.23456F);
    EXPECT_EQ(First().Margins.Top, 1);
}

TEST_F(PageSetups, MarginsBelowThePrintersAreRepaired)
{
    PageSetup setup = PageSetupNow();
    setup.Margins = { 0, 0, 0, 0 };
    ApplyPageSetup(setup);
    EXPECT_EQ(First().Margins, (PageMargins{ 0.25F, 0.125F, 0.25F, 0.125F }));
    First().Margins = {};
    EXPECT_EQ(PageSetupNow().Margins, LeastMargins(ThePrinter())) << "what is shown is what is printed";
}

TEST_F(PageSetups, LargestMarginLeavesAPrintableArea)
{
    EXPECT_EQ(MostMargin(ThePrinter()), 9750);
}

TEST_F(PageSetups, OtherPrinterChangesPaperAndMargins)
{
    Choose([](PrinterChoice& choice) { choice.Printer = "LABEL"; });
    EXPECT_EQ(ThePrinter().Printer, "Label") << "compared whatever the case";
    EXPECT_EQ(PrinterSheet().Paper.X, 4);
    EXPECT_FLOAT_EQ(First().Margins.Left, 1);
    EXPECT_FLOAT_EQ(First().Margins.Right, 0.75F) << "at least the printer's offset";
    EXPECT_NEAR(First().Margins.Top, 0.7, 1e-5) << "in steps of 0.1, until two inches of four are left";
    EXPECT_NEAR(First().Margins.Bottom, 1.2, 1e-5);
}

TEST_F(PageSetups, PrinterThatHasVanishedIsNotChosen)
{
    Choose([](PrinterChoice& choice) {
        choice.Printer = "gone";
        choice.Copies = 3;
    });
    EXPECT_EQ(ThePrinter().Printer, "Office");
    EXPECT_EQ(ThePrinter().Copies, 3);
}

TEST_F(PageSetups, ChoicesThatThePrinterHasAreTaken)
{
    Choose([](PrinterChoice& choice) {
        choice = { "Office", "na_letter_8.5x11in", true, 99, Sides::ShortEdge, false, "tray-2", PrintQuality::Draft };
    });
    const PrinterChoice& choice = ThePrinter();
    EXPECT_EQ(choice.Paper, "na_letter_8.5x11in");
    EXPECT_TRUE(choice.Landscape);
    EXPECT_EQ(choice.Copies, 99);
    EXPECT_EQ(choice.Side, Sides::ShortEdge);
    EXPECT_FALSE(choice.Colour);
    EXPECT_EQ(choice.Bin, "tray-2");
    EXPECT_EQ(choice.Quality, PrintQuality::Draft);
}

TEST_F(PageSetups, EachRefusedChoiceIsPassedOverAndTheOthersTaken)
{
    const PrinterChoice good{ "Office", "na_letter_8.5x11in", false, 2, Sides::LongEdge, true, "tray-1",
        PrintQuality::Draft };
    Choose([&](PrinterChoice& choice) { choice = good; });
    Choose([](PrinterChoice& choice) {
        choice = { "Office", "a0", true, 100, Sides::One, true, "tray-9", PrintQuality::High };
    });
    EXPECT_EQ(ThePrinter().Paper, good.Paper);
    EXPECT_TRUE(ThePrinter().Landscape);
    EXPECT_EQ(ThePrinter().Copies, 2);
    EXPECT_EQ(ThePrinter().Side, Sides::One);
    EXPECT_EQ(ThePrinter().Bin, "tray-1");
    EXPECT_EQ(ThePrinter().Quality, PrintQuality::Draft);
}

TEST_F(PageSetups, PrinterWithoutColourAndSecondSideRefusesThem)
{
    Choose([](PrinterChoice& choice) {
        choice.Printer = "Label";
        choice.Colour = false;
    });
    EXPECT_FALSE(ThePrinter().Colour);
    Choose([](PrinterChoice& choice) {
        choice.Colour = true;
        choice.Side = Sides::LongEdge;
        choice.Copies = 2;
    });
    EXPECT_FALSE(ThePrinter().Colour);
    EXPECT_EQ(ThePrinter().Side, Sides::One);
    EXPECT_EQ(ThePrinter().Copies, 1);
}

TEST_F(PageSetups, WindowsAreFittedIntoTheNewMargins)
{
    PageRecord& page = First();
    page.Count = 1;
    page.FrontEntry = 0;
    page.Entries[0].Extent = { WindowType::Screen, { 200, 100 }, 0 };
    page.Entries[0].Rectangle = { 0.25F, 0.25F, 7.75F, 3.875F };
    PageSetup setup = PageSetupNow();
    setup.Margins = { 2000, 2000, 2000, 2000 };
    ApplyPageSetup(setup);
    EXPECT_FLOAT_EQ(page.Entries[0].Rectangle.Left, 2);
    EXPECT_FLOAT_EQ(page.Entries[0].Rectangle.Top, 2);
    EXPECT_FLOAT_EQ(page.Entries[0].Rectangle.Width, 4.25F);
    EXPECT_FLOAT_EQ(page.Entries[0].Rectangle.Height, 2.125F);
    EXPECT_TRUE(page.Entries[0].Repaint);
}

} // namespace tarvik
