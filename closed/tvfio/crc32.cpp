#include "closed/tvfio/crc32.h"

#include <libdeflate.h>

namespace tvfio {

uint32_t Crc32(ByteView bytes, uint32_t previous)
{
    // For no bytes at a null pointer the library returns 0 instead of `previous`.
    return bytes.empty() ? previous : libdeflate_crc32(previous, bytes.data(), bytes.size());
}

} // namespace tvfio
