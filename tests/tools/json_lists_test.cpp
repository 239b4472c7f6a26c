// Lists as JSON, read without the program around: every error names the key and the row.
#include "tests/closed/samples.h"
#include "tests/support/fixture.h"
#include "tests/support/messageLog.h"

#include "closed/loader.h"
#include "lists/editor/editorGeneral.h"
#include "lists/values/limits.h"
#include "tools/tarvikctl/jsonText.h"
#include "tools/tarvikctl/readList.h"

#include <QFile>
#include <QJsonDocument>

namespace tarvik {

namespace {

/// A list of each family, with two rows in each table.
const QList<QByteArray> kLists{
    R"({ "family": "antenna", "name": "Site", "description": "roof", "rows": [
  { "row": 0, "include": 1, "name": "Dipole", "startFrequency": 30000000, "stopFrequency": 90000000,
    "frequencyOffset": -1000000, "passiveBits": 2, "activeBits": 1, "kfactorTable": "Mast", "antennaCode": 7,
    "northOffset": 12.5, "correctionSet": "Array" },
  { "row": 98, "include": 0, "name": "", "startFrequency": 8000, "stopFrequency": 8000, "frequencyOffset": 0,
    "passiveBits": 0, "activeBits": 0, "kfactorTable": "", "antennaCode": 0, "northOffset": 0, "correctionSet": "" }
] })",
    R"({ "family": "kfactor", "name": "Mast", "description": "", "rows": [
  { "row": 0, "frequency": 30000000, "passive": 1.25, "active": -2 },
  { "row": 1, "frequency": 85000000.5, "passive": 3, "active": 4 } ] })",
    R"({ "family": "suppress", "name": "Bands", "description": "fm", "rows": [
  { "row": 0, "include": 1, "startFrequency": 88000000, "stopFrequency": 108000000, "description": "Caf\u00e9" },
  { "row": 99, "include": 0, "startFrequency": 1000000, "stopFrequency": 2000000, "description": "" } ] })",
    R"({ "family": "correction", "name": "Array",
  "header": { "antennaName": "Dipole", "manufacturerName": "Works", "antennaCode": 7, "version": 3,
    "startFrequency": 30000000, "stopFrequency": 90000000, "year": 2026, "month": 11, "day": 22 },
  "kfactor": [ { "row": 0, "frequency": 40000000, "passive": 1.234, "active": 2 },
    { "row": 3, "frequency": 30000000.5, "passive": 3, "active": 4 } ],
  "omniphase": [ { "row": 0, "frequency": 40000000, "phase": 90 }, { "row": 1, "frequency": 50000000, "phase": 0 } ],
  "azimuth": [ { "row": 0, "frequency": 30000000, "angles": [1, 2.125] },
    { "row": 999, "frequency": 40000000, "angles": [] } ] })",
    R"({ "family": "memory", "name": "Van", "description": "", "rows": [
  { "row": 0, "used": true, "number": 0, "frequency": 145500000, "demodulation": 0, "bandwidth": 10,
    "squelchLevel": 10, "squelchStatus": 1, "antennaNumber": 1, "attenuatorStatus": 0, "afcStatus": 0,
    "description": "Tower", "status": 0, "dfSquelchStatus": 1, "dfSquelchLevel": 10, "dfMeasurementTime": 0.2,
    "frequencySpan": 3, "dfStep": 5, "dfBandwidth": 5 },
  { "row": 1023, "used": false, "number": 1, "frequency": 100000000, "demodulation": 0, "bandwidth": 10,
    "squelchLevel": 10, "squelchStatus": 1, "antennaNumber": 1, "attenuatorStatus": 0, "afcStatus": 0,
    "description": "", "status": 0, "dfSquelchStatus": 1, "dfSquelchLevel": 10, "dfMeasurementTime": 0.2,
    "frequencySpan": 3, "dfStep": 5, "dfBandwidth": 5 } ] })"
};

/// One object of a list: the list itself, its header, or the second entry of a table.
struct Part {
    QJsonObject Object;
    QString Place; ///< as errors name it
    QString Table; ///< key of the member that holds it; empty for the list
};

QList<Part> PartsOf(const QJsonObject& list)
{
    QList<Part> parts{ { list, {}, {} } };
    for (const QString& key : list.keys()) {
        if (list[key].isObject())
            parts.append({ list[key].toObject(), key, key });
        else if (list[key].isArray())
            parts.append({ list[key].toArray().at(1).toObject(), key + QStringLiteral("[1]"), key });
    }
    return parts;
}

/// The list with `changed` in the place of `part`.
QByteArray Replaced(QJsonObject list, const Part& part, const QJsonObject& changed)
{
    if (part.Table.isEmpty())
        list = changed;
    else if (list[part.Table].isObject())
        list[part.Table] = changed;
    else
        list[part.Table] = QJsonArray{ list[part.Table].toArray().first(), changed };
    return QJsonDocument(list).toJson();
}

