// tools/instrument/commandWords.h: parsing of the words and numbers of commands.
#pragma once

#include <ctime>
#include <optional>
#include <string_view>

namespace tarvik {

/// Compares two words; the case of the second is ignored.
bool IsSameWord(std::string_view capitals, std::string_view given);

/// True if `header`, in capitals, matches `pattern`, each part of which may be shortened to its capitals:
/// `MMEMory:DATA`.
bool HeaderMatches(std::string_view pattern, std::string_view header);

/// A non-negative decimal integer of at most nine digits.
std::optional<int> ReadNumber(std::string_view text);

/// The date fields of a valid day from 1980 to 2107, the range of the file system.
std::optional<std::tm> ReadDate(std::string_view year, std::string_view month, std::string_view day);

/// The time fields of a valid time of day.
std::optional<std::tm> ReadTime(std::string_view hour, std::string_view minute, std::string_view second);

} // namespace tarvik
