// closed/tvimg/workspace.h: row buffers that are kept from one picture to the next.
#pragma once

#include "closed/tvimg/picture.h"

namespace tvimg {

/// Buffers for the plain and the compressed rows of a PNG. In a batch, allocating them for each picture would take
/// longer than the work itself. One instance at a time; the buffers of a large picture are released.
class Workspace {
public:
    Workspace() = default;
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;
    ~Workspace();

    /// At least `bytes` uninitialised bytes. Valid until the next call of the same function.
    [[nodiscard]] uint8_t* Lines(size_t bytes);
    [[nodiscard]] uint8_t* Compressed(size_t bytes);
};

} // namespace tvimg
