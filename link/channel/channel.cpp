#include "link/channel/channel.h"

#include "app/platform/paths.h"
#include "app/state/linkState.h"
#include "app/text/ansi.h"
#include "closed/loader.h"

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

/// Runs a call of the channel. One that does not write the status word has failed.
template <typename Call>
ChannelStatus StatusOf(Call call)
{
    auto word = static_cast<int16_t>(ChannelStatus::LinkFailed);
    call(&word);
    return ChannelStatusOf(word);
}

constexpr qint16 kConnectMode = 1;

struct FileOperations {
    decltype(TvScpiApi::scpiStartFindAllFiles) StartFind;
    decltype(TvScpiApi::scpiGetFile) Get;
    decltype(TvScpiApi::scpiPutFile) Put;
    decltype(TvScpiApi::scpiRemoveFile) Remove;
    decltype(TvScpiApi::scpiFindFile) Find;
    int TimeoutMs;
};

FileOperations OperationsOf(FileClass fileClass)
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

/// Runs an operation on remote names; refuses names that Windows-1252 can't hold.
template <typename Call, typename... Names>
ChannelStatus WithNames(Call call, const Names&... names)
{
    if ((!IsAnsi(names) || ...))
        return ChannelStatus::Refused;
    return StatusOf([&](int16_t* err) { call(err, ToAnsi(names).constData()...); });
}

/// `word` as an enumerator from 0 to `last`, else `other`.
template <typename Enumeration>
Enumeration Checked(qint16 word, Enumeration last, Enumeration other)
{
    return word >= 0 && word <= static_cast<qint16>(last) ? static_cast<Enumeration>(word) : other;
}

} // namespace

ChannelStatus ChannelStatusOf(qint16 word)
{
    return Checked(word, ChannelStatus::LocalFile, ChannelStatus::Unknown);
}

ChannelRowType ChannelRowTypeOf(qint16 word)
{
    return Checked(word, ChannelRowType::Folder, ChannelRowType::Other);
}

ChannelPresence ChannelPresenceOf(qint16 word)
{
    return Checked(word, ChannelPresence::Exists, ChannelPresence::Unknown);
}

bool ChannelIsUp()
{
    return LinkIsUp();
}

ChannelStatus ChannelConnect(const QString& address, int port, QString& identification)
{
    std::array<char, TVSCPI_TEXT_SIZE> reply{};
    const ChannelStatus err = StatusOf([&](int16_t* word) {
        TvScpi().scpiConnect(word, kConnectMode, ToAnsi(address).constData(), static_cast<qint16>(port),
            kConnectTimeoutMs, reply.data(), static_cast<int32_t>(reply.size()));
    });
    identification = FromAnsi(reply.data());
    return err;
}

void ChannelDisconnect()
{
    TvScpi().scpiDisconnect();
}

bool ChannelDisconnectIfLost()
{
    constexpr qint16 kLost = 1;
    if (TvScpi().scpiCheckConnection() != kLost)
        return false;
    TvScpi().scpiDisconnect();
    return true;
}

bool ChannelIsName(const QString& name)
{
    const bool isPlain = std::all_of(name.begin(), name.end(), [](QChar character) {
        return character.category() != QChar::Other_Control && !QStringLiteral("\\/:").contains(character);
    });
    const bool isFolderStep = name == QLatin1String(".") || name == QLatin1String("..");
    return isPlain && IsAnsi(name) && !isFolderStep && !name.isEmpty() && name.size() <= TVSCPI_MAX_NAME;
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
    const ChannelStatus err = StatusOf([&text](int16_t* word) {
        TvScpi().scpiGetCurrentDirectory(word, text.data(), static_cast<int32_t>(text.size()));
    });
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

ChannelStatus ChannelStartFind(FileClass fileClass, bool& nothing)
{
    int16_t status = 0;
    int64_t used = 0;
    int64_t free = 0;
    const ChannelStatus err =
        StatusOf([&](int16_t* word) { OperationsOf(fileClass).StartFind(word, &status, &used, &free); });
    nothing = status != 0;
    return err;
}

ChannelStatus ChannelNextFile(ChannelRow& row)
{
    std::array<char, TVSCPI_TEXT_SIZE> name{};
    auto type = static_cast<int16_t>(row.Type);
    int16_t last = 0;
    const ChannelStatus err = StatusOf([&](int16_t* word) {
        TvScpi().scpiGetNextFile(word, &type, &last, &row.Year, &row.Month, &row.Day, &row.Hour, &row.Minute,
            &row.Second, name.data(), static_cast<int32_t>(name.size()));
    });
    row.Name = FromAnsi(name.data());
    row.Type = ChannelRowTypeOf(type);
    row.Last = last != 0;
    return err;
}

QDateTime ChannelRowTime(const ChannelRow& row)
{
    return { QDate(row.Year, row.Month, row.Day), QTime(row.Hour, row.Minute, row.Second), Qt::UTC };
}

ChannelStatus ChannelWalk(FileClass fileClass, std::vector<ChannelRow>& rows)
{
    bool nothing = false;
    ChannelStatus err = ChannelStartFind(fileClass, nothing);
    bool isLast = nothing;
    while (err == ChannelStatus::Success && !isLast) {
        ChannelRow row;
        err = ChannelNextFile(row);
        isLast = row.Last;
        if (err == ChannelStatus::Success)
            rows.push_back(std::move(row));
    }
    return err;
}

ChannelStatus ChannelFind(FileClass fileClass, const QString& name, ChannelFound& found)
{
    const auto find = [&](int16_t* err, const char* remote) {
        auto type = static_cast<int16_t>(found.Type);
        found.Result = ChannelPresenceOf(OperationsOf(fileClass).Find(err, remote, &type));
        found.Type = ChannelRowTypeOf(type);
    };
    return WithNames(find, name);
}

ChannelStatus ChannelGet(FileClass fileClass, const QString& remote, const QString& local)
{
    const FileOperations of = OperationsOf(fileClass);
    return WithNames(
        [&](int16_t* err, const char* name) { of.Get(err, name, ModulePath(local).constData(), of.TimeoutMs); },
        remote);
}

ChannelStatus ChannelPut(FileClass fileClass, const QString& local, const QString& remote, bool replaces)
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
    return StatusOf([&local](int16_t* err) {
        TvScpi().scpiGetActiveDatasetFile(err, ModulePath(local).constData(), kListTimeoutMs);
    });
}

ChannelStatus ChannelPutActive(const QString& local)
{
    return StatusOf([&local](int16_t* err) {
        TvScpi().scpiPutActiveDatasetFile(err, ModulePath(local).constData(), kPutActiveTimeoutMs);
    });
}

ChannelStatus ChannelRemove(FileClass fileClass, const QString& name)
{
    return WithNames(OperationsOf(fileClass).Remove, name);
}

ChannelStatus ChannelGetStream(const QString& local)
{
    return StatusOf([&local](int16_t* err) {
        TvScpi().scpiGetFileFromStream(err, ModulePath(local).constData(), kStreamTimeoutMs);
    });
}

} // namespace tarvik
