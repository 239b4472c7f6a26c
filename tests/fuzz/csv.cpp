// The CSV reader on arbitrary bytes: header and rows of a memory list. Accepted input must round-trip through the
// writer.
#include "lists/memory/memoryList.h"
#include "tests/fuzz/listFiles.h"

namespace tarvik {

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzStart(FileClassMemoryList);
    CsvSource source;
    source.Bytes = QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    MemoryTable table;
    if (!ReadMemoryListCsv(source, table))
        return 0;

    CsvSource written;
    written.Bytes = MemoryListCsv(table);
    MemoryTable again;
    Require(!written.Bytes.isEmpty());
    Require(ReadMemoryListCsv(written, again));
    Require(again == table);
    Require(MemoryListCsv(again) == MemoryListCsv(table));
    return 0;
}

} // namespace tarvik
