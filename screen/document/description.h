// screen/document/description.h: the user's text block under a picture: how it wraps, how high it is, where it stands.
// Changing it is in descriptionEdit.h.
#pragma once

#include "screen/document/descriptionText.h"
#include "screen/document/view.h"

#include <QFont>
#include <QString>
#include <QStringList>

namespace tarvik {

/// `ViewDescr` of the settings file, 0 for hidden: kept as it was read. A new window always begins with a hidden block.
struct DescriptionDefaults {
    quint8 ViewDescr = 0;
};
DescriptionDefaults& TheDescriptionDefaults();

void DescrLoadSettings(const QString& iniFile);
void DescrSaveSettings(const QString& iniFile);

inline constexpr int kDescriptionLines = 10;

/// No text of more characters fits into the lines, unless by characters that are not seen, whose tail is lost anyway:
/// what is beyond need not be looked at.
inline constexpr int kDescriptionMostLaidOut = 4 * kDescriptionLength;

/// Columns that a description may have, both ends included, and what it has at first. All 0 for a type without one.
struct DescriptionColumns {
    int Default = 0;
    int Least = 0;
    int Most = 0;
};
DescriptionColumns DescrColumnsOf(qint16 windowType);

/// Checks what was typed as columns; `value` is set only if it is valid.
[[nodiscard]] bool ValidInt(const QString& text, const DescriptionColumns& limits, int& value);

/// True for a window in use that shows its block: a maximised window shows none.
bool DescrVisible(WindowId id);

/// Font of the block: 9 points at 96 pixels an inch, so that a text wraps alike on every screen and in a saved picture;
/// bold on a screen window. Without coloured edges, which are for the screen that they were made for.
QFont DescrFont(qint16 windowType);

/// Width of the text of a window's columns, and height of one line, in pixels.
int DescrWidth(WindowId id);
int DescrLineHeight(WindowId id);

/// `text` as the block of a window shows it. Any line ends.
DescriptionText DescrLaidOut(const QString& text, WindowId id);

/// Its lines: see DescriptionText::Lines.
QStringList DescrLines(const QString& text, WindowId id);

/// Number of lines of the window's text.
int DescrLineCount(WindowId id);

/// Height of the block with its line above, in pixels; 0 while it is not visible.
int DescrHeight(WindowId id);

/// Where the block stands in a window of this client size: in the middle, also where it is wider and sticks out on both
/// sides. Below the bottom edge while not visible.
DescriptionLayout DescrLayout(WindowId id, QSize client);

/// Cuts a text to ten lines of `columns` characters. A line ends at each "\r\n", and at each position that is the
/// columns times the number of the line: positions count from the start of the text, over line ends too.
QString DescrFit(const QString& text, int columns);

/// A text in the form of the record: lines parted by "\r\n", no other control characters, no blanks at the end.
QString DescrNormalised(const QString& text);

/// The same as the record holds it: what is beyond kDescriptionLength is lost.
QString DescrStored(const QString& text);

} // namespace tarvik
