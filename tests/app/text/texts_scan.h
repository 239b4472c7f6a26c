// tests/app/text/texts_scan.h: finds the text numbers in C++ sources, for the tests that every one of them has its
// text.
#pragma once

#include <QString>

#include <map>
#include <vector>

namespace tarvik {

/// A text or help number that stands in a source, outside comments and string literals.
struct NumberUse {
    int Number = 0;
    QString Place; ///< "file:line"
};

/// A call of one of the functions that fetch a text, with a number that the scan could work out.
struct TextCall {
    QString Function;
    int Number = 0;
    int Arguments = 0; ///< how many places of the text the call fills
    QString Place;
};

struct SourceScan {
    std::vector<NumberUse> Numbers;
    std::vector<TextCall> Calls;
};

/// Constants that headers share, by name. A name that stands for two numbers is left out.
using SharedConstants = std::map<QString, int>;

/// `source` with comments and the contents of string and character literals blanked, lines kept.
QString WithoutCommentsAndStrings(const QString& source);

/// Scans one source. Constants (`kName = 12734`, `Name = 12734` in an enumeration) count where a call names them;
/// the source's own ones come before the shared ones.
void ScanSource(const QString& file, const QString& source, const SharedConstants& shared, SourceScan& scan);

/// Scans every source below the folders that may show text. `root` is the source tree.
SourceScan ScanTree(const QString& root);

} // namespace tarvik
