// tests/tour/controls.h: operates controls, found by name, as a user does.
#pragma once

#include <QString>
#include <QWidget>

class QAbstractItemView;

namespace tarvik {

/// The control of that name; aborts the tour if there is none.
template <typename Kind = QWidget>
Kind& Control(QWidget& form, const QString& name)
{
    auto* control = form.findChild<Kind*>(name);
    if (control == nullptr)
        qFatal("%s has no %s", qPrintable(form.objectName()), qPrintable(name));
    return *control;
}

void Click(QWidget& form, const char* name);

/// Replaces the text of a box.
void Type(QWidget& form, const char* name, const QString& text);

/// The text of a box or label.
QString Text(QWidget& form, const char* name);

bool TitleEndsWith(QWidget& form, const QString& end);

/// Answers a file dialog.
void Choose(QWidget& dialog, const QString& path);

/// Chooses an item of the frame's menus.
void ChooseMenu(QWidget& frame, const char* item);

/// True if a list shows a row of that name.
bool HasRow(QWidget& form, const char* list, const QString& text);

/// Clicks on a row of a list.
void ClickRow(QWidget& form, const char* list, const QString& text);
void DoubleClickRow(QWidget& form, const char* list, const QString& text);

/// Types a new name into the editor that a list has opened over a row.
void TypeRowName(QWidget& form, const char* list, const QString& name);

} // namespace tarvik
