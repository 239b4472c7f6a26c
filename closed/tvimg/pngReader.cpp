#include "closed/tvimg/pngReader.h"

#include "closed/tvimg/pngFastPath.h"
#include "closed/tvimg/pngHeader.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <bit>
#include <csetjmp>

namespace tvimg {

namespace {

/// Larger files are not pictures.
constexpr size_t kMaxFileBytes = size_t{ 1 } << 30U;

/// Format of the rows that the library delivers.
enum class RowForm {
    Colors, ///< pixels of a context, opaque
    ColorsWithAlpha, ///< pixels of a context, with alpha
    Indexes, ///< palette indexes, one byte each
};

struct Decoder {
    Decoder() = default;
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;
    ~Decoder()
    {
        png_destroy_read_struct(&Png, &Info, nullptr);
    }

    ByteView Rest; ///< rest of the file
    png_structp Png = nullptr;
    png_infop Info = nullptr;
    PictureSize Size;
    RowForm Form = RowForm::Colors;
    int Passes = 1; ///< 7 for an interlaced picture
    size_t RowBytes = 0;
    std::array<uint32_t, 256> Palette{}; ///< 0xAARRGGBB
    unsigned PaletteSize = 0;
    bool HasStrayIndex = false;
    std::vector<uint32_t> Rows; ///< what can't go straight into the context: one row, or all of an interlaced picture
    const TvImgContext* Context = nullptr;
};

// The library reports errors by longjmp. Its callbacks, and the code between `setjmp` and such a jump, hold nothing
// that needs a destructor.

[[noreturn]] void OnError(png_structp png, png_const_charp)
{
    png_longjmp(png, 1);
}

void OnWarning(png_structp, png_const_charp) { }

void TakeInput(png_structp png, png_bytep target, size_t count)
{
    auto& rest = *static_cast<ByteView*>(png_get_io_ptr(png));
    if (count > rest.size())
        png_error(png, "end of file");
    std::copy_n(rest.begin(), count, target);
    rest = rest.subspan(count);
}

bool Guarded(Decoder& decoder, void (*step)(Decoder&))
{
    if (setjmp(png_jmpbuf(decoder.Png)) != 0)
        return false;
    step(decoder);
    return true;
}

/// Sets the byte order of a context's pixels.
void UseContextOrder(png_structp png, RowForm form)
{
    constexpr bool kIsLittle = std::endian::native == std::endian::little;
    if (form == RowForm::Colors)
        png_set_filler(png, 0xff, kIsLittle ? PNG_FILLER_AFTER : PNG_FILLER_BEFORE);
    if constexpr (kIsLittle)
        png_set_bgr(png);
    else if (form == RowForm::ColorsWithAlpha)
        png_set_swap_alpha(png);
}

void UseColors(Decoder& decoder, unsigned colorType)
{
    const bool hasAlpha =
        (colorType & PNG_COLOR_MASK_ALPHA) != 0 || png_get_valid(decoder.Png, decoder.Info, PNG_INFO_tRNS) != 0;
    decoder.Form = hasAlpha ? RowForm::ColorsWithAlpha : RowForm::Colors;
    png_set_expand(decoder.Png);
    png_set_scale_16(decoder.Png);
    if ((colorType & PNG_COLOR_MASK_COLOR) == 0)
        png_set_gray_to_rgb(decoder.Png);
    UseContextOrder(decoder.Png, decoder.Form);
}

void UseIndexes(Decoder& decoder)
{
    decoder.Form = RowForm::Indexes;
    png_set_packing(decoder.Png);
    png_colorp colors = nullptr;
    int count = 0;
    png_get_PLTE(decoder.Png, decoder.Info, &colors, &count);
    png_bytep alphas = nullptr;
    int alphaCount = 0;
    png_get_tRNS(decoder.Png, decoder.Info, &alphas, &alphaCount, nullptr);
    decoder.PaletteSize = static_cast<unsigned>(std::min<size_t>(static_cast<size_t>(count), decoder.Palette.size()));
    for (unsigned i = 0; i < decoder.PaletteSize; ++i) {
        const uint32_t alpha = static_cast<int>(i) < alphaCount ? alphas[i] : 0xffU;
        decoder.Palette[i] = alpha << 24U | static_cast<uint32_t>(colors[i].red) << 16U
            | static_cast<uint32_t>(colors[i].green) << 8U | colors[i].blue;
    }
}

void ReadHeader(Decoder& decoder)
{
    png_set_read_fn(decoder.Png, &decoder.Rest, &TakeInput);
    png_set_user_limits(decoder.Png, TVIMG_MAX_SIDE, TVIMG_MAX_SIDE);
    // Ancillary chunks are skipped, so that damage in them is harmless.
    png_set_keep_unknown_chunks(decoder.Png, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
    png_read_info(decoder.Png, decoder.Info);
    decoder.Size = { png_get_image_width(decoder.Png, decoder.Info), png_get_image_height(decoder.Png, decoder.Info) };
    const unsigned colorType = png_get_color_type(decoder.Png, decoder.Info);
    if (colorType == PNG_COLOR_TYPE_PALETTE)
        UseIndexes(decoder);
    else
        UseColors(decoder, colorType);
    decoder.Passes = png_set_interlace_handling(decoder.Png);
    png_read_update_info(decoder.Png, decoder.Info);
    decoder.RowBytes = png_get_rowbytes(decoder.Png, decoder.Info);
}

uint32_t* StoredRow(Decoder& decoder, int64_t y)
{
    const size_t pixels = (decoder.RowBytes + sizeof(uint32_t) - 1) / sizeof(uint32_t);
    return decoder.Rows.data() + (decoder.Passes > 1 ? static_cast<size_t>(y) * pixels : 0);
}

uint32_t Over(uint32_t color, uint32_t under)
{
    return color >= kOpaque ? color : Blend(color, under);
}

void PaintIndexes(Decoder& decoder, const uint8_t* indexes, uint32_t* pixels)
{
    unsigned largest = 0;
    for (int64_t x = 0; x < decoder.Size.Width; ++x) {
        largest = std::max<unsigned>(largest, indexes[x]);
        pixels[x] = Over(decoder.Palette[indexes[x]], pixels[x]);
    }
    decoder.HasStrayIndex |= largest >= decoder.PaletteSize;
}

void PaintStored(Decoder& decoder, int64_t y)
{
    uint32_t* pixels = Line(*decoder.Context, y);
    const uint32_t* row = StoredRow(decoder, y);
    if (decoder.Form == RowForm::Indexes)
        PaintIndexes(decoder, reinterpret_cast<const uint8_t*>(row), pixels);
    else
        std::transform(row, row + decoder.Size.Width, pixels, pixels, &Over);
}

void ReadRows(Decoder& decoder)
{
    const bool isDirect = decoder.Form == RowForm::Colors;
    for (int pass = 0; pass < decoder.Passes; ++pass) {
        for (int64_t y = 0; y < decoder.Size.Height; ++y) {
            uint32_t* row = isDirect ? Line(*decoder.Context, y) : StoredRow(decoder, y);
            png_read_row(decoder.Png, reinterpret_cast<png_bytep>(row), nullptr);
            if (!isDirect && pass + 1 == decoder.Passes)
                PaintStored(decoder, y);
        }
    }
    png_read_end(decoder.Png, nullptr);
}

bool Begin(Decoder& decoder)
{
    decoder.Png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, &OnError, &OnWarning);
    decoder.Info = decoder.Png == nullptr ? nullptr : png_create_info_struct(decoder.Png);
    return decoder.Info != nullptr && Guarded(decoder, &ReadHeader);
}

} // namespace

bool DecodePng(ByteView file, const TvImgContext& context)
{
    const std::optional<PictureSize> size = PngSize(file, file.size());
    if (!IsPng(file) || !size || !IsRoomFor(&context, *size))
        return false;
    if (DecodePngFast(file, context) || DecodePngByLibrary(file, context))
        return true;
    Clear(context);
    return false;
}

bool DecodePngByLibrary(ByteView file, const TvImgContext& context)
{
    Decoder decoder;
    decoder.Rest = file;
    if (!Begin(decoder) || !IsRoomFor(&context, decoder.Size))
        return false;
    decoder.Context = &context;
    if (decoder.Form != RowForm::Colors) {
        const size_t pixels = (decoder.RowBytes + sizeof(uint32_t) - 1) / sizeof(uint32_t);
        decoder.Rows.resize(pixels * (decoder.Passes > 1 ? static_cast<size_t>(decoder.Size.Height) : 1));
    }
    return Guarded(decoder, &ReadRows) && !decoder.HasStrayIndex;
}

bool ReadPng(const char* path, const TvImgContext& context)
{
    Bytes file;
    return tvfile::ReadWholeFile(path, kMaxFileBytes, file) == 0 && DecodePng(file, context);
}

} // namespace tvimg
