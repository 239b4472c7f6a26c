// closed/tvlng/readTable.h: reads a table "number<TAB>content" for the generators of sources.
#pragma once

#include <istream>
#include <map>
#include <string>

/// The lines of the table by number, without empty lines and lines that start with #. Throws std::runtime_error for a
/// line without a tab and for a duplicate number.
std::map<int, std::string> ReadTable(std::istream& in);
