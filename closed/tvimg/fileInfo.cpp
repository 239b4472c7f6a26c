#include "closed/tvimg/fileInfo.h"

#include "closed/pictures/metafile.h"
#include "closed/tvimg/bitmapHeader.h"
#include "closed/tvimg/pcxReader.h"
#include "closed/tvimg/pngHeader.h"

namespace tvimg {

namespace {

/// At least the longest header of a fixed length.
constexpr size_t kHeadBytes = 256;

/// A larger file without the placeable header is not taken for a metafile.
constexpr size_t kMaxMetafileBytes = size_t{ 1 } << 28U;

struct Recognised {
    Kind Content;
    std::optional<PictureSize> Size;
};

std::optional<PictureSize> MetafileSize(ByteView file)
{
    const std::optional<tvpicture::MetafileFrame> frame = tvpicture::ReadMetafileFrame(file);
    return frame ? std::optional(PictureSize{ frame->Width, frame->Height }) : std::nullopt;
}

std::optional<Recognised> Recognise(ByteView head, uint64_t fileBytes)
{
    if (IsPng(head))
        return Recognised{ Kind::Png, PngSize(head, fileBytes) };
    if (IsBitmap(head))
        return Recognised{ Kind::Bitmap, BitmapSize(head, fileBytes) };
    if (const std::optional<PcxHeader> header = ParsePcxHeader(head, fileBytes))
        return Recognised{ Kind::Pcx, header->Size };
    return Recognised{ Kind::Metafile, MetafileSize(head) };
}

/// A metafile without the placeable header, whose size may depend on all its records.
bool MayBeBareMetafile(ByteView head)
{
    return head.size() >= tvpicture::kMetafileHeaderBytes && DoubleWord(head, 0) != tvpicture::kPlaceableKey
        && Word(head, 2) == tvpicture::kMetafileHeaderBytes / 2;
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
    head.resize(got);
    if (MayBeBareMetafile(head) && tvfile::ReadWholeFile(path, kMaxMetafileBytes, head) != 0)
        return std::nullopt;
    return ContentInfo(head, file.Length());
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
