#include "lists/editor/csv.h"

#include "app/message/message.h"
#include "app/platform/paths.h"
#include "app/platform/replaceFile.h"
#include "app/text/ansi.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "app/values/region.h"
#include "app/values/strings.h"
#include "closed/files/files.h"
#include "link/classes/model.h"
#include "link/classes/textRules.h"
#include "lists/editor/editorGeneral.h"

#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <exception>

namespace tarvik {

namespace {

constexpr QByteArrayView kLineEnd("\r\n");

bool Refuse(TextNumber<0> message)
{
    MsgOk(message);
    return false;
}

/// `text` instead of the text of `message`, under its number.
bool Refuse(TopicNumber message, TextNumber<0> text)
{
    MsgOkPrecise(message, text);
    return false;
}

/// 12819 for a file that can't be read or written, with the reason if the system names a usual one.
bool RefuseFile(const QString& path, int error)
{
    struct Reason {
        int Error;
        TextNumber<1> Text;
    };
    constexpr std::array kReasons
    {
        Reason{ EFBIG, TextId::ListFileTooLarge }, Reason{ ENOSPC, TextId::ListDiskFull },
#if defined(EDQUOT)
            Reason{ EDQUOT, TextId::ListDiskFull },
#endif
            Reason{ ENOENT, TextId::ListFolderMissing }, Reason{ ENOTDIR, TextId::ListFolderMissing },
            Reason{ EISDIR, TextId::FileIsFolder }, Reason{ EINVAL, TextId::FileNotOrdinary },
            Reason{ EACCES, TextId::FileAccessDenied }, Reason{ EPERM, TextId::FileAccessDenied },
            Reason{ EROFS, TextId::FileAccessDenied }, Reason
        {
            EBUSY, TextId::ListFileBusy
        }
    };
    const auto reason =
        std::find_if(kReasons.begin(), kReasons.end(), [error](const Reason& entry) { return entry.Error == error; });
    const QString name = QFileInfo(path).fileName();
    if (reason != kReasons.end())
        MsgOkPrecise1(TextId::UnexpectedFileError, reason->Text, name);
    else
        MsgOk1(TextId::UnexpectedFileError, name);
    return false;
}

/// UTF-8 or UTF-16, either byte order.
bool HasByteOrderMark(QByteArrayView bytes)
{
    return bytes.startsWith("\xEF\xBB\xBF") || bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF");
}

/// For a file without enough CR LF.
bool RefuseTooShort(const QByteArray& bytes)
{
    const qsizetype pairs = bytes.count(kLineEnd);
    if (HasByteOrderMark(bytes))
        return Refuse(TextId::CsvTooShort, TextId::CsvByteOrderMark);
    if (bytes.count('\n') > pairs)
        return Refuse(TextId::CsvTooShort, TextId::CsvLineEndsLf);
    if (bytes.count('\r') > pairs)
        return Refuse(TextId::CsvTooShort, TextId::CsvLineEndsCr);
    return Refuse(TextId::CsvTooShort);
}

/// See `CsvNumberText`; `decimal` zero: point and leading blank.
void AppendNumber(QByteArray& bytes, double number, char decimal)
{
    // Longest: the smallest negative denormal, with sign, "0.", 323 zeros and a digit.
    std::array<char, 400> digits;
    const double unsignedZero = number + 0.0; // -0 is written as 0
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), unsignedZero, std::chars_format::fixed).ptr;
    if (decimal == 0) {
        if (digits.front() != '-')
            bytes.append(' ');
    } else {
        std::replace(digits.data(), end, '.', decimal);
    }
    bytes.append(digits.data(), end - digits.data());
}

char DecimalOfFiles()
{
    if (!CsvUseLocaleForm())
        return 0;
    const QString decimal = IniDecimalChar();
    return IsAnsi(decimal) ? ToAnsi(decimal).front() : '.'; // a file has no other characters
}

} // namespace

bool CsvUseLocaleForm()
{
    return StrEqualNoCase(LngStr(TextId::CsvExtensionOfTables), ModGetExtension(FileClasses().CurrentFileClass));
}

char CsvListSeparator()
{
    constexpr char kDefault = ',';
    if (!CsvUseLocaleForm())
        return kDefault;
    const QByteArray separator = ToAnsi(IniListSeparator());
    return separator.isEmpty() ? kDefault : separator.front();
}

QByteArray CsvNumberText(double number)
{
    QByteArray text;
    AppendNumber(text, number, DecimalOfFiles());
    return text;
}

void CsvFields::Split(QByteArrayView line, char separator)
{
    count_ = 0;
    const char* const end = line.data() + line.size();
    for (const char* at = line.data();;) {
        const char* const fieldEnd = std::find(at, end, separator);
        if (count_ < kMaxFields)
            fields_[static_cast<size_t>(count_)] = QByteArrayView(at, fieldEnd - at);
        ++count_;
        if (fieldEnd == end)
            return;
        at = fieldEnd + 1;
    }
}

bool CsvLoadFile(const QString& path, CsvSource& source)
{
    source = {};
    source.FileName = QFileInfo(path).fileName();
    if (!ListFileExists(path))
        return false;
    tvfile::Bytes bytes;
    const int error = tvfile::ReadWholeFile(ModulePath(path).toStdString(), size_t{ kMaxCsvBytes }, bytes);
    if (error != 0)
        return RefuseFile(path, error);
    source.Bytes = QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
    return true;
}

