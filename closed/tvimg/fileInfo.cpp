#include "closed/tvimg/fileInfo.h"

#include "closed/tvimg/bitmapHeader.h"
#include "closed/tvimg/metafileHeader.h"
#include "closed/tvimg/pcxReader.h"
#include "closed/tvimg/pngHeader.h"

namespace tvimg {

namespace {

/// As far as a metafile's window extent is looked for; the other headers are much shorter.
constexpr size_t kHeadBytes = 65536;

struct Recognised {
    Kind Content;
    std::optional<PictureSize> Size;
};

std::optional<Recognised> Recognise(ByteView head, uint64_t fileBytes)
{
    if (IsPng(head))
        return Recognised{ Kind::Png, PngSize(head, fileBytes) };
    if (IsBitmap(head))
        return Recognised{ Kind::Bitmap, BitmapSize(head, fileBytes) };
    if (IsMetafile(head))
        return Recognised{ Kind::Metafile, MetafileSize(head) };
    if (const std::optional<PcxHeader> header = ParsePcxHeader(head, fileBytes))
        return Recognised{ Kind::Pcx, header->Size };
    return std::nullopt;
}

} // namespace

std::optional<ScreenImageInfo> FileInfo(const char* path)
{
    tvfile::SourceFile file;
    if (path == nullptr || file.Open(path) != 0)
        return std::nullopt;
    Bytes head(kHeadBytes);
    size_t got = 0;
    if (file.Read(head, got) != 0)
        return std::nullopt;
    return ContentInfo(ByteView(head).first(got), file.Length());
}

std::optional<ScreenImageInfo> ContentInfo(ByteView head, uint64_t fileBytes)
{
    const std::optional<Recognised> found = Recognise(head, fileBytes);
    if (!found || !found->Size || !IsAllowed(*found->Size))
        return std::nullopt;
    return ScreenImageInfo{ static_cast<int32_t>(found->Content), static_cast<int32_t>(found->Size->Width),
        static_cast<int32_t>(found->Size->Height) };
}

} // namespace tvimg
