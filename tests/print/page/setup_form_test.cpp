// The forms of page setup and printer setup, and the progress of a print job.
#include "app/text/lang.h"
#include "print/page/FmPageSetup.h"
#include "print/page/FmPrintProgress.h"
#include "print/page/FmPrintSetup.h"
#include "tests/print/fakePrinters.h"
#include "tests/screen/screen_form_fixture.h"

#include <QApplication>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QProgressBar>
#include <QRadioButton>
#include <QSpinBox>
#include <QTimer>

namespace tarvik {

namespace {

class SetupForms : public ScreenForms {
protected:
    SetupForms()
    {
        UsePrinters(system);
        Margins() = { 1, 1.5F, 0.5F, 2 };
    }

    ~SetupForms() override
    {
        ThePrinterSystem().Reset();
    }

    static PageMargins& Margins()
    {
        return ThePages().Table.front().Margins;
    }

    void RunPageSetup(const std::function<void(FmPageSetup&)>& during)
    {
        FmPageSetup form(frame.get());
        RunForm(form, [&] { during(form); });
    }

    /// The choice that the form leaves.
    PrinterChoice RunPrintSetup(const std::function<void(FmPrintSetup&)>& during)
    {
        FmPrintSetup form(ThePrinter(), frame.get());
        RunForm(form, [&] { during(form); });
        return form.Choice();
    }

    static QDoubleSpinBox& Margin(QWidget& form, int edge)
    {
        return Find<QDoubleSpinBox>(form, QStringLiteral("TbMargin[%1]").arg(edge));
    }

    /// Selects an item as the user does.
    static void Select(QWidget& form, const QString& combo, const QString& item)
    {
        auto& box = Find<QComboBox>(form, combo);
        const int index = box.findText(item);
        ASSERT_GE(index, 0) << qPrintable(item);
        box.setCurrentIndex(index);
        Q_EMIT box.activated(index);
    }

