// closed/tvfio/fileaccess.h: reading and writing of list files, with errors as statuses of the store.
#pragma once

#include "closed/tvfio/bytes.h"
#include "closed/tvfio/status.h"

namespace tvfio {

[[nodiscard]] FioStatus ReadFileBytes(const char* path, Bytes& bytes);

/// Replaces the file `path` by `bytes`, flushed to disk. After any failure `path` is unchanged.
[[nodiscard]] FioStatus SaveFileBytes(const char* path, ByteView bytes);

} // namespace tvfio
