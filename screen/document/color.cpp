#include "screen/document/color.h"

#include "app/settings/ini.h"

namespace tarvik {

namespace {

const QString kSection = QStringLiteral("Screen");
constexpr quint32 kWhite = 0xFFFFFF;

bool IsColourIndex(int index)
{
    return index >= 0 && index < kColours;
}

quint32& DefaultOf(int index)
{
    ColorDefaults& defaults = TheColorDefaults();
    switch (index) {
    case ColourBackground:
        return defaults.Background;
    case ColourForeground:
        return defaults.Foreground;
    case ColourMarker:
        return defaults.Marker;
    default:
        return defaults.Text;
    }
}

void StoreOne(quint32 colour, WindowId id, int index)
{
    if (ScreenRecord* record = ScreenOf(id))
        record->Colours[static_cast<size_t>(index)] = colour;
    DefaultOf(index) = colour;
}

quint32 Paper(PaletteNumber palette, quint32 background)
{
    return palette == PaletteNumber::Colour ? background : kWhite;
}

} // namespace

void ColorLoadSettings(const QString& iniFile)
{
    constexpr ColorDefaults kFresh;
    TheColorDefaults() = { IniReadColour(iniFile, kSection, QStringLiteral("ColBg"), kFresh.Background),
        IniReadColour(iniFile, kSection, QStringLiteral("ColFg"), kFresh.Foreground),
        IniReadColour(iniFile, kSection, QStringLiteral("ColMg"), kFresh.Marker),
        IniReadColour(iniFile, kSection, QStringLiteral("ColTx"), kFresh.Text),
        static_cast<PaletteNumber>(
            IniReadInt(iniFile, kSection, QStringLiteral("PalNr"), static_cast<qint16>(kFresh.PalNr))) };
}

void ColorSaveSettings(const QString& iniFile)
{
    const ColorDefaults& defaults = TheColorDefaults();
    IniWriteColour(iniFile, kSection, QStringLiteral("ColBg"), defaults.Background);
    IniWriteColour(iniFile, kSection, QStringLiteral("ColFg"), defaults.Foreground);
    IniWriteColour(iniFile, kSection, QStringLiteral("ColMg"), defaults.Marker);
    IniWriteColour(iniFile, kSection, QStringLiteral("ColTx"), defaults.Text);
    IniWriteInt(iniFile, kSection, QStringLiteral("PalNr"), static_cast<qint16>(defaults.PalNr));
}

quint32 ColorGet(WindowId id, int index)
{
    const ScreenRecord* record = ScreenOf(id);
    return record == nullptr || !IsColourIndex(index) ? 0 : record->Colours[static_cast<size_t>(index)];
}

void ColorStore(quint32 colour, WindowId id, int index)
{
    if (!IsColourIndex(index))
        return;
    StoreOne(colour, id, index);
    if (index == ColourForeground)
        StoreOne(colour, id, ColourText);
}

void PaletteStore(PaletteNumber number, WindowId id)
{
    if (DocumentPicture* picture = PictureOf(id))
        picture->PalNr = number;
    TheColorDefaults().PalNr = number;
}

PaletteNumber PaletteOf(WindowId id)
{
    const DocumentPicture* picture = PictureOf(id);
    return picture == nullptr ? PaletteNumber::Colour : picture->PalNr;
}

quint32 PaperColor(WindowId id)
{
    const bool isDiagram = WindowTypeOf(id) == WindowType::DataSet;
    return Paper(PaletteOf(id), isDiagram ? kDiagramBackground : ColorGet(id, ColourBackground));
}

quint32 TextColor(WindowId id)
{
    return ColorGet(id, ColourText);
}

quint32 PaperOfNewDocument()
{
    return Paper(TheColorDefaults().PalNr, TheColorDefaults().Background);
}

QColor ColorOf(quint32 colour)
{
    return { static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
        static_cast<int>(colour >> 16 & 0xFF) };
}

} // namespace tarvik
