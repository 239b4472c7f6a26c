// Arbitrary bytes as a list in JSON, of any family: refused with an error or a message, or a list that round-trips.
#include "tests/fuzz/listFiles.h"
#include "tools/tarvikctl/readList.h"

namespace tarvik {

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzStart(FileClassMemoryList);
    const int messages = FuzzMessages();
    ReadList read;
    const QString error =
        ReadListJson(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)), read);
    if (!error.isEmpty() || FuzzMessages() != messages)
        return 0;

    Require(read.List != nullptr);
    const QString text = read.List->Json(false);
    ReadList again;
    Require(ReadListJson(text.toUtf8(), again).isEmpty());
    Require(FuzzMessages() == messages);
    Require(again.Class == read.Class && again.List->Json(false) == text);
    if (again.List->MayBeSaved() && SortKeysOf(again.Class) > 0)
        Require(again.List->Sort(0));
    static_cast<void>(again.List->DiagramInput(false));
    static_cast<void>(again.List->Table(true));
    return 0;
}

} // namespace tarvik
