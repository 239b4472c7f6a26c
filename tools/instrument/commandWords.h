// tools/instrument/commandWords.h: the words and numbers of commands.
#pragma once

#include <ctime>
#include <optional>
#include <string_view>

namespace tarvik {

/// True if both are the same word, whatever the case of the second.
bool SameWord(std::string_view capitals, std::string_view given);

/// True if `header`, in capitals, is `pattern`, of which each part may be shortened to its capitals: `MMEMory:DATA`.
bool HeaderMatches(std::string_view pattern, std::string_view header);

/// A decimal whole number of at most nine digits.
std::optional<int> ReadNumber(std::string_view text);

/// The date fields of a day from 1980 to 2107, which a disk can store, that the calendar has.
std::optional<std::tm> ReadDate(std::string_view year, std::string_view month, std::string_view day);

/// The time fields.
std::optional<std::tm> ReadTime(std::string_view hour, std::string_view minute, std::string_view second);

} // namespace tarvik
