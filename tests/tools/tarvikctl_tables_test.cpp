// tarvikctl with K-factor tables and correction sets, and their diagrams.
#include "tests/tools/ctl_lists.h"

#include <QImage>
#include <QJsonArray>

namespace tarvik {

namespace {

class CtlTables : public CtlLists { };

} // namespace

TEST_F(CtlTables, ShowsKfactorTablesWithTheNumbersOfTheEditor)
{
    Store("k.csv", kTable);
    const QStringList lines = Ctl({ "show", "k.csv" }).Out.split(u'\n');
    ASSERT_EQ(lines.size(), 8);
    EXPECT_EQ(lines[1], "north");
    EXPECT_EQ(lines[3].simplified(), "No. Frequency (MHz) Passive (dB/m) Active (dB/m)");
    EXPECT_EQ(lines[4].simplified(), "1 30.000000 1.25 2.00");
    EXPECT_EQ(lines[6].simplified(), "3 70.000000 -5.50 6.00");
    EXPECT_EQ(Ctl({ "show", "--all", "k.csv" }).Out.split(u'\n').size(), 4 + 1000 + 1);
}

TEST_F(CtlTables, ShowsTheTablesOfACorrectionSet)
{
    Store("c.json", kSet);
    const QStringList lines = Ctl({ "show", "c.json" }).Out.split(u'\n');
    ASSERT_EQ(lines.size(), 12);
    EXPECT_EQ(lines[0], "Correction Set Array: 2 kfactor, 0 omniphase, 2 azimuth entries");
    EXPECT_EQ(lines[2].simplified(), "No. Frequency (MHz) Passive (dB/m) Active (dB/m)");
    EXPECT_EQ(lines[3].simplified(), "1 40.000000 1.23 2.00");
    EXPECT_EQ(lines[4].simplified(), "4 30.000001 3.00 4.00");
    EXPECT_EQ(lines[6].simplified(), "No. Frequency (MHz) Phase (\u00B0)");
    EXPECT_EQ(lines[8].simplified(), "No. Frequency (MHz) Angles (\u00B0), separated by |");
    EXPECT_EQ(lines[9].simplified(), "1 30.000000 1.00 | 2.13");
    EXPECT_EQ(Ctl({ "show", "--all", "c.json" }).Out.split(u'\n').size(), 1 + 3 * (2 + 1000) + 1);
    const QJsonObject all = Json("c.json", true);
    for (const char* table : { "kfactor", "omniphase", "azimuth" })
        EXPECT_EQ(all[table].toArray().size(), 1000) << table;
    EXPECT_EQ(all["kfactor"][999].toObject(),
        (QJsonObject{ { "row", 999 }, { "frequency", 0 }, { "passive", 0 }, { "active", 0 } }));
}

TEST_F(CtlTables, ValuesOfCorrectionSetsAreClamped)
{
    QByteArray set = kSet;
    set.replace("\"antennaCode\": 7", "\"antennaCode\": 999");
    set.replace("\"startFrequency\": 30000000", "\"startFrequency\": 1");
    set.replace("\"stopFrequency\": 90000000", "\"stopFrequency\": 9e9");
    set.replace("\"frequency\": 40000000, \"passive\": 1.234, \"active\": 2",
        "\"frequency\": 1, \"passive\": 999, \"active\": -999");
    set.replace("\"omniphase\": []",
        R"("omniphase": [ { "row": 0, "frequency": 30000000, "phase": 400 },
                         { "row": 1, "frequency": 40000000, "phase": -400 } ])");
    set.replace("[1, 2.125]", "[-1000, 370]");
    Store("c.json", set);
    const QJsonObject clamped = Json("c.json");
    EXPECT_EQ(clamped["header"]["antennaCode"].toInt(), 255);
    EXPECT_EQ(clamped["header"]["startFrequency"].toDouble(), 8000);
    EXPECT_EQ(clamped["header"]["stopFrequency"].toDouble(), 8e9);
    EXPECT_EQ(clamped["kfactor"][0].toObject(),
        (QJsonObject{ { "row", 0 }, { "frequency", 8000 }, { "passive", 200 }, { "active", -99.99 } }));
    EXPECT_EQ(clamped["omniphase"][0]["phase"].toDouble(), 360);
    EXPECT_EQ(clamped["omniphase"][1]["phase"].toDouble(), -360);
    EXPECT_EQ(clamped["azimuth"][0]["angles"].toArray(), (QJsonArray{ -360, 360 }));
}

