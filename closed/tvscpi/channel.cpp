#include "closed/tvscpi/channel.h"

#include "closed/tvscpi/outbox.h"
#include "closed/tvscpi/socket.h"

#include <utility>

namespace tvscpi {

namespace {

constexpr size_t kBufferBytes = size_t{ 256 } << 10;
constexpr size_t kLongestLine = TVSCPI_TEXT_SIZE - 1;

/// Enough for a quarter of a million files; anything longer is an attack.
constexpr size_t kMaxCatalogueBytes = size_t{ 32 } << 20;

/// Downloads up to this length are flushed to disk. The lists of an instrument are shorter; anything longer can be
/// downloaded again.
constexpr uint64_t kMaxFlushedBytes = uint64_t{ 1 } << 20;

constexpr std::string_view kClearErrors = "*CLS\n";
constexpr std::string_view kAskForError = "SYST:ERR?\n";

/// A command and the queries that accompany it in one round trip.
std::string Exchange(const std::string& command)
{
    return std::string(kClearErrors) + command + '\n' + std::string(kAskForError);
}

std::string BlockHead(uint64_t length)
{
    const std::string digits = std::to_string(length);
    return '#' + std::to_string(digits.size()) + digits;
}

bool IsPath(const char* local)
{
    return local != nullptr && *local != '\0';
}

} // namespace

Channel& TheChannel()
{
    static Channel channel;
    return channel;
}

Status Channel::Connect(const char* address, uint16_t port, int32_t timeoutMs, std::string& identification)
{
    Disconnect();
    const Deadline deadline(timeoutMs);
    return Attach(ConnectSocket(address, port, deadline), deadline, identification);
}

Status Channel::Attach(std::unique_ptr<Wire> wire, const Deadline& deadline, std::string& identification)
{
    Disconnect();
    wire_ = std::move(wire);
    if (wire_ == nullptr)
        return Status::LinkFailed;
    buffer_.resize(kBufferBytes);
    if (!SendAll("*IDN?\n", deadline))
        return Drop();
    Inbox inbox(*wire_, buffer_, deadline);
    if (!inbox.Line(identification, kLongestLine) || identification.empty() || HasControlCharacter(identification))
        return Drop();
    return Finish(inbox, Status::Ok);
}

void Channel::Disconnect()
{
    wire_.reset();
    hasUnread_ = false;
    walk_ = {};
    nextEntry_ = 0;
}

Status Channel::Drop()
{
    Disconnect();
    return Status::LinkFailed;
}

bool Channel::IsConnected()
{
    if (wire_ != nullptr && wire_->Look() == WireState::Closed)
        Disconnect();
    return wire_ != nullptr;
}

/// Bytes pending before a request would be mistaken for its answer.
bool Channel::IsReady()
{
    return wire_ != nullptr && !hasUnread_ && wire_->Look() == WireState::Quiet;
}

bool Channel::SendAll(std::string_view request, const Deadline& deadline)
{
    Outbox outbox(*wire_, buffer_, deadline);
    return outbox.Add(request) && outbox.Flush();
}

Status Channel::Finish(Inbox& inbox, Status status)
{
    hasUnread_ = inbox.HasUnread();
    return status;
}

/// Reads the line that ends every exchange.
Status Channel::Outcome(Inbox& inbox)
{
    std::string line;
    if (!inbox.Line(line, kLongestLine))
        return Drop();
    const std::optional<int> code = ParseErrorLine(line);
    if (!code)
        return Drop();
    return Finish(inbox, *code == 0 ? Status::Ok : Status::Refused);
}

/// A refused query has no answer; only the error line comes.
Status Channel::ReadRefusal(Inbox& inbox)
{
    const Status status = Outcome(inbox);
    return status == Status::Ok ? Drop() : status;
}

Status Channel::Send(std::string_view line)
{
    if (line.empty() || HasControlCharacter(line))
        return Status::Refused;
    if (!IsReady())
        return Drop();
    const Deadline deadline(DefaultTimeoutMs);
    return SendAll(std::string(line) + '\n', deadline) ? Status::Ok : Drop();
}

Status Channel::Command(const std::string& command)
{
    const Deadline deadline(DefaultTimeoutMs);
    if (!IsReady() || !SendAll(Exchange(command), deadline))
        return Drop();
    Inbox inbox(*wire_, buffer_, deadline);
    return Outcome(inbox);
}

Status Channel::Ask(const std::string& query, size_t longest, const Taker& take)
{
    return Ask(query, longest, take, Deadline(DefaultTimeoutMs));
}

Status Channel::Ask(const std::string& query, size_t longest, const Taker& take, const Deadline& deadline)
{
    if (!IsReady() || !SendAll(Exchange(query), deadline))
        return Drop();
    Inbox inbox(*wire_, buffer_, deadline);
    char first = '\0';
    if (!inbox.Peek(first))
        return Drop();
    if (first == '-')
        return ReadRefusal(inbox);
    std::string line;
    if (!inbox.Line(line, longest))
        return Drop();
    const Status status = Outcome(inbox);
    if (status != Status::Ok)
        return status;
    return take(line) ? Status::Ok : Drop();
}

/// Reads a block to its end even if the file can't be written, so that the link stays usable.
Status Channel::TakeBlock(Inbox& inbox, tvfile::NewFile& file, uint64_t& length)
{
    if (!inbox.BlockHead(length) || length > TVSCPI_MAX_BLOCK)
        return Drop();
    bool isStored = file.HasRoomFor(length);
    for (uint64_t left = length; left > 0;) {
        const ByteView bytes = inbox.Bytes(left);
        if (bytes.empty())
            return Drop();
        left -= bytes.size();
        isStored = isStored && file.Write(bytes).Ok();
    }
    std::string lineEnd;
    if (!inbox.Line(lineEnd, 0))
        return Drop();
    return isStored ? Status::Ok : Status::LocalFile;
}

Status Channel::Download(const std::string& query, const char* local, int32_t timeoutMs)
{
    const Deadline deadline(timeoutMs);
    return IsReady() ? StoreAnswer(Exchange(query), OldErrors::None, local, deadline) : Drop();
}

/// The error query guarantees an answer to wait for if the instrument has refused the line and sends no block.
Status Channel::DownloadPending(const char* local, int32_t timeoutMs)
{
    const Deadline deadline(timeoutMs);
    return wire_ != nullptr && !hasUnread_ ? StoreAnswer(kAskForError, OldErrors::Possible, local, deadline) : Drop();
}

Status Channel::StoreAnswer(std::string_view request, OldErrors oldErrors, const char* local, const Deadline& deadline)
{
    tvfile::NewFile file;
    if (!IsPath(local) || !file.Begin(local).Ok())
        return Status::LocalFile;
    if (!SendAll(request, deadline))
        return Drop();
    Inbox inbox(*wire_, buffer_, deadline);
    char first = '\0';
    if (!inbox.Peek(first))
        return Drop();
    if (first != '#')
        return ReadRefusal(inbox);
    uint64_t length = 0;
    const Status stored = TakeBlock(inbox, file, length);
    if (stored == Status::LinkFailed)
        return stored;
    const Status outcome = Outcome(inbox);
    // An instrument that refuses may send an empty block; after any other block the error is an old one.
    const bool isOldError = oldErrors == OldErrors::Possible && length > 0;
    if (outcome == Status::LinkFailed || (outcome == Status::Refused && !isOldError))
        return outcome;
    if (stored != Status::Ok)
        return stored;
    return file.Commit(length <= kMaxFlushedBytes).Ok() ? Status::Ok : Status::LocalFile;
}

Status Channel::SendFile(const std::string& start, tvfile::SourceFile& file, const Deadline& deadline)
{
    Outbox outbox(*wire_, buffer_, deadline);
    if (!outbox.Add(kClearErrors) || !outbox.Add(start) || !outbox.Add(BlockHead(file.Length())))
        return Drop();
    uint64_t left = file.Length();
    while (left > 0) {
        std::span<uint8_t> room = outbox.Room();
        if (room.empty())
            return Drop();
        room = room.first(static_cast<size_t>(std::min<uint64_t>(left, room.size())));
        size_t got = 0;
        if (file.Read(room, got) != 0 || got < room.size()) {
            // The announced length can't be sent any more: only closing the link keeps the instrument from storing
            // the file.
            return outbox.HasSent() ? Drop() : Status::LocalFile;
        }
        outbox.Advance(got);
        left -= got;
    }
    return outbox.Add("\n") && outbox.Add(kAskForError) && outbox.Flush() ? Status::Ok : Drop();
}

Status Channel::Upload(const std::string& start, const char* local, int32_t timeoutMs)
{
    const Deadline deadline(timeoutMs);
    if (!IsReady())
        return Drop();
    tvfile::SourceFile file;
    if (!IsPath(local) || file.Open(local) != 0 || file.Length() > TVSCPI_MAX_BLOCK)
        return Status::LocalFile;
    if (const Status sent = SendFile(start, file, deadline); sent != Status::Ok)
        return sent;
    Inbox inbox(*wire_, buffer_, deadline);
    return Outcome(inbox);
}

Status Channel::StartWalk(const std::string& query, Catalogue& totals)
{
    walk_ = {};
    nextEntry_ = 0;
    const auto take = [this, &totals](std::string_view line) {
        std::optional<Catalogue> catalogue = ParseCatalogue(line);
        if (!catalogue)
            return false;
        walk_ = std::move(catalogue->Entries);
        totals = std::move(*catalogue);
        return true;
    };
    return Ask(query, kMaxCatalogueBytes, take, Deadline(DefaultTimeoutMs, TVSCPI_LONGEST_WALK_MS));
}

Status Channel::NextEntry(CatalogueEntry& entry)
{
    if (wire_ == nullptr)
        return Status::LinkFailed;
    if (!HasNextEntry())
        return Status::Refused;
    entry = std::move(walk_[nextEntry_++]);
    return Status::Ok;
}

} // namespace tvscpi
