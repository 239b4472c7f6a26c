#include "allSettings.h"

#include "app/state/project.h"
#include "link/classes/model.h"
#include "link/connection/connect.h"
#include "print/page/pageTable.h"
#include "print/page/printSettings.h"
#include "screen/document/color.h"
#include "screen/document/description.h"
#include "tests/support/fixture.h"

namespace tarvik {

class AllSettings : public ProgramTest {
protected:
    AllSettings()
    {
        SettingsSetGroups(AllSettingsGroups());
    }

    /// Sections and keys of the file, in order, without values.
    QStringList Names() const
    {
        QStringList names;
        for (const QString& line : QString::fromUtf8(Contents(IniFileName())).split(u'\n', Qt::SkipEmptyParts))
            names.append(line.section(u'=', 0, 0));
        return names;
    }

    QByteArray Text() const
    {
        return Contents(IniFileName());
    }

    void ReadFrom(const QByteArray& text)
    {
        Store(IniFileName(), text);
        IniRead();
    }
};

TEST_F(AllSettings, EveryKeyIsWrittenInOrder)
{
    QStringList expected(
        { "[File]", "Path", "Name", "PcPathAl", "PcPathKf", "PcPathMl", "PcPathSl", "PcPathCs", "InstrPathAl",
            "InstrPathKf", "InstrPathMl", "InstrPathSl", "InstrPathCs", "[Print]", "Preview Width", "Preview Height",
            "Preview Maximized", "Page Bottom", "Page Top", "Page Right", "Page Left", "Title", "Border" });
    const QList<QStringList> perSlot(
        { { "Title" }, { "Border" }, { "Left", "Top", "Width", "Height" }, { "Type" }, { "Order" } });
    for (const QStringList& names : perSlot) {
        for (int slot = 0; slot < kWindowsPerPage; ++slot) {
            for (const QString& name : names)
                expected.append(QStringLiteral("Pict%1%2").arg(slot).arg(name));
        }
    }
    expected.append({ "[connection]", "Connected" });
    for (int slot = 0; slot < kLanEntries; ++slot)
        expected.append(QStringLiteral("ipAddressLan%1").arg(slot));
    expected.append({ "ipAddressUsb0", "ipAddressSelected", "[Screen]", "ViewDescr", "ColBg", "ColFg", "ColMg", "ColTx",
        "PalNr", "[Window]", "Toolbar", "Statusbar", "AutoTile" });
    IniRead();
    IniWrite();
    EXPECT_EQ(Names(), expected);
}

TEST_F(AllSettings, WrittenDefaultsReadBackAsDefaults)
{
    IniRead();
    IniWrite();
    const QByteArray first = Text();
    IniRead();
    IniWrite();
    EXPECT_EQ(Text(), first);
}

TEST_F(AllSettings, PrintDefaults)
{
    IniRead();
    const PrintSettings& print = ThePrintSettings();
    EXPECT_EQ(print.PreviewWidth, 0);
    EXPECT_FALSE(print.PreviewMaximized);
    EXPECT_EQ(PresentPage().Margins.Left, 0);
    EXPECT_FALSE(print.Title);
    EXPECT_TRUE(print.Border);
    for (const PageSlot& slot : PresentPage().Layout) {
        EXPECT_TRUE(slot.Title);
        EXPECT_TRUE(slot.Outline);
        EXPECT_EQ(slot.Rectangle.Left, -1);
        EXPECT_EQ(slot.Rectangle.Height, -1);
        EXPECT_EQ(slot.Type, 0);
        EXPECT_EQ(slot.Order, 0);
    }
}

TEST_F(AllSettings, PrintValuesAreReadAndWritten)
{
    ReadFrom("[Print]\nPreview Width=9000.5\nPreview Height=7000\nPreview Maximized=1\nPage Bottom=0.25\n"
             "Page Top=0.5\nPage Right=0.75\nPage Left=1\nTitle=1\nBorder=0\nPict3Title=0\nPict3Border=0\n"
             "Pict3Left=-5\nPict3Top=2\nPict3Width=3.5\nPict3Height=4\nPict3Type=2\nPict3Order=70000\n");
    const PrintSettings& print = ThePrintSettings();
    EXPECT_EQ(print.PreviewWidth, 9000.5F);
    EXPECT_EQ(print.PreviewHeight, 7000);
    EXPECT_TRUE(print.PreviewMaximized);
    EXPECT_EQ(PresentPage().Margins.Bottom, 0.25F);
    EXPECT_EQ(PresentPage().Margins.Top, 0.5F);
    EXPECT_EQ(PresentPage().Margins.Right, 0.75F);
    EXPECT_EQ(PresentPage().Margins.Left, 1);
    EXPECT_TRUE(print.Title);
    EXPECT_FALSE(print.Border);
    const PageSlot& slot = PresentPage().Layout[3];
    EXPECT_FALSE(slot.Title);
    EXPECT_FALSE(slot.Outline);
    EXPECT_EQ(slot.Rectangle.Left, -1);
    EXPECT_EQ(slot.Rectangle.Top, 2);
    EXPECT_EQ(slot.Rectangle.Width, 3.5F);
    EXPECT_EQ(slot.Rectangle.Height, 4);
    EXPECT_EQ(slot.Type, 2);
    EXPECT_EQ(slot.Order, 70000);
    IniWrite();
    const QByteArray text = Text();
    EXPECT_TRUE(text.startsWith("[Print]\nPreview Width=9000.5\n"));
    EXPECT_TRUE(text.contains("Pict3Left=-1\nPict3Top=2\nPict3Width=3.5\nPict3Height=4\nPict3Type=2\n"));
    EXPECT_TRUE(text.contains("Pict3Order=70000\n"));
}

TEST_F(AllSettings, ScreenDefaults)
{
    IniRead();
    EXPECT_EQ(TheDescriptionDefaults().ViewDescr, 0);
    EXPECT_EQ(TheColorDefaults().Background, 0xFFFFFFU);
    EXPECT_EQ(TheColorDefaults().Foreground, 0U);
    EXPECT_EQ(TheColorDefaults().Marker, 0xFFFFFFU);
    EXPECT_EQ(TheColorDefaults().Text, 0U);
    EXPECT_EQ(TheColorDefaults().PalNr, PaletteNumber::Colour);
}

TEST_F(AllSettings, ScreenValuesAreReadAndWritten)
{
    const QByteArray screen("[Screen]\nViewDescr=1\nColBg=16777214\nColFg=1\nColMg=2\nColTx=3\nPalNr=1\n");
    ReadFrom(screen);
    EXPECT_EQ(TheDescriptionDefaults().ViewDescr, 1);
    EXPECT_EQ(TheColorDefaults().Background, 16777214U);
    EXPECT_EQ(TheColorDefaults().Foreground, 1U);
    EXPECT_EQ(TheColorDefaults().Marker, 2U);
    EXPECT_EQ(TheColorDefaults().Text, 3U);
    EXPECT_EQ(TheColorDefaults().PalNr, PaletteNumber::BlackAndWhite);
    IniWrite();
    EXPECT_TRUE(Text().startsWith(screen));
}

TEST_F(AllSettings, ColourBeyondWhiteIsTheDefaultOfItsKey)
{
    ReadFrom("[Screen]\nColBg=16777216\nColFg=16777216\n");
    EXPECT_EQ(TheColorDefaults().Background, 0xFFFFFFU);
    EXPECT_EQ(TheColorDefaults().Foreground, 0U);
}

TEST_F(AllSettings, MissingFolderIsReplacedByTheProgramFolder)
{
    ReadFrom("[File]\nPcPathMl=/gone\n");
    EXPECT_EQ(FileClasses().PcPaths[FileClassMemoryList], Program().AppPath);
    IniWrite();
    EXPECT_TRUE(Text().contains("PcPathMl=" + Program().AppPath.toUtf8() + "\n"));
}

} // namespace tarvik
