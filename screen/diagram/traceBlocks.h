// screen/diagram/traceBlocks.h: the blocks of memory that hold the samples of traces. A trace has four bytes for its
// block, less than a pointer, so blocks are in a table and a trace holds the key.
#pragma once

#include "closed/tvswp.h"

#include <QByteArray>

#include <vector>

namespace tarvik {

/// Copies the samples to a new block of the general module, as 64-bit floats in little-endian order, and gives it to
/// the trace: handle, count and the flag that it is in use. False, with the trace unchanged, if the module is missing
/// or memory runs out.
[[nodiscard]] bool TraceFill(Trace& trace, const std::vector<double>& samples);

/// Frees the block of a trace, if it has one, and clears its handle, sample count and in-use flag.
void TraceRelease(Trace& trace);

/// The block of a handle and its size in bytes; null for a handle that is not in use.
const void* TraceBlockOf(uint32_t handle, uint32_t* size);

/// A set of traces that owns their blocks.
class OwnedTraces {
public:
    OwnedTraces() = default;
    ~OwnedTraces();
    OwnedTraces(OwnedTraces&& other) noexcept;
    OwnedTraces& operator=(OwnedTraces&& other) noexcept;

    TraceSet Set{};
};

} // namespace tarvik
