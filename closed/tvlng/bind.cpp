#include "closed/tvlng.h"

#include "closed/tvlng/table.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

/// The text of `id`, or null.
const char* FindText(int32_t id)
{
    const TvText* end = kTvTexts + kTvTextCount;
    const TvText* found =
        std::lower_bound(kTvTexts, end, id, [](const TvText& text, int32_t number) { return text.Number < number; });
    return found != end && found->Number == id ? found->Text : nullptr;
}

/// Appends text to a buffer of limited size.
class Output {
public:
    Output(char* out, int32_t size)
        : out_(out)
        , left_(size - 1)
    {
    }

    void Add(std::string_view text)
    {
        const auto count = std::min<int32_t>(static_cast<int32_t>(text.size()), std::max(left_, 0));
        std::copy_n(text.data(), count, out_ + length_);
        length_ += count;
        left_ -= count;
    }

    int32_t Finish()
    {
        if (left_ >= 0)
            out_[length_] = '\0';
        return length_;
    }

private:
    char* out_;
    int32_t left_;
    int32_t length_ = 0;
};

using Arguments = std::array<const char*, 3>;

/// Index of the argument whose placeholder is at `at`, or -1.
int PlaceAt(std::string_view text, size_t at)
{
    const bool isPlace = text[at] == '%' && at + 1 < text.size() && text[at + 1] >= '1' && text[at + 1] <= '3';
    return isPlace ? text[at + 1] - '1' : -1;
}

const char* ArgumentOf(const Arguments& arguments, int place)
{
    return arguments[static_cast<size_t>(place)];
}

/// True if every placeholder in `part` has an argument.
bool IsFilled(std::string_view part, const Arguments& arguments)
{
    for (size_t at = 0; at < part.size(); ++at) {
        const int place = PlaceAt(part, at);
        if (place >= 0 && ArgumentOf(arguments, place) == nullptr)
            return false;
    }
    return true;
}

/// Appends a text without braces. Placeholders in arguments are not replaced.
void AddPart(Output& output, std::string_view part, const Arguments& arguments)
{
    for (size_t at = 0; at < part.size(); ++at) {
        const int place = PlaceAt(part, at);
        if (place < 0) {
            output.Add(part.substr(at, 1));
            continue;
        }
        const char* argument = ArgumentOf(arguments, place);
        output.Add(argument == nullptr ? std::string_view() : std::string_view(argument));
        ++at;
    }
}

int32_t Fill(const char* text, const Arguments& arguments, char* out, int32_t outSize)
{
    Output output(out, outSize);
    std::string_view rest(text == nullptr ? "" : text);
    while (!rest.empty()) {
        const size_t open = rest.find('{');
        const size_t close = open == rest.npos ? rest.npos : rest.find('}', open);
        if (close == rest.npos) {
            AddPart(output, rest, arguments);
            break;
        }
        AddPart(output, rest.substr(0, open), arguments);
        const std::string_view optional = rest.substr(open + 1, close - open - 1);
        if (IsFilled(optional, arguments))
            AddPart(output, optional, arguments);
        rest.remove_prefix(close + 1);
    }
    return output.Finish();
}

int32_t GetStr3Arg(
    int32_t id, const char* fallback, const char* arg1, const char* arg2, const char* arg3, char* out, int32_t outSize)
{
    const char* text = FindText(id);
    return Fill(text == nullptr ? fallback : text, { arg1, arg2, arg3 }, out, outSize);
}

int32_t GetStr2Arg(int32_t id, const char* fallback, const char* arg1, const char* arg2, char* out, int32_t outSize)
{
    return GetStr3Arg(id, fallback, arg1, arg2, nullptr, out, outSize);
}

int32_t GetStr1Arg(int32_t id, const char* fallback, const char* arg1, char* out, int32_t outSize)
{
    return GetStr3Arg(id, fallback, arg1, nullptr, nullptr, out, outSize);
}

int32_t GetStr(int32_t id, const char* fallback, char* out, int32_t outSize)
{
    return GetStr3Arg(id, fallback, nullptr, nullptr, nullptr, out, outSize);
}

/// English needs no adjustments: the forms are laid out for it.
int16_t GetCtrlSize(int32_t, int32_t*, int32_t*, int32_t*, int32_t*)
{
    return 0;
}

} // namespace

int16_t TvLngBind(TvLngApi* api)
{
    if (api == nullptr || api->Size < sizeof(TvLngApi))
        return 1;
    api->LngGetStr = GetStr;
    api->LngGetStr1Arg = GetStr1Arg;
    api->LngGetStr2Arg = GetStr2Arg;
    api->LngGetStr3Arg = GetStr3Arg;
    api->LngGetCtrlSize = GetCtrlSize;
    return 0;
}
