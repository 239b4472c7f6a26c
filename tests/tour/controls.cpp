#include "tests/tour/controls.h"

#include <QAbstractItemView>
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

namespace tarvik {

namespace {

/// The row of that name; aborts the tour if there is none.
QModelIndex Row(QWidget& form, const char* list, const QString& text)
{
    const auto& view = Control<QAbstractItemView>(form, QString::fromLatin1(list));
    for (int row = 0; row < view.model()->rowCount(); ++row) {
        const QModelIndex index = view.model()->index(row, 0);
        if (index.data().toString() == text)
            return index;
    }
    return {};
}

QPoint Middle(QAbstractItemView& view, const QModelIndex& index)
{
    view.scrollTo(index);
    const QRect place = view.visualRect(index);
    return { place.left() + qMin(place.width() / 2, 60), place.center().y() };
}

QModelIndex NeededRow(QWidget& form, const char* list, const QString& text)
{
    const QModelIndex row = Row(form, list, text);
    if (!row.isValid())
        qFatal("%s of %s has no row %s", list, qPrintable(form.objectName()), qPrintable(text));
    return row;
}

} // namespace

void Click(QWidget& form, const char* name)
{
    QTest::mouseClick(&Control(form, QString::fromLatin1(name)), Qt::LeftButton);
}

void Type(QWidget& form, const char* name, const QString& text)
{
    QWidget& box = Control(form, QString::fromLatin1(name));
    QTest::mouseClick(&box, Qt::LeftButton);
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&box, text);
}

QString Text(QWidget& form, const char* name)
{
    QWidget& control = Control(form, QString::fromLatin1(name));
    if (const auto* box = qobject_cast<QLineEdit*>(&control))
        return box->text();
    if (const auto* box = qobject_cast<QPlainTextEdit*>(&control))
        return box->toPlainText();
    return Control<QLabel>(form, QString::fromLatin1(name)).text();
}

bool TitleEndsWith(QWidget& form, const QString& end)
{
    return form.windowTitle().endsWith(end);
}

void Choose(QWidget& dialog, const QString& path)
{
    auto& name = Control<QLineEdit>(dialog, QStringLiteral("fileNameEdit"));
    name.setText(path);
    QTest::keyClick(&name, Qt::Key_Return);
}

void ChooseMenu(QWidget& frame, const char* item)
{
    Control<QAction>(frame, QString::fromLatin1(item)).trigger();
}

bool HasRow(QWidget& form, const char* list, const QString& text)
{
    return Row(form, list, text).isValid();
}

void ClickRow(QWidget& form, const char* list, const QString& text)
{
    auto& view = Control<QAbstractItemView>(form, QString::fromLatin1(list));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, Middle(view, NeededRow(form, list, text)));
}

void DoubleClickRow(QWidget& form, const char* list, const QString& text)
{
    auto& view = Control<QAbstractItemView>(form, QString::fromLatin1(list));
    const QPoint place = Middle(view, NeededRow(form, list, text));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, place);
}

void TypeRowName(QWidget& form, const char* list, const QString& name)
{
    auto& view = Control<QAbstractItemView>(form, QString::fromLatin1(list));
    auto* box = view.viewport()->findChild<QLineEdit*>();
    if (box == nullptr)
        qFatal("%s edits no name", list);
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(box, name);
    QTest::keyClick(box, Qt::Key_Return);
}

} // namespace tarvik
