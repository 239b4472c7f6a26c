// tarvikctl with lists of all families: forms, JSON, sort.
#include "tests/tools/ctl_lists.h"

#include <QJsonArray>

namespace tarvik {

TEST_F(CtlLists, CheckReportsEveryFamily)
{
    Store("k.csv", kTable);
    Store("s.csv", kRanges);
    Store("a.csv", kAntennas);
    Store("c.json", kSet);
    const CtlResult result = Ctl({ "check", "k.csv", "s.csv", "a.csv", "c.json" });
    EXPECT_EQ(result.Out,
        "k.csv: K-Factor Table Mast: 3 of 1000 rows used\ns.csv: Suppress List Bands: 3 of 100 rows used\n"
        "a.csv: Antenna List Site: 2 of 99 rows used\n"
        "c.json: Correction Set Array: 2 kfactor, 0 omniphase, 2 azimuth entries\n");
    EXPECT_EQ(result.ExitCode, 0);
}

TEST_F(CtlLists, RowsHaveTheirMembers)
{
    Store("a.csv", kAntennas);
    const QJsonObject antenna = Json("a.csv");
    EXPECT_EQ(antenna["family"].toString(), "antenna");
    EXPECT_EQ(antenna["description"].toString(), "roof");
    EXPECT_EQ(antenna["rows"][0].toObject(),
        (QJsonObject{ { "row", 0 }, { "include", 1 }, { "name", "Dipole" }, { "startFrequency", 30e6 },
            { "stopFrequency", 90e6 }, { "frequencyOffset", -1e6 }, { "passiveBits", 2 }, { "activeBits", 1 },
            { "kfactorTable", "Mast" }, { "antennaCode", 7 }, { "northOffset", 12.5 }, { "correctionSet", "Array" } }));
    EXPECT_EQ(antenna["rows"][1]["row"].toInt(), 8);
    Store("s.csv", kRanges);
    EXPECT_EQ(Json("s.csv")["rows"][1].toObject(),
        (QJsonObject{ { "row", 5 }, { "include", 1 }, { "startFrequency", 108e6 }, { "stopFrequency", 110e6 },
            { "description", "" } }));
    Store("k.csv", kTable);
    EXPECT_EQ(Json("k.csv")["rows"][2].toObject(),
        (QJsonObject{ { "row", 2 }, { "frequency", 70e6 }, { "passive", -5.5 }, { "active", 6 } }));
    EXPECT_EQ(Json("k.csv", true)["rows"].toArray().size(), 1000);
    Store("c.json", kSet);
    EXPECT_EQ(Json("c.json"), Object("c.json"));
}

TEST_F(CtlLists, EveryFormHoldsTheWholeList)
{
    Store("k.csv", kTable);
    ExpectSameInAllForms("k.csv", { "tvk", "json", "csv" });
}

TEST_F(CtlLists, SuppressListsKeepTheirRowsInEveryForm)
{
    Store("s.csv", kRanges);
    ExpectSameInAllForms("s.csv", { "tvs", "json", "csv" });
}

TEST_F(CtlLists, AntennaListsKeepTheirRowsInEveryForm)
{
    Store("a.csv", kAntennas);
    ExpectSameInAllForms("a.csv", { "tva", "json", "csv" });
}

TEST_F(CtlLists, MemoryListsAreReadFromJson)
{
    Store("m.csv", MemoryCsv("Van", { { 0, 145500000, "Tower" }, { 1, 100000000, "Base", "Suppressed" } }));
    ExpectSameInAllForms("m.csv", { "json", "tvm", "csv" });
}

TEST_F(CtlLists, CorrectionSetsAreSortedWhenTheyAreWritten)
{
    Store("c.json", kSet);
    ExpectDone({ "convert", "c.json", "Array.tvc" });
    const QJsonObject set = Json("Array.tvc");
    EXPECT_EQ(set["name"].toString(), "Array");
    EXPECT_EQ(set["header"].toObject(), Object("c.json")["header"].toObject());
    EXPECT_EQ(set["kfactor"][0].toObject(),
        (QJsonObject{ { "row", 0 }, { "frequency", 30000000.5 }, { "passive", 3 }, { "active", 4 } }));
    EXPECT_EQ(set["kfactor"][1]["passive"].toDouble(), 1.234);
    EXPECT_EQ(set["azimuth"][0]["angles"].toArray(), (QJsonArray{ 1, 2.125 }));
    ExpectDone({ "convert", "Array.tvc", "again.json" });
    EXPECT_EQ(Object("again.json"), set);
}

TEST_F(CtlLists, UnknownMissingAndMistypedMembersAreNamed)
{
    const QByteArray row = R"({ "row": 0, "frequency": 30000000, "passive": 1, "active": 2 })";
    const auto table = [](const QByteArray& rows) {
        return QByteArray(R"({ "family": "kfactor", "name": "Mast", "description": "", "rows": [ )") + rows + " ] }";
    };
    ExpectRefused(table(row + R"(, { "row": 1, "frequncy": 1, "passive": 1, "active": 2 })"),
        "rows[1]: \"frequncy\" is not known");
    ExpectRefused(table(row + R"(, { "row": 1, "passive": 1, "active": 2 })"), "rows[1]: \"frequency\" is missing");
    ExpectRefused(table(row + R"(, { "row": 1, "frequency": "1", "passive": 1, "active": 2 })"),
        "rows[1]: \"frequency\" is not a number");
    ExpectRefused(table(row + R"(, { "row": 1.5, "frequency": 1, "passive": 1, "active": 2 })"),
        "rows[1]: \"row\" is not a whole number");
    ExpectRefused(table(row + ", " + row), "rows[1]: row 0 occurs twice");
    ExpectRefused(table(R"({ "row": 1000, "frequency": 30000000, "passive": 1, "active": 2 })"),
        "rows[0]: the list has no row 1000");
    ExpectRefused(table("7"), "rows[0]: not an object");
    ExpectRefused(R"({ "family": "kfactor", "name": 7, "description": "", "rows": [] })", "\"name\" is not a string");
    ExpectRefused(R"({ "family": "kfactors" })", "\"family\" is not memory, antenna, kfactor, suppress or correction");
    ExpectRefused("[]", "not a JSON object");
    ExpectRefused("{ \"family\":\n x }", "line 2: ");
    ExpectRefused(
        table(R"({ "row": 0, "row": 1, "frequency": 1, "passive": 1, "active": 2 })"), "rows[0]: \"row\" occurs twice");
    ExpectRefused("{ \"family\": \"kfactor\",\n \"name\": \"\xE4\" }", "line 2: invalid UTF8 string");
    ExpectRefused(QByteArray(5000, '['), "line 1: too deeply nested document");
}

TEST_F(CtlLists, RefusedJsonLeavesTheTargetAsItWas)
{
    const QByteArray bad = R"({ "family": "kfactor", "name": "Mast", "description": "", "rows": [ 7 ] })";
    Store("in.json", bad);
    for (const QString target : { "out.tvk", "out.csv", "out.json", "in.json" }) {
        if (target != "in.json")
            Store(target, "before");
        for (const QStringList& command :
            { QStringList{ "convert", "--yes" }, QStringList{ "sort", "--key", "0", "--yes" } }) {
            const CtlResult result = Ctl(command + QStringList{ "in.json", target });
            EXPECT_EQ(result.ExitCode, 1);
            EXPECT_EQ(result.Out, "");
            EXPECT_EQ(result.Err, "in.json: rows[0]: not an object\n");
        }
        EXPECT_EQ(Bytes(target), target == "in.json" ? bad : QByteArray("before"));
    }
    EXPECT_EQ(FolderEntries().size(), 4);
    for (const QStringList& command : { QStringList{ "check", "in.json" }, QStringList{ "show", "in.json" } }) {
        const CtlResult result = Ctl(command);
        EXPECT_EQ(result.ExitCode, 1);
        EXPECT_EQ(result.Out, "");
        EXPECT_EQ(result.Err, "in.json: rows[0]: not an object\n");
    }
}

TEST_F(CtlLists, ValuesOfJsonPassTheChecksOfCsv)
{
    const QByteArray start = R"({ "family": "suppress", "name": "Bands", "description": "", "rows": [ )";
    ExpectRefused(
        start + R"({ "row": 0, "include": 1, "startFrequency": 2e6, "stopFrequency": 1e6, "description": "" }]})",
        "12813: Data line 1");
    ExpectRefused(
        start + R"({ "row": 0, "include": 1, "startFrequency": 1e6, "stopFrequency": 2e6, "description": "a;b" }]})",
        "12804: Data line 1");
    ExpectRefused(R"({ "family": "suppress", "name": "none", "description": "", "rows": [] })", "12770");
    Store("clamped.json",
        start + R"({ "row": 0, "include": 1, "startFrequency": 1, "stopFrequency": 9e9, "description": "" }]})");
    ExpectDone({ "convert", "clamped.json", "clamped.tvs" });
    EXPECT_EQ(Json("clamped.tvs")["rows"][0]["startFrequency"].toDouble(), 8000);
    EXPECT_EQ(Json("clamped.tvs")["rows"][0]["stopFrequency"].toDouble(), 8e9);
}

TEST_F(CtlLists, WhatTheEditorWouldNotSaveIsRefused)
{
    Store("one.csv", "K-Factor Table,Mast\r\nDescription,\r\n1,30000000,1,1\r\n");
    EXPECT_TRUE(Ctl({ "convert", "one.csv", "one.tvk" }).Err.startsWith("one.csv: 12772: "));
    Store("twice.csv", "K-Factor Table,Mast\r\nDescription,\r\n1,30000000,1,1\r\n2,30000000,1,1\r\n");
    EXPECT_TRUE(Ctl({ "sort", "--key", "0", "twice.csv", "twice.tvk" }).Err.startsWith("twice.csv: 12768: "));
    QByteArray many = "Antenna List,Site\r\nDescription,\r\n";
    for (int row = 1; row <= 8; ++row)
        many += QByteArray::number(row) + ",Yes,A,30000000,90000000\r\n";
    Store("many.csv", many);
    EXPECT_TRUE(Ctl({ "convert", "many.csv", "many.tva" }).Err.startsWith("many.csv: 12774: "));
    Store("c.json",
        QByteArray(kSet).replace(
            "\"omniphase\": []", R"("omniphase": [ { "row": 0, "frequency": 30000000, "phase": 1 } ])"));
    EXPECT_TRUE(Ctl({ "convert", "c.json", "c.tvc" }).Err.startsWith("c.json: 12772: "));
    Store("equal.json", QByteArray(kSet).replace("30000000.5", "40000000"));
    EXPECT_TRUE(Ctl({ "convert", "equal.json", "c.tvc" }).Err.startsWith("equal.json: 12895: "));
    Store("nameless.json", QByteArray(kSet).replace("\"Dipole\"", "\"\""));
    EXPECT_TRUE(Ctl({ "convert", "nameless.json", "c.tvc" }).Err.startsWith("nameless.json: 12767: "));
    Store("none.json", QByteArray(kSet).replace("\"Array\"", "\"none\""));
    EXPECT_TRUE(Ctl({ "convert", "none.json", "c.tvc" }).Err.startsWith("none.json: 12770: "));
    EXPECT_EQ(FolderEntries().filter(".tv"), QStringList());
}

TEST_F(CtlLists, ListWithABadLineIsNeitherShownNorConverted)
{
    Store("bad.csv", kTable + "9,40000000,1,1\r\n");
    for (const QStringList& arguments : { QStringList{ "check", "bad.csv" }, QStringList{ "show", "bad.csv" },
             QStringList{ "convert", "bad.csv", "out.tvk" } }) {
        const CtlResult result = Ctl(arguments);
        EXPECT_TRUE(result.Err.startsWith("bad.csv: 12782: ")) << result.Err.toStdString();
        EXPECT_EQ(result.Out, QString());
        EXPECT_EQ(result.ExitCode, 1);
    }
}

TEST_F(CtlLists, SortsByTheKeysOfTheFamily)
{
    Store("k.csv", kTable);
    ExpectDone({ "sort", "--key", "0", "k.csv", "k.tvk" });
    EXPECT_EQ(Json("k.tvk")["rows"][1]["frequency"].toDouble(), 70e6);
    Store("s.csv", kRanges);
    ExpectDone({ "sort", "--key", "0", "s.csv", "s.json" });
    EXPECT_EQ(Object("s.json")["rows"].toArray().size(), 3);
    ExpectDone({ "sort", "--merge", "s.csv", "merged.tvs" });
    const QJsonArray merged = Json("merged.tvs")["rows"].toArray();
    ASSERT_EQ(merged.size(), 2);
    EXPECT_EQ(merged[0]["stopFrequency"].toDouble(), 110e6);
    Store("c.json", kSet);
    ExpectDone({ "sort", "--key", "0", "c.json", "c2.json" });
    EXPECT_EQ(Object("c2.json")["kfactor"][0]["frequency"].toDouble(), 30000000.5);
}

TEST_F(CtlLists, RefusesSortThatTheFamilyLacks)
{
    Store("a.csv", kAntennas);
    Store("k.csv", kTable);
    EXPECT_EQ(Ctl({ "sort", "--key", "0", "a.csv", "b.csv" }).Err, "a.csv: an antenna list has no sort\n");
    EXPECT_EQ(
        Ctl({ "sort", "--key", "1", "k.csv", "b.csv" }).Err, "k.csv: the last sort key of this kind of list is 0\n");
    EXPECT_EQ(Ctl({ "sort", "--merge", "k.csv", "b.csv" }).Err, "k.csv: --merge is for suppress lists\n");
    EXPECT_EQ(Ctl({ "sort", "--merge", "--key", "0", "k.csv", "b.csv" }).ExitCode, 2);
}

TEST_F(CtlLists, RefusesTargetOfAnotherFamily)
{
    Store("k.csv", kTable);
    Store("c.json", kSet);
    EXPECT_EQ(Ctl({ "convert", "k.csv", "k.tvm" }).Err, "k.tvm: by its extension it is no file of this kind\n");
    EXPECT_EQ(Ctl({ "convert", "c.json", "c.csv" }).Err, "c.csv: by its extension it is no file of this kind\n");
    EXPECT_EQ(FolderEntries(), (QStringList{ "c.json", "k.csv" }));
}

TEST_F(CtlLists, AsksBeforeReplacingJson)
{
    Store("k.csv", kTable);
    Store("k.json", "before");
    EXPECT_EQ(Ctl({ "convert", "k.csv", "k.json" }).ExitCode, 1);
    EXPECT_EQ(Bytes("k.json"), "before");
    EXPECT_EQ(Ctl({ "convert", "--yes", "k.csv", "k.json" }).ExitCode, 0);
    EXPECT_EQ(Object("k.json"), Json("k.csv"));
}

TEST_F(CtlLists, ShowPrintsRangesAndAntennasInColumns)
{
    Store("s.csv", kRanges);
    EXPECT_EQ(Ctl({ "show", "s.csv" }).Out.split(u'\n'),
        (QStringList{ "Suppress List Bands: 3 of 100 rows used", "fm", "",
            "Row  Include  Start (MHz)  Stop (MHz)  Description", "  0  Include    88.000000  108.000000  fm",
            "  5  Include   108.000000  110.000000", "  7  Exclude   100.000000  101.000000  test", "" }));
    Store("a.csv", kAntennas);
    EXPECT_EQ(Ctl({ "show", "a.csv" }).Out.split(u'\n'),
        (QStringList{ "Antenna List Site: 2 of 99 rows used", "roof", "",
            "No.  Include  Name    Start frequency  Stop frequency  K-factor table  Correction set",
            "  1  Yes      Dipole        30.000000       90.000000  Mast            Array",
            "  9  No       Whip           1.000000       30.000000", "" }));
    EXPECT_TRUE(Ctl({ "show", "--all", "a.csv" }).Out.contains("\n  2\n  3\n"));
}

TEST_F(CtlLists, ControlCharactersOfJsonMakeNoNewLines)
{
    const QByteArray start = R"({ "family": "antenna", "name": "Site", "description": "", "rows": [ { "row": 0,
        "include": 1, "name": ")";
    const QByteArray end = R"(", "startFrequency": 3e7, "stopFrequency": 9e7, "frequencyOffset": 0, "passiveBits": 0,
        "activeBits": 0, "kfactorTable": "", "antennaCode": 0, "northOffset": 0, "correctionSet": "" } ] })";
    ExpectRefused(start + R"(x\r\n7)" + end, "12788: Data line 1");
    ExpectRefused(
        QByteArray(start + "x" + end).replace(R"("description": "")", R"("description": "a\r\n7,Yes")"), "12764");
    ExpectRefused(QByteArray(start + "x" + end).replace(R"("name": "Site")", R"("name": "Site\r\n7")"), "12766");
}

