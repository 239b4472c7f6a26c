#include "tests/lists/list_fixture.h"
#include "tests/support/fakeHelp.h"
#include "tests/support/forms.h"

#include "app/text/lang.h"
#include "lists/editor/editorGeneral.h"
#include "lists/memory/fmEditorMemoryListProp.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace tarvik {

namespace {

class MemoryEntryForm : public FormTest, protected ListStart {
protected:
    MemoryEntryForm()
    {
        MemoryEntry() = EmptyMemoryTable().Row(7);
        MemoryEntry().Used = true;
        MemoryEntry().Frequency = 145500000;
        MemoryEntry().Description = "Tower";
    }
    int Run(const std::function<void()>& during)
    {
        return RunForm(form, during);
    }
    int Index(const QString& combo)
    {
        return Find<QComboBox>(form, combo).currentIndex();
    }
    void Choose(const QString& combo, int index)
    {
        Find<QComboBox>(form, combo).setCurrentIndex(index);
    }

    fmEditorMemoryListProp form;
};

} // namespace

TEST_F(MemoryEntryForm, HasItsControls)
{
    EXPECT_EQ(Run([&] {
        ExpectControls(form,
            { "TbFrequency", "CbModulation", "CbBandwidth", "TbSquelchVal", "CbSquelchStat", "TbAttennaNumber",
                "CbAttnStatus", "CbAFCStatus", "TbDescription", "CbStatus", "CbDFSquelchStat", "TbDFSquelchVal",
                "TbDFMeasurementTime", "CbFrequencySpan", "CbDFStep", "CbDFBw", "BtHelp", "BtCancel", "BtOk",
                "BtDelete", "LbFreq", "LbModu", "LbBandwidth", "LbSquelchVal", "LbSquelchStatus", "LbAntennaNumber",
                "LbAttenuatorStatus", "LbAFCStatus", "LbDescr", "LbStatus", "LbFreqUnit", "LbSquelchUnit",
                "LbDFSquelchStatus", "LbDFSquelchVal", "LbDFMeasurementTime", "LbFrequencySpan", "LbDFStep",
                "LbDFSquelchUnit", "LbDFMeasurementTimeUnit", "LbDFBw" });
        ExpectTabOrder(form);
        ExpectNothingClipped(form);
        Click(form, "BtCancel");
    }),
        1);
}

TEST_F(MemoryEntryForm, NumbersTakeTheDecimalMarkThatTheyShow)
{
    SetRegion(QLocale(QLocale::Arabic, QLocale::Egypt));
    Run([&] {
        for (const char* name :
            { "TbFrequency", "TbSquelchVal", "TbAttennaNumber", "TbDFSquelchVal", "TbDFMeasurementTime" }) {
            auto& box = Find<QLineEdit>(form, name);
            box.selectAll();
            box.insert(QStringLiteral("40\u066B5"));
            EXPECT_EQ(box.text(), QStringLiteral("40\u066B5")) << name;
        }
        Find<QLineEdit>(form, "TbAttennaNumber").setText("1");
        Find<QLineEdit>(form, "TbDFMeasurementTime").setText("1");
        Click(form, "BtOk");
    });
    EXPECT_EQ(MemoryEntry().Frequency, 40500000);
    EXPECT_EQ(MemoryEntry().SquelchLevel, 40.5);
}

TEST_F(MemoryEntryForm, LabelsHaveTheirTexts)
{
    const QList<std::pair<QString, int>> texts{ { "BtHelp", 10733 }, { "BtCancel", 10707 }, { "BtOk", 10705 },
        { "BtDelete", 10711 }, { "LbFreq", 10912 }, { "LbModu", 10913 }, { "LbBandwidth", 10914 },
        { "LbSquelchVal", 10915 }, { "LbSquelchStatus", 10916 }, { "LbAntennaNumber", 10917 },
        { "LbAttenuatorStatus", 10918 }, { "LbAFCStatus", 10919 }, { "LbDescr", 10920 }, { "LbStatus", 10921 },
        { "LbFreqUnit", 10922 }, { "LbSquelchUnit", 10923 }, { "LbDFSquelchStatus", 10924 },
        { "LbDFSquelchVal", 10925 }, { "LbDFMeasurementTime", 10926 }, { "LbFrequencySpan", 10927 },
        { "LbDFStep", 10928 }, { "LbDFSquelchUnit", 10923 }, { "LbDFMeasurementTimeUnit", 10929 },
        { "LbDFBw", 10967 } };
    Run([&] {
        for (const auto& [name, text] : texts)
            EXPECT_EQ(TextOf(form, name), LngStr(text)) << name.toStdString();
        Click(form, "BtCancel");
    });
}

