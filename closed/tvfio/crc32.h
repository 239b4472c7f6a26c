// closed/tvfio/crc32.h: the checksum of list files.
#pragma once

#include "closed/tvfio/bytes.h"

namespace tvfio {

/// CRC-32 with the reflected polynomial 0xEDB88320, start and final exclusive-or 0xFFFFFFFF: the bytes "123456789"
/// give 0xCBF43926. `previous` is the result for the preceding bytes, 0 at the start.
uint32_t Crc32(ByteView bytes, uint32_t previous = 0);

} // namespace tvfio
