#include "tests/support/fakeChannel.h"

#include "app/text/ansi.h"
#include "closed/loader.h"

#include <QFile>

#include <algorithm>
#include <cstring>

namespace tarvik {

namespace {

FakeChannel* current = nullptr;

void Put(char* out, int32_t size, const QString& text)
{
    const QByteArray bytes = ToAnsi(text).left(size - 1);
    std::memcpy(out, bytes.constData(), static_cast<size_t>(bytes.size()) + 1);
}

QString Text(const char* bytes)
{
    return FromAnsi(bytes);
}

QString Path(const char* bytes)
{
    return QString::fromUtf8(bytes);
}

int16_t WordOf(ChannelStatus status)
{
    return static_cast<int16_t>(status);
}

ChannelStatus Fetch(const QString& operation, const QStringList& arguments, const char* local)
{
    const ChannelStatus status = current->Take(operation, arguments);
    QFile file(Path(local));
    if (status == ChannelStatus::Success && file.open(QIODevice::WriteOnly))
        file.write(current->Contents);
    return status;
}

int16_t Find(const QString& operation, int16_t* err, const char* name, int16_t* type)
{
    *err = WordOf(current->Take(operation, { Text(name) }));
    const auto found = current->Exists.find(Text(name));
    const ChannelFound answer = found == current->Exists.end() ? ChannelFound() : found->second;
    *type = static_cast<int16_t>(answer.Type);
    return static_cast<int16_t>(answer.Result);
}

} // namespace

struct FakeChannelCalls {
    static void StartFind(const QString& operation, int16_t* err, int16_t* status)
    {
        *err = WordOf(current->Take(operation, {}));
        *status = current->NothingToWalk || current->Rows.empty() ? 1 : 0;
        current->nextRow_ = 0;
    }

    static void NextFile(int16_t* err, int16_t* type, int16_t* last, int16_t* year, int16_t* month, int16_t* day,
        int16_t* hour, int16_t* minute, int16_t* second, char* name, int32_t nameSize)
    {
        *err = WordOf(current->Take(QStringLiteral("GetNextFile"), {}));
        if (*err != WordOf(ChannelStatus::Success) || current->nextRow_ >= current->Rows.size())
            return;
        const ChannelRow& row = current->Rows[current->nextRow_++];
        *type = static_cast<int16_t>(row.Type);
        *last = current->nextRow_ == current->Rows.size() ? 1 : 0;
        *year = row.Year;
        *month = row.Month;
        *day = row.Day;
        *hour = row.Hour;
        *minute = row.Minute;
        *second = row.Second;
        Put(name, nameSize, row.Name);
    }

