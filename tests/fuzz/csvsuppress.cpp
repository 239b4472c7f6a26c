#include "tests/fuzz/listFiles.h"

namespace tarvik {

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzCsv<SuppressFiles>({ data, size });
    return 0;
}

} // namespace tarvik