/// How an error of a member begins.
QString Error(const Part& part, const QString& key, const QString& text)
{
    return (part.Place.isEmpty() ? QString() : part.Place + QStringLiteral(": ")) + JsonString(key) + u' ' + text;
}

class JsonLists : public ProgramTest {
protected:
    JsonLists()
    {
        ReadInstrumentLimits();
        TheMessagePresenter().Set(log);
    }

    /// What is wrong with a text; read.List is null if nothing was read.
    QString Read(const QByteArray& text)
    {
        log.Reports.clear();
        read = {};
        return ReadListJson(text, read);
    }

    /// Calls `check` with each list, each of its parts and each key of that, but "family".
    void ForEachMember(const std::function<void(const QJsonObject&, const Part&, const QString&)>& check)
    {
        for (const QByteArray& text : kLists) {
            const QJsonObject list = QJsonDocument::fromJson(text).object();
            for (const Part& part : PartsOf(list)) {
                for (const QString& key : part.Object.keys()) {
                    if (key != "family")
                        check(list, part, key);
                }
            }
        }
    }

    /// The first list with this member in the second entry of its rows.
    static QByteArray WithMember(int list, const QString& key, const QJsonValue& value, const QString& table = "rows")
    {
        const QJsonObject object = QJsonDocument::fromJson(kLists[list]).object();
        for (const Part& part : PartsOf(object)) {
            if (part.Table == table) {
                QJsonObject changed = part.Object;
                changed[key] = value;
                return Replaced(object, part, changed);
            }
        }
        return {};
    }

    MessageLog log;
    ReadList read;
};

} // namespace

TEST_F(JsonLists, EveryFamilyRoundTrips)
{
    for (const QByteArray& text : kLists) {
        ASSERT_EQ(Read(text), "");
        EXPECT_TRUE(log.Reports.isEmpty());
        const QString written = read.List->Json(false);
        ASSERT_EQ(Read(written.toUtf8()), "");
        EXPECT_EQ(read.List->Json(false), written);
        const bool isMemory = read.Class == FileClassMemoryList; // its second row is not used
        EXPECT_TRUE(isMemory || QJsonDocument::fromJson(written.toUtf8()) == QJsonDocument::fromJson(text));
    }
}

TEST_F(JsonLists, EveryMissingMemberIsNamed)
{
    ForEachMember([this](const QJsonObject& list, const Part& part, const QString& key) {
        QJsonObject changed = part.Object;
        changed.remove(key);
        EXPECT_EQ(Read(Replaced(list, part, changed)), Error(part, key, "is missing"));
        EXPECT_TRUE(log.Reports.isEmpty());
    });
}

TEST_F(JsonLists, EveryMemberOfAnotherTypeIsNamed)
{
    const QList<QJsonValue> values{ QJsonValue::Null, true, 1.5, "x", QJsonArray(), QJsonObject() };
    ForEachMember([&](const QJsonObject& list, const Part& part, const QString& key) {
        for (const QJsonValue& value : values) {
            if (value.type() == part.Object[key].type())
                continue;
            QJsonObject changed = part.Object;
            changed[key] = value;
            const QString error = Read(Replaced(list, part, changed));
            EXPECT_TRUE(error.startsWith(Error(part, key, "is not "))) << error.toStdString();
            EXPECT_TRUE(log.Reports.isEmpty());
        }
    });
}

TEST_F(JsonLists, EveryUnknownMemberIsNamed)
{
    ForEachMember([this](const QJsonObject& list, const Part& part, const QString& key) {
        QJsonObject changed = part.Object;
        const QString misspelt = key.chopped(1);
        changed[misspelt] = changed.take(key);
        EXPECT_EQ(Read(Replaced(list, part, changed)), Error(part, misspelt, "is not known"));
    });
}

TEST_F(JsonLists, EveryMemberThatOccursTwiceIsNamed)
{
    ForEachMember([this](const QJsonObject& list, const Part& part, const QString& key) {
        QJsonObject changed = part.Object;
        changed["~"] = changed[key];
        const QByteArray text = Replaced(list, part, changed);
        const QByteArray escaped =
            "\"\\u00" + QByteArray::number(key.at(0).unicode(), 16) + key.mid(1).toLatin1() + '"';
        for (const QByteArray& name : { '"' + key.toLatin1() + '"', escaped })
            EXPECT_EQ(Read(QByteArray(text).replace("\"~\"", name)), Error(part, key, "occurs twice"));
    });
    EXPECT_EQ(Read(R"({ "family": "kfactor", "family": "kfactor" })"), "\"family\" occurs twice");
}

