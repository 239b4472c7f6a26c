// Turns a table "number<TAB>name" into a C++ header with one constant for each name. The type of the constant
// holds the number of placeholders of its text. The header is written only if it changes, so that a change of wording
// recompiles nothing.
#include "closed/tvlng/readTable.h"

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string_view>

namespace {

using Table = std::map<int, std::string>;

constexpr std::string_view kHelpPrefix = "HelpId::";

/// Number of different placeholders (%1 to %3) in `text`.
int PlacesOf(const std::string& text)
{
    int places = 0;
    for (const char* place : { "%1", "%2", "%3" })
        places += text.find(place) == std::string::npos ? 0 : 1;
    return places;
}

/// Removes parts in braces, which are shown only with their arguments.
std::string WithoutOptionalParts(std::string text)
{
    for (size_t open = text.find('{'); open != std::string::npos; open = text.find('{', open)) {
        const size_t close = text.find('}', open);
        text.erase(open, close == std::string::npos ? close : close + 1 - open);
    }
    return text;
}

std::string TypeOf(const std::string& text)
{
    const int least = PlacesOf(WithoutOptionalParts(text));
    const int most = PlacesOf(text);
    return "TextNumber<" + std::to_string(least) + (most == least ? "" : ", " + std::to_string(most)) + ">";
}

std::string Header(const Table& names, const Table& texts)
{
    std::ostringstream textIds;
    std::ostringstream helpIds;
    std::set<std::string> seen;
    for (const auto& [number, name] : names) {
        if (!seen.insert(name).second)
            throw std::runtime_error("name " + name + " occurs twice");
        const auto text = texts.find(number);
        const bool isHelp = name.starts_with(kHelpPrefix);
        if (isHelp == (text != texts.end()))
            throw std::runtime_error(name + (isHelp ? " has a text" : " has no text"));
        if (isHelp)
            helpIds << "inline constexpr int " << name.substr(kHelpPrefix.size()) << " = " << number << ";\n";
        else
            textIds << "inline constexpr " << TypeOf(text->second) << ' ' << name << "{ " << number << " };\n";
    }
    return "// Generated from the tables of texts and of their names.\n#pragma once\n\n"
           "#include \"app/text/textNumber.h\"\n\nnamespace tarvik::TextId {\n"
        + textIds.str() + "}\n\nnamespace tarvik::HelpId {\n" + helpIds.str() + "}\n";
}

Table ReadFile(const char* path)
{
    std::ifstream in(path, std::ios::binary);
    return ReadTable(in);
}

bool Holds(const char* path, const std::string& content)
{
    std::ifstream in(path, std::ios::binary);
    return in && std::string(std::istreambuf_iterator<char>(in), {}) == content;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4) {
        std::cerr << "usage: tvlng_makenames TEXTS NAMES HEADER\n";
        return EXIT_FAILURE;
    }
    try {
        const std::string header = Header(ReadFile(argv[2]), ReadFile(argv[1]));
        if (Holds(argv[3], header))
            return EXIT_SUCCESS;
        std::ofstream out(argv[3], std::ios::binary);
        out << header;
        return out.flush() ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const std::exception& error) {
        std::cerr << argv[2] << ": " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
