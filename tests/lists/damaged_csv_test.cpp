// Damaged CSV files, read as the editors do. A header that is refused leaves an empty list. A bad data line is reported
// with its number and ends the reading; all values that were read are within their limits.
#include "tests/lists/listFamilies.h"
#include "tests/lists/list_fixture.h"
#include "tests/support/messageLog.h"

#include <QFile>

namespace tarvik {

namespace {

/// A file of three rows whose data line n is for row n.
template <typename Family>
QByteArray SampleCsv();
template <>
QByteArray SampleCsv<AntennaFiles>()
{
    return "Antenna List,Site\r\nDescription,roof\r\n"
           "1,Yes,Dipole, 30000000, 90000000,-1000000,10,01,Mast,7, 12.5,Array\r\n"
           "2,No,Whip, 1000000, 30000000, 0,00,11,,0, 0,\r\n3,Yes,Log, 8000, 8000000000, 0,01,00,k,255, 359.9,c\r\n";
}
template <>
QByteArray SampleCsv<KfactorFiles>()
{
    return "K-Factor Table,Mast\r\nDescription,north\r\n1, 30000000, 1.25,-2\r\n2, 85000000,-3, 4.5\r\n"
           "3, 90000000, 200,-99.99\r\n";
}
template <>
QByteArray SampleCsv<SuppressFiles>()
{
    return "Suppress List,Bands\r\nDescription,fm\r\n0,Include, 88000000, 108000000,fm\r\n"
           "1,Exclude, 470000000, 694000000,\r\n2,Include, 1000000, 1000000,x\r\n";
}

const QList<int> kHeaderMessages{ 12766, 12770, 12775, 12776, 12777, 12778, 12779 };

/// The messages of data lines; each has the number of its line.
template <typename Family>
QList<int> LineMessages();
template <>
QList<int> LineMessages<AntennaFiles>()
{
    return { 12783, 12784, 12785, 12786, 12788, 12789, 12790, 12791, 12813 };
}
template <>
QList<int> LineMessages<KfactorFiles>()
{
    return { 12782, 12792, 12793, 12794 };
}
template <>
QList<int> LineMessages<SuppressFiles>()
{
    return { 12782, 12783, 12784, 12785, 12804, 12813 };
}

template <typename Family>
class DamagedCsv : public ListTest {
protected:
    using Table = typename Family::Table;

    DamagedCsv()
    {
        SetEditorType(Family::kClass);
        TheMessagePresenter().Set(log);
        EXPECT_TRUE(Read(SampleCsv<Family>(), whole));
        EXPECT_EQ(log.Reports.size(), 0);
    }

    /// Reads the file over a list in use.
    bool Read(const QByteArray& file, Table& table)
    {
        Family::Use(table);
        log.Reports.clear();
        static_cast<void>(QFile::remove(FilePath("list.csv"))); // truncation makes some file systems flush at once
        Store(FilePath("list.csv"), file);
        return Family::Read(FilePath("list.csv"), table);
    }

    void ExpectRefusedHeader(const Table& table)
    {
        EXPECT_TRUE(table == Table());
        ASSERT_EQ(log.Reports.size(), 1);
        EXPECT_TRUE(kHeaderMessages.contains(log.Reports.first().Number)) << log.Reports.first().Number;
    }

    /// The line of the message, or one beyond all lines.
    int LineOfMessage(int lines)
    {
        EXPECT_LE(log.Reports.size(), 1);
        if (log.Reports.isEmpty())
            return lines + 1;
        const auto& report = log.Reports.first();
        EXPECT_TRUE(LineMessages<Family>().contains(report.Number)) << report.Number;
        const int line = report.Args.value(0).toInt();
        EXPECT_GE(line, 1);
        EXPECT_LE(line, lines);
        return line;
    }

    /// The rows of the lines before `line` are those of the whole file; but one, if that line names another's row.
    void ExpectEarlierRows(const Table& table, int line)
    {
        int differences = 0;
        for (int row = 0; row < line - 1; ++row)
            differences += table.Row(row) == whole.Row(row) ? 0 : 1;
        EXPECT_LE(differences, 1);
    }

    MessageLog log;
    Table whole;
};

using Families = testing::Types<AntennaFiles, KfactorFiles, SuppressFiles>;

class FamilyNames {
public:
    template <typename Family>
    static std::string GetName(int)
    {
        return Family::kExtension + 1;
    }
};

} // namespace

TYPED_TEST_SUITE(DamagedCsv, Families, FamilyNames);

TYPED_TEST(DamagedCsv, TruncationIsRefusedInTheHeaderAndElseReadsTheCompleteLines)
{
    const QByteArray file = SampleCsv<TypeParam>();
    const qsizetype headerEnd = file.indexOf("\r\n", file.indexOf("\r\n") + 2) + 2;
    for (qsizetype length = 0; length < file.size() && !this->HasFailure(); ++length) {
        typename TypeParam::Table table;
        const bool isRead = this->Read(file.first(length), table);
        EXPECT_EQ(isRead, length >= headerEnd) << length;
        if (!isRead) {
            this->ExpectRefusedHeader(table);
            EXPECT_EQ(this->log.Reports.first().Number, 12775);
            continue;
        }
        typename TypeParam::Table expected;
        const qsizetype complete = file.lastIndexOf("\r\n", length - 2) + 2;
        ASSERT_TRUE(this->Read(file.first(complete), expected));
        ASSERT_TRUE(this->Read(file.first(length), table));
        EXPECT_EQ(this->log.Reports.size(), 0) << length;
        EXPECT_TRUE(table == expected) << length;
        this->ExpectEarlierRows(table, static_cast<int>(file.first(complete).count("\r\n")) - 1);
    }
}

TYPED_TEST(DamagedCsv, EveryFlippedBitIsReportedOrReadsAsAListWithinItsLimits)
{
    const QByteArray file = SampleCsv<TypeParam>();
    const int header = 2;
    int refused = 0;
    int reported = 0;
    for (qsizetype bit = 0; bit < file.size() * 8 && !this->HasFailure(); ++bit) {
        QByteArray damaged = file;
        damaged[bit / 8] = static_cast<char>(damaged[bit / 8] ^ (1 << (bit % 8)));
        typename TypeParam::Table table;
        if (!this->Read(damaged, table)) {
            ++refused;
            this->ExpectRefusedHeader(table);
            EXPECT_FALSE(this->HasFailure()) << bit;
            continue;
        }
        EXPECT_TRUE(TypeParam::IsWithinLimits(table)) << bit;
        const int lines = static_cast<int>(damaged.count("\r\n")) - 1; // one more without a description
        const int messageLine = this->LineOfMessage(lines);
        const int damagedLine = static_cast<int>(file.first(bit / 8).count("\r\n")) - header + 1;
        reported += this->log.Reports.isEmpty() ? 0 : 1;
        this->ExpectEarlierRows(table, std::min(damagedLine, messageLine));
        if (this->log.Reports.isEmpty()) {
            CsvSource again;
            again.Bytes = TypeParam::Csv(table);
            typename TypeParam::Table reread;
            EXPECT_TRUE(TypeParam::ReadCsv(again, reread));
            EXPECT_TRUE(this->log.Reports.isEmpty()) << bit;
        }
        EXPECT_FALSE(this->HasFailure()) << bit;
    }
    EXPECT_GT(refused, 0);
    EXPECT_GT(reported, 0);
}

} // namespace tarvik
