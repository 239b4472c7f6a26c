#include "closed/tvimg/pngWriter.h"

#include "closed/tvimg/colorTable.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <bit>
#include <csetjmp>

namespace tvimg {

namespace {

/// Bytes that are collected before they go to the file.
constexpr size_t kPieceBytes = size_t{ 1 } << 20U;

struct Encoder {
    Encoder() = default;
    Encoder(const Encoder&) = delete;
    Encoder& operator=(const Encoder&) = delete;
    ~Encoder()
    {
        png_destroy_write_struct(&Png, &Info);
    }

    tvfile::NewFile File;
    png_structp Png = nullptr;
    png_infop Info = nullptr;
    PictureSize Size;
    const TvImgContext* Context = nullptr;
    std::optional<ColorTable> Table; ///< where the picture has few colours
    int ColorType = PNG_COLOR_TYPE_RGB;
    int Bits = 8;
    Bytes Row; ///< the bytes of one line, as the library takes them
    Bytes Output; ///< of `kPieceBytes`, the first `Used` of them on their way
    size_t Used = 0;
};

// The library reports by a jump over its own frames. What it calls, and what runs between `setjmp` and such a jump,
// holds nothing that needs a destructor.

[[noreturn]] void OnError(png_structp png, png_const_charp)
{
    png_longjmp(png, 1);
}

void OnWarning(png_structp, png_const_charp) { }

void WritePiece(Encoder& encoder)
{
    const size_t count = encoder.Used;
    encoder.Used = 0;
    if (!encoder.File.Write(ByteView(encoder.Output).first(count)).Ok())
        png_error(encoder.Png, "write");
}

void PutOutput(png_structp png, png_bytep bytes, size_t count)
{
    auto& encoder = *static_cast<Encoder*>(png_get_io_ptr(png));
    while (count > 0) {
        const size_t piece = std::min(count, encoder.Output.size() - encoder.Used);
        std::copy_n(bytes, piece, encoder.Output.begin() + static_cast<ptrdiff_t>(encoder.Used));
        encoder.Used += piece;
        bytes += piece;
        count -= piece;
        if (encoder.Used == encoder.Output.size())
            WritePiece(encoder);
    }
}

void FlushOutput(png_structp) { }

bool Guarded(Encoder& encoder, void (*step)(Encoder&))
{
    if (setjmp(png_jmpbuf(encoder.Png)) != 0)
        return false;
    step(encoder);
    return true;
}

/// The fewest bits of 1, 2, 4 and 8 that number so many colours.
int IndexBits(size_t colors)
{
    const int bits = static_cast<int>(std::bit_width(colors - 1));
    return static_cast<int>(std::bit_ceil(static_cast<unsigned>(std::max(bits, 1))));
}

void ChooseForm(Encoder& encoder)
{
    encoder.Table = ColorTable::Of(*encoder.Context, encoder.Size);
    if (!encoder.Table)
        return;
    const int bits = IndexBits(encoder.Table->Colors().size());
    const bool isGrey = bits == 8 && encoder.Table->IsGrey();
    encoder.ColorType = isGrey ? PNG_COLOR_TYPE_GRAY : PNG_COLOR_TYPE_PALETTE;
    encoder.Bits = bits;
}

void PutPalette(Encoder& encoder)
{
    std::array<png_color, ColorTable::kMaxColors> colors{};
    const std::vector<uint32_t>& table = encoder.Table->Colors();
    std::ranges::transform(table, colors.begin(), [](uint32_t color) {
        return png_color{ static_cast<png_byte>(color >> 16U), static_cast<png_byte>(color >> 8U),
            static_cast<png_byte>(color) };
    });
    png_set_PLTE(encoder.Png, encoder.Info, colors.data(), static_cast<int>(table.size()));
}

void FillRow(Encoder& encoder, const uint32_t* pixels)
{
    uint8_t* row = encoder.Row.data();
    const auto width = static_cast<size_t>(encoder.Size.Width);
    if (encoder.ColorType == PNG_COLOR_TYPE_RGB) {
        for (size_t x = 0; x < width; ++x) {
            row[3 * x] = static_cast<uint8_t>(pixels[x] >> 16U);
            row[3 * x + 1] = static_cast<uint8_t>(pixels[x] >> 8U);
            row[3 * x + 2] = static_cast<uint8_t>(pixels[x]);
        }
    } else if (encoder.ColorType == PNG_COLOR_TYPE_GRAY) {
        std::transform(pixels, pixels + width, row, [](uint32_t color) { return static_cast<uint8_t>(color); });
    } else {
        std::transform(
            pixels, pixels + width, row, [&](uint32_t color) { return encoder.Table->IndexOf(color | kOpaque); });
    }
}

void WriteAll(Encoder& encoder)
{
    png_set_write_fn(encoder.Png, &encoder, &PutOutput, &FlushOutput);
    png_set_IHDR(encoder.Png, encoder.Info, static_cast<png_uint_32>(encoder.Size.Width),
        static_cast<png_uint_32>(encoder.Size.Height), encoder.Bits, encoder.ColorType, PNG_INTERLACE_NONE,
        PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    if (encoder.ColorType == PNG_COLOR_TYPE_PALETTE)
        PutPalette(encoder);
    png_set_filter(encoder.Png, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
    png_set_compression_level(encoder.Png, 2);
    png_write_info(encoder.Png, encoder.Info);
    png_set_packing(encoder.Png);
    for (int64_t y = 0; y < encoder.Size.Height; ++y) {
        FillRow(encoder, Line(*encoder.Context, y));
        png_write_row(encoder.Png, encoder.Row.data());
    }
    png_write_end(encoder.Png, encoder.Info);
    WritePiece(encoder);
}

} // namespace

bool WritePng(const char* path, const TvImgContext& context, PictureSize size)
{
    Encoder encoder;
    encoder.Context = &context;
    encoder.Size = size;
    ChooseForm(encoder);
    encoder.Row.resize(static_cast<size_t>(size.Width) * (encoder.ColorType == PNG_COLOR_TYPE_RGB ? 3 : 1));
    encoder.Output.resize(kPieceBytes);
    if (!encoder.File.Begin(path).Ok())
        return false;
    encoder.Png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, &OnError, &OnWarning);
    encoder.Info = encoder.Png == nullptr ? nullptr : png_create_info_struct(encoder.Png);
    return encoder.Info != nullptr && Guarded(encoder, &WriteAll) && encoder.File.Commit(true).Ok();
}

} // namespace tvimg