bool CsvFindSeparator(CsvSource& source)
{
    const qsizetype firstEnd = source.Bytes.indexOf(kLineEnd);
    const bool hasThreeLines = firstEnd >= 0 && source.Bytes.indexOf(kLineEnd, firstEnd + kLineEnd.size()) >= 0;
    if (!hasThreeLines)
        return RefuseTooShort(source.Bytes);
    const QByteArrayView first = QByteArrayView(source.Bytes).first(firstEnd);
    const auto last =
        std::find_if(first.rbegin(), first.rend(), [](char character) { return character == ';' || character == ','; });
    if (last == first.rend())
        return Refuse(TextId::CsvNoSeparator);
    source.Separator = *last;
    return true;
}

bool CsvReadHeader(CsvSource& source, TextNumber<0> keyword, CsvHeader& header)
{
    CsvFields fields;
    if (!CsvNextLine(source, fields) || fields.Count() < 2 || FromAnsi(fields.At(0)) != LngStr(keyword)) {
        return HasByteOrderMark(source.Bytes) ? Refuse(TextId::CsvBadKeyword, TextId::CsvByteOrderMark)
                                              : Refuse(TextId::CsvBadKeyword);
    }
    const QString name = FromAnsi(fields.At(1)).trimmed();
    if (!ValidListName(name))
        return false;

    const qsizetype secondLine = source.At;
    if (!CsvNextLine(source, fields) || fields.Count() < 2)
        return Refuse(TextId::CsvBadSecondLine);
    QString description;
    // Read and written by different texts, which must be the same in every language.
    if (FromAnsi(fields.At(0)) == LngStr(TextId::DescriptionLabel)) {
        if (!ValidText(fields.At(1)))
            return Refuse(TextId::CsvBadDescription);
        description = FromAnsi(fields.At(1)).left(kTextLength);
    } else {
        source.At = secondLine; // a list without description: the rows begin here
    }
    header = { name, description };
    return true;
}

bool CsvNextLine(CsvSource& source, CsvFields& fields)
{
    const qsizetype end = source.Bytes.indexOf(kLineEnd, source.At);
    if (end < 0)
        return false;
    fields.Split(QByteArrayView(source.Bytes).sliced(source.At, end - source.At), source.Separator);
    source.At = end + kLineEnd.size();
    return true;
}

bool CsvGuard(const QString& fileName, const std::function<bool()>& work)
{
    try {
        return work();
    } catch (const std::exception&) {
        MsgOk1(TextId::UnexpectedFileError, fileName);
        return false;
    }
}

CsvWriter::CsvWriter(qsizetype expectedBytes)
    : separator_(CsvListSeparator())
    , decimal_(DecimalOfFiles())
{
    bytes_.reserve(expectedBytes);
}

void CsvWriter::BeginField()
{
    if (!atLineStart_)
        bytes_.append(separator_);
    atLineStart_ = false;
}

void CsvWriter::Text(QByteArrayView field)
{
    BeginField();
    bytes_.append(field);
}

void CsvWriter::Number(double field)
{
    BeginField();
    AppendNumber(bytes_, field, decimal_);
}

void CsvWriter::Integer(int field)
{
    BeginField();
    std::array<char, 16> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), field).ptr;
    bytes_.append(digits.data(), end - digits.data());
}

void CsvWriter::EndLine()
{
    bytes_.append(kLineEnd);
    atLineStart_ = true;
}

void CsvWriteHeader(CsvWriter& writer, TextNumber<0> keyword, const CsvHeader& header)
{
    writer.Text(ToAnsi(LngStr(keyword)));
    writer.Text(ToAnsi(header.Name));
    writer.EndLine();
    writer.Text(ToAnsi(LngStr(TextId::DescriptionKeyword)));
    writer.Text(ToAnsi(header.Description));
    writer.EndLine();
}

bool CsvCanHold(const CsvHeader& header)
{
    if (!ValidListName(header.Name.trimmed()))
        return false;
    return ValidText(header.Description) || Refuse(TextId::ForbiddenCharacter);
}

bool CsvSaveFile(const QString& path, const CsvWriter& writer)
{
    return CsvSaveBytes(path, writer.Bytes());
}

bool CsvSaveBytes(const QString& path, QByteArrayView bytes)
{
    int error = 0;
    return ReplaceFile(path, bytes, &error) || RefuseFile(path, error);
}

bool CsvReadFile(const QString& path, const std::function<bool(CsvSource&)>& read)
{
    return CsvGuard(QFileInfo(path).fileName(), [&] {
        CsvSource source;
        return CsvLoadFile(path, source) && read(source);
    });
}

bool CsvWriteFile(const QString& path, const std::function<std::optional<CsvWriter>()>& build)
{
    return CsvGuard(QFileInfo(path).fileName(), [&] {
        if (!MayWriteFile(path))
            return false;
        const std::optional<CsvWriter> writer = build();
        return writer.has_value() && CsvSaveFile(path, *writer);
    });
}

} // namespace tarvik
