// screen/document/descriptionText.h: a text broken into the lines of a block. The box in which it is typed, the picture
// that is saved and all that counts lines go by this, so that they show the same.
#pragma once

#include <QFont>
#include <QPoint>
#include <QString>
#include <QStringList>
#include <QTextOption>

#include <memory>
#include <vector>

class QPainter;
class QTextLayout;

namespace tarvik {

/// A text as a block can show it, lines parted by "\n": every kind of line end is one, any other control character is a
/// blank. Of a text without "\r" each character keeps its position.
QString DescriptionPlain(const QString& text);

/// How a paragraph is broken: by word where a line has a place for it, else anywhere. Text of either direction begins
/// at the left.
QTextOption DescriptionBreaks();

/// Height of a line in pixels.
int DescriptionPitch(const QFont& font);

/// Sets the lines of a laid-out paragraph below each other at the pitch of the font: letters that another font has to
/// lend do not move them.
void DescriptionPlaceLines(const QTextLayout& paragraph, const QFont& font);

/// A plain text in a font at a width in pixels. An empty text is one line.
class DescriptionText {
public:
    DescriptionText(const QString& plain, const QFont& font, int width);
    ~DescriptionText();
    DescriptionText(const DescriptionText&) = delete;
    DescriptionText& operator=(const DescriptionText&) = delete;

    int LineCount() const;

    /// The lines without their ends. Where a line was broken at blanks, they stand at its end.
    QStringList Lines() const;

    /// What of the text stands in the first lines, `count` at most.
    QString FirstLines(int count) const;

    /// In the painter's pen, from the top of the first line on.
    void Paint(QPainter& painter, QPoint leftTop) const;

private:
    QString text_;
    QFont font_;
    std::vector<std::unique_ptr<QTextLayout>> paragraphs_;
};

} // namespace tarvik