TEST_F(CtlLists, AnyFlagThatIsNotZeroIncludesAnAntenna)
{
    Store("a.csv", kAntennas);
    ExpectDone({ "convert", "a.csv", "a.json" });
    Store("b.json", Bytes("a.json").replace("\"include\": 1", "\"include\": -1"));
    ExpectDone({ "convert", "b.json", "b.tva" });
    EXPECT_EQ(Json("b.tva"), Json("a.csv"));
}

TEST_F(CtlLists, UnknownMembersOfTheListAreNamed)
{
    ExpectRefused(R"({ "family": "suppress", "name": "Bands", "description": "", "rows": [], "extra": 1 })",
        "\"extra\" is not known");
    ExpectRefused(R"({ "family": "antenna", "name": "Site", "rows": [] })", "\"description\" is missing");
    ExpectRefused(
        R"({ "family": "antenna", "name": "Site", "description": "", "rows": {} })", "\"rows\" is not an array");
    ExpectRefused(
        R"({ "family": "suppress", "name": "Bands", "description": "", "rows": [
            { "row": 99, "include": true, "startFrequency": 1e6, "stopFrequency": 2e6, "description": "" } ] })",
        "rows[0]: \"include\" is not a number");
}

TEST_F(CtlLists, AntennasThatTheEditorWouldNotSaveAreRefused)
{
    Store("a.csv", "Antenna List,Site\r\nDescription,\r\n1,Yes,Short\r\n");
    EXPECT_TRUE(Ctl({ "convert", "a.csv", "a.tva" }).Err.startsWith("a.csv: 12773: "));
    EXPECT_EQ(FolderEntries(), QStringList{ "a.csv" });
}

TEST_F(CtlLists, SortKeepsNameAndDescriptionAndClosesGaps)
{
    Store("s.csv", kRanges);
    ExpectDone({ "sort", "--key", "0", "s.csv", "sorted.csv" });
    EXPECT_EQ(Bytes("sorted.csv"),
        "Suppress List,Bands\r\nDescription,fm\r\n0,Include, 88000000, 108000000,fm\r\n"
        "1,Exclude, 100000000, 101000000,test\r\n2,Include, 108000000, 110000000,\r\n");
    ExpectDone({ "sort", "--merge", "s.csv", "merged.csv" });
    EXPECT_EQ(Bytes("merged.csv"),
        "Suppress List,Bands\r\nDescription,fm\r\n0,Include, 88000000, 110000000,fm\r\n"
        "1,Exclude, 100000000, 101000000,test\r\n");
}

} // namespace tarvik
