// tests/lists/kfactor/kfactor_fixture.h: K-factor tables for tests.
#pragma once

#include "tests/lists/list_fixture.h"

#include "lists/kfactor/kfactorTable.h"

namespace tarvik {

/// Starts with the K-factor table as the current list type. `Base` has a ListStart.
template <typename Base>
class KfactorTest : public Base {
protected:
    KfactorTest()
    {
        SetEditorType(FileClassKfactorTable);
    }

    static KfactorEntry Entry(double frequencyHz, double passive, double active)
    {
        return { true, frequencyHz, passive, active };
    }

    /// A table "Mast" of these rows, from the first on.
    static KfactorTable Table(const QList<KfactorEntry>& entries)
    {
        KfactorTable table;
        table.Name = QStringLiteral("Mast");
        std::copy(entries.begin(), entries.end(), table.Rows.begin());
        return table;
    }
};

} // namespace tarvik
