// tarvikctl with lists: output, messages by number, exit codes, files.
#include "tests/tools/ctl.h"

#include <QFile>
#include <QJsonArray>
#include <QProcess>

#include <utility>

namespace tarvik {

namespace {

class Tarvikctl : public CtlTest {
protected:
    /// Three rows with a different order for each key.
    void StoreThree(const QString& name) const
    {
        Store(name,
            MemoryCsv("Three",
                { { 0, 300000000, "bravo", "Suppressed" }, { 1, 100000000, "Charlie" }, { 2, 200000000, "alpha" } }));
    }

    void ExpectUsageError(const QStringList& arguments, const QString& reason) const
    {
        const CtlResult result = Ctl(arguments);
        EXPECT_EQ(result.ExitCode, 2);
        EXPECT_EQ(result.Out, QString());
        EXPECT_EQ(result.Err, QStringLiteral("tarvikctl: %1\nTry 'tarvikctl --help'.\n").arg(reason));
    }

    QList<int> NumbersOf(const QString& file) const
    {
        QList<int> numbers;
        const QJsonArray rows = Json(file)[QStringLiteral("rows")].toArray();
        for (const auto& row : rows)
            numbers.append(row[QStringLiteral("number")].toInt());
        return numbers;
    }
};

} // namespace

TEST_F(Tarvikctl, ExplainsItsCommands)
{
    const CtlResult result = Ctl({ "--help" });
    for (const char* command : { "check", "show", "convert", "sort", "text" })
        EXPECT_TRUE(result.Out.contains(QStringLiteral("tarvikctl ") + QLatin1String(command))) << command;
    EXPECT_EQ(result.ExitCode, 0);
}

TEST_F(Tarvikctl, RefusesNoCommand)
{
    ExpectUsageError({}, "no command");
}

TEST_F(Tarvikctl, RefusesUnknownCommand)
{
    ExpectUsageError({ "list" }, "list: no such command");
}

TEST_F(Tarvikctl, RefusesOptionOfOtherCommand)
{
    ExpectUsageError({ "check", "--json", "a.csv" }, "--json: no such option here");
}

TEST_F(Tarvikctl, RefusesMissingOperand)
{
    ExpectUsageError({ "convert", "a.csv" }, "convert: too few arguments");
}

TEST_F(Tarvikctl, RefusesSurplusOperand)
{
    ExpectUsageError({ "show", "a.csv", "b.csv" }, "show: too many arguments");
}

TEST_F(Tarvikctl, RefusesSortWithoutKey)
{
    ExpectUsageError({ "sort", "a.csv", "b.csv" }, "sort: --key or --merge is missing");
}

TEST_F(Tarvikctl, RefusesSortKeyOutOfRange)
{
    ExpectUsageError({ "sort", "--key", "7", "a.csv", "b.csv" }, "--key takes a number from 0 to 6");
    ExpectUsageError({ "sort", "--key=up", "a.csv", "b.csv" }, "--key takes a number from 0 to 6");
}

TEST_F(Tarvikctl, RefusesInvalidTextNumber)
{
    ExpectUsageError({ "text", "10844", "FM" }, "FM: not a number");
}

TEST_F(Tarvikctl, RefusesOutputNameOfNeitherForm)
{
    StoreThree("three.csv");
    ExpectUsageError({ "convert", "three.csv", "three.txt" },
        "three.txt: the name of a list ends in .tva, .tvk, .tvm, .tvs, .tvc, .csv or .json");
    EXPECT_EQ(FolderEntries(), QStringList{ "three.csv" });
}

TEST_F(Tarvikctl, PrintsTextsByNumber)
{
    const CtlResult result = Ctl({ "text", "10844", "10851" });
    EXPECT_EQ(result.Out, QStringLiteral("10844\tFM\n10851\tISB\n"));
    EXPECT_EQ(result.ExitCode, 0);
}

TEST_F(Tarvikctl, PrintsTextsWithTheirPlaces)
{
    EXPECT_EQ(Ctl({ "text", "12734", "12749", "12754" }).Out,
        QStringLiteral("12734\t\u201C%1\u201D already exists. Replace it?\n"
                       "12749\tEnter a whole number from %2 to %1.\n"
                       "12754\tThe bitmap \u201C%1\u201D cannot be read.\n"));
}

TEST_F(Tarvikctl, PrintsEveryTextOnOneLine)
{
    QStringList arguments{ "text" };
    for (int number = 10000; number <= 14501; ++number)
        arguments.append(QString::number(number));
    const QStringList lines = Ctl(arguments).Out.split(u'\n');
    ASSERT_EQ(lines.size(), arguments.size());
    for (qsizetype line = 0; line + 1 < lines.size(); ++line)
        EXPECT_TRUE(lines[line].startsWith(arguments[line + 1] + u'\t')) << lines[line].toStdString();
}

TEST_F(Tarvikctl, PrintsTextsAsUtf8)
{
    EXPECT_EQ(Ctl({ "text", "10923" }).Out, QStringLiteral("10923\tdB\u00b5V\n"));
}

TEST_F(Tarvikctl, CheckContinuesAfterBadFile)
{
    StoreThree("three.csv");
    const CtlResult result = Ctl({ "check", "missing.csv", "three.csv" });
    EXPECT_TRUE(result.Err.startsWith("missing.csv: 12780: ")) << result.Err.toStdString();
    EXPECT_EQ(result.Out, QStringLiteral("three.csv: Memory List Three: 3 of 1024 rows used\n"));
    EXPECT_EQ(result.ExitCode, 1);
}

TEST_F(Tarvikctl, ChecksCsvFileByFirstLineWhateverItsName)
{
    StoreThree("three.txt");
    const CtlResult result = Ctl({ "check", "three.txt" });
    EXPECT_EQ(result.Out, QStringLiteral("three.txt: Memory List Three: 3 of 1024 rows used\n"));
    EXPECT_EQ(result.ExitCode, 0);
}

TEST_F(Tarvikctl, ReportsCsvFileOfUnknownKind)
{
    Store("notes.csv", "Shopping,list\r\nDescription,none\r\nmilk\r\n");
    const CtlResult result = Ctl({ "check", "notes.csv" });
    EXPECT_TRUE(result.Err.startsWith("notes.csv: 12777: ")) << result.Err.toStdString();
    EXPECT_EQ(result.Out, QString());
    EXPECT_EQ(result.ExitCode, 1);
}

TEST_F(Tarvikctl, ReportsBadField)
{
    QByteArray csv = MemoryCsv("Bad", { CsvRow(), { 1, 100000000, "second" } });
    csv.replace("Used,1,1,Active,100000000,FM", "Used,1,1,Active,100000000,XM");
    Store("bad.csv", csv);
    const CtlResult result = Ctl({ "check", "bad.csv" });
    EXPECT_TRUE(result.Err.startsWith("bad.csv: 12797: ")) << result.Err.toStdString();
    EXPECT_EQ(result.ExitCode, 1);
}

TEST_F(Tarvikctl, RefusesTruncatedBinaryFile)
{
    StoreThree("three.csv");
    ASSERT_EQ(Ctl({ "convert", "three.csv", "three.tvm" }).ExitCode, 0);
    Store("cut.tvm", Bytes("three.tvm").chopped(1));
    const CtlResult result = Ctl({ "check", "cut.tvm" });
    EXPECT_TRUE(result.Err.startsWith("cut.tvm: 128")) << result.Err.toStdString();
    EXPECT_EQ(result.Out, QString());
    EXPECT_EQ(result.ExitCode, 1);
}

TEST_F(Tarvikctl, RefusesMemoryListUnderNameOfOtherFamily)
{
    StoreThree("three.csv");
    ASSERT_EQ(Ctl({ "convert", "three.csv", "three.tvm" }).ExitCode, 0);
    for (const char* name : { "x.tva", "x.tvk", "x.tvs", "x.tvc" }) {
        Store(name, Bytes("three.tvm"));
        const CtlResult result = Ctl({ "check", name });
        EXPECT_TRUE(result.Err.startsWith(QLatin1String(name) + QStringLiteral(": 128"))) << result.Err.toStdString();
        EXPECT_EQ(result.ExitCode, 1);
    }
}

TEST_F(Tarvikctl, ShowsUsedRows)
{
    StoreThree("three.csv");
    const QStringList lines = Ctl({ "show", "three.csv" }).Out.split(u'\n');
    ASSERT_EQ(lines.size(), 8);
    EXPECT_EQ(lines[0], QStringLiteral("Memory List Three: 3 of 1024 rows used"));
    EXPECT_EQ(lines[1], QStringLiteral("Made by a test"));
    EXPECT_EQ(
        lines[3].simplified(), QStringLiteral("Row Number Status Frequency (MHz) Demodulation Bandwidth Description"));
    EXPECT_EQ(lines[4].simplified(), QStringLiteral("0 0 Suppressed 300.000000 FM 12 kHz bravo"));
    EXPECT_EQ(lines[6].simplified(), QStringLiteral("2 2 Active 200.000000 FM 12 kHz alpha"));
}

TEST_F(Tarvikctl, ShowsAllRowsOnRequest)
{
    StoreThree("three.csv");
    const QStringList lines = Ctl({ "show", "--all", "three.csv" }).Out.split(u'\n');
    ASSERT_EQ(lines.size(), 4 + 1024 + 1);
    EXPECT_EQ(lines[4 + 1023].simplified(), QStringLiteral("1023 1023 Free"));
}

TEST_F(Tarvikctl, WritesJsonMembersInFixedOrder)
{
    StoreThree("three.csv");
    const QString text = Ctl({ "show", "--json", "three.csv" }).Out;
    EXPECT_TRUE(text.startsWith("{\n  \"family\": \"memory\",\n  \"name\": \"Three\",\n"
                                "  \"description\": \"Made by a test\",\n  \"rows\": [\n"))
        << text.left(200).toStdString();
    EXPECT_EQ(text.split(u'\n')[6],
        QStringLiteral(
            "    { \"row\": 1, \"used\": true, \"number\": 1, \"frequency\": 100000000, \"demodulation\": 0, "
            "\"bandwidth\": 7, \"squelchLevel\": 10, \"squelchStatus\": 1, \"antennaNumber\": 1, "
            "\"attenuatorStatus\": 0, \"afcStatus\": 0, \"description\": \"Charlie\", \"status\": 0, "
            "\"dfSquelchStatus\": 1, \"dfSquelchLevel\": 10, \"dfMeasurementTime\": 0.2, "
            "\"frequencySpan\": 3, \"dfStep\": 19, \"dfBandwidth\": 20 },"));
}

TEST_F(Tarvikctl, WritesUnusedRowsAsJsonOnRequest)
{
    StoreThree("three.csv");
    const QJsonArray rows = Json("three.csv", true)[QStringLiteral("rows")].toArray();
    ASSERT_EQ(rows.size(), 1024);
    EXPECT_TRUE(rows[2][QStringLiteral("used")].toBool());
    EXPECT_FALSE(rows[3][QStringLiteral("used")].toBool());
}

TEST_F(Tarvikctl, WritesEmptyListAsJson)
{
    Store("empty.csv", MemoryCsv("Empty", {}));
    EXPECT_EQ(Json("empty.csv")[QStringLiteral("rows")].toArray().size(), 0);
}

TEST_F(Tarvikctl, ConvertsThereAndBackWithoutLoss)
{
    StoreThree("three.csv");
    ASSERT_EQ(Ctl({ "convert", "three.csv", "there.tvm" }).ExitCode, 0);
    ASSERT_EQ(Ctl({ "convert", "there.tvm", "back.csv" }).ExitCode, 0);
    EXPECT_EQ(Json("there.tvm"), Json("three.csv"));
    EXPECT_EQ(Json("back.csv"), Json("three.csv"));
}

TEST_F(Tarvikctl, KeepsExistingTarget)
{
    StoreThree("three.csv");
    Store("out.tvm", "old");
    const CtlResult result = Ctl({ "convert", "three.csv", "out.tvm" });
    EXPECT_TRUE(result.Err.startsWith("out.tvm: 12734?: ")) << result.Err.toStdString();
    EXPECT_EQ(Bytes("out.tvm"), QByteArray("old"));
    EXPECT_EQ(result.ExitCode, 1);
}

TEST_F(Tarvikctl, ReplacesExistingTargetWithYes)
{
    StoreThree("three.csv");
    Store("out.tvm", "old");
    const CtlResult result = Ctl({ "convert", "--yes", "three.csv", "out.tvm" });
    EXPECT_TRUE(result.Err.startsWith("out.tvm: 12734?: ")) << result.Err.toStdString();
    EXPECT_EQ(Json("out.tvm"), Json("three.csv"));
    EXPECT_EQ(result.ExitCode, 0);
}

TEST_F(Tarvikctl, KeepsReadOnlyTargetEvenWithYes)
{
    StoreThree("three.csv");
    Store("out.csv", "old");
    ASSERT_TRUE(QFile::setPermissions(Path("out.csv"), QFileDevice::ReadOwner));
    const CtlResult result = Ctl({ "convert", "--yes", "three.csv", "out.csv" });
    EXPECT_TRUE(result.Err.startsWith("out.csv: 12728: ")) << result.Err.toStdString();
    EXPECT_EQ(Bytes("out.csv"), QByteArray("old"));
    EXPECT_EQ(result.ExitCode, 1);
}

TEST_F(Tarvikctl, KeepsTargetWhenSourceIsRefused)
{
    Store("bad.csv", "Memory List,bad\r\nDescription,x\r\n");
    Store("out.tvm", "old");
    EXPECT_EQ(Ctl({ "convert", "--yes", "bad.csv", "out.tvm" }).ExitCode, 1);
    EXPECT_EQ(Bytes("out.tvm"), QByteArray("old"));
}

TEST_F(Tarvikctl, ReportsMissingFolderOfTarget)
{
    StoreThree("three.csv");
    for (const char* target : { "none/out.tvm", "none/out.csv" }) {
        const CtlResult result = Ctl({ "convert", "three.csv", target });
        EXPECT_TRUE(result.Err.startsWith(QLatin1String(target) + QStringLiteral(": 12"))) << result.Err.toStdString();
        EXPECT_EQ(result.ExitCode, 1);
    }
}

TEST_F(Tarvikctl, SortsByEachKey)
{
    StoreThree("three.csv");
    const QList<QList<int>> orders{ { 1, 2, 0 }, { 0, 1, 2 }, { 2, 1, 0 }, { 1, 2, 0 }, { 0, 2, 1 }, { 2, 0, 1 },
        { 1, 0, 2 } };
    for (int key = 0; key < orders.size(); ++key) {
        const CtlResult result = Ctl({ "sort", "--yes", "--key", QString::number(key), "three.csv", "sorted.tvm" });
        EXPECT_EQ(result.ExitCode, 0) << result.Err.toStdString();
        EXPECT_EQ(NumbersOf("sorted.tvm"), orders[key]) << "key " << key;
    }
}

TEST_F(Tarvikctl, SortsFileInPlace)
{
    StoreThree("three.csv");
    EXPECT_EQ(Ctl({ "sort", "--key=2", "--yes", "three.csv", "three.csv" }).ExitCode, 0);
    EXPECT_EQ(NumbersOf("three.csv"), QList<int>({ 2, 1, 0 }));
}

TEST_F(Tarvikctl, TakesNamesLikeOptionsAfterTwoDashes)
{
    StoreThree("-three.csv");
    const CtlResult result = Ctl({ "check", "--", "-three.csv" });
    EXPECT_TRUE(result.Out.startsWith("-three.csv: ")) << result.Out.toStdString();
    EXPECT_EQ(result.ExitCode, 0);
}

TEST_F(Tarvikctl, ReportsMissingModules)
{
    ASSERT_TRUE(QFile::copy(QStringLiteral(TARVIKCTL), Path("alone")));
    QProcess process;
    process.start(Path("alone"), { "text", "10844" });
    ASSERT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitCode(), 1);
    const QByteArray error = process.readAllStandardError();
    EXPECT_TRUE(error.startsWith("tarvikctl: Tarvik library TVLNG."));
    EXPECT_TRUE(error.endsWith(": there is no such file\n")) << error.constData();
}

} // namespace tarvik
