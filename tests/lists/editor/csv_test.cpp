#include "tests/lists/list_fixture.h"

#include "app/text/ansi.h"
#include "closed/loader.h"
#include "link/classes/textRules.h"
#include "lists/editor/csv.h"
#include "lists/editor/editorGeneral.h"
#include "lists/values/fieldCheck.h"

#include <QDir>
#include <QFile>
#include <QLocale>

#include <cmath>
#include <new>

namespace tarvik {

namespace {

class Csv : public ListTest {
protected:
    static CsvSource Source(const QByteArray& bytes, char separator = ',')
    {
        CsvSource source;
        source.Bytes = bytes;
        source.Separator = separator;
        return source;
    }
    static bool ReadHeader(CsvSource& source, CsvHeader& header)
    {
        return CsvReadHeader(source, TextNumber<0>(10763), header);
    }
};

/// A language in which memory lists have the CSV extension, so files have the region's separators.
class CsvOfRegion : public Csv {
protected:
    CsvOfRegion()
    {
        realGetStr = TvLng().LngGetStr;
        TvLng().LngGetStr = [](int32_t id, const char* fallback, char* out, int32_t size) {
            return realGetStr(id == 10760 ? 11003 : id, fallback, out, size);
        };
        TheSeams().Region = [] { return QLocale(QLocale::German); };
    }

private:
    static inline decltype(TvLngApi::LngGetStr) realGetStr = nullptr;
};

} // namespace

TEST_F(Csv, FilesHaveCommasAndPointsInAnyRegion)
{
    TheSeams().Region = [] { return QLocale(QLocale::German); };
    EXPECT_FALSE(CsvUseLocaleForm());
    EXPECT_EQ(CsvListSeparator(), ',');
    EXPECT_EQ(CsvNumberText(0.5), " 0.5");
}

TEST_F(CsvOfRegion, EveryRegionReadsTheNumbersItWrites)
{
    for (const QLocale& region :
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry)) {
        TheSeams().Region = [region] { return region; };
        for (const double number : { 0.0, 0.5, -130.25, 145500000.125, 8e9 }) {
            const QByteArray text = CsvNumberText(number);
            double read = -1;
            EXPECT_TRUE(StrToDoubleChecked(QByteArrayView(text), read)) << text.constData();
            EXPECT_EQ(read, number) << region.name().toStdString();
            EXPECT_FALSE(text.contains(CsvListSeparator())) << region.name().toStdString();
        }
    }
}

TEST_F(CsvOfRegion, CsvExtensionOfClassSelectsRegionFormat)
{
    EXPECT_TRUE(CsvUseLocaleForm());
    EXPECT_EQ(CsvListSeparator(), ';');
    EXPECT_EQ(CsvNumberText(0.5), "0,5");
    EXPECT_EQ(CsvNumberText(-0.5), "-0,5");
}

TEST_F(Csv, NonNegativeNumbersHaveLeadingBlank)
{
    EXPECT_EQ(CsvNumberText(0), " 0");
    EXPECT_EQ(CsvNumberText(145500000), " 145500000");
    EXPECT_EQ(CsvNumberText(-0.0), " 0");
    EXPECT_EQ(CsvNumberText(-12.25), "-12.25");
}

TEST_F(Csv, NumbersHaveNoExponentAndAllDigits)
{
    EXPECT_EQ(CsvNumberText(8e9), " 8000000000");
    EXPECT_EQ(CsvNumberText(0.01), " 0.01");
    EXPECT_EQ(CsvNumberText(1e-7), " 0.0000001");
    EXPECT_EQ(CsvNumberText(123456789.123), " 123456789.123");
    EXPECT_EQ(CsvNumberText(std::nextafter(1.0, 2.0)), " 1.0000000000000002");
}

TEST_F(Csv, LongestNumbersFitBuffer)
{
    EXPECT_EQ(CsvNumberText(-1.7976931348623157e308).size(), 310);
    EXPECT_EQ(CsvNumberText(-5e-324).size(), 327);
}

