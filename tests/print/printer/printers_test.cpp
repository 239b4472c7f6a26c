// The printer in use, the printer "PDF file", sheets.
#include "app/text/lang.h"
#include "app/values/region.h"
#include "print/printer/filePrinter.h"
#include "tests/print/fakePrinters.h"
#include "tests/support/fixture.h"

namespace tarvik {

namespace {

class Printers : public ProgramTest {
protected:
    Printers()
    {
        UsePrinters(system);
    }

    FakePrinters system;
};

class FilePrinter : public ProgramTest {
protected:
    FilePrinter()
        : system(queues)
    {
        UsePrinters(system);
    }

    FakePrinters queues;
    WithFilePrinter system;
};

} // namespace

TEST_F(Printers, ThatInUseStartsAsTheDefaultOne)
{
    EXPECT_EQ(ThePrinter().Printer, "Office");
    EXPECT_EQ(IniDefaultPrinter(), "Office");
    EXPECT_TRUE(CheckPrinter());
    EXPECT_EQ(ThePrinter().Copies, 1);
}

TEST_F(Printers, NameOfTheDefaultOneIsTrimmed)
{
    system.Default = "  Office ";
    EXPECT_EQ(ThePrinter().Printer, "Office");
}

TEST_F(Printers, WithoutOneTheCheckFails)
{
    system.Default.clear();
    Answers().Expect(12708, {}, Ok);
    EXPECT_FALSE(CheckPrinter());
}

TEST_F(Printers, OneThatIsInstalledLaterIsFound)
{
    system.Default.clear();
    Answers().Expect(12708, {}, Ok);
    EXPECT_FALSE(CheckPrinter());
    system.Default = "Label";
    EXPECT_TRUE(CheckPrinter());
    EXPECT_EQ(ThePrinter().Printer, "Label");
}

TEST_F(Printers, OneThatHasVanishedFailsTheCheck)
{
    EXPECT_TRUE(CheckPrinter());
    system.Queues.remove("Office");
    Answers().Expect(12709, {}, Ok);
    EXPECT_FALSE(CheckPrinter());
}

TEST_F(Printers, SheetIsThatOfThePaper)
{
    Sheet sheet = PrinterSheet();
    EXPECT_EQ(sheet.Paper.X, 8.25F);
    EXPECT_EQ(sheet.Paper.Y, 11.75F);
    EXPECT_EQ(sheet.Offset.X, 0.25F);
    EXPECT_EQ(sheet.Offset.Y, 0.125F);
    EXPECT_EQ(sheet.DotsPerInch.X, 600);
    ThePrinter().Paper = "na_letter_8.5x11in";
    sheet = PrinterSheet();
    EXPECT_EQ(sheet.Paper.X, 8.5F);
    EXPECT_EQ(sheet.Offset.Y, 0.25F);
}

TEST_F(Printers, LandscapeTurnsPaperAndOffsets)
{
    ThePrinter().Landscape = true;
    const Sheet sheet = PrinterSheet();
    EXPECT_EQ(sheet.Paper.X, 11.75F);
    EXPECT_EQ(sheet.Paper.Y, 8.25F);
    EXPECT_EQ(sheet.Offset.X, 0.125F);
    EXPECT_EQ(sheet.Offset.Y, 0.25F);
}

TEST_F(Printers, WithoutAPrinterTheSheetHasItsDefaults)
{
    ThePrinter().Printer = "gone";
    const Sheet sheet = PrinterSheet();
    EXPECT_EQ(sheet.Paper.X, 8.25F);
    EXPECT_EQ(sheet.Paper.Y, 11.7F);
    EXPECT_EQ(sheet.Offset.X, 1);
    EXPECT_EQ(sheet.Offset.Y, 1);
    EXPECT_EQ(sheet.DotsPerInch.X, 150);
    EXPECT_EQ(sheet.DotsPerInch.Y, 150);
}

TEST_F(Printers, OneThatReportsNoResolutionHas150)
{
    system.Queues["Office"].DotsPerInch = 0;
    EXPECT_EQ(PrinterSheet().DotsPerInch.X, 150);
    EXPECT_EQ(PrinterSheet().DotsPerInch.Y, 150);
}

TEST_F(FilePrinter, IsTheLastOfAll)
{
    EXPECT_EQ(system.Names(), (QStringList{ "Label", "Office", "PDF file" }));
    EXPECT_TRUE(system.PrintsToFile("PDF file"));
    EXPECT_FALSE(system.PrintsToFile("Office"));
    EXPECT_EQ(system.DefaultName(), "Office");
}

TEST_F(FilePrinter, IsTheDefaultWithoutQueue)
{
    queues.Queues.clear();
    queues.Default.clear();
    EXPECT_EQ(system.DefaultName(), LngStr(13360));
    EXPECT_TRUE(CheckPrinter());
    EXPECT_EQ(ThePrinter().Printer, "PDF file");
}

TEST_F(FilePrinter, HasThePapersOfTheRegion)
{
    SetRegion(QLocale("de_DE"));
    const auto metric = system.AbilitiesOf("PDF file");
    ASSERT_TRUE(metric.has_value());
    EXPECT_EQ(metric->DefaultPaper, "iso_a4_210x297mm");
    ASSERT_EQ(metric->Papers.size(), 5);
    EXPECT_FLOAT_EQ(metric->Papers[1].Size.X, 210 / 25.4F);
    EXPECT_FLOAT_EQ(metric->Papers[1].Size.Y, 297 / 25.4F);
    EXPECT_EQ(metric->Papers[1].Offset.X, 0.25F);
    EXPECT_EQ(metric->DotsPerInch, 300);
    SetRegion(QLocale("en_US"));
    EXPECT_EQ(system.AbilitiesOf("PDF file")->DefaultPaper, "na_letter_8.5x11in");
}

TEST_F(FilePrinter, PassesJobsOfQueuesOn)
{
    queues.States[1] = JobState::Waiting;
    EXPECT_EQ(system.Send(ThePrinter(), "title", {}).Id, 1);
    EXPECT_EQ(system.StateOf("Office", 1), JobState::Waiting);
    EXPECT_TRUE(system.AbilitiesOf("Office").has_value());
    EXPECT_FALSE(system.AbilitiesOf("gone").has_value());
}

} // namespace tarvik
