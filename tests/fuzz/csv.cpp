// The CSV reader on arbitrary bytes: header and rows of a memory list. Accepted input must round-trip through the
// writer.
#include "lists/editor/csv.h"
#include "app/message/message.h"
#include "closed/loader.h"
#include "link/classes/model.h"
#include "lists/editor/editorGeneral.h"
#include "lists/memory/memoryList.h"
#include "lists/values/limits.h"

#include <cstdlib>

namespace tarvik {

namespace {

bool Start()
{
    TvLng().Size = sizeof(TvLngApi);
    TvFio().Size = sizeof(TvFioApi);
    if (TvLngBind(&TvLng()) != 0 || TvFioBind(&TvFio()) != 0)
        std::abort();
    ModuleMarkBound(Module::Language);
    ModuleMarkBound(Module::ListStore);
    ReadInstrumentLimits();
    SetEditorType(FileClassMemoryList);
    return true;
}

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    [[maybe_unused]] static const bool started = Start();
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
