#include "tools/instrument/commandWords.h"

#include "tools/instrument/storage.h"

#include <algorithm>
#include <charconv>
#include <chrono>

namespace tarvik {

namespace {

bool IsSmall(char byte)
{
    return byte >= 'a' && byte <= 'z';
}

char Capital(char byte)
{
    return IsSmall(byte) ? static_cast<char>(byte - 'a' + 'A') : byte;
}

/// Removes and returns the part up to and including the next colon.
std::string_view TakePart(std::string_view& header)
{
    const std::string_view part = header.substr(0, header.find(':'));
    header.remove_prefix(std::min(part.size() + 1, header.size()));
    return part;
}

bool PartMatches(std::string_view pattern, std::string_view part)
{
    const auto small = std::find_if(pattern.begin(), pattern.end(), IsSmall);
    const std::string_view shortForm = pattern.substr(0, static_cast<size_t>(small - pattern.begin()));
    return part == shortForm
        || std::equal(pattern.begin(), pattern.end(), part.begin(), part.end(),
            [](char wanted, char given) { return Capital(wanted) == given; });
}

/// A number within limits, both inclusive.
std::optional<int> ReadWithin(std::string_view text, int lowest, int highest)
{
    const auto number = ReadNumber(text);
    return number && *number >= lowest && *number <= highest ? number : std::nullopt;
}

} // namespace

bool IsSameWord(std::string_view capitals, std::string_view given)
{
    return std::equal(capitals.begin(), capitals.end(), given.begin(), given.end(),
        [](char wanted, char byte) { return wanted == Capital(byte); });
}

bool HeaderMatches(std::string_view pattern, std::string_view header)
{
    if (std::count(pattern.begin(), pattern.end(), ':') != std::count(header.begin(), header.end(), ':'))
        return false;
    while (!pattern.empty()) {
        if (!PartMatches(TakePart(pattern), TakePart(header)))
            return false;
    }
    return true;
}

std::optional<int> ReadNumber(std::string_view text)
{
    int number = 0;
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    return read.ec == std::errc() && read.ptr == end && text.size() <= 9 ? std::optional(number) : std::nullopt;
}

std::optional<std::tm> ReadDate(std::string_view year, std::string_view month, std::string_view day)
{
    const auto y = ReadWithin(year, kFirstYear, kLastYear);
    const auto m = ReadWithin(month, 1, 12);
    const auto d = ReadWithin(day, 1, 31);
    if (!y || !m || !d)
        return {};
    const std::chrono::year_month_day date{ std::chrono::year(*y), std::chrono::month(static_cast<unsigned>(*m)),
        std::chrono::day(static_cast<unsigned>(*d)) };
    if (!date.ok())
        return {};
    std::tm fields{};
    fields.tm_year = *y - 1900;
    fields.tm_mon = *m - 1;
    fields.tm_mday = *d;
    return fields;
}

std::optional<std::tm> ReadTime(std::string_view hour, std::string_view minute, std::string_view second)
{
    const auto h = ReadWithin(hour, 0, 23);
    const auto m = ReadWithin(minute, 0, 59);
    const auto s = ReadWithin(second, 0, 59);
    if (!h || !m || !s)
        return {};
    std::tm fields{};
    fields.tm_hour = *h;
    fields.tm_min = *m;
    fields.tm_sec = *s;
    return fields;
}

} // namespace tarvik
