// screen/document/descriptionText.h: breaks a text into the lines of a block. The edit box, saved pictures and line
// counts all use it, so that they agree.
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

/// The text as a block shows it, lines separated by "\n": every kind of line end counts, other control characters
/// become blanks. Without "\r" in the text, character positions do not change.
QString DescriptionPlain(const QString& text);

/// Line breaking: at words if possible, else anywhere. Text of either direction is left-aligned.
QTextOption DescriptionBreaks();

/// Line pitch in pixels.
int DescriptionPitch(const QFont& font);

/// Positions the lines of a laid-out paragraph at the line pitch of the font, so that glyphs of fallback fonts do not
/// shift them.
void DescriptionPlaceLines(const QTextLayout& paragraph, const QFont& font);

/// A plain text laid out in a font at a width in pixels. An empty text has one line.
class DescriptionText {
public:
    DescriptionText(const QString& plain, const QFont& font, int width);
    ~DescriptionText();
    DescriptionText(const DescriptionText&) = delete;
    DescriptionText& operator=(const DescriptionText&) = delete;

    int LineCount() const;

    /// The lines without their ends. Blanks at a line break stay at the end of the line.
    QStringList Lines() const;

    /// The part of the text in the first `count` lines.
    QString FirstLines(int count) const;

    /// Paints with the painter's pen, starting at the top of the first line.
    void Paint(QPainter& painter, QPoint leftTop) const;

private:
    QString text_;
    QFont font_;
    std::vector<std::unique_ptr<QTextLayout>> paragraphs_;
};

} // namespace tarvik
