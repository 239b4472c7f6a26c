#include "tests/fuzz/listFiles.h"
#include "tests/fuzz/liststore.h"

namespace tarvik {

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzList<tvfio::AntennaList>({ data, size });
    FuzzListFile<AntennaFiles>({ data, size });
    return 0;
}

} // namespace tarvik
