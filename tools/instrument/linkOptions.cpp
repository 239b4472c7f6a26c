#include "tools/instrument/linkOptions.h"

#include "tools/instrument/commandWords.h"

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

struct FaultWord {
    const char* Word;
    FaultKind Kind;
};

constexpr std::array kWords{ FaultWord{ "drop", FaultKind::Drop }, FaultWord{ "stall", FaultKind::Stall },
    FaultWord{ "garbage", FaultKind::Garbage }, FaultWord{ "cut", FaultKind::Cut },
    FaultWord{ "refuse", FaultKind::Refuse } };

} // namespace

std::optional<Fault> ReadFault(std::string_view text)
{
    const size_t end = text.find('=');
    const std::string_view word = text.substr(0, end);
    const auto found =
        std::find_if(kWords.begin(), kWords.end(), [word](const FaultWord& known) { return word == known.Word; });
    if (found == kWords.end())
        return {};
    if (end == std::string_view::npos)
        return Fault{ found->Kind, 1 };
    const auto number = ReadNumber(text.substr(end + 1));
    if (!number || *number < 1)
        return {};
    return Fault{ found->Kind, static_cast<std::uint64_t>(*number) };
}

} // namespace tarvik
