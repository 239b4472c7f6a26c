#include "lists/values/storeWalk.h"

#include "app/message/message.h"
#include "app/text/ansi.h"
#include "app/text/textId.h"

#include <array>

namespace tarvik {

namespace {

using TextBuffer = std::array<char, TVFIO_TEXT_SIZE>;

QString TextIn(const TextBuffer& buffer)
{
    return FromAnsi(QByteArrayView(buffer.data(), qstrnlen(buffer.data(), TVFIO_TEXT_SIZE)));
}

} // namespace

bool StoreRun::Text(StoreCall<char*, std::int32_t> call, QString& text)
{
    TextBuffer buffer{};
    if (!(*this)(call, buffer.data(), TVFIO_TEXT_SIZE))
        return false;
    text = TextIn(buffer);
    return true;
}

bool StoreRun::Text(StoreCall<std::int16_t, char*, std::int32_t> call, std::int16_t index, QString& text)
{
    TextBuffer buffer{};
    if (!(*this)(call, index, buffer.data(), TVFIO_TEXT_SIZE))
        return false;
    text = TextIn(buffer);
    return true;
}

void RecordWriter::SetText(StoreCall<const char*> setter, const QString& text)
{
    run_(setter, ToAnsi(text).constData());
}

bool BeginStoreList(StoreRun& run, const ListCalls& calls, const QString& name, const QString& description)
{
    return run(calls.Clear) && run(calls.SetName, ToAnsi(name).constData())
        && run(calls.SetDescription, ToAnsi(description).constData());
}

bool RefuseRows(const QString& path)
{
    MsgOk1(TextId::RowsNotAccepted, path);
    return false;
}

} // namespace tarvik
