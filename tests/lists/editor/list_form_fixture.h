// tests/lists/editor/list_form_fixture.h: the memory list editor, and list files for it.
#pragma once

#include "tests/lists/editor/editor_form_fixture.h"

#include "lists/memory/FmEditorMemory.h"

#include <functional>

namespace tarvik {

class ListFormTest : public EditorFormTest<FmEditorMemory> {
protected:
    /// Writes a memory list "Van" with these rows used, row n at 100 + n MHz; returns its path.
    QString StoredList(const QList<int>& rows, const QString& name = QStringLiteral("Van.tvm"));

    /// Control name of the cell in visible row `index`.
    static QString CellName(int column, int index);

    QWidget& Cell(int column, int index);
    QString CellText(int column, int index);
    void TypeCell(int column, int index, const QString& text);
    QColor CellColour(int column, int index);
    bool IsChecked(int index);

    /// Runs `action`. A dialog that it opens fails the test and is closed.
    static void ExpectNoDialog(const std::function<void()>& action);
};

} // namespace tarvik
