#include "closed/loader.h"

#include <QFile>
#include <QFileInfo>
#include <QLibrary>
#include <QStringList>

#include <cstring>
#if defined(Q_OS_LINUX)
#include <link.h>
#endif

namespace tarvik {

namespace {

constexpr int kModuleCount = 6;

struct ModuleTables {
    TvGenApi Gen{};
    TvLngApi Lng{};
    TvScpiApi Scpi{};
    TvFioApi Fio{};
    TvSwpApi Swp{};
    TvImgApi Img{};
    std::array<bool, kModuleCount> Bound{};
};

ModuleTables& Tables()
{
    static ModuleTables tables;
    return tables;
}

constexpr std::array<const char*, kModuleCount> kBaseNames{ "tvgen", "tvlng", "tvscpi", "tvfio", "tvswp", "tvimg" };

QString ModuleSuffix()
{
#if defined(Q_OS_WIN)
    return QStringLiteral(".dll");
#elif defined(Q_OS_MACOS)
    return QStringLiteral(".dylib");
#else
    return QStringLiteral(".so");
#endif
}

using BindEntry = int16_t (*)(void* api);
using Operation = void (*)();

/// A table is its size followed by a row of function pointers. One that an older module does not know stays null.
template <typename Api>
bool HoldsEveryOperation(const Api& table)
{
    for (size_t at = sizeof(Operation); at < sizeof(Api); at += sizeof(Operation)) {
        Operation operation = nullptr;
        std::memcpy(&operation, reinterpret_cast<const char*>(&table) + at, sizeof operation);
        if (operation == nullptr)
            return false;
    }
    return true;
}

/// Binds into a fresh table and adopts it only if every operation is set.
template <typename Api>
bool BindTable(BindEntry entry, Api& target)
{
    Api fresh{};
    fresh.Size = sizeof(Api);
    if (entry(&fresh) != 0 || !HoldsEveryOperation(fresh))
        return false;
    target = fresh;
    return true;
}

bool BindModule(Module module, BindEntry entry)
{
    ModuleTables& tables = Tables();
    switch (module) {
    case Module::General:
        return BindTable(entry, tables.Gen);
    case Module::Language:
        return BindTable(entry, tables.Lng);
    case Module::Channel:
        return BindTable(entry, tables.Scpi);
    case Module::ListStore:
        return BindTable(entry, tables.Fio);
    case Module::Traces:
        return BindTable(entry, tables.Swp);
    case Module::Pictures:
        return BindTable(entry, tables.Img);
    }
    return false;
}

/// True for a truncated library, as an interrupted copy leaves it: the dynamic loader trusts the sizes in the header
/// and would touch pages that do not exist.
bool IsTruncatedLibrary([[maybe_unused]] const QString& path)
{
#if defined(Q_OS_LINUX)
    QFile file(path);
    ElfW(Ehdr) head{};
    if (!file.open(QIODevice::ReadOnly) || file.read(reinterpret_cast<char*>(&head), sizeof head) != sizeof head)
        return false; // the loader says why
    // The section header table is the last thing in the file.
    return std::memcmp(head.e_ident, ELFMAG, SELFMAG) == 0
        && head.e_shoff + quint64{ head.e_shnum } * head.e_shentsize > static_cast<quint64>(file.size());
#else
    return false;
#endif
}

/// The magic of every version record, assembled at run time so that this file does not contain it as a literal.
QByteArray VersionMagic()
{
    QByteArray magic("Tv-Version");
    magic.append("-Mark");
    magic.append('\x01');
    return magic;
}

QString VersionText(const uint16_t (&parts)[4])
{
    QStringList texts;
    for (const uint16_t part : parts)
        texts.append(QString::number(part));
    return texts.join(u'.');
}

} // namespace

QString ModuleFileName(Module module)
{
    return QString::fromLatin1(kBaseNames[static_cast<size_t>(module)]) + ModuleSuffix();
}

ModuleLoadResult ModuleLoad(Module module, const QString& folder)
{
    const QString path = folder + ModuleFileName(module);
    if (!QFileInfo(path).isFile())
        return { QStringLiteral("%1: there is no such file").arg(path) };
    if (IsTruncatedLibrary(path))
        return { QStringLiteral("%1: the file is incomplete").arg(path) };

    // The bound operations point into the library: it stays mapped after QLibrary goes out of scope.
    QLibrary library(path);
    library.setLoadHints(QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
    if (!library.load())
        return { library.errorString() };
    ModuleLoadResult result;
    const auto entry = reinterpret_cast<BindEntry>(library.resolve("VbLoad"));
    if (entry == nullptr)
        result.Reason = QStringLiteral("%1: the library has no entry point VbLoad").arg(path);
    else if (!BindModule(module, entry))
        result.Reason = QStringLiteral("%1: the library is of another version").arg(path);
    else
        ModuleMarkBound(module);
    library.unload();
    return result;
}

bool ModuleIsBound(Module module)
{
    return Tables().Bound[static_cast<size_t>(module)];
}

void ModuleMarkBound(Module module)
{
    Tables().Bound[static_cast<size_t>(module)] = true;
}

TvGenApi& TvGen()
{
    return Tables().Gen;
}

TvLngApi& TvLng()
{
    return Tables().Lng;
}

TvScpiApi& TvScpi()
{
    return Tables().Scpi;
}

TvFioApi& TvFio()
{
    return Tables().Fio;
}

TvSwpApi& TvSwp()
{
    return Tables().Swp;
}

TvImgApi& TvImg()
{
    return Tables().Img;
}

void ModulesReset()
{
    Tables() = {};
}

std::optional<FileVersion> ReadFileVersion(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray bytes = file.readAll();
    const qsizetype at = bytes.indexOf(VersionMagic());
    if (at < 0 || bytes.size() - at < static_cast<qsizetype>(sizeof(TvVersionRecord)))
        return std::nullopt;
    TvVersionRecord record;
    std::memcpy(&record, bytes.constData() + at, sizeof record);
    return FileVersion{ VersionText(record.FileVersion), VersionText(record.ProductVersion) };
}

} // namespace tarvik