TEST_F(CtlTables, KfactorRowsOfJsonHaveNoGaps)
{
    ExpectRefused(R"({ "family": "kfactor", "name": "Mast", "description": "", "rows": [
        { "row": 0, "frequency": 30000000, "passive": 1, "active": 2 },
        { "row": 2, "frequency": 40000000, "passive": 1, "active": 2 } ] })",
        "12782: Data line 2");
}

TEST_F(CtlTables, DamagedCorrectionSetIsReportedByEveryCommand)
{
    Store("c.json", kSet);
    ExpectDone({ "convert", "c.json", "c.tvc" });
    const QByteArray whole = Bytes("c.tvc");
    QByteArray flipped = whole;
    flipped[flipped.size() / 2] = static_cast<char>(flipped[flipped.size() / 2] ^ 1);
    for (const QByteArray& damaged : { whole.chopped(1), flipped }) {
        Store("bad.tvc", damaged);
        for (const QStringList& command : { QStringList{ "check", "bad.tvc" }, QStringList{ "show", "bad.tvc" },
                 QStringList{ "convert", "bad.tvc", "out.json" }, QStringList{ "plot", "bad.tvc", "out.png" },
                 QStringList{ "sort", "--key", "0", "bad.tvc", "out.tvc" } }) {
            const CtlResult result = Ctl(command);
            EXPECT_EQ(result.ExitCode, 1) << command.first().toStdString();
            EXPECT_EQ(result.Out, "");
            EXPECT_TRUE(result.Err.startsWith("bad.tvc: 12827: ")) << result.Err.toStdString();
            EXPECT_EQ(result.Err.count(u'\n'), 1);
        }
    }
    EXPECT_EQ(FolderEntries().filter("out"), QStringList());
}

TEST_F(CtlTables, AsksBeforeReplacingACorrectionSet)
{
    Store("c.json", kSet);
    Store("Array.tvc", "before");
    const CtlResult kept = Ctl({ "convert", "c.json", "Array.tvc" });
    EXPECT_TRUE(kept.Err.startsWith("Array.tvc: 12734?: ")) << kept.Err.toStdString();
    EXPECT_EQ(kept.ExitCode, 1);
    EXPECT_EQ(Bytes("Array.tvc"), "before");
    EXPECT_EQ(Ctl({ "convert", "--yes", "c.json", "Array.tvc" }).ExitCode, 0);
    EXPECT_EQ(Json("Array.tvc")["name"].toString(), "Array");
}

TEST_F(CtlTables, CorrectionSetsThatCannotBeReadOrWrittenAreReported)
{
    Store("c.json", kSet);
    const CtlResult unwritten = Ctl({ "convert", "c.json", "none/Array.tvc" });
    EXPECT_TRUE(unwritten.Err.startsWith("none/Array.tvc: 128")) << unwritten.Err.toStdString();
    EXPECT_EQ(unwritten.ExitCode, 1);
    Store("bad.tvc", "no set");
    EXPECT_TRUE(Ctl({ "check", "bad.tvc" }).Err.startsWith("bad.tvc: 128"));
    const CtlResult missing = Ctl({ "check", "gone.tvc" });
    EXPECT_TRUE(missing.Err.startsWith("gone.tvc: 12780: ")) << missing.Err.toStdString();
    EXPECT_EQ(missing.Err.count(u'\n'), 1);
}

TEST_F(CtlTables, PlotWritesThePictureBesideTheTable)
{
    Store("k.csv", kTable);
    ExpectDone({ "plot", "k.csv" });
    EXPECT_EQ(QImage::fromData(Bytes("k.png")).size(), QSize(792, 560));
    Store("k.v2.csv", kTable);
    ExpectDone({ "plot", "k.v2.csv" });
    EXPECT_TRUE(FolderEntries().contains("k.v2.png"));
    ExpectDone({ "plot", "--size", "320x200", "k.csv", "small.png" });
    const QImage small = QImage::fromData(Bytes("small.png"));
    EXPECT_EQ(small.size(), QSize(320, 200));
    bool hasRed = false;
    for (int y = 0; y < small.height(); ++y) {
        for (int x = 0; x < small.width(); ++x)
            hasRed = hasRed || small.pixelColor(x, y) == QColor(Qt::red);
    }
    EXPECT_TRUE(hasRed);
}

