#include "tests/lists/editor/list_form_fixture.h"

#include "lists/editor/editorGeneral.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QTimer>

namespace tarvik {

QString ListFormTest::StoredList(const QList<int>& rows, const QString& name)
{
    MemoryTable table = EmptyMemoryTable();
    table.MemoryListName = QStringLiteral("Van");
    table.MemoryListDescription = QStringLiteral("roof");
    for (const int row : rows)
        UseRow(table, row, 1e8 + row * 1e6, QStringLiteral("Row %1").arg(row));
    EXPECT_TRUE(WriteMemoryList(FilePath(name), table));
    return FilePath(name);
}

QString ListFormTest::CellName(int column, int index)
{
    const QString prefix = column == 0 ? QStringLiteral("LbCol")
        : column == 1                  ? QStringLiteral("CbCol")
                                       : QStringLiteral("TbCol");
    return QStringLiteral("%1%2[%3]").arg(prefix).arg(column).arg(index);
}

QWidget& ListFormTest::Cell(int column, int index)
{
    return FindControl(form, CellName(column, index));
}

QString ListFormTest::CellText(int column, int index)
{
    return TextOf(form, CellName(column, index));
}

void ListFormTest::TypeCell(int column, int index, const QString& text)
{
    Type(form, CellName(column, index), text);
}

QColor ListFormTest::CellColour(int column, int index)
{
    return Cell(column, index).palette().color(QPalette::Base);
}

bool ListFormTest::IsChecked(int index)
{
    return Find<QCheckBox>(form, CellName(1, index)).isChecked();
}

void ListFormTest::ExpectNoDialog(const std::function<void()>& action)
{
    const DialogForm* const before = DialogTop();
    QTimer closing;
    closing.setSingleShot(true);
    closing.callOnTimeout([before] {
        if (DialogTop() == before)
            return;
        ADD_FAILURE() << "a dialog opens";
        DialogEnd(*DialogTop(), -1);
    });
    closing.start(0);
    action();
}

} // namespace tarvik