TEST_F(JsonLists, BracketsAndQuotesInTextsAreNoObjects)
{
    const QByteArray text = R"({ "family": "antenna", "name": "a[b]", "description": "{[\\\\,:]}\\", "rows": [] })";
    EXPECT_EQ(Read(text), "");
    EXPECT_EQ(Read(R"({ "family": "antenna", "name": "a", "description": "\"name\"", "rows": [] })"), "");
    EXPECT_EQ(log.Reports.value(0).Number, 12764); // a file in CSV can hold no quote
}

TEST_F(JsonLists, RowsOutsideTheListAndGivenTwiceAreNamed)
{
    const QList<std::tuple<int, QString, int>> tables{ { 0, "rows", 99 }, { 1, "rows", 1000 }, { 2, "rows", 100 },
        { 3, "kfactor", 1000 }, { 3, "omniphase", 1000 }, { 3, "azimuth", 1000 }, { 4, "rows", 1024 } };
    for (const auto& [list, table, size] : tables) {
        for (const int row : { -1, size, 2147483647 }) {
            const QString error = Read(WithMember(list, "row", row, table));
            EXPECT_TRUE(error.startsWith(table + "[1]: the ")) << error.toStdString();
            EXPECT_TRUE(error.endsWith(QStringLiteral(" has no row %1").arg(row))) << error.toStdString();
        }
        EXPECT_EQ(Read(WithMember(list, "row", 0, table)), table + "[1]: row 0 occurs twice");
        for (const double row : { 0.5, 1e300, -2147483649.0 })
            EXPECT_EQ(
                Read(WithMember(list, "row", row, table)), table + "[1]: \"row\" is not a whole number of this range");
        EXPECT_TRUE(log.Reports.isEmpty());
    }
}

TEST_F(JsonLists, WholeNumbersHaveTheirRange)
{
    for (const double code : { 32768.0, -32769.0, 7.5, 1e308 })
        EXPECT_EQ(
            Read(WithMember(0, "antennaCode", code)), "rows[1]: \"antennaCode\" is not a whole number of this range");
    EXPECT_EQ(Read(WithMember(0, "antennaCode", 32767)), "");
    EXPECT_TRUE(read.List->Json(false).contains("\"antennaCode\": 255"));
}

TEST_F(JsonLists, HugeNumbersAreClamped)
{
    EXPECT_EQ(Read(WithMember(1, "frequency", 1e308)), "");
    EXPECT_EQ(Read(WithMember(1, "passive", -1e308)), "");
    EXPECT_TRUE(read.List->Json(false).contains("\"passive\": -99.99"));
    EXPECT_EQ(Read(WithMember(3, "phase", 1e308, "omniphase")), "");
    EXPECT_TRUE(read.List->Json(false).contains("\"phase\": 360"));
    EXPECT_EQ(Read(WithMember(3, "angles", QJsonArray{ -1e308, 1e-308 }, "azimuth")), "");
    EXPECT_TRUE(read.List->Json(false).contains("\"angles\": [-360, 1e-308]"));
    EXPECT_TRUE(log.Reports.isEmpty());
}

TEST_F(JsonLists, NumbersThatAreNoneAreRefused)
{
    for (const QByteArray number : { "NaN", "Infinity", "-Infinity", "1e999", "0x10", "01", "+1", "-" }) {
        const QString error = Read(QByteArray(kLists[1]).replace("85000000.5", number));
        EXPECT_TRUE(error.startsWith("line 3: ")) << number.toStdString() << ' ' << error.toStdString();
    }
}

TEST_F(JsonLists, AnglesMustBeNumbersAndFit)
{
    EXPECT_EQ(Read(WithMember(3, "angles", QJsonArray{ 1, "2" }, "azimuth")),
        "azimuth[1]: \"angles\" is not an array of numbers");
    QJsonArray angles;
    for (int angle = 0; angle < 1000; ++angle)
        angles.append(angle % 360);
    EXPECT_EQ(Read(WithMember(3, "angles", angles, "azimuth")), "");
    angles.append(1);
    EXPECT_EQ(Read(WithMember(3, "angles", angles, "azimuth")), "azimuth[1]: more than 1000 angles");
}

TEST_F(JsonLists, AnglesWithoutMemoryAreAnError)
{
    TvFio().AntCorrNewAngles = [](std::int16_t) { return std::int32_t{ 0 }; };
    EXPECT_EQ(Read(kLists[3]), "azimuth[0]: no memory for its angles");
}

TEST_F(JsonLists, TextsThatNoListCanHoldAreNamed)
{
    for (const QString& text : { QStringLiteral("\u4e00"), QStringLiteral("a\u0394b"), QString(QChar(u'\0')) }) {
        EXPECT_EQ(
            Read(WithMember(2, "description", text)), "rows[1]: \"description\" has a character that no list can hold");
        EXPECT_EQ(Read(WithMember(3, "manufacturerName", text, "header")),
            "header: \"manufacturerName\" has a character that no list can hold");
    }
    EXPECT_EQ(Read(WithMember(2, "description", QStringLiteral("\u20ac\u00e9"))), "");
    EXPECT_TRUE(log.Reports.isEmpty());
}

