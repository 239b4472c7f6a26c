// screen/document/description.h: layout of the user's text block under a picture: wrapping, height and position.
// descriptionEdit.h changes it.
#pragma once

#include "screen/document/descriptionText.h"
#include "screen/document/view.h"

#include <QFont>
#include <QString>
#include <QStringList>

namespace tarvik {

/// `ViewDescr` of the settings file, 0 for hidden, is stored but not applied: a new window always starts with a
/// hidden block.
struct DescriptionDefaults {
    quint8 ViewDescr = 0;
};
DescriptionDefaults& TheDescriptionDefaults();

void DescrLoadSettings(const QString& iniFile);
void DescrSaveSettings(const QString& iniFile);

inline constexpr int kDescriptionLines = 10;

/// Limit for laying out a text: no longer text fits into the lines, except with invisible characters, whose tail is
/// cut anyway.
inline constexpr int kMaxLaidOutCharacters = 4 * kDescriptionLength;

/// Minimum, maximum and initial columns of a description. All 0 for a type without one.
struct DescriptionColumns {
    int Default = 0;
    int Least = 0;
    int Most = 0;
};
DescriptionColumns DescrColumnsOf(WindowType windowType);

/// Validates a number of columns as typed; `value` is set only if it is valid.
[[nodiscard]] bool ValidInt(const QString& text, const DescriptionColumns& limits, int& value);

/// True for a window in use that shows its block; a maximised window shows none.
bool DescrVisible(WindowId id);

/// Font of the block: 9 points at 96 pixels per inch, so that a text wraps alike on every screen and in a saved
/// picture; bold in a screen window. Without subpixel antialiasing, which suits one screen only.
QFont DescrFont(WindowType windowType);

/// Text width of a window's columns, and line height, in pixels.
int DescrWidth(WindowId id);
int DescrLineHeight(WindowId id);

/// `text` laid out for the block of a window. Accepts any line ends.
DescriptionText DescrLaidOut(const QString& text, WindowId id);

/// Its lines: see DescriptionText::Lines.
QStringList DescrLines(const QString& text, WindowId id);

/// Number of lines of the window's text.
int DescrLineCount(WindowId id);

/// Height of the block and its separator line, in pixels; 0 while it is not visible.
int DescrHeight(WindowId id);

/// As above on a printed page, which shows the block of a maximised window too.
int DescrPrintedHeight(WindowId id);

/// Position of the block in a window of this client size: centred, even if it is wider and overlaps on both sides.
/// Below the bottom edge while not visible.
DescriptionLayout DescrLayout(WindowId id, QSize client);

/// Cuts a text to ten lines of `columns` characters. A line ends at each "\r\n", and at each position that is a
/// multiple of the columns: positions count from the start of the text, across line ends.
QString DescrFit(const QString& text, int columns);

/// Normalises a text for the record: lines separated by "\r\n", no other control characters, no trailing blanks.
QString DescrNormalised(const QString& text);

/// As above, cut to kDescriptionLength as in the record.
QString DescrStored(const QString& text);

} // namespace tarvik
