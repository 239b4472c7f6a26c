// tests/lists/antenna/antenna_fixture.h: antenna lists for tests.
#pragma once

#include "tests/lists/list_fixture.h"

#include "lists/antenna/antennaList.h"

namespace tarvik {

/// Starts with the antenna list as the current list type. `Base` has a ListStart.
template <typename Base>
class AntennaTest : public Base {
protected:
    AntennaTest()
    {
        SetEditorType(FileClassAntennaList);
    }

    static AntennaRow FullRow()
    {
        return { true, 1, QStringLiteral("Dipole"), 30e6, 90e6, -1e6, 2, 1, QStringLiteral("Mast"), 7, 12.5,
            QStringLiteral("Array") };
    }

    /// A list "Site" of these rows, from the first on.
    static AntennaTable List(const QList<AntennaRow>& rows)
    {
        AntennaTable table;
        table.Name = QStringLiteral("Site");
        table.Description = QStringLiteral("roof");
        std::copy(rows.begin(), rows.end(), table.Rows.begin());
        return table;
    }
};

} // namespace tarvik
