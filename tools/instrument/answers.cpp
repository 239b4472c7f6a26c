#include "tools/instrument/answers.h"

#include <algorithm>
#include <cerrno>
#include <random>
#include <utility>

namespace tarvik {

namespace {

constexpr size_t kFilePieceBytes = size_t{ 256 } << 10;
constexpr size_t kMaxQueuedBytes = size_t{ 1 } << 20;
constexpr size_t kMaxQueuedFiles = 16;
constexpr int kSpoiledBytes = 200;

} // namespace

std::string BlockHeader(std::uint64_t size)
{
    const std::string digits = std::to_string(size);
    return '#' + std::to_string(digits.size()) + digits;
}

void Answers::Line(std::string_view text)
{
    if (!TakeSpoiled())
        PutBytes(std::string(text) + '\n');
}

void Answers::Block(std::string bytes)
{
    if (TakeSpoiled())
        return;
    std::string head = BlockHeader(bytes.size());
    if (TakeCut(bytes.size()))
        bytes.resize(bytes.size() / 2);
    PutBytes(std::move(head) + bytes + '\n');
}

void Answers::FileBlock(Descriptor file, std::uint64_t size)
{
    if (TakeSpoiled())
        return;
    PutBytes(BlockHeader(size));
    Item item;
    item.File = std::move(file);
    item.FileLeft = TakeCut(size) ? size / 2 : size;
    if (item.FileLeft > 0) {
        items_.push_back(std::move(item));
        ++queuedFiles_;
    }
    PutBytes("\n");
}

bool Answers::IsFull() const
{
    return queuedBytes_ >= kMaxQueuedBytes || queuedFiles_ >= kMaxQueuedFiles;
}

std::string_view Answers::Peek(size_t limit)
{
    if (items_.empty() || isBroken_)
        return {};
    Item& item = items_.front();
    if (item.Sent == item.Bytes.size())
        ReadFile(item);
    return std::string_view(item.Bytes).substr(item.Sent, limit);
}

void Answers::Sent(size_t count)
{
    Item& item = items_.front();
    item.Sent += count;
    queuedBytes_ -= count;
    if (item.Sent == item.Bytes.size() && item.FileLeft == 0)
        items_.pop_front();
}

void Answers::PutBytes(std::string bytes)
{
    queuedBytes_ += bytes.size();
    // Short answers share a piece, so that they leave in one packet.
    if (!items_.empty() && items_.back().FileLeft == 0 && items_.back().Bytes.size() < kFilePieceBytes) {
        items_.back().Bytes += bytes;
        return;
    }
    Item item;
    item.Bytes = std::move(bytes);
    items_.push_back(std::move(item));
}

void Answers::ReadFile(Item& item)
{
    item.Bytes.resize(static_cast<size_t>(std::min<std::uint64_t>(item.FileLeft, kFilePieceBytes)));
    item.Sent = 0;
    ssize_t count = 0;
    do {
        count = ::read(item.File.Number(), item.Bytes.data(), item.Bytes.size());
    } while (count < 0 && errno == EINTR);
    isBroken_ = count <= 0;
    item.Bytes.resize(isBroken_ ? 0 : static_cast<size_t>(count));
    item.FileLeft -= item.Bytes.size();
    queuedFiles_ -= item.FileLeft == 0 ? 1 : 0;
    queuedBytes_ += item.Bytes.size();
}

bool Answers::TakeSpoiled()
{
    if (!std::exchange(spoilNext_, false))
        return false;
    std::minstd_rand random(++spoiled_);
    std::string bytes;
    for (int i = 0; i < kSpoiledBytes; ++i)
        bytes.push_back(static_cast<char>(random() >> 7));
    PutBytes(std::move(bytes) + '\n');
    return true;
}

bool Answers::TakeCut(std::uint64_t size)
{
    return size > 0 && std::exchange(cutNext_, false);
}

} // namespace tarvik