TEST_F(Csv, LineIsSplitAtEverySeparator)
{
    CsvFields fields;
    fields.Split("a,,c,", ',');
    ASSERT_EQ(fields.Count(), 4);
    EXPECT_EQ(fields.At(0), QByteArrayView("a"));
    EXPECT_TRUE(fields.At(1).isEmpty());
    EXPECT_EQ(fields.At(2), QByteArrayView("c"));
    EXPECT_TRUE(fields.At(3).isEmpty());
    EXPECT_TRUE(fields.At(4).isEmpty());
    fields.Split({}, ',');
    EXPECT_EQ(fields.Count(), 1);
}

TEST_F(Csv, QuotesAreOrdinaryCharacters)
{
    CsvFields fields;
    fields.Split("\"a,b\"", ',');
    EXPECT_EQ(fields.Count(), 2);
    EXPECT_EQ(fields.At(0), QByteArrayView("\"a"));
}

TEST_F(Csv, CountIncludesSurplusFields)
{
    CsvFields fields;
    fields.Split(QByteArray(100000, ','), ',');
    EXPECT_EQ(fields.Count(), 100001);
    EXPECT_TRUE(fields.At(50000).isEmpty());
}

TEST_F(Csv, OnlyCrLfEndsLines)
{
    CsvSource source = Source("a\nb,c\rd\r\ne\r\nrest");
    CsvFields fields;
    ASSERT_TRUE(CsvNextLine(source, fields));
    EXPECT_EQ(fields.At(0), QByteArrayView("a\nb"));
    EXPECT_EQ(fields.At(1), QByteArrayView("c\rd"));
    ASSERT_TRUE(CsvNextLine(source, fields));
    EXPECT_EQ(fields.At(0), QByteArrayView("e"));
    EXPECT_FALSE(CsvNextLine(source, fields));
}

TEST_F(Csv, MissingFileIsReported)
{
    CsvSource source;
    Answers().Expect(12780, { QStringLiteral("gone.csv"), QStringLiteral("1") }, Ok);
    EXPECT_FALSE(CsvLoadFile(FilePath("gone.csv"), source));
}

TEST_F(Csv, FileIsReadWhole)
{
    Store(FilePath("a.csv"), "x\r\n");
    CsvSource source;
    ASSERT_TRUE(CsvLoadFile(FilePath("a.csv"), source));
    EXPECT_EQ(source.Bytes, "x\r\n");
    EXPECT_EQ(source.FileName, "a.csv");
}

