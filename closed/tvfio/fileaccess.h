// closed/tvfio/fileaccess.h: list files on disk, with the store's own words for what goes wrong.
#pragma once

#include "closed/tvfio/bytes.h"
#include "closed/tvfio/status.h"

namespace tvfio {

[[nodiscard]] FioStatus ReadFileBytes(const char* path, Bytes& bytes);

/// Puts `bytes` into the place of the file `path`, flushed to the disk. After any failure `path` is what it was.
[[nodiscard]] FioStatus SaveFileBytes(const char* path, ByteView bytes);

} // namespace tvfio
