// closed/tvimg/workspace.h: memory for the lines of one picture, kept for the next.
#pragma once

#include "closed/tvimg/picture.h"

namespace tvimg {

/// The two forms of a PNG's lines. In a batch, fetching so much memory anew for each picture takes longer than what is
/// done to it. One at a time; a large picture leaves nothing behind.
class Workspace {
public:
    Workspace() = default;
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;
    ~Workspace();

    /// Room for so many bytes, whatever they hold. Valid until more is wanted of the same kind.
    [[nodiscard]] uint8_t* Lines(size_t bytes);
    [[nodiscard]] uint8_t* Compressed(size_t bytes);
};

} // namespace tvimg
