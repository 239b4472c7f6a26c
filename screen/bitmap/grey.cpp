#include "screen/bitmap/grey.h"

#include <array>
#include <bit>

#if defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__))
#define TARVIK_HAS_VECTORS
#include <immintrin.h>
#endif

namespace tarvik {

namespace {

constexpr double kBlueWeight = 0.299;
constexpr double kGreenWeight = 0.587;
constexpr double kRedWeight = 0.114;

using Products = std::array<double, 256>;

constexpr Products ProductsOf(double weight)
{
    Products products{};
    for (size_t level = 0; level < products.size(); ++level)
        products[level] = static_cast<double>(level) * weight;
    return products;
}

constexpr Products kBlue = ProductsOf(kBlueWeight);
constexpr Products kGreen = ProductsOf(kGreenWeight);
constexpr Products kRed = ProductsOf(kRedWeight);

/// Adding this rounds a small number to the nearest integer, halves to even, in the low bits of the sum.
constexpr double kRounder = 6755399441055744.0; // 1.5 * 2^52

uint32_t Grey(uint32_t pixel)
{
    const double grey = kGreen[pixel >> 8 & 0xFF] + kBlue[pixel & 0xFF] + kRed[pixel >> 16 & 0xFF];
    return static_cast<uint32_t>(std::bit_cast<uint64_t>(grey + kRounder) & 0xFF);
}

#if defined(TARVIK_HAS_VECTORS)

constexpr int kLanes = 8;

/// Evaluates the formula itself for four pixels.
__attribute__((target("avx2"))) inline __m128i GreysOfFour(__m128i blue, __m128i green, __m128i red)
{
    const __m256d greenPart = _mm256_mul_pd(_mm256_cvtepi32_pd(green), _mm256_set1_pd(kGreenWeight));
    const __m256d bluePart = _mm256_mul_pd(_mm256_cvtepi32_pd(blue), _mm256_set1_pd(kBlueWeight));
    const __m256d redPart = _mm256_mul_pd(_mm256_cvtepi32_pd(red), _mm256_set1_pd(kRedWeight));
    return _mm256_cvtpd_epi32(_mm256_add_pd(_mm256_add_pd(greenPart, bluePart), redPart));
}

__attribute__((target("avx2"))) inline __m256i GreysByFloats(__m256i pixels)
{
    const __m256i low = _mm256_set1_epi32(0xFF);
    const __m256i blue = _mm256_and_si256(pixels, low);
    const __m256i green = _mm256_and_si256(_mm256_srli_epi32(pixels, 8), low);
    const __m256i red = _mm256_and_si256(_mm256_srli_epi32(pixels, 16), low);
    const __m128i first =
        GreysOfFour(_mm256_castsi256_si128(blue), _mm256_castsi256_si128(green), _mm256_castsi256_si128(red));
    const __m128i second = GreysOfFour(
        _mm256_extracti128_si256(blue, 1), _mm256_extracti128_si256(green, 1), _mm256_extracti128_si256(red, 1));
    return _mm256_set_m128i(second, first);
}

/// In integer arithmetic: twice the sum in thousandths, plus 1001 for rounding. The quotient is never so close to an
/// integer that the 32-bit float is wrong. At exact halves the floating-point formula can round either way, so the
/// formula itself decides.
__attribute__((target("avx2"))) inline __m256i Greys(__m256i pixels)
{
    const __m256i blueAndRed = _mm256_and_si256(pixels, _mm256_set1_epi32(0x00FF00FF));
    const __m256i green = _mm256_srli_epi16(pixels, 8); // alpha in the upper half has weight 0
    const __m256i sum =
        _mm256_add_epi32(_mm256_add_epi32(_mm256_madd_epi16(blueAndRed, _mm256_set1_epi32(2 * 114 << 16 | 2 * 299)),
                             _mm256_madd_epi16(green, _mm256_set1_epi32(2 * 587))),
            _mm256_set1_epi32(1001));
    const __m256i greys = _mm256_cvttps_epi32(_mm256_mul_ps(_mm256_cvtepi32_ps(sum), _mm256_set1_ps(1.0F / 2000)));
    const __m256i rest = _mm256_sub_epi32(sum, _mm256_madd_epi16(greys, _mm256_set1_epi32(2000)));
    const __m256i halves = _mm256_cmpeq_epi32(rest, _mm256_set1_epi32(1));
    return _mm256_movemask_epi8(halves) == 0 ? greys : GreysByFloats(pixels);
}

/// Returns the number of pixels converted: all but the last few.
__attribute__((target("avx2"))) int ConvertByVectors(uint32_t* pixels, int count)
{
    const __m256i toAllChannels = _mm256_setr_epi8(
        0, 0, 0, -1, 4, 4, 4, -1, 8, 8, 8, -1, 12, 12, 12, -1, 0, 0, 0, -1, 4, 4, 4, -1, 8, 8, 8, -1, 12, 12, 12, -1);
    int at = 0;
    for (; at + kLanes <= count; at += kLanes) {
        auto* const place = reinterpret_cast<__m256i*>(pixels + at);
        const __m256i grey = _mm256_shuffle_epi8(Greys(_mm256_loadu_si256(place)), toAllChannels);
        _mm256_storeu_si256(place, _mm256_xor_si256(grey, _mm256_set1_epi32(-1)));
    }
    return at;
}

int ConvertFast(uint32_t* pixels, int count)
{
    static const bool canDoEight = __builtin_cpu_supports("avx2") != 0;
    return canDoEight ? ConvertByVectors(pixels, count) : 0;
}

#else

int ConvertFast(uint32_t*, int)
{
    return 0;
}

#endif

} // namespace

void GreyRow(uint32_t* pixels, int count)
{
    const int done = ConvertFast(pixels, count);
    GreyRowScalar(pixels + done, count - done);
}

void GreyRowScalar(uint32_t* pixels, int count)
{
    for (int at = 0; at < count; ++at)
        pixels[at] = 0xFF000000U | (0xFF - Grey(pixels[at])) * 0x010101U;
}

} // namespace tarvik