TEST_F(Csv, HugeFileIsRefusedUnread)
{
    QFile file(FilePath("huge.csv"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(file.resize(kMaxCsvBytes + 1)); // takes no disk space
    CsvSource source;
    Answers().ExpectPrecise(12819, 12905, { "huge.csv" }, Ok);
    EXPECT_FALSE(CsvLoadFile(FilePath("huge.csv"), source));
    EXPECT_TRUE(source.Bytes.isEmpty());
}

TEST_F(Csv, LastSeparatorOfFirstLineIsUsed)
{
    CsvSource source = Source("Memory List;Van,x\r\nDescription,d\r\n");
    ASSERT_TRUE(CsvFindSeparator(source));
    EXPECT_EQ(source.Separator, ',');
    source = Source("Memory List,Van;x\r\nDescription,d\r\n");
    ASSERT_TRUE(CsvFindSeparator(source));
    EXPECT_EQ(source.Separator, ';');
}

TEST_F(Csv, FileNeedsTwoCompleteLines)
{
    for (const char* bytes : { "", "Memory List,Van", "Memory List,Van\r\n", "Memory List,Van\r\nDescription,d" }) {
        CsvSource source = Source(bytes);
        Answers().Expect(12775, QStringList(), Ok);
        EXPECT_FALSE(CsvFindSeparator(source)) << bytes;
    }
}

TEST_F(Csv, OtherLineEndsAndUnicodeAreNamed)
{
    const QList<std::pair<QByteArray, int>> files{ { "Memory List,Van\nDescription,d\n", 12900 },
        { "Memory List,Van\r\nDescription,d\nx\n", 12900 }, { "Memory List,Van\rDescription,d\r", 12901 },
        { "\xEF\xBB\xBFMemory List,Van\n", 12902 }, { QByteArray("\xFF\xFEM\0\r\0\n\0", 8), 12902 },
        { QByteArray("\xFE\xFF\0M\0\r\0\n", 8), 12902 } };
    for (const auto& [bytes, text] : files) {
        CsvSource source = Source(bytes);
        Answers().ExpectPrecise(12775, text, {}, Ok);
        EXPECT_FALSE(CsvFindSeparator(source)) << text;
    }
    CsvSource source = Source("\xEF\xBB\xBFMemory List,Van\r\nDescription,d\r\n");
    CsvHeader header;
    Answers().ExpectPrecise(12777, 12902, {}, Ok);
    EXPECT_FALSE(ReadHeader(source, header));
}

TEST_F(Csv, FolderAndDeviceAreNamed)
{
    CsvSource source;
    Answers().ExpectPrecise(12780, 12903, { Folder() }, Ok);
    EXPECT_FALSE(CsvLoadFile(Folder(), source));
    Answers().ExpectPrecise(12780, 12904, { "/dev/null" }, Ok);
    EXPECT_FALSE(CsvLoadFile("/dev/null", source));
}

TEST_F(Csv, ControlCharactersInDescriptionAreForbidden)
{
    for (const char character : { '\0', '\x1B', '\n', '\x01', '\x7F' }) {
        CsvSource source = Source("Memory List,Van\r\nDescription,a" + QByteArray(1, character) + "b\r\n");
        CsvHeader header;
        Answers().Expect(12779, QStringList(), Ok);
        EXPECT_FALSE(ReadHeader(source, header)) << int(character);
    }
}

TEST_F(Csv, BytesThatWindows1252LeavesUnassignedAreForbidden)
{
    for (int byte = 0x80; byte < 0x100; ++byte) {
        const bool isUnassigned = byte == 0x81 || byte == 0x8D || byte == 0x8F || byte == 0x90 || byte == 0x9D;
        CsvSource source = Source("Memory List,Van\r\nDescription,a" + QByteArray(1, char(byte)) + "b\r\n");
        CsvHeader header;
        if (isUnassigned)
            Answers().Expect(12779, QStringList(), Ok);
        EXPECT_EQ(ReadHeader(source, header), !isUnassigned) << byte;
        EXPECT_EQ(ValidText(FromAnsi(QByteArray(1, char(byte)))), !isUnassigned) << byte;
    }
}

TEST_F(Csv, FirstLineWithoutSeparatorIsRefused)
{
    CsvSource source = Source("Memory List\r\nDescription,d\r\n");
    Answers().Expect(12776, QStringList(), Ok);
    EXPECT_FALSE(CsvFindSeparator(source));
}

TEST_F(Csv, HeaderHasNameAndDescription)
{
    CsvSource source = Source("Memory List, Van 7 \r\nDescription,roof \xE4\r\nrow\r\n");
    CsvHeader header;
    ASSERT_TRUE(ReadHeader(source, header));
    EXPECT_EQ(header.Name, "Van 7");
    EXPECT_EQ(header.Description, QStringLiteral("roof \u00e4"));
    EXPECT_EQ(source.Bytes.mid(source.At), "row\r\n");
}

TEST_F(Csv, WithoutDescriptionRowsFollowKeywordLine)
{
    CsvSource source = Source("Memory List,Van\r\nUsed,0\r\n");
    CsvHeader header;
    ASSERT_TRUE(ReadHeader(source, header));
    EXPECT_EQ(header.Description, "");
    EXPECT_EQ(source.Bytes.mid(source.At), "Used,0\r\n");
}

TEST_F(Csv, WrongOrLoneKeywordIsRefused)
{
    for (const char* line : { "memory list,Van", "Memory List", "Suppress List,Van", " Memory List,Van" }) {
        CsvSource source = Source(QByteArray(line) + "\r\nDescription,d\r\n");
        CsvHeader header;
        Answers().Expect(12777, QStringList(), Ok);
        EXPECT_FALSE(ReadHeader(source, header)) << line;
    }
}

TEST_F(Csv, InvalidListNameIsRefused)
{
    CsvHeader header;
    CsvSource source = Source("Memory List,a.b\r\nDescription,d\r\n");
    Answers().Expect(12766, { QStringLiteral("memory list") }, Ok);
    EXPECT_FALSE(ReadHeader(source, header));
    source = Source("Memory List,None\r\nDescription,d\r\n");
    Answers().Expect(12770, { QStringLiteral("memory list") }, Ok);
    EXPECT_FALSE(ReadHeader(source, header));
    source = Source("Memory List,nonE1\r\nDescription,d\r\n");
    EXPECT_TRUE(ReadHeader(source, header));
}

TEST_F(Csv, SecondLineOfOneFieldIsRefused)
{
    CsvSource source = Source("Memory List,Van\r\nDescription\r\n");
    CsvHeader header;
    Answers().Expect(12778, QStringList(), Ok);
    EXPECT_FALSE(ReadHeader(source, header));
}

TEST_F(Csv, DescriptionWithForbiddenCharacterIsRefused)
{
    CsvSource source = Source("Memory List,Van\r\nDescription,a;b\r\n");
    CsvHeader header;
    Answers().Expect(12779, QStringList(), Ok);
    EXPECT_FALSE(ReadHeader(source, header));
}

TEST_F(Csv, DescriptionIsCutTo32Characters)
{
    CsvSource source = Source("Memory List,Van\r\nDescription," + QByteArray(50, 'x') + "\r\n");
    CsvHeader header;
    ASSERT_TRUE(ReadHeader(source, header));
    EXPECT_EQ(header.Description, QString(32, u'x'));
}

TEST_F(Csv, ExceptionIsReportedWithFileName)
{
    Answers().Expect(12819, { QStringLiteral("a.csv") }, Ok);
    EXPECT_FALSE(CsvGuard("a.csv", []() -> bool { throw std::bad_alloc(); }));
    EXPECT_TRUE(CsvGuard("a.csv", [] { return true; }));
    EXPECT_FALSE(CsvGuard("a.csv", [] { return false; }));
}

TEST_F(Csv, WrittenFileHasHeaderAndLines)
{
    CsvWriter writer;
    CsvWriteHeader(writer, TextNumber<0>(10763), { "Van", QStringLiteral("roof \u20ac") });
    writer.Text("Used");
    writer.Integer(7);
    writer.Number(1.5);
    writer.Text({});
    writer.EndLine();
    EXPECT_EQ(writer.Bytes(), "Memory List,Van\r\nDescription,roof \x80\r\nUsed,7, 1.5,\r\n");
}

TEST_F(Csv, WrittenDescriptionLineIsRecognisedByReader)
{
    CsvWriter writer;
    CsvWriteHeader(writer, TextNumber<0>(10763), { "Van", "roof" });
    CsvSource source = Source(writer.Bytes());
    CsvHeader header;
    ASSERT_TRUE(CsvFindSeparator(source));
    ASSERT_TRUE(ReadHeader(source, header));
    EXPECT_EQ(header.Description, "roof");
}

TEST_F(Csv, FailedWriteIsReportedAndLeavesNoFile)
{
    CsvWriter writer;
    writer.Text("x");
    Answers().ExpectPrecise(12819, 12907, { "a.csv" }, Ok);
    EXPECT_FALSE(CsvSaveFile(FilePath("no folder/a.csv"), writer));
    EXPECT_TRUE(QDir(Folder()).isEmpty());
}

TEST_F(Csv, ReasonsOfFailedWriteAreNamed)
{
    CsvWriter writer;
    writer.Text("x");
    ASSERT_TRUE(QDir(Folder()).mkdir("a.csv"));
    Answers().ExpectPrecise(12819, 12903, { "a.csv" }, Ok);
    EXPECT_FALSE(CsvSaveFile(FilePath("a.csv"), writer));
    Answers().ExpectPrecise(12819, 12904, { "null" }, Ok);
    EXPECT_FALSE(CsvSaveFile("/dev/null", writer));
    Store(FilePath("b.csv"), "old");
    ASSERT_TRUE(QFile::setPermissions(FilePath("b.csv"), QFile::ReadOwner));
    Answers().ExpectPrecise(12819, 12908, { "b.csv" }, Ok);
    EXPECT_FALSE(CsvSaveFile(FilePath("b.csv"), writer));
    Answers().ExpectPrecise(12819, 12907, { "c.csv" }, Ok);
    EXPECT_FALSE(CsvSaveFile(FilePath("b.csv/c.csv"), writer));
}

TEST_F(Csv, SavingReplacesFileAndLeavesNoOther)
{
    Store(FilePath("a.csv"), "old");
    CsvWriter writer;
    writer.Text("new");
    ASSERT_TRUE(CsvSaveFile(FilePath("a.csv"), writer));
    EXPECT_EQ(Contents(FilePath("a.csv")), "new");
    EXPECT_EQ(QDir(Folder()).entryList(QDir::Files | QDir::Hidden), QStringList({ "a.csv" }));
}

TEST_F(Csv, TextsWithSeparatorOrLineEndCannotBeHeld)
{
    EXPECT_TRUE(ValidText(QStringLiteral("roof 1.5")));
    for (const char* text : { "a,b", "a;b", "a\"b", "a'b", "a\nb" })
        EXPECT_FALSE(ValidText(QString::fromLatin1(text))) << text;
}

TEST_F(Csv, HeaderThatReaderRefusesCannotBeHeld)
{
    EXPECT_TRUE(CsvCanHold(CsvHeader{ "Van", "roof" }));
    Answers().Expect(12766, Ok);
    EXPECT_FALSE(CsvCanHold(CsvHeader{ "  ", "roof" }));
    Answers().Expect(12764, Ok);
    EXPECT_FALSE(CsvCanHold(CsvHeader{ "Van", "a,b" }));
}

TEST_F(Csv, ReaderGetsLoadedFile)
{
    Store(FilePath("a.csv"), "x\r\n");
    QByteArray seen;
    EXPECT_TRUE(CsvReadFile(FilePath("a.csv"), [&seen](CsvSource& source) {
        seen = source.Bytes;
        return true;
    }));
    EXPECT_EQ(seen, "x\r\n");
    EXPECT_FALSE(CsvReadFile(FilePath("a.csv"), [](CsvSource&) { return false; }));
}

TEST_F(Csv, ExceptionInReaderIsReportedWithFileName)
{
    Store(FilePath("a.csv"), "x\r\n");
    Answers().Expect(12819, { QStringLiteral("a.csv") }, Ok);
    EXPECT_FALSE(CsvReadFile(FilePath("a.csv"), [](CsvSource&) -> bool { throw std::bad_alloc(); }));
    Answers().Expect(12780, { QStringLiteral("gone.csv"), QStringLiteral("1") }, Ok);
    EXPECT_FALSE(CsvReadFile(FilePath("gone.csv"), [](CsvSource&) -> bool {
        ADD_FAILURE();
        return true;
    }));
}

TEST_F(Csv, FileIsWrittenOnlyIfItMayBeReplaced)
{
    const auto build = [] {
        CsvWriter writer;
        writer.Text("new");
        return std::optional(writer);
    };
    EXPECT_TRUE(CsvWriteFile(FilePath("a.csv"), build));
    EXPECT_EQ(Contents(FilePath("a.csv")), "new");
    Store(FilePath("a.csv"), "old");
    Answers().Expect(12734, { QStringLiteral("a.csv") }, No);
    EXPECT_FALSE(CsvWriteFile(FilePath("a.csv"), build));
    EXPECT_EQ(Contents(FilePath("a.csv")), "old");
    Answers().Expect(12734, { QStringLiteral("a.csv") }, Yes);
    EXPECT_TRUE(CsvWriteFile(FilePath("a.csv"), build));
    EXPECT_EQ(Contents(FilePath("a.csv")), "new");
}

TEST_F(Csv, NothingIsWrittenIfBuildingFails)
{
    EXPECT_FALSE(CsvWriteFile(FilePath("a.csv"), [] { return std::optional<CsvWriter>(); }));
    Answers().Expect(12819, { QStringLiteral("a.csv") }, Ok);
    EXPECT_FALSE(CsvWriteFile(FilePath("a.csv"), []() -> std::optional<CsvWriter> { throw std::bad_alloc(); }));
    EXPECT_TRUE(QDir(Folder()).isEmpty());
}

} // namespace tarvik
