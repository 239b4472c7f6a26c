#include "screen/diagram/traceBlocks.h"

#include "app/platform/processState.h"
#include "closed/loader.h"

#include <QtEndian>

#include <map>
#include <memory>
#include <utility>

namespace tarvik {

namespace {

using FreeBlock = void (*)(void*);

struct TraceBlock {
    std::unique_ptr<void, FreeBlock> Bytes; ///< freed by the module that allocated it
    uint32_t Size = 0;
};

struct TraceBlockTable {
    std::map<uint32_t, TraceBlock> Blocks;
    uint32_t LastHandle = 0;
};

TraceBlockTable& TraceBlocks()
{
    static ProcessState<TraceBlockTable> table;
    return table.Get();
}

/// A handle that is not 0 and not in use.
uint32_t NextHandle(TraceBlockTable& table)
{
    do
        ++table.LastHandle;
    while (table.LastHandle == 0 || table.Blocks.contains(table.LastHandle));
    return table.LastHandle;
}

QByteArray BytesOf(const std::vector<double>& samples)
{
    QByteArray bytes(static_cast<qsizetype>(samples.size() * sizeof(double)), Qt::Uninitialized);
    qToLittleEndian<double>(samples.data(), static_cast<qsizetype>(samples.size()), bytes.data());
    return bytes;
}

} // namespace

bool TraceFill(Trace& trace, const std::vector<double>& samples)
{
    if (!ModuleIsBound(Module::General))
        return false;
    const QByteArray bytes = BytesOf(samples);
    const auto size = static_cast<int32_t>(bytes.size());
    TraceBlock block{ { TvGen().GenVbStrToGlobal(bytes.constData(), size), TvGen().GenElemsFree },
        static_cast<uint32_t>(size) };
    if (block.Bytes == nullptr)
        return false;
    TraceBlockTable& table = TraceBlocks();
    const uint32_t handle = NextHandle(table);
    table.Blocks.emplace(handle, std::move(block));
    trace.Handle = handle;
    trace.SampleCount = static_cast<int32_t>(samples.size());
    trace.InUse = 1;
    return true;
}

void TraceRelease(Trace& trace)
{
    if (trace.Handle != 0)
        TraceBlocks().Blocks.erase(trace.Handle);
    trace.Handle = 0;
    trace.SampleCount = 0;
    trace.InUse = 0;
}

const void* TraceBlockOf(uint32_t handle, uint32_t* size)
{
    const auto found = TraceBlocks().Blocks.find(handle);
    if (found == TraceBlocks().Blocks.end())
        return nullptr;
    *size = found->second.Size;
    return found->second.Bytes.get();
}

OwnedTraces::~OwnedTraces()
{
    for (Trace& trace : Set.Traces)
        TraceRelease(trace);
}

OwnedTraces::OwnedTraces(OwnedTraces&& other) noexcept
    : Set(std::exchange(other.Set, {}))
{
}

OwnedTraces& OwnedTraces::operator=(OwnedTraces&& other) noexcept
{
    std::swap(Set, other.Set);
    return *this;
}

} // namespace tarvik
