#include "print/page/printSettings.h"

#include "app/platform/processState.h"
#include "app/settings/ini.h"
#include "print/page/pageTable.h"

namespace tarvik {

namespace {

const QString kSection = QStringLiteral("Print");

QString SlotPrefix(size_t slot)
{
    return QStringLiteral("Pict%1").arg(slot);
}

float ReadLength(const QString& iniFile, const char* key)
{
    return IniReadSingle(iniFile, kSection, QLatin1String(key), 0);
}

PageSlot ReadSlot(const QString& iniFile, const QString& prefix)
{
    PageSlot slot;
    slot.Title = IniReadBool(iniFile, kSection, prefix + QStringLiteral("Title"), true);
    slot.Outline = IniReadBool(iniFile, kSection, prefix + QStringLiteral("Border"), true);
    slot.Rectangle = IniReadRect(iniFile, kSection, prefix);
    slot.Type = IniReadLong(iniFile, kSection, prefix + QStringLiteral("Type"), 0);
    slot.Order = IniReadLong(iniFile, kSection, prefix + QStringLiteral("Order"), 0);
    return slot;
}

} // namespace

PrintSettings& ThePrintSettings()
{
    static ProcessState<PrintSettings> settings;
    return settings.Get();
}

void PrintLoadSettings(const QString& iniFile)
{
    PrintSettings& settings = ThePrintSettings();
    PageRecord& page = PresentPage();
    settings.PreviewWidth = ReadLength(iniFile, "Preview Width");
    settings.PreviewHeight = ReadLength(iniFile, "Preview Height");
    settings.PreviewMaximized = IniReadBool(iniFile, kSection, QStringLiteral("Preview Maximized"), false);
    page.Margins.Bottom = ReadLength(iniFile, "Page Bottom");
    page.Margins.Top = ReadLength(iniFile, "Page Top");
    page.Margins.Right = ReadLength(iniFile, "Page Right");
    page.Margins.Left = ReadLength(iniFile, "Page Left");
    settings.Title = IniReadBool(iniFile, kSection, QStringLiteral("Title"), false);
    settings.Border = IniReadBool(iniFile, kSection, QStringLiteral("Border"), true);
    for (size_t slot = 0; slot < page.Layout.size(); ++slot)
        page.Layout[slot] = ReadSlot(iniFile, SlotPrefix(slot));
}

/// In the file the keys are ordered by kind, then by slot.
void PrintSaveSettings(const QString& iniFile)
{
    const PrintSettings& settings = ThePrintSettings();
    const PageRecord& page = PresentPage();
    const PageSlots& layout = page.Layout;
    const auto writeLength = [&iniFile](const char* key, float value) {
        IniWriteSingle(iniFile, kSection, QLatin1String(key), value);
    };
    writeLength("Preview Width", settings.PreviewWidth);
    writeLength("Preview Height", settings.PreviewHeight);
    IniWriteBool(iniFile, kSection, QStringLiteral("Preview Maximized"), settings.PreviewMaximized);
    writeLength("Page Bottom", page.Margins.Bottom);
    writeLength("Page Top", page.Margins.Top);
    writeLength("Page Right", page.Margins.Right);
    writeLength("Page Left", page.Margins.Left);
    IniWriteBool(iniFile, kSection, QStringLiteral("Title"), settings.Title);
    IniWriteBool(iniFile, kSection, QStringLiteral("Border"), settings.Border);
    for (size_t slot = 0; slot < layout.size(); ++slot)
        IniWriteBool(iniFile, kSection, SlotPrefix(slot) + QStringLiteral("Title"), layout[slot].Title);
    for (size_t slot = 0; slot < layout.size(); ++slot)
        IniWriteBool(iniFile, kSection, SlotPrefix(slot) + QStringLiteral("Border"), layout[slot].Outline);
    for (size_t slot = 0; slot < layout.size(); ++slot)
        IniWriteRect(iniFile, kSection, SlotPrefix(slot), layout[slot].Rectangle);
    for (size_t slot = 0; slot < layout.size(); ++slot)
        IniWriteLong(iniFile, kSection, SlotPrefix(slot) + QStringLiteral("Type"), layout[slot].Type);
    for (size_t slot = 0; slot < layout.size(); ++slot)
        IniWriteLong(iniFile, kSection, SlotPrefix(slot) + QStringLiteral("Order"), layout[slot].Order);
}

} // namespace tarvik
