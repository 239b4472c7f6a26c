#include "closed/tvgen/helpers.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <ctime>
#include <string_view>
#if defined(_WIN32)
#include <filesystem>
#include <string>
#endif

#include <sys/stat.h>
#include <sys/types.h>

namespace {

/// Day 0 of packed dates.
constexpr std::chrono::sys_days kPackedEpoch = std::chrono::year(1899) / 12 / 30;
constexpr int kLastYear = 9999;

/// Two-digit years mean 1930 to 2029.
constexpr int kTwoDigitYears = 100;
constexpr int kFirstYearOfThe1900s = 30;

bool LastChange(const char* path, std::time_t& changed)
{
#if defined(_WIN32)
    struct _stat64 status { };
    const std::string text(path);
    const std::u8string utf8(text.begin(), text.end());
    if (_wstat64(std::filesystem::path(utf8).c_str(), &status) != 0)
        return false;
#else
    struct stat status { };
    if (::stat(path, &status) != 0)
        return false;
#endif
    changed = status.st_mtime;
    return true;
}

bool ToLocal(std::time_t moment, std::tm& local)
{
#if defined(_WIN32)
    return localtime_s(&local, &moment) == 0;
#else
    return localtime_r(&moment, &local) != nullptr;
#endif
}

/// Consumes the next number at the front of `text`, skipping leading blanks.
bool TakeNumber(std::string_view& text, int& number)
{
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    if (text.empty() || text.front() < '0' || text.front() > '9')
        return false;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    text.remove_prefix(static_cast<size_t>(end - text.data()));
    return error == std::errc() && (text.empty() || text.front() == ' ');
}

int FullYear(int year)
{
    if (year >= kTwoDigitYears)
        return year;
    return year + (year < kFirstYearOfThe1900s ? 2000 : 1900);
}

} // namespace

int16_t FileDateAndTime(
    const char* path, int16_t* year, int16_t* month, int16_t* day, int16_t* hour, int16_t* minute, int16_t* second)
{
    if (path == nullptr || year == nullptr || month == nullptr || day == nullptr || hour == nullptr || minute == nullptr
        || second == nullptr)
        return 1;
    std::time_t changed = 0;
    std::tm local{};
    if (!LastChange(path, changed) || !ToLocal(changed, local) || local.tm_year > kLastYear - 1900)
        return 1;
    *year = static_cast<int16_t>(local.tm_year + 1900);
    *month = static_cast<int16_t>(local.tm_mon + 1);
    *day = static_cast<int16_t>(local.tm_mday);
    *hour = static_cast<int16_t>(local.tm_hour);
    *minute = static_cast<int16_t>(local.tm_min);
    *second = static_cast<int16_t>(local.tm_sec);
    return 0;
}

int16_t TextToDate(const char* text, double* date)
{
    if (text == nullptr || date == nullptr)
        return 1;
    std::string_view rest = text;
    int month = 0;
    int day = 0;
    int year = 0;
    if (!TakeNumber(rest, month) || !TakeNumber(rest, day) || !TakeNumber(rest, year))
        return 1;
    const bool hasMore = rest.find_first_not_of(' ') != std::string_view::npos;
    if (hasMore || month > 12 || day > 31 || year > kLastYear)
        return 1;
    const std::chrono::year_month_day found(std::chrono::year(FullYear(year)),
        std::chrono::month(static_cast<unsigned>(month)), std::chrono::day(static_cast<unsigned>(day)));
    if (!found.ok())
        return 1;
    *date = static_cast<double>((std::chrono::sys_days(found) - kPackedEpoch).count());
    return 0;
}
