// tests/app/text/texts_scan.h: finds the numbers and names of texts in C++ sources, to test that each has its text.
#pragma once

#include <QString>

#include <map>
#include <vector>

namespace tarvik {

/// A number in the range of texts and help topics, outside comments and string literals.
struct NumberUse {
    int Number = 0;
    QString Place; ///< "file:line"
};

/// A name of a text or help topic: "TextId::OverwriteFile".
struct NameUse {
    QString Name;
    QString Place;
};

/// A call of one of the functions that fetch a text by its name.
struct TextCall {
    QString Function;
    QString Name;
    int Arguments = 0; ///< number of placeholders that the call fills
    QString Place;
};

struct SourceScan {
    std::vector<NumberUse> Numbers;
    std::vector<NameUse> Names;
    std::vector<TextCall> Calls;
};

/// `source` with comments and the contents of string and character literals blanked, lines kept.
QString WithoutCommentsAndStrings(const QString& source);

void ScanSource(const QString& file, const QString& source, SourceScan& scan);

/// Scans every source below the folders that may show text. `root` is the source tree.
SourceScan ScanTree(const QString& root);

/// A line of the table of names.
struct NamedNumber {
    int Number = 0;
    QString Name; ///< with its namespace
};

/// The lines of the table of names below `root`, in their order; a line that can't be read has number 0.
std::vector<NamedNumber> ReadNames(const QString& root);

} // namespace tarvik
