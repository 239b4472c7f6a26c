// The operations of the module, on the one channel.
#include "closed/tvscpi.h"
#include "closed/tvscpi/channel.h"

#include <algorithm>
#include <exception>

namespace {

using namespace tvscpi;

constexpr size_t kLongestText = TVSCPI_TEXT_SIZE - 1;
constexpr int16_t kTcp = 1; ///< the only connection mode

/// The instrument's store that an operation uses. Each family has its own folder there.
enum class Store { Current, Antenna, Kfactor, Memory, Suppress, Correction };

constexpr const char* Word(Store store)
{
    switch (store) {
    case Store::Antenna:
        return "ANT";
    case Store::Kfactor:
        return "KFAC";
    case Store::Memory:
        return "MEM";
    case Store::Suppress:
        return "SUPP";
    case Store::Correction:
        return "CORR";
    default:
        return "ALL";
    }
}

/// Runs `work` and stores its status. bad_alloc closes the link, since the answer may be half read; no exception
/// leaves the module.
template <typename Work>
Status Run(int16_t* err, Work work)
{
    Status status = Status::LinkFailed;
    try {
        status = work();
    } catch (const std::exception&) {
        status = TheChannel().Drop();
    }
    if (err != nullptr)
        *err = static_cast<int16_t>(status);
    return status;
}

template <typename Value>
void Put(Value* place, std::type_identity_t<Value> value)
{
    if (place != nullptr)
        *place = value;
}

std::string Quoted(std::string_view text)
{
    std::string quoted = "\"";
    for (const char letter : text) {
        if (letter == '"')
            quoted += '"';
        quoted += letter;
    }
    return quoted + '"';
}

bool IsName(const char* name)
{
    return name != nullptr && IsPlainName(name);
}

std::string Named(const char* header, Store store, const char* name)
{
    return std::string(header) + ' ' + Word(store) + ',' + Quoted(name);
}

/// False if `text` does not fit; no valid answer is that long.
bool CopyOut(std::string_view text, char* out, int32_t outSize)
{
    if (out == nullptr || outSize <= 0 || text.size() >= static_cast<size_t>(outSize))
        return false;
    *std::copy(text.begin(), text.end(), out) = '\0';
    return true;
}

void Connect(
    int16_t* err, int16_t mode, const char* host, int16_t port, int32_t timeoutMs, char* reply, int32_t replySize)
{
    (void)CopyOut({}, reply, replySize);
    Run(err, [=] {
        if (mode != kTcp || host == nullptr)
            return TheChannel().Drop();
        std::string identification;
        // Ports above 32767 arrive as negative numbers.
        const Status status = TheChannel().Connect(host, static_cast<uint16_t>(port), timeoutMs, identification);
        if (status == Status::Ok && !CopyOut(identification, reply, replySize))
            return TheChannel().Drop();
        return status;
    });
}

void Disconnect()
{
    TheChannel().Disconnect();
}

int16_t GetConnected()
{
    return TheChannel().IsConnected() ? 0 : 1;
}

int16_t CheckConnection()
{
    return TheChannel().IsConnected() ? 0 : 1;
}

void Send(int16_t* err, const char* text)
{
    Run(err, [text] { return text == nullptr ? Status::Refused : TheChannel().Send(text); });
}

void GetCurrentDirectory(int16_t* err, char* path, int32_t pathSize)
{
    (void)CopyOut({}, path, pathSize);
    Run(err, [=] {
        return TheChannel().Ask("MMEM:CDIR?", 2 * kLongestText, [=](std::string_view line) {
            const std::optional<std::string> text = ParseQuoted(line);
            return text && CopyOut(*text, path, pathSize);
        });
    });
}

void SetCurrentDirectory(int16_t* err, const char* path)
{
    Run(err, [path] {
        const std::string_view text = path == nullptr ? "" : path;
        if (text.empty() || text.size() > kLongestText || HasControlCharacter(text))
            return Status::Refused;
        return TheChannel().Command("MMEM:CDIR " + Quoted(text));
    });
}

void CreateDirectory(int16_t* err, const char* name)
{
    Run(err, [name] { return IsName(name) ? TheChannel().Command("MMEM:MDIR " + Quoted(name)) : Status::Refused; });
}

void RemoveDirectory(int16_t* err, const char* name)
{
    Run(err, [name] { return IsName(name) ? TheChannel().Command("MMEM:RDIR " + Quoted(name)) : Status::Refused; });
}

template <Store store>
void StartFind(int16_t* err, int16_t* status, int64_t* usedBytes, int64_t* freeBytes)
{
    Catalogue totals;
    Run(err, [&totals] { return TheChannel().StartWalk(std::string("MMEM:CAT? ") + Word(store), totals); });
    Put(status, TheChannel().HasNextEntry() ? int16_t{ 0 } : int16_t{ 1 });
    Put(usedBytes, totals.UsedBytes);
    Put(freeBytes, totals.FreeBytes);
}

int16_t TypeCode(EntryType type)
{
    constexpr int16_t kNeither = 2;
    return type == EntryType::File ? int16_t{ 0 } : (type == EntryType::Folder ? int16_t{ 1 } : kNeither);
}

void GetNextFile(int16_t* err, int16_t* type, int16_t* last, int16_t* year, int16_t* month, int16_t* day, int16_t* hour,
    int16_t* minute, int16_t* second, char* name, int32_t nameSize)
{
    CatalogueEntry entry;
    (void)CopyOut({}, name, nameSize);
    Run(err, [&entry, name, nameSize] {
        const Status status = TheChannel().NextEntry(entry);
        if (status == Status::Ok && !CopyOut(entry.Name, name, nameSize))
            return Status::Refused;
        return status;
    });
    Put(type, TypeCode(entry.Type));
    Put(last, TheChannel().HasNextEntry() ? int16_t{ 0 } : int16_t{ 1 });
    Put(year, entry.Year);
    Put(month, entry.Month);
    Put(day, entry.Day);
    Put(hour, entry.Hour);
    Put(minute, entry.Minute);
    Put(second, entry.Second);
}

template <Store store>
void GetFile(int16_t* err, const char* remote, const char* local, int32_t timeoutMs)
{
    Run(err, [=] {
        return IsName(remote) ? TheChannel().Download(Named("MMEM:DATA?", store, remote), local, timeoutMs)
                              : Status::Refused;
    });
}

void GetActiveDatasetFile(int16_t* err, const char* local, int32_t timeoutMs)
{
    Run(err, [=] { return TheChannel().Download("MMEM:ACT:DATA?", local, timeoutMs); });
}

void GetFileFromStream(int16_t* err, const char* local, int32_t timeoutMs)
{
    Run(err, [=] { return TheChannel().DownloadPending(local, timeoutMs); });
}

template <Store store>
void PutFile(int16_t* err, const char* local, const char* remote, int32_t timeoutMs)
{
    Run(err, [=] {
        return IsName(remote) ? TheChannel().Upload(Named("MMEM:DATA", store, remote) + ',', local, timeoutMs)
                              : Status::Refused;
    });
}

void PutActiveDatasetFile(int16_t* err, const char* local, int32_t timeoutMs)
{
    Run(err, [=] { return TheChannel().Upload("MMEM:ACT:DATA ", local, timeoutMs); });
}

template <Store store>
void RemoveFile(int16_t* err, const char* remote)
{
    Run(err,
        [remote] { return IsName(remote) ? TheChannel().Command(Named("MMEM:DEL", store, remote)) : Status::Refused; });
}

void Rename(int16_t* err, const char* oldName, const char* newName)
{
    Run(err, [=] {
        if (!IsName(oldName) || !IsName(newName))
            return Status::Refused;
        return TheChannel().Command("MMEM:MOVE " + Quoted(oldName) + ',' + Quoted(newName));
    });
}

template <Store store>
int16_t FindFile(int16_t* err, const char* remote, int16_t* type)
{
    constexpr int16_t kUnknown = -1;
    Found found;
    const Status status = Run(err, [&found, remote] {
        if (!IsName(remote))
            return Status::Refused;
        return TheChannel().Ask(Named("MMEM:EXIS?", store, remote), kLongestText, [&found](std::string_view line) {
            const std::optional<Found> answer = ParseFound(line);
            found = answer.value_or(Found{});
            return answer.has_value();
        });
    });
    Put(type, TypeCode(found.Type));
    if (status != Status::Ok)
        return kUnknown;
    return found.Exists ? int16_t{ 1 } : int16_t{ 0 };
}

void BindLink(TvScpiApi& api)
{
    api.scpiConnect = Connect;
    api.scpiDisconnect = Disconnect;
    api.scpiGetConnected = GetConnected;
    api.scpiCheckConnection = CheckConnection;
    api.scpiSend = Send;
    api.scpiSendCommand = Send;
    api.scpiGetCurrentDirectory = GetCurrentDirectory;
    api.scpiSetCurrentDirectory = SetCurrentDirectory;
    api.scpiCreateDirectory = CreateDirectory;
    api.scpiRemoveDirectory = RemoveDirectory;
}

void BindWalk(TvScpiApi& api)
{
    api.scpiStartFindAllFiles = StartFind<Store::Current>;
    api.scpiStartFindAntennaListFiles = StartFind<Store::Antenna>;
    api.scpiStartFindKfactorTableFiles = StartFind<Store::Kfactor>;
    api.scpiStartFindMemoryListFiles = StartFind<Store::Memory>;
    api.scpiStartFindSuppressListFiles = StartFind<Store::Suppress>;
    api.scpiStartFindCorrectionSetFiles = StartFind<Store::Correction>;
    api.scpiGetNextFile = GetNextFile;
}

void BindTransfer(TvScpiApi& api)
{
    api.scpiGetFile = GetFile<Store::Current>;
    api.scpiGetAntennaListFile = GetFile<Store::Antenna>;
    api.scpiGetKfactorTableFile = GetFile<Store::Kfactor>;
    api.scpiGetMemoryListFile = GetFile<Store::Memory>;
    api.scpiGetSuppressListFile = GetFile<Store::Suppress>;
    api.scpiGetCorrectionSetFile = GetFile<Store::Correction>;
    api.scpiGetActiveDatasetFile = GetActiveDatasetFile;
    api.scpiGetFileFromStream = GetFileFromStream;
    api.scpiPutFile = PutFile<Store::Current>;
    api.scpiPutAntennaListFile = PutFile<Store::Antenna>;
    api.scpiPutKfactorTableFile = PutFile<Store::Kfactor>;
    api.scpiPutMemoryListFile = PutFile<Store::Memory>;
    api.scpiPutSuppressListFile = PutFile<Store::Suppress>;
    api.scpiPutCorrectionSetFile = PutFile<Store::Correction>;
    api.scpiPutActiveDatasetFile = PutActiveDatasetFile;
}

void BindFiles(TvScpiApi& api)
{
    api.scpiRemoveFile = RemoveFile<Store::Current>;
    api.scpiRemoveKfactorTableFile = RemoveFile<Store::Kfactor>;
    api.scpiRemoveCorrectionSetFile = RemoveFile<Store::Correction>;
    api.scpiRename = Rename;
    api.scpiFindFile = FindFile<Store::Current>;
    api.scpiFindInKfactorTableFiles = FindFile<Store::Kfactor>;
    api.scpiFindInCorrectionSetFiles = FindFile<Store::Correction>;
}

} // namespace

int16_t TvScpiBind(TvScpiApi* api)
{
    if (api == nullptr || api->Size < sizeof(TvScpiApi))
        return 1;
    BindLink(*api);
    BindWalk(*api);
    BindTransfer(*api);
    BindFiles(*api);
    return 0;
}
