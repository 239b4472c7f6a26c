#include "app/about/info.h"

#include "app/help/helpFile.h"
#include "app/platform/seams.h"
#include "app/state/project.h"
#include "app/text/ansi.h"
#include "app/text/lang.h"
#include "app/text/textId.h"

#include <array>

namespace tarvik {

namespace {

InfoRow RowOf(const QString& name, const std::optional<FileVersion>& version)
{
    if (!version)
        return { name, LngStr(TextId::NoVersion), LngStr(TextId::NoVersion) };
    return { name, version->File, version->Product };
}

InfoRow ModuleRow(Module module)
{
    const QString name = ModuleFileName(module);
    return RowOf(name, ReadFileVersion(Program().AppPath + name));
}

std::optional<FileVersion> FirmwareVersion()
{
    if (!ModuleIsBound(Module::ListStore))
        return std::nullopt;
    int16_t status = 0;
    std::array<char, TVFIO_TEXT_SIZE> text{};
    TvFio().GetTvFwVersion(&status, text.data(), static_cast<int32_t>(text.size()));
    if (status != 0)
        return std::nullopt;
    const QString version = FromAnsi(text.data());
    return FileVersion{ version, version };
}

} // namespace

std::vector<InfoRow> InfoRows()
{
    std::vector<InfoRow> rows{ RowOf(QStringLiteral("TARVIK.EXE"), ReadFileVersion(TheSeams().ExecutablePath())),
        RowOf(QStringLiteral("TARVIK.CHM"), ReadHelpVersion(Program().HelpFilePath)) };
    for (const Module module :
        { Module::General, Module::Pictures, Module::Language, Module::Traces, Module::Channel, Module::ListStore })
        rows.push_back(ModuleRow(module));
    rows.push_back(RowOf(ModuleFileName(Module::ListStore) + QStringLiteral(" fw"), FirmwareVersion()));
    return rows;
}

QString InfoText()
{
    QString text;
    for (const InfoRow& row : InfoRows())
        text += row.Name + u'\t' + row.FileVersion + u'\t' + row.ProductVersion + QStringLiteral("\r\n");
    return text;
}

QString AboutVersionText(const QString& preRelease)
{
    const QString version = LngStr1(TextId::VersionLine, ProductVersionNumbers());
    return preRelease.isEmpty() ? version : version + u' ' + preRelease;
}

} // namespace tarvik