    static void BindLink(TvScpiApi& api);
    static void BindFolders(TvScpiApi& api);
    static void BindWalks(TvScpiApi& api);
    static void BindFiles(TvScpiApi& api);
};

void FakeChannelCalls::BindLink(TvScpiApi& api)
{
    api.scpiConnect = [](int16_t* err, int16_t mode, const char* host, int16_t port, int32_t timeoutMs, char* reply,
                          int32_t replySize) {
        *err = WordOf(current->Take(QStringLiteral("Connect"),
            { QString::number(mode), Text(host), QString::number(port), QString::number(timeoutMs) }));
        current->Connected = *err == WordOf(ChannelStatus::Success);
        Put(reply, replySize, *err == WordOf(ChannelStatus::Success) ? current->Identification : QString());
    };
    api.scpiDisconnect = [] {
        (void)current->Take(QStringLiteral("Disconnect"), {});
        current->Connected = false;
        current->Gone = false;
    };
    api.scpiGetConnected = [] { return int16_t(current->Connected ? 0 : 1); };
    api.scpiCheckConnection = [] {
        (void)current->Take(QStringLiteral("CheckConnection"), {});
        return int16_t(current->Gone ? 1 : 0);
    };
    api.scpiSend = [](int16_t* err, const char* text) {
        *err = WordOf(current->Take(QStringLiteral("Send"), { Text(text) }));
    };
    api.scpiSendCommand = [](int16_t* err, const char* text) {
        *err = WordOf(current->Take(QStringLiteral("SendCommand"), { Text(text) }));
    };
}

void FakeChannelCalls::BindFolders(TvScpiApi& api)
{
    api.scpiGetCurrentDirectory = [](int16_t* err, char* path, int32_t size) {
        *err = WordOf(current->Take(QStringLiteral("GetCurrentDirectory"), {}));
        Put(path, size, *err == WordOf(ChannelStatus::Success) ? current->Directory : QString());
    };
    api.scpiSetCurrentDirectory = [](int16_t* err, const char* path) {
        *err = WordOf(current->Take(QStringLiteral("SetCurrentDirectory"), { Text(path) }));
        if (*err != WordOf(ChannelStatus::Success))
            return;
        const bool isAbsolute = Text(path).startsWith(u'\\');
        const bool atRoot = current->Directory.endsWith(u'\\');
        current->Directory =
            isAbsolute ? Text(path) : current->Directory + (atRoot ? QString() : QStringLiteral("\\")) + Text(path);
    };
    api.scpiCreateDirectory = [](int16_t* err, const char* name) {
        *err = WordOf(current->Take(QStringLiteral("CreateDirectory"), { Text(name) }));
    };
    api.scpiRemoveDirectory = [](int16_t* err, const char* name) {
        *err = WordOf(current->Take(QStringLiteral("RemoveDirectory"), { Text(name) }));
    };
}

#define FAKE_START_FIND(operation)                                                                                     \
    api.scpi##operation = [](int16_t* err, int16_t* status, int64_t*, int64_t*) {                                      \
        FakeChannelCalls::StartFind(QStringLiteral(#operation), err, status);                                          \
    }

void FakeChannelCalls::BindWalks(TvScpiApi& api)
{
    FAKE_START_FIND(StartFindAllFiles);
    FAKE_START_FIND(StartFindAntennaListFiles);
    FAKE_START_FIND(StartFindKfactorTableFiles);
    FAKE_START_FIND(StartFindMemoryListFiles);
    FAKE_START_FIND(StartFindSuppressListFiles);
    FAKE_START_FIND(StartFindCorrectionSetFiles);
    api.scpiGetNextFile = NextFile;
}

#define FAKE_GET(operation)                                                                                            \
    api.scpi##operation = [](int16_t* err, const char* remote, const char* local, int32_t timeoutMs) {                 \
        *err = WordOf(                                                                                                 \
            Fetch(QStringLiteral(#operation), { Text(remote), Path(local), QString::number(timeoutMs) }, local));      \
    }
#define FAKE_PUT(operation)                                                                                            \
    api.scpi##operation = [](int16_t* err, const char* local, const char* remote, int32_t timeoutMs) {                 \
        *err = WordOf(                                                                                                 \
            current->Take(QStringLiteral(#operation), { Path(local), Text(remote), QString::number(timeoutMs) }));     \
    }
#define FAKE_REMOVE(operation)                                                                                         \
    api.scpi##operation = [](int16_t* err, const char* name) {                                                         \
        *err = WordOf(current->Take(QStringLiteral(#operation), { Text(name) }));                                      \
    }
#define FAKE_FIND(operation)                                                                                           \
    api.scpi##operation = [](int16_t* err, const char* name, int16_t* type) {                                          \
        return Find(QStringLiteral(#operation), err, name, type);                                                      \
    }
#define FAKE_LOCAL(operation, carryOut)                                                                                \
    api.scpi##operation = [](int16_t* err, const char* local, int32_t timeoutMs) {                                     \
        *err = WordOf(carryOut(QStringLiteral(#operation), { Path(local), QString::number(timeoutMs) }, local));       \
    }

namespace {

ChannelStatus TakeLocal(const QString& operation, const QStringList& arguments, const char* /*local*/)
{
    return current->Take(operation, arguments);
}

} // namespace

void FakeChannelCalls::BindFiles(TvScpiApi& api)
{
    FAKE_GET(GetFile);
    FAKE_GET(GetAntennaListFile);
    FAKE_GET(GetKfactorTableFile);
    FAKE_GET(GetMemoryListFile);
    FAKE_GET(GetSuppressListFile);
    FAKE_GET(GetCorrectionSetFile);
    FAKE_LOCAL(GetActiveDatasetFile, Fetch);
    FAKE_LOCAL(GetFileFromStream, Fetch);
    FAKE_PUT(PutFile);
    FAKE_PUT(PutAntennaListFile);
    FAKE_PUT(PutKfactorTableFile);
    FAKE_PUT(PutMemoryListFile);
    FAKE_PUT(PutSuppressListFile);
    FAKE_PUT(PutCorrectionSetFile);
    FAKE_LOCAL(PutActiveDatasetFile, TakeLocal);
    FAKE_REMOVE(RemoveFile);
    FAKE_REMOVE(RemoveKfactorTableFile);
    FAKE_REMOVE(RemoveCorrectionSetFile);
    api.scpiRename = [](int16_t* err, const char* oldName, const char* newName) {
        *err = WordOf(current->Take(QStringLiteral("Rename"), { Text(oldName), Text(newName) }));
    };
    FAKE_FIND(FindFile);
    FAKE_FIND(FindInKfactorTableFiles);
    FAKE_FIND(FindInCorrectionSetFiles);
}

FakeChannel::FakeChannel()
{
    current = this;
    FakeChannelCalls::BindLink(TvScpi());
    FakeChannelCalls::BindFolders(TvScpi());
    FakeChannelCalls::BindWalks(TvScpi());
    FakeChannelCalls::BindFiles(TvScpi());
    ModuleMarkBound(Module::Channel);
}

FakeChannel::~FakeChannel()
{
    TvScpi() = {};
    TvScpi().Size = sizeof(TvScpiApi);
    TvScpiBind(&TvScpi());
    current = nullptr;
}

void FakeChannel::Answer(const QString& operation, ChannelStatus status)
{
    answers_[operation].push_back(status);
}

int FakeChannel::Count(const QString& operation) const
{
    return static_cast<int>(
        std::count_if(Log.begin(), Log.end(), [&](const QString& call) { return call.startsWith(operation); }));
}

ChannelStatus FakeChannel::Take(const QString& operation, const QStringList& arguments)
{
    const QString call = (QStringList(operation) + arguments).join(u' ');
    OnCall(call);
    Log.append(call);
    std::vector<ChannelStatus>& prepared = answers_[operation];
    if (prepared.empty())
        return ChannelStatus::Success;
    const ChannelStatus status = prepared.front();
    prepared.erase(prepared.begin());
    return status;
}

} // namespace tarvik
