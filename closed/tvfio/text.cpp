#include "closed/tvfio/text.h"

namespace tvfio {

namespace {

/// Control characters but the tab, and the bytes that Windows-1252 leaves unassigned.
bool IsForbidden(unsigned char letter)
{
    switch (letter) {
    case 0x7F:
    case 0x81:
    case 0x8D:
    case 0x8F:
    case 0x90:
    case 0x9D:
        return true;
    default:
        return letter < 0x20 && letter != '\t';
    }
}

/// The lower-case form of a Windows-1252 letter.
unsigned char Fold(char letter)
{
    const auto code = static_cast<unsigned char>(letter);
    if ((code >= 'A' && code <= 'Z') || (code >= 0xC0 && code <= 0xDE && code != 0xD7))
        return static_cast<unsigned char>(code + 0x20);
    switch (code) {
    case 0x8A: // S with caron, OE ligature and Z with caron
    case 0x8C:
    case 0x8E:
        return static_cast<unsigned char>(code + 0x10);
    case 0x9F: // Y with diaeresis
        return 0xFF;
    default:
        return code;
    }
}

} // namespace

FioStatus CheckText(std::string_view text, const TextRule& rule)
{
    if (text.size() > static_cast<size_t>(rule.MaxLength))
        return rule.TooLong;
    const bool isRefused = std::any_of(
        text.begin(), text.end(), [](char letter) { return IsForbidden(static_cast<unsigned char>(letter)); });
    return isRefused ? rule.Characters : FioStatus::Ok;
}

int CompareNoCase(std::string_view left, std::string_view right)
{
    const size_t common = std::min(left.size(), right.size());
    for (size_t i = 0; i < common; ++i) {
        const int difference = Fold(left[i]) - Fold(right[i]);
        if (difference != 0)
            return difference;
    }
    return left.size() == right.size() ? 0 : (left.size() < right.size() ? -1 : 1);
}

} // namespace tvfio
