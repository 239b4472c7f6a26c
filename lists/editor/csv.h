// lists/editor/csv.h: the CSV format of four of the five lists: Windows-1252, lines ended by CR LF, no quoting or
// escaping; a line with keyword and list name, a description line, then one line per row.
#pragma once

#include "app/text/textNumber.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <array>
#include <functional>
#include <optional>

namespace tarvik {

/// Far above any list; a larger file is refused before it is read.
inline constexpr qint64 kMaxCsvBytes = qint64{ 16 } * 1024 * 1024;

/// True if the extension of the current file class is the CSV extension (11003): files then have the region's
/// separators.
bool CsvUseLocaleForm();

/// ",", or the region's list separator if `CsvUseLocaleForm`.
char CsvListSeparator();

/// `number` in fixed notation with as many digits as are needed to read the same value back: with a point, and a blank
/// before zero and positive numbers; if `CsvUseLocaleForm`, with the region's decimal character and no blank.
QByteArray CsvNumberText(double number);

/// Fields of one line. `Count` includes fields beyond kMaxFields, which are not kept.
class CsvFields {
public:
    static constexpr qsizetype kMaxFields = 32;

    void Split(QByteArrayView line, char separator);

    qsizetype Count() const
    {
        return count_;
    }

    /// Empty for a missing field.
    QByteArrayView At(qsizetype index) const
    {
        return index < count_ && index < kMaxFields ? fields_[static_cast<size_t>(index)] : QByteArrayView();
    }

private:
    std::array<QByteArrayView, kMaxFields> fields_;
    qsizetype count_ = 0;
};

/// A CSV file in memory and the read position. Fields are views into `Bytes`.
struct CsvSource {
    QByteArray Bytes;
    QString FileName; ///< without folder, for messages
    qsizetype At = 0; ///< start of the next line
    char Separator = ',';
};

/// Reads the whole file. False after message 12780 for a missing file, 12819 for one that can't be read.
[[nodiscard]] bool CsvLoadFile(const QString& path, CsvSource& source);

/// Sets `Separator` to the last ";" or "," of the first line. False after 12775 for a file of fewer than two complete
/// lines, 12776 for a first line without separator.
[[nodiscard]] bool CsvFindSeparator(CsvSource& source);

struct CsvHeader {
    QString Name;
    QString Description;
};

/// Reads name and description and leaves `source.At` at the first row. False after a message (12777 to 12779, or from
/// `ValidListName`). The description is cut to 32 characters.
[[nodiscard]] bool CsvReadHeader(CsvSource& source, TextNumber<0> keyword, CsvHeader& header);

/// Reads the next line. False after the last one; text after the last CR LF is ignored.
bool CsvNextLine(CsvSource& source, CsvFields& fields);

/// Runs `work`. An exception shows 12819 with `fileName`; false.
[[nodiscard]] bool CsvGuard(const QString& fileName, const std::function<bool()>& work);

/// Builds a file in memory.
class CsvWriter {
public:
    /// Uses the separator and number format of the current file class.
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
    char decimal_; ///< zero: point and leading blank
    bool atLineStart_ = true;
};

/// True for a header that can be read back. A name of blanks can't, as the reader trims it. False after a message.
[[nodiscard]] bool CsvCanHold(const CsvHeader& header);

/// Keyword line and description line.
void CsvWriteHeader(CsvWriter& writer, TextNumber<0> keyword, const CsvHeader& header);

/// Replaces `path` whole or not at all. False after 12819 with the file's name.
[[nodiscard]] bool CsvSaveFile(const QString& path, const CsvWriter& writer);
[[nodiscard]] bool CsvSaveBytes(const QString& path, QByteArrayView bytes);

/// Loads a file and passes it to `read`, under `CsvGuard`.
[[nodiscard]] bool CsvReadFile(const QString& path, const std::function<bool(CsvSource&)>& read);

/// If `MayWriteFile`, saves what `build` returns, under `CsvGuard`. Nothing is saved if `build` returns nothing, after
/// its message.
[[nodiscard]] bool CsvWriteFile(const QString& path, const std::function<std::optional<CsvWriter>()>& build);

} // namespace tarvik
