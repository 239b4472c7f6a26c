// tests/lists/correction/correction_fixture.h: correction sets for tests.
#pragma once

#include "tests/lists/list_fixture.h"

#include "lists/correction/correctionSet.h"

namespace tarvik {

/// Starts with the correction set as the current list type. `Base` has a ListStart.
template <typename Base>
class CorrectionTest : public Base {
protected:
    CorrectionTest()
    {
        SetEditorType(FileClassCorrectionSet);
    }

    static std::vector<CorrRow> Rows(CorrTableId table, const QList<QStringList>& texts)
    {
        std::vector<CorrRow> rows(kCorrRows);
        for (qsizetype row = 0; row < texts.size(); ++row) {
            for (int column = 0; column < texts.at(row).size(); ++column)
                TypeCorrCell(rows[static_cast<size_t>(row)], table, column, texts.at(row).at(column));
            rows[static_cast<size_t>(row)].Invalid = {};
        }
        return rows;
    }

    /// Writes a set with two entries in each table; returns its path.
    QString StoredSet(const QString& fileName)
    {
        CorrSet set;
        CorrHeaderTexts texts{ QStringLiteral("Mast"), QStringLiteral("Dipole"), QStringLiteral("Works"),
            QStringLiteral("7"), QStringLiteral("30.5"), QStringLiteral("1000") };
        for (const CorrBox box : kCorrBoxes)
            EXPECT_TRUE(CheckCorrBox(box, texts, set));
        const QList<QList<QStringList>> tables{ { { "30", "1", "2" }, { "40", "3", "4" } },
            { { "30", "90" }, { "40", "180" } }, { { "30", "5" }, { "40", "10 | 20" } } };
        for (const CorrTableId table : kCorrTables) {
            EXPECT_FALSE(
                ValidateCorrTab(table, Rows(table, tables.at(static_cast<int>(table))), set.Records).has_value());
            EXPECT_TRUE(SortCorrRecords(table, set.Records));
        }
        EXPECT_TRUE(SetCorrHeader(set));
        EXPECT_TRUE(SaveCorrSet(this->FilePath(fileName)));
        return this->FilePath(fileName);
    }
};

} // namespace tarvik