TEST_F(MemoryEntryForm, CombosOfferTextsInOrderOfCodes)
{
    struct Offer {
        const char* Combo;
        int FirstText;
        int LastText;
    };
    const QList<Offer> offers{ { "CbModulation", 10844, 10851 }, { "CbBandwidth", 10828, 10843 },
        { "CbSquelchStat", 10852, 10853 }, { "CbAttnStatus", 10854, 10855 }, { "CbAFCStatus", 10856, 10857 },
        { "CbStatus", 10826, 10827 }, { "CbDFSquelchStat", 10862, 10864 }, { "CbFrequencySpan", 10865, 10877 },
        { "CbDFStep", 10878, 10911 }, { "CbDFBw", 10934, 10966 } };
    Run([&] {
        for (const Offer& offer : offers) {
            const auto& combo = Find<QComboBox>(form, offer.Combo);
            ASSERT_EQ(combo.count(), offer.LastText - offer.FirstText + 1) << offer.Combo;
            for (int code = 0; code < combo.count(); ++code)
                EXPECT_EQ(combo.itemText(code), LngStr(offer.FirstText + code)) << offer.Combo;
        }
        Click(form, "BtCancel");
    });
}

TEST_F(MemoryEntryForm, ControlsHaveTheirHelpNumbers)
{
    Run([&] {
        EXPECT_EQ(form.HelpNumber(), 10739);
        EXPECT_EQ(HelpNumberOf(&FindControl(form, "BtOk")), 10706);
        EXPECT_EQ(HelpNumberOf(&FindControl(form, "BtCancel")), 10708);
        EXPECT_EQ(HelpNumberOf(&FindControl(form, "BtDelete")), 10712);
        EXPECT_EQ(HelpNumberOf(&FindControl(form, "BtHelp")), 10734);
        for (const char* name : { "TbFrequency", "CbModulation", "CbBandwidth", "TbSquelchVal", "CbSquelchStat",
                 "TbAttennaNumber", "CbAttnStatus", "CbAFCStatus", "TbDescription", "CbStatus", "CbDFSquelchStat",
                 "TbDFSquelchVal", "TbDFMeasurementTime", "CbFrequencySpan", "CbDFStep", "CbDFBw" })
            EXPECT_EQ(HelpNumberOf(&FindControl(form, name)), 10825) << name;
        Click(form, "BtCancel");
    });
}

TEST_F(MemoryEntryForm, ShowsEntry)
{
    MemoryEntry().DfStep = 33;
    Run([&] {
        EXPECT_EQ(form.windowTitle(), "Memory Entry - 7");
        EXPECT_EQ(TextOf(form, "TbFrequency"), "145.500000");
        EXPECT_EQ(TextOf(form, "TbDescription"), "Tower");
        EXPECT_EQ(TextOf(form, "TbSquelchVal"), "0.00");
        EXPECT_EQ(TextOf(form, "CbDFStep"), "500 kHz");
        EXPECT_FALSE(Editor().EditorDirty);
        Click(form, "BtCancel");
    });
}

TEST_F(MemoryEntryForm, DemodulationAboveThreeIsShownAsFirstAndStored)
{
    MemoryEntry().Demodulation = 5;
    EXPECT_EQ(Run([&] {
        EXPECT_EQ(Index("CbModulation"), 0);
        Click(form, "BtOk");
    }),
        0);
    EXPECT_EQ(MemoryEntry().Demodulation, 0);
}

