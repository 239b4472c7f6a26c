// Turns a table "number<TAB>text" (UTF-8) into a C++ source with the texts in Windows-1252. Duplicate numbers and
// characters outside Windows-1252 are build errors.
#include "closed/tvlng/readTable.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

namespace {

constexpr std::array<unsigned, 32> kSpecials{ 0x20AC, 0x81, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6,
    0x2030, 0x0160, 0x2039, 0x0152, 0x8D, 0x017D, 0x8F, 0x90, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D, 0x017E, 0x0178 };

unsigned NextCodePoint(const std::string& text, size_t& at)
{
    const auto byte = [&text](size_t index) { return static_cast<unsigned char>(text.at(index)); };
    const unsigned first = byte(at++);
    if (first < 0x80)
        return first;
    const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
    unsigned code = first & (0x3Fu >> more);
    for (int count = 0; count < more; ++count)
        code = code << 6 | (byte(at++) & 0x3Fu);
    return code;
}

unsigned AnsiByte(unsigned code)
{
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF))
        return code;
    for (unsigned index = 0; index < kSpecials.size(); ++index) {
        if (kSpecials[index] == code)
            return 0x80 + index;
    }
    throw std::runtime_error("a character outside Windows-1252");
}

/// `\n` and `\t` in a text mean a line end and a tab.
std::string Literal(const std::string& text)
{
    std::string literal;
    for (size_t at = 0; at < text.size();) {
        unsigned code = NextCodePoint(text, at);
        if (code == '\\' && at < text.size()) {
            const unsigned next = NextCodePoint(text, at);
            code = next == 'n' ? '\n' : next == 't' ? '\t' : next;
        }
        std::array<char, 8> octal{};
        std::snprintf(octal.data(), octal.size(), "\\%03o", AnsiByte(code));
        literal += octal.data();
    }
    return literal;
}

void WriteSource(std::ostream& out, const std::map<int, std::string>& texts)
{
    out << "#include \"closed/tvlng/table.h\"\n\nextern const TvText kTvTexts[] = {\n";
    for (const auto& [number, text] : texts)
        out << "    {" << number << ", \"" << Literal(text) << "\"},\n";
    out << "};\nextern const size_t kTvTextCount = " << texts.size() << ";\n";
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::cerr << "usage: tvlng_maketable TABLE SOURCE\n";
        return EXIT_FAILURE;
    }
    try {
        std::ifstream in(argv[1], std::ios::binary);
        std::ofstream out(argv[2], std::ios::binary);
        WriteSource(out, ReadTable(in));
        return out.flush() ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const std::exception& error) {
        std::cerr << argv[1] << ": " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