TEST_F(JsonLists, TextThatIsNoJsonIsRefusedWithItsLine)
{
    const QByteArray deep = QByteArray(R"({ "family": "kfactor", "name": )") + QByteArray(100000, '[');
    const QList<QByteArray> texts{ "", " \n", "\xFF\xFE{", R"({ "family": "kfactor" } x)", deep,
        QByteArray(kLists[1]).replace("Mast", "M\xE4st"), QByteArray(kLists[1]).replace("Mast", "M\xC0\xAFst"),
        QByteArray(kLists[1]).replace("Mast", "M\xED\xA0\x80st") };
    for (const QByteArray& text : texts)
        EXPECT_TRUE(Read(text).startsWith("line ")) << text.left(80).toStdString();
    for (const QByteArray text : { "[]", "[{}]" })
        EXPECT_EQ(Read(text), "not a JSON object");
    for (const QByteArray family : { "\"kfactors\"", "7", "null", "\"Memory\"", "[]" })
        EXPECT_EQ(Read("{ \"family\": " + family + " }"),
            "\"family\" is not memory, antenna, kfactor, suppress or correction");
    EXPECT_TRUE(log.Reports.isEmpty());
}

TEST_F(JsonLists, EveryTruncationIsRefused)
{
    for (const QByteArray& list : kLists) {
        for (qsizetype length = 0; length < list.size(); ++length)
            ASSERT_NE(Read(list.first(length)), "") << length;
        EXPECT_TRUE(log.Reports.isEmpty());
    }
}

TEST_F(JsonLists, EveryFlippedBitIsRefusedOrReadsAsAWholeList)
{
    for (const QByteArray& list : kLists.first(4)) { // a memory list takes longer
        for (qsizetype bit = 0; bit < list.size() * 8; ++bit) {
            QByteArray damaged = list;
            damaged[bit / 8] = static_cast<char>(damaged[bit / 8] ^ (1 << (bit % 8)));
            if (!Read(damaged).isEmpty() || !log.Reports.isEmpty())
                continue;
            const QString written = read.List->Json(false);
            ASSERT_EQ(Read(written.toUtf8()), "") << bit;
            ASSERT_TRUE(log.Reports.isEmpty()) << bit;
            ASSERT_EQ(read.List->Json(false), written) << bit;
        }
    }
}

namespace {

/// Correction sets in files: the editor says nothing about a damaged one, the command line does.
class DamagedSet : public JsonLists {
protected:
    void ExpectReported(const tvfio::Bytes& file)
    {
        const QString path = FilePath("list.tvc");
        static_cast<void>(QFile::remove(path)); // truncation makes some file systems flush at once
        Store(path, QByteArray(reinterpret_cast<const char*>(file.data()), static_cast<qsizetype>(file.size())));
        log.Reports.clear();
        EXPECT_FALSE(NewListFile(FileClassCorrectionSet)->Read(path, false));
        ASSERT_EQ(log.Reports.size(), 1);
        EXPECT_EQ(log.Reports.first().Number, 12827);
        EXPECT_TRUE(log.Reports.first().Args.value(0).startsWith("The file is "));
    }

    const tvfio::Bytes whole = tvfio::SampleFile<tvfio::CorrectionSet>();
};

} // namespace

TEST_F(DamagedSet, EveryTruncationIsReported)
{
    for (size_t length = 0; length < whole.size() && !HasFailure(); ++length)
        ExpectReported({ whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length) });
}

TEST_F(DamagedSet, EveryFlippedBitIsReported)
{
    for (size_t bit = 0; bit < whole.size() * 8 && !HasFailure(); ++bit) {
        tvfio::Bytes damaged = whole;
        damaged[bit / 8] = static_cast<uint8_t>(damaged[bit / 8] ^ (1U << (bit % 8)));
        ExpectReported(damaged);
    }
}

TEST_F(DamagedSet, TableThatTheStoreCannotHandOutIsReported)
{
    Store(FilePath("list.tvc"), QByteArray(reinterpret_cast<const char*>(whole.data()), whole.size()));
    TvFio().AntCorrGetAzimuth = [](AzimuthEntry*, std::int16_t*) { return std::int16_t{ 14 }; };
    EXPECT_FALSE(NewListFile(FileClassCorrectionSet)->Read(FilePath("list.tvc"), false));
    ASSERT_EQ(log.Reports.size(), 1);
    EXPECT_EQ(log.Reports.first().Number, 12834);
}

} // namespace tarvik