TEST_F(CtlTables, PlotPrintsTheNumbers)
{
    Store("k.csv", kTable);
    const QJsonObject plot = QJsonDocument::fromJson(Ctl({ "plot", "--values", "k.csv" }).Out.toUtf8()).object();
    EXPECT_EQ(plot["name"].toString(), "Mast");
    EXPECT_EQ(plot["points"].toInt(), 3);
    EXPECT_EQ(plot["series"].toInt(), 2);
    EXPECT_EQ(plot["xFirst"].toDouble(), 30e6);
    EXPECT_EQ(plot["xLast"].toDouble(), 85e6);
    EXPECT_DOUBLE_EQ(plot["xStep"].toDouble(), 55e6 / 631);
    EXPECT_EQ(plot["yBottom"].toDouble(), -5.5);
    EXPECT_DOUBLE_EQ(plot["yStep"].toDouble(), 1.1);
    EXPECT_DOUBLE_EQ(plot["yTop"].toDouble(), 5.5);
    const QJsonArray traces = plot["traces"].toArray();
    ASSERT_EQ(traces.size(), 2);
    EXPECT_EQ(traces[0]["colour"].toString(), "#FF0000");
    EXPECT_EQ(traces[1]["colour"].toString(), "#F7F310");
    ASSERT_EQ(traces[0]["samples"].toArray().size(), 630);
    EXPECT_EQ(traces[0]["samples"][0].toDouble(), 1.25);
    EXPECT_EQ(traces[1]["samples"][629].toDouble(), 4);
    EXPECT_EQ(FolderEntries(), QStringList{ "k.csv" });
}

TEST_F(CtlTables, PlotOfACorrectionSetSelectsTheTable)
{
    Store("c.json",
        QByteArray(kSet).replace("\"omniphase\": []",
            R"("omniphase": [ { "row": 0, "frequency": 30000000, "phase": 90 },
                           { "row": 1, "frequency": 40000000, "phase": -90 } ])"));
    const auto numbers = [this](const QString& table) {
        return QJsonDocument::fromJson(Ctl({ "plot", "--table", table, "--values", "c.json" }).Out.toUtf8()).object();
    };
    EXPECT_EQ(numbers("kfactor")["traces"][0]["samples"][0].toDouble(), 3);
    EXPECT_EQ(numbers("omniphase")["traces"][0]["samples"][629].toDouble(), -90);
    EXPECT_EQ(numbers("omniphase")["traces"][1]["samples"][629].toDouble(), 0);
}

TEST_F(CtlTables, PlotRefusesWhatHasNoDiagram)
{
    Store("a.csv", kAntennas);
    Store("k.csv", kTable);
    Store("c.json", kSet);
    EXPECT_EQ(Ctl({ "plot", "a.csv" }).Err, "a.csv: this kind of list has no such diagram\n");
    EXPECT_EQ(Ctl({ "plot", "--table", "omniphase", "k.csv" }).Err, "k.csv: this kind of list has no such diagram\n");
    EXPECT_EQ(Ctl({ "plot", "--table", "omniphase", "c.json" }).Err, "c.json: there is nothing to show\n");
    for (const QStringList& wrong : { QStringList{ "plot", "--table", "azimuth", "k.csv" },
             QStringList{ "plot", "--size", "10", "k.csv" }, QStringList{ "plot", "--size", "63x100", "k.csv" } })
        EXPECT_EQ(Ctl(wrong).ExitCode, 2) << wrong.join(u' ').toStdString();
    EXPECT_EQ(FolderEntries().filter(".png"), QStringList());
}

TEST_F(CtlTables, PlotChecksItsOwnTableOnly)
{
    Store("c.json",
        QByteArray(kSet).replace(
            "\"omniphase\": []", R"("omniphase": [ { "row": 0, "frequency": 30000000, "phase": 90 } ])"));
    EXPECT_EQ(Ctl({ "plot", "--values", "c.json" }).ExitCode, 0);
    EXPECT_TRUE(Ctl({ "plot", "--table", "omniphase", "--values", "c.json" }).Err.startsWith("c.json: 12772: "));
    Store("k.csv", "K-Factor Table,Mast\r\nDescription,\r\n1,30000000,1,1\r\n2,30000000,1,1\r\n");
    EXPECT_TRUE(Ctl({ "plot", "k.csv" }).Err.startsWith("k.csv: 12768: "));
    EXPECT_EQ(FolderEntries().filter(".png"), QStringList());
}

TEST_F(CtlTables, PlotAsksBeforeReplacingAPicture)
{
    Store("k.csv", kTable);
    Store("k.png", "before");
    const CtlResult refused = Ctl({ "plot", "k.csv" });
    EXPECT_EQ(refused.ExitCode, 1);
    EXPECT_TRUE(refused.Err.startsWith("./k.png: 12734?: ")) << refused.Err.toStdString();
    EXPECT_EQ(Bytes("k.png"), "before");
    EXPECT_EQ(Ctl({ "plot", "--yes", "k.csv" }).ExitCode, 0);
    EXPECT_EQ(QImage::fromData(Bytes("k.png")).size(), QSize(792, 560));
}

} // namespace tarvik
