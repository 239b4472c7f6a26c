#include "closed/tvlng/readTable.h"

#include <stdexcept>

std::map<int, std::string> ReadTable(std::istream& in)
{
    std::map<int, std::string> contents;
    int lineNumber = 0;
    for (std::string line; std::getline(in, line);) {
        ++lineNumber;
        if (line.empty() || line[0] == '#')
            continue;
        const std::string place = "line " + std::to_string(lineNumber) + ": ";
        const size_t tab = line.find('\t');
        if (tab == std::string::npos)
            throw std::runtime_error(place + "no tab");
        const int number = std::stoi(line.substr(0, tab));
        if (!contents.emplace(number, line.substr(tab + 1)).second)
            throw std::runtime_error(place + "number " + std::to_string(number) + " occurs twice");
    }
    return contents;
}
