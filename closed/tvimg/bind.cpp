#include "closed/tvimg/fileInfo.h"
#include "closed/tvimg/pcxReader.h"
#include "closed/tvimg/pcxWriter.h"
#include "closed/tvimg/pngReader.h"
#include "closed/tvimg/pngWriter.h"

#include <algorithm>
#include <new>
#include <utility>

namespace tvimg {

namespace {

constexpr int16_t kSuccess = 0;
constexpr int16_t kFailure = 1;

/// The only mode of painting and encoding PCX lines.
constexpr int16_t kPlainMode = 1;

/// The picture that `ImgPcxToMem` keeps for `ImgMemToDc`.
std::optional<PcxPicture>& Decoded()
{
    static std::optional<PcxPicture> picture;
    return picture;
}

/// Runs an operation that returns its success. bad_alloc is a failure like any other.
template <typename Operation>
int16_t Result(Operation operation)
{
    try {
        return operation() ? kSuccess : kFailure;
    } catch (const std::bad_alloc&) {
        return kFailure;
    }
}

int16_t GetFileInfo(const char* path, ScreenImageInfo* info)
{
    return Result([&] {
        const std::optional<ScreenImageInfo> found = info == nullptr ? std::nullopt : FileInfo(path);
        if (found)
            *info = *found;
        return found.has_value();
    });
}

int16_t PngToDc(const char* path, const TvImgContext* context)
{
    return Result([&] { return path != nullptr && context != nullptr && ReadPng(path, *context); });
}

int16_t PcxToMem(const char* path, int32_t* width, int32_t* height)
{
    Decoded().reset();
    return Result([&] {
        if (width == nullptr || height == nullptr)
            return false;
        Decoded() = ReadPcx(path);
        if (!Decoded())
            return false;
        *width = static_cast<int32_t>(Decoded()->Header.Size.Width);
        *height = static_cast<int32_t>(Decoded()->Header.Size.Height);
        return true;
    });
}

int16_t MemToDc(const TvImgContext* context, int16_t mode, int32_t* workCounter)
{
    if (mode != kPlainMode || !Decoded() || !IsRoomFor(context, Decoded()->Header.Size))
        return kFailure;
    for (int64_t y = 0; y < Decoded()->Header.Size.Height; ++y) {
        PaintPcxLine(*Decoded(), y, Line(*context, y));
        if (workCounter != nullptr)
            ++*workCounter;
    }
    return kSuccess;
}

bool CanWrite(const char* path, const TvImgContext* context, PictureSize size)
{
    return path != nullptr && *path != '\0' && IsRoomFor(context, size);
}

int16_t DcToPng(const char* path, const TvImgContext* context, int32_t width, int32_t height)
{
    const PictureSize size{ width, height };
    return Result([&] { return CanWrite(path, context, size) && WritePng(path, *context, size); });
}

int16_t DcToPcx(
    const char* path, const TvImgContext* context, int32_t width, int32_t height, int16_t mode, int32_t* workCounter)
{
    const PictureSize size{ width, height };
    return Result([&] {
        return mode == kPlainMode && CanWrite(path, context, size) && WritePcx(path, *context, size, workCounter);
    });
}

} // namespace

} // namespace tvimg

int16_t TvImgBind(TvImgApi* api)
{
    if (api == nullptr || api->Size < sizeof(TvImgApi))
        return 1;
    api->ImgGetFileInfo = &tvimg::GetFileInfo;
    api->ImgPngToDc = &tvimg::PngToDc;
    api->ImgPcxToMem = &tvimg::PcxToMem;
    api->ImgMemToDc = &tvimg::MemToDc;
    api->ImgDcToPng = &tvimg::DcToPng;
    api->ImgDcToPcx = &tvimg::DcToPcx;
    return 0;
}
