// closed/tvlng/readTable.h: reads a table "number<TAB>content", for the programs that generate sources from it.
#pragma once

#include <istream>
#include <map>
#include <string>

/// The lines of the table by their number; empty lines and those that begin with # are left out. Throws
/// std::runtime_error for a line without tab and for a number that occurs twice.
std::map<int, std::string> ReadTable(std::istream& in);
