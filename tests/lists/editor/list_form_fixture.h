// tests/lists/editor/list_form_fixture.h: the memory list editor on the screen, and lists on disk for it.
#pragma once

#include "tests/lists/list_fixture.h"
#include "tests/support/forms.h"

#include "lists/memory/FmEditorMemory.h"

namespace tarvik {

class ListFormTest : public FormTest, protected ListStart {
protected:
    /// Path of a memory list "Van" with these rows in use, each at 100 MHz plus its row in MHz.
    QString StoredList(const QList<int>& rows, const QString& name = QStringLiteral("Van.tvm"));

    /// Opens an editor for a new list, or for `path`.
    void Open(const QString& path = {});

    /// Control name of a cell of a visible row.
    static QString CellName(int column, int index);

    QWidget& Cell(int column, int index);
    QString CellText(int column, int index);
    void TypeCell(int column, int index, const QString& text);
    QColor CellColour(int column, int index);
    bool IsChecked(int index);

    /// Ends the editor, giving up its changes.
    void GiveUp();

    FmEditorMemory form;
};

} // namespace tarvik