TEST_F(MemoryEntryForm, AnyChangeSetsDirty)
{
    Run([&] {
        Choose("CbStatus", 1);
        EXPECT_TRUE(Editor().EditorDirty);
        Click(form, "BtOk");
    });
    EXPECT_TRUE(Editor().EditorDirty);
    EXPECT_EQ(MemoryEntry().Status, 1);
}

TEST_F(MemoryEntryForm, CancelRestoresEntryAndDirty)
{
    const MemoryRecord before = MemoryEntry();
    EXPECT_EQ(Run([&] {
        Type(form, "TbFrequency", "300");
        EXPECT_TRUE(Editor().EditorDirty);
        Click(form, "BtCancel");
    }),
        1);
    EXPECT_FALSE(Editor().EditorDirty);
    EXPECT_EQ(MemoryEntry(), before);
}

TEST_F(MemoryEntryForm, CancelAfterEarlierOkRestoresDirty)
{
    Run([&] { Click(form, "BtOk"); });
    Editor().EditorDirty = false;
    Run([&] {
        Type(form, "TbFrequency", "300");
        Click(form, "BtCancel");
    });
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(MemoryEntryForm, CancelKeepsEarlierDirty)
{
    Editor().EditorDirty = true;
    Run([&] { Click(form, "BtCancel"); });
    EXPECT_TRUE(Editor().EditorDirty);
}

TEST_F(MemoryEntryForm, EscapeAndCloseButtonCancel)
{
    EXPECT_EQ(Run([&] {
        Type(form, "TbFrequency", "300");
        KeyDown(Qt::Key_Escape);
    }),
        1);
    EXPECT_FALSE(Editor().EditorDirty);
    EXPECT_EQ(Run([&] {
        Type(form, "TbFrequency", "300");
        form.close();
    }),
        1);
    EXPECT_FALSE(Editor().EditorDirty);
    EXPECT_EQ(MemoryEntry().Frequency, 145500000);
}

TEST_F(MemoryEntryForm, CancelIgnoresBadNumber)
{
    Run([&] {
        Type(form, "TbFrequency", "abc");
        Click(form, "BtCancel");
    });
    EXPECT_EQ(MemoryEntry().Frequency, 145500000);
}

TEST_F(MemoryEntryForm, LeavingNumberFormatsIt)
{
    Run([&] {
        Type(form, "TbFrequency", "145,25");
        Key(Qt::Key_Tab);
        EXPECT_EQ(TextOf(form, "TbFrequency"), "145.250000");
        Type(form, "TbSquelchVal", "500");
        Key(Qt::Key_Tab);
        EXPECT_EQ(TextOf(form, "TbSquelchVal"), "130.00");
        Type(form, "TbAttennaNumber", "3.4");
        Key(Qt::Key_Return); // acts as Tab
        EXPECT_EQ(TextOf(form, "TbAttennaNumber"), "3");
        EXPECT_TRUE(HasFocus(form, "CbAttnStatus"));
        Click(form, "BtCancel");
    });
}

/// No button is the default one: Enter belongs to the text boxes.
TEST_F(MemoryEntryForm, EnterPressesTheFocusedButtonAlone)
{
    FakeHelp help;
    EXPECT_EQ(Run([&] {
        Key(form, "CbModulation", Qt::Key_Return);
        Key(form, "CbStatus", Qt::Key_Enter, Qt::KeypadModifier);
        Key(form, "BtHelp", Qt::Key_Return);
        EXPECT_FALSE(form.IsClosed());
        EXPECT_EQ(help.Topics.size(), 1);
        Key(form, "BtCancel", Qt::Key_Return);
        EXPECT_TRUE(form.IsClosed());
    }),
        1);
    EXPECT_EQ(Run([&] { Key(form, "BtOk", Qt::Key_Return); }), 0);
    EXPECT_EQ(MemoryEntry().Frequency, 145500000);
    Run([&] { Key(form, "BtDelete", Qt::Key_Return); });
    EXPECT_EQ(MemoryEntry(), MemoryRecord());
}

TEST_F(MemoryEntryForm, BadNumberKeepsFocus)
{
    Run([&] {
        for (const char* name :
            { "TbFrequency", "TbSquelchVal", "TbAttennaNumber", "TbDFSquelchVal", "TbDFMeasurementTime" }) {
            const QString good = TextOf(form, name);
            Type(form, name, "x");
            Answers().Expect(12765, QStringList(), Ok);
            Key(Qt::Key_Tab);
            EXPECT_TRUE(HasFocus(form, name)) << name;
            Type(form, name, good);
        }
        Click(form, "BtCancel");
    });
}

TEST_F(MemoryEntryForm, BadDescriptionKeepsFocus)
{
    Run([&] {
        Type(form, "TbDescription", "a;b");
        Answers().Expect(12764, QStringList(), Ok);
        Key(Qt::Key_Tab);
        EXPECT_TRUE(HasFocus(form, "TbDescription"));
        Click(form, "BtCancel");
    });
}

TEST_F(MemoryEntryForm, OkChecksDescriptionWhenCalledByItsMnemonic)
{
    Run([&] {
        Type(form, "TbDescription", "a;b");
        Answers().Expect(12764, QStringList(), Ok);
        Find<QPushButton>(form, "BtOk").click(); // moves no focus
        EXPECT_FALSE(form.IsClosed());
        EXPECT_TRUE(HasFocus(form, "TbDescription"));
        Click(form, "BtCancel");
    });
    EXPECT_EQ(MemoryEntry().Description, "Tower");
}

TEST_F(MemoryEntryForm, EnteringTextSelectsAll)
{
    Run([&] {
        Key(form, "CbBandwidth", Qt::Key_Tab);
        Find<QLineEdit>(form, "TbDFSquelchVal").setFocus();
        EXPECT_EQ(Find<QLineEdit>(form, "TbDFSquelchVal").selectedText(), "0.00");
        Click(form, "TbSquelchVal");
        EXPECT_EQ(Find<QLineEdit>(form, "TbSquelchVal").selectedText(), "0.00");
        Click(form, "BtCancel");
    });
}

TEST_F(MemoryEntryForm, RefusedPairKeepsDialogOpen)
{
    Run([&] {
        Choose("CbModulation", 5);
        Choose("CbBandwidth", 15);
        Answers().Expect(12815, QStringList(), Ok);
        Click(form, "BtOk");
        EXPECT_FALSE(form.IsClosed());
        EXPECT_TRUE(HasFocus(form, "CbBandwidth"));
        Choose("CbBandwidth", 0);
        Choose("CbAFCStatus", 1);
        Answers().Expect(12816, QStringList(), Ok);
        Click(form, "BtOk");
        EXPECT_FALSE(form.IsClosed());
        Choose("CbAFCStatus", 0);
        Choose("CbFrequencySpan", 12);
        Choose("CbDFStep", 0);
        Answers().Expect(12818, QStringList(), Ok);
        Click(form, "BtOk");
        EXPECT_FALSE(form.IsClosed());
        Click(form, "BtCancel");
    });
}

TEST_F(MemoryEntryForm, CancelKeepsNumbersStoredByRefusedOk)
{
    Run([&] {
        Type(form, "TbFrequency", "300");
        Choose("CbModulation", 5);
        Choose("CbBandwidth", 15);
        Answers().Expect(12815, Ok);
        Click(form, "BtOk");
        Click(form, "BtCancel");
    });
    EXPECT_EQ(MemoryEntry().Frequency, 300e6);
    EXPECT_EQ(MemoryEntry().Bandwidth, EmptyMemoryTable().Row(7).Bandwidth);
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(MemoryEntryForm, DeleteClearsEntry)
{
    Run([&] { Click(form, "BtDelete"); });
    EXPECT_EQ(MemoryEntry(), MemoryRecord());
    EXPECT_TRUE(Editor().EditorDirty);
}

} // namespace tarvik
