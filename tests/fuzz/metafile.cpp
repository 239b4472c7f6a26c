// The metafile reader on arbitrary bytes. A rendered picture must have the announced size, and round-trip through the
// writer.
#include "screen/metafile/metafileReader.h"

#include "closed/pictures/metafile.h"
#include "screen/metafile/metafileWriter.h"

#include <QGuiApplication>

#include <cstdlib>

namespace tarvik {

namespace {

/// Larger pictures only take time and reach no other code.
constexpr int kMaxPixels = 1 << 20;

bool Start()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int count = 1;
    static char name[] = "fuzz";
    static char* arguments[] = { name, nullptr };
    new QGuiApplication(count, arguments);
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
    const auto frame = tvpicture::ReadMetafileFrame({ data, size });
    if (frame && qint64{ frame->Width } * frame->Height > kMaxPixels)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto picture = ReadMetafile(bytes, Qt::white);
    if (!picture)
        return 0;
    Require(frame && picture->size() == QSize(frame->Width, frame->Height));
    const auto again = ReadMetafile(MetafileBytes(*picture), Qt::black);
    Require(again && *again == *picture);
    return 0;
}

} // namespace tarvik
