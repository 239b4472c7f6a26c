// lists/editor/csv.h: the text form that four of the five lists share. Single-byte text (Windows-1252), lines ended by
// CR LF, no quoting and no escape: a keyword line with the list's name, a description line, then the lines of the rows.
#pragma once

#include "app/text/textNumber.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <array>
#include <functional>
#include <optional>

namespace tarvik {

/// No list comes near this size; a larger file is refused before it is read.
inline constexpr qint64 kLargestCsvBytes = qint64{ 16 } * 1024 * 1024;

/// True when the extension text of the present file class is the CSV extension 11003: then files follow the region.
bool CsvUseLocaleForm();

/// "," or, in the region's form, its list separator.
char CsvListSeparator();

/// A number as files hold it: with a point and a blank in front of zero and positive numbers; in the region's form
/// with its decimal character and no blank. Every digit that tells the number from its neighbours is written.
QByteArray CsvNumberText(double number);

/// Fields of one line. A line with more fields than any list has keeps its true count; the surplus is not held.
class CsvFields {
public:
    static constexpr qsizetype kMost = 32;

    void Split(QByteArrayView line, char separator);

    qsizetype Count() const
    {
        return count_;
    }

    /// Empty for a field that the line does not have.
    QByteArrayView At(qsizetype index) const
    {
        return index < count_ && index < kMost ? fields_[static_cast<size_t>(index)] : QByteArrayView();
    }

private:
    std::array<QByteArrayView, kMost> fields_;
    qsizetype count_ = 0;
};

/// A CSV file in memory and the place in it. Views of its fields live as long as `Bytes` stays.
struct CsvSource {
    QByteArray Bytes;
    QString FileName; ///< for messages, without folder
    qsizetype At = 0; ///< start of the next line
    char Separator = ',';
};

/// Reads the whole file. False after message 12780 for a missing file, 12819 for one that can't be read.
[[nodiscard]] bool CsvLoadFile(const QString& path, CsvSource& source);

/// The last ";" or "," of the first line. False after 12775 for a file without two ended lines, 12776 for a first
/// line without separator.
[[nodiscard]] bool CsvFindSeparator(CsvSource& source);

struct CsvHeader {
    QString Name;
    QString Description;
};

/// Takes name and description from the first lines and leaves `source.At` at the first row. False after the message
/// of what is wrong (12777 to 12779, those of `ValidListName`). A description beyond 32 characters is cut.
[[nodiscard]] bool CsvReadHeader(CsvSource& source, TextNumber<0> keyword, CsvHeader& header);

/// The next line that ends in CR LF. False behind the last one; what stands behind the last CR LF is no line.
bool CsvNextLine(CsvSource& source, CsvFields& fields);

/// Runs a reader's or writer's work. An exception in it shows 12819 with `fileName` and answers false.
[[nodiscard]] bool CsvGuard(const QString& fileName, const std::function<bool()>& work);

/// Builds a file in memory.
class CsvWriter {
public:
    /// Takes the separator and the number form that hold now.
    explicit CsvWriter(qsizetype expectedBytes = 0);

    void Text(QByteArrayView field);
    void Number(double field);
    void Integer(int field);
    void EndLine();

    const QByteArray& Bytes() const
    {
        return bytes_;
    }

private:
    void BeginField();

    QByteArray bytes_;
    char separator_;
    char decimal_; ///< zero: the form with point and leading blank
    bool atLineStart_ = true;
};

/// True for a text that comes back whole as a field of a file.
bool CsvCanHold(const QString& text);

/// True for a header that the reader takes back: a name of blanks, which it trims, is none. False after a message.
[[nodiscard]] bool CsvCanHold(const CsvHeader& header);

/// Keyword line and description line.
void CsvWriteHeader(CsvWriter& writer, TextNumber<0> keyword, const CsvHeader& header);

/// Puts the written file in the place of `path`, whole or not at all; a failure shows 12819 with the file's name.
[[nodiscard]] bool CsvSaveFile(const QString& path, const CsvWriter& writer);

/// Loads a file and has `read` take it, all under `CsvGuard`.
[[nodiscard]] bool CsvReadFile(const QString& path, const std::function<bool(CsvSource&)>& read);

/// Has `build` make the file, where `MayWriteFile` allows it, and saves it, all under `CsvGuard`. Nothing is saved when
/// `build` answers nothing, which it does after a message.
[[nodiscard]] bool CsvWriteFile(const QString& path, const std::function<std::optional<CsvWriter>()>& build);

} // namespace tarvik