    FakePrinters system;
};

} // namespace

TEST_F(SetupForms, PageSetupHasItsControls)
{
    RunPageSetup([&](FmPageSetup& form) {
        ExpectControls(form,
            { "LbPrinter", "CbPaper", "CbBin", "FrOrientation", "OpOrientation[0]", "OpOrientation[1]", "FrMargins",
                "TbMargin[0]", "TbMargin[1]", "TbMargin[2]", "TbMargin[3]", "BtOk", "BtCancel", "BtPrinter",
                "BtHelp" });
        ExpectTabOrder(form);
        ExpectNothingClipped(form);
        EXPECT_EQ(form.windowTitle(), LngStr(13520));
        EXPECT_EQ(form.HelpNumber(), 13521);
        EXPECT_EQ(TextOf(form, "LbPrinter"), "Office");
        EXPECT_TRUE(HasFocus(form, "CbPaper"));
        Click(form, "BtHelp");
        EXPECT_EQ(help.Topics, QList<int>{ 13521 });
        Click(form, "BtCancel");
    });
}

TEST_F(SetupForms, PageSetupShowsMarginsInInches)
{
    SetRegion(QLocale("en_US"));
    RunPageSetup([&](FmPageSetup& form) {
        EXPECT_EQ(Margin(form, 0).text(), "1.000 in");
        EXPECT_EQ(Margin(form, 1).text(), "1.500 in");
        EXPECT_EQ(Margin(form, 2).text(), "0.500 in");
        EXPECT_EQ(Margin(form, 3).text(), "2.000 in");
        EXPECT_DOUBLE_EQ(Margin(form, 0).minimum(), 0.25);
        EXPECT_DOUBLE_EQ(Margin(form, 1).minimum(), 0.125);
        Click(form, "BtCancel");
    });
}

TEST_F(SetupForms, PageSetupShowsMarginsInMillimetres)
{
    SetRegion(QLocale("de_DE"));
    RunPageSetup([&](FmPageSetup& form) {
        EXPECT_EQ(Margin(form, 0).text(), "25,40 mm");
        EXPECT_DOUBLE_EQ(Margin(form, 0).minimum(), 6.35);
        Margin(form, 0).setValue(30.48);
        Click(form, "BtOk");
    });
    EXPECT_FLOAT_EQ(Margins().Left, 1.2F);
    EXPECT_EQ(Margins().Top, 1.5F);
}

TEST_F(SetupForms, PageSetupTakesPaperAndOrientation)
{
    RunPageSetup([&](FmPageSetup& form) {
        Select(form, "CbPaper", "Letter");
        EXPECT_DOUBLE_EQ(Margin(form, 0).minimum(), 0.5) << "the least margin of that paper";
        Click(form, "OpOrientation[1]");
        EXPECT_DOUBLE_EQ(Margin(form, 0).minimum(), 0.25) << "turned";
        Select(form, "CbBin", "tray-2");
        Click(form, "BtOk");
    });
    EXPECT_EQ(ThePrinter().Paper, "na_letter_8.5x11in");
    EXPECT_TRUE(ThePrinter().Landscape);
    EXPECT_EQ(ThePrinter().Bin, "tray-2");
}

TEST_F(SetupForms, CancelOfPageSetupChangesNothing)
{
    const auto change = [](QWidget& form) {
        Select(form, "CbPaper", "Letter");
        Click(form, "OpOrientation[1]");
        Margin(form, 0).setValue(2);
    };
    RunPageSetup([&](FmPageSetup& form) {
        change(form);
        Click(form, "BtCancel");
    });
    RunPageSetup([&](FmPageSetup& form) {
        change(form);
        Key(Qt::Key_Escape);
        EXPECT_TRUE(form.IsClosed());
    });
    EXPECT_EQ(ThePrinter().Paper, "");
    EXPECT_FALSE(ThePrinter().Landscape);
    EXPECT_EQ(Margins(), (PageMargins{ 1, 1.5F, 0.5F, 2 }));
}

TEST_F(SetupForms, PrinterOfPageSetupIsChangedByOkAlone)
{
    for (const bool isAccepted : { false, true }) {
        RunPageSetup([&](FmPageSetup& form) {
            QTimer::singleShot(0, qApp, [] {
                QWidget* setup = QApplication::activeModalWidget();
                ASSERT_NE(setup, nullptr);
                Select(*setup, "CbPrinter", "Label");
                Click(*setup, "BtOk");
            });
            Click(form, "BtPrinter");
            EXPECT_EQ(TextOf(form, "LbPrinter"), "Label");
            EXPECT_EQ(TextOf(form, "CbPaper"), "Label");
            EXPECT_EQ(ThePrinter().Printer, "Office");
            Click(form, isAccepted ? "BtOk" : "BtCancel");
        });
        EXPECT_EQ(ThePrinter().Printer, isAccepted ? "Label" : "Office");
    }
}

TEST_F(SetupForms, PrintSetupHasItsControls)
{
    RunPrintSetup([&](FmPrintSetup& form) {
        ExpectControls(form,
            { "CbPrinter", "CbPaper", "CbBin", "FrOrientation", "TbCopies", "CbSides", "CbQuality", "ChColour", "BtOk",
                "BtCancel", "BtHelp" });
        ExpectTabOrder(form);
        ExpectNothingClipped(form);
        EXPECT_EQ(form.windowTitle(), LngStr(13550));
        EXPECT_EQ(form.HelpNumber(), 13551);
        EXPECT_EQ(TextOf(form, "CbPrinter"), "Office");
        EXPECT_EQ(TextOf(form, "CbQuality"), "Normal");
        Click(form, "BtCancel");
    });
}

TEST_F(SetupForms, PrintSetupReturnsTheChoice)
{
    const PrinterChoice choice = RunPrintSetup([&](FmPrintSetup& form) {
        Select(form, "CbPaper", "Letter");
        Find<QSpinBox>(form, "TbCopies").setValue(3);
        Select(form, "CbSides", "Flip on the short edge");
        Select(form, "CbQuality", "Draft");
        Click(form, "ChColour");
        Click(form, "BtOk");
    });
    EXPECT_EQ(choice.Printer, "Office");
    EXPECT_EQ(choice.Paper, "na_letter_8.5x11in");
    EXPECT_EQ(choice.Copies, 3);
    EXPECT_EQ(choice.Side, Sides::ShortEdge);
    EXPECT_EQ(choice.Quality, PrintQuality::Draft);
    EXPECT_FALSE(choice.Colour);
}

TEST_F(SetupForms, CancelOfPrintSetupReturnsTheOldChoice)
{
    const PrinterChoice choice = RunPrintSetup([&](FmPrintSetup& form) {
        Select(form, "CbPrinter", "Label");
        Click(form, "BtCancel");
    });
    EXPECT_EQ(choice.Printer, "Office");
}

TEST_F(SetupForms, WhatThePrinterDoesNotHaveIsGrey)
{
    RunPrintSetup([&](FmPrintSetup& form) {
        Find<QSpinBox>(form, "TbCopies").setValue(3);
        Select(form, "CbPrinter", "Label");
        for (const char* name : { "CbPaper", "CbBin", "TbCopies", "CbSides", "CbQuality", "ChColour" })
            EXPECT_FALSE(FindControl(form, name).isEnabled()) << name;
        Select(form, "CbPrinter", "Office");
        EXPECT_EQ(Find<QSpinBox>(form, "TbCopies").value(), 3) << "comes back with the printer";
        Click(form, "BtCancel");
    });
}

TEST_F(SetupForms, PrinterThatHasVanishedIsShownUntilAnotherIsChosen)
{
    ThePrinter().Printer = "gone";
    const PrinterChoice choice = RunPrintSetup([&](FmPrintSetup& form) {
        EXPECT_EQ(TextOf(form, "CbPrinter"), "gone");
        Select(form, "CbPrinter", "Office");
        Click(form, "BtOk");
    });
    EXPECT_EQ(choice.Printer, "Office");
}

TEST_F(SetupForms, CommandsTakeTheChoiceOver)
{
    QTimer::singleShot(0, qApp, [] {
        QWidget* setup = QApplication::activeModalWidget();
        ASSERT_NE(setup, nullptr);
        Select(*setup, "CbPrinter", "Label");
        Click(*setup, "BtOk");
    });
    ShowPrintSetup();
    EXPECT_EQ(ThePrinter().Printer, "Label");
    EXPECT_EQ(Margins().Right, 0.75F) << "repaired";
}

TEST_F(SetupForms, ProgressShowsPagesAndCancels)
{
    BindPrintProgress();
    QStringList lines;
    QList<int> values;
    const PrintOutcome outcome = ThePrintProgress()->Run(3, [&](PrintWatcher& watcher) {
        for (int number = 1; number <= 3; ++number) {
            QWidget* form = QApplication::activeModalWidget();
            if (number == 3)
                Click(*form, "BtCancel");
            if (!watcher.MayPrint(number, 3))
                return PrintOutcome{ PrintResult::Cancelled, {}, 0 };
            lines.append(TextOf(*form, "LbPage"));
            values.append(Find<QProgressBar>(*form, "progressBar").value());
        }
        return PrintOutcome{};
    });
    EXPECT_EQ(outcome.Result, PrintResult::Cancelled);
    EXPECT_EQ(lines, (QStringList{ "Printing page 1 of 3...", "Printing page 2 of 3..." }));
    EXPECT_EQ(values, (QList<int>{ 0, 1 }));
    EXPECT_FALSE(DialogIsOpen());
}

TEST_F(SetupForms, EscapeCancelsAJobAndTheFormEndsWithIt)
{
    FmPrintProgress form(
        2,
        [&](PrintWatcher& watcher) {
            EXPECT_TRUE(watcher.MayPrint(1, 2));
            Key(Qt::Key_Escape);
            EXPECT_EQ(TextOf(form, "LbPage"), LngStr(13371));
            EXPECT_FALSE(form.IsClosed());
            EXPECT_FALSE(watcher.MayPrint(2, 2));
            return PrintOutcome{ PrintResult::Cancelled, {}, 0 };
        },
        frame.get());
    DialogShow(form);
    EXPECT_EQ(form.Outcome().Result, PrintResult::Cancelled);
    EXPECT_TRUE(form.IsClosed());
}

TEST_F(SetupForms, OnePageNeedsNoForm)
{
    BindPrintProgress();
    const PrintOutcome outcome = ThePrintProgress()->Run(1, [](PrintWatcher& watcher) {
        EXPECT_FALSE(DialogIsOpen());
        EXPECT_TRUE(watcher.MayPrint(1, 1));
        return PrintOutcome{ PrintResult::Printed, {}, 7 };
    });
    EXPECT_EQ(outcome.Job, 7);
}

} // namespace tarvik
