// closed/tvscpi/answer.h: parsers for the instrument's answers. Anything that does not match the documented form
// exactly is invalid: the functions return nullopt.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tvscpi {

/// The code of an error line: `CODE,"TEXT"`. 0 means no error; codes are -32768 to 32767.
[[nodiscard]] std::optional<int> ParseErrorLine(std::string_view line);

/// The text between quotes; a quote inside is doubled, and nothing may surround them. Control characters are invalid.
[[nodiscard]] std::optional<std::string> ParseQuoted(std::string_view line);

enum class EntryType { File, Folder, Other };

/// The answer to a find command: `0`, `1,FILE` or `1,DIR`.
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
/// Entries are skipped if their name could refer to a place other than the current folder or can't be shown. An
/// invalid time stamp becomes midnight of 1980-01-01.
struct Catalogue {
    int64_t UsedBytes = 0;
    int64_t FreeBytes = 0;
    std::vector<CatalogueEntry> Entries;
};
[[nodiscard]] std::optional<Catalogue> ParseCatalogue(std::string_view line);

/// Maximum length of a block's header: `#`, the digit count, nine digits.
inline constexpr size_t kMaxBlockHead = 11;

/// The number of length digits, from the first two bytes of a block: `#` and 1 to 9. Blocks of indefinite length are
/// not supported.
[[nodiscard]] std::optional<size_t> ParseBlockDigits(std::string_view start);

/// A decimal number without sign or blanks, at most `most`.
[[nodiscard]] std::optional<int64_t> ParseNumber(std::string_view text, int64_t most);

/// True for a name that refers to an entry of the current folder on any system: 1 to 255 characters, no separator,
/// colon or control character, and neither "." nor "..".
[[nodiscard]] bool IsPlainName(std::string_view name);

/// True if `text` contains a control character, delete included.
[[nodiscard]] bool HasControlCharacter(std::string_view text);

} // namespace tvscpi
