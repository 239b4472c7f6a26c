#include "link/channel/channel.h"

#include "app/platform/paths.h"
#include "app/state/linkState.h"
#include "app/text/ansi.h"
#include "closed/loader.h"
#include "link/classes/model.h"

#include <array>

namespace tarvik {

namespace {

/// What the channel writes if it writes nothing: a caller sees a failure.
constexpr ChannelStatus kPreset = 1;
constexpr qint16 kConnectMode = 1;

struct FileOperations {
    decltype(TvScpiApi::scpiStartFindAllFiles) StartFind;
    decltype(TvScpiApi::scpiGetFile) Get;
    decltype(TvScpiApi::scpiPutFile) Put;
    decltype(TvScpiApi::scpiRemoveFile) Remove;
    decltype(TvScpiApi::scpiFindFile) Find;
    int TimeoutMs;
};

FileOperations OperationsOf(int fileClass)
{
    const TvScpiApi& scpi = TvScpi();
    FileOperations of{ scpi.scpiStartFindAllFiles, scpi.scpiGetFile, scpi.scpiPutFile, scpi.scpiRemoveFile,
        scpi.scpiFindFile, kListTimeoutMs };
    switch (fileClass) {
    case FileClassAntennaList:
        of.StartFind = scpi.scpiStartFindAntennaListFiles;
        of.Get = scpi.scpiGetAntennaListFile;
        of.Put = scpi.scpiPutAntennaListFile;
        break;
    case FileClassKfactorTable:
        return { scpi.scpiStartFindKfactorTableFiles, scpi.scpiGetKfactorTableFile, scpi.scpiPutKfactorTableFile,
            scpi.scpiRemoveKfactorTableFile, scpi.scpiFindInKfactorTableFiles, kListTimeoutMs };
    case FileClassMemoryList:
        of.StartFind = scpi.scpiStartFindMemoryListFiles;
        of.Get = scpi.scpiGetMemoryListFile;
        of.Put = scpi.scpiPutMemoryListFile;
        break;
    case FileClassSuppressList:
        of.StartFind = scpi.scpiStartFindSuppressListFiles;
        of.Get = scpi.scpiGetSuppressListFile;
        of.Put = scpi.scpiPutSuppressListFile;
        break;
    case FileClassCorrectionSet:
        return { scpi.scpiStartFindCorrectionSetFiles, scpi.scpiGetCorrectionSetFile, scpi.scpiPutCorrectionSetFile,
            scpi.scpiRemoveCorrectionSetFile, scpi.scpiFindInCorrectionSetFiles, kListTimeoutMs };
    default:
        of.TimeoutMs = kFileTimeoutMs;
        break;
    }
    return of;
}

/// Runs an operation on remote names, or refuses one that can't be told to the instrument.
template <typename Call, typename... Names>
ChannelStatus WithNames(Call call, const Names&... names)
{
    if ((!IsAnsi(names) || ...))
        return kChannelRefused;
    ChannelStatus err = kPreset;
    call(&err, ToAnsi(names).constData()...);
    return err;
}

} // namespace

bool ChannelIsUp()
{
    return LinkIsUp();
}

ChannelStatus ChannelConnect(const QString& address, int port, QString& identification)
{
    std::array<char, TVSCPI_TEXT_SIZE> reply{};
    ChannelStatus err = kPreset;
    TvScpi().scpiConnect(&err, kConnectMode, ToAnsi(address).constData(), static_cast<qint16>(port), kConnectTimeoutMs,
        reply.data(), static_cast<int32_t>(reply.size()));
    identification = FromAnsi(reply.data());
    return err;
}

void ChannelDisconnect()
{
    TvScpi().scpiDisconnect();
}

bool ChannelEndIfGone()
{
    constexpr qint16 kGone = 1;
    if (TvScpi().scpiCheckConnection() != kGone)
        return false;
    TvScpi().scpiDisconnect();
    return true;
}

QString ChannelQuoted(const QString& name)
{
    return u'"' + QString(name).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

ChannelStatus ChannelSend(const QString& text)
{
    return WithNames(TvScpi().scpiSend, text);
}

ChannelStatus ChannelSendCommand(const QString& text)
{
    return WithNames(TvScpi().scpiSendCommand, text);
}

ChannelStatus ChannelGetDirectory(QString& path)
{
    std::array<char, TVSCPI_TEXT_SIZE> text{};
    ChannelStatus err = kPreset;
    TvScpi().scpiGetCurrentDirectory(&err, text.data(), static_cast<int32_t>(text.size()));
    path = FromAnsi(text.data());
    return err;
}

ChannelStatus ChannelSetDirectory(const QString& path)
{
    return WithNames(TvScpi().scpiSetCurrentDirectory, path);
}

ChannelStatus ChannelCreateDirectory(const QString& name)
{
    return WithNames(TvScpi().scpiCreateDirectory, name);
}

ChannelStatus ChannelRemoveDirectory(const QString& name)
{
    return WithNames(TvScpi().scpiRemoveDirectory, name);
}

ChannelStatus ChannelRename(const QString& oldName, const QString& newName)
{
    return WithNames(TvScpi().scpiRename, oldName, newName);
}

ChannelStatus ChannelStartFind(int fileClass, bool& nothing)
{
    ChannelStatus err = kPreset;
    int16_t status = 0;
    int64_t used = 0;
    int64_t free = 0;
    OperationsOf(fileClass).StartFind(&err, &status, &used, &free);
    nothing = status != 0;
    return err;
}

ChannelStatus ChannelNextFile(ChannelRow& row)
{
    std::array<char, TVSCPI_TEXT_SIZE> name{};
    ChannelStatus err = kPreset;
    int16_t last = 0;
    TvScpi().scpiGetNextFile(&err, &row.Type, &last, &row.Year, &row.Month, &row.Day, &row.Hour, &row.Minute,
        &row.Second, name.data(), static_cast<int32_t>(name.size()));
    row.Name = FromAnsi(name.data());
    row.Last = last != 0;
    return err;
}

ChannelStatus ChannelFind(int fileClass, const QString& name, ChannelFound& found)
{
    return WithNames([&](int16_t* err,
                         const char* remote) { found.Result = OperationsOf(fileClass).Find(err, remote, &found.Type); },
        name);
}

ChannelStatus ChannelGet(int fileClass, const QString& remote, const QString& local)
{
    const FileOperations of = OperationsOf(fileClass);
    return WithNames(
        [&](int16_t* err, const char* name) { of.Get(err, name, ModulePath(local).constData(), of.TimeoutMs); },
        remote);
}

ChannelStatus ChannelPut(int fileClass, const QString& local, const QString& remote, bool replaces)
{
    const FileOperations of = OperationsOf(fileClass);
    const bool isShort = fileClass == FileClassCorrectionSet && replaces;
    return WithNames(
        [&](int16_t* err, const char* name) {
            of.Put(err, ModulePath(local).constData(), name, isShort ? kFileTimeoutMs : of.TimeoutMs);
        },
        remote);
}

ChannelStatus ChannelGetActive(const QString& local)
{
    ChannelStatus err = kPreset;
    TvScpi().scpiGetActiveDatasetFile(&err, ModulePath(local).constData(), kListTimeoutMs);
    return err;
}

ChannelStatus ChannelPutActive(const QString& local)
{
    ChannelStatus err = kPreset;
    TvScpi().scpiPutActiveDatasetFile(&err, ModulePath(local).constData(), kPutActiveTimeoutMs);
    return err;
}

ChannelStatus ChannelRemove(int fileClass, const QString& name)
{
    return WithNames(OperationsOf(fileClass).Remove, name);
}

ChannelStatus ChannelGetStream(const QString& local)
{
    ChannelStatus err = kPreset;
    TvScpi().scpiGetFileFromStream(&err, ModulePath(local).constData(), kStreamTimeoutMs);
    return err;
}

} // namespace tarvik
