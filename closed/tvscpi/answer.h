// closed/tvscpi/answer.h: the instrument's answers, taken apart. Whatever does not have exactly the form that is told
// here is no answer: the functions then give nothing.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tvscpi {

/// The code of an error line: `CODE,"TEXT"`. 0 is no error; codes are -32768 to 32767.
[[nodiscard]] std::optional<int> ParseErrorLine(std::string_view line);

/// The text between quotes, where a quote is doubled, and nothing around them. Control characters are not allowed.
[[nodiscard]] std::optional<std::string> ParseQuoted(std::string_view line);

enum class EntryType { File, Folder, Other };

/// The answer to a find: `0`, `1,FILE` or `1,DIR`.
struct Found {
    bool Exists = false;
    EntryType Type = EntryType::File;
};
[[nodiscard]] std::optional<Found> ParseFound(std::string_view line);

struct CatalogueEntry {
    std::string Name;
    EntryType Type = EntryType::File;
    int16_t Year = 0;
    int16_t Month = 0;
    int16_t Day = 0;
    int16_t Hour = 0;
    int16_t Minute = 0;
    int16_t Second = 0;
};

/// A catalogue: `USED,FREE` in bytes, then for each entry `,"NAME",TYPE,SIZE,YEAR,MONTH,DAY,HOUR,MINUTE,SECOND`.
///
/// Entries whose name could stand for another place than the current folder, or can't be shown, are left out. A stamp
/// that no calendar has becomes midnight of 1980-01-01.
struct Catalogue {
    int64_t UsedBytes = 0;
    int64_t FreeBytes = 0;
    std::vector<CatalogueEntry> Entries;
};
[[nodiscard]] std::optional<Catalogue> ParseCatalogue(std::string_view line);

/// Most characters that a block's head has: `#`, the count of digits, nine digits.
inline constexpr size_t kMaxBlockHead = 11;

/// The digits of a block's length, by its first two bytes: `#` and 1 to 9. The form without a length is not taken.
[[nodiscard]] std::optional<size_t> ParseBlockDigits(std::string_view start);

/// A number of one or more digits and nothing else, at most `most`.
[[nodiscard]] std::optional<int64_t> ParseNumber(std::string_view text, int64_t most);

/// True for a name that stands for one entry of the current folder on any system: 1 to 255 characters, none of them a
/// separator, a colon or a control character, and neither "." nor "..".
[[nodiscard]] bool IsPlainName(std::string_view name);

/// True if a character below a blank, or the delete character, is in it.
[[nodiscard]] bool HasControlCharacter(std::string_view text);

} // namespace tvscpi
