#include "closed/tvscpi/answer.h"

#include "closed/tvscpi.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <limits>
#include <utility>

namespace tvscpi {

namespace {

bool IsDigit(char letter)
{
    return letter >= '0' && letter <= '9';
}

bool IsControl(char letter)
{
    const auto code = static_cast<unsigned char>(letter);
    return code < 0x20 || code == 0x7F;
}

/// Consumes fields from the front of an answer. After an invalid field all further reads fail.
class Fields {
public:
    explicit Fields(std::string_view line)
        : rest_(line)
    {
    }

    [[nodiscard]] bool AtEnd() const
    {
        return rest_.empty();
    }
    [[nodiscard]] bool Failed() const
    {
        return failed_;
    }

    bool Comma()
    {
        if (rest_.empty() || rest_.front() != ',')
            return Fail();
        rest_.remove_prefix(1);
        return true;
    }

    std::string_view Word()
    {
        const std::string_view word = rest_.substr(0, rest_.find(','));
        rest_.remove_prefix(word.size());
        return word;
    }

    int64_t Number(int64_t most)
    {
        const std::optional<int64_t> number = ParseNumber(Word(), most);
        if (!number)
            Fail();
        return number.value_or(0);
    }

    int16_t NextShort()
    {
        Comma();
        return static_cast<int16_t>(Number(std::numeric_limits<int16_t>::max()));
    }

    /// Reads a quoted text; `text` gets it without the quotes.
    bool Quoted(std::string& text)
    {
        if (rest_.empty() || rest_.front() != '"')
            return Fail();
        rest_.remove_prefix(1);
        text.clear();
        for (;;) {
            const size_t quote = rest_.find('"');
            if (quote == std::string_view::npos)
                return Fail();
            text += rest_.substr(0, quote);
            rest_.remove_prefix(quote + 1);
            if (rest_.empty() || rest_.front() != '"')
                return true;
            text += '"';
            rest_.remove_prefix(1);
        }
    }

private:
    bool Fail()
    {
        failed_ = true;
        rest_ = {};
        return false;
    }

    std::string_view rest_;
    bool failed_ = false;
};

constexpr std::array<std::pair<std::string_view, EntryType>, 2> kTypeWords{ { { "FILE", EntryType::File },
    { "DIR", EntryType::Folder } } };

EntryType TypeOfWord(std::string_view word)
{
    for (const auto& [text, type] : kTypeWords) {
        if (text == word)
            return type;
    }
    return EntryType::Other;
}

void RepairStamp(CatalogueEntry& entry)
{
    const std::chrono::year_month_day date(std::chrono::year(entry.Year),
        std::chrono::month(static_cast<unsigned>(entry.Month)), std::chrono::day(static_cast<unsigned>(entry.Day)));
    const bool isFourDigits = entry.Year >= 1000 && entry.Year <= 9999;
    const bool isShort = entry.Month <= 12 && entry.Day <= 31; // std::chrono's calendar types keep only eight bits
    if (isFourDigits && isShort && date.ok() && entry.Hour < 24 && entry.Minute < 60 && entry.Second < 60)
        return;
    entry.Year = 1980;
    entry.Month = entry.Day = 1;
    entry.Hour = entry.Minute = entry.Second = 0;
}

CatalogueEntry NextEntry(Fields& fields)
{
    CatalogueEntry entry;
    fields.Comma();
    fields.Quoted(entry.Name);
    fields.Comma();
    entry.Type = TypeOfWord(fields.Word());
    fields.Comma();
    (void)fields.Number(std::numeric_limits<int64_t>::max()); // the size, which no caller needs
    entry.Year = fields.NextShort();
    entry.Month = fields.NextShort();
    entry.Day = fields.NextShort();
    entry.Hour = fields.NextShort();
    entry.Minute = fields.NextShort();
    entry.Second = fields.NextShort();
    RepairStamp(entry);
    return entry;
}

} // namespace

std::optional<int64_t> ParseNumber(std::string_view text, int64_t most)
{
    int64_t value = 0;
    if (text.empty() || !IsDigit(text.front()))
        return std::nullopt; // a sign is not a digit
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || value > most)
        return std::nullopt;
    return value;
}

bool HasControlCharacter(std::string_view text)
{
    return std::any_of(text.begin(), text.end(), IsControl);
}

bool IsPlainName(std::string_view name)
{
    return !name.empty() && name.size() <= TVSCPI_MAX_NAME && name != "." && name != ".."
        && name.find_first_of("\\/:") == std::string_view::npos && !HasControlCharacter(name);
}

std::optional<int> ParseErrorLine(std::string_view line)
{
    const bool isNegative = !line.empty() && line.front() == '-';
    Fields fields(isNegative ? line.substr(1) : line);
    const int64_t most = std::numeric_limits<int16_t>::max();
    const auto code = static_cast<int>(fields.Number(isNegative ? most + 1 : most));
    std::string text;
    fields.Comma();
    fields.Quoted(text);
    if (fields.Failed() || !fields.AtEnd() || HasControlCharacter(text))
        return std::nullopt;
    return isNegative ? -code : code;
}

std::optional<std::string> ParseQuoted(std::string_view line)
{
    Fields fields(line);
    std::string text;
    if (!fields.Quoted(text) || !fields.AtEnd() || HasControlCharacter(text))
        return std::nullopt;
    return text;
}

std::optional<Found> ParseFound(std::string_view line)
{
    if (line == "0")
        return Found{};
    if (!line.starts_with("1,"))
        return std::nullopt;
    const EntryType type = TypeOfWord(line.substr(2));
    if (type == EntryType::Other)
        return std::nullopt;
    return Found{ true, type };
}

std::optional<Catalogue> ParseCatalogue(std::string_view line)
{
    Fields fields(line);
    Catalogue catalogue;
    catalogue.UsedBytes = fields.Number(std::numeric_limits<int64_t>::max());
    fields.Comma();
    catalogue.FreeBytes = fields.Number(std::numeric_limits<int64_t>::max());
    while (!fields.AtEnd()) {
        CatalogueEntry entry = NextEntry(fields);
        if (!fields.Failed() && IsPlainName(entry.Name))
            catalogue.Entries.push_back(std::move(entry));
    }
    if (fields.Failed())
        return std::nullopt;
    return catalogue;
}

std::optional<size_t> ParseBlockDigits(std::string_view start)
{
    if (start.size() < 2 || start[0] != '#' || start[1] < '1' || start[1] > '9')
        return std::nullopt;
    return static_cast<size_t>(start[1] - '0');
}

} // namespace tvscpi
