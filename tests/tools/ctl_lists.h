// tests/tools/ctl_lists.h: a list of each family, and tarvikctl's answers about lists.
#pragma once

#include "tests/tools/ctl.h"

#include <QJsonDocument>

namespace tarvik {

inline const QByteArray kTable = "K-Factor Table,Mast\r\nDescription,north\r\n1,30000000,1.25,2\r\n2,85000000,3,4\r\n"
                                 "3,70000000,-5.5,6\r\n";
inline const QByteArray kRanges = "Suppress List,Bands\r\nDescription,fm\r\n0,Include,88000000,108000000,fm\r\n"
                                  "5,Include,108000000,110000000,\r\n7,Exclude,100000000,101000000,test\r\n";
inline const QByteArray kAntennas = "Antenna List,Site\r\nDescription,roof\r\n"
                                    "1,Yes,Dipole,30000000,90000000,-1000000,10,01,Mast,7,12.5,Array\r\n"
                                    "9,No,Whip,1000000,30000000,0,00,00,,0,0,\r\n";
inline const QByteArray kSet = R"({ "family": "correction", "name": "Array",
  "header": { "antennaName": "Dipole", "manufacturerName": "Works", "antennaCode": 7, "version": 3,
    "startFrequency": 30000000, "stopFrequency": 90000000, "year": 2026, "month": 11, "day": 22 },
  "kfactor": [ { "row": 0, "frequency": 40000000, "passive": 1.234, "active": 2 },
    { "row": 3, "frequency": 30000000.5, "passive": 3, "active": 4 } ],
  "omniphase": [],
  "azimuth": [ { "row": 0, "frequency": 30000000, "angles": [1, 2.125] },
    { "row": 1, "frequency": 40000000, "angles": [] } ] })";

class CtlLists : public CtlTest {
protected:
    QJsonObject Object(const QString& name) const
    {
        return QJsonDocument::fromJson(Bytes(name)).object();
    }

    /// `convert` of a JSON text fails with this message.
    void ExpectRefused(const QByteArray& json, const QString& message) const
    {
        Store("in.json", json);
        const CtlResult result = Ctl({ "convert", "in.json", "out.json" });
        EXPECT_EQ(result.ExitCode, 1) << json.constData();
        EXPECT_TRUE(result.Err.startsWith(QStringLiteral("in.json: ") + message)) << result.Err.toStdString();
        EXPECT_FALSE(FolderEntries().contains("out.json"));
    }

    void ExpectDone(const QStringList& arguments) const
    {
        const CtlResult result = Ctl(arguments);
        EXPECT_EQ(result.ExitCode, 0) << arguments.join(u' ').toStdString();
        EXPECT_EQ(result.Err, QString()) << arguments.join(u' ').toStdString();
    }

    /// The list in all its forms has the same JSON as `file`.
    void ExpectSameInAllForms(const QString& file, const QStringList& extensions) const
    {
        const QJsonObject expected = Json(file);
        QString before = file;
        for (const QString& extension : extensions) {
            const QString name = QStringLiteral("copy.") + extension;
            ExpectDone({ "convert", before, name });
            EXPECT_EQ(Json(name), expected) << extension.toStdString();
            before = name;
        }
    }
};

} // namespace tarvik
